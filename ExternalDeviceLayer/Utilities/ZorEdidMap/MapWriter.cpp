// CMapWriter: groups, leaves and notes. ZorEdidMap.cpp says which walk reads which block.

#include "MapWriter.h"

#include <string.h>

#include <algorithm>
#include <bit>

#include "MapNames.h"

namespace ZorMap
{
namespace
{
constexpr unsigned int gsc_uiByteMask = 0xFF;
constexpr unsigned char gsc_ui8WholeByte = 0xFF;

constexpr SRow gsc_oChecksumRow = ChecksumRow(eId_Checksum, "Checksum");
} // namespace

CZorEdidMap::SField MakeLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, const CRecord& oRecord, unsigned int uiRaw)
{
    const SForm& oForm = oRow.m_oForm;
    CZorEdidMap::SField oField = {};
    oField.m_eId = oRow.m_eId;
    oField.m_pszName = oRow.m_pszName;
    oField.m_pszUnit = oForm.m_pszUnit;
    oField.m_pszMeaning =
        oForm.m_pfnMeaning != nullptr ? oForm.m_pfnMeaning(uiRaw) : FindMeaning(oForm.m_aoMeanings, uiRaw);
    oField.m_llNumber = oForm.m_pfnNumber != nullptr ? oForm.m_pfnNumber(oRecord, uiRaw)
                                                     : ComputeNumber(oForm, uiRaw, oRow.m_oPlace.CountBits());
    oField.m_uiDecimals = oForm.m_uiDecimals;
    oField.m_eKind = oForm.m_eKind;
    oField.m_bNumber =
        oForm.m_eKind == CZorEdidMap::eKind_Number && (oField.m_pszMeaning == nullptr || oForm.m_bStaysNumber);
    oField.m_eArea = oForm.m_eKind == CZorEdidMap::eKind_Reserved || oForm.m_eKind == CZorEdidMap::eKind_Unknown
                         ? eArea_Unused
                         : eArea;
    return oField;
}

bool IsEveryByte(const CRecord& oRecord, unsigned int uiValue)
{
    const unsigned char* pui8End = oRecord.GetData() + oRecord.GetSize();
    return std::all_of(oRecord.GetData(), pui8End, [&](unsigned char ui8Byte) { return ui8Byte == uiValue; });
}

long long ComputeNumber(const SForm& oForm, unsigned int uiRaw, unsigned int uiBits)
{
    long long llRaw = uiRaw;
    if (oForm.m_bSigned && uiBits != 0 && (uiRaw >> (uiBits - 1)) != 0)
    {
        llRaw -= 1LL << uiBits;
    }
    long long llProduct = llRaw * oForm.m_llMultiply;
    if (oForm.m_uiDivide > 1)
    {
        // Half up, downwards for what is left below 0.
        const long long llDivisor = 2LL * oForm.m_uiDivide;
        const long long llDoubled = 2 * llProduct + oForm.m_uiDivide;
        llProduct = llDoubled / llDivisor - (llDoubled % llDivisor < 0 ? 1 : 0);
    }
    return llProduct + oForm.m_llAdd;
}

// ---- Bytes and ranges ----

CMapWriter::CMapWriter(SMapContent& oMap) : m_oMap(oMap), m_aoOpen(), m_uiDepth(0)
{
    m_aui8Free.SetCount(oMap.GetBlockBytes(), -1);
    ZorTools_memset(m_aui8Free.GetData(), gsc_ui8WholeByte, m_aui8Free.GetCount());
}

unsigned int CMapWriter::GetByte(unsigned int uiOffset) const
{
    return uiOffset < m_oMap.GetSize() ? m_oMap.GetData()[uiOffset] : 0U;
}

CRecord CMapWriter::GetRecord(unsigned int uiOffset, unsigned int uiLength) const
{
    const unsigned int uiSize = m_oMap.GetSize();
    const unsigned int uiFirst = uiOffset < uiSize ? uiOffset : uiSize;
    const unsigned int uiLeft = uiSize - uiFirst;
    return { GetFacts(), m_oMap.GetData() + uiFirst, uiLength < uiLeft ? uiLength : uiLeft };
}

// All blocks where no group is open.
CMapWriter::SOpenGroup CMapWriter::GetOpenGroup() const
{
    const unsigned int uiDepth = m_uiDepth < msc_uiMostDepth ? m_uiDepth : msc_uiMostDepth;
    return uiDepth != 0 ? m_aoOpen[uiDepth - 1] : SOpenGroup{ CZorEdidMap::msc_uiNone, { 0, m_aui8Free.GetCount() } };
}

CMapWriter::SRange CMapWriter::Clip(unsigned int uiOffset, unsigned int uiLength) const
{
    const SRange oOpen = GetOpenRange();
    const unsigned int uiEnd = oOpen.m_uiOffset + oOpen.m_uiLength;
    const unsigned int uiFirst = uiOffset < oOpen.m_uiOffset ? oOpen.m_uiOffset : uiOffset < uiEnd ? uiOffset : uiEnd;
    const unsigned int uiSkipped = uiFirst > uiOffset ? uiFirst - uiOffset : 0;
    const unsigned int uiWanted = uiLength > uiSkipped ? uiLength - uiSkipped : 0;
    return { uiFirst, uiWanted < uiEnd - uiFirst ? uiWanted : uiEnd - uiFirst };
}

// ---- Groups ----

unsigned int CMapWriter::AppendEntry(SEntry& oEntry)
{
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_uiIndex = CZorEdidMap::msc_uiNone;
    oField.m_uiTiming = CZorEdidMap::msc_uiNone;
    oField.m_uiOther = CZorEdidMap::msc_uiNone;
    oField.m_uiDepth = m_uiDepth < msc_uiMostDepth ? m_uiDepth : msc_uiMostDepth;
    oField.m_uiGroup = GetOpenGroup().m_uiField;
    oField.m_uiEnd = m_oMap.GetFieldCount() + 1;
    m_oMap.m_aoEntries.Add(oEntry);
    return oField.m_uiEnd - 1;
}

unsigned int CMapWriter::BeginGroup(EZorEdidField eId, const char* pszName, CZorEdidMap::EArea eArea,
                                    unsigned int uiOffset, unsigned int uiLength)
{
    if (m_uiDepth >= msc_uiMostDepth)
    {
        MASSERT_FAILED(); // a walk that nests by the bytes
        ++m_uiDepth;
        return CZorEdidMap::msc_uiNone;
    }
    const SRange oRange = Clip(uiOffset, uiLength);
    unsigned int uiField = CZorEdidMap::msc_uiNone;
    if (oRange.m_uiLength != 0)
    {
        SEntry oEntry = { {}, { nullptr, nullptr, oRange.m_uiOffset, oRange.m_uiLength, true } };
        CZorEdidMap::SField& oField = oEntry.m_oField;
        oField.m_eId = eId;
        oField.m_pszName = pszName;
        oField.m_eKind = CZorEdidMap::eKind_Group;
        oField.m_eArea = eArea;
        oField.m_uiOffset = oRange.m_uiOffset;
        oField.m_uiLength = oRange.m_uiLength;
        oField.m_uiFirstPiece = m_oMap.m_aoPieces.GetCount();
        uiField = AppendEntry(oEntry);
    }
    m_aoOpen[m_uiDepth++] = { uiField, oRange };
    return uiField;
}

void CMapWriter::EndGroup(const SRest& oRest)
{
    if (m_uiDepth == 0)
    {
        MASSERT_FAILED();
        return;
    }
    if (m_uiDepth > msc_uiMostDepth)
    {
        --m_uiDepth;
        return;
    }
    const SRange oRange = GetOpenRange();
    const unsigned int uiEnd = oRange.m_uiOffset + oRange.m_uiLength;
    const unsigned char* pui8Free = m_aui8Free.GetData(); // the range lies in the blocks
    for (unsigned int uiOffset = oRange.m_uiOffset; uiOffset < uiEnd;)
    {
        unsigned int uiLength = 1;
        const unsigned char ui8Mask = pui8Free[uiOffset];
        while (ui8Mask == gsc_ui8WholeByte && uiOffset + uiLength < uiEnd &&
               pui8Free[uiOffset + uiLength] == gsc_ui8WholeByte)
        {
            ++uiLength;
        }
        if (ui8Mask != 0)
        {
            AddRest(oRest, uiOffset, uiLength, ui8Mask);
        }
        uiOffset += uiLength;
    }
    const unsigned int uiGroup = m_aoOpen[--m_uiDepth].m_uiField;
    if (HasField(uiGroup))
    {
        const unsigned int uiFieldsEnd = m_oMap.GetFieldCount();
        GetField(uiGroup).m_uiEnd = uiFieldsEnd;
        NumberFields(uiGroup + 1, uiFieldsEnd);
    }
}

// The fields of one group. What is left over has no number, as its place says all.
void CMapWriter::NumberFields(unsigned int uiFirst, unsigned int uiEnd)
{
    SEntry* poEntries = m_oMap.m_aoEntries.GetData(); // up to uiEnd all are there
    const auto fnCounts = [](const SEntry& oEntry) {
        const CZorEdidMap::SField& oField = oEntry.m_oField;
        return oEntry.m_oOrigin.m_bAlone && oField.m_uiIndex == CZorEdidMap::msc_uiNone &&
               oField.m_eKind != CZorEdidMap::eKind_Reserved && oField.m_eKind != CZorEdidMap::eKind_Unknown;
    };
    for (unsigned int i = uiFirst; i < uiEnd; i = poEntries[i].m_oField.m_uiEnd)
    {
        CZorEdidMap::SField& oField = poEntries[i].m_oField;
        unsigned int uiNext = fnCounts(poEntries[i]) ? oField.m_uiEnd : uiEnd;
        for (unsigned int uiCount = 0; uiNext < uiEnd; uiNext = poEntries[uiNext].m_oField.m_uiEnd)
        {
            CZorEdidMap::SField& oOther = poEntries[uiNext].m_oField;
            if (fnCounts(poEntries[uiNext]) &&
                (oField.m_pszName == oOther.m_pszName || strcmp(oField.m_pszName, oOther.m_pszName) == 0))
            {
                oField.m_uiIndex = 0;
                oOther.m_uiIndex = ++uiCount;
            }
        }
    }
}

unsigned int CMapWriter::BeginBlock(EZorEdidField eId, const char* pszName, unsigned int uiOffset,
                                    unsigned int uiLength)
{
    const unsigned int uiField = BeginGroup(eId, pszName, eArea_Structure, uiOffset, uiLength);
    if (uiLength < msc_uiBlockSize)
    {
        AddNote(uiField, eZorEdidRule_BlockCut, { "bytes", uiLength });
    }
    return uiField;
}

void CMapWriter::EndBlock(const SRest& oRest)
{
    const SRange oRange = GetOpenRange();
    if (oRange.m_uiLength < msc_uiBlockSize)
    {
        EndGroup(gsc_oCutRest);
        return;
    }
    AddChecksum(gsc_oChecksumRow, oRange.m_uiOffset, oRange.m_uiOffset + msc_uiBlockSize - 1);
    EndGroup(oRest);
}

unsigned int CMapWriter::BeginGroup(const STable& oTable, unsigned int uiOffset, unsigned int uiLength)
{
    const unsigned int uiField = BeginGroup(oTable.m_eId, oTable.m_pszName, oTable.m_eArea, uiOffset, uiLength);
    if (HasField(uiField))
    {
        m_oMap.m_aoEntries[uiField].m_oOrigin.m_poTable = &oTable;
    }
    return uiField;
}

unsigned int CMapWriter::BeginRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength)
{
    const unsigned int uiField = BeginGroup(oTable, uiOffset, uiLength);
    const SRange oRange = GetOpenRange();
    AddRows(oTable, oRange.m_uiOffset, oRange.m_uiLength);
    return uiField;
}

unsigned int CMapWriter::AddRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength)
{
    const unsigned int uiField = BeginRecord(oTable, uiOffset, uiLength);
    EndGroup();
    return uiField;
}

void CMapWriter::AddUnknownEnd()
{
    const SRange oRange = GetOpenRange();
    const unsigned int uiEnd = oRange.m_uiOffset + oRange.m_uiLength;
    const unsigned char* pui8Free = m_aui8Free.GetData(); // the range lies in the blocks
    unsigned int uiFirst = uiEnd;
    while (uiFirst > oRange.m_uiOffset && pui8Free[uiFirst - 1] == gsc_ui8WholeByte)
    {
        --uiFirst;
    }
    if (uiFirst < uiEnd)
    {
        AddRest(gsc_oUnknownRest, uiFirst, uiEnd - uiFirst, gsc_ui8WholeByte);
    }
}

void CMapWriter::AddRows(const STable& oTable, unsigned int uiOffset, unsigned int uiLength)
{
    for (const SRow& oRow : oTable.m_aoRows)
    {
        AddRow(oRow, oTable.m_eArea, { uiOffset, uiLength });
    }
}

void CMapWriter::AddItems(const STable& oTable, unsigned int uiOffset, unsigned int uiLength, unsigned int uiItemSize)
{
    if (uiItemSize == 0)
    {
        MASSERT_FAILED();
        return;
    }
    const SRange oRange = Clip(uiOffset, uiLength);
    for (unsigned int i = 0; i < oRange.m_uiLength / uiItemSize; ++i)
    {
        AddRecord(oTable, oRange.m_uiOffset + i * uiItemSize, uiItemSize);
    }
}

// ---- Leaves ----

unsigned int CMapWriter::AddLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, unsigned int uiOffset,
                                 unsigned int uiLength)
{
    const unsigned int uiField = AddRow(oRow, eArea, { uiOffset, uiLength });
    if (HasField(uiField))
    {
        m_oMap.m_aoEntries[uiField].m_oOrigin.m_bAlone = true;
    }
    return uiField;
}

// The pieces lie in the open group, and so in the blocks.
bool CMapWriter::IsFree(const SPieces& oPieces) const
{
    const unsigned char* pui8Free = m_aui8Free.GetData();
    for (unsigned int i = 0; i < oPieces.m_uiCount; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oPieces.m_aoPieces[i];
        for (unsigned int j = 0; j < oPiece.m_uiLength; ++j)
        {
            if ((oPiece.m_ui8Mask & ~pui8Free[oPiece.m_uiOffset + j]) != 0)
            {
                return false;
            }
        }
    }
    return true;
}

// The pieces are free.
unsigned int CMapWriter::AppendLeaf(SEntry& oEntry, const SPieces& oPieces)
{
    unsigned int uiFirst = oPieces.m_aoPieces[0].m_uiOffset;
    unsigned int uiEnd = uiFirst;
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_uiFirstPiece = m_oMap.m_aoPieces.GetCount();
    oField.m_uiPieces = oPieces.m_uiCount;
    for (unsigned int i = 0; i < oPieces.m_uiCount; ++i)
    {
        const CZorEdidMap::SPiece& oPiece = oPieces.m_aoPieces[i];
        const unsigned int uiPieceEnd = oPiece.m_uiOffset + oPiece.m_uiLength;
        uiFirst = oPiece.m_uiOffset < uiFirst ? oPiece.m_uiOffset : uiFirst;
        uiEnd = uiPieceEnd > uiEnd ? uiPieceEnd : uiEnd;
        m_oMap.m_aoPieces.Add(oPiece);
        TakeBits(oPiece, m_oMap.GetFieldCount());
    }
    oField.m_uiOffset = uiFirst;
    oField.m_uiLength = uiEnd - uiFirst;
    return AppendEntry(oEntry);
}

void CMapWriter::TakeBits(const CZorEdidMap::SPiece& oPiece, unsigned int uiField)
{
    for (unsigned int i = oPiece.m_uiOffset; i < oPiece.m_uiOffset + oPiece.m_uiLength; ++i)
    {
        unsigned int* puiLeaves = m_oMap.m_auiLeaves.GetData() + static_cast<size_t>(i) * gsc_uiBits;
        if (oPiece.m_ui8Mask == gsc_ui8WholeByte)
        {
            std::fill_n(puiLeaves, gsc_uiBits, uiField);
        }
        for (unsigned int uiMask = oPiece.m_ui8Mask; uiMask != 0 && uiMask != gsc_ui8WholeByte; uiMask &= uiMask - 1)
        {
            puiLeaves[std::countr_zero(uiMask)] = uiField;
        }
        m_aui8Free.GetData()[i] &= static_cast<unsigned char>(~oPiece.m_ui8Mask);
    }
}

// Those that lie in the record; none when one of them lies outside of the open group. A run to the end ends with both.
CMapWriter::SPieces CMapWriter::FindPieces(const SPlace& oPlace, const SRange& oRecord) const
{
    const SRange oOpen = GetOpenRange();
    const unsigned int uiOpenEnd = oOpen.m_uiOffset + oOpen.m_uiLength;
    const unsigned int uiRecordEnd = oRecord.m_uiOffset + oRecord.m_uiLength;
    SPieces oPieces = {};
    for (unsigned int i = 0; i < oPlace.m_ui8Pieces; ++i)
    {
        const SBitsPlace& oPart = oPlace.m_aoPieces[i];
        const unsigned int uiFirst = oRecord.m_uiOffset + oPart.m_ui8Offset;
        if (uiFirst >= uiRecordEnd)
        {
            oPieces.m_bCut = true;
            continue;
        }
        if (uiFirst < oOpen.m_uiOffset || uiFirst >= uiOpenEnd)
        {
            return {};
        }
        const bool bToTheEnd = oPlace.m_ui8Run == gsc_ui8ToTheEnd;
        const unsigned int uiDeclared = bToTheEnd              ? std::min(uiOpenEnd, uiRecordEnd) - uiFirst
                                        : oPlace.m_ui8Run != 0 ? oPlace.m_ui8Run
                                                               : 1U;
        const unsigned int uiLength = std::min(uiDeclared, uiRecordEnd - uiFirst);
        if (uiLength > uiOpenEnd - uiFirst)
        {
            return {};
        }
        oPieces.m_bCut = oPieces.m_bCut || uiLength < uiDeclared;
        oPieces.m_aoPieces[oPieces.m_uiCount++] = { uiFirst, uiLength, oPart.GetMask() };
    }
    return oPieces;
}

unsigned int CMapWriter::AddRow(const SRow& oRow, CZorEdidMap::EArea eArea, const SRange& oRange)
{
    const CRecord oRecord = GetRecord(oRange.m_uiOffset, oRange.m_uiLength);
    if (oRow.m_pfnApplies != nullptr && !oRow.m_pfnApplies(oRecord))
    {
        return CZorEdidMap::msc_uiNone;
    }
    const SPieces oPieces = FindPieces(oRow.m_oPlace, { oRange.m_uiOffset, oRecord.GetSize() });
    if (oPieces.m_uiCount == 0)
    {
        return CZorEdidMap::msc_uiNone;
    }
    if (!IsFree(oPieces))
    {
        m_oMap.m_pszOverlap = m_oMap.m_pszOverlap != nullptr ? m_oMap.m_pszOverlap : oRow.m_pszName;
        return CZorEdidMap::msc_uiNone;
    }
    if (oPieces.m_bCut)
    {
        return AddCutRow(oRow, oPieces, oRecord.GetSize());
    }
    const unsigned int uiRaw = oRecord.Get(oRow.m_oPlace);
    SEntry oEntry = { MakeLeaf(oRow, eArea, oRecord, uiRaw),
                      { &oRow, nullptr, oRange.m_uiOffset, oRecord.GetSize(), false } };
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    NoteValue(uiField, oRow, oRecord, uiRaw);
    return uiField;
}

// Notes of a group that is still open follow all notes of the fields before it.
bool CMapWriter::HasError(unsigned int uiGroup) const
{
    for (unsigned int i = m_oMap.m_aoNotes.GetCount(); i > 0 && m_oMap.m_aoNotes[i - 1].m_uiField >= uiGroup; --i)
    {
        const CZorEdidMap::SNote& oNote = m_oMap.m_aoNotes[i - 1];
        if (oNote.m_uiField == uiGroup && oNote.m_eSeverity == CZorEdidMap::eSeverity_Error)
        {
            return true;
        }
    }
    return false;
}

// What is there of a field. Where nothing is said of its bits anyway, nothing is lost; and a group that has an error
// says already that it is cut.
unsigned int CMapWriter::AddCutRow(const SRow& oRow, const SPieces& oPieces, unsigned int uiRecord)
{
    const CZorEdidMap::EKind eKind = oRow.m_oForm.m_eKind;
    if (eKind == CZorEdidMap::eKind_Reserved)
    {
        return CZorEdidMap::msc_uiNone;
    }
    SEntry oEntry = {};
    oEntry.m_oField.m_eId = oRow.m_eId;
    oEntry.m_oField.m_pszName = oRow.m_pszName;
    oEntry.m_oField.m_eKind = CZorEdidMap::eKind_Unknown;
    oEntry.m_oField.m_eArea = eArea_Unused;
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    if (eKind != CZorEdidMap::eKind_Unknown && !HasError(GetOpenGroup().m_uiField))
    {
        const unsigned int uiEnd = oRow.m_oPlace.m_ui8Run != 0
                                       ? oRow.m_oPlace.m_aoPieces[0].m_ui8Offset + oRow.m_oPlace.m_ui8Run
                                       : oRow.m_oPlace.GetEnd();
        AddNote(uiField, eZorEdidRule_PastStructure, CountAtLeast("bytes", uiRecord, uiEnd));
    }
    return uiField;
}

void CMapWriter::NoteReserved(unsigned int uiField)
{
    if (m_oMap.GetField(uiField).m_pszMeaning == gsc_szReserved)
    {
        AddNote(uiField, eZorEdidRule_ReservedValue);
    }
}

void CMapWriter::NoteValue(unsigned int uiField, const SRow& oRow, const CRecord& oRecord, unsigned int uiRaw)
{
    const SForm& oForm = oRow.m_oForm;
    const CZorEdidMap::SField& oField = m_oMap.GetField(uiField);
    NoteReserved(uiField);
    const bool bExpected = oRow.m_oPlace.m_ui8Run != 0
                               ? IsEveryByte(GetRecord(oField.m_uiOffset, oField.m_uiLength), oForm.m_uiExpected)
                               : uiRaw == oForm.m_uiExpected;
    const auto fnNote = [&](const SBreach& oBreach) {
        const auto fnNumber = [&](unsigned int uiLimit) {
            return uiLimit != SBreach::msc_uiAny ? MakeLeaf(oRow, eArea_Unused, oRecord, uiLimit).m_llNumber
                                                 : CZorEdidMap::SNumbers::msc_llNone;
        };
        CZorEdidMap::SNumbers oNumbers;
        oNumbers.m_llLeast = fnNumber(oBreach.m_uiLeast);
        oNumbers.m_llMost = fnNumber(oBreach.m_uiMost);
        AddNote(uiField, oBreach.m_eRule, oNumbers);
    };
    if (oForm.m_uiExpected != SForm::msc_uiAny && !bExpected)
    {
        fnNote({ oForm.m_eUnexpected, oForm.m_uiExpected, oForm.m_uiExpected });
    }
    if (oRow.m_pfnCheck != nullptr)
    {
        fnNote(oRow.m_pfnCheck(oRecord, uiRaw));
    }
}

void CMapWriter::AddRest(const SRest& oRest, unsigned int uiOffset, unsigned int uiLength, unsigned char ui8Mask)
{
    SEntry oEntry = { {}, { nullptr, nullptr, uiOffset, uiLength, false } };
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_eId = oRest.m_eId;
    oField.m_pszName = oRest.m_pszName;
    oField.m_eKind = oRest.m_eKind;
    oField.m_eArea = eArea_Unused;
    SPieces oPieces = {};
    oPieces.m_aoPieces[oPieces.m_uiCount++] = { uiOffset, uiLength, ui8Mask };
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    unsigned int uiSet = 0;
    for (unsigned int i = 0; i < uiLength; ++i)
    {
        uiSet |= GetByte(uiOffset + i) & ui8Mask;
    }
    if (oRest.m_eKind == CZorEdidMap::eKind_Reserved && uiSet != 0)
    {
        AddNote(uiField, oRest.m_eNotZero);
    }
}

unsigned int CMapWriter::AddChecksum(const SRow& oRow, unsigned int uiFirst, unsigned int uiOffset)
{
    const SRange oPlace = Clip(uiOffset, 1);
    SPieces oPieces = {};
    oPieces.m_aoPieces[oPieces.m_uiCount++] = { uiOffset, 1, gsc_ui8WholeByte };
    if (oPlace.m_uiLength == 0 || uiFirst > uiOffset || !IsFree(oPieces))
    {
        return CZorEdidMap::msc_uiNone;
    }
    const unsigned int uiLength = uiOffset - uiFirst + 1;
    SEntry oEntry = { {}, { &oRow, nullptr, uiFirst, uiLength, false } };
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_eId = oRow.m_eId;
    oField.m_pszName = oRow.m_pszName;
    oField.m_llNumber = GetByte(uiOffset);
    oField.m_eKind = CZorEdidMap::eKind_Checksum;
    oField.m_eArea = eArea_Structure;
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < uiLength; ++i)
    {
        uiSum += GetByte(uiFirst + i);
    }
    if ((uiSum & gsc_uiByteMask) != 0)
    {
        AddNote(uiField, eZorEdidRule_Checksum);
    }
    return uiField;
}

// ---- Notes and timings ----

void CMapWriter::AddNote(unsigned int uiField, EZorEdidRule eRule, const CZorEdidMap::SNumbers& oNumbers)
{
    if (const SZorEdidRule* poRule = FindZorEdidRule(eRule))
    {
        AddNote(uiField, eRule, poRule->m_eSeverity, oNumbers);
    }
}

void CMapWriter::AddNote(unsigned int uiField, EZorEdidRule eRule, CZorEdidMap::ESeverity eSeverity,
                         const CZorEdidMap::SNumbers& oNumbers)
{
    const SZorEdidRule* poRule = FindZorEdidRule(eRule);
    if (poRule != nullptr && HasField(uiField))
    {
        m_oMap.m_aoNotes.Add({ uiField, eSeverity, poRule->m_pszWhat, eRule, oNumbers });
        ++GetField(uiField).m_uiNotes;
    }
}

// Puts the notes into the order of their fields; those of one field stay as they came.
void CMapWriter::OrderNotes()
{
    const CMArray<CZorEdidMap::SNote, const CZorEdidMap::SNote&> aoNotes = m_oMap.m_aoNotes;
    SEntry* const poEnd = m_oMap.m_aoEntries.GetData() + m_oMap.GetFieldCount();
    unsigned int uiNext = 0;
    for (SEntry* poEntry = m_oMap.m_aoEntries.GetData(); poEntry != poEnd; ++poEntry)
    {
        CZorEdidMap::SField& oField = poEntry->m_oField;
        oField.m_uiFirstNote = uiNext;
        uiNext += oField.m_uiNotes;
        oField.m_uiNotes = 0;
    }
    for (unsigned int i = 0; i < aoNotes.GetCount(); ++i)
    {
        CZorEdidMap::SField& oField = GetField(aoNotes[i].m_uiField);
        m_oMap.m_aoNotes[oField.m_uiFirstNote + oField.m_uiNotes++] = aoNotes[i];
    }
}

void CMapWriter::SetTiming(unsigned int uiField, CZorEdidMap::EList eList, unsigned int uiNumber,
                           unsigned int uiNumbers)
{
    if (HasField(uiField) && uiNumber != CZorEdidMap::msc_uiNone)
    {
        GetField(uiField).m_eList = eList;
        GetField(uiField).m_uiTiming = uiNumber;
        GetField(uiField).m_uiTimings = uiNumbers;
    }
}

void CMapWriter::AddOtherTiming(unsigned int uiField, unsigned int uiNumber)
{
    if (!HasField(uiField))
    {
        return;
    }
    CZorEdidMap::SField& oField = GetField(uiField);
    if (oField.m_uiOthers == 0)
    {
        oField.m_uiOther = uiNumber;
    }
    oField.m_uiOthers += uiNumber == oField.m_uiOther + oField.m_uiOthers ? 1 : 0;
}

void CMapWriter::SetName(unsigned int uiField, const char* pszName)
{
    if (HasField(uiField))
    {
        GetField(uiField).m_pszName = pszName;
    }
}

void CMapWriter::SetMeaning(unsigned int uiField, const char* pszMeaning)
{
    if (HasField(uiField))
    {
        GetField(uiField).m_pszMeaning = pszMeaning;
        NoteReserved(uiField);
    }
}

void CMapWriter::SetMode(unsigned int uiField, unsigned int uiCode, unsigned int uiMarks)
{
    if (HasField(uiField))
    {
        SOrigin& oOrigin = m_oMap.m_aoEntries[uiField].m_oOrigin;
        oOrigin.m_ui8Code = static_cast<unsigned char>(uiCode);
        oOrigin.m_ui8Marks = static_cast<unsigned char>(uiMarks);
    }
}

void CMapWriter::SetIndex(unsigned int uiField, unsigned int uiIndex)
{
    if (HasField(uiField))
    {
        GetField(uiField).m_uiIndex = uiIndex;
    }
}

unsigned int CMapWriter::FindField(unsigned int uiOffset, unsigned int uiLength) const
{
    unsigned int uiFound = CZorEdidMap::msc_uiNone;
    unsigned int uiField = m_oMap.FindLeaf(uiOffset, gsc_uiBits - 1);
    while (uiField != CZorEdidMap::msc_uiNone)
    {
        const CZorEdidMap::SField& oField = m_oMap.GetField(uiField);
        uiFound = oField.m_uiOffset == uiOffset && oField.m_uiLength == uiLength ? uiField : uiFound;
        uiField = oField.m_uiGroup;
    }
    return uiFound;
}

void VisitSharedIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_oReservedRest, gsc_oUnknownRest, gsc_oPaddingRest, gsc_oFillerRest, gsc_oCutRest, gsc_oTailRest,
                   gsc_oChecksumRow);
}
} // namespace ZorMap

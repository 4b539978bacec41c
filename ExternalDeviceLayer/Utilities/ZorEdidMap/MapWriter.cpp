// CMapWriter: groups, leaves and notes. Which block is walked by what stands in ZorEdidMap.cpp.

#include "MapWriter.h"

#include <string.h>

#include <algorithm>
#include <bit>

namespace
{
constexpr unsigned int gsc_uiBits = 8; // of a byte
constexpr unsigned int gsc_uiByteMask = 0xFF;
constexpr unsigned char gsc_ui8WholeByte = 0xFF;

constexpr SForm MakeChecksumForm() { return MakeForm(CZorEdidMap::eKind_Checksum); }
// Its record ends with the checksum byte: only a name and a kind are asked.
constexpr SRow gsc_oChecksumRow = { {}, "Checksum", MakeChecksumForm() };

constexpr unsigned int GetWidth(const SBitsPlace& oPiece) { return oPiece.m_ui8High - oPiece.m_ui8Low + 1U; }

constexpr unsigned char GetMask(const SBitsPlace& oPiece)
{
    return static_cast<unsigned char>(((1U << GetWidth(oPiece)) - 1U) << oPiece.m_ui8Low);
}

constexpr unsigned int CountBits(const SPlace& oPlace)
{
    unsigned int uiBits = 0;
    for (unsigned int i = 0; i < oPlace.m_ui8Pieces; ++i)
    {
        uiBits += GetWidth(oPlace.m_aoPieces[i]);
    }
    return uiBits;
}

const char* FindMeaning(const SForm& oForm, unsigned int uiRaw)
{
    for (const SMeaning& oMeaning : oForm.m_aoMeanings)
    {
        if (uiRaw >= oMeaning.m_uiFirst && uiRaw <= oMeaning.m_uiLast)
        {
            return oMeaning.m_pszName;
        }
    }
    return nullptr;
}

bool IsEveryByte(const CRecord& oRecord, const CZorEdidMap::SPiece& oPiece, unsigned int uiRecordOffset,
                 unsigned int uiValue)
{
    for (unsigned int i = 0; i < oPiece.m_uiLength; ++i)
    {
        if (oRecord.GetByte(oPiece.m_uiOffset - uiRecordOffset + i) != uiValue)
        {
            return false;
        }
    }
    return true;
}
} // namespace

unsigned int CRecord::Get(const SPlace& oPlace) const
{
    if (oPlace.m_ui8Run != 0)
    {
        return 0;
    }
    unsigned int uiValue = 0;
    for (unsigned int i = 0; i < oPlace.m_ui8Pieces; ++i)
    {
        const SBitsPlace& oPiece = oPlace.m_aoPieces[i];
        uiValue = (uiValue << GetWidth(oPiece)) | GetBits(oPiece.m_ui8Offset, oPiece.m_ui8High, oPiece.m_ui8Low);
    }
    return uiValue;
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

CMapWriter::CMapWriter(CZorEdidMap& oMap, const SImageFacts& oFacts)
    : m_oMap(oMap), m_oFacts(oFacts), m_auiOpen(), m_uiDepth(0), m_uiLast(0)
{
    m_aui8Free.SetCount(oMap.m_auiLeaves.GetCount() / gsc_uiBits, -1);
    ZorTools_memset(m_aui8Free.GetData(), gsc_ui8WholeByte, m_aui8Free.GetCount());
}

SImageFacts CMapWriter::GetFacts(const CZorEdidMap& oMap)
{
    return { oMap.m_uiRevision, oMap.m_bDigital, oMap.m_bContinuous };
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
    return { m_oFacts, m_oMap.GetData() + uiFirst, uiLength < uiLeft ? uiLength : uiLeft };
}

unsigned int CMapWriter::GetOpenGroup() const
{
    const unsigned int uiDepth = m_uiDepth < msc_uiMostDepth ? m_uiDepth : msc_uiMostDepth;
    return uiDepth != 0 ? m_auiOpen[uiDepth - 1] : CZorEdidMap::msc_uiNone;
}

CMapWriter::SRange CMapWriter::GetOpenRange() const
{
    const unsigned int uiGroup = GetOpenGroup();
    if (uiGroup == CZorEdidMap::msc_uiNone)
    {
        return { 0, m_aui8Free.GetCount() }; // the blocks
    }
    const CZorEdidMap::SField& oGroup = m_oMap.GetField(uiGroup);
    return { oGroup.m_uiOffset, oGroup.m_uiLength };
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

unsigned int CMapWriter::AppendEntry(CZorEdidMap::SEntry& oEntry)
{
    oEntry.m_oOrigin.m_uiGroup = GetOpenGroup();
    m_uiLast = m_oMap.m_aoEntries.GetCount();
    m_oMap.m_aoEntries.Add(oEntry);
    return m_uiLast;
}

unsigned int CMapWriter::BeginGroup(const char* pszName, CZorEdidMap::EArea eArea, unsigned int uiOffset,
                                    unsigned int uiLength, unsigned int uiIndex)
{
    if (m_uiDepth >= msc_uiMostDepth)
    {
        MASSERT_FAILED(); // a walk that nests by the bytes
        ++m_uiDepth;
        return m_uiLast;
    }
    const SRange oRange = Clip(uiOffset, uiLength);
    CZorEdidMap::SEntry oEntry = {};
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_pszName = pszName;
    oField.m_eKind = CZorEdidMap::eKind_Group;
    oField.m_eArea = eArea;
    oField.m_uiIndex = uiIndex;
    oField.m_uiOffset = oRange.m_uiOffset;
    oField.m_uiLength = oRange.m_uiLength;
    oField.m_uiDepth = m_uiDepth;
    oField.m_uiTiming = CZorEdidMap::msc_uiNone;
    oField.m_uiFirstPiece = m_oMap.m_aoPieces.GetCount();
    oEntry.m_oOrigin = { nullptr, nullptr, oRange.m_uiOffset, oRange.m_uiLength, CZorEdidMap::msc_uiNone };
    const unsigned int uiField = AppendEntry(oEntry);
    m_auiOpen[m_uiDepth++] = uiField;
    return uiField;
}

void CMapWriter::EndGroup(const char* pszRest, CZorEdidMap::EKind eRest)
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
            AddRest(pszRest, eRest, uiOffset, uiLength, ui8Mask);
        }
        uiOffset += uiLength;
    }
    const unsigned int uiGroup = m_auiOpen[--m_uiDepth];
    GetField(uiGroup).m_uiEnd = m_oMap.GetFieldCount();
    m_uiLast = uiGroup;
}

unsigned int CMapWriter::BeginBlock(const char* pszName, unsigned int uiOffset, unsigned int uiLength)
{
    const unsigned int uiField = BeginGroup(pszName, CZorEdidMap::eArea_Structure, uiOffset, uiLength);
    if (uiLength < msc_uiBlockSize)
    {
        AddNote(uiField, CZorEdidMap::eSeverity_Error, "cut short: a block has 128 bytes");
    }
    return uiField;
}

void CMapWriter::EndBlock(const char* pszRest, CZorEdidMap::EKind eRest)
{
    const SRange oRange = GetOpenRange();
    if (oRange.m_uiLength < msc_uiBlockSize)
    {
        EndGroup("Unknown, cut short", CZorEdidMap::eKind_Unknown);
        return;
    }
    AddChecksum(oRange.m_uiOffset, oRange.m_uiOffset + msc_uiBlockSize - 1);
    EndGroup(pszRest, eRest);
}

unsigned int CMapWriter::BeginGroup(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                                    unsigned int uiIndex)
{
    const unsigned int uiField = BeginGroup(oTable.m_pszName, oTable.m_eArea, uiOffset, uiLength, uiIndex);
    m_oMap.m_aoEntries[uiField].m_oOrigin.m_poTable = &oTable;
    return uiField;
}

unsigned int CMapWriter::BeginRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                                     unsigned int uiIndex)
{
    const unsigned int uiField = BeginGroup(oTable, uiOffset, uiLength, uiIndex);
    const SRange oRange = GetOpenRange();
    AddRows(oTable, oRange.m_uiOffset, oRange.m_uiLength);
    return uiField;
}

unsigned int CMapWriter::AddRecord(const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                                   unsigned int uiIndex)
{
    const unsigned int uiField = BeginRecord(oTable, uiOffset, uiLength, uiIndex);
    EndGroup();
    return uiField;
}

void CMapWriter::AddRows(const STable& oTable, unsigned int uiOffset, unsigned int uiLength)
{
    for (const SRow& oRow : oTable.m_aoRows)
    {
        AddRow(oRow, oTable.m_eArea, { uiOffset, uiLength }, CZorEdidMap::msc_uiNone);
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
        AddRecord(oTable, oRange.m_uiOffset + i * uiItemSize, uiItemSize, i);
    }
}

// ---- Leaves ----

void CMapWriter::AddLeaf(const SRow& oRow, CZorEdidMap::EArea eArea, unsigned int uiOffset, unsigned int uiLength,
                         unsigned int uiIndex)
{
    AddRow(oRow, eArea, { uiOffset, uiLength }, uiIndex);
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
unsigned int CMapWriter::AppendLeaf(CZorEdidMap::SEntry& oEntry, const SPieces& oPieces)
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
    oField.m_uiDepth = m_uiDepth < msc_uiMostDepth ? m_uiDepth : msc_uiMostDepth;
    oField.m_uiEnd = m_oMap.GetFieldCount() + 1;
    oField.m_uiTiming = CZorEdidMap::msc_uiNone;
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

// None when they do not all lie in the record and in the open group. A run to the end ends with both.
CMapWriter::SPieces CMapWriter::FindPieces(const SPlace& oPlace, const SRange& oRecord) const
{
    const SRange oOpen = GetOpenRange();
    const unsigned int uiOpenEnd = oOpen.m_uiOffset + oOpen.m_uiLength;
    const unsigned int uiRecordEnd = oRecord.m_uiOffset + oRecord.m_uiLength;
    const unsigned int uiEnd = uiOpenEnd < uiRecordEnd ? uiOpenEnd : uiRecordEnd;
    SPieces oPieces = {};
    for (unsigned int i = 0; i < oPlace.m_ui8Pieces; ++i)
    {
        const SBitsPlace& oPart = oPlace.m_aoPieces[i];
        const unsigned int uiFirst = oRecord.m_uiOffset + oPart.m_ui8Offset;
        if (uiFirst < oOpen.m_uiOffset || uiFirst >= uiEnd)
        {
            return {};
        }
        const unsigned int uiLength = oPlace.m_ui8Run == 0                 ? 1U
                                      : oPlace.m_ui8Run != gsc_ui8ToTheEnd ? oPlace.m_ui8Run
                                                                           : uiEnd - uiFirst;
        if (uiLength > uiEnd - uiFirst)
        {
            return {};
        }
        oPieces.m_aoPieces[oPieces.m_uiCount++] = { uiFirst, uiLength, GetMask(oPart) };
    }
    return oPieces;
}

unsigned int CMapWriter::AddRow(const SRow& oRow, CZorEdidMap::EArea eArea, const SRange& oRange, unsigned int uiIndex)
{
    const CRecord oRecord = GetRecord(oRange.m_uiOffset, oRange.m_uiLength);
    if (oRow.m_pfnApplies != nullptr && !oRow.m_pfnApplies(oRecord))
    {
        return CZorEdidMap::msc_uiNone;
    }
    const SPlace& oPlace = oRow.m_oPlace;
    const SPieces oPieces = FindPieces(oPlace, { oRange.m_uiOffset, oRecord.GetSize() });
    if (oPieces.m_uiCount == 0)
    {
        return CZorEdidMap::msc_uiNone; // not all there
    }
    if (!IsFree(oPieces))
    {
        m_oMap.m_pszOverlap = m_oMap.m_pszOverlap != nullptr ? m_oMap.m_pszOverlap : oRow.m_pszName;
        return CZorEdidMap::msc_uiNone;
    }

    const unsigned int uiRaw = oRecord.Get(oPlace);
    const SForm& oForm = oRow.m_oForm;
    CZorEdidMap::SEntry oEntry = { {},
                                   { &oRow, nullptr, oRange.m_uiOffset, oRecord.GetSize(), CZorEdidMap::msc_uiNone } };
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_pszName = oRow.m_pszName;
    oField.m_pszUnit = oForm.m_pszUnit;
    oField.m_pszMeaning = FindMeaning(oForm, uiRaw);
    oField.m_llNumber = oForm.m_pfnNumber != nullptr ? oForm.m_pfnNumber(oRecord, uiRaw)
                                                     : ComputeNumber(oForm, uiRaw, CountBits(oPlace));
    oField.m_uiDecimals = oForm.m_uiDecimals;
    oField.m_uiIndex = uiIndex;
    oField.m_eKind = oForm.m_eKind;
    oField.m_bNumber =
        oForm.m_eKind == CZorEdidMap::eKind_Number && (oField.m_pszMeaning == nullptr || oForm.m_bStaysNumber);
    oField.m_eArea = oForm.m_eKind == CZorEdidMap::eKind_Reserved || oForm.m_eKind == CZorEdidMap::eKind_Unknown
                         ? CZorEdidMap::eArea_Unused
                         : eArea;
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    if (oPlace.m_ui8Run != 0 && oForm.m_uiExpected != SForm::msc_uiAny &&
        !IsEveryByte(oRecord, oPieces.m_aoPieces[0], oRange.m_uiOffset, oForm.m_uiExpected))
    {
        AddNote(uiField, CZorEdidMap::eSeverity_Warning, oForm.m_pszUnexpected);
    }
    NoteValue(uiField, oRow, oRecord, uiRaw);
    return uiField;
}

void CMapWriter::NoteValue(unsigned int uiField, const SRow& oRow, const CRecord& oRecord, unsigned int uiRaw)
{
    constexpr char szReserved[] = "reserved";
    const SForm& oForm = oRow.m_oForm;
    const char* pszMeaning = m_oMap.GetField(uiField).m_pszMeaning;
    if (pszMeaning != nullptr && strncmp(pszMeaning, szReserved, sizeof(szReserved) - 1) == 0)
    {
        AddNote(uiField, CZorEdidMap::eSeverity_Warning, "reserved value");
    }
    if (oRow.m_oPlace.m_ui8Run == 0 && oForm.m_uiExpected != SForm::msc_uiAny && uiRaw != oForm.m_uiExpected)
    {
        AddNote(uiField, CZorEdidMap::eSeverity_Warning, oForm.m_pszUnexpected);
    }
    const char* pszText = oRow.m_pfnCheck != nullptr ? oRow.m_pfnCheck(oRecord, uiRaw) : nullptr;
    if (pszText != nullptr)
    {
        AddNote(uiField, oForm.m_bNoteOnly ? CZorEdidMap::eSeverity_Note : CZorEdidMap::eSeverity_Warning, pszText);
    }
}

void CMapWriter::AddRest(const char* pszName, CZorEdidMap::EKind eKind, unsigned int uiOffset, unsigned int uiLength,
                         unsigned char ui8Mask)
{
    CZorEdidMap::SEntry oEntry = { {}, { nullptr, nullptr, uiOffset, uiLength, CZorEdidMap::msc_uiNone } };
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_pszName = pszName;
    oField.m_uiIndex = CZorEdidMap::msc_uiNone;
    oField.m_eKind = eKind;
    oField.m_eArea = CZorEdidMap::eArea_Unused;
    SPieces oPieces = {};
    oPieces.m_aoPieces[oPieces.m_uiCount++] = { uiOffset, uiLength, ui8Mask };
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    unsigned int uiSet = 0;
    for (unsigned int i = 0; i < uiLength; ++i)
    {
        uiSet |= GetByte(uiOffset + i) & ui8Mask;
    }
    if (eKind == CZorEdidMap::eKind_Reserved && uiSet != 0)
    {
        AddNote(uiField, CZorEdidMap::eSeverity_Warning, "reserved bits are set");
    }
}

void CMapWriter::AddChecksum(unsigned int uiFirst, unsigned int uiOffset)
{
    const SRange oPlace = Clip(uiOffset, 1);
    SPieces oPieces = {};
    oPieces.m_aoPieces[oPieces.m_uiCount++] = { uiOffset, 1, gsc_ui8WholeByte };
    if (oPlace.m_uiLength == 0 || uiFirst > uiOffset || !IsFree(oPieces))
    {
        return;
    }
    const unsigned int uiLength = uiOffset - uiFirst + 1;
    CZorEdidMap::SEntry oEntry = { {}, { &gsc_oChecksumRow, nullptr, uiFirst, uiLength, CZorEdidMap::msc_uiNone } };
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_pszName = gsc_oChecksumRow.m_pszName;
    oField.m_llNumber = GetByte(uiOffset);
    oField.m_uiIndex = CZorEdidMap::msc_uiNone;
    oField.m_eKind = CZorEdidMap::eKind_Checksum;
    oField.m_eArea = CZorEdidMap::eArea_Structure;
    const unsigned int uiField = AppendLeaf(oEntry, oPieces);
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < uiLength; ++i)
    {
        uiSum += GetByte(uiFirst + i);
    }
    if ((uiSum & gsc_uiByteMask) != 0)
    {
        AddNote(uiField, CZorEdidMap::eSeverity_Error, "the checksum is wrong");
    }
}

// ---- Notes and timings ----

void CMapWriter::AddNote(CZorEdidMap::ESeverity eSeverity, const char* pszText)
{
    AddNote(m_uiLast, eSeverity, pszText);
}

void CMapWriter::AddNote(unsigned int uiField, CZorEdidMap::ESeverity eSeverity, const char* pszText)
{
    if (uiField >= m_oMap.GetFieldCount())
    {
        return;
    }
    // Into its place: nearly always at the end.
    const CZorEdidMap::SNote oNote = { uiField, eSeverity, pszText };
    m_oMap.m_aoNotes.Add(oNote);
    unsigned int uiPlace = m_oMap.m_aoNotes.GetCount() - 1;
    for (; uiPlace > 0 && m_oMap.m_aoNotes[uiPlace - 1].m_uiField > uiField; --uiPlace)
    {
        m_oMap.m_aoNotes[uiPlace] = m_oMap.m_aoNotes[uiPlace - 1];
    }
    m_oMap.m_aoNotes[uiPlace] = oNote;
}

void CMapWriter::SetTiming(unsigned int uiField, CZorEdidMap::EList eList, unsigned int uiNumber,
                           unsigned int uiNumbers)
{
    if (uiField < m_oMap.GetFieldCount() && uiNumber != CZorEdidMap::msc_uiNone)
    {
        GetField(uiField).m_eList = eList;
        GetField(uiField).m_uiTiming = uiNumber;
        GetField(uiField).m_uiTimings = uiNumbers;
    }
}

void CMapWriter::SetName(const char* pszName)
{
    if (m_uiLast < m_oMap.GetFieldCount())
    {
        GetField(m_uiLast).m_pszName = pszName;
    }
}

void CMapWriter::SetMeaning(const char* pszMeaning)
{
    if (m_uiLast < m_oMap.GetFieldCount())
    {
        GetField(m_uiLast).m_pszMeaning = pszMeaning;
    }
}

unsigned int CMapWriter::FindField(unsigned int uiOffset, unsigned int uiLength) const
{
    unsigned int uiFound = CZorEdidMap::msc_uiNone;
    unsigned int uiField = m_oMap.FindLeaf(uiOffset, gsc_uiBits - 1);
    while (uiField != CZorEdidMap::msc_uiNone)
    {
        const CZorEdidMap::SEntry& oEntry = m_oMap.m_aoEntries[uiField];
        if (oEntry.m_oField.m_uiOffset == uiOffset && oEntry.m_oField.m_uiLength == uiLength)
        {
            uiFound = uiField;
        }
        uiField = oEntry.m_oOrigin.m_uiGroup;
    }
    return uiFound;
}

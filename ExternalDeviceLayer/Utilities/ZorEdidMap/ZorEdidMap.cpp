// CZorEdidMap: reading an image block by block, and asking the map.

#include "ZorEdidMap.h"

#include <algorithm>
#include <new>

#include "EdidExtBlockDisplayID.h"
#include "MapValue.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "ZorTools.h"

using namespace ZorMap;

CZorEdidMap::CZorEdidMap() : m_poContent(new (CMAllocator().Alloc(sizeof(SMapContent))) SMapContent) {}
CZorEdidMap::~CZorEdidMap()
{
    m_poContent->~SMapContent();
    CMAllocator().Free(m_poContent);
}

int CZorEdidMap::Read(unsigned int uiSize, const unsigned char* pui8Data)
{
    return CMapWriter::Write(*m_poContent, uiSize, pui8Data) ? 1 : 0;
}

const unsigned char* CZorEdidMap::GetData() const { return m_poContent->GetData(); }
unsigned int CZorEdidMap::GetSize() const { return m_poContent->GetSize(); }
unsigned int CZorEdidMap::GetFieldCount() const { return m_poContent->GetFieldCount(); }
const CZorEdidMap::SField& CZorEdidMap::GetField(unsigned int uiIndex) const { return m_poContent->GetField(uiIndex); }
const CZorEdidMap::SPiece& CZorEdidMap::GetPiece(unsigned int uiIndex) const
{
    return m_poContent->m_aoPieces[uiIndex];
}
unsigned int CZorEdidMap::GetNoteCount() const { return m_poContent->m_aoNotes.GetCount(); }
const CZorEdidMap::SNote& CZorEdidMap::GetNote(unsigned int uiIndex) const { return m_poContent->m_aoNotes[uiIndex]; }
unsigned int CZorEdidMap::FindLeaf(unsigned int uiOffset, unsigned int uiBit) const
{
    return m_poContent->FindLeaf(uiOffset, uiBit);
}

CMString CZorEdidMap::GetFound(unsigned int uiNote) const
{
    const SNumbers& oNumbers = GetNote(uiNote).m_oNumbers;
    return oNumbers.m_llFound != SNumbers::msc_llNone ? FormatNumber(oNumbers.m_llFound, 0, oNumbers.m_pszUnit)
                                                      : CMString();
}

CMString CZorEdidMap::GetExpected(unsigned int uiNote) const
{
    const SNumbers& oNumbers = GetNote(uiNote).m_oNumbers;
    const SField& oField = GetField(GetNote(uiNote).m_uiField);
    const bool bCounts = oNumbers.m_pszUnit != nullptr;
    const unsigned int uiDecimals = bCounts ? 0 : oField.m_uiDecimals;
    const char* pszUnit = bCounts ? oNumbers.m_pszUnit : oField.m_pszUnit;
    const bool bLeast = oNumbers.m_llLeast != SNumbers::msc_llNone;
    const bool bMost = oNumbers.m_llMost != SNumbers::msc_llNone;
    const CMString sLeast = bLeast ? FormatNumber(oNumbers.m_llLeast, uiDecimals, pszUnit) : CMString();
    const CMString sMost = bMost ? FormatNumber(oNumbers.m_llMost, uiDecimals, pszUnit) : CMString();
    if (bLeast && bMost && oNumbers.m_llLeast != oNumbers.m_llMost)
    {
        return FormatNumber(oNumbers.m_llLeast, uiDecimals, nullptr) + (oNumbers.m_bEither ? " or " : " to ") + sMost;
    }
    return bLeast && bMost ? sLeast : bLeast ? "at least " + sLeast : bMost ? "at most " + sMost : CMString();
}

unsigned int CZorEdidMap::CountFields(EZorEdidField eId) const
{
    unsigned int uiCount = 0;
    for (unsigned int i = 0; i < GetFieldCount(); ++i)
    {
        uiCount += GetField(i).m_eId == eId ? 1U : 0U;
    }
    return uiCount;
}

unsigned int CZorEdidMap::FindField(EZorEdidField eId, unsigned int uiNumber) const
{
    // The next one after uiFound by place; of one place by index.
    unsigned int uiFound = msc_uiNone;
    for (unsigned int i = 0; i <= uiNumber; ++i)
    {
        unsigned int uiNext = msc_uiNone;
        for (unsigned int j = 0; j < GetFieldCount(); ++j)
        {
            const SField& oField = GetField(j);
            const bool bAfter = uiFound == msc_uiNone || oField.m_uiOffset > GetField(uiFound).m_uiOffset ||
                                (oField.m_uiOffset == GetField(uiFound).m_uiOffset && j > uiFound);
            if (oField.m_eId == eId && bAfter &&
                (uiNext == msc_uiNone || oField.m_uiOffset < GetField(uiNext).m_uiOffset))
            {
                uiNext = j;
            }
        }
        if (uiNext == msc_uiNone)
        {
            return msc_uiNone;
        }
        uiFound = uiNext;
    }
    return uiFound;
}

unsigned int CZorEdidMap::GetTextOf(unsigned int uiField) const
{
    unsigned int uiText = uiField;
    unsigned int uiTexts = 0;
    for (unsigned int i = uiField + 1; i < GetField(uiField).m_uiEnd; ++i)
    {
        const bool bText = GetField(i).m_eKind == eKind_Text;
        uiText = bText ? i : uiText;
        uiTexts += bText ? 1U : 0U;
    }
    return uiTexts == 1 ? uiText : uiField;
}

CMString CZorEdidMap::GetValue(unsigned int uiField) const
{
    if (uiField >= GetFieldCount())
    {
        MASSERT_FAILED();
        return {};
    }
    return FormatValue(*m_poContent, uiField);
}

namespace ZorMap
{
using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiContinuousMask = 0x01; // of the features
} // namespace

// Past the blocks there is one leaf, the last field.
unsigned int SMapContent::FindLeaf(unsigned int uiOffset, unsigned int uiBit) const
{
    if (uiOffset >= GetSize() || uiBit >= gsc_uiBits)
    {
        return CZorEdidMap::msc_uiNone;
    }
    return uiOffset < GetBlockBytes() ? m_auiLeaves[uiOffset * gsc_uiBits + uiBit] : GetFieldCount() - 1;
}

bool CMapWriter::Write(SMapContent& oMap, unsigned int uiSize, const unsigned char* pui8Data)
{
    const bool bGood = uiSize != 0 && uiSize <= INT_MAX && pui8Data != nullptr;
    CMArray<unsigned char, const unsigned char&> aui8Data; // before the old bytes go, which these may be
    if (bGood)
    {
        aui8Data.SetCount(uiSize, -1);
        ZorTools_memcpy(aui8Data.GetData(), pui8Data, uiSize);
    }
    oMap.m_aoEntries.RemoveAll();
    oMap.m_aoPieces.RemoveAll();
    oMap.m_aoNotes.RemoveAll();
    oMap.m_auiLeaves.RemoveAll();
    oMap.m_aui8Data = aui8Data;
    oMap.m_pszOverlap = nullptr;
    if (!bGood)
    {
        return false;
    }

    // The lists grow by a step that the size gives: an image has two to three fields a byte.
    const unsigned int uiMost = msc_uiBlockSize * msc_uiMostBlocks;
    const unsigned int uiBlockBytes = uiSize < uiMost ? uiSize : uiMost;
    const int iStep = static_cast<int>(uiBlockBytes + msc_uiBlockSize);
    oMap.m_aoEntries.SetSize(0, iStep);
    oMap.m_aoPieces.SetSize(0, iStep);
    oMap.m_aoNotes.SetSize(0, iStep); // of 256 blocks with a note a byte: three quarters of the time else
    oMap.m_auiLeaves.SetCount(uiBlockBytes * gsc_uiBits, -1);

    const auto fnByte = [&](unsigned int uiOffset) { return uiOffset < uiSize ? aui8Data[uiOffset] : 0U; };
    const bool bRevision = uiSize > gsc_uiRevisionOffset;
    oMap.m_oFacts = { bRevision ? ReadRevision(aui8Data.GetData()) : 0U,
                      (fnByte(gsc_uiVideoInputOffset) & gsc_uiDigitalMask) != 0,
                      (fnByte(gsc_uiFeaturesOffset) & gsc_uiContinuousMask) != 0 };
    CMapWriter(oMap).WriteBlocks();
    return true;
}

void CMapWriter::WriteBlocks()
{
    const unsigned int uiBlockBytes = m_oMap.GetBlockBytes();
    for (unsigned int uiOffset = 0; uiOffset < uiBlockBytes; uiOffset += msc_uiBlockSize)
    {
        const unsigned int uiLeft = uiBlockBytes - uiOffset;
        WriteBlock(uiOffset, uiLeft < msc_uiBlockSize ? uiLeft : msc_uiBlockSize);
    }
    WriteTail();
    NoteBlockCount();
    NumberTimings(*this, m_oMap.GetSize());
    OrderNotes();
}

void CMapWriter::WriteBlock(unsigned int uiOffset, unsigned int uiLength)
{
    if (uiOffset == 0)
    {
        MapBaseBlock(*this, uiOffset, uiLength);
        return;
    }
    switch (GetByte(uiOffset))
    {
    case Cta::gsc_uiTag:
        MapCtaBlock(*this, uiOffset, uiLength);
        break;
    case CEdidExtBlockDisplayID::msc_uiExtensionTag:
        MapDisplayIdBlock(*this, uiOffset, uiLength);
        break;
    default:
        MapOtherBlock(*this, uiOffset, uiLength);
        break;
    }
}

// What follows the blocks has no place in the list of bits.
void CMapWriter::WriteTail()
{
    const unsigned int uiFirst = m_oMap.GetBlockBytes();
    const unsigned int uiLength = m_oMap.GetSize() - uiFirst;
    if (uiLength == 0)
    {
        return;
    }
    SEntry oEntry = {};
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_eId = gsc_oTailRest.m_eId;
    oField.m_pszName = gsc_oTailRest.m_pszName;
    oField.m_uiOffset = uiFirst;
    oField.m_uiLength = uiLength;
    oField.m_uiFirstPiece = m_oMap.m_aoPieces.GetCount();
    oField.m_uiPieces = 1;
    oField.m_eKind = CZorEdidMap::eKind_Unknown;
    oField.m_eArea = eArea_Unused;
    oEntry.m_oOrigin = { nullptr, nullptr, uiFirst, uiLength, false };
    m_oMap.m_aoPieces.Add({ uiFirst, uiLength, 0xFF });
    const unsigned int uiBlocks = msc_uiMostBlocks + (uiLength + msc_uiBlockSize - 1) / msc_uiBlockSize;
    AddNote(AppendEntry(oEntry), eZorEdidRule_TooManyBlocks, CountAtMost("blocks", uiBlocks, msc_uiMostBlocks));
}

// The blocks that are there against those that byte 126 announces, or the data block of HDMI 2.1 that overrides it.
void CMapWriter::NoteBlockCount()
{
    if (m_oMap.GetSize() < msc_uiBlockSize)
    {
        return;
    }
    const unsigned int uiPlace = FindExtensionCount(m_oMap.GetData(), m_oMap.GetSize());
    const unsigned int uiAnnounced = GetByte(uiPlace);
    const unsigned int uiPresent = m_oMap.GetBlockBytes() / msc_uiBlockSize - 1;
    if (uiPresent < uiAnnounced)
    {
        AddNote(m_oMap.FindLeaf(uiPlace, 0), eZorEdidRule_BlocksMissing,
                CountExactly("blocks", uiPresent, uiAnnounced));
    }
    // A higher number is right up to the last sound block; what follows that one may be anything.
    unsigned int uiSound = std::min(m_oMap.GetSize() / msc_uiBlockSize, msc_uiMostBlocks) - 1;
    while (uiSound > uiAnnounced && CZorEdidMap::FindUnsound(m_oMap.GetData(), uiSound) != nullptr)
    {
        --uiSound;
    }
    for (unsigned int i = 0; i < m_oMap.GetFieldCount(); i = m_oMap.GetField(i).m_uiEnd)
    {
        const unsigned int uiOffset = m_oMap.GetField(i).m_uiOffset;
        const unsigned int uiBlock = uiOffset / msc_uiBlockSize;
        if (uiBlock > uiAnnounced)
        {
            CZorEdidMap::SNumbers oNumbers = CountAtLeast("blocks", uiAnnounced, uiBlock);
            oNumbers.m_llLeast = uiBlock <= uiSound ? oNumbers.m_llLeast : CZorEdidMap::SNumbers::msc_llNone;
            AddNote(i, eZorEdidRule_BlockNotCounted, oNumbers);
        }
        else if (uiOffset != 0 && CZorEdidMap::GetBlockKind(GetByte(uiOffset)) == nullptr)
        {
            AddNote(i, eZorEdidRule_BlockKind);
        }
    }
}
} // namespace ZorMap

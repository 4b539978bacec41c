// CZorEdidMap: reading an image block by block, and asking the map.

#include "ZorEdidMap.h"

#include "Cea861Bytes.h"
#include "EdidBaseLayout.h"
#include "EdidExtBlockDisplayID.h"
#include "MapValue.h"
#include "ZorTools.h"

using namespace EdidBaseLayout;

namespace
{
constexpr unsigned int gsc_uiContinuousMask = 0x01; // of the features
} // namespace

CZorEdidMap::CZorEdidMap() : m_uiRevision(0), m_bDigital(false), m_bContinuous(false), m_pszOverlap(nullptr) {}
CZorEdidMap::~CZorEdidMap() = default;

int CZorEdidMap::Read(unsigned int uiSize, const unsigned char* pui8Data)
{
    return CMapWriter::Write(*this, uiSize, pui8Data) ? 1 : 0;
}

const unsigned char* CZorEdidMap::GetData() const { return m_aui8Data.GetData(); }
unsigned int CZorEdidMap::GetSize() const { return m_aui8Data.GetCount(); }
unsigned int CZorEdidMap::GetFieldCount() const { return m_aoEntries.GetCount(); }
const CZorEdidMap::SField& CZorEdidMap::GetField(unsigned int uiIndex) const { return m_aoEntries[uiIndex].m_oField; }
const CZorEdidMap::SPiece& CZorEdidMap::GetPiece(unsigned int uiIndex) const { return m_aoPieces[uiIndex]; }
unsigned int CZorEdidMap::GetNoteCount() const { return m_aoNotes.GetCount(); }
const CZorEdidMap::SNote& CZorEdidMap::GetNote(unsigned int uiIndex) const { return m_aoNotes[uiIndex]; }

unsigned int CZorEdidMap::FindLeaf(unsigned int uiOffset, unsigned int uiBit) const
{
    if (uiOffset >= GetSize() || uiBit >= gsc_uiBits)
    {
        return msc_uiNone;
    }
    // Behind the blocks there is one leaf, the last field.
    const unsigned int uiBlockBytes = m_auiLeaves.GetCount() / gsc_uiBits;
    return uiOffset < uiBlockBytes ? m_auiLeaves[uiOffset * gsc_uiBits + uiBit] : GetFieldCount() - 1;
}

CMString CZorEdidMap::GetValue(unsigned int uiField) const
{
    if (uiField >= GetFieldCount())
    {
        MASSERT_FAILED();
        return {};
    }
    const SOrigin& oOrigin = m_aoEntries[uiField].m_oOrigin;
    const SImageFacts oFacts = CMapWriter::GetFacts(*this);
    const CRecord oRecord(oFacts, GetData() + oOrigin.m_uiOffset, oOrigin.m_uiLength);
    return FormatValue(*this, m_aoEntries[uiField].m_oField, { oOrigin.m_poRow, oOrigin.m_poTable, oRecord });
}

bool CMapWriter::Write(CZorEdidMap& oMap, unsigned int uiSize, const unsigned char* pui8Data)
{
    const bool bGood = uiSize != 0 && uiSize <= INT_MAX && pui8Data != nullptr;
    CMArray<unsigned char, const unsigned char&> aui8Data; // ahead of the old bytes' end, which these may be
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
    oMap.m_uiRevision = fnByte(gsc_uiRevisionOffset);
    oMap.m_bDigital = (fnByte(gsc_uiVideoInputOffset) & gsc_uiDigitalMask) != 0;
    oMap.m_bContinuous = (fnByte(gsc_uiFeaturesOffset) & gsc_uiContinuousMask) != 0;
    CMapWriter oWriter(oMap, GetFacts(oMap));
    oWriter.WriteBlocks();
    return true;
}

void CMapWriter::WriteBlocks()
{
    const unsigned int uiBlockBytes = m_oMap.m_auiLeaves.GetCount() / gsc_uiBits;
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
    case Cea861Layout::gsc_uiTag:
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

// What lies behind the blocks has no place in the list of bits.
void CMapWriter::WriteTail()
{
    const unsigned int uiFirst = m_oMap.m_auiLeaves.GetCount() / gsc_uiBits;
    const unsigned int uiLength = m_oMap.GetSize() - uiFirst;
    if (uiLength == 0)
    {
        return;
    }
    CZorEdidMap::SEntry oEntry = {};
    CZorEdidMap::SField& oField = oEntry.m_oField;
    oField.m_pszName = "Bytes behind the blocks";
    oField.m_uiOffset = uiFirst;
    oField.m_uiLength = uiLength;
    oField.m_uiFirstPiece = m_oMap.m_aoPieces.GetCount();
    oField.m_uiPieces = 1;
    oField.m_eKind = CZorEdidMap::eKind_Unknown;
    oField.m_eArea = CZorEdidMap::eArea_Unused;
    oEntry.m_oOrigin = { nullptr, nullptr, uiFirst, uiLength, false };
    m_oMap.m_aoPieces.Add({ uiFirst, uiLength, 0xFF });
    AddNote(AppendEntry(oEntry), CZorEdidMap::eSeverity_Warning, "an image has at most 256 blocks");
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
    const unsigned int uiThere = m_oMap.m_auiLeaves.GetCount() / gsc_uiBits / msc_uiBlockSize - 1;
    if (uiThere < uiAnnounced)
    {
        AddNote(m_oMap.FindLeaf(uiPlace, 0), CZorEdidMap::eSeverity_Error, "fewer extension blocks follow");
    }
    for (unsigned int i = 0; i < m_oMap.GetFieldCount(); i = m_oMap.GetField(i).m_uiEnd)
    {
        if (m_oMap.GetField(i).m_uiOffset / msc_uiBlockSize > uiAnnounced)
        {
            AddNote(i, CZorEdidMap::eSeverity_Warning, "not counted by the number of extension blocks");
        }
    }
}

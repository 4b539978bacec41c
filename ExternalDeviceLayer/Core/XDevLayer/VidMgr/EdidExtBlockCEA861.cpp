// The structure of a CEA-861 block: loading and stripping, finding data blocks and detailed descriptors, taking bytes
// out and making room, the checksum. What the data blocks mean is told in EdidExtBlockCEA861Video.cpp (video, HDMI) and
// EdidExtBlockCEA861Audio.cpp (audio, speakers).

#include "EdidExtBlockCEA861.h"

#include "EdidExtBlockCEA861Private.h"
#include "ZorAssert.h"
#include "ZorTools.h"

namespace
{
constexpr unsigned char gsc_ui8Tag = 2;
constexpr unsigned char gsc_ui8HighestRevision = 3;

constexpr unsigned int gsc_uiDetailedSize = 18;
static_assert(sizeof(CEdidUtils::SEdidDetailedRaw) == gsc_uiDetailedSize && alignof(CEdidUtils::SEdidDetailedRaw) == 1,
              "a pointer into block bytes is read as this record");

// Payload of an empty HDMI vendor block: IEEE identifier, physical address 1.0.0.0, no capabilities.
constexpr unsigned char gsc_aui8EmptyVendorPayload[] = { 0x03, 0x0C, 0x00, 0x01, 0x00, 0x00 };
}

CEdidExtBlockCEA861::CEdidExtBlockCEA861(unsigned int uiSize, const unsigned char* pui8Data, unsigned int uiStripFlags)
    : m_uiExtensionType(0), m_uiRevision(0), m_bStripped(0), m_bListsBehind(0)
{
    if (!IsSupported(uiSize, pui8Data))
    {
        return;
    }
    m_uiExtensionType = gsc_ui8Tag;
    m_uiRevision = pui8Data[gsc_uiCea861RevisionOffset];
    m_aui8Raw.SetCount(gsc_uiCea861Size, -1);
    ZorTools_memcpy(m_aui8Raw.GetData(), pui8Data, gsc_uiCea861Size);
    m_bStripped = StripDataBlocks(uiStripFlags);
    DeriveLists(eList_All);
}

CEdidExtBlockCEA861::~CEdidExtBlockCEA861() = default;

int CEdidExtBlockCEA861::IsSupported(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (uiSize < gsc_uiCea861Size || pui8Data == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    return pui8Data[gsc_uiCea861TagOffset] == gsc_ui8Tag &&
           pui8Data[gsc_uiCea861RevisionOffset] <= gsc_ui8HighestRevision &&
           CEdidUtils::Is8BitsChecksumValid(uiSize, pui8Data);
}

unsigned int CEdidExtBlockCEA861::GetExtensionType() const { return m_uiExtensionType; }

unsigned int CEdidExtBlockCEA861::GetSize() const { return m_aui8Raw.GetCount(); }

const unsigned char* CEdidExtBlockCEA861::GetData() const { return m_aui8Raw.GetData(); }

unsigned int CEdidExtBlockCEA861::GetEdidBuffer(unsigned int uiSize, unsigned char* pui8Data) const
{
    const unsigned int uiCount = uiSize < m_aui8Raw.GetCount() ? uiSize : m_aui8Raw.GetCount();
    if (uiCount == 0 || pui8Data == nullptr)
    {
        return 0;
    }
    ZorTools_memcpy(pui8Data, m_aui8Raw.GetData(), uiCount);
    return uiCount;
}

CMArray<unsigned char, const unsigned char&> CEdidExtBlockCEA861::GetEdidBuffer() const { return m_aui8Raw; }

unsigned int CEdidExtBlockCEA861::GetRevision() const { return m_uiRevision; }

int CEdidExtBlockCEA861::IsChecksumValid() const
{
    return m_aui8Raw.GetCount() == gsc_uiCea861Size &&
           CEdidUtils::Is8BitsChecksumValid(gsc_uiCea861Size, m_aui8Raw.GetData());
}

int CEdidExtBlockCEA861::IsStripped() const { return m_bStripped; }

// ---- Detailed timings ----

unsigned int CEdidExtBlockCEA861::GetDetailedCount() const { return m_apoDetailed.GetCount(); }

int CEdidExtBlockCEA861::GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const
{
    if (uiIndex >= GetDetailedCount() || poTiming == nullptr)
    {
        return 0;
    }
    poTiming->ClearData();
    const CEdidUtils::SEdidDetailedRaw* poRaw = m_apoDetailed.GetData()[uiIndex];
    if (poRaw == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    return CEdidUtils::ConvertDetailedDescriptorToVidParam(*poRaw, poTiming);
}

int CEdidExtBlockCEA861::RemoveDetailed(unsigned int uiIndex)
{
    if (uiIndex >= GetDetailedCount())
    {
        return 0;
    }
    const unsigned int uiOffset = GetDetailedTimingsOffset(uiIndex);
    if (uiOffset < gsc_uiCea861DataBlocksOffset) // 0, or over tag, revision, byte 2 and flags, which stay
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Detailed);
    RemoveDataRange(uiOffset, gsc_uiDetailedSize);
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::ExtractDetailedTimings()
{
    const unsigned int uiCount = CountDetailedTimings();
    CListFill<CEdidUtils::SEdidDetailedRaw*> oFill(m_apoDetailed, uiCount);
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        unsigned char* pui8Slot = m_aui8Raw.GetData() + GetDetailedTimingsOffset(i);
        oFill.Add(reinterpret_cast<CEdidUtils::SEdidDetailedRaw*>(pui8Slot));
    }
    return uiCount;
}

unsigned int CEdidExtBlockCEA861::GetDetailedTimingsOffset(unsigned int uiIndex) const
{
    const unsigned int uiStart = GetDetailedStart();
    if (uiStart == 0 || uiStart > gsc_uiCea861ChecksumOffset ||
        uiIndex >= (gsc_uiCea861ChecksumOffset - uiStart) / gsc_uiDetailedSize)
    {
        return 0;
    }
    const unsigned int uiOffset = uiStart + gsc_uiDetailedSize * uiIndex;
    const unsigned char* pui8Clock = m_aui8Raw.GetData() + uiOffset; // a pixel clock of 0 marks the end of the list
    return pui8Clock[0] != 0 || pui8Clock[1] != 0 ? uiOffset : 0;
}

unsigned int CEdidExtBlockCEA861::CountDetailedTimings() const
{
    unsigned int uiCount = 0;
    while (GetDetailedTimingsOffset(uiCount) != 0)
    {
        ++uiCount;
    }
    return uiCount;
}

// ---- Data blocks ----

int CEdidExtBlockCEA861::IsYuvSupported() const
{
    return (GetHeaderByte(gsc_uiCea861FlagsOffset) & gsc_uiCea861YuvFlags) != 0;
}

// One of the block's first four bytes; 0 for an empty object.
unsigned int CEdidExtBlockCEA861::GetHeaderByte(unsigned int uiOffset) const
{
    return m_aui8Raw.GetCount() == gsc_uiCea861Size ? m_aui8Raw.GetData()[uiOffset] : 0U;
}

// Byte 2 as it stands, 0 to 255.
unsigned int CEdidExtBlockCEA861::GetDetailedStart() const { return GetHeaderByte(gsc_uiCea861DetailedStartOffset); }

// Where the area of data blocks ends; its own start when there is none. May lie behind the block.
unsigned int CEdidExtBlockCEA861::GetDataBlocksEnd() const
{
    const unsigned int uiStart = GetDetailedStart();
    return m_uiRevision < gsc_uiCea861DataBlocksRevision || uiStart < gsc_uiCea861DataBlocksOffset
               ? gsc_uiCea861DataBlocksOffset
               : uiStart;
}

unsigned int CEdidExtBlockCEA861::GetDataBlockOffset(ECea861_DataBlockTags eTag, unsigned int uiIndex,
                                                     unsigned int* puiLength) const
{
    return FindDataBlock(eTag, uiIndex, puiLength);
}

unsigned int CEdidExtBlockCEA861::GetDataBlockOffset(ECea861_DataBlockExtTags eTag, unsigned int uiIndex,
                                                     unsigned int* puiLength) const
{
    return FindDataBlock(eTag, uiIndex, puiLength);
}

template <class TAG>
unsigned int CEdidExtBlockCEA861::FindDataBlock(TAG eTag, unsigned int uiIndex, unsigned int* puiLength) const
{
    if (puiLength == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    *puiLength = 0;
    CDataBlockWalk oWalk(*this);
    for (unsigned int i = 0; oWalk.Next(eTag); ++i)
    {
        if (i == uiIndex)
        {
            *puiLength = oWalk.GetLength();
            return oWalk.GetOffset();
        }
    }
    return 0;
}

unsigned int CEdidExtBlockCEA861::GetVendorSpecificCount() const { return CountDataBlocks(eCea861Tag_VendorSpecific); }

unsigned int CEdidExtBlockCEA861::CountDataBlocks(ECea861_DataBlockTags eTag) const
{
    unsigned int uiCount = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eTag);)
    {
        ++uiCount;
    }
    return uiCount;
}

// Counted in the bytes, not in the list: after RemoveStandard the list still tells of the old places.
unsigned int CEdidExtBlockCEA861::GetAvailableOffset() const
{
    return GetDetailedStart() + gsc_uiDetailedSize * CountDetailedTimings();
}

unsigned int CEdidExtBlockCEA861::GetAvailableSpace() const
{
    const unsigned int uiOffset = GetAvailableOffset();
    return uiOffset > gsc_uiCea861LastContentOffset ? 0 : gsc_uiCea861LastContentOffset - uiOffset;
}

int CEdidExtBlockCEA861::AddVendorSpecific()
{
    const unsigned int uiLists = GetTouchedLists(eList_Detailed);
    const unsigned int uiOffset = OpenDataBlock(eCea861Tag_VendorSpecific, sizeof(gsc_aui8EmptyVendorPayload));
    if (uiOffset == 0)
    {
        return 0;
    }
    ZorTools_memcpy(m_aui8Raw.GetData() + uiOffset, gsc_aui8EmptyVendorPayload, sizeof(gsc_aui8EmptyVendorPayload));
    FinishEdit(uiLists);
    return 1;
}

// ---- Moving bytes ----

void CEdidExtBlockCEA861::RemoveDataRange(unsigned int uiStart, unsigned int uiLength)
{
    if (!IsRangeInside(uiStart, uiLength))
    {
        MASSERT_FAILED();
        return;
    }
    const unsigned int uiEnd = uiStart + uiLength;
    if (uiLength == 0)
    {
        return;
    }
    unsigned char* pui8Raw = m_aui8Raw.GetData();
    if (uiEnd < gsc_uiCea861ChecksumOffset)
    {
        ZorTools_memmove(pui8Raw + uiStart, pui8Raw + uiEnd, gsc_uiCea861ChecksumOffset - uiEnd);
    }
    PadDataRange(gsc_uiCea861ChecksumOffset - uiLength, uiLength);
}

void CEdidExtBlockCEA861::PadDataRange(unsigned int uiStart, unsigned int uiLength)
{
    if (!IsRangeInside(uiStart, uiLength))
    {
        MASSERT_FAILED();
        return;
    }
    if (uiLength != 0)
    {
        ZorTools_memset(m_aui8Raw.GetData() + uiStart, 0, uiLength);
    }
}

int CEdidExtBlockCEA861::IsRangeInside(unsigned int uiStart, unsigned int uiLength) const
{
    const unsigned int uiSize = m_aui8Raw.GetCount();
    return uiStart <= uiSize && uiLength <= uiSize - uiStart; // a sum could wrap, a difference cannot
}

// The counterpart of RemoveDataRange: moves the content from uiStart on up and zeroes the gap. The last uiLength bytes
// in front of the checksum are lost, so the caller makes sure that they are free.
void CEdidExtBlockCEA861::InsertDataRange(unsigned int uiStart, unsigned int uiLength)
{
    unsigned char* pui8Start = m_aui8Raw.GetData() + uiStart;
    ZorTools_memmove(pui8Start + uiLength, pui8Start, gsc_uiCea861ChecksumOffset - uiStart - uiLength);
    PadDataRange(uiStart, uiLength);
}

// Makes room behind the last data block, writes the header there and raises byte 2. Returns the offset of the payload,
// whose bytes are the caller's to write (zero, unless there are no descriptors); 0 when there is no room and nothing
// has changed.
unsigned int CEdidExtBlockCEA861::OpenDataBlock(ECea861_DataBlockTags eTag, unsigned int uiLength)
{
    const unsigned int uiSize = uiLength + 1;
    const unsigned int uiStart = GetDetailedStart();
    const unsigned int uiContentEnd = GetAvailableOffset();
    // A start below the data-block area would put the new block over tag, revision or flags.
    if (uiStart < gsc_uiCea861DataBlocksOffset || uiContentEnd > gsc_uiCea861LastContentOffset - uiSize)
    {
        return 0;
    }
    if (uiContentEnd > uiStart)
    {
        InsertDataRange(uiStart, uiSize);
    }
    unsigned char* pui8Raw = m_aui8Raw.GetData();
    pui8Raw[uiStart] = static_cast<unsigned char>(eTag << gsc_uiCea861TagShift | uiLength);
    pui8Raw[gsc_uiCea861DetailedStartOffset] = static_cast<unsigned char>(uiStart + uiSize);
    return uiStart + 1;
}

// Makes room at the end of a data block, given its payload, and raises byte 2 and the length in its header. Returns the
// offset of the new bytes, which are zero; 0 when there is no room and nothing has changed. The last content byte stays
// free, as for every addition; a block that ends behind the descriptors may take it all the same.
unsigned int CEdidExtBlockCEA861::GrowDataBlock(unsigned int uiOffset, unsigned int uiLength, unsigned int uiBy)
{
    const unsigned int uiBlockEnd = uiOffset + uiLength; // may lie behind byte 2 and even behind the descriptors
    if (GetAvailableOffset() > gsc_uiCea861LastContentOffset - uiBy || uiBlockEnd + uiBy > gsc_uiCea861ChecksumOffset)
    {
        return 0;
    }
    InsertDataRange(uiBlockEnd, uiBy);
    unsigned char* pui8Raw = m_aui8Raw.GetData();
    pui8Raw[gsc_uiCea861DetailedStartOffset] = static_cast<unsigned char>(GetDetailedStart() + uiBy);
    pui8Raw[uiOffset - 1] = static_cast<unsigned char>(pui8Raw[uiOffset - 1] + uiBy); // the tag stays: the length fits
    return uiBlockEnd;
}

// Takes bytes out of a data block, given its payload, and lowers the length in its header. Byte 2 is the caller's.
void CEdidExtBlockCEA861::ShrinkDataBlock(unsigned int uiOffset, unsigned int uiStart, unsigned int uiBy)
{
    unsigned char& ui8Header = m_aui8Raw.GetData()[uiOffset - 1];
    ui8Header = static_cast<unsigned char>(ui8Header - uiBy);
    RemoveDataRange(uiStart, uiBy);
}

// Takes a whole data block out, given its payload, and lowers byte 2 with it.
void CEdidExtBlockCEA861::RemoveDataBlock(unsigned int uiOffset, unsigned int uiLength)
{
    RemoveDataRange(uiOffset - 1, uiLength + 1);
    LowerDetailedStart(uiLength + 1);
}

// In a damaged block, where the bytes that went lay behind byte 2's offset, the result may fall below the data-block
// area or wrap: what is read there is then another list, but no byte outside the block.
void CEdidExtBlockCEA861::LowerDetailedStart(unsigned int uiLength)
{
    m_aui8Raw.GetData()[gsc_uiCea861DetailedStartOffset] = static_cast<unsigned char>(GetDetailedStart() - uiLength);
}

void CEdidExtBlockCEA861::UpdateChecksum() { CEdidUtils::StoreChecksum(m_aui8Raw.GetCount(), m_aui8Raw.GetData()); }

int CEdidExtBlockCEA861::StripDataBlocks(unsigned int uiStripFlags)
{
    int bChanged = 0;
    if ((uiStripFlags & eStrip_Audio) != 0)
    {
        bChanged |= RemoveDataBlocks(eCea861Tag_Audio);
        bChanged |= ClearBasicAudio();
    }
    if ((uiStripFlags & eStrip_Reserved02) != 0)
    {
        MASSERT_FAILED();
    }
    if ((uiStripFlags & eStrip_Reserved04) != 0)
    {
        MASSERT_FAILED();
    }
    if ((uiStripFlags & eStrip_Speaker) != 0)
    {
        bChanged |= RemoveDataBlocks(eCea861Tag_Speaker);
    }
    if ((uiStripFlags & eStrip_Reserved20) != 0)
    {
        MASSERT_FAILED();
    }
    if (bChanged)
    {
        UpdateChecksum();
    }
    return bChanged;
}

int CEdidExtBlockCEA861::RemoveDataBlocks(ECea861_DataBlockTags eTag)
{
    int bRemoved = 0;
    unsigned int uiLength = 0;
    while (const unsigned int uiOffset = GetDataBlockOffset(eTag, 0, &uiLength))
    {
        RemoveDataBlock(uiOffset, uiLength);
        bRemoved = 1;
    }
    return bRemoved;
}

void CEdidExtBlockCEA861::SetBasicAudio()
{
    unsigned char& ui8Flags = m_aui8Raw.GetData()[gsc_uiCea861FlagsOffset];
    ui8Flags = static_cast<unsigned char>(ui8Flags | gsc_uiCea861BasicAudioFlag);
}

// Returns 1 when the flag was set.
int CEdidExtBlockCEA861::ClearBasicAudio()
{
    if ((GetHeaderByte(gsc_uiCea861FlagsOffset) & gsc_uiCea861BasicAudioFlag) == 0)
    {
        return 0;
    }
    unsigned char& ui8Flags = m_aui8Raw.GetData()[gsc_uiCea861FlagsOffset];
    ui8Flags = static_cast<unsigned char>(ui8Flags & ~gsc_uiCea861BasicAudioFlag);
    return 1;
}

// ---- Lists ----

// Asked before the bytes of an edit move: the lists that it makes out of date. In a block whose data blocks end where
// the descriptors begin these are the lists named. Where a data block crosses that point, or runs past byte 126, an
// edit can cut or uncover data blocks of any kind.
unsigned int CEdidExtBlockCEA861::GetTouchedLists(unsigned int uiLists) const
{
    CDataBlockWalk oWalk(*this);
    while (oWalk.Next())
    {
    }
    return oWalk.IsEndExact() ? uiLists : static_cast<unsigned int>(eList_All);
}

void CEdidExtBlockCEA861::FinishEdit(unsigned int uiLists)
{
    UpdateChecksum();
    const unsigned int uiBehind = m_bListsBehind ? static_cast<unsigned int>(eList_All) : uiLists;
    m_bListsBehind = 1; // and stays so when the memory for a list runs out
    DeriveLists(uiBehind);
    m_bListsBehind = 0;
}

void CEdidExtBlockCEA861::DeriveLists(unsigned int uiLists)
{
    if ((uiLists & eList_Standard) != 0)
    {
        ExtractStandardTimings();
    }
    if ((uiLists & eList_Detailed) != 0)
    {
        ExtractDetailedTimings();
    }
    if ((uiLists & eList_Audio) != 0)
    {
        ExtractAudioInfo();
    }
    if ((uiLists & eList_Speaker) != 0)
    {
        ExtractSpeakerInfo();
    }
}

// A CTA-861 block as an object: loading and stripping, detailed timings, the search for data blocks, and what keeps the
// lists in step with the bytes. What the data blocks mean is in EdidExtBlockCEA861Video.cpp (video, HDMI) and
// EdidExtBlockCEA861Audio.cpp (audio, speakers); bytes are found and moved in Cea861Bytes.cpp.

#include "EdidExtBlockCEA861.h"

#include "Cea861Bytes.h"
#include "DescribedOrigins.h"
#include "Hdmi1xVsdb.h"
#include "ListFill.h"
#include "Standards/Ouis.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorCore;
using namespace ZorStandards::Cta;

namespace
{
static_assert(gsc_uiExtendedTag == CEdidExtBlockCEA861::eCea861Tag_Extended);

// Payload of an empty HDMI vendor block: IEEE identifier, physical address 1.0.0.0, no capabilities.
constexpr unsigned char gsc_aui8EmptyVendorPayload[] = { 0x03, 0x0C, 0x00, 0x01, 0x00, 0x00 };
static_assert(ZorStandards::ReadLittle24(gsc_aui8EmptyVendorPayload) == ZorStandards::gsc_uiOuiHdmi);

unsigned int GetPayload(const CCea861Bytes& oBytes, const SDataBlockKind& oKind, unsigned int uiIndex,
                        unsigned int* puiLength)
{
    if (puiLength == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    const SPayload oBlock = oBytes.FindDataBlock(oKind, uiIndex);
    *puiLength = oBlock.m_uiLength;
    return oBlock.m_uiOffset;
}
} // namespace

CEdidExtBlockCEA861::CEdidExtBlockCEA861(unsigned int uiSize, const unsigned char* pui8Data, unsigned int uiStripFlags)
{
    if (IsSupported(uiSize, pui8Data) != 0)
    {
        Load(pui8Data, uiStripFlags);
    }
}

CEdidExtBlockCEA861::CEdidExtBlockCEA861(SSupported, const unsigned char* pui8Data, unsigned int uiStripFlags)
{
    Load(pui8Data, uiStripFlags);
}

CEdidExtBlockCEA861::~CEdidExtBlockCEA861() = default;

void CEdidExtBlockCEA861::Load(const unsigned char* pui8Data, unsigned int uiStripFlags)
{
    m_uiExtensionType = gsc_uiTag;
    m_uiRevision = pui8Data[gsc_uiRevisionOffset];
    m_aui8Raw.SetCount(gsc_uiBlockSize, -1);
    ZorTools_memcpy(m_aui8Raw.GetData(), pui8Data, gsc_uiBlockSize);
    m_bStripped = Strip(uiStripFlags) ? 1 : 0;
    DeriveLists(eList_All);
}

int CEdidExtBlockCEA861::IsSupported(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (uiSize < gsc_uiBlockSize || pui8Data == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    return pui8Data[gsc_uiTagOffset] == gsc_uiTag && GetRefusal(uiSize, pui8Data) == eRefusal_None ? 1 : 0;
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
    return m_aui8Raw.GetCount() == gsc_uiBlockSize
               ? CEdidUtils::Is8BitsChecksumValid(gsc_uiBlockSize, m_aui8Raw.GetData())
               : 0;
}

int CEdidExtBlockCEA861::IsStripped() const { return m_bStripped; }

// ---- Detailed timings ----

unsigned int CEdidExtBlockCEA861::GetDetailedCount() const { return m_uiDetailedCount; }

int CEdidExtBlockCEA861::GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const
{
    if (uiIndex >= GetDetailedCount() || poTiming == nullptr)
    {
        return 0;
    }
    poTiming->ClearData();
    if (m_apoDetailed.GetCount() != 0)
    {
        return CEdidUtils::ConvertDetailedDescriptorToVidParam(*m_apoDetailed[uiIndex], poTiming);
    }
    const unsigned int uiOffset = GetBytes().GetDetailedOffset(uiIndex);
    if (uiOffset == 0) // the count is out of date, as after memory ran out in an edit
    {
        return 0;
    }
    return CEdidUtils::ConvertDetailedDescriptorToVidParam(
        *reinterpret_cast<const CEdidUtils::SEdidDetailedRaw*>(GetBytes().GetAt(uiOffset)), poTiming);
}

int CEdidExtBlockCEA861::RemoveDetailed(unsigned int uiIndex)
{
    if (uiIndex >= GetDetailedCount())
    {
        return 0;
    }
    const unsigned int uiOffset = GetDetailedTimingsOffset(uiIndex);
    if (uiOffset < gsc_uiDataBlocksOffset) // 0, or over tag, revision, byte 2 and flags, which stay
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(eList_Detailed);
    EditBytes().RemoveRange(uiOffset, gsc_uiDetailedSize);
    FinishEdit(uiLists);
    return 1;
}

int CEdidExtBlockCEA861::SetNativeDetailedCount(unsigned int uiCount)
{
    if (GetRevision() < gsc_uiNativeCountRevision || uiCount > gsc_oNativeCount.GetMost())
    {
        return 0;
    }
    const unsigned int uiLists = GetTouchedLists(0);
    gsc_oNativeCount.Write(EditBytes().GetAt(0), uiCount);
    FinishEdit(uiLists);
    return 1;
}

unsigned int CEdidExtBlockCEA861::ExtractDetailedTimings()
{
    m_apoDetailed.RemoveAll();
    m_uiDetailedCount = GetBytes().CountDetailed();
    return m_uiDetailedCount;
}

void CEdidExtBlockCEA861::ListDetailedOrigins(CTimingOrigins& aoOrigins) const
{
    ListDescribed(*this, GetDetailedCount(), aoOrigins, [this](unsigned int uiIndex, STimingOrigin& oOrigin) {
        oOrigin.m_uiOffset = GetDetailedTimingsOffset(uiIndex);
    });
}

unsigned int CEdidExtBlockCEA861::GetDetailedTimingsOffset(unsigned int uiIndex) const
{
    return GetBytes().GetDetailedOffset(uiIndex);
}

// ---- Data blocks ----

int CEdidExtBlockCEA861::IsYuvSupported() const { return (GetBytes().GetFlags() & gsc_uiYuvFlags) != 0 ? 1 : 0; }

unsigned int CEdidExtBlockCEA861::GetDataBlockOffset(ECea861_DataBlockTags eTag, unsigned int uiIndex,
                                                     unsigned int* puiLength) const
{
    return GetPayload(GetBytes(), { eTag, false }, uiIndex, puiLength);
}

unsigned int CEdidExtBlockCEA861::GetDataBlockOffset(ECea861_DataBlockExtTags eTag, unsigned int uiIndex,
                                                     unsigned int* puiLength) const
{
    return GetPayload(GetBytes(), { eTag, true }, uiIndex, puiLength);
}

unsigned int CEdidExtBlockCEA861::GetVendorSpecificCount() const
{
    return GetBytes().CountDataBlocks({ eCea861Tag_VendorSpecific, false });
}

// Counted in the bytes, not in the list: after RemoveStandard the list still holds the old places.
unsigned int CEdidExtBlockCEA861::GetAvailableOffset() const { return GetBytes().GetContentEnd(); }

unsigned int CEdidExtBlockCEA861::GetAvailableSpace() const
{
    const unsigned int uiOffset = GetAvailableOffset();
    return uiOffset > gsc_uiLastContentOffset ? 0 : gsc_uiLastContentOffset - uiOffset;
}

int CEdidExtBlockCEA861::AddVendorSpecific()
{
    const unsigned int uiLists = GetTouchedLists(eList_Detailed);
    CCea861Editor oEditor = EditBytes();
    const unsigned int uiOffset = oEditor.OpenDataBlock(eCea861Tag_VendorSpecific, sizeof(gsc_aui8EmptyVendorPayload));
    if (uiOffset == 0)
    {
        return 0;
    }
    ZorTools_memcpy(oEditor.GetAt(uiOffset), gsc_aui8EmptyVendorPayload, sizeof(gsc_aui8EmptyVendorPayload));
    FinishEdit(uiLists);
    return 1;
}

// ---- Raw steps ----

// A raw step leaves all lists as they are.

void CEdidExtBlockCEA861::RemoveDataRange(unsigned int uiStart, unsigned int uiLength)
{
    KeepPlaces();
    if (!EditBytes().RemoveRange(uiStart, uiLength))
    {
        MASSERT_FAILED();
    }
}

void CEdidExtBlockCEA861::PadDataRange(unsigned int uiStart, unsigned int uiLength)
{
    KeepPlaces();
    if (!EditBytes().ZeroRange(uiStart, uiLength))
    {
        MASSERT_FAILED();
    }
}

void CEdidExtBlockCEA861::UpdateChecksum() { EditBytes().UpdateChecksum(); }

int CEdidExtBlockCEA861::StripDataBlocks(unsigned int uiStripFlags)
{
    KeepPlaces();
    return Strip(uiStripFlags) ? 1 : 0;
}

bool CEdidExtBlockCEA861::Strip(unsigned int uiStripFlags)
{
    CCea861Editor oEditor = EditBytes();
    bool bChanged = false;
    if ((uiStripFlags & eStrip_Audio) != 0)
    {
        bChanged = oEditor.RemoveDataBlocks(eCea861Tag_Audio);
        bChanged = oEditor.ClearBasicAudio() || bChanged;
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
        bChanged = oEditor.RemoveDataBlocks(eCea861Tag_Speaker) || bChanged;
    }
    if ((uiStripFlags & eStrip_Reserved20) != 0)
    {
        MASSERT_FAILED();
    }
    if (bChanged)
    {
        oEditor.UpdateChecksum();
    }
    return bChanged;
}

// ---- Bytes and lists ----

CCea861Bytes CEdidExtBlockCEA861::GetBytes() const { return { m_aui8Raw.GetData(), m_uiRevision }; }

CCea861Editor CEdidExtBlockCEA861::EditBytes() { return { m_aui8Raw.GetData(), m_uiRevision }; }

// Lists that a walk over the bytes gives as fast are not held: where the descriptors are, and where each code came
// from (a third of a block's memory). They are derived here, before the steps that move bytes and leave lists as they
// were.
void CEdidExtBlockCEA861::KeepPlaces()
{
    ListOccurrences();
    if (m_apoDetailed.GetCount() != 0)
    {
        return;
    }
    const CCea861Editor oEditor = EditBytes();
    CListFill<CEdidUtils::SEdidDetailedRaw*> oFill(m_apoDetailed, m_uiDetailedCount);
    for (unsigned int i = 0; i < m_uiDetailedCount; ++i)
    {
        const unsigned int uiOffset = oEditor.GetDetailedOffset(i);
        if (uiOffset == 0) // fewer than counted: a caller moved them
        {
            return;
        }
        unsigned char* pui8Slot = oEditor.GetAt(uiOffset);
        oFill.Add(reinterpret_cast<CEdidUtils::SEdidDetailedRaw*>(pui8Slot));
    }
}

// Asked before the bytes of an edit move: the lists that it makes out of date. In a block whose data blocks end where
// the descriptors begin these are the lists named. Where a data block crosses that point, or runs past byte 126, an
// edit can cut or uncover data blocks of any kind.
unsigned int CEdidExtBlockCEA861::GetTouchedLists(unsigned int uiLists) const
{
    return GetBytes().AreDataBlocksExact() ? uiLists : static_cast<unsigned int>(eList_All);
}

void CEdidExtBlockCEA861::FinishEdit(unsigned int uiLists)
{
    UpdateChecksum();
    const unsigned int uiBehind = m_bListsBehind != 0 ? static_cast<unsigned int>(eList_All) : uiLists;
    m_bListsBehind = 1; // and stays so when the memory for a list runs out
    DeriveLists(uiBehind);
    m_bListsBehind = 0;
}

void CEdidExtBlockCEA861::DeriveLists(unsigned int uiLists)
{
    // First: it takes no memory, so that the count of descriptors always fits the bytes.
    if ((uiLists & eList_Detailed) != 0)
    {
        ExtractDetailedTimings();
    }
    if ((uiLists & eList_Standard) != 0)
    {
        ExtractStandardTimings();
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

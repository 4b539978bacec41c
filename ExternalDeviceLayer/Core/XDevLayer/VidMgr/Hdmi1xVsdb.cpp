// The HDMI 1.x vendor data block: its video codes and deep colour bits, read and edited in the payload.
// Finding the block, and the checksum after an edit, are left to EdidExtBlockCEA861.

#include "Hdmi1xVsdb.h"

#include "Standards/ByteFields.h"
#include "Standards/CtaBlocks.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/Ouis.h"
#include "Standards/VideoCodes.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorStandards;
using namespace ZorStandards::Hdmi;

namespace ZorCore
{
namespace
{
constexpr unsigned int gsc_uiFieldsOffset = Cta::gsc_uiOuiSize; // HdmiBlocks.h counts from here
constexpr unsigned int gsc_uiShortestPayload = gsc_uiFieldsOffset + gsc_uiFirstOptional;
constexpr unsigned int gsc_uiLongestPayload = Cta::gsc_uiMostPayload;
constexpr unsigned int gsc_uiDepthsEnd = gsc_uiFieldsOffset + gsc_oDeepColours.GetEnd();
constexpr unsigned int gsc_uiIndexedCodes = 16; // by the 3D data

// Where the 3D data are, as offsets in the payload; equal offsets without any.
struct S3dFields
{
    unsigned int m_uiMask;    // 3D_MASK, where there is one
    unsigned int m_uiEntries; // after it
    unsigned int m_uiEnd;
    unsigned int m_uiMulti;
};

unsigned int GetEntrySize(const unsigned char* pui8Entry)
{
    return gsc_oStructure.Read(pui8Entry) >= gsc_uiFirstWithDetail ? 2 : 1;
}

// False when they run past the payload or break off. 3D data without a single byte count as absent.
bool Find3dFields(unsigned int uiLength, const unsigned char* pui8Payload, S3dFields& oFields)
{
    oFields = {};
    const CHdmi1xVsdb::SVics oVics = CHdmi1xVsdb::FindVics(uiLength, pui8Payload);
    if (oVics.m_uiVideoOffset == 0)
    {
        return true;
    }
    const unsigned char* pui8Video = pui8Payload + oVics.m_uiVideoOffset;
    const unsigned int uiStart = oVics.m_uiVicsOffset + gsc_oVicCount.Read(pui8Video);
    const unsigned int uiSize = gsc_o3dLength.Read(pui8Video);
    if (uiStart >= uiLength || uiSize == 0)
    {
        return true;
    }
    oFields.m_uiMulti = gsc_o3dMultiPresent.Read(pui8Video);
    oFields.m_uiMask = uiStart + (oFields.m_uiMulti != eMulti_None ? gsc_uiStructureAllSize : 0);
    oFields.m_uiEntries = oFields.m_uiMask + (oFields.m_uiMulti == eMulti_AllAndMask ? gsc_uiMaskSize : 0);
    oFields.m_uiEnd = uiStart + uiSize;
    if (oFields.m_uiEnd > uiLength || oFields.m_uiMulti > eMulti_AllAndMask)
    {
        return false;
    }
    unsigned int uiOffset = oFields.m_uiEntries;
    while (uiOffset < oFields.m_uiEnd)
    {
        uiOffset += GetEntrySize(pui8Payload + uiOffset);
    }
    return uiOffset == oFields.m_uiEnd;
}

// Drops the entries of a code and lowers the places of later ones. The result is where the entries now end.
unsigned int RemoveFrom3dEntries(const S3dFields& oFields, unsigned char* pui8Payload, unsigned int uiPosition)
{
    unsigned int uiEnd = oFields.m_uiEntries;
    unsigned int uiSize = 0;
    for (unsigned int uiOffset = oFields.m_uiEntries; uiOffset < oFields.m_uiEnd; uiOffset += uiSize)
    {
        unsigned char* pui8Entry = pui8Payload + uiOffset;
        const unsigned int uiOrder = gsc_oVicOrder.Read(pui8Entry);
        uiSize = GetEntrySize(pui8Entry);
        if (uiOrder == uiPosition)
        {
            continue;
        }
        gsc_oVicOrder.Write(pui8Entry, uiOrder - (uiOrder > uiPosition ? 1 : 0));
        ZorTools_memmove(pui8Payload + uiEnd, pui8Entry, uiSize);
        uiEnd += uiSize;
    }
    return uiEnd;
}
} // namespace

CHdmi1xVsdb::CHdmi1xVsdb(unsigned int uiLength, unsigned char* pui8Payload)
    : m_pui8Payload(pui8Payload), m_uiPayloadLength(uiLength)
{
    if (IsSupported(uiLength, pui8Payload) != 0)
    {
        ExtractTimings();
    }
}

CHdmi1xVsdb::~CHdmi1xVsdb() = default;

int CHdmi1xVsdb::IsSupported(unsigned int uiLength, const unsigned char* pui8Payload)
{
    if (uiLength < gsc_uiShortestPayload)
    {
        return 0;
    }
    if (uiLength > gsc_uiLongestPayload || pui8Payload == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    return ReadLittle24(pui8Payload) == gsc_uiOuiHdmi ? 1 : 0;
}

CHdmi1xVsdb::SVics CHdmi1xVsdb::FindVics(unsigned int uiLength, const unsigned char* pui8Payload)
{
    if (pui8Payload == nullptr || uiLength < gsc_uiShortestPayload)
    {
        return {};
    }
    // Not by GetVideoOffset: latencies of interlaced formats count without the others, too.
    const unsigned char* pui8Fields = pui8Payload + gsc_uiFieldsOffset;
    const unsigned int uiLatencies =
        gsc_oLatencyPresent.Read(pui8Fields) + gsc_oInterlacedLatencyPresent.Read(pui8Fields);
    const unsigned int uiVideoOffset = gsc_uiShortestPayload + uiLatencies * gsc_uiLatencySize;
    const unsigned int uiVicsOffset = uiVideoOffset + gsc_uiVideoSize;
    if (!gsc_oVideoPresent.IsSet(pui8Fields) || uiVicsOffset > uiLength)
    {
        return {};
    }
    const unsigned int uiCount = gsc_oVicCount.Read(pui8Payload + uiVideoOffset);
    return { uiVideoOffset, uiVicsOffset, uiCount <= uiLength - uiVicsOffset ? uiCount : 0 };
}

unsigned int CHdmi1xVsdb::ExtractTimings()
{
    const SVics oVics = FindVics(m_uiPayloadLength, m_pui8Payload);
    m_aui8CeaVic.SetCount(oVics.m_uiCount, -1); // room for all, cut below to the known ones
    unsigned int uiKnown = 0;
    for (unsigned int i = 0; i < oVics.m_uiCount; ++i)
    {
        unsigned char ui8CeaVic = 0;
        if (ConvertHdmiVicToCeaVic(m_pui8Payload[oVics.m_uiVicsOffset + i], ui8CeaVic) != 0)
        {
            m_aui8CeaVic.SetAt(static_cast<int>(uiKnown++), ui8CeaVic);
        }
    }
    m_aui8CeaVic.SetCount(uiKnown, -1);
    return uiKnown;
}

unsigned int CHdmi1xVsdb::EnumCea861Vic(unsigned int uiIndex) const
{
    return uiIndex < m_aui8CeaVic.GetCount() ? m_aui8CeaVic[uiIndex] : 0;
}

int CHdmi1xVsdb::RemoveCea861Vic(unsigned int uiVic)
{
    if (uiVic == 0)
    {
        return 0;
    }
    const SVics oVics = FindVics(m_uiPayloadLength, m_pui8Payload);
    for (unsigned int i = 0; i < oVics.m_uiCount; ++i)
    {
        unsigned char* pui8Vic = m_pui8Payload + oVics.m_uiVicsOffset + i;
        unsigned char ui8CeaVic = 0;
        ConvertHdmiVicToCeaVic(*pui8Vic, ui8CeaVic);
        if (ui8CeaVic != uiVic)
        {
            continue;
        }
        const unsigned int uiBehind = oVics.m_uiCount - i - 1;
        ZorTools_memmove(pui8Vic, pui8Vic + 1, uiBehind);
        pui8Vic[uiBehind] = 0;
        gsc_oVicCount.Write(m_pui8Payload + oVics.m_uiVideoOffset, oVics.m_uiCount - 1);
        ExtractTimings();
        return 1;
    }
    return 0;
}

int CHdmi1xVsdb::RemoveFrom3d(unsigned int uiLength, unsigned char* pui8Payload, unsigned int uiPosition,
                              unsigned int uiCodes, unsigned int& uiFreed)
{
    uiFreed = 0;
    S3dFields oFields = {};
    if (uiPosition >= gsc_uiIndexedCodes)
    {
        return 1;
    }
    if (!Find3dFields(uiLength, pui8Payload, oFields) ||
        (oFields.m_uiMulti == eMulti_All && uiCodes > gsc_uiIndexedCodes))
    {
        return 0;
    }
    if (oFields.m_uiMulti == eMulti_AllAndMask)
    {
        unsigned char* pui8Mask = pui8Payload + oFields.m_uiMask;
        const unsigned int uiMask = ReadBig16(pui8Mask);
        const unsigned int uiBelow = (1U << uiPosition) - 1;
        const unsigned int uiLeft = (uiMask & uiBelow) | ((uiMask >> 1) & ~uiBelow);
        pui8Mask[0] = LowByte(uiLeft >> 8);
        pui8Mask[1] = LowByte(uiLeft);
    }
    const unsigned int uiEnd = RemoveFrom3dEntries(oFields, pui8Payload, uiPosition);
    uiFreed = oFields.m_uiEnd - uiEnd;
    if (uiFreed != 0)
    {
        unsigned char* pui8Video = pui8Payload + FindVics(uiLength, pui8Payload).m_uiVideoOffset;
        gsc_o3dLength.Write(pui8Video, gsc_o3dLength.Read(pui8Video) - uiFreed);
        ZorTools_memmove(pui8Payload + uiEnd, pui8Payload + oFields.m_uiEnd, uiLength - oFields.m_uiEnd);
        ZorTools_memset(pui8Payload + uiLength - uiFreed, 0, uiFreed);
    }
    return 1;
}

int CHdmi1xVsdb::ConvertHdmiVicToCeaVic(unsigned char ui8HdmiVic, unsigned char& ui8CeaVic)
{
    const SHdmiCode* poCode = FindHdmiCode(ui8HdmiVic);
    if (poCode == nullptr)
    {
        return 0;
    }
    ui8CeaVic = poCode->m_ui8VideoCode;
    return 1;
}

int CHdmi1xVsdb::GetColorBitDepthSupport(unsigned int& uiBits)
{
    uiBits = 0;
    if (m_pui8Payload == nullptr || m_uiPayloadLength < gsc_uiDepthsEnd)
    {
        MASSERT_FAILED();
        return 0;
    }
    uiBits = gsc_oDeepColours.Read(m_pui8Payload + gsc_uiFieldsOffset);
    return 1;
}

int CHdmi1xVsdb::SetColorBitDepthSupport(unsigned int uiBits)
{
    if (m_pui8Payload == nullptr || m_uiPayloadLength < gsc_uiDepthsEnd)
    {
        MASSERT_FAILED();
        return 0;
    }
    gsc_oDeepColours.Write(m_pui8Payload + gsc_uiFieldsOffset, uiBits);
    return 1;
}
} // namespace ZorCore

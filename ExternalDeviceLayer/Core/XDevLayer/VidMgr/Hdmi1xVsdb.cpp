// The HDMI 1.x vendor data block: its video codes and deep colour bits, read and edited in the payload.
// Finding the block, and the checksum after an edit, are left to EdidExtBlockCEA861.

#include "Hdmi1xVsdb.h"

#include "Standards/ByteFields.h"
#include "Standards/Place.h"
#include "Standards/VideoCodes.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorStandards;

namespace ZorCore
{
namespace
{
// Offsets in the payload.
constexpr unsigned int gsc_uiCapabilityOffset = 5;
constexpr SBitsPlace gsc_oDepth = { gsc_uiCapabilityOffset, 6, 4 };
constexpr unsigned int gsc_uiPresenceOffset = 7;
constexpr unsigned int gsc_uiLatencyOffset = 8;

constexpr unsigned int gsc_uiShortestPayload = gsc_uiPresenceOffset + 1;
constexpr unsigned int gsc_uiLongestPayload = 31; // the length field of a data block has 5 bits

// Presence byte.
constexpr unsigned int gsc_uiLatencyPresent = 0x80;
constexpr unsigned int gsc_uiInterlacedLatencyPresent = 0x40;
constexpr unsigned int gsc_uiVideoPresent = 0x20;
constexpr unsigned int gsc_uiLatencySize = 2; // bytes, for each kind

// From the video fields on.
constexpr SBitsPlace gsc_oVicCount = { 1, 7, 5 }; // the bits below are the length of the 3D data
constexpr unsigned int gsc_uiVicsOffset = 2;
constexpr SBitsPlace gsc_oMultiPresent = { 0, 6, 5 };
constexpr SBitsPlace gsc_o3dLength = { 1, 4, 0 };

// 3D data.
enum EMultiPresent : unsigned int
{
    eMulti_None = 0,
    eMulti_All = 1,        // 3D_Structure_ALL holds for each of the first 16 codes
    eMulti_AllAndMask = 2, // for those in 3D_MASK
    eMulti_Reserved = 3
};
constexpr unsigned int gsc_uiIndexedCodes = 16;
constexpr unsigned int gsc_uiStructureAllSize = 2;
constexpr unsigned int gsc_uiMaskSize = 2;
constexpr SBitsPlace gsc_oVicOrder = { 0, 7, 4 };
constexpr SBitsPlace gsc_oStructure = { 0, 3, 0 };
constexpr unsigned int gsc_uiFirstWithDetail = 8; // structures from here on have a second byte

// Where the 3D data are, as offsets in the payload; equal ones when there are none.
struct S3dFields
{
    unsigned int m_uiMask;    // 3D_MASK, where there is one
    unsigned int m_uiEntries; // after it
    unsigned int m_uiEnd;
    EMultiPresent m_eMulti;
};

unsigned int GetEntrySize(const unsigned char* pui8Entry)
{
    return gsc_oStructure.Read(pui8Entry) >= gsc_uiFirstWithDetail ? 2 : 1;
}

// False when they run past the payload or break off. 3D data of which not one byte is there are none.
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
    oFields.m_eMulti = static_cast<EMultiPresent>(gsc_oMultiPresent.Read(pui8Video));
    oFields.m_uiMask = uiStart + (oFields.m_eMulti != eMulti_None ? gsc_uiStructureAllSize : 0);
    oFields.m_uiEntries = oFields.m_uiMask + (oFields.m_eMulti == eMulti_AllAndMask ? gsc_uiMaskSize : 0);
    oFields.m_uiEnd = uiStart + uiSize;
    if (oFields.m_uiEnd > uiLength || oFields.m_eMulti == eMulti_Reserved)
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
    : m_pui8Fixed(nullptr), m_pui8Video(nullptr), m_pui8Payload(pui8Payload), m_uiPayloadLength(uiLength)
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
    return ZorTools_memcmp(pui8Payload, msc_aui8IeeOuiHdmi1x, sizeof(msc_aui8IeeOuiHdmi1x)) == 0 ? 1 : 0;
}

CHdmi1xVsdb::SVics CHdmi1xVsdb::FindVics(unsigned int uiLength, const unsigned char* pui8Payload)
{
    if (pui8Payload == nullptr || uiLength < gsc_uiShortestPayload)
    {
        return {};
    }
    const unsigned int uiPresence = pui8Payload[gsc_uiPresenceOffset];
    unsigned int uiVideoOffset = gsc_uiLatencyOffset;
    uiVideoOffset += (uiPresence & gsc_uiLatencyPresent) != 0 ? gsc_uiLatencySize : 0;
    uiVideoOffset += (uiPresence & gsc_uiInterlacedLatencyPresent) != 0 ? gsc_uiLatencySize : 0;
    const unsigned int uiVicsOffset = uiVideoOffset + gsc_uiVicsOffset;
    if ((uiPresence & gsc_uiVideoPresent) == 0 || uiVicsOffset > uiLength)
    {
        return {};
    }
    const unsigned int uiCount = gsc_oVicCount.Read(pui8Payload + uiVideoOffset);
    return { uiVideoOffset, uiVicsOffset, uiCount <= uiLength - uiVicsOffset ? uiCount : 0 };
}

// The same for the payload of this view, whose pointers it sets.
CHdmi1xVsdb::SVics CHdmi1xVsdb::FindVics()
{
    const SVics oVics = FindVics(m_uiPayloadLength, m_pui8Payload);
    m_pui8Fixed = m_pui8Payload;
    m_pui8Video = oVics.m_uiVideoOffset != 0 ? m_pui8Payload + oVics.m_uiVideoOffset : nullptr;
    return oVics;
}

unsigned int CHdmi1xVsdb::ExtractTimings()
{
    const SVics oVics = FindVics();
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
    const SVics oVics = FindVics();
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
        (oFields.m_eMulti == eMulti_All && uiCodes > gsc_uiIndexedCodes))
    {
        return 0;
    }
    if (oFields.m_eMulti == eMulti_AllAndMask)
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
    if (m_pui8Payload == nullptr || m_uiPayloadLength <= gsc_uiCapabilityOffset)
    {
        MASSERT_FAILED();
        return 0;
    }
    m_pui8Fixed = m_pui8Payload;
    uiBits = gsc_oDepth.Read(m_pui8Fixed);
    return 1;
}

int CHdmi1xVsdb::SetColorBitDepthSupport(unsigned int uiBits)
{
    if (m_pui8Payload == nullptr || m_uiPayloadLength <= gsc_uiCapabilityOffset)
    {
        MASSERT_FAILED();
        return 0;
    }
    m_pui8Fixed = m_pui8Payload;
    gsc_oDepth.Write(m_pui8Fixed, uiBits);
    return 1;
}
} // namespace ZorCore

#include "MakerCta.h"

#include <algorithm>

#include "EdidUtils.h"
#include "MakerBase.h"
#include "Standards/ColourBlocks.h"
#include "Standards/CtaBlocks.h"
#include "Standards/HdmiBlocks.h"

namespace ZorWrite
{
namespace
{
using namespace ZorStandards;

constexpr unsigned int gsc_ui10Bits = 10;
constexpr unsigned int gsc_ui12Bits = 12;

using CForumBytes = unsigned char[HdmiForum::gsc_oDscTotalChunkKbytes.GetEnd()];

// As many slices as there are, and chunks for the widest compressed mode.
void WriteDsc(const CMakerPlan& oPlan, CForumBytes& aui8Payload)
{
    using namespace HdmiForum;
    constexpr unsigned int uiMostSlices = 7; // 16 of 400 MHz
    constexpr unsigned int uiBytesPerUnit = 1024;
    constexpr unsigned int uiMostBits = 12; // a pixel, compressed
    const unsigned int uiBytes = oPlan.GetLink().m_uiDscWidth * uiMostBits / gsc_uiBits;
    gsc_oDsc1p2.Write(aui8Payload, 1);
    gsc_oDsc10bpc.Write(aui8Payload, oPlan.GetColorDepth() >= gsc_ui10Bits ? 1 : 0);
    gsc_oDsc12bpc.Write(aui8Payload, oPlan.GetColorDepth() >= gsc_ui12Bits ? 1 : 0);
    gsc_oDscMaxFrlRate.Write(aui8Payload, oPlan.GetLink().m_uiFrl);
    gsc_oDscMaxSlices.Write(aui8Payload, uiMostSlices);
    gsc_oDscTotalChunkKbytes.Write(aui8Payload, (uiBytes + uiBytesPerUnit - 1) / uiBytesPerUnit);
}
} // namespace

bool CMakerCta::Add()
{
    return AddBlock() && AddCodes() && AddAudio() && (!m_oPlan.IsHdmi() || AddHdmi()) && AddVideoCapability() &&
           AddHdr() && Add420() && AddPreference();
}

bool CMakerCta::AddFurtherBlock()
{
    const bool bFirst = !m_bBegun;
    return AddBlock() && (!bFirst || AddVideoCapability());
}

// All of them have the same flags.
bool CMakerCta::AddBlock()
{
    CBlockBytes aui8Block = {};
    aui8Block[Cta::gsc_uiTagOffset] = Cta::gsc_uiTag;
    aui8Block[Cta::gsc_uiRevisionOffset] = Cta::gsc_uiHighestRevision;
    aui8Block[Cta::gsc_uiDetailedStartOffset] = Cta::gsc_uiDataBlocksOffset;
    Cta::gsc_oUnderscan.Write(aui8Block, 1);
    Cta::gsc_oBasicAudio.Write(aui8Block, m_oPlan.HasAudio() ? 1 : 0);
    Cta::gsc_oYCbCr444.Write(aui8Block, m_oPlan.HasYCbCr() ? 1 : 0);
    Cta::gsc_oYCbCr422.Write(aui8Block, m_oPlan.HasYCbCr() ? 1 : 0);
    Cta::gsc_oNativeCount.Write(aui8Block, m_oPlan.IsFirstNative() ? 1 : 0);
    CEdidUtils::StoreChecksum(sizeof(aui8Block), aui8Block);
    m_bBegun = true;
    return m_oParts.AddBlock(Cta::gsc_uiTag, aui8Block);
}

// Once.
bool CMakerCta::AddCode(const SPlannedMode& oMode)
{
    const unsigned char ui8Code = static_cast<unsigned char>(oMode.m_uiCode);
    const unsigned char* pui8Codes = m_aui8Codes.GetData();
    const unsigned char* pui8End = pui8Codes + m_aui8Codes.GetCount();
    if (ui8Code == 0 || oMode.m_b420Only || std::find(pui8Codes, pui8End, ui8Code) != pui8End)
    {
        return true;
    }
    m_aui8Codes.Add(ui8Code);
    return m_oParts.AddItem(eZorEdidField_CtaVideo, 1, &ui8Code);
}

// In the order of the wishes, as the first one is preferred.
bool CMakerCta::AddCodes()
{
    bool bAdded = !m_oPlan.IsPreferredByDisplayIdAlone() || AddCode(m_oPlan.Get(m_oPlan.GetFirstDetailed()));
    for (unsigned int i = 0; i < m_oPlan.GetCount() && bAdded; ++i)
    {
        bAdded = AddCode(m_oPlan.Get(i));
    }
    return bAdded;
}

bool CMakerCta::AddAudio()
{
    constexpr unsigned char aui8Channels[] = { 0, 2, 6, 8 };          // by EAudio
    constexpr unsigned char aui8Speakers[] = { 0, 0x01, 0x0F, 0x4F }; // front; LFE, center and rear; rear centers
    constexpr unsigned char ui8Pcm = 1 << 3;
    constexpr unsigned char ui8Rates = 0x07;  // 32, 44.1 and 48 kHz
    constexpr unsigned char ui8Depths = 0x07; // 16, 20 and 24 bits
    const unsigned int uiAudio = m_oWishes.m_eAudio;
    if (uiAudio == SZorEdidWishes::eAudio_None)
    {
        return AddDonorsAudio();
    }
    const unsigned char aui8Audio[] = { static_cast<unsigned char>(ui8Pcm | (aui8Channels[uiAudio] - 1)), ui8Rates,
                                        ui8Depths };
    const unsigned char aui8Allocation[] = { aui8Speakers[uiAudio], 0, 0 };
    return m_oParts.AddItem(eZorEdidField_CtaAudio, sizeof(aui8Audio), aui8Audio) &&
           m_oParts.AddDataBlock(eZorEdidField_CtaSpeakers, sizeof(aui8Allocation), aui8Allocation);
}

bool CMakerCta::AddDonorsAudio()
{
    constexpr unsigned int uiSize = 3; // of a descriptor, and of the speakers
    for (unsigned int i = 0; i < m_oDonor.m_aui8Audio.GetCount(); i += uiSize)
    {
        if (!m_oParts.AddItem(eZorEdidField_CtaAudio, uiSize, m_oDonor.m_aui8Audio.GetData() + i))
        {
            return false;
        }
    }
    return m_oDonor.m_aui8Audio.GetCount() == 0 || m_oDonor.m_aui8Speakers.GetCount() == 0 ||
           m_oParts.AddDataBlock(eZorEdidField_CtaSpeakers, uiSize, m_oDonor.m_aui8Speakers.GetData());
}

bool CMakerCta::AddHdmi()
{
    using namespace Hdmi;
    unsigned char aui8Payload[gsc_uiNewSize] = {};
    const unsigned int uiDepth = m_oPlan.GetColorDepth();
    WriteNew(aui8Payload, m_oPlan.GetLink().m_uiTmds);
    gsc_oDeepColour30.Write(aui8Payload, uiDepth > 8 ? 1 : 0);
    gsc_oDeepColour36.Write(aui8Payload, uiDepth >= gsc_ui12Bits ? 1 : 0);
    gsc_oDeepColourY444.Write(aui8Payload, uiDepth > 8 && m_oPlan.HasYCbCr() ? 1 : 0);
    return m_oParts.AddDataBlock(eZorEdidField_CtaHdmi, sizeof(aui8Payload), aui8Payload) &&
           (!m_oPlan.GetLink().m_bForum || AddForum());
}

bool CMakerCta::AddForum()
{
    using namespace HdmiForum;
    const SPlannedLink& oLink = m_oPlan.GetLink();
    CForumBytes aui8Payload = {};
    unsigned int uiSize = gsc_uiNewSize;
    WriteNew(aui8Payload, oLink.m_uiForumTmds, oLink.m_uiFrl);
    const bool bDeep420 = m_oWishes.m_bYCbCr420 && m_oPlan.GetColorDepth() > 8;
    gsc_oDc30bit420.Write(aui8Payload, bDeep420 ? 1 : 0);
    gsc_oDc36bit420.Write(aui8Payload, bDeep420 && m_oPlan.GetColorDepth() > 10 ? 1 : 0);
    for (unsigned int i = 0; i < m_oPlan.GetCount(); ++i)
    {
        if (m_oPlan.Get(i).m_uiCode != 0 && m_oPlan.Get(i).m_oTiming.m_uiWidth >= gsc_uiUhdWidth)
        {
            gsc_oUhdVic.Write(aui8Payload, 1);
        }
    }
    if (m_oWishes.HasVrr())
    {
        uiSize = gsc_oVrrMax.GetEnd();
        gsc_oVrrMin.Write(aui8Payload, m_oWishes.m_uiVrrMin);
        gsc_oVrrMax.Write(aui8Payload, m_oWishes.m_uiVrrMax >= gsc_uiLeastVrrMax ? m_oWishes.m_uiVrrMax : 0);
    }
    if (oLink.m_bDsc)
    {
        uiSize = gsc_oDscTotalChunkKbytes.GetEnd();
        WriteDsc(m_oPlan, aui8Payload);
    }
    return m_oParts.AddDataBlock(eZorEdidField_CtaHdmiForum, uiSize, aui8Payload);
}

// A display of pixels: quantization by choice, no overscan.
bool CMakerCta::AddVideoCapability()
{
    constexpr unsigned int uiAlwaysUnderscanned = 2;
    unsigned char ui8Payload = 0;
    Cta::gsc_oQuantizationYcc.Write(&ui8Payload, m_oPlan.HasYCbCr() ? 1 : 0);
    Cta::gsc_oQuantizationRgb.Write(&ui8Payload, 1);
    Cta::gsc_oItScan.Write(&ui8Payload, uiAlwaysUnderscanned);
    Cta::gsc_oCeScan.Write(&ui8Payload, uiAlwaysUnderscanned);
    return m_oParts.AddDataBlock(eZorEdidField_CtaVideoCapability, 1, &ui8Payload);
}

bool CMakerCta::AddHdr()
{
    constexpr unsigned char aui8Colorimetry[] = { 0xC0, 0x00 }; // BT.2020 RGB and YCC
    if (!m_oWishes.HasHdr())
    {
        return true;
    }
    unsigned char aui8Hdr[5] = {};
    Colour::gsc_oGammaSdr.Write(aui8Hdr, 1);
    Colour::gsc_oSt2084.Write(aui8Hdr, m_oWishes.m_bPq ? 1 : 0);
    Colour::gsc_oHlg.Write(aui8Hdr, m_oWishes.m_bHlg ? 1 : 0);
    Colour::gsc_oMetadataType1.Write(aui8Hdr, 1);
    const unsigned int uiSize = m_oWishes.m_uiMinLuminance != 0     ? 5
                                : m_oWishes.m_uiFrameLuminance != 0 ? 4
                                : m_oWishes.m_uiMaxLuminance != 0   ? 3
                                                                    : 2;
    return m_oParts.AddDataBlock(eZorEdidField_CtaColorimetry, sizeof(aui8Colorimetry), aui8Colorimetry) &&
           m_oParts.AddDataBlock(eZorEdidField_CtaHdrStatic, uiSize, aui8Hdr) && SetLuminances();
}

// A minimum is part of the maximum, which comes first. What their codes cannot say is noted.
bool CMakerCta::SetLuminances()
{
    constexpr double dSteps = 10000;
    const struct
    {
        const char* m_pszName;
        EZorEdidField m_eId;
        double m_dWished;
    } aoLuminances[] = {
        { "max", eZorEdidField_CtaHdrStaticMaxLuminance, static_cast<double>(m_oWishes.m_uiMaxLuminance) },
        { "frame", eZorEdidField_CtaHdrStaticMaxFrameAverageLuminance,
          static_cast<double>(m_oWishes.m_uiFrameLuminance) },
        { "min", eZorEdidField_CtaHdrStaticMinLuminance, m_oWishes.m_uiMinLuminance / dSteps },
    };
    for (const auto& oLuminance : aoLuminances)
    {
        CMString sWished;
        CMString sNearest;
        sWished.Format("%.7g", oLuminance.m_dWished);
        if (oLuminance.m_dWished > 0 && !m_oParts.Set(oLuminance.m_eId, sWished, sNearest))
        {
            return false;
        }
        if (sNearest.GetLength() != 0)
        {
            m_asNotes.Add(CMString("HDR: ") + oLuminance.m_pszName + " " + sWished + " became " + sNearest +
                          ", the nearest");
        }
    }
    return true;
}

// Codes that exist in 4:2:0 alone, and which of the others exist so, too.
bool CMakerCta::Add420()
{
    constexpr unsigned int uiMostCodes = 31;
    CByteArray aui8Only;
    unsigned char aui8Map[uiMostCodes] = {};
    unsigned int uiMapSize = 0;
    for (unsigned int i = 0; m_oWishes.m_bYCbCr420 && i < m_oPlan.GetCount(); ++i)
    {
        const SPlannedMode& oMode = m_oPlan.Get(i);
        const unsigned char ui8Code = static_cast<unsigned char>(oMode.m_uiCode);
        if (!oMode.Allows420())
        {
            continue;
        }
        if (oMode.m_b420Only)
        {
            aui8Only.Add(ui8Code);
            continue;
        }
        const auto uiPlace = static_cast<unsigned int>(
            std::find(m_aui8Codes.GetData(), m_aui8Codes.GetData() + m_aui8Codes.GetCount(), ui8Code) -
            m_aui8Codes.GetData());
        aui8Map[uiPlace / gsc_uiBits] |= 1U << (uiPlace % gsc_uiBits);
        uiMapSize = std::max(uiMapSize, uiPlace / gsc_uiBits + 1);
    }
    return (aui8Only.GetCount() == 0 ||
            m_oParts.AddDataBlock(eZorEdidField_Cta420Video, aui8Only.GetCount(), aui8Only.GetData())) &&
           (uiMapSize == 0 || m_oParts.AddDataBlock(eZorEdidField_Cta420Map, uiMapSize, aui8Map));
}

// A preferred code that no detailed timing repeats.
bool CMakerCta::AddPreference()
{
    const SPlannedMode& oFirst = m_oPlan.Get(0);
    const unsigned char ui8Code = static_cast<unsigned char>(oFirst.m_uiCode);
    return oFirst.m_bDetailed || ui8Code == 0 || m_oPlan.IsPreferredByDisplayIdAlone() ||
           m_oParts.AddDataBlock(eZorEdidField_CtaVideoFormatPreference, 1, &ui8Code);
}
} // namespace ZorWrite

// The extended monitor report: what it adds to the monitor report of ZorEdidUtilsReport.cpp. The digital interface,
// the types of the extension blocks, native table timings and the digest of each CTA-861 block.

#include "ZorEdidUtils.h"

#include "AudioWarnings.h"
#include "EdidExtBlockCEA861.h"
#include "Standards/BaseBlock.h"
#include "ZorEdidUtilsReport.h"

using namespace ZorUtils;
using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiInterfaceRevision = 4; // exactly: the getter takes later ones too, the report does not

void AddCeaDigest(CReportLines& oReport, const CEdidExtBlockCEA861& oBlock);

class CExtendedReport final : public CMonitorReport
{
public:
    CExtendedReport(const CEdid& oEdid, const SReportedModes& oModes,
                    const CZorEdidUtils::CModeList& oExtStandardNative, const char* pszLinePrefix)
        : CMonitorReport(oEdid, oModes, pszLinePrefix), m_oExtStandardNative(oExtStandardNative)
    {
    }

protected:
    void AddDigitalInterface() override;
    CMString GetTypeText(const CEdidExtBlock& oBlock) override { return CZorEdidUtils::GetExtensionType(oBlock); }
    void AddBlockDigest(const CEdidExtBlock& oBlock) override;
    void AddExtStandardNative() override { AddTimings(m_oExtStandardNative, " (native)"); }

private:
    const CZorEdidUtils::CModeList& m_oExtStandardNative;
};
} // namespace

void CZorEdidUtils::GetEdidFormatedAsZorEdidExtractorExt(const CEdid& oEdid, CMArrayString& oLines,
                                                         const char* pszLinePrefix)
{
    SModes oModes;
    if (ExtractOrEmpty(oEdid, oModes, oLines))
    {
        CExtendedReport(oEdid, GetReportedModes(oModes), oModes.m_oExtStandardNative, pszLinePrefix).Write(oLines);
    }
}

void CZorEdidUtils::GetEdidFormatedAsZorEdidExtractorExt(const CEdid& oEdid, const CVidParamTimingGeneric& oPreferred,
                                                         const CModeList& oEstablishedVesa,
                                                         const CModeList& oEstablishedAll,
                                                         const CModeList& oBaseStandard, const CModeList& oBaseDetailed,
                                                         const CModeList& oExtStandardNative,
                                                         const CModeList& oExtStandard, const CModeList& oExtDetailed,
                                                         CMArrayString& oLines, const char* pszLinePrefix)
{
    const SReportedModes oModes = { oPreferred,    oEstablishedVesa, oEstablishedAll, oBaseStandard,
                                    oBaseDetailed, oExtStandard,     oExtDetailed };
    CExtendedReport(oEdid, oModes, oExtStandardNative, pszLinePrefix).Write(oLines);
}

namespace
{
// ---- Digital interface ----

const char* GetDigitalInterfaceText(CEdidBase::EDigitalInterface eInterface)
{
    switch (eInterface)
    {
    case CEdidBase::eDigitalInterfaceNotDefined:
        return "Not defined";
    case CEdidBase::eDigitalInterfaceDvi:
        return "DVI";
    case CEdidBase::eDigitalInterfaceHdmiA:
        return "HDMI-A";
    case CEdidBase::eDigitalInterfaceHdmiB:
        return "HDMI-B";
    case CEdidBase::eDigitalInterfaceMddi:
        return "MDDI";
    case CEdidBase::eDigitalInterfaceDisplayPort:
        return "DisplayPort";
    case CEdidBase::eDigitalInterfaceReserved:
        return "Reserved";
    default:
        return "Unknown";
    }
}

void CExtendedReport::AddDigitalInterface()
{
    const auto& aui8Base = m_oEdid.GetBaseBlock();
    if ((aui8Base[gsc_uiVideoInputOffset] & gsc_uiDigitalMask) == 0 || aui8Base[gsc_uiVersionOffset] != gsc_uiVersion ||
        aui8Base[gsc_uiRevisionOffset] != gsc_uiInterfaceRevision)
    {
        return;
    }
    CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
    m_oEdid.GetDigitalVideoInterface(eInterface);
    m_oReport.Add(CTextLine("  Digital interface type:      ").Text(GetDigitalInterfaceText(eInterface)));
}

// ---- Digest of a CTA-861 block ----

void CExtendedReport::AddBlockDigest(const CEdidExtBlock& oBlock)
{
    if (oBlock.GetExtensionType() != gsc_uiCeaExtensionTag)
    {
        return;
    }
    AddCeaDigest(m_oReport, static_cast<const CEdidExtBlockCEA861&>(oBlock));
    m_oReport.AddSpacer();
}

using EAudioSamplingFreq = CEdidExtBlockCEA861::EAudioSamplingFreq;
using SAudioDescriptor = CEdidExtBlockCEA861::SAudioDescriptor;

void AddDetailedTimings(CReportLines& oReport, const CEdidExtBlockCEA861& oBlock)
{
    oReport.Add(CTextLine("      Detailed count :         ").Decimal(oBlock.GetDetailedCount()));
    oReport.AddSpacer();
    for (unsigned int i = 0; i < oBlock.GetDetailedCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        if (oBlock.GetDetailed(i, &oTiming) != 0)
        {
            oReport.Add(CTextLine("      Detailed #")
                            .Decimal(i + 1)
                            .Text(" : ")
                            .Decimal(oTiming.GetHorizontalActive(), 4)
                            .Text(" x ")
                            .Decimal(oTiming.GetVerticalActive(), 4)
                            .Text(" @ ")
                            .Decimal(oTiming.GetVerticalRateInHz(), 3)
                            .Text(" Hz Pix clock = ")
                            .Decimal(oTiming.GetPixelClockInKiloHz(), 6)
                            .Text(" KHz"));
        }
    }
    oReport.AddSpacer();
}

void AddSamplingFrequencies(CReportLines& oReport, unsigned int uiNumber, const SAudioDescriptor& oDescriptor)
{
    static constexpr EAudioSamplingFreq s_aeRates[] = {
        CEdidExtBlockCEA861::eAudioSamplingFreq_32KHz,  CEdidExtBlockCEA861::eAudioSamplingFreq_44KHz,
        CEdidExtBlockCEA861::eAudioSamplingFreq_48KHz,  CEdidExtBlockCEA861::eAudioSamplingFreq_88KHz,
        CEdidExtBlockCEA861::eAudioSamplingFreq_96KHz,  CEdidExtBlockCEA861::eAudioSamplingFreq_176KHz,
        CEdidExtBlockCEA861::eAudioSamplingFreq_192KHz,
    };

    oReport.Add(CTextLine("      Audio descriptor #").Decimal(uiNumber).Text(" supported frequencies :"));
    for (EAudioSamplingFreq eRate : s_aeRates)
    {
        if ((oDescriptor.m_eSamplingFreq & eRate) != 0)
        {
            oReport.Add(CTextLine("      - ").Text(CEdidExtBlockCEA861::GetAudioSamplingFreqStr(eRate)).Text(" KHz"));
        }
    }
    oReport.AddSpacer();
}

// One element for each of a run of named bits.
struct SNamedBit
{
    unsigned int m_uiMask;
    const char* m_pszText;
};

template <unsigned int uiCount>
void AddNamedBits(CReportLines& oReport, const SNamedBit (&aoBits)[uiCount], unsigned int uiValue)
{
    for (const SNamedBit& oBit : aoBits)
    {
        if ((uiValue & oBit.m_uiMask) != 0)
        {
            oReport.Add(oBit.m_pszText);
        }
    }
}

// The low byte of m_uiExtra, for linear PCM.
void AddBitDepths(CReportLines& oReport, unsigned int uiNumber, const SAudioDescriptor& oDescriptor)
{
    static constexpr SNamedBit s_aoDepths[] = {
        { 0x01, "      - 16 bit" },
        { 0x02, "      - 20 bit" },
        { 0x04, "      - 24 bit" },
    };
    oReport.Add(CTextLine("      Audio descriptor #").Decimal(uiNumber).Text(" supported bit depth :"));
    AddNamedBits(oReport, s_aoDepths, oDescriptor.m_uiExtra);
    oReport.AddSpacer();
}

// The low byte of m_uiExtra, in units of 8 kHz, for the compressed formats from AC3 to ATRAC.
void AddBitRate(CReportLines& oReport, unsigned int uiNumber, const SAudioDescriptor& oDescriptor)
{
    oReport.Add(CTextLine("      Audio descriptor #")
                    .Decimal(uiNumber)
                    .Text(" maximum bit rate : ")
                    .Decimal((oDescriptor.m_uiExtra & 0xFF) * 8)
                    .Text(" KHz"));
    oReport.AddSpacer();
}

void AddAudioDescriptor(CReportLines& oReport, unsigned int uiNumber, const SAudioDescriptor& oDescriptor)
{
    const unsigned int uiFormat = oDescriptor.m_eFormat;
    oReport.Add(CTextLine("      Audio descriptor #")
                    .Decimal(uiNumber)
                    .Text(" format : ")
                    .Text(CEdidExtBlockCEA861::GetAudioFormatStr(oDescriptor.m_eFormat)));
    oReport.AddSpacer();
    AddSamplingFrequencies(oReport, uiNumber, oDescriptor);
    if (uiFormat == CEdidExtBlockCEA861::eAudioFormat_Pcm)
    {
        AddBitDepths(oReport, uiNumber, oDescriptor);
    }
    if (uiFormat >= CEdidExtBlockCEA861::eAudioFormat_Ac3 && uiFormat <= CEdidExtBlockCEA861::eAudioFormat_Atrac)
    {
        AddBitRate(oReport, uiNumber, oDescriptor);
    }
}

void AddAudio(CReportLines& oReport, const CEdidExtBlockCEA861& oBlock)
{
    oReport.Add(CTextLine("      Audio descriptor count :      ").Decimal(oBlock.GetAudioDescriptorCount()));
    oReport.AddSpacer();
    for (unsigned int i = 0; i < oBlock.GetAudioDescriptorCount(); ++i)
    {
        SAudioDescriptor oDescriptor = {};
        if (oBlock.GetAudioDescriptor(i, &oDescriptor) != 0)
        {
            AddAudioDescriptor(oReport, i + 1, oDescriptor);
        }
    }
}

// Speaker positions of the speaker allocation data block.
constexpr SNamedBit gsc_aoSpeakers[] = {
    { 0x001, "      - Front left and right" },
    { 0x002, "      - Low frequency effect" },
    { 0x004, "      - Front center" },
    { 0x008, "      - Rear left and right" },
    { 0x010, "      - Rear center" },
    { 0x020, "      - Front center left and right" },
    { 0x040, "      - Rear center left and right" },
    { 0x080, "      - Front wide center left and right" },
    { 0x100, "      - Front wide high left and right" },
    { 0x200, "      - Top center" },
    { 0x400, "      - Front center high" },
};

// No spacer follows the count; one follows each entry, with or without positions.
void AddSpeakers(CReportLines& oReport, const CEdidExtBlockCEA861& oBlock)
{
    oReport.Add(CTextLine("      Speaker descriptor count :      ").Decimal(oBlock.GetSpeakerDescriptorCount()));
    for (unsigned int i = 0; i < oBlock.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiSpeakers = 0;
        if (oBlock.GetSpeakerDescriptor(i, &uiSpeakers) != 0)
        {
            AddNamedBits(oReport, gsc_aoSpeakers, uiSpeakers);
        }
        oReport.AddSpacer();
    }
}

void AddWarnings(CReportLines& oReport, const CEdidExtBlockCEA861& oBlock)
{
    for (const SAudioWarning& oWarning : gsc_aoAudioWarnings)
    {
        if (oWarning.m_pfnHolds(oBlock.GetAudioDescriptorCount(), oBlock.GetSpeakerDescriptorCount()))
        {
            oReport.Add(CTextLine("      HDMI CTS warning : ").Text(oWarning.m_pszText));
            oReport.AddSpacer();
        }
    }
}

void AddCeaDigest(CReportLines& oReport, const CEdidExtBlockCEA861& oBlock)
{
    AddDetailedTimings(oReport, oBlock);
    AddAudio(oReport, oBlock);
    AddSpeakers(oReport, oBlock);
    AddWarnings(oReport, oBlock);
    oReport.Add(CTextLine("      Available space :        ").Decimal(oBlock.GetAvailableSpace()).Text(" byte(s)"));
    oReport.AddSpacer();
}
} // namespace

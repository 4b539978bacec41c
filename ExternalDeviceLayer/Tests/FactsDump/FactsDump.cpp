// zor_facts_dump info|display|modes FILE...: the facts of images as other programs ask for them, to compare the two.
//   info     a line of JSON with the answers to libdisplay-info's info.h
//   display  a line of name=value pairs with the members of Linux' drm_display_info and drm_connector
//   modes    a line a mode (ModesDump.h)

#include <math.h>
#include <stdio.h>
#include <string.h>

#include <string>
#include <vector>

#include "ModesDump.h"
#include "ZorEdidFacts.h"

namespace
{
using CFacts = CZorEdidFacts;

void PrintText(const char* pszName, const char* pszText)
{
    if (pszText == nullptr)
    {
        printf(",\"%s\":null", pszName);
        return;
    }
    printf(",\"%s\":\"", pszName);
    for (; *pszText != '\0'; ++pszText)
    {
        printf(*pszText == '"' || *pszText == '\\' ? "\\%c" : "%c", *pszText);
    }
    printf("\"");
}

void PrintNames(const CFacts::SIdentity& oIdentity)
{
    CMString sMaker;
    if (CFacts::FindMakerName(oIdentity.m_oMaker.m_oValue.m_szLetters, sMaker, "/usr/share/hwdata/pnp.ids") == 0)
    {
        sMaker.Format("PNP(%s)", oIdentity.m_oMaker.m_oValue.m_szLetters);
    }
    PrintText("make", sMaker);
    CMString sModel;
    sModel.Format("0x%04X", oIdentity.m_oProduct.m_oValue);
    PrintText("model", oIdentity.m_oName.IsSaid() ? oIdentity.m_oName.m_oValue.m_szText : sModel);
    CMString sSerial;
    sSerial.Format("0x%08X", oIdentity.m_oSerialNumber.m_oValue);
    PrintText("serial", oIdentity.m_oSerialText.IsSaid()     ? oIdentity.m_oSerialText.m_oValue.m_szText
                        : oIdentity.m_oSerialNumber.IsSaid() ? static_cast<const char*>(sSerial)
                                                             : nullptr);
}

int Has(unsigned int uiMask, unsigned int uiFlag) { return (uiMask & uiFlag) != 0 ? 1 : 0; }

void PrintInfo(const CFacts& oFacts)
{
    const CFacts::SColour& oColour = oFacts.GetColour();
    PrintNames(oFacts.GetIdentity());
    printf(",\"max_luminance\":%.4f,\"max_frame_average\":%.4f,\"min_luminance\":%.6f",
           static_cast<double>(oColour.m_oContentMax.m_oValue.m_fLuminance),
           static_cast<double>(oColour.m_oContentMaxFrameAverage.m_oValue.m_fLuminance),
           static_cast<double>(oColour.m_oContentMin.m_oValue.m_fLuminance));
    const unsigned int uiEotfs = oColour.m_oEotfs.Or(CFacts::eEotf_Sdr);
    printf(",\"type1\":%d,\"sdr\":%d,\"hdr\":%d,\"pq\":%d,\"hlg\":%d", Has(oColour.m_oMetadataTypes.m_oValue, 1),
           Has(uiEotfs, CFacts::eEotf_Sdr), Has(uiEotfs, CFacts::eEotf_HdrGamma), Has(uiEotfs, CFacts::eEotf_Pq),
           Has(uiEotfs, CFacts::eEotf_Hlg));
    const CFacts::SPrimaries oPrimaries = oColour.GetDefaultPrimaries();
    const CFacts::SPoint aoPoints[] = { oPrimaries.m_oRed, oPrimaries.m_oGreen, oPrimaries.m_oBlue,
                                        oColour.GetDefaultWhite() };
    printf(",\"primaries\":%d,\"white\":%d,\"xy\":[", oPrimaries.m_oRed.m_fX > 0 ? 1 : 0,
           oColour.GetDefaultWhite().m_fX > 0 ? 1 : 0);
    const char* pszComma = "";
    for (const CFacts::SPoint& oPoint : aoPoints)
    {
        printf("%s%.4f,%.4f", pszComma, static_cast<double>(oPoint.m_fX), static_cast<double>(oPoint.m_fY));
        pszComma = ",";
    }
    const unsigned int uiColorimetry = oColour.m_oColorimetry.m_oValue;
    printf("],\"bt2020_cycc\":%d,\"bt2020_ycc\":%d,\"bt2020_rgb\":%d,\"st2113_rgb\":%d,\"ictcp\":%d,\"gamma\":%.2f",
           Has(uiColorimetry, CFacts::eColorimetry_Bt2020CYcc), Has(uiColorimetry, CFacts::eColorimetry_Bt2020Ycc),
           Has(uiColorimetry, CFacts::eColorimetry_Bt2020Rgb), Has(uiColorimetry, CFacts::eColorimetry_St2113Rgb),
           Has(uiColorimetry, CFacts::eColorimetry_ICtCp), static_cast<double>(oColour.GetDefaultGamma()));
}

// ---- As the kernel has them ----

unsigned int DeepMask(unsigned int uiDepths)
{
    return (uiDepths & CFacts::eDepth_10 ? 0x10U : 0U) | (uiDepths & CFacts::eDepth_12 ? 0x20U : 0U) |
           (uiDepths & CFacts::eDepth_16 ? 0x40U : 0U);
}

unsigned int RawLatency(const SZorFact<int>& oLatency)
{
    return !oLatency.IsSaid()                               ? 0
           : oLatency.m_oValue == CFacts::msc_iNotSupported ? 255
                                                            : static_cast<unsigned int>(oLatency.m_oValue / 2 + 1);
}

void PrintLink(const CFacts& oFacts)
{
    const CFacts::SLink& oLink = oFacts.GetLink();
    const CFacts::SColour& oColour = oFacts.GetColour();
    const bool b444 = oColour.m_oHdmiDeep444.m_oValue;
    printf("\tcea_rev=%u\tis_hdmi=%d\thas_audio=%d\tmax_tmds_khz=%u\tdvi_dual=%d\tnon_desktop=%d",
           oLink.m_oCtaRevision.m_oValue, oLink.m_oHdmi.IsSaid() ? 1 : 0, oFacts.GetAudio().m_oAudio.m_oValue ? 1 : 0,
           oLink.m_oMaxTmds.m_oValue, oLink.m_oDviDual.m_oValue ? 1 : 0,
           oFacts.GetSize().m_oDesktop.IsSaid() && !oFacts.GetSize().m_oDesktop.m_oValue ? 1 : 0);
    printf("\trgb_range_selectable=%d\trgb444_dc=0x%x\tycbcr444_dc=0x%x\ty420_dc=0x%x",
           oColour.m_oSelectableRgb.m_oValue ? 1 : 0, DeepMask(oColour.m_oHdmiDeep.m_oValue),
           b444 ? DeepMask(oColour.m_oHdmiDeep.m_oValue) : 0, DeepMask(oColour.m_oHdmiDeep420.m_oValue) >> 4);
    printf("\tscdc=%d\tread_request=%d\tscrambling=%d\tscrambling_low=%d", oLink.m_oScdc.m_oValue ? 1 : 0,
           oLink.m_oReadRequest.m_oValue ? 1 : 0, oLink.HasScrambling() ? 1 : 0, oLink.m_oScrambleLow.m_oValue ? 1 : 0);
    printf("\tfrl_gbps=%ux%u\tdsc=%d\tdsc_bpc=%u\tdsc_slices=%u\tdsc_mhz=%u\tdsc_frl_gbps=%ux%u\tdsc_kbytes=%u",
           oLink.m_oFrl.m_oValue.m_ui8Lanes, oLink.m_oFrl.m_oValue.m_ui8Gbps, oLink.m_oDsc.m_oValue ? 1 : 0,
           oLink.m_oDscDepth.m_oValue, oLink.m_oDscSlices.m_oValue.m_ui8Most, oLink.m_oDscSlices.m_oValue.m_ui16MegaHz,
           oLink.m_oDscFrl.m_oValue.m_ui8Lanes, oLink.m_oDscFrl.m_oValue.m_ui8Gbps,
           oLink.m_oDscChunk.IsSaid() ? oLink.m_oDscChunk.m_oValue / 1024 - 1 : 0); // as stored
    printf("\tdsc_420=%d\tdsc_all_bpp=%d", oLink.m_oDscNative420.m_oValue ? 1 : 0, oLink.m_oDscAllBpp.m_oValue ? 1 : 0);
}

void PrintHdr(const CFacts::SColour& oColour)
{
    printf("\thdr_eotf=0x%x\thdr_types=0x%x\thdr_max_cll=%u\thdr_max_fall=%u\thdr_min_cll=%u",
           oColour.m_oEotfs.m_oValue, oColour.m_oMetadataTypes.m_oValue, oColour.m_oContentMax.m_oValue.m_ui8Code,
           oColour.m_oContentMaxFrameAverage.m_oValue.m_ui8Code, oColour.m_oContentMin.m_oValue.m_ui8Code);
}

void PrintTile(const CFacts& oFacts)
{
    const CFacts::SLink& oLink = oFacts.GetLink();
    const CFacts::STile& oTile = oFacts.GetSize().m_oTile.m_oValue;
    printf("\tmso_streams=%u\tmso_overlap=%u\ttile=%d", oLink.m_oMsoStreams.m_oValue,
           oLink.m_oMsoStreams.m_oValue != 0 ? oLink.m_oMsoOverlap.m_oValue : 0,
           oFacts.GetSize().m_oTile.IsSaid() ? 1 : 0);
    if (oFacts.GetSize().m_oTile.IsSaid())
    {
        printf("\ttiles=%ux%u\ttile_at=%u,%u\ttile_size=%ux%u\ttile_single=%d", oTile.m_ui16Columns, oTile.m_ui16Rows,
               oTile.m_ui16Column, oTile.m_ui16Row, oTile.m_uiWidth, oTile.m_uiHeight,
               oTile.m_bSingleEnclosure ? 1 : 0);
    }
    printf("\tphysical_address=0x%x", oLink.m_oPhysicalAddress.Or(0xFFFF));
}

void PrintSound(const CFacts::SAudio& oAudio)
{
    printf("\taudio=");
    const char* pszComma = "";
    for (unsigned int i = 0; i < oAudio.m_uiFormats && i < CFacts::msc_uiMostFormats; ++i)
    {
        const CFacts::SAudioFormat& oFormat = oAudio.m_aoFormats[i];
        if (!oFormat.m_bHdmi3d)
        {
            printf("%s%u:%uch:0x%x:%u", pszComma, oFormat.m_ui8Format, oFormat.m_ui8Channels, oFormat.m_ui8Rates,
                   oFormat.m_ui8Byte);
            pszComma = ",";
        }
    }
    printf("\tspeakers=0x%x", oAudio.m_oSpeakers.m_oValue & 0xFF);
}

// Before EDID 1.4 HDMI's deep colour is the depth.
unsigned int GetDepth(const CFacts& oFacts)
{
    constexpr unsigned char ui8Revision4 = 4;
    const unsigned int uiDeep = oFacts.GetColour().m_oHdmiDeep.m_oValue;
    const bool bHdmi = oFacts.GetLink().m_oHdmi.IsSaid() && oFacts.GetIdentity().m_oRevision.m_oValue < ui8Revision4;
    return !bHdmi                              ? oFacts.GetColour().m_oDepth.m_oValue
           : (uiDeep & CFacts::eDepth_16) != 0 ? 16
           : (uiDeep & CFacts::eDepth_12) != 0 ? 12
           : (uiDeep & CFacts::eDepth_10) != 0 ? 10
                                               : 8;
}

void PrintDisplay(const CFacts& oFacts)
{
    const CFacts::SLink& oLink = oFacts.GetLink();
    const CFacts::SColour& oColour = oFacts.GetColour();
    const CFacts::SMillimetres& oBase = oFacts.GetSize().m_oCentimetres.m_oValue;
    printf("\tname=%s\twidth_mm=%u\theight_mm=%u\tbpc=%u\tcolor_formats=0x%x",
           oFacts.GetIdentity().m_oName.m_oValue.m_szText, oBase.m_uiWidth / 10, oBase.m_uiHeight / 10,
           GetDepth(oFacts), oColour.m_oFormats.m_oValue);
    PrintLink(oFacts);
    unsigned int uiLeast = 0;
    unsigned int uiMost = 0;
    for (unsigned int i = 0; i < oLink.m_uiRanges && i < CFacts::msc_uiMostRanges; ++i)
    {
        if (oLink.m_aoRanges[i].m_eSource == CFacts::eRefreshSource_RangeLimits && oLink.m_oRangeFormula.m_oValue == 1)
        {
            uiLeast = oLink.m_aoRanges[i].m_uiLeast;
            uiMost = oLink.m_aoRanges[i].m_uiMost;
        }
    }
    const CFacts::SAudio& oAudio = oFacts.GetAudio();
    printf("\tvfreq_hz=%u-%u\tlatency_present=%d%d\tvideo_latency=%u,%u\taudio_latency=%u,%u", uiLeast, uiMost,
           oAudio.m_oVideoLatency.IsSaid(), oAudio.m_oInterlacedVideoLatency.IsSaid(),
           RawLatency(oAudio.m_oVideoLatency), RawLatency(oAudio.m_oInterlacedVideoLatency),
           RawLatency(oAudio.m_oAudioLatency), RawLatency(oAudio.m_oInterlacedAudioLatency));
    PrintHdr(oColour);
    PrintTile(oFacts);
    PrintSound(oAudio);
}
} // namespace

int main(int iArguments, char** ppszArguments)
{
    const bool bInfo = iArguments > 1 && strcmp(ppszArguments[1], "info") == 0;
    const bool bModes = iArguments > 1 && strcmp(ppszArguments[1], "modes") == 0;
    static unsigned char s_aui8Bytes[65536];
    for (int i = 2; i < iArguments; ++i)
    {
        FILE* poFile = fopen(ppszArguments[i], "rb");
        const size_t uiSize = poFile != nullptr ? fread(s_aui8Bytes, 1, sizeof(s_aui8Bytes), poFile) : 0;
        if (poFile != nullptr)
        {
            fclose(poFile);
        }
        if (bModes)
        {
            PrintModes(ppszArguments[i], static_cast<unsigned int>(uiSize), s_aui8Bytes);
            continue;
        }
        CFacts oFacts;
        const bool bRefused = oFacts.Read(static_cast<unsigned int>(uiSize), s_aui8Bytes) == 0;
        printf(bInfo ? "{\"file\":\"%s\"" : "%s", ppszArguments[i]);
        if (bRefused)
        {
            printf(bInfo ? ",\"refused\":true}\n" : "\trefused\n");
            continue;
        }
        bInfo ? PrintInfo(oFacts) : PrintDisplay(oFacts);
        printf(bInfo ? "}\n" : "\n");
    }
    return 0;
}

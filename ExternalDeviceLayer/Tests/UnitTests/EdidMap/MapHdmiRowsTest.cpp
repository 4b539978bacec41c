// Rows of the map over the data blocks that HDMI adds to CTA-861.

#include "MapRowCases.h"

namespace
{
// ---- HDMI 1.4: places count from the byte after the OUI ----

TEST(MapHdmiRows, Hdmi14)
{
    constexpr unsigned int uiPayload = 8; // after a video data block of three codes
    static constexpr SRowCase aoRows[] = {
        { "00 01", "Source physical address", "1.2.a.b" },
        { "02.7", "Supports_AI", "yes" },
        { "02.6", "DC_48bit", "no" },
        { "02.5", "DC_36bit", "yes" },
        { "02.4", "DC_30bit", "yes" },
        { "02.3", "DC_Y444", "no" },
        { "02.2-1", "Reserved", "0x2", gsc_szSet },
        { "02.0", "DVI_Dual", "yes" },
        { "03", "Max_TMDS_Clock", "225 MHz" },
        { "04.7", "Latency_Fields_Present", "yes" },
        { "04.6", "I_Latency_Fields_Present", "yes" },
        { "04.5", "HDMI_Video_present", "yes" },
        { "04.4", "Reserved", "0x1", gsc_szSet },
        { "04.3", "CNC3 (game)", "no" },
        { "04.2", "CNC2 (cinema)", "yes" },
        { "04.1", "CNC1 (photo)", "yes" },
        { "04.0", "CNC0 (graphics)", "no" },
        { "05", "Video_Latency", "20 ms" },
        { "06", "Audio_Latency", "40 ms" },
        { "07", "Interlaced_Video_Latency", "60 ms" },
        { "08", "Interlaced_Audio_Latency", "80 ms" },
        { "09.7", "3D_present", "yes" },
        { "09.6-5", "3D_Multi_present", "3D_Structure_ALL and 3D_MASK" },
        { "09.4-3", "Image_Size", "the base block's size has the right aspect ratio only" },
        { "09.2-0", "Reserved", "0x5", gsc_szSet },
        { "0A.7-5", "HDMI_VIC_LEN", "2 bytes" },
        { "0A.4-0", "HDMI_3D_LEN", "7 bytes" },
        { "0B", "HDMI_VIC", "1, 3840x2160p 29.97/30 Hz 16:9" },
        { "0C", "HDMI_VIC", "4, 4096x2160p 24 Hz 256:135" },
        { "0D.7", "Side-by-side (half), all quincunx combinations", "yes" },
        { "0D.6-1", "Reserved", "0x16", gsc_szSet },
        { "0D.0", "Side-by-side (half), horizontal sub-sampling", "no" },
        { "0E.7", "Reserved", "0x1", gsc_szSet },
        { "0E.6", "Top-and-bottom", "no" },
        { "0E.5", "L + depth + graphics + graphics-depth", "yes" },
        { "0E.4", "L + depth", "no" },
        { "0E.3", "Side-by-side (full)", "yes" },
        { "0E.2", "Line alternative", "yes" },
        { "0E.1", "Field alternative", "no" },
        { "0E.0", "Frame packing", "yes" },
        { "10.0", "Video code 16, 1920x1080p 59.94/60 Hz 16:9", "in 3D" },
        { "10.1", "Video code 4, 1280x720p 59.94/60 Hz 16:9", "not in 3D" },
        { "10.2", "Video code 31, 1920x1080p 50 Hz 16:9", "in 3D" },
        { "11.7-4", "2D_VIC_order", "1280x720p 59.94/60 Hz 16:9" },
        { "11.3-0", "3D_Structure", "top-and-bottom" },
        { "12.7-4", "2D_VIC_order", "1920x1080p 50 Hz 16:9" },
        { "12.3-0", "3D_Structure", "side-by-side (half)" },
        { "13.7-4", "3D_Detail", "quincunx, odd left, odd right" },
        { "13.3-0", "Reserved", "0x3", gsc_szSet },
    };
    ExpectRows(MakeCtaRecord(uiPayload, "43 10 04 1F 77 03 0C 00 12 AB B5 2D F6 0B 15 1F 29 CD 47 01 04 AC AD 00 05 16 "
                                        "28 73"),
               aoRows);
}

// Each flag moves what follows it.
TEST(MapHdmiRows, Hdmi14FieldsThatMove)
{
    static constexpr SRowCase aoNoInterlaced[] = {
        { "05", "Video_Latency", "20 ms" },
        { "06", "Audio_Latency", "40 ms" },
        { "07.7", "3D_present", "yes" },
        { "08.7-5", "HDMI_VIC_LEN", "1 byte" },
        { "09", "HDMI_VIC", "2, 3840x2160p 25 Hz 16:9" },
        { "0B.6", "Top-and-bottom", "yes" },
    };
    ExpectSomeRows(MakeCtaRecord(4, "6F 03 0C 00 10 00 00 00 A0 0B 15 A0 22 02 00 40"), aoNoInterlaced);
    static constexpr SRowCase aoNoLatencies[] = {
        { "05.7", "3D_present", "yes" },        { "05.6-5", "3D_Multi_present", "3D_Structure_ALL" },
        { "06.4-0", "HDMI_3D_LEN", "3 bytes" }, { "07.7", "Side-by-side (half), all quincunx combinations", "no" },
        { "08.6", "Top-and-bottom", "yes" },    { "09.3-0", "3D_Structure", "field alternative" },
    };
    ExpectSomeRows(MakeCtaRecord(6, "41 10 6D 03 0C 00 10 00 00 00 20 A0 03 00 40 01"), aoNoLatencies);
    // Without HDMI_Video_present nothing of it is read.
    static constexpr SRowCase aoNoVideo[] = {
        { "05", "Video_Latency", "20 ms" },
        { "06", "Audio_Latency", "40 ms" },
        { "07-08", "Reserved", "a0 20", gsc_szSet },
    };
    ExpectSomeRows(MakeCtaRecord(4, "6C 03 0C 00 10 00 00 00 80 0B 15 A0 20"), aoNoVideo);
}

TEST(MapHdmiRows, Hdmi14Codes)
{
    static constexpr SCodesCase aoHead[] = {
        { "03", 0, "not indicated|5 MHz" },
        { "03", 68, "340 MHz" },
        { "05", 0, "not indicated|0 ms|2 ms" },
        { "05", 251, "500 ms|reserved|reserved|reserved|not supported" },
        { "06", 251, "500 ms|reserved|reserved|reserved|not supported" },
        { "07", 251, "500 ms|reserved|reserved|reserved|not supported" },
        { "08", 251, "500 ms|reserved|reserved|reserved|not supported" },
        { "09.6-5", 0, "no 3D_Structure_ALL, no 3D_MASK|3D_Structure_ALL|3D_Structure_ALL and 3D_MASK|reserved" },
        { "09.4-3", 0,
          "no additional information|the base block's size has the right aspect ratio only|"
          "the base block's size is right, in cm|the base block's size is in 5 cm" },
        { "0B", 1,
          "1, 3840x2160p 29.97/30 Hz 16:9|2, 3840x2160p 25 Hz 16:9|3, 3840x2160p 23.98/24 Hz 16:9|"
          "4, 4096x2160p 24 Hz 256:135" },
    };
    ExpectCodes(MakeCtaRecord(4, "6F 03 0C 00 10 00 00 00 E0 01 01 01 01 00 20 01"), aoHead);
    static constexpr SCodesCase aoItem[] = {
        { "07.3-0", 0,
          "frame packing|field alternative|line alternative|side-by-side (full)|L + depth|"
          "L + depth + graphics + graphics-depth|top-and-bottom|reserved|side-by-side (half)|reserved" },
        { "07.3-0", 15, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(6, "41 10 6C 03 0C 00 10 00 00 00 20 80 02 00 00"), aoItem);
    static constexpr SCodesCase aoDetail[] = {
        { "08.7-4", 0,
          "all of horizontal sub-sampling and quincunx|horizontal sub-sampling|not in use|not in use|not in use|"
          "not in use|all quincunx combinations|quincunx, odd left, odd right|quincunx, odd left, even right|"
          "quincunx, even left, odd right|quincunx, even left, even right|reserved" },
        { "08.7-4", 15, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(6, "41 10 6C 03 0C 00 10 00 00 00 20 80 02 08 00"), aoDetail);
}

// ---- HDMI Forum: the same structure after the OUI, or after two reserved bytes ----

constexpr SRowCase gsc_aoSinkRows[] = {
    { "00", "Version", "1" },
    { "01", "Max_TMDS_Character_Rate", "575 MHz", "is too low for Max_FRL_Rate" },
    { "02.7", "SCDC_Present", "yes" },
    { "02.6", "RR_Capable", "no" },
    { "02.5", "CABLE_STATUS", "yes" },
    { "02.4", "CCBPCI", "yes" },
    { "02.3", "LTE_340Mcsc_scramble", "no" },
    { "02.2", "Independent_view", "yes" },
    { "02.1", "Dual_View", "no" },
    { "02.0", "3D_OSD_Disparity", "no" },
    { "03.7-4", "Max_FRL_Rate", "10 Gbps on 4 lanes" },
    { "03.3", "UHD_VIC", "yes" },
    { "03.2", "DC_48bit_420", "no" },
    { "03.1", "DC_36bit_420", "yes" },
    { "03.0", "DC_30bit_420", "yes" },
    { "04.7", "FAPA_End_Extended", "no" },
    { "04.6", "QMS", "yes" },
    { "04.5", "M_Delta", "yes" },
    { "04.4", "CinemaVRR", "no" },
    { "04.3", "CNMVRR", "yes" },
    { "04.2", "FVA", "no" },
    { "04.1", "ALLM", "no" },
    { "04.0", "FAPA_start_location", "yes" },
    { "05.7-6 06", "VRR_MAX", "300 Hz" },
    { "05.5-0", "VRR_MIN", "42 Hz" },
    { "07.7", "DSC_1p2", "yes" },
    { "07.6", "DSC_Native_420", "yes" },
    { "07.5", "QMS_TFR_max", "no" },
    { "07.4", "QMS_TFR_min", "yes" },
    { "07.3", "DSC_All_bpp", "no" },
    { "07.2", "DSC_16bpc", "no" },
    { "07.1", "DSC_12bpc", "yes" },
    { "07.0", "DSC_10bpc", "yes" },
    { "08.7-4", "DSC_Max_FRL_Rate", "8 Gbps on 4 lanes" },
    { "08.3-0", "DSC_MaxSlices", "12 slices of up to 400 MHz" },
    { "09.7-6", "Reserved", "0x2", gsc_szSet },
    { "09.5-0", "DSC_TotalChunkKBytes", "24576 bytes" },
};

TEST(MapHdmiRows, SinkCapabilities)
{
    ExpectRows(MakeCtaRecord(4, "6D D8 5D C4 01 73 B4 5B 69 6A 2C D3 46 97"), gsc_aoSinkRows);
    ExpectRows(MakeCtaRecord(4, "ED 79 00 00 01 73 B4 5B 69 6A 2C D3 46 97"), gsc_aoSinkRows);
    static constexpr SRowCase aoReserved[] = {
        { "02-03", "Reserved", "12 34", gsc_szSet },
        { "04", "Version", "2", "version is not published" },
    };
    ExpectSomeRows(MakeCtaRecord(0, "E7 79 12 34 02 78 80 50"), aoReserved);
}

// Rates that depend on each other, on both sides of each bound.
TEST(MapHdmiRows, SinkRates)
{
    struct SRateCase
    {
        const char* m_pszBytes; // from Max_TMDS_Character_Rate on
        SRowCase m_oRow;
    };
    constexpr const char* pszBelow340 = "must be 0 or above 340 MHz";
    constexpr const char* pszTooLow = "is too low for Max_FRL_Rate";
    const SRateCase aoCases[] = {
        { "44 80 00", { "01", "Max_TMDS_Character_Rate", "340 MHz", pszBelow340 } },
        { "45 80 00", { "01", "Max_TMDS_Character_Rate", "345 MHz" } },
        { "00 80 00", { "01", "Max_TMDS_Character_Rate", "not above 340 MHz" } },
        { "00 80 10", { "01", "Max_TMDS_Character_Rate", "not above 340 MHz", pszTooLow } },
        { "45 80 10", { "01", "Max_TMDS_Character_Rate", "345 MHz" } },
        { "77 80 20", { "01", "Max_TMDS_Character_Rate", "595 MHz", pszTooLow } },
        { "79 80 20", { "01", "Max_TMDS_Character_Rate", "605 MHz", "is above 600 MHz" } },
        { "78 80 20", { "01", "Max_TMDS_Character_Rate", "600 MHz" } },
        { "78 80 00 00 30 00", { "05.5-0", "VRR_MIN", "48 Hz" } },
        { "78 80 00 00 31 00", { "05.5-0", "VRR_MIN", "49 Hz", "is above 48 Hz" } },
        { "78 80 00 00 30 64", { "05.7-6 06", "VRR_MAX", "100 Hz" } },
        { "78 80 00 00 30 63", { "05.7-6 06", "VRR_MAX", "99 Hz", "is below 100 Hz" } },
        { "78 80 00 00 30 30", { "05.7-6 06", "VRR_MAX", "48 Hz", "is below 100 Hz" } },
        { "78 80 00 00 30 2F", { "05.7-6 06", "VRR_MAX", "47 Hz", "is below VRR_MIN" } },
        { "78 80 00 00 30 00", { "05.7-6 06", "VRR_MAX", "limited by the video format" } },
    };
    for (const SRateCase& oCase : aoCases)
    {
        std::string sBytes = std::string("D8 5D C4 01 ") + oCase.m_pszBytes;
        CMString sHeader;
        sHeader.Format("%02X ", static_cast<unsigned int>(0x60 + ParseBytes(sBytes).size()));
        sBytes.insert(0, sHeader);
        ExpectSomeRows(MakeCtaRecord(4, sBytes.c_str()), std::span(&oCase.m_oRow, 1));
    }
}

TEST(MapHdmiRows, SinkCodes)
{
    static constexpr SCodesCase aoCases[] = {
        { "03.7-4", 0,
          "not supported|3 Gbps on 3 lanes|6 Gbps on 3 lanes|6 Gbps on 4 lanes|8 Gbps on 4 lanes|10 Gbps on 4 lanes|"
          "12 Gbps on 4 lanes" },
        { "05.5-0", 0, "no VRR|1 Hz" },
        { "08.7-4", 0,
          "not supported|3 Gbps on 3 lanes|6 Gbps on 3 lanes|6 Gbps on 4 lanes|8 Gbps on 4 lanes|10 Gbps on 4 lanes|"
          "12 Gbps on 4 lanes" },
        { "08.3-0", 0,
          "not supported|1 slice of up to 340 MHz|2 slices of up to 340 MHz|4 slices of up to 340 MHz|"
          "8 slices of up to 340 MHz|8 slices of up to 400 MHz|12 slices of up to 400 MHz|"
          "16 slices of up to 400 MHz|reserved" },
        { "08.3-0", 15, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(4, "6D D8 5D C4 01 78 80 00 00 01 64 80 00 00"), aoCases);
}

// ---- Tone mapping in the source ----

TEST(MapHdmiRows, ToneMapping)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7", "DRDM support", "yes" },
        { "00.6-5", "GRDM support", "HDR range" },
        { "00.4", "Reserved", "0x1", gsc_szSet },
        { "00.3-0", "Version", "5" },
        { "01.7-6", "Gamut", "explicit chromaticities" },
        { "01.5", "MaxRGB", "yes" },
        { "01.4", "Use HGIG DRDM", "no" },
        { "01.3", "Reserved", "0x1", gsc_szSet },
        { "01.2-0", "HGIG DRDM index", "3" },
        { "03 02", "Red x", "0.64000" },
        { "05 04", "Red y", "0.33002" },
        { "07 06", "Green x", "0.29998" },
        { "09 08", "Green y", "0.60004" },
        { "0B 0A", "Blue x", "0.15006" },
        { "0D 0C", "Blue y", "0.05998" },
        { "0F 0E", "White x", "0.31270" },
        { "11 10", "White y", "0.32900" },
        { "12-13", "Unknown", "12 34" },
    };
    ExpectRows(MakeCtaRecord(2, "F5 7A D5 2B 00 7D 75 40 97 3A 32 75 4F 1D B7 0B 13 3D 42 40 12 34"), aoRows);
    // A gamut with a name has no chromaticities.
    static constexpr SRowCase aoNamed[] = {
        { "01.7-6", "Gamut", "ITU-R BT.2020" },
        { "01.4", "Use HGIG DRDM", "yes" },
        { "02-05", "Unknown", "00 7d 75 40" },
    };
    ExpectSomeRows(MakeCtaRecord(2, "E7 7A 80 D0 00 7D 75 40"), aoNamed);
    static constexpr SRowCase aoWithout[] = {
        { "00.7", "DRDM support", "no" },
        { "01-03", "Reserved", "eb 00 7d", gsc_szSet },
    };
    ExpectSomeRows(MakeCtaRecord(2, "E5 7A 00 EB 00 7D"), aoWithout);
    static constexpr SCodesCase aoCodes[] = {
        { "00.6-5", 0, "not supported|SDR range|HDR range|reserved" },
        { "01.7-6", 0, "explicit chromaticities|ITU-R BT.709|SMPTE ST 2113|ITU-R BT.2020" },
    };
    ExpectCodes(MakeCtaRecord(2, "E3 7A 80 00"), aoCodes);
}
} // namespace

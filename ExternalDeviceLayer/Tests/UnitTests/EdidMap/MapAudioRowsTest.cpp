// Rows of the map over the CTA-861 data blocks about audio formats, speakers and rooms.

#include "MapRowCases.h"

namespace
{
constexpr char gsc_szZeroRate[] = "must be 0 for this format";

// ---- Short audio descriptors: the format decides what byte 2 is ----

TEST(MapAudioRows, Pcm)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7", "Reserved", "0x1", gsc_szSet },
        { "00.6-3", "Audio format code", "L-PCM" },
        { "00.2-0", "Maximum number of channels", "6 channels" },
        { "01.7", "Reserved", "0x1", gsc_szSet },
        { "01.6", "192 kHz", "no" },
        { "01.5", "176.4 kHz", "yes" },
        { "01.4", "96 kHz", "yes" },
        { "01.3", "88.2 kHz", "no" },
        { "01.2", "48 kHz", "no" },
        { "01.1", "44.1 kHz", "yes" },
        { "01.0", "32 kHz", "no" },
        { "02.7-3", "Reserved", "0x16", gsc_szSet },
        { "02.2", "24 bit", "yes" },
        { "02.1", "20 bit", "no" },
        { "02.0", "16 bit", "yes" },
    };
    ExpectRows(MakeCtaRecord(1, "23 8D B2 B5"), aoRows);
}

TEST(MapAudioRows, ByteOfEachFormat)
{
    struct SFormatCase
    {
        const char* m_pszBytes;
        std::initializer_list<SRowCase> m_aoRows;
    };
    const SFormatCase aoCases[] = {
        { "0A 04 05", { { "00.6-3", "Audio format code", "L-PCM" }, { "02.2", "24 bit", "yes" } } },
        { "12 04 4D", { { "00.6-3", "Audio format code", "AC-3" }, { "02", "Maximum bit rate", "616 kbit/s" } } },
        { "42 04 4D", { { "00.6-3", "Audio format code", "ATRAC" }, { "02", "Maximum bit rate", "616 kbit/s" } } },
        { "4A 04 4D", { { "02", "Audio format code dependent value", "77" } } },
        { "5A 04 4D", { { "02", "Audio format code dependent value", "77" } } },
        { "6A 04 4D", { { "02", "Audio format code dependent value", "77" } } },
        { "52 04 2E",
          { { "00.6-3", "Audio format code", "Enhanced AC-3 (DD+)" },
            { "02.7-2", "Unknown", "0xb" },
            { "02.1", "Joint object coding with ACMOD28", "yes" },
            { "02.0", "Joint object coding", "no" } } },
        { "62 04 33",
          { { "02.7-2", "Unknown", "0xc" },
            { "02.1", "Hash calculation for PCM", "not required" },
            { "02.0", "MAT content", "Dolby TrueHD, object audio PCM and channel-based PCM" } } },
        { "62 04 01", { { "02.1", "Hash calculation for PCM", "required" } } },
        // A hash is asked of the later kind only.
        { "62 04 02", { { "02.0", "MAT content", "Dolby TrueHD only" }, { "02.7-1", "Unknown", "0x1" } } },
        { "72 04 4D",
          { { "00.6-3", "Audio format code", "WMA Pro" },
            { "02.7-3", "Reserved", "0x9", gsc_szSet },
            { "02.2-0", "Profile", "5" } } },
    };
    for (const SFormatCase& oCase : aoCases)
    {
        ExpectSomeRows(MakeCtaRecord(1, (std::string("23 ") + oCase.m_pszBytes).c_str()), oCase.m_aoRows);
    }
}

// Format 15, extended codes in bits 7 to 3 of byte 2. The formats of one row share a layout.
TEST(MapAudioRows, BitsOfExtendedFormats)
{
    struct SExtendedCase
    {
        std::initializer_list<unsigned char> m_aui8Codes;
        unsigned char m_ui8Bits; // 2 to 0 of byte 2
        std::initializer_list<SRowCase> m_aoRows;
    };
    const SExtendedCase aoCases[] = {
        { { 4, 5 },
          5,
          { { "00.2-0", "Maximum number of channels", "3 channels" },
            { "02.2", "1024_TL", "yes" },
            { "02.1", "960_TL", "no" },
            { "02.0", "Unknown", "0x1" } } },
        { { 6 },
          3,
          { { "02.2", "1024_TL", "no" }, { "02.1", "960_TL", "yes" }, { "02.0", "22.2 multichannel", "yes" } } },
        { { 1, 2, 3, 7 },
          5,
          { { "00.2-0", "Maximum number of channels", "3 channels" }, { "02.2-0", "Unknown", "0x5" } } },
        { { 8, 10 },
          5,
          { { "00.2-0", "Maximum number of channels", "3 channels" },
            { "02.2", "1024_TL", "yes" },
            { "02.1", "960_TL", "no" },
            { "02.0", "MPEG Surround signaling", "implicit and explicit" } } },
        { { 11 },
          5,
          { { "00.2-0", "MPEG-H 3D Audio level", "level 2" },
            { "02.2", "Reserved", "0x1", gsc_szSet },
            { "02.1", "Baseline profile", "no" },
            { "02.0", "Low complexity profile", "yes" } } },
        { { 12 },
          5,
          { { "00.7,2-0", "Reserved", "0x2", gsc_szSet }, { "02.2-0", "Audio format code dependent value", "5" } } },
        { { 13 }, 5, { { "02.2", "24 bit", "yes" }, { "02.1", "20 bit", "no" }, { "02.0", "16 bit", "yes" } } },
        { { 0, 9, 16, 31 },
          5,
          { { "00.7", "Unknown", "0x0" },
            { "00.2-0", "Unknown", "0x2" },
            { "01.7", "Unknown", "0x0" },
            { "02.2-0", "Unknown", "0x5" } } },
    };
    for (const SExtendedCase& oCase : aoCases)
    {
        for (const unsigned int uiCode : oCase.m_aui8Codes)
        {
            CMString sBytes;
            sBytes.Format("23 7A 04 %02X", uiCode << 3 | oCase.m_ui8Bits);
            SCOPED_TRACE(static_cast<const char*>(sBytes));
            ExpectSomeRows(MakeCtaRecord(1, sBytes), oCase.m_aoRows);
        }
    }
}

// 3D audio has two more bits for its channels, of which the highest one is in byte 1.
TEST(MapAudioRows, ChannelsOf3dAudio)
{
    static constexpr SRowCase aoByte1[] = { { "01.7 00.7 00.2-0", "Maximum number of channels", "20 channels" } };
    ExpectSomeRows(MakeCtaRecord(1, "23 7B 84 68"), aoByte1);
    static constexpr SRowCase aoByte0[] = { { "01.7 00.7 00.2-0", "Maximum number of channels", "14 channels" } };
    ExpectSomeRows(MakeCtaRecord(1, "23 FD 04 68"), aoByte0);
}

// 192 and 176.4 kHz are not for AAC, 176.4, 88.2 and 32 kHz not for AC-4.
TEST(MapAudioRows, RatesThatFormatsLack)
{
    static constexpr SRowCase aoAac[] = {
        { "01.6", "192 kHz", "yes", gsc_szZeroRate },
        { "01.5", "176.4 kHz", "yes", gsc_szZeroRate },
        { "01.4", "96 kHz", "yes" },
        { "01.3", "88.2 kHz", "yes" },
        { "01.0", "32 kHz", "yes" },
    };
    for (const char* pszBytes : { "23 79 7F 24", "23 79 7F 2C", "23 79 7F 34", "23 79 7F 44", "23 79 7F 54" })
    {
        ExpectSomeRows(MakeCtaRecord(1, pszBytes), aoAac);
    }
    static constexpr SRowCase aoAc4[] = {
        { "01.6", "192 kHz", "yes" },
        { "01.5", "176.4 kHz", "yes", gsc_szZeroRate },
        { "01.4", "96 kHz", "yes" },
        { "01.3", "88.2 kHz", "yes", gsc_szZeroRate },
        { "01.2", "48 kHz", "yes" },
        { "01.1", "44.1 kHz", "yes" },
        { "01.0", "32 kHz", "yes", gsc_szZeroRate },
    };
    ExpectSomeRows(MakeCtaRecord(1, "23 78 7F 60"), aoAc4);
}

// ---- Speakers: three bytes of CTA-861, four of HDMI, with three of room configuration between them ----

TEST(MapAudioRows, Speakers)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7", "FLw/FRw Front left/right wide", "yes" },
        { "00.6", "RLC/RRC Rear left/right of center", "no" },
        { "00.5", "FLc/FRc Front left/right of center", "yes" },
        { "00.4", "BC Back center", "yes" },
        { "00.3", "BL/BR Back left/right", "no" },
        { "00.2", "FC Front center", "no" },
        { "00.1", "LFE1 Low frequency effects 1", "yes" },
        { "00.0", "FL/FR Front left/right", "no" },
        { "01.7", "TpSiL/TpSiR Top side left/right", "no" },
        { "01.6", "SiL/SiR Side left/right", "yes" },
        { "01.5", "TpBC Top back center", "no" },
        { "01.4", "LFE2 Low frequency effects 2", "no" },
        { "01.3", "LS/RS Left/right surround", "yes" },
        { "01.2", "TpFC Top front center", "yes" },
        { "01.1", "TpC Top center", "no" },
        { "01.0", "TpFL/TpFR Top front left/right", "yes" },
        { "02.7-4", "Reserved", "0xb", gsc_szSet },
        { "02.3", "TpLS/TpRS Top left/right surround", "no" },
        { "02.2", "BtFL/BtFR Bottom front left/right", "yes" },
        { "02.1", "BtFC Bottom front center", "yes" },
        { "02.0", "TpBL/TpBR Top back left/right", "no" },
    };
    ExpectRows(MakeCtaRecord(1, "83 B2 4D B6"), aoRows);
}

TEST(MapAudioRows, HdmiAudio)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7-3", "Reserved", "0x15", gsc_szSet },
        { "00.2", "Supports_MS_NonMixed", "yes" },
        { "00.1-0", "Max_Stream_Count", "3 streams" },
        { "01.7-3", "Reserved", "0x13", gsc_szSet },
        { "01.2-0", "NUM_HDMI_3D_AD", "2" },
        { "02.7-4", "Reserved", "0x5", gsc_szSet },
        { "02.3-0", "3D audio format", "L-PCM" },
        { "03.7-5", "Reserved", "0x5", gsc_szSet },
        { "03.4-0", "Maximum number of channels", "20 channels" },
        { "04.7", "Reserved", "0x1", gsc_szSet },
        { "04.6", "192 kHz", "no" },
        { "04.5", "176.4 kHz", "yes" },
        { "04.4", "96 kHz", "yes" },
        { "04.3", "88.2 kHz", "no" },
        { "04.2", "48 kHz", "no" },
        { "04.1", "44.1 kHz", "yes" },
        { "04.0", "32 kHz", "no" },
        { "05.7-3", "Reserved", "0x16", gsc_szSet },
        { "05.2", "24 bit", "yes" },
        { "05.1", "20 bit", "no" },
        { "05.0", "16 bit", "yes" },
        { "06.3-0", "3D audio format", "One Bit Audio" },
        { "07.4-0", "Maximum number of channels", "12 channels" },
        { "08.6", "192 kHz", "yes" },
        { "08.5", "176.4 kHz", "no" },
        { "08.4", "96 kHz", "no" },
        { "08.3", "88.2 kHz", "yes" },
        { "08.2", "48 kHz", "yes" },
        { "08.1", "44.1 kHz", "no" },
        { "08.0", "32 kHz", "yes" },
        { "09", "Audio format code dependent value", "77" },
        { "0A.7", "FLw/FRw Front left/right wide", "yes" },
        { "0A.6", "Reserved", "0x1", gsc_szSet },
        { "0A.5", "FLc/FRc Front left/right of center", "yes" },
        { "0A.4", "BC Back center", "yes" },
        { "0A.3", "BL/BR Back left/right", "no" },
        { "0A.2", "FC Front center", "no" },
        { "0A.1", "LFE1 Low frequency effects 1", "yes" },
        { "0A.0", "FL/FR Front left/right", "no" },
        { "0B.7", "TpSiL/TpSiR Top side left/right", "no" },
        { "0B.6", "SiL/SiR Side left/right", "yes" },
        { "0B.5", "TpBC Top back center", "no" },
        { "0B.4", "LFE2 Low frequency effects 2", "no" },
        { "0B.3", "LS/RS Left/right surround", "yes" },
        { "0B.2", "TpFC Top front center", "yes" },
        { "0B.1", "TpC Top center", "no" },
        { "0B.0", "TpFL/TpFR Top front left/right", "yes" },
        { "0C.7-5", "Reserved", "0x5", gsc_szSet },
        { "0C.4", "LSd/RSd Left/right surround direct", "yes" },
        { "0C.3", "TpLS/TpRS Top left/right surround", "no" },
        { "0C.2", "BtFL/BtFR Bottom front left/right", "yes" },
        { "0C.1", "BtFC Bottom front center", "yes" },
        { "0C.0", "TpBL/TpBR Top back left/right", "no" },
        { "0D.7-4", "Audio channel allocation type", "22.2 channels" },
        { "0D.3-0", "Reserved", "0x9", gsc_szSet },
    };
    ExpectRows(MakeCtaRecord(2, "EF 12 AE 9A 51 B3 B2 B5 09 0B 4D 4D F2 4D B6 29"), aoRows);
    static constexpr SCodesCase aoCodes[] = {
        { "00.1-0", 0, "multi-stream audio not supported|2 streams|3 streams|4 streams" },
        { "09.7-4", 0, "reserved|10.2 channels|22.2 channels|30.2 channels|reserved" },
        { "09.7-4", 15, "reserved" },
    };
    ExpectCodes(MakeCtaRecord(2, "EB 12 00 01 01 00 00 00 00 00 00 00"), aoCodes);
}

TEST(MapAudioRows, Room)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7", "Display", "yes" },
        { "00.6", "Speaker", "yes" },
        { "00.5", "SLD", "no" },
        { "00.4-0", "Speaker count", "22 L-PCM channels" },
        { "01.7", "FLw/FRw Front left/right wide", "yes" },
        { "01.6", "RLC/RRC Rear left/right of center", "no" },
        { "01.1", "LFE1 Low frequency effects 1", "yes" },
        { "02.6", "SiL/SiR Side left/right", "yes" },
        { "03.3", "TpLS/TpRS Top left/right surround", "no" },
        { "03.7-4", "Reserved", "0xb", gsc_szSet },
        { "04", "Xmax", "44 dm" },
        { "05", "Ymax", "61 dm" },
        { "06", "Zmax", "27 dm" },
        { "07", "DisplayX", "-1.984375 Xmax" },
        { "08", "DisplayY", "1.984375 Ymax" },
        { "09", "DisplayZ", "-0.015625 Zmax" },
    };
    ExpectSomeRows(MakeCtaRecord(2, "EB 13 D5 B2 4D B6 2C 3D 1B 81 7F FF"), aoRows);
    // Neither a display nor a count of speakers.
    static constexpr SRowCase aoWithout[] = {
        { "00.5", "SLD", "yes" },
        { "00.4-0", "Reserved", "0x15", gsc_szSet },
        { "06", "Zmax", "27 dm" },
        { "07-09", "Reserved", "81 7f ff", gsc_szSet },
    };
    ExpectSomeRows(MakeCtaRecord(2, "EB 13 35 B2 4D B6 2C 3D 1B 81 7F FF"), aoWithout);
}

TEST(MapAudioRows, SpeakerLocations)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7", "Reserved", "0x1", gsc_szSet },
        { "00.6", "COORD", "yes" },
        { "00.5", "ACTIVE", "no" },
        { "00.4-0", "Channel_Index", "13" },
        { "01.7-5", "Reserved", "0x5", gsc_szSet },
        { "01.4-0", "Speaker_ID", "TpSiL" },
        { "02", "X", "-2.000000 Xmax" },
        { "03", "Y", "0.734375 Ymax" },
        { "04", "Z", "-0.328125 Zmax" },
        { "05.6", "COORD", "no" },
        { "05.5", "ACTIVE", "yes" },
        { "05.4-0", "Channel_Index", "22" },
        { "06.4-0", "Speaker_ID", "BtFR" },
    };
    ExpectRows(MakeCtaRecord(2, "E8 14 CD B2 80 2F EB 36 17"), aoRows);
    static constexpr SCodesCase aoCodes[] = {
        { "01.4-0", 0,
          "FL|FR|FC|LFE1|BL|BR|FLc|FRc|BC|LFE2|SiL|SiR|TpFL|TpFR|TpFC|TpC|TpBL|TpBR|TpSiL|TpSiR|TpBC|BtFC|BtFL|BtFR|"
          "FLw|FRw|LS|RS|reserved|reserved|reserved" },
    };
    ExpectCodes(MakeCtaRecord(2, "E3 14 00 00"), aoCodes);
}

TEST(MapAudioRows, DolbyAudio)
{
    static constexpr SRowCase aoRows[] = {
        { "00.7", "Headphone only", "yes" },
        { "00.6", "Height speaker zone", "no" },
        { "00.5", "Surround speaker zone", "yes" },
        { "00.4", "Center speaker zone", "no" },
        { "00.3", "Unknown", "0x1" },
        { "00.2-0", "Version", "6" },
        { "01.7-1", "Unknown", "0x56" },
        { "01.0", "MAT PCM at 48 kHz only", "yes" },
        { "02-03", "Unknown", "12 34" },
    };
    ExpectRows(MakeCtaRecord(5, "E8 11 46 D0 00 AD AD 12 34"), aoRows);
}

TEST(MapAudioRows, Codes)
{
    static constexpr SCodesCase aoFormats[] = {
        { "00.6-3", 0,
          "reserved|L-PCM|AC-3|MPEG-1 (Layers 1 & 2)|MP3 (MPEG-1 Layer 3)|MPEG-2 (multichannel)|AAC LC|DTS|ATRAC|"
          "One Bit Audio|Enhanced AC-3 (DD+)|DTS-HD|MAT (Dolby TrueHD)|DST|WMA Pro|extended" },
    };
    ExpectCodes(MakeCtaRecord(1, "23 08 00 00"), aoFormats);
    static constexpr SCodesCase aoExtended[] = {
        { "02.7-3", 0,
          "reserved|HE AAC|HE AAC v2|MPEG Surround|MPEG-4 HE AAC|MPEG-4 HE AAC v2|MPEG-4 AAC LC|DRA|"
          "MPEG-4 HE AAC + MPEG Surround|reserved|MPEG-4 AAC LC + MPEG Surround|MPEG-H 3D Audio|AC-4|L-PCM 3D Audio" },
    };
    ExpectCodes(MakeCtaRecord(1, "23 78 00 00"), aoExtended);
    static constexpr SCodesCase aoLevels[] = {
        { "00.2-0", 0, "unspecified|level 1|level 2|level 3|level 4|level 5|reserved|reserved" },
    };
    ExpectCodes(MakeCtaRecord(1, "23 78 00 58"), aoLevels);
    static constexpr SCodesCase aoSignals[] = { { "02.0", 0, "implicit|implicit and explicit" } };
    ExpectCodes(MakeCtaRecord(1, "23 78 00 40"), aoSignals);
}
} // namespace

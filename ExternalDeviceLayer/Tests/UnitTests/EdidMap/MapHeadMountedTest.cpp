// Rows of the map over the data blocks of DisplayID 2.1 about head-mounted displays: the display and its layers.

#include "MapRowCases.h"

namespace
{
TEST(MapHeadMounted, Display)
{
    static constexpr SRowCase aoRows[] = {
        { "03.7", "Reserved", "0x1", gsc_szSet },
        { "03.6-5", "Extended frame mode", "left then right stacked, layers side by side" },
        { "03.4", "Interleaving mode", "left then right stacked, layers interleaved on frames" },
        { "03.3-2", "Reserved", "0x1", gsc_szSet },
        { "03.1-0", "Dual layer on a single stream", "both" },
        { "04.7-4", "Number of streams", "2" },
        { "04.3-0", "Number of displays", "3" },
        { "05.7-6", "Replication factor", "8" },
        { "05.5-4", "Layer metadata", "first line of layer 0" },
        { "05.3-0", "Number of layers", "2" },
        { "07 06", "Right low distortion area X", "28841 pixels" },
        { "09 08", "Right low distortion area Y", "47867 lines" },
        { "0B 0A", "Left low distortion area X", "54365 pixels" },
        { "0D 0C", "Left low distortion area Y", "15951 lines" },
        { "0F 0E", "Low distortion area width", "30801 pixels" },
        { "11 10", "Low distortion area height", "739 lines" },
        { "12.7", "Reserved", "0x1", gsc_szSet },
        { "12.6-4", "Left eye rotation orientation", "5" },
        { "12.3", "Reserved", "0x1", gsc_szSet },
        { "12.2-0", "Right eye rotation orientation", "3" },
        { "14 13", "Right lens diameter", "5.7300 cm" },
        { "16 15", "Left lens diameter", "7.7820 cm" },
        { "18 17", "Interocular angle", "6.3594 rad" },
        { "19.7-5", "Reserved", "0x6", gsc_szSet },
        { "19.4", "IPD useful to the HMD", "yes" },
        { "19.3", "Lens distance available", "no" },
        { "19.2-1", "Lens adjust motion", "lenses and displays together in a straight line" },
        { "19.0", "Lens adjustment", "adjustable" },
        { "1B 1A", "Lens adjust minimum", "7.1461 cm" },
        { "1D 1C", "Lens adjustment range", "6.4413 cm" },
        { "1F 1E", "IPD center offset", "-1.4312 cm" },
        { "21 20", "IPD measurement minimum", "4.5844 cm" },
        { "23 22", "IPD measurement range", "3.4010 cm" },
        { "24.7-4", "Reserved", "0x9", gsc_szSet },
        { "24.3", "Distance to left eye available", "no" },
        { "24.2", "Distance to right eye available", "yes" },
        { "24.1", "Distance to left display available", "yes" },
        { "24.0", "Distance to right display available", "no" },
        { "25.7-2", "Reserved", "0x29", gsc_szSet },
        { "25.1-0", "Foveated rendering", "dual streams" },
        { "27 26", "Horizontal field of view", "4.5089 rad" },
        { "29 28", "Right field of view, right", "6.8314 rad" },
        { "2B 2A", "Right field of view, left", "7.6559 rad" },
        { "2D 2C", "Right field of view, up", "2.9667 rad" },
        { "2F 2E", "Right field of view, down", "4.7794 rad" },
        { "31 30", "Left field of view, right", "1.0785 rad" },
        { "33 32", "Left field of view, left", "3.8795 rad" },
        { "35 34", "Left field of view, up", "1.1981 rad" },
        { "37 36", "Left field of view, down", "5.0187 rad" },
        { "3B 3A 39 38", "Right focal length", "1101.4157 pixels/rad" },
        { "3F 3E 3D 3C", "Left focal length", "43073.9326 pixels/rad" },
        { "43 42 41 40", "Right center of projection Y", "3.141593" },
        { "47 46 45 44", "Right center of projection X", "-2.718282" },
        { "4B 4A 49 48", "Left center of projection Y", "1234.567749" },
        { "4F 4E 4D 4C", "Left center of projection X", "-0.308640" },
        { "50.3-2", "Layer 1 streams", "two only" },
        { "50.1-0", "Layer 0 streams", "one" },
        { "50.7-4", "Reserved", "0x6", gsc_szSet },
        { "51", "Reserved", "5a", gsc_szSet },
    };
    ExpectRows(MakeDisplayIdRecord(0x2C, 1,
                                   "B7 12 91 A9 70 FB BA 5D D4 4F 3E 51 78 E3 02 DB 5C B7 06 F9 80 CB D3 AD E4 1F CE "
                                   "34 D2 B3 92 D5 6C 96 A6 49 90 9B DA FD F4 EF 5E F1 98 83 22 25 7C 57 26 99 A0 6B "
                                   "6A 4D 04 BF EE 41 A8 DB 0F 49 40 54 F8 2D C0 2B 52 9A 44 10 06 9E BE 69 5A"),
               aoRows);
}

// Bits that mean something only where another one is set.
TEST(MapHeadMounted, DisplayWithoutInterleavingFramesAndLineMetadata)
{
    static constexpr SRowCase aoRows[] = {
        { "03.1-0", "Dual layer on a single stream", "not supported" },
        { "03.6-5", "Reserved", "0x2", gsc_szSet },
        { "03.4", "Reserved", "0x1", gsc_szSet },
        { "05.5-4", "Layer metadata", "AR/VR SDP" },
        { "05.7-6", "Reserved", "0x3", gsc_szSet },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x2C, 1, "50 11 E1 ..79"), aoRows);
}

TEST(MapHeadMounted, Layer)
{
    static constexpr SRowCase aoRows[] = {
        { "07 06", "HMD product ID code", "4660" },
        { "0B 0A 09 08", "HMD serial number", "3164231288" },
        { "0C.7-6", "Reserved", "0x2", gsc_szSet },
        { "0C.5", "Cropping supported", "no" },
        { "0C.4", "Layer configurable", "yes" },
        { "0C.3-0", "Layer number", "1" },
        { "0D", "Reserved", "5a", gsc_szSet },
        { "0E.7-4", "Reserved", "0xa", gsc_szSet },
        { "0E.3-2", "Lens distortion configurable", "chromatic aberration only" },
        { "0E.1-0", "Lens distortion support", "lens distortion and chromatic aberration correction" },
        { "0F.7", "VBI configurable", "no" },
        { "0F.6", "VBI", "yes" },
        { "0F.5", "Mura compensation configurable", "yes" },
        { "0F.4", "Mura compensation", "no" },
        { "0F.3", "Degamma configurable", "yes" },
        { "0F.2", "Degamma", "no" },
        { "0F.1", "Gamma configurable", "no" },
        { "0F.0", "Gamma", "yes" },
        { "10.7-4", "Reserved", "0x9", gsc_szSet },
        { "10.3-2", "Asynchronous reprojection configurable", "6DoF can be disabled" },
        { "10.1-0", "Asynchronous reprojection support", "3DoF only" },
        { "11.7", "Scaling configurable", "no" },
        { "11.6", "Scaling by other factors", "yes" },
        { "11.5", "Scaling 8x", "no" },
        { "11.4", "Scaling 6x", "yes" },
        { "11.3", "Scaling 5x", "no" },
        { "11.2", "Scaling 4x", "yes" },
        { "11.1", "Scaling 3x", "yes" },
        { "11.0", "Scaling 2x", "no" },
        { "12", "Unlisted scaling 0", "1.2813" },
        { "13", "Unlisted scaling 1", "1.5313" },
        { "14", "Unlisted scaling 2", "none" },
        { "15", "Unlisted scaling 3", "3.9063" },
        { "16.7-2", "Reserved", "0x26", gsc_szSet },
        { "16.1", "Left then right stacked, layers on separate streams", "no" },
        { "16.0", "Left then right side by side, layers on separate streams", "yes" },
        { "03 04 05", "HMD manufacturer/vendor ID", "3A-02-92 VESA" },
    };
    ExpectRows(MakeDisplayIdRecord(0x2D, 1, "3A 02 92 34 12 78 56 9A BC 91 5A A6 69 99 56 29 31 00 7D 99"), aoRows);
}

TEST(MapHeadMounted, LayerWithoutSerialNumberAndUnlistedScaling)
{
    static constexpr SRowCase aoRows[] = {
        { "0B 0A 09 08", "HMD serial number", "not given" },
        { "11.7", "Scaling configurable", "yes" },
        { "11.6", "Scaling by other factors", "no" },
        { "12-15", "Reserved", "29 31 00 7d", gsc_szSet },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x2D, 1, "3A 02 92 34 12 00*9 80 29 31 00 7D 00"), aoRows);
}

TEST(MapHeadMounted, RevisionAndNumbers)
{
    static constexpr SRowCase aoRows[] = {
        { "01.2-0", "Block revision", "0", "revision 1 is the first one" },
        { "43 42 41 40", "Right center of projection Y", "no number", "no finite number" },
    };
    ExpectSomeRows(MakeDisplayIdRecord(0x2C, 0, "00*61 01 00 80 FF 00*14"), aoRows);
}

TEST(MapHeadMounted, Codes)
{
    static constexpr SCodesCase aoDisplay[] = {
        { "03.1-0", 0, "not supported|interleaving|extended frame|both" },
        { "03.4", 0,
          "left then right side by side, layers interleaved on frames|"
          "left then right stacked, layers interleaved on frames" },
        { "03.6-5", 0,
          "left then right side by side, layers side by side|left then right stacked, layers side by side|"
          "left then right side by side, layers stacked|reserved" },
        { "04.3-0", 0, "1|2|3|4|reserved" },
        { "04.7-4", 0, "1|2|reserved" },
        { "05.3-0", 0, "1|2|reserved" },
        { "05.5-4", 1, "first line of layer 0|AR/VR SDP|both" },
        { "05.7-6", 0, "1, no replication|4|8|16" },
        { "12.2-0", 0, "standard, no rotation|1" },
        { "12.6-4", 0, "standard, no rotation|1" },
        { "19.0", 0, "fixed|adjustable" },
        { "19.2-1", 0,
          "not in a straight line|lenses and displays together in a straight line|"
          "lenses in a straight line, displays fixed|reserved" },
        { "25.1-0", 0, "not supported|single stream|dual streams|single or dual streams" },
        { "50.1-0", 0, "not supported|one|two only|one or two" },
        { "50.3-2", 0, "not supported|one|two only|one or two" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x2C, 1, "13 11 11 ..79"), aoDisplay);

    static constexpr SCodesCase aoLayer[] = {
        { "0C.3-0", 0, "0|1|reserved" },
        { "0E.1-0", 0,
          "none|chromatic aberration correction|lens distortion and chromatic aberration correction|reserved" },
        { "0E.3-2", 0, "no|chromatic aberration only|both|reserved" },
        { "10.1-0", 0, "none|3DoF only|3DoF and 6DoF|reserved" },
        { "10.3-2", 0, "neither|3DoF can be disabled|6DoF can be disabled|both can be disabled" },
    };
    ExpectCodes(MakeDisplayIdRecord(0x2D, 1, "3A 02 92 ..20"), aoLayer);
}

// IEEE 754 single precision, most significant byte last: sign, 8 bits of exponent + 127, 23 of the fraction.
TEST(MapHeadMounted, CentersOfProjection)
{
    struct SCase
    {
        const char* m_pszBytes;
        const char* m_pszValue;
        bool m_bNumber;
        long long m_llMillionths;
    };
    static constexpr SCase aoCases[] = {
        { "00 00 20 3E", "0.156250", true, 156250 },
        { "00 00 00 80", "-0.000000", true, 0 },
        { "01 00 00 00", "0.000000", true, 0 },                         // without the leading 1: 2^-149
        { "BD 37 86 35", "0.000001", true, 1 },                         // the float next to 10^-6
        { "FF FF FF 4A", "8388607.500000", true, 8388607500000 },       // 23 bits before the point, 1 after it
        { "FF FF FF 4E", "2147483520.000000", true, 2147483520000000 }, // next below 2^31
        { "00 00 00 CF", "-8388608 * 2^8", false, 0 },
        { "01 00 80 4F", "8388609 * 2^9", false, 0 },
        { "00 00 80 FF", "-infinite", false, 0 },
        { "01 00 80 FF", "no number", false, 0 },
    };
    constexpr unsigned int uiFirst = 0x40;
    for (const SCase& oCase : aoCases)
    {
        SRecord oRecord = MakeDisplayIdRecord(0x2C, 1, "00*79");
        const CBytes aui8Single = ParseBytes(oCase.m_pszBytes);
        std::ranges::copy(aui8Single, oRecord.m_aui8Image.begin() + oRecord.m_uiOffset + uiFirst);
        CZorEdidMap oMap;
        ReadRecord(oMap, oRecord);
        const unsigned int uiField = oMap.FindLeaf(oRecord.m_uiOffset + uiFirst, 0);
        EXPECT_STREQ(oCase.m_pszValue, oMap.GetValue(uiField));
        EXPECT_EQ(oCase.m_bNumber, oMap.GetField(uiField).m_bNumber) << oCase.m_pszValue;
        EXPECT_EQ(oCase.m_llMillionths, oCase.m_bNumber ? oMap.GetField(uiField).m_llNumber : 0) << oCase.m_pszValue;
    }
}
} // namespace

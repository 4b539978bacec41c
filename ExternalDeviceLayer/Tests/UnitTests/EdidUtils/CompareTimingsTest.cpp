// Comparison of two EDIDs by their modes.

#include "EdidUtilsTestHelp.h"

namespace
{
CByteArray MakeArray(const CBytes& aui8Bytes)
{
    CByteArray oArray;
    oArray.SetCount(static_cast<unsigned int>(aui8Bytes.size()), -1);
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), oArray.GetData());
    return oArray;
}

struct SChangeCase
{
    const char* m_pszName;
    CBytes m_aui8First;
    CBytes m_aui8Second;
    const char* m_pszExpected; // without and with established timings; of each pair without and with the preferred mode
    const char* m_pszReverse = m_pszExpected; // the same for the second with the first
    unsigned int m_uiAssertions = 0;
};

TEST(CompareTimings, WhatCountsAsAChange)
{
    // Standard slots of AsusHd hold 71 4F, 81 C0, 81 40, ...; 45 40 is 800 x 600 at 60 Hz, as is the lowest bit of
    // byte 35.
    const CBytes aui8Asus = AsusBytes();
    const CBytes aui8Slots = AsusBytes({ { 38, 0x81 }, { 39, 0x40 }, { 42, 0x71 }, { 43, 0x4F } });
    const CBytes aui8Free = AsusBytes({ { 50, 1 }, { 51, 1 }, { 52, 1 }, { 53, 1 } });
    const CBytes aui8Once = ChangeBytes(aui8Free, { { 35, 0xB6 }, { 50, 0x45 }, { 51, 0x40 } });
    const CBytes aui8Twice = ChangeBytes(aui8Once, { { 52, 0x45 }, { 53, 0x40 } });
    const CBytes aui8Native = ToBytes(ExtStandard2::g_auiStandard2EdidData); // byte 138 is 90, code 16 as native
    const CBytes aui8Lg = ToBytes(gsc_aui8LgUltraHd);
    CBytes aui8Swapped = aui8Lg; // the two detailed timings of the base block change places
    std::swap_ranges(aui8Swapped.begin() + 54, aui8Swapped.begin() + 72, aui8Swapped.begin() + 72);
    const CBytes aui8Tiles = MakeEdid({ MakeFullDisplayIdBlock() });
    const CBytes aui8OneRecord = MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(3, 0, Type1Record1080p())) });
    const CBytes aui8None = MakeImageWithoutPreferred();
    const CBytes aui8Tolerant = AsusBytes({ { 54, 0x4D }, { 55, 0x1D } }); // 75,010 kHz
    const CBytes aui8Strict = AsusBytes({ { 54, 0x38 }, { 55, 0x1D } });   // 74,800 kHz
    const SChangeCase aoCases[] = {
        { "SerialNumber", aui8Asus, AsusBytes({ { 12, 0x11 } }), "1111" },
        { "EstablishedTiming", aui8Asus, AsusBytes({ { 35, 0xB6 } }), "1100" },
        { "EstablishedTimingOfNoVesaTable", aui8Asus, AsusBytes({ { 35, 0x37 } }), "1100" },
        { "VesaTimingCountsNotOnce", aui8Free, aui8Once, "0000" },
        { "VesaTimingCountsTwice", aui8Free, aui8Twice, "0011" },
        { "StandardTiming", aui8Asus, AsusBytes({ { 38, 0x01 } }), "0000" },
        { "OtherSlots", aui8Asus, aui8Slots, "1111" },
        { "CodeBecomesNative", aui8Asus, AsusBytes({ { 133, 0x81 } }), "0000" },
        { "NativeCode", aui8Native, ChangeBytes(aui8Native, { { 138, 0x93 } }), "1111" },
        { "PreferredMode", aui8Lg, FixChecksums(aui8Swapped), "1010" },
        { "DisplayIdTiming", aui8Tiles, aui8OneRecord, "0000" },
        { "ClockWithinTheTolerance", aui8Asus, AsusBytes({ { 54, 0x03 } }), "1111" }, // 148510 kHz for 148500
        // From 75,000 kHz on a timing allows a larger distance between clocks, and the first EDID's timing is asked.
        { "ToleranceOfTheFirst", aui8Tolerant, aui8Strict, "1111", "0000" },
        // Assertion lines of the lists and of the comparison; both EDIDs are asked before it gives up.
        { "OneWithoutPreferredMode", aui8Asus, aui8None, "0000", "0000", 2 },
        { "BothWithoutPreferredMode", aui8None, aui8None, "0000", "0000", 3 },
        { "ImageThatDoesNotLoad", aui8Asus, CBytes(100), "0000" },
    };
    for (const SChangeCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CByteArray oFirst = MakeArray(oCase.m_aui8First);
        const CByteArray oSecond = MakeArray(oCase.m_aui8Second);
        for (int i = 0; i < 4; ++i)
        {
            CCapturedOutput oOutput;
            EXPECT_EQ(oCase.m_pszExpected[i] - '0', CZorEdidUtils::CompareTimings(oFirst, oSecond, i / 2, i % 2));
            EXPECT_EQ(oCase.m_pszReverse[i] - '0', CZorEdidUtils::CompareTimings(oSecond, oFirst, i / 2, i % 2));
            EXPECT_EQ(2 * oCase.m_uiAssertions, oOutput.TakeAssertionCount());
        }
    }
}
}

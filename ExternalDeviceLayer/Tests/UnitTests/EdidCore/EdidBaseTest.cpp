// Loading, identity and video input of the base block.

#include "EdidBase.h"

#include <gtest/gtest.h>
#include <string.h>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "BaseBlockImage.h"
#include "CapturedOutput.h"
#include "Edid.h"
#include "EditCheck.h"

namespace
{
void Load(CEdidBase& oBase, const CBaseBlockImage::Bytes& aui8Data)
{
    ASSERT_EQ(1, oBase.SetEdidBuffer(aui8Data.data(), static_cast<unsigned int>(aui8Data.size()), 0));
}

bool IsAllZero(const CEdidBase& oBase)
{
    return std::all_of(oBase.GetBaseBlock(), oBase.GetBaseBlock() + 128, [](unsigned char ui8) { return ui8 == 0; });
}

// A heap buffer of exactly this size, so that the sanitizers see every read outside it.
std::unique_ptr<unsigned char[]> MakeExact(unsigned int uiSize, const CBaseBlockImage::Bytes& aui8Block)
{
    std::unique_ptr<unsigned char[]> pui8Data(new unsigned char[uiSize]);
    for (unsigned int ui = 0; ui < uiSize; ++ui)
    {
        pui8Data[ui] = aui8Block[ui % aui8Block.size()];
    }
    return pui8Data;
}

TEST(Loading, EveryLengthUpTo512)
{
    // Announces three extension blocks; copies of the base block follow, which are no kind of extension.
    const CBaseBlockImage::Bytes aui8Block = CBaseBlockImage().Set(126, { 3 }).Get();
    CCapturedOutput oQuiet;
    for (unsigned int uiSize = 0; uiSize <= 512; ++uiSize)
    {
        SCOPED_TRACE(uiSize);
        const std::unique_ptr<unsigned char[]> pui8Data = MakeExact(uiSize, aui8Block);
        CEdidBase oBase;
        Load(oBase, aui8Block);
        EXPECT_EQ(uiSize >= 128 ? 1 : 0, oBase.SetEdidBuffer(pui8Data.get(), uiSize, 0));
        EXPECT_EQ(uiSize < 128, IsAllZero(oBase));

        const bool bWhole = uiSize % 128 == 0;
        CEdid oEdid;
        Load(oEdid, CBaseBlockImage().Get());
        EXPECT_EQ(bWhole ? 1 : 0, oEdid.SetEdidBuffer(pui8Data.get(), uiSize, 0));
        EXPECT_EQ(bWhole && uiSize > 0 ? 128U : 0U, oEdid.GetSize());
        EXPECT_EQ(0U, oEdid.GetExtensionCount());
    }
}

TEST(Loading, EveryWrongHeaderEmptiesTheObject)
{
    const CBaseBlockImage::Bytes aui8Good = CBaseBlockImage().Get();
    CEdidBase oBase;
    for (unsigned int uiOffset = 0; uiOffset < sizeof(EDID_V1_HEADER); ++uiOffset)
    {
        for (unsigned int uiChange = 1; uiChange < 256; ++uiChange)
        {
            CBaseBlockImage::Bytes aui8Bad = aui8Good;
            aui8Bad[uiOffset] = static_cast<unsigned char>(aui8Bad[uiOffset] ^ uiChange);
            Load(oBase, aui8Good);
            EXPECT_EQ(0, oBase.SetEdidBuffer(aui8Bad.data(), 128, 0)) << uiOffset << " " << uiChange;
            EXPECT_TRUE(IsAllZero(oBase));
        }
    }
    Load(oBase, aui8Good);
    EXPECT_EQ(0, oBase.SetEdidBuffer(nullptr, 128, 0));
    EXPECT_TRUE(IsAllZero(oBase));
}

TEST(Loading, JudgesNothingButTheHeader)
{
    const CBaseBlockImage::Bytes aui8Data = CBaseBlockImage().Version(2, 0).Set(126, { 200 }).GetWithWrongChecksum();
    CEdidBase oBase;
    Load(oBase, aui8Data);
    EXPECT_EQ(0, memcmp(aui8Data.data(), oBase.GetBaseBlock(), aui8Data.size()));
}

TEST(Loading, UpdateChecksumOfAnEmptyObjectStoresZero)
{
    CEdidBase oBase;
    oBase.UpdateChecksum();
    EXPECT_TRUE(IsAllZero(oBase));
}

TEST(EdidSize, EndsAtTheFirstZeroBlock)
{
    const struct
    {
        const char* m_szName;
        unsigned int m_uiSize;
        unsigned int m_uiUsedOffset; // the one byte that is not zero, and
        unsigned int m_uiUsedToo;    // another one
        unsigned int m_uiExpected;
        unsigned int m_uiLines;
    } aoCases[] = {
        { "two blocks", 256, 0, 128, 256, 0 },
        { "last byte alone counts", 128, 127, 127, 128, 0 },
        { "second block is zero", 256, 5, 5, 128, 0 },
        { "zero block hides the next", 256, 130, 255, 0, 0 },
        { "part of a block at the end", 200, 0, 199, 128, 1 },
        { "less than a block", 100, 0, 99, 0, 1 },
        { "empty", 0, 0, 0, 0, 0 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const std::unique_ptr<unsigned char[]> pui8Data(new unsigned char[oCase.m_uiSize]());
        if (oCase.m_uiSize > 0)
        {
            pui8Data[oCase.m_uiUsedOffset] = 1;
            pui8Data[oCase.m_uiUsedToo] = 1;
        }
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_uiExpected, CEdidBase::GetEdidSizeFromData(oCase.m_uiSize, pui8Data.get()));
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
    }
    EXPECT_EQ(0U, CEdidBase::GetEdidSizeFromData(128, nullptr));
}

TEST(Identity, ExtensionCountNeedsVersion1AndIndex0)
{
    CEdidBase oBase;
    Load(oBase, CBaseBlockImage().Set(126, { 5 }).Get());
    EXPECT_EQ(5U, oBase.GetExtBlockType(0));
    EXPECT_EQ(0U, oBase.GetExtBlockType(1));
    Load(oBase, CBaseBlockImage().Version(2, 3).Set(126, { 5 }).Get());
    EXPECT_EQ(0U, oBase.GetExtBlockType(0));
}

struct SMakerCase
{
    unsigned char m_aui8Code[2];
    const char* m_szLetters;
    const char* m_szName; // empty: not in the table
};

// Codes worked out by hand: three times five bits, 1 is 'A'.
const SMakerCase gsc_aoMakerCases[] = {
    { { 0x04, 0x69 }, "ACI", "ASUSTek Computer Inc." },
    { { 0x84, 0x69 }, "ACI", "ASUSTek Computer Inc." }, // bit 15 is not looked at
    { { 0x04, 0x21 }, "AAA", "Avolites Ltd" },          // first row
    { { 0x65, 0xA8 }, "YMH", "Yamaha Corporation" },    // last row
    { { 0x38, 0xA3 }, "NEC", "NEC Corporation" },       // the first of its two rows
    { { 0x69, 0xF2 }, "ZOR", "Zorvane Electronic Systems Ltd." },
    { { 0x34, 0xAC }, "MEL", "NEC-MITSUBISHI ELECTRIC VISUAL SYSTEMS" }, // the longest
    { { 0x04, 0x22 }, "AAB", "" },                                       // not in the table
    { { 0x00, 0x00 }, "@@@", "" },
};

TEST(Identity, MakersLettersAndNames)
{
    for (const SMakerCase& oCase : gsc_aoMakerCases)
    {
        SCOPED_TRACE(oCase.m_szLetters);
        CEdidBase oBase;
        Load(oBase, CBaseBlockImage().Set(8, { oCase.m_aui8Code[0], oCase.m_aui8Code[1], 0x0F, 0xA0 }).Get());
        char szId[8];
        EXPECT_EQ(7, oBase.GetMonitorID(szId, sizeof(szId)));
        EXPECT_EQ(std::string(oCase.m_szLetters) + "A00F", szId);
        char szName[64];
        EXPECT_EQ(static_cast<int>(strlen(oCase.m_szName)), oBase.GetManufacturerName(szName, sizeof(szName)));
        EXPECT_STREQ(oCase.m_szName, szName);
    }
}

// The getters as functions of (object, buffer, size), for what they have in common.
using TextGetter = int (CEdidBase::*)(char*, unsigned int) const;

struct SGetterCase
{
    const char* m_szName;
    TextGetter m_pfnGet;
    const char* m_szFull;      // what a large buffer receives
    unsigned int m_uiSmallest; // below this size nothing is written
    bool m_bTerminates;        // the last character of a full buffer is the terminator
    bool m_bResultIsLength;
};

const SGetterCase gsc_aoGetterCases[] = {
    { "MonitorId", &CEdidBase::GetMonitorID, "ACI27F4", 8, true, true },
    { "ManufacturerName", &CEdidBase::GetManufacturerName, "ASUSTek Computer Inc.", 1, true, true },
    { "MonitorName", &CEdidBase::GetMonitorName, "ASUS VE276", 1, false, false },
    { "MonitorString", &CEdidBase::GetMonitorString, "thirteen char", 1, false, false },
    { "SerialNumber", &CEdidBase::GetMonitorSerialNumber, "S N\x01", 1, false, false },
};

CBaseBlockImage MakeTextImage()
{
    return CBaseBlockImage()
        .Descriptor(1, gsc_aui8Name)
        .Descriptor(2, { 0, 0, 0, 0xFE, 0, 't', 'h', 'i', 'r', 't', 'e', 'e', 'n', ' ', 'c', 'h', 'a', 'r' })
        .Descriptor(3, { 0, 0, 0, 0xFF, 0, 'S', ' ', 'N', 1, 0x09, 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x' });
}

TEST(Identity, TextsNeverPassTheGivenSize)
{
    CEdidBase oBase;
    Load(oBase, MakeTextImage().Get());
    for (const SGetterCase& oCase : gsc_aoGetterCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const std::string sFull = oCase.m_szFull;
        EXPECT_EQ(0, (oBase.*oCase.m_pfnGet)(nullptr, 128));
        for (unsigned int uiSize = 0; uiSize <= 128; ++uiSize)
        {
            SCOPED_TRACE(uiSize);
            const std::unique_ptr<char[]> pcExact(new char[uiSize]);
            std::fill_n(pcExact.get(), uiSize, 'Z');
            const int iResult = (oBase.*oCase.m_pfnGet)(pcExact.get(), uiSize);
            if (uiSize < oCase.m_uiSmallest)
            {
                EXPECT_EQ(0, iResult);
                EXPECT_EQ(std::string(uiSize, 'Z'), std::string(pcExact.get(), uiSize));
                continue;
            }
            const std::string sExpected = sFull.substr(0, oCase.m_bTerminates ? uiSize - 1 : uiSize);
            EXPECT_EQ(oCase.m_bResultIsLength ? static_cast<int>(sExpected.size()) : 1, iResult);
            EXPECT_EQ(sExpected, std::string(pcExact.get(), strnlen(pcExact.get(), uiSize)));
        }
    }
}

TEST(Identity, TextBufferIsZeroedToItsEnd)
{
    CEdidBase oBase;
    Load(oBase, MakeTextImage().Get());
    char szText[40];
    memset(szText, 'Z', sizeof(szText));
    EXPECT_EQ(1, oBase.GetMonitorName(szText, sizeof(szText)));
    EXPECT_TRUE(std::all_of(szText + strlen("ASUS VE276"), szText + sizeof(szText), [](char c) { return c == 0; }));
}

TEST(Identity, TextThatEndsAtOnceIsRefusedAndZeroed)
{
    for (const unsigned char ui8End : std::initializer_list<unsigned char>{ 0x0A, 0x09 })
    {
        CEdidBase oBase;
        Load(oBase, CBaseBlockImage().Descriptor(0, { 0, 0, 0, 0xFC, 0, ui8End, 'A' }).Get());
        char szText[4] = { 'Z', 'Z', 'Z', 'Z' };
        EXPECT_EQ(0, oBase.GetMonitorName(szText, sizeof(szText)));
        EXPECT_EQ(std::string(4, '\0'), std::string(szText, 4));
    }
}

// Only bytes 0, 1, 2 and 4 of zero make a display descriptor; of several with a tag the first counts.
TEST(Identity, TextComesFromTheFirstDisplayDescriptorOfItsTag)
{
    CEdidBase oBase;
    Load(oBase, CBaseBlockImage()
                    .Descriptor(0, { 0, 0, 1, 0xFC, 0, 'n', 'o' })
                    .Descriptor(1, { 0, 0, 0, 0xFC, 1, 'n', 'o' })
                    .Descriptor(2, { 0, 0, 0, 0xFC, 0, 'y', 'e', 's', 0x0A })
                    .Descriptor(3, { 0, 0, 0, 0xFC, 0, 'n', 'o' })
                    .Get());
    char szText[14];
    EXPECT_EQ(1, oBase.GetMonitorName(szText, sizeof(szText)));
    EXPECT_STREQ("yes", szText);
    for (const DescriptorBytes& aui8NoName :
         { DescriptorBytes{ 1, 0, 0, 0xFC, 0, 'n', 'o' }, DescriptorBytes{ 0, 1, 0, 0xFC, 0, 'n', 'o' } })
    {
        CEdidBase oOther;
        Load(oOther, CBaseBlockImage().Descriptor(0, aui8NoName).Get());
        EXPECT_EQ(0, oOther.GetMonitorName(szText, sizeof(szText)));
    }
    memset(szText, 'Z', sizeof(szText));
    EXPECT_EQ(0, oBase.GetMonitorString(szText, sizeof(szText)));
    EXPECT_EQ(std::string(14, 'Z'), std::string(szText, 14));
}

TEST(Identity, RangeLimits)
{
    CEdidBase::SRangeLimits oLimits = { 1, 2, 3, 4, 5, 6 };
    CEdidBase oBase;
    Load(oBase, CBaseBlockImage().Get());
    EXPECT_EQ(0, oBase.GetMonitorRangeLimits(oLimits));
    EXPECT_EQ(5U, oLimits.m_uiMinPixelClockInKiloHz);
    Load(oBase, CBaseBlockImage().Descriptor(2, { 0, 0, 0, 0xFD, 0, 50, 76, 24, 83, 255 }).Get());
    EXPECT_EQ(1, oBase.GetMonitorRangeLimits(oLimits));
    EXPECT_EQ(50U, oLimits.m_uiMinVerticalRateInHz);
    EXPECT_EQ(76U, oLimits.m_uiMaxVerticalRateInHz);
    EXPECT_EQ(24U, oLimits.m_uiMinHorizontalRateInKiloHz);
    EXPECT_EQ(83U, oLimits.m_uiMaxHorizontalRateInKiloHz);
    EXPECT_EQ(0U, oLimits.m_uiMinPixelClockInKiloHz);
    EXPECT_EQ(2550000U, oLimits.m_uiMaxPixelClockInKiloHz);
}

TEST(Identity, SerialNumberIsWrittenLittleEndian)
{
    CEdidBase oBase;
    Load(oBase, CBaseBlockImage().GetWithWrongChecksum());
    CEditCheck oSame(oBase);
    oBase.SetSerialNumber(0x12345678);
    oSame.ExpectUnchanged(); // not even the wrong checksum

    CEditCheck oChanged(oBase);
    oBase.SetSerialNumber(0x92345679);
    oChanged.ExpectEdited({ { 12, 4 } });
    const unsigned char aui8Expected[] = { 0x79, 0x56, 0x34, 0x92 };
    EXPECT_EQ(0, memcmp(aui8Expected, oBase.GetBaseBlock() + 12, sizeof(aui8Expected)));
}

struct SVideoInputCase
{
    const char* m_szName;
    unsigned char m_ui8Version;
    unsigned char m_ui8Revision;
    unsigned char m_ui8VideoInput;
    unsigned int m_uiFailedConditions;
};

const SVideoInputCase gsc_aoVideoInputCases[] = {
    { "1.4 digital", 1, 4, 0xA5, 0 }, { "1.5 digital", 1, 5, 0xA5, 0 }, { "1.3 digital", 1, 3, 0xA5, 1 },
    { "1.4 analog", 1, 4, 0x25, 1 },  { "2.4 digital", 2, 4, 0xA5, 1 }, { "2.0 analog", 2, 0, 0x25, 3 },
};

TEST(VideoInput, ColorDepthAndInterfaceOnlyFrom14On)
{
    for (const SVideoInputCase& oCase : gsc_aoVideoInputCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const bool bGood = oCase.m_uiFailedConditions == 0;
        CEdidBase oBase;
        Load(oBase, CBaseBlockImage()
                        .Version(oCase.m_ui8Version, oCase.m_ui8Revision)
                        .Set(20, { oCase.m_ui8VideoInput })
                        .Get());
        CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepth12;
        EXPECT_EQ(bGood ? 1 : 0, oBase.GetColorBitDepth(eDepth));
        EXPECT_EQ(bGood ? CEdidBase::eColorBitDepth8 : CEdidBase::eColorBitDepthReserved, eDepth);

        CCapturedOutput oOutput;
        CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceMddi;
        EXPECT_EQ(bGood ? 1 : 0, oBase.GetDigitalVideoInterface(eInterface));
        EXPECT_EQ(bGood ? CEdidBase::eDigitalInterfaceDisplayPort : CEdidBase::eDigitalInterfaceNotDefined, eInterface);
        // One line for each condition that fails, and one for the refusal.
        EXPECT_EQ(bGood ? 0U : oCase.m_uiFailedConditions + 1, oOutput.TakeAssertionCount());

        CEditCheck oCheck(oBase);
        EXPECT_EQ(bGood ? 1 : 0, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth10));
        if (!bGood)
        {
            oCheck.ExpectUnchanged();
            continue;
        }
        oCheck.ExpectEdited({ { 20, 1 } });
        EXPECT_EQ(0xB5, oBase.GetBaseBlock()[20]); // the other bits stay
    }
}

TEST(VideoInput, ColorDepthOfTheBlockOrOutOfRangeChangesNothing)
{
    CEdidBase oBase;
    Load(oBase, CBaseBlockImage().Version(1, 4).Set(20, { 0xA5 }).GetWithWrongChecksum());
    CEditCheck oCheck(oBase);
    EXPECT_EQ(1, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    oCheck.ExpectUnchanged();
    EXPECT_EQ(0, oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(8)));
    oCheck.ExpectUnchanged();
}

TEST(VideoInput, InterfaceValuesAbove5AreReserved)
{
    for (unsigned int uiValue = 0; uiValue < 16; ++uiValue)
    {
        CEdidBase oBase;
        Load(oBase, CBaseBlockImage().Version(1, 4).Set(20, { static_cast<unsigned char>(0xF0 | uiValue) }).Get());
        CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
        EXPECT_EQ(1, oBase.GetDigitalVideoInterface(eInterface));
        EXPECT_EQ(std::min(uiValue, 6U), static_cast<unsigned int>(eInterface));
    }
}

TEST(EmptyObject, GettersReadZeroBytes)
{
    const CEdidBase oBase;
    char szText[16] = "untouched";
    EXPECT_EQ(0, oBase.GetMonitorName(szText, sizeof(szText)));
    EXPECT_STREQ("untouched", szText);
    EXPECT_EQ(0, oBase.GetManufacturerName(szText, sizeof(szText)));
    EXPECT_STREQ("", szText);
    EXPECT_EQ(7, oBase.GetMonitorID(szText, sizeof(szText)));
    EXPECT_STREQ("@@@0000", szText);
    EXPECT_EQ(0U, oBase.GetStandardCount());
    EXPECT_EQ(0U, oBase.GetDetailedCount());
    EXPECT_EQ(0U, oBase.GetEstablishedCount(0));
}
}

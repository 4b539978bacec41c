// Loading, identity and video input of the base block.

#include "EdidBase.h"

#include <gtest/gtest.h>
#include <string.h>

#include <memory>
#include <string>
#include <vector>

#include "BaseBlockImage.h"
#include "CapturedOutput.h"
#include "EditCheck.h"

namespace
{
// ---- Loading ----

TEST(Loading, TakesABlockWithItsHeaderElseEmptiesTheObject)
{
    const CBytes aui8Block = MakeBase({});
    CEdidBase oBase;
    const auto Expect = [&](bool bLoads, const unsigned char* pui8Data, unsigned int uiSize) {
        Load(oBase, aui8Block);
        EXPECT_EQ(bLoads ? 1 : 0, oBase.SetEdidBuffer(pui8Data, uiSize, 0)) << uiSize;
        EXPECT_EQ(bLoads ? aui8Block : CBytes(128), BytesOf(oBase)) << uiSize;
    };
    for (unsigned int uiSize = 0; uiSize <= 257; ++uiSize)
    {
        CBytes aui8Data = aui8Block;
        aui8Data.resize(uiSize);
        Expect(uiSize >= 128, CopyToHeap(aui8Data).get(), uiSize);
    }
    for (size_t i = 0; i < 8; ++i)
    {
        CBytes aui8Data = aui8Block;
        aui8Data[i] = static_cast<unsigned char>(aui8Data[i] ^ 1U << i);
        Expect(false, aui8Data.data(), 128);
    }
    Expect(false, nullptr, 128);
}

TEST(EmptyObject, TakesTwoSettersAndKeepsTheChecksumByte)
{
    CEdidBase oBase;
    oBase.SetSerialNumber(5);
    EXPECT_EQ(1, oBase.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 1, 1));
    oBase.UpdateChecksum();
    EXPECT_EQ(0, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    CBytes aui8Expected(128);
    aui8Expected[12] = 5;
    aui8Expected[35] = 0x20;
    EXPECT_EQ(aui8Expected, BytesOf(oBase));
}

TEST(EdidSize, EndsAtTheFirstZeroBlock)
{
    // The bytes at these offsets are not zero.
    const auto Expect = [](const char* pszName, unsigned int uiSize, const std::vector<size_t>& auiUsed,
                           unsigned int uiExpected, unsigned int uiLines) {
        CBytes aui8Data(uiSize);
        std::for_each(auiUsed.begin(), auiUsed.end(), [&](size_t uiUsed) { aui8Data[uiUsed] = 1; });
        CCapturedOutput oOutput;
        EXPECT_EQ(uiExpected, CEdidBase::GetEdidSizeFromData(uiSize, CopyToHeap(aui8Data).get())) << pszName;
        EXPECT_EQ(uiLines, oOutput.TakeAssertionCount()) << pszName;
    };
    Expect("two blocks", 256, { 0, 128 }, 256, 0);
    Expect("last byte alone counts", 128, { 127 }, 128, 0);
    Expect("second block is zero", 256, { 5 }, 128, 0);
    Expect("zero block hides the next", 256, { 130, 255 }, 0, 0);
    Expect("part of a block at the end", 200, { 0, 199 }, 128, 1);
    Expect("less than a block", 100, { 0, 99 }, 0, 1);
    Expect("empty", 0, {}, 0, 0);
    EXPECT_EQ(0U, CEdidBase::GetEdidSizeFromData(128, nullptr));
}

// ---- Identity ----

TEST(Identity, ExtensionCountNeedsVersion1AndIndex0)
{
    EXPECT_EQ(5U, CLoadedBase({ { 126, { 5 } } }).GetExtBlockType(0));
    EXPECT_EQ(0U, CLoadedBase({ { 126, { 5 } } }).GetExtBlockType(1));
    EXPECT_EQ(0U, CLoadedBase({ { 18, { 2 } }, { 126, { 5 } } }).GetExtBlockType(0));
}

// All names that the codes reach, in the order of the codes. Number and digest come from the published list, in which
// two of the 112 rows repeat a code.
TEST(Identity, EveryMakersName)
{
    unsigned int uiNames = 0;
    unsigned int uiDigest = 2166136261U;
    for (unsigned int uiCode = 0; uiCode < 0x8000; ++uiCode)
    {
        const unsigned int uiReserved = uiCode % 2 << 7; // bit 15, which is not looked at
        const CLoadedBase oBase({ { 8,
                                    { static_cast<unsigned char>(uiCode >> 8 | uiReserved),
                                      static_cast<unsigned char>(uiCode & 0xFF) } } });
        char szId[8] = "";
        char szName[64] = "old";
        const int iLength = oBase.GetManufacturerName(szName, sizeof(szName));
        ASSERT_EQ(strlen(szName), static_cast<size_t>(iLength));
        ASSERT_EQ(7, oBase.GetMonitorID(szId, sizeof(szId)));
        uiNames += szName[0] != '\0' ? 1U : 0U;
        for (const char c : szName[0] != '\0' ? std::string(szId, 3) + szName : "")
        {
            uiDigest = (uiDigest ^ static_cast<unsigned char>(c)) * 16777619U;
        }
    }
    EXPECT_EQ(110U, uiNames);
    EXPECT_EQ(0x5026B9BAU, uiDigest);
}

// A text of a descriptor: result 1, the rest of the buffer zeroed. Another one: the length, and a terminator. Below the
// smallest size nothing is written.
TEST(Identity, TextsFillTheGivenSizeAndNoMore)
{
    const CLoadedBase oBase(
        { { 72, gsc_aui8Name },
          { 90, { 0, 0, 0, 0xFE, 0, 't', 'h', 'i', 'r', 't', 'e', 'e', 'n', ' ', 'c', 'h', 'a', 'r' } },
          { 108, { 0, 0, 0, 0xFF, 0, 'S', ' ', 'N', 1, 0x09, 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x' } } });
    const auto Expect = [&](int (CEdidBase::*pfnGet)(char*, unsigned int) const, const std::string& sFull,
                            bool bDescriptor, unsigned int uiSmallest) {
        EXPECT_EQ(0, (oBase.*pfnGet)(nullptr, 128)) << sFull;
        for (unsigned int uiSize = 0; uiSize <= 32; ++uiSize)
        {
            std::string sExpected;
            if (uiSize >= uiSmallest)
            {
                sExpected = sFull.substr(0, bDescriptor ? uiSize : uiSize - 1);
                sExpected.resize(bDescriptor ? uiSize : sExpected.size() + 1, '\0');
            }
            const int iLength = static_cast<int>(sExpected.size()) - 1;
            sExpected.resize(uiSize, 'Z');
            const std::unique_ptr<unsigned char[]> pui8Exact = CopyToHeap(CBytes(uiSize, 'Z'));
            char* const pszText = reinterpret_cast<char*>(pui8Exact.get());
            EXPECT_EQ(uiSize < uiSmallest ? 0 : bDescriptor ? 1 : iLength, (oBase.*pfnGet)(pszText, uiSize)) << sFull;
            EXPECT_EQ(sExpected, std::string(pszText, uiSize));
        }
    };
    Expect(&CEdidBase::GetMonitorID, "ACI27F4", false, 8);
    Expect(&CEdidBase::GetManufacturerName, "ASUSTek Computer Inc.", false, 1);
    Expect(&CEdidBase::GetMonitorName, "ASUS VE276", true, 1);
    Expect(&CEdidBase::GetMonitorString, "thirteen char", true, 1); // all 13 characters
    Expect(&CEdidBase::GetMonitorSerialNumber, "S N\x01", true, 1); // ends at a tab
}

// Only bytes 0, 1, 2 and 4 of zero make a display descriptor; of several with a tag the first counts.
TEST(Identity, TextComesFromTheFirstDisplayDescriptorOfItsTag)
{
    const auto Expect = [](const char* pszExpected, const CBytes& aui8First) {
        const CLoadedBase oBase({ { 90, aui8First }, { 108, { 0, 0, 0, 0xFC, 0, 'y', 'e', 's', 0x0A } } });
        char szText[14] = "old";
        EXPECT_EQ(pszExpected[0] != '\0' ? 1 : 0, oBase.GetMonitorName(szText, sizeof(szText)));
        EXPECT_STREQ(pszExpected, szText);
    };
    Expect("no", { 0, 0, 0, 0xFC, 0, 'n', 'o', 0x0A });
    Expect("", { 0, 0, 0, 0xFC, 0, 0x0A, 'n', 'o' }); // ends at once
    Expect("yes", { 0, 0, 0, 0xFE, 0, 'n', 'o' });    // another tag
    Expect("yes", { 1, 0, 0, 0xFC, 0, 'n', 'o' });
    Expect("yes", { 0, 1, 0, 0xFC, 0, 'n', 'o' });
    Expect("yes", { 0, 0, 1, 0xFC, 0, 'n', 'o' });
    Expect("yes", { 0, 0, 0, 0xFC, 1, 'n', 'o' });
}

TEST(Identity, RangeLimits)
{
    CEdidBase::SRangeLimits oLimits = { 1, 2, 3, 4, 5, 6 };
    EXPECT_EQ(0, CLoadedBase({}).GetMonitorRangeLimits(oLimits));
    EXPECT_EQ(5U, oLimits.m_uiMinPixelClockInKiloHz);
    EXPECT_EQ(1, CLoadedBase({ { 90, { 0, 0, 0, 0xFD, 0, 50, 76, 24, 83, 255 } } }).GetMonitorRangeLimits(oLimits));
    const CEdidBase::SRangeLimits oExpected = { 50, 76, 24, 83, 0, 2550000 };
    EXPECT_EQ(0, memcmp(&oExpected, &oLimits, sizeof(oLimits)));
}

// ---- Serial number and video input ----

TEST(Setters, ChangeNothingWhereTheValueStandsAlready)
{
    CBytes aui8Data = MakeBase({ { 18, { 1, 4, 0xA5 } } });
    ++aui8Data[127]; // a wrong checksum, which stays
    CLoadedBase oBase(aui8Data);
    CEditCheck oSame(oBase);
    oBase.SetSerialNumber(0x12345678);
    EXPECT_EQ(1, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    EXPECT_EQ(0, oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(8)));
    oSame.ExpectUnchanged();
    oBase.SetSerialNumber(0x92345679);
    oSame.ExpectEdited({ { 12, 4 } });
    EXPECT_EQ((CBytes{ 0x79, 0x56, 0x34, 0x92 }), BytesOf(oBase, 12, 4));
}

// Digital, version 1, revision 4 or later; else refused, with a line for each condition that fails and one more.
TEST(VideoInput, DepthAndInterfaceOfEveryKindOfBlock)
{
    for (const CBytes& aui8Version : { CBytes{ 1, 3 }, { 1, 4 }, { 1, 5 }, { 2, 0 }, { 2, 4 } })
    {
        for (unsigned int uiInput = 0; uiInput <= 0xFF; uiInput += 0x0F) // every value of both nibbles
        {
            SCOPED_TRACE(testing::Message() << +aui8Version[0] << "." << +aui8Version[1] << " " << uiInput);
            CLoadedBase oBase({ { 18, aui8Version }, { 20, { static_cast<unsigned char>(uiInput) } } });
            const unsigned int uiFailed =
                (uiInput < 0x80 ? 1U : 0U) + (aui8Version[0] != 1 ? 1U : 0U) + (aui8Version[1] < 4 ? 1U : 0U);
            const int iExpected = uiFailed == 0 ? 1 : 0;
            CCapturedOutput oOutput;
            CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceMddi;
            EXPECT_EQ(iExpected, oBase.GetDigitalVideoInterface(eInterface));
            EXPECT_EQ(iExpected != 0 ? std::min(uiInput % 16, 6U) : 0U, static_cast<unsigned int>(eInterface));
            EXPECT_EQ(iExpected != 0 ? 0 : uiFailed + 1, oOutput.TakeAssertionCount());

            CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepth12;
            EXPECT_EQ(iExpected, oBase.GetColorBitDepth(eDepth));
            EXPECT_EQ(iExpected != 0 ? uiInput / 16 % 8 : 7U, static_cast<unsigned int>(eDepth));
            const unsigned int uiOther = 7 - uiInput / 16 % 8;
            CEditCheck oCheck(oBase);
            EXPECT_EQ(iExpected, oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(uiOther)));
            if (iExpected == 0)
            {
                oCheck.ExpectUnchanged();
                continue;
            }
            oCheck.ExpectEdited({ { 20, 1 } });
            EXPECT_EQ(0x80 + uiOther * 16 + uiInput % 16, oBase.GetBaseBlock()[20]);
        }
    }
}
}

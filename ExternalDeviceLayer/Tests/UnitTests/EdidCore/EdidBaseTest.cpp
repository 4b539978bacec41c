// Loading, identity and video input of the base block.

#include "EdidBase.h"

#include <gtest/gtest.h>
#include <string.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "BaseBlockImage.h"
#include "CapturedOutput.h"
#include "EditCheck.h"

namespace
{
CBytes BytesOf(const CEdidBase& oBase) { return CBytes(oBase.GetBaseBlock(), oBase.GetBaseBlock() + gsc_uiBlockSize); }

const CBytes gsc_aui8Zeros(gsc_uiBlockSize);

TEST(Loading, EveryLengthUpTo512)
{
    const CBytes aui8Block = CBaseBlockImage().Get();
    const CBytes aui8Four = Join({ aui8Block, aui8Block, aui8Block, aui8Block });
    CEdidBase oBase;
    for (unsigned int uiSize = 0; uiSize <= aui8Four.size(); ++uiSize)
    {
        SCOPED_TRACE(uiSize);
        Load(oBase, aui8Block);
        const CBytes aui8Data(aui8Four.begin(), aui8Four.begin() + uiSize);
        EXPECT_EQ(uiSize >= 128 ? 1 : 0, oBase.SetEdidBuffer(CopyToHeap(aui8Data).get(), uiSize, 0));
        EXPECT_EQ(uiSize >= 128 ? aui8Block : gsc_aui8Zeros, BytesOf(oBase));
    }
    Load(oBase, aui8Block);
    EXPECT_EQ(0, oBase.SetEdidBuffer(nullptr, 128, 0));
    EXPECT_EQ(gsc_aui8Zeros, BytesOf(oBase));
}

TEST(Loading, EveryWrongHeaderEmptiesTheObject)
{
    const CBytes aui8Good = CBaseBlockImage().Get();
    CEdidBase oBase;
    for (unsigned int uiOffset = 0; uiOffset < sizeof(EDID_V1_HEADER); ++uiOffset)
    {
        for (unsigned int uiChange = 1; uiChange < 256; ++uiChange)
        {
            CBytes aui8Bad = aui8Good;
            aui8Bad[uiOffset] = static_cast<unsigned char>(aui8Bad[uiOffset] ^ uiChange);
            Load(oBase, aui8Good);
            EXPECT_EQ(0, oBase.SetEdidBuffer(aui8Bad.data(), 128, 0)) << uiOffset << " " << uiChange;
            EXPECT_EQ(gsc_aui8Zeros, BytesOf(oBase));
        }
    }
}

TEST(EmptyObject, ReadsZerosAndTakesTwoSetters)
{
    CEdidBase oBase;
    char szText[16] = "untouched";
    EXPECT_EQ(0, oBase.GetMonitorName(szText, sizeof(szText)));
    EXPECT_STREQ("untouched", szText);
    EXPECT_EQ(0, oBase.GetManufacturerName(szText, sizeof(szText)));
    EXPECT_EQ(0U, oBase.GetStandardCount());
    EXPECT_EQ(0U, oBase.GetDetailedCount());
    EXPECT_EQ(0U, oBase.GetEstablishedCount(0));

    CBytes aui8Expected = gsc_aui8Zeros; // the checksum byte stays 0
    aui8Expected[12] = 5;
    aui8Expected[35] = 0x20;
    oBase.SetSerialNumber(5);
    EXPECT_EQ(1, oBase.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 1, 1));
    oBase.UpdateChecksum();
    EXPECT_EQ(aui8Expected, BytesOf(oBase));
    EXPECT_EQ(0, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    EXPECT_EQ(aui8Expected, BytesOf(oBase));
}

TEST(EdidSize, EndsAtTheFirstZeroBlock)
{
    const struct
    {
        const char* m_szName;
        unsigned int m_uiSize;
        std::vector<unsigned int> m_auiUsed; // offsets of the bytes that are not zero
        unsigned int m_uiExpected;
        unsigned int m_uiLines; // assertion lines
    } aoCases[] = {
        { "two blocks", 256, { 0, 128 }, 256, 0 },
        { "last byte alone counts", 128, { 127 }, 128, 0 },
        { "second block is zero", 256, { 5 }, 128, 0 },
        { "zero block hides the next", 256, { 130, 255 }, 0, 0 },
        { "part of a block at the end", 200, { 0, 199 }, 128, 1 },
        { "less than a block", 100, { 0, 99 }, 0, 1 },
        { "empty", 0, {}, 0, 0 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CBytes aui8Data(oCase.m_uiSize);
        for (const unsigned int uiUsed : oCase.m_auiUsed)
        {
            aui8Data[uiUsed] = 1;
        }
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_uiExpected, CEdidBase::GetEdidSizeFromData(oCase.m_uiSize, CopyToHeap(aui8Data).get()));
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
    }
    EXPECT_EQ(0U, CEdidBase::GetEdidSizeFromData(128, nullptr));
}

TEST(Identity, ExtensionCountNeedsVersion1AndIndex0)
{
    CLoadedBase oBase(CBaseBlockImage().Set(126, { 5 }));
    EXPECT_EQ(5U, oBase.GetExtBlockType(0));
    EXPECT_EQ(0U, oBase.GetExtBlockType(1));
    Load(oBase, CBaseBlockImage().Version(2, 3).Set(126, { 5 }).Get());
    EXPECT_EQ(0U, oBase.GetExtBlockType(0));
}

// All names that the codes reach, in the order of the codes. Number and checksum come from the published list, in which
// two of the 112 rows repeat a code.
TEST(Identity, EveryMakersName)
{
    unsigned int uiNames = 0;
    unsigned int uiHash = 2166136261U;
    CEdidBase oBase;
    for (unsigned int uiCode = 0; uiCode < 0x8000; ++uiCode)
    {
        const unsigned int uiReserved = uiCode % 2 << 7; // bit 15, which is not looked at
        Load(oBase, CBaseBlockImage()
                        .Set(8, { static_cast<unsigned char>(uiCode >> 8 | uiReserved),
                                  static_cast<unsigned char>(uiCode & 0xFF) })
                        .Get());
        char szId[8] = "";
        char szName[64] = "old";
        const int iLength = oBase.GetManufacturerName(szName, sizeof(szName));
        ASSERT_EQ(static_cast<size_t>(iLength), strlen(szName));
        ASSERT_EQ(7, oBase.GetMonitorID(szId, sizeof(szId)));
        uiNames += iLength > 0 ? 1U : 0U;
        for (const char c : iLength > 0 ? std::string(szId, 3) + szName : "")
        {
            uiHash = (uiHash ^ static_cast<unsigned char>(c)) * 16777619U;
        }
    }
    EXPECT_EQ(110U, uiNames);
    EXPECT_EQ(0x5026B9BAU, uiHash);
}

// The getters as functions of (object, buffer, size), for what they have in common.
struct SGetterCase
{
    const char* m_szName;
    int (CEdidBase::*m_pfnGet)(char*, unsigned int) const;
    const char* m_szFull;      // what a large buffer receives
    unsigned int m_uiSmallest; // below this size nothing is written
    bool m_bDescriptor;        // result 1, the rest of the buffer zeroed; else the length, and a terminator
};

const SGetterCase gsc_aoGetterCases[] = {
    { "monitor id", &CEdidBase::GetMonitorID, "ACI27F4", 8, false },
    { "manufacturer name", &CEdidBase::GetManufacturerName, "ASUSTek Computer Inc.", 1, false },
    { "monitor name", &CEdidBase::GetMonitorName, "ASUS VE276", 1, true },
    { "free text of all 13 characters", &CEdidBase::GetMonitorString, "thirteen char", 1, true },
    { "serial number that ends at a tab", &CEdidBase::GetMonitorSerialNumber, "S N\x01", 1, true },
};

TEST(Identity, TextsFillTheGivenSizeAndNoMore)
{
    CLoadedBase oBase(
        CBaseBlockImage()
            .Descriptor(1, gsc_aui8Name)
            .Descriptor(2, { 0, 0, 0, 0xFE, 0, 't', 'h', 'i', 'r', 't', 'e', 'e', 'n', ' ', 'c', 'h', 'a', 'r' })
            .Descriptor(3, { 0, 0, 0, 0xFF, 0, 'S', ' ', 'N', 1, 0x09, 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x' }));
    for (const SGetterCase& oCase : gsc_aoGetterCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        EXPECT_EQ(0, (oBase.*oCase.m_pfnGet)(nullptr, 128));
        for (unsigned int uiSize = 0; uiSize <= 128; ++uiSize)
        {
            SCOPED_TRACE(uiSize);
            int iExpected = 0;
            std::string sExpected(uiSize, 'Z');
            if (uiSize >= oCase.m_uiSmallest)
            {
                const std::string sText =
                    std::string(oCase.m_szFull).substr(0, oCase.m_bDescriptor ? uiSize : uiSize - 1);
                iExpected = oCase.m_bDescriptor ? 1 : static_cast<int>(sText.size());
                const size_t uiZeros = oCase.m_bDescriptor ? uiSize - sText.size() : 1;
                sExpected.replace(0, sText.size() + uiZeros, sText + std::string(uiZeros, '\0'));
            }
            const std::unique_ptr<char[]> pcExact(new char[uiSize]);
            std::fill_n(pcExact.get(), uiSize, 'Z');
            EXPECT_EQ(iExpected, (oBase.*oCase.m_pfnGet)(pcExact.get(), uiSize));
            EXPECT_EQ(sExpected, std::string(pcExact.get(), uiSize));
        }
    }
}

// Only bytes 0, 1, 2 and 4 of zero make a display descriptor; of several with a tag the first counts.
TEST(Identity, TextComesFromTheFirstDisplayDescriptorOfItsTag)
{
    const struct
    {
        const char* m_szName;
        DescriptorBytes m_aui8First; // "yes" stands behind it
        const char* m_szExpected;
    } aoCases[] = {
        { "the first of two", { 0, 0, 0, 0xFC, 0, 'n', 'o', 0x0A }, "no" },
        { "a text that ends at once", { 0, 0, 0, 0xFC, 0, 0x0A, 'n', 'o' }, "" },
        { "another tag", { 0, 0, 0, 0xFE, 0, 'n', 'o' }, "yes" },
        { "byte 0", { 1, 0, 0, 0xFC, 0, 'n', 'o' }, "yes" },
        { "byte 1", { 0, 1, 0, 0xFC, 0, 'n', 'o' }, "yes" },
        { "byte 2", { 0, 0, 1, 0xFC, 0, 'n', 'o' }, "yes" },
        { "byte 4", { 0, 0, 0, 0xFC, 1, 'n', 'o' }, "yes" },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CLoadedBase oBase(CBaseBlockImage()
                              .Descriptor(2, oCase.m_aui8First)
                              .Descriptor(3, { 0, 0, 0, 0xFC, 0, 'y', 'e', 's', 0x0A }));
        char szText[14] = "old";
        EXPECT_EQ(oCase.m_szExpected[0] != '\0' ? 1 : 0, oBase.GetMonitorName(szText, sizeof(szText)));
        EXPECT_STREQ(oCase.m_szExpected, szText);
    }
}

TEST(Identity, RangeLimits)
{
    CEdidBase::SRangeLimits oLimits = { 1, 2, 3, 4, 5, 6 };
    CLoadedBase oBase(CBaseBlockImage{});
    EXPECT_EQ(0, oBase.GetMonitorRangeLimits(oLimits));
    EXPECT_EQ(5U, oLimits.m_uiMinPixelClockInKiloHz);
    Load(oBase, CBaseBlockImage().Descriptor(2, { 0, 0, 0, 0xFD, 0, 50, 76, 24, 83, 255 }).Get());
    EXPECT_EQ(1, oBase.GetMonitorRangeLimits(oLimits));
    const CEdidBase::SRangeLimits oExpected = { 50, 76, 24, 83, 0, 2550000 };
    EXPECT_EQ(0, memcmp(&oExpected, &oLimits, sizeof(oLimits)));
}

TEST(Identity, SerialNumberIsWrittenLittleEndian)
{
    CLoadedBase oBase(CBaseBlockImage().GetWithWrongChecksum());
    CEditCheck oSame(oBase);
    oBase.SetSerialNumber(0x12345678);
    oSame.ExpectUnchanged(); // not even the wrong checksum

    CEditCheck oChanged(oBase);
    oBase.SetSerialNumber(0x92345679);
    oChanged.ExpectEdited({ { 12, 4 } });
    const unsigned char aui8Expected[] = { 0x79, 0x56, 0x34, 0x92 };
    EXPECT_EQ(0, memcmp(aui8Expected, oBase.GetBaseBlock() + 12, sizeof(aui8Expected)));
}

// ---- Video input ----

TEST(VideoInput, OtherInputsAndOlderBlocksAreRefused)
{
    const struct
    {
        const char* m_szName;
        unsigned char m_ui8Version;
        unsigned char m_ui8Revision;
        unsigned char m_ui8VideoInput;
        unsigned int m_uiLines; // one for each condition that fails, and one for the refusal
    } aoCases[] = { { "1.3 digital", 1, 3, 0xA5, 2 },
                    { "1.4 analog", 1, 4, 0x25, 2 },
                    { "2.4 digital", 2, 4, 0xA5, 2 },
                    { "2.0 analog", 2, 0, 0x25, 4 } };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        CLoadedBase oBase(
            CBaseBlockImage().Version(oCase.m_ui8Version, oCase.m_ui8Revision).Set(20, { oCase.m_ui8VideoInput }));
        CEditCheck oCheck(oBase);
        CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepth12;
        EXPECT_EQ(0, oBase.GetColorBitDepth(eDepth));
        EXPECT_EQ(CEdidBase::eColorBitDepthReserved, eDepth);
        EXPECT_EQ(0, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth10));
        oCheck.ExpectUnchanged();

        CCapturedOutput oOutput;
        CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceMddi;
        EXPECT_EQ(0, oBase.GetDigitalVideoInterface(eInterface));
        EXPECT_EQ(CEdidBase::eDigitalInterfaceNotDefined, eInterface);
        EXPECT_EQ(oCase.m_uiLines, oOutput.TakeAssertionCount());
    }
}

TEST(VideoInput, EveryDigitalByte)
{
    for (unsigned int uiByte = 0x80; uiByte < 0x100; ++uiByte)
    {
        SCOPED_TRACE(uiByte);
        const unsigned char ui8Revision = uiByte % 2 == 0 ? 4 : 5;
        CLoadedBase oBase(CBaseBlockImage().Version(1, ui8Revision).Set(20, { static_cast<unsigned char>(uiByte) }));
        CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepthUndefined;
        EXPECT_EQ(1, oBase.GetColorBitDepth(eDepth));
        EXPECT_EQ((uiByte - 0x80) / 16, static_cast<unsigned int>(eDepth));
        CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceNotDefined;
        EXPECT_EQ(1, oBase.GetDigitalVideoInterface(eInterface));
        EXPECT_EQ(std::min(uiByte % 16, 6U), static_cast<unsigned int>(eInterface));

        const unsigned int uiOther = 7U - eDepth;
        CEditCheck oCheck(oBase);
        EXPECT_EQ(1, oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(uiOther)));
        oCheck.ExpectEdited({ { 20, 1 } });
        EXPECT_EQ(0x80 + uiOther * 16 + uiByte % 16, oBase.GetBaseBlock()[20]);
    }
}

TEST(VideoInput, ColorDepthOfTheBlockOrOutOfRangeChangesNothing)
{
    CLoadedBase oBase(CBaseBlockImage().Version(1, 4).Set(20, { 0xA5 }).GetWithWrongChecksum());
    CEditCheck oCheck(oBase);
    EXPECT_EQ(1, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    oCheck.ExpectUnchanged();
    EXPECT_EQ(0, oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(8)));
    oCheck.ExpectUnchanged();
}
}

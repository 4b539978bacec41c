// The base block: loading, identity, video input, timings, and edits.

#include "EdidBase.h"

#include <gtest/gtest.h>
#include <string.h>

#include <functional>
#include <map>

#include "CapturedOutput.h"
#include "CaseFile.h"
#include "CountingAllocator.h"
#include "TimingValues.h"

namespace
{
// A byte in hexadecimal, "'ab_c" for characters with "_" for a blank, or a descriptor by its name.
CBytes ParseToken(std::string sToken)
{
    static const std::map<std::string, CBytes> s_oDescriptors = {
        // 148.5 MHz with an image of 60 by 34, and 74.25 MHz without an image size.
        { "1080p", { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0, 0x3C, 0x22, 0, 0, 0, 0x1E } },
        { "720p", { 0x01, 0x1D, 0, 0x72, 0x51, 0xD0, 0x1E, 0x20, 0x6E, 0x28, 0x55, 0, 0, 0, 0, 0, 0, 0x1E } },
        { "name", { 0, 0, 0, 0xFC, 0, 'A', 'S', 'U', 'S', ' ', 'V', 'E', '2', '7', '6', 0x0A, ' ', ' ' } },
        { "empty", { 0, 0, 0, 0x10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0 } },
    };
    const auto it = s_oDescriptors.find(sToken);
    if (it != s_oDescriptors.end())
    {
        return it->second;
    }
    if (sToken[0] == '\'')
    {
        std::replace(sToken.begin(), sToken.end(), '_', ' ');
        return CBytes(sToken.begin() + 1, sToken.end());
    }
    return { static_cast<unsigned char>(std::stoul(sToken, nullptr, 16)) };
}

// A digital 1.3 block of maker "ACI", product 0x27F4, without timings or texts, then tokens from each offset "@N" on.
// Standard timings are at 38, descriptors at 54, 72, 90 and 108.
CBytes MakeBase(const std::string& sParts)
{
    CBytes aui8Base(gsc_uiBlockSize);
    size_t uiAt = 0;
    std::istringstream oStream("@1 FF FF FF FF FF FF @8 04 69 F4 27 78 56 34 12 2C 15 01 03 80 3C 22 78 "
                               "@38 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 empty empty empty empty " +
                               sParts);
    for (std::string sToken; oStream >> sToken;)
    {
        if (sToken[0] == '@')
        {
            uiAt = std::stoul(sToken.substr(1));
            continue;
        }
        for (const unsigned char ui8Byte : ParseToken(sToken))
        {
            aui8Base.at(uiAt++) = ui8Byte;
        }
    }
    return FixChecksums(aui8Base);
}

class CLoadedBase : public CEdidBase
{
public:
    explicit CLoadedBase(const CBytes& aui8Data) { Load(aui8Data); }
    explicit CLoadedBase(const std::string& sParts) : CLoadedBase(MakeBase(sParts)) {}
    void Load(const CBytes& aui8Data) { EXPECT_EQ(1, SetEdidBuffer(aui8Data.data(), 128, 0)); }
};

// ---- Loading ----

TEST(Loading, TakesABlockElseEmptiesTheObjectInWhichTwoSettersWork)
{
    const CBytes aui8Block = MakeBase("");
    CLoadedBase oBase(aui8Block);
    for (unsigned int uiSize = 0; uiSize <= 257; ++uiSize)
    {
        CBytes aui8Data = aui8Block;
        aui8Data.resize(uiSize);
        oBase.Load(aui8Block);
        EXPECT_EQ(uiSize >= 128 ? 1 : 0, oBase.SetEdidBuffer(CopyToHeap(aui8Data).get(), uiSize, 0)) << uiSize;
        EXPECT_EQ(uiSize >= 128 ? aui8Block : CBytes(128), GetBytes(oBase)) << uiSize;
    }
    EXPECT_EQ(0, oBase.SetEdidBuffer(nullptr, 128, 0));
    oBase.SetSerialNumber(5);
    EXPECT_EQ(1, oBase.SetEstablishedFromId(CEdidBase::eEstablished640x480At60, 1, 1));
    EXPECT_EQ(0, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    CBytes aui8Expected(128); // the checksum byte is 0, too
    aui8Expected[12] = 5;
    aui8Expected[35] = 0x20;
    EXPECT_EQ(aui8Expected, GetBytes(oBase));
}

// Emptying, and a refused load, zero the slots of standard timings but keep the list of them: the count stays.
TEST(Loading, KeepsTheCountOfStandardTimingsWhenItEmpties)
{
    for (const bool bByLoading : { false, true })
    {
        CLoadedBase oBase("@38 81 C0 D1 C0");
        EXPECT_NE(bByLoading, (bByLoading ? oBase.SetEdidBuffer(nullptr, 128, 0) : oBase.ClearEdidBuffer()) != 0);
        EXPECT_EQ(2U, oBase.GetStandardCount());
        EXPECT_EQ(0, oBase.GetStandard(1U, nullptr, nullptr));
        EXPECT_EQ(0, oBase.RemoveStandard(1));
        EXPECT_EQ(CBytes(128), GetBytes(oBase));
        oBase.Load(MakeBase(""));
        EXPECT_EQ(0U, oBase.GetStandardCount());
    }
}

TEST(EdidSize, EndsAtTheFirstZeroBlock)
{
    for (const SCaseRow& oRow : ReadCases("EdidCore/golden/sizes.txt", 5))
    {
        SCOPED_TRACE(oRow.GetName());
        CBytes aui8Data(oRow.GetNumber(1));
        for (const unsigned int uiUsed : oRow.GetNumbers(2))
        {
            aui8Data[uiUsed] = 1;
        }
        CCapturedOutput oOutput;
        EXPECT_EQ(oRow.GetNumber(3), CEdidBase::GetEdidSizeFromData(oRow.GetNumber(1), CopyToHeap(aui8Data).get()));
        EXPECT_EQ(oRow.GetNumber(4), oOutput.TakeAssertionCount());
    }
    EXPECT_EQ(0U, CEdidBase::GetEdidSizeFromData(128, nullptr));
}

// ---- Identity ----

TEST(Identity, ExtensionCountNeedsVersion1AndIndex0)
{
    EXPECT_EQ(5U, CLoadedBase("@126 05").GetExtBlockType(0));
    EXPECT_EQ(0U, CLoadedBase("@126 05").GetExtBlockType(1));
    EXPECT_EQ(0U, CLoadedBase("@18 02 @126 05").GetExtBlockType(0));
}

// All names that the codes reach, in the order of the codes. Number and digest come from the published list, in which
// two of the 112 rows repeat a code.
TEST(Identity, EveryMakersName)
{
    CBytes aui8Base = MakeBase("");
    unsigned int uiNames = 0;
    unsigned int uiDigest = 2166136261U;
    for (unsigned int uiCode = 0; uiCode < 0x8000; ++uiCode)
    {
        aui8Base[8] = static_cast<unsigned char>(uiCode >> 8 | uiCode % 2 << 7); // bit 15 is not looked at
        aui8Base[9] = static_cast<unsigned char>(uiCode);
        const CLoadedBase oBase(aui8Base);
        char szId[8] = "";
        char szName[64] = "old";
        const int iLength = oBase.GetManufacturerName(szName, sizeof(szName));
        ASSERT_EQ(strlen(szName), static_cast<size_t>(iLength));
        ASSERT_EQ(7, oBase.GetMonitorID(szId, sizeof(szId)));
        uiNames += iLength != 0 ? 1U : 0U;
        for (const char c : iLength != 0 ? std::string(szId, 3) + szName : "")
        {
            uiDigest = (uiDigest ^ static_cast<unsigned char>(c)) * 16777619U;
        }
    }
    EXPECT_EQ(110U, uiNames);
    EXPECT_EQ(0x5026B9BAU, uiDigest);
}

// A text of a descriptor: result 1, or 0 for none, the rest of the buffer zeroed. Another one: the length, and a
// terminator. Below the smallest size nothing is written.
TEST(Identity, TextsFillTheGivenSizeAndNoMore)
{
    using FnGet = int (CEdidBase::*)(char*, unsigned int) const;
    const std::map<std::string, FnGet> oGetters = { { "id", &CEdidBase::GetMonitorID },
                                                    { "maker", &CEdidBase::GetManufacturerName },
                                                    { "name", &CEdidBase::GetMonitorName },
                                                    { "string", &CEdidBase::GetMonitorString },
                                                    { "serial", &CEdidBase::GetMonitorSerialNumber } };
    for (const SCaseRow& oRow : ReadCases("EdidCore/golden/texts.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        const CLoadedBase oBase(oRow.GetText(1));
        const FnGet pfnGet = oGetters.at(oRow.GetText(3));
        const unsigned int uiSmallest = oRow.GetText(3) == "id" ? 8 : 1;
        const bool bDescriptor = oRow.GetText(3) != "id" && oRow.GetText(3) != "maker";
        CBytes aui8Full;
        for (const std::string& sWord : oRow.GetWords(2))
        {
            Append(aui8Full, ParseToken(sWord));
        }
        EXPECT_EQ(0, (oBase.*pfnGet)(nullptr, 128));
        for (unsigned int uiSize = 0; uiSize <= 32; ++uiSize)
        {
            const bool bFits = uiSize >= uiSmallest;
            CBytes aui8Expected = aui8Full;
            aui8Expected.resize(bFits ? std::min<size_t>(aui8Full.size(), bDescriptor ? uiSize : uiSize - 1) : 0);
            const size_t uiExpected = bDescriptor && !aui8Expected.empty() ? 1 : aui8Expected.size();
            aui8Expected.resize(!bFits ? 0 : bDescriptor ? uiSize : aui8Expected.size() + 1);
            aui8Expected.resize(uiSize, 'Z');
            const std::unique_ptr<unsigned char[]> pui8Exact = CopyToHeap(CBytes(uiSize, 'Z'));
            char* const pszText = reinterpret_cast<char*>(pui8Exact.get());
            EXPECT_EQ(static_cast<int>(uiExpected), (oBase.*pfnGet)(pszText, uiSize)) << uiSize;
            EXPECT_EQ(aui8Expected, CBytes(pui8Exact.get(), pui8Exact.get() + uiSize));
        }
    }
}

TEST(Identity, RangeLimits)
{
    CEdidBase::SRangeLimits oLimits = { 1, 2, 3, 4, 5, 6 };
    EXPECT_EQ(0, CLoadedBase("").GetMonitorRangeLimits(oLimits));
    EXPECT_EQ(5U, oLimits.m_uiMinPixelClockInKiloHz);
    EXPECT_EQ(1, CLoadedBase("@90 00 00 00 FD 00 32 4C 18 53 FF").GetMonitorRangeLimits(oLimits));
    const CEdidBase::SRangeLimits oExpected = { 50, 76, 24, 83, 0, 2550000 };
    EXPECT_EQ(0, memcmp(&oExpected, &oLimits, sizeof(oLimits)));
}

// Digital, version 1, revision 4 or later; else refused, with a line for each condition that fails and one more.
TEST(VideoInput, DepthAndInterfaceOfEveryKindOfBlock)
{
    for (const CBytes& aui8Version : { CBytes{ 1, 3 }, { 1, 4 }, { 1, 5 }, { 2, 0 }, { 2, 4 } })
    {
        for (unsigned int uiInput = 0; uiInput <= 0xFF; uiInput += 0x0F) // every value of both nibbles
        {
            SCOPED_TRACE(testing::Message() << +aui8Version[0] << "." << +aui8Version[1] << " " << uiInput);
            CBytes aui8Data = MakeBase("");
            std::copy(aui8Version.begin(), aui8Version.end(), aui8Data.begin() + 18);
            aui8Data[20] = static_cast<unsigned char>(uiInput);
            CLoadedBase oBase(aui8Data);
            const unsigned int uiFailed =
                (uiInput < 0x80 ? 1U : 0U) + (aui8Version[0] != 1 ? 1U : 0U) + (aui8Version[1] < 4 ? 1U : 0U);
            const bool bHas = uiFailed == 0;
            CCapturedOutput oOutput;
            CEdidBase::EDigitalInterface eInterface = CEdidBase::eDigitalInterfaceMddi;
            EXPECT_EQ(bHas ? 1 : 0, oBase.GetDigitalVideoInterface(eInterface));
            EXPECT_EQ(bHas ? std::min(uiInput % 16, 6U) : 0U, static_cast<unsigned int>(eInterface));
            EXPECT_EQ(bHas ? 0 : uiFailed + 1, oOutput.TakeAssertionCount());

            CEdidBase::EColorBitDepth eDepth = CEdidBase::eColorBitDepth12;
            EXPECT_EQ(bHas ? 1 : 0, oBase.GetColorBitDepth(eDepth));
            EXPECT_EQ(bHas ? uiInput / 16 % 8 : 7U, static_cast<unsigned int>(eDepth));
            const unsigned int uiOther = 7 - uiInput / 16 % 8;
            EXPECT_EQ(bHas ? 1 : 0, oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(uiOther)));
            aui8Data[20] = static_cast<unsigned char>(bHas ? 0x80 + uiOther * 16 + uiInput % 16 : uiInput);
            EXPECT_EQ(bHas ? FixChecksums(aui8Data) : aui8Data, GetBytes(oBase));
        }
    }
}

// ---- Timings ----

int ReadTiming(const CEdidBase& oBase, const std::string& sList, unsigned int uiIndex, CVidParamTimingGeneric& oTiming)
{
    int iNative = 7;
    const auto eSlot = static_cast<CEdidBase::EStandardSlotIndex>(uiIndex);
    const int iResult = sList == "established" ? oBase.GetEstablished(uiIndex, &oTiming, 0)
                        : sList == "vesa"      ? oBase.GetEstablished(uiIndex, &oTiming, -1)
                        : sList == "standard"  ? oBase.GetStandard(uiIndex, &oTiming, &iNative)
                        : sList == "slot"      ? oBase.GetStandard(eSlot, &oTiming, &iNative)
                        : sList == "extra"     ? oBase.GetExtraStdTiming(uiIndex, oTiming)
                                               : oBase.GetDetailed(uiIndex, &oTiming);
    EXPECT_TRUE(iNative == 0 || sList[0] != 's');
    return iResult;
}

TEST(Timings, EachListByIndexWithoutAllocations)
{
    for (const SCaseRow& oRow : ReadCases("EdidCore/golden/lists.txt", 5))
    {
        SCOPED_TRACE(oRow.GetName());
        const std::string& sList = oRow.GetText(2);
        const CLoadedBase oBase(oRow.GetText(1));
        const CCountingAllocator oAllocator;
        EXPECT_EQ(oRow.GetNumber(3), sList == "established" ? oBase.GetEstablishedCount(0)
                                     : sList == "vesa"      ? oBase.GetEstablishedCount(2)
                                     : sList == "detailed"  ? oBase.GetDetailedCount()
                                                            : oBase.GetStandardCount());
        unsigned int uiIndex = 0;
        for (const std::string& sExpected : oRow.GetWords(4))
        {
            CVidParamTimingGeneric oTiming;
            const int iResult = ReadTiming(oBase, sList, uiIndex++, oTiming);
            EXPECT_EQ(sExpected[0] == '-' ? 0 : 1, iResult) << uiIndex;
            const std::string sName = oTiming.GetHorizontalActive() != 0 ? NameOf(oTiming) : "";
            EXPECT_EQ(sExpected, (iResult == 0 ? "-" : "") + sName) << uiIndex;
        }
        CVidParamTimingGeneric oTiming;
        EXPECT_EQ(0, ReadTiming(oBase, sList, 0xFFFFFFFF, oTiming));
        EXPECT_EQ(0U, oTiming.GetHorizontalActive());
        EXPECT_EQ(0U, oAllocator.GetAllocCount());
    }
    const CLoadedBase oBase("@38 81 C0");
    EXPECT_EQ(1, oBase.GetStandard(0U, nullptr, nullptr));
    EXPECT_EQ(0, oBase.GetStandardTiming(nullptr, nullptr));
}

// ---- Edits ----

// Flags other than 0 and 1 count as 1.
int Edit(CEdidBase& oBase, const std::string& sEdit, unsigned int ui)
{
    using EId = CEdidBase::EEstablishedTiming;
    CVidParamTimingGeneric oTiming;
    EXPECT_EQ(1, CLoadedBase("@54 720p").GetDetailed(0, &oTiming));
    const std::map<std::string, std::function<int()>> oEdits = {
        { "set", [&] { return oBase.SetEstablishedFromId(static_cast<EId>(ui), 2, -1); } },
        { "clear", [&] { return oBase.SetEstablishedFromId(static_cast<EId>(ui), 0, 1); } },
        { "set-index", [&] { return oBase.SetEstablished(ui, -1, 2); } },
        { "clear-index", [&] { return oBase.SetEstablished(ui, 0, 1); } },
        { "repack", [&] { return oBase.RePackStandards(), 1; } },
        { "remove-standard", [&] { return oBase.RemoveStandard(ui); } },
        { "remove-detailed", [&] { return oBase.RemoveDetailed(ui); } },
        { "prefer-720p", [&] { return oBase.SetPreferredMode(&oTiming); } },
        { "prefer-nothing", [&] { return oBase.SetPreferredMode(nullptr); } },
        { "serial", [&] { return oBase.SetSerialNumber(ui), 1; } },
        { "depth", [&] { return oBase.SetColorBitDepth(static_cast<CEdidBase::EColorBitDepth>(ui)); } },
    };
    return oEdits.at(sEdit)();
}

TEST(Edits, ChangeTheirBytesAndTheChecksumElseNothing)
{
    for (const SCaseRow& oRow : ReadCases("EdidCore/golden/edits.txt", 6))
    {
        SCOPED_TRACE(oRow.GetName());
        CLoadedBase oBase(oRow.GetText(1));
        EXPECT_EQ(oRow.GetText(5), std::to_string(Edit(oBase, oRow.GetText(3), oRow.GetNumber(4))));
        EXPECT_EQ(MakeBase(oRow.GetText(1) + " " + oRow.GetText(2)), GetBytes(oBase));
        EXPECT_EQ(CLoadedBase(GetBytes(oBase)).GetStandardCount(), oBase.GetStandardCount());
    }
}

TEST(Edits, KeepAWrongChecksumWhereTheValueStandsAlready)
{
    CBytes aui8Data = MakeBase("@18 01 04 A5");
    ++aui8Data[127];
    CLoadedBase oBase(aui8Data);
    oBase.SetSerialNumber(0x12345678);
    EXPECT_EQ(1, oBase.SetColorBitDepth(CEdidBase::eColorBitDepth8));
    EXPECT_EQ(aui8Data, GetBytes(oBase));
}
} // namespace

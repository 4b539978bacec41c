// Facts of hand-made images, of damaged ones, and of real ones against the map.

#include "FactsCheck.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "DisplayIdImages.h"
#include "FactsMaker.h"
#include "SharedFiles.h"
#include "TemporaryFile.h"
#include "TestBytes.h"

namespace
{
using CFacts = CZorEdidFacts;

CFacts ReadFacts(const CBytes& aui8Image)
{
    CFacts oFacts;
    const auto pui8Copy = CopyToHeap(aui8Image);
    oFacts.Read(static_cast<unsigned int>(aui8Image.size()), pui8Copy.get());
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), pui8Copy.get());
    EXPECT_EQ("", CheckFacts(oFacts, oMap));
    return oFacts;
}

// A base block of EDID 1.4: DisplayPort, 10 bits, 60 x 34 cm, gamma 2.2, RGB and both YCbCr, continuous; 48 to 144 Hz,
// limits only.
CBytes MakeBase()
{
    return ParseBytes(
        "00 FF*6 00 4C 2D 34 12 78 56 34 12 0A 1E 01 04 B5 3C 22 78 1B EE 91 A3 54 4C 99 26 0F 50 54 00*3"
        " 01*16 02 3A 80 18 71 38 2D 40 58 2C 45 00 58 54 21 00 00 1E 00 00 00 FD 00 30 90 1E DE 3C 01 0A"
        " 20*6 00 00 00 FC 00 50 61 6E 65 6C 00 41 41 0A 20*4 00 00 00 FF 00 53 4E 20 31 20 0D 0A 20*6 00 00");
}

CBytes MakeImage(const CBytes& aui8DataBlocks, unsigned char ui8Flags = 0xC0)
{
    CBytes aui8Cta = { 2, 3, static_cast<unsigned char>(4 + aui8DataBlocks.size()), ui8Flags };
    Append(aui8Cta, aui8DataBlocks);
    aui8Cta.resize(gsc_uiBlockSize);
    CBytes aui8Image = MakeBase();
    aui8Image[126] = 1;
    Append(aui8Image, aui8Cta);
    return FixChecksums(aui8Image);
}

CFacts ReadBlocks(const char* pszDataBlocks) { return ReadFacts(MakeImage(ParseBytes(pszDataBlocks))); }

CFacts ReadDisplayId(const CBytes& aui8DataBlocks, unsigned char ui8Version)
{
    CBytes aui8Image = MakeBase();
    CBytes aui8Block = MakeDisplayIdBlock(aui8DataBlocks);
    aui8Block[1] = ui8Version;
    aui8Image[126] = 1;
    Append(aui8Image, aui8Block);
    return ReadFacts(FixChecksums(aui8Image));
}

TEST(Facts, BaseBlock)
{
    const CFacts oFacts = ReadFacts(MakeBase());
    const CFacts::SIdentity& oIdentity = oFacts.GetIdentity();
    EXPECT_STREQ("SAM", oIdentity.m_oMaker.m_oValue.m_szLetters);
    EXPECT_EQ(0x1234U, oIdentity.m_oProduct.m_oValue);
    EXPECT_STREQ("Panel", oIdentity.m_oName.m_oValue.m_szText); // a zero ends it
    EXPECT_STREQ("SN 1", oIdentity.m_oSerialText.m_oValue.m_szText);
    EXPECT_EQ(2020U, oIdentity.m_oYear.m_oValue);
    EXPECT_FALSE(oIdentity.m_oModelYear.IsSaid());
    const CFacts::SSize& oSize = oFacts.GetSize();
    EXPECT_EQ((CFacts::SMillimetres{ 6000, 3400 }), oSize.m_oSize.m_oValue); // the timing's 600 x 340 mm agree
    EXPECT_EQ(eZorEdidField_BaseDetailedImageWidth, oSize.m_oSize.m_eId);
    EXPECT_NEAR(27.15, oSize.GetDiagonal(), 0.01);
    EXPECT_EQ((CFacts::SPixels{ 1920, 1080 }), oSize.m_oNative.m_oValue);
    EXPECT_EQ(60000U, oSize.m_oFirst.m_oValue.m_uiMilliHertz);
    const CFacts::SLink& oLink = oFacts.GetLink();
    EXPECT_EQ(CFacts::eLink_DisplayPort, oLink.m_oKind.m_oValue);
    ASSERT_EQ(1U, oLink.m_uiRanges);
    EXPECT_EQ(CFacts::eRefreshSource_RangeLimits, oLink.m_aoRanges[0].m_eSource);
    EXPECT_EQ(144U, oLink.m_aoRanges[0].m_uiMost);
    EXPECT_FALSE(oLink.m_oAllm.IsSaid());
    EXPECT_EQ(10, oFacts.GetColour().m_oDepth.m_oValue);
    EXPECT_EQ(7, oFacts.GetColour().m_oFormats.m_oValue);
    EXPECT_FLOAT_EQ(2.2F, oFacts.GetColour().m_oGamma.m_oValue);
}

// Of HDMI's Image_Size: a mere ratio is not a size, units of 5 cm are five times as long.
TEST(Facts, ImageSizeOfHdmi)
{
    const auto fnSize = [](unsigned char ui8Image) {
        CBytes aui8Blocks = ParseBytes("6A 03 0C 00 10 00 00 00 20 00 00");
        aui8Blocks[9] = static_cast<unsigned char>(ui8Image << 3);
        return ReadFacts(MakeImage(aui8Blocks)).GetSize().m_oSize;
    };
    EXPECT_FALSE(fnSize(1).IsSaid());
    EXPECT_EQ((CFacts::SMillimetres{ 6000, 3400 }), fnSize(2).m_oValue);
    EXPECT_EQ((CFacts::SMillimetres{ 30000, 17000 }), fnSize(3).m_oValue);
}

// 16 by 9 in bytes 15h and 16h is a ratio of a television.
TEST(Facts, RatioInPlaceOfASize)
{
    const CBytes aui8Image = WithChange(WithChange(MakeImage({}), 21, 160), 22, 90);
    const CFacts::SSize oRatio = ReadFacts(FixChecksums(aui8Image)).GetSize();
    EXPECT_FALSE(oRatio.m_oSize.IsSaid());
    EXPECT_EQ(178U, oRatio.m_oAspect.m_oValue);
}

TEST(Facts, HdmiBlocks)
{
    const CFacts oFacts = ReadBlocks("6C 03 0C 00 20 00 F8 44 C0 02 FF 03 00"
                                     " 6D D8 5D C4 01 78 80 60 46 70 90 CF 62 0F");
    const CFacts::SLink& oLink = oFacts.GetLink();
    EXPECT_EQ(21, oLink.m_oHdmiVersion.m_oValue);
    EXPECT_EQ(0x2000, oLink.m_oPhysicalAddress.m_oValue);
    EXPECT_EQ(600000U, oLink.m_oMaxTmds.m_oValue);
    EXPECT_TRUE(oLink.HasScrambling());
    EXPECT_EQ((CFacts::SFrl{ 4, 12 }), oLink.m_oFrl.m_oValue);
    EXPECT_TRUE(oLink.m_oAllm.m_oValue);
    EXPECT_TRUE(oLink.m_oQms.m_oValue);
    EXPECT_TRUE(oLink.m_oCinemaVrr.IsSaid());
    EXPECT_FALSE(oLink.m_oCinemaVrr.m_oValue);
    ASSERT_EQ(2U, oLink.m_uiRanges);
    EXPECT_EQ(48U, oLink.m_aoRanges[1].m_uiLeast);
    EXPECT_EQ(400U, oLink.m_aoRanges[1].m_uiMost);
    EXPECT_EQ((CFacts::SSlices{ 2, 340 }), oLink.m_oDscSlices.m_oValue);
    EXPECT_EQ(16 * 1024U, oLink.m_oDscChunk.m_oValue);
    EXPECT_EQ(CFacts::eRefreshSource_HdmiForum, oLink.m_aoRanges[1].m_eSource);
    EXPECT_EQ(2, oFacts.GetAudio().m_oVideoLatency.m_oValue);
    EXPECT_EQ(CFacts::msc_iNotSupported, oFacts.GetAudio().m_oAudioLatency.m_oValue);
    EXPECT_EQ(4, oFacts.GetAudio().m_oInterlacedVideoLatency.m_oValue);
    EXPECT_FALSE(oFacts.GetAudio().m_oInterlacedAudioLatency.IsSaid()); // 0: not indicated
    EXPECT_EQ(CFacts::eLink_DisplayPort, oLink.m_oKind.m_oValue);
    ASSERT_EQ(1U, oFacts.GetConflictCount()); // the link
    EXPECT_EQ(CFacts::eQuestion_Link, oFacts.GetConflict(0)->m_eQuestion);
    EXPECT_EQ(eZorEdidField_CtaHdmi, oFacts.GetConflict(0)->m_eOther);
    EXPECT_EQ(nullptr, oFacts.GetConflict(1));
}

TEST(Facts, ColourBlocks)
{
    const CFacts oFacts = ReadBlocks("E3 05 C0 00 E6 06 0D 01 73 5A 01 E2 00 C0 EB 01 46 D0 00 4D 01 48 0A 83 5A 60"
                                     " E5 01 8B 84 90 01 E3 0F 00 01");
    const CFacts::SColour& oColour = oFacts.GetColour();
    EXPECT_EQ(CFacts::eColorimetry_Bt2020Rgb | CFacts::eColorimetry_Bt2020Ycc, oColour.m_oColorimetry.m_oValue);
    EXPECT_EQ(CFacts::eEotf_Sdr | CFacts::eEotf_Pq | CFacts::eEotf_Hlg, oColour.m_oEotfs.m_oValue);
    EXPECT_NEAR(603.666, oColour.m_oContentMax.m_oValue.m_fLuminance, 0.001);
    EXPECT_NEAR(351.250, oColour.m_oContentMaxFrameAverage.m_oValue.m_fLuminance, 0.001);
    EXPECT_TRUE(oColour.m_oSelectableRgb.m_oValue);
    EXPECT_EQ(2, oColour.m_oDolbyVision.m_oValue.m_ui8Version);
    EXPECT_EQ(1, oColour.m_oHdr10Plus.m_oValue.m_ui8Version);
    EXPECT_EQ(15, oColour.m_oFormats.m_oValue);
    EXPECT_TRUE(oColour.IsSupported(CFacts::eSpace_Bt2020, CFacts::eTransfer_Pq));
    EXPECT_FALSE(oColour.IsSupported(CFacts::eSpace_DciP3, CFacts::eTransfer_Pq));
}

// The same numbers as the map has for these blocks, in three codings.
TEST(Facts, LuminancesOfDolbyVision)
{
    const struct
    {
        const char* m_pszBlock;
        float m_fMaximum;
        float m_fMinimum;
    } aoCases[] = {
        { "F5 01 46 D0 00 07 12 AE 52 00 00 00 00 00 00 00 00 00 3A 00 C8 21", 1341.61F, 0.000025F },
        { "EB 01 46 D0 00 26 19 09 AD 88 53 6C", 700, 0.00099F },
        { "EB 01 46 D0 00 44 9F 4B A2 39 25 B3", 371.60F, 0.267103F },
        { "EB 01 46 D0 00 7F 01 02 03 04 05 06", 0, 0 }, // a version that is not known
    };
    for (const auto& oCase : aoCases)
    {
        const CFacts::SDolbyVision oDolby = ReadBlocks(oCase.m_pszBlock).GetColour().m_oDolbyVision.m_oValue;
        EXPECT_NEAR(oCase.m_fMaximum, oDolby.m_fMaxLuminance, 0.01F) << oCase.m_pszBlock;
        EXPECT_NEAR(oCase.m_fMinimum, oDolby.m_fMinLuminance, 0.000001F) << oCase.m_pszBlock;
    }
}

TEST(Facts, Audio)
{
    const CFacts::SAudio oAudio = ReadBlocks("2C 0F 7F 07 15 07 50 7F 07 58 78 01 00 83 4F 00 01").GetAudio();
    ASSERT_EQ(4U, oAudio.m_uiFormats);
    EXPECT_EQ(8, oAudio.m_aoFormats[0].m_ui8Channels);
    EXPECT_EQ(7, oAudio.m_aoFormats[0].m_ui8Sizes);
    EXPECT_EQ(640, oAudio.m_aoFormats[1].m_ui16BitRate);
    EXPECT_EQ(11, oAudio.m_aoFormats[2].m_ui8Extended); // MPEG-H: a level, no channels
    EXPECT_EQ(0, oAudio.m_aoFormats[2].m_ui8Channels);
    EXPECT_EQ(0x01004FU, oAudio.m_oSpeakers.m_oValue);
    EXPECT_TRUE(oAudio.m_oAudio.m_oValue);
}

// DisplayID describes the panel better than the base block does, and a difference is noted.
TEST(Facts, DisplayId)
{
    CBytes aui8Blocks = MakeDataBlock(
        0x21, 0x80,
        ParseBytes("55 02 50 01 00 0F 70 08 00 C7 0A 55 A5 33 99 28 26 0C 50 54 00 00 5C 80 5E 00 24 13 78"));
    Append(aui8Blocks, MakeDataBlock(0x2B, 0, ParseBytes("05 10 30 77 00 20 00 00 28 EF 00 00")));
    Append(aui8Blocks, MakeDataBlock(0x7E, 0, ParseBytes("3A 02 92 01 42")));
    const CFacts oFacts = ReadDisplayId(aui8Blocks, 0x20);
    EXPECT_EQ((CFacts::SMillimetres{ 5970, 3360 }), oFacts.GetSize().m_oSize.m_oValue);
    EXPECT_EQ(eZorEdidField_DisplayidParametersImageWidth, oFacts.GetSize().m_oSize.m_eId);
    EXPECT_EQ((CFacts::SPixels{ 3840, 2160 }), oFacts.GetSize().m_oNative.m_oValue);
    EXPECT_FLOAT_EQ(256.0F, oFacts.GetColour().m_oMaxLuminance.m_oValue);
    ASSERT_EQ(3U, oFacts.GetLink().m_uiRanges);
    const CFacts::SVariableRefresh& oRange = oFacts.GetLink().m_aoRanges[1];
    EXPECT_EQ(48U, oRange.m_uiLeast);
    EXPECT_EQ(120U, oRange.m_uiMost);
    EXPECT_TRUE(oRange.m_bNative && oRange.m_bSeamless && oRange.m_bAdaptive);
    EXPECT_EQ(240U, oFacts.GetLink().m_aoRanges[2].m_uiMost);
    EXPECT_EQ(4, oFacts.GetLink().m_oMsoStreams.m_oValue);
    EXPECT_EQ(2, oFacts.GetLink().m_oMsoOverlap.m_oValue);
    EXPECT_LT(0U, oFacts.GetConflictCount());
}

TEST(Facts, KindByOtherBlocks)
{
    CBytes aui8Image = MakeBase();
    aui8Image.resize(2 * gsc_uiBlockSize);
    aui8Image[126] = 1;
    aui8Image[128] = 0x40;
    aui8Image[128 + 0x1A] = 1;
    EXPECT_EQ(CFacts::eKind_Projector, ReadFacts(aui8Image).GetSize().m_oKind.m_oValue);
    const CFacts oHeadset = ReadBlocks("75 5C 12 CA 03 07 00*16");
    EXPECT_EQ(CFacts::eKind_HeadMounted, oHeadset.GetSize().m_oKind.m_oValue);
    EXPECT_TRUE(oHeadset.GetSize().m_oDesktop.IsSaid());
    EXPECT_FALSE(oHeadset.GetSize().m_oDesktop.m_oValue);
    EXPECT_TRUE(oHeadset.GetIdentity().m_oContainerId.IsSaid());
}

// Bytes that say nothing leave nothing said, whatever was read before.
TEST(Facts, RefusedBytes)
{
    CBytes aui8Image = MakeImage({});
    CFacts oFacts = ReadFacts(aui8Image);
    EXPECT_EQ(0, oFacts.Read(0, nullptr));
    EXPECT_EQ(0, oFacts.Read(127, aui8Image.data()));
    EXPECT_FALSE(oFacts.GetIdentity().m_oMaker.IsSaid());
    aui8Image[1] = 0; // of the header
    EXPECT_EQ(1, oFacts.Read(256, aui8Image.data()));
    aui8Image = MakeImage({});
    aui8Image[126] = 0;
    EXPECT_FALSE(ReadFacts(aui8Image).GetLink().m_oCtaRevision.IsSaid()); // not announced
}

// A block that may say more than is read of it makes a denial of audio no answer.
TEST(Facts, UnreadBlocks)
{
    const CBytes aui8Cta = MakeImage(ParseBytes("67 03 0C 00 10 00 00 2D"), 0x00);
    CBytes aui8DisplayId = MakeBase();
    aui8DisplayId[126] = 1;
    Append(aui8DisplayId, MakeDisplayIdBlock(ParseBytes("26 00 09 00*9 81 00 03 E2 00 0F")));
    const auto fnChange = [](CBytes aui8Image, size_t uiAt, unsigned char ui8Byte) {
        aui8Image[uiAt] = ui8Byte;
        return FixChecksums(aui8Image);
    };
    CBytes aui8Sum = aui8Cta;
    aui8Sum[255] ^= 1;
    CBytes aui8OldRevision = fnChange(fnChange(aui8Cta, 129, 1), 130, 4);
    const struct
    {
        const char* m_pszWhat;
        CBytes m_aui8Image;
        CFacts::EUnread m_eReason;
    } aoCases[] = {
        { "whole", aui8Cta, CFacts::eUnread_None },
        { "not there", CBytes(aui8Cta.begin(), aui8Cta.begin() + 128), CFacts::eUnread_Missing },
        { "the second one not there", fnChange(aui8Cta, 126, 2), CFacts::eUnread_Missing },
        { "cut", CBytes(aui8Cta.begin(), aui8Cta.begin() + 200), CFacts::eUnread_Cut },
        { "no tag", fnChange(aui8Cta, 128, 0), CFacts::eUnread_Kind },
        { "video timing block", fnChange(aui8Cta, 128, 0x10), CFacts::eUnread_None },
        { "a later revision", fnChange(aui8Cta, 129, 4), CFacts::eUnread_Revision },
        { "data blocks in revision 1", fnChange(aui8Cta, 129, 1), CFacts::eUnread_Revision },
        { "no data blocks in revision 1", aui8OldRevision, CFacts::eUnread_None },
        { "timings outside of the block", fnChange(aui8Cta, 130, 0xF7), CFacts::eUnread_Offset },
        { "timings within the header", fnChange(aui8Cta, 130, 3), CFacts::eUnread_Offset },
        { "data blocks that it says it has not", fnChange(aui8Cta, 130, 0), CFacts::eUnread_Offset },
        { "a data block across the timings", fnChange(aui8Cta, 132, 0x68), CFacts::eUnread_Length },
        { "a wrong checksum", aui8Sum, CFacts::eUnread_Checksum },
        { "not counted", fnChange(aui8Cta, 126, 0), CFacts::eUnread_NotCounted },
        { "DisplayID", FixChecksums(aui8DisplayId), CFacts::eUnread_None },
        { "version 3", fnChange(aui8DisplayId, 129, 0x30), CFacts::eUnread_Revision },
        { "a long section", fnChange(aui8DisplayId, 130, 124), CFacts::eUnread_Length },
        { "a long data block", fnChange(aui8DisplayId, 147, 4), CFacts::eUnread_Length },
        { "a long data block in it", fnChange(aui8DisplayId, 148, 0xE3), CFacts::eUnread_Length },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszWhat);
        const CFacts oFacts = ReadFacts(oCase.m_aui8Image);
        EXPECT_EQ(oCase.m_eReason, oFacts.GetUnread().m_eReason);
        const SZorFact<bool>& oAudio = oFacts.GetAudio().m_oAudio;
        EXPECT_FALSE(oAudio.IsSaid() && (oAudio.m_oValue || oCase.m_eReason != CFacts::eUnread_None));
    }
    EXPECT_TRUE(ReadFacts(aui8Cta).GetAudio().m_oAudio.IsSaid());
    EXPECT_EQ(2U, ReadFacts(fnChange(aui8Cta, 126, 2)).GetUnread().m_uiBlock);
}

// The base block is full, or has a name already.
TEST(Facts, TextsInACta861Block)
{
    CBytes aui8Image = MakeImage({});
    aui8Image[111] = 0x10; // its serial number becomes an empty descriptor
    const CBytes aui8Texts =
        ParseBytes("00 00 00 FF 00 43 54 41 0A 20*9 00 00 00 FC 00 4F 74 68 65 72 0A 20*7 00 00 00 FE 00 54 0A 20*11");
    std::copy(aui8Texts.begin(), aui8Texts.end(), aui8Image.begin() + 132);
    const CFacts::SIdentity oIdentity = ReadFacts(FixChecksums(aui8Image)).GetIdentity();
    EXPECT_STREQ("CTA", oIdentity.m_oSerialText.m_oValue.m_szText);
    EXPECT_EQ(137U, oIdentity.m_oSerialText.m_ui16Offset);
    EXPECT_STREQ("Panel", oIdentity.m_oName.m_oValue.m_szText);
    EXPECT_STREQ("T", oIdentity.m_oText.m_oValue.m_szText);
}

// Of the base block's color type, before EDID 1.4.
TEST(Facts, MonochromeUnlessSomethingHasColours)
{
    CBytes aui8Image = MakeImage({}, 0x40);
    aui8Image[19] = 3;
    aui8Image[24] = 0x02;
    EXPECT_TRUE(ReadFacts(FixChecksums(aui8Image)).GetColour().m_oMonochrome.m_oValue);
    EXPECT_FALSE(ReadFacts(aui8Image).GetColour().IsMonochrome()); // by its primaries
    std::fill_n(aui8Image.begin() + 25, 10, static_cast<unsigned char>(0));
    EXPECT_TRUE(ReadFacts(FixChecksums(aui8Image)).GetColour().IsMonochrome());
    aui8Image[131] |= 0x20; // YCbCr 4:4:4
    EXPECT_FALSE(ReadFacts(FixChecksums(aui8Image)).GetColour().IsMonochrome());
}

// A list that is given, the library's own, then that of the system.
TEST(Facts, MakerName)
{
    const std::string sList = "SAM\tA Name of a List\r\nABC\tOther\nACI\tLater\n";
    const CTemporaryFile oFile(".ids", sList.data(), sList.size());
    const char* const pszList = oFile.GetPath();
    CMString sName = "before";
    EXPECT_EQ(1, CFacts::FindMakerName("SAM", sName, pszList));
    EXPECT_STREQ("A Name of a List", sName);
    EXPECT_EQ(1, CFacts::FindMakerName("DEL", sName, pszList));
    EXPECT_STREQ("Dell Computer Corp.", sName);
    EXPECT_EQ(1, CFacts::FindMakerName("ACI", sName)); // whatever the system's list calls it
    EXPECT_STREQ("ASUSTek Computer Inc.", sName);
    EXPECT_TRUE(ZorFacts::FindMaker("DEL", nullptr, pszList, sName));
    EXPECT_TRUE(ZorFacts::FindMaker("ACI", nullptr, pszList, sName));
    EXPECT_STREQ("ASUSTek Computer Inc.", sName);
    EXPECT_TRUE(ZorFacts::FindMaker("ABC", nullptr, pszList, sName));
    EXPECT_STREQ("Other", sName);
    EXPECT_TRUE(ZorFacts::FindMaker("ACI", pszList, nullptr, sName));
    EXPECT_STREQ("Later", sName);
    EXPECT_EQ(0, CFacts::FindMakerName("@@@", sName, "/nowhere"));
    EXPECT_EQ(0, CFacts::FindMakerName("SAMS", sName));
    EXPECT_STREQ("Later", sName);
}

TEST(Facts, RealImagesSayWhatTheMapHas)
{
    for (const auto& [sName, aui8Image] :
         ReadImages(std::string(ZOREDID_SHARED_DIR).empty() ? "" : ZOREDID_SHARED_DIR "/corpus"))
    {
        SCOPED_TRACE(sName);
        ReadFacts(aui8Image);
    }
}
} // namespace

// The net under every edit: results of a wrong edit, made by hand, are refused with what would read differently.

#include <gtest/gtest.h>

#include "ByteDiff.h"
#include "CapturedOutput.h"
#include "Damages.h"
#include "EditVerify.h"
#include "SharedFiles.h"
#include "TestBytes.h"

namespace
{
// The monitor of the examples as one of EDID 1.4, with 17 established timings and 7 pairs; a CTA-861 block, and one
// that the library does not read. The first three detailed timings are called native: one of the base block, two here.
//   04  three codes              08  two audio descriptors, of which the first has its reserved bit set
//   0f  speakers                 13  HDMI with deep colours
//   1c  another vendor           22, 34  detailed timings
CBytes MakeImage()
{
    CBytes aui8Image = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
    const CBytes aui8Detaileds(aui8Image.begin() + 0xA2, aui8Image.begin() + 0xA2 + 36);
    aui8Image.resize(128);
    aui8Image[0x13] = 4;
    aui8Image[0x14] = 0xA5; // 8 bits per colour, DisplayPort
    aui8Image[0x7E] = 2;
    Append(aui8Image, ParseBytes("02 03 22 33 43 90 04 05 26 89 07 07 15 07 50 83 01 F8 40 68 03 0C 00 10 00 B8 2D 00 "
                                 "65 D8 5D C4 01 02"));
    Append(aui8Image, aui8Detaileds);
    aui8Image.resize(256);
    aui8Image.resize(384, 0x10);
    return FixChecksums(aui8Image);
}

struct SWrongEdit
{
    const char* m_pszName;
    EEditKind m_eKind;
    const char* m_pszValue;
    std::vector<SDamage> m_aoDamages; // to the image that a right edit has left
    const char* m_pszField;           // that would read differently, with its block
    bool m_bFixChecksums = true;
};

void PrintTo(const SWrongEdit& oCase, std::ostream* poStream) { *poStream << oCase.m_pszName; }

class EditVerify : public testing::TestWithParam<SWrongEdit>
{
protected:
    const CQuietMessages m_oQuiet;
};

SEdit MakeEdit(EEditKind eKind, const char* pszValue)
{
    SEdit oEdit = {};
    for (const SEditOption& oOption : GetEditOptions())
    {
        if (oOption.m_eKind == eKind)
        {
            EXPECT_EQ("", ParseEdit(oOption, pszValue, oEdit));
        }
    }
    return oEdit;
}

void ExpectRefusal(const CBytes& aui8Read, const SWrongEdit& oCase)
{
    CEditImage oImage;
    ASSERT_TRUE(oImage.Load(aui8Read));
    ASSERT_EQ("", oImage.Apply(MakeEdit(oCase.m_eKind, oCase.m_pszValue)));
    ASSERT_EQ("", VerifyEdits(aui8Read, oImage.GetBytes(), oImage.GetBlocks()));
    CBytes aui8Edited = WithDamages(oImage.GetBytes(), oCase.m_aoDamages);
    aui8Edited = oCase.m_bFixChecksums ? FixChecksums(aui8Edited) : aui8Edited;
    std::string sFault = VerifyEdits(aui8Read, aui8Edited, oImage.GetBlocks());
    const size_t uiGroups = sFault.rfind(" > ");
    sFault.erase(sizeof("block 0:"),
                 uiGroups == std::string::npos ? 0 : uiGroups + sizeof(" > ") - 1 - sizeof("block 0:"));
    EXPECT_EQ(std::string(oCase.m_pszField) + " would read differently", sFault) << oCase.m_pszName;
}

TEST_P(EditVerify, RefusesWhatNoEditNamed) { ExpectRefusal(MakeImage(), GetParam()); }

const SWrongEdit gsc_aoWrongEdits[] = {
    { "ForeignByteOfTheBase", eEdit_Serial, "5", { { 8, "05" } }, "block 0: ID manufacturer name" },
    { "ForeignDescriptor", eEdit_Serial, "5", { { 0x4D, "42" } }, "block 0: Text" },
    { "OtherSerial", eEdit_Serial, "5", { { 12, "05 01" } }, "block 0: ID serial number" },
    { "HighByteOfSerial", eEdit_Serial, "5", { { 15, "01" } }, "block 0: ID serial number" },
    { "WrongChecksum", eEdit_Serial, "5", { { 0x7F, "00" } }, "block 0: Checksum", false },
    { "PairGoneUnnamed", eEdit_Serial, "5", { { 0x26, "01 01" } }, "block 0: Horizontal addressable pixels" },
    // Of 71 4F 81 C0 81 40 81 80 95 00 B3 00 D1 C0 the first one is gone, and the others have moved up.
    { "SecondPairGone", eEdit_RemoveStandard, "0", { { 0x26, "01 01" } }, "block 0: Standard timing 1" },
    { "OtherPairGone", eEdit_RemoveStandard, "0", { { 0x26, "71 4F" } }, "block 0: Horizontal addressable pixels" },
    { "PairsInOtherOrder", eEdit_RemoveStandard, "0", { { 0x26, "81 40 81 C0" } }, "block 0: Standard timing 1" },
    { "PairTwice", eEdit_RemoveStandard, "0", { { 0x28, "81 C0" } }, "block 0: Image aspect ratio" },
    { "PairNotGone", eEdit_RemoveStandard, "0", { { 0x32, "71 4F" } }, "block 0: Standard timing 6" },
    { "ForeignEstablished", eEdit_RemoveEstablished, "0", { { 0x23, "00" } }, "block 0: 640 x 480 @ 60 Hz" },
    { "EstablishedNotGone", eEdit_RemoveEstablished, "0", { { 0x23, "B7" } }, "block 0: 720 x 400 @ 70 Hz" },
    { "InterfaceWithDepth", eEdit_ColorDepth, "10", { { 0x14, "B4" } }, "block 0: Digital video interface standard" },
    { "OtherDepth", eEdit_ColorDepth, "10", { { 0x14, "C5" } }, "block 0: Color bit depth" },
    { "PreferredClock", eEdit_Preferred, "1280x720@60", { { 0x36, "02" } }, "block 0: Pixel clock" },
    { "PreferredPolarity", eEdit_Preferred, "1280x720@60", { { 0x47, "1A" } }, "block 0: Pixel clock" },
    { "PreferredInStereo", eEdit_Preferred, "1280x720@60", { { 0x47, "3E" } }, "block 0: Stereo viewing support" },
    { "PreferredBorder", eEdit_Preferred, "1280x720@60", { { 0x46, "01" } }, "block 0: Vertical border" },
    { "PreferredImageSize",
      eEdit_Preferred,
      "1280x720@60",
      { { 0x42, "00" } },
      "block 0: Horizontal addressable video image size" },
    { "LimitsNotWidened", eEdit_Preferred, "1920x1080@30", { { 0x5F, "32" } }, "block 0: Minimum vertical rate" },
    { "OtherLimitsToo", eEdit_Preferred, "1920x1080@30", { { 0x60, "56" } }, "block 0: Maximum vertical rate" },
    { "NameWithPreferred", eEdit_Preferred, "1280x720@60", { { 0x71, "42" } }, "block 0: Text" },
    { "PreferredGone", eEdit_RemoveDetailed, "1", { { 0x36, "00*3 10 00*14" } }, "block 0: Detailed timing" },
    // Codes 16 (native), 4 and 5 are the timings 7 to 12, each with its 1000/1001 variant.
    { "SecondCodeGone", eEdit_RemoveStandard, "7", { { 0x84, "41 05 E0" } }, "block 1: Short video descriptor 1" },
    { "CodeChanged", eEdit_RemoveStandard, "7", { { 0x85, "05" } }, "block 1: Short video descriptor 1" },
    { "CodesInOtherOrder", eEdit_RemoveStandard, "7", { { 0x85, "05 04" } }, "block 1: Short video descriptor 1" },
    { "CodeMadeNative", eEdit_RemoveStandard, "7", { { 0x85, "84" } }, "block 1: Native" },
    { "AudioWithCode", eEdit_RemoveStandard, "7", { { 0x88, "88" } }, "block 1: Maximum number of channels" },
    { "DetailedWithCode", eEdit_RemoveStandard, "7", { { 0xA1, "8D" } }, "block 1: Pixel clock" },
    { "StartNotMoved", eEdit_RemoveStandard, "7", { { 0x82, "22" } }, "block 1: Speaker allocation data block 1" },
    { "NativesNotLowered",
      eEdit_RemoveDetailed,
      "1",
      { { 0x83, "33" } },
      "block 1: Total number of native formats in the detailed timing descriptors" },
    { "OtherDetailedGone",
      eEdit_RemoveDetailed,
      "1",
      { { 0xA2, "8C 0A D0 8A 20 E0 2D 10 10 3E 96" } },
      "block 1: Pixel clock" },
    { "BytesBehindDetaileds", eEdit_RemoveDetailed, "1", { { 0xF0, "01" } }, "block 1: Padding" },
    { "DeepColorElsewhere", eEdit_DeepColor, "30,48", { { 0x99, "58" } }, "block 1: Supports_AI" },
    { "WrongDeepColor", eEdit_DeepColor, "30,48", { { 0x99, "B8" } }, "block 1: DC_48bit" },
    { "OtherVendorWithDeepColor", eEdit_DeepColor, "30", { { 0xA1, "03" } }, "block 1: Max_TMDS_Character_Rate" },
    { "ReservedBitOfAudio", eEdit_AudioSet, "0=pcm,2ch,48,16", { { 0x89, "09" } }, "block 1: Reserved" },
    { "OtherAudioChanged", eEdit_AudioSet, "0=pcm,2ch,48,16", { { 0x8E, "51" } }, "block 1: Maximum bit rate" },
    { "AudiosInOtherOrder",
      eEdit_AudioAdd,
      "ac3,6ch,48,640kbps",
      { { 0x89, "15 07 50 89 07 07" } },
      "block 1: Short audio descriptor 0" },
    { "AudioNotAdded",
      eEdit_AudioAdd,
      "ac3,6ch,48,640kbps",
      { { 0x8F, "15 04 00" } },
      "block 1: Short audio descriptor 2" },
    { "BasicAudioCleared", eEdit_AudioAdd, "ac3,6ch,48,640kbps", { { 0x83, "33" } }, "block 1: Basic audio" },
    { "SpeakersWithAudio", eEdit_AudioRemove, "0", { { 0x8D, "03" } }, "block 1: LFE1 Low frequency effects 1" },
    { "WrongSpeakers", eEdit_Speakers, "FL/FR+LFE", { { 0x90, "01" } }, "block 1: LFE1 Low frequency effects 1" },
    { "SpeakersOfLaterEditions",
      eEdit_Speakers,
      "FL/FR+LFE",
      { { 0x91, "00" } },
      "block 1: TpSiL/TpSiR Top side left/right" },
    { "LastSpeakerByte", eEdit_Speakers, "FL/FR+LFE", { { 0x92, "00" } }, "block 1: Reserved" },
    { "DataBlocksInOtherOrder",
      eEdit_Speakers,
      "FL/FR+LFE",
      { { 0x93, "65 D8 5D C4 01 02 68 03 0C 00 10 00 B8 2D 00" } },
      "block 1: HDMI vendor-specific data block" },
    { "DataBlockGone",
      eEdit_Speakers,
      "FL/FR+LFE",
      { { 0x9C, "E5 00" } },
      "block 1: HDMI Forum vendor-specific data block" },
    { "DataBlockOverTheEnd", eEdit_Speakers, "FL/FR+LFE", { { 0x9C, "66" } }, "a length" },
    { "Revision", eEdit_Speakers, "FL/FR+LFE", { { 0x81, "02" } }, "block 1: Revision number" },
    { "FlagsOfTheBlock", eEdit_Speakers, "FL/FR+LFE", { { 0x83, "B3" } }, "block 1: Underscan" },
    { "WrongChecksumOfTheBlock", eEdit_Speakers, "FL/FR+LFE", { { 0xFF, "00" } }, "block 1: Checksum", false },
    { "BlockThatNoEditNamed", eEdit_Serial, "5", { { 0x99, "98" } }, "block 1: DC_36bit" },
    { "BlockThatIsNotRead", eEdit_Serial, "5", { { 0x17E, "11" } }, "block 2: Timing, cut short" },
    { "RepairOfMoreThanChecksums", eEdit_RepairChecksums, "", { { 0x17E, "11" } }, "block 2: Timing, cut short" },
    { "RepairOfNothing", eEdit_RepairChecksums, "", { { 0x17F, "01" } }, "block 2: Checksum", false },
};
INSTANTIATE_TEST_SUITE_P(Wrong, EditVerify, testing::ValuesIn(gsc_aoWrongEdits),
                         [](const auto& oInfo) { return std::string(oInfo.param.m_pszName); });

// Video codes 16, 4, 5 and 31 with 3D formats, which name them by place: those of the mask (16, 5, and a place with no
// code), and one format each for 16, 4 and 5. A map says that 16 and 5 come in 4:2:0, too. Without code 4:
//   04  43 90 05 1f        11  video fields, one HDMI code        14  formats of the mask, and the mask 40 03
//   18  formats 06 16      1a  a byte after them                  1b  e2 0f 03
TEST_F(EditVerify, RefusesPlacesThatNoLongerNameTheirCodes)
{
    CBytes aui8Image = MakeImage();
    aui8Image.resize(128);
    aui8Image[0x7E] = 1;
    Append(aui8Image,
           ParseBytes("02 03 21 40 44 90 04 05 1F 74 03 0C 00 10 00 B8 2D 20 C0 28 03 01 40 80 05 06 18 00 26 "
                      "77 E2 0F 05 ..128"));
    aui8Image = FixChecksums(aui8Image);
    const SWrongEdit aoCases[] = {
        { "mask as it was",
          eEdit_RemoveStandard,
          "9",
          { { 0x96, "80 05" } },
          "block 1: Video code 31, 1920x1080p 50 Hz 16:9" },
        { "mask without the last code",
          eEdit_RemoveStandard,
          "9",
          { { 0x97, "01" } },
          "block 1: Video code 5, 1920x1080i 59.94/60 Hz 16:9" },
        { "mask without the place of no code",
          eEdit_RemoveStandard,
          "9",
          { { 0x96, "00" } },
          "block 1: Place without a video code 15" },
        { "other formats of the mask", eEdit_RemoveStandard, "9", { { 0x95, "C0" } }, "block 1: Reserved" },
        { "format as it was", eEdit_RemoveStandard, "9", { { 0x99, "26" } }, "block 1: 2D_VIC_order" },
        { "other format", eEdit_RemoveStandard, "9", { { 0x98, "00" } }, "block 1: 3D_Structure" },
        { "formats in another order", eEdit_RemoveStandard, "9", { { 0x98, "16 06" } }, "block 1: 3D format 0" },
        { "byte after the formats", eEdit_RemoveStandard, "9", { { 0x9A, "78" } }, "block 1: Reserved" },
        { "HDMI code", eEdit_RemoveStandard, "9", { { 0x93, "01" } }, "block 1: HDMI_VIC" },
        { "map as it was",
          eEdit_RemoveStandard,
          "9",
          { { 0x9D, "05" } },
          "block 1: Video code 31, 1920x1080p 50 Hz 16:9" },
        { "map of a place without a code",
          eEdit_RemoveStandard,
          "9",
          { { 0x9D, "23" } },
          "block 1: Place without a video code 5" },
        { "native code", eEdit_RemoveStandard, "9", { { 0x86, "85" } }, "block 1: Native" },
        // Timings 14 and 15 are the HDMI code's, after which 08 00 01 40 becomes 08 01 40.
        { "HDMI code not gone",
          eEdit_RemoveStandard,
          "14",
          { { 0x93, "28" } },
          "block 1: Side-by-side (half), horizontal "
          "sub-sampling" },
        { "formats after the HDMI code",
          eEdit_RemoveStandard,
          "14",
          { { 0x94, "02" } },
          "block 1: Side-by-side (half), horizontal "
          "sub-sampling" },
    };
    for (const SWrongEdit& oCase : aoCases)
    {
        ExpectRefusal(aui8Image, oCase);
    }
}

// A map of code 16, the first one, goes with it; one of code 4 stays and marks the first code then.
TEST_F(EditVerify, RefusesMapsThatMarkOtherCodes)
{
    CBytes aui8Image = MakeImage();
    aui8Image.resize(128);
    aui8Image[0x7E] = 1;
    Append(aui8Image, ParseBytes("02 03 0E 40 43 90 04 05 E2 0F 01 E2 0F 02 ..128"));
    aui8Image = FixChecksums(aui8Image);
    const SWrongEdit aoCases[] = {
        { "emptied map",
          eEdit_RemoveCode,
          "16",
          { { 0x82, "0D" }, { 0x87, "E2 0F 00 E2 0F 01" } },
          "block 1: YCbCr 4:2:0 capability map data block 0" },
        { "no map",
          eEdit_RemoveCode,
          "16",
          { { 0x82, "07" }, { 0x87, "00 00 00" } },
          "block 1: YCbCr 4:2:0 capability map data block 1" },
        { "map of all codes",
          eEdit_RemoveCode,
          "16",
          { { 0x82, "09" }, { 0x87, "E1 0F 00" } },
          "block 1: Video code 4, 1280x720p 59.94/60 Hz 16:9" },
        { "map as it was",
          eEdit_RemoveCode,
          "16",
          { { 0x89, "02" } },
          "block 1: Video code 4, 1280x720p 59.94/60 Hz 16:9" },
    };
    for (const SWrongEdit& oCase : aoCases)
    {
        ExpectRefusal(aui8Image, oCase);
    }
}

// Standard timings, bits of established timings III and a CVT code in display descriptors.
TEST_F(EditVerify, RefusesOtherModesOfDisplayDescriptors)
{
    const struct
    {
        const char* m_pszDescriptor;
        const char* m_pszMode;
        SDamage m_oDamage;
        const char* m_pszField;
    } aoCases[] = {
        { "00 00 00 FA 00 81 99 81 4F 01*8 0A", "1280x1024@85", { 0x61, "01 01" }, "block 0: Standard timing 1" },
        { "00 00 00 FA 00 81 99 81 4F 01*8 0A", "1280x1024@85", { 0x5F, "81 4F 01 01" }, "block 0: Standard timing 0" },
        { "00 00 00 F7 00 0A 00 E0 00*10", "1280x768@60", { 0x61, "00" }, "block 0: 1280 x 768 @ 75 Hz" },
        { "00 00 00 F7 00 0A 00 E0 00*10", "1280x768@60", { 0x61, "60" }, "block 0: 1280 x 768 @ 60 Hz" },
        { "00 00 00 F8 00 01 FF 10 38 20*9", "1360x1024@50", { 0x62, "08" }, "block 0: Preferred vertical rate" },
    };
    for (const auto& oCase : aoCases)
    {
        CBytes aui8Image = WithDamages(MakeImage(), { { 0x5A, oCase.m_pszDescriptor } });
        ExpectRefusal(FixChecksums(aui8Image),
                      { oCase.m_pszField, eEdit_Remove, oCase.m_pszMode, { oCase.m_oDamage }, oCase.m_pszField });
    }
}

// Two blocks with a detailed timing each, and both call the first two of the image native: one is left. The number
// is there from revision 2 on.
TEST_F(EditVerify, RefusesWrongNumbersOfNativesInBlocksThatNoEditNamed)
{
    CBytes aui8Image = MakeImage();
    aui8Image.resize(128);
    const CBytes aui8Detailed(aui8Image.begin() + 0x36, aui8Image.begin() + 0x36 + 18);
    for (unsigned int i = 0; i < 2; ++i)
    {
        Append(aui8Image, ParseBytes(i == 0 ? "02 03 04 02" : "02 02 04 02"));
        Append(aui8Image, aui8Detailed);
        aui8Image.resize(256 + 128 * i);
    }
    aui8Image = FixChecksums(aui8Image);
    ExpectRefusal(aui8Image, { "block 1: Video code 4, 1280x720p 59.94/60 Hz 16:9",
                               eEdit_RemoveDetailed,
                               "1",
                               { { 0x103, "02" } },
                               "block 2: Total number of native formats in the detailed timing descriptors" });
    ExpectRefusal(aui8Image, { "one too few",
                               eEdit_RemoveDetailed,
                               "1",
                               { { 0x103, "00" } },
                               "block 2: Total number of native formats in the detailed timing descriptors" });
    ExpectRefusal(aui8Image, { "other flags", eEdit_RemoveDetailed, "1", { { 0x103, "41" } }, "block 2: Basic audio" });
    ExpectRefusal(aui8Image, { "own block",
                               eEdit_RemoveDetailed,
                               "1",
                               { { 0x83, "02" } },
                               "block 1: Total number of native formats in the detailed timing descriptors" });
    ExpectRefusal(aui8Image, { "sum", eEdit_RemoveDetailed, "1", { { 0x17F, "00" } }, "block 2: Checksum", false });
}

// The timing after the empty descriptor and the text is moved before them, and nothing else changes its place.
TEST_F(EditVerify, RefusesOtherOrdersOfTheDescriptorsOfABlock)
{
    CBytes aui8Image = MakeImage();
    const CBytes aui8Timings(aui8Image.begin() + 0xA2, aui8Image.begin() + 0xA2 + 36);
    aui8Image.resize(128);
    aui8Image[0x7E] = 1;
    Append(aui8Image, ParseBytes("02 03 04 00"));
    Append(aui8Image, CBytes(aui8Timings.begin(), aui8Timings.begin() + 18));
    Append(aui8Image, ParseBytes("00 00 00 10 00*14"));
    Append(aui8Image, ParseBytes("00 00 00 FE 00 61 0A 20*11"));
    for (int i = 0; i < 2; ++i)
    {
        Append(aui8Image, CBytes(aui8Timings.begin() + 18 * i, aui8Timings.begin() + 18 * (i + 1)));
    }
    aui8Image.resize(256);
    aui8Image = FixChecksums(aui8Image);
    const char* const pszEmpty = "00 00 00 10 00*14";
    const char* const pszText = "00 00 00 FE 00 61 0A 20*11";
    ExpectRefusal(aui8Image, { "others swapped",
                               eEdit_RemoveDetailed,
                               "1",
                               { { 0xA8, pszText }, { 0xBA, pszEmpty } },
                               "block 1: Dummy descriptor" });
    ExpectRefusal(aui8Image,
                  { "timing lost", eEdit_RemoveDetailed, "1", { { 0x84, pszEmpty } }, "block 1: Detailed timing 1" });
    ExpectRefusal(aui8Image, { "another one lost",
                               eEdit_RemoveDetailed,
                               "1",
                               { { 0x96, pszEmpty }, { 0xA8, pszText }, { 0xBA, "00*18" } },
                               "block 1: Detailed timing 2" });
}

TEST(EditVerifyImage, RefusesWhatDoesNotLoad)
{
    const CBytes aui8Read = MakeImage();
    CEditImage oImage;
    ASSERT_TRUE(oImage.Load(aui8Read));
    CBytes aui8Longer = aui8Read;
    aui8Longer.resize(512);
    CBytes aui8Shorter = aui8Read;
    aui8Shorter.resize(256);
    for (const CBytes& aui8Edited : { WithChange(aui8Read, 0, 1), aui8Longer, aui8Shorter, CBytes() })
    {
        EXPECT_EQ("the edited image cannot be loaded", VerifyEdits(aui8Read, aui8Edited, oImage.GetBlocks()));
    }
}

TEST(EditVerifyImage, ChangesAreNamedByWhatTheyWereAndAre)
{
    const CBytes aui8Read = MakeImage();
    CBytes aui8Edited = WithChange(aui8Read, 0x14, 0xB4);
    aui8Edited[0x85] = 0x04; // code 16, native
    EXPECT_EQ("block 0 offset 0x14: a5 -> b4  Basic display parameters and features > Color bit depth, Digital video "
              "interface standard\n"
              "block 1 offset 0x05: 90 -> 04  Video data block > Short video descriptor 0 > Native, Video "
              "identification code\n",
              DescribeBytes(aui8Read, aui8Edited));
    EXPECT_EQ("", DescribeBytes(aui8Read, aui8Read));
}
} // namespace

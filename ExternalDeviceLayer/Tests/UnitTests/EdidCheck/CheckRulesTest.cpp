// The rules about an image as a whole: what breaks each one, and what nearly does.

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "DisplayIdImages.h"
#include "SharedFiles.h"
#include "ZorEdidCheck.h"

namespace
{
constexpr unsigned int gsc_uiThisYear = 2026;

CBytes MakeCta(const char* pszDataBlocks, unsigned char ui8Flags = 0)
{
    const CBytes aui8DataBlocks = ParseBytes(pszDataBlocks);
    CBytes aui8Block =
        Join({ { 2, 3, static_cast<unsigned char>(4 + aui8DataBlocks.size()), ui8Flags }, aui8DataBlocks });
    aui8Block.resize(gsc_uiBlockSize);
    return FixChecksums(aui8Block);
}

CBytes With(CBytes aui8Image, size_t uiOffset, const char* pszBytes)
{
    const CBytes aui8Bytes = ParseBytes(pszBytes);
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), aui8Image.begin() + static_cast<std::ptrdiff_t>(uiOffset));
    return FixChecksums(aui8Image);
}

// An input of HDMI.
CBytes MakeHdmi(const std::vector<CBytes>& aaui8Blocks) { return With(MakeEdid(aaui8Blocks), 0x14, "A2"); }

CBytes MakeImage(const char* pszDataBlocks, unsigned char ui8Flags = 0)
{
    return MakeHdmi({ MakeCta(pszDataBlocks, ui8Flags) });
}

// A section of version 1.2 for a desktop display with data blocks of these tags, each cut to one byte.
CBytes MakeSection(const char* pszTags, unsigned char ui8ProductType = 3)
{
    CBytes aui8DataBlocks;
    for (const unsigned char ui8Tag : ParseBytes(pszTags))
    {
        Append(aui8DataBlocks, { ui8Tag, 0, 1, 0 });
    }
    CBytes aui8Block = MakeDisplayIdBlock(aui8DataBlocks);
    aui8Block[3] = ui8ProductType;
    return MakeEdid({ aui8Block });
}

// A screen of 52 x 29 cm with display parameters of this width and height, in tenths of a millimetre.
CBytes MakeSized(const char* pszSize)
{
    CBytes aui8Payload = ParseBytes(pszSize);
    aui8Payload.resize(12);
    return MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(1, 0, aui8Payload)) });
}

std::multiset<EZorEdidRule> ListRules(const CBytes& aui8Image)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, gsc_uiThisYear);
    std::multiset<EZorEdidRule> oRules;
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        oRules.insert(oCheck.Get(i).m_eRule);
    }
    return oRules;
}

CZorEdidMap::ESeverity FindSeverity(const CBytes& aui8Image, EZorEdidRule eRule)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, gsc_uiThisYear);
    unsigned int i = 0;
    while (i < oCheck.GetCount() && oCheck.Get(i).m_eRule != eRule)
    {
        ++i;
    }
    return i < oCheck.GetCount() ? oCheck.Get(i).m_eSeverity : CZorEdidMap::eSeverity_Error;
}

constexpr char gsc_szLimits[] = "00*3 FD 00 32 4B 1E 53 11 00 0A 20*6";  // 50 to 75 Hz, 30 to 83 kHz, to 170 MHz
constexpr char gsc_szOneRate[] = "00*3 FD 00 32 4B 43 43 11 00 0A 20*6"; // 67 kHz, which VIC 16 has
constexpr char gsc_szHdmi[] = "42 10 01 67 03 0C 00 10 00 00 21";        // to 165 MHz
constexpr char gsc_szHdmiFast[] = "42 3F 01 67 03 0C 00 10 00 00 21";    // VIC 63 has 297 MHz
constexpr char gsc_szHdmiVic[] = "42 10 01 6B 03 0C 00 10 00 00 21 20 00 20 01";
constexpr char gsc_szHdmiVicToo[] = "43 5F 10 01 6B 03 0C 00 10 00 00 78 20 00 20 01";
constexpr char gsc_szUhd[] = "42 61 01 67 03 0C 00 10 00 00 78 67 D8 5D C4 01 78 00 60";     // FRL at 12 Gbit/s
constexpr char gsc_szUhdTmds[] = "42 61 01 67 03 0C 00 10 00 00 78 67 D8 5D C4 01 78 00 00"; // HDMI 2.0: to 600 MHz
constexpr char gsc_szUhdVic[] = "42 61 01 67 03 0C 00 10 00 00 78 67 D8 5D C4 01 78 00 68";

TEST(CheckRules, EachHasAnImageThatBreaksItAndANearMiss)
{
    const CBytes aui8Good = MakeImage("42 10 01");
    const struct
    {
        EZorEdidRule m_eRule;
        CBytes m_aui8Broken;
        CBytes m_aui8NearMiss;
    } aoCases[] = {
        { eZorEdidRule_YearInFuture, With(aui8Good, 0x11, "25"), With(aui8Good, 0x11, "24") },
        { eZorEdidRule_DescriptorZero, With(aui8Good, 0x48, "00*18"), With(aui8Good, 0x48, "00*3 10 00*14") },
        { eZorEdidRule_ModeBeyondLimits, With(With(MakeImage("42 20 01"), 0x48, gsc_szLimits), 0x4F, "1A"),
          With(With(MakeImage("42 1F 01"), 0x48, gsc_szLimits), 0x4F, "1A") }, // 24 and 50 Hz
        { eZorEdidRule_RangeOneRate, With(MakeImage("42 10 01"), 0x48, gsc_szOneRate),
          With(MakeImage("41 10"), 0x48, gsc_szOneRate) },
        { eZorEdidRule_ModeBeyondTmds, MakeImage(gsc_szHdmiFast), MakeImage(gsc_szHdmi) },
        { eZorEdidRule_VgaMissing, MakeImage("41 10"), With(MakeImage("41 10"), 0x23, "20") },
        { eZorEdidRule_CodeTwice, MakeImage("43 10 01 10"), MakeImage("43 10 01 1F E2 0E 10") },
        { eZorEdidRule_CodeNativeAndNot, MakeImage("43 10 90 01"), MakeImage("43 90 01 90") },
        { eZorEdidRule_NativeMixed, MakeImage("43 90 84 01"), MakeImage("43 90 9F 01") },
        { eZorEdidRule_HdmiCodeAlone, MakeImage(gsc_szHdmiVic), MakeImage(gsc_szHdmiVicToo) },
        { eZorEdidRule_ReferenceMissing, MakeImage("42 10 01 E3 0D 81 82"), MakeImage("42 10 01 E4 0D 81 10 00") },
        { eZorEdidRule_UnderscanContradicts, MakeImage("41 01 E2 00 04", 0x80), MakeImage("41 01 E2 00 0C", 0x80) },
        { eZorEdidRule_CtaFlagsDiffer, MakeEdid({ MakeCta("41 01", 0x40), MakeCta("", 0x60) }),
          MakeEdid({ MakeCta("41 01", 0x41), MakeCta("", 0x40) }) },
        { eZorEdidRule_UhdVicMissing, MakeImage(gsc_szUhd), MakeImage(gsc_szUhdVic) },
        { eZorEdidRule_HdmiNotFirst, MakeHdmi({ MakeDisplayIdBlock({}), MakeCta(gsc_szHdmi) }),
          MakeHdmi({ MakeCta(gsc_szHdmi), MakeDisplayIdBlock({}) }) },
        { eZorEdidRule_RoomContradicts, MakeImage("41 01 E8 13 61 01 00*6 E3 14 20 00"),
          MakeImage("41 01 E8 13 60 01 00*6 E3 14 20 00") }, // two speakers, one
        { eZorEdidRule_ChannelTwice, MakeImage("41 01 E5 14 21 00 21 01"), MakeImage("41 01 E5 14 21 00 01 01") },
        { eZorEdidRule_DisplayIdProductNotFirst, MakeSection("01 00 0F"), MakeSection("00 01 0F") },
        { eZorEdidRule_DisplayIdVersionsDiffer,
          MakeEdid({ MakeDisplayIdBlock({}), WithChange(MakeDisplayIdBlock({}), 1, 0x11) }),
          MakeEdid({ MakeDisplayIdBlock({}), MakeDisplayIdBlock({}) }) },
        { eZorEdidRule_DisplayIdNoProduct, MakeSection("01 0F"), MakeSection("00 01 0F") },
        { eZorEdidRule_DisplayIdNoParameters, MakeSection("00 0F"), MakeSection("00 0F", 5) }, // a repeater
        { eZorEdidRule_DisplayIdNoInterface, MakeSection("00 01"), MakeSection("00 01", 0) },
        { eZorEdidRule_DisplayIdImageSize, MakeSized("B4 14 20 0B"), MakeSized("B3 14 20 0B") }, // 530.0, 529.9 mm
        { eZorEdidRule_UnreadBlock, MakeEdid({ WithChange(MakeCta("41 01"), 1, 4) }), aui8Good },
        { eZorEdidRule_UnreadPreferred, With(With(aui8Good, 0x13, "02"), 0x18, "00"),
          With(With(aui8Good, 0x13, "02"), 0x18, "02") },
        { eZorEdidRule_UnreadRangeOffsets, With(aui8Good, 0x48, "00*3 FD 02 32 4B 1E 53 11 01 0A 20*6"),
          With(aui8Good, 0x48, "00*3 FD 00 32 4B 1E 53 11 01 0A 20*6") },
        { eZorEdidRule_UnreadDescriptor, With(MakeImage("41 01"), 0x86, "00*3 FC 00 41 0A 20*11"), MakeImage("41 01") },
        { eZorEdidRule_UnreadDescriptor, With(aui8Good, 0x48, "00*3 FC 05 41 0A 20*11"),
          With(aui8Good, 0x48, "00*3 FC 00 41 0A 20*11") },
        { eZorEdidRule_ListedMore, MakeImage("41 10 6E 03 0C 00 10 00 00 2D 60 05 06 00 40 01 02"),
          MakeImage("41 10 6E 03 0C 00 10 00 00 2D 20 00 40 01 02 00 00") },
        { eZorEdidRule_UnlistedTiming, MakeImage("41 10 E0 E2 0E 61"), MakeImage("41 10 E2 0E 61") },
        { eZorEdidRule_UnlistedTiming, With(aui8Good, 0x26, "01 40"), With(aui8Good, 0x26, "01 01") },
        { eZorEdidRule_UnlistedTiming, With(aui8Good, 0x48, "02 3A 00 18 01 38 2D 40 58 2C 45 00 00*6"),
          With(aui8Good, 0x48, "02 3A 80 18 71 38 2D 40 58 2C 45 00 00*6") },
    };
    std::set<EZorEdidRule> oTried;
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(FindZorEdidRule(oCase.m_eRule)->m_pszId);
        EXPECT_EQ(1U, ListRules(oCase.m_aui8Broken).count(oCase.m_eRule));
        EXPECT_EQ(0U, ListRules(oCase.m_aui8NearMiss).count(oCase.m_eRule));
        oTried.insert(oCase.m_eRule);
    }
    for (unsigned int i = 0; i < GetZorEdidRuleCount(); ++i)
    {
        const EZorEdidRule eRule = GetZorEdidRule(i).m_eRule;
        // Of those below, a test of the map; several images are what the command says of a file.
        EXPECT_EQ(eRule >= 500 && eRule != eZorEdidRule_SeveralImages, oTried.contains(eRule))
            << GetZorEdidRule(i).m_pszId;
        // "warning: is above 340 MHz" needs its field.
        EXPECT_EQ(std::string_view(GetZorEdidRule(i).m_pszWhat).starts_with("is "), GetZorEdidRule(i).m_bOfField)
            << GetZorEdidRule(i).m_pszId;
    }
}

constexpr char gsc_szVgaTiming[] = "D5 09 80 A0 20 E0 2D 10 10 60 A2 00 00*6";    // 25.17 MHz, 59.94 Hz
constexpr char gsc_szUhdTiming[] = "08 E8 00 30 F2 70 5A 80 B0 58 8A 00 00*5 1E"; // VIC 97, 594 MHz

// What only looks like a fault.
TEST(CheckRules, NoFalseAlarms)
{
    const CBytes aui8Vga = With(MakeImage("41 10"), 0x48, gsc_szVgaTiming);
    EXPECT_EQ(0U, ListRules(aui8Vga).count(eZorEdidRule_VgaMissing));
    // A timing that may be misread, as byte 2 or a length is wrong, may be right as well.
    const CBytes aui8Misread = With(MakeImage("41 10 44 10"), 0x88, gsc_szVgaTiming);
    EXPECT_EQ(1U, ListRules(aui8Misread).count(eZorEdidRule_CtaPastCollection));
    EXPECT_EQ(0U, ListRules(aui8Misread).count(eZorEdidRule_VgaMissing));
    // Audio of a DisplayID section needs the flag of the CTA-861 block that is there.
    const CBytes aui8Audio = MakeDisplayIdBlock(ParseBytes("81 00 04 23 09 07 07"));
    EXPECT_EQ(1U, ListRules(MakeEdid({ MakeCta("41 01"), aui8Audio })).count(eZorEdidRule_CtaBasicAudio));
    EXPECT_EQ(0U, ListRules(MakeEdid({ MakeCta("41 01", 0x40), aui8Audio })).count(eZorEdidRule_CtaBasicAudio));
    EXPECT_EQ(CZorEdidMap::eSeverity_Note, FindSeverity(MakeEdid({ aui8Audio }), eZorEdidRule_CtaBasicAudio));
    for (const char* pszAudio : { "23 09 07 07", "83 01 00 00", "E3 12 00 00", "E4 11 03 0C 00", "E3 14 00 00" })
    {
        EXPECT_EQ(1U, ListRules(MakeImage(pszAudio)).count(eZorEdidRule_CtaBasicAudio)) << pszAudio;
        EXPECT_EQ(0U, ListRules(MakeImage(pszAudio, 0x40)).count(eZorEdidRule_CtaBasicAudio)) << pszAudio;
    }
    // HDMI 1.4 had no other codes; makers round the clock down.
    const CBytes aui8HdmiVic = MakeImage("42 10 01 6B 03 0C 00 10 00 00 21 20 00 20 01 67 D8 5D C4 01 78 00 00");
    EXPECT_EQ(CZorEdidMap::eSeverity_Warning, FindSeverity(aui8HdmiVic, eZorEdidRule_HdmiCodeAlone));
    EXPECT_EQ(CZorEdidMap::eSeverity_Note, FindSeverity(MakeImage(gsc_szHdmiVic), eZorEdidRule_HdmiCodeAlone));
    for (const bool bRounded : { false, true })
    {
        const CBytes aui8Limits =
            With(With(aui8Vga, 0x36, gsc_szVgaTiming), 0x5A,
                 bRounded ? "00*3 FD 00 32 4B 1E 53 02 00 0A" : "00*3 FD 00 32 4B 1E 53 01 00 0A");
        EXPECT_EQ(bRounded ? CZorEdidMap::eSeverity_Note : CZorEdidMap::eSeverity_Warning,
                  FindSeverity(With(aui8Limits, 0x13, "03"), eZorEdidRule_RangePixelClock));
    }
    // A rate of 0 in the data block of the HDMI Forum means no FRL; bytes after it that say something are of HDMI 2.1.
    EXPECT_EQ(0U, ListRules(MakeImage(gsc_szUhdTmds)).count(eZorEdidRule_UhdVicMissing));
    const char* const pszUhdVrr = "42 61 01 67 03 0C 00 10 00 00 78 6A D8 5D C4 01 78 00 00 00 28 00";
    EXPECT_EQ(1U, ListRules(MakeImage(pszUhdVrr)).count(eZorEdidRule_UhdVicMissing));
    const CBytes aui8OtherCode = MakeImage("42 10 01 E2 0D 04");
    EXPECT_EQ(CZorEdidMap::eSeverity_Note, FindSeverity(aui8OtherCode, eZorEdidRule_ReferenceMissing));
    const char* const pszSlow20 = "42 61 01 67 03 0C 00 10 00 00 44 67 D8 5D C4 01 00 00 00"; // to 340 MHz
    EXPECT_EQ(1U, ListRules(MakeImage(pszSlow20)).count(eZorEdidRule_ModeBeyondTmds));
    // Half the clock is enough for a code that a 4:2:0 map marks, and for the same timing in another field.
    const char* const pszMarked = "42 61 01 67 03 0C 00 10 00 00 3C E2 0F 01";
    const char* const pszNotMarked = "42 61 01 67 03 0C 00 10 00 00 3C E2 0F 02";
    for (const char* pszTiming : { "", gsc_szUhdTiming })
    {
        EXPECT_EQ(0U, ListRules(With(MakeImage(pszMarked), 0x48, pszTiming)).count(eZorEdidRule_ModeBeyondTmds));
        EXPECT_EQ(1U, ListRules(With(MakeImage(pszNotMarked), 0x48, pszTiming)).count(eZorEdidRule_ModeBeyondTmds));
    }
    // TMDS is not the link of an input of DisplayPort, whatever HDMI's data blocks say for adapters.
    EXPECT_EQ(1U, ListRules(With(MakeImage(gsc_szHdmiFast), 0x14, "A2")).count(eZorEdidRule_ModeBeyondTmds));
    EXPECT_EQ(0U, ListRules(With(MakeImage(gsc_szHdmiFast), 0x14, "A5")).count(eZorEdidRule_ModeBeyondTmds));
    // Codes twice in the list of 4:2:0, and in different lists.
    EXPECT_EQ(1U, ListRules(MakeImage("41 01 E3 0E 61 61")).count(eZorEdidRule_CodeTwice));
    const std::multiset<EZorEdidRule> oBoth = ListRules(MakeImage("42 01 61 E2 0E 61"));
    EXPECT_EQ(0U, oBoth.count(eZorEdidRule_CodeTwice) + oBoth.count(eZorEdidRule_CodeNativeAndNot));
    EXPECT_EQ(1U, oBoth.count(eZorEdidRule_Cta420Twice));
    // 1440 pixels are sent of 720: a native code and a native timing may be the same mode.
    const CBytes aui8Sent = With(MakeImage("42 88 01"), 0x36, "8F 0A A0 14 51 F0 16 00 26 7C 43 00 00*5 18");
    EXPECT_EQ(0U, ListRules(With(aui8Sent, 0x18, "0A")).count(eZorEdidRule_NativeMixed));
    // 1080i beside 1080p is one size for each way of scanning, 480i and 1080i are two.
    EXPECT_EQ(0U, ListRules(MakeImage("43 90 85 01")).count(eZorEdidRule_NativeMixed));
    EXPECT_EQ(1U, ListRules(MakeImage("43 86 85 01")).count(eZorEdidRule_NativeMixed));
    // What else is in a descriptor of no known kind follows from its tag.
    const std::multiset<EZorEdidRule> oLost = ListRules(With(MakeImage("41 01"), 0x48, "00 00 FE 4C 50 31 0A"));
    EXPECT_EQ(1U, oLost.count(eZorEdidRule_ReservedValue));
    EXPECT_EQ(0U, oLost.count(eZorEdidRule_ReservedBits));
}

// In each way that the room may contradict the speaker location data block.
TEST(CheckRules, SpeakersOfTheRoom)
{
    for (const char* pszDataBlocks :
         { "41 01 E8 13 60 01 00*6", "41 01 E8 13 40 01 00*6 E3 14 20 00", "41 01 E8 13 20 01 00*6 E3 14 20 00" })
    {
        EXPECT_EQ(1U, ListRules(MakeImage(pszDataBlocks)).count(eZorEdidRule_RoomContradicts)) << pszDataBlocks;
    }
    EXPECT_EQ(0U, ListRules(MakeImage("41 01 E8 13 40 01 00*6")).count(eZorEdidRule_RoomContradicts));
}

// The largest value of the bytes means no limit; the one below it is a limit.
TEST(CheckRules, LargestLimitsAreOpen)
{
    constexpr unsigned int uiRevision = 0x13;
    const char* const pszFast = "DC FF 00 80 50 00 05 30 08 20 08 00 00*6"; // 655 MHz, 465 kHz, 601 Hz
    const struct
    {
        const char* m_pszLimits;
        const char* m_pszRevision;
        bool m_bBeyond;
    } aoCases[] = {
        { "00*3 FD 0A 01 FF 01 FF FF 01 0A 20*6", "04", false }, // to 510 Hz, 510 kHz, 2550 MHz
        { "00*3 FD 08 01 FF 01 FF FF 01 0A 20*6", "04", true },  // 255 Hz
        { "00*3 FD 00 01 FF 01 FF FF 00 0A 20*6", "03", false },
        { "00*3 FD 00 01 FE 01 FF FF 00 0A 20*6", "03", true },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszLimits);
        const CBytes aui8Image = With(
            With(With(MakeImage("41 01"), uiRevision, oCase.m_pszRevision), 0x48, oCase.m_pszLimits), 0x36, pszFast);
        const std::multiset<EZorEdidRule> oRules = ListRules(aui8Image);
        EXPECT_EQ(oCase.m_bBeyond ? 1U : 0U, oRules.count(eZorEdidRule_RangeFieldRate) +
                                                 oRules.count(eZorEdidRule_RangeLineRate) +
                                                 oRules.count(eZorEdidRule_RangePixelClock));
    }
}

// One finding for a limit, however many modes there are; and rates that a limit rounds are no breach.
TEST(CheckRules, LimitsAreRoundedAndBreachesCounted)
{
    const CBytes aui8Many = With(MakeImage("45 20 21 22 3E 01"), 0x48, gsc_szLimits);
    EXPECT_EQ(2U, ListRules(aui8Many).count(eZorEdidRule_ModeBeyondLimits));
    EXPECT_EQ(2U, ListRules(With(aui8Many, 0x4A, "01")).count(eZorEdidRule_ModeBeyondLimits)); // a reserved byte
    const char* const pszNarrow = "00*3 FD 00 3B 3C 1E 43 0F 00 0A 20*6"; // 59 to 60 Hz, 30 to 67 kHz, to 150 MHz
    EXPECT_EQ(0U, ListRules(With(MakeImage("42 10 01"), 0x48, pszNarrow)).count(eZorEdidRule_ModeBeyondLimits));
    CBytes aui8Older = aui8Many;
    aui8Older[0x13] = 3;
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Older.size()), aui8Older.data());
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, gsc_uiThisYear);
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        const SZorFinding& oFinding = oCheck.Get(i);
        if (oFinding.m_eRule == eZorEdidRule_ModeBeyondLimits)
        {
            EXPECT_EQ(CZorEdidMap::eSeverity_Warning, oFinding.m_eSeverity); // from 1.4 on a note
            const bool bLine = oFinding.m_sExpected == "30 to 83 kHz";
            EXPECT_STREQ(bLine ? "line rate 27.00 kHz of 1920 x 1080 @ 24 Hz at block 1 offset 0x05, and 2 more"
                               : "field rate 24.00 Hz of 1920 x 1080 @ 24 Hz at block 1 offset 0x05, and 3 more",
                         oFinding.m_sFound);
        }
    }
}

// Limits of one rate or of none are at fault themselves, and once.
TEST(CheckRules, LimitsWithoutARange)
{
    const CBytes aui8Many = With(With(MakeImage("45 20 21 22 3E 01"), 0x13, "03"), 0x36, gsc_szVgaTiming);
    for (const auto& [pszLimits, eRule] :
         { std::pair("00*3 FD 00 32 4B 43 43 11 00 0A 20*6", eZorEdidRule_RangeOneRate), // 67 to 67 kHz
           std::pair("00*3 FD 00 32 4B 43 1E 11 00 0A 20*6", eZorEdidRule_RangeOrder),   // to 30 kHz
           std::pair("00*3 FD 00 32 4B 43 00 11 00 0A 20*6", eZorEdidRule_RangeZero) })
    {
        const std::multiset<EZorEdidRule> oRules = ListRules(With(aui8Many, 0x48, pszLimits));
        EXPECT_EQ(1U, oRules.count(eRule)) << pszLimits;
        EXPECT_EQ(1U, oRules.count(eZorEdidRule_ModeBeyondLimits)) << pszLimits; // of the field rates
        EXPECT_EQ(0U, oRules.count(eZorEdidRule_RangeLineRate)) << pszLimits;
    }
}

// What a maker has to change, and to what, in the units of the field.
TEST(CheckRules, NumbersAreFoundAndExpected)
{
    const char* const pszRange = "00*3 FD 00 32 28 1E 53 0F 00 0A 20*6"; // 50 to 40 Hz, 30 to 83 kHz, to 150 MHz
    const CBytes aui8Limits = With(MakeImage("41 01"), 0x48, gsc_szLimits);
    const struct
    {
        EZorEdidRule m_eRule;
        CBytes m_aui8Image;
        const char* m_pszFound;
        const char* m_pszExpected;
    } aoCases[] = {
        { eZorEdidRule_Blanking, With(MakeImage("41 01"), 0x39, "20 70"), "32 pixels", "at least 132 pixels" },
        { eZorEdidRule_CtaVideoIndex, MakeImage("41 01 E2 0F 06"), "place 2", "at most 1 video code" },
        { eZorEdidRule_RangeOrder, With(MakeImage("41 01"), 0x48, pszRange), "40 Hz", "at least 50 Hz" },
        { eZorEdidRule_RangeOneRate, With(MakeImage("42 10 01"), 0x48, gsc_szOneRate), "67 to 67 kHz", "31 to 67 kHz" },
        { eZorEdidRule_FirstDescriptor, With(With(MakeImage("41 01"), 0x36, "00*3 10 00*14"), 0x18, "02"),
          "pixel clock 0 MHz, tag 0x10", "" },
        { eZorEdidRule_CtaLostTimings, With(MakeImage("41 01"), 0x90, gsc_szVgaTiming),
          "640 x 480 @ 59.93 Hz at block 1 offset 0x10", "0x10 in byte 2" },
        { eZorEdidRule_CtaLostTimings, With(With(MakeImage("41 01"), 0x86, gsc_szVgaTiming), 0x9A, gsc_szVgaTiming),
          "640 x 480 @ 59.93 Hz at block 1 offset 0x1a", "the next timing at offset 0x18" },
        { eZorEdidRule_CtaLostTimings, With(MakeImage("41 01 44 10"), 0x90, gsc_szVgaTiming),
          "640 x 480 @ 59.93 Hz at block 1 offset 0x10", "0x10 in byte 2" },
        { eZorEdidRule_DisplayIdNoProduct, MakeSection("20 01 0F"), "tag 0x20 of the other version", "" },
        { eZorEdidRule_CtaLastItem, MakeImage("41 01 C4 01 10 00 10"), "4 bytes", "3 or 5 bytes" },
        { eZorEdidRule_DisplayIdMethodShort, MakeEdid({ MakeDisplayIdBlock(ParseBytes("10 00 02 01 02")) }), "1 byte",
          "at least 9 bytes" },
        { eZorEdidRule_RangePixelClock, With(aui8Limits, 0x36, "04 74"),
          "pixel clock 297.00 MHz of 1920 x 1080 @ 120 Hz", "at most 170.00 MHz" },
        { eZorEdidRule_ReservedBits, With(MakeImage("41 01"), 0x08, "86"), "0x80 in bit 7", "" },
        { eZorEdidRule_ImageSize, With(MakeImage("41 01"), 0x42, "40 60 11"), "320 x 352 mm", "about 520 x 290 mm" },
        { eZorEdidRule_CtaStart, With(MakeImage("41 01"), 0x82, "F7"), "247 bytes", "4 to 127 bytes" },
        { eZorEdidRule_CtaPart, MakeImage("41 01 24 09 07 07 09"), "4 bytes", "3 or 6 bytes" },
        { eZorEdidRule_CtaShort, MakeImage("41 01 E2 05 00"), "2 bytes", "3 bytes" },
        { eZorEdidRule_CtaPastCollection, MakeImage("41 01 44 10"), "4 bytes", "at most 1 byte" },
        { eZorEdidRule_CtaNativeCount, MakeImage("41 01", 0x03), "3 timings", "at most 1 timing" },
        { eZorEdidRule_CtaAgain, MakeImage("41 01 83 01 00 00 83 01 00 00"), "the first one at block 1 offset 0x06",
          "" },
        { eZorEdidRule_DisplayIdSections, WithChange(MakeSection("00 01 0F"), 0x84, 2), "2 sections", "0 sections" },
        { eZorEdidRule_DisplayIdShort, MakeSection("00 01 0F"), "1 byte", "at least 12 bytes" },
        { eZorEdidRule_BlocksMissing, With(MakeImage("41 01"), 0x7E, "03"), "1 block", "3 blocks" },
        { eZorEdidRule_BlockNotCounted, Join({ MakeEdid({}), CBytes(gsc_uiBlockSize), MakeCta("41 01") }), "0 blocks",
          "at least 1 block" },
        { eZorEdidRule_BlockNotCounted, Join({ MakeImage("41 01"), CBytes(gsc_uiBlockSize) }), "1 block", "" },
        { eZorEdidRule_BlockNotCounted, Join({ MakeImage("41 01"), MakeCta("41 01") }), "1 block", "" },
        { eZorEdidRule_BlockMapTag, MakeEdid({ ParseBytes("F0 70 ..128"), MakeCta("41 01") }),
          "112 (DisplayID extension)", "2 for block 2" },
        { eZorEdidRule_BlockMapTag, MakeEdid({ ParseBytes("F0 02 ..128"), ParseBytes("9A 03 ..128") }),
          "2 (CTA-861 extension), and tag 0x9a at block 2 offset 0x00", "" },
        { eZorEdidRule_ModeBeyondTmds, MakeImage(gsc_szHdmiFast),
          "297.00 MHz of 1920 x 1080 @ 120 Hz at block 1 offset 0x05", "at most 165.00 MHz" },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(FindZorEdidRule(oCase.m_eRule)->m_pszId);
        CZorEdidMap oMap;
        oMap.Read(static_cast<unsigned int>(oCase.m_aui8Image.size()), oCase.m_aui8Image.data());
        CZorEdidCheck oCheck;
        oCheck.Read(oMap, gsc_uiThisYear);
        unsigned int i = 0;
        while (i < oCheck.GetCount() && oCheck.Get(i).m_eRule != oCase.m_eRule)
        {
            ++i;
        }
        ASSERT_LT(i, oCheck.GetCount());
        EXPECT_STREQ(oCase.m_pszFound, oCheck.Get(i).m_sFound);
        EXPECT_STREQ(oCase.m_pszExpected, oCheck.Get(i).m_sExpected);
    }
}
} // namespace

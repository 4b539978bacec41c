// What the stored reports do not show: odd bytes, the differences between the reports, other blocks, numbering.

#include "EdidExtBlockDisplayID.h"
#include "EdidUtilsTestHelp.h"

namespace
{
const std::string gsc_sSeparator(78, '-');

bool Contains(const CTexts& asElements, const std::string& sElement)
{
    return std::find(asElements.begin(), asElements.end(), sElement) != asElements.end();
}

// The elements from the first that is sFirst up to, without it, the next that is sEnd.
CTexts Cut(const CTexts& asElements, const std::string& sFirst, const std::string& sEnd = gsc_sSeparator)
{
    const auto oFirst = std::find(asElements.begin(), asElements.end(), sFirst);
    return CTexts(oFirst, std::find(oFirst, asElements.end(), sEnd));
}

struct SElementCase
{
    const char* m_pszName;
    CByteChanges m_aoChanges;
    const char* m_pszElement;
};

TEST(Report, IdentityOfOddBytes)
{
    const SElementCase aoCases[] = {
        { "SerialWithTheTopBitIsNegative",
          { { 12, 0xFE }, { 13, 0xFF }, { 14, 0xFF }, { 15, 0xFF } },
          "  Serial number:               -2" },
        { "LastYear", { { 17, 255 } }, "  Year of manufacture:         2245" },
        { "ProductHasFourDigitsAtLeast", { { 10, 0x0A }, { 11, 0x00 } }, "  Product code:                000A" },
        { "LettersOfZeroBits", { { 8, 0x00 }, { 9, 0x00 } }, "  Manufacturer name:           @@@ ()" },
        { "LettersBehindTheAlphabet", { { 8, 0xFF }, { 9, 0xFF } }, "  Manufacturer name:           ___ ()" },
        { "NoNameDescriptor", { { 111, 0x10 } }, "  Monitor name:                " },
        { "PercentInTheNameIsText", { { 113, '%' }, { 114, 's' } }, "  Monitor name:                %sUS VE276" },
        { "Analog", { { 20, 0x7F } }, "  Monitor signal type:         Analog" },
    };
    for (const SElementCase& oCase : aoCases)
    {
        const CBytes aui8Image = AsusBytes(oCase.m_aoChanges);
        EXPECT_TRUE(Contains(GetReport(gsc_ePlain, aui8Image), oCase.m_pszElement)) << oCase.m_pszName;
        EXPECT_TRUE(Contains(GetReport(gsc_eExtended, aui8Image), oCase.m_pszElement)) << oCase.m_pszName;
    }
    CBytes aui8WrongSum = AsusBytes();
    aui8WrongSum[127] ^= 1;
    EXPECT_TRUE(Contains(GetReport(gsc_ePlain, aui8WrongSum), "  Checksum is Not valid")); // and stops nothing
}

TEST(Report, WhatThereIsNoReportOf)
{
    const struct
    {
        unsigned int m_uiType;
        unsigned int m_uiAssertions; // one of the lists; the two monitor reports add a line of their own
        int m_iResult;
        CTexts m_asLines;
    } aoCases[] = { { 0, 1, 0, { "old" } }, // a type that is none
                    { 1, 2, 1, {} },
                    { 2, 1, 1, {} },
                    { 3, 2, 1, {} }, // no preferred mode
                    { 4, 1, 0, { "old" } } };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_uiType);
        const auto eType = static_cast<CZorEdidUtils::EEdidFormatType>(oCase.m_uiType);
        CMArrayString oLines;
        oLines.Add(CMString("old"));
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iResult,
                  CZorEdidUtils::GetFormatedEdid(eType, *Load(MakeImageWithoutPreferred()), oLines, ""));
        EXPECT_EQ(oCase.m_uiAssertions, oOutput.TakeAssertionCount());
        EXPECT_EQ(oCase.m_asLines, GetElements(oLines));
    }
}

// Whether an established timing is marked is asked of the VESA list's entry: 75,010 kHz allow more than 74,800 kHz do.
TEST(Report, MarkOfAnEstablishedTimingAsksTheVesaTiming)
{
    CModeList oTolerant;
    CModeList oStrict;
    oTolerant.SetCount(1, -1);
    oStrict.SetCount(1, -1);
    ASSERT_EQ(1, Load(MakeImageOfClock(7501))->GetBaseDetailed(0, &oTolerant[0]));
    ASSERT_EQ(1, Load(MakeImageOfClock(7480))->GetBaseDetailed(0, &oStrict[0]));
    const auto Report = [&](const CModeList& oVesa, const CModeList& oAll) {
        const CModeList oNone;
        CMArrayString oLines;
        CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(*Load(AsusBytes()), oStrict[0], oVesa, oAll, oNone, oNone,
                                                         oNone, oNone, oLines, "");
        return GetElements(oLines);
    };
    EXPECT_TRUE(Contains(Report(oTolerant, oStrict), "        1280 x  720 @ 60.00 Hz"));
    EXPECT_TRUE(Contains(Report(oStrict, oTolerant), "        1280 x  720 @ 60.00 Hz (Not VESA compliant)"));
}

// ---- The extended report ----

// Bytes 18 to 20: version, revision, video input. The digital ones of revision 1.4 alone have an interface.
TEST(ExtendedReport, DigitalInterfaceOfRevision4Only)
{
    const std::tuple<unsigned char, unsigned char, unsigned char, const char*> aoCases[] = {
        { 1, 4, 0xA0, "Not defined" },
        { 1, 4, 0xA1, "DVI" },
        { 1, 4, 0xA2, "HDMI-A" },
        { 1, 4, 0xA3, "HDMI-B" },
        { 1, 4, 0xA4, "MDDI" },
        { 1, 4, 0xA5, "DisplayPort" },
        { 1, 4, 0xA6, "Reserved" },
        { 1, 4, 0x25, "" },
        { 1, 3, 0xA5, "" },
        { 1, 5, 0xA5, "" },
        { 2, 4, 0xA5, "" },
    };
    for (const auto& [ui8Version, ui8Revision, ui8Input, pszText] : aoCases)
    {
        const CTexts asElements = GetReport(
            gsc_eExtended, AsusBytes({ { 18, ui8Version }, { 19, ui8Revision }, { 20, ui8Input }, { 24, 0x02 } }));
        const std::string sSignal =
            std::string("  Monitor signal type:         ") + (ui8Input < 0x80 ? "Analog" : "Digital");
        EXPECT_EQ(*pszText == 0 ? "\n" : std::string("  Digital interface type:      ") + pszText,
                  Cut(asElements, sSignal).at(1));
    }
}

struct SDigestCase
{
    const char* m_pszName;
    CBytes m_aui8DataBlocks;
    const char* m_pszElements; // from the first of them up to the space, without indents and spacers
};

TEST(ExtendedReport, AudioAndSpeakers)
{
    const SDigestCase aoCases[] = {
        // All rates and bits: the PCM format has depths, AC3 a bit rate, format 9 neither.
        { "AudioBitsByFormat",
          { 0x29, 0x0F, 0x7F, 0x07, 0x15, 0x04, 0xFF, 0x4D, 0x00, 0x03 },
          "Audio descriptor count :      3/Audio descriptor #1 format : Linear Pulse Code Modulation (PCM)"
          "/Audio descriptor #1 supported frequencies :"
          "/- 32 KHz/- 44 KHz/- 48 KHz/- 88 KHz/- 96 KHz/- 176 KHz/- 192 KHz"
          "/Audio descriptor #1 supported bit depth :/- 16 bit/- 20 bit/- 24 bit/Audio descriptor #2 format : AC3"
          "/Audio descriptor #2 supported frequencies :/- 48 KHz/Audio descriptor #2 maximum bit rate : 2040 KHz"
          "/Audio descriptor #3 format : 1 bit/Audio descriptor #3 supported frequencies :"
          "/Speaker descriptor count :      0/HDMI CTS warning : Audio descriptor without speaker descriptor/" },
        { "SpeakersWithoutAudio",
          { 0x83, 0xFF, 0x07, 0x00, 0x83, 0x00, 0x00, 0x00 },
          "Speaker descriptor count :      2/- Front left and right/- Low frequency effect/- Front center"
          "/- Rear left and right/- Rear center/- Front center left and right/- Rear center left and right"
          "/- Front wide center left and right/- Front wide high left and right/- Top center/- Front center high"
          "/HDMI CTS warning : Speaker descriptor without audio descriptor"
          "/HDMI CTS warning : Found more than 1 speaker descriptor/" },
        { "OneOfBoth",
          { 0x23, 0x09, 0x07, 0x07, 0x83, 0x01, 0x00, 0x00 },
          "Speaker descriptor count :      1/- Front left and right/" },
    };
    for (const SDigestCase& oCase : aoCases)
    {
        const std::string sFirst(oCase.m_pszElements, strchr(oCase.m_pszElements, '/'));
        std::string sDigest;
        for (const std::string& sElement :
             Cut(GetReport(gsc_eExtended, MakeEdid({ MakeCeaBlockOf(oCase.m_aui8DataBlocks) })), "      " + sFirst))
        {
            if (sElement != "\n" && sElement.find("Available space") == std::string::npos)
            {
                EXPECT_EQ("      ", sElement.substr(0, 6));
                sDigest += sElement.substr(6) + "/";
            }
        }
        EXPECT_EQ(oCase.m_pszElements, sDigest) << oCase.m_pszName;
    }
    // No spacer behind the count of the speakers, one behind each entry.
    EXPECT_EQ((CTexts{ "      Speaker descriptor count :      2", "      - Front left and right", "\n", "\n" }),
              Cut(GetReport(gsc_eExtended, MakeEdid({ MakeCeaBlockOf({ 0x83, 1, 0, 0, 0x83, 0, 0, 0 }) })),
                  "      Speaker descriptor count :      2",
                  "      HDMI CTS warning : Speaker descriptor without audio descriptor"));
}

// A descriptor with a clock and no size counts and has no element. It has no place in the lists, hence own ones.
TEST(ExtendedReport, DetailedTimingThatDoesNotReadHasNoElement)
{
    const CBytes aui8Detailed = Join({ { 0x02, 0x3A },
                                       CBytes(16),
                                       { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58 },
                                       { 0x2C, 0x45, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1E } });
    const CModeList oNone;
    CMArrayString oLines;
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractorExt(*Load(MakeEdid({ MakeCeaBlockOf({}, aui8Detailed) })),
                                                        CVidParamTimingGeneric(), oNone, oNone, oNone, oNone, oNone,
                                                        oNone, oNone, oLines, "");
    EXPECT_EQ((CTexts{ "      Detailed count :         2", "\n",
                       "      Detailed #2 : 1920 x 1080 @  60 Hz Pix clock = 148500 KHz", "\n" }),
              Cut(GetElements(oLines), "      Detailed count :         2", "      Audio descriptor count :      0"));
}

TEST(ExtendedReport, BlocksOfTwoKindsAndTheirNumbers)
{
    const CBytes aui8Image = MakeEdid({ MakeCeaBlockOf({ 0x23, 0x09, 0x07, 0x07 }), MakeFullDisplayIdBlock(),
                                        MakeCeaBlockOf({ 0x23, 0x11, 0x07, 0x50 }) });
    const CTexts asExtended = GetReport(gsc_eExtended, aui8Image);
    EXPECT_EQ(
        (CTexts{ "  Extension #2", "\n", "      Type:                    DisplayID",
                 "      Revision:                18", "      Checksum:                Valid", "\n", gsc_sSeparator }),
        Cut(asExtended, "  Extension #2", "\n\n"));
    EXPECT_TRUE(Contains(asExtended, "      Audio descriptor #1 format : Linear Pulse Code Modulation (PCM)"));
    EXPECT_TRUE(Contains(asExtended, "      Audio descriptor #1 format : AC3"));
    EXPECT_TRUE(Contains(asExtended, "        1280 x  720 @ 60.00 Hz")); // of the DisplayID block

    // The plain report has one type for all.
    const CTexts asPlain = GetReport(gsc_ePlain, aui8Image);
    EXPECT_EQ(3, std::count(asPlain.begin(), asPlain.end(), "      Type:                    Timing extension"));
}

// A block of any tag.
class CTaggedBlock : public CEdidExtBlockDisplayID
{
public:
    explicit CTaggedBlock(unsigned int uiTag)
        : CEdidExtBlockDisplayID(128, MakeDisplayIdBlock({}).data()), m_uiTag(uiTag)
    {
    }
    unsigned int GetExtensionType() const override { return m_uiTag; }

private:
    unsigned int m_uiTag;
};

TEST(Report, NamesOfBlockTypes)
{
    const std::pair<unsigned int, const char*> aoCases[] = {
        { 2, "EIA/CEA 861" },
        { 16, "Video timing block" },
        { 64, "Display information" },
        { 80, "Localized String" },
        { 96, "Digital Packet Video Link" },
        { 112, "DisplayID" },
        { 240, "Map" },
        { 255, "Defined by manufacturer" },
        { 258, "Unknown" },
    };
    for (const auto& [uiTag, pszName] : aoCases)
    {
        EXPECT_STREQ(pszName, static_cast<const char*>(CZorEdidUtils::GetExtensionType(CTaggedBlock(uiTag))));
    }
}

// ---- The output-resolution report ----

TEST(ModesReport, NumbersGrowFromTwoDigits)
{
    const std::string sTiming = "   0    0   0   0      0    0   0   0   0   0   0  no  no - -";
    CMArrayString oLines;
    for (unsigned int uiCount : { 0U, 100U })
    {
        CModeList oModes;
        oModes.SetCount(uiCount, -1);
        oLines.Add(CMString("old"));
        CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(CVidParamTimingGeneric(), oModes, oLines, "> ");
        ASSERT_EQ(uiCount, oLines.GetCount());
    }
    EXPECT_EQ("> #01 - " + sTiming, GetElements(oLines)[0]);
    EXPECT_EQ("> #100 - " + sTiming, GetElements(oLines)[99]);
}
}

// What the stored reports do not show: odd bytes, the differences between the reports, other blocks, numbering.

#include "CapturedOutput.h"
#include "DisplayIdImages.h"
#include "EdidExtBlockDisplayID.h"
#include "EdidUtilsTestHelp.h"

namespace
{
constexpr auto gsc_ePlain = CZorEdidUtils::eEdidFormatZorEdidExtractor;
constexpr auto gsc_eExtended = CZorEdidUtils::eEdidFormatZorEdidExtractorExt;
constexpr auto gsc_eModes = CZorEdidUtils::eEdidFormatRVideoOutRes;

const std::string gsc_sSeparator(78, '-');

bool Contains(const CTexts& asElements, const std::string& sElement)
{
    return std::find(asElements.begin(), asElements.end(), sElement) != asElements.end();
}

// The elements from the first that is sFirst up to, without it, the next that is sEnd.
CTexts Cut(const CTexts& asElements, const std::string& sFirst, const std::string& sEnd)
{
    const auto oFirst = std::find(asElements.begin(), asElements.end(), sFirst);
    return CTexts(oFirst, std::find(oFirst, asElements.end(), sEnd));
}

// ---- Identity ----

struct SByteElementCase
{
    const char* m_pszName;
    std::vector<SByteChange> m_aoChanges;
    const char* m_pszElement;
};

const SByteElementCase gsc_aoIdentityCases[] = {
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

TEST(Report, IdentityOfOddBytes)
{
    for (const SByteElementCase& oCase : gsc_aoIdentityCases)
    {
        const auto poEdid = Load(ChangeBytes(AsusBytes(), oCase.m_aoChanges));
        EXPECT_TRUE(Contains(GetReport(gsc_ePlain, *poEdid), oCase.m_pszElement)) << oCase.m_pszName;
        EXPECT_TRUE(Contains(GetReport(gsc_eExtended, *poEdid), oCase.m_pszElement)) << oCase.m_pszName;
    }
}

TEST(Report, WrongChecksumIsToldAndStopsNothing)
{
    CBytes aui8Image = AsusBytes();
    aui8Image[gsc_uiBaseChecksum] ^= 1;
    EXPECT_TRUE(Contains(GetReport(gsc_ePlain, *Load(aui8Image)), "  Checksum is Not valid"));
}

// ---- What all reports share ----

// The prefix is one of the lines that are replaced, and too long for any storage inside the element.
TEST(Report, ReplacesTheLinesAndPutsThePrefixAheadOfEachElement)
{
    const std::string sPrefix = "%d" + std::string(100, '>');
    const auto poEdid = Load(AsusBytes());
    for (const auto eType : { gsc_ePlain, gsc_eExtended, gsc_eModes })
    {
        CTexts asExpected = GetReport(eType, *poEdid);
        for (std::string& sElement : asExpected)
        {
            sElement.insert(0, sPrefix);
        }
        CMArrayString oLines;
        oLines.Add(CMString(sPrefix.c_str()));
        EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, *poEdid, oLines, oLines[0]));
        EXPECT_EQ(asExpected, GetElements(oLines));
    }
}

TEST(Report, WhatThereIsNoReportOf)
{
    const struct
    {
        CBytes m_aui8Image;
        unsigned int m_uiType;
        unsigned int m_uiAssertions;
        int m_iResult;
        CTexts m_asLines;
    } aoCases[] = {
        // Without preferred mode. The lists report once; the two monitor reports add a line of their own.
        { MakeImageWithoutPreferred(), gsc_ePlain, 2, 1, {} },
        { MakeImageWithoutPreferred(), gsc_eExtended, 2, 1, {} },
        { MakeImageWithoutPreferred(), gsc_eModes, 1, 1, {} },
        // A type that is none.
        { AsusBytes(), 0, 1, 0, { "old" } },
        { AsusBytes(), 4, 1, 0, { "old" } },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_uiType);
        const auto eType = static_cast<CZorEdidUtils::EEdidFormatType>(oCase.m_uiType);
        CMArrayString oLines;
        oLines.Add(CMString("old"));
        CCapturedOutput oOutput;
        EXPECT_EQ(oCase.m_iResult, CZorEdidUtils::GetFormatedEdid(eType, *Load(oCase.m_aui8Image), oLines, ""));
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
    const auto poEdid = Load(AsusBytes());
    const CModeList oNone;
    const auto Report = [&](const CModeList& oVesa, const CModeList& oAll) {
        CMArrayString oLines;
        CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(*poEdid, oStrict[0], oVesa, oAll, oNone, oNone, oNone, oNone,
                                                         oLines, "");
        return GetElements(oLines);
    };
    EXPECT_TRUE(Contains(Report(oTolerant, oStrict), "        1280 x  720 @ 60.00 Hz"));
    EXPECT_TRUE(Contains(Report(oStrict, oTolerant), "        1280 x  720 @ 60.00 Hz (Not VESA compliant)"));
}

// ---- The extended report ----

struct SInterfaceCase
{
    unsigned char m_ui8Version;
    unsigned char m_ui8Revision;
    unsigned char m_ui8VideoInput;
    const char* m_pszText; // empty: no element
};

TEST(ExtendedReport, DigitalInterfaceOfRevision4Only)
{
    const SInterfaceCase aoCases[] = {
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
    for (const SInterfaceCase& oCase : aoCases)
    {
        const auto poEdid = Load(ChangeBytes(AsusBytes(), { { gsc_uiVersionOffset, oCase.m_ui8Version },
                                                            { gsc_uiRevisionOffset, oCase.m_ui8Revision },
                                                            { gsc_uiVideoInputOffset, oCase.m_ui8VideoInput },
                                                            { gsc_uiFeaturesOffset, gsc_uiPreferredTimingMask } }));
        const std::string sSignal =
            std::string("  Monitor signal type:         ") + (oCase.m_ui8VideoInput < 0x80 ? "Analog" : "Digital");
        const std::string sNext =
            *oCase.m_pszText == 0 ? "\n" : std::string("  Digital interface type:      ") + oCase.m_pszText;
        const CTexts asElements = GetReport(gsc_eExtended, *poEdid);
        EXPECT_EQ(sNext, Cut(asElements, sSignal, gsc_sSeparator).at(1));
    }
}

// The digest of a block with these data blocks, from its element sFirst up to the space, without indents and spacers.
CTexts GetExtendedReport(const CBytes& aui8DataBlocks)
{
    return GetReport(gsc_eExtended, *Load(MakeEdid({ MakeCeaBlockOf(aui8DataBlocks) })));
}

std::string GetDigest(const CBytes& aui8DataBlocks, const std::string& sFirst)
{
    const CTexts asReport = GetExtendedReport(aui8DataBlocks);
    const std::string sIndent(6, ' ');
    std::string sDigest;
    for (const std::string& sElement : Cut(asReport, sIndent + sFirst, gsc_sSeparator))
    {
        if (sElement != "\n" && sElement.find("Available space") == std::string::npos)
        {
            EXPECT_EQ(0U, sElement.find(sIndent));
            sDigest += "/" + sElement.substr(sIndent.size());
        }
    }
    return sDigest;
}

// All rates and bits: the PCM format has depths, AC3 a bit rate, format 9 neither.
TEST(ExtendedReport, AudioBitsByFormat)
{
    EXPECT_EQ(
        "/Audio descriptor count :      3"
        "/Audio descriptor #1 format : Linear Pulse Code Modulation (PCM)"
        "/Audio descriptor #1 supported frequencies :"
        "/- 32 KHz/- 44 KHz/- 48 KHz/- 88 KHz/- 96 KHz/- 176 KHz/- 192 KHz"
        "/Audio descriptor #1 supported bit depth :/- 16 bit/- 20 bit/- 24 bit"
        "/Audio descriptor #2 format : AC3"
        "/Audio descriptor #2 supported frequencies :/- 48 KHz"
        "/Audio descriptor #2 maximum bit rate : 2040 KHz"
        "/Audio descriptor #3 format : 1 bit"
        "/Audio descriptor #3 supported frequencies :"
        "/Speaker descriptor count :      0"
        "/HDMI CTS warning : Audio descriptor without speaker descriptor",
        GetDigest({ 0x29, 0x0F, 0x7F, 0x07, 0x15, 0x04, 0xFF, 0x4D, 0x00, 0x03 }, "Audio descriptor count :      3"));
}

TEST(ExtendedReport, SpeakersAndTheirWarnings)
{
    EXPECT_EQ("/Speaker descriptor count :      2"
              "/- Front left and right/- Low frequency effect/- Front center/- Rear left and right/- Rear center"
              "/- Front center left and right/- Rear center left and right/- Front wide center left and right"
              "/- Front wide high left and right/- Top center/- Front center high"
              "/HDMI CTS warning : Speaker descriptor without audio descriptor"
              "/HDMI CTS warning : Found more than 1 speaker descriptor",
              GetDigest({ 0x83, 0xFF, 0x07, 0x00, 0x83, 0x00, 0x00, 0x00 }, "Speaker descriptor count :      2"));
    EXPECT_EQ("/Speaker descriptor count :      1/- Front left and right",
              GetDigest({ 0x23, 0x09, 0x07, 0x07, 0x83, 0x01, 0x00, 0x00 }, "Speaker descriptor count :      1"));
    EXPECT_EQ((CTexts{ "      Speaker descriptor count :      2", "      - Front left and right", "\n", "\n" }),
              Cut(GetExtendedReport({ 0x83, 0x01, 0x00, 0x00, 0x83, 0x00, 0x00, 0x00 }),
                  "      Speaker descriptor count :      2",
                  "      HDMI CTS warning : Speaker descriptor without audio descriptor"))
        << "no spacer behind the count, one behind each entry";
}

// A descriptor with a clock and no size counts and has no element. It has no place in the lists, hence own ones.
TEST(ExtendedReport, DetailedTimingThatDoesNotReadHasNoElement)
{
    CBytes aui8Detailed = { 0x02, 0x3A };
    aui8Detailed.resize(18);
    Append(aui8Detailed, { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0, 0, 0, 0, 0, 0, 0x1E });
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
    const auto poEdid = Load(MakeEdid({ MakeCeaBlockOf({ 0x23, 0x09, 0x07, 0x07 }), MakeFullDisplayIdBlock(),
                                        MakeCeaBlockOf({ 0x23, 0x11, 0x07, 0x50 }) }));
    const CTexts asExtended = GetReport(gsc_eExtended, *poEdid);
    EXPECT_EQ(
        (CTexts{ "  Extension #2", "\n", "      Type:                    DisplayID",
                 "      Revision:                18", "      Checksum:                Valid", "\n", gsc_sSeparator }),
        Cut(asExtended, "  Extension #2", "\n\n"));
    EXPECT_TRUE(Contains(asExtended, "      Audio descriptor #1 format : Linear Pulse Code Modulation (PCM)"));
    EXPECT_TRUE(Contains(asExtended, "      Audio descriptor #1 format : AC3"));
    EXPECT_TRUE(Contains(asExtended, "        1280 x  720 @ 60.00 Hz")); // of the DisplayID block

    // The plain report has one type for all.
    const CTexts asPlain = GetReport(gsc_ePlain, *poEdid);
    EXPECT_EQ(3, std::count(asPlain.begin(), asPlain.end(), "      Type:                    Timing extension"));
}

// A block of any tag.
class CTaggedBlock : public CEdidExtBlockDisplayID
{
public:
    explicit CTaggedBlock(unsigned int uiTag)
        : CEdidExtBlockDisplayID(gsc_uiBlockSize, MakeDisplayIdBlock({}).data()), m_uiTag(uiTag)
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
    CModeList oModes;
    CMArrayString oLines;
    oLines.Add(CMString("old"));
    CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(CVidParamTimingGeneric(), oModes, oLines, "> ");
    EXPECT_EQ(0U, oLines.GetCount());

    oModes.SetCount(100, -1);
    CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(CVidParamTimingGeneric(), oModes, oLines, "> ");
    const CTexts asElements = GetElements(oLines);
    const std::string sTiming = "   0    0   0   0      0    0   0   0   0   0   0  no  no - -";
    ASSERT_EQ(100U, asElements.size());
    EXPECT_EQ("> #01 - " + sTiming, asElements[0]);
    EXPECT_EQ("> #100 - " + sTiming, asElements[99]);
}
}

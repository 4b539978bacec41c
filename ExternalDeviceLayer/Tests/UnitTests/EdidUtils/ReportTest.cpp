// What the stored reports do not show: odd bytes, the differences between the reports, other blocks, numbering.

#include "CapturedOutput.h"
#include "EdidUtilsTestHelp.h"

namespace
{
using CElements = std::vector<std::string>;

constexpr auto gsc_ePlain = CZorEdidUtils::eEdidFormatZorEdidExtractor;
constexpr auto gsc_eExtended = CZorEdidUtils::eEdidFormatZorEdidExtractorExt;
constexpr auto gsc_eModes = CZorEdidUtils::eEdidFormatRVideoOutRes;

const std::string gsc_sSeparator(78, '-');

bool Contains(const CElements& asElements, const std::string& sElement)
{
    return std::find(asElements.begin(), asElements.end(), sElement) != asElements.end();
}

// The elements from the first that is sFirst up to, without it, the next that is sEnd.
CElements Cut(const CElements& asElements, const std::string& sFirst, const std::string& sEnd)
{
    const auto oFirst = std::find(asElements.begin(), asElements.end(), sFirst);
    return CElements(oFirst, std::find(oFirst, asElements.end(), sEnd));
}

CBytes GetBaseOnly(const SEdidImage& aui8Image, unsigned char ui8BlockCount)
{
    CBytes aui8Bytes = GetBytes(aui8Image);
    aui8Bytes.resize(CEdidUtils::msc_uiBlockSize);
    return ChangeBytes(aui8Bytes, { { 126, ui8BlockCount } });
}

// An extension block that begins with these bytes, zeros behind them.
CBytes AppendBlock(CBytes aui8Image, const CBytes& aui8Start)
{
    const size_t uiOffset = aui8Image.size();
    aui8Image.resize(uiOffset + CEdidUtils::msc_uiBlockSize);
    std::copy(aui8Start.begin(), aui8Start.end(), aui8Image.begin() + static_cast<long>(uiOffset));
    return FixChecksums(aui8Image);
}

// A CEA-861 block of these data blocks, without detailed timings.
CBytes MakeCeaBlock(const CBytes& aui8DataBlocks)
{
    CBytes aui8Block(4 + aui8DataBlocks.size());
    aui8Block[0] = 2;
    aui8Block[1] = 3;
    aui8Block[2] = static_cast<unsigned char>(aui8Block.size()); // where the detailed timings would begin
    std::copy(aui8DataBlocks.begin(), aui8DataBlocks.end(), aui8Block.begin() + 4);
    return aui8Block;
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
    { "SmallestSerial",
      { { 12, 0x00 }, { 13, 0x00 }, { 14, 0x00 }, { 15, 0x80 } },
      "  Serial number:               -2147483648" },
    { "SerialIsLittleEndian",
      { { 12, 0x04 }, { 13, 0x03 }, { 14, 0x02 }, { 15, 0x01 } },
      "  Serial number:               16909060" },
    { "FirstYear", { { 17, 0 } }, "  Year of manufacture:         1990" },
    { "LastYear", { { 17, 255 } }, "  Year of manufacture:         2245" },
    { "WeekIsNotJudged", { { 16, 255 } }, "  Week of manufacture:         255" },
    { "ProductHasFourDigitsAtLeast", { { 10, 0x0A }, { 11, 0x00 } }, "  Product code:                000A" },
    { "LettersOfZeroBits", { { 8, 0x00 }, { 9, 0x00 } }, "  Manufacturer name:           @@@ ()" },
    { "LettersBehindTheAlphabet", { { 8, 0xFF }, { 9, 0xFF } }, "  Manufacturer name:           ___ ()" },
    { "LettersOfATableRow", { { 8, 0x10 }, { 9, 0xAC } }, "  Manufacturer name:           DEL (Dell Computer Corp.)" },
    { "NoNameDescriptor", { { 111, 0x10 } }, "  Monitor name:                " },
    { "PercentInTheNameIsText", { { 113, '%' }, { 114, 's' } }, "  Monitor name:                %sUS VE276" },
    { "Analog", { { 20, 0x7F } }, "  Monitor signal type:         Analog" },
    { "Digital", { { 20, 0x80 } }, "  Monitor signal type:         Digital" },
};

TEST(Report, IdentityOfOddBytes)
{
    for (const SByteElementCase& oCase : gsc_aoIdentityCases)
    {
        const auto poEdid = Load(ChangeBytes(GetBytes(AsusHd::g_auiAsusHdEdidData), oCase.m_aoChanges));
        EXPECT_TRUE(Contains(GetReport(gsc_ePlain, *poEdid, ""), oCase.m_pszElement)) << oCase.m_pszName;
        EXPECT_TRUE(Contains(GetReport(gsc_eExtended, *poEdid, ""), oCase.m_pszElement)) << oCase.m_pszName;
    }
}

TEST(Report, WrongChecksumIsToldAndStopsNothing)
{
    CBytes aui8Image = GetBytes(AsusHd::g_auiAsusHdEdidData);
    aui8Image[gsc_uiBaseChecksum] ^= 1;
    const auto poEdid = Load(aui8Image);
    EXPECT_TRUE(Contains(GetReport(gsc_ePlain, *poEdid, ""), "  Checksum is Not valid"));
    EXPECT_TRUE(Contains(GetReport(gsc_eExtended, *poEdid, ""), "  Checksum is Not valid"));
}

// ---- Structure that all reports share ----

TEST(Report, EveryElementBearsThePrefix)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        const auto poEdid = Load(*oImage.m_paui8Image);
        for (const auto eType : { gsc_ePlain, gsc_eExtended, gsc_eModes })
        {
            CElements asExpected = GetReport(eType, *poEdid, "");
            for (std::string& sElement : asExpected)
            {
                sElement.insert(0, "%d> ");
            }
            EXPECT_EQ(asExpected, GetReport(eType, *poEdid, "%d> ")) << oImage.m_pszName;
        }
    }
}

TEST(Report, OldLinesAreReplaced)
{
    const auto poEdid = Load(AsusHd::g_auiAsusHdEdidData);
    for (const auto eType : { gsc_ePlain, gsc_eExtended, gsc_eModes })
    {
        CMArrayString oLines;
        oLines.Add(CMString("old"));
        EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, *poEdid, oLines, ""));
        EXPECT_EQ(GetReport(eType, *poEdid, ""), GetElements(oLines));
    }
}

TEST(Report, PrefixMayBeOneOfTheReplacedLines)
{
    const std::string sPrefix(100, '>'); // too long for any storage inside the element
    const auto poEdid = Load(AsusHd::g_auiAsusHdEdidData);
    for (const auto eType : { gsc_ePlain, gsc_eExtended, gsc_eModes })
    {
        CMArrayString oLines;
        oLines.Add(CMString(sPrefix.c_str()));
        EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, *poEdid, oLines, oLines[0]));
        EXPECT_EQ(GetReport(eType, *poEdid, sPrefix.c_str()), GetElements(oLines));
    }
}

TEST(Report, NoExtensionNoSection)
{
    const auto poEdid = Load(TimingsCompare::g_auiTimingsCompareEdidData);
    for (const auto eType : { gsc_ePlain, gsc_eExtended })
    {
        const CElements asElements = GetReport(eType, *poEdid, "");
        const auto oEnd = std::find(asElements.begin(), asElements.end(), "\n\n");
        ASSERT_LT(3, asElements.end() - oEnd);
        EXPECT_EQ(gsc_sSeparator, oEnd[1]);
        EXPECT_EQ("                          Monitor Supported Timings", oEnd[2]);
    }
}

TEST(Report, EmptyListsKeepTheirHeadings)
{
    const CVidParamTimingGeneric oPreferred;
    const CModeList oNone;
    CMArrayString oLines;
    CEdid oEdid; // 128 zeros
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(oEdid, oPreferred, oNone, oNone, oNone, oNone, oNone, oNone,
                                                     oLines, "");
    const CElements asSection = Cut(GetElements(oLines), "                          Monitor Supported Timings",
                                    "                            Monitor EDID Raw Data");
    EXPECT_EQ((CElements{ "                          Monitor Supported Timings", "\n", "  Established timing(s):", "\n",
                          "\n", "  Standard timing(s):", "\n", "\n", "  Detailed timing(s):", "\n", "\n",
                          "  Extension block(s) timing(s):\n", "\n", "\n", gsc_sSeparator, "\n\n", gsc_sSeparator }),
              asSection);
}

// Whether an established timing is marked is asked of the list's entry: 75,010 kHz allow more than 74,800 kHz do.
TEST(Report, MarkOfAnEstablishedTimingAsksTheVesaTiming)
{
    CVidParamTimingGeneric oTolerant;
    CVidParamTimingGeneric oStrict;
    ASSERT_EQ(1, Load(MakeImageOfClock(7501))->GetBaseDetailed(0, &oTolerant));
    ASSERT_EQ(1, Load(MakeImageOfClock(7480))->GetBaseDetailed(0, &oStrict));
    CModeList oTolerantList;
    CModeList oStrictList;
    oTolerantList.Add(oTolerant);
    oStrictList.Add(oStrict);

    const auto poEdid = Load(AsusHd::g_auiAsusHdEdidData);
    const CModeList oNone;
    CMArrayString oLines;
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(*poEdid, oStrict, oTolerantList, oStrictList, oNone, oNone, oNone,
                                                     oNone, oLines, "");
    EXPECT_TRUE(Contains(GetElements(oLines), "        1280 x  720 @ 60.00 Hz"));
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(*poEdid, oStrict, oStrictList, oTolerantList, oNone, oNone, oNone,
                                                     oNone, oLines, "");
    EXPECT_TRUE(Contains(GetElements(oLines), "        1280 x  720 @ 60.00 Hz (Not VESA compliant)"));
}

TEST(Report, WithoutPreferredModeThereIsNoText)
{
    const auto poEdid = Load(ChangeBytes(GetBytes(AsusHd::g_auiAsusHdEdidData),
                                         { { gsc_uiRevisionOffset, 2 }, { gsc_uiFeaturesOffset, 0 } }));
    // The lists report once; the two monitor reports add a line of their own.
    const std::pair<CZorEdidUtils::EEdidFormatType, unsigned int> aoCases[] = { { gsc_ePlain, 2 },
                                                                                { gsc_eExtended, 2 },
                                                                                { gsc_eModes, 1 } };
    for (const auto& [eType, uiAssertions] : aoCases)
    {
        CMArrayString oLines;
        oLines.Add(CMString("old"));
        CCapturedOutput oOutput;
        EXPECT_EQ(1, CZorEdidUtils::GetFormatedEdid(eType, *poEdid, oLines, ""));
        EXPECT_EQ(uiAssertions, oOutput.TakeAssertionCount());
        EXPECT_EQ(0U, oLines.GetCount());
    }
}

TEST(Report, UnknownTypeLeavesTheLines)
{
    const auto poEdid = Load(AsusHd::g_auiAsusHdEdidData);
    for (unsigned int uiType : { 0U, 4U, 0xFFFFFFFFU })
    {
        CMArrayString oLines;
        oLines.Add(CMString("old"));
        CCapturedOutput oOutput;
        EXPECT_EQ(0, CZorEdidUtils::GetFormatedEdid(static_cast<CZorEdidUtils::EEdidFormatType>(uiType), *poEdid,
                                                    oLines, ""));
        EXPECT_EQ(1U, oOutput.TakeAssertionCount());
        EXPECT_EQ(CElements{ "old" }, GetElements(oLines));
    }
}

// ---- The extended report ----

struct SInterfaceCase
{
    const char* m_pszName;
    unsigned char m_ui8Version;
    unsigned char m_ui8Revision;
    unsigned char m_ui8VideoInput;
    const char* m_pszText; // null: no element
};

const SInterfaceCase gsc_aoInterfaceCases[] = {
    { "NotDefined", 1, 4, 0xA0, "Not defined" },
    { "Dvi", 1, 4, 0xA1, "DVI" },
    { "HdmiA", 1, 4, 0xA2, "HDMI-A" },
    { "HdmiB", 1, 4, 0xA3, "HDMI-B" },
    { "Mddi", 1, 4, 0xA4, "MDDI" },
    { "DisplayPort", 1, 4, 0xA5, "DisplayPort" },
    { "FirstReserved", 1, 4, 0xA6, "Reserved" },
    { "LastReserved", 1, 4, 0xAF, "Reserved" },
    { "Analog", 1, 4, 0x25, nullptr },
    { "Revision3", 1, 3, 0xA5, nullptr },
    { "Revision5", 1, 5, 0xA5, nullptr },
    { "Version2", 2, 4, 0xA5, nullptr },
};

TEST(ExtendedReport, DigitalInterfaceOfRevision4Only)
{
    const std::string sLabel = "  Digital interface type:      ";
    for (const SInterfaceCase& oCase : gsc_aoInterfaceCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const auto poEdid =
            Load(ChangeBytes(GetBytes(gsc_aui8Philips288P6), { { gsc_uiVersionOffset, oCase.m_ui8Version },
                                                               { gsc_uiRevisionOffset, oCase.m_ui8Revision },
                                                               { gsc_uiVideoInputOffset, oCase.m_ui8VideoInput },
                                                               { gsc_uiFeaturesOffset, gsc_uiPreferredTimingMask } }));
        CCapturedOutput oOutput;
        const CElements asElements = GetReport(gsc_eExtended, *poEdid, "");
        EXPECT_EQ(0U, oOutput.TakeAssertionCount());
        const auto oSignal = std::find_if(asElements.begin(), asElements.end(), [](const std::string& sElement) {
            return sElement.rfind("  Monitor signal type:", 0) == 0;
        });
        EXPECT_EQ(oCase.m_pszText == nullptr ? "\n" : sLabel + oCase.m_pszText, oSignal[1]);
        for (const std::string& sElement : GetReport(gsc_ePlain, *poEdid, ""))
        {
            EXPECT_NE(0U, sElement.rfind(sLabel, 0));
        }
    }
}

TEST(ExtendedReport, DigestOfABlockWithoutAudioAndSpeakers)
{
    const auto poEdid = Load(AppendBlock(GetBaseOnly(AsusHd::g_auiAsusHdEdidData, 1), MakeCeaBlock({})));
    const CElements asElements = GetReport(gsc_eExtended, *poEdid, "");
    EXPECT_EQ((CElements{ "  Extension #1", "\n", "      Type:                    EIA/CEA 861",
                          "      Revision:                3", "      Checksum:                Valid", "\n",
                          "      Detailed count :         0", "\n", "\n", "      Audio descriptor count :      0", "\n",
                          "      Speaker descriptor count :      0", "      Available space :        122 byte(s)", "\n",
                          "\n", gsc_sSeparator }),
              Cut(asElements, "  Extension #1", "\n\n"));
}

TEST(ExtendedReport, AudioSpeakersAndWarnings)
{
    const CBytes aui8Audio = { 0x29, 0x0F, 0x7F, 0x07, 0x15, 0x07, 0x50, 0x4D, 0x02, 0x03 }; // PCM, AC3 and format 9
    const CBytes aui8Speakers = { 0x83, 0xFF, 0x07, 0x00, 0x83, 0x00, 0x00, 0x00 };          // all, and none
    CBytes aui8Both = aui8Audio;
    aui8Both.insert(aui8Both.end(), aui8Speakers.begin(), aui8Speakers.end());
    const auto poEdid = Load(AppendBlock(GetBaseOnly(AsusHd::g_auiAsusHdEdidData, 1), MakeCeaBlock(aui8Both)));
    EXPECT_EQ((CElements{ "      Audio descriptor count :      3",
                          "\n",
                          "      Audio descriptor #1 format : Linear Pulse Code Modulation (PCM)",
                          "\n",
                          "      Audio descriptor #1 supported frequencies :",
                          "      - 32 KHz",
                          "      - 44 KHz",
                          "      - 48 KHz",
                          "      - 88 KHz",
                          "      - 96 KHz",
                          "      - 176 KHz",
                          "      - 192 KHz",
                          "\n",
                          "      Audio descriptor #1 supported bit depth :",
                          "      - 16 bit",
                          "      - 20 bit",
                          "      - 24 bit",
                          "\n",
                          "      Audio descriptor #2 format : AC3",
                          "\n",
                          "      Audio descriptor #2 supported frequencies :",
                          "      - 32 KHz",
                          "      - 44 KHz",
                          "      - 48 KHz",
                          "\n",
                          "      Audio descriptor #2 maximum bit rate : 640 KHz",
                          "\n",
                          "      Audio descriptor #3 format : 1 bit",
                          "\n",
                          "      Audio descriptor #3 supported frequencies :",
                          "      - 44 KHz",
                          "\n",
                          "      Speaker descriptor count :      2",
                          "      - Front left and right",
                          "      - Low frequency effect",
                          "      - Front center",
                          "      - Rear left and right",
                          "      - Rear center",
                          "      - Front center left and right",
                          "      - Rear center left and right",
                          "      - Front wide center left and right",
                          "      - Front wide high left and right",
                          "      - Top center",
                          "      - Front center high",
                          "\n",
                          "\n",
                          "      HDMI CTS warning : Found more than 1 speaker descriptor",
                          "\n" }),
              Cut(GetReport(gsc_eExtended, *poEdid, ""), "      Audio descriptor count :      3",
                  "      Available space :        104 byte(s)"));
}

TEST(ExtendedReport, WarningsAboutWhatIsMissing)
{
    const std::string sNoAudio = "      HDMI CTS warning : Speaker descriptor without audio descriptor";
    const std::string sNoSpeaker = "      HDMI CTS warning : Audio descriptor without speaker descriptor";
    const std::string sTwoSpeakers = "      HDMI CTS warning : Found more than 1 speaker descriptor";
    const std::pair<CBytes, CElements> aoCases[] = {
        { {}, {} },
        { { 0x83, 0x01, 0x00, 0x00 }, { sNoAudio } },
        { { 0x23, 0x09, 0x07, 0x07 }, { sNoSpeaker } },
        { { 0x23, 0x09, 0x07, 0x07, 0x83, 0x01, 0x00, 0x00 }, {} },
        { { 0x83, 0x01, 0x00, 0x00, 0x83, 0x02, 0x00, 0x00 }, { sNoAudio, sTwoSpeakers } },
    };
    for (const auto& [aui8DataBlocks, asExpected] : aoCases)
    {
        const auto poEdid =
            Load(AppendBlock(GetBaseOnly(AsusHd::g_auiAsusHdEdidData, 1), MakeCeaBlock(aui8DataBlocks)));
        CElements asWarnings;
        for (const std::string& sElement : GetReport(gsc_eExtended, *poEdid, ""))
        {
            if (sElement.find("HDMI CTS warning") != std::string::npos)
            {
                asWarnings.push_back(sElement);
            }
        }
        EXPECT_EQ(asExpected, asWarnings);
    }
}

TEST(ExtendedReport, BlocksOfTwoKindsAndTheirNumbers)
{
    CBytes aui8Image = GetBaseOnly(AsusHd::g_auiAsusHdEdidData, 3);
    aui8Image = AppendBlock(aui8Image, MakeCeaBlock({ 0x23, 0x09, 0x07, 0x07 }));
    // A DisplayID 1.2 section of five bytes, which sum to 0 with its checksum, without data blocks.
    aui8Image = AppendBlock(aui8Image, { 0x70, 0x12, 0x00, 0x00, 0x00, 0xEE });
    aui8Image = AppendBlock(aui8Image, MakeCeaBlock({ 0x23, 0x11, 0x07, 0x50 }));
    const auto poEdid = Load(aui8Image);
    ASSERT_EQ(3U, poEdid->GetExtensionCount());

    const CElements asExtended = GetReport(gsc_eExtended, *poEdid, "");
    EXPECT_EQ((CElements{ "  Extension #2", "\n", "      Type:                    DisplayID",
                          "      Revision:                18", "      Checksum:                Valid", "\n",
                          gsc_sSeparator }),
              Cut(asExtended, "  Extension #2", "\n\n"));
    EXPECT_TRUE(Contains(asExtended, "      Audio descriptor #1 format : Linear Pulse Code Modulation (PCM)"));
    EXPECT_TRUE(Contains(asExtended, "      Audio descriptor #1 format : AC3"));
    EXPECT_FALSE(Contains(asExtended, "      Audio descriptor #2 format : AC3"));

    // The plain report has one type for all.
    const CElements asPlain = GetReport(gsc_ePlain, *poEdid, "");
    EXPECT_EQ(3, std::count(asPlain.begin(), asPlain.end(), "      Type:                    Timing extension"));
    EXPECT_EQ(
        (CElements{ "  Extension #3", "\n", "      Type:                    Timing extension",
                    "      Revision:                3", "      Checksum:                Valid", "\n", gsc_sSeparator }),
        Cut(asPlain, "  Extension #3", "\n\n"));
}

TEST(ExtendedReport, NativeTimingsStandFirstAndInThisReportOnly)
{
    // All codes native: 1280 x 720 at 60 and 1920 x 1080 at 50 Hz, the latter without a 1000/1001 variant.
    const auto poEdid =
        Load(AppendBlock(GetBaseOnly(AsusHd::g_auiAsusHdEdidData, 1), MakeCeaBlock({ 0x42, 0x84, 0x9F })));
    const std::string sHeading = "  Extension block(s) timing(s):\n";
    EXPECT_EQ((CElements{ sHeading, "\n", "        1920 x 1080 @ 50.00 Hz (native)",
                          "        1280 x  720 @ 60.00 Hz (native)", "        1280 x  720 @ 59.00 Hz (native)", "\n" }),
              Cut(GetReport(gsc_eExtended, *poEdid, ""), sHeading, gsc_sSeparator));
    EXPECT_EQ((CElements{ sHeading, "\n", "\n" }), Cut(GetReport(gsc_ePlain, *poEdid, ""), sHeading, gsc_sSeparator));
    for (const std::string& sElement : GetReport(gsc_eModes, *poEdid, ""))
    {
        EXPECT_EQ(std::string::npos, sElement.find(" 720  59 "));
    }
}

// ---- Types of blocks ----

// A block that is nothing but its tag.
class CTaggedBlock : public CEdidExtBlock
{
public:
    explicit CTaggedBlock(unsigned int uiTag) : m_uiTag(uiTag) {}
    unsigned int GetExtensionType() const override { return m_uiTag; }
    unsigned int GetSize() const override { return 0; }
    const unsigned char* GetData() const override { return nullptr; }
    unsigned int GetEdidBuffer(unsigned int, unsigned char*) const override { return 0; }
    CByteArray GetEdidBuffer() const override { return CByteArray(); }
    unsigned int GetRevision() const override { return 0; }
    int IsChecksumValid() const override { return 0; }
    int IsStripped() const override { return 0; }
    unsigned int GetStandardCount() const override { return 0; }
    int GetStandard(unsigned int, CVidParamTiming*, int*) const override { return 0; }
    unsigned int GetDetailedCount() const override { return 0; }
    int GetDetailed(unsigned int, CVidParamTiming*) const override { return 0; }
    int RemoveStandard(unsigned int) override { return 0; }
    int RemoveDetailed(unsigned int) override { return 0; }
    int GetColorBitDepthSupport(unsigned int&) override { return 0; }
    int SetColorBitDepthSupport(unsigned int) override { return 0; }

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
        { 0, "Unknown" },
        { 1, "Unknown" },
        { 258, "Unknown" },
    };
    for (const auto& [uiTag, pszName] : aoCases)
    {
        EXPECT_STREQ(pszName, static_cast<const char*>(CZorEdidUtils::GetExtensionType(CTaggedBlock(uiTag)))) << uiTag;
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

    for (unsigned int i = 0; i < 100; ++i)
    {
        oModes.Add(CVidParamTimingGeneric());
    }
    CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(CVidParamTimingGeneric(), oModes, oLines, "> ");
    const CElements asElements = GetElements(oLines);
    const std::string sTiming = "   0    0   0   0      0    0   0   0   0   0   0  no  no - -";
    ASSERT_EQ(100U, asElements.size());
    EXPECT_EQ("> #01 - " + sTiming, asElements[0]);
    EXPECT_EQ("> #99 - " + sTiming, asElements[98]);
    EXPECT_EQ("> #100 - " + sTiming, asElements[99]);
}

TEST(ModesReport, AllSourcesInOneOrder)
{
    const CElements asElements = GetReport(gsc_eModes, *Load(ExtStandard2::g_auiStandard2EdidData), "");
    ASSERT_EQ(3U + 4 + 2 + 22 + 4, asElements.size()); // established, standard, detailed, and of the extension
    EXPECT_EQ("#01 - 4096 2160  24 54000 297000000 1020  88 296   8  10  72  no  no + +", asElements[0]);
    EXPECT_EQ("#08 - 1920 1080  60 67500 148500000   88  44 148   4   5  36  no  no + +", asElements[7]);
    EXPECT_EQ("#35 -  640  480  59 31469 25175000   16  96  48  10   2  33  no  no - -", asElements[34]);
}

// ---- Real monitors ----

TEST(Report, RealImagesGiveAllReports)
{
    const std::vector<SCorpusImage> aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no real images here";
    }
    unsigned int uiReported = 0;
    for (const SCorpusImage& oImage : aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        CCapturedOutput oOutput; // blocks of unknown kinds report
        CEdid oEdid;
        oEdid.SetEdidBuffer(oImage.m_aui8Data.data(), static_cast<unsigned int>(oImage.m_aui8Data.size()), 0);
        const size_t uiPlain = GetReport(gsc_ePlain, oEdid, "").size();
        const size_t uiExtended = GetReport(gsc_eExtended, oEdid, "").size();
        const size_t uiModes = GetReport(gsc_eModes, oEdid, "").size();
        EXPECT_EQ(uiPlain == 0, uiModes == 0);
        EXPECT_LE(uiPlain, uiExtended);
        uiReported += uiPlain != 0;
    }
    EXPECT_LT(aoImages.size() / 2, uiReported);
}
}

// EDID images out of files: which bytes a file gives, what is refused, and that no file stays open.

#include <stdlib.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "EdidUtilsTestHelp.h"

namespace
{
const std::string gsc_sMarker = std::string(8, ' ') + std::string(40, '_');
constexpr unsigned char gsc_ui8Old = 0x5A; // what the array holds before the call

unsigned int CountOpenDescriptors()
{
    unsigned int uiCount = 0;
    for ([[maybe_unused]] const auto& oEntry : std::filesystem::directory_iterator("/proc/self/fd"))
    {
        ++uiCount;
    }
    return uiCount;
}

// Text of a table row by the rules of the format.
std::string MakeRow(const CBytes& aui8Data, size_t uiStart, size_t uiCount)
{
    char szText[32];
    snprintf(szText, sizeof(szText), "%3zu |", uiStart);
    std::string sRow = szText;
    for (size_t i = uiStart; i < uiStart + uiCount; ++i)
    {
        snprintf(szText, sizeof(szText), "  %02X", aui8Data[i]);
        sRow += szText;
    }
    return sRow;
}

std::string MakeTable(const CBytes& aui8Data, size_t uiColumns, const char* pszLineEnd)
{
    std::string sText = std::string("128 BYTES OF EDID CODE:") + pszLineEnd + gsc_sMarker + pszLineEnd;
    for (size_t i = 0; i < aui8Data.size(); i += uiColumns)
    {
        sText += MakeRow(aui8Data, i, std::min(uiColumns, aui8Data.size() - i)) + pszLineEnd;
    }
    return sText;
}

CBytes MakeCountingBytes(size_t uiCount)
{
    CBytes aui8Bytes(uiCount);
    for (size_t i = 0; i < uiCount; ++i)
    {
        aui8Bytes[i] = static_cast<unsigned char>(i);
    }
    return aui8Bytes;
}

// Each test has a folder of its own, and ends with as many open descriptors as it began with.
class EdidFile : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string sTemplate = testing::TempDir() + "zoredid-file-XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(sTemplate.data()));
        m_oFolder = sTemplate;
        m_oData.Add(gsc_ui8Old);
        m_uiDescriptors = CountOpenDescriptors();
    }

    void TearDown() override
    {
        EXPECT_EQ(m_uiDescriptors, CountOpenDescriptors());
        std::filesystem::remove_all(m_oFolder);
    }

    std::string GetPath(const std::string& sName) const { return (m_oFolder / sName).string(); }

    std::string Write(const std::string& sName, const std::string& sContent) const
    {
        std::filesystem::create_directories(std::filesystem::path(GetPath(sName)).parent_path());
        std::ofstream(GetPath(sName), std::ios::binary) << sContent;
        return GetPath(sName);
    }

    // The result. Kept beside it: the number of assertion lines, and what was printed ahead of the first of them.
    int Load(const std::string& sPath)
    {
        CCapturedOutput oOutput;
        const int bLoaded = CZorEdidUtils::ExtractEdidFromFile(CMString(sPath.c_str()), m_oData);
        m_sOutput = oOutput.Take();
        m_uiAssertions = CCapturedOutput::CountAssertions(m_sOutput);
        if (m_uiAssertions != 0)
        {
            const size_t uiLineFeed = m_sOutput.rfind('\n', m_sOutput.find(CCapturedOutput::msc_pszAssertion));
            m_sOutput.resize(uiLineFeed + 1); // 0 where the assertion line is the first
        }
        return bLoaded;
    }

    std::filesystem::path m_oFolder;
    unsigned int m_uiDescriptors = 0;
    CByteArray m_oData;
    std::string m_sOutput;
    unsigned int m_uiAssertions = 0;
};

// ---- The kind of a file ----

TEST_F(EdidFile, NameOfNoKindIsRefusedAndKeepsTheArray)
{
    EXPECT_EQ(0, Load(Write("image.txt", "x")));
    EXPECT_EQ(1U, m_uiAssertions);
    EXPECT_EQ(CBytes{ gsc_ui8Old }, GetBytes(m_oData));
}

TEST_F(EdidFile, EmptyPathIsOfNoKind)
{
    EXPECT_EQ(0, Load(""));
    EXPECT_EQ(1U, m_uiAssertions);
    EXPECT_EQ(CBytes{ gsc_ui8Old }, GetBytes(m_oData));
}

TEST_F(EdidFile, EmptyPathEmptiesTheArrayInEachLoader)
{
    EXPECT_EQ(0, CZorEdidUtils::ExtractEdidFromBinFile(CMString(), m_oData));
    EXPECT_EQ(0U, m_oData.GetCount());
    m_oData.Add(gsc_ui8Old);
    EXPECT_EQ(0, CZorEdidUtils::ExtractEdidFromDatFile(CMString(), m_oData));
    EXPECT_EQ(0U, m_oData.GetCount());
}

TEST_F(EdidFile, CaseOfTheNameDoesNotMatter)
{
    EXPECT_EQ(1, Load(Write("A.BIN", "raw")));
    EXPECT_EQ((CBytes{ 'r', 'a', 'w' }), GetBytes(m_oData));
    EXPECT_EQ(1, Load(Write("A.Dat", MakeTable(MakeCountingBytes(128), 10, "\n"))));
    EXPECT_EQ(MakeCountingBytes(128), GetBytes(m_oData));
}

TEST_F(EdidFile, BinAnywhereInThePathWins)
{
    EXPECT_EQ(1, Load(Write("dumps.bin.d/table.dat", "raw")));
    EXPECT_EQ((CBytes{ 'r', 'a', 'w' }), GetBytes(m_oData));
}

TEST_F(EdidFile, DatIsFoundInsideALongerName)
{
    EXPECT_EQ(1, Load(Write("table.dat.txt", MakeTable(MakeCountingBytes(128), 16, "\n"))));
    EXPECT_EQ(128U, m_oData.GetCount());
}

// ---- What does not load, in both kinds ----

TEST_F(EdidFile, RefusedFilesLeaveTheArrayEmpty)
{
    std::filesystem::create_directory(m_oFolder / "folder.bin");
    std::filesystem::create_directory(m_oFolder / "folder.dat");
    const std::string asPaths[] = {
        GetPath("missing.bin"), GetPath("folder.bin"), Write("empty.bin", ""),
        GetPath("missing.dat"), GetPath("folder.dat"), Write("empty.dat", ""),
    };
    for (const std::string& sPath : asPaths)
    {
        SCOPED_TRACE(sPath);
        m_oData.Add(gsc_ui8Old);
        EXPECT_EQ(0, Load(sPath));
        EXPECT_EQ(1U, m_uiAssertions);
        EXPECT_EQ(0U, m_oData.GetCount());
        EXPECT_EQ(m_uiDescriptors, CountOpenDescriptors());
    }
}

TEST_F(EdidFile, FileWithoutReadPermissionIsRefused)
{
    if (geteuid() == 0)
    {
        GTEST_SKIP() << "root reads every file";
    }
    const CBytes aui8Bytes = MakeCountingBytes(128);
    for (const char* pszName : { "locked.bin", "locked.dat" })
    {
        SCOPED_TRACE(pszName);
        const std::string sPath = Write(pszName, MakeTable(aui8Bytes, 16, "\n"));
        std::filesystem::permissions(sPath, std::filesystem::perms::none);
        EXPECT_EQ(0, Load(sPath));
        EXPECT_EQ(1U, m_uiAssertions);
        EXPECT_EQ(0U, m_oData.GetCount());
    }
}

TEST_F(EdidFile, ReadErrorEndsTheTextLoader)
{
    // The first page of a process is never mapped: reading there fails, and not with the end of the file.
    const std::string sPath = GetPath("memory.dat");
    std::filesystem::create_symlink("/proc/self/mem", sPath);
    EXPECT_EQ(0, Load(sPath));
    EXPECT_EQ(0U, m_oData.GetCount());
}

// ---- Raw images ----

TEST_F(EdidFile, RawImageOfAnySizeLoads)
{
    const CBytes aui8Bytes = MakeCountingBytes(100);
    EXPECT_EQ(1, Load(Write("short.bin", std::string(aui8Bytes.begin(), aui8Bytes.end()))));
    EXPECT_EQ(aui8Bytes, GetBytes(m_oData));
    EXPECT_EQ("", m_sOutput);
}

// No limit but INT_MAX stands in the way of a file of 1 GiB: it loads, as 1 GiB of zeros, and the EDID refuses them.
TEST_F(EdidFile, SparseGibibyteOfZerosLoadsAndIsNoEdid)
{
    constexpr long lSize = 1L << 30;
    const long lAvailable = sysconf(_SC_AVPHYS_PAGES) * sysconf(_SC_PAGESIZE);
    if (lAvailable < 4 * lSize)
    {
        GTEST_SKIP() << "less than 4 GiB of free memory";
    }
    const std::string sPath = Write("zeros.bin", "");
    ASSERT_EQ(0, truncate(sPath.c_str(), lSize));
    ASSERT_EQ(1, Load(sPath));
    ASSERT_EQ(static_cast<unsigned int>(lSize), m_oData.GetCount());
    CEdid oEdid;
    EXPECT_EQ(0, oEdid.SetEdidBuffer(m_oData.GetData(), m_oData.GetCount(), 0));
}

TEST_F(EdidFile, FileAboveTheLargestArrayIsRefused)
{
    const std::string sPath = Write("huge.bin", "");
    for (const long lSize : { (1L << 31), (1L << 32) + 128, 1L << 40 })
    {
        if (truncate(sPath.c_str(), lSize) != 0)
        {
            GTEST_SKIP() << "no sparse files of this size here";
        }
        EXPECT_EQ(0, Load(sPath)) << lSize;
        EXPECT_EQ(0U, m_oData.GetCount());
    }
}

// ---- Text tables ----

TEST_F(EdidFile, TablesOfTheSuitesImagesLoadBackToTheSameBytes)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        SCOPED_TRACE(oImage.m_pszName);
        const CBytes aui8Bytes = GetBytes(*oImage.m_paui8Image);
        for (const size_t uiColumns : { 1U, 10U, 16U, 100U })
        {
            for (const char* pszLineEnd : { "\n", "\r\n" })
            {
                EXPECT_EQ(1, Load(Write("table.dat", MakeTable(aui8Bytes, uiColumns, pszLineEnd))));
                EXPECT_EQ(aui8Bytes, GetBytes(m_oData));
            }
        }
    }
}

// A row ahead of 128 bytes less what the row gives: a table that is a success shows which bytes the row gave.
struct SRowCase
{
    const char* m_pszName;
    const char* m_pszRow; // with its line end
    CBytes m_aui8Expected;
};

const SRowCase gsc_aoRowCases[] = {
    { "UpperAndLowerCaseDigits", "0 |  fF  Ff\n", { 0xFF, 0xFF } },
    { "OneDigitAndABlank", "0 |  7   B \n", { 0x07, 0x0B } },
    { "BlankAndOneDigit", "0 |   7   B\n", { 0x07, 0x0B } },
    { "NoDigitIsTheByteZero", "0 |  zz  --  xF\n", { 0x00, 0x00, 0x00 } },
    { "DigitAheadOfALetterOutsideTheBase", "0 |  Ag\n", { 0x0A } },
    { "SignCounts", "0 |  -1  +5\n", { 0xFF, 0x05 } },
    { "PrefixOfTheBaseHasNoDigitBehindIt", "0 |  0x  11\n", { 0x00, 0x11 } },
    { "BlankCellHoldsNoByte", "0 |  11      22\n", { 0x11, 0x22 } },
    { "WhatSeparatesCellsIsNotRead", "0 |xx11yy22zz33\n", { 0x11, 0x22, 0x33 } },
    { "LabelIsNotRead", "row 99  77  |  11\n", { 0x11 } },
    { "NoLabel", "|  11  22\n", { 0x11, 0x22 } },
    { "FirstBarCounts", "0 |  11  | 33\n", { 0x11, 0x00 } },
    { "LineEndsInsideACell", "0 |  11  2\n", { 0x11, 0x02 } },
    { "LineEndsInsideACellWithCrLf", "0 |  11  2\r\n", { 0x11, 0x02 } },
    { "LineEndsWhereACellBegins", "0 |  11  \n", { 0x11 } },
    { "CrLfWhereACellBegins", "0 |  11  \r\n", { 0x11 } },
    { "SecondCarriageReturnIsNoBlank", "0 |  11  \r\r\n", { 0x11, 0x00 } },
    { "BarAlone", "|\n", {} },
    { "NothingBehindTheSeparators", "0 |  \n", {} },
};

TEST_F(EdidFile, CellsOfARow)
{
    for (const SRowCase& oCase : gsc_aoRowCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8Rest(128 - oCase.m_aui8Expected.size(), 0xA5);
        const std::string sRest = MakeRow(aui8Rest, 0, aui8Rest.size()) + "\n";
        EXPECT_EQ(1, Load(Write("row.dat", gsc_sMarker + "\n" + oCase.m_pszRow + sRest)));

        CBytes aui8Expected = oCase.m_aui8Expected;
        aui8Expected.insert(aui8Expected.end(), aui8Rest.begin(), aui8Rest.end());
        EXPECT_EQ(aui8Expected, GetBytes(m_oData));
    }
}

struct STableCase
{
    const char* m_pszName;
    std::string m_sContent;
    int m_bLoads;
    size_t m_uiCount; // of the counting bytes in the array
};

TEST_F(EdidFile, WhereTheTableBeginsAndEnds)
{
    const CBytes aui8Bytes = MakeCountingBytes(256);
    const std::string sRow = MakeRow(aui8Bytes, 0, 128) + "\n";
    const std::string sSecondRow = MakeRow(aui8Bytes, 128, 128) + "\n";
    const STableCase aoCases[] = {
        { "NoMarker", "head\n" + sRow, 0, 0 },
        { "MarkerOneBlankShort", gsc_sMarker.substr(1) + "\n" + sRow, 0, 0 },
        { "MarkerOneBlankRight", " " + gsc_sMarker + "\n" + sRow, 0, 0 },
        { "MarkerOneUnderscoreShort", gsc_sMarker.substr(0, 47) + "\n" + sRow, 0, 0 },
        { "MarkerWithTextBehind", gsc_sMarker + "______ 16 columns\n" + sRow, 1, 128 },
        { "RowsAheadOfTheMarkerAreSkipped", sSecondRow + gsc_sMarker + "\n" + sRow, 1, 128 },
        { "MarkerEndsTheFileWithoutLineFeed", "head\n" + gsc_sMarker, 0, 0 },
        { "MarkerEndsTheFile", gsc_sMarker + "\n", 1, 0 },
        { "LineWithoutBarBehindTheMarker", gsc_sMarker + "\n\n" + sRow, 1, 0 },
        { "LineWithoutBarEndsTheTable", gsc_sMarker + "\n" + sRow + "end\n" + sSecondRow, 1, 128 },
        { "SecondMarkerEndsTheTable", gsc_sMarker + "\n" + sRow + gsc_sMarker + "\n" + sSecondRow, 1, 128 },
        { "LastRowWithoutLineFeed", gsc_sMarker + "\n" + sRow.substr(0, sRow.size() - 1), 1, 128 },
        { "TwoBlocks", gsc_sMarker + "\n" + sRow + sSecondRow, 1, 256 },
        { "MarkerOfAWholePieceEndsTheFile", gsc_sMarker + std::string(2047 - 48, '_'), 1, 0 },
        { "LongLineAheadOfTheMarker", std::string(5000, '|') + "\n" + gsc_sMarker + "\n" + sRow, 1, 128 },
        { "PieceOfALongLineIsTheMarker", std::string(2047, 'x') + gsc_sMarker + "\n" + sRow, 1, 128 },
        { "MarkerAcrossTwoPieces", std::string(2040, 'x') + gsc_sMarker + "\n" + sRow, 0, 0 },
    };
    for (const STableCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        EXPECT_EQ(oCase.m_bLoads, Load(Write("table.dat", oCase.m_sContent)));
        EXPECT_EQ(CBytes(aui8Bytes.begin(), aui8Bytes.begin() + static_cast<long>(oCase.m_uiCount)), GetBytes(m_oData));
        EXPECT_EQ(oCase.m_bLoads ? 0U : 1U, m_uiAssertions);
        EXPECT_EQ("", m_sOutput);
        EXPECT_EQ(m_uiDescriptors, CountOpenDescriptors());
    }
}

TEST_F(EdidFile, SizeThatIsNoMultipleOfABlockIsToldAndTheBytesStay)
{
    const CBytes aui8Bytes = MakeCountingBytes(130);
    EXPECT_EQ(0, Load(Write("table.dat", MakeTable(aui8Bytes, 10, "\n"))));
    EXPECT_EQ(aui8Bytes, GetBytes(m_oData));
    EXPECT_EQ("Invalid EDID size (130 bytes) !\n\n", m_sOutput);
    EXPECT_EQ(1U, m_uiAssertions);
}

TEST_F(EdidFile, RowIsCutWhereItsFirstPieceEnds)
{
    // 2047 characters hold a bar, two separators and 511 cells; what is behind them has no bar and ends the table.
    const CBytes aui8Bytes = MakeCountingBytes(640);
    const std::string sRow = MakeRow(aui8Bytes, 0, 640).substr(4) + "\n"; // without the label
    ASSERT_EQ('|', sRow[0]);
    EXPECT_EQ(0, Load(Write("table.dat", gsc_sMarker + "\n" + sRow)));
    EXPECT_EQ(CBytes(aui8Bytes.begin(), aui8Bytes.begin() + 511), GetBytes(m_oData));
    EXPECT_EQ("Invalid EDID size (511 bytes) !\n\n", m_sOutput);
    EXPECT_EQ(1U, m_uiAssertions);
}
}

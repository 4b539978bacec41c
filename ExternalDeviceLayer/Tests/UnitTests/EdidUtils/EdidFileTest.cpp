// EDID images out of files: which bytes a file gives, what is refused, and that no file stays open.

#include <stdlib.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "EdidUtilsTestHelp.h"

namespace
{
const std::string gsc_sMarker = std::string(8, ' ') + std::string(40, '_');
constexpr unsigned char gsc_ui8Old = 0x5A; // what the array holds before the call

unsigned int CountOpenDescriptors()
{
    const std::filesystem::directory_iterator oDescriptors("/proc/self/fd");
    return static_cast<unsigned int>(std::distance(begin(oDescriptors), end(oDescriptors)));
}

// Text of a table row by the rules of the format, without a label.
std::string MakeRow(const CBytes& aui8Data, size_t uiStart, size_t uiCount)
{
    std::string sRow = "|";
    for (size_t i = uiStart; i < uiStart + uiCount; ++i)
    {
        char szCell[8];
        snprintf(szCell, sizeof(szCell), "  %02X", aui8Data[i]);
        sRow += szCell;
    }
    return sRow;
}

std::string MakeTable(const CBytes& aui8Data, size_t uiColumns, const char* pszLineEnd)
{
    std::string sText = std::string("128 BYTES OF EDID CODE:") + pszLineEnd + gsc_sMarker + pszLineEnd;
    for (size_t i = 0; i < aui8Data.size(); i += uiColumns)
    {
        sText += "  0 " + MakeRow(aui8Data, i, std::min(uiColumns, aui8Data.size() - i)) + pszLineEnd;
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

// Each test has a folder of its own, and each load ends with as many open descriptors as it began with.
class EdidFile : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string sTemplate = testing::TempDir() + "zoredid-file-XXXXXX";
        ASSERT_NE(nullptr, mkdtemp(sTemplate.data()));
        m_oFolder = sTemplate;
        m_oData.Add(gsc_ui8Old);
    }

    void TearDown() override { std::filesystem::remove_all(m_oFolder); }

    std::string Write(const std::string& sName, const std::string& sContent) const
    {
        const std::filesystem::path oPath = m_oFolder / sName;
        std::filesystem::create_directories(oPath.parent_path());
        std::ofstream(oPath, std::ios::binary) << sContent;
        return oPath.string();
    }

    // A name in the test's folder for a file of another place.
    std::string Link(const std::string& sName, const char* pszTarget) const
    {
        std::filesystem::create_symlink(pszTarget, m_oFolder / sName);
        return (m_oFolder / sName).string();
    }

    // Expects the result, and exactly one assertion line behind what the loader prints when it is 0. Keeps the latter.
    void Load(const std::string& sPath, int bExpected)
    {
        const unsigned int uiDescriptors = CountOpenDescriptors();
        CCapturedOutput oOutput;
        const int bLoaded = CZorEdidUtils::ExtractEdidFromFile(CMString(sPath.c_str()), m_oData);
        m_sOutput = oOutput.Take();
        EXPECT_EQ(uiDescriptors, CountOpenDescriptors());
        EXPECT_EQ(bExpected, bLoaded);
        ASSERT_EQ(bExpected ? 0U : 1U, CCapturedOutput::CountAssertions(m_sOutput));
        if (!bExpected)
        {
            m_sOutput.resize(m_sOutput.rfind('\n', m_sOutput.size() - 2) + 1); // the assertion line is the last
        }
    }

    std::filesystem::path m_oFolder;
    CByteArray m_oData;
    std::string m_sOutput;
};

// ---- The kind of a file ----

TEST_F(EdidFile, KindIsToldByThePath)
{
    const CBytes aui8Bytes = MakeCountingBytes(128);
    const std::string sTable = MakeTable(aui8Bytes, 16, "\n");
    const CBytes aui8Raw = ToBytes(sTable);
    const std::tuple<const char*, int, CBytes> aoCases[] = {
        { "of.no.kind", 0, { gsc_ui8Old } }, // the array is left alone
        { "CASE.BIN", 1, aui8Raw },          { "Case.Dat", 1, aui8Bytes }, { "any.bin.where/first.dat", 1, aui8Raw },
        { "inside.dat.txt", 1, aui8Bytes },
    };
    for (const auto& [pszName, bLoads, aui8Expected] : aoCases)
    {
        SCOPED_TRACE(pszName);
        Load(Write(pszName, sTable), bLoads);
        EXPECT_EQ(aui8Expected, GetBytes(m_oData));
    }
}

// ---- What does not load, in both kinds ----

TEST_F(EdidFile, RefusedFilesLeaveTheArrayEmpty)
{
    std::vector<std::string> asPaths = {
        m_oFolder / "missing.bin",
        m_oFolder / "missing.dat",
        Write("empty.bin", ""),
        Write("empty.dat", ""),
        Link("folder.bin", "/proc"),
        Link("folder.dat", "/proc"),
        Link("readerror.dat", "/proc/self/mem"), // the first page of a process is never mapped
    };
    if (geteuid() != 0) // root reads every file
    {
        for (const char* pszName : { "locked.bin", "locked.dat" })
        {
            asPaths.push_back(Write(pszName, MakeTable(MakeCountingBytes(128), 16, "\n")));
            std::filesystem::permissions(asPaths.back(), std::filesystem::perms::none);
        }
    }
    for (const std::string& sPath : asPaths)
    {
        SCOPED_TRACE(sPath);
        m_oData.Add(gsc_ui8Old);
        Load(sPath, 0);
        EXPECT_EQ(0U, m_oData.GetCount());
        EXPECT_EQ("", m_sOutput);
    }
}

// ---- Raw images ----

TEST_F(EdidFile, ReadThatEndsEarlyIsASuccessWithZerosBehindIt)
{
    // A line of text in a file that claims a page.
    const char* pszShort = "/sys/kernel/mm/transparent_hugepage/enabled";
    if (!std::filesystem::exists(pszShort))
    {
        GTEST_SKIP() << "no file here that is shorter than its size";
    }
    CBytes aui8Expected = ReadBytes(pszShort);
    const size_t uiSize = std::filesystem::file_size(pszShort);
    ASSERT_LT(aui8Expected.size(), uiSize);
    aui8Expected.resize(uiSize);
    Load(Link("short.bin", pszShort), 1);
    EXPECT_EQ(aui8Expected, GetBytes(m_oData));
}

// No limit but INT_MAX stands in the way of a file of 1 GiB: it loads, as 1 GiB of zeros, and the EDID refuses them.
TEST_F(EdidFile, SparseGibibyteOfZerosLoadsAndIsNoEdid)
{
    constexpr long lSize = 1L << 30;
    if (sysconf(_SC_AVPHYS_PAGES) * sysconf(_SC_PAGESIZE) < 4 * lSize)
    {
        GTEST_SKIP() << "less than 4 GiB of free memory";
    }
    const std::string sPath = Write("zeros.bin", "");
    ASSERT_EQ(0, truncate(sPath.c_str(), lSize));
    Load(sPath, 1);
    ASSERT_EQ(static_cast<unsigned int>(lSize), m_oData.GetCount());
    CEdid oEdid;
    EXPECT_EQ(0, oEdid.SetEdidBuffer(m_oData.GetData(), m_oData.GetCount(), 0));
}

TEST_F(EdidFile, FileAboveTheLargestArrayIsRefused)
{
    const std::string sPath = Write("huge.bin", "");
    for (const long lSize : { (1L << 31), (1L << 32) + 128, 1L << 40 })
    {
        SCOPED_TRACE(lSize);
        if (truncate(sPath.c_str(), lSize) != 0)
        {
            GTEST_SKIP() << "no sparse files of this size here";
        }
        Load(sPath, 0); // with one line: the array never sees the size
        EXPECT_EQ(0U, m_oData.GetCount());
    }
}

// ---- Text tables ----

TEST_F(EdidFile, TablesOfTheSuitesImagesLoadBackToTheSameBytes)
{
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        SCOPED_TRACE(oImage.m_pszName);
        const CBytes aui8Bytes = ToBytes(*oImage.m_paui8Image);
        for (const size_t uiColumns : { 1U, 10U, 100U })
        {
            for (const char* pszLineEnd : { "\n", "\r\n" })
            {
                Load(Write("table.dat", MakeTable(aui8Bytes, uiColumns, pszLineEnd)), 1);
                EXPECT_EQ(aui8Bytes, GetBytes(m_oData));
            }
        }
    }
}

TEST_F(EdidFile, LargeTableIsCopiedAFewTimesOnly)
{
    const CBytes aui8Bytes = MakeCountingBytes(1U << 18); // 1 MiB of text
    const std::string sPath = Write("large.dat", MakeTable(aui8Bytes, 16, "\n"));
    constexpr int iStep = 5000;
    CCountingAllocator oHeap;
    CByteArray oData;
    oData.SetCount(0, iStep);
    EXPECT_EQ(1, CZorEdidUtils::ExtractEdidFromDatFile(CMString(sPath.c_str()), oData));
    EXPECT_EQ(aui8Bytes, GetBytes(oData));
    EXPECT_GT(20U, oHeap.GetAllocCount());
    oData.Add(0); // still grows by the caller's step
    EXPECT_EQ(aui8Bytes.size() + iStep, oHeap.GetLastSize());
}

struct SRowCase
{
    const char* m_pszName;
    std::string m_sRow;
    CBytes m_aui8Expected;
};

// A row ahead of 128 bytes less what the row gives: a table that is a success shows which bytes the row gave.
TEST_F(EdidFile, CellsOfARow)
{
    const SRowCase aoCases[] = {
        { "UpperAndLowerCaseDigits", "0 |  fF  Ff\n", { 0xFF, 0xFF } },
        { "OneDigit", "0 |  7    B\n", { 0x07, 0x0B } },
        { "NoDigitIsTheByteZero", "0 |  zz  --  xF\n", { 0x00, 0x00, 0x00 } },
        { "DigitAheadOfALetterOutsideTheBase", "0 |  Ag\n", { 0x0A } },
        { "SignCounts", "0 |  -1  +5\n", { 0xFF, 0x05 } },
        { "PrefixOfTheBaseHasNoDigitBehindIt", "0 |  0x  11\n", { 0x00, 0x11 } },
        { "BlankCellHoldsNoByte", "0 |  11      22\n", { 0x11, 0x22 } },
        { "WhatSeparatesCellsIsNotRead", "0 |xx11yy22zz33\n", { 0x11, 0x22, 0x33 } },
        { "LabelIsNotRead", "row 99  77  |  11\n", { 0x11 } },
        { "FirstBarCounts", "0 |  11  | 33\n", { 0x11, 0x00 } },
        { "LineEndsInsideACell", "0 |  11  2\n", { 0x11, 0x02 } },
        { "LineEndsInsideACellWithCrLf", "0 |  11  2\r\n", { 0x11, 0x02 } },
        { "CrLfWhereACellBegins", "0 |  11  \r\n", { 0x11 } },
        { "SecondCarriageReturnIsNoBlank", "0 |  11  \r\r\n", { 0x11, 0x00 } },
        { "NulEndsTheLine", std::string("0 |  11  2\0  33\n", 16), { 0x11, 0x02 } },
        { "BarAlone", "|\n", {} },
    };
    for (const SRowCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8Rest(128 - oCase.m_aui8Expected.size(), 0xA5);
        Load(Write("row.dat", gsc_sMarker + "\n" + oCase.m_sRow + MakeRow(aui8Rest, 0, aui8Rest.size())), 1);
        EXPECT_EQ(Join({ oCase.m_aui8Expected, aui8Rest }), GetBytes(m_oData));
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
    const CBytes aui8Bytes = MakeCountingBytes(640);
    const std::string sRow = MakeRow(aui8Bytes, 0, 128) + "\n";
    const std::string sMarked = gsc_sMarker + "\n" + sRow;
    const std::string sWholePiece = gsc_sMarker + std::string(2047 - 48, '_');
    const STableCase aoCases[] = {
        { "NoMarker", "head\n" + sRow, 0, 0 },
        { "MarkerOneBlankShort", sMarked.substr(1), 0, 0 },
        { "MarkerOneBlankRight", " " + sMarked, 0, 0 },
        { "MarkerOneUnderscoreShort", gsc_sMarker.substr(0, 47) + "\n" + sRow, 0, 0 },
        { "MarkerWithTextBehind", gsc_sMarker + "______ 16 columns\n" + sRow, 1, 128 },
        { "RowsAheadOfTheMarkerAreSkipped", sRow + sMarked, 1, 128 },
        { "MarkerEndsTheFileWithoutLineFeed", "head\n" + gsc_sMarker, 0, 0 },
        { "MarkerOfAWholePieceEndsTheFileWithoutLineFeed", sWholePiece, 0, 0 },
        { "MarkerOfAWholePiece", sWholePiece + sRow, 1, 128 },
        { "MarkerEndsTheFile", gsc_sMarker + "\n", 1, 0 },
        { "NulAheadOfTheLineFeedOfTheMarker", gsc_sMarker + std::string("\0\n", 2), 1, 0 },
        { "LineWithoutBarBehindTheMarker", gsc_sMarker + "\n\n" + sRow, 1, 0 },
        { "LineWithoutBarEndsTheTable", sMarked + "end\n" + sRow, 1, 128 },
        { "BarBehindANulDoesNotCount", sMarked + std::string("0 \0", 3) + sRow, 1, 128 },
        { "LastRowWithoutLineFeed", sMarked.substr(0, sMarked.size() - 1), 1, 128 },
        { "TwoBlocks", sMarked + MakeRow(aui8Bytes, 128, 128), 1, 256 },
        { "NoMultipleOfABlock", sMarked + MakeRow(aui8Bytes, 128, 2), 0, 130 },
        { "LongLineAheadOfTheMarker", std::string(5000, '|') + "\n" + sMarked, 1, 128 },
        { "PieceOfALongLineIsTheMarker", std::string(2047, 'x') + sMarked, 1, 128 },
        { "MarkerAcrossTwoPieces", std::string(2040, 'x') + sMarked, 0, 0 },
        // 2047 characters hold a bar, two separators and 511 cells; what is behind them has no bar.
        { "RowIsCutWhereItsFirstPieceEnds", gsc_sMarker + "\n" + MakeRow(aui8Bytes, 0, 640), 0, 511 },
    };
    for (const STableCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        Load(Write("table.dat", oCase.m_sContent), oCase.m_bLoads);
        EXPECT_EQ(CBytes(aui8Bytes.begin(), aui8Bytes.begin() + static_cast<long>(oCase.m_uiCount)), GetBytes(m_oData));
        const bool bWrongSize = oCase.m_uiCount % 128 != 0;
        EXPECT_EQ(bWrongSize ? "Invalid EDID size (" + std::to_string(oCase.m_uiCount) + " bytes) !\n\n" : "",
                  m_sOutput);
    }
}
}

// EDID images out of files: which bytes a file gives, what is refused, and that no file stays open.

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include "CountingAllocator.h"
#include "EdidUtilsTestHelp.h"

namespace
{
const std::string gsc_sMarker = std::string(8, ' ') + std::string(40, '_');
constexpr unsigned char gsc_ui8Old = 0x5A; // what the array holds before the call

long CountOpenDescriptors()
{
    const std::filesystem::directory_iterator oDescriptors("/proc/self/fd");
    return std::distance(begin(oDescriptors), end(oDescriptors));
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

std::string MakeTable(const CBytes& aui8Data, size_t uiColumns, const std::string& sLineEnd)
{
    std::string sText = "128 BYTES OF EDID CODE:" + sLineEnd + gsc_sMarker + sLineEnd;
    for (size_t i = 0; i < aui8Data.size(); i += uiColumns)
    {
        sText += "  0 " + MakeRow(aui8Data, i, std::min(uiColumns, aui8Data.size() - i)) + sLineEnd;
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

std::string GetPath(const std::string& sName) { return testing::TempDir() + std::to_string(getpid()) + sName; }

std::string Write(const std::string& sName, const std::string& sContent)
{
    std::ofstream(GetPath(sName), std::ios::binary) << sContent;
    return GetPath(sName);
}

// A name for a file of another place.
std::string Link(const std::string& sName, const char* pszTarget)
{
    std::filesystem::create_symlink(pszTarget, GetPath(sName));
    return GetPath(sName);
}

// Expects result and bytes, exactly one assertion line behind sMessage when the result is 0, and that no file stays
// open. Removes the file.
void ExpectLoad(const std::string& sPath, int bExpected, const CBytes& aui8Expected, const std::string& sMessage = "")
{
    CByteArray oData;
    oData.Add(gsc_ui8Old);
    const long lDescriptors = CountOpenDescriptors();
    CCapturedOutput oOutput;
    const int bLoaded = CZorEdidUtils::ExtractEdidFromFile(CMString(sPath.c_str()), oData);
    const std::string sOutput = oOutput.Take();
    std::filesystem::remove(sPath);
    EXPECT_EQ(lDescriptors, CountOpenDescriptors());
    EXPECT_EQ(bExpected, bLoaded) << sPath;
    EXPECT_EQ(aui8Expected, GetBytes(oData)) << sPath;
    EXPECT_EQ(bExpected != 0 ? 0U : 1U, CCapturedOutput::CountAssertions(sOutput)) << sPath;
    EXPECT_EQ(sMessage, sOutput.substr(0, sOutput.find("nr4[0]:"))) << sPath;
}

TEST(EdidFile, KindIsToldByThePath)
{
    const CBytes aui8Bytes = MakeCountingBytes(128);
    const std::string sTable = MakeTable(aui8Bytes, 16, "\n");
    const CBytes aui8Raw = ToBytes(sTable);
    ExpectLoad(Write("of.no.kind", sTable), 0, { gsc_ui8Old }); // the array is left alone
    ExpectLoad(Write("CASE.BIN", sTable), 1, aui8Raw);
    ExpectLoad(Write("Case.Dat", sTable), 1, aui8Bytes);
    ExpectLoad(Write("any.bin.first.dat", sTable), 1, aui8Raw);
    ExpectLoad(Write("inside.dat.txt", sTable), 1, aui8Bytes);
}

// ---- What does not load, in both kinds ----

TEST(EdidFile, RefusedFilesLeaveTheArrayEmpty)
{
    for (const std::string sKind : { ".bin", ".dat" })
    {
        ExpectLoad(GetPath("missing" + sKind), 0, {});
        ExpectLoad(Write("empty" + sKind, ""), 0, {});
        ExpectLoad(Link("folder" + sKind, "/proc"), 0, {});
        if (geteuid() != 0) // root reads every file
        {
            const std::string sPath = Write("locked" + sKind, MakeTable(MakeCountingBytes(128), 16, "\n"));
            std::filesystem::permissions(sPath, std::filesystem::perms::none);
            ExpectLoad(sPath, 0, {});
        }
    }
    ExpectLoad(Link("readerror.dat", "/proc/self/mem"), 0, {}); // the first page of a process is never mapped
}

// Whole rows stand in a pipe that never ends. A signal each millisecond breaks off the reading, once it waits for more.
TEST(EdidFile, ReadErrorInsideTheTableIsRefused)
{
    const std::string sPath = GetPath("pipe.dat");
    ASSERT_EQ(0, mkfifo(sPath.c_str(), 0600));
    const int iPipe = open(sPath.c_str(), O_RDWR);
    const std::string sTable = MakeTable(MakeCountingBytes(128), 16, "\n");
    ASSERT_EQ(static_cast<ssize_t>(sTable.size()), write(iPipe, sTable.data(), sTable.size()));
    struct sigaction oAction = {};
    oAction.sa_handler = [](int) {};
    ASSERT_EQ(0, sigaction(SIGALRM, &oAction, nullptr));
    ualarm(1000, 1000);
    ExpectLoad(sPath, 0, MakeCountingBytes(128));
    ualarm(0, 0);
    close(iPipe);
}

// ---- Raw images ----

TEST(EdidFile, ReadThatEndsEarlyIsASuccessWithZerosBehindIt)
{
    const char* pszShort = "/sys/kernel/mm/transparent_hugepage/enabled"; // a line of text that claims a page
    if (!std::filesystem::exists(pszShort))
    {
        GTEST_SKIP() << "no file here that is shorter than its size";
    }
    CBytes aui8Expected = ReadBytes(pszShort);
    const size_t uiSize = std::filesystem::file_size(pszShort);
    ASSERT_LT(aui8Expected.size(), uiSize);
    aui8Expected.resize(uiSize);
    ExpectLoad(Link("short.bin", pszShort), 1, aui8Expected);
}

// The heap is asked for the largest array, and refuses it. No array ever sees a larger size.
TEST(EdidFile, NoLimitButThatOfTheArray)
{
    constexpr long lLargest = (1L << 31) - 1;
    for (const long lSize : { lLargest, lLargest + 1, (1L << 32) + 128, 1L << 40 })
    {
        const std::string sPath = Write("huge.bin", "");
        if (truncate(sPath.c_str(), lSize) != 0)
        {
            GTEST_SKIP() << "no sparse files of this size here";
        }
        const long lDescriptors = CountOpenDescriptors();
        CCountingAllocator oHeap(lLargest - 1);
        CByteArray oData;
        try
        {
            EXPECT_EQ(0, CZorEdidUtils::ExtractEdidFromBinFile(CMString(sPath.c_str()), oData));
        }
        catch (const std::bad_alloc&)
        {
        }
        EXPECT_EQ(lSize == lLargest ? 1U : 0U, oHeap.GetRefusedCount()) << lSize;
        EXPECT_EQ(lDescriptors, CountOpenDescriptors());
        std::filesystem::remove(sPath);
    }
}

// ---- Text tables ----

TEST(EdidFile, TablesLoadBackToTheSameBytes)
{
    const CBytes aui8Bytes = MakeCountingBytes(256);
    for (const size_t uiColumns : { 1U, 10U, 100U })
    {
        for (const char* pszLineEnd : { "\n", "\r\n" })
        {
            ExpectLoad(Write("table.dat", MakeTable(aui8Bytes, uiColumns, pszLineEnd)), 1, aui8Bytes);
        }
    }
}

TEST(EdidFile, LargeTableIsCopiedAFewTimesOnly)
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

// A row ahead of 128 bytes less what the row gives: a table that is a success shows which bytes the row gave.
TEST(EdidFile, CellsOfARow)
{
    const struct
    {
        const char* m_pszName;
        std::string m_sRow;
        CBytes m_aui8Expected;
    } aoCases[] = {
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
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const CBytes aui8Rest(128 - oCase.m_aui8Expected.size(), 0xA5);
        const std::string sTable = gsc_sMarker + "\n" + oCase.m_sRow + MakeRow(aui8Rest, 0, aui8Rest.size());
        ExpectLoad(Write("row.dat", sTable), 1, Join({ oCase.m_aui8Expected, aui8Rest }));
    }
}

TEST(EdidFile, WhereTheTableBeginsAndEnds)
{
    const CBytes aui8Bytes = MakeCountingBytes(640);
    const std::string sRow = MakeRow(aui8Bytes, 0, 128) + "\n";
    const std::string sMarked = gsc_sMarker + "\n" + sRow;
    const std::string sWholePiece = gsc_sMarker + std::string(2047 - 48, '_');
    const struct
    {
        const char* m_pszName;
        std::string m_sContent;
        int m_bLoads;
        size_t m_uiCount; // of the counting bytes in the array
    } aoCases[] = {
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
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const std::string sMessage = "Invalid EDID size (" + std::to_string(oCase.m_uiCount) + " bytes) !\n\n";
        ExpectLoad(Write("table.dat", oCase.m_sContent), oCase.m_bLoads, MakeCountingBytes(oCase.m_uiCount),
                   oCase.m_uiCount % 128 == 0 ? "" : sMessage);
    }
}
}

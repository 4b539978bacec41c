// EDID images out of files: which bytes a file gives, what is refused, and that no file stays open.

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include "CountingAllocator.h"
#include "EdidUtilsTestHelp.h"
#include "TemporaryFile.h"

namespace
{
constexpr unsigned char gsc_ui8Old = 0x5A; // what the array holds before the call

CBytes MakeCountingBytes(size_t uiCount)
{
    CBytes aui8Bytes(uiCount);
    std::iota(aui8Bytes.begin(), aui8Bytes.end(), static_cast<unsigned char>(0));
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

// Expects result and bytes, exactly one assertion line after sMessage when the result is 0, and that no file stays
// open. Removes the file.
void ExpectLoad(const std::string& sPath, int bExpected, const CBytes& aui8Expected, const std::string& sMessage = "")
{
    CByteArray oData;
    oData.Add(gsc_ui8Old);
    CCapturedOutput oOutput; // before the descriptor: it opens some, too
    const int iDescriptor = GetNextDescriptor();
    const int bLoaded = CZorEdidUtils::ExtractEdidFromFile(CMString(sPath.c_str()), oData);
    const int iDescriptorBehind = GetNextDescriptor();
    const std::string sOutput = oOutput.Take();
    std::filesystem::remove(sPath);
    EXPECT_EQ(iDescriptor, iDescriptorBehind);
    EXPECT_EQ(bExpected, bLoaded) << sPath;
    EXPECT_EQ(aui8Expected, GetBytes(oData)) << sPath;
    EXPECT_EQ(bExpected != 0 ? 0U : 1U, CCapturedOutput::CountAssertions(sOutput)) << sPath;
    EXPECT_EQ(sMessage, sOutput.substr(0, sOutput.find("nr4[0]:"))) << sPath;
}

TEST(EdidFile, KindFollowsFromThePath)
{
    const CBytes aui8Bytes = MakeCountingBytes(128);
    const std::string sTable = MakeTextTable(aui8Bytes, 16, "\n");
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
            const std::string sPath = Write("locked" + sKind, MakeTextTable(MakeCountingBytes(128), 16, "\n"));
            std::filesystem::permissions(sPath, std::filesystem::perms::none);
            ExpectLoad(sPath, 0, {});
        }
    }
    for (const char* pszDevice : { "/dev/null", "/dev/zero" }) // the second one never ends
    {
        ExpectLoad(Link("device.dat", pszDevice), 0, {});
    }
    ExpectLoad(Link("readerror.dat", "/proc/self/mem"), 0, {}); // the first page of a process is never mapped
}

// A pipe that never ends has whole rows. A signal each millisecond breaks off the reading, once it waits for more.
TEST(EdidFile, ReadErrorInsideTheTableIsRefused)
{
    const std::string sPath = GetPath("pipe.dat");
    ASSERT_EQ(0, mkfifo(sPath.c_str(), 0600));
    const int iPipe = open(sPath.c_str(), O_RDWR);
    const std::string sTable = MakeTextTable(MakeCountingBytes(128), 16, "\n");
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
        const int iDescriptor = GetNextDescriptor();
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
        EXPECT_EQ(iDescriptor, GetNextDescriptor());
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
            ExpectLoad(Write("table.dat", MakeTextTable(aui8Bytes, uiColumns, pszLineEnd)), 1, aui8Bytes);
        }
    }
}

TEST(EdidFile, LargeTableIsCopiedAFewTimesOnly)
{
    const CBytes aui8Bytes = MakeCountingBytes(1U << 18); // 1 MiB of text
    const std::string sPath = Write("large.dat", MakeTextTable(aui8Bytes, 16, "\n"));
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

// The text of a case, whose pieces are separated by blanks.
std::string MakeContent(const std::string& sPieces)
{
    const std::map<std::string, std::string> oWords = {
        { "MARK", gsc_sTableMarker }, { "CR", "\r" }, { "LF", "\n" }, { "NUL", std::string(1, '\0') }
    };
    std::string sContent;
    std::istringstream oPieces(sPieces);
    for (std::string sPiece; oPieces >> sPiece;)
    {
        const size_t uiStar = sPiece.find('*');
        const size_t uiTimes = uiStar != std::string::npos ? std::stoul(sPiece.substr(uiStar + 1)) : 1;
        const auto itWord = oWords.find(sPiece.substr(0, uiStar));
        std::string sText = itWord != oWords.end() ? itWord->second : sPiece.substr(0, uiStar);
        std::replace(sText.begin(), sText.end(), '.', ' ');
        std::replace(sText.begin(), sText.end(), '!', '|');
        for (size_t i = 0; i < uiTimes; ++i)
        {
            sContent += sText;
        }
    }
    return sContent;
}

TEST(EdidFile, TablesAndTheirCells)
{
    for (const SCaseRow& oRow : ReadCases("EdidUtils/golden/cases/files.txt", 4))
    {
        SCOPED_TRACE(oRow.GetName());
        const CBytes aui8Expected = oRow.GetBytes(2);
        const std::string sMessage = "Invalid EDID size (" + std::to_string(aui8Expected.size()) + " bytes) !\n\n";
        ExpectLoad(Write("table.dat", MakeContent(oRow.GetText(1))), static_cast<int>(oRow.GetNumber(3)), aui8Expected,
                   aui8Expected.size() % 128 == 0 ? "" : sMessage);
    }
}
} // namespace

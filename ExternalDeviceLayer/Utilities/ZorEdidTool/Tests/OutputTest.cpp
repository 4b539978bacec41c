// Writing: a file is replaced whole or not at all, and every form is read back to the same bytes.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "Input.h"
#include "Output.h"
#include "OutputForms.h"
#include "ScratchFolder.h"
#include "TestBytes.h"

namespace
{
using CNames = std::set<std::string>;

class Output : public CScratchFolder
{
protected:
    // "done" or the problem.
    static std::string Put(const std::filesystem::path& oPath, const std::string& sContent, bool bForce)
    {
        const SWritten oWritten = WriteOutput(oPath, sContent, bForce, true);
        return oWritten.IsGood() ? "done" : oWritten.m_sProblem;
    }
    static std::string Ask(const std::filesystem::path& oPath, bool bForce)
    {
        const SWritten oWritten = CheckOutput(oPath, bForce, true);
        return oWritten.IsGood() ? "done" : oWritten.m_sProblem;
    }
    mode_t GetMode(const char* pszName) const
    {
        struct stat oStatus = {};
        stat((m_oFolder / pszName).c_str(), &oStatus);
        return oStatus.st_mode & 07777;
    }
};

constexpr char gsc_szExists[] = "exists already (use --force)";

TEST_F(Output, ANewFileHasTheModeThatTheMaskLeaves)
{
    const mode_t uiMask = umask(027);
    EXPECT_EQ("done", Put(m_oFolder / "new", std::string("a\0b", 3), false));
    EXPECT_EQ(0640U, GetMode("new"));
    umask(077);
    EXPECT_EQ("done", Put(m_oFolder / "other", "", false));
    EXPECT_EQ(0600U, GetMode("other"));
    EXPECT_EQ(077U, umask(uiMask)); // as it was set
    EXPECT_EQ(std::string("a\0b", 3), Read("new"));
    EXPECT_EQ((CNames{ "new", "other" }), List());
}

TEST_F(Output, AnExistingFileIsReplacedInOneStepAndKeepsItsMode)
{
    const std::string sPath = Write("old", "long old content");
    std::filesystem::create_hard_link(sPath, m_oFolder / "open");
    chmod(sPath.c_str(), 04604);
    EXPECT_EQ(gsc_szExists, Put(sPath, "new", false));
    EXPECT_EQ(gsc_szExists, Ask(sPath, false));
    EXPECT_EQ("long old content", Read("old"));
    EXPECT_EQ("done", Ask(sPath, true));
    EXPECT_EQ("long old content", Read("old"));
    EXPECT_EQ("done", Put(sPath, "new", true));
    EXPECT_EQ("new", Read("old"));
    EXPECT_EQ("long old content", Read("open")); // who had it open reads on
    EXPECT_EQ(04604U, GetMode("old"));
    EXPECT_EQ((CNames{ "old", "open" }), List());
}

TEST_F(Output, LinksAreFollowed)
{
    Write("a/old", "old");
    std::filesystem::create_directory(m_oFolder / "b");
    std::filesystem::create_symlink("../a/old", m_oFolder / "b/near");
    std::filesystem::create_symlink(m_oFolder / "b/near", m_oFolder / "far");
    std::filesystem::create_symlink("a/none", m_oFolder / "nothing");
    std::filesystem::create_symlink("loop", m_oFolder / "loop");

    EXPECT_EQ(gsc_szExists, Put(m_oFolder / "far", "new", false));
    EXPECT_EQ("done", Put(m_oFolder / "far", "new", true));
    EXPECT_EQ("new", Read("a/old"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_oFolder / "far"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_oFolder / "b/near"));

    EXPECT_EQ(gsc_szExists, Put(m_oFolder / "nothing", "new", false));
    EXPECT_EQ("", Read("a/none"));
    EXPECT_EQ("done", Put(m_oFolder / "nothing", "come up", true));
    EXPECT_EQ("come up", Read("a/none"));

    EXPECT_EQ("cannot be written: Too many levels of symbolic links", Put(m_oFolder / "loop", "new", true));
    EXPECT_EQ("cannot be written: Too many levels of symbolic links", Ask(m_oFolder / "loop", true));
}

TEST_F(Output, WhatCannotBeWrittenLeavesNothing)
{
    Write("file", "old");
    const struct
    {
        std::filesystem::path m_oPath;
        const char* m_pszProblem;
    } aoCases[] = {
        { m_oFolder, "is a folder" },
        { m_oFolder / "none/new", "cannot be written: No such file or directory" },
        { m_oFolder / "file/new", "cannot be written: Not a directory" },
        { m_oFolder / std::string(256, 'x'), "cannot be written: File name too long" },
        { "/dev/full", "cannot be written: No space left on device" },
    };
    for (const auto& [oPath, pszProblem] : aoCases)
    {
        EXPECT_EQ(pszProblem, Put(oPath, "new", true)) << oPath;
        EXPECT_EQ(oPath == "/dev/full" ? "done" : pszProblem, Ask(oPath, true)) << oPath;
    }
    EXPECT_EQ("done", Put(m_oFolder / std::string(255, 'x'), "new", false)); // the longest name
    EXPECT_EQ("done", Put("/dev/null", "new", false));                       // a stream is not a file to keep
    EXPECT_EQ((CNames{ "file", std::string(255, 'x') }), List());
    EXPECT_EQ("old", Read("file"));
}

// A disk that fills up while the content is written.
TEST_F(Output, AFailureInTheMiddleKeepsTheOldContent)
{
    const std::string sPath = Write("file", "old");
    const auto fnOldHandler = signal(SIGXFSZ, SIG_IGN);
    rlimit oOld = {};
    getrlimit(RLIMIT_FSIZE, &oOld);
    const rlimit oLow = { 1000, oOld.rlim_max };
    setrlimit(RLIMIT_FSIZE, &oLow);
    const std::string sForced = Put(sPath, std::string(2000, 'x'), true);
    const std::string sNew = Put(m_oFolder / "new", std::string(2000, 'x'), false);
    setrlimit(RLIMIT_FSIZE, &oOld);
    signal(SIGXFSZ, fnOldHandler);
    EXPECT_EQ("cannot be written: File too large", sForced);
    EXPECT_EQ("cannot be written: File too large", sNew);
    EXPECT_EQ("old", Read("file"));
    EXPECT_EQ(CNames{ "file" }, List());
}

// A limit on the size of files sends the signal while half of the content is written.
TEST_F(Output, ASignalInTheMiddleLeavesNothing)
{
    const auto fnWriteUntil = [this](int iSignal) {
        static int s_iSignal;
        s_iSignal = iSignal;
        const rlimit oLow = { 1000, 1000 };
        setrlimit(RLIMIT_FSIZE, &oLow);
        signal(SIGXFSZ, [](int) { raise(s_iSignal); });
        return Put(m_oFolder / "new", std::string(2000, 'x'), false) == "cannot be written: File too large" ? 7 : 8;
    };
    for (const int iSignal : { SIGHUP, SIGINT, SIGTERM })
    {
        // Shells start what runs in the background with ignored signals.
        EXPECT_EXIT((signal(iSignal, SIG_DFL), _exit(fnWriteUntil(iSignal))), testing::KilledBySignal(iSignal), "");
        EXPECT_EQ(CNames{}, List());
    }
    EXPECT_EXIT((signal(SIGHUP, SIG_IGN), _exit(fnWriteUntil(SIGHUP))), testing::ExitedWithCode(7), ""); // as of nohup
    EXPECT_EQ(CNames{}, List());
    // And what comes later finds the signals as they were.
    EXPECT_EQ("done", Put(m_oFolder / "new", "x", false));
    EXPECT_EQ(SIG_DFL, signal(SIGTERM, SIG_DFL));
}

TEST_F(Output, ANameWithoutFolderIsInThePresentOne)
{
    const std::filesystem::path oBefore = std::filesystem::current_path();
    std::filesystem::current_path(m_oFolder);
    EXPECT_EQ("done", Ask("new", false));
    EXPECT_EQ("done", Put("new", "x", false));
    EXPECT_TRUE(IsStandardOutput("-"));
    EXPECT_TRUE(IsStandardOutput("/dev/stdout"));
    EXPECT_FALSE(IsStandardOutput("new"));
    EXPECT_FALSE(IsStandardOutput("none"));
    std::filesystem::current_path(oBefore);
    EXPECT_EQ(CNames{ "new" }, List());
}

// ---- Forms ----

std::string Make(const std::string& sForm, const CBytes& aui8Bytes)
{
    for (const SOutputForm& oForm : GetOutputForms())
    {
        if (sForm == oForm.m_pszName)
        {
            return oForm.m_pfnMake(aui8Bytes);
        }
    }
    return "no such form";
}

TEST(OutputForms, AreThoseOfOtherTools)
{
    const CBytes aui8Bytes = ParseBytes("00 41 FF 20 7E 7F 1F 2A*8 7C 3E 3D 3F");
    EXPECT_EQ("00000000: 0041 ff20 7e7f 1f2a 2a2a 2a2a 2a2a 2a7c  .A. ~..********|\n"
              "00000010: 3e3d 3f                                  >=?\n",
              Make("xxd", aui8Bytes));
    EXPECT_EQ("00 41 ff 20 7e 7f 1f 2a 2a 2a 2a 2a 2a 2a 2a 7c\n3e 3d 3f\n", Make("hex", aui8Bytes));
    EXPECT_EQ("const unsigned char edid[19] = {\n"
              "    0x00, 0x41, 0xff, 0x20, 0x7e, 0x7f, 0x1f, 0x2a, 0x2a, 0x2a, 0x2a, 0x2a, 0x2a, 0x2a, 0x2a, 0x7c,\n"
              "    0x3e, 0x3d, 0x3f,\n};\n",
              Make("c", aui8Bytes));
    EXPECT_EQ("AEH/IH5/HyoqKioqKioqfD49Pw==\n", Make("base64", aui8Bytes));
    EXPECT_EQ("Kys=\n", Make("base64", { 0x2B, 0x2B }));
    EXPECT_EQ("++++\n", Make("base64", { 0xFB, 0xEF, 0xBE }));
    EXPECT_EQ(std::string(76, 'A') + "\n", Make("base64", CBytes(57)));
    EXPECT_EQ(std::string(76, 'A') + "\nAA==\n", Make("base64", CBytes(58)));
    EXPECT_EQ(std::string(8, ' ') + std::string(40, '_') +
                  "\n     0 |  00  41  FF  20  7E  7F  1F  2A  2A  2A\n    10 |  2A  2A  2A  2A  2A  7C  3E  3D  3F\n",
              Make("dat", aui8Bytes));
}

// Bytes whose readable column has blanks, stars, bars and digits, and lines that are all alike.
TEST(OutputForms, AreReadBackToTheSameBytes)
{
    const CBytes aui8Head = ParseBytes("00 FF*6 00");
    CBytes aui8All(256);
    std::iota(aui8All.begin(), aui8All.end(), static_cast<unsigned char>(0));
    CBytes aui8Largest = Join({ aui8Head, CBytes(256 * 128 - 8) });
    aui8Largest.back() = 0x2A;
    const CBytes aaui8Images[] = { Join({ aui8Head, CBytes(120, 0x20) }),
                                   Join({ aui8Head, CBytes(120, 0x2A) }),
                                   Join({ aui8Head, CBytes(120, 0x7C) }),
                                   Join({ aui8Head, CBytes(120, 0x30) }),
                                   Join({ aui8Head, CBytes(248, 0xAA) }),
                                   aui8All,
                                   aui8Largest };
    for (const CBytes& aui8Image : aaui8Images)
    {
        for (const SOutputForm& oForm : GetOutputForms())
        {
            const SInput oInput = DecodeInputs("x", oForm.m_pfnMake(aui8Image)).front();
            EXPECT_EQ("", oInput.m_sProblem) << oForm.m_pszName;
            EXPECT_TRUE(aui8Image == oInput.m_aui8Bytes) << oForm.m_pszName << ' ' << static_cast<int>(aui8Image[8]);
        }
    }
}
} // namespace

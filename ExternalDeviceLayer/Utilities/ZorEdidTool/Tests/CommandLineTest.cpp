// The first word of a command line where a subcommand is the default.

#include <gtest/gtest.h>

#include "CommandLine.h"

namespace
{
// What runs, and with which words; "refused" for a wrong command line.
std::string RunWith(const std::vector<std::string>& asArguments, const char* pszDefault)
{
    std::vector<std::string> asCopies = asArguments;
    std::vector<char*> apszArguments = { nullptr };
    for (std::string& sCopy : asCopies)
    {
        apszArguments.push_back(sCopy.data());
    }
    CCommandLine oCommandLine(static_cast<int>(apszArguments.size()), apszArguments.data(), "tool", "");
    bool bVerbose = false;
    std::string sFolder;
    oCommandLine.GetOptions().Flag("-v,--verbose", bVerbose, "");
    oCommandLine.GetOptions().Word("--folder", sFolder, "");
    std::string sRun;
    std::vector<std::string> asWords;
    for (const char* pszName : { "show", "list" })
    {
        oCommandLine.Subcommand(pszName, "", [&, pszName](COptions& oCommand) {
            oCommand.Words("FILE", asWords, "");
            oCommand.Run([&, pszName] { sRun = pszName; });
        });
    }
    oCommandLine.Default(pszDefault);
    const EExit eExit = oCommandLine.Parse([] {});
    for (const std::string& sWord : asWords)
    {
        sRun += " " + sWord;
    }
    return eExit == eExit_Good ? sRun : "refused";
}

TEST(CommandLine, AFirstWordThatIsAFileMeansTheDefault)
{
    const std::pair<std::vector<std::string>, const char*> aoCases[] = {
        { { "a.bin" }, "show a.bin" },
        { { "./list", "list" }, "show ./list list" },
        { { "-v", "--folder", "list", "-" }, "show -" },
        { { "HDMI-A-1", "-v" }, "show HDMI-A-1" },
        { { "--", "-b" }, "show -b" },
        { { "list", "a.bin" }, "list a.bin" },
        { { "--folder=a.b", "list", "a.bin" }, "list a.bin" },
        { { "lists" }, "refused" },
        { { "-x", "a.bin" }, "refused" },
        { {}, "refused" },
    };
    for (const auto& [asArguments, pszRun] : aoCases)
    {
        EXPECT_EQ(pszRun, RunWith(asArguments, "show"));
    }
    EXPECT_EQ("refused", RunWith({ "a.bin" }, "none"));
}
} // namespace

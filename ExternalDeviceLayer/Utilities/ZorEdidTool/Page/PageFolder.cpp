// The walk over the images, which pages are made again, and the files.

#include "PageFolder.h"

#include <stdint.h>
#include <stdio.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>
#include <utility>

#include "ManyFiles.h"
#include "Output.h"
#include "PageAssets.h"
#include "PageIndex.h"
#include "PageParts.h"
#include "TextFormat.h"
#include "Version.h"

namespace
{
namespace fs = std::filesystem;

constexpr const char* gsc_pszIndexMark = "index";
constexpr const char* gsc_pszForeign = "exists already, and is not a page of such a run (use --force)";

// ---- Names ----

// The files of a folder and of those below it. Names that begin with a point are left out, as are links to folders,
// which may lead in circles, and a folder of pages that lies among the images.
class CImageNames
{
public:
    CImageNames(const SPageFolder& oFolder, STool& oTool) : m_oFolder(oFolder), m_oTool(oTool)
    {
        AddFolder(oFolder.m_sImages);
        std::ranges::sort(m_asNames);
    }

    std::vector<std::string> Take() { return std::move(m_asNames); }

private:
    void AddFolder(const fs::path& oPath)
    {
        std::error_code oError;
        for (fs::directory_iterator itEntry(oPath, oError); !oError && itEntry != fs::directory_iterator();
             itEntry.increment(oError))
        {
            Add(*itEntry);
        }
        if (oError)
        {
            fputs(MakeErrorLine(oPath.native(), "cannot be read: " + oError.message()).c_str(), stderr);
            m_oTool.Note(eExit_Input);
        }
    }

    void Add(const fs::directory_entry& oEntry)
    {
        std::error_code oNone; // of what has gone in the meantime
        if (oEntry.path().filename().native().starts_with('.'))
        {
            return;
        }
        if (oEntry.is_regular_file(oNone))
        {
            m_asNames.push_back(oEntry.path().native());
        }
        else if (oEntry.is_directory(oNone) && !oEntry.is_symlink(oNone) &&
                 !fs::equivalent(oEntry.path(), m_oFolder.m_sOut, oNone))
        {
            AddFolder(oEntry.path());
        }
    }

    const SPageFolder& m_oFolder;
    STool& m_oTool;
    std::vector<std::string> m_asNames;
};

// ---- Marks ----

// FNV-1a in 64 bits. It notices changes; nobody gains by two images of one sum.
class CSum
{
public:
    void Add(std::string_view svBytes)
    {
        constexpr uint64_t ullPrime = 0x100000001B3;
        for (const char cNext : svBytes)
        {
            m_ullSum = (m_ullSum ^ static_cast<unsigned char>(cNext)) * ullPrime;
        }
        m_ullSum = (m_ullSum ^ svBytes.size()) * ullPrime; // parts stay apart
    }

    std::string GetText() const { return FormatText("%016llx", static_cast<unsigned long long>(m_ullSum)); }

private:
    uint64_t m_ullSum = 0xCBF29CE484222325;
};

// The sum of all that a page is made of: the image, what is said about its file, the year and the makers' names, both
// of which the row shows, and this program.
std::string MakeMark(const SPageImage& oImage, const CHtml& oRow, unsigned int uiThisYear)
{
    const std::vector<unsigned char>& aui8Bytes = oImage.m_oInput.m_aui8Bytes;
    CSum oSum;
    oSum.Add({ reinterpret_cast<const char*>(aui8Bytes.data()), aui8Bytes.size() });
    for (const std::string& sPart : { oImage.m_oInput.m_sImages, oRow.Get(), std::to_string(uiThisYear),
                                      std::string(GetVersion()), GetPageStyleHash(), GetPageScriptHash() })
    {
        oSum.Add(sPart);
    }
    return oSum.GetText();
}

struct SPresent
{
    bool m_bExists;
    std::string m_sMark; // empty for a file that no such run made
};

SPresent FindPresent(const std::string& sPath)
{
    std::error_code oNone;
    if (!fs::exists(fs::symlink_status(sPath, oNone)))
    {
        return { false, "" };
    }
    std::array<char, gsc_uiMarkEnd> acStart = {};
    if (fs::is_regular_file(sPath, oNone)) // no pipe, which would be waited for
    {
        std::ifstream(sPath, std::ios::binary).read(acStart.data(), acStart.size());
    }
    return { true, FindMark({ acStart.data(), acStart.size() }) };
}

// ---- Pages ----

// A run. MakeOne is called by several threads.
class CPageFolder
{
public:
    CPageFolder(const SPageFolder& oFolder, STool& oTool)
        : m_oFolder(oFolder), m_oTool(oTool), m_sIndex(GetPath("index.html")), m_uiThisYear(GetThisYear())
    {
    }

    void Write()
    {
        if (!Prepare())
        {
            return;
        }
        SFiles oFiles;
        oFiles.m_asNames = CImageNames(m_oFolder, m_oTool).Take();
        if (oFiles.m_asNames.empty())
        {
            Refuse(m_oFolder.m_sImages, "has no files");
            return;
        }
        PrepareForThreads();
        m_oIndex = OpenIndex(GetTitle());
        oFiles.m_uiJobs = m_oFolder.m_uiJobs;
        oFiles.m_bTurnsForBadOnes = true;
        oFiles.m_bTurnsSayImages = true;
        oFiles.m_fnTake = [this](const std::string& sRow) {
            (IsUnreadRow(sRow) ? m_oUnread : m_oIndex) << CHtml::Resume(sRow);
        };
        ForEachInput(oFiles, m_oTool, [this](const SInput& oInput) { return MakeOne(oInput); });
        WriteIndex();
    }

private:
    std::string GetPath(const std::string& sName) const { return (fs::path(m_oFolder.m_sOut) / sName).native(); }

    void Refuse(const std::string& sName, const std::string& sReason)
    {
        fputs(MakeErrorLine(sName, sReason).c_str(), stderr);
        m_oTool.Note(eExit_Input);
    }

    // False when nothing can come of the run.
    bool Prepare()
    {
        std::error_code oError;
        fs::create_directories(m_oFolder.m_sOut, oError);
        if (oError)
        {
            Refuse(m_oFolder.m_sOut, "cannot be made: " + oError.message());
            return false;
        }
        if (fs::equivalent(m_oFolder.m_sImages, m_oFolder.m_sOut, oError))
        {
            Refuse(m_oFolder.m_sOut, "is the folder of the images");
            return false;
        }
        if (!CanReplace(FindPresent(m_sIndex)))
        {
            Refuse(m_sIndex, gsc_pszForeign);
            return false;
        }
        return true;
    }

    bool CanReplace(const SPresent& oPresent) const
    {
        return !oPresent.m_bExists || !oPresent.m_sMark.empty() || m_oFolder.m_bForce;
    }

    // The name in the folder of the images, such as "lab/monitor.bin" or "x.log (DP-1)".
    std::string GetName(const SInput& oInput) const
    {
        return oInput.m_sName.substr(
            std::min(oInput.m_sName.find_first_not_of('/', m_oFolder.m_sImages.size()), oInput.m_sName.size()));
    }

    // Below the folder of the pages. Never the same for two images: a name that ends like one of several EDIDs of a
    // file, "x.log (DP-1)", is made to end otherwise. What a log calls a connector makes no folder.
    std::string GetPagePath(const SInput& oInput) const
    {
        const std::string sName = GetName(oInput);
        if (!oInput.IsOneOfSeveral())
        {
            return "pages/" + sName + (sName.ends_with(')') ? " ()" : "") + ".html";
        }
        std::string sWhich = oInput.m_sName.substr(oInput.GetFile().size());
        std::ranges::replace(sWhich, '/', '_');
        return "pages/" + sName.substr(0, sName.size() - sWhich.size()) + sWhich + ".html";
    }

    SOutcome MakeOne(const SInput& oInput)
    {
        if (!oInput.IsGood())
        {
            ++m_uiUnread;
            SOutcome oRefused = RefuseInput(oInput, oInput.m_sProblem);
            oRefused.m_sOut = MakeUnreadRow(GetName(oInput), oInput.m_sProblem).Get();
            return oRefused;
        }
        const std::string sPath = GetPagePath(oInput);
        SPage oPage;
        oPage.m_apoImages.push_back(std::make_unique<SPageImage>(oInput, m_uiThisYear));
        const SPageImage& oImage = *oPage.m_apoImages[0];
        const CHtml oRow = MakeIndexRow(oImage, GetName(oInput), EncodePath(sPath));
        oPage.m_sMark = MakeMark(oImage, oRow, m_uiThisYear);
        for (const char cNext : sPath)
        {
            oPage.m_sIndex += cNext == '/' ? "../" : "";
        }
        oPage.m_sIndex += "index.html";
        const std::string sProblem = WritePageAt(GetPath(sPath), oPage);
        if (!sProblem.empty()) // the row has no page
        {
            return { MakeIndexRow(oImage, GetName(oInput), "").Get(), MakeErrorLine(GetPath(sPath), sProblem),
                     eExit_Input };
        }
        return { oRow.Get(), "", eExit_Good };
    }

    // Unless it is there. Gives the problem.
    std::string WritePageAt(const std::string& sPath, SPage& oPage)
    {
        const SPresent oPresent = FindPresent(sPath);
        if (oPresent.m_sMark == oPage.m_sMark && !m_oFolder.m_bForce)
        {
            ++m_uiKept;
            return "";
        }
        if (!CanReplace(oPresent))
        {
            return gsc_pszForeign;
        }
        std::error_code oError;
        fs::create_directories(fs::path(sPath).parent_path(), oError);
        if (oError)
        {
            return "cannot be written: " + oError.message();
        }
        const SWritten oWritten = WriteOutput(sPath, MakeWholePage(oPage), oPresent.m_bExists, true);
        m_uiMade += oWritten.IsGood() ? 1 : 0;
        return oWritten.m_sProblem;
    }

    // With the folder's name, without those that it lies in, which are nobody's business.
    std::string GetTitle() const
    {
        std::error_code oNone;
        const fs::path oPath = fs::absolute(m_oFolder.m_sImages, oNone).lexically_normal();
        return "Monitors in " + ShowName((oPath.has_filename() ? oPath : oPath.parent_path()).filename().native());
    }

    void WriteIndex()
    {
        m_oIndex << m_oUnread;
        const SPresent oPresent = FindPresent(m_sIndex);
        const SWritten oWritten = CanReplace(oPresent)
                                      ? WriteOutput(m_sIndex, CloseIndex(GetTitle(), m_oIndex.Take(), gsc_pszIndexMark),
                                                    oPresent.m_bExists, true)
                                      : SWritten{ gsc_pszForeign, "" };
        ReportWritten(m_sIndex, oWritten, m_oTool);
        if (oWritten.IsGood())
        {
            const size_t uiMade = m_uiMade;
            PrintResult(FormatText("%s: %zu page%s made, %zu unchanged, %zu unreadable\n", ShowName(m_sIndex).c_str(),
                                   uiMade, uiMade == 1 ? "" : "s", m_uiKept.load(), m_uiUnread.load()));
        }
    }

    const SPageFolder& m_oFolder;
    STool& m_oTool;
    const std::string m_sIndex;
    const unsigned int m_uiThisYear;
    CHtml m_oIndex;  // with the rows so far, in the order of the names
    CHtml m_oUnread; // rows without an image, which follow
    std::atomic<size_t> m_uiMade = 0;
    std::atomic<size_t> m_uiKept = 0;
    std::atomic<size_t> m_uiUnread = 0;
};
} // namespace

void WritePageFolder(const SPageFolder& oFolder, STool& oTool) { CPageFolder(oFolder, oTool).Write(); }

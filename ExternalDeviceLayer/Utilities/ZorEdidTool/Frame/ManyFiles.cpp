// Turns in several threads, printed in order.

#include "ManyFiles.h"

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>

#include "CommandLine.h"
#include "Messages.h"
#include "TextFormat.h"

void DeclareFiles(COptions& oCommand, SFiles& oFiles)
{
    oFiles.m_sCommand = oCommand.GetName();
    oCommand.Words("FILE", oFiles.m_asNames, "Images in any form, \"-\" for standard input, or connectors");
    oCommand
        .Word("--files-from", oFiles.m_sListFile, "Read more names from this file, one a line; \"-\" is standard input")
        .Placeholder("FILE");
    oCommand.Flag("-0,--null", oFiles.m_bNulSeparated, "The names of --files-from end with a NUL each");
    oCommand
        .Number("-j,--jobs", oFiles.m_uiJobs, 1, 256, "Images that are processed at the same time", "UINT in [1 - 256]")
        .Placeholder("N");
}

namespace
{
// The names of a run, one after the other. They are never all in memory.
class CNames
{
public:
    explicit CNames(const SFiles& oFiles) : m_oFiles(oFiles) {}
    ~CNames()
    {
        if (m_poList != nullptr && m_poList != stdin)
        {
            fclose(m_poList);
        }
        free(m_pcLine);
    }
    CNames(const CNames&) = delete;
    CNames& operator=(const CNames&) = delete;

    // False with errno set when there is a list that cannot be opened.
    bool Open()
    {
        if (!m_oFiles.m_sListFile.empty())
        {
            m_poList = m_oFiles.m_sListFile == "-" ? stdin : fopen(m_oFiles.m_sListFile.c_str(), "re");
            return m_poList != nullptr;
        }
        return true;
    }

    // Empty lines are skipped.
    bool Next(std::string& sName)
    {
        if (m_uiNext < m_oFiles.m_asNames.size())
        {
            sName = m_oFiles.m_asNames[m_uiNext++];
            return true;
        }
        const char cEnd = m_oFiles.m_bNulSeparated ? '\0' : '\n';
        ssize_t iLength = 0;
        while (m_poList != nullptr && (iLength = getdelim(&m_pcLine, &m_uiLineSize, cEnd, m_poList)) > 0)
        {
            sName.assign(m_pcLine, static_cast<size_t>(iLength));
            if (sName.back() == cEnd)
            {
                sName.pop_back();
            }
            if (!sName.empty())
            {
                return true;
            }
        }
        return false;
    }

    // Whether the list broke off.
    bool HasFailed() const { return m_poList != nullptr && ferror(m_poList) != 0; }

    // 0 when it shows at the end only.
    size_t GetCount() const { return m_poList == nullptr ? m_oFiles.m_asNames.size() : 0; }

private:
    const SFiles& m_oFiles;
    size_t m_uiNext = 0;
    FILE* m_poList = nullptr;
    char* m_pcLine = nullptr; // of getdelim
    size_t m_uiLineSize = 0;
};

// A line on standard error that is written over and over, and only on a terminal.
class CProgress
{
public:
    CProgress(bool bWanted, size_t uiCount) : m_uiCount(uiCount), m_bShown(bWanted && isatty(STDERR_FILENO) != 0) {}

    void Step()
    {
        ++m_uiDone;
        const auto oNow = std::chrono::steady_clock::now();
        if (!m_bShown || oNow < m_oNext)
        {
            return;
        }
        m_oNext = oNow + std::chrono::milliseconds(100);
        constexpr size_t uiWidth = 40; // characters
        const size_t uiFilled = m_uiCount != 0 ? uiWidth * m_uiDone / m_uiCount : 0;
        const std::string sBar = std::string(uiFilled, '#') + std::string(uiWidth - uiFilled, '.');
        m_uiCount != 0 ? fprintf(stderr, "\r[%s] %zu/%zu", sBar.c_str(), m_uiDone, m_uiCount)
                       : fprintf(stderr, "\r%zu images", m_uiDone);
        m_bVisible = true;
    }

    // Before anything else is written to a terminal.
    void Clear()
    {
        if (m_bVisible)
        {
            fputs("\r\x1B[K", stderr);
            m_bVisible = false;
        }
    }

private:
    size_t m_uiCount;
    size_t m_uiDone = 0;
    bool m_bShown;
    bool m_bVisible = false;
    std::chrono::steady_clock::time_point m_oNext;
};

std::string DescribeForm(const SInput& oInput)
{
    return oInput.m_sForm.empty() ? "" : MakeErrorLine(oInput.m_sName, "taken for " + oInput.m_sForm);
}

std::string DescribeHint(const SInput& oInput)
{
    return oInput.m_sHint.empty() ? "" : MakeErrorLine(oInput.m_sName, oInput.m_sHint);
}

struct STurnRules
{
    bool m_bVerbose;
    bool m_bTurnsForBadOnes;
    const std::function<SOutcome(const SInput&)>& m_fnTurn;
};

// The outcome of an input that cannot be read, or whose turn has thrown.
SOutcome AnswerFor(const SInput& oBad, const STurnRules& oRules)
{
    return oRules.m_bTurnsForBadOnes ? oRules.m_fnTurn(oBad) : RefuseInput(oBad, oBad.m_sProblem);
}

// Memory that a turn wanted is free again by now, so that a short answer has what it needs.
SOutcome AnswerForFault(const std::string& sName, const std::string& sFault, const STurnRules& oRules)
{
    try
    {
        return AnswerFor({ sName, {}, "", sFault }, oRules);
    }
    catch (const std::exception&)
    {
        return { "", MakeErrorLine(sName, sFault), eExit_Input };
    }
}

SOutcome RunTurn(const std::string& sName, const STurnRules& oRules)
{
    SOutcome oOutcome;
    std::string sForm;
    TakeMessages(); // of whatever came before
    try
    {
        const SInput oInput = ReadInput(sName);
        sForm = DescribeForm(oInput);
        oOutcome = oInput.IsGood() ? oRules.m_fnTurn(oInput) : AnswerFor(oInput, oRules);
        oOutcome.m_sError.insert(0, DescribeHint(oInput));
    }
    catch (const std::bad_alloc&)
    {
        oOutcome = AnswerForFault(sName, "not enough memory", oRules);
    }
    catch (const std::exception& oFault)
    {
        oOutcome = AnswerForFault(sName, oFault.what(), oRules);
    }
    if (oRules.m_bVerbose)
    {
        oOutcome.m_sError = sForm + TakeMessages() + oOutcome.m_sError;
    }
    return oOutcome;
}

// All that a run writes, in the order of the inputs.
class CPrinter
{
public:
    CPrinter(const SFiles& oFiles, size_t uiCount, STool& oTool)
        : m_oFiles(oFiles), m_oTool(oTool), m_oProgress(oFiles.m_bProgress, uiCount)
    {
        PrintResult(m_oFiles.m_sHead);
    }

    void Print(const SOutcome& oOutcome)
    {
        if (!oOutcome.m_sOut.empty() || !oOutcome.m_sError.empty())
        {
            m_oProgress.Clear();
        }
        if (!oOutcome.m_sOut.empty())
        {
            PrintResult(m_bFirst ? "" : m_oFiles.m_sBetween);
            m_bFirst = false;
        }
        PrintOutcome(oOutcome, m_oTool);
        m_oProgress.Step();
    }

    void Finish()
    {
        m_oProgress.Clear();
        PrintResult(m_oFiles.m_sTail);
    }

private:
    const SFiles& m_oFiles;
    STool& m_oTool;
    CProgress m_oProgress;
    bool m_bFirst = true; // standard output has nothing but the head
};

// The turns from the next to be printed to the last begun.
class CWindow
{
public:
    CWindow(CNames& oNames, size_t uiSize) : m_oNames(oNames), m_uiSize(uiSize) {}

    // Run by each thread: takes names and does their turns until there are none.
    template <class TURN>
    void Work(const TURN& fnTurn)
    {
        std::string sName;
        for (STurn* poTurn = Begin(sName); poTurn != nullptr; poTurn = Begin(sName))
        {
            SOutcome oOutcome = fnTurn(sName);
            const std::lock_guard<std::mutex> oLock(m_oMutex);
            poTurn->m_oOutcome = std::move(oOutcome);
            poTurn->m_bDone = true;
            m_oDone.notify_one();
        }
    }

    // The next outcome in the order of the names. False at the end.
    bool Take(SOutcome& oOutcome)
    {
        std::unique_lock<std::mutex> oLock(m_oMutex);
        m_oDone.wait(oLock, [&] { return m_apoTurns.empty() ? m_bEnded : m_apoTurns.front()->m_bDone; });
        if (m_apoTurns.empty())
        {
            return false;
        }
        oOutcome = std::move(m_apoTurns.front()->m_oOutcome);
        m_apoTurns.pop_front();
        m_oSpace.notify_one();
        return true;
    }

    // No turn is begun any more.
    void End()
    {
        const std::lock_guard<std::mutex> oLock(m_oMutex);
        m_bEnded = true;
        m_oSpace.notify_all();
        m_oDone.notify_one();
    }

private:
    struct STurn
    {
        SOutcome m_oOutcome;
        bool m_bDone = false;
    };

    // One thread at a time waits for space and for the name, so that turns are in the order of the names. Reading a
    // name may take long; what is done by then can be printed all the same. Null at the end.
    STurn* Begin(std::string& sName)
    {
        const std::lock_guard<std::mutex> oNamesLock(m_oNamesMutex);
        {
            std::unique_lock<std::mutex> oLock(m_oMutex);
            m_oSpace.wait(oLock, [&] { return m_bEnded || m_apoTurns.size() < m_uiSize; });
            if (m_bEnded)
            {
                return nullptr;
            }
        }
        if (!m_oNames.Next(sName))
        {
            End();
            return nullptr;
        }
        const std::lock_guard<std::mutex> oLock(m_oMutex);
        m_apoTurns.push_back(std::make_unique<STurn>());
        return m_apoTurns.back().get();
    }

    CNames& m_oNames;
    const size_t m_uiSize;
    std::mutex m_oNamesMutex; // held while the next name is read; taken before the other one
    std::mutex m_oMutex;      // guards what follows
    std::condition_variable m_oDone;
    std::condition_variable m_oSpace;
    std::deque<std::unique_ptr<STurn>> m_apoTurns;
    bool m_bEnded = false; // no more names follow
};

// All threads of a run; they are joined whatever happens.
class CThreads
{
public:
    explicit CThreads(CWindow& oWindow) : m_oWindow(oWindow) {}
    ~CThreads()
    {
        m_oWindow.End();
        for (std::thread& oThread : m_aoThreads)
        {
            oThread.join();
        }
    }
    CThreads(const CThreads&) = delete;
    CThreads& operator=(const CThreads&) = delete;

    // Starts as many as the system lets run, up to uiCount, and says how many. Their stacks must not take the memory
    // that the turns need: some is held back until all have started, and none begins its work before that.
    template <class WORK>
    size_t Start(unsigned int uiCount, const WORK& fnWork)
    {
        constexpr size_t uiReserve = size_t{ 16 } << 20; // bytes, which nothing touches
        const std::lock_guard<std::mutex> oLock(m_oGate);
        try
        {
            m_pui8Reserve = std::make_unique_for_overwrite<unsigned char[]>(uiReserve);
            m_aoThreads.reserve(uiCount);
            while (m_aoThreads.size() < uiCount)
            {
                m_aoThreads.emplace_back([this, fnWork] {
                    m_oGate.lock();
                    m_oGate.unlock();
                    fnWork();
                });
            }
        }
        catch (const std::system_error&) // too many threads
        {
        }
        catch (const std::bad_alloc&)
        {
        }
        m_pui8Reserve.reset();
        return m_aoThreads.size();
    }

private:
    CWindow& m_oWindow;
    std::mutex m_oGate; // held until all have started
    // A member, as the compiler may leave out memory that is used nowhere.
    std::unique_ptr<unsigned char[]> m_pui8Reserve;
    std::vector<std::thread> m_aoThreads;
};

// Output that cannot be written ends the run: no later turn could be printed.
bool CanPrint() { return ferror(stdout) == 0; }

void RunOneByOne(CNames& oNames, const STurnRules& oRules, CPrinter& oPrinter)
{
    std::string sName;
    while (CanPrint() && oNames.Next(sName))
    {
        oPrinter.Print(RunTurn(sName, oRules));
    }
}

// False when no thread can be started; no name is taken then.
bool RunInThreads(unsigned int uiJobs, CNames& oNames, const STurnRules& oRules, CPrinter& oPrinter)
{
    constexpr size_t uiTurnsOfAThread = 8; // so that one long turn does not stop the others at once
    CWindow oWindow(oNames, uiTurnsOfAThread * uiJobs);
    CThreads oThreads(oWindow);
    const auto fnTurn = [&oRules](const std::string& sName) { return RunTurn(sName, oRules); };
    if (oThreads.Start(uiJobs, [&] { oWindow.Work(fnTurn); }) == 0)
    {
        return false;
    }
    SOutcome oOutcome;
    while (CanPrint() && oWindow.Take(oOutcome))
    {
        oPrinter.Print(oOutcome);
    }
    return true;
}
} // namespace

void ForEachInput(const SFiles& oFiles, STool& oTool, const std::function<SOutcome(const SInput&)>& fnTurn)
{
    if (oFiles.m_asNames.empty() && oFiles.m_sListFile.empty())
    {
        PrintError("FILE or --files-from is required (see zoredid " + oFiles.m_sCommand + " --help)");
        oTool.Note(eExit_CommandLine);
        return;
    }
    CNames oNames(oFiles);
    if (!oNames.Open())
    {
        fputs(MakeErrorLine(oFiles.m_sListFile, std::string("cannot be opened: ") + strerror(errno)).c_str(), stderr);
        oTool.Note(eExit_Input);
        return;
    }
    CPrinter oPrinter(oFiles, oNames.GetCount(), oTool);
    const STurnRules oRules = { oTool.m_bVerbose, oFiles.m_bTurnsForBadOnes, fnTurn };
    if (oFiles.m_uiJobs <= 1 || !RunInThreads(oFiles.m_uiJobs, oNames, oRules, oPrinter))
    {
        RunOneByOne(oNames, oRules, oPrinter);
    }
    oPrinter.Finish();
    if (oNames.HasFailed())
    {
        fputs(MakeErrorLine(oFiles.m_sListFile, "cannot be read").c_str(), stderr);
        oTool.Note(eExit_Input);
    }
}

SInput ReadOneInput(const std::string& sName, STool& oTool)
{
    SInput oInput = ReadInput(sName);
    if (oTool.m_bVerbose)
    {
        fputs(DescribeForm(oInput).c_str(), stderr);
    }
    fputs(DescribeHint(oInput).c_str(), stderr);
    if (!oInput.IsGood())
    {
        fputs(MakeErrorLine(sName, oInput.m_sProblem).c_str(), stderr);
        oTool.Note(eExit_Input);
    }
    return oInput;
}

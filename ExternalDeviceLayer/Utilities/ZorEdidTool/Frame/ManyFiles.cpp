// Turns in several threads, printed in order.

#include "ManyFiles.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

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
    oCommand.Number("-j,--jobs", oFiles.m_uiJobs, 1, 256, "Images that are processed at the same time", "1 to 256")
        .Placeholder("N");
}

namespace
{
// The names of a run, one after the other. They are never all in memory.
class CNames
{
public:
    explicit CNames(const SFiles& oFiles) : m_oFiles(oFiles), m_cEnd(oFiles.m_bNulSeparated ? '\0' : '\n') {}
    ~CNames()
    {
        if (m_iList > STDIN_FILENO)
        {
            close(m_iList);
        }
    }
    CNames(const CNames&) = delete;
    CNames& operator=(const CNames&) = delete;

    // False with errno set when there is a list that cannot be opened.
    bool Open()
    {
        if (!m_oFiles.m_sListFile.empty())
        {
            m_iList =
                m_oFiles.m_sListFile == "-" ? STDIN_FILENO : open(m_oFiles.m_sListFile.c_str(), O_RDONLY | O_CLOEXEC);
            return m_iList >= 0;
        }
        return true;
    }

    // False at the end. Empty lines are skipped.
    bool Next(std::string& sName)
    {
        if (m_uiNext < m_oFiles.m_asNames.size())
        {
            sName = m_oFiles.m_asNames[m_uiNext++];
            return true;
        }
        while (!HasNext() && ReadList())
        {
        }
        const size_t uiEnd = std::min(m_sRead.find(m_cEnd, m_uiAt), m_sRead.size()); // the last line may lack its end
        sName.assign(m_sRead, m_uiAt, uiEnd - m_uiAt);
        m_uiAt = uiEnd;
        return !sName.empty();
    }

    // Whether there is a name that need not be waited for.
    bool HasNext()
    {
        m_uiAt = std::min(m_sRead.find_first_not_of(m_cEnd, m_uiAt), m_sRead.size());
        return m_uiNext < m_oFiles.m_asNames.size() || m_sRead.find(m_cEnd, m_uiAt) != std::string::npos;
    }

    // Why the list broke off; empty when it did not.
    const std::string& GetProblem() const { return m_sProblem; }

    // 0 when it shows at the end only.
    size_t GetCount() const { return m_iList < 0 ? m_oFiles.m_asNames.size() : 0; }

private:
    // Appends what the list has at once, after waiting until it has something. False at its end.
    bool ReadList()
    {
        constexpr size_t uiPiece = size_t{ 1 } << 16;   // bytes
        constexpr size_t uiLongest = size_t{ 1 } << 20; // bytes of a name; the system takes 4096
        if (m_iList < 0)
        {
            return false;
        }
        m_sRead.erase(0, m_uiAt);
        m_uiAt = 0;
        const size_t uiSize = m_sRead.size();
        if (uiSize > uiLongest)
        {
            m_sRead.clear();
            m_sProblem = "a name is longer than 1 MiB";
            return false;
        }
        m_sRead.resize(uiSize + uiPiece);
        ssize_t iRead = 0;
        do
        {
            iRead = read(m_iList, m_sRead.data() + uiSize, uiPiece);
        } while (iRead < 0 && errno == EINTR);
        if (iRead < 0)
        {
            m_sProblem = std::string("cannot be read: ") + strerror(errno);
        }
        m_sRead.resize(uiSize + static_cast<size_t>(iRead > 0 ? iRead : 0));
        return iRead > 0;
    }

    const SFiles& m_oFiles;
    const char m_cEnd; // of each name of the list
    size_t m_uiNext = 0;
    int m_iList = -1;    // not open
    std::string m_sRead; // of the list; the names before m_uiAt are taken
    size_t m_uiAt = 0;
    std::string m_sProblem;
};

// A line on standard error that is written over and over in a run of more than a second, and only on a terminal.
class CProgress
{
public:
    explicit CProgress(size_t uiCount)
        : m_uiCount(uiCount), m_bShown(isatty(STDERR_FILENO) != 0),
          m_bOutputBeside(m_bShown && isatty(STDOUT_FILENO) != 0),
          m_oNext(std::chrono::steady_clock::now() + std::chrono::seconds(1))
    {
    }

    void Step()
    {
        ++m_uiDone;
        if (!m_bShown)
        {
            return;
        }
        const auto oNow = std::chrono::steady_clock::now();
        if (oNow < m_oNext)
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

    // Before results are written; those that go elsewhere leave the line in its place.
    void MakeRoomForOutput()
    {
        if (m_bOutputBeside)
        {
            Clear();
        }
    }

    // Before anything else is written to standard error, and at the end.
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
    bool m_bOutputBeside; // standard output is a terminal, too
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

std::string DescribeImages(const SInput& oInput)
{
    return oInput.m_sImages.empty() ? "" : MakeErrorLine(oInput.GetFile(), oInput.m_sImages);
}

struct STurnRules
{
    bool m_bVerbose;
    bool m_bTurnsForBadOnes;
    bool m_bTurnsSayImages;
    const std::string& m_sBetween; // the standard outputs of two turns
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

// What fnAnswer gives, or the outcome of an input with this name for which it has thrown.
SOutcome Guard(const std::string& sName, const STurnRules& oRules, const std::function<SOutcome()>& fnAnswer)
{
    try
    {
        return fnAnswer();
    }
    catch (const std::bad_alloc&)
    {
        return AnswerForFault(sName, "not enough memory", oRules);
    }
    catch (const std::exception& oFault)
    {
        return AnswerForFault(sName, oFault.what(), oRules);
    }
}

SOutcome RunTurn(const SInput& oInput, const STurnRules& oRules)
{
    SOutcome oOutcome = Guard(oInput.m_sName, oRules, [&] {
        SOutcome oAnswer = oInput.IsGood() ? oRules.m_fnTurn(oInput) : AnswerFor(oInput, oRules);
        oAnswer.m_sError.insert(0, DescribeHint(oInput) + (oRules.m_bTurnsSayImages ? "" : DescribeImages(oInput)));
        return oAnswer;
    });
    if (oRules.m_bVerbose)
    {
        oOutcome.m_sError = DescribeForm(oInput) + TakeMessages() + oOutcome.m_sError;
    }
    return oOutcome;
}

// The turns of all EDIDs of a file, as one outcome.
SOutcome RunTurnsOf(const std::string& sName, const STurnRules& oRules)
{
    TakeMessages(); // of whatever came before
    return Guard(sName, oRules, [&] {
        SOutcome oAll;
        for (const SInput& oInput : ReadInputs(sName))
        {
            const SOutcome oOutcome = RunTurn(oInput, oRules);
            oAll.m_sOut += oAll.m_sOut.empty() || oOutcome.m_sOut.empty() ? "" : oRules.m_sBetween;
            oAll.m_sOut += oOutcome.m_sOut;
            oAll.m_sError += oOutcome.m_sError;
            oAll.Note(oOutcome.m_eExit);
        }
        return oAll;
    });
}

// Text that waits in a temporary file until it can be printed.
class CWaitingText
{
public:
    void Open()
    {
        m_poFile = tmpfile();
        Note(m_poFile != nullptr);
    }
    ~CWaitingText()
    {
        if (m_poFile != nullptr)
        {
            fclose(m_poFile);
        }
    }
    CWaitingText() = default;
    CWaitingText(const CWaitingText&) = delete;
    CWaitingText& operator=(const CWaitingText&) = delete;

    void Add(const std::string& sText)
    {
        Note(m_iError == 0 && fwrite(sText.data(), 1, sText.size(), m_poFile) == sText.size());
    }

    void Print()
    {
        constexpr size_t uiPiece = size_t{ 1 } << 16; // bytes
        if (m_iError != 0)
        {
            return;
        }
        rewind(m_poFile); // writes what is left
        Note(ferror(m_poFile) == 0);
        std::string sPiece(uiPiece, '\0');
        for (size_t uiRead = uiPiece; uiRead == uiPiece && m_iError == 0;)
        {
            uiRead = fread(sPiece.data(), 1, uiPiece, m_poFile);
            PrintResult(sPiece.substr(0, uiRead));
        }
        Note(ferror(m_poFile) == 0);
    }

    // 0 unless a part of the text is lost.
    int GetError() const { return m_iError; }

private:
    void Note(bool bGood) { m_iError = bGood || m_iError != 0 ? m_iError : errno; }

    FILE* m_poFile = nullptr;
    int m_iError = 0; // errno
};

// All that a run writes, in the order of the inputs.
class CPrinter
{
public:
    CPrinter(const SFiles& oFiles, size_t uiCount, STool& oTool)
        : m_oFiles(oFiles), m_oTool(oTool), m_oProgress(uiCount)
    {
        if (m_oFiles.m_fnHead)
        {
            m_oWaiting.Open();
            return;
        }
        PrintResult(m_oFiles.m_sHead);
    }

    void Print(const SOutcome& oOutcome)
    {
        if (!oOutcome.m_sError.empty())
        {
            m_oProgress.Clear();
        }
        const std::string sBetween = m_bFirst || oOutcome.m_sOut.empty() ? "" : m_oFiles.m_sBetween;
        m_bFirst = m_bFirst && oOutcome.m_sOut.empty();
        if (m_oFiles.m_fnHead)
        {
            m_oWaiting.Add(sBetween + oOutcome.m_sOut);
            PrintOutcome({ "", oOutcome.m_sError, oOutcome.m_eExit }, m_oTool);
        }
        else if (m_oFiles.m_fnTake)
        {
            m_oFiles.m_fnTake(oOutcome.m_sOut);
            PrintOutcome({ "", oOutcome.m_sError, oOutcome.m_eExit }, m_oTool);
        }
        else
        {
            PrintNow(sBetween, oOutcome);
        }
        m_oProgress.Step();
    }

    void Finish()
    {
        m_oProgress.Clear();
        if (m_oFiles.m_fnHead)
        {
            PrintResult(m_oFiles.m_fnHead());
            m_oWaiting.Print();
        }
        PrintResult(m_oFiles.m_sTail);
        if (m_oWaiting.GetError() != 0)
        {
            fputs(MakeErrorLine("temporary file", strerror(m_oWaiting.GetError())).c_str(), stderr);
            m_oTool.Note(eExit_Input);
        }
    }

private:
    void PrintNow(const std::string& sBetween, const SOutcome& oOutcome)
    {
        if (!oOutcome.m_sOut.empty())
        {
            m_oProgress.MakeRoomForOutput();
            PrintResult(sBetween);
        }
        PrintOutcome(oOutcome, m_oTool);
    }

    const SFiles& m_oFiles;
    STool& m_oTool;
    CProgress m_oProgress;
    CWaitingText m_oWaiting; // with m_fnHead only
    bool m_bFirst = true;    // standard output has nothing but the head
};

// The turns that a thread takes at once: consecutive inputs.
struct STurns
{
    std::vector<std::string> m_asNames;
    std::vector<SOutcome> m_aoOutcomes; // of each name, when they are done
    bool m_bDone = false;
};

// How many turns a thread takes at once. Threads wait for each other when they take names and hand over outcomes, which
// costs more than a short turn; long turns, and those that print much, are taken singly, for the sake of the other
// threads and of memory.
class CPace
{
public:
    size_t GetCount() const { return m_uiCount; }

    void Begin() { m_oBegin = std::chrono::steady_clock::now(); }

    void End(const std::vector<SOutcome>& aoOutcomes)
    {
        constexpr std::chrono::milliseconds oLong{ 4 };
        constexpr size_t uiMuch = size_t{ 1 } << 15; // bytes
        constexpr size_t uiMost = 32;                // turns
        size_t uiBytes = 0;
        for (const SOutcome& oOutcome : aoOutcomes)
        {
            uiBytes += oOutcome.m_sOut.size() + oOutcome.m_sError.size();
        }
        const auto oTook = std::chrono::steady_clock::now() - m_oBegin;
        if (oTook > oLong || uiBytes > uiMuch)
        {
            m_uiCount = std::max(m_uiCount / 2, size_t{ 1 });
        }
        else if (oTook < oLong / 2 && uiBytes < uiMuch / 2)
        {
            m_uiCount = std::min(2 * m_uiCount, uiMost);
        }
    }

private:
    size_t m_uiCount = 1;
    std::chrono::steady_clock::time_point m_oBegin;
};

// Output that cannot be written ends the run: no later turn could be printed.
bool CanPrint() { return ferror(stdout) == 0; }

// The turns from the next to be printed to the last begun. All threads run the same code: whichever finishes
// its turns prints what can be printed, so that no thread has to be woken for that.
class CWindow
{
public:
    CWindow(CNames& oNames, size_t uiSize, const STurnRules& oRules, CPrinter& oPrinter)
        : m_oNames(oNames), m_uiSize(uiSize), m_oRules(oRules), m_oPrinter(oPrinter)
    {
    }

    // Takes names and does their turns until none is left.
    void Work()
    {
        CPace oPace;
        for (STurns* poTurns = Begin(oPace.GetCount()); poTurns != nullptr; poTurns = Begin(oPace.GetCount()))
        {
            oPace.Begin();
            for (const std::string& sName : poTurns->m_asNames)
            {
                poTurns->m_aoOutcomes.push_back(RunTurnsOf(sName, m_oRules));
            }
            oPace.End(poTurns->m_aoOutcomes);
            Finish(*poTurns);
        }
    }

    // No turn is begun any more.
    void End()
    {
        const std::lock_guard<std::mutex> oLock(m_oMutex);
        m_bEnded = true;
        m_oSpace.notify_all();
    }

private:
    // One thread at a time waits for space and for a name, so that turns are in the order of the names. Reading a
    // name may take long; what is done by then can be printed all the same. Only the first name is waited for: those
    // before it must not wait for those after it. Null at the end.
    STurns* Begin(size_t uiMost)
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
        auto poTurns = std::make_unique<STurns>();
        std::vector<std::string>& asNames = poTurns->m_asNames;
        std::string sName;
        while (asNames.size() < uiMost && (asNames.empty() || m_oNames.HasNext()) && m_oNames.Next(sName))
        {
            asNames.push_back(sName);
        }
        if (asNames.empty())
        {
            End();
            return nullptr;
        }
        poTurns->m_aoOutcomes.reserve(asNames.size());
        const std::lock_guard<std::mutex> oLock(m_oMutex);
        return m_apoTurns.emplace_back(std::move(poTurns)).get();
    }

    // Prints these turns and those that waited for them, unless earlier ones are not done, or another thread prints: it
    // then comes to these, too.
    void Finish(STurns& oTurns)
    {
        std::unique_lock<std::mutex> oLock(m_oMutex);
        oTurns.m_bDone = true;
        if (m_bPrinting)
        {
            return;
        }
        m_bPrinting = true;
        while (!m_apoTurns.empty() && m_apoTurns.front()->m_bDone)
        {
            std::unique_ptr<STurns> poNext = std::move(m_apoTurns.front());
            m_apoTurns.pop_front();
            m_oSpace.notify_one();
            oLock.unlock();
            Print(std::move(poNext));
            oLock.lock();
        }
        m_bPrinting = false;
    }

    void Print(std::unique_ptr<STurns> poTurns)
    {
        for (const SOutcome& oOutcome : poTurns->m_aoOutcomes)
        {
            if (!CanPrint())
            {
                End();
                return;
            }
            m_oPrinter.Print(oOutcome);
        }
    }

    CNames& m_oNames;
    const size_t m_uiSize; // of the list below
    const STurnRules& m_oRules;
    CPrinter& m_oPrinter;     // of the thread that prints
    std::mutex m_oNamesMutex; // held while names are read; taken before the other one
    std::mutex m_oMutex;      // guards what follows
    std::condition_variable m_oSpace;
    std::deque<std::unique_ptr<STurns>> m_apoTurns;
    bool m_bPrinting = false; // a thread prints
    bool m_bEnded = false;    // no more names follow
};

// A run's threads besides the calling thread; they are joined whatever happens.
class CThreads
{
public:
    explicit CThreads(CWindow& oWindow) : m_oWindow(oWindow) {}
    ~CThreads()
    {
        m_oWindow.End();
        JoinAll();
    }
    CThreads(const CThreads&) = delete;
    CThreads& operator=(const CThreads&) = delete;

    // Starts as many as the system lets run, up to uiCount. Their stacks must not take the memory that the turns need:
    // some is held back until all have started, and none begins its work before that.
    void Start(size_t uiCount)
    {
        constexpr size_t uiReserve = size_t{ 16 } << 20; // bytes, which nothing touches
        const std::lock_guard<std::mutex> oLock(m_oGate);
        try
        {
            m_pui8Reserve = std::make_unique_for_overwrite<unsigned char[]>(uiReserve);
            m_aoThreads.reserve(uiCount);
            while (m_aoThreads.size() < uiCount)
            {
                m_aoThreads.emplace_back([this] { Work(); });
            }
        }
        catch (const std::system_error&) // too many threads
        {
        }
        catch (const std::bad_alloc&)
        {
        }
        m_pui8Reserve.reset();
    }

    // What has ended one of them early is thrown here.
    void Join()
    {
        JoinAll();
        if (const std::exception_ptr poFault = std::exchange(m_poFault, nullptr); poFault != nullptr)
        {
            std::rethrow_exception(poFault);
        }
    }

private:
    void JoinAll()
    {
        for (std::thread& oThread : m_aoThreads)
        {
            oThread.join();
        }
        m_aoThreads.clear();
    }

    void Work()
    {
        m_oGate.lock();
        m_oGate.unlock();
        try
        {
            m_oWindow.Work();
        }
        catch (const std::exception&)
        {
            m_oWindow.End();
            const std::lock_guard<std::mutex> oLock(m_oGate);
            m_poFault = std::current_exception();
        }
    }

    CWindow& m_oWindow;
    std::mutex m_oGate; // held until all have started; then guards the fault
    std::exception_ptr m_poFault;
    // A member, as the compiler may leave out memory that is used nowhere.
    std::unique_ptr<unsigned char[]> m_pui8Reserve;
    std::vector<std::thread> m_aoThreads;
};

void RunTurns(unsigned int uiJobs, CNames& oNames, const STurnRules& oRules, CPrinter& oPrinter)
{
    constexpr size_t uiOfAThread = 4; // so that one long turn does not stop the others at once
    CWindow oWindow(oNames, uiOfAThread * uiJobs, oRules, oPrinter);
    CThreads oThreads(oWindow);
    if (uiJobs > 1)
    {
        oThreads.Start(uiJobs - 1);
    }
    oWindow.Work();
    oThreads.Join();
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
    const STurnRules oRules = { oTool.m_bVerbose, oFiles.m_bTurnsForBadOnes, oFiles.m_bTurnsSayImages,
                                oFiles.m_sBetween, fnTurn };
    RunTurns(oFiles.m_uiJobs, oNames, oRules, oPrinter);
    oPrinter.Finish();
    if (!oNames.GetProblem().empty())
    {
        fputs(MakeErrorLine(oFiles.m_sListFile, oNames.GetProblem()).c_str(), stderr);
        oTool.Note(eExit_Input);
    }
}

namespace
{
// The first of several, or why it is not taken.
SInput TakeFirst(SInput oFirst, ESeveral eSeveral)
{
    if (oFirst.m_uiImage != 0 && eSeveral == eSeveral_First)
    {
        oFirst.m_sImages += "; the first is read, --image chooses";
        return oFirst;
    }
    const std::string sProblem = oFirst.m_uiImage != 0
                                     ? oFirst.m_sImages + "; choose one with --image"
                                     : "holds several EDIDs, of which one is taken; --monitor chooses";
    return { oFirst.GetFile(), {}, oFirst.m_sForm, sProblem };
}
} // namespace

CInputs ReadFewInputs(const std::string& sName, size_t uiMost, ESeveral eSeveral, STool& oTool)
{
    CInputs aoInputs = ReadInputs(sName);
    if (aoInputs.size() > uiMost)
    {
        aoInputs = { TakeFirst(std::move(aoInputs.front()), eSeveral) };
    }
    for (const SInput& oInput : aoInputs)
    {
        std::string sLines = oTool.m_bVerbose ? DescribeForm(oInput) : "";
        sLines += DescribeHint(oInput) + DescribeImages(oInput);
        if (!oInput.IsGood())
        {
            sLines += MakeErrorLine(oInput.m_sName, oInput.m_sProblem);
            oTool.Note(eExit_Input);
        }
        fputs(sLines.c_str(), stderr);
    }
    return aoInputs;
}

SInput ReadOneInput(const std::string& sName, ESeveral eSeveral, STool& oTool)
{
    return ReadFewInputs(sName, 1, eSeveral, oTool).front();
}

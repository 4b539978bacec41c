// The signals that could leave a file unfinished.

#include "UnfinishedFile.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>

namespace
{
constexpr size_t gsc_uiMostUnfinished = 256; // as many as there are jobs
constexpr int gsc_aiSignals[] = { SIGHUP, SIGINT, SIGTERM };

// What the handler removes. A place is free whose flag is not set; a path is whole before its flag is set.
struct SPlace
{
    char m_szPath[PATH_MAX];
    std::atomic<bool> m_bUsed;
};
constinit SPlace g_aoPlaces[gsc_uiMostUnfinished] = {};

// Of all objects together: the first one sets the handler, the last one takes it away.
constinit std::mutex g_oMutex;
constinit size_t g_uiObjects = 0;
constinit sigset_t g_oCaught = {}; // signals whose action is changed

// Other threads go on while a handler removes: it waits for a file that one of them is creating, and none creates
// another. A thread that creates one holds the signals back, so the handler never waits for its own thread.
constinit std::atomic<bool> g_bCreating = false;
constinit std::atomic<bool> g_bEnding = false;

extern "C" void RemoveAndEnd(int iSignal)
{
    g_bEnding = true;
    while (g_bCreating)
    {
    }
    for (const SPlace& oPlace : g_aoPlaces)
    {
        if (oPlace.m_bUsed)
        {
            unlink(oPlace.m_szPath);
        }
    }
    raise(iSignal); // its default action, which has come back, is due when this returns
}

sigset_t MakeSignalSet()
{
    sigset_t oSet;
    sigemptyset(&oSet);
    for (const int iSignal : gsc_aiSignals)
    {
        sigaddset(&oSet, iSignal);
    }
    return oSet;
}

// Completes the name and creates its file: below 0, with errno set, without one. Under g_oMutex.
int Create(char* pszTemplate)
{
    const sigset_t oHeld = MakeSignalSet();
    sigset_t oBefore;
    pthread_sigmask(SIG_BLOCK, &oHeld, &oBefore);
    g_bCreating = true;
    if (g_bEnding)
    {
        g_bCreating = false;
        pause(); // another thread's handler is about to end the command
    }
    const int iFile = mkostemp(pszTemplate, O_CLOEXEC);
    const int iError = errno;
    g_bCreating = false;
    pthread_sigmask(SIG_SETMASK, &oBefore, nullptr);
    errno = iError;
    return iFile;
}

// Those whose action was the default one; what is ignored stays ignored.
sigset_t CatchSignals()
{
    sigset_t oCaught;
    sigemptyset(&oCaught);
    struct sigaction oAction = {};
    oAction.sa_handler = RemoveAndEnd;
    oAction.sa_flags = static_cast<int>(SA_RESETHAND);
    oAction.sa_mask = MakeSignalSet();
    for (const int iSignal : gsc_aiSignals)
    {
        struct sigaction oOld = {};
        if (sigaction(iSignal, nullptr, &oOld) == 0 && oOld.sa_handler == SIG_DFL &&
            sigaction(iSignal, &oAction, nullptr) == 0)
        {
            sigaddset(&oCaught, iSignal);
        }
    }
    return oCaught;
}

void ReleaseSignals()
{
    for (const int iSignal : gsc_aiSignals)
    {
        if (sigismember(&g_oCaught, iSignal) == 1)
        {
            signal(iSignal, SIG_DFL);
        }
    }
}
} // namespace

CUnfinishedFile::CUnfinishedFile(const std::string& sFolder)
{
    const std::string sTemplate = sFolder + ".zoredid.XXXXXX"; // short, as the target's name may be of the longest
    if (sTemplate.size() >= sizeof(SPlace::m_szPath))
    {
        errno = ENAMETOOLONG;
        return;
    }
    const std::lock_guard<std::mutex> oLock(g_oMutex);
    SPlace* poPlace = std::ranges::find_if(g_aoPlaces, [](const SPlace& oPlace) { return !oPlace.m_bUsed; });
    if (poPlace == std::end(g_aoPlaces))
    {
        errno = EMFILE;
        return;
    }
    if (g_uiObjects == 0)
    {
        g_oCaught = CatchSignals();
    }
    // The handler may read the name at any moment, so it is made in place: the file does not exist yet, or is removed.
    memcpy(poPlace->m_szPath, sTemplate.c_str(), sTemplate.size() + 1);
    poPlace->m_bUsed = true;
    ++g_uiObjects;
    m_uiPlace = static_cast<size_t>(poPlace - g_aoPlaces);
    m_iFile = Create(poPlace->m_szPath);
    m_sPath = m_iFile >= 0 ? poPlace->m_szPath : "";
}

CUnfinishedFile::~CUnfinishedFile()
{
    const int iError = errno; // of what went wrong with the file
    if (m_iFile >= 0)
    {
        close(m_iFile);
    }
    if (!m_sPath.empty())
    {
        unlink(m_sPath.c_str());
    }
    if (m_uiPlace != msc_uiNoPlace)
    {
        const std::lock_guard<std::mutex> oLock(g_oMutex);
        g_aoPlaces[m_uiPlace].m_bUsed = false;
        --g_uiObjects;
        if (g_uiObjects == 0)
        {
            ReleaseSignals();
        }
    }
    errno = iError;
}

bool CUnfinishedFile::Close()
{
    const bool bSynced = fsync(m_iFile) == 0;
    const int iError = errno;
    const bool bClosed = close(m_iFile) == 0;
    m_iFile = -1;
    errno = bSynced ? errno : iError;
    return bSynced && bClosed;
}

bool CUnfinishedFile::Rename(const std::string& sPath, bool bForce)
{
    bool bGood = bForce ? rename(m_sPath.c_str(), sPath.c_str()) == 0
                        : renameat2(AT_FDCWD, m_sPath.c_str(), AT_FDCWD, sPath.c_str(), RENAME_NOREPLACE) == 0;
    // File systems without this flag: a second name never exists already.
    bGood = bGood || (!bForce && (errno == EINVAL || errno == ENOSYS) && link(m_sPath.c_str(), sPath.c_str()) == 0 &&
                      unlink(m_sPath.c_str()) == 0);
    if (!bGood && g_bEnding)
    {
        pause(); // the handler has removed the file, which is not a fault
    }
    m_sPath = bGood ? "" : m_sPath;
    return bGood;
}

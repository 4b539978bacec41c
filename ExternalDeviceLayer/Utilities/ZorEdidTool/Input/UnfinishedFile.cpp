// The signals that could leave a file unfinished.

#include "UnfinishedFile.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

namespace
{
constexpr int gsc_aiSignals[] = { SIGHUP, SIGINT, SIGTERM };

constinit char g_szPath[PATH_MAX] = {}; // what the handler removes; it is set whenever the handler is

extern "C" void RemoveAndEnd(int iSignal)
{
    unlink(g_szPath);
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
} // namespace

CUnfinishedFile::CUnfinishedFile(const std::string& sFolder)
    : m_sPath(sFolder + ".zoredid.XXXXXX") // short, as the target's name may be of the longest
{
    sigemptyset(&m_oCaught);
    if (m_sPath.size() >= sizeof(g_szPath))
    {
        m_sPath.clear();
        errno = ENAMETOOLONG;
        return;
    }
    // A signal that comes while the file does waits until its name is known.
    const sigset_t oBlocked = MakeSignalSet();
    sigset_t oOld;
    sigprocmask(SIG_BLOCK, &oBlocked, &oOld);
    m_iFile = mkostemp(m_sPath.data(), O_CLOEXEC);
    const int iError = errno;
    if (m_iFile >= 0)
    {
        memcpy(g_szPath, m_sPath.c_str(), m_sPath.size() + 1);
        m_oCaught = CatchSignals();
    }
    else
    {
        m_sPath.clear();
    }
    sigprocmask(SIG_SETMASK, &oOld, nullptr);
    errno = iError;
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
    for (const int iSignal : gsc_aiSignals)
    {
        if (sigismember(&m_oCaught, iSignal) == 1)
        {
            signal(iSignal, SIG_DFL);
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
    m_sPath = bGood ? "" : m_sPath;
    return bGood;
}

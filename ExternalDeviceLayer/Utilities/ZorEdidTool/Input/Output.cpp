// Writing a result into a file: whole or not at all, where the file system lets it.

#include "Output.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>

#include "UnfinishedFile.h"

namespace
{
constexpr mode_t gsc_uiModeBits = 07777;
constexpr const char* gsc_pszExists = "exists already (use --force)";
constexpr mode_t gsc_uiNewFileMode = 0666; // less what the user's mask takes away

bool Fail(const char* pszWhat, std::string& sProblem)
{
    sProblem = std::string(pszWhat) + ": " + strerror(errno);
    return false;
}

bool Refuse(const char* pszReason, std::string& sProblem)
{
    sProblem = pszReason;
    return false;
}

bool WriteAll(int iFile, const std::string& sContent)
{
    size_t uiDone = 0;
    while (uiDone < sContent.size())
    {
        const ssize_t iWritten = write(iFile, sContent.data() + uiDone, sContent.size() - uiDone);
        if (iWritten == 0)
        {
            errno = EIO; // it would go on for ever
        }
        if (iWritten == 0 || (iWritten < 0 && errno != EINTR))
        {
            return false;
        }
        uiDone += iWritten > 0 ? static_cast<size_t>(iWritten) : 0;
    }
    return true;
}

// Of the mask that PrepareForThreads has asked for.
constinit std::optional<mode_t> g_uiNewFileMode;

// To ask for the mask is to change it for a moment.
mode_t ReadNewFileMode()
{
    const mode_t uiMask = umask(0);
    umask(uiMask);
    return gsc_uiNewFileMode & ~uiMask;
}

mode_t GetNewFileMode() { return g_uiNewFileMode.has_value() ? *g_uiNewFileMode : ReadNewFileMode(); }

// Up to its last slash; empty for a name in the present folder.
std::string GetFolder(const std::string& sPath) { return sPath.substr(0, sPath.rfind('/') + 1); }

// Group and owner of the file that is replaced, where the user may; it is set before the mode, since it clears bits of
// it. Gives the mode: without the set-ID bits when they would be those of somebody else.
mode_t KeepOwner(int iFile, const struct stat& oOld)
{
    constexpr uid_t uiSameOwner = static_cast<uid_t>(-1);
    const bool bGroup = fchown(iFile, uiSameOwner, oOld.st_gid) == 0;
    const bool bOwner = fchown(iFile, oOld.st_uid, static_cast<gid_t>(-1)) == 0;
    return oOld.st_mode & gsc_uiModeBits & ~static_cast<mode_t>(bGroup && bOwner ? 0 : S_ISUID | S_ISGID);
}

// The new name is on the disk when its folder is. Where a folder cannot be opened or synced, the file is good as it is.
void SyncFolder(const std::string& sFolder)
{
    const int iFolder = open(sFolder.empty() ? "." : sFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (iFolder >= 0)
    {
        fsync(iFolder);
        close(iFolder);
    }
}

// False with errno set.
//   poOld  the state of the file that is replaced, or null
bool ReplaceFile(const std::string& sPath, const std::string& sContent, const struct stat* poOld, bool bForce)
{
    CUnfinishedFile oFile(GetFolder(sPath));
    const int iFile = oFile.GetFile();
    if (iFile < 0 || fchmod(iFile, poOld != nullptr ? KeepOwner(iFile, *poOld) : GetNewFileMode()) != 0 ||
        !WriteAll(iFile, sContent) || !oFile.Close() || !oFile.Rename(sPath, bForce))
    {
        return false;
    }
    SyncFolder(GetFolder(sPath));
    return true;
}

// Whether another file beside it is the problem, or its taking the place: rights, a file system without new files, a
// file that something is mounted on. A full disk is a problem of the content, and is not made worse.
bool IsProblemOfPlace(int iError) { return iError == EACCES || iError == EPERM || iError == EROFS || iError == EBUSY; }

std::string DescribeInPlace(int iReason)
{
    return std::string("in place, not in one step, as no other file can take its place: ") + strerror(iReason);
}

// iReason  why it is not replaced
SWritten OverwriteFile(const std::string& sPath, const std::string& sContent, int iReason)
{
    const int iFile = open(sPath.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC | O_NOCTTY);
    if (iFile < 0)
    {
        return { std::string("cannot be written: ") + strerror(iReason), "" };
    }
    const bool bWritten = WriteAll(iFile, sContent);
    const bool bSynced = bWritten && (fsync(iFile) == 0 || errno == EINVAL || errno == EROFS); // files of the kernel
    const int iError = errno;
    if (close(iFile) == 0 && bSynced)
    {
        return { "", "was written " + DescribeInPlace(iReason) };
    }
    return { std::string("cannot be written: ") + strerror(bSynced ? errno : iError) + "; its old content is lost",
             "" };
}

// Where a path leads through links, the last of which may point to nothing. Empty with errno set when it leads nowhere.
std::string FollowLinks(std::string sPath)
{
    constexpr unsigned int uiMostLinks = 40; // as in the system
    for (unsigned int i = 0; i < uiMostLinks; ++i)
    {
        char szTarget[PATH_MAX];
        const ssize_t iLength = readlink(sPath.c_str(), szTarget, sizeof(szTarget));
        if (iLength < 0)
        {
            return errno == EINVAL || errno == ENOENT ? sPath : ""; // no link, or nothing
        }
        const std::string sTarget(szTarget, static_cast<size_t>(iLength));
        sPath = sTarget.starts_with('/') ? sTarget : GetFolder(sPath).append(sTarget);
    }
    errno = ELOOP;
    return "";
}

// What a path is and what writing to it will do.
struct STarget
{
    std::string m_sPath; // links resolved
    bool m_bStream = false;
    bool m_bExists = false;
    struct stat m_oStatus = {};
};

// False with the reason when nothing may be written there.
bool FindTarget(const std::string& sPath, bool bForce, STarget& oTarget, std::string& sProblem)
{
    oTarget.m_sPath = FollowLinks(sPath);
    if (oTarget.m_sPath.empty())
    {
        return Fail("cannot be written", sProblem);
    }
    oTarget.m_bExists = stat(sPath.c_str(), &oTarget.m_oStatus) == 0;
    if (!oTarget.m_bExists && errno != ENOENT)
    {
        return Fail("cannot be written", sProblem);
    }
    const mode_t uiMode = oTarget.m_oStatus.st_mode;
    if (oTarget.m_bExists && (S_ISDIR(uiMode) || S_ISBLK(uiMode)))
    {
        return Refuse(S_ISDIR(uiMode) ? "is a folder" : "is a block device", sProblem);
    }
    oTarget.m_bStream = oTarget.m_bExists && !S_ISREG(uiMode);
    const bool bSomething = oTarget.m_bExists || oTarget.m_sPath != sPath; // a link to nothing is something
    return oTarget.m_bStream || bForce || !bSomething || Refuse(gsc_pszExists, sProblem);
}

// Whether a file may come up in the folder, or what is there be written; the one reason that is known before.
SWritten FindRights(const STarget& oTarget)
{
    const std::string sFolder = GetFolder(oTarget.m_sPath);
    const bool bItself = oTarget.m_bExists && access(oTarget.m_sPath.c_str(), W_OK) == 0;
    const bool bBeside = !oTarget.m_bStream && access(sFolder.empty() ? "." : sFolder.c_str(), W_OK | X_OK) == 0;
    if (bBeside || (bItself && oTarget.m_bStream))
    {
        return {};
    }
    return bItself ? SWritten{ "", "would be written " + DescribeInPlace(errno) }
                   : SWritten{ std::string("cannot be written: ") + strerror(errno), "" };
}

bool IsSpared(int iFile, bool bIsText, std::string& sProblem)
{
    return bIsText || isatty(iFile) == 0 ||
           Refuse("raw bytes are not written to a terminal (choose a text form or a file)", sProblem);
}

bool WriteStream(int iFile, const std::string& sContent, bool bIsText, std::string& sProblem)
{
    return IsSpared(iFile, bIsText, sProblem) && (WriteAll(iFile, sContent) || Fail("cannot be written", sProblem));
}

bool OpenStream(const std::string& sPath, const std::string& sContent, bool bIsText, std::string& sProblem)
{
    const int iFile = open(sPath.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (iFile < 0)
    {
        return Fail("cannot be opened", sProblem);
    }
    const bool bGood = WriteStream(iFile, sContent, bIsText, sProblem);
    const bool bClosed = close(iFile) == 0;
    return bGood && (bClosed || Fail("cannot be written", sProblem));
}
} // namespace

void PrepareForThreads() { g_uiNewFileMode = ReadNewFileMode(); }

bool IsStandardOutput(const std::string& sPath)
{
    struct stat oStatus;
    struct stat oOutput;
    return sPath == "-" || (stat(sPath.c_str(), &oStatus) == 0 && fstat(STDOUT_FILENO, &oOutput) == 0 &&
                            oStatus.st_dev == oOutput.st_dev && oStatus.st_ino == oOutput.st_ino);
}

SWritten CheckOutput(const std::string& sPath, bool bForce, bool bIsText)
{
    STarget oTarget;
    SWritten oWritten;
    const bool bFound = sPath == "-" ? IsSpared(STDOUT_FILENO, bIsText, oWritten.m_sProblem)
                                     : FindTarget(sPath, bForce, oTarget, oWritten.m_sProblem);
    return bFound && sPath != "-" ? FindRights(oTarget) : oWritten;
}

SWritten WriteOutput(const std::string& sPath, const std::string& sContent, bool bForce, bool bIsText)
{
    STarget oTarget;
    SWritten oWritten;
    if (sPath == "-")
    {
        fflush(stdout) == 0 ? WriteStream(STDOUT_FILENO, sContent, bIsText, oWritten.m_sProblem)
                            : Fail("cannot be written", oWritten.m_sProblem);
        return oWritten;
    }
    if (!FindTarget(sPath, bForce, oTarget, oWritten.m_sProblem))
    {
        return oWritten;
    }
    if (oTarget.m_bStream)
    {
        OpenStream(sPath, sContent, bIsText, oWritten.m_sProblem);
        return oWritten;
    }
    if (ReplaceFile(oTarget.m_sPath, sContent, oTarget.m_bExists ? &oTarget.m_oStatus : nullptr, bForce))
    {
        return oWritten;
    }
    if (oTarget.m_bExists && IsProblemOfPlace(errno)) // with bForce, or it would not have come here
    {
        return OverwriteFile(oTarget.m_sPath, sContent, errno);
    }
    errno == EEXIST ? Refuse(gsc_pszExists, oWritten.m_sProblem) : Fail("cannot be written", oWritten.m_sProblem);
    return oWritten;
}

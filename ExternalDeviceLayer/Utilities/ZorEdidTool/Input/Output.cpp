// Writing a result into a file: whole or not at all.

#include "Output.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

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
        if (iWritten < 0 && errno != EINTR)
        {
            return false;
        }
        uiDone += iWritten > 0 ? static_cast<size_t>(iWritten) : 0;
    }
    return true;
}

mode_t GetNewFileMode()
{
    const mode_t uiMask = umask(0);
    umask(uiMask);
    return gsc_uiNewFileMode & ~uiMask;
}

// Gives the temporary file the target's name. A file that came up there in the meantime is replaced only with bForce.
bool Rename(const std::string& sTemporary, const std::string& sPath, bool bForce)
{
    if (bForce)
    {
        return rename(sTemporary.c_str(), sPath.c_str()) == 0;
    }
    if (renameat2(AT_FDCWD, sTemporary.c_str(), AT_FDCWD, sPath.c_str(), RENAME_NOREPLACE) == 0)
    {
        return true;
    }
    // File systems without this flag: a second name never exists already.
    return (errno == EINVAL || errno == ENOSYS) && link(sTemporary.c_str(), sPath.c_str()) == 0 &&
           unlink(sTemporary.c_str()) == 0;
}

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

// poOld  the state of the file that is replaced, or null
bool ReplaceFile(const std::string& sPath, const std::string& sContent, const struct stat* poOld, bool bForce,
                 std::string& sProblem)
{
    std::string sTemporary = GetFolder(sPath) + ".zoredid.XXXXXX"; // short, as the target's name may be of the longest
    const int iFile = mkostemp(sTemporary.data(), O_CLOEXEC);
    if (iFile < 0)
    {
        return Fail("cannot be written", sProblem);
    }
    bool bGood = fchmod(iFile, poOld != nullptr ? KeepOwner(iFile, *poOld) : GetNewFileMode()) == 0 &&
                 WriteAll(iFile, sContent) && fsync(iFile) == 0;
    bGood = close(iFile) == 0 && bGood;
    bGood = bGood && Rename(sTemporary, sPath, bForce);
    if (!bGood)
    {
        errno == EEXIST ? Refuse(gsc_pszExists, sProblem) : Fail("cannot be written", sProblem);
        unlink(sTemporary.c_str());
        return false;
    }
    SyncFolder(GetFolder(sPath));
    return true;
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

// Whether a file may come up in the folder, or a stream be written; the one reason that is known before.
bool MayWrite(const STarget& oTarget, std::string& sProblem)
{
    const std::string sFolder = GetFolder(oTarget.m_sPath);
    const int iAllowed = oTarget.m_bStream ? access(oTarget.m_sPath.c_str(), W_OK)
                                           : access(sFolder.empty() ? "." : sFolder.c_str(), W_OK | X_OK);
    return iAllowed == 0 || Fail("cannot be written", sProblem);
}

bool IsSpared(int iFile, bool bIsText, std::string& sProblem)
{
    return bIsText || isatty(iFile) == 0 ||
           Refuse("raw bytes are not written to a terminal (choose a text form or a file)", sProblem);
}

// Writes to what is already open, or is not a file and so cannot be replaced.
bool WriteInPlace(int iFile, const std::string& sContent, bool bIsText, std::string& sProblem)
{
    return IsSpared(iFile, bIsText, sProblem) && (WriteAll(iFile, sContent) || Fail("cannot be written", sProblem));
}
} // namespace

bool IsStandardOutput(const std::string& sPath)
{
    struct stat oStatus;
    struct stat oOutput;
    return sPath == "-" || (stat(sPath.c_str(), &oStatus) == 0 && fstat(STDOUT_FILENO, &oOutput) == 0 &&
                            oStatus.st_dev == oOutput.st_dev && oStatus.st_ino == oOutput.st_ino);
}

bool CheckOutput(const std::string& sPath, bool bForce, bool bIsText, std::string& sProblem)
{
    STarget oTarget;
    return sPath == "-" ? IsSpared(STDOUT_FILENO, bIsText, sProblem)
                        : FindTarget(sPath, bForce, oTarget, sProblem) && MayWrite(oTarget, sProblem);
}

bool WriteOutput(const std::string& sPath, const std::string& sContent, bool bForce, bool bIsText,
                 std::string& sProblem)
{
    if (sPath == "-")
    {
        return fflush(stdout) == 0 ? WriteInPlace(STDOUT_FILENO, sContent, bIsText, sProblem)
                                   : Fail("cannot be written", sProblem);
    }
    STarget oTarget;
    if (!FindTarget(sPath, bForce, oTarget, sProblem))
    {
        return false;
    }
    if (!oTarget.m_bStream)
    {
        return ReplaceFile(oTarget.m_sPath, sContent, oTarget.m_bExists ? &oTarget.m_oStatus : nullptr, bForce,
                           sProblem);
    }
    const int iFile = open(sPath.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (iFile < 0)
    {
        return Fail("cannot be opened", sProblem);
    }
    const bool bGood = WriteInPlace(iFile, sContent, bIsText, sProblem);
    const bool bClosed = close(iFile) == 0;
    return bGood && (bClosed || Fail("cannot be written", sProblem));
}

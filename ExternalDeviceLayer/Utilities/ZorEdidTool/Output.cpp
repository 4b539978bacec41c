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
constexpr mode_t gsc_uiNewFileMode = 0666; // less what the user's mask takes away

bool Fail(const char* pszWhat, std::string& sProblem)
{
    sProblem = std::string(pszWhat) + ": " + strerror(errno);
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

// Writes to what is open already or is no file, which cannot be replaced.
bool WriteInPlace(int iFile, const std::string& sContent, bool bIsText, std::string& sProblem)
{
    if (!bIsText && isatty(iFile) != 0)
    {
        sProblem = "raw bytes are not written to a terminal (choose a text form or a file)";
        return false;
    }
    return WriteAll(iFile, sContent) || Fail("cannot be written", sProblem);
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
    // File systems without this flag.
    return (errno == EINVAL || errno == ENOSYS) && rename(sTemporary.c_str(), sPath.c_str()) == 0;
}

// poOld  the state of the file that is replaced, or null
bool ReplaceFile(const std::string& sPath, const std::string& sContent, const struct stat* poOld, bool bForce,
                 std::string& sProblem)
{
    std::string sTemporary = sPath + ".XXXXXX";
    const int iFile = mkostemp(sTemporary.data(), O_CLOEXEC);
    if (iFile < 0)
    {
        return Fail("cannot be written", sProblem);
    }
    // The owner is kept where the user may; it goes first, since it clears mode bits.
    const bool bOwnerKept = poOld == nullptr || fchown(iFile, poOld->st_uid, poOld->st_gid) == 0 || errno == EPERM;
    bool bGood = bOwnerKept &&
                 fchmod(iFile, poOld != nullptr ? poOld->st_mode & gsc_uiModeBits : GetNewFileMode()) == 0 &&
                 WriteAll(iFile, sContent) && fsync(iFile) == 0;
    bGood = close(iFile) == 0 && bGood;
    bGood = bGood && Rename(sTemporary, sPath, bForce);
    if (!bGood)
    {
        Fail("cannot be written", sProblem);
        unlink(sTemporary.c_str());
    }
    return bGood;
}
} // namespace

bool WriteOutput(const std::string& sPath, const std::string& sContent, bool bForce, bool bIsText,
                 std::string& sProblem)
{
    if (sPath == "-")
    {
        return fflush(stdout) == 0 ? WriteInPlace(STDOUT_FILENO, sContent, bIsText, sProblem)
                                   : Fail("cannot be written", sProblem);
    }
    struct stat oStatus;
    if (stat(sPath.c_str(), &oStatus) != 0)
    {
        return errno == ENOENT ? ReplaceFile(sPath, sContent, nullptr, bForce, sProblem)
                               : Fail("cannot be written", sProblem);
    }
    if (S_ISDIR(oStatus.st_mode))
    {
        sProblem = "is a folder";
        return false;
    }
    if (!S_ISREG(oStatus.st_mode))
    {
        const int iFile = open(sPath.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        if (iFile < 0)
        {
            return Fail("cannot be opened", sProblem);
        }
        const bool bGood = WriteInPlace(iFile, sContent, bIsText, sProblem);
        return close(iFile) == 0 && bGood;
    }
    if (!bForce)
    {
        sProblem = "exists already (use --force)";
        return false;
    }
    char* const pszTarget = realpath(sPath.c_str(), nullptr); // behind links
    if (pszTarget == nullptr)
    {
        return Fail("cannot be written", sProblem);
    }
    const std::string sTarget = pszTarget;
    free(pszTarget);
    return ReplaceFile(sTarget, sContent, &oStatus, bForce, sProblem);
}

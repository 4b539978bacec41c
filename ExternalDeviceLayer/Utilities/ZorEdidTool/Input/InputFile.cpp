// Opening and reading for the readers of inputs: what is asked of a file before it is opened.

#include "InputFile.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace
{
bool IsNullDevice(const struct stat& oStatus)
{
    constexpr unsigned int uiMajor = 1; // of the memory devices
    constexpr unsigned int uiMinor = 3;
    return S_ISCHR(oStatus.st_mode) && oStatus.st_rdev == makedev(uiMajor, uiMinor);
}

// Why a name cannot be read; empty when it can. A terminal is a device that one can type at, and the null
// device is an empty file.
std::string GetProblemOfKind(const struct stat& oStatus, bool bTerminal)
{
    if (S_ISDIR(oStatus.st_mode))
    {
        return "is a folder";
    }
    if (S_ISBLK(oStatus.st_mode) || (S_ISCHR(oStatus.st_mode) && !bTerminal && !IsNullDevice(oStatus)))
    {
        return "is a device";
    }
    return "";
}
} // namespace

// The kind is asked before opening, which may already act on a device.
CInputFile::CInputFile(const std::string& sName)
{
    const bool bStandardInput = sName == "-";
    struct stat oStatus;
    if (sName.find('\0') != std::string::npos) // the system would take the part before it for the name
    {
        m_sProblem = "a NUL in the name; did you mean -0?";
        return;
    }
    if ((bStandardInput ? fstat(STDIN_FILENO, &oStatus) : stat(sName.c_str(), &oStatus)) != 0)
    {
        m_sProblem = std::string(bStandardInput ? "cannot be read: " : "cannot be opened: ") + strerror(errno);
        return;
    }
    m_sProblem = GetProblemOfKind(oStatus, bStandardInput && isatty(STDIN_FILENO) != 0);
    if (!m_sProblem.empty())
    {
        return;
    }
    m_bOwned = !bStandardInput;
    m_iFile = bStandardInput ? STDIN_FILENO : open(sName.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    m_sProblem = m_iFile < 0 ? std::string("cannot be opened: ") + strerror(errno) : "";
}

CInputFile::~CInputFile()
{
    if (m_bOwned && m_iFile >= 0)
    {
        close(m_iFile);
    }
}

size_t CInputFile::Read(char* pcBytes, size_t uiSize)
{
    while (m_sProblem.empty())
    {
        const ssize_t iRead = read(m_iFile, pcBytes, uiSize);
        if (iRead >= 0)
        {
            return static_cast<size_t>(iRead);
        }
        m_sProblem = errno == EINTR ? "" : std::string("cannot be read: ") + strerror(errno);
    }
    return 0;
}

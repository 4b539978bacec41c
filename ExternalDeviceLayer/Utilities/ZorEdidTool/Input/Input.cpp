// Reading an input from a file, standard input or a connector. InputForms.cpp has its forms.

#include "Input.h"

#include <errno.h>
#include <fcntl.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "Connectors.h"

namespace
{
constexpr size_t gsc_uiLongest = size_t{ 4 } << 20; // bytes; a registry export of many monitors has its place
constexpr size_t gsc_uiPiece = size_t{ 1 } << 14;

constexpr char gsc_szEmpty[] = "is empty";

std::string& GetMonitor()
{
    static std::string s_sMonitor;
    return s_sMonitor;
}

constinit unsigned int g_uiImage = 0;

CInputs MakeProblem(const std::string& sName, const std::string& sProblem) { return { { sName, {}, "", sProblem } }; }

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

// Reads to the end, whatever size the system reports: files below /sys report none.
CInputs ReadOpenFile(const std::string& sName, int iFile)
{
    std::string sContent;
    for (;;)
    {
        const size_t uiSize = sContent.size();
        sContent.resize(uiSize + gsc_uiPiece);
        const ssize_t iRead = read(iFile, sContent.data() + uiSize, gsc_uiPiece);
        const int iError = errno;
        sContent.resize(uiSize + static_cast<size_t>(iRead > 0 ? iRead : 0));
        if (iRead == 0)
        {
            return sContent.empty() ? MakeProblem(sName, gsc_szEmpty)
                                    : DecodeInputs(sName, sContent, GetMonitor(), g_uiImage);
        }
        if (iRead < 0 && iError != EINTR)
        {
            return MakeProblem(sName, std::string("cannot be read: ") + strerror(iError));
        }
        if (sContent.size() > gsc_uiLongest)
        {
            return MakeProblem(sName, "is longer than 4 MiB");
        }
    }
}

CInputs ReadStandardInput(const std::string& sName)
{
    struct stat oStatus;
    if (fstat(STDIN_FILENO, &oStatus) != 0)
    {
        return MakeProblem(sName, std::string("cannot be read: ") + strerror(errno));
    }
    const std::string sProblem = GetProblemOfKind(oStatus, isatty(STDIN_FILENO) != 0);
    return sProblem.empty() ? ReadOpenFile(sName, STDIN_FILENO) : MakeProblem(sName, sProblem);
}

CInputs ReadFile(const std::string& sName, const std::string& sPath)
{
    const int iFile = open(sPath.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (iFile < 0)
    {
        return MakeProblem(sName, std::string("cannot be opened: ") + strerror(errno));
    }
    CInputs aoInputs = ReadOpenFile(sName, iFile);
    close(iFile);
    return aoInputs;
}

CInputs ReadNamedConnector(const std::string& sName)
{
    const std::vector<SConnector> aoFound = FindConnectors(sName);
    if (aoFound.empty())
    {
        return MakeProblem(sName, "neither a file nor a connector of this machine");
    }
    if (aoFound.size() > 1)
    {
        return MakeProblem(sName,
                           "several connectors have this name: " + aoFound[0].m_sName + ", " + aoFound[1].m_sName);
    }
    const SConnector& oConnector = aoFound[0];
    SInput oInput = ReadConnector(oConnector);
    oInput.m_sName = sName;
    if (oInput.IsGood())
    {
        oInput.m_sForm = "connector " + oConnector.m_sName;
    }
    else
    {
        const char* pszJoint = oInput.m_sProblem == gsc_szNoEdid ? " " : ": ";
        oInput.m_sProblem =
            "connector " + oConnector.m_sName + " (" + oConnector.m_sState + ")" + pszJoint + oInput.m_sProblem;
    }
    return { oInput };
}
} // namespace

void SetMonitor(const std::string& sWanted) { GetMonitor() = sWanted; }

void SetImage(unsigned int uiWanted) { g_uiImage = uiWanted; }

SInput ReadConnector(const SConnector& oConnector)
{
    SInput oInput = ReadFile(oConnector.m_sName, oConnector.m_sEdidPath).front(); // bytes of one monitor
    if (oInput.m_sProblem == gsc_szEmpty)
    {
        oInput.m_sProblem = gsc_szNoEdid;
    }
    return oInput;
}

CInputs ReadInputs(const std::string& sName)
{
    if (sName == "-")
    {
        return ReadStandardInput(sName);
    }
    if (sName.find('\0') != std::string::npos) // the system would take the part before it for the name
    {
        return MakeProblem(sName, "a NUL in the name; did you mean -0?");
    }
    struct stat oStatus;
    if (stat(sName.c_str(), &oStatus) != 0)
    {
        return errno == ENOENT ? ReadNamedConnector(sName)
                               : MakeProblem(sName, std::string("cannot be opened: ") + strerror(errno));
    }
    // Asked before opening, which may already act on a device.
    const std::string sProblem = GetProblemOfKind(oStatus, false);
    return sProblem.empty() ? ReadFile(sName, sName) : MakeProblem(sName, sProblem);
}

// Reading an input from a file, standard input or a connector. InputForms.cpp has its forms.

#include "Input.h"

#include <errno.h>
#include <sys/stat.h>

#include "Connectors.h"
#include "InputFile.h"

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

// To the end, whatever size the system reports: files below /sys report none.
CInputs ReadFile(const std::string& sName, const std::string& sPath)
{
    CInputFile oFile(sPath);
    std::string sContent;
    for (;;)
    {
        const size_t uiSize = sContent.size();
        sContent.resize(uiSize + gsc_uiPiece);
        const size_t uiRead = oFile.Read(sContent.data() + uiSize, gsc_uiPiece);
        sContent.resize(uiSize + uiRead);
        if (!oFile.GetProblem().empty())
        {
            return MakeProblem(sName, oFile.GetProblem());
        }
        if (uiRead == 0)
        {
            return sContent.empty() ? MakeProblem(sName, gsc_szEmpty)
                                    : DecodeInputs(sName, sContent, GetMonitor(), g_uiImage);
        }
        if (sContent.size() > gsc_uiLongest)
        {
            return MakeProblem(sName, "is longer than 4 MiB");
        }
    }
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
    struct stat oStatus;
    const bool bFile =
        sName == "-" || sName.find('\0') != std::string::npos || stat(sName.c_str(), &oStatus) == 0 || errno != ENOENT;
    return bFile ? ReadFile(sName, sName) : ReadNamedConnector(sName);
}

// Of the monitors in a text, the one that the user wants.

#include <algorithm>
#include <map>
#include <set>

#include "EdidBase.h"
#include "InputReaders.h"

namespace
{
// The name in a descriptor of the base block; empty without one.
std::string GetModel(const SInput& oMonitor)
{
    CEdidBase oBase;
    char szModel[14] = {}; // longest text of a descriptor, and the terminator
    const bool bLoaded = oMonitor.m_aui8Bytes.size() >= gsc_uiBlockSize &&
                         oBase.SetEdidBuffer(oMonitor.m_aui8Bytes.data(), gsc_uiBlockSize, 0) != 0;
    return bLoaded && oBase.GetMonitorName(szModel, sizeof(szModel)) != 0 ? szModel : "";
}

// "1 HDMI-1 (Monitor), 2 DP-2"
std::string ListMonitors(const CMonitors& aoMonitors)
{
    constexpr size_t uiMost = 16; // of a line that can still be read
    std::string sList;
    for (size_t i = 0; i < aoMonitors.size() && i < uiMost; ++i)
    {
        const std::string sModel = GetModel(aoMonitors[i]);
        sList += (i == 0 ? "" : ", ") + std::to_string(i + 1);
        sList += aoMonitors[i].m_sName.empty() ? "" : " " + aoMonitors[i].m_sName;
        sList += sModel.empty() ? "" : " (" + sModel + ")";
    }
    return sList + (aoMonitors.size() > uiMost ? ", ..." : "");
}

// An EDID without a name is one with a name and the same bytes.
void RemoveRepeated(CMonitors& aoMonitors)
{
    std::map<std::vector<unsigned char>, std::set<std::string>> oSeen; // names of those bytes
    const auto fnIsRepeated = [&oSeen](const SInput& oMonitor) {
        std::set<std::string>& oNames = oSeen[oMonitor.m_aui8Bytes];
        const bool bSeen = oMonitor.m_sName.empty() && !oNames.empty();
        return oMonitor.IsGood() && (bSeen || oMonitor.m_aui8Bytes.empty() || !oNames.insert(oMonitor.m_sName).second);
    };
    const auto itEnd = std::remove_if(aoMonitors.begin(), aoMonitors.end(), fnIsRepeated);
    aoMonitors.erase(itEnd, aoMonitors.end());
}

// The place of the one that is wanted, which is not empty. Their number, with the reason in sProblem, without one.
size_t FindMonitor(const CMonitors& aoMonitors, const std::string& sWanted, std::string& sProblem)
{
    const auto fnHasName = [&sWanted](const SInput& oMonitor) { return oMonitor.m_sName == sWanted; };
    const auto itFound = std::find_if(aoMonitors.begin(), aoMonitors.end(), fnHasName);
    const auto iCount = std::count_if(itFound, aoMonitors.end(), fnHasName);
    unsigned long long ullNumber = 0;
    if (iCount == 0 && ParseDigits(sWanted, 10, ullNumber) && ullNumber >= 1 && ullNumber <= aoMonitors.size())
    {
        return static_cast<size_t>(ullNumber) - 1;
    }
    if (iCount == 1)
    {
        return static_cast<size_t>(itFound - aoMonitors.begin());
    }
    sProblem = iCount == 0 ? "no monitor '" + sWanted + "'" : "several EDIDs of the monitor '" + sWanted + "'";
    sProblem += aoMonitors.size() == 1 ? "; there is only " : "; there are ";
    sProblem += ListMonitors(aoMonitors);
    return aoMonitors.size();
}
} // namespace

void ChooseMonitor(CMonitors aoMonitors, const std::string& sWanted, SInput& oInput)
{
    RemoveRepeated(aoMonitors);
    if (aoMonitors.empty())
    {
        return;
    }
    const size_t uiCount = aoMonitors.size();
    const size_t uiFound = sWanted.empty() ? 0 : FindMonitor(aoMonitors, sWanted, oInput.m_sProblem);
    if (uiFound == uiCount)
    {
        return;
    }
    const std::string& sName = aoMonitors[uiFound].m_sName;
    oInput.m_aui8Bytes = aoMonitors[uiFound].m_aui8Bytes;
    oInput.m_sProblem = aoMonitors[uiFound].m_sProblem;
    if (uiCount == 1)
    {
        return;
    }
    const std::string sOthers = "; --monitor chooses: " + ListMonitors(aoMonitors);
    const std::string sFirst = "the first EDID of " + std::to_string(uiCount);
    oInput.m_sForm +=
        ", " + (sWanted.empty() ? sFirst : "EDID " + std::to_string(uiFound + 1) + " of " + std::to_string(uiCount));
    oInput.m_sProblem += oInput.IsGood() ? "" : sOthers;
    oInput.m_sHint = sWanted.empty() ? sFirst + " is read" + (sName.empty() ? "" : ", that of " + sName) + sOthers : "";
}

// Of the monitors in a text, those that the user wants.

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include "EdidBase.h"
#include "InputReaders.h"

namespace
{
constexpr std::string_view gsc_sAllMonitors = "all"; // in place of a name

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

// The index of the wanted monitor, which is not empty. Without one their number, with the reason in sProblem.
size_t FindMonitor(const CMonitors& aoMonitors, const std::string& sWanted, std::string& sProblem)
{
    const auto fnHasName = [&sWanted](const SInput& oMonitor) { return IsConnector(oMonitor.m_sName, sWanted); };
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
    // Of the words that are meant, the list lacks this one alone.
    sProblem += std::string_view("all").starts_with(sWanted) ? "; did you mean 'all'?" : "";
    return aoMonitors.size();
}
// oInput with what is of this monitor.
SInput MakeInput(const SInput& oInput, const SInput& oMonitor)
{
    SInput oMade = oInput;
    oMade.m_aui8Bytes = oMonitor.m_aui8Bytes;
    oMade.m_sProblem = oMonitor.m_sProblem;
    return oMade;
}

std::string GetPlace(size_t uiMonitor, size_t uiCount)
{
    return "EDID " + std::to_string(uiMonitor + 1) + " of " + std::to_string(uiCount);
}

// A name that another one has, too, would not say which is meant.
CInputs TakeAll(const CMonitors& aoMonitors, const SInput& oInput)
{
    CInputs aoInputs;
    for (size_t i = 0; i < aoMonitors.size(); ++i)
    {
        const std::string& sName = aoMonitors[i].m_sName;
        const auto fnHasName = [&sName](const SInput& oMonitor) { return oMonitor.m_sName == sName; };
        const bool bUnique = std::count_if(aoMonitors.begin(), aoMonitors.end(), fnHasName) == 1;
        SInput& oMade = aoInputs.emplace_back(MakeInput(oInput, aoMonitors[i]));
        oMade.m_sFile = oInput.m_sName;
        oMade.m_sMonitor = sName;
        oMade.m_sName += " (" + (bUnique && !sName.empty() ? sName : "EDID " + std::to_string(i + 1)) + ")";
        oMade.m_sForm += ", " + GetPlace(i, aoMonitors.size());
    }
    return aoInputs;
}
} // namespace

CInputs TakeMonitors(CMonitors aoMonitors, const std::string& sWanted, const SInput& oInput)
{
    RemoveRepeated(aoMonitors);
    const size_t uiCount = aoMonitors.size();
    if (uiCount == 0)
    {
        return { oInput };
    }
    const bool bAll = EqualsNoCase(sWanted, gsc_sAllMonitors);
    if (bAll && uiCount > 1)
    {
        return TakeAll(aoMonitors, oInput);
    }
    std::string sProblem;
    const size_t uiFound = sWanted.empty() || bAll ? 0 : FindMonitor(aoMonitors, sWanted, sProblem);
    if (uiFound == uiCount)
    {
        SInput oNone = oInput;
        oNone.m_sProblem = sProblem;
        return { oNone };
    }
    SInput oFound = MakeInput(oInput, aoMonitors[uiFound]);
    if (uiCount > 1)
    {
        const std::string& sName = aoMonitors[uiFound].m_sName;
        const std::string sOthers = "; --monitor chooses: " + ListMonitors(aoMonitors);
        const std::string sFirst = "the first EDID of " + std::to_string(uiCount);
        oFound.m_sForm += ", " + (sWanted.empty() ? sFirst : GetPlace(uiFound, uiCount));
        oFound.m_sProblem += oFound.IsGood() ? "" : sOthers;
        oFound.m_sHint =
            sWanted.empty() ? sFirst + " is read" + (sName.empty() ? "" : ", that of " + sName) + sOthers : "";
    }
    return { oFound };
}

// The connectors of this machine's graphics cards.

#include "Connectors.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "InputReaders.h"

namespace
{
std::string& GetFolder()
{
    static std::string s_sFolder = "/sys/class/drm";
    return s_sFolder;
}
} // namespace

const std::string& GetConnectorFolder() { return GetFolder(); }

void SetConnectorFolder(const std::string& sFolder) { GetFolder() = sFolder; }

bool ListConnectors(std::vector<SConnector>& aoConnectors, std::string& sProblem)
{
    std::error_code oError;
    std::filesystem::directory_iterator itEntry(GetFolder(), oError);
    for (; !oError && itEntry != std::filesystem::directory_iterator(); itEntry.increment(oError))
    {
        // Cards and their render nodes have no such file.
        std::ifstream oStatus(itEntry->path() / "status");
        SConnector oConnector = { itEntry->path().filename(), "", itEntry->path() / "edid" };
        if (std::getline(oStatus, oConnector.m_sState))
        {
            aoConnectors.push_back(oConnector);
        }
    }
    std::sort(aoConnectors.begin(), aoConnectors.end(),
              [](const SConnector& oFirst, const SConnector& oSecond) { return oFirst.m_sName < oSecond.m_sName; });
    sProblem = oError ? oError.message() : "";
    return !oError;
}

std::vector<SConnector> FindConnectors(const std::string& sName)
{
    std::vector<SConnector> aoConnectors;
    std::string sProblem;
    ListConnectors(aoConnectors, sProblem);
    const auto fnHasOtherName = [&](const SConnector& oConnector) { return !IsConnector(oConnector.m_sName, sName); };
    aoConnectors.erase(std::remove_if(aoConnectors.begin(), aoConnectors.end(), fnHasOtherName), aoConnectors.end());
    return aoConnectors;
}

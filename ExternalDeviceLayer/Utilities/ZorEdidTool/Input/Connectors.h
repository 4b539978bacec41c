// The connectors of this machine's graphics cards, as the kernel shows them in folders: each holds the files "status"
// and "edid".

#pragma once

#include <string>
#include <vector>

struct SConnector
{
    std::string m_sName;     // "card0-HDMI-A-1"
    std::string m_sState;    // "connected", "disconnected" or "unknown"
    std::string m_sEdidPath; // a file that is empty without an EDID
};

// The folder of the connectors, /sys/class/drm at start. Set it before there are several threads.
const std::string& GetConnectorFolder();
void SetConnectorFolder(const std::string& sFolder);

// All connectors, by name. False with the reason in sProblem when the folder cannot be read.
bool ListConnectors(std::vector<SConnector>& aoConnectors, std::string& sProblem);

// Those with this name, in either case, which may leave out the card: "HDMI-A-1".
std::vector<SConnector> FindConnectors(const std::string& sName);

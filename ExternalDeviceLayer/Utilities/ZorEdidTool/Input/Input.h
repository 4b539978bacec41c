// An EDID image from wherever the user has it: a raw file, a text table, a hex dump of another tool, base64, standard
// input, a pipe or a connector of this machine.

#pragma once

#include <string>
#include <vector>

struct SConnector;

struct SInput
{
    std::string m_sName;                    // as the user gave it
    std::vector<unsigned char> m_aui8Bytes; // the image: 1 byte to 256 blocks; whether it is one is the caller's to see
    std::string m_sForm;                    // what it was taken for, such as "raw image" or "xxd dump"
    std::string m_sProblem;                 // why no image was read, one line; empty when one was
    std::string m_sHint = {};               // what the user should know of an image that there is; mostly empty

    bool IsGood() const { return m_sProblem.empty(); }
};

// Reads one input. "-" is standard input. A name that is not a file is looked for among the connectors. Folders and
// devices are not read, and nothing is read beyond 4 MiB. Throws nothing but for want of memory.
SInput ReadInput(const std::string& sName);

// The image at a connector. The problem is gsc_szNoEdid if it gives no bytes, as without a monitor.
SInput ReadConnector(const SConnector& oConnector);
inline constexpr char gsc_szNoEdid[] = "has no EDID";

// Which EDID ReadInput takes of a text that holds several: the connector's name there, or a number from 1. Without it,
// the first one. Set it before there are several threads.
void SetMonitor(const std::string& sNameOrNumber);

// The image in bytes of any known form; sName names it in messages.
SInput DecodeInput(const std::string& sName, const std::string& sContent, const std::string& sMonitor = "");

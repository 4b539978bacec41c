// An EDID image from wherever the user has it: a raw file, a text table, a hex dump of another tool, base64, standard
// input, a pipe or a connector of this machine.

#pragma once

#include <string>
#include <vector>

struct SConnector;

// The form of a file whose bytes are those of the image, or of several images one after the other.
inline constexpr char gsc_szRawForm[] = "raw image";

struct SInput
{
    std::string m_sName;                    // as the user gave it; of several EDIDs in it, also which: "x.log (DP-1)"
    std::vector<unsigned char> m_aui8Bytes; // the image: 1 byte to 256 blocks; whether it is one is the caller's to see
    std::string m_sForm;                    // what it was taken for, such as "raw image" or "xxd dump"
    std::string m_sProblem;                 // why no image was read, one line; empty when one was
    std::string m_sHint = {};               // what the user should know of an image that there is; mostly empty
    std::string m_sFile = {};               // the name without the EDID; empty where m_sName is just that
    std::string m_sMonitor = {};            // of several in a text, the connector that the text gives it
    unsigned int m_uiImage = 0;             // of several one after the other in its bytes, its number from 1
    unsigned int m_uiOffset = 0;            // of the image in the bytes of its input
    // Of all images one after the other in these bytes, each place with the bytes of this one. Empty where that is the
    // only image, or the only one that was wanted.
    std::vector<unsigned int> m_auiOffsets = {};
    std::string m_sImages = {}; // what there is of these, one line; of the first of all that are read

    bool IsRaw() const { return m_sForm.starts_with(gsc_szRawForm); }
    bool IsGood() const { return m_sProblem.empty(); }
    bool IsOneOfSeveral() const { return !m_sFile.empty(); } // that are read of one file
    const std::string& GetFile() const { return m_sFile.empty() ? m_sName : m_sFile; }
};

using CInputs = std::vector<SInput>; // never empty where it is a result: there is an image or a problem

// Reads one file with all the EDIDs that are wanted of it. "-" is standard input. A name that is not a file is looked
// for among the connectors. Folders and devices are not read, and nothing is read beyond 4 MiB. Throws nothing but for
// want of memory.
CInputs ReadInputs(const std::string& sName);

// The image at a connector. The problem is gsc_szNoEdid if it gives no bytes, as without a monitor.
SInput ReadConnector(const SConnector& oConnector);
inline constexpr char gsc_szNoEdid[] = "has no EDID";

// Which EDIDs ReadInputs takes of a text that holds several: that of a connector there, in either case, that with a
// number from 1, or "all". Without it, the first one. Set it before there are several threads.
void SetMonitor(const std::string& sWanted);

// Which EDID ReadInputs takes of several that are one after the other in the bytes, from 1. Without it, or with 0, all.
void SetImage(unsigned int uiWanted);

// The images in bytes of any known form; sName names them in messages.
CInputs DecodeInputs(const std::string& sName, const std::string& sContent, const std::string& sMonitor = "",
                     unsigned int uiImage = 0);

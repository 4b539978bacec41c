// EDID files for tests and fuzz targets: a file that goes with its object, the text form of an image, and the check
// that none was left open.

#pragma once

#include <stdio.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "TestBytes.h"

class CTemporaryFile
{
public:
    // The name ends in pszEnding, which says the kind of the file.
    CTemporaryFile(const char* pszEnding, const void* pBytes, size_t uiSize)
        : m_oPath(std::filesystem::temp_directory_path() / ("zoredid-" + std::to_string(getpid()) + pszEnding))
    {
        std::ofstream oFile(m_oPath, std::ios::binary);
        oFile.exceptions(std::ios::failbit | std::ios::badbit);
        oFile.write(static_cast<const char*>(pBytes), static_cast<std::streamsize>(uiSize)).flush();
    }
    ~CTemporaryFile() { unlink(m_oPath.c_str()); }

    const char* GetPath() const { return m_oPath.c_str(); }

private:
    std::filesystem::path m_oPath;
};

// The lowest free descriptor: the same before and after when none was left open.
inline int GetNextDescriptor()
{
    const int iDescriptor = dup(STDERR_FILENO);
    close(iDescriptor);
    return iDescriptor;
}

inline const std::string gsc_sTableMarker = std::string(8, ' ') + std::string(40, '_');

// A title, the marker line, then rows of that many bytes.
inline std::string MakeTextTable(const CBytes& aui8Image, size_t uiColumns = 10, const std::string& sLineEnd = "\n")
{
    std::string sTable = "128 BYTES OF EDID CODE:" + sLineEnd + gsc_sTableMarker;
    for (size_t i = 0; i < aui8Image.size(); ++i)
    {
        char szCell[8];
        snprintf(szCell, sizeof(szCell), "  %02X", static_cast<unsigned int>(aui8Image[i]));
        sTable += (i % uiColumns == 0 ? sLineEnd + "  0 |" : "") + szCell;
    }
    return sTable + sLineEnd;
}

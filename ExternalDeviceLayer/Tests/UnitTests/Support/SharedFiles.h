// Access to the optional folder with reference tables and real EDID images (docs/test-data.md). Tests that need it skip
// where it is absent.

#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// An empty path where the build knows of no such folder.
inline std::filesystem::path GetSharedPath(const char* pszRelative)
{
    const std::filesystem::path oFolder(ZOREDID_SHARED_DIR);
    return oFolder.empty() ? oFolder : oFolder / pszRelative;
}

inline std::vector<unsigned char> ReadBytes(const std::filesystem::path& oPath)
{
    std::ifstream oFile(oPath, std::ios::binary);
    return { std::istreambuf_iterator<char>(oFile), std::istreambuf_iterator<char>() };
}

struct SCorpusImage
{
    std::string m_sName;
    std::vector<unsigned char> m_aui8Data;
};

// All real images, sorted by name; empty where the folder is absent.
inline std::vector<SCorpusImage> ReadCorpus()
{
    std::vector<SCorpusImage> aoImages;
    std::error_code oError;
    for (const auto& oEntry : std::filesystem::directory_iterator(GetSharedPath("corpus"), oError))
    {
        if (oEntry.path().extension() == ".bin")
        {
            aoImages.push_back({ oEntry.path().filename().string(), ReadBytes(oEntry.path()) });
        }
    }
    std::sort(aoImages.begin(), aoImages.end(),
              [](const SCorpusImage& oFirst, const SCorpusImage& oSecond) { return oFirst.m_sName < oSecond.m_sName; });
    return aoImages;
}

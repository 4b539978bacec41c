// Access to the optional folder with real EDID images (docs/test-data.md). Tests that need it skip where it is absent.

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

inline std::vector<unsigned char> ReadBytes(const std::filesystem::path& oPath)
{
    std::ifstream oFile(oPath, std::ios::binary);
    return { std::istreambuf_iterator<char>(oFile), std::istreambuf_iterator<char>() };
}

// The images of a folder by name; none where it is absent.
inline std::map<std::string, std::vector<unsigned char>> ReadImages(const std::filesystem::path& oFolder)
{
    std::map<std::string, std::vector<unsigned char>> oImages;
    std::error_code oError;
    for (const auto& oEntry : std::filesystem::directory_iterator(oFolder, oError))
    {
        if (oEntry.path().extension() == ".bin")
        {
            oImages[oEntry.path().filename().string()] = ReadBytes(oEntry.path());
        }
    }
    return oImages;
}

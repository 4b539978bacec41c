// A folder of its own for each test that reads and writes files.

#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

class CScratchFolder : public testing::Test
{
protected:
    CScratchFolder() : m_oFolder(std::filesystem::temp_directory_path() / ("zoredid-test-" + std::to_string(getpid())))
    {
        std::filesystem::create_directory(m_oFolder);
    }
    ~CScratchFolder() override { std::filesystem::remove_all(m_oFolder); }

    // Gives the path. Folders of the name come up.
    std::string Write(const std::string& sName, const std::string& sContent) const
    {
        std::filesystem::create_directories((m_oFolder / sName).parent_path());
        std::ofstream(m_oFolder / sName, std::ios::binary) << sContent;
        return m_oFolder / sName;
    }
    std::string Read(const std::string& sName) const
    {
        std::ifstream oFile(m_oFolder / sName, std::ios::binary);
        return { std::istreambuf_iterator<char>(oFile), {} };
    }
    std::set<std::string> List() const
    {
        std::set<std::string> oNames;
        for (const auto& oEntry : std::filesystem::directory_iterator(m_oFolder))
        {
            oNames.insert(oEntry.path().filename());
        }
        return oNames;
    }

    const std::filesystem::path m_oFolder;
};

// Writes the seeds of the fuzz targets: the self-check's images, raw, as text tables, and as the head of edit programs;
// modes. Programs over strings are found as fast without.
//   MakeSeeds FOLDER    the folders FOLDER/FuzzReadEverything and so on must exist

#include <fstream>
#include <iostream>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EditRunner.h"
#include "TemporaryFile.h"

namespace
{
// Sizes of the picture, porches, syncs; rates; the clock. The last number chooses row, filters, scan, colour space and
// 3D; see FuzzNumbers.cpp.
constexpr unsigned int gsc_aauiModes[][12] = {
    { 1920, 88, 44, 148, 1080, 4, 5, 36, 67500, 60, 148500000, 0x700 }, // passes all filters of the tables
    { 1920, 88, 44, 148, 540, 2, 5, 15, 33750, 30, 74250000, 0x105 },   // interlaced; a code of a variant
    { 640, 16, 96, 48, 480, 10, 2, 33, 31469, 59, 25175000, 0x010 },    // 4:2:0
    { 4096, 0, 0, 0, 2160, 0, 0, 0, 0, 24, 0, 0x062 },                  // no blanking, no clock; 3D
};

void WriteSeed(const std::string& sPath, const std::string& sSeed)
{
    std::ofstream oFile(sPath, std::ios::binary);
    if (!(oFile << sSeed << std::flush))
    {
        std::cerr << sPath << ": cannot be written\n";
        exit(1);
    }
}

// Every edit once.
std::string MakeProgram()
{
    std::string sProgram;
    for (unsigned int i = 0; i < CEditRunner::msc_uiOperationCount; ++i)
    {
        sProgram += { static_cast<char>(i), 0, 1, 0, 0x22, 0x0E, 0x04, 0x00 };
    }
    return sProgram;
}

// FuzzNumbers: each number behind a shift by 0 bits.
std::string MakeNumbers(const unsigned int (&auiNumbers)[12])
{
    std::string sInput;
    for (const unsigned int uiNumber : auiNumbers)
    {
        sInput += { 0, static_cast<char>(uiNumber), static_cast<char>(uiNumber >> 8), static_cast<char>(uiNumber >> 16),
                    static_cast<char>(uiNumber >> 24) };
    }
    return sInput;
}
} // namespace

int main(int iCount, char** ppszArguments)
{
    if (iCount != 2)
    {
        std::cerr << "usage: MakeSeeds FOLDER\n";
        return 1;
    }
    const std::string sFolder = ppszArguments[1];
    for (size_t i = 0; i < std::size(gsc_aoEdidTestImages); ++i)
    {
        const CBytes aui8Image = ToBytes(*gsc_aoEdidTestImages[i].m_paui8Image);
        const std::string sName = gsc_aoEdidTestImages[i].m_pszName;
        WriteSeed(sFolder + "/FuzzReadEverything/" + sName, std::string(aui8Image.begin(), aui8Image.end()));
        WriteSeed(sFolder + "/FuzzFiles/" + sName, MakeTextTable(aui8Image));
        WriteSeed(sFolder + "/FuzzEditSequence/" + sName, static_cast<char>(i) + MakeProgram());
    }

    // None of the images has a DisplayID block: one with that alone, one with a CEA-861 block in front of it.
    for (const CBytes& aui8Image :
         { MakeEdid({ MakeFullDisplayIdBlock() }), MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }) })
    {
        const std::string sImage(aui8Image.begin(), aui8Image.end());
        const std::string sName = "DisplayId" + std::to_string(sImage.size());
        const std::string sHead = { '\xFF', static_cast<char>(sImage.size() / 128 - 1) };
        WriteSeed(sFolder + "/FuzzReadEverything/" + sName, sImage);
        WriteSeed(sFolder + "/FuzzEditSequence/" + sName, sHead + sImage + MakeProgram());
    }

    for (size_t i = 0; i < std::size(gsc_aauiModes); ++i)
    {
        WriteSeed(sFolder + "/FuzzNumbers/" + std::to_string(i), MakeNumbers(gsc_aauiModes[i]));
    }
    return 0;
}

// Writes the seeds of the fuzz targets: the self-check's images, raw, as text tables, and as the head of edit programs.
//   MakeSeeds FOLDER    the folders FOLDER/FuzzReadEverything and so on must exist

#include <stdio.h>

#include <iterator>
#include <string>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EditRunner.h"

namespace
{
bool WriteFile(const std::string& sPath, const void* pBytes, size_t uiSize)
{
    FILE* poFile = fopen(sPath.c_str(), "wb");
    if (poFile == nullptr)
    {
        perror(sPath.c_str());
        return false;
    }
    const bool bWritten = fwrite(pBytes, 1, uiSize, poFile) == uiSize;
    return fclose(poFile) == 0 && bWritten;
}

// The text form of an image: a marker line, then rows of ten bytes.
std::string MakeTable(const SEdidImage& aui8Image)
{
    std::string sTable = "        ________________________________________\n";
    for (size_t i = 0; i < aui8Image.size(); ++i)
    {
        char szCell[16];
        snprintf(szCell, sizeof(szCell), i % 10 == 0 ? "%3u |  %02X" : "  %02X",
                 i % 10 == 0 ? static_cast<unsigned int>(i) : aui8Image[i], aui8Image[i]);
        sTable += szCell;
        sTable += i % 10 == 9 || i + 1 == aui8Image.size() ? "\n" : "";
    }
    return sTable + "\n";
}

// Every edit once, on this image.
std::string MakeProgram(size_t uiImage)
{
    std::string sProgram(1, static_cast<char>(uiImage));
    for (unsigned int i = 0; i < CEditRunner::msc_uiOperationCount; ++i)
    {
        const unsigned char aui8Step[8] = { static_cast<unsigned char>(i), 0, 1, 0, 0x22, 0x0E, 0x04, 0x00 };
        sProgram.append(std::begin(aui8Step), std::end(aui8Step));
    }
    return sProgram;
}

}

int main(int iCount, char** ppszArguments)
{
    if (iCount != 2)
    {
        fputs("usage: MakeSeeds FOLDER\n", stderr);
        return 1;
    }
    const std::string sFolder = ppszArguments[1];
    bool bAll = true;
    for (size_t i = 0; i < std::size(gsc_aoEdidTestImages); ++i)
    {
        const SEdidImage& aui8Image = *gsc_aoEdidTestImages[i].m_paui8Image;
        const std::string sName = gsc_aoEdidTestImages[i].m_pszName;
        const std::string sTable = MakeTable(aui8Image);
        const std::string sProgram = MakeProgram(i);
        bAll = WriteFile(sFolder + "/FuzzReadEverything/" + sName, aui8Image.data(), aui8Image.size()) && bAll;
        bAll = WriteFile(sFolder + "/FuzzFiles/" + sName, sTable.data(), sTable.size()) && bAll;
        bAll = WriteFile(sFolder + "/FuzzEditSequence/" + sName, sProgram.data(), sProgram.size()) && bAll;
    }

    // None of the images has a DisplayID block: one with that alone, one with a CEA-861 block in front of it.
    for (const CBytes& aui8Image :
         { MakeEdid({ MakeFullDisplayIdBlock() }), MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }) })
    {
        const std::string sImage(aui8Image.begin(), aui8Image.end());
        const std::string sName = "DisplayId" + std::to_string(sImage.size());
        std::string sProgram = MakeProgram(std::size(gsc_aoEdidTestImages)).substr(1);
        sProgram = std::string(1, '\xFF') + static_cast<char>(sImage.size() / 128 - 1) + sImage + sProgram;
        bAll = WriteFile(sFolder + "/FuzzReadEverything/" + sName, sImage.data(), sImage.size()) && bAll;
        bAll = WriteFile(sFolder + "/FuzzEditSequence/" + sName, sProgram.data(), sProgram.size()) && bAll;
    }
    return bAll ? 0 : 1;
}

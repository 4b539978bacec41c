// Writes the seeds of the fuzz targets: the self-check's images, raw, as text tables, and as the head of edit programs.
//   MakeSeeds FOLDER    the folders FOLDER/FuzzReadEverything and so on must exist

#include <stdio.h>

#include <iterator>
#include <string>

#include "EditRunner.h"
#include "FuzzSupport.h"
#include "SelfCheckImages.h"

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

// A block with a tile, a Type I and a Type II timing behind the base block of an image: none of the images has one.
std::string MakeDisplayId(const SEdidImage& aui8Image)
{
    std::string sImage(aui8Image.begin(), aui8Image.begin() + 128);
    const unsigned char aui8Section[] = { 0x70, 0x12, 0x79, 0x00, 0x00, 0x12, 0x00, 0x16, 0x82, 0x11, 0x10, 0x00,
                                          0x7F, 0x07, 0x37, 0x04, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                          0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x03, 0x01, 0x14, 0x01, 0x3A, 0x00,
                                          0x00, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x80, 0x2B, 0x00, 0x37, 0x04, 0x2C,
                                          0x00, 0x03, 0x80, 0x04, 0x00, 0x04, 0x00, 0x0B, 0x00, 0x1D, 0x00, 0x08,
                                          0x9F, 0x5A, 0xD4, 0xCF, 0x02, 0x1D, 0x44 };
    sImage.append(std::begin(aui8Section), std::end(aui8Section));
    sImage.resize(256);
    sImage[126] = 1;
    RepairImage(reinterpret_cast<uint8_t*>(sImage.data()), sImage.size());
    return sImage;
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
    for (size_t i = 0; i < std::size(gsc_aoSelfCheckImages); ++i)
    {
        const SEdidImage& aui8Image = *gsc_aoSelfCheckImages[i].m_paui8Image;
        const std::string sName = gsc_aoSelfCheckImages[i].m_pszName;
        const std::string sTable = MakeTable(aui8Image);
        const std::string sProgram = MakeProgram(i);
        bAll = WriteFile(sFolder + "/FuzzReadEverything/" + sName, aui8Image.data(), aui8Image.size()) && bAll;
        bAll = WriteFile(sFolder + "/FuzzFiles/" + sName, sTable.data(), sTable.size()) && bAll;
        bAll = WriteFile(sFolder + "/FuzzEditSequence/" + sName, sProgram.data(), sProgram.size()) && bAll;
    }

    const SEdidImage& aui8First = *gsc_aoSelfCheckImages[0].m_paui8Image;
    const std::string sDisplayId = MakeDisplayId(aui8First);
    // Both blocks: behind the image's own CEA-861 block.
    std::string sBoth(aui8First.begin(), aui8First.end());
    sBoth += sDisplayId.substr(128);
    sBoth[126] = 2;
    RepairImage(reinterpret_cast<uint8_t*>(sBoth.data()), sBoth.size());
    for (const std::string& sImage : { sDisplayId, sBoth })
    {
        const std::string sName = "DisplayId" + std::to_string(sImage.size());
        std::string sProgram = MakeProgram(std::size(gsc_aoSelfCheckImages)).substr(1);
        sProgram = std::string(1, '\xFF') + static_cast<char>(sImage.size() / 128 - 1) + sImage + sProgram;
        bAll = WriteFile(sFolder + "/FuzzReadEverything/" + sName, sImage.data(), sImage.size()) && bAll;
        bAll = WriteFile(sFolder + "/FuzzEditSequence/" + sName, sProgram.data(), sProgram.size()) && bAll;
    }
    return bAll ? 0 : 1;
}

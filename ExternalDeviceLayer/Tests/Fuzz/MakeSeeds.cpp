// Writes the seeds of the fuzz targets: the self-check's images, raw, as text tables, and as the head of edit programs;
// programs over strings that share a buffer; modes.
//   MakeSeeds FOLDER    the folders FOLDER/FuzzReadEverything and so on must exist

#include <stdio.h>

#include <iterator>
#include <string>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EditRunner.h"

namespace
{
constexpr unsigned int gsc_uiStringOperations = 26;

// The last number chooses row, filters, scan, colour space and 3D; see FuzzNumbers.cpp.
constexpr unsigned int gsc_aauiModes[][12] = {
    { 1920, 88, 44, 148, 1080, 4, 5, 36, 67500, 60, 148500000, 0x700 }, // passes all filters of the tables
    { 1920, 88, 44, 148, 540, 2, 5, 15, 33750, 30, 74250000, 0x105 },   // interlaced; a code of a variant
    { 640, 16, 96, 48, 480, 10, 2, 33, 31469, 59, 25175000, 0x002 },    // 4:2:0
    { 4096, 0, 0, 0, 2160, 0, 0, 0, 0, 24, 0, 0x062 },                  // no blanking, no clock
};

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

// FuzzStrings: a text, a second string that shares its buffer, then this operation on the second one. Its arguments are
// all the same number: 16 to 18 as a kind, an index within the text (less 16), a length. More operations than there are
// begin anew.
std::string MakeStringProgram(unsigned int uiOperation, unsigned int uiArgument)
{
    std::string sProgram = { 0, 0, 5, 'A', 'b', ' ', 'c', 'D' }; // operation 0 gives string 0 a text of 5 characters,
    sProgram += { 2, 1 };                                        // operation 2 gives string 1 that of string 0
    sProgram += { static_cast<char>(uiOperation), 1 };
    return sProgram + std::string(24, static_cast<char>(uiArgument));
}

// FuzzNumbers: twelve numbers, each behind a shift by 0 bits. Sizes of the picture, porches, syncs; rates; the clock.
std::string MakeNumbers(const unsigned int (&auiValues)[12])
{
    std::string sInput;
    for (const unsigned int uiValue : auiValues)
    {
        sInput += '\0';
        for (unsigned int uiByte = 0; uiByte < 4; ++uiByte)
        {
            sInput += static_cast<char>(uiValue >> 8 * uiByte & 0xFF);
        }
    }
    return sInput;
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

    for (unsigned int uiOperation = 0; uiOperation < gsc_uiStringOperations; ++uiOperation)
    {
        for (unsigned int uiArgument = 16; uiArgument <= 18; ++uiArgument)
        {
            const std::string sProgram = MakeStringProgram(uiOperation, uiArgument);
            const std::string sName = std::to_string(uiOperation) + "-" + std::to_string(uiArgument);
            bAll = WriteFile(sFolder + "/FuzzStrings/" + sName, sProgram.data(), sProgram.size()) && bAll;
        }
    }
    for (size_t i = 0; i < std::size(gsc_aauiModes); ++i)
    {
        const std::string sNumbers = MakeNumbers(gsc_aauiModes[i]);
        bAll = WriteFile(sFolder + "/FuzzNumbers/" + std::to_string(i), sNumbers.data(), sNumbers.size()) && bAll;
    }
    return bAll ? 0 : 1;
}

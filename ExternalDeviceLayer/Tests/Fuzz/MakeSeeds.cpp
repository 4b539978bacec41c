// Writes the seeds of the fuzz targets: the self-check's images, raw, as text tables, and behind programs of edits.
// Numbers and programs over strings are found as fast without.
//   MakeSeeds FOLDER    the folders FOLDER/FuzzReadEverything and so on must exist

#include <fstream>
#include <map>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EditRunner.h"
#include "TemporaryFile.h"

int main(int /*iCount*/, char** ppszArguments)
{
    // Every edit once.
    std::string sProgram(1, CEditRunner::msc_uiOperationCount);
    for (unsigned int i = 0; i < CEditRunner::msc_uiOperationCount; ++i)
    {
        sProgram += { static_cast<char>(i), 0, 1, 0, 0x22, 0x0E, 0x04, 0x00 };
    }
    // None of the images of the self-check has a DisplayID block: one with that alone, one with another in front of it.
    std::map<std::string, CBytes> oImages = { { "DisplayId", MakeEdid({ MakeFullDisplayIdBlock() }) },
                                              { "Both", MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }) } };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        oImages[oImage.m_pszName] = ToBytes(*oImage.m_paui8Image);
    }
    for (const auto& [sName, aui8Image] : oImages)
    {
        const std::string sImage(aui8Image.begin(), aui8Image.end());
        for (const auto& [pszTarget, sSeed] : { std::pair{ "FuzzReadEverything", sImage },
                                                { "FuzzFiles", MakeTextTable(aui8Image) },
                                                { "FuzzEditSequence", sProgram + sImage } })
        {
            std::ofstream oFile(std::filesystem::path(ppszArguments[1]) / pszTarget / sName, std::ios::binary);
            oFile.exceptions(std::ios::failbit | std::ios::badbit); // ends the program
            oFile << sSeed << std::flush;
        }
    }
    return 0;
}

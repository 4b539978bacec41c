// Writes the seeds of the fuzz targets: the self-check's images, raw, as text tables, and after programs of edits;
// dumps of other tools. Numbers and programs over strings are found as fast without.
//   MakeSeeds FOLDER    the folders FOLDER/FuzzReadEverything and so on must exist

#include <fstream>
#include <map>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "EditRunner.h"
#include "TemporaryFile.h"

namespace
{
// An image's first bytes in the forms of FuzzInput that no image is written in. The fuzzer does the rest.
constexpr const char* gsc_apszInputs[] = {
    "\tEDID:\n\t\t00ffffffffffff00\n\t\t0469\n",
    "REGEDIT4\n\"EDID\"=hex:00,ff,ff,\\\n  ff,ff\n\"0\"=hex:00,ff\n",
    "0000000 177400 177777 177777 000377\n*\n0000040 062004\n0000042\n",
    "00000000  00 ff ff ff ff ff ff 00  04 69 |.........i|\n0000000a\n",
    "00000000: 00ff ffff ffff ff00 0469  .........i\n*\n00000014: 00\n",
    "// head\nx[] = { 0x00, 255, /* n */ 0377u };",
    "data:;base64,AP///////wAEaQ==",
    "00-FF-FF\n*\n",
};

// Values of FuzzCommandLine after the number of their edit.
constexpr const char* gsc_apszValues[] = {
    "\0041920x1080@60,cvt-rb",  "\005undefined",    "\00630,48", "\007pcm,2ch,32+44.1+48,16+20+24",
    "\0100=ac3,6ch,48,640kbps", "\012FL/FR+LFE+FC",
};

void WriteSeed(const std::filesystem::path& oFolder, const char* pszTarget, const std::string& sName,
               const std::string& sSeed)
{
    std::ofstream oFile(oFolder / pszTarget / sName, std::ios::binary);
    oFile.exceptions(std::ios::failbit | std::ios::badbit); // ends the program
    oFile << sSeed << std::flush;
}
} // namespace

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
        WriteSeed(ppszArguments[1], "FuzzReadEverything", sName, sImage);
        WriteSeed(ppszArguments[1], "FuzzMap", sName, sImage);
        WriteSeed(ppszArguments[1], "FuzzBuild", sName, sImage);
        WriteSeed(ppszArguments[1], "FuzzParts", sName, sImage);
        WriteSeed(ppszArguments[1], "FuzzInterfaceC", sName, "\1" + sImage);
        WriteSeed(ppszArguments[1], "FuzzFiles", sName, MakeTextTable(aui8Image));
        WriteSeed(ppszArguments[1], "FuzzInput", sName, MakeTextTable(aui8Image));
        const CBytes& aui8First = oImages.begin()->second;
        WriteSeed(ppszArguments[1], "FuzzInput", sName + "Behind",
                  std::string(aui8First.begin(), aui8First.end()) + sImage);
        WriteSeed(ppszArguments[1], "FuzzEditSequence", sName, sProgram + sImage);
    }
    for (size_t i = 0; i < std::size(gsc_apszInputs); ++i)
    {
        WriteSeed(ppszArguments[1], "FuzzInput", std::to_string(i), gsc_apszInputs[i]);
    }
    for (size_t i = 0; i < std::size(gsc_apszValues); ++i)
    {
        WriteSeed(ppszArguments[1], "FuzzCommandLine", std::to_string(i), gsc_apszValues[i]);
    }
    return 0;
}

// zoredid build: from the JSON of explain back to the image, with the values that were changed there.

#include <stdio.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "BuildImage.h"
#include "CommandLine.h"
#include "EdidUtils.h"
#include "EditOutput.h"
#include "InputFile.h"
#include "Tool.h"

namespace
{
using CBytes = std::vector<unsigned char>;

constexpr size_t gsc_uiMostBytes = size_t{ 256 } * CEdidUtils::msc_uiBlockSize; // of a file
constexpr size_t gsc_uiMostImages = 256;

struct SBuildCommand
{
    std::string m_sFile;
    SEditOutput m_oOutput;
};

// One document of the input.
struct SDocument
{
    unsigned int m_uiImage;
    std::vector<unsigned int> m_auiOffsets;
    CBytes m_aui8Read;
    SBuilt m_oBuilt;
};

using CDocuments = std::vector<SDocument>;

// The documents that are wanted, with their images: all, or for uiWanted that with the number. Empty, or why there are
// none.
std::string ReadDocuments(const std::string& sFile, unsigned int uiWanted, CDocuments& aoDocuments)
{
    CInputFile oFile(sFile);
    CJsonReader oReader([&oFile](char* pcBytes, size_t uiSize) { return oFile.Read(pcBytes, uiSize); });
    unsigned int uiRead = 0;
    for (; oReader.HasMore(); ++uiRead)
    {
        SExplained oExplained;
        std::string sProblem = ReadExplained(oReader, oExplained);
        if (!sProblem.empty())
        {
            return sProblem;
        }
        const unsigned int uiImage = oExplained.m_uiImage != 0 ? oExplained.m_uiImage : uiRead + 1;
        if (uiWanted != 0 && uiImage != uiWanted)
        {
            continue;
        }
        if (aoDocuments.size() == gsc_uiMostImages)
        {
            return "has more than " + std::to_string(gsc_uiMostImages) + " images";
        }
        SBuilt oBuilt = BuildImage(oExplained);
        aoDocuments.push_back(
            { uiImage, std::move(oExplained.m_auiOffsets), std::move(oExplained.m_aui8Read), std::move(oBuilt) });
    }
    const std::string& sProblem = oFile.GetProblem();
    return !sProblem.empty()     ? sProblem
           : uiRead == 0         ? "is empty"
           : aoDocuments.empty() ? "has no image " + std::to_string(uiWanted)
                                 : "";
}

// Puts the images of a file together again. Empty, or why that is impossible.
std::string JoinImages(const CDocuments& aoDocuments, CBytes& aui8File)
{
    std::vector<bool> abTaken;
    for (const SDocument& oDocument : aoDocuments)
    {
        const CBytes& aui8Image = oDocument.m_oBuilt.m_aui8Bytes;
        if (oDocument.m_auiOffsets.empty())
        {
            return "has several images that are not of one file; --image N takes one";
        }
        for (const unsigned int uiOffset : oDocument.m_auiOffsets)
        {
            if (uiOffset > gsc_uiMostBytes || aui8Image.size() > gsc_uiMostBytes - uiOffset)
            {
                return "has images past " + std::to_string(gsc_uiMostBytes) + " bytes";
            }
            const size_t uiEnd = uiOffset + aui8Image.size();
            aui8File.resize(std::max(aui8File.size(), uiEnd));
            abTaken.resize(aui8File.size());
            for (size_t i = uiOffset; i < uiEnd; ++i)
            {
                if (abTaken[i])
                {
                    return "has two images with the same byte of their file; --image N takes one";
                }
                abTaken[i] = true;
                aui8File[i] = aui8Image[i - uiOffset];
            }
        }
    }
    const auto itMissing = std::ranges::find(abTaken, false);
    return itMissing == abTaken.end() ? ""
                                      : "lacks the image at byte " + std::to_string(itMissing - abTaken.begin()) +
                                            " of its file; --image N takes one";
}

void Refuse(const SBuildCommand& oArguments, const std::string& sProblem, EExit eExit, STool& oTool)
{
    fputs(MakeErrorLine(oArguments.m_sFile, sProblem).c_str(), stderr);
    oTool.Note(eExit);
}

// The image that is wanted alone, else the whole file.
std::string MakeFile(const CDocuments& aoDocuments, bool bAlone, CBytes& aui8File)
{
    if (bAlone || (aoDocuments.size() == 1 && aoDocuments[0].m_auiOffsets.empty()))
    {
        aui8File = aoDocuments[0].m_oBuilt.m_aui8Bytes;
        return "";
    }
    return JoinImages(aoDocuments, aui8File);
}

void Run(const SBuildCommand& oArguments, STool& oTool)
{
    const std::string sMistake = CheckEditOutput(oArguments.m_oOutput);
    if (!sMistake.empty())
    {
        PrintError("build: " + sMistake);
        oTool.Note(eExit_CommandLine);
        return;
    }
    CDocuments aoDocuments;
    const std::string sProblem = ReadDocuments(oArguments.m_sFile, oTool.m_uiImage, aoDocuments);
    if (!sProblem.empty())
    {
        Refuse(oArguments, sProblem, eExit_Input, oTool);
        return;
    }
    for (const SDocument& oDocument : aoDocuments)
    {
        if (!oDocument.m_oBuilt.m_sProblem.empty())
        {
            Refuse(oArguments, oDocument.m_oBuilt.m_sProblem, eExit_Finding, oTool);
            return;
        }
    }
    CBytes aui8File;
    if (const std::string sReason = MakeFile(aoDocuments, oTool.m_uiImage != 0, aui8File); !sReason.empty())
    {
        Refuse(oArguments, sReason, eExit_Input, oTool);
        return;
    }
    if (!WriteEdited(oArguments.m_oOutput, aui8File, oTool))
    {
        return;
    }
    for (const SDocument& oDocument : aoDocuments)
    {
        for (const std::string& sNote : oDocument.m_oBuilt.m_asNotes)
        {
            fputs(MakeErrorLine(oArguments.m_sFile, sNote).c_str(), stderr);
        }
        if (oArguments.m_oOutput.m_bDiff)
        {
            PrintResult(DescribeEdited(oDocument.m_aui8Read, oDocument.m_oBuilt.m_aui8Bytes));
        }
    }
}
} // namespace

void DeclareBuildOptions(COptions& oCommand, STool& oTool)
{
    const auto poArguments = std::make_shared<SBuildCommand>();
    oCommand.Word("FILE", poArguments->m_sFile, "What explain --json prints, \"-\" for standard input").Required();
    DeclareEditOutput(oCommand, "The image", poArguments->m_oOutput);
    oCommand.Footer(
        "The bytes are those of the image that was explained, in whatever state it is, with what was changed\n"
        "in the JSON: \"value\" of a field, as edit --set writes it, or its \"raw\" bytes as they are.\n"
        "Checksums follow values, not raw bytes. When one value is refused, nothing is written.\n"
        "Of several images of one file the file is made, or the image of --image N.\n"
        "\n"
        "Examples:\n"
        "  zoredid explain --json monitor.bin > monitor.json\n"
        "  zoredid build monitor.json -o monitor.bin --force");
    oCommand.Run([poArguments, &oTool] { Run(*poArguments, oTool); });
}

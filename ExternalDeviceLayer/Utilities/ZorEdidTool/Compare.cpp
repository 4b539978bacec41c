// zoredid compare: whether two images say the same: their modes, or all.

#include "ByteDiff.h"
#include "CommandLine.h"
#include "ImageDiff.h"
#include "Json.h"
#include "LoadedImage.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
struct SCompareOptions
{
    std::string m_sFirst;
    std::string m_sSecond;
    SDiffRules m_oRules;
    bool m_bJson = false;
    bool m_bBytes = false;
};

std::string MakeJson(const SCompareOptions& oOptions, const CImageDiff& oDiff, bool bSame)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Indented);
    BeginDocument(oJson);
    oJson.Member("first", oOptions.m_sFirst);
    oJson.Member("second", oOptions.m_sSecond);
    oJson.Member("same", bSame);
    WriteDiff(oDiff, oJson);
    oJson.EndObject();
    return oJson.GetText() + "\n";
}

SDiffWords MakeWords(const std::string& sFirst, const std::string& sSecond)
{
    return { { "only in " + sFirst, "only in " + sSecond },
             { "announced once more in " + sFirst, "announced once more in " + sSecond },
             { "preferred by " + sFirst, "preferred by " + sSecond } };
}

// Of images whose modes alone were compared, and that say other things otherwise.
const char* DescribeSame(const SCompareOptions& oOptions, const SInput& oFirst, const SInput& oSecond)
{
    return oOptions.m_oRules.m_bAll || oFirst.m_aui8Bytes == oSecond.m_aui8Bytes ? "same\n" : "same modes\n";
}

SOutcome CompareImages(const SCompareOptions& oOptions, const SInput& oFirst, const SInput& oSecond)
{
    SOutcome oOutcome;
    for (const SInput* poInput : { &oFirst, &oSecond })
    {
        CLoadedImage oImage;
        if (!oImage.Load(*poInput))
        {
            const SOutcome oRefusal = RefuseInput(*poInput, oImage.GetProblem());
            oOutcome.m_sError += oRefusal.m_sError;
            oOutcome.m_eExit = oRefusal.m_eExit;
        }
        if (poInput->m_aui8Bytes.size() < CEdidUtils::msc_uiBlockSize)
        {
            return oOutcome;
        }
    }
    if (oOptions.m_bBytes)
    {
        oOutcome.m_sOut = DescribeBytes(oFirst.m_aui8Bytes, oSecond.m_aui8Bytes);
        oOutcome.Note(oOutcome.m_sOut.empty() ? eExit_Good : eExit_Finding);
        oOutcome.m_sOut = oOutcome.m_sOut.empty() ? "same\n" : oOutcome.m_sOut;
        return oOutcome;
    }
    const SComparedImage oOne(oFirst.m_aui8Bytes);
    const SComparedImage oOther(oSecond.m_aui8Bytes);
    const CImageDiff oDiff(oOne, oOther, oOptions.m_oRules);
    const std::string sLines = DescribeDiff(oDiff, MakeWords(ShowName(oFirst.m_sName), ShowName(oSecond.m_sName)));
    oOutcome.Note(sLines.empty() ? eExit_Good : eExit_Finding);
    oOutcome.m_sOut = oOptions.m_bJson ? MakeJson(oOptions, oDiff, sLines.empty())
                      : sLines.empty() ? DescribeSame(oOptions, oFirst, oSecond)
                                       : "different\n" + sLines;
    return oOutcome;
}
} // namespace

void DeclareCompareOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SCompareOptions>();
    oCommand.Word("A", poOptions->m_sFirst, gsc_szFileHelp).Required().Placeholder("");
    oCommand.Word("B", poOptions->m_sSecond, gsc_szFileHelp).Required().Placeholder("");
    const COption oAll = oCommand.Flag("--all", poOptions->m_oRules.m_bAll,
                                       "Established timings, facts and all other fields, too, by meaning");
    oCommand.Flag("--established", poOptions->m_oRules.m_bEstablished, "Established timings take part");
    oCommand.Flag("--ignore-preferred", poOptions->m_oRules.m_bIgnorePreferred, "The preferred modes may differ");
    const COption oJson = oCommand.Flag("--json", poOptions->m_bJson, "One JSON document");
    oCommand.Flag("--bytes", poOptions->m_bBytes, "The bytes that differ, with what they are")
        .Excludes(oAll)
        .Excludes(oJson);
    oCommand.Footer(
        "Modes are compared by their numbers, whatever announces them, native or not, each as often as it is "
        "announced; of a mode that both have, one more often, each further time is a line. Clocks may differ as those "
        "of 1000/1001 variants do. Two images without a preferred mode may be "
        "the same; one with and one without are different.\n"
        "With --all a line names what only one image says, or both otherwise: modes, facts by their names in the "
        "JSON, then fields by their ids. Lists are compared by what is in them, not by place, and lengths, offsets "
        "and checksums that follow from the rest play no part.\n"
        "Exit status: 0 same, 1 different, 3 when an image cannot be read or loaded; one that has a block is compared "
        "all the same.\n\n"
        "Example:\n"
        "  zoredid compare --all old.bin new.bin");
    oCommand.Run([poOptions, &oTool] {
        // Both are read first, so that a second bad name is reported, too.
        const SInput oFirst = ReadOneInput(poOptions->m_sFirst, eSeveral_First, oTool);
        const SInput oSecond = ReadOneInput(poOptions->m_sSecond, eSeveral_First, oTool);
        if (oFirst.IsGood() && oSecond.IsGood())
        {
            PrintOutcome(CompareImages(*poOptions, oFirst, oSecond), oTool);
        }
    });
}

// zoredid compare: whether two images announce the same modes, and which modes only one of them has.

#include "CommandLine.h"
#include "ManyFiles.h"
#include "ModeMatch.h"
#include "TextFormat.h"
#include "Tool.h"

namespace
{
struct SCompareOptions
{
    std::string m_sFirst;
    std::string m_sSecond;
    bool m_bEstablished = false;
    bool m_bIgnorePreferred = false;
};

// What takes part of an image's modes: in all lists and in none, native or not.
struct SComparedModes
{
    std::string m_sName;
    CModes m_aoModes;
    const SImageMode* m_poPreferred = nullptr; // of m_aoModes
};

// False, with the reason in oOutcome, for an image that the library refuses.
bool CollectModes(const SInput& oInput, SComparedModes& oModes, SOutcome& oOutcome)
{
    CLoadedImage oImage;
    if (!oImage.Load(oInput))
    {
        oOutcome.m_sError += RefuseInput(oInput, oImage.GetProblem()).m_sError;
        oOutcome.m_eExit = eExit_Input;
        return false;
    }
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(oInput.m_aui8Bytes.size()), oInput.m_aui8Bytes.data());
    oModes.m_sName = ShowName(oInput.m_sName);
    oModes.m_aoModes = ListModes(oMap, &oImage);
    std::erase_if(oModes.m_aoModes, [](const SImageMode& oMode) { return !oMode.IsOfMonitor(); });
    oModes.m_poPreferred = FindPreferred(oModes.m_aoModes);
    return true;
}

std::string DescribeMode(const SImageMode& oMode)
{
    const CVidParamTimingGeneric& oTiming = oMode.m_oTiming;
    const char* const psz420 = oTiming.Is420ColorSpace() != 0 ? "  4:2:0  " : "  ";
    return oMode.m_bTiming ? GetTimingText(oTiming) + psz420 + GetModeline(oTiming) + "\n"
                           : FormatText("%4u x %4u%c @ %s Hz%sits timing is not given\n", oTiming.GetHorizontalActive(),
                                        oTiming.GetVerticalActive(), oTiming.IsInterlaced() != 0 ? 'i' : 'p',
                                        GetBareRateText(oMode).c_str(), psz420);
}

// An image without a preferred mode differs from one with, and is the same as another one without.
bool DifferInPreferred(const SImageMode* poFirst, const SImageMode* poSecond)
{
    return poFirst == nullptr || poSecond == nullptr ? poFirst != poSecond
                                                     : (poFirst->m_oTiming != poSecond->m_oTiming) != 0;
}

// The preferred modes when they differ, and what only one image has. Empty for the same.
std::string DescribeDifference(const SComparedModes (&aoModes)[2], const SCompareOptions& oOptions)
{
    std::string sText;
    if (!oOptions.m_bIgnorePreferred && DifferInPreferred(aoModes[0].m_poPreferred, aoModes[1].m_poPreferred))
    {
        for (const SComparedModes& oModes : aoModes)
        {
            sText += "preferred by " + oModes.m_sName + ": " +
                     (oModes.m_poPreferred != nullptr ? DescribeMode(*oModes.m_poPreferred) : "none\n");
        }
    }
    const SModePairs oPairs = MatchModes(aoModes[0].m_aoModes, aoModes[1].m_aoModes);
    for (size_t i = 0; i < 2; ++i)
    {
        for (size_t j = 0; j < aoModes[i].m_aoModes.size(); ++j)
        {
            // All are matched, so that another field may name what an established timing of the other image does.
            if (oPairs.IsOnlyHere(i, j) && (!aoModes[i].m_aoModes[j].m_bEstablished || oOptions.m_bEstablished))
            {
                sText += "only in " + aoModes[i].m_sName + ": " + DescribeMode(aoModes[i].m_aoModes[j]);
            }
        }
    }
    return sText;
}

SOutcome CompareImages(const SCompareOptions& oOptions, const SInput& oFirst, const SInput& oSecond)
{
    SComparedModes aoModes[2];
    SOutcome oOutcome;
    const bool bFirst = CollectModes(oFirst, aoModes[0], oOutcome);
    const bool bSecond = CollectModes(oSecond, aoModes[1], oOutcome);
    if (bFirst && bSecond)
    {
        const std::string sDifference = DescribeDifference(aoModes, oOptions);
        oOutcome.m_sOut = sDifference.empty() ? "same\n" : "different\n" + sDifference;
        oOutcome.m_eExit = sDifference.empty() ? eExit_Good : eExit_Finding;
    }
    return oOutcome;
}
} // namespace

void DeclareCompareOptions(COptions& oCommand, STool& oTool)
{
    const auto poOptions = std::make_shared<SCompareOptions>();
    oCommand.Word("A", poOptions->m_sFirst, gsc_szFileHelp).Required().Placeholder("");
    oCommand.Word("B", poOptions->m_sSecond, gsc_szFileHelp).Required().Placeholder("");
    oCommand.Flag("--established", poOptions->m_bEstablished, "Established timings take part");
    oCommand.Flag("--ignore-preferred", poOptions->m_bIgnorePreferred, "The preferred modes may differ");
    oCommand.Footer(
        "Modes are compared whatever announces them, native or not, each as often as it is named; modes that the\n"
        "library does not list take part. Clocks may differ as those of 1000/1001 variants do. Two images without\n"
        "a preferred mode may be the same; one with and one without are different. Names, serial numbers and audio\n"
        "are not compared.\n"
        "Exit status: 0 same, 1 different, 3 when an image cannot be read.\n\n"
        "Example:\n"
        "  zoredid compare old.bin new.bin");
    oCommand.Run([poOptions, &oTool] {
        // Both are read first, so that a second bad name is reported, too.
        const SInput oFirst = ReadOneInput(poOptions->m_sFirst, oTool);
        const SInput oSecond = ReadOneInput(poOptions->m_sSecond, oTool);
        if (oFirst.IsGood() && oSecond.IsGood())
        {
            PrintOutcome(CompareImages(*poOptions, oFirst, oSecond), oTool);
        }
    });
}

// zoredid compare: whether two images announce the same modes, and which modes only one of them has.

#include <algorithm>
#include <optional>

#include "CommandLine.h"
#include "LoadedImage.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Timings.h"
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

// An image's modes that take part, whatever list they stand in, native or not.
struct SComparedModes
{
    std::string m_sName;
    std::vector<CVidParamTimingGeneric> m_aoModes;
    std::optional<CVidParamTimingGeneric> m_oPreferred;
};

SComparedModes CollectModes(const SInput& oInput, CLoadedImage& oImage, bool bEstablished)
{
    SComparedModes oModes = { oInput.m_sName, {}, {} };
    for (const SListedTiming& oListed : ListTimings(oImage))
    {
        if (oListed.m_eList != CZorEdidMap::eList_Established || bEstablished)
        {
            oModes.m_aoModes.push_back(oListed.m_oTiming);
        }
        if (oListed.m_bPreferred)
        {
            oModes.m_oPreferred = oListed.m_oTiming;
        }
    }
    return oModes;
}

// Takes out of both lists what they share, each mode as often as both have it: the same clocks first, so that what is
// left does not hang on the order of the lists.
void RemoveShared(std::vector<CVidParamTimingGeneric>& aoFirst, std::vector<CVidParamTimingGeneric>& aoSecond)
{
    for (const bool bSameClock : { true, false })
    {
        std::vector<CVidParamTimingGeneric> aoOnlyFirst;
        for (const CVidParamTimingGeneric& oMode : aoFirst)
        {
            const auto fnIsShared = [&](const CVidParamTimingGeneric& oOther) {
                return (oMode == oOther) != 0 &&
                       (!bSameClock || oMode.GetPixelClockInHz() == oOther.GetPixelClockInHz());
            };
            const auto itShared = std::find_if(aoSecond.begin(), aoSecond.end(), fnIsShared);
            if (itShared == aoSecond.end())
            {
                aoOnlyFirst.push_back(oMode);
            }
            else
            {
                aoSecond.erase(itShared);
            }
        }
        aoFirst = aoOnlyFirst;
    }
}

std::string DescribeMode(const CVidParamTimingGeneric& oMode)
{
    return GetTimingText(oMode) + (oMode.Is420ColorSpace() != 0 ? "  4:2:0  " : "  ") + GetModeline(oMode) + "\n";
}

// What only one image has, of the modes that are left, and the preferred modes when they differ. Empty for the same.
std::string DescribeDifference(const SComparedModes (&aoModes)[2], bool bPreferred)
{
    std::string sText;
    for (const SComparedModes& oModes : aoModes)
    {
        if (bPreferred)
        {
            sText += "preferred by " + ShowName(oModes.m_sName) + ": " +
                     (oModes.m_oPreferred ? DescribeMode(*oModes.m_oPreferred) : "none\n");
        }
    }
    for (const SComparedModes& oModes : aoModes)
    {
        for (const CVidParamTimingGeneric& oMode : oModes.m_aoModes)
        {
            sText += "only in " + ShowName(oModes.m_sName) + ": " + DescribeMode(oMode);
        }
    }
    return sText;
}

// One that names no preferred mode differs from one that does, and is the same as another one without.
bool DifferInPreferred(const SComparedModes& oFirst, const SComparedModes& oSecond)
{
    if (!oFirst.m_oPreferred || !oSecond.m_oPreferred)
    {
        return oFirst.m_oPreferred.has_value() != oSecond.m_oPreferred.has_value();
    }
    return (*oFirst.m_oPreferred != *oSecond.m_oPreferred) != 0;
}

SOutcome CompareImages(const SCompareOptions& oOptions, const SInput& oFirst, const SInput& oSecond)
{
    const SInput* const apoInputs[] = { &oFirst, &oSecond };
    SComparedModes aoModes[2];
    SOutcome oOutcome;
    for (unsigned int i = 0; i < 2; ++i)
    {
        CLoadedImage oImage;
        if (!oImage.Load(*apoInputs[i]))
        {
            oOutcome.m_sError += RefuseInput(*apoInputs[i], oImage.GetProblem()).m_sError;
            oOutcome.m_eExit = eExit_Input;
            continue;
        }
        aoModes[i] = CollectModes(*apoInputs[i], oImage, oOptions.m_bEstablished);
    }
    if (oOutcome.m_eExit == eExit_Good)
    {
        const bool bPreferred = !oOptions.m_bIgnorePreferred && DifferInPreferred(aoModes[0], aoModes[1]);
        RemoveShared(aoModes[0].m_aoModes, aoModes[1].m_aoModes);
        const std::string sDifference = DescribeDifference(aoModes, bPreferred);
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
        "Modes are compared wherever they stand, native or not, each as often as it is named; their clocks\n"
        "may differ as those of 1000/1001 variants do. Two images without a preferred mode may be the same;\n"
        "one with and one without are different. Nothing but modes is compared: no name, serial number or audio.\n"
        "Exit status: 0 same, 1 different, 3 when an image cannot be read.\n\n"
        "Example:\n"
        "  zoredid compare old.bin new.bin");
    oCommand.Run([poOptions, &oTool] {
        // Both are read first, so that a second bad name is told, too.
        const SInput oFirst = ReadOneInput(poOptions->m_sFirst, oTool);
        const SInput oSecond = ReadOneInput(poOptions->m_sSecond, oTool);
        if (oFirst.IsGood() && oSecond.IsGood())
        {
            PrintOutcome(CompareImages(*poOptions, oFirst, oSecond), oTool);
        }
    });
}

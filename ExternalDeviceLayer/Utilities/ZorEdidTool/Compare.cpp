// zoredid compare: whether two images announce the same modes, and which modes only one of them has.

#include <algorithm>
#include <CLI/CLI.hpp>

#include "LoadedImage.h"
#include "ManyFiles.h"
#include "TextFormat.h"
#include "Timings.h"
#include "Tool.h"
#include "ZorEdidUtils.h"

namespace
{
struct SCompareOptions
{
    std::string m_sFirst;
    std::string m_sSecond;
    bool m_bEstablished = false;
    bool m_bIgnorePreferred = false;
};

// The modes that the library compares. Native table timings of the extension blocks are none of them.
struct SComparedModes
{
    CVidParamTimingGeneric m_oPreferred;
    std::vector<CVidParamTimingGeneric> m_aoModes;

    // False for an image without a preferred mode, which the library does not compare.
    bool Extract(const CEdid& oEdid, bool bEstablished)
    {
        CZorEdidUtils::CModeList aoLists[7];
        if (CZorEdidUtils::ExtractModeList(oEdid, m_oPreferred, aoLists[0], aoLists[1], aoLists[2], aoLists[3],
                                           aoLists[4], aoLists[5], aoLists[6]) == 0)
        {
            return false;
        }
        // All established timings; those of VESA, which the library counts once more, stand among them.
        if (bEstablished)
        {
            Append(aoLists[1]);
        }
        // Standard and detailed timings of the base block, then those of the extension blocks; 4 are the native ones.
        for (const unsigned int uiList : { 2U, 3U, 5U, 6U })
        {
            Append(aoLists[uiList]);
        }
        return true;
    }

private:
    void Append(const CZorEdidUtils::CModeList& oList)
    {
        for (unsigned int i = 0; i < oList.GetCount(); ++i)
        {
            m_aoModes.push_back(oList[i]);
        }
    }
};

// Takes out of both lists what they share, each mode as often as both have it.
void RemoveShared(std::vector<CVidParamTimingGeneric>& aoFirst, std::vector<CVidParamTimingGeneric>& aoSecond)
{
    std::vector<CVidParamTimingGeneric> aoOnlyFirst;
    for (const CVidParamTimingGeneric& oMode : aoFirst)
    {
        const auto itSame = std::find_if(aoSecond.begin(), aoSecond.end(),
                                         [&](const CVidParamTimingGeneric& oOther) { return (oMode == oOther) != 0; });
        if (itSame == aoSecond.end())
        {
            aoOnlyFirst.push_back(oMode);
        }
        else
        {
            aoSecond.erase(itSame);
        }
    }
    aoFirst = aoOnlyFirst;
}

std::string DescribeMode(const CVidParamTimingGeneric& oMode)
{
    return GetTimingText(oMode) + (oMode.Is420ColorSpace() != 0 ? "  4:2:0  " : "  ") + GetModeline(oMode) + "\n";
}

std::string DescribeOnly(const std::string& sName, const std::vector<CVidParamTimingGeneric>& aoModes)
{
    std::string sText;
    for (const CVidParamTimingGeneric& oMode : aoModes)
    {
        sText += "only in " + ShowName(sName) + ": " + DescribeMode(oMode);
    }
    return sText;
}

SOutcome CompareImages(const SCompareOptions& oOptions, const SInput& oFirst, const SInput& oSecond)
{
    const SInput* const apoInputs[] = { &oFirst, &oSecond };
    CLoadedImage aoImages[2];
    SComparedModes aoModes[2];
    SOutcome oOutcome;
    for (unsigned int i = 0; i < 2; ++i)
    {
        std::string sProblem;
        if (!aoImages[i].Load(*apoInputs[i]))
        {
            sProblem = aoImages[i].GetProblem();
        }
        else if (!aoModes[i].Extract(aoImages[i].GetEdid(), oOptions.m_bEstablished))
        {
            sProblem = "names no preferred mode, without which nothing is compared";
        }
        if (!sProblem.empty())
        {
            oOutcome.m_sError += RefuseInput(*apoInputs[i], sProblem).m_sError;
            oOutcome.m_eExit = eExit_Input;
        }
    }
    if (oOutcome.m_eExit != eExit_Good)
    {
        return oOutcome;
    }
    if (CZorEdidUtils::CompareTimings(aoImages[0].GetEdid(), aoImages[1].GetEdid(), oOptions.m_bEstablished ? 1 : 0,
                                      oOptions.m_bIgnorePreferred ? 0 : 1) != 0)
    {
        oOutcome.m_sOut = "same\n";
        return oOutcome;
    }
    oOutcome.m_eExit = eExit_Finding;
    oOutcome.m_sOut = "different\n";
    if (!oOptions.m_bIgnorePreferred && (aoModes[0].m_oPreferred != aoModes[1].m_oPreferred) != 0)
    {
        for (unsigned int i = 0; i < 2; ++i)
        {
            oOutcome.m_sOut +=
                "preferred by " + ShowName(apoInputs[i]->m_sName) + ": " + DescribeMode(aoModes[i].m_oPreferred);
        }
    }
    RemoveShared(aoModes[0].m_aoModes, aoModes[1].m_aoModes);
    for (unsigned int i = 0; i < 2; ++i)
    {
        oOutcome.m_sOut += DescribeOnly(apoInputs[i]->m_sName, aoModes[i].m_aoModes);
    }
    return oOutcome;
}
} // namespace

void AddCompareCommand(CLI::App& oApp, STool& oTool)
{
    CLI::App* poCommand = oApp.add_subcommand("compare", "Tell whether two images announce the same modes");
    const auto poOptions = std::make_shared<SCompareOptions>();
    poCommand->add_option("A", poOptions->m_sFirst, "Image")->required()->type_name("");
    poCommand->add_option("B", poOptions->m_sSecond, "Image")->required()->type_name("");
    poCommand->add_flag("--established", poOptions->m_bEstablished, "Established timings take part");
    poCommand->add_flag("--ignore-preferred", poOptions->m_bIgnorePreferred, "The preferred modes may differ");
    poCommand->footer("Modes are compared wherever they stand, each as often as it is named; their clocks may differ\n"
                      "as those of 1000/1001 variants do. Native table timings of extension blocks take no part.\n"
                      "Exit status: 0 same, 1 different, 3 when an image cannot be read or names no preferred mode.\n\n"
                      "Example:\n"
                      "  zoredid compare old.bin new.bin");
    poCommand->callback([poOptions, &oTool] {
        // Both are read first, so that a second bad name is told, too.
        const SInput oFirst = ReadOneInput(poOptions->m_sFirst, oTool);
        const SInput oSecond = ReadOneInput(poOptions->m_sSecond, oTool);
        if (oFirst.IsGood() && oSecond.IsGood())
        {
            PrintOutcome(CompareImages(*poOptions, oFirst, oSecond), oTool);
        }
    });
}

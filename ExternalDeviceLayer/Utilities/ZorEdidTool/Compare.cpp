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

// One of the two, as far as it could be read.
struct SSide
{
    const SInput& m_oInput;
    CLoadedImage m_oImage = {};
    SComparedModes m_oModes = {};

    // Empty, or why nothing is compared.
    std::string Load(bool bEstablished)
    {
        if (!m_oImage.Load(m_oInput))
        {
            return m_oImage.GetProblem();
        }
        return m_oModes.Extract(m_oImage.GetEdid(), bEstablished)
                   ? ""
                   : "names no preferred mode, without which nothing is compared";
    }
};

std::string DescribeDifferences(const SCompareOptions& oOptions, SSide (&aoSides)[2])
{
    std::string sText = "different\n";
    if (!oOptions.m_bIgnorePreferred && (aoSides[0].m_oModes.m_oPreferred != aoSides[1].m_oModes.m_oPreferred) != 0)
    {
        for (const SSide& oSide : aoSides)
        {
            sText +=
                "preferred by " + ShowName(oSide.m_oInput.m_sName) + ": " + DescribeMode(oSide.m_oModes.m_oPreferred);
        }
    }
    RemoveShared(aoSides[0].m_oModes.m_aoModes, aoSides[1].m_oModes.m_aoModes);
    for (const SSide& oSide : aoSides)
    {
        sText += DescribeOnly(oSide.m_oInput.m_sName, oSide.m_oModes.m_aoModes);
    }
    return sText;
}

SOutcome CompareImages(const SCompareOptions& oOptions, const SInput& oFirst, const SInput& oSecond)
{
    SSide aoSides[] = { { oFirst }, { oSecond } };
    SOutcome oOutcome;
    for (SSide& oSide : aoSides)
    {
        const std::string sProblem = oSide.Load(oOptions.m_bEstablished);
        if (!sProblem.empty())
        {
            oOutcome.m_sError += RefuseInput(oSide.m_oInput, sProblem).m_sError;
            oOutcome.m_eExit = eExit_Input;
        }
    }
    if (oOutcome.m_eExit != eExit_Good)
    {
        return oOutcome;
    }
    if (CZorEdidUtils::CompareTimings(aoSides[0].m_oImage.GetEdid(), aoSides[1].m_oImage.GetEdid(),
                                      oOptions.m_bEstablished ? 1 : 0, oOptions.m_bIgnorePreferred ? 0 : 1) != 0)
    {
        return { "same\n", "", eExit_Good };
    }
    return { DescribeDifferences(oOptions, aoSides), "", eExit_Finding };
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

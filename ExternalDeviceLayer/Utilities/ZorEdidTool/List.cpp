// zoredid list: the connectors of this machine and the monitors at them.

#include <stdio.h>

#include <algorithm>
#include <memory>

#include "CommandLine.h"
#include "Connectors.h"
#include "FactWords.h"
#include "LoadedImage.h"
#include "ManyFiles.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"
#include "Tool.h"
#include "ZorEdidUtils.h"

namespace
{
using CRow = std::vector<std::string>; // connector, state, monitor, maker, size, preferred mode

std::string GetSize(const CEdid& oEdid)
{
    const unsigned int uiWidth = oEdid.GetBaseBlock()[ZorStandards::BaseBlock::gsc_uiImageWidthOffset];
    const unsigned int uiHeight = oEdid.GetBaseBlock()[ZorStandards::BaseBlock::gsc_uiImageHeightOffset];
    // Centimetres; with 0 in one of them the size is not given.
    return uiWidth != 0 && uiHeight != 0 ? std::to_string(uiWidth) + " x " + std::to_string(uiHeight) + " cm" : "";
}

std::string GetPreferredMode(const CEdid& oEdid)
{
    CVidParamTimingGeneric oTiming;
    if (!ZorStandards::BaseBlock::IsPreferredTimingDeclared(oEdid.GetBaseBlock()) ||
        oEdid.GetBaseDetailed(0, &oTiming) == 0)
    {
        return "";
    }
    CMString oText;
    CZorEdidUtils::GetFormatedVideoParam(oTiming.GetData(), 0, oText, "");
    return static_cast<const char*>(oText);
}

// Without a monitor, or with a silent one, the row ends with the state.
CRow MakeRow(const SConnector& oConnector, STool& oTool)
{
    CRow asRow = { oConnector.m_sName, oConnector.m_sState };
    const SInput oInput = ReadConnector(oConnector);
    if (!oInput.IsGood())
    {
        if (oInput.m_sProblem != gsc_szNoEdid)
        {
            fputs(MakeErrorLine(oConnector.m_sName, oInput.m_sProblem).c_str(), stderr);
            oTool.Note(eExit_Input);
        }
        return asRow;
    }
    CLoadedImage oImage;
    if (!oImage.Load(oInput))
    {
        fputs(MakeErrorLine(oConnector.m_sName, oImage.GetProblem()).c_str(), stderr);
        oTool.Note(eExit_Input);
        return asRow;
    }
    const CEdid& oEdid = oImage.GetEdid();
    char szMonitor[14] = {}; // longest text of a descriptor, and the terminator
    if (oEdid.GetMonitorName(szMonitor, sizeof(szMonitor)) == 0)
    {
        oEdid.GetMonitorID(szMonitor, sizeof(szMonitor));
    }
    const std::string& sMaker = NameMaker(ZorStandards::BaseBlock::ReadManufacturerCode(oEdid.GetBaseBlock()).m_szCode);
    asRow.insert(asRow.end(), { szMonitor, sMaker, GetSize(oEdid), GetPreferredMode(oEdid) });
    return asRow;
}

// What a monitor says may hold anything.
void PrintRows(std::vector<CRow>& aasRows)
{
    std::vector<size_t> auiWidths;
    for (CRow& asRow : aasRows)
    {
        std::transform(asRow.begin(), asRow.end(), asRow.begin(), ShowName);
        auiWidths.resize(std::max(auiWidths.size(), asRow.size()));
        for (size_t i = 0; i < asRow.size(); ++i)
        {
            auiWidths[i] = std::max(auiWidths[i], asRow[i].size());
        }
    }
    for (const CRow& asRow : aasRows)
    {
        std::string sLine;
        for (size_t i = 0; i < asRow.size(); ++i)
        {
            sLine += asRow[i] + std::string(auiWidths[i] - asRow[i].size() + 2, ' ');
        }
        sLine.resize(sLine.find_last_not_of(' ') + 1);
        printf("%s\n", sLine.c_str());
    }
}

void List(STool& oTool)
{
    std::vector<SConnector> aoConnectors;
    std::string sProblem;
    if (!ListConnectors(aoConnectors, sProblem))
    {
        fputs(MakeErrorLine(GetConnectorFolder(), "cannot be read: " + sProblem).c_str(), stderr);
        oTool.Note(eExit_Input);
        return;
    }
    std::vector<CRow> aasRows;
    aasRows.reserve(aoConnectors.size());
    for (const SConnector& oConnector : aoConnectors)
    {
        aasRows.push_back(MakeRow(oConnector, oTool));
    }
    PrintRows(aasRows);
}
} // namespace

void DeclareListOptions(COptions& oCommand, STool& oTool)
{
    oCommand.Word("--sysfs", SetConnectorFolder, "The folder of the connectors").Placeholder("FOLDER");
    oCommand.Footer("Example: zoredid list, then: zoredid report HDMI-A-1");
    oCommand.Run([&oTool] { List(oTool); });
}

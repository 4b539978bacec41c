// The output-resolution report, one numbered element a mode, and the entry point that picks among the three reports.

#include "ZorEdidUtils.h"

#include <initializer_list>

#include "ZorAssert.h"
#include "ZorEdidUtilsModes.h"
#include "ZorEdidUtilsReport.h"

using namespace ZorUtils;

void CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(const CEdid& oEdid, CMArrayString& oLines, const char* pszLinePrefix)
{
    SModes oModes;
    if (!oModes.Collect(oEdid)) // has reported
    {
        oLines.RemoveAll();
        return;
    }
    CModeList oJoined; // all but the native table timings of the extension blocks
    for (const CModeList* poList : { &oModes.m_oEstablishedAll, &oModes.m_oBaseStandard, &oModes.m_oBaseDetailed,
                                     &oModes.m_oExtStandard, &oModes.m_oExtDetailed })
    {
        oJoined.Append(*poList);
    }
    SortModes(oJoined);
    GetEdidFormatedAsRVideoOutRes(oModes.m_oPreferred, oJoined, oLines, pszLinePrefix);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes the list by value
void CZorEdidUtils::GetEdidFormatedAsRVideoOutRes(const CVidParamTimingGeneric& /*oPreferred*/, CModeList oModes,
                                                  CMArrayString& oLines, const char* pszLinePrefix)
{
    CReportLines oReport(pszLinePrefix); // copies the prefix, which may be one of the lines
    oLines.RemoveAll();
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        CTextLine oLine("#");
        AppendAllFields(oLine.Decimal(i + 1, 2, '0').Text(" - "), oModes[i].GetData());
        oReport.Add(oLine);
    }
    oLines = oReport.GetLines();
}

int CZorEdidUtils::GetFormatedEdid(EEdidFormatType eType, const CEdid& oEdid, CMArrayString& oLines,
                                   const char* pszLinePrefix)
{
    switch (eType)
    {
    case eEdidFormatZorEdidExtractor:
        GetEdidFormatedAsZorEdidExtractor(oEdid, oLines, pszLinePrefix);
        return 1;
    case eEdidFormatRVideoOutRes:
        GetEdidFormatedAsRVideoOutRes(oEdid, oLines, pszLinePrefix);
        return 1;
    case eEdidFormatZorEdidExtractorExt:
        GetEdidFormatedAsZorEdidExtractorExt(oEdid, oLines, pszLinePrefix);
        return 1;
    default:
        MASSERT_FAILED();
        return 0;
    }
}

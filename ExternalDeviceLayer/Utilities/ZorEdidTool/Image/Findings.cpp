// Findings of the library as texts.

#include "Findings.h"

#include <chrono>

#include "EdidUtils.h"
#include "MapText.h"

std::vector<SFinding> CheckImage(const CZorEdidMap& oMap, unsigned int uiThisYear)
{
    constexpr unsigned int uiBlockSize = CEdidUtils::msc_uiBlockSize;
    CZorEdidCheck oCheck;
    oCheck.Read(oMap, uiThisYear);
    std::vector<SFinding> aoFindings;
    aoFindings.reserve(oCheck.GetCount());
    for (unsigned int i = 0; i < oCheck.GetCount(); ++i)
    {
        const SZorFinding& oFinding = oCheck.Get(i);
        const std::string sReason = static_cast<const char*>(oFinding.m_sReason);
        aoFindings.push_back({ oFinding.m_eRule, oFinding.m_uiOffset / uiBlockSize, oFinding.m_uiOffset % uiBlockSize,
                               oMap.GetField(oFinding.m_uiField).m_uiLength, oFinding.m_eSeverity,
                               oFinding.m_pszWhat + (sReason.empty() ? "" : ": " + sReason),
                               static_cast<const char*>(oFinding.m_sFound),
                               static_cast<const char*>(oFinding.m_sExpected), GetPath(oMap, oFinding.m_uiField) });
    }
    return aoFindings;
}

unsigned int GetThisYear()
{
    const std::chrono::year_month_day oToday(std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    return static_cast<unsigned int>(static_cast<int>(oToday.year()));
}

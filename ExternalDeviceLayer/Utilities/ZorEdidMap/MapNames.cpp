// Names of values and texts that tables of several files use.

#include "MapNames.h"

namespace ZorMap
{
const char* FindMeaning(std::span<const SMeaning> aoMeanings, unsigned int uiValue)
{
    for (const SMeaning& oMeaning : aoMeanings)
    {
        if (oMeaning.m_uiFirst <= uiValue && uiValue <= oMeaning.m_uiLast)
        {
            return oMeaning.m_pszName;
        }
    }
    return nullptr;
}

CMString OuiText(const CRecord& /*oRecord*/, unsigned int uiOui)
{
    CMString sText;
    sText.Format("%02X-%02X-%02X", uiOui >> 16, (uiOui >> 8) & 0xFF, uiOui & 0xFF);
    // Apple's DisplayID has the bytes in the other order.
    const unsigned int uiReversed = (uiOui & 0xFF) << 16 | (uiOui & 0xFF00) | uiOui >> 16;
    const char* pszName = FindOuiName(uiOui);
    const char* pszOther = FindOuiName(uiReversed);
    if (pszName != nullptr)
    {
        sText.AppendFormat(" %s", pszName);
    }
    else if (pszOther != nullptr)
    {
        sText.AppendFormat(" %s, bytes reversed", pszOther);
    }
    return sText;
}

CMString CodeText(unsigned int uiCode, const char* pszName)
{
    CMString sText;
    sText.Format(pszName != nullptr ? "%u, %s" : "unknown (%u)", uiCode, pszName);
    return sText;
}

CMString ContainerIdText(const CRecord& oRecord, unsigned int uiOffset)
{
    CMString sText;
    for (unsigned int i = 0; i < gsc_uiContainerIdSize; ++i)
    {
        const bool bDash = i == 4 || i == 6 || i == 8 || i == 10;
        sText.AppendFormat("%s%02x", bDash ? "-" : "", oRecord.GetByte(uiOffset + i));
    }
    return sText;
}
} // namespace ZorMap

CMString CZorEdidMap::GetModeText(const SMode& oMode)
{
    const auto& [ullDividend, ullDivisor] = oMode.m_oNominalRate;
    CMString sText;
    sText.Format("%u x %u%s", oMode.m_uiWidth, oMode.m_uiHeight, oMode.m_bInterlaced ? "i" : "");
    if (ullDivisor == 0)
    {
        return sText;
    }
    const unsigned long long ullHundredths = (ullDividend * 100 + ullDivisor / 2) / ullDivisor;
    sText.AppendFormat(" @ %llu", ullHundredths / 100);
    if (ullHundredths % 100 != 0)
    {
        sText.AppendFormat(".%02llu", ullHundredths % 100);
    }
    sText += " Hz";
    return sText;
}

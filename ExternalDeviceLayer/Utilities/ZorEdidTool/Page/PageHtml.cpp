// Escaping, and the frame of the page.

#include "PageHtml.h"

#include <algorithm>

#include "Characters.h"
#include "PageAssets.h"
#include "TextFormat.h"

namespace
{
constexpr std::string_view gsc_svMark = "<meta name=\"zoredid-page\" content=\"";
constexpr char gsc_szReplacement[] = "\xEF\xBF\xBD"; // U+FFFD
} // namespace

CHtml& CHtml::operator<<(SText oText)
{
    const std::string_view sText = oText.m_sText;
    for (size_t uiAt = 0; uiAt < sText.size();)
    {
        const size_t uiSize = GetCharacterLength(sText, uiAt);
        const bool bControl = uiSize == 1 && ((sText[uiAt] >= 0 && sText[uiAt] < ' ') || sText[uiAt] == '\x7F');
        const char* pszEntity = uiSize == 0 || bControl ? gsc_szReplacement : FindEntity(sText[uiAt]);
        if (pszEntity != nullptr)
        {
            m_sHtml += pszEntity;
        }
        else
        {
            m_sHtml += sText.substr(uiAt, uiSize);
        }
        uiAt += uiSize == 0 ? 1 : uiSize;
    }
    return *this;
}

CHtml& CHtml::operator<<(SDecimal oNumber)
{
    std::string sNumber = FormatText("%.*f", static_cast<int>(oNumber.m_uiDecimals), oNumber.m_dValue);
    if (sNumber.find('.') != std::string::npos)
    {
        sNumber.erase(sNumber.find_last_not_of('0') + 1);
        sNumber.erase(sNumber.find_last_not_of('.') + 1);
    }
    m_sHtml += sNumber == "-0" ? "0" : sNumber;
    return *this;
}

CHtml MakeMore(size_t uiLeft, SMarkup oWhat, SMarkup oCommand)
{
    CHtml oHtml;
    if (uiLeft != 0)
    {
        oHtml << "<p class=\"more\">" << uiLeft << " more " << oWhat
              << " are left out, as the page would be too large: "
              << "<code>zoredid " << oCommand << "</code> has all.</p>\n";
    }
    return oHtml;
}

std::string FindMark(std::string_view svStart)
{
    const size_t uiMeta = svStart.find(gsc_svMark);
    if (uiMeta == std::string_view::npos)
    {
        return "";
    }
    const std::string_view svMark = svStart.substr(uiMeta + gsc_svMark.size());
    return std::string(svMark.substr(0, std::min(svMark.find('"'), svMark.size())));
}

std::string MakePage(const std::string& sTitle, const CHtml& oBody, const std::string& sMark)
{
    CHtml oTitle;
    oTitle << SText{ sTitle };
    // Style and script are allowed by their hashes, so that nothing that slipped into the page would run.
    std::string sPage = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
    sPage += sMark.empty() ? "" : std::string(gsc_svMark) + sMark + "\">\n";
    sPage += "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; base-uri 'none'; "
             "form-action 'none'; style-src 'sha256-";
    sPage += GetPageStyleHash();
    sPage += "'; script-src 'sha256-";
    sPage += GetPageScriptHash();
    sPage += "'\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
             "<meta name=\"color-scheme\" content=\"light dark\">\n<title>";
    sPage += oTitle.Get() + "</title>\n<style>";
    sPage += GetPageStyle();
    sPage += "</style>\n</head>\n<body>\n";
    sPage += oBody.Get();
    sPage += "<script>";
    sPage += GetPageScript();
    sPage += "</script>\n</body>\n</html>\n";
    return sPage;
}

// Escaping, and the frame of the page.

#include "PageHtml.h"

#include "PageAssets.h"
#include "TextFormat.h"

namespace
{
constexpr char gsc_szReplacement[] = "\xEF\xBF\xBD"; // U+FFFD

// How many bytes the character at uiAt has; 0 when it is not well-formed UTF-8 (no overlong form, no surrogate).
size_t MeasureCharacter(std::string_view sText, size_t uiAt)
{
    struct SLead
    {
        unsigned char m_ui8First;
        unsigned char m_ui8Last;
        unsigned char m_ui8Size;
        unsigned char m_ui8SecondFirst; // the second byte has narrower limits after some lead bytes
        unsigned char m_ui8SecondLast;
    };
    constexpr SLead aoLeads[] = {
        { 0x00, 0x7F, 1, 0, 0 },       { 0xC2, 0xDF, 2, 0x80, 0xBF }, { 0xE0, 0xE0, 3, 0xA0, 0xBF },
        { 0xE1, 0xEC, 3, 0x80, 0xBF }, { 0xED, 0xED, 3, 0x80, 0x9F }, { 0xEE, 0xEF, 3, 0x80, 0xBF },
        { 0xF0, 0xF0, 4, 0x90, 0xBF }, { 0xF1, 0xF3, 4, 0x80, 0xBF }, { 0xF4, 0xF4, 4, 0x80, 0x8F },
    };
    const auto fnByte = [&](size_t uiIndex) { return static_cast<unsigned char>(sText[uiIndex]); };
    for (const SLead& oLead : aoLeads)
    {
        if (fnByte(uiAt) < oLead.m_ui8First || fnByte(uiAt) > oLead.m_ui8Last)
        {
            continue;
        }
        if (oLead.m_ui8Size > sText.size() - uiAt)
        {
            return 0;
        }
        for (size_t i = 1; i < oLead.m_ui8Size; ++i)
        {
            const unsigned char ui8First = i == 1 ? oLead.m_ui8SecondFirst : 0x80;
            const unsigned char ui8Last = i == 1 ? oLead.m_ui8SecondLast : 0xBF;
            if (fnByte(uiAt + i) < ui8First || fnByte(uiAt + i) > ui8Last)
            {
                return 0;
            }
        }
        return oLead.m_ui8Size;
    }
    return 0;
}

// The entity of a character of one byte; null when it needs none.
const char* GetEntity(char cNext)
{
    switch (cNext)
    {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    case '\x7F':
        return gsc_szReplacement;
    default:
        return cNext >= 0 && cNext < ' ' ? gsc_szReplacement : nullptr;
    }
}
} // namespace

CHtml& CHtml::operator<<(SText oText)
{
    const std::string_view sText = oText.m_sText;
    for (size_t uiAt = 0; uiAt < sText.size();)
    {
        const size_t uiSize = MeasureCharacter(sText, uiAt);
        const char* pszEntity = uiSize == 0 ? gsc_szReplacement : GetEntity(sText[uiAt]);
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

std::string MakePage(const std::string& sTitle, const CHtml& oBody)
{
    CHtml oTitle;
    oTitle << SText{ sTitle };
    // Style and script are allowed by their hashes, so that nothing that slipped into the page would run.
    std::string sPage = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; base-uri 'none'; "
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

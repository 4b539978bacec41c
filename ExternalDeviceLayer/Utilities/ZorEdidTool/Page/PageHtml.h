// HTML under construction. Markup is what this program's own sources spell out; everything else is text and is escaped
// on its way in, so that no text of an image or a file's name can become markup. For the sources of zoredid page.

#pragma once

#include <stddef.h>

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

// A literal of the sources: only a constant expression makes one.
struct SMarkup
{
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is taken as it is
    consteval SMarkup(const char* pszMarkup) : m_pszMarkup(pszMarkup) {}

    const char* m_pszMarkup;
};

// Anything but a literal.
struct SText
{
    std::string_view m_sText;
};

// A number with at most so many decimals; zeros at the end are left out.
struct SDecimal
{
    double m_dValue;
    unsigned int m_uiDecimals;
};

class CHtml
{
public:
    CHtml& operator<<(SMarkup oMarkup)
    {
        m_sHtml += oMarkup.m_pszMarkup;
        return *this;
    }
    // Safe between tags and in a quoted attribute. Bytes that are not UTF-8, and control characters, become U+FFFD.
    CHtml& operator<<(SText oText);
    CHtml& operator<<(SDecimal oNumber);
    CHtml& operator<<(std::integral auto iNumber)
    {
        m_sHtml += std::to_string(iNumber);
        return *this;
    }
    CHtml& operator<<(char cNext) = delete; // as a number it would be a trap
    CHtml& operator<<(const CHtml& oPart)
    {
        m_sHtml += oPart.m_sHtml;
        return *this;
    }

    // What a function gives at the end of a chain of <<, without a copy of the text.
    CHtml Take() { return std::move(*this); }

    // Again what Get() of another one gave.
    static CHtml Resume(std::string sMade)
    {
        CHtml oHtml;
        oHtml.m_sHtml = std::move(sMade);
        return oHtml;
    }

    bool IsEmpty() const { return m_sHtml.empty(); }
    const std::string& Get() const { return m_sHtml; }

private:
    std::string m_sHtml;
};

// A paragraph that says what a part leaves out and which command has it; empty for 0.
CHtml MakeMore(size_t uiLeft, SMarkup oWhat, SMarkup oCommand);

// A whole page around the content of its body: style, script, and a policy that lets nothing be fetched and no other
// script run. sMark, unless empty, is in a meta element near the start, where FindMark finds it.
std::string MakePage(const std::string& sTitle, const CHtml& oBody, const std::string& sMark = "");

// The mark of a page of which these are the first bytes, at least gsc_uiMarkEnd; empty without one.
inline constexpr size_t gsc_uiMarkEnd = 256;
std::string FindMark(std::string_view svStart);

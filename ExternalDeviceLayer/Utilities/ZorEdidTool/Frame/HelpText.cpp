// Help in lines of the terminal's width.

#include "HelpText.h"

#include <stdlib.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>

#include "TextFormat.h"

namespace
{
// Where the text of "  NAME  TEXT" begins; 0 in any other line.
size_t FindEntryText(const std::string& sLine)
{
    const size_t uiName = sLine.find_first_not_of(' ');
    const size_t uiGap = sLine.find("  ", std::min(uiName, sLine.size()));
    const size_t uiText = sLine.find_first_not_of(' ', std::min(uiGap, sLine.size()));
    const bool bOneWord = sLine.find(' ', std::min(uiName, sLine.size())) == uiGap;
    return uiName == 2 && bOneWord && uiText != std::string::npos ? uiText : 0;
}
// The last blank up to uiMost that is in no quotes and after the indentation; npos without one.
size_t FindBreak(const std::string& sLine, size_t uiIndent, size_t uiMost)
{
    size_t uiBreak = std::string::npos;
    bool bQuoted = false;
    for (size_t i = uiIndent; i < sLine.size() && i <= uiMost; ++i)
    {
        bQuoted = bQuoted != (sLine[i] == '\'');
        uiBreak = sLine[i] == ' ' && !bQuoted ? i : uiBreak;
    }
    return uiBreak;
}

// A line that is not wrapped, an example or a format, in lines of the width. A command still is one when it is copied.
std::string WrapLine(std::string sLine, size_t uiWidth)
{
    constexpr size_t uiMore = 4; // columns of indentation
    std::string sLines;
    size_t uiIndent = std::min(sLine.find_first_not_of(' '), sLine.size());
    const std::string sContinued = sLine.compare(uiIndent, 7, "zoredid") == 0 ? " \\" : "";
    const size_t uiNextIndent = uiIndent + uiMore;
    while (sLine.size() > uiWidth)
    {
        const size_t uiBreak = FindBreak(sLine, uiIndent, uiWidth - sContinued.size());
        if (uiBreak == std::string::npos)
        {
            break;
        }
        sLines += sLine.substr(0, uiBreak) + sContinued + "\n";
        sLine = std::string(uiNextIndent, ' ') + sLine.substr(uiBreak + 1);
        uiIndent = uiNextIndent;
    }
    return sLines + sLine;
}
} // namespace

size_t GetHelpWidth()
{
    unsigned int uiWidth = 0;
    winsize oSize = {};
    const char* pszColumns = getenv("COLUMNS");
    if (isatty(STDOUT_FILENO) != 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &oSize) == 0)
    {
        uiWidth = oSize.ws_col;
    }
    else if (pszColumns != nullptr && !ParseNumber(pszColumns, uiWidth))
    {
        uiWidth = 0;
    }
    return uiWidth == 0 ? 80 : std::clamp(uiWidth, 40U, 120U);
}

std::string WrapText(const std::string& sText, size_t uiIndent, size_t uiUsed, size_t uiWidth)
{
    std::istringstream oWords(sText);
    std::string sLines;
    size_t uiColumn = uiUsed;
    bool bFirst = true; // of its line
    for (std::string sWord; oWords >> sWord; bFirst = false)
    {
        if (!bFirst && uiColumn + 1 + sWord.size() > uiWidth)
        {
            sLines += "\n" + std::string(uiIndent, ' ');
            uiColumn = uiIndent;
            bFirst = true;
        }
        sLines += (bFirst ? "" : " ") + sWord;
        uiColumn += (bFirst ? 0 : 1) + sWord.size();
    }
    return sLines;
}

std::string WrapEntry(const std::string& sName, const std::string& sText, size_t uiWidth)
{
    constexpr size_t uiNames = 30; // columns
    const size_t uiIndent = std::min(uiNames, uiWidth / 3);
    std::string sEntry = "  " + sName;
    if (!sText.empty())
    {
        sEntry +=
            sEntry.size() < uiIndent ? std::string(uiIndent - sEntry.size(), ' ') : "\n" + std::string(uiIndent, ' ');
        sEntry += WrapText(sText, uiIndent, uiIndent, uiWidth);
    }
    return sEntry + "\n";
}

std::string WrapFooter(const std::string& sText, size_t uiWidth)
{
    std::istringstream oLines(sText);
    std::string sFooter;
    std::string sParagraph;
    const auto fnEnd = [&] {
        sFooter += sParagraph.empty() ? "" : WrapText(sParagraph, 0, 0, uiWidth) + "\n";
        sParagraph.clear();
    };
    for (std::string sLine; std::getline(oLines, sLine);)
    {
        if (const size_t uiText = FindEntryText(sLine); uiText != 0)
        {
            fnEnd();
            sFooter += sLine.substr(0, uiText) + WrapText(sLine.substr(uiText), uiText, uiText, uiWidth) + "\n";
            continue;
        }
        if (sLine.empty() || sLine.starts_with(' ') || sLine.starts_with("Example"))
        {
            fnEnd();
            sFooter += WrapLine(sLine, uiWidth) + "\n";
            continue;
        }
        sParagraph += sLine + " ";
        if (sLine.ends_with('.') || sLine.ends_with(':'))
        {
            fnEnd();
        }
    }
    fnEnd();
    return sFooter;
}

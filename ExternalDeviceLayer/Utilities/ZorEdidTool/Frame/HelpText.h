// The layout of a help: as wide as the terminal.

#pragma once

#include <string>

// Columns: of the terminal that standard output is, else of COLUMNS in the environment, else 80; 40 to 120.
size_t GetHelpWidth();

// The words of the text in lines of at most uiWidth columns, where no word is longer; all but the first begin with
// uiIndent blanks, and the first has uiUsed columns already. The last one ends without a line feed.
std::string WrapText(const std::string& sText, size_t uiIndent, size_t uiUsed, size_t uiWidth);

// A name and what it is for, beside it or below it: whole lines.
std::string WrapEntry(const std::string& sName, const std::string& sText, size_t uiWidth);

// The text after the options. "  NAME  TEXT" is wrapped under its text; other lines that begin with a blank, and
// examples, stay as they are. Of other lines, those that
// end a sentence or a heading end a paragraph.
std::string WrapFooter(const std::string& sText, size_t uiWidth);

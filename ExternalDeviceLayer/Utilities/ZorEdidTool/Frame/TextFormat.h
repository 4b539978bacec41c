// Text by a printf format as a std::string, hexadecimal bytes, names of files, and numbers.

#pragma once

#include <stddef.h>

#include <string>
#include <vector>

std::string FormatText(const char* pszFormat, ...) __attribute__((format(printf, 1, 2)));

// The texts that are not empty, each once.
std::string JoinTexts(const std::vector<std::string>& asTexts, const char* pszBetween = ", ");

// Two lower-case digits a byte, without separators.
std::string FormatHex(const unsigned char* pui8Bytes, size_t uiCount);

// A file's name, or another text that is not ours, in one line: control characters and bytes that are not UTF-8 become
// \n, \t or \xNN, a backslash two.
std::string ShowName(const std::string& sName);

// Lines of the library with texts of an image in them: control characters and bytes that are not UTF-8 become \xNN.
std::string ShowLines(const std::string& sText);

// A path as RFC 3986 has it: bytes other than letters, digits, slashes and a few marks are percent-encoded.
std::string EncodePath(const std::string& sPath);

// The entity of a character in a text or a quoted value of XML and HTML; null for one that needs none.
const char* FindEntity(char cNext);
// The text with these. Control characters, for which XML has nothing, are not to be in it.
std::string EscapeMarkup(const std::string& sText);

// A number, decimal, or hexadecimal after 0x; false for anything else.
bool ParseNumber(const std::string& sText, unsigned int& uiNumber);
// "12/2026", or "2026" with 0 for the week.
bool ParseWeekAndYear(const std::string& sText, unsigned int& uiWeek, unsigned int& uiYear);

// The parts between any of the separators, also empty ones.
std::vector<std::string> SplitText(const std::string& sText, const char* pszSeparators);

// What the readers of the forms share: characters, lines and bytes. And those readers that have files of their own.

#pragma once

#include <string>
#include <string_view>

#include "EdidUtils.h"
#include "Input.h"

inline constexpr size_t gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
inline constexpr size_t gsc_uiMaxSize = 256 * gsc_uiBlockSize;

inline constexpr std::string_view gsc_sBlanks = " \t\r\n\f\v";
inline constexpr std::string_view gsc_sHexDigits = "0123456789abcdefABCDEF";

std::string_view Trim(std::string_view sText);

// The next line without its end; sRest moves past it.
std::string_view TakeLine(std::string_view& sRest);

// The next run of characters that are not separators; empty at the end.
std::string_view TakeToken(std::string_view& sRest, std::string_view sSeparators);

bool IsHex(std::string_view sText);
bool StartsWith(std::string_view sText, std::string_view sHead);
bool EqualsNoCase(std::string_view sText, std::string_view sOther);

// Whether this is what somebody calls the connector: "card0-DP-1" or, without the card, "DP-1", in either case.
bool IsConnector(std::string_view sConnector, std::string_view sName);

// "line N: PROBLEM"
std::string AtLine(size_t uiLine, const std::string& sProblem);

// False for an empty text, a character that is not a digit, and a number above 2^48, which nothing here needs.
bool ParseDigits(std::string_view sDigits, unsigned int uiRadix, unsigned long long& ullValue);

// Keeps one byte more than fits at most, which shows that there were too many.
void AddByte(SInput& oInput, unsigned long long ullByte);

// Two digits a byte. False for an odd number of them or anything else.
bool AddHex(SInput& oInput, std::string_view sDigits);

// The same for a line of digits only. False where the rows end, with a problem where the line was meant as one of them.
bool AddRow(SInput& oInput, std::string_view sLine, size_t uiLine);

// Whole blocks, and fewer than the base block announces.
bool LacksBlocks(const SInput& oInput);

// The EDIDs of a text that may hold several: m_sName is whose it is, such as "HDMI-1", or empty, and m_sForm unused.
using CMonitors = std::vector<SInput>;

// Those of these that are wanted: by name, with the card or without, else by number from 1; all for "all", the first
// one when sWanted is empty. Each is oInput with its bytes; its form and its hint, or its name, say which. EDIDs that
// come twice count once, as in a log; those without digits do not count. oInput itself when none is left.
CInputs TakeMonitors(CMonitors aoMonitors, const std::string& sWanted, const SInput& oInput);

// Adds the EDIDs in the bytes of an input that has been read: that with the number uiWanted, from 1, or all for 0.
// Where there are several, each has its number, the first of all says what the file holds, and the name says which it
// is. Those with the same bytes are one. Without one of that number the input is added with that problem.
void AddImages(SInput oInput, unsigned int uiWanted, CInputs& aoInputs);

// The readers: false when the text does not have this form. Else the input receives the bytes or a problem.
bool ReadDump(const std::string& sText, SInput& oInput);       // with addresses
bool ReadBase64(const std::string& sText, SInput& oInput);     // also in its form for addresses, also as a data address
bool ReadDigits(const std::string& sText, SInput& oInput);     // hexadecimal
bool ReadLog(const std::string& sText, CMonitors& aoMonitors); // of an X server or a kernel
bool ReadDdcDump(const std::string& sText, CMonitors& aoMonitors);    // of a tool that speaks DDC/CI
bool ReadIoRegistry(const std::string& sText, CMonitors& aoMonitors); // of macOS
bool ReadModetest(const std::string& sText, CMonitors& aoMonitors);   // connectors of the kernel, with properties

// A dump with addresses in a part of a text, which begins at this line.
bool ReadDumpAt(std::string_view sText, size_t uiLine, SInput& oInput);

// The reader of text tables.

#include "ZorEdidUtilsTable.h"

#include <stdlib.h>
#include <string.h>

#include <algorithm>

using namespace ZorUtils;

namespace
{
constexpr int gsc_iLineBufferSize = 2048; // characters, with the NUL
constexpr unsigned int gsc_uiMarkerLength = sizeof(gsc_szEdidTableMarker) - 1;
static_assert(gsc_uiMarkerLength == 48);

// A row, counted from its bar.
constexpr size_t gsc_uiFirstCellOffset = 3;
constexpr size_t gsc_uiCellDistance = 4;
constexpr size_t gsc_uiCellLength = 2;
constexpr int gsc_iCellBase = 16;

// Reads one line or as much of it as fits. False at the end of the file, and at a read error; ferror distinguishes
// them.
bool ReadLine(FILE* poFile, char (&szLine)[gsc_iLineBufferSize])
{
    return fgets(szLine, gsc_iLineBufferSize, poFile) != nullptr;
}

// Whether the line just read ends the file without a line feed. One that fills the buffer is read before the end of the
// file shows, so the next character is looked at. A NUL may precede the line feed.
bool EndsFileWithoutLineFeed(FILE* poFile, const char (&szLine)[gsc_iLineBufferSize])
{
    if (feof(poFile) != 0)
    {
        return true;
    }
    if (strlen(szLine) + 1 < sizeof(szLine) || szLine[sizeof(szLine) - 2] == '\n')
    {
        return false;
    }
    const int iNext = getc(poFile);
    ungetc(iNext, poFile); // does nothing for EOF
    return iNext == EOF;
}

// Reads up to and with the marker line. False without one, and when it ends the file without a line feed.
bool SkipToTable(FILE* poFile)
{
    char szLine[gsc_iLineBufferSize];
    while (ReadLine(poFile, szLine))
    {
        if (strncmp(szLine, gsc_szEdidTableMarker, gsc_uiMarkerLength) == 0)
        {
            return !EndsFileWithoutLineFeed(poFile, szLine);
        }
    }
    return false;
}

void ReplaceFirstByBlank(char* pszText, char cReplaced)
{
    if (char* pcFound = strchr(pszText, cReplaced))
    {
        *pcFound = ' ';
    }
}

bool IsBlankCell(const char* pszCell)
{
    return strcmp(pszCell, "") == 0 || strcmp(pszCell, " ") == 0 || strcmp(pszCell, "  ") == 0;
}

// Appends the byte of the cell at pszText, which the line's end may cut short.
void AppendCell(const char* pszText, CZorEdidUtils::CByteArray& oBytes)
{
    char szCell[gsc_uiCellLength + 1] = {};
    memcpy(szCell, pszText, strnlen(pszText, gsc_uiCellLength));
    ReplaceFirstByBlank(szCell, '\r');
    ReplaceFirstByBlank(szCell, '\n');
    if (!IsBlankCell(szCell))
    {
        oBytes.Add(static_cast<unsigned char>(strtol(szCell, nullptr, gsc_iCellBase)));
    }
}

// Appends the bytes of a row. False for a line without a bar, which is not a row.
bool AppendRow(const char* pszLine, CZorEdidUtils::CByteArray& oBytes)
{
    const char* pcBar = strchr(pszLine, '|');
    if (pcBar == nullptr)
    {
        return false;
    }
    const size_t uiLength = strlen(pcBar);
    for (size_t uiCell = gsc_uiFirstCellOffset; uiCell < uiLength; uiCell += gsc_uiCellDistance)
    {
        AppendCell(pcBar + uiCell, oBytes);
    }
    return true;
}

// An array keeps the growth step of its first reallocation, which would copy a large table once every few bytes: 99 %
// of the instructions of reading a table of 256 KiB. With a step as large as itself it doubles.
void LetDouble(CZorEdidUtils::CByteArray& oBytes)
{
    const int iCount = static_cast<int>(oBytes.GetCount());
    oBytes.SetSize(iCount, std::max(iCount, gsc_iLineBufferSize));
}

// Replaces oData by the bytes of all rows. False when reading failed before the end of the table; oData then holds the
// bytes in front of it.
bool ReadTable(FILE* poFile, CZorEdidUtils::CByteArray& oData)
{
    CZorEdidUtils::CByteArray oBytes; // the growth step of oData is the caller's
    char szLine[gsc_iLineBufferSize];
    bool bRow = true;
    while (bRow && ReadLine(poFile, szLine))
    {
        LetDouble(oBytes);
        bRow = AppendRow(szLine, oBytes);
    }
    oData = oBytes;
    return ferror(poFile) == 0;
}
} // namespace

bool ZorUtils::ReadEdidTable(FILE* poFile, CZorEdidUtils::CByteArray& oData)
{
    return SkipToTable(poFile) && ReadTable(poFile, oData);
}

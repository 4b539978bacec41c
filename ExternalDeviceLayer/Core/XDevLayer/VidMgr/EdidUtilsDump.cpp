// The hex dump of an EDID image, as lines of text.

#include "EdidUtils.h"

#include <algorithm>

#include "EdidTextLine.h"
#include "ZorAssert.h"
#include "ZorMFCTypes.h"

using ZorCore::CTextLine;

namespace
{
constexpr unsigned int gsc_uiBytesPerLine = 10;

// The title names one block whatever the size is.
constexpr const char* gsc_apszHeadLines[] = {
    "128 BYTES OF EDID CODE:",
    "       0  1  2  3  4  5  6  7  8  9",
    "     ______________________________",
};

// "120 | 00 01 02": the offset in decimal, then as many bytes as there are.
CMString MakeDataLine(const CMString& sPrefix, unsigned int uiOffset, unsigned int uiCount,
                      const unsigned char* pui8Data)
{
    CTextLine oLine("");
    oLine.Decimal(uiOffset, 3, '0').Text(" |");
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        oLine.Text(" ").Hex(pui8Data[uiOffset + i], 2);
    }
    return sPrefix + oLine.Get();
}
} // namespace

int CEdidUtils::GetFormatedEdidDataStrings(unsigned int uiSize, const unsigned char* pui8Data, CMArrayString& oLines,
                                           const char* pszLinePrefix)
{
    if (uiSize == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    if (pui8Data == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }

    const CMString sPrefix(pszLinePrefix); // before the lines go: it may point into one of them
    oLines.RemoveAll();
    for (const char* pszHeadLine : gsc_apszHeadLines)
    {
        oLines.Add(sPrefix + pszHeadLine);
    }
    for (unsigned int uiLeft = uiSize; uiLeft > 0;)
    {
        const unsigned int uiCount = std::min(uiLeft, gsc_uiBytesPerLine);
        oLines.Add(MakeDataLine(sPrefix, uiSize - uiLeft, uiCount, pui8Data));
        uiLeft -= uiCount;
    }
    oLines.Add(sPrefix);

    oLines.Add(sPrefix + CTextLine("Real Buffer Size: ").Decimal(uiSize).Text(" Bytes").Get());
    return 1;
}

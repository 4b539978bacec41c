// One line of a report or dump, put together piece by piece in a buffer of its own. The string that keeps the line then
// takes memory once and of exactly its size; printf and growing strings took two thirds of a report. Private to the
// sources that write lines.

#pragma once

namespace ZorCore
{

class CTextLine
{
public:
    explicit CTextLine(const char* pszOpening) { Text(pszOpening); }

    // Appends a text; null counts as empty. What does not fit any more is cut.
    CTextLine& Text(const char* pszText)
    {
        for (; pszText != nullptr && *pszText != '\0'; ++pszText)
        {
            Put(*pszText);
        }
        return *this;
    }

    // Appends a number as printf does with "%*d": filled up to uiWidth characters, the sign in front of zeros.
    CTextLine& Decimal(int iValue, unsigned int uiWidth = 0, char cFill = ' ')
    {
        char acDigits[msc_uiMostDigits];
        unsigned int uiDigits = 0;
        unsigned int uiRest = iValue < 0 ? 0U - static_cast<unsigned int>(iValue) : static_cast<unsigned int>(iValue);
        do
        {
            acDigits[uiDigits++] = static_cast<char>('0' + uiRest % 10);
            uiRest /= 10;
        } while (uiRest != 0);
        const unsigned int uiLength = uiDigits + (iValue < 0 ? 1U : 0U);
        if (iValue < 0 && cFill == '0')
        {
            Put('-');
        }
        for (unsigned int i = uiLength; i < uiWidth; ++i)
        {
            Put(cFill);
        }
        if (iValue < 0 && cFill != '0')
        {
            Put('-');
        }
        while (uiDigits != 0)
        {
            Put(acDigits[--uiDigits]);
        }
        return *this;
    }
    // An unsigned number printed as a signed one: a serial number with the top bit set is negative.
    CTextLine& Decimal(unsigned int uiValue, unsigned int uiWidth = 0, char cFill = ' ')
    {
        return Decimal(static_cast<int>(uiValue), uiWidth, cFill);
    }

    // Appends the low uiDigits hexadecimal digits, 8 at most, in upper case, leading zeros included.
    CTextLine& Hex(unsigned int uiValue, unsigned int uiDigits)
    {
        while (uiDigits != 0)
        {
            Put("0123456789ABCDEF"[(uiValue >> (4 * --uiDigits)) & 0xF]);
        }
        return *this;
    }

    // Terminated. Valid until the next call or the end of the object.
    const char* Get()
    {
        m_szText[m_uiLength] = '\0';
        return m_szText;
    }

private:
    static constexpr unsigned int msc_uiSize = 256;      // the longest line has some 150 characters
    static constexpr unsigned int msc_uiMostDigits = 10; // of 32 bits

    void Put(char c)
    {
        if (m_uiLength + 1 < msc_uiSize)
        {
            m_szText[m_uiLength++] = c;
        }
    }

    unsigned int m_uiLength = 0;
    char m_szText[msc_uiSize];
};

} // namespace ZorCore

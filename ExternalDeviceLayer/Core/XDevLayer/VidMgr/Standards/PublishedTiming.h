// A timing as a standard publishes it: the rows of the tables of video codes and DMT. Names that the compiler makes of
// numbers. Private to the library.

#pragma once

#include <stddef.h>

namespace ZorStandards
{
// Of a picture, width to height.
struct SRatio
{
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
};

enum class EScan : unsigned char
{
    eProgressive,
    eInterlaced, // each field ends with a half line
    eEvenFields  // interlaced, two fields of the same whole lines
};

enum class ESync : unsigned char // horizontal polarity, then vertical
{
    eNN = 0,
    ePN = 1,
    eNP = 2,
    ePP = 3
};

// Short forms for the tables, which are in this namespace.
namespace Rows
{
constexpr EScan eP = EScan::eProgressive;
constexpr EScan eI = EScan::eInterlaced;
constexpr EScan eE = EScan::eEvenFields;
using enum ESync;
} // namespace Rows

// Pixels and lines as they are sent; clock in kHz at the whole rate; rate in Hz, of interlaced timings of fields.
// Active lines are those of the frame, the rest of the vertical numbers those of a field.
struct SPublishedTiming
{
    unsigned short m_ui16Width;
    unsigned short m_ui16Height;
    EScan m_eScan;
    unsigned char m_ui8Rate;
    unsigned int m_uiClock;
    unsigned short m_ui16HorizontalFront;
    unsigned short m_ui16HorizontalSync;
    unsigned short m_ui16HorizontalBack;
    unsigned char m_ui8VerticalFront;
    unsigned char m_ui8VerticalSync;
    unsigned short m_ui16VerticalBack;
    ESync m_eSync;

    constexpr bool IsInterlaced() const { return m_eScan != EScan::eProgressive; }
    constexpr bool IsHorizontalPositive() const { return (static_cast<unsigned int>(m_eSync) & 1U) != 0; }
    constexpr bool IsVerticalPositive() const { return (static_cast<unsigned int>(m_eSync) & 2U) != 0; }
    constexpr unsigned int GetTotalWidth() const
    {
        return m_ui16Width + 0U + m_ui16HorizontalFront + m_ui16HorizontalSync + m_ui16HorizontalBack;
    }
    // Of the frame.
    constexpr unsigned int GetTotalHeight() const
    {
        const unsigned int uiBlank = m_ui8VerticalFront + 0U + m_ui8VerticalSync + m_ui16VerticalBack;
        return m_ui16Height + (IsInterlaced() ? 2 * uiBlank : uiBlank) + (m_eScan == EScan::eInterlaced ? 1U : 0U);
    }
};

// ---- Names ----

// A text of up to SIZE - 1 characters.
template <size_t SIZE>
class CName
{
public:
    constexpr CName& operator<<(const char* pszText)
    {
        for (; *pszText != '\0'; ++pszText)
        {
            m_szText[m_uiLength++] = *pszText; // one too many does not compile
        }
        return *this;
    }
    constexpr CName& operator<<(unsigned int uiNumber)
    {
        if (uiNumber >= 10)
        {
            *this << uiNumber / 10;
        }
        m_szText[m_uiLength++] = static_cast<char>('0' + uiNumber % 10);
        return *this;
    }
    // "59.94", "60"
    constexpr CName& AddHundredths(unsigned int uiHundredths)
    {
        *this << uiHundredths / 100;
        if (uiHundredths % 100 != 0)
        {
            *this << "." << uiHundredths / 10 % 10 << uiHundredths % 10;
        }
        return *this;
    }
    constexpr unsigned int GetLength() const { return m_uiLength; }
    constexpr const char* GetText() const { return m_szText; }

private:
    char m_szText[SIZE] = {};
    unsigned int m_uiLength = 0;
};

// Of a rate of uiRate * 1000 / 1001 Hz.
constexpr unsigned int GetFractionInHundredths(unsigned int uiRate) { return (uiRate * 200000 / 1001 + 1) / 2; }
static_assert(GetFractionInHundredths(60) == 5994 && GetFractionInHundredths(24) == 2398);
} // namespace ZorStandards

// The bytes of a structure that may be cut short: a place past its end reads as 0. Private to the library.

#pragma once

#include "Place.h"

namespace ZorStandards
{
class CRecordBytes
{
public:
    constexpr CRecordBytes(const unsigned char* pui8Bytes, unsigned int uiSize)
        : m_pui8Bytes(pui8Bytes), m_uiSize(uiSize)
    {
    }

    constexpr unsigned int GetSize() const { return m_uiSize; }
    constexpr const unsigned char* GetData() const { return m_pui8Bytes; } // GetSize bytes

    constexpr unsigned int GetByte(unsigned int uiOffset) const
    {
        return uiOffset < m_uiSize ? m_pui8Bytes[uiOffset] : 0U;
    }
    constexpr bool IsSet(unsigned int uiOffset, unsigned int uiBit) const
    {
        return ((GetByte(uiOffset) >> uiBit) & 1U) != 0;
    }
    constexpr unsigned int GetBits(unsigned int uiOffset, unsigned int uiHigh, unsigned int uiLow) const
    {
        return (GetByte(uiOffset) >> uiLow) & ((2U << (uiHigh - uiLow)) - 1);
    }
    // At most 32 bits; of a run 0.
    constexpr unsigned int Get(const SPlace& oPlace) const
    {
        unsigned int uiValue = 0;
        for (unsigned int i = 0; i < oPlace.m_ui8Pieces && oPlace.m_ui8Run == 0; ++i)
        {
            const SBitsPlace& oPiece = oPlace.m_aoPieces[i];
            uiValue = (uiValue << oPiece.GetWidth()) | GetBits(oPiece.m_ui8Offset, oPiece.m_ui8High, oPiece.m_ui8Low);
        }
        return uiValue;
    }
    constexpr bool IsSet(const SPlace& oPlace) const { return Get(oPlace) != 0; }
    // The bytes from an offset on, at most uiLength of them.
    constexpr CRecordBytes GetPart(unsigned int uiOffset, unsigned int uiLength) const
    {
        const unsigned int uiFrom = uiOffset < m_uiSize ? uiOffset : m_uiSize;
        return { m_pui8Bytes + uiFrom, uiLength < m_uiSize - uiFrom ? uiLength : m_uiSize - uiFrom };
    }

private:
    const unsigned char* m_pui8Bytes;
    unsigned int m_uiSize;
};
} // namespace ZorStandards

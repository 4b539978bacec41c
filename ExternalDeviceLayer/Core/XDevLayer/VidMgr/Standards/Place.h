// Where a value is in the bytes of a structure: the one type for it, which the EDID classes read and write by and the
// map's tables are made of. Offsets count from the first byte of the structure. Private to the library.

#pragma once

#include <initializer_list>

namespace ZorStandards
{
inline constexpr unsigned int gsc_uiBits = 8; // of a byte

// Bits m_ui8High to m_ui8Low of the byte m_ui8Offset.
struct SBitsPlace
{
    unsigned char m_ui8Offset;
    unsigned char m_ui8High;
    unsigned char m_ui8Low;

    constexpr unsigned int GetWidth() const { return m_ui8High - m_ui8Low + 1U; }
    // The largest value, and the bits within their byte.
    constexpr unsigned int GetMost() const { return (1U << GetWidth()) - 1U; }
    constexpr unsigned char GetMask() const { return static_cast<unsigned char>(GetMost() << m_ui8Low); }

    constexpr unsigned int Read(const unsigned char* pui8Bytes) const
    {
        return (static_cast<unsigned int>(pui8Bytes[m_ui8Offset]) >> m_ui8Low) & GetMost();
    }
    constexpr bool IsSet(const unsigned char* pui8Bytes) const { return Read(pui8Bytes) != 0; }
    // Keeps the other bits; what is wider than the field is dropped.
    constexpr void Write(unsigned char* pui8Bytes, unsigned int uiValue) const
    {
        const unsigned int uiKept = pui8Bytes[m_ui8Offset] & ~static_cast<unsigned int>(GetMask());
        pui8Bytes[m_ui8Offset] = static_cast<unsigned char>(uiKept | ((uiValue & GetMost()) << m_ui8Low));
    }
};

inline constexpr unsigned int gsc_uiMostPieces = 4;
inline constexpr unsigned char gsc_ui8ToTheEnd = 0xFF; // length of a run: up to the end of the structure

// Up to four pieces of bytes, most significant first; or a run of whole bytes, when m_ui8Run is not 0.
struct SPlace
{
    SBitsPlace m_aoPieces[gsc_uiMostPieces] = {};
    unsigned char m_ui8Pieces = 0;
    unsigned char m_ui8Run = 0; // bytes from m_aoPieces[0].m_ui8Offset on

    constexpr unsigned int CountBits() const
    {
        unsigned int uiBits = 0;
        for (unsigned int i = 0; i < m_ui8Pieces; ++i)
        {
            uiBits += m_aoPieces[i].GetWidth();
        }
        return uiBits;
    }
    // The caller has made sure that all bytes of the place are there. At most 32 bits; not for runs.
    constexpr unsigned int Read(const unsigned char* pui8Bytes) const
    {
        unsigned int uiValue = 0;
        for (unsigned int i = 0; i < m_ui8Pieces; ++i)
        {
            uiValue = (uiValue << m_aoPieces[i].GetWidth()) | m_aoPieces[i].Read(pui8Bytes);
        }
        return uiValue;
    }
    constexpr bool IsSet(const unsigned char* pui8Bytes) const { return Read(pui8Bytes) != 0; }
    // The first byte that it lies in, and the one after the last. Not for runs.
    constexpr unsigned int GetFirst() const
    {
        unsigned int uiFirst = m_aoPieces[0].m_ui8Offset;
        for (unsigned int i = 1; i < m_ui8Pieces; ++i)
        {
            uiFirst = m_aoPieces[i].m_ui8Offset < uiFirst ? m_aoPieces[i].m_ui8Offset : uiFirst;
        }
        return uiFirst;
    }
    constexpr unsigned int GetEnd() const
    {
        unsigned int uiLast = 0;
        for (unsigned int i = 0; i < m_ui8Pieces; ++i)
        {
            uiLast = m_aoPieces[i].m_ui8Offset > uiLast ? m_aoPieces[i].m_ui8Offset : uiLast;
        }
        return uiLast + 1;
    }
    // Keeps the other bits; what is wider than the place is dropped.
    constexpr void Write(unsigned char* pui8Bytes, unsigned int uiValue) const
    {
        for (unsigned int i = m_ui8Pieces; i > 0; --i)
        {
            m_aoPieces[i - 1].Write(pui8Bytes, uiValue);
            uiValue >>= m_aoPieces[i - 1].GetWidth();
        }
    }
};

constexpr SPlace Split(std::initializer_list<SBitsPlace> aoPieces)
{
    SPlace oPlace;
    for (const SBitsPlace& oPiece : aoPieces)
    {
        oPlace.m_aoPieces[oPlace.m_ui8Pieces++] = oPiece;
    }
    return oPlace;
}

constexpr unsigned char PlaceByte(unsigned int uiOffset) { return static_cast<unsigned char>(uiOffset); }

constexpr SPlace Bits(unsigned int uiOffset, unsigned int uiHigh, unsigned int uiLow)
{
    return Split({ { PlaceByte(uiOffset), PlaceByte(uiHigh), PlaceByte(uiLow) } });
}

constexpr SPlace Bit(unsigned int uiOffset, unsigned int uiBit) { return Bits(uiOffset, uiBit, uiBit); }

constexpr SPlace Byte(unsigned int uiOffset) { return Bits(uiOffset, 7, 0); }

constexpr SPlace Little16(unsigned int uiOffset)
{
    return Split({ { PlaceByte(uiOffset + 1), 7, 0 }, { PlaceByte(uiOffset), 7, 0 } });
}

constexpr SPlace Big16(unsigned int uiOffset)
{
    return Split({ { PlaceByte(uiOffset), 7, 0 }, { PlaceByte(uiOffset + 1), 7, 0 } });
}

constexpr SPlace Little24(unsigned int uiOffset)
{
    return Split(
        { { PlaceByte(uiOffset + 2), 7, 0 }, { PlaceByte(uiOffset + 1), 7, 0 }, { PlaceByte(uiOffset), 7, 0 } });
}

// As DisplayID has a company's identifier.
constexpr SPlace Big24(unsigned int uiOffset)
{
    return Split(
        { { PlaceByte(uiOffset), 7, 0 }, { PlaceByte(uiOffset + 1), 7, 0 }, { PlaceByte(uiOffset + 2), 7, 0 } });
}

constexpr SPlace Little32(unsigned int uiOffset)
{
    return Split({ { PlaceByte(uiOffset + 3), 7, 0 },
                   { PlaceByte(uiOffset + 2), 7, 0 },
                   { PlaceByte(uiOffset + 1), 7, 0 },
                   { PlaceByte(uiOffset), 7, 0 } });
}

// The same in a structure that begins uiBytes earlier.
constexpr SPlace Shifted(SPlace oPlace, unsigned int uiBytes)
{
    for (SBitsPlace& oPiece : oPlace.m_aoPieces)
    {
        oPiece.m_ui8Offset = PlaceByte(oPiece.m_ui8Offset + uiBytes);
    }
    return oPlace;
}

constexpr SPlace RunToEnd(unsigned int uiOffset)
{
    SPlace oPlace = Byte(uiOffset);
    oPlace.m_ui8Run = gsc_ui8ToTheEnd;
    return oPlace;
}

// Not constexpr, so that a table that calls it does not compile.
void RefuseRun();

constexpr SPlace Run(unsigned int uiOffset, unsigned int uiLength)
{
    if (uiLength == 0 || uiLength >= gsc_ui8ToTheEnd)
    {
        RefuseRun();
    }
    SPlace oPlace = Byte(uiOffset);
    oPlace.m_ui8Run = PlaceByte(uiLength);
    return oPlace;
}
} // namespace ZorStandards

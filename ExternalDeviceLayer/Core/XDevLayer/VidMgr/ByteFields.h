// Numbers in the bytes of a block: little- and big-endian ones, and fields of bits. Private to the sources that read or
// write a block byte by byte. Reading asks for no alignment; a writer drops what is wider than its field.

#pragma once

namespace ByteFields
{
constexpr unsigned int ReadLittle16(const unsigned char* pui8Bytes)
{
    return (static_cast<unsigned int>(pui8Bytes[1]) << 8) | pui8Bytes[0];
}

constexpr unsigned int ReadLittle24(const unsigned char* pui8Bytes)
{
    return (static_cast<unsigned int>(pui8Bytes[2]) << 16) | ReadLittle16(pui8Bytes);
}

constexpr unsigned int ReadLittle32(const unsigned char* pui8Bytes)
{
    return (static_cast<unsigned int>(pui8Bytes[3]) << 24) | ReadLittle24(pui8Bytes);
}

constexpr unsigned int ReadBig16(const unsigned char* pui8Bytes)
{
    return (static_cast<unsigned int>(pui8Bytes[0]) << 8) | pui8Bytes[1];
}

constexpr unsigned char LowByte(unsigned int uiValue) { return static_cast<unsigned char>(uiValue & 0xFF); }

constexpr void WriteLittle16(unsigned char* pui8Bytes, unsigned int uiValue)
{
    pui8Bytes[0] = LowByte(uiValue);
    pui8Bytes[1] = LowByte(uiValue >> 8);
}

constexpr void WriteLittle24(unsigned char* pui8Bytes, unsigned int uiValue)
{
    WriteLittle16(pui8Bytes, uiValue);
    pui8Bytes[2] = LowByte(uiValue >> 16);
}

constexpr void WriteLittle32(unsigned char* pui8Bytes, unsigned int uiValue)
{
    WriteLittle24(pui8Bytes, uiValue);
    pui8Bytes[3] = LowByte(uiValue >> 24);
}

// Part of one byte: m_uiWidth bits from bit m_uiShift on. The byte counts from the pointer that is given. Writing keeps
// the other bits.
struct SBits
{
    unsigned int m_uiByte;
    unsigned int m_uiShift;
    unsigned int m_uiWidth; // 1 to 8

    constexpr unsigned int GetMask() const { return (1U << m_uiWidth) - 1; }

    constexpr unsigned int Read(const unsigned char* pui8Bytes) const
    {
        return (static_cast<unsigned int>(pui8Bytes[m_uiByte]) >> m_uiShift) & GetMask();
    }

    constexpr bool IsSet(const unsigned char* pui8Bytes) const { return Read(pui8Bytes) != 0; }

    constexpr void Write(unsigned char* pui8Bytes, unsigned int uiValue) const
    {
        const unsigned int uiKept = pui8Bytes[m_uiByte] & ~(GetMask() << m_uiShift);
        pui8Bytes[m_uiByte] = LowByte(uiKept | ((uiValue & GetMask()) << m_uiShift));
    }
};

// A number whose low bits and high bits stand in different bytes.
struct SSplitField
{
    SBits m_oLow;
    SBits m_oHigh;

    constexpr unsigned int Read(const unsigned char* pui8Bytes) const
    {
        return (m_oHigh.Read(pui8Bytes) << m_oLow.m_uiWidth) | m_oLow.Read(pui8Bytes);
    }

    constexpr void Write(unsigned char* pui8Bytes, unsigned int uiValue) const
    {
        m_oLow.Write(pui8Bytes, uiValue);
        m_oHigh.Write(pui8Bytes, uiValue >> m_oLow.m_uiWidth);
    }
};
} // namespace ByteFields

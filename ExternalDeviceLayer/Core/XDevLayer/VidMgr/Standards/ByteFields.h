// Little- and big-endian numbers in the bytes of a block, and their sum. Fields of bits are in Place.h. Private to the
// library. Reading needs no alignment; a writer drops what is wider than its field.

#pragma once

namespace ZorStandards
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

// A checksum makes this 0.
constexpr unsigned char SumOf(unsigned int uiSize, const unsigned char* pui8Data)
{
    unsigned int uiSum = 0;
    for (unsigned int i = 0; i < uiSize; ++i)
    {
        uiSum += pui8Data[i];
    }
    return LowByte(uiSum);
}
} // namespace ZorStandards

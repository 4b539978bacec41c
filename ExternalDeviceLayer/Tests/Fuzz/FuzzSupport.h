// What the fuzz targets share: taking numbers out of the input, repairing images, stopping at a broken promise.

#pragma once

#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

#include <algorithm>

#include "OsServices.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* pui8Data, size_t uiSize, size_t uiMaxSize);

// A finding that no sanitizer would see.
inline void Require(bool bHolds, const char* pszPromise)
{
    if (!bHolds)
    {
        fprintf(stderr, "broken promise: %s\n", pszPromise);
        abort();
    }
}

// Assertion lines are the normal answer to hostile bytes; they would drown the findings.
inline void SilenceMessages() { OsServices::SetMsgLevel(0, 0, 0); }

// Reads the input from front to end; behind the end it gives zeros.
class CInput
{
public:
    CInput(const uint8_t* pui8Data, size_t uiSize) : m_pui8Data(pui8Data), m_uiLeft(uiSize) {}

    bool IsEmpty() const { return m_uiLeft == 0; }

    unsigned int TakeByte()
    {
        if (m_uiLeft == 0)
        {
            return 0;
        }
        --m_uiLeft;
        return *m_pui8Data++;
    }

    // Little-endian.
    unsigned int Take16()
    {
        const unsigned int uiLow = TakeByte();
        return uiLow | TakeByte() << 8;
    }
    unsigned int Take32()
    {
        const unsigned int uiLow = Take16();
        return uiLow | Take16() << 16;
    }

    // Up to uiSize bytes where they lie; *puiTaken receives how many there were.
    const uint8_t* TakeBytes(size_t uiSize, size_t* puiTaken)
    {
        *puiTaken = std::min(uiSize, m_uiLeft);
        const uint8_t* pui8Bytes = m_pui8Data;
        m_pui8Data += *puiTaken;
        m_uiLeft -= *puiTaken;
        return pui8Bytes;
    }

private:
    const uint8_t* m_pui8Data;
    size_t m_uiLeft;
};

// Makes an image load as far as it can: the header, the section checksums of DisplayID blocks, the block checksums.
// Mutations alone would hardly ever get past those.
inline void RepairImage(uint8_t* pui8Image, size_t uiSize)
{
    constexpr size_t uiBlockSize = 128;
    constexpr uint8_t aui8Header[8] = { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00 };
    constexpr uint8_t ui8DisplayIdTag = 0x70;

    const auto Repair = [](uint8_t* pui8First, size_t uiChecksum) {
        unsigned int uiSum = 0;
        for (size_t i = 0; i < uiChecksum; ++i)
        {
            uiSum += pui8First[i];
        }
        pui8First[uiChecksum] = static_cast<uint8_t>(0U - uiSum);
    };
    for (size_t uiOffset = 0; uiOffset + uiBlockSize <= uiSize; uiOffset += uiBlockSize)
    {
        uint8_t* pui8Block = pui8Image + uiOffset;
        if (uiOffset == 0)
        {
            std::copy(aui8Header, aui8Header + sizeof(aui8Header), pui8Block);
        }
        else if (pui8Block[0] == ui8DisplayIdTag && pui8Block[2] <= 121)
        {
            Repair(pui8Block + 1, 4U + pui8Block[2]);
        }
        Repair(pui8Block, uiBlockSize - 1);
    }
}

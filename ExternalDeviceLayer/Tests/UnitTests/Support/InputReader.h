// Takes numbers and bytes out of arbitrary input: of the fuzz targets, and of tests that run a target's program.

#pragma once

#include <stddef.h>
#include <stdint.h>

#include <utility>

#include "TestBytes.h"

// Reads the input from front to end; past the end it gives zeros.
class CInput
{
public:
    CInput(const uint8_t* pui8Data, size_t uiSize) : m_pui8Next(pui8Data), m_pui8End(pui8Data + uiSize) {}

    bool IsEmpty() const { return m_pui8Next == m_pui8End; }
    // A number of that many bytes, little-endian.
    unsigned int Take(unsigned int uiBytes)
    {
        unsigned int uiNumber = 0;
        for (unsigned int i = 0; i < uiBytes && !IsEmpty(); ++i)
        {
            uiNumber |= static_cast<unsigned int>(*m_pui8Next++) << (8 * i);
        }
        return uiNumber;
    }

    CBytes TakeRest() { return CBytes(std::exchange(m_pui8Next, m_pui8End), m_pui8End); }

private:
    const uint8_t* m_pui8Next;
    const uint8_t* m_pui8End;
};

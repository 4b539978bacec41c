// What the functions of the C interface share: objects that know whether they have read, calls that let no exception
// out and print nothing, and texts on their way out. Private to this folder.

#pragma once

#include <limits.h>
#include <string.h>

#include "OsServices.h"
#include "Utf8.h"
#include "zoredid.h"
#include "ZorEdidMap.h"
#include "ZorMFCTypes.h"

// A map that answers by its own CZorEdidMap or, in a writer, by the writer's. Null: nothing was read.
struct zoredid_map
{
    CZorEdidMap m_oOwn;
    const CZorEdidMap* m_poMap = nullptr;
};

namespace ZorC
{
// A new object; null when memory runs out.
template <class OBJECT>
OBJECT* Create() noexcept
{
    try
    {
        return new OBJECT;
    }
    catch (...)
    {
        return nullptr;
    }
}

// The containers throw when memory runs out, and nothing else does.
template <class RUN>
zoredid_status Guard(const RUN& fnRun) noexcept
{
    const OsServices::CMsgPause oPause;
    try
    {
        return fnRun();
    }
    catch (...)
    {
        return ZOREDID_ERROR_MEMORY;
    }
}

// Reads bytes by fnRead(size, bytes), which gives 0 for too few of them.
template <class READ>
zoredid_status ReadBytes(const void* pvData, size_t uiSize, const READ& fnRead) noexcept
{
    if (pvData == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    if (uiSize > INT_MAX)
    {
        return ZOREDID_ERROR_SIZE;
    }
    return Guard([&] {
        const auto* pui8Data = static_cast<const unsigned char*>(pvData);
        return fnRead(static_cast<unsigned int>(uiSize), pui8Data) != 0 ? ZOREDID_OK : ZOREDID_ERROR_SIZE;
    });
}

// What an element of a list answers; NONE beyond the list.
template <class RESULT, class ELEMENT, class ANSWER>
RESULT Ask(const ELEMENT* poElement, RESULT oNone, const ANSWER& fnAnswer)
{
    return poElement != nullptr ? static_cast<RESULT>(fnAnswer(*poElement)) : oNone;
}

// The enumerations of C count from 1 where those of C++ count from 0.
template <class RESULT, class CODE>
constexpr RESULT CountFromOne(CODE eCode)
{
    return static_cast<RESULT>(static_cast<int>(eCode) + 1);
}

// An index that C++ has as 32 bits, all of them set for none.
inline size_t ToIndex(unsigned int uiIndex) { return uiIndex == CZorEdidMap::msc_uiNone ? ZOREDID_NONE : uiIndex; }

inline const char* GiveText(const char* pszText, size_t* puiLength)
{
    if (puiLength != nullptr)
    {
        *puiLength = pszText != nullptr ? strlen(pszText) : 0;
    }
    return pszText;
}

// A text that fnCopy() makes and copies into the buffer, and whose length it gives. Empty when memory runs out, and
// where there is none.
template <class COPY>
size_t GiveMade(bool bThere, char* pszBuffer, size_t uiSize, const COPY& fnCopy) noexcept
{
    size_t uiLength = CopyText("", 0, pszBuffer, uiSize);
    if (bThere)
    {
        Guard([&] {
            uiLength = fnCopy();
            return ZOREDID_OK;
        });
    }
    return uiLength;
}

inline const unsigned char* GiveBytes(const unsigned char* pui8Bytes, size_t uiBytes, size_t* puiLength)
{
    if (puiLength != nullptr)
    {
        *puiLength = pui8Bytes != nullptr ? uiBytes : 0;
    }
    return uiBytes != 0 ? pui8Bytes : nullptr;
}
} // namespace ZorC

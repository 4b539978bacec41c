// Good images that tests damage at named places.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <vector>

#include "TestBytes.h"

// The bytes from an offset in the image on become these.
struct SDamage
{
    size_t m_uiOffset;
    const char* m_pszBytes; // as ParseBytes takes them
};

inline CBytes WithDamages(CBytes aui8Image, const std::vector<SDamage>& aoDamages)
{
    for (const auto& [uiOffset, pszBytes] : aoDamages)
    {
        const CBytes aui8Bytes = ParseBytes(pszBytes);
        EXPECT_LE(uiOffset + aui8Bytes.size(), aui8Image.size());
        std::copy(aui8Bytes.begin(), aui8Bytes.end(), aui8Image.begin() + static_cast<std::ptrdiff_t>(uiOffset));
    }
    return aui8Image;
}

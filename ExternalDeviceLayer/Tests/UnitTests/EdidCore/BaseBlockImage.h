// A base block made by hand for the tests, with everything that is not named at a plain default; loading it, and a
// short name for a timing.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string>

#include "EdidBase.h"
#include "TestBytes.h"
#include "VidParamTiming.h"

// Published timings as descriptors: 148.5 MHz with an image of 60 by 34, and 74.25 MHz without an image size.
inline const CBytes gsc_aui8Timing1080p = { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58,
                                            0x2C, 0x45, 0x00, 0x3C, 0x22, 0x00, 0x00, 0x00, 0x1E };
inline const CBytes gsc_aui8Timing720p = { 0x01, 0x1D, 0x00, 0x72, 0x51, 0xD0, 0x1E, 0x20, 0x6E,
                                           0x28, 0x55, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1E };
inline const CBytes gsc_aui8Name = {
    0, 0, 0, 0xFC, 0, 'A', 'S', 'U', 'S', ' ', 'V', 'E', '2', '7', '6', 0x0A, ' ', ' '
};

// Bytes from an offset on.
struct SBytesAt
{
    size_t m_uiOffset;
    CBytes m_aui8Bytes;
};

// A digital 1.3 block of maker "ACI", product 0x27F4, without timings or texts, then these bytes and the checksum.
// Standard timings stand at 38, descriptors at 54, 72, 90 and 108.
inline CBytes MakeBase(std::initializer_list<SBytesAt> aoParts)
{
    CBytes aui8Base(gsc_uiBlockSize);
    const auto Set = [&](const SBytesAt& oPart) {
        std::copy(oPart.m_aui8Bytes.begin(), oPart.m_aui8Bytes.end(), aui8Base.data() + oPart.m_uiOffset);
    };
    Set({ 1, CBytes(6, 0xFF) });
    Set({ 8, { 0x04, 0x69, 0xF4, 0x27, 0x78, 0x56, 0x34, 0x12, 44, 21, 1, 3, 0x80, 60, 34, 0x78 } });
    Set({ 38, CBytes(16, 0x01) });
    for (const size_t uiDescriptor : { 54U, 72U, 90U, 108U })
    {
        Set({ uiDescriptor, { 0, 0, 0, 0x10 } });
    }
    std::for_each(aoParts.begin(), aoParts.end(), Set);
    return FixChecksums(aui8Base);
}

inline void Load(CEdidBase& oBase, const CBytes& aui8Data)
{
    EXPECT_EQ(1, oBase.SetEdidBuffer(aui8Data.data(), static_cast<unsigned int>(aui8Data.size()), 0));
}

// Loaded from the start.
class CLoadedBase : public CEdidBase
{
public:
    explicit CLoadedBase(const CBytes& aui8Data) { Load(*this, aui8Data); }
    explicit CLoadedBase(std::initializer_list<SBytesAt> aoParts) : CLoadedBase(MakeBase(aoParts)) {}
};

inline CBytes BytesOf(const CEdidBase& oBase, size_t uiOffset = 0, size_t uiSize = gsc_uiBlockSize)
{
    return CBytes(oBase.GetBaseBlock() + uiOffset, oBase.GetBaseBlock() + uiOffset + uiSize);
}

// "1920x1080@60": active pixels and lines, and the rate in whole Hz.
inline std::string NameOf(const CVidParamTiming& oTiming)
{
    return std::to_string(oTiming.GetHorizontalActive()) + "x" + std::to_string(oTiming.GetVerticalActive()) + "@" +
           std::to_string(oTiming.GetVerticalRateInHz());
}

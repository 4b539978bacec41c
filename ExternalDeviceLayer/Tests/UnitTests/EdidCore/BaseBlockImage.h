// A base block made by hand for the tests, with everything that is not named at a plain default; loading it, and a short
// name for a timing.

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "EdidBase.h"
#include "TestBytes.h"
#include "VidParamTiming.h"

using DescriptorBytes = std::array<unsigned char, 18>;

// Published timings as descriptors: 148.5 MHz with an image of 60 by 34, and 74.25 MHz without an image size.
inline constexpr DescriptorBytes gsc_aui8Timing1080p = { 0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58,
                                                         0x2C, 0x45, 0x00, 0x3C, 0x22, 0x00, 0x00, 0x00, 0x1E };
inline constexpr DescriptorBytes gsc_aui8Timing720p = { 0x01, 0x1D, 0x00, 0x72, 0x51, 0xD0, 0x1E, 0x20, 0x6E,
                                                        0x28, 0x55, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1E };
inline constexpr DescriptorBytes gsc_aui8Name = { 0x00, 0x00, 0x00, 0xFC, 0x00, 'A', 'S',  'U', 'S',
                                                  ' ',  'V',  'E',  '2',  '7',  '6', 0x0A, ' ', ' ' };

// Starts as a digital 1.3 block of maker "ACI", product 0x27F4, without timings or texts. Set before Get: the checksum
// follows the bytes.
class CBaseBlockImage
{
public:
    CBaseBlockImage() : m_aui8Data(gsc_uiBlockSize)
    {
        Set(0, { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00 });
        Set(8, { 0x04, 0x69, 0xF4, 0x27, 0x78, 0x56, 0x34, 0x12, 44, 21 });
        Version(1, 3);
        Set(20, { 0x80, 60, 34, 0x78, 0x00 });
        for (unsigned int ui = 0; ui < 8; ++ui)
        {
            Slot(ui, 0x01, 0x01);
        }
        for (unsigned int ui = 0; ui < 4; ++ui)
        {
            Descriptor(ui, { 0, 0, 0, 0x10 });
        }
    }

    CBaseBlockImage& Set(unsigned int uiOffset, const CBytes& aui8Bytes)
    {
        std::copy(aui8Bytes.begin(), aui8Bytes.end(), m_aui8Data.begin() + uiOffset);
        return *this;
    }
    CBaseBlockImage& Version(unsigned char ui8Version, unsigned char ui8Revision)
    {
        return Set(18, { ui8Version, ui8Revision });
    }
    CBaseBlockImage& Slot(unsigned int uiSlot, unsigned char ui8Code1, unsigned char ui8Code2)
    {
        return Set(38 + 2 * uiSlot, { ui8Code1, ui8Code2 });
    }
    // Bytes that are not given become zero.
    CBaseBlockImage& Descriptor(unsigned int uiDescriptor, const DescriptorBytes& aui8Bytes)
    {
        std::copy(aui8Bytes.begin(), aui8Bytes.end(), m_aui8Data.begin() + 54 + 18 * uiDescriptor);
        return *this;
    }

    CBytes Get() const { return FixChecksums(m_aui8Data); }
    // The same with a checksum that is off by one.
    CBytes GetWithWrongChecksum() const
    {
        CBytes aui8Data = Get();
        ++aui8Data[127];
        return aui8Data;
    }

private:
    CBytes m_aui8Data;
};

inline void Load(CEdidBase& oBase, const CBytes& aui8Data)
{
    EXPECT_EQ(1, oBase.SetEdidBuffer(aui8Data.data(), static_cast<unsigned int>(aui8Data.size()), 0));
}

// Loaded from the start.
class CLoadedBase : public CEdidBase
{
public:
    explicit CLoadedBase(const CBytes& aui8Data) { Load(*this, aui8Data); }
    explicit CLoadedBase(const CBaseBlockImage& oImage) : CLoadedBase(oImage.Get()) {}
};

// "1920x1080@60": active pixels and lines, and the rate in whole Hz.
inline std::string NameOf(const CVidParamTiming& oTiming)
{
    return std::to_string(oTiming.GetHorizontalActive()) + "x" + std::to_string(oTiming.GetVerticalActive()) + "@" +
           std::to_string(oTiming.GetVerticalRateInHz());
}

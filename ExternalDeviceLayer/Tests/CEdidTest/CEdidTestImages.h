// The EDID images of the self-check, one namespace for each suite. Tests, benchmarks and fuzz seeds use them too.
//
// Images of real monitors are here in full. Every other image is derived from one of them at compile time by the
// edits named beside it, so that a reader sees the change and not the bytes again. Offsets count from the first byte of
// the image; those in the extension block are written gsc_uiExt + OFFSET IN THE BLOCK.

#pragma once

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>

// A base block and one extension block.
using SEdidImage = std::array<unsigned char, 256>;

constexpr unsigned int gsc_uiImageBlockSize = 128;                       // bytes
constexpr unsigned int gsc_uiExt = gsc_uiImageBlockSize;                 // where the extension block begins
constexpr unsigned int gsc_uiBaseChecksum = gsc_uiImageBlockSize - 1;    // completes the sum of the base block
constexpr unsigned int gsc_uiExtChecksum = 2 * gsc_uiImageBlockSize - 1; // completes the sum of the extension
constexpr unsigned int gsc_uiDescriptorSize = 18;                        // bytes of a detailed timing

// ---- Making images. ----

// Named edits of an image, in a chain. All of it runs in the compiler, which refuses an offset outside the image.
class CEdidImageEdit
{
public:
    constexpr explicit CEdidImageEdit(const SEdidImage& aui8Image) : m_aui8Image(aui8Image) {}

    // The bytes at uiOffset become these.
    constexpr CEdidImageEdit& Set(unsigned int uiOffset, std::initializer_list<unsigned char> aui8Bytes)
    {
        for (unsigned char ui8Byte : aui8Bytes)
        {
            m_aui8Image.at(uiOffset++) = ui8Byte;
        }
        return *this;
    }

    constexpr CEdidImageEdit& SetZero(unsigned int uiOffset, unsigned int uiCount)
    {
        for (unsigned int i = 0; i < uiCount; ++i)
        {
            m_aui8Image.at(uiOffset + i) = 0;
        }
        return *this;
    }

    // In the extension block: the bytes after the gap move down, zeros come in before the checksum.
    constexpr CEdidImageEdit& TakeOut(unsigned int uiOffset, unsigned int uiCount)
    {
        for (unsigned int i = uiOffset; i < gsc_uiExtChecksum; ++i)
        {
            const bool bInside = i + uiCount < gsc_uiExtChecksum;
            m_aui8Image.at(i) = bInside ? m_aui8Image.at(i + uiCount) : static_cast<unsigned char>(0);
        }
        return *this;
    }

    // In the extension block: the bytes from uiOffset on move up, the last ones before the checksum drop off.
    constexpr CEdidImageEdit& PutIn(unsigned int uiOffset, std::initializer_list<unsigned char> aui8Bytes)
    {
        const unsigned int uiCount = static_cast<unsigned int>(aui8Bytes.size());
        for (unsigned int i = gsc_uiExtChecksum - 1; i >= uiOffset + uiCount; --i)
        {
            m_aui8Image.at(i) = m_aui8Image.at(i - uiCount);
        }
        return Set(uiOffset, aui8Bytes);
    }

    // The last byte of a block completes its sum to 0 modulo 256.
    constexpr CEdidImageEdit& FixBaseChecksum() { return FixChecksum(gsc_uiBaseChecksum); }
    constexpr CEdidImageEdit& FixExtChecksum() { return FixChecksum(gsc_uiExtChecksum); }

    // The second half becomes a copy of the first.
    constexpr CEdidImageEdit& RepeatBase()
    {
        for (unsigned int i = 0; i < gsc_uiImageBlockSize; ++i)
        {
            m_aui8Image.at(gsc_uiExt + i) = m_aui8Image.at(i);
        }
        return *this;
    }

    constexpr SEdidImage Get() const { return m_aui8Image; }

private:
    constexpr CEdidImageEdit& FixChecksum(unsigned int uiChecksum)
    {
        unsigned int uiSum = 0;
        for (unsigned int i = uiChecksum - gsc_uiBaseChecksum; i < uiChecksum; ++i)
        {
            uiSum += m_aui8Image.at(i);
        }
        m_aui8Image.at(uiChecksum) = static_cast<unsigned char>(0U - uiSum);
        return *this;
    }

    SEdidImage m_aui8Image;
};

// Declared only: a call stops the compiler.
void ImageDigitIsNot0To9OrAToF();

constexpr unsigned char ReadHexDigit(char cDigit)
{
    if (cDigit >= '0' && cDigit <= '9')
    {
        return static_cast<unsigned char>(cDigit - '0');
    }
    if (cDigit >= 'A' && cDigit <= 'F')
    {
        return static_cast<unsigned char>(cDigit - 'A' + 10);
    }
    ImageDigitIsNot0To9OrAToF();
    return 0;
}

// Two digits for each byte. A text of one block gives an image with zeros after it.
template <unsigned int uiTextSize>
consteval SEdidImage ReadHexImage(const char (&szDigits)[uiTextSize])
{
    static_assert(uiTextSize == 2 * gsc_uiImageBlockSize + 1 || uiTextSize == 4 * gsc_uiImageBlockSize + 1);
    SEdidImage aui8Image{};
    for (unsigned int i = 0; i < uiTextSize / 2; ++i)
    {
        const unsigned int uiHigh = ReadHexDigit(szDigits[2 * i]);
        aui8Image.at(i) = static_cast<unsigned char>(uiHigh << 4 | ReadHexDigit(szDigits[2 * i + 1]));
    }
    return aui8Image;
}

// Whether both halves sum to 0.
constexpr bool HasValidChecksums(const SEdidImage& aui8Image)
{
    unsigned int uiBase = 0;
    unsigned int uiExt = 0;
    for (unsigned int i = 0; i < gsc_uiImageBlockSize; ++i)
    {
        uiBase += aui8Image.at(i);
        uiExt += aui8Image.at(gsc_uiExt + i);
    }
    return uiBase % 256 == 0 && uiExt % 256 == 0;
}

// ---- Images of real monitors that several suites start from. ----

// LG Ultra HD, version 1.4: two detailed timings in the base block, two in a CTA-861 block at its offsets 17 and 35.
constexpr SEdidImage gsc_aui8LgUltraHd =
    ReadHexImage("00FFFFFFFFFFFF001E6D095BC51F0400011B0104B53C22789E3035A7554EA326"
                 "0F50542108007140818081C0A9C0D1C08100010101014DD000A0F0703E803020"
                 "650C58542100001A286800A0F0703E800890650C58542100001A000000FD0038"
                 "3D1E8738000A202020202020000000FC004C4720556C7472612048440A2001B7"
                 "0203117144900403012309070783010000023A801871382D40582C4500585421"
                 "00001E565E00A0A0A029503020350058542100001A0000000000000000000000"
                 "0000000000000000000000000000000000000000000000000000000000000000"
                 "00000000000000000000000000000000000000000000000000000000000000C8");
static_assert(HasValidChecksums(gsc_aui8LgUltraHd));

// Philips 288P6, version 1.4. Its CTA-861 block: video at offset 4, audio at 16, speakers at 20, HDMI vendor block at
// 24, four detailed timings from 35 on.
constexpr SEdidImage gsc_aui8Philips288P6 =
    ReadHexImage("00FFFFFFFFFFFF00410CD7086B00000016190104A53E22783A5525A1574FA028"
                 "0F5054BD4B00D1C081808140950F9500B30081C0010150D000A0F0703E803058"
                 "8A006D552100001A023A801871382D40582C45006D552100001E000000FC0050"
                 "68696C697073203238385036000000FD0017501EA03C010A20202020202001D6"
                 "020323F44B010203040590111213141F23090707830100006A030C0030000078"
                 "200000023A80D072382D40102C96806D5521000018023A801871382D40582C96"
                 "006D552100001804740030F2705A80B0588A006D552100001A011D00BC52D01E"
                 "20B82855406D552100001E000000000000000000000000000000000000000080");
static_assert(HasValidChecksums(gsc_aui8Philips288P6));

// ---- The suites' images. ----

namespace AsusHd
{
// ASUS VE276, version 1.3, with a CTA-861 block of revision 3.
constexpr SEdidImage g_auiAsusHdEdidData =
    ReadHexImage("00FFFFFFFFFFFF000469F4277F39020022140103803C22782AEED5A555489B26"
                 "125054B7EF00714F81C0814081809500B300D1C00101023A801871382D40582C"
                 "450056502100001E000000FF0041384C4D54463134353739310A000000FD0032"
                 "55185C11000A202020202020000000FC00415355532056453237360A20200112"
                 "020322714F0102031112130414050E0F1D1E1F10230907018301000065030C00"
                 "10008C0AD08A20E02D10103E9600092521000018011D007251D01E206E285500"
                 "09252100001E011D00BC52D01E20B828554009252100001E8C0AD09020403120"
                 "0C40550009252100001800000000000000000000000000000000000000000073");
static_assert(HasValidChecksums(g_auiAsusHdEdidData));
} // namespace AsusHd

namespace BaseStandard
{
// Standard slots 1, 2, 4 and 6 alone hold a timing; two kinds of empty pair are between them.
constexpr SEdidImage g_auiBaseStandardEdidData =
    CEdidImageEdit(AsusHd::g_auiAsusHdEdidData)
        .Set(35, { 0x37 })
        .Set(38, { 0x01, 0x00, 0x81, 0xC0, 0x81, 0x40, 0x01, 0x00, 0x95, 0x00, 0x01, 0x00, 0xD1, 0xC0, 0x01, 0x01 })
        .FixBaseChecksum()
        .Get();
static_assert(g_auiBaseStandardEdidData[gsc_uiBaseChecksum] == 0x03);
} // namespace BaseStandard

namespace BaseDetailed
{
constexpr SEdidImage g_auiDetailedEdidData = gsc_aui8LgUltraHd;
}

// Detailed timings of the two suites: in the base block at 54 and 72, in the extension at 17 and 35.
namespace ExtDetailed
{
constexpr SEdidImage g_auiDetailedEdidData = gsc_aui8LgUltraHd;

// The last timing of the extension removed.
constexpr SEdidImage g_auiDetailedEdidData1 =
    CEdidImageEdit(g_auiDetailedEdidData).SetZero(gsc_uiExt + 35, gsc_uiDescriptorSize).FixExtChecksum().Get();
static_assert(g_auiDetailedEdidData1[gsc_uiExtChecksum] == 0x41);

// The other one too; byte 2 of the block still says where it was.
constexpr SEdidImage g_auiDetailedEdidData2 =
    CEdidImageEdit(g_auiDetailedEdidData1).SetZero(gsc_uiExt + 17, gsc_uiDescriptorSize).FixExtChecksum().Get();
static_assert(g_auiDetailedEdidData2[gsc_uiExtChecksum] == 0xDF);

// The second timing of the base block emptied in place.
constexpr SEdidImage g_auiDetailedEdidData3 = CEdidImageEdit(g_auiDetailedEdidData2)
                                                  .SetZero(72, gsc_uiDescriptorSize)
                                                  .Set(72, { 0x00, 0x00, 0x00, 0x10 })
                                                  .FixBaseChecksum()
                                                  .Get();
static_assert(g_auiDetailedEdidData3[gsc_uiBaseChecksum] == 0xE5);
} // namespace ExtDetailed

namespace ExtDetailed2
{
constexpr SEdidImage g_auiDetailedEdidData = gsc_aui8LgUltraHd;

// The second timing of the base block emptied in place.
constexpr SEdidImage g_auiDetailedEdidData1 = CEdidImageEdit(g_auiDetailedEdidData)
                                                  .SetZero(72, gsc_uiDescriptorSize)
                                                  .Set(72, { 0x00, 0x00, 0x00, 0x10 })
                                                  .FixBaseChecksum()
                                                  .Get();
static_assert(g_auiDetailedEdidData1[gsc_uiBaseChecksum] == 0xE5);

// The first timing of the extension removed: the next one moves up.
constexpr SEdidImage g_auiDetailedEdidData2 =
    CEdidImageEdit(g_auiDetailedEdidData1).TakeOut(gsc_uiExt + 17, gsc_uiDescriptorSize).FixExtChecksum().Get();
static_assert(g_auiDetailedEdidData2[gsc_uiExtChecksum] == 0x66);

constexpr SEdidImage g_auiDetailedEdidData3 =
    CEdidImageEdit(g_auiDetailedEdidData2).SetZero(gsc_uiExt + 17, gsc_uiDescriptorSize).FixExtChecksum().Get();
static_assert(g_auiDetailedEdidData3[gsc_uiExtChecksum] == 0xDF);
} // namespace ExtDetailed2

namespace ExtStandard
{
// One byte short on purpose: the speaker block ends in 02, the byte that used to open the first detailed timing, and
// byte 2 of the extension still says 17, so that the detailed area starts one byte late. Byte 2 stays 17 below.
constexpr SEdidImage g_auiStandardEdidData = CEdidImageEdit(gsc_aui8LgUltraHd).TakeOut(gsc_uiExt + 16, 1).Get();
static_assert(g_auiStandardEdidData[gsc_uiExtChecksum] == 0xC8 && HasValidChecksums(g_auiStandardEdidData));

// The video data block 44 90 04 03 01 loses one code after the other: 16, 3, 4 and 1, and with the last its header.
constexpr SEdidImage g_auiStandardEdidData1 =
    CEdidImageEdit(g_auiStandardEdidData).TakeOut(gsc_uiExt + 5, 1).Set(gsc_uiExt + 4, { 0x43 }).FixExtChecksum().Get();
static_assert(g_auiStandardEdidData1[gsc_uiExtChecksum] == 0x59);

constexpr SEdidImage g_auiStandardEdidData2 = CEdidImageEdit(g_auiStandardEdidData1)
                                                  .TakeOut(gsc_uiExt + 6, 1)
                                                  .Set(gsc_uiExt + 4, { 0x42 })
                                                  .FixExtChecksum()
                                                  .Get();
static_assert(g_auiStandardEdidData2[gsc_uiExtChecksum] == 0x5D);

constexpr SEdidImage g_auiStandardEdidData3 = CEdidImageEdit(g_auiStandardEdidData2)
                                                  .TakeOut(gsc_uiExt + 5, 1)
                                                  .Set(gsc_uiExt + 4, { 0x41 })
                                                  .FixExtChecksum()
                                                  .Get();
static_assert(g_auiStandardEdidData3[gsc_uiExtChecksum] == 0x62);

constexpr SEdidImage g_auiStandardEdidData4 =
    CEdidImageEdit(g_auiStandardEdidData3).TakeOut(gsc_uiExt + 4, 2).FixExtChecksum().Get();
static_assert(g_auiStandardEdidData4[gsc_uiExtChecksum] == 0xA4);
} // namespace ExtStandard

namespace ExtStandard2
{
// A television monitor, version 1.3, whose HDMI vendor block names four HDMI modes.
constexpr SEdidImage g_auiStandard2EdidData =
    ReadHexImage("00FFFFFFFFFFFF0036743000010000000A160103807341780ACF74A3574CB023"
                 "09484C21080081804540614095000101010101010101023A801871382D40582C"
                 "4500C48E2100001E662150B051001B3040703600C48E2100001E000000FC0054"
                 "565F4D4F4E49544F520A2020000000FD00324B1E5017000A202020202020014C"
                 "02032EF24D010304050790121314169F2022260907071117508301000070030C"
                 "004000B84420A0820102030401418C0AD08A20E02D10103E9600C48E21000018"
                 "8C0AD090204031200C405500C48E21000018011D00BC52D01E20B8285540C48E"
                 "2100001E011D80D0721C1620102C2580C48E2100009E00000000000000000065");
static_assert(HasValidChecksums(g_auiStandard2EdidData));

// HDMI mode 3 (3840 x 2160 at 24) taken out of the vendor block, which closes the gap inside itself.
constexpr SEdidImage g_auiStandard2EdidData1 = CEdidImageEdit(g_auiStandard2EdidData)
                                                   .Set(gsc_uiExt + 39, { 0x62 })
                                                   .Set(gsc_uiExt + 42, { 0x04, 0x00 })
                                                   .FixExtChecksum()
                                                   .Get();
static_assert(g_auiStandard2EdidData1[gsc_uiExtChecksum] == 0x88);
} // namespace ExtStandard2

namespace ColorBitDepth
{
// Byte 20 is 0xA5: digital, 8 bits per colour, DisplayPort.
constexpr SEdidImage g_auiColorBitDepthEdidData = gsc_aui8Philips288P6;
static_assert(g_auiColorBitDepthEdidData[20] == 0xA5);

// The same as revision 3, which has no colour depth; byte 20 stays.
constexpr SEdidImage g_auiColorBitDepthEdidData1 =
    CEdidImageEdit(g_auiColorBitDepthEdidData).Set(19, { 3 }).SetZero(118, 8).FixBaseChecksum().Get();
static_assert(g_auiColorBitDepthEdidData1[gsc_uiBaseChecksum] == 0xA2);
} // namespace ColorBitDepth

namespace TimingsCompare
{
// DELL P2214H, version 1.4, without an extension block (byte 126 is 0): the second half is not looked at.
constexpr SEdidImage g_auiTimingsCompareEdidData =
    CEdidImageEdit(ReadHexImage("00FFFFFFFFFFFF0010AC97A04C4644321E190104A5301B783AEBF5A656519C26"
                                "105054A54B00714F8180A9C0D1C00101010101010101023A801871382D40582C"
                                "4500DD0C1100001E000000FF004B5731345635374F3244464C0A000000FC0044"
                                "454C4C205032323134480A20000000FD00384C1E5311000A202020202020004E"))
        .RepeatBase()
        .Get();
static_assert(HasValidChecksums(g_auiTimingsCompareEdidData) && g_auiTimingsCompareEdidData[126] == 0);

// A second unit of that model: other serial number, in numbers and in text.
constexpr SEdidImage g_auiTimingsCompareEdidData1 = CEdidImageEdit(g_auiTimingsCompareEdidData)
                                                        .Set(13, { 0x47, 0x50, 0x35 })
                                                        .Set(85, { 0x35, 0x50, 0x47 })
                                                        .FixBaseChecksum()
                                                        .RepeatBase()
                                                        .Get();
static_assert(g_auiTimingsCompareEdidData1[gsc_uiBaseChecksum] == 0x2E);
} // namespace TimingsCompare

namespace Audio
{
constexpr SEdidImage g_auiAudioOneBlockEdidData = gsc_aui8Philips288P6;

// Sampling frequencies of the one descriptor cut down to 3.
constexpr SEdidImage g_auiAudioFilteredEdidData =
    CEdidImageEdit(g_auiAudioOneBlockEdidData).Set(gsc_uiExt + 18, { 0x03 }).FixExtChecksum().Get();
static_assert(g_auiAudioFilteredEdidData[gsc_uiExtChecksum] == 0x84);

// The audio block taken out; byte 3 keeps its audio bit, as a speaker block stays.
constexpr SEdidImage g_auiAudioRemovedEdidData = CEdidImageEdit(g_auiAudioOneBlockEdidData)
                                                     .TakeOut(gsc_uiExt + 16, 4)
                                                     .Set(gsc_uiExt + 2, { 31 })
                                                     .FixExtChecksum()
                                                     .Get();
static_assert(g_auiAudioRemovedEdidData[gsc_uiExtChecksum] == 0xBE && g_auiAudioRemovedEdidData[gsc_uiExt + 3] == 0xF4);

// Without an audio block, and with a detailed area that starts one byte late (3A 80 D0 72) on purpose.
constexpr SEdidImage g_auiAudioNoBlockEdidData =
    CEdidImageEdit(g_auiAudioRemovedEdidData).TakeOut(gsc_uiExt + 31, 1).FixExtChecksum().Get();
static_assert(g_auiAudioNoBlockEdidData[gsc_uiExtChecksum] == 0xC0 && g_auiAudioNoBlockEdidData[gsc_uiExt + 2] == 31);

// A new audio block before that area.
constexpr SEdidImage g_auiAudioAddedEdidData = CEdidImageEdit(g_auiAudioNoBlockEdidData)
                                                   .PutIn(gsc_uiExt + 31, { 0x23, 0x09, 0x07, 0x07 })
                                                   .Set(gsc_uiExt + 2, { 35 })
                                                   .FixExtChecksum()
                                                   .Get();
static_assert(g_auiAudioAddedEdidData[gsc_uiExtChecksum] == 0x82);

// A second descriptor, of another format, in the audio block that is there.
constexpr SEdidImage g_auiAudioAddBlockEdidData = CEdidImageEdit(g_auiAudioOneBlockEdidData)
                                                      .PutIn(gsc_uiExt + 20, { 0x11, 0x07, 0x00 })
                                                      .Set(gsc_uiExt + 16, { 0x26 })
                                                      .Set(gsc_uiExt + 2, { 38 })
                                                      .FixExtChecksum()
                                                      .Get();
static_assert(g_auiAudioAddBlockEdidData[gsc_uiExtChecksum] == 0x62);

constexpr SEdidImage g_auiAudioAdd2EdidData = CEdidImageEdit(g_auiAudioOneBlockEdidData)
                                                  .PutIn(gsc_uiExt + 20, { 0x59, 0x07, 0x00 })
                                                  .Set(gsc_uiExt + 16, { 0x26 })
                                                  .Set(gsc_uiExt + 2, { 38 })
                                                  .FixExtChecksum()
                                                  .Get();
static_assert(g_auiAudioAdd2EdidData[gsc_uiExtChecksum] == 0x1A);

// That descriptor changed in place.
constexpr SEdidImage g_auiAudioSetEdidData =
    CEdidImageEdit(g_auiAudioAdd2EdidData).Set(gsc_uiExt + 20, { 0x11, 0x03 }).FixExtChecksum().Get();
static_assert(g_auiAudioSetEdidData[gsc_uiExtChecksum] == 0x66);

// One audio block that is full with ten descriptors, a speaker block, and the four detailed timings from offset 39 on.
// clang-format off
constexpr SEdidImage g_auiAudioTenEdidData =
    CEdidImageEdit(g_auiAudioOneBlockEdidData)
        .TakeOut(gsc_uiExt, 35) // down to the detailed timings
        .PutIn(gsc_uiExt, { 0x02, 0x03, 0x27, 0xF4,
                            0x3E, 0x09, 0x07, 0x07, 0x11, 0x00, 0x00, 0x19, 0x00, 0x00, 0x21, 0x00, 0x00, 0x29, 0x00, 0x00,
                                  0x31, 0x00, 0x00, 0x39, 0x00, 0x00, 0x41, 0x00, 0x00, 0x49, 0x00, 0x00, 0x51, 0x00, 0x00,
                            0x83, 0x01, 0x00, 0x00 })
        .FixExtChecksum()
        .Get();
// clang-format on
static_assert(g_auiAudioTenEdidData[gsc_uiExtChecksum] == 0x3C);

// The eleventh opens a new block after the last data block.
constexpr SEdidImage g_auiAudioElevenEdidData = CEdidImageEdit(g_auiAudioTenEdidData)
                                                    .PutIn(gsc_uiExt + 39, { 0x23, 0x59, 0x07, 0x00 })
                                                    .Set(gsc_uiExt + 2, { 43 })
                                                    .FixExtChecksum()
                                                    .Get();
static_assert(g_auiAudioElevenEdidData[gsc_uiExtChecksum] == 0xB5);

// DELL UP2414Q: no audio block, and five detailed timings that leave one byte free.
constexpr SEdidImage g_auiAudioFullEdidData =
    ReadHexImage("00FFFFFFFFFFFF0010AC9B404C3135330418010380351E78EA1DF5AE4F35B325"
                 "0D5054A54B008100B300D100714FA9408180D1C0010104740030F2705A80B058"
                 "8A000F282100001E000000FF0036583535433431503335314C0A000000FC0044"
                 "454C4C20555032343134510A000000FD001D4B1F8C1E000A202020202020016B"
                 "020323B15090050403020716010611121513141F206D030C001000383C200060"
                 "03020130750030F2705A80B0588A000F282100001E023A801871382D40582C25"
                 "000F282100001E011D8018711C1620582C25000F282100009E011D007251D01E"
                 "206E2855000F282100001E8C0AD08A20E02D10103E96000F28210000180000E6");
static_assert(HasValidChecksums(g_auiAudioFullEdidData));

// The last detailed timing made room for an audio block, which sets bit 6 of byte 3.
constexpr SEdidImage g_auiAudioFullAddedEdidData = CEdidImageEdit(g_auiAudioFullEdidData)
                                                       .SetZero(gsc_uiExt + 107, gsc_uiDescriptorSize)
                                                       .PutIn(gsc_uiExt + 35, { 0x23, 0x09, 0x07, 0x07 })
                                                       .Set(gsc_uiExt + 2, { 39, 0xF1 })
                                                       .FixExtChecksum()
                                                       .Get();
static_assert(g_auiAudioFullAddedEdidData[gsc_uiExtChecksum] == 0xE9);

// An LG television with one audio block of two descriptors.
constexpr SEdidImage g_auiAudioTwoDescriptorsEdidData =
    ReadHexImage("00FFFFFFFFFFFF001E6D01000101010101140103801009780AEE91A3544C9926"
                 "0F5054A10800714F8180010101010101010101010101023A801871382D40582C"
                 "4500A05A0000001E011D007251D01E206E285500A05A0000001E000000FD003A"
                 "3E1E5310000A202020202020000000FC004C472054560A2020202020202001D7"
                 "020326F14E101F8413051403021220212215012615075009570767030C001000"
                 "B82DE3050301011D8018711C1620582C2500A05A0000009E011D008051D00C20"
                 "40803500A05A0000001E023A801871382D40582C4500A05A0000001E662150B0"
                 "51001B3040703600A05A0000001E000000000000000000000000000000000039");
static_assert(HasValidChecksums(g_auiAudioTwoDescriptorsEdidData));
} // namespace Audio

// ---- All of them, each content once: for sweeps and seeds. ----

struct SNamedEdidImage
{
    const char* m_pszName; // fit for a file name
    const SEdidImage* m_paui8Image;
};

constexpr SNamedEdidImage gsc_aoEdidTestImages[] = {
    { "AsusHd", &AsusHd::g_auiAsusHdEdidData },
    { "BaseStandard", &BaseStandard::g_auiBaseStandardEdidData },
    { "ExtDetailed", &ExtDetailed::g_auiDetailedEdidData },
    { "ExtDetailed_1", &ExtDetailed::g_auiDetailedEdidData1 },
    { "ExtDetailed_2", &ExtDetailed::g_auiDetailedEdidData2 },
    { "ExtDetailed_3", &ExtDetailed::g_auiDetailedEdidData3 },
    { "ExtDetailed2_1", &ExtDetailed2::g_auiDetailedEdidData1 },
    { "ExtDetailed2_2", &ExtDetailed2::g_auiDetailedEdidData2 },
    { "ExtStandard", &ExtStandard::g_auiStandardEdidData },
    { "ExtStandard_1", &ExtStandard::g_auiStandardEdidData1 },
    { "ExtStandard_2", &ExtStandard::g_auiStandardEdidData2 },
    { "ExtStandard_3", &ExtStandard::g_auiStandardEdidData3 },
    { "ExtStandard_4", &ExtStandard::g_auiStandardEdidData4 },
    { "ExtStandard2", &ExtStandard2::g_auiStandard2EdidData },
    { "ExtStandard2_1", &ExtStandard2::g_auiStandard2EdidData1 },
    { "ColorBitDepth1", &ColorBitDepth::g_auiColorBitDepthEdidData1 },
    { "TimingsCompare", &TimingsCompare::g_auiTimingsCompareEdidData },
    { "TimingsCompare1", &TimingsCompare::g_auiTimingsCompareEdidData1 },
    { "AudioOneBlock", &Audio::g_auiAudioOneBlockEdidData },
    { "AudioFiltered", &Audio::g_auiAudioFilteredEdidData },
    { "AudioRemoved", &Audio::g_auiAudioRemovedEdidData },
    { "AudioNoBlock", &Audio::g_auiAudioNoBlockEdidData },
    { "AudioAdded", &Audio::g_auiAudioAddedEdidData },
    { "AudioAddBlock", &Audio::g_auiAudioAddBlockEdidData },
    { "AudioAdd2", &Audio::g_auiAudioAdd2EdidData },
    { "AudioSet", &Audio::g_auiAudioSetEdidData },
    { "AudioTen", &Audio::g_auiAudioTenEdidData },
    { "AudioEleven", &Audio::g_auiAudioElevenEdidData },
    { "AudioFull", &Audio::g_auiAudioFullEdidData },
    { "AudioFullAdded", &Audio::g_auiAudioFullAddedEdidData },
    { "AudioTwoDescriptors", &Audio::g_auiAudioTwoDescriptorsEdidData },
};

static_assert(std::all_of(std::begin(gsc_aoEdidTestImages), std::end(gsc_aoEdidTestImages),
                          [](const SNamedEdidImage& oImage) { return HasValidChecksums(*oImage.m_paui8Image); }),
              "no image is damaged");

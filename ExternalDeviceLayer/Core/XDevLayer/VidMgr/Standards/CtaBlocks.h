// The places of a CTA-861 extension block, and the one walk over data blocks, which are in DisplayID sections, too.
// Offsets are in bytes from the start of the block. Private to the library and the command.

#pragma once

#include "BaseBlock.h"

namespace ZorStandards::Cta
{
using ZorStandards::gsc_uiBlockSize;
using ZorStandards::gsc_uiChecksumOffset;

constexpr unsigned int gsc_uiTagOffset = 0;
constexpr unsigned int gsc_uiRevisionOffset = 1;
constexpr unsigned int gsc_uiDetailedStartOffset = 2; // this byte holds the offset of the first descriptor
constexpr unsigned int gsc_uiFlagsOffset = 3;
constexpr unsigned int gsc_uiDataBlocksOffset = 4;
constexpr unsigned int gsc_uiLastContentOffset = gsc_uiChecksumOffset - 1;

constexpr unsigned int gsc_uiTag = 2;
constexpr unsigned int gsc_uiHighestRevision = 3;
constexpr unsigned int gsc_uiDataBlocksRevision = 3; // the first one with data blocks

// Flags byte.
constexpr unsigned int gsc_uiBasicAudioFlag = 0x40;
constexpr unsigned int gsc_uiYuvFlags = 0x30;                        // YCbCr 4:4:4 and 4:2:2
constexpr SBitsPlace gsc_oNativeCount = { gsc_uiFlagsOffset, 3, 0 }; // of the image's detailed descriptors
constexpr unsigned int gsc_uiNativeCountRevision = 2;                // the first one with flags

// Header of a data block, one byte.
constexpr SBitsPlace gsc_oHeaderTag = { 0, 7, 5 };
constexpr SBitsPlace gsc_oHeaderLength = { 0, 4, 0 }; // of the payload
constexpr unsigned int gsc_uiHeaderSize = 1;
constexpr unsigned int gsc_uiMostPayload = gsc_oHeaderLength.GetMost();
constexpr unsigned int gsc_uiAudioTag = 1;
constexpr unsigned int gsc_uiVideoTag = 2;
constexpr unsigned int gsc_uiVendorTag = 3; // the payload begins with an OUI
constexpr unsigned int gsc_uiSpeakersTag = 4;
constexpr unsigned int gsc_uiVideoFormatTag = 6;
constexpr unsigned int gsc_uiExtendedTag = 7; // the first payload byte is the extended tag

// Extended tags.
constexpr unsigned int gsc_uiExtendedVideoCapability = 0;
constexpr unsigned int gsc_uiExtendedVendorVideo = 1; // the payload goes on with an OUI
constexpr unsigned int gsc_uiExtendedDisplayDevice = 2;
constexpr unsigned int gsc_uiExtendedColorimetry = 5;
constexpr unsigned int gsc_uiExtendedStaticHdr = 6;
constexpr unsigned int gsc_uiExtendedDynamicHdr = 7;
constexpr unsigned int gsc_uiExtendedNative = 8; // native video resolution
constexpr unsigned int gsc_uiExtendedPreference = 13;
constexpr unsigned int gsc_uiExtended420Video = 14;
constexpr unsigned int gsc_uiExtended420Map = 15;
constexpr unsigned int gsc_uiExtendedVendorAudio = 17; // the payload goes on with an OUI
constexpr unsigned int gsc_uiExtendedHdmiAudio = 18;
constexpr unsigned int gsc_uiExtendedType7 = 34;
constexpr unsigned int gsc_uiExtendedType8 = 35;
constexpr unsigned int gsc_uiExtendedType10 = 42;
constexpr unsigned int gsc_uiExtendedOverride = 120; // of the number of extension blocks, HDMI 2.1
constexpr unsigned int gsc_uiExtendedHdmiSink = 121;
constexpr unsigned int gsc_uiExtendedToneMapping = 122;
constexpr unsigned int gsc_uiOuiSize = 3;
inline constexpr SPlace gsc_oOui = Little24(0); // of the payload

// ---- The flags of byte 3, from revision 2 on ----

constexpr SPlace gsc_oUnderscan = Bit(3, 7);
constexpr SPlace gsc_oBasicAudio = Bit(3, 6);
constexpr SPlace gsc_oYCbCr444 = Bit(3, 5);
constexpr SPlace gsc_oYCbCr422 = Bit(3, 4);

// ---- Video Capability Data Block: CTA-861-H 7.5.6 ----

constexpr SPlace gsc_oQuantizationYcc = Bit(0, 7);
constexpr SPlace gsc_oQuantizationRgb = Bit(0, 6);
constexpr SPlace gsc_oPreferredScan = Bits(0, 5, 4);
constexpr SPlace gsc_oItScan = Bits(0, 3, 2);
constexpr SPlace gsc_oCeScan = Bits(0, 1, 0);

// ---- Native Video Resolution Data Block: CTA-861.6 ----

constexpr SPlace gsc_oNativeSizeInMillimetres = Bit(1, 7);
constexpr SPlace gsc_oNativeSizePresent = Bit(1, 0);
constexpr SPlace gsc_oNativeImageWidth = Little16(2);
constexpr SPlace gsc_oNativeImageHeight = Little16(4);

// ---- Video Format Data Block: CTA-861.6. The first byte of the payload, then descriptors of one to four bytes ----

constexpr SPlace gsc_oFormats420 = Bit(0, 7);
constexpr SPlace gsc_oFormatsNtsc = Bit(0, 6);     // rates that are multiples of 6 Hz come * 1000/1001 as well
constexpr SPlace gsc_oFormatsSize = Bits(0, 1, 0); // of a descriptor, minus 1

// A factor multiplies 25 Hz with BFR50, and 30 Hz with BFR60. Without byte 1 BFR60 and the factors 1 and 2 are meant.
constexpr SPlace gsc_oFormatBfr50 = Bit(0, 7);
constexpr SPlace gsc_oFormat24Hz = Bit(0, 6);
constexpr SPlace gsc_oFormatResolution = Bits(0, 5, 0);
constexpr SPlace gsc_oFormatBfr60 = Bit(1, 7);
constexpr SPlace gsc_oFormat144Hz = Bit(1, 6);
constexpr SPlace gsc_oFormat48Hz = Bit(2, 0);
struct SFormatFactor
{
    unsigned int m_uiFactor;
    SPlace m_oPlace;
};
constexpr SFormatFactor gsc_aoFormatFactors[] = { { 1, Bit(1, 0) }, { 2, Bit(1, 1) },  { 4, Bit(1, 2) },
                                                  { 8, Bit(1, 3) }, { 12, Bit(1, 4) }, { 16, Bit(1, 5) } };
constexpr unsigned int gsc_uiShortFormatFactors = 2; // the first ones

// ---- DisplayID timings: CTA-861-H 7.5.17. The first byte of the payload is the second one of a DisplayID header ----

constexpr SPlace gsc_oTimingMoreBytes = Bits(0, 6, 4); // of Types VII and X
constexpr SPlace gsc_oTimingRevision = Bits(0, 2, 0);
constexpr SPlace gsc_oTimingCodeType = Bits(0, 7, 6); // this and the next two of Type VIII
constexpr SPlace gsc_oTimingCodes420 = Bit(0, 5);
constexpr SPlace gsc_oTimingWideCodes = Bit(0, 3);

constexpr unsigned int gsc_uiDetailedSize = Descriptors::gsc_uiDescriptorSize;

// What a search looks for: data blocks of this tag or, with m_bExtended, of this extended tag.
struct SDataBlockKind
{
    unsigned int m_uiTag;
    bool m_bExtended;
};

// Of a data block, without the extended tag of an extended one. That of an empty data block has an offset, too.
struct SPayload
{
    unsigned int m_uiOffset; // 0 when not found
    unsigned int m_uiLength; // in bytes
};

// Goes from data block to data block. This is the only place that reads headers and holds their bounds: a data block
// begins before uiEnd and ends by uiLimit. One that would run past uiLimit ends the walk unread.
class CDataBlockWalk
{
public:
    // Offsets count from pui8Bytes. It may be null when uiEnd leaves no room for a data block.
    CDataBlockWalk(const unsigned char* pui8Bytes, unsigned int uiEnd, unsigned int uiFirst = gsc_uiDataBlocksOffset,
                   unsigned int uiLimit = gsc_uiChecksumOffset)
        : m_pui8Bytes(pui8Bytes), m_uiEnd(uiEnd < uiLimit ? uiEnd : uiLimit), m_uiAskedEnd(uiEnd), m_uiLimit(uiLimit),
          m_uiNext(uiFirst)
    {
    }

    // Each goes to the next data block, of any tag or of the kind given. After false the walk is over.
    bool Next()
    {
        if (m_uiNext >= m_uiEnd)
        {
            return false;
        }
        const unsigned char* pui8Header = m_pui8Bytes + m_uiNext;
        const unsigned int uiLength = gsc_oHeaderLength.Read(pui8Header);
        if (uiLength >= m_uiLimit - m_uiNext)
        {
            return false;
        }
        m_uiTag = gsc_oHeaderTag.Read(pui8Header);
        m_oPayload = { m_uiNext + gsc_uiHeaderSize, uiLength };
        m_uiNext = m_oPayload.m_uiOffset + uiLength;
        return true;
    }

    bool Next(const SDataBlockKind& oKind)
    {
        return oKind.m_bExtended ? NextExtended(oKind.m_uiTag) : NextOf(oKind.m_uiTag);
    }

    unsigned int GetTag() const { return m_uiTag; }
    const SPayload& GetPayload() const { return m_oPayload; }
    unsigned int GetLength() const { return m_oPayload.m_uiLength; }
    // Byte of the payload; the caller has compared the position with GetLength.
    unsigned char GetByte(unsigned int uiPosition) const { return m_pui8Bytes[m_oPayload.m_uiOffset + uiPosition]; }

    // Goes over the rest: whether the last data block ends exactly at uiEnd. Otherwise uiLimit cuts the next one off,
    // or the last one crosses uiEnd.
    bool EndsExactly()
    {
        while (Next())
        {
        }
        return m_uiNext == m_uiAskedEnd;
    }
    // After Next has returned false: goes to the data block that uiLimit cuts off, with what is left of its payload.
    // False when there is none, or it was the last one already.
    bool NextCut()
    {
        if (m_uiNext >= m_uiEnd)
        {
            return false;
        }
        m_uiTag = gsc_oHeaderTag.Read(m_pui8Bytes + m_uiNext);
        m_oPayload = { m_uiNext + gsc_uiHeaderSize, m_uiLimit - m_uiNext - gsc_uiHeaderSize };
        m_uiNext = m_uiLimit;
        m_bCut = true;
        return true;
    }
    bool IsCut() const { return m_bCut; }

private:
    bool NextOf(unsigned int uiTag)
    {
        while (Next())
        {
            if (m_uiTag == uiTag)
            {
                return true;
            }
        }
        return false;
    }

    // A data block without room for its extended tag ends the walk.
    bool NextExtended(unsigned int uiExtendedTag)
    {
        while (NextOf(gsc_uiExtendedTag))
        {
            if (m_oPayload.m_uiLength == 0)
            {
                return false;
            }
            if (GetByte(0) == uiExtendedTag)
            {
                ++m_oPayload.m_uiOffset;
                --m_oPayload.m_uiLength;
                return true;
            }
        }
        return false;
    }

    const unsigned char* m_pui8Bytes;
    unsigned int m_uiEnd;
    unsigned int m_uiAskedEnd;
    unsigned int m_uiLimit;
    unsigned int m_uiNext; // offset of the header that Next looks at
    unsigned int m_uiTag = 0;
    bool m_bCut = false;
    SPayload m_oPayload = { 0, 0 };
};

// The data block collection of a CTA-861 block of which uiSize bytes are there, as far as it is there; of length 0 when
// there is none.
constexpr SPayload FindCollection(const unsigned char* pui8Block, unsigned int uiSize)
{
    if (uiSize < gsc_uiDataBlocksOffset || pui8Block[gsc_uiTagOffset] != gsc_uiTag ||
        pui8Block[gsc_uiRevisionOffset] < gsc_uiDataBlocksRevision)
    {
        return { 0, 0 };
    }
    const unsigned int uiStart = pui8Block[gsc_uiDetailedStartOffset];
    if (uiStart < gsc_uiDataBlocksOffset || uiStart >= gsc_uiBlockSize)
    {
        return { 0, 0 };
    }
    return { gsc_uiDataBlocksOffset, (uiStart < uiSize ? uiStart : uiSize) - gsc_uiDataBlocksOffset };
}

// Calls fnVisit(offset in the collection, byte) for the bytes of its video data blocks. The last data block may be cut
// short.
template <class VISIT>
void ForEachVideoByte(const unsigned char* pui8Collection, unsigned int uiSize, VISIT fnVisit)
{
    CDataBlockWalk oWalk(pui8Collection, uiSize, 0, uiSize);
    while (oWalk.Next() || oWalk.NextCut())
    {
        for (unsigned int i = 0; oWalk.GetTag() == gsc_uiVideoTag && i < oWalk.GetLength(); ++i)
        {
            fnVisit(oWalk.GetPayload().m_uiOffset + i, oWalk.GetByte(i));
        }
    }
}

// Where the data blocks end; the same as their start when there are none. May lie past the block.
constexpr unsigned int GetDataBlocksEnd(unsigned int uiRevision, unsigned int uiDetailedStart)
{
    return uiRevision < gsc_uiDataBlocksRevision || uiDetailedStart < gsc_uiDataBlocksOffset ? gsc_uiDataBlocksOffset
                                                                                             : uiDetailedStart;
}
} // namespace ZorStandards::Cta

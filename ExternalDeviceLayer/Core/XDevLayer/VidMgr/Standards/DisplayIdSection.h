// The places of a DisplayID extension block and of its timings, and the one walk over data blocks. Offsets are in bytes
// from the start of what a comment names. Private to the library and the command.

#pragma once

#include "BaseBlock.h"

namespace ZorStandards::DisplayId
{
constexpr unsigned int gsc_uiTag = 0x70;

// From the start of the extension block. The section begins with its version and ends with its checksum.
constexpr unsigned int gsc_uiSectionOffset = 1;
constexpr unsigned int gsc_uiVersionOffset = 1;       // version in bits 7 to 4, revision in bits 3 to 0
constexpr unsigned int gsc_uiSectionLengthOffset = 2; // this byte holds the number of bytes of data blocks
constexpr unsigned int gsc_uiProductTypeOffset = 3;
constexpr unsigned int gsc_uiExtensionCountOffset = 4;
constexpr unsigned int gsc_uiDataBlocksOffset = 5;
constexpr unsigned int gsc_uiMostDataBytes = gsc_uiChecksumOffset - gsc_uiDataBlocksOffset - 1;
// Bytes of a section besides its data blocks. It begins at offset 1, so the sum with their number is the section's size
// and the offset of its checksum.
constexpr unsigned int gsc_uiSectionOverhead = 5;
constexpr unsigned int gsc_uiHighestVersion = 0x12;   // that the classes read
constexpr unsigned int gsc_uiHighestMajorVersion = 2; // published

// Of the version byte; a reader outside the block takes 0.
constexpr unsigned int GetMajorVersion(unsigned int uiVersion) { return uiVersion >> 4; }

constexpr unsigned int GetSectionSize(const unsigned char* pui8Block)
{
    return pui8Block[gsc_uiSectionLengthOffset] + gsc_uiSectionOverhead;
}

// Header of a data block.
constexpr unsigned int gsc_uiHeaderSize = 3;
constexpr unsigned int gsc_uiHeaderLengthOffset = 2; // of the payload
constexpr SBitsPlace gsc_oHeaderRevision = { 1, 2, 0 };

// Goes from data block to data block. One begins before uiEnd and may end past uiLimit, which cuts it short. Three zero
// bytes, or fewer bytes than a header has, are filler and end the walk.
class CDataBlockWalk
{
public:
    // Offsets count from pui8Bytes.
    CDataBlockWalk(const unsigned char* pui8Bytes, unsigned int uiFirst, unsigned int uiEnd, unsigned int uiLimit)
        : m_pui8Bytes(pui8Bytes), m_uiEnd(uiEnd), m_uiLimit(uiLimit), m_uiNext(uiFirst)
    {
    }

    bool Next()
    {
        if (m_uiNext >= m_uiEnd || m_uiLimit - m_uiNext < gsc_uiHeaderSize)
        {
            return false;
        }
        const unsigned char* pui8Header = m_pui8Bytes + m_uiNext;
        if ((pui8Header[0] | pui8Header[1] | pui8Header[2]) == 0)
        {
            return false;
        }
        m_uiHeader = m_uiNext;
        const unsigned int uiRoom = m_uiLimit - m_uiHeader - gsc_uiHeaderSize;
        const unsigned int uiDeclared = pui8Header[gsc_uiHeaderLengthOffset];
        m_bCut = uiDeclared > uiRoom;
        m_uiNext += gsc_uiHeaderSize + (m_bCut ? uiRoom : uiDeclared);
        return true;
    }

    const unsigned char* GetHeader() const { return m_pui8Bytes + m_uiHeader; }
    unsigned int GetOffset() const { return m_uiHeader; }
    // Header included, as far as it is there.
    unsigned int GetSize() const { return m_uiNext - m_uiHeader; }
    unsigned int GetTag() const { return GetHeader()[0]; }
    bool IsCut() const { return m_bCut; }
    // After Next has returned false: where the filler begins.
    unsigned int GetEnd() const { return m_uiNext; }

private:
    const unsigned char* m_pui8Bytes;
    unsigned int m_uiEnd;
    unsigned int m_uiLimit;
    unsigned int m_uiNext;
    unsigned int m_uiHeader = 0;
    bool m_bCut = false;
};

// ---- Tags of data blocks with timings ----

constexpr unsigned int gsc_uiType1Tag = 0x03;
constexpr unsigned int gsc_uiType2Tag = 0x04;
constexpr unsigned int gsc_uiType3Tag = 0x05;
constexpr unsigned int gsc_uiType4Tag = 0x06;
constexpr unsigned int gsc_uiDmtBitsTag = 0x07; // a bit a mode, from bit 0 of the first byte on
constexpr unsigned int gsc_uiVicBitsTag = 0x08;
constexpr unsigned int gsc_uiType5Tag = 0x11;
constexpr unsigned int gsc_uiType6Tag = 0x13;
constexpr unsigned int gsc_uiType7Tag = 0x22;
constexpr unsigned int gsc_uiType8Tag = 0x23;
constexpr unsigned int gsc_uiType9Tag = 0x24;
constexpr unsigned int gsc_uiType10Tag = 0x2A;
constexpr unsigned int gsc_uiCtaTag = 0x81; // data blocks of CTA-861

// Of Types IV and VIII, in the header: what the codes are, their size.
constexpr SPlace gsc_oCodeType = Bits(1, 7, 6);
constexpr SPlace gsc_oCodes420 = Bit(1, 5);
constexpr SPlace gsc_oWideCodes = Bit(1, 3); // two bytes
enum ECodeType : unsigned int
{
    eCodeType_Dmt,
    eCodeType_Vic,
    eCodeType_HdmiVic
};

// Bytes of the records of the types that are no codes.
constexpr unsigned int gsc_uiType3Size = 3;
constexpr unsigned int gsc_uiType5Size = 7;
constexpr unsigned int gsc_uiType6LongSize = 17; // with aspect ratio and size
constexpr SPlace gsc_oType6IsLong = Bit(2, 6);
constexpr unsigned int gsc_uiType9Size = 6;
constexpr unsigned int gsc_uiType10Size = 6;
constexpr SPlace gsc_oMoreTimingBytes = Bits(1, 6, 4); // of the header: of each record of Types VII and X

// ---- A tile declaration, from the start of its payload. Counts and sizes are stored minus 1 ----

inline constexpr unsigned int gsc_uiTiledTopologySize = 22;
inline constexpr SPlace gsc_oSingleEnclosure = Bit(0, 7);
inline constexpr SPlace gsc_oBezelInfo = Bit(0, 6);
inline constexpr SPlace gsc_oMultiTileBehaviour = Bits(0, 4, 3);
inline constexpr SPlace gsc_oSingleTileBehaviour = Bits(0, 2, 0);
inline constexpr SPlace gsc_oTileCountX = Split({ { 3, 7, 6 }, { 1, 7, 4 } });
inline constexpr SPlace gsc_oTileCountY = Split({ { 3, 5, 4 }, { 1, 3, 0 } });
inline constexpr SPlace gsc_oTileLocationX = Split({ { 3, 3, 2 }, { 2, 7, 4 } });
inline constexpr SPlace gsc_oTileLocationY = Split({ { 3, 1, 0 }, { 2, 3, 0 } });
inline constexpr SPlace gsc_oTileWidth = Little16(4);      // pixels
inline constexpr SPlace gsc_oTileHeight = Little16(6);     // lines
inline constexpr unsigned int gsc_uiTileVendorOffset = 13; // three letters, in DisplayID 2.0 an OUI
inline constexpr SPlace gsc_oTileProduct = Little16(16);
inline constexpr SPlace gsc_oTileSerial = Little32(18);

// ---- Detailed timings, from the start of a record. A field holds its value minus 1, in the unit given ----

struct STimingPlaces
{
    unsigned int m_uiSize;          // of a record
    unsigned int m_uiClockInKiloHz; // the units
    unsigned int m_uiPixels;
    SPlace m_oClock;
    SPlace m_oInterlaced;
    SPlace m_oHorizontalActive;
    SPlace m_oHorizontalBlank;
    SPlace m_oHorizontalFrontPorch;
    SPlace m_oHorizontalSync;
    SPlace m_oHorizontalPositive;
    SPlace m_oVerticalActive; // lines
    SPlace m_oVerticalBlank;
    SPlace m_oVerticalFrontPorch;
    SPlace m_oVerticalSync;
    SPlace m_oVerticalPositive;
};

constexpr STimingPlaces LongTimingPlaces(unsigned int uiClockInKiloHz)
{
    return { 20,
             uiClockInKiloHz,
             1,
             Little24(0),
             Bit(3, 4),
             Little16(4),
             Little16(6),
             Split({ { 9, 6, 0 }, { 8, 7, 0 } }),
             Little16(10),
             Bit(9, 7),
             Little16(12),
             Little16(14),
             Split({ { 17, 6, 0 }, { 16, 7, 0 } }),
             Little16(18),
             Bit(17, 7) };
}

inline constexpr STimingPlaces gsc_oType1 = LongTimingPlaces(10);
inline constexpr STimingPlaces gsc_oType7 = LongTimingPlaces(1);

inline constexpr STimingPlaces gsc_oType2 = { 11,
                                              10,
                                              8,
                                              Little24(0),
                                              Bit(3, 4),
                                              Split({ { 5, 0, 0 }, { 4, 7, 0 } }),
                                              Bits(5, 7, 1),
                                              Bits(6, 7, 4),
                                              Bits(6, 3, 0),
                                              Bit(3, 3),
                                              Split({ { 8, 3, 0 }, { 7, 7, 0 } }),
                                              Byte(9),
                                              Bits(10, 7, 4),
                                              Bits(10, 3, 0),
                                              Bit(3, 2) };

inline constexpr STimingPlaces gsc_oType6 = { 14, // or 17, with aspect ratio and size
                                              1,
                                              1,
                                              Split({ { 2, 5, 0 }, { 1, 7, 0 }, { 0, 7, 0 } }),
                                              Bit(13, 7),
                                              Split({ { 4, 5, 0 }, { 3, 7, 0 } }),
                                              Split({ { 9, 3, 0 }, { 7, 7, 0 } }),
                                              Split({ { 9, 7, 4 }, { 8, 7, 0 } }),
                                              Byte(10),
                                              Bit(4, 7),
                                              Split({ { 6, 5, 0 }, { 5, 7, 0 } }),
                                              Byte(11),
                                              Byte(12),
                                              Bits(13, 3, 0),
                                              Bit(6, 7) };

// ---- Flags of timings, from the start of a record; a place that a type does not have is empty ----

struct STimingFlags
{
    SPlace m_oPreferred = {};
    SPlace m_oY420 = {};
    SPlace m_oStereo = {};
    SPlace m_oAspect = {};   // a code
    SPlace m_oFraction = {}; // the rate * 1000/1001 as well
};

inline constexpr STimingFlags gsc_oFlags1 = { Bit(3, 7), {}, Bits(3, 6, 5), Bits(3, 3, 0), {} };
inline constexpr STimingFlags gsc_oFlags2 = { Bit(3, 7), {}, Bits(3, 6, 5), {}, {} };
inline constexpr STimingFlags gsc_oFlags3 = { Bit(0, 7), {}, {}, Bits(0, 3, 0), {} };
inline constexpr STimingFlags gsc_oFlags5 = { Bit(0, 7), {}, Bits(0, 6, 5), {}, Bit(0, 4) };
inline constexpr STimingFlags gsc_oFlags6 = { Bit(2, 7), {}, Bits(13, 6, 5), {}, {} };
inline constexpr STimingFlags gsc_oFlags7 = gsc_oFlags1;
inline constexpr STimingFlags gsc_oFlags7Revision2 = { {}, Bit(3, 7), Bits(3, 6, 5), Bits(3, 3, 0), {} };
inline constexpr STimingFlags gsc_oFlags9 = { {}, {}, Bits(0, 6, 5), {}, Bit(0, 4) };
inline constexpr STimingFlags gsc_oFlags10 = {
    {}, Bit(0, 7), Bits(0, 6, 5), {}, Bit(0, 4)
}; // the rate only with formula 2

// ---- Short timings and timings by formula, from the start of a record. Sizes and rates are stored minus 1 ----

inline constexpr SPlace gsc_oType3Formula = Bits(0, 6, 4);
inline constexpr SPlace gsc_oType3Width = Byte(1); // 8 pixels
inline constexpr SPlace gsc_oType3Interlaced = Bit(2, 7);
inline constexpr SPlace gsc_oType3Rate = Bits(2, 6, 0); // Hz

struct SFormulaPlaces
{
    SPlace m_oFormula;
    SPlace m_oWidth;  // pixels
    SPlace m_oHeight; // lines
    SPlace m_oRate;   // Hz
};
inline constexpr SFormulaPlaces gsc_oType5 = { Bits(0, 1, 0), Little16(2), Little16(4), Byte(6) };
inline constexpr SFormulaPlaces gsc_oType9 = { Bits(0, 2, 0), Little16(1), Little16(3), Byte(5) };
inline constexpr SFormulaPlaces gsc_oType10 = gsc_oType9;

// Of Type X in records of 7 bytes and more.
inline constexpr unsigned int gsc_uiType10WideSize = 7;
inline constexpr SPlace gsc_oType10WideRate = Split({ { 6, 1, 0 }, { 5, 7, 0 } });

// Of Type X with formula 3, CVT reduced blanking v3.
inline constexpr SPlace gsc_oBlankFrom160 = Bit(0, 4); // pixels; from 80 when clear
inline constexpr SPlace gsc_oEarlySync = Bit(0, 3);
inline constexpr SPlace gsc_oBlankSteps = Bits(6, 4, 2);
inline constexpr SPlace gsc_oMoreBlankTime = Bits(6, 7, 5); // vertical, in steps
inline constexpr SPlace gsc_oLeastBlankOf300 = Bit(7, 0);   // us; 460 when clear
} // namespace ZorStandards::DisplayId

// CHdmi1xVsdb: a view over the payload of one HDMI 1.x vendor-specific data block, read and edited in place.
//
// Short-lived: built on the stack within one operation of the CTA-861 block, over bytes that the block owns. It must
// not outlive them, and nothing else may move them meanwhile. It knows only the payload: the header of the data block,
// byte 2 and the checksum are the caller's.
//
// The constructor, ExtractTimings and RemoveCea861Vic take memory. When it runs out, the constructor frees what it
// took and ExtractTimings keeps the old list; RemoveCea861Vic has then changed the bytes or not begun, and the list may
// be out of date: the caller puts the bytes back.
//
// The payload begins with the OUI; Standards/HdmiBlocks.h has what follows: fields, HDMI VICs of one byte each, then
// the 3D data.

#pragma once

#include "ZorMFCTypes.h"

namespace ZorCore
{
class CHdmi1xVsdb
{
public:
    // Takes the payload, not a copy of it: uiLength bytes at pui8Payload, owned by the caller. What IsSupported refuses
    // gives a view without VICs.
    CHdmi1xVsdb(unsigned int uiLength, unsigned char* pui8Payload);
    virtual ~CHdmi1xVsdb();

    CHdmi1xVsdb(const CHdmi1xVsdb&) = delete;
    CHdmi1xVsdb& operator=(const CHdmi1xVsdb&) = delete;
    CHdmi1xVsdb(CHdmi1xVsdb&&) = delete;
    CHdmi1xVsdb& operator=(CHdmi1xVsdb&&) = delete;

    // Non-zero for at least 8 payload bytes that begin with the HDMI identifier. Fewer bytes give 0; more than 31 or a
    // null payload report an assertion failure and give 0.
    static int IsSupported(unsigned int uiLength, const unsigned char* pui8Payload);

    // Lists the HDMI VICs as VICs of CTA-861, in block order; unknown ones are passed over. A VIC count that runs past
    // the payload gives no VICs at all. Returns the count of the list.
    unsigned int ExtractTimings();
    // The CTA-861 VIC at this index of the list; 0 at and above its end.
    unsigned int EnumCea861Vic(unsigned int uiIndex) const;
    // Takes the first HDMI VIC of this VIC out of the bytes and closes the gap in the VIC list; the 3D data
    // stays in its place. 1 when one was removed, else 0 with no byte changed.
    int RemoveCea861Vic(unsigned int uiVic);

    // Where the HDMI VICs of a payload are, for a reader that wants no list of them; offsets from its first byte. All
    // 0 when the video fields are absent or do not lie whole in the payload, and a count of 0 when the VICs do not. A
    // load that made views took 2 % more instructions, and memory.
    struct SVics
    {
        unsigned int m_uiVideoOffset; // of the byte at offset o
        unsigned int m_uiVicsOffset;
        unsigned int m_uiCount;
    };
    static SVics FindVics(unsigned int uiLength, const unsigned char* pui8Payload);

    // Takes video code number uiPosition out of the 3D fields, which name the first 16 codes of the video data blocks
    // by their places: its bit in 3D_MASK and its entries go, those of later codes move down by one, and the bytes
    // after them close up. uiCodes is the number of codes, this one included. uiFreed becomes the number of bytes, now
    // zero, that are free at the end of the payload. 0 with no byte changed when the fields do not lie whole in the
    // payload or break off, for a reserved 3D_Multi_present, and when all of the first 16 codes are in 3D and a 17th
    // would become one of them.
    static int RemoveFrom3d(unsigned int uiLength, unsigned char* pui8Payload, unsigned int uiPosition,
                            unsigned int uiCodes, unsigned int& uiFreed);

    // HDMI VIC 1 to 4 to the VIC of CTA-861. Other values give 0 and leave ui8CeaVic.
    static int ConvertHdmiVicToCeaVic(unsigned char ui8HdmiVic, unsigned char& ui8CeaVic);

    // Deep colour support. Bit 0: 30-bit, bit 1: 36-bit, bit 2: 48-bit. A null payload, or one too short for the byte,
    // reports an assertion failure and gives 0 (with uiBits 0).
    int GetColorBitDepthSupport(unsigned int& uiBits);
    int SetColorBitDepthSupport(unsigned int uiBits);

private:
    unsigned char* m_pui8Payload;
    CMArray<unsigned char, const unsigned char&> m_aui8CeaVic;
    unsigned int m_uiPayloadLength;
};
} // namespace ZorCore

using ZorCore::CHdmi1xVsdb;

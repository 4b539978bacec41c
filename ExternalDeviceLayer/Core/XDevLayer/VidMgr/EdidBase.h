/// The base block: the first 128 bytes of an EDID (VESA E-EDID standard, versions 1.x), held by value.
///
///   offset  size  content
///        0     8  header, EDID_V1_HEADER
///        8     2  manufacturer, big-endian: three letters of 5 bits, 1 is 'A'
///       10     2  product code, little-endian
///       12     4  serial number, little-endian
///    16, 17  1 each  week of manufacture, year minus 1990
///    18, 19  1 each  version, revision
///       20     1  video input: bit 7 digital; from 1.4 on bits 6 to 4 colour depth, bits 3 to 0 interface
///    21, 22  1 each  image width and height in centimetres
///       23     1  gamma
///       24     1  feature support: bit 1 preferred timing
///       25    10  colour characteristics
///       35     3  established timings, one bit each
///       38    16  eight standard timings of two bytes
///       54    72  four descriptors of 18 bytes: a detailed timing or, with bytes 0, 1, 2 and 4 zero, a display
///                 descriptor with its tag in byte 3
///      126     1  number of extension blocks
///      127     1  checksum, the block sums to 0 modulo 256
///
/// Results are 1 or non-zero for success and 0 for a refusal, which changes no byte; only a refused SetEdidBuffer
/// empties the object. Every operation that changes a loaded block leaves its checksum right, except the two
/// established setters on request. SetSerialNumber and the established setters also write into an empty object, whose
/// checksum byte stays 0. An object belongs to one thread at a time. Outputs are the caller's.
///
/// Only SetEdidBuffer, ExtractStandardTimings and RemoveStandard take memory. When it runs out, the bytes are those of
/// a success and the list of usable slots may be short; ExtractStandardTimings or another load corrects it.

#pragma once

#include "EdidUtils.h"
#include "TimingOrigin.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

class CVidParamTiming;

inline constexpr unsigned char EDID_V1_HEADER[8] = { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00 };

class CEdidBase
{
public:
    struct SRangeLimits
    {
        unsigned int m_uiMinVerticalRateInHz;
        unsigned int m_uiMaxVerticalRateInHz;
        unsigned int m_uiMinHorizontalRateInKiloHz;
        unsigned int m_uiMaxHorizontalRateInKiloHz;
        unsigned int m_uiMinPixelClockInKiloHz; ///< always 0: the descriptor has no lower limit
        unsigned int m_uiMaxPixelClockInKiloHz;
    };

    /// Bits per colour, as stored in bits 6 to 4 of the video input byte.
    enum EColorBitDepth : unsigned int
    {
        eColorBitDepthUndefined = 0,
        eColorBitDepth6 = 1,
        eColorBitDepth8 = 2,
        eColorBitDepth10 = 3,
        eColorBitDepth12 = 4,
        eColorBitDepth14 = 5,
        eColorBitDepth16 = 6,
        eColorBitDepthReserved = 7, ///< also what a refused GetColorBitDepth stores
    };

    /// Bits 3 to 0 of the video input byte; 6 means every pattern above 5.
    enum EDigitalInterface : unsigned int
    {
        eDigitalInterfaceNotDefined = 0,
        eDigitalInterfaceDvi = 1,
        eDigitalInterfaceHdmiA = 2,
        eDigitalInterfaceHdmiB = 3,
        eDigitalInterfaceMddi = 4,
        eDigitalInterfaceDisplayPort = 5,
        eDigitalInterfaceReserved = 6,
    };

    /// One established timing, by its bit in byte 37 << 16 | byte 36 << 8 | byte 35. The standard's order, which is
    /// the order of the list walk.
    enum EEstablishedTiming : unsigned int
    {
        eEstablished720x400At70 = 0x80,
        eEstablished720x400At88 = 0x40,
        eEstablished640x480At60 = 0x20,
        eEstablished640x480At67 = 0x10,
        eEstablished640x480At72 = 0x08,
        eEstablished640x480At75 = 0x04,
        eEstablished800x600At56 = 0x02,
        eEstablished800x600At60 = 0x01,
        eEstablished800x600At72 = 0x8000,
        eEstablished800x600At75 = 0x4000,
        eEstablished832x624At75 = 0x2000,
        eEstablished1024x768At43 = 0x1000,
        eEstablished1024x768At60 = 0x0800,
        eEstablished1024x768At70 = 0x0400,
        eEstablished1024x768At75 = 0x0200,
        eEstablished1280x1024At75 = 0x0100,
        eEstablished1152x870At75 = 0x800000,
    };

    /// A standard timing as stored. Codes 00 and 01 in the first byte mean an empty slot, whatever the second holds.
    struct SStandard
    {
        unsigned char m_ui8Code1; ///< horizontal active pixels / 8 - 31
        unsigned char m_ui8Code2; ///< bits 5 to 0: rate in Hz - 60; bits 7 and 6: aspect code
    };
    static_assert(sizeof(SStandard) == 2 && alignof(SStandard) == 1, "the record is two bytes of the block");

    /// The number of a slot in the block, empty or not; its pair is at offset 38 plus twice the number.
    enum EStandardSlotIndex : unsigned int
    {
        eStandardSlot0 = 0,
        eStandardSlot1 = 1,
        eStandardSlot2 = 2,
        eStandardSlot3 = 3,
        eStandardSlot4 = 4,
        eStandardSlot5 = 5,
        eStandardSlot6 = 6,
        eStandardSlot7 = 7,
    };

    static constexpr unsigned int msc_uiEstablishedCount = 17;
    static constexpr unsigned int msc_uiStandardSlotCount = 8;
    static constexpr unsigned int msc_uiDescriptorCount = 4;

    CEdidBase();
    virtual ~CEdidBase();
    CEdidBase(const CEdidBase&) = delete;
    CEdidBase& operator=(const CEdidBase&) = delete;
    CEdidBase(CEdidBase&&) = delete;
    CEdidBase& operator=(CEdidBase&&) = delete;

    // ---- Loading ----

    /// Zeroes the block and empties the object. The list of usable standard slots keeps its old length, so that
    /// GetStandardCount may stay above 0 although every one of these timings is refused. Returns 1.
    int ClearEdidBuffer();

    /// Empties the object, then copies the first 128 bytes of the uiSize bytes at pui8Data. Only the header is checked,
    /// not the checksum, the version or the extension count. The third argument is ignored. pui8Data must not point
    /// into this object. Returns 1; for null, less than 128 bytes or a wrong header 0, with the object left empty.
    int SetEdidBuffer(const unsigned char* pui8Data, unsigned int uiSize, unsigned int uiStripFlags);

    /// How many of the uiSize bytes belong to whole blocks of 128 before the first block that is all zero; nothing else
    /// is checked. Null or a size of 0 gives 0. A size that is not a multiple of 128 writes an assertion line, and the
    /// incomplete block at its end does not count.
    static unsigned int GetEdidSizeFromData(unsigned int uiSize, const unsigned char* pui8Data);

    /// Makes byte 127 right for the other bytes; it is 0 while the object is empty.
    void UpdateChecksum();

    // ---- Identity ----

    /// The 128 bytes. All 0 once the object is emptied, until a setter that works on an empty object writes into it.
    /// Valid as long as the object.
    const unsigned char* GetBaseBlock() const { return m_aui8Edid; }

    /// The number of extension blocks that a version 1 block announces; 0 for other versions and other indexes than 0.
    unsigned int GetExtBlockType(unsigned int uiIndex) const;

    /// Three letters and four hexadecimal digits of the product code, "ACI27F4", and a terminator. Returns 7, the
    /// length; 0 with nothing written for null or a uiSize below 8.
    int GetMonitorID(char* pszId, unsigned int uiSize) const;

    /// Company name for the manufacturer's letters, cut to uiSize - 1 characters and terminated. Returns its length;
    /// 0 with an empty text for letters that are not in the table, 0 with nothing written for null or a uiSize of 0.
    int GetManufacturerName(char* pszName, unsigned int uiSize) const;

    /// The text of the first display descriptor of its kind: monitor name (tag 0xFC), free text (0xFE), serial number
    /// text (0xFF); at most 13 characters, ended by a line feed or a tab. All uiSize bytes of the output are written:
    /// what the text leaves is zero, so that only a buffer of 14 bytes or more is certain to be terminated.
    /// Returns 1; 0 for a text without characters; 0 with the output untouched for null or without such a
    /// descriptor.
    int GetMonitorName(char* pszText, unsigned int uiSize) const;
    int GetMonitorString(char* pszText, unsigned int uiSize) const;
    int GetMonitorSerialNumber(char* pszText, unsigned int uiSize) const;

    /// The limits of the first range limits descriptor (tag 0xFD). Returns 1, or 0 with oLimits untouched when the
    /// block has none.
    int GetMonitorRangeLimits(SRangeLimits& oLimits) const;

    /// Stores the serial number of bytes 12 to 15. The number that is already there changes nothing, not even a wrong
    /// checksum.
    void SetSerialNumber(unsigned int uiSerial);

    // ---- Video input: digital, version 1, revision 4 or later; everything else is refused ----

    /// Returns 1; 0 with eDepth set to eColorBitDepthReserved.
    int GetColorBitDepth(EColorBitDepth& eDepth) const;
    /// The depth that is already there changes nothing, not even a wrong checksum. Returns 1; 0 also for a value above
    /// 7.
    int SetColorBitDepth(EColorBitDepth eDepth);
    /// Returns 1; 0 with eInterface set to eDigitalInterfaceNotDefined, after an assertion line for each of the three
    /// conditions that fails and one for the refusal.
    int GetDigitalVideoInterface(EDigitalInterface& eInterface) const;

    // ---- Timings. A null poTiming makes every reading operation a test ----

    /// The timing of one bit, in pixels, lines and Hz. 0 when the bit is clear or has no timing, or when bVesaOnly is
    /// non-zero and the mode is not one of VESA's own.
    int GetEstablishedFromId(EEstablishedTiming eId, CVidParamTiming* poTiming, int bVesaOnly) const;
    /// The same by position among the timings listed, from 0. Every timing listed up to there passes through
    /// *poTiming, so that after a result of 0 it may hold the last one.
    int GetEstablished(unsigned int uiIndex, CVidParamTiming* poTiming, int bVesaOnly) const;
    unsigned int GetEstablishedCount(int bVesaOnly) const; ///< 0 to 17; to 11 with bVesaOnly

    /// Sets the bit for a non-zero bSet, else clears it, and recomputes the checksum when bUpdateChecksum is non-zero;
    /// otherwise the checksum is stale until UpdateChecksum. Returns 1; 0 for a value that names no timing.
    int SetEstablishedFromId(EEstablishedTiming eId, int bSet, int bUpdateChecksum);
    /// The same for a position in the list that GetEstablished gives with bVesaOnly: it reaches bits that are set.
    int SetEstablished(unsigned int uiIndex, int bSet, int bUpdateChecksum);

    /// Standard timings. An index runs over the slots whose pair gives a timing, in slot order: empty slots take none.
    unsigned int GetStandardCount() const;
    /// The mode that a pair means in this block: a DMT mode, else computed by GTF. 0 for null, an empty pair, or a
    /// geometry that neither gives; poTiming is then untouched.
    int GetStandardTiming(const SStandard* poStandard, CVidParamTiming* poTiming) const;
    /// piNative may be null; it always receives 0, since only extension timings can be native.
    int GetStandard(EStandardSlotIndex eSlot, CVidParamTiming* poTiming, int* piNative) const;
    int GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const;
    /// Pair uiIndex of the display descriptors with tag 0xFA, which hold six each. They are in no count and no list.
    int GetExtraStdTiming(unsigned int uiIndex, CVidParamTiming& oTiming) const;

    /// Derives the list of usable slots from the bytes; returns its length.
    unsigned int ExtractStandardTimings();
    /// Moves the pairs in use to the front, in their order, and writes 01 01 where one was taken away. Empty pairs
    /// after them keep their bytes, and the list of usable slots is not derived again. If nothing moves, nothing
    /// changes, not even a wrong checksum.
    void RePackStandards();
    static int IsInvalidStandard(const SStandard& oStandard); ///< non-zero for an empty pair
    static void InvalidateStandard(SStandard& oStandard);     ///< writes 01 01

    /// Empties the slot and repacks: the timings after it move down by one. 0 for an index at or above the count, or a
    /// slot that has been emptied since the list was derived.
    int RemoveStandard(unsigned int uiIndex);

    /// Detailed timings. An index runs over the descriptors that are not display descriptors, or whose tag is 1.
    /// GetDetailed gives 0 with poTiming untouched for an index without a descriptor, or if that holds no timing.
    int GetDetailed(unsigned int uiIndex, CVidParamTiming* poTiming) const;
    /// 0 to 4: the timings before the first descriptor without one.
    unsigned int GetDetailedCount() const;
    /// Overwrites the descriptor with an empty one (tag 0x10); the others stay where they are, and those after it move
    /// down by one index. 0 for an index without a descriptor, and for index 0 when the block declares a preferred
    /// timing, which can only be replaced.
    int RemoveDetailed(unsigned int uiIndex);
    /// Overwrites the first detailed timing. Its image size becomes bytes 21 and 22, the centimetres unscaled, or 0
    /// when one of them is 0. 0 for null, or when the block declares no preferred timing or has no descriptor for it.
    int SetPreferredMode(const CVidParamTiming* poTiming);

    // ---- Where the timings come from. Each replaces the content of aoOrigins, in the order of the indexes ----

    /// Of the list with bVesaOnly 0.
    void ListEstablishedOrigins(CTimingOrigins& aoOrigins) const;
    void ListStandardOrigins(CTimingOrigins& aoOrigins) const;
    void ListDetailedOrigins(CTimingOrigins& aoOrigins) const;

protected:
    unsigned char m_aui8Edid[CEdidUtils::msc_uiBlockSize];
    unsigned int m_auiEstablishedMask[msc_uiEstablishedCount];    ///< EEstablishedTiming, in the order of the list walk
    unsigned int m_uiEdidSize;                                    ///< bytes held: 0 or 128
    CMArray<unsigned int, const unsigned int&> m_aoStandardSlots; ///< numbers of the slots whose pair gives a timing

private:
    void FillEstablishedMask();
    /// The bit of the timing at this place of the list, 0 when the list ends before it; see GetEstablished.
    unsigned int FindEstablished(unsigned int uiIndex, CVidParamTiming* poTiming, int bVesaOnly) const;

    /// Display descriptor number uiRank, from 0, with this tag; null when there are not so many. Points into the block.
    const unsigned char* FindDisplayDescriptor(unsigned char ui8Tag, unsigned int uiRank) const;
    bool GetDescriptorText(unsigned char ui8Tag, char* pszText, unsigned int uiSize) const;
    bool IsDigital() const;
    bool HasVideoInputFields() const; ///< colour depth and interface

    SStandard ReadStandard(unsigned int uiSlot) const;
    void WriteStandard(unsigned int uiSlot, const SStandard& oStandard);

    /// Offset of candidate number uiRank, from 0, for a detailed timing; 0 when there are not so many.
    unsigned int FindDetailed(unsigned int uiRank) const;
    CEdidUtils::SEdidDetailedRaw ReadDescriptor(unsigned int uiOffset) const;
    void WriteDescriptor(unsigned int uiOffset, const CEdidUtils::SEdidDetailedRaw& oRaw);
};

#pragma GCC visibility pop

/// What every EDID block needs: the 8-bit checksum, the 18-byte detailed timing descriptor, the hex dump.
/// Static functions without state; they allocate nothing, except for the lines of the dump.

#pragma once

#pragma GCC visibility push(default)

class CMArrayString;
class CVidParamTiming;

class CEdidUtils
{
public:
    /// Base block and extension blocks alike, in bytes. The checksum is the last byte.
    static constexpr unsigned int msc_uiBlockSize = 128;
    static constexpr unsigned int msc_uiChecksumOffset = msc_uiBlockSize - 1;

    /// Image size as a descriptor stores it: two numbers of 12 bits, in the unit of the caller. The standard
    /// wants millimetres.
    struct SImageSize
    {
        unsigned int m_uiWidth;
        unsigned int m_uiHeight;
    };

    /// The 18-byte detailed timing descriptor of the VESA E-EDID standard. Bytes only, so that a pointer into a block
    /// can be read as this record at any position. The accessors hide how the fields are split over the bytes; a setter
    /// keeps the bits of its neighbours and drops what is wider than its field.
    ///
    ///  byte  0, 1  pixel clock in 10 kHz, little-endian
    ///        2, 3  horizontal active, blanking: low bytes     4  high nibbles (active in bits 7 to 4)
    ///        5, 6  vertical active, blanking: low bytes       7  high nibbles (active in bits 7 to 4)
    ///        8, 9  horizontal front porch, sync: low bytes
    ///          10  vertical front porch (bits 7 to 4), sync (bits 3 to 0): low nibbles
    ///          11  bits 7-6, 5-4: front porch, sync horizontal, high bits; bits 3-2, 1-0: the same, vertical
    ///      12, 13  image width, height: low bytes            14  high nibbles (width in bits 7 to 4)
    ///      15, 16  horizontal, vertical border
    ///          17  bit 7 interlaced; bits 6, 5, 0 stereo; bits 4-3 sync type; bits 2, 1 vertical, horizontal polarity
    struct SEdidDetailedRaw
    {
        unsigned char m_aui8Data[18];

        unsigned int GetPixelClockIn10KiloHz() const; ///< 16 bits
        unsigned int GetHorizontalActive() const;     ///< pixels, 12 bits
        unsigned int GetHorizontalBlanking() const;   ///< pixels, 12 bits
        unsigned int GetHorizontalFrontPorch() const; ///< pixels, 10 bits
        unsigned int GetHorizontalSync() const;       ///< pixels, 10 bits
        unsigned int GetVerticalActive() const;       ///< lines of one field, 12 bits
        unsigned int GetVerticalBlanking() const;     ///< lines of one field, 12 bits
        unsigned int GetVerticalFrontPorch() const;   ///< lines, 6 bits
        unsigned int GetVerticalSync() const;         ///< lines, 6 bits
        unsigned int GetImageWidth() const;           ///< 12 bits
        unsigned int GetImageHeight() const;          ///< 12 bits
        int IsInterlaced() const;
        int IsDigitalSeparateSync() const; ///< only then the polarity bits are polarities
        int IsHorizontalPolarityPositive() const;
        int IsVerticalPolarityPositive() const;

        void SetPixelClockIn10KiloHz(unsigned int uiClock);
        void SetHorizontalActive(unsigned int uiPixels);
        void SetHorizontalBlanking(unsigned int uiPixels);
        void SetHorizontalFrontPorch(unsigned int uiPixels);
        void SetHorizontalSync(unsigned int uiPixels);
        void SetVerticalActive(unsigned int uiLines);
        void SetVerticalBlanking(unsigned int uiLines);
        void SetVerticalFrontPorch(unsigned int uiLines);
        void SetVerticalSync(unsigned int uiLines);
        void SetImageSize(const SImageSize& oSize);
        void SetInterlaced(int bInterlaced);
        /// Declares digital separate sync with these polarities; 0 is negative.
        void SetDigitalSeparateSync(int bHorizontalPositive, int bVerticalPositive);
    };
    static_assert(sizeof(SEdidDetailedRaw) == 18 && alignof(SEdidDetailedRaw) == 1,
                  "a pointer into block bytes is read as this record");

    /// Non-zero when the bytes add up to 0 modulo 256. A null pointer gives 0; a size of 0 with data gives 1.
    static int Is8BitsChecksumValid(unsigned int uiSize, const unsigned char* pui8Data);

    /// The number that completes the sum of the bytes to 0; its low 8 bits are the checksum byte. The caller zeroes
    /// that byte first when it lies within uiSize. A null pointer or a size of 0 gives 0.
    static int Compute8BitsChecksum(unsigned int uiSize, const unsigned char* pui8Data);

    /// Zeroes the checksum byte that ends uiSize bytes and stores the right one. Null or a size of 0 changes nothing.
    static void StoreChecksum(unsigned int uiSize, unsigned char* pui8Data);

    /// Reads a descriptor.
    ///   poTiming  is cleared, then receives sizes in pixels and lines (a field of an interlaced timing counts twice in
    ///             the vertical active size only), the clock, the rates that follow from them, and the source
    ///             eVidParamType_Detailed. Polarities only with digital separate sync, else as cleared. Null makes the
    ///             call a test. Owned by the caller; untouched on a result of 0.
    /// Returns 1, or 0 for a descriptor that is not a timing: pixel clock, horizontal or vertical active of 0. Image
    /// size, borders and stereo are not read.
    static int ConvertDetailedDescriptorToVidParam(const SEdidDetailedRaw& oRaw, CVidParamTiming* poTiming);

    /// Writes all 18 bytes of *poRaw: digital separate sync, borders and stereo 0. The clock loses what lies below
    /// 10 kHz, an interlaced height its odd line, and values wider than their fields their high bits, without notice.
    ///   poSize  may be null; the image size is then 0.
    /// Returns 1; 0 with nothing written when poTiming or poRaw is null.
    static int ConvertVidParamToDetailedDescriptor(const CVidParamTiming* poTiming, SEdidDetailedRaw* poRaw,
                                                   const SImageSize* poSize);

    /// Makes the lines of a hex dump: three head lines, a line for each ten bytes with the decimal offset of its first,
    /// an empty line, and a line with the size. Every line begins with pszLinePrefix; null counts as empty.
    /// oLines is emptied first; when memory runs out, it holds a part of the dump (basic guarantee). Returns 1; a size
    /// of 0 or null data writes an assertion line and gives 0, with oLines untouched.
    static int GetFormatedEdidDataStrings(unsigned int uiSize, const unsigned char* pui8Data, CMArrayString& oLines,
                                          const char* pszLinePrefix);
};

#pragma GCC visibility pop

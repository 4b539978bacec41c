/// CZorEdidUtils: what one does with a finished CEdid. Files into bytes, an EDID into lists of modes, two EDIDs
/// compared by their modes, three text reports. Static functions only: they read their arguments, keep no state and
/// change no EDID. The CEdid and the lists must not change while a function runs.
///
/// Results are 1 for success and 0 for failure. A report is a CMArrayString: each element is the caller's line prefix
/// followed by one element of the report. Elements do not always end in a line feed, and some are nothing but one; the
/// caller decides what separates them when it prints (the tools of this project print one element a line).
/// Elements of a report may share buffers; all of them belong to one thread.
/// A line prefix must not be null; it may be an element of the lines that the report replaces.
///
/// When memory runs out, outputs hold what they held, a part of the result or nothing and may be used again; open files
/// are closed (basic guarantee).

#pragma once

#include "Edid.h"
#include "EdidExtBlock.h"
#include "VidParamTimingGeneric.h"
#include "ZorMFCTypes.h"

#pragma GCC visibility push(default)

class CZorEdidUtils
{
public:
    using CByteArray = CMArray<unsigned char, const unsigned char&>;
    using CModeList = CMArray<CVidParamTimingGeneric, const CVidParamTimingGeneric&>;

    /// Selects a report of GetFormatedEdid.
    enum EEdidFormatType : unsigned int
    {
        eEdidFormatZorEdidExtractor = 1,   ///< GetEdidFormatedAsZorEdidExtractor
        eEdidFormatRVideoOutRes = 2,       ///< GetEdidFormatedAsRVideoOutRes
        eEdidFormatZorEdidExtractorExt = 3 ///< GetEdidFormatedAsZorEdidExtractorExt
    };

    CZorEdidUtils() = delete;

    // ---- Files ----

    /// Reads an EDID image into oData; the bytes are not parsed or tested, and are in the form that
    /// CEdid::SetEdidBuffer takes. The path decides the kind of the file, in any case and anywhere in the path: ".bin"
    /// means a raw image, else ".dat" a text table, and the loader of that kind empties oData first. A path with
    /// neither leaves oData alone and gives 0 with an assertion line; a loader that fails gives the same.
    static int ExtractEdidFromFile(CMString oPath, CByteArray& oData);

    /// The whole file is the image. 0 for an empty path, a file that does not open, an empty one, one above INT_MAX
    /// bytes or one without a size (a folder); oData is then empty. A read that ends early is a success with zeros
    /// instead of the rest; one that gives nothing at all is 0, and oData holds as many zeros as the file has bytes.
    static int ExtractEdidFromBinFile(CMString oPath, CByteArray& oData);

    /// A text table. Leading lines are skipped up to the marker line, which begins with 8 blanks and 40 underscores.
    /// Each line after it is a row: label, bar, two characters, then cells of two hexadecimal digits and two characters
    /// between them:
    ///
    ///             ________________________________________
    ///       0 |  00  FF  FF  FF  FF  FF  FF  00  10  AC
    ///
    /// The first line without a bar ends the table. A cell of blanks holds no byte, a cell without a digit the byte 0.
    /// Lines are read in pieces of at most 2047 characters, and each piece counts as a line. A NUL ends its line: a bar
    /// or a cell after it does not count.
    /// 0 for an empty path, a folder, a device, a file that does not open, has no marker line or ends with the marker
    /// and no line feed, and a read error. A pipe is read to its end.
    /// A table whose size is not a multiple of 128 bytes prints a message on standard output and gives 0; oData then
    /// keeps the bytes. An empty table is a success.
    static int ExtractEdidFromDatFile(CMString oPath, CByteArray& oData);

    // ---- Modes ----

    /// Order of the mode lists, for CMArray::SortElements: 1 when oFirst is the smaller, -1 when it is the larger, 0
    /// for equals, so that a sorted list begins with the largest. Keys: width, height, vertical rate in hertz, clock in
    /// kHz. Interlacing is not a key. ulContext is not used.
    static int SortVidParam(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond,
                            unsigned long ulContext);

    /// Replaces oText by the text of one timing. Short form (bFullFormat 0): "1920 x 1080p @ 60 Hz". Full form: all
    /// fields of the record in their order, clocks and rates in hertz, then interlaced and bottom field first as "yes"
    /// or " no", then the polarities as "+" or "-". The prefix does not enter the text: callers put it in front.
    static void GetFormatedVideoParam(const SVidParamGenericData& oData, int bFullFormat, CMString& oText,
                                      const char* pszLinePrefix);

    /// Fills the seven lists and the preferred mode from an EDID. All lists but oExtStandard are emptied first and
    /// sorted at the end by SortVidParam; oExtStandard is appended to and stays in the order of the blocks.
    ///   oPreferred          the first detailed timing of the base block
    ///   oEstablishedVesa    established timings that a VESA table defines; also in oEstablishedAll
    ///   oEstablishedAll     all established timings
    ///   oBaseStandard       standard timings of the base block
    ///   oBaseDetailed       detailed timings of the base block
    ///   oExtStandardNative  table timings of the extension blocks that are marked native
    ///   oExtStandard        the other table timings of the extension blocks
    ///   oExtDetailed        detailed timings of the extension blocks
    /// Nothing removes duplicates. 0 with an assertion line when the EDID names no preferred mode (no detailed timing,
    /// or no preferred-timing bit in a block that is not version 1 with revision 3 or above) or when a getter fails
    /// below its own count; lists and preferred mode then hold what was found so far, unsorted.
    static int ExtractModeList(const CEdid& oEdid, CVidParamTimingGeneric& oPreferred, CModeList& oEstablishedVesa,
                               CModeList& oEstablishedAll, CModeList& oBaseStandard, CModeList& oBaseDetailed,
                               CModeList& oExtStandardNative, CModeList& oExtStandard, CModeList& oExtDetailed);

    /// 1 when both EDIDs announce the same modes, each as often, in whatever place; timings are compared by
    /// CVidParamTiming::operator== of the first EDID's one. Native table timings of extension blocks take no part.
    ///   bCompareEstablished  non-zero: established timings take part; those of a VESA table count twice on both sides
    ///   bComparePreferred    non-zero: the preferred modes must be equal too
    /// 0 with an assertion line when an EDID has no preferred mode, whatever the switches.
    static int CompareTimings(const CEdid& oFirst, const CEdid& oSecond, int bCompareEstablished,
                              int bComparePreferred);
    /// The same on EDID images; 0 when CEdid::SetEdidBuffer refuses one of them.
    static int CompareTimings(const CByteArray& oFirst, const CByteArray& oSecond, int bCompareEstablished,
                              int bComparePreferred);

    // ---- Reports ----

    /// The short forms empty oLines, extract the modes and call the long form. An EDID without preferred mode leaves
    /// oLines empty (with assertion lines on standard output). The long forms take lists of the caller's, with the
    /// meaning of ExtractModeList, and cannot fail; they empty oLines too.

    /// The monitor report: identity, extension blocks, timings, hex dump. Knows no native table timings.
    static void GetEdidFormatedAsZorEdidExtractor(const CEdid& oEdid, CMArrayString& oLines, const char* pszLinePrefix);
    static void GetEdidFormatedAsZorEdidExtractor(const CEdid& oEdid, const CVidParamTimingGeneric& oPreferred,
                                                  const CModeList& oEstablishedVesa, const CModeList& oEstablishedAll,
                                                  const CModeList& oBaseStandard, const CModeList& oBaseDetailed,
                                                  const CModeList& oExtStandard, const CModeList& oExtDetailed,
                                                  CMArrayString& oLines, const char* pszLinePrefix);

    /// The monitor report with the digital interface (revision 4 only), the types of the extension blocks, native table
    /// timings, and for each CTA-861 block its detailed timings, audio, speakers, warnings and free space.
    static void GetEdidFormatedAsZorEdidExtractorExt(const CEdid& oEdid, CMArrayString& oLines,
                                                     const char* pszLinePrefix);
    static void GetEdidFormatedAsZorEdidExtractorExt(const CEdid& oEdid, const CVidParamTimingGeneric& oPreferred,
                                                     const CModeList& oEstablishedVesa,
                                                     const CModeList& oEstablishedAll, const CModeList& oBaseStandard,
                                                     const CModeList& oBaseDetailed,
                                                     const CModeList& oExtStandardNative, const CModeList& oExtStandard,
                                                     const CModeList& oExtDetailed, CMArrayString& oLines,
                                                     const char* pszLinePrefix);

    /// One numbered element for each mode, "#01 - " and the full form of GetFormatedVideoParam, largest mode first.
    /// The short form joins all established, standard and detailed timings but the native table timings of extension
    /// blocks, duplicates included. The long form prints the list in its order and does not look at oPreferred.
    static void GetEdidFormatedAsRVideoOutRes(const CEdid& oEdid, CMArrayString& oLines, const char* pszLinePrefix);
    static void GetEdidFormatedAsRVideoOutRes(const CVidParamTimingGeneric& oPreferred, CModeList oModes,
                                              CMArrayString& oLines, const char* pszLinePrefix);

    /// Calls the short form that eType selects. 1, also when the report stopped for want of a preferred mode; 0 with an
    /// assertion line for any other type, with oLines left alone.
    static int GetFormatedEdid(EEdidFormatType eType, const CEdid& oEdid, CMArrayString& oLines,
                               const char* pszLinePrefix);

    /// Name of a block's type by its tag (2: "EIA/CEA 861", 112: "DisplayID", ...); "Unknown" for tags without a name.
    static CMString GetExtensionType(const CEdidExtBlock& oBlock);
};

#pragma GCC visibility pop

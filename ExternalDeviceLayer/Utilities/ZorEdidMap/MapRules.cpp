// What is known of each rule: ZorEdidRules.h as a table.

#include <string.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "ZorEdidRules.h"

namespace
{
using CMap = CZorEdidMap;

constexpr char gsc_szListedAs[] =
    "The bytes by themselves mean another size; the numbered lists name the mode that displays with these bytes have.";
constexpr char gsc_szBeyondRange[] =
    "Some sources drop listed modes that leave the limits; from 1.4 on listed modes may, and it is a note.";
constexpr char gsc_szBeyondClock[] =
    "Some sources drop listed modes that leave the limits; from 1.4 on listed modes may, and it is a note. A pixel "
    "clock "
    "less than 10 MHz above its limit is one in any revision, as the limit counts in tens of MHz and may be rounded.";

constexpr SZorEdidRule gsc_aoRules[] = {
    // ---- Any structure ----
    { eZorEdidRule_Checksum, CMap::eSeverity_Error, "checksum", "the checksum is wrong",
      "E-EDID 1.4, 3.11; DisplayID 1.3",
      "Sources discard a block whose bytes do not add up to 0, and with the base block the whole EDID: what they show "
      "then is a mode of their own." },
    { eZorEdidRule_ReservedBits, CMap::eSeverity_Warning, "reserved.bits", "reserved bits are set",
      "E-EDID 1.4; CTA-861-H; DisplayID 1.3 and 2.1",
      "Sources ignore these bits today, but a later edition may give them a meaning, and newer sources would then act "
      "on it." },
    { eZorEdidRule_ReservedValue, CMap::eSeverity_Warning, "reserved.value", "reserved value",
      "E-EDID 1.4; CTA-861-H; HDMI 2.1; DisplayID 1.3 and 2.1",
      "The standard does not define the value in the revision that the image or block is of, so that each source "
      "treats the field in a way of its own, mostly as not given." },
    { eZorEdidRule_PastStructure, CMap::eSeverity_Error, "structure.past-end", "runs past the end of its structure", "",
      "The length of the structure cuts the field; sources that trust the length lose it, others take bytes of the "
      "next structure for it." },
    { eZorEdidRule_OutOfRange, CMap::eSeverity_Warning, "value.out-of-range", "out of range",
      "DisplayID 1.3 and 2.1; VESA DI-EXT",
      "The field has room for the value, but the standard does not allow it, and sources clamp or ignore it." },
    { eZorEdidRule_MaximumBelowMinimum, CMap::eSeverity_Warning, "value.maximum-below-minimum",
      "maximum is below the minimum", "DisplayID 1.3 and 2.1; VESA DI-EXT",
      "No value satisfies both limits; sources that apply the range find no mode in it, or drop the range." },
    { eZorEdidRule_Ascii, CMap::eSeverity_Warning, "text.not-ascii", "characters that are not printable ASCII",
      "DisplayID 1.3 and 2.1",
      "Sources show the text as it is or cut it at such a character, which garbles the name that the user sees." },
    { eZorEdidRule_Version1Layout, CMap::eSeverity_Warning, "version.layout-1", "only version 1 has this layout",
      "E-EDID 1.4; VESA DI-EXT, LS-EXT and VTB-EXT",
      "Sources that check the version ignore the structure; others read it by the layout of version 1." },
    { eZorEdidRule_Version3Layout, CMap::eSeverity_Warning, "version.layout-3", "only version 3 has this layout",
      "E-EDID 1.4, 3.10.3.7", "Sources that check the version ignore the color management data." },
    { eZorEdidRule_Version10Layout, CMap::eSeverity_Warning, "version.layout-10", "only revision 10 has this layout",
      "E-EDID 1.4, 3.10.3.9", "Sources that check the revision do not offer the modes of this descriptor." },
    { eZorEdidRule_Blanking, CMap::eSeverity_Warning, "timing.blanking",
      "shorter than front porch, sync pulse and borders", "E-EDID 1.4, 3.10.2; DisplayID 1.3 and 2.1",
      "The back porch would be negative: sources refuse the timing, or program a sync pulse that reaches into the "
      "picture." },
    { eZorEdidRule_BackPorch, CMap::eSeverity_Note, "timing.back-porch",
      "front porch, sync pulse and borders leave no back porch", "E-EDID 1.4, 3.10.2; DisplayID 1.3 and 2.1",
      "Allowed, but the picture begins as the sync pulse ends: many receivers clamp or lock there, and lose its "
      "edge." },

    // ---- Blocks and their order ----
    { eZorEdidRule_BlockCut, CMap::eSeverity_Error, "block.cut", "cut short: a block has 128 bytes", "E-EDID 1.4, 3.1",
      "The image was read or stored incompletely; sources discard the block, as its checksum is missing." },
    { eZorEdidRule_TooManyBlocks, CMap::eSeverity_Warning, "block.too-many", "an image has at most 256 blocks",
      "E-EDID 1.4, 3.11", "The count of extension blocks is one byte, so that no source can reach these bytes." },
    { eZorEdidRule_BlocksMissing, CMap::eSeverity_Error, "block.missing", "fewer extension blocks follow",
      "E-EDID 1.4, 3.11",
      "Sources try to read the announced blocks, and either retry until they give up or go without any extension." },
    { eZorEdidRule_BlockNotCounted, CMap::eSeverity_Warning, "block.not-counted",
      "not counted by the number of extension blocks", "E-EDID 1.4, 3.11",
      "Sources read as many blocks as are announced: what this one offers, such as audio or HDMI, is never seen." },
    { eZorEdidRule_BlockKind, CMap::eSeverity_Warning, "block.unknown-kind", "not a known kind of extension block",
      "E-EDID 1.4, 3.11", "Sources skip a block whose tag they do not know." },
    { eZorEdidRule_BlockMapMissing, CMap::eSeverity_Warning, "block.map-missing",
      "1.3 requires a block map before two or more extension blocks", "E-EDID 1.3",
      "Current sources read the blocks without a map, but sources of the time of 1.3 may stop at the first "
      "extension." },
    { eZorEdidRule_BlockMapPlace, CMap::eSeverity_Warning, "block.map-place", "a block map is block 1 or block 128",
      "E-EDID 1.4", "Which blocks a map at another place describes is not defined, so that sources ignore it." },
    { eZorEdidRule_BlockMapTag, CMap::eSeverity_Warning, "block.map-tag", "the block has another tag", "E-EDID 1.4",
      "Sources that follow the map look for the wrong kind of block, or take the image for damaged." },
    { eZorEdidRule_BlockErased, CMap::eSeverity_Error, "block.erased", "all bytes are FFh: the block was never written",
      "E-EDID 1.4, 3.11",
      "Memory that is erased reads so: sources discard the block, and what it should announce is never seen." },

    // ---- Base block ----
    { eZorEdidRule_BaseHeader, CMap::eSeverity_Error, "base.header", "not the header of a base block",
      "E-EDID 1.4, 3.3",
      "Sources know an EDID by these eight bytes; many repair a flipped bit or two, and refuse the rest." },
    { eZorEdidRule_BaseMaker, CMap::eSeverity_Warning, "base.manufacturer", "not three letters", "E-EDID 1.4, 3.4.1",
      "Maker and product code identify the model: drivers key their fixes and users' settings to them." },
    { eZorEdidRule_BaseYear, CMap::eSeverity_Warning, "base.year", "before 2006, which 1.4 reserves",
      "E-EDID 1.4, 3.4.4",
      "The revision did not exist then, so that the date or the revision is wrong; sources only show it." },
    { eZorEdidRule_BaseVersion, CMap::eSeverity_Warning, "base.version", "only version 1 has this layout",
      "E-EDID 1.4, 3.5", "Sources refuse another version, as its bytes could mean anything." },
    { eZorEdidRule_BaseRevision, CMap::eSeverity_Warning, "base.revision", "later than 1.4, read as 1.4",
      "E-EDID 1.4, 3.5",
      "Later revisions must be readable as 1.4; there is none, so that the byte is most likely wrong." },
    { eZorEdidRule_SrgbColors, CMap::eSeverity_Warning, "base.srgb.chromaticities",
      "the chromaticities are not those of sRGB", "E-EDID 1.4, 3.6.4",
      "Sources that trust the flag skip colour management, and the colours of the display are not what it claims." },
    { eZorEdidRule_SrgbGamma, CMap::eSeverity_Warning, "base.srgb.gamma", "the gamma is not that of sRGB",
      "E-EDID 1.4, 3.6.4",
      "Sources that trust the flag take 2.2 for the gamma, others the value given: the same picture differs in "
      "brightness." },
    { eZorEdidRule_PreferredFlag, CMap::eSeverity_Warning, "base.preferred-flag", "1.3 requires the flag", "E-EDID 1.3",
      "Without the flag sources may choose another mode than the first detailed timing as the one to start with." },
    { eZorEdidRule_StandardTimingZero, CMap::eSeverity_Warning, "base.standard-timing.zero", "00h is reserved",
      "E-EDID 1.4, 3.9",
      "An unused place is 01h 01h; zeros give a width of 248 pixels, which sources list or drop as they please." },
    { eZorEdidRule_FirstDescriptor, CMap::eSeverity_Error, "base.descriptors.first",
      "the first descriptor must be a detailed timing", "E-EDID 1.4, 3.10.1",
      "It is the preferred mode: without it sources guess the resolution of the display." },
    { eZorEdidRule_DescriptorOrder, CMap::eSeverity_Warning, "base.descriptors.order",
      "detailed timings must come before display descriptors", "E-EDID 1.4, 3.10.1",
      "Sources that stop at the first display descriptor miss the timings after it." },
    { eZorEdidRule_ImageSize, CMap::eSeverity_Note, "base.image-size",
      "the image size is far from the screen size in bytes 15h and 16h", "",
      "Sources derive the scale of texts from either of the two, so that its size depends on which they take." },
    { eZorEdidRule_RangeRequired, CMap::eSeverity_Warning, "base.range-limits.missing",
      "1.3 requires display range limits", "E-EDID 1.3",
      "Sources that compute modes or accept custom ones have nothing to check them against." },
    { eZorEdidRule_NameRequired, CMap::eSeverity_Warning, "base.name.missing", "1.3 requires a display product name",
      "E-EDID 1.3", "Users see a code of the maker in place of a name." },
    { eZorEdidRule_RangeRequiredContinuous, CMap::eSeverity_Warning, "base.range-limits.missing-continuous",
      "a continuous frequency display requires display range limits", "E-EDID 1.4, 3.6.4",
      "The display claims any mode within its limits, and gives none: sources offer no computed mode." },
    { eZorEdidRule_NameEmpty, CMap::eSeverity_Warning, "base.name.empty", "the display product name is empty",
      "E-EDID 1.3", "Users see a code of the maker, or nothing, in place of a name." },

    // ---- Descriptors of 18 bytes ----
    { eZorEdidRule_TimingSize, CMap::eSeverity_Warning, "base.detailed.size", "0 is not a size", "E-EDID 1.4, 3.10.2",
      "A mode without pixels or lines cannot be shown; sources drop the timing." },
    { eZorEdidRule_TimingClock, CMap::eSeverity_Warning, "base.detailed.clock", "0 is not a clock",
      "E-EDID 1.4, 3.10.2",
      "In a list of timings the place counts as one, and its mode cannot be shown; sources skip it." },
    { eZorEdidRule_TimingSync, CMap::eSeverity_Warning, "base.detailed.sync", "no sync pulse", "E-EDID 1.4, 3.10.2",
      "Displays lock to the sync pulse; sources drop the timing or put a pulse of their own." },
    { eZorEdidRule_TimingPorch, CMap::eSeverity_Note, "base.detailed.front-porch", "no front porch",
      "E-EDID 1.4, 3.10.2", "Allowed, but some receivers lose the picture without one." },
    { eZorEdidRule_TimingAspect, CMap::eSeverity_Note, "base.detailed.image-aspect", "an aspect ratio, no size",
      "E-EDID 1.4, 3.10.2",
      "The display states a ratio of 16:9 or 4:3 as its size; sources that take it for millimetres scale texts "
      "hugely." },
    { eZorEdidRule_TextControl, CMap::eSeverity_Warning, "base.text.control", "control characters in the text",
      "E-EDID 1.4, 3.10.3", "Sources cut the text there or show replacement characters." },
    { eZorEdidRule_TextBeyondAscii, CMap::eSeverity_Warning, "base.text.beyond-ascii",
      "characters beyond ASCII in the text", "E-EDID 1.4, 3.10.3",
      "No code page is defined for them, so that each source shows other letters." },
    { eZorEdidRule_TextEnd, CMap::eSeverity_Warning, "base.text.line-feed", "a line feed (0Ah) must end the text",
      "E-EDID 1.4, 3.10.3", "Sources that look for the line feed take the padding for a part of the name." },
    { eZorEdidRule_LineFeed, CMap::eSeverity_Warning, "base.filler.line-feed", "must be a line feed (0Ah)",
      "E-EDID 1.4, 3.10.3", "Most sources skip the byte; those that validate descriptors refuse this one." },
    { eZorEdidRule_Blanks, CMap::eSeverity_Warning, "base.filler.blanks", "blanks (20h) must fill the rest",
      "E-EDID 1.4, 3.10.3", "Most sources skip the bytes; those that validate descriptors refuse this one." },
    { eZorEdidRule_RangeZero, CMap::eSeverity_Warning, "base.range-limits.zero", "00h is reserved",
      "E-EDID 1.4, 3.10.3.3", "A rate of 0 limits nothing; sources ignore the range or find no mode in it." },
    { eZorEdidRule_RangeOrder, CMap::eSeverity_Warning, "base.range-limits.order", "below the minimum",
      "E-EDID 1.4, 3.10.3.3", "No rate lies in the range; sources that apply it drop every computed mode." },
    { eZorEdidRule_RangeClock, CMap::eSeverity_Warning, "base.range-limits.clock", "1.4 requires it",
      "E-EDID 1.4, 3.10.3.3",
      "Without a limit of the pixel clock sources may offer modes that the display cannot show." },
    { eZorEdidRule_RangeFormula, CMap::eSeverity_Warning, "base.range-limits.formula",
      "counts for continuous frequency displays only (18h bit 0)", "E-EDID 1.4, 3.10.3.3",
      "Sources compute modes by GTF or CVT only where byte 18h says continuous frequency, and ignore the formula "
      "elsewhere." },
    { eZorEdidRule_PreferredAspect, CMap::eSeverity_Warning, "base.range-limits.cvt-aspect",
      "is not one of those supported", "E-EDID 1.4, 3.10.3.3.2",
      "The preferred aspect ratio contradicts the list beside it; sources may prefer a mode that the display lacks.",
      true },
    { eZorEdidRule_CvtLines, CMap::eSeverity_Warning, "base.cvt-codes.lines", "a low byte of 00h is reserved",
      "E-EDID 1.4, 3.10.3.8", "Sources take the code for an unused one and do not list its modes." },
    { eZorEdidRule_CvtRate, CMap::eSeverity_Warning, "base.cvt-codes.rate", "is not one of those supported",
      "E-EDID 1.4, 3.10.3.8", "The preferred rate is not offered by the code itself; sources prefer another or none.",
      true },
    { eZorEdidRule_DetailedCut, CMap::eSeverity_Error, "base.detailed.cut", "cut short: a detailed timing has 18 bytes",
      "E-EDID 1.4, 3.10.2", "The image ends within the timing; sources drop it with its block." },
    { eZorEdidRule_DescriptorTag, CMap::eSeverity_Note, "base.descriptors.tag", "defined from 1.4 on",
      "E-EDID 1.4, 3.10.3", "Sources that honor the revision ignore the descriptor; most read it nonetheless." },
    { eZorEdidRule_RangePixelClock, CMap::eSeverity_Warning, "base.range-limits.pixel-clock",
      "the pixel clock is above that of the display range limits", "E-EDID 1.4, 3.10.3.3", gsc_szBeyondClock },
    { eZorEdidRule_RangeLineRate, CMap::eSeverity_Warning, "base.range-limits.line-rate",
      "the line rate is outside of the display range limits", "E-EDID 1.4, 3.10.3.3", gsc_szBeyondRange },
    { eZorEdidRule_RangeFieldRate, CMap::eSeverity_Warning, "base.range-limits.field-rate",
      "the field rate is outside of the display range limits", "E-EDID 1.4, 3.10.3.3", gsc_szBeyondRange },
    { eZorEdidRule_TextBlanks, CMap::eSeverity_Note, "base.text.blanks", "a full text ends in blanks",
      "E-EDID 1.4, 3.10.3",
      "Without room for a line feed the blanks are a part of the name: it is not found under the name without them." },

    // ---- CTA-861 extension blocks ----
    { eZorEdidRule_CtaRevision, CMap::eSeverity_Warning, "cta.revision", "revision is not published", "CTA-861-H, 7.5",
      "Sources read the block as one of revision 3, or skip it with all its data blocks." },
    { eZorEdidRule_CtaStart, CMap::eSeverity_Error, "cta.detailed-offset",
      "lies outside of the block: nothing after it can be found", "CTA-861-H, 7.5",
      "Sources find neither data blocks nor timings, and the display loses HDMI, audio and all its video formats." },
    { eZorEdidRule_CtaPadding, CMap::eSeverity_Warning, "cta.padding", "padding is not 0", "CTA-861-H, 7.5",
      "Bytes after the last timing mean nothing; where they were meant as one, it is lost." },
    { eZorEdidRule_CtaNoDataBlocks, CMap::eSeverity_Warning, "cta.revision-without-data-blocks",
      "this revision of the block has no data blocks", "CTA-861-H, 7.5",
      "Sources that honor the revision do not look for data blocks, and miss HDMI and audio." },
    { eZorEdidRule_CtaBasicAudio, CMap::eSeverity_Warning, "cta.basic-audio",
      "has audio, but the block's flags lack basic audio", "CTA-861-H, 7.5",
      "Sources that ask the flag first send no sound at all; audio of a DisplayID section is a note where no CTA-861 "
      "block has flags." },
    { eZorEdidRule_CtaNativeCount, CMap::eSeverity_Warning, "cta.native-count", "there are fewer detailed timings",
      "CTA-861-H, 7.5",
      "The count of native timings points past the list, so that sources mark the wrong ones or none as native." },
    { eZorEdidRule_CtaPastCollection, CMap::eSeverity_Error, "cta.data-block.past-end",
      "runs past the end of its data block collection", "CTA-861-H, 7.5",
      "Sources stop here: this data block and whatever should follow is lost. Its length is wrong, or byte 2 of the "
      "block, where the collection ends." },
    { eZorEdidRule_CtaNoExtendedTag, CMap::eSeverity_Error, "cta.data-block.no-extended-tag",
      "has no room for its extended tag", "CTA-861-H, 7.5",
      "What the data block is cannot be known; sources skip it." },
    { eZorEdidRule_CtaNoOui, CMap::eSeverity_Error, "cta.data-block.no-oui", "has no room for its OUI",
      "CTA-861-H, 7.5", "Whose data block it is cannot be known; sources skip it." },
    { eZorEdidRule_CtaShort, CMap::eSeverity_Warning, "cta.data-block.short", "is shorter than the standard has it",
      "CTA-861-H, 7.5", "Sources take the missing fields as 0, or ignore the data block.", true },
    { eZorEdidRule_CtaLong, CMap::eSeverity_Warning, "cta.data-block.long", "is longer than the standard has it",
      "CTA-861-H, 7.5", "Sources read what they know and skip the rest; a later edition may define it.", true },
    { eZorEdidRule_CtaPart, CMap::eSeverity_Error, "cta.data-block.part", "is not a whole number of descriptors long",
      "CTA-861-H, 7.5",
      "The last descriptor is incomplete: sources drop it, and with it a format that the display meant to offer.",
      true },
    { eZorEdidRule_CtaOtherLength, CMap::eSeverity_Warning, "cta.data-block.length",
      "has a length that the standard does not define", "CTA-861-H, 7.5",
      "Sources guess which fields are present, or ignore the data block." },
    { eZorEdidRule_CtaAgain, CMap::eSeverity_Warning, "cta.data-block.repeated",
      "the standard allows only one of this kind", "CTA-861-H, 7.5",
      "Sources take the first, the last or a mixture of both." },
    { eZorEdidRule_CtaNotFirst, CMap::eSeverity_Warning, "cta.data-block.not-first",
      "is not the first data block of block 1", "HDMI 2.1",
      "Sources look for it at that place only, and then do not read the extension blocks that it announces.", true },
    { eZorEdidRule_CtaItemPast, CMap::eSeverity_Error, "cta.item.past-end", "runs past the end of its data block",
      "CTA-861-H, 7.5",
      "Sources drop the item that is cut; those that trust its length read bytes of the next data block." },
    { eZorEdidRule_CtaLastItem, CMap::eSeverity_Error, "cta.item.last", "its last descriptor runs past its end",
      "CTA-861-H, 7.5", "Sources drop the descriptor that is cut, and with it a mode or a format." },
    { eZorEdidRule_CtaVideoIndex, CMap::eSeverity_Warning, "cta.video-index", "no video code has this place",
      "CTA-861-H, 7.5.11; HDMI 1.4b, 8.3.2",
      "The place lies past the list of video codes: the display meant a mode that sources do not see." },
    { eZorEdidRule_CtaType7Extra, CMap::eSeverity_Warning, "cta.type-vii.extra-bytes", "the standard has 0 here",
      "CTA-861-H, 7.5.17", "Sources that honor the value expect timings of another length, others ignore it." },
    { eZorEdidRule_CtaType7Revision, CMap::eSeverity_Warning, "cta.type-vii.revision", "the standard has 2 here",
      "CTA-861-H, 7.5.17", "Sources that honor the revision read the timing by another layout or skip it." },
    { eZorEdidRule_CtaType8Codes, CMap::eSeverity_Warning, "cta.type-viii.codes", "the standard has DMT here",
      "CTA-861-H, 7.5.17", "Sources take the codes for DMT identifiers or skip them." },
    { eZorEdidRule_CtaType8Revision, CMap::eSeverity_Warning, "cta.type-viii.revision", "the standard has 1 here",
      "CTA-861-H, 7.5.17", "Sources that honor the revision skip the codes." },
    { eZorEdidRule_CtaType10Revision, CMap::eSeverity_Warning, "cta.type-x.revision", "the standard has 0 here",
      "CTA-861-H, 7.5.17", "Sources that honor the revision read the timings by another layout or skip them." },
    { eZorEdidRule_Cta420Twice, CMap::eSeverity_Warning, "cta.ycbcr-420.twice",
      "is in a video data block as well: here are codes for YCbCr 4:2:0 only", "CTA-861-H, 7.5.10",
      "The mode is said to need YCbCr 4:2:0 and not to need it; sources may fail it for lack of bandwidth or of "
      "4:2:0.",
      true },
    { eZorEdidRule_Cta420All, CMap::eSeverity_Note, "cta.ycbcr-420.all",
      "without a map all video codes are also in YCbCr 4:2:0", "CTA-861-H, 7.5.11",
      "Allowed; sources offer YCbCr 4:2:0 for each mode of the video data blocks." },
    { eZorEdidRule_Cta420None, CMap::eSeverity_Note, "cta.ycbcr-420.none", "marks no video code", "CTA-861-H, 7.5.11",
      "The data block says nothing; sources offer YCbCr 4:2:0 for none of the modes." },
    { eZorEdidRule_CtaSpeakerDeprecated, CMap::eSeverity_Note, "cta.speakers.deprecated", "is deprecated",
      "CTA-861-G and later, 7.5.3", "Later editions name these speakers by another bit, which newer sources look at.",
      true },
    { eZorEdidRule_CtaZeroRate, CMap::eSeverity_Warning, "cta.audio.zero-rate", "must be 0 for this format",
      "CTA-861-H, 7.5.2",
      "The format does not exist at this rate; sources that offer it send what the sink cannot decode." },
    { eZorEdidRule_CtaHdrMinimumAlone, CMap::eSeverity_Warning, "cta.hdr.minimum-alone",
      "means nothing without a maximum", "CTA-861-H, 7.5.13",
      "The minimum is coded relative to the maximum, so that sources cannot compute it and use one of their own." },
    { eZorEdidRule_CtaHdrAverage, CMap::eSeverity_Warning, "cta.hdr.frame-average", "is above the maximum luminance",
      "CTA-861-H, 7.5.13",
      "A whole frame cannot be brighter than the brightest spot; sources that map tones by it clip the picture.",
      true },
    { eZorEdidRule_CtaDynamicNoType, CMap::eSeverity_Warning, "cta.hdr-dynamic.no-type", "has no room for the type",
      "CTA-861-H, 7.5.14", "Which metadata it is about cannot be known; sources skip it." },
    { eZorEdidRule_CtaDynamicNoVersion, CMap::eSeverity_Warning, "cta.hdr-dynamic.no-version",
      "has no room for the version", "CTA-861-H, 7.5.14", "Sources assume a version or send no dynamic metadata." },
    { eZorEdidRule_CtaDynamicVersion, CMap::eSeverity_Warning, "cta.hdr-dynamic.version", "type 2 has no version 0",
      "CTA-861-H, 7.5.14", "Sources find no version that they support, and send no dynamic metadata." },
    { eZorEdidRule_CtaTransfer, CMap::eSeverity_Warning, "cta.transfer.above-full",
      "its last point lies above full luminance", "CTA-861-H",
      "The curve ends outside of what it describes; sources that correct by it distort the bright end." },
    { eZorEdidRule_CtaDeviceClock, CMap::eSeverity_Warning, "cta.display-device.clock",
      "is below the minimum clock frequency", "VESA DDDB 1.0", "No clock lies in the range; sources ignore it.", true },
    { eZorEdidRule_CtaInfoFramePast, CMap::eSeverity_Error, "cta.infoframe.past-end",
      "the payload runs past the end of the data block", "CTA-861-H, 7.5.9",
      "Sources do not learn which InfoFrames the sink takes." },
    { eZorEdidRule_CtaAmdRate, CMap::eSeverity_Warning, "cta.amd.rate", "is below the minimum refresh rate", "",
      "The range of variable refresh is empty; drivers that read the data block leave variable refresh off.", true },
    { eZorEdidRule_CtaOlderCode, CMap::eSeverity_Note, "cta.video.unknown-code",
      "not a published code, and readers of before CTA-861-F take it for another one", "CTA-861-H, 7.5.1",
      "Sources of today skip it; older ones take the highest bit for the native bit and show the mode of the rest." },
    { eZorEdidRule_CtaLostTimings, CMap::eSeverity_Warning, "cta.lost-timings",
      "has what look like detailed timings, which byte 2 of the block does not point at", "CTA-861-H, 7.5",
      "Sources begin where byte 2 points and end at the first descriptor without a pixel clock: they miss the modes." },

    // ---- HDMI ----
    { eZorEdidRule_HdmiTmdsClock, CMap::eSeverity_Warning, "hdmi.tmds-clock", "is above 340 MHz", "HDMI 1.4b, 8.3.2",
      "Rates above 340 MHz belong into the data block of the HDMI Forum; sources may clamp the value or refuse the "
      "fast modes.",
      true },
    { eZorEdidRule_HdmiFieldsMissing, CMap::eSeverity_Warning, "hdmi.fields-missing",
      "is set, but the data block ends before them", "HDMI 1.4b, 8.3.2",
      "Sources that trust the flag read bytes of the next data block as these fields.", true },
    { eZorEdidRule_HdmiInterlacedAlone, CMap::eSeverity_Warning, "hdmi.interlaced-latency",
      "is set without Latency_Fields_Present", "HDMI 1.4b, 8.3.2",
      "Latencies of interlaced video come after the progressive ones, so that sources look for them at the wrong "
      "place.",
      true },
    { eZorEdidRule_HdmiLengthsPast, CMap::eSeverity_Error, "hdmi.video.past-end",
      "the fields that follow run past the end of the data block", "HDMI 1.4b, 8.3.2",
      "Sources lose the 4K codes or 3D formats that are cut." },
    { eZorEdidRule_Hdmi3dPast, CMap::eSeverity_Error, "hdmi.3d.past-end", "runs past the end of the 3D fields",
      "HDMI 1.4b, 8.3.2", "Sources drop the 3D format that is cut." },
    { eZorEdidRule_Hdmi3dShort, CMap::eSeverity_Error, "hdmi.3d.short",
      "is too short for what 3D_Multi_present announces", "HDMI 1.4b, 8.3.2",
      "Sources read other bytes as the 3D structures, or ignore 3D.", true },
    { eZorEdidRule_HdmiAudioPast, CMap::eSeverity_Error, "hdmi.audio.past-end",
      "the fields that follow run past the end of the data block", "HDMI 2.0",
      "Sources lose the 3D audio descriptors or the speakers that are cut." },
    { eZorEdidRule_HdmiAudioNonMixed, CMap::eSeverity_Note, "hdmi.audio.non-mixed", "is set without multi-stream audio",
      "HDMI 2.0", "Sources ignore the flag, as it is about streams that the sink does not take.", true },

    // ---- HDMI Forum ----
    { eZorEdidRule_ForumTwo, CMap::eSeverity_Warning, "hdmi-forum.two",
      "HDMI allows a vendor-specific or a sink capability data block of the HDMI Forum, not both", "HDMI 2.1, 10.3.2",
      "Both hold the same fields; sources take one of them, and which is not defined." },
    { eZorEdidRule_ForumAlone, CMap::eSeverity_Warning, "hdmi-forum.alone",
      "no HDMI vendor-specific data block precedes it", "HDMI 2.1, 10.3.2",
      "Sources know an HDMI sink by that data block: without it they treat the sink as DVI, without audio and fast "
      "modes." },
    { eZorEdidRule_ForumVersion, CMap::eSeverity_Warning, "hdmi-forum.version", "version is not published",
      "HDMI 2.1, 10.3.2", "Sources that check the version ignore the data block and keep to 340 MHz." },
    { eZorEdidRule_ForumTmdsLow, CMap::eSeverity_Warning, "hdmi-forum.tmds-rate.low", "must be 0 or above 340 MHz",
      "HDMI 2.1, 10.3.2",
      "Rates up to 340 MHz belong into the HDMI vendor-specific data block; with one in each, sources take either." },
    { eZorEdidRule_ForumTmdsHigh, CMap::eSeverity_Warning, "hdmi-forum.tmds-rate.high", "is above 600 MHz",
      "HDMI 2.1, 10.3.2", "TMDS ends at 600 MHz; sources clamp the value.", true },
    { eZorEdidRule_ForumTmdsFrl, CMap::eSeverity_Warning, "hdmi-forum.tmds-rate.frl", "is too low for Max_FRL_Rate",
      "HDMI 2.1, 10.3.2", "Sources without FRL fall back to TMDS, and lose 4K at 60 Hz though the sink must take it.",
      true },
    { eZorEdidRule_ForumVrrMinHigh, CMap::eSeverity_Warning, "hdmi-forum.vrr-min.high", "is above 48 Hz",
      "HDMI 2.1, 10.3.2",
      "Ranges must reach down to 48 Hz, twice the rate of films; sources may leave variable refresh off.", true },
    { eZorEdidRule_ForumVrrMaxAlone, CMap::eSeverity_Warning, "hdmi-forum.vrr-max.alone",
      "means nothing without VRR_MIN", "HDMI 2.1, 10.3.2",
      "Without a minimum there is no range; sources leave variable refresh off." },
    { eZorEdidRule_ForumVrrMaxOrder, CMap::eSeverity_Warning, "hdmi-forum.vrr-max.order", "is below VRR_MIN",
      "HDMI 2.1, 10.3.2", "The range is empty; sources leave variable refresh off.", true },
    { eZorEdidRule_ForumVrrMaxLow, CMap::eSeverity_Warning, "hdmi-forum.vrr-max.low", "is below 100 Hz",
      "HDMI 2.1, 10.3.2",
      "Below 100 Hz the field must be 0, which leaves the maximum to the video format; sources may ignore the range.",
      true },
    { eZorEdidRule_ForumCinema, CMap::eSeverity_Note, "hdmi-forum.cinema-vrr", "is deprecated", "HDMI 2.1",
      "Sources ignore the flag since the revision that withdrew it.", true },
    { eZorEdidRule_ForumQms, CMap::eSeverity_Warning, "hdmi-forum.qms", "is set without QMS", "HDMI 2.1, 10.3.2",
      "The limits of quick media switching say nothing without it; sources ignore them.", true },
    { eZorEdidRule_ForumDsc, CMap::eSeverity_Warning, "hdmi-forum.dsc", "is set without DSC_1p2", "HDMI 2.1, 10.3.2",
      "Sources do not compress unless DSC_1p2 says so: what the display can do by DSC stays unused.", true },
    { eZorEdidRule_OverrideCount, CMap::eSeverity_Warning, "hdmi-forum.override.count",
      "is needed for more than one extension block only", "HDMI 2.1",
      "The data block announces nothing that byte 126 does not; sources that know it read no more than before.", true },
    { eZorEdidRule_OverrideBase, CMap::eSeverity_Warning, "hdmi-forum.override.base-count",
      "needs an extension count of 1 in the base block", "HDMI 2.1",
      "The override exists for sources that read one extension block only; with another count they take the old way." },
    { eZorEdidRule_ForumNotNext, CMap::eSeverity_Warning, "hdmi-forum.not-next",
      "does not follow the HDMI vendor-specific data block at once", "HDMI 2.1, 10.3.2",
      "Sources that look only there take the sink for one of HDMI 1.4: no modes above 340 MHz, no variable refresh." },

    // ---- DisplayID ----
    { eZorEdidRule_DisplayIdVersion, CMap::eSeverity_Warning, "displayid.version", "neither version 1 nor version 2",
      "DisplayID 1.3 and 2.1", "Sources skip a section whose layout they do not know." },
    { eZorEdidRule_DisplayIdRevision, CMap::eSeverity_Warning, "displayid.revision", "revision is not published",
      "DisplayID 1.3 and 2.1",
      "Later revisions stay readable as earlier ones, but none is published: the byte is most likely wrong." },
    { eZorEdidRule_DisplayIdLength, CMap::eSeverity_Warning, "displayid.section.length",
      "a section in an extension block has at most 121 bytes", "DisplayID 1.3 and 2.1",
      "The section does not fit its block; sources that check its checksum at the declared end discard it." },
    { eZorEdidRule_DisplayIdFiller, CMap::eSeverity_Warning, "displayid.filler", "filler is not 0",
      "DisplayID 1.3 and 2.1",
      "Three zeros in place of a data block end the section for sources: data blocks after them are lost. After the "
      "section's checksum nothing is lost, as sources do not read these bytes." },
    { eZorEdidRule_DisplayIdSectionPast, CMap::eSeverity_Error, "displayid.section.past-end",
      "runs past the end of its block", "DisplayID 1.3 and 2.1",
      "Sources discard the section, with its timings and its tile." },
    { eZorEdidRule_DisplayIdNoType, CMap::eSeverity_Warning, "displayid.section.no-type",
      "the first section names no product type or use case", "DisplayID 1.3 and 2.1",
      "What the other data blocks must be depends on it; sources treat the display as a common monitor." },
    { eZorEdidRule_DisplayIdTypeAgain, CMap::eSeverity_Warning, "displayid.section.type-again",
      "a section after the first one names a product type or use case", "DisplayID 1.3 and 2.1",
      "Sources may take the section for the first one of another structure." },
    { eZorEdidRule_DisplayIdSections, CMap::eSeverity_Warning, "displayid.section.count",
      "the extension count is not that of the sections after the first", "DisplayID 1.3 and 2.1",
      "Within an EDID sources go by its blocks, and ignore the count." },
    { eZorEdidRule_DisplayIdPast, CMap::eSeverity_Error, "displayid.data-block.past-end",
      "runs past the end of its section", "DisplayID 1.3 and 2.1",
      "Sources stop here: this data block and whatever should follow is lost." },
    { eZorEdidRule_DisplayIdShort, CMap::eSeverity_Warning, "displayid.data-block.short",
      "payload is shorter than the standard says", "DisplayID 1.3 and 2.1",
      "Sources ignore the data block, as fields that they need are missing." },
    { eZorEdidRule_DisplayIdLong, CMap::eSeverity_Warning, "displayid.data-block.long",
      "payload is longer than the standard says", "DisplayID 1.3 and 2.1",
      "Sources read what they know and skip the rest, or refuse the data block." },
    { eZorEdidRule_DisplayIdPart, CMap::eSeverity_Error, "displayid.data-block.part",
      "payload is not a whole number of items", "DisplayID 1.3 and 2.1",
      "The last item is incomplete: sources drop it, or refuse the whole data block." },
    { eZorEdidRule_DisplayIdOtherVersion, CMap::eSeverity_Warning, "displayid.data-block.other-version",
      "defined for the other version of DisplayID", "DisplayID 1.3 and 2.1",
      "Most sources read it nonetheless; strict ones skip it." },
    { eZorEdidRule_DisplayIdItemPast, CMap::eSeverity_Error, "displayid.item.past-end",
      "runs past the end of its data block", "DisplayID 1.3 and 2.1",
      "Sources drop the item that is cut; those that trust its length read bytes of the next data block." },
    { eZorEdidRule_DisplayIdContradiction, CMap::eSeverity_Warning, "displayid.data-block.count",
      "contradicts the payload length", "DisplayID 1.3 and 2.1",
      "A count and the length disagree; sources go by one of them, and lose items or read foreign bytes." },
    { eZorEdidRule_DisplayIdMaker, CMap::eSeverity_Note, "displayid.product.manufacturer", "not three letters",
      "DisplayID 1.3", "Some monitors have an OUI here, as version 2 does; sources may show it as letters." },
    { eZorEdidRule_DisplayIdWeek, CMap::eSeverity_Warning, "displayid.product.week", "no week of a year",
      "DisplayID 1.3 and 2.1", "Sources show the date of manufacture, and do nothing else with it." },
    { eZorEdidRule_DisplayIdLuminance, CMap::eSeverity_Warning, "displayid.luminance", "no positive number",
      "DisplayID 2.1",
      "A luminance must be a finite number above 0; sources that map tones by it fall back to a default." },
    { eZorEdidRule_DisplayIdPair, CMap::eSeverity_Warning, "displayid.parameters.pair", "the other size is given",
      "DisplayID 1.3 and 2.1", "One of two sizes alone gives neither an area nor a density; sources ignore both." },
    { eZorEdidRule_DisplayIdParameterCount, CMap::eSeverity_Warning, "displayid.transfer.parameters",
      "four parameters and a gamma are five bytes", "DisplayID 1.3",
      "Sources cannot tell where the next curve begins." },
    { eZorEdidRule_DisplayIdSingle, CMap::eSeverity_Warning, "displayid.head-mounted.number", "no finite number",
      "DisplayID 2.1", "Sources compute the optics of the headset with it: the picture is distorted or black." },
    { eZorEdidRule_DisplayIdRevision1, CMap::eSeverity_Note, "displayid.head-mounted.revision",
      "revision 1 is the first one", "DisplayID 2.1", "Sources read the data block as one of revision 1." },
    { eZorEdidRule_DisplayIdNoMethod, CMap::eSeverity_Warning, "displayid.stereo.no-method",
      "no room for a method code", "DisplayID 1.3 and 2.1",
      "Sources do not learn how the two views arrive, and offer no stereo." },
    { eZorEdidRule_DisplayIdMethodShort, CMap::eSeverity_Warning, "displayid.stereo.short", "too short for this method",
      "DisplayID 1.3 and 2.1", "Parameters of the method are missing; sources offer no stereo." },
    { eZorEdidRule_DisplayIdBezelNone, CMap::eSeverity_Warning, "displayid.tiled.bezel-zero",
      "0, but bezel sizes are given", "DisplayID 1.3 and 2.1",
      "The sizes are multiplied by 0: sources draw across the bezels as if there were none." },
    { eZorEdidRule_DisplayIdBezelAlone, CMap::eSeverity_Warning, "displayid.tiled.bezel-unused",
      "not 0, but no bezel sizes are given", "DisplayID 1.3 and 2.1",
      "There is nothing to multiply; sources ignore the byte." },
    { eZorEdidRule_DisplayIdTile, CMap::eSeverity_Warning, "displayid.tiled.location",
      "lies outside of the tiled display", "DisplayID 1.3 and 2.1",
      "Sources cannot place the tile, and show it as a display of its own." },

    // ---- Other extension blocks ----
    { eZorEdidRule_DiInterface, CMap::eSeverity_Warning, "di.interface",
      "bytes 03h to 0Dh describe a digital interface", "VESA DI-EXT",
      "The block calls the interface analog and describes a digital one; sources believe the base block." },
    { eZorEdidRule_VtbTooMany, CMap::eSeverity_Warning, "vtb.too-many", "the timings take more than the block has",
      "VESA VTB-EXT", "Sources read bytes of the next block as timings, or drop those that are cut." },
    { eZorEdidRule_LsLanguage, CMap::eSeverity_Warning, "ls.language", "not three letters", "VESA LS-EXT",
      "Sources choose the strings by the language of the user, and never choose these." },
    { eZorEdidRule_LsTablePast, CMap::eSeverity_Error, "ls.table.past-end", "runs past the end of its block",
      "VESA LS-EXT", "Sources drop the strings that are cut." },
    { eZorEdidRule_LsStringPast, CMap::eSeverity_Error, "ls.string.past-end",
      "the string runs past the end of its table", "VESA LS-EXT", "Sources show a part of the string, or drop it." },

    // ---- What the library makes of a structure ----
    { eZorEdidRule_ListedAs350, CMap::eSeverity_Note, "library.listed-as.640x350", "the library lists it as 640 x 350",
      "", gsc_szListedAs },
    { eZorEdidRule_ListedAs400, CMap::eSeverity_Note, "library.listed-as.720x400", "the library lists it as 720 x 400",
      "", gsc_szListedAs },
    { eZorEdidRule_ListedAs480, CMap::eSeverity_Note, "library.listed-as.848x480", "the library lists it as 848 x 480",
      "", gsc_szListedAs },
    { eZorEdidRule_ListedAs768, CMap::eSeverity_Note, "library.listed-as.1360x768",
      "the library lists it as 1360 x 768", "", gsc_szListedAs },
    { eZorEdidRule_ListedAsWide, CMap::eSeverity_Note, "library.listed-as.16-10", "the library lists it as 16:10", "",
      gsc_szListedAs },

    // ---- Base block ----
    { eZorEdidRule_YearInFuture, CMap::eSeverity_Warning, "base.year-in-future", "the year is in the future",
      "E-EDID 1.4, 3.4.4",
      "Inventories and drivers that sort quirks by age take the display for a newer one than it is." },
    { eZorEdidRule_DescriptorZero, CMap::eSeverity_Warning, "base.descriptor.zeros",
      "all zeros where a dummy descriptor (tag 10h) belongs", "E-EDID 1.4, 3.10.3.11",
      "Tag 00h is a maker's own: sources skip it, but those that validate descriptors refuse it." },

    // ---- Modes of all blocks ----
    { eZorEdidRule_ModeBeyondLimits, CMap::eSeverity_Warning, "timing.beyond-range-limits",
      "announced modes are outside of the display range limits", "E-EDID 1.4, 3.10.3.3", gsc_szBeyondClock },
    { eZorEdidRule_ModeBeyondTmds, CMap::eSeverity_Warning, "timing.beyond-tmds",
      "announced modes need a higher TMDS clock than the sink takes", "HDMI 1.4b, 8.3.2; HDMI 2.1, 10.3.2",
      "Sources drop these modes, or send them and the screen stays black." },
    { eZorEdidRule_VgaMissing, CMap::eSeverity_Warning, "timing.640x480-missing",
      "640 x 480 at 60 Hz is not announced, which every display must take", "CTA-861-H, 5.1",
      "It is what sources and boot firmware fall back to when all else fails." },
    { eZorEdidRule_CodeTwice, CMap::eSeverity_Warning, "cta.video.twice", "the same video code once more",
      "CTA-861-H, 7.5.1", "The places of 4:2:0 and 3D maps count each, so that tools which drop one shift the rest." },
    { eZorEdidRule_NativeMixed, CMap::eSeverity_Warning, "timing.native-mixed", "native formats of several sizes",
      "CTA-861-H, 7.5.1",
      "A panel of fixed pixels has one native size: a source that prefers native formats may choose another one, which "
      "the display scales." },
    { eZorEdidRule_HdmiCodeAlone, CMap::eSeverity_Warning, "hdmi.vic-alone",
      "an HDMI code without its counterpart of CTA-861", "HDMI 2.0, 10.1",
      "Sources of today look for the codes of CTA-861 and miss the mode." },
    { eZorEdidRule_CodeNativeAndNot, CMap::eSeverity_Warning, "cta.video.native-and-not",
      "the same video code once native and once not", "CTA-861-H, 7.5.1",
      "Whether sources take the format for native depends on which of the two they go by, and the places of 4:2:0 and "
      "3D maps count each." },
    { eZorEdidRule_ReferenceMissing, CMap::eSeverity_Warning, "cta.reference-missing",
      "prefers, or calls native, a mode that the image does not announce", "CTA-861-H, 7.5.12",
      "Sources skip it and choose another mode; a code that no list has is a note, as some take it all the same." },
    { eZorEdidRule_RangeOneRate, CMap::eSeverity_Warning, "base.range-limits.one-rate",
      "minimum and maximum leave one rate, and announced modes have others", "E-EDID 1.4, 3.10.3.3",
      "Sources that apply the limits drop all modes but those of this rate, and those that vary the rate have no range "
      "to do it in. From 1.4 on listed modes may leave the limits, and it is a note." },

    // ---- CTA-861 blocks among each other ----
    { eZorEdidRule_UnderscanContradicts, CMap::eSeverity_Warning, "cta.underscan",
      "contradicts the underscan flag of the block", "CTA-861-H, 7.5.6",
      "Whether the picture of a PC loses its edges depends on which of the two a source believes." },
    { eZorEdidRule_CtaFlagsDiffer, CMap::eSeverity_Warning, "cta.flags-differ",
      "byte 3 says otherwise than that of the first CTA-861 block", "CTA-861-H, 7.5",
      "Sources read audio, YCbCr and underscan from the first block or from the last." },
    { eZorEdidRule_UhdVicMissing, CMap::eSeverity_Warning, "hdmi-forum.uhd-vic",
      "video codes of 3840 pixels and more are announced without it", "HDMI 2.1, 10.3.2",
      "Sources that go by the bit do not offer these codes; sinks of HDMI 2.0 do not have it." },
    { eZorEdidRule_HdmiNotFirst, CMap::eSeverity_Warning, "hdmi.not-first-extension",
      "another block comes before the CTA-861 block of an HDMI sink", "HDMI 1.4b, 8.3",
      "Sources that read one extension block only, as many players do, take the sink for DVI: no sound, no fast "
      "modes." },
    { eZorEdidRule_RoomContradicts, CMap::eSeverity_Warning, "cta.room.speaker-locations",
      "contradicts the speaker location data block", "CTA-861-H, 7.5.15",
      "Sources that render sound for the room do not know which places of speakers to trust, and use the usual ones." },
    { eZorEdidRule_ChannelTwice, CMap::eSeverity_Warning, "cta.speaker-location.channel-twice",
      "the channel of an active speaker once more", "CTA-861-H, 7.5.16",
      "A channel can feed one place only: sources leave the other speaker silent, or drop the data block." },

    // ---- DisplayID sections ----
    { eZorEdidRule_DisplayIdNoProduct, CMap::eSeverity_Warning, "displayid.product-missing",
      "no product identification data block", "DisplayID 1.3, 3.2; DisplayID 2.1, 3.2",
      "Within an EDID the base block identifies the display; sources that go by DisplayID alone cannot." },
    { eZorEdidRule_DisplayIdNoParameters, CMap::eSeverity_Warning, "displayid.parameters-missing",
      "no display parameters data block, which a display must have", "DisplayID 1.3, 3.2; DisplayID 2.1, 3.2",
      "Size, native format and colours come from the base block, at its precision." },
    { eZorEdidRule_DisplayIdNoInterface, CMap::eSeverity_Warning, "displayid.interface-missing",
      "no display interface data block, which a display must have", "DisplayID 1.3, 3.2; DisplayID 2.1, 3.2",
      "Sources go by the colour depths of the base block and of CTA-861 blocks, and stay at 8 bits without these." },
    { eZorEdidRule_DisplayIdProductNotFirst, CMap::eSeverity_Warning, "displayid.product-not-first",
      "is not the first data block", "DisplayID 1.3, 3.2; DisplayID 2.1, 3.2",
      "Sources that expect the identification there find none, and treat the display as an unknown one.", true },
    { eZorEdidRule_DisplayIdVersionsDiffer, CMap::eSeverity_Warning, "displayid.section.version-differs",
      "the version is not that of the first section", "DisplayID 1.3 and 2.1",
      "The sections are parts of one structure: sources read all by the version of the first one, or drop the "
      "others." },
    { eZorEdidRule_DisplayIdImageSize, CMap::eSeverity_Warning, "displayid.parameters.image-size",
      "the image size is a centimetre or more off the screen size in bytes 15h and 16h", "",
      "Sources derive the scale of texts from either of the two, so that its size depends on which they take." },

    // ---- What the library does not read ----
    { eZorEdidRule_UnreadBlock, CMap::eSeverity_Note, "library.unread-block", "the block is not read", "",
      "The numbered lists of the library lack what this block announces." },
    { eZorEdidRule_UnreadPreferred, CMap::eSeverity_Note, "library.no-preferred-mode",
      "the text reports need a preferred mode", "",
      "The text reports of the library begin with the preferred mode and are refused without one." },
    { eZorEdidRule_UnreadRangeOffsets, CMap::eSeverity_Note, "library.range-offsets",
      "the library reads no range limits with offsets", "",
      "The reports of the library lack the range limits; map, facts and rules have them." },
    { eZorEdidRule_UnreadDescriptor, CMap::eSeverity_Note, "library.descriptor",
      "the library reads no display descriptor here", "",
      "The library ends its list of timings at a display descriptor of a CTA-861 block, and at one of the base block "
      "whose bytes 2 and 4 are not 0, and so lacks those after it; of the latter it lacks the text, too." },
    { eZorEdidRule_UnlistedTiming, CMap::eSeverity_Note, "library.unlisted-timing",
      "the library does not list this timing", "",
      "The numbered lists of the library, and edits by number, lack the timing; modes and facts have it." },
    { eZorEdidRule_ListedMore, CMap::eSeverity_Note, "library.listed-more",
      "the library lists timings of bytes that announce none", "",
      "The library takes interlaced latencies alone for present: its numbered lists have timings that modes and facts "
      "lack. They have such timings of a data block that crosses the end of its collection, too, where the finding on "
      "that comes in place of this one." },

    // ---- What the command says of a file ----
    { eZorEdidRule_SeveralImages, CMap::eSeverity_Note, "input.several-edids", "the file holds several EDIDs", "",
      "Each is checked by itself; who programs the file as it is into a monitor gives it a wrong length." },
};

constexpr bool IsBefore(const SZorEdidRule& oFirst, const SZorEdidRule& oSecond)
{
    return oFirst.m_eRule < oSecond.m_eRule;
}

static_assert(std::is_sorted(std::begin(gsc_aoRules), std::end(gsc_aoRules), IsBefore), "in the order of the numbers");

constexpr bool HasUniqueIds()
{
    std::array<std::string_view, std::size(gsc_aoRules)> aoIds;
    std::transform(std::begin(gsc_aoRules), std::end(gsc_aoRules), aoIds.begin(),
                   [](const SZorEdidRule& oRule) { return std::string_view(oRule.m_pszId); });
    std::sort(aoIds.begin(), aoIds.end());
    return std::adjacent_find(aoIds.begin(), aoIds.end()) == aoIds.end();
}
static_assert(HasUniqueIds());
} // namespace

unsigned int GetZorEdidRuleCount() { return std::size(gsc_aoRules); }

const SZorEdidRule& GetZorEdidRule(unsigned int uiIndex) { return gsc_aoRules[uiIndex]; }

const SZorEdidRule* FindZorEdidRule(EZorEdidRule eRule)
{
    const SZorEdidRule* poRule =
        std::lower_bound(std::begin(gsc_aoRules), std::end(gsc_aoRules), eRule,
                         [](const SZorEdidRule& oRule, EZorEdidRule eWanted) { return oRule.m_eRule < eWanted; });
    return poRule != std::end(gsc_aoRules) && poRule->m_eRule == eRule ? poRule : nullptr;
}

const SZorEdidRule* FindZorEdidRule(const char* pszId)
{
    for (const SZorEdidRule& oRule : gsc_aoRules)
    {
        if (pszId != nullptr && strcmp(oRule.m_pszId, pszId) == 0)
        {
            return &oRule;
        }
    }
    return nullptr;
}

bool IsZorEdidRuleOfLibrary(EZorEdidRule eRule)
{
    constexpr char szIds[] = "library.";
    const SZorEdidRule* poRule = FindZorEdidRule(eRule);
    return poRule != nullptr && strncmp(poRule->m_pszId, szIds, sizeof(szIds) - 1) == 0;
}

/// The rules that an EDID image is judged by: the notes of CZorEdidMap and the findings of CZorEdidCheck name them.
/// Numbers and ids stay, texts may improve; a retired one is never reused.

#pragma once

#include "ZorEdidMap.h"

#pragma GCC visibility push(default)

/// 1 to 499 are about one structure, which the map sees; 500 to 899 about several of them or about the image as a
/// whole; from 900 on about what this library does not read, and about the file.
enum EZorEdidRule : unsigned short
{
    eZorEdidRule_None = 0,

    // ---- Any structure ----
    eZorEdidRule_Checksum = 1,
    eZorEdidRule_ReservedBits = 2,
    eZorEdidRule_ReservedValue = 3,
    eZorEdidRule_PastStructure = 4,
    eZorEdidRule_OutOfRange = 5,
    eZorEdidRule_MaximumBelowMinimum = 6,
    eZorEdidRule_Ascii = 7,
    eZorEdidRule_Version1Layout = 8,
    eZorEdidRule_Version3Layout = 9,
    eZorEdidRule_Version10Layout = 10,
    eZorEdidRule_Blanking = 11,
    eZorEdidRule_BackPorch = 12,

    // ---- Blocks and their order ----
    eZorEdidRule_BlockCut = 20,
    eZorEdidRule_TooManyBlocks = 21,
    eZorEdidRule_BlocksMissing = 22,
    eZorEdidRule_BlockNotCounted = 23,
    eZorEdidRule_BlockKind = 24,
    eZorEdidRule_BlockMapMissing = 25,
    eZorEdidRule_BlockMapPlace = 26,
    eZorEdidRule_BlockMapTag = 27,
    eZorEdidRule_BlockErased = 28,

    // ---- Base block ----
    eZorEdidRule_BaseHeader = 40,
    eZorEdidRule_BaseMaker = 41,
    eZorEdidRule_BaseYear = 42,
    eZorEdidRule_BaseVersion = 43,
    eZorEdidRule_BaseRevision = 44,
    eZorEdidRule_SrgbColors = 45,
    eZorEdidRule_SrgbGamma = 46,
    eZorEdidRule_PreferredFlag = 47,
    eZorEdidRule_StandardTimingZero = 48,
    eZorEdidRule_FirstDescriptor = 49,
    eZorEdidRule_DescriptorOrder = 50,
    eZorEdidRule_ImageSize = 51,
    eZorEdidRule_RangeRequired = 52,
    eZorEdidRule_NameRequired = 53,
    eZorEdidRule_RangeRequiredContinuous = 54,
    eZorEdidRule_NameEmpty = 55,

    // ---- Descriptors of 18 bytes ----
    eZorEdidRule_TimingSize = 60,
    eZorEdidRule_TimingClock = 61,
    eZorEdidRule_TimingSync = 62,
    eZorEdidRule_TimingPorch = 63,
    eZorEdidRule_TimingAspect = 64,
    eZorEdidRule_TextControl = 65,
    eZorEdidRule_TextBeyondAscii = 66,
    eZorEdidRule_TextEnd = 67,
    eZorEdidRule_LineFeed = 68,
    eZorEdidRule_Blanks = 69,
    eZorEdidRule_RangeZero = 70,
    eZorEdidRule_RangeOrder = 71,
    eZorEdidRule_RangeClock = 72,
    eZorEdidRule_RangeFormula = 73,
    eZorEdidRule_PreferredAspect = 74,
    eZorEdidRule_CvtLines = 75,
    eZorEdidRule_CvtRate = 76,
    eZorEdidRule_DetailedCut = 77,
    eZorEdidRule_DescriptorTag = 78,
    eZorEdidRule_RangePixelClock = 79,
    eZorEdidRule_RangeLineRate = 80,
    eZorEdidRule_RangeFieldRate = 81,
    eZorEdidRule_TextBlanks = 82,

    // ---- CTA-861 extension blocks ----
    eZorEdidRule_CtaRevision = 120,
    eZorEdidRule_CtaStart = 121,
    eZorEdidRule_CtaPadding = 122,
    eZorEdidRule_CtaNoDataBlocks = 123,
    eZorEdidRule_CtaBasicAudio = 124,
    eZorEdidRule_CtaNativeCount = 125,
    eZorEdidRule_CtaPastCollection = 126,
    eZorEdidRule_CtaNoExtendedTag = 127,
    eZorEdidRule_CtaNoOui = 128,
    eZorEdidRule_CtaShort = 129,
    eZorEdidRule_CtaLong = 130,
    eZorEdidRule_CtaPart = 131,
    eZorEdidRule_CtaOtherLength = 132,
    eZorEdidRule_CtaAgain = 133,
    eZorEdidRule_CtaNotFirst = 134,
    eZorEdidRule_CtaItemPast = 135,
    eZorEdidRule_CtaLastItem = 136,
    eZorEdidRule_CtaVideoIndex = 137,
    eZorEdidRule_CtaType7Extra = 138,
    eZorEdidRule_CtaType7Revision = 139,
    eZorEdidRule_CtaType8Codes = 140,
    eZorEdidRule_CtaType8Revision = 141,
    eZorEdidRule_CtaType10Revision = 142,
    eZorEdidRule_Cta420Twice = 143,
    eZorEdidRule_Cta420All = 144,
    eZorEdidRule_Cta420None = 145,
    eZorEdidRule_CtaSpeakerDeprecated = 146,
    eZorEdidRule_CtaZeroRate = 147,
    eZorEdidRule_CtaHdrMinimumAlone = 148,
    eZorEdidRule_CtaHdrAverage = 149,
    eZorEdidRule_CtaDynamicNoType = 150,
    eZorEdidRule_CtaDynamicNoVersion = 151,
    eZorEdidRule_CtaDynamicVersion = 152,
    eZorEdidRule_CtaTransfer = 153,
    eZorEdidRule_CtaDeviceClock = 154,
    eZorEdidRule_CtaInfoFramePast = 155,
    eZorEdidRule_CtaAmdRate = 156,
    eZorEdidRule_CtaOlderCode = 157,
    eZorEdidRule_CtaLostTimings = 158,

    // ---- HDMI ----
    eZorEdidRule_HdmiTmdsClock = 200,
    eZorEdidRule_HdmiFieldsMissing = 201,
    eZorEdidRule_HdmiInterlacedAlone = 202,
    eZorEdidRule_HdmiLengthsPast = 203,
    eZorEdidRule_Hdmi3dPast = 204,
    eZorEdidRule_Hdmi3dShort = 205,
    eZorEdidRule_HdmiAudioPast = 206,
    eZorEdidRule_HdmiAudioNonMixed = 207,

    // ---- HDMI Forum ----
    eZorEdidRule_ForumTwo = 220,
    eZorEdidRule_ForumAlone = 221,
    eZorEdidRule_ForumVersion = 222,
    eZorEdidRule_ForumTmdsLow = 223,
    eZorEdidRule_ForumTmdsHigh = 224,
    eZorEdidRule_ForumTmdsFrl = 225,
    eZorEdidRule_ForumVrrMinHigh = 226,
    eZorEdidRule_ForumVrrMaxAlone = 227,
    eZorEdidRule_ForumVrrMaxOrder = 228,
    eZorEdidRule_ForumVrrMaxLow = 229,
    eZorEdidRule_ForumCinema = 230,
    eZorEdidRule_ForumQms = 231,
    eZorEdidRule_ForumDsc = 232,
    eZorEdidRule_OverrideCount = 233,
    eZorEdidRule_OverrideBase = 234,
    eZorEdidRule_ForumNotNext = 235,

    // ---- DisplayID ----
    eZorEdidRule_DisplayIdVersion = 280,
    eZorEdidRule_DisplayIdRevision = 281,
    eZorEdidRule_DisplayIdLength = 282,
    eZorEdidRule_DisplayIdFiller = 283,
    eZorEdidRule_DisplayIdSectionPast = 284,
    eZorEdidRule_DisplayIdNoType = 285,
    eZorEdidRule_DisplayIdTypeAgain = 286,
    eZorEdidRule_DisplayIdSections = 287,
    eZorEdidRule_DisplayIdPast = 288,
    eZorEdidRule_DisplayIdShort = 289,
    eZorEdidRule_DisplayIdLong = 290,
    eZorEdidRule_DisplayIdPart = 291,
    eZorEdidRule_DisplayIdOtherVersion = 292,
    eZorEdidRule_DisplayIdItemPast = 293,
    eZorEdidRule_DisplayIdContradiction = 294,
    eZorEdidRule_DisplayIdMaker = 295,
    eZorEdidRule_DisplayIdWeek = 296,
    eZorEdidRule_DisplayIdLuminance = 297,
    eZorEdidRule_DisplayIdPair = 298,
    eZorEdidRule_DisplayIdParameterCount = 299,
    eZorEdidRule_DisplayIdSingle = 300,
    eZorEdidRule_DisplayIdRevision1 = 301,
    eZorEdidRule_DisplayIdNoMethod = 302,
    eZorEdidRule_DisplayIdMethodShort = 303,
    eZorEdidRule_DisplayIdBezelNone = 304,
    eZorEdidRule_DisplayIdBezelAlone = 305,
    eZorEdidRule_DisplayIdTile = 306,

    // ---- Other extension blocks ----
    eZorEdidRule_DiInterface = 360,
    eZorEdidRule_VtbTooMany = 361,
    eZorEdidRule_LsLanguage = 362,
    eZorEdidRule_LsTablePast = 363,
    eZorEdidRule_LsStringPast = 364,

    // ---- What the library makes of a structure ----
    eZorEdidRule_ListedAs350 = 480,
    eZorEdidRule_ListedAs400 = 481,
    eZorEdidRule_ListedAs480 = 482,
    eZorEdidRule_ListedAs768 = 483,
    eZorEdidRule_ListedAsWide = 484,

    // ---- Base block ----
    eZorEdidRule_YearInFuture = 500,
    eZorEdidRule_DescriptorZero = 501,

    // ---- Modes of all blocks ----
    eZorEdidRule_ModeBeyondLimits = 530,
    eZorEdidRule_ModeBeyondTmds = 531,
    eZorEdidRule_VgaMissing = 532,
    eZorEdidRule_CodeTwice = 533,
    eZorEdidRule_NativeMixed = 534,
    eZorEdidRule_HdmiCodeAlone = 535,
    eZorEdidRule_CodeNativeAndNot = 536,
    eZorEdidRule_ReferenceMissing = 537,
    eZorEdidRule_RangeOneRate = 538,

    // ---- CTA-861 blocks among each other ----
    eZorEdidRule_UnderscanContradicts = 560,
    eZorEdidRule_CtaFlagsDiffer = 561,
    eZorEdidRule_UhdVicMissing = 562,
    eZorEdidRule_HdmiNotFirst = 563,
    eZorEdidRule_RoomContradicts = 564,
    eZorEdidRule_ChannelTwice = 565,

    // ---- DisplayID sections ----
    eZorEdidRule_DisplayIdNoProduct = 590,
    eZorEdidRule_DisplayIdNoParameters = 591,
    eZorEdidRule_DisplayIdNoInterface = 592,
    eZorEdidRule_DisplayIdProductNotFirst = 593,
    eZorEdidRule_DisplayIdVersionsDiffer = 594,
    eZorEdidRule_DisplayIdImageSize = 595,

    // ---- What the library does not read ----
    eZorEdidRule_UnreadBlock = 900,
    eZorEdidRule_UnreadPreferred = 901,
    eZorEdidRule_UnreadRangeOffsets = 902,
    eZorEdidRule_UnreadDescriptor = 903,
    eZorEdidRule_UnlistedTiming = 904,
    eZorEdidRule_ListedMore = 905,

    // ---- What the command says of a file ----
    eZorEdidRule_SeveralImages = 990,
};

/// What is known of a rule. All texts are static and never null.
struct SZorEdidRule
{
    EZorEdidRule m_eRule;
    CZorEdidMap::ESeverity m_eSeverity; ///< as a rule: a finding may weigh otherwise, as by revision or kind of block
    const char* m_pszId;                ///< "checksum", "timing.out-of-range": lower case, dots and hyphens
    const char* m_pszWhat;              ///< the finding in words: "the checksum is wrong"
    const char* m_pszStandard;          ///< "E-EDID 1.4, 3.11"; empty where no standard asks for it
    const char* m_pszWhy;               ///< one sentence: why it matters, and what sources do with it
    /// Whether m_pszWhat continues the name of the field and its value: "Max_TMDS_Clock 600 MHz is above 340 MHz".
    bool m_bOfField = false;
};

/// The rules in the order of their numbers. uiIndex must be below GetZorEdidRuleCount.
unsigned int GetZorEdidRuleCount();
const SZorEdidRule& GetZorEdidRule(unsigned int uiIndex);

/// Null for eZorEdidRule_None and unknown numbers; the other for an unknown id and for null.
const SZorEdidRule* FindZorEdidRule(EZorEdidRule eRule);
const SZorEdidRule* FindZorEdidRule(const char* pszId);

/// Whether the rule is about what the library makes of an image, and no fault of the image: "library.unread-block".
bool IsZorEdidRuleOfLibrary(EZorEdidRule eRule);

#pragma GCC visibility pop

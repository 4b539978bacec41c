// The walk of a CTA-861 extension block, and of a data block collection in any block. Which table or walk a data block
// has is one list here; the tables are in MapCtaVideo.cpp, MapCtaAudio.cpp, MapCtaColour.cpp, MapCtaHdmi.cpp and
// MapCtaVendor.cpp. Called by the walk of an image, and by that of a DisplayID block.

#include <algorithm>

#include "MapCtaBlocks.h"
#include "MapKinds.h"
#include "MapOther.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/Modes.h"

namespace ZorMap
{
using namespace ZorStandards::Cta;

namespace
{
// ---- The list of data blocks: CTA-861-H 7.5, HDMI 1.4b, HDMI 2.1 ----

// Which data blocks a row is of.
struct SKey
{
    unsigned char m_ui8Tag;
    unsigned char m_ui8FirstExtended; // both 0 for the tags that have no extended one
    unsigned char m_ui8LastExtended;
    unsigned int m_uiOui; // as IEEE writes it
};

constexpr unsigned int gsc_uiAnyOui = 0;
constexpr unsigned char gsc_ui8VendorTag = gsc_uiVendorTag;
constexpr unsigned char gsc_ui8ExtendedTag = gsc_uiExtendedTag;
constexpr unsigned char gsc_ui8VendorVideo =
    gsc_uiExtendedVendorVideo; // extended tags whose payload begins with an OUI
constexpr unsigned char gsc_ui8VendorAudio = gsc_uiExtendedVendorAudio;

constexpr SKey Tag(unsigned char ui8Tag) { return { ui8Tag, 0, 0, gsc_uiAnyOui }; }
constexpr SKey Extended(unsigned char ui8First, unsigned char ui8Last)
{
    return { gsc_ui8ExtendedTag, ui8First, ui8Last, gsc_uiAnyOui };
}
constexpr SKey Extended(unsigned char ui8Tag) { return Extended(ui8Tag, ui8Tag); }
constexpr SKey Vendor(unsigned int uiOui) { return { gsc_ui8VendorTag, 0, 0, uiOui }; }
constexpr SKey VideoVendor(unsigned int uiOui)
{
    return { gsc_ui8ExtendedTag, gsc_ui8VendorVideo, gsc_ui8VendorVideo, uiOui };
}
constexpr SKey AudioVendor(unsigned int uiOui)
{
    return { gsc_ui8ExtendedTag, gsc_ui8VendorAudio, gsc_ui8VendorAudio, uiOui };
}

constexpr SPayloadRule gsc_oAnySize = AtLeast(0);

enum ERule : unsigned char
{
    eAny,
    eOnce,  // a second one in a collection is against the standard
    eFirst, // the first data block of block 1, and only once
};

// What lies in the payload.
struct SContent
{
    const STable* m_poTable = nullptr;
    unsigned int m_uiItemSize = 0; // the table lies over the payload once; else over each item of this size
    CtaWalk m_pfnWalk = nullptr;
};

constexpr SContent Rows(const STable& oTable) { return { &oTable, 0, nullptr }; }
constexpr SContent Items(const STable& oTable, unsigned int uiSize) { return { &oTable, uiSize, nullptr }; }
constexpr SContent Walk(CtaWalk pfnWalk) { return { nullptr, 0, pfnWalk }; }

struct SCtaBlock
{
    EZorEdidField m_eId; // of its group
    SKey m_oKey;
    const char* m_pszName;
    CZorEdidMap::EArea m_eArea = eArea_Unused;
    SPayloadRule m_oSize = gsc_oAnySize;
    ERule m_eRule = eAny;
    SContent m_oContent = {}; // the payload of a row without one is unknown
};

constexpr SKey gsc_oHdmiKey = Vendor(gsc_uiOuiHdmi);
constexpr SKey gsc_oHdmiForumKey = Vendor(gsc_uiOuiHdmiForum);
constexpr SKey gsc_oHdmiSinkKey = Extended(gsc_uiExtendedHdmiSink);

// A row with an OUI precedes the row for any.
constexpr SCtaBlock gsc_aoDataBlocks[] = {
    { eId_CtaReserved, Tag(0), "Reserved data block" },
    { eId_CtaAudio, Tag(gsc_uiAudioTag), "Audio data block", eArea_Audio, ItemsOf(3), eAny,
      Items(g_oCtaAudioTable, 3) },
    { eId_CtaVideo, Tag(gsc_uiVideoTag), "Video data block", eArea_Timing, AtLeast(1), eAny,
      Items(g_oCtaVideoTable, 1) },
    { eId_CtaHdmi, gsc_oHdmiKey, "HDMI vendor-specific data block", eArea_Display, AtLeast(2), eOnce,
      Walk(MapCtaHdmi) },
    { eId_CtaHdmiForum, gsc_oHdmiForumKey, "HDMI Forum vendor-specific data block", eArea_Display, AtLeast(4), eOnce,
      Walk(MapCtaHdmiForum) },
    { eId_CtaAmd, Vendor(gsc_uiOuiAmd), "AMD vendor-specific data block", eArea_Vendor, AtLeast(5), eOnce,
      Rows(g_oCtaAmdTable) },
    { eId_CtaMicrosoft, Vendor(gsc_uiOuiMicrosoft), "Microsoft vendor-specific data block", eArea_Vendor, Exactly(18),
      eOnce, Rows(g_oCtaMicrosoftTable) },
    { eId_CtaUhdAlliance, Vendor(gsc_uiOuiUhdAlliance), "UHD Alliance vendor-specific data block", eArea_Vendor,
      AtLeast(2), eOnce, Rows(g_oCtaUhdTable) },
    { eId_CtaVendor, Tag(gsc_uiVendorTag), "Vendor-specific data block", eArea_Vendor },
    { eId_CtaSpeakers, Tag(gsc_uiSpeakersTag), "Speaker allocation data block", eArea_Audio, Exactly(3), eOnce,
      Walk(MapCtaSpeakers) },
    { eId_CtaTransfer, Tag(5), "VESA display transfer characteristic data block", eArea_Colour, OneOf({ 7, 15, 31 }),
      eAny, Walk(MapCtaTransfer) },
    { eId_CtaVideoFormat, Tag(gsc_uiVideoFormatTag), "Video format data block", eArea_Timing, AtLeast(2), eAny,
      Walk(MapCtaVideoFormats) },
    { eId_CtaVideoCapability, Extended(gsc_uiExtendedVideoCapability), "Video capability data block", eArea_Display,
      Exactly(1), eOnce, Rows(g_oCtaVideoCapabilityTable) },
    { eId_CtaHdr10Plus, VideoVendor(gsc_uiOuiHdr10Plus), "HDR10+ vendor-specific video data block", eArea_Colour,
      AtLeast(1), eOnce, Rows(g_oCtaHdr10PlusTable) },
    { eId_CtaDolbyVision, VideoVendor(gsc_uiOuiDolby), "Dolby Vision vendor-specific video data block", eArea_Colour,
      AtLeast(7), eOnce, Rows(g_oCtaDolbyVisionTable) },
    { eId_CtaVendorVideo, Extended(gsc_uiExtendedVendorVideo), "Vendor-specific video data block", eArea_Vendor },
    { eId_CtaDisplayDevice, Extended(gsc_uiExtendedDisplayDevice), "VESA video display device data block",
      eArea_Display, Exactly(30), eOnce, Rows(g_oCtaDisplayDeviceTable) },
    { eId_CtaVesaVtb, Extended(3), "VESA video timing block extension", eArea_Timing },
    { eId_CtaReserved, Extended(4), "Reserved for HDMI video data block" },
    { eId_CtaColorimetry, Extended(gsc_uiExtendedColorimetry), "Colorimetry data block", eArea_Colour, Exactly(2),
      eOnce, Rows(g_oCtaColorimetryTable) },
    { eId_CtaHdrStatic, Extended(gsc_uiExtendedStaticHdr), "HDR static metadata data block", eArea_Colour, AtLeast(2),
      eOnce, Rows(g_oCtaStaticHdrTable) },
    { eId_CtaHdrDynamic, Extended(gsc_uiExtendedDynamicHdr), "HDR dynamic metadata data block", eArea_Colour,
      AtLeast(3), eOnce, Walk(MapCtaDynamicHdr) },
    { eId_CtaNativeResolution, Extended(gsc_uiExtendedNative), "Native video resolution data block", eArea_Timing,
      OneOf({ 1, 2, 6 }, true), eOnce, Walk(MapCtaNative) },
    { eId_CtaReserved, Extended(9, 12), "Reserved for video-related blocks" },
    { eId_CtaVideoFormatPreference, Extended(gsc_uiExtendedPreference), "Video format preference data block",
      eArea_Timing, AtLeast(1), eOnce, Items(g_oCtaPreferenceTable, 1) },
    { eId_Cta420Video, Extended(gsc_uiExtended420Video), "YCbCr 4:2:0 video data block", eArea_Timing, AtLeast(1), eAny,
      Walk(MapCta420Video) },
    { eId_Cta420Map, Extended(gsc_uiExtended420Map), "YCbCr 4:2:0 capability map data block", eArea_Timing,
      gsc_oAnySize, eOnce, Walk(MapCtaCapabilityMap) },
    { eId_CtaReserved, Extended(16), "Reserved for CTA miscellaneous audio fields" },
    { eId_CtaDolbyAudio, AudioVendor(gsc_uiOuiDolby), "Dolby vendor-specific audio data block", eArea_Audio, AtLeast(2),
      eAny, Rows(g_oCtaDolbyAudioTable) },
    { eId_CtaVendorAudio, Extended(gsc_uiExtendedVendorAudio), "Vendor-specific audio data block", eArea_Vendor },
    { eId_CtaHdmiAudio, Extended(gsc_uiExtendedHdmiAudio), "HDMI audio data block", eArea_Audio, AtLeast(2), eOnce,
      Walk(MapCtaHdmiAudio) },
    { eId_CtaRoom, Extended(19), "Room configuration data block", eArea_Audio, OneOf({ 4, 7, 10 }), eOnce,
      Walk(MapCtaRoom) },
    { eId_CtaSpeakerLocation, Extended(20), "Speaker location data block", eArea_Audio, AtLeast(2), eAny,
      Walk(MapCtaSpeakerLocations) },
    { eId_CtaReserved, Extended(21, 31), "Reserved for audio-related blocks" },
    { eId_CtaInfoframe, Extended(32), "InfoFrame data block", eArea_Display, AtLeast(2), eOnce,
      Walk(MapCtaInfoFrames) },
    { eId_CtaProductInformation, Extended(33), "Product information data block", eArea_Identity },
    { eId_CtaType7, Extended(gsc_uiExtendedType7), "DisplayID Type VII video timing data block", eArea_Timing,
      Exactly(21), eAny, Walk(MapCtaTypeVii) },
    { eId_CtaType8, Extended(gsc_uiExtendedType8), "DisplayID Type VIII video timing data block", eArea_Timing,
      AtLeast(2), eAny, Walk(MapCtaTypeViii) },
    { eId_CtaReserved, Extended(36, 41), "Reserved data block" },
    { eId_CtaType10, Extended(gsc_uiExtendedType10), "DisplayID Type X video timing data block", eArea_Timing,
      AtLeast(7), eAny, Walk(MapCtaTypeX) },
    { eId_CtaReserved, Extended(43, 119), "Reserved data block" },
    { eId_CtaExtensionOverride, Extended(gsc_uiExtendedOverride), "HDMI Forum EDID extension override data block",
      eArea_Structure, AtLeast(1), eFirst, Walk(MapCtaExtensionOverride) },
    { eId_CtaHdmiForumSink, gsc_oHdmiSinkKey, "HDMI Forum sink capability data block", eArea_Display, AtLeast(6), eOnce,
      Walk(MapCtaHdmiSink) },
    { eId_CtaToneMapping, Extended(gsc_uiExtendedToneMapping), "HDMI Forum source-based tone mapping data block",
      eArea_Colour, AtLeast(1), eOnce, Walk(MapCtaToneMapping) },
    { eId_CtaReserved, Extended(123, 127), "Reserved for HDMI" },
    { eId_CtaReserved, Extended(128, 255), "Reserved data block" },
};
constexpr unsigned int gsc_uiKinds = std::size(gsc_aoDataBlocks);

// What a block of tag 7 without an extended tag is.
constexpr SCtaBlock gsc_oNoExtendedTag = { eId_CtaNoExtendedTag, Extended(0, 255),
                                           "Extended data block without a tag" };

// ---- The header of a data block: CTA-861-H 7.5 ----

constexpr unsigned int gsc_uiExtendedSize = 2; // with the extended tag
constexpr unsigned int gsc_uiMostHeader = gsc_uiExtendedSize + gsc_uiOuiSize;

constexpr SMeaning gsc_aoTags[] = {
    { 0, 0, gsc_szReserved },
    { 1, 1, "audio" },
    { 2, 2, "video" },
    { 3, 3, "vendor-specific" },
    { 4, 4, "speaker allocation" },
    { 5, 5, "VESA display transfer characteristic" },
    { 6, 6, "video format" },
    { 7, 7, "use extended tag" },
};

constexpr bool HasOui(unsigned int uiTag, unsigned int uiExtended)
{
    return uiTag == gsc_ui8VendorTag ||
           (uiTag == gsc_ui8ExtendedTag && (uiExtended == gsc_ui8VendorVideo || uiExtended == gsc_ui8VendorAudio));
}

// The names of extended tags, from the list of data blocks: of each range the row for any OUI. What is reserved has no
// area.
struct SExtendedTags
{
    SMeaning m_aoMeanings[gsc_uiKinds] = {};
    unsigned int m_uiCount = 0;
};

constexpr SExtendedTags MakeExtendedTags()
{
    SExtendedTags oTags;
    for (const SCtaBlock& oBlock : gsc_aoDataBlocks)
    {
        if (oBlock.m_oKey.m_ui8Tag == gsc_ui8ExtendedTag && oBlock.m_oKey.m_uiOui == gsc_uiAnyOui)
        {
            oTags.m_aoMeanings[oTags.m_uiCount++] = { oBlock.m_oKey.m_ui8FirstExtended, oBlock.m_oKey.m_ui8LastExtended,
                                                      oBlock.m_eArea == eArea_Unused ? gsc_szReserved
                                                                                     : oBlock.m_pszName };
        }
    }
    return oTags;
}

constexpr SExtendedTags gsc_oExtendedTags = MakeExtendedTags();

constexpr SPlace gsc_oTag = Split({ gsc_oHeaderTag });

bool IsVendor(const CRecord& oHeader)
{
    return oHeader.Get(gsc_oTag) == gsc_uiVendorTag && oHeader.GetSize() >= gsc_uiHeaderSize + gsc_uiOuiSize;
}
bool IsExtended(const CRecord& oHeader) { return oHeader.Get(gsc_oTag) == gsc_uiExtendedTag; }
bool IsExtendedVendor(const CRecord& oHeader)
{
    return IsExtended(oHeader) && HasOui(gsc_ui8ExtendedTag, oHeader.GetByte(1)) &&
           oHeader.GetSize() == gsc_uiMostHeader;
}

constexpr SRow gsc_aoHeaderRows[] = {
    { eId_CtaDataBlockTag, gsc_oTag, "Tag code", Names(gsc_aoTags) },
    { eId_CtaDataBlockLength, Split({ gsc_oHeaderLength }), "Length", Number("bytes") },
    { eId_CtaDataBlockExtendedTag, Byte(1), "Extended tag code",
      Names({ gsc_oExtendedTags.m_aoMeanings, gsc_oExtendedTags.m_uiCount }), IsExtended },
    { eId_CtaDataBlockOui, Shifted(gsc_oOui, gsc_uiHeaderSize), "IEEE OUI", Oui(), IsVendor },
    { eId_CtaDataBlockOui, Shifted(gsc_oOui, gsc_uiHeaderSize + 1), "IEEE OUI", Oui(), IsExtendedVendor },
};
constexpr STable gsc_oHeaderTable = { eZorEdidField_None, "Data block header", eArea_Structure, gsc_aoHeaderRows };

// A data block of a collection: its kind, where it lies, and where its payload begins. Nothing of it reaches beyond the
// collection's end.
struct SFound
{
    const SCtaBlock* m_poKind;
    unsigned int m_uiOffset; // in the image
    unsigned int m_uiSize;   // with its header
    unsigned int m_uiHeader;
    bool m_bCut;

    unsigned int GetPayload() const { return m_uiOffset + m_uiHeader; }
    unsigned int GetPayloadSize() const { return m_uiSize - m_uiHeader; }
};

constexpr const SCtaBlock* FindKind(unsigned int uiTag, unsigned int uiExtended, unsigned int uiOui)
{
    for (const SCtaBlock& oKind : gsc_aoDataBlocks)
    {
        if (oKind.m_oKey.m_ui8Tag == uiTag && oKind.m_oKey.m_ui8FirstExtended <= uiExtended &&
            uiExtended <= oKind.m_oKey.m_ui8LastExtended &&
            (oKind.m_oKey.m_uiOui == gsc_uiAnyOui || oKind.m_oKey.m_uiOui == uiOui))
        {
            return &oKind;
        }
    }
    return &gsc_oNoExtendedTag; // never reached: the list has a row for every tag
}

// Whether each row is found by one of its tags: none follows rows that take all of them.
constexpr bool IsEachRowFound()
{
    return std::ranges::all_of(gsc_aoDataBlocks, [](const SCtaBlock& oKind) {
        unsigned int uiExtended = oKind.m_oKey.m_ui8FirstExtended;
        while (uiExtended <= oKind.m_oKey.m_ui8LastExtended &&
               FindKind(oKind.m_oKey.m_ui8Tag, uiExtended, oKind.m_oKey.m_uiOui) != &oKind)
        {
            ++uiExtended;
        }
        return uiExtended <= oKind.m_oKey.m_ui8LastExtended;
    });
}
static_assert(IsEachRowFound());

// The data block that the walk has reached, which goes over a collection at uiStart.
SFound FindDataBlock(const CMapWriter& oWriter, unsigned int uiStart, const CDataBlockWalk& oWalk)
{
    const unsigned int uiTag = oWalk.GetTag();
    SFound oFound = { &gsc_oNoExtendedTag, uiStart + oWalk.GetPayload().m_uiOffset - gsc_uiHeaderSize,
                      gsc_uiHeaderSize + oWalk.GetLength(), gsc_uiHeaderSize, oWalk.IsCut() };
    const CRecord oRecord = oWriter.GetRecord(oFound.m_uiOffset, oFound.m_uiSize);
    if (uiTag == gsc_ui8ExtendedTag)
    {
        if (oFound.m_uiSize < gsc_uiExtendedSize)
        {
            return oFound;
        }
        oFound.m_uiHeader = gsc_uiExtendedSize;
    }
    const unsigned int uiExtended = uiTag == gsc_ui8ExtendedTag ? oRecord.GetByte(1) : 0;
    unsigned int uiOui = gsc_uiAnyOui;
    if (HasOui(uiTag, uiExtended) && oFound.m_uiSize >= oFound.m_uiHeader + gsc_uiOuiSize)
    {
        uiOui = oRecord.Get(Shifted(gsc_oOui, oFound.m_uiHeader));
        oFound.m_uiHeader += gsc_uiOuiSize;
    }
    oFound.m_poKind = FindKind(uiTag, uiExtended, uiOui);
    return oFound;
}

// ---- What is off about a data block ----

constexpr SPayloadNotes gsc_oPayloadNotes = { eZorEdidRule_CtaShort, eZorEdidRule_CtaLong, eZorEdidRule_CtaPart,
                                              eZorEdidRule_CtaOtherLength };

EZorEdidRule CheckLength(const SFound& oFound)
{
    return CheckPayload(oFound.m_poKind->m_oSize, oFound.GetPayloadSize(), gsc_oPayloadNotes);
}

void NoteDataBlock(CMapWriter& oWriter, unsigned int uiField, const SFound& oFound, bool bAgain)
{
    const SCtaBlock& oKind = *oFound.m_poKind;
    const unsigned int uiTag = oKind.m_oKey.m_ui8Tag;
    const unsigned int uiLength = oFound.m_uiSize - gsc_uiHeaderSize;
    const unsigned int uiDeclared = gsc_oHeaderLength.Read(oWriter.GetRecord(oFound.m_uiOffset, 1).GetData());
    if (oFound.m_bCut)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaPastCollection, CountAtMost("bytes", uiDeclared, uiLength));
        return;
    }
    if (&oKind == &gsc_oNoExtendedTag)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaNoExtendedTag, CountAtLeast("bytes", uiLength, 1));
    }
    else if (HasOui(uiTag, oKind.m_oKey.m_ui8FirstExtended) && oFound.m_uiHeader < gsc_uiOuiSize)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaNoOui,
                        CountAtLeast("bytes", uiLength, oFound.m_uiHeader - gsc_uiHeaderSize + gsc_uiOuiSize));
    }
    else
    {
        oWriter.AddNote(uiField, CheckLength(oFound), oKind.m_oSize.GetSeverity(),
                        GetRightLengths(oKind.m_oSize, oFound.GetPayloadSize(), oFound.m_uiHeader - gsc_uiHeaderSize));
    }
    if (oKind.m_eRule != eAny && bAgain)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaAgain);
    }
    if (oKind.m_eRule == eFirst && oFound.m_uiOffset != gsc_uiBlockSize + gsc_uiDataBlocksOffset)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaNotFirst);
    }
}

// The data blocks before one, those of earlier CTA-861 blocks of the EDID included.
struct SEarlier
{
    unsigned int m_auiCounts[gsc_uiKinds] = {};
    const SCtaBlock* m_poLast = nullptr; // of the same collection

    void Add(const SCtaBlock& oKind);
};

// Data blocks that need or exclude each other.
void NoteHdmiForum(CMapWriter& oWriter, unsigned int uiField, const SFound& oFound, const SEarlier& oEarlier)
{
    const auto fnIs = [](const SCtaBlock& oKind, const SKey& oKey) {
        return oKind.m_oKey.m_ui8Tag == oKey.m_ui8Tag && oKind.m_oKey.m_ui8FirstExtended == oKey.m_ui8FirstExtended &&
               oKind.m_oKey.m_uiOui == oKey.m_uiOui;
    };
    const auto fnCount = [&](const SKey& oKey) {
        unsigned int uiCount = 0;
        for (unsigned int i = 0; i < gsc_uiKinds; ++i)
        {
            uiCount += fnIs(gsc_aoDataBlocks[i], oKey) ? oEarlier.m_auiCounts[i] : 0;
        }
        return uiCount;
    };
    const bool bForum = fnIs(*oFound.m_poKind, gsc_oHdmiForumKey);
    const bool bSink = fnIs(*oFound.m_poKind, gsc_oHdmiSinkKey);
    if ((bForum && fnCount(gsc_oHdmiSinkKey) != 0) || (bSink && fnCount(gsc_oHdmiForumKey) != 0))
    {
        oWriter.AddNote(uiField, eZorEdidRule_ForumTwo);
    }
    else if ((bForum || bSink) && fnCount(gsc_oHdmiKey) == 0)
    {
        oWriter.AddNote(uiField, eZorEdidRule_ForumAlone);
    }
    else if ((bForum || bSink) && (oEarlier.m_poLast == nullptr || !fnIs(*oEarlier.m_poLast, gsc_oHdmiKey)))
    {
        oWriter.AddNote(uiField, eZorEdidRule_ForumNotNext);
    }
}

// ---- The walk over a collection ----

// Over the bytes that the image has of a collection; the last data block may be cut short.
CDataBlockWalk MakeWalk(const CRecord& oCollection)
{
    return { oCollection.GetData(), oCollection.GetSize(), 0, oCollection.GetSize() };
}

// Calls fnVisit for each data block up to uiEnd; runs of zero bytes are left out.
template <class VISIT>
void ForEachDataBlock(const CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiEnd, VISIT fnVisit)
{
    CDataBlockWalk oWalk = MakeWalk(oWriter.GetRecord(uiOffset, uiEnd - uiOffset));
    while (oWalk.Next() || oWalk.NextCut())
    {
        if (oWalk.GetTag() != 0 || oWalk.GetLength() != 0)
        {
            fnVisit(FindDataBlock(oWriter, uiOffset, oWalk));
        }
    }
}

unsigned int IndexOf(const SCtaBlock& oKind)
{
    return &oKind == &gsc_oNoExtendedTag ? 0 : static_cast<unsigned int>(&oKind - gsc_aoDataBlocks);
}

void SEarlier::Add(const SCtaBlock& oKind)
{
    ++m_auiCounts[IndexOf(oKind)];
    m_poLast = &oKind;
}

void AddContent(CMapWriter& oWriter, unsigned int uiField, const SFound& oFound, const SCtaVideoCodes& oCodes)
{
    const SContent& oContent = oFound.m_poKind->m_oContent;
    const SCtaPayload oPayload = { uiField, oFound.GetPayload(), oFound.GetPayloadSize(),
                                   oFound.m_uiHeader - gsc_uiHeaderSize, oCodes };
    if (oContent.m_pfnWalk != nullptr)
    {
        oContent.m_pfnWalk(oWriter, oPayload);
    }
    else if (oContent.m_uiItemSize != 0)
    {
        oWriter.AddItems(*oContent.m_poTable, oPayload.m_uiOffset, oPayload.m_uiLength, oContent.m_uiItemSize);
    }
    else if (oContent.m_poTable != nullptr)
    {
        oWriter.AddRows(*oContent.m_poTable, oPayload.m_uiOffset, oPayload.m_uiLength);
    }
}

bool IsKnown(const SContent& oContent) { return oContent.m_poTable != nullptr || oContent.m_pfnWalk != nullptr; }

void AddDataBlock(CMapWriter& oWriter, const SFound& oFound, const SCtaVideoCodes& oCodes, const SEarlier& oEarlier)
{
    const SCtaBlock& oKind = *oFound.m_poKind;
    const unsigned int uiField =
        oWriter.BeginGroup(oKind.m_eId, oKind.m_pszName, oKind.m_eArea, oFound.m_uiOffset, oFound.m_uiSize);
    NoteDataBlock(oWriter, uiField, oFound, oEarlier.m_auiCounts[IndexOf(oKind)] != 0);
    NoteHdmiForum(oWriter, uiField, oFound, oEarlier);
    oWriter.AddRows(gsc_oHeaderTable, oFound.m_uiOffset, std::min(oFound.m_uiSize, gsc_uiMostHeader));
    AddContent(oWriter, uiField, oFound, oCodes);
    if (oFound.m_bCut || CheckLength(oFound) != eZorEdidRule_None)
    {
        oWriter.AddUnknownEnd();
    }
    if (IsKnown(oKind.m_oContent))
    {
        oWriter.EndGroup();
    }
    else
    {
        oWriter.EndGroup(gsc_oUnknownRest);
    }
}

// What describes the sound that the display takes, or where it comes out.
bool IsAudio(const SCtaBlock& oKind) { return oKind.m_eArea == eArea_Audio || oKind.m_eId == eId_CtaVendorAudio; }

// Whether the collection has audio. Takes the data blocks into oEarlier.
bool AddDataBlocks(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiEnd, const SCtaVideoCodes& oCodes,
                   SEarlier& oEarlier)
{
    bool bAudio = false;
    ForEachDataBlock(oWriter, uiOffset, uiEnd, [&](const SFound& oFound) {
        AddDataBlock(oWriter, oFound, oCodes, oEarlier);
        oEarlier.Add(*oFound.m_poKind);
        bAudio = bAudio || IsAudio(*oFound.m_poKind);
    });
    return bAudio;
}
} // namespace

void MapCtaDataBlocks(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    SCtaVideoCodes oCodes;
    SEarlier oEarlier;
    const CRecord oCollection = oWriter.GetRecord(uiOffset, uiLength);
    ForEachVideoByte(oCollection.GetData(), oCollection.GetSize(),
                     [&](unsigned int /*uiOffset*/, unsigned char ui8Byte) { oCodes.Add(ui8Byte); });
    AddDataBlocks(oWriter, uiOffset, uiOffset + uiLength, oCodes, oEarlier);
}

// ---- The extension block: CTA-861-H 7.5 ----

namespace
{
constexpr unsigned int gsc_uiBasicAudioBit = 6;

constexpr SMeaning gsc_aoRevisions[] = {
    { 1, 1, "EIA/CEA-861" },
    { 2, 2, "CEA-861-A" },
    { 3, 3, "CEA-861-B and later" },
};
constexpr SMeaning gsc_aoStarts[] = { { 0, 0, "no data blocks, no detailed timings" }, { 4, 4, "no data blocks" } };

bool HasFlags(const CRecord& oBlock) { return oBlock.GetByte(gsc_uiRevisionOffset) >= gsc_uiNativeCountRevision; }

constexpr bool IsStart(unsigned int uiStart) { return uiStart >= gsc_uiDataBlocksOffset && uiStart < gsc_uiBlockSize; }

SBreach CheckRevision(const CRecord& /*oBlock*/, unsigned int uiRevision)
{
    return uiRevision == 0 || uiRevision > gsc_uiHighestRevision
               ? SBreach(eZorEdidRule_CtaRevision, 1, gsc_uiHighestRevision)
               : gsc_oNoBreach;
}

SBreach CheckStart(const CRecord& /*oBlock*/, unsigned int uiStart)
{
    return uiStart != 0 && !IsStart(uiStart)
               ? SBreach(eZorEdidRule_CtaStart, gsc_uiDataBlocksOffset, gsc_uiBlockSize - 1)
               : gsc_oNoBreach;
}

constexpr SRow gsc_aoBlockRows[] = {
    { eId_CtaRevision, Byte(1), "Revision number", Number().Named(gsc_aoRevisions), nullptr, CheckRevision },
    { eId_CtaDetailedOffset, Byte(2), "Offset of the detailed timing descriptors", Number("bytes").Named(gsc_aoStarts),
      nullptr, CheckStart },
    { eId_CtaUnderscan, Cta::gsc_oUnderscan, "Underscan", Flag(), HasFlags },
    { eId_CtaBasicAudio, Cta::gsc_oBasicAudio, "Basic audio", Flag(), HasFlags },
    { eId_CtaYcbcr444, Cta::gsc_oYCbCr444, "YCbCr 4:4:4", Flag(), HasFlags },
    { eId_CtaYcbcr422, Cta::gsc_oYCbCr422, "YCbCr 4:2:2", Flag(), HasFlags },
    { eId_CtaNativeCount, Bits(3, 3, 0), "Total number of native formats in the detailed timing descriptors", Number(),
      HasFlags },
    { eId_Reserved, Byte(3), "Reserved", Reserved(), IsNot<HasFlags> },
};
constexpr STable gsc_oBlockTable = { eId_Cta, "CTA-861 extension block", eArea_Structure, gsc_aoBlockRows };

constexpr SRow gsc_oLostRow = { eId_Unknown, RunToEnd(0), "Unknown", Unknown() };
constexpr SRow gsc_oPaddingRow = { eId_Padding, RunToEnd(0), "Padding", Reserved().Expect(0, eZorEdidRule_CtaPadding) };

// The first block of the EDID that a block is of. A file may hold several EDIDs, each with a base block, whose first
// byte is 0.
unsigned int FindEdid(const CMapWriter& oWriter, unsigned int uiBlock)
{
    const CRecord oImage = oWriter.GetRecord(0, CZorEdidMap::msc_uiNone);
    if (uiBlock / gsc_uiBlockSize <= CountExtensions(oImage.GetData(), oImage.GetSize()))
    {
        return 0;
    }
    do
    {
        uiBlock -= gsc_uiBlockSize;
    } while (uiBlock > 0 && oWriter.GetByte(uiBlock) != 0);
    return uiBlock;
}

// Before the first field, as a data block may refer to codes that follow it. A block that the EDID does not count
// counts up to itself.
SCtaVideoCodes CollectCodes(const CMapWriter& oWriter, unsigned int uiBlock)
{
    const unsigned int uiEdid = FindEdid(oWriter, uiBlock);
    const CRecord oEdid = oWriter.GetRecord(uiEdid, CZorEdidMap::msc_uiNone);
    const unsigned int uiLast =
        std::max(CountExtensions(oEdid.GetData(), oEdid.GetSize()), (uiBlock - uiEdid) / gsc_uiBlockSize);
    SCtaVideoCodes oCodes;
    ForEachVideoPlace(oEdid.GetData(), oEdid.GetSize(), uiLast,
                      [&](unsigned int /*uiOffset*/, unsigned char ui8Byte) { oCodes.Add(ui8Byte); });
    return oCodes;
}

SEarlier CountEarlier(const CMapWriter& oWriter, unsigned int uiBlock)
{
    SEarlier oEarlier;
    for (unsigned int uiAt = FindEdid(oWriter, uiBlock); uiAt < uiBlock; uiAt += gsc_uiBlockSize)
    {
        const CRecord oBlock = oWriter.GetRecord(uiAt, gsc_uiBlockSize);
        const SPayload oCollection = FindCollection(oBlock.GetData(), oBlock.GetSize());
        const unsigned int uiFirst = uiAt + oCollection.m_uiOffset;
        ForEachDataBlock(oWriter, uiFirst, uiFirst + oCollection.m_uiLength,
                         [&](const SFound& oFound) { oEarlier.Add(*oFound.m_poKind); });
    }
    oEarlier.m_poLast = nullptr;
    return oEarlier;
}

// Bytes 4 to uiStart - 1. Before revision 3 nothing was ever defined for them.
void AddCollection(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset, unsigned int uiStart)
{
    if (uiStart <= gsc_uiDataBlocksOffset)
    {
        return;
    }
    const unsigned int uiFirst = uiOffset + gsc_uiDataBlocksOffset;
    const unsigned int uiLength = uiStart - gsc_uiDataBlocksOffset;
    const unsigned int uiField =
        oWriter.BeginGroup(eId_CtaCollection, "Data block collection", eArea_Structure, uiFirst, uiLength);
    if (oBlock.GetByte(gsc_uiRevisionOffset) < gsc_uiDataBlocksRevision)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaNoDataBlocks);
        oWriter.EndGroup(gsc_oUnknownRest);
        return;
    }
    SEarlier oEarlier = CountEarlier(oWriter, uiOffset);
    const bool bAudio = AddDataBlocks(oWriter, uiFirst, uiFirst + uiLength, CollectCodes(oWriter, uiOffset), oEarlier);
    if (bAudio && !oBlock.IsSet(gsc_uiFlagsOffset, gsc_uiBasicAudioBit))
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaBasicAudio);
    }
    oWriter.EndGroup(gsc_oPaddingRest);
}

// The first 18 bytes at any place within that by all their numbers are a timing of today's displays; uiEnd for none.
unsigned int FindLostTiming(const CMapWriter& oWriter, unsigned int uiFirst, unsigned int uiEnd)
{
    constexpr unsigned int uiLeastWidth = 640;
    constexpr unsigned int uiLeastHeight = 350;
    constexpr unsigned int uiLeastRate = 23;
    constexpr unsigned int uiMostRate = 500;
    for (; uiFirst + gsc_uiDetailedSize <= uiEnd; ++uiFirst)
    {
        SZorMode oMode = {};
        const bool bTiming = ReadDetailedMode(oWriter.GetRecord(uiFirst, gsc_uiDetailedSize), oMode);
        const auto fnFits = [](const SZorMode::SAxis& oAxis) {
            return oAxis.m_uiFront != 0 && oAxis.m_uiSync != 0 &&
                   oAxis.m_uiActive + oAxis.m_uiFront + oAxis.m_uiSync < oAxis.m_uiTotal;
        };
        if (bTiming && oMode.m_uiWidth >= uiLeastWidth && oMode.m_uiHeight >= uiLeastHeight &&
            fnFits(oMode.m_oHorizontal) && fnFits(oMode.m_oVertical) &&
            oMode.m_oRate.m_ullDividend >= oMode.m_oRate.m_ullDivisor * uiLeastRate &&
            oMode.m_oRate.m_ullDividend <= oMode.m_oRate.m_ullDivisor * uiMostRate)
        {
            return uiFirst;
        }
    }
    return uiEnd;
}

// Bytes that nothing points at: padding unless they look like timings.
void AddPadding(CMapWriter& oWriter, unsigned int uiFirst, unsigned int uiEnd)
{
    const CRecord oBytes = oWriter.GetRecord(uiFirst, uiEnd - uiFirst);
    const unsigned int uiLost = IsEveryByte(oBytes, 0) ? uiEnd : FindLostTiming(oWriter, uiFirst, uiEnd);
    const bool bLost = uiLost != uiEnd;
    const unsigned int uiField =
        oWriter.AddLeaf(bLost ? gsc_oLostRow : gsc_oPaddingRow, eArea_Unused, uiFirst, uiEnd - uiFirst);
    if (bLost)
    {
        oWriter.AddNote(uiField, eZorEdidRule_CtaLostTimings,
                        CountExactly("bytes", uiLost % gsc_uiBlockSize, uiFirst % gsc_uiBlockSize));
    }
}

// From uiStart on: descriptors up to the first 18 bytes that are not one, then padding up to the checksum. The image
// may end before it, even within a timing.
void AddDetailedTimings(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiStart, unsigned int uiEnd)
{
    const bool bCut = uiEnd < gsc_uiChecksumOffset;
    for (; uiEnd - uiStart >= gsc_uiDetailedSize; uiStart += gsc_uiDetailedSize)
    {
        if (!Descriptors::IsDescriptor(oWriter.GetRecord(uiOffset + uiStart, gsc_uiDetailedSize).GetData()))
        {
            break;
        }
        MapDescriptor(oWriter, uiOffset + uiStart);
    }
    if (uiStart < uiEnd && (!bCut || MapDescriptor(oWriter, uiOffset + uiStart) == CZorEdidMap::msc_uiNone))
    {
        AddPadding(oWriter, uiOffset + uiStart, uiOffset + uiEnd);
    }
}
// Detailed timings of the base block and of the CTA-861 blocks up to this one.
unsigned int CountDetailed(const CMapWriter& oWriter, unsigned int uiBlock)
{
    const auto fnCount = [&](unsigned int uiFirst, unsigned int uiEnd) {
        unsigned int uiCount = 0;
        for (; uiFirst + gsc_uiDetailedSize <= uiEnd; uiFirst += gsc_uiDetailedSize)
        {
            uiCount += (oWriter.GetByte(uiFirst) | oWriter.GetByte(uiFirst + 1)) != 0 ? 1U : 0U;
        }
        return uiCount;
    };
    unsigned int uiCount = fnCount(BaseBlock::gsc_uiDescriptorsOffset, BaseBlock::gsc_uiExtensionCountOffset);
    for (unsigned int uiAt = gsc_uiBlockSize; uiAt <= uiBlock; uiAt += gsc_uiBlockSize)
    {
        const unsigned int uiStart = oWriter.GetByte(uiAt + gsc_uiDetailedStartOffset);
        if (oWriter.GetByte(uiAt) == gsc_uiTag && IsStart(uiStart))
        {
            uiCount += fnCount(uiAt + uiStart, uiAt + gsc_uiChecksumOffset);
        }
    }
    return uiCount;
}

void NoteNative(CMapWriter& oWriter, const CRecord& oBlock, unsigned int uiOffset)
{
    const unsigned int uiNative = HasFlags(oBlock) ? oBlock.GetBits(gsc_uiFlagsOffset, 3, 0) : 0;
    const unsigned int uiDetailed = uiNative != 0 ? CountDetailed(oWriter, uiOffset) : 0;
    if (uiNative > uiDetailed)
    {
        oWriter.AddNote(oWriter.FindLeaf(uiOffset + gsc_uiFlagsOffset, 0), eZorEdidRule_CtaNativeCount,
                        CountAtMost("timings", uiNative, uiDetailed));
    }
}
} // namespace

void MapCtaBlock(CMapWriter& oWriter, unsigned int uiOffset, unsigned int uiLength)
{
    const CRecord oBlock = oWriter.GetRecord(uiOffset, uiLength);
    const unsigned int uiStart = oBlock.GetByte(gsc_uiDetailedStartOffset);
    const unsigned int uiEnd = std::min(uiLength, gsc_uiChecksumOffset);
    oWriter.BeginBlock(eId_Cta, gsc_oBlockTable.m_pszName, uiOffset, uiLength);
    oWriter.AddLeaf(g_oExtensionTagRow, eArea_Structure, uiOffset, uiLength);
    oWriter.AddRows(gsc_oBlockTable, uiOffset, std::min(uiLength, gsc_uiDataBlocksOffset));
    NoteNative(oWriter, oBlock, uiOffset);
    if (IsStart(uiStart) && uiEnd > gsc_uiDataBlocksOffset)
    {
        const unsigned int uiBehind = std::min(uiStart, uiEnd);
        AddCollection(oWriter, oBlock, uiOffset, uiBehind);
        AddDetailedTimings(oWriter, uiOffset, uiBehind, uiEnd);
    }
    else if (uiStart == 0 && uiEnd > gsc_uiDataBlocksOffset)
    {
        AddPadding(oWriter, uiOffset + gsc_uiDataBlocksOffset, uiOffset + uiEnd);
    }
    oWriter.EndBlock(gsc_oUnknownRest);
}

// ---- Helpers of the other files ----

void AddCtaItems(CMapWriter& oWriter, const STable& oTable, unsigned int uiOffset, unsigned int uiLength,
                 unsigned int (*pfnLength)(unsigned int uiFirstByte))
{
    while (uiLength > 0)
    {
        const unsigned int uiDeclared = pfnLength(oWriter.GetRecord(uiOffset, uiLength).GetByte(0));
        const unsigned int uiSize = std::min(uiDeclared, uiLength);
        const unsigned int uiField = oWriter.AddRecord(oTable, uiOffset, uiSize);
        if (uiSize < uiDeclared)
        {
            oWriter.AddNote(uiField, eZorEdidRule_CtaItemPast, CountAtMost("bytes", uiDeclared, uiSize));
        }
        uiOffset += uiSize;
        uiLength -= uiSize;
    }
}

void AddCtaPart(CMapWriter& oWriter, const SCtaPayload& oPayload, unsigned int uiUsed, unsigned int uiSize)
{
    if (uiUsed < oPayload.m_uiLength)
    {
        const unsigned int uiWhole = oPayload.m_uiHead + uiUsed;
        oWriter.AddNote(oPayload.m_uiField, eZorEdidRule_CtaLastItem,
                        { "bytes", oPayload.m_uiHead + oPayload.m_uiLength, uiWhole, uiWhole + uiSize, true });
        oWriter.AddUnknownEnd();
    }
}

bool FindCtaHead(EZorEdidField eId, SDataBlockHead& oHead)
{
    const auto* poKind = std::ranges::find(gsc_aoDataBlocks, eId, &SCtaBlock::m_eId);
    if (poKind == std::end(gsc_aoDataBlocks))
    {
        return false;
    }
    const SKey& oKey = poKind->m_oKey;
    oHead = {};
    gsc_oHeaderTag.Write(oHead.m_aui8Bytes, oKey.m_ui8Tag);
    oHead.m_uiSize = gsc_uiHeaderSize;
    if (oKey.m_ui8Tag == gsc_ui8ExtendedTag)
    {
        oHead.m_aui8Bytes[oHead.m_uiSize++] = oKey.m_ui8FirstExtended;
    }
    if (oKey.m_uiOui != gsc_uiAnyOui)
    {
        ZorStandards::WriteLittle24(oHead.m_aui8Bytes + oHead.m_uiSize, oKey.m_uiOui);
        oHead.m_uiSize += gsc_uiOuiSize;
    }
    return true;
}

void VisitCtaIds(CIdVisitor& oVisitor)
{
    oVisitor.Visit(gsc_oBlockTable, gsc_oHeaderTable, gsc_oLostRow, gsc_oPaddingRow);
    oVisitor.VisitGroup(eId_CtaCollection, "Data block collection");
    oVisitor.VisitGroup(gsc_oNoExtendedTag.m_eId, gsc_oNoExtendedTag.m_pszName);
    for (const SCtaBlock& oBlock : gsc_aoDataBlocks)
    {
        oVisitor.VisitGroup(oBlock.m_eId, oBlock.m_pszName);
    }
}
} // namespace ZorMap

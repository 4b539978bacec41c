// The rules of zoredid check, from the whole image down to a descriptor.

#include "CheckRules.h"

#include <string.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <tuple>

#include "EdidBase.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "LoadedImage.h"
#include "MapText.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"

using namespace ZorStandards::BaseBlock;

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;
constexpr unsigned int gsc_uiChecksumOffset = CEdidUtils::msc_uiChecksumOffset;
constexpr unsigned int gsc_uiExtensionRevisionOffset = 1; // of CEA-861 and DisplayID blocks

std::string Byte(unsigned int uiValue) { return FormatText("0x%02x", uiValue); }

// The findings of one block.
class CBlockFindings
{
public:
    CBlockFindings(std::vector<SFinding>& aoFindings, unsigned int uiBlock, const unsigned char* pui8Bytes)
        : m_aoFindings(aoFindings), m_uiBlock(uiBlock), m_pui8Bytes(pui8Bytes)
    {
    }

    void Add(CZorEdidMap::ESeverity eSeverity, unsigned int uiOffset, const char* pszWhat, const std::string& sFound,
             const std::string& sExpected)
    {
        m_aoFindings.push_back({ m_uiBlock, uiOffset, eSeverity, pszWhat, sFound, sExpected });
    }
    void Error(unsigned int uiOffset, const char* pszWhat, const std::string& sFound, const std::string& sExpected)
    {
        Add(CZorEdidMap::eSeverity_Error, uiOffset, pszWhat, sFound, sExpected);
    }
    void Warning(unsigned int uiOffset, const char* pszWhat, const std::string& sFound, const std::string& sExpected)
    {
        Add(CZorEdidMap::eSeverity_Warning, uiOffset, pszWhat, sFound, sExpected);
    }
    void Note(unsigned int uiOffset, const char* pszWhat, const std::string& sFound, const std::string& sExpected)
    {
        Add(CZorEdidMap::eSeverity_Note, uiOffset, pszWhat, sFound, sExpected);
    }

    unsigned int GetByte(unsigned int uiOffset) const { return m_pui8Bytes[uiOffset]; }
    const unsigned char* GetAt(unsigned int uiOffset) const { return m_pui8Bytes + uiOffset; }

    // uiSize bytes from uiStart on, the last one their checksum.
    void CheckSum(unsigned int uiStart, unsigned int uiSize, const char* pszWhat)
    {
        if (CEdidUtils::Is8BitsChecksumValid(uiSize, GetAt(uiStart)) == 0)
        {
            const unsigned int uiOffset = uiStart + uiSize - 1;
            const unsigned int uiRight =
                static_cast<unsigned int>(CEdidUtils::Compute8BitsChecksum(uiSize - 1, GetAt(uiStart))) & 0xFF;
            Error(uiOffset, pszWhat, Byte(GetByte(uiOffset)), Byte(uiRight));
        }
    }

private:
    std::vector<SFinding>& m_aoFindings;
    const unsigned int m_uiBlock;
    const unsigned char* const m_pui8Bytes;
};

// ---- Base block ----

void CheckYear(CBlockFindings& oFindings, unsigned int uiThisYear)
{
    constexpr unsigned int uiModelYearWeek = 255;
    constexpr unsigned int uiFirstYear = 1990;
    const unsigned int uiYear = uiFirstYear + oFindings.GetByte(gsc_uiYearOffset);
    const bool bModelYear = oFindings.GetByte(gsc_uiWeekOffset) == uiModelYearWeek;
    const unsigned int uiLatest = uiThisYear + (bModelYear ? 1 : 0); // models are named ahead
    if (uiYear > uiLatest)
    {
        oFindings.Warning(gsc_uiYearOffset, "year", std::to_string(uiYear), FormatText("at most %u", uiLatest));
    }
}

void CheckPreferred(CBlockFindings& oFindings)
{
    CEdidBase oBase;
    oBase.SetEdidBuffer(oFindings.GetAt(0), gsc_uiBlockSize, 0);
    if (!IsPreferredTimingDeclared(oFindings.GetAt(0)))
    {
        oFindings.Note(gsc_uiFeaturesOffset, "preferred mode", "none declared", "one, which the text reports need");
    }
    else if (oBase.GetDetailed(0, nullptr) == 0)
    {
        oFindings.Error(gsc_uiDescriptorsOffset, "preferred mode", "no detailed timing", "one in the first descriptor");
    }
}

// From revision 4 on byte 4 of range limits holds flags, which make it no display descriptor in the library's eyes.
void CheckRangeLimits(CBlockFindings& oFindings)
{
    constexpr unsigned int uiFlagsOffset = 4;
    for (unsigned int i = 0; i < CEdidBase::msc_uiDescriptorCount; ++i)
    {
        const unsigned int uiOffset = DescriptorOffset(i);
        const unsigned int uiFlags = oFindings.GetByte(uiOffset + uiFlagsOffset);
        if (!HasPixelClock(oFindings.GetAt(uiOffset)) && uiFlags != 0 && oFindings.GetByte(uiOffset + 2) == 0 &&
            oFindings.GetByte(uiOffset + gsc_uiTagOffset) == gsc_ui8TagRangeLimits &&
            IsAtLeastRevision(oFindings.GetAt(0), gsc_uiVideoInputRevision))
        {
            oFindings.Note(uiOffset + uiFlagsOffset, "range limits", "flags " + Byte(uiFlags),
                           "0x00: the library reads no others");
        }
    }
}

// The timing's millimetres against the block's centimetres, for the first descriptor.
void CheckImageSize(CBlockFindings& oFindings)
{
    constexpr unsigned int uiMillimetresPerCentimetre = 10;
    CEdidUtils::SEdidDetailedRaw oRaw;
    memcpy(oRaw.m_aui8Data, oFindings.GetAt(gsc_uiDescriptorsOffset), sizeof(oRaw.m_aui8Data));
    const unsigned int uiWidth = uiMillimetresPerCentimetre * oFindings.GetByte(gsc_uiImageWidthOffset);
    const unsigned int uiHeight = uiMillimetresPerCentimetre * oFindings.GetByte(gsc_uiImageHeightOffset);
    const auto fnDiffer = [](unsigned int uiFirst, unsigned int uiSecond) {
        return std::max(uiFirst, uiSecond) - std::min(uiFirst, uiSecond) > uiMillimetresPerCentimetre;
    };
    if (HasPixelClock(oRaw.m_aui8Data) && uiWidth != 0 && uiHeight != 0 && oRaw.GetImageWidth() != 0 &&
        oRaw.GetImageHeight() != 0 &&
        (fnDiffer(uiWidth, oRaw.GetImageWidth()) || fnDiffer(uiHeight, oRaw.GetImageHeight())))
    {
        constexpr unsigned int uiSizeOffset = 12; // in the descriptor
        oFindings.Note(gsc_uiDescriptorsOffset + uiSizeOffset, "image size",
                       FormatText("%u x %u mm", oRaw.GetImageWidth(), oRaw.GetImageHeight()),
                       FormatText("about %u x %u mm, from bytes 0x15 and 0x16", uiWidth, uiHeight));
    }
}

void CheckBase(CBlockFindings& oFindings, unsigned int uiThisYear)
{
    if (memcmp(oFindings.GetAt(0), EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) != 0)
    {
        oFindings.Error(0, "header", FormatHex(oFindings.GetAt(0), sizeof(EDID_V1_HEADER)),
                        FormatHex(EDID_V1_HEADER, sizeof(EDID_V1_HEADER)));
    }
    else
    {
        CheckYear(oFindings, uiThisYear);
        CheckPreferred(oFindings);
        CheckRangeLimits(oFindings);
        CheckImageSize(oFindings);
    }
    oFindings.CheckSum(0, gsc_uiBlockSize, "checksum");
}

// ---- CEA-861 ----

// The library reads descriptors up to the first one without a pixel clock.
void CheckCeaDescriptors(CBlockFindings& oFindings, unsigned int uiStart)
{
    unsigned int uiOffset = uiStart;
    while (uiOffset + gsc_uiDescriptorSize <= gsc_uiChecksumOffset && HasPixelClock(oFindings.GetAt(uiOffset)))
    {
        uiOffset += gsc_uiDescriptorSize;
    }
    if (uiOffset + gsc_uiDescriptorSize <= gsc_uiChecksumOffset && IsDisplayDescriptor(oFindings.GetAt(uiOffset)) &&
        oFindings.GetByte(uiOffset + gsc_uiTagOffset) != 0)
    {
        oFindings.Note(uiOffset, "display descriptor", "tag " + Byte(oFindings.GetByte(uiOffset + gsc_uiTagOffset)),
                       "a timing or zeros: the library reads no more of the block");
    }
}

// The walk is the library's.
void CheckAudio(CBlockFindings& oFindings, unsigned int uiEnd)
{
    constexpr unsigned int uiAudioSize = 3;
    ZorStandards::Cta::CDataBlockWalk oWalk(oFindings.GetAt(0), uiEnd);
    while (oWalk.Next())
    {
        const unsigned int uiHeader = oWalk.GetPayload().m_uiOffset - ZorStandards::Cta::gsc_uiHeaderSize;
        if (ZorStandards::Cta::gsc_oHeaderTag.Read(oFindings.GetAt(uiHeader)) ==
                CEdidExtBlockCEA861::eCea861Tag_Audio &&
            oWalk.GetPayload().m_uiLength % uiAudioSize != 0)
        {
            oFindings.Error(uiHeader, "audio data block", FormatText("length %u", oWalk.GetPayload().m_uiLength),
                            "a multiple of 3");
        }
    }
}

void CheckCea(CBlockFindings& oFindings)
{
    const unsigned int uiRevision = oFindings.GetByte(gsc_uiExtensionRevisionOffset);
    const unsigned int uiStart = oFindings.GetByte(ZorStandards::Cta::gsc_uiDetailedStartOffset);
    if (uiRevision > ZorStandards::Cta::gsc_uiHighestRevision)
    {
        oFindings.Warning(gsc_uiExtensionRevisionOffset, "revision", std::to_string(uiRevision),
                          "0 to 3: the library drops the block");
    }
    if (uiStart == 0)
    {
        return; // neither data blocks nor descriptors
    }
    if (uiStart < ZorStandards::Cta::gsc_uiDataBlocksOffset || uiStart > gsc_uiChecksumOffset)
    {
        oFindings.Error(ZorStandards::Cta::gsc_uiDetailedStartOffset, "offset of the descriptors", Byte(uiStart),
                        "0x00 or 0x04 to 0x7f");
        return;
    }
    if (uiRevision >= ZorStandards::Cta::gsc_uiDataBlocksRevision)
    {
        CheckAudio(oFindings, uiStart);
    }
    CheckCeaDescriptors(oFindings, uiStart);
}

// ---- DisplayID ----

namespace DisplayIdLayout
{
constexpr unsigned int gsc_uiSectionLengthOffset = 2; // bytes of data blocks
constexpr unsigned int gsc_uiDataBlocksOffset = 5;    // the section checksum stands behind them
constexpr unsigned int gsc_uiLongestSection = 121;
constexpr unsigned int gsc_uiHighestRevision = 0x12;
constexpr unsigned int gsc_auiLaterRevisions[] = { 0x13, 0x20, 0x21 }; // of the standard; the library reads none
constexpr unsigned int gsc_uiHeaderSize = sizeof(CEdidExtBlockDisplayID::SDataBlockHeader);
constexpr unsigned int gsc_uiLengthOffset = 2; // in the header of a data block
} // namespace DisplayIdLayout

using namespace DisplayIdLayout;

struct SRecordSize
{
    unsigned int m_uiTag;
    unsigned int m_uiSize; // of a record; the payload is one or more of them
};

constexpr SRecordSize gsc_aoRecordSizes[] = {
    { CEdidExtBlockDisplayID::eDisplayIdTag_Type1Detailed, sizeof(CEdidExtBlockDisplayID::SDisplayIdType1DetailedRaw) },
    { CEdidExtBlockDisplayID::eDisplayIdTag_Type2Detailed, sizeof(CEdidExtBlockDisplayID::SDisplayIdType2DetailedRaw) },
    { CEdidExtBlockDisplayID::eDisplayIdTag_TiledTopology, 22 },
};

void CheckRecords(CBlockFindings& oFindings, unsigned int uiHeader, unsigned int uiLength)
{
    for (const SRecordSize& oRecord : gsc_aoRecordSizes)
    {
        if (oFindings.GetByte(uiHeader) == oRecord.m_uiTag && (uiLength == 0 || uiLength % oRecord.m_uiSize != 0))
        {
            oFindings.Error(uiHeader, "data block", FormatText("length %u", uiLength),
                            FormatText("a multiple of %u: the library reads no timing of the block", oRecord.m_uiSize));
        }
    }
}

void CheckDisplayIdBlocks(CBlockFindings& oFindings, unsigned int uiEnd)
{
    for (unsigned int uiHeader = gsc_uiDataBlocksOffset; uiHeader < uiEnd;)
    {
        if (oFindings.GetByte(uiHeader) == 0 && std::all_of(oFindings.GetAt(uiHeader), oFindings.GetAt(uiEnd),
                                                            [](unsigned char ui8Byte) { return ui8Byte == 0; }))
        {
            return; // padding
        }
        const bool bHasHeader = uiEnd - uiHeader >= gsc_uiHeaderSize;
        const unsigned int uiLength = bHasHeader ? oFindings.GetByte(uiHeader + gsc_uiLengthOffset) : 0;
        const unsigned int uiNext = uiHeader + gsc_uiHeaderSize + uiLength;
        if (uiNext > uiEnd)
        {
            return;
        }
        CheckRecords(oFindings, uiHeader, uiLength);
        uiHeader = uiNext;
    }
}

void CheckDisplayId(CBlockFindings& oFindings)
{
    const unsigned int uiRevision = oFindings.GetByte(gsc_uiExtensionRevisionOffset);
    const unsigned int uiLength = oFindings.GetByte(gsc_uiSectionLengthOffset);
    if (uiRevision > gsc_uiHighestRevision)
    {
        const bool bLater = std::find(std::begin(gsc_auiLaterRevisions), std::end(gsc_auiLaterRevisions), uiRevision) !=
                            std::end(gsc_auiLaterRevisions);
        const std::string sFound = FormatText("%u.%u", uiRevision >> 4, uiRevision & 0x0F);
        oFindings.Add(bLater ? CZorEdidMap::eSeverity_Note : CZorEdidMap::eSeverity_Warning,
                      gsc_uiExtensionRevisionOffset, "DisplayID version", sFound,
                      "1.2 at most: the library drops the block");
    }
    if (uiLength > gsc_uiLongestSection)
    {
        return;
    }
    const unsigned int uiEnd = gsc_uiDataBlocksOffset + uiLength; // of the data blocks: the section checksum
    oFindings.CheckSum(gsc_uiExtensionRevisionOffset, uiEnd, "section checksum");
    if (uiRevision <= gsc_uiHighestRevision)
    {
        CheckDisplayIdBlocks(oFindings, uiEnd);
    }
}

// ---- Image ----

void CheckExtension(CBlockFindings& oFindings)
{
    const unsigned int uiTag = oFindings.GetByte(0);
    if (uiTag == ZorStandards::Cta::gsc_uiTag)
    {
        CheckCea(oFindings);
    }
    else if (uiTag == gsc_uiDisplayIdTag)
    {
        CheckDisplayId(oFindings);
    }
    else
    {
        const bool bKnown = CZorEdidMap::GetBlockKind(uiTag) != nullptr;
        oFindings.Add(bKnown ? CZorEdidMap::eSeverity_Note : CZorEdidMap::eSeverity_Warning, 0, "block kind",
                      Byte(uiTag) + " (" + GetBlockKind(uiTag) + ")",
                      "0x02 (cea-861) or 0x70 (displayid): the library drops the block");
    }
    oFindings.CheckSum(0, gsc_uiBlockSize, "checksum");
}

// Returns how many blocks are announced, in one way or the other.
unsigned int CheckCount(CBlockFindings& oFindings, unsigned int uiPresent)
{
    const unsigned int uiAnnounced = oFindings.GetByte(gsc_uiExtensionCountOffset);
    if (uiAnnounced > uiPresent)
    {
        oFindings.Error(gsc_uiExtensionCountOffset, "extension count", std::to_string(uiAnnounced),
                        FormatText("%u, the blocks present", uiPresent));
    }
    if (uiAnnounced >= uiPresent)
    {
        return uiAnnounced;
    }
    const unsigned int uiImageSize = (uiPresent + 1) * gsc_uiBlockSize;
    const unsigned int uiCount = oFindings.GetByte(ZorStandards::FindExtensionCount(oFindings.GetAt(0), uiImageSize));
    const std::string sExpected = FormatText("%u, the blocks present: the library reads no others", uiPresent);
    if (uiCount == uiPresent)
    {
        oFindings.Note(gsc_uiExtensionCountOffset, "extension count",
                       FormatText("%u, and %u in an override data block", uiAnnounced, uiCount), sExpected);
    }
    else
    {
        oFindings.Warning(gsc_uiExtensionCountOffset, "extension count", std::to_string(uiAnnounced), sExpected);
    }
    return uiCount;
}

// ---- Notes of the map ----

// The worst that the rules say of a byte of the image, by its offset.
using CWorst = std::map<unsigned int, CZorEdidMap::ESeverity>;

CWorst FindWorst(const std::vector<SFinding>& aoRules)
{
    CWorst aoWorst;
    for (const SFinding& oFinding : aoRules)
    {
        const unsigned int uiOffset = oFinding.m_uiBlock * gsc_uiBlockSize + oFinding.m_uiOffset;
        const auto [itPlace, bNew] = aoWorst.emplace(uiOffset, oFinding.m_eSeverity);
        itPlace->second = std::max(itPlace->second, oFinding.m_eSeverity);
    }
    return aoWorst;
}

// Whether a rule says of this field that at least as much is wrong. What a rule says of a whole structure stands at its
// first byte, but that a block is cut short behind its last one.
bool IsTold(const CWorst& aoWorst, const CZorEdidMap::SField& oField, CZorEdidMap::ESeverity eSeverity)
{
    if (oField.m_uiDepth == 0 && oField.m_uiLength < gsc_uiBlockSize)
    {
        return true;
    }
    const unsigned int uiLength = oField.m_eKind == CZorEdidMap::eKind_Group ? 1 : oField.m_uiLength;
    return std::any_of(aoWorst.lower_bound(oField.m_uiOffset), aoWorst.lower_bound(oField.m_uiOffset + uiLength),
                       [eSeverity](const auto& oPlace) { return oPlace.second >= eSeverity; });
}

// The value as the bytes have it: a note on a reserved value needs its number, one on characters their codes. One on a
// structure, or on many bytes, needs none.
std::string GetFound(const CZorEdidMap& oMap, unsigned int uiField)
{
    constexpr unsigned int uiMost = 18; // bytes
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    if (oField.m_eKind == CZorEdidMap::eKind_Group || oField.m_uiLength > uiMost)
    {
        return "";
    }
    if (oField.m_eKind == CZorEdidMap::eKind_Text)
    {
        return FormatHex(oMap.GetData() + oField.m_uiOffset, oField.m_uiLength);
    }
    if (oField.m_eKind == CZorEdidMap::eKind_Name ||
        (oField.m_eKind == CZorEdidMap::eKind_Number && oField.m_pszMeaning != nullptr))
    {
        return std::to_string(oField.m_llNumber);
    }
    return static_cast<const char*>(oMap.GetValue(uiField));
}

// Of the first blocks, uiBlocks of them, one that is cut short among them.
void AddNotes(const CZorEdidMap& oMap, unsigned int uiBlocks, std::vector<SFinding>& aoFindings)
{
    const CWorst aoWorst = FindWorst(aoFindings);
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
        const CZorEdidMap::SField& oField = oMap.GetField(oNote.m_uiField);
        const unsigned int uiBlock = oField.m_uiOffset / gsc_uiBlockSize;
        if (uiBlock < uiBlocks && !IsTold(aoWorst, oField, oNote.m_eSeverity))
        {
            aoFindings.push_back({ uiBlock, oField.m_uiOffset % gsc_uiBlockSize, oNote.m_eSeverity, oNote.m_pszText,
                                   GetFound(oMap, oNote.m_uiField), "", GetPath(oMap, oNote.m_uiField) });
        }
    }
}
} // namespace

std::vector<SFinding> CheckImage(const CZorEdidMap& oMap, unsigned int uiThisYear)
{
    std::vector<SFinding> aoFindings;
    const unsigned int uiWhole = oMap.GetSize() / gsc_uiBlockSize;
    unsigned int uiAnnounced = 1; // with the base block; blocks behind these are nobody's
    if (uiWhole != 0)
    {
        CBlockFindings oBase(aoFindings, 0, oMap.GetData());
        CheckBase(oBase, uiThisYear);
        uiAnnounced += CheckCount(oBase, uiWhole - 1);
    }
    for (unsigned int i = 1; i < std::min(uiWhole, uiAnnounced); ++i)
    {
        CBlockFindings oFindings(aoFindings, i, oMap.GetData() + i * size_t{ gsc_uiBlockSize });
        CheckExtension(oFindings);
    }
    AddNotes(oMap, uiAnnounced, aoFindings);
    std::stable_sort(aoFindings.begin(), aoFindings.end(), [](const SFinding& oFirst, const SFinding& oSecond) {
        return std::tie(oFirst.m_uiBlock, oFirst.m_uiOffset) < std::tie(oSecond.m_uiBlock, oSecond.m_uiOffset);
    });
    const unsigned int uiSize = oMap.GetSize();
    const unsigned int uiRest = uiSize % gsc_uiBlockSize;
    if (uiRest != 0 || uiWhole == 0)
    {
        CBlockFindings(aoFindings, uiWhole, nullptr)
            .Error(uiRest, "size", FormatText(uiSize == 1 ? "%u byte" : "%u bytes", uiSize), "a multiple of 128");
    }
    for (SFinding& oFinding : aoFindings)
    {
        const unsigned int uiOffset = oFinding.m_uiBlock * gsc_uiBlockSize + oFinding.m_uiOffset;
        oFinding.m_sField = oFinding.m_sField.empty() ? GetPathOfByte(oMap, uiOffset) : oFinding.m_sField;
    }
    return aoFindings;
}

unsigned int GetThisYear()
{
    const std::chrono::year_month_day oToday(std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    return static_cast<unsigned int>(static_cast<int>(oToday.year()));
}

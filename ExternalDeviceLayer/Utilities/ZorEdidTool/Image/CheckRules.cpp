// The findings of zoredid check. What the standards ask is a note of the map; the rules here are about what the library
// does not read, and about today.

#include "CheckRules.h"

#include <string.h>

#include <algorithm>
#include <chrono>
#include <tuple>

#include "EdidBase.h"
#include "MapText.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"
#include "UnreadBlocks.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
using CMap = CZorEdidMap;

// The findings about one image.
class CFindings
{
public:
    explicit CFindings(const CMap& oMap) : m_oMap(oMap) {}

    void Add(unsigned int uiField, CMap::ESeverity eSeverity, const std::string& sWhat, const std::string& sFound,
             const std::string& sExpected)
    {
        const unsigned int uiOffset = m_oMap.GetField(uiField).m_uiOffset;
        m_aoFindings.push_back({ uiOffset / gsc_uiBlockSize, uiOffset % gsc_uiBlockSize, eSeverity, sWhat, sFound,
                                 sExpected, GetPath(m_oMap, uiField) });
    }

    const CMap& GetMap() const { return m_oMap; }
    unsigned int GetByte(unsigned int uiOffset) const { return m_oMap.GetData()[uiOffset]; }
    const unsigned char* GetAt(unsigned int uiOffset) const { return m_oMap.GetData() + uiOffset; }
    // The group that the highest bit of a byte lies in.
    unsigned int FindGroup(unsigned int uiOffset) const
    {
        return m_oMap.GetField(m_oMap.FindLeaf(uiOffset, 7)).m_uiGroup;
    }

    std::vector<SFinding> TakeInOrder()
    {
        std::stable_sort(m_aoFindings.begin(), m_aoFindings.end(), [](const SFinding& oFirst, const SFinding& oSecond) {
            return std::tie(oFirst.m_uiBlock, oFirst.m_uiOffset) < std::tie(oSecond.m_uiBlock, oSecond.m_uiOffset);
        });
        return std::move(m_aoFindings);
    }

private:
    const CMap& m_oMap;
    std::vector<SFinding> m_aoFindings;
};

// ---- Notes of the map ----

// The value as the bytes have it: a note on a reserved value needs its number, one on characters their codes. One on a
// structure, or on many bytes, needs none.
std::string GetFound(const CMap& oMap, unsigned int uiField)
{
    constexpr unsigned int uiMost = 18; // bytes
    const CMap::SField& oField = oMap.GetField(uiField);
    if (oField.m_eKind == CMap::eKind_Group || oField.m_uiLength > uiMost)
    {
        return oField.m_uiDepth == 0 && oField.m_uiLength < gsc_uiBlockSize ? std::to_string(oField.m_uiLength) : "";
    }
    if (oField.m_eKind == CMap::eKind_Text)
    {
        return FormatHex(oMap.GetData() + oField.m_uiOffset, oField.m_uiLength);
    }
    if (oField.m_eKind == CMap::eKind_Name || (oField.m_eKind == CMap::eKind_Number && oField.m_pszMeaning != nullptr))
    {
        return std::to_string(oField.m_llNumber);
    }
    return static_cast<const char*>(oMap.GetValue(uiField));
}

void AddNotes(CFindings& oFindings)
{
    const CMap& oMap = oFindings.GetMap();
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CMap::SNote& oNote = oMap.GetNote(i);
        oFindings.Add(oNote.m_uiField, oNote.m_eSeverity, oNote.m_pszText, GetFound(oMap, oNote.m_uiField), "");
    }
}

// ---- Base block ----

void CheckYear(CFindings& oFindings, unsigned int uiThisYear)
{
    const unsigned int uiField = oFindings.GetMap().FindLeaf(gsc_uiYearOffset, 0);
    const CMap::SField& oYear = oFindings.GetMap().GetField(uiField);
    const bool bModelYear = oYear.m_eId == eZorEdidField_BaseIdentityModelYear;
    const unsigned int uiLatest = uiThisYear + (bModelYear ? 1 : 0); // models are named early
    if (oYear.m_llNumber > uiLatest)
    {
        oFindings.Add(uiField, CMap::eSeverity_Warning, "year", std::to_string(oYear.m_llNumber),
                      FormatText("at most %u", uiLatest));
    }
}

// Where the first descriptor must be a timing and is not, a note of the map says so.
void CheckPreferred(CFindings& oFindings)
{
    constexpr unsigned int uiPreferredBit = 1;
    CEdidBase oBase;
    oBase.SetEdidBuffer(oFindings.GetAt(0), gsc_uiBlockSize, 0);
    const bool bDeclared = IsPreferredTimingDeclared(oFindings.GetAt(0));
    const bool bTiming = HasPixelClock(oFindings.GetAt(gsc_uiDescriptorsOffset));
    if (!bDeclared || (bTiming && oBase.GetDetailed(0, nullptr) == 0))
    {
        oFindings.Add(bDeclared ? oFindings.FindGroup(gsc_uiDescriptorsOffset)
                                : oFindings.GetMap().FindLeaf(gsc_uiFeaturesOffset, uiPreferredBit),
                      CMap::eSeverity_Note, "preferred mode",
                      bDeclared ? "none that the library reads" : "none declared", "one, which the text reports need");
    }
}

void CheckRangeLimits(CFindings& oFindings)
{
    const bool bOffsets = IsAtLeastRevision(oFindings.GetAt(0), gsc_uiVideoInputRevision);
    for (unsigned int i = 0; bOffsets && i < CEdidBase::msc_uiDescriptorCount; ++i)
    {
        if (HasRateOffsets(oFindings.GetAt(DescriptorOffset(i))))
        {
            oFindings.Add(oFindings.FindGroup(DescriptorOffset(i)), CMap::eSeverity_Note,
                          "the library reads no range limits with offsets", "", "");
        }
    }
}

// ---- Extension blocks ----

// The library reads the descriptors of a CTA-861 block up to the first that has no pixel clock.
void CheckCtaDescriptors(CFindings& oFindings, unsigned int uiBlock)
{
    const unsigned int uiEnd = uiBlock + gsc_uiChecksumOffset;
    unsigned int uiAt = uiBlock + oFindings.GetByte(uiBlock + Cta::gsc_uiDetailedStartOffset);
    if (uiAt < uiBlock + Cta::gsc_uiDataBlocksOffset)
    {
        return;
    }
    while (uiAt + gsc_uiDescriptorSize <= uiEnd && HasPixelClock(oFindings.GetAt(uiAt)))
    {
        uiAt += gsc_uiDescriptorSize;
    }
    // What the map takes for padding is not a descriptor.
    if (uiAt + gsc_uiDescriptorSize <= uiEnd &&
        oFindings.GetMap().GetField(oFindings.FindGroup(uiAt)).m_uiOffset == uiAt)
    {
        oFindings.Add(oFindings.FindGroup(uiAt), CMap::eSeverity_Note, "the library reads no display descriptor here",
                      "", "");
    }
}

// The timings of a block that the library reads, but does not list: those after a descriptor that ends its list, those
// after a descriptor that it takes for a timing of size 0, and those of a data block whose revision it does not know.
void CheckUnlisted(CFindings& oFindings, unsigned int uiBlock)
{
    const CMap& oMap = oFindings.GetMap();
    if (oMap.GetSize() % gsc_uiBlockSize != 0)
    {
        return; // the library refuses the image
    }
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CMap::SField& oField = oMap.GetField(i);
        const bool bDetailed = oField.m_eId == eZorEdidField_BaseDetailed ||
                               oField.m_eId == eZorEdidField_DisplayidType1Timing ||
                               oField.m_eId == eZorEdidField_DisplayidType2Timing;
        if (bDetailed && oField.m_uiOffset / gsc_uiBlockSize == uiBlock && oField.m_uiTimings == 0)
        {
            oFindings.Add(i, CMap::eSeverity_Note, "the library does not list this timing", "", "");
        }
    }
}

// An override data block may announce blocks that the base block does not.
void CheckExtension(CFindings& oFindings, const CBlockWalk& oBlock)
{
    const unsigned int uiOffset = oBlock.GetOffset();
    const std::string sReason =
        oBlock.IsAnnounced() ? FindUnreadReason(oBlock.GetData()) : "byte 0x7e of the base block does not count it";
    if (!sReason.empty())
    {
        unsigned int uiField = oFindings.GetMap().FindLeaf(uiOffset, 0);
        while (oFindings.GetMap().GetField(uiField).m_uiDepth != 0)
        {
            uiField = oFindings.GetMap().GetField(uiField).m_uiGroup;
        }
        oFindings.Add(uiField, CMap::eSeverity_Note, "the block is not read: " + sReason, "", "");
    }
    else
    {
        CheckUnlisted(oFindings, oBlock.GetNumber());
        if (oFindings.GetByte(uiOffset) == Cta::gsc_uiTag)
        {
            CheckCtaDescriptors(oFindings, uiOffset);
        }
    }
}
} // namespace

std::vector<SFinding> CheckImage(const CZorEdidMap& oMap, unsigned int uiThisYear)
{
    CFindings oFindings(oMap);
    AddNotes(oFindings);
    const unsigned char* pui8Data = oMap.GetData();
    if (oMap.GetSize() >= gsc_uiBlockSize && memcmp(pui8Data, EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) == 0)
    {
        CheckYear(oFindings, uiThisYear);
        CheckPreferred(oFindings);
        CheckRangeLimits(oFindings);
        CheckUnlisted(oFindings, 0);
        // The map notes each block that is not counted, and each that is cut short.
        const unsigned int uiCounted = oFindings.GetByte(FindExtensionCount(pui8Data, oMap.GetSize()));
        for (CBlockWalk oWalk(pui8Data, oMap.GetSize());
             oWalk.Next() && oWalk.IsWhole() && oWalk.GetNumber() <= uiCounted;)
        {
            CheckExtension(oFindings, oWalk);
        }
    }
    return oFindings.TakeInOrder();
}

unsigned int GetThisYear()
{
    const std::chrono::year_month_day oToday(std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now()));
    return static_cast<unsigned int>(static_cast<int>(oToday.year()));
}

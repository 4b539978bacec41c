// Reading one image for the page, and comparing two.

#include "PageImage.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <set>
#include <stdlib.h>
#include <string_view>
#include <tuple>
#include <utility>

#include "MapText.h"
#include "PageModes.h"
#include "PageNames.h"
#include "PageParts.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

using CField = CZorEdidMap::SField;

std::string FindTitle(const SPageImage& oImage)
{
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); ++i)
    {
        const CField& oField = oImage.m_oMap.GetField(i);
        if (oField.m_eKind == CZorEdidMap::eKind_Text &&
            oField.m_uiOffset >= ZorStandards::BaseBlock::gsc_uiContentsOffset &&
            oField.m_uiOffset < CEdidUtils::msc_uiBlockSize)
        {
            const unsigned int uiTag = oField.m_uiOffset - ZorStandards::BaseBlock::gsc_uiContentsOffset +
                                       ZorStandards::BaseBlock::gsc_uiTagOffset;
            std::string sText = static_cast<const char*>(oImage.m_oMap.GetValue(i));
            if (oImage.m_oMap.GetData()[uiTag] == ZorStandards::BaseBlock::gsc_ui8TagName && !sText.empty())
            {
                return sText;
            }
        }
    }
    return oImage.m_sFile;
}

// With the header put right, which is all that the library wants of a base block.
void LoadBase(std::vector<unsigned char> aui8Bytes, CEdidBase& oBase)
{
    constexpr std::array<unsigned char, 8> aui8Header = { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00 };
    if (aui8Bytes.size() >= CEdidUtils::msc_uiBlockSize)
    {
        std::ranges::copy(aui8Header, aui8Bytes.begin());
        oBase.SetEdidBuffer(aui8Bytes.data(), CEdidUtils::msc_uiBlockSize, 0);
    }
}

// Where the fields begin that lie behind the announced blocks.
unsigned int FindAnnounced(const CZorEdidMap& oMap)
{
    const unsigned int uiCount = ZorStandards::FindExtensionCount(oMap.GetData(), oMap.GetSize());
    const unsigned int uiBlocks = uiCount < oMap.GetSize() ? oMap.GetData()[uiCount] + 1U : oMap.GetSize();
    unsigned int uiField = 0;
    while (uiField < oMap.GetFieldCount() && oMap.GetField(uiField).m_uiOffset / CEdidUtils::msc_uiBlockSize < uiBlocks)
    {
        uiField = oMap.GetField(uiField).m_uiEnd;
    }
    return uiField;
}

// What the map says about the timings that the library lists, found in one pass.
class CListedFields
{
public:
    explicit CListedFields(const CZorEdidMap& oMap) : m_oMap(oMap)
    {
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            const CField& oField = oMap.GetField(i);
            if (oField.m_eList == CZorEdidMap::eList_Detailed)
            {
                m_aoDetailed.emplace(oField.m_uiTiming, i);
            }
            if (oField.m_llNumber >= msc_uiFirstOther + msc_uiNativeBit && !GetCodeText(oField).empty())
            {
                m_aoCodes.emplace(oField.m_uiOffset / CEdidUtils::msc_uiBlockSize, oField.m_llNumber);
            }
        }
    }

    void Complete(SPageTiming& oTiming) const
    {
        oTiming.m_sOtherCode = FindOtherCode(oTiming.m_oListed);
        const auto itGroup = m_aoDetailed.find(oTiming.m_oListed.m_uiIndex);
        if (oTiming.m_oListed.m_eList == CZorEdidMap::eList_Detailed && itGroup != m_aoDetailed.end())
        {
            ReadBorders(m_oMap, m_oMap.GetField(itGroup->second), oTiming);
        }
    }

private:
    static constexpr unsigned int msc_uiFirstOther = 65;
    static constexpr unsigned int msc_uiNativeBit = 0x80;

    // The library takes codes from 193 on as native forms of 65 and up, as CEA-861-F had it.
    std::string FindOtherCode(const SListedTiming& oListed) const
    {
        for (const unsigned int uiCode : oListed.m_oVics.m_auiCodes)
        {
            if (oListed.m_bNative && uiCode >= msc_uiFirstOther &&
                m_aoCodes.contains({ oListed.m_uiBlock, uiCode + msc_uiNativeBit }))
            {
                return FormatText("the library reads byte %02x as VIC %u; by CTA-861-H it is VIC %u",
                                  uiCode + msc_uiNativeBit, uiCode, uiCode + msc_uiNativeBit);
            }
        }
        return "";
    }

    const CZorEdidMap& m_oMap;
    std::map<unsigned int, unsigned int> m_aoDetailed;      // groups by the numbers of their timings
    std::set<std::pair<unsigned int, long long>> m_aoCodes; // of each block
};

// The names on the way to each field. Of fields of one name in a group, each carries its rank: offsets shift.
std::map<std::string, unsigned int> MakePaths(const SPageImage& oImage, std::vector<std::string>& asPaths)
{
    std::map<std::string, unsigned int> aoFound;
    std::map<std::string, unsigned int> aoCounts;
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); ++i)
    {
        const CField& oField = oImage.m_oMap.GetField(i);
        const std::string sOpen = oField.m_uiGroup == gsc_uiNone ? "" : asPaths[oField.m_uiGroup] + "\n";
        std::string sPath = sOpen + oField.m_pszName;
        sPath += FormatText("\t%u", aoCounts[sPath]++);
        aoFound.emplace(sPath, i);
        asPaths.push_back(sPath);
    }
    return aoFound;
}

// Padding of a single value: more or less of it says nothing.
bool IsPlainPadding(const SPageImage& oImage, unsigned int uiField)
{
    const CField& oField = oImage.m_oMap.GetField(uiField);
    const unsigned char* pui8First = oImage.m_oMap.GetData() + oField.m_uiOffset;
    return oField.m_eKind == CZorEdidMap::eKind_Reserved && PageNames::gsc_sPadding == oField.m_pszName &&
           std::all_of(pui8First, pui8First + oField.m_uiLength, [&](unsigned char ui8) { return ui8 == *pui8First; });
}

// Whether both are such padding of the same value, or this one is and the other is not there.
bool IsSamePadding(const SPageImage& oImage, unsigned int uiField, const SPageImage& oOther, unsigned int uiOther)
{
    const auto fnFirst = [](const SPageImage& oIn, unsigned int uiIn) {
        return oIn.m_oMap.GetData()[oIn.m_oMap.GetField(uiIn).m_uiOffset];
    };
    return IsPlainPadding(oImage, uiField) &&
           (uiOther == gsc_uiNone ||
            (IsPlainPadding(oOther, uiOther) && fnFirst(oImage, uiField) == fnFirst(oOther, uiOther)));
}

void CompareFields(SPageImage& oImage, const std::vector<std::string>& asPaths, const SPageImage& oOther,
                   const std::map<std::string, unsigned int>& aoOthers)
{
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); ++i)
    {
        const CField& oField = oImage.m_oMap.GetField(i);
        SPageField& oPlace = oImage.m_aoFields[i];
        const auto itOther = aoOthers.find(asPaths[i]);
        const unsigned int uiOther = itOther == aoOthers.end() ? gsc_uiNone : itOther->second;
        if (IsSamePadding(oImage, i, oOther, uiOther))
        {
            continue;
        }
        oPlace.m_bOnlyHere = uiOther == gsc_uiNone;
        if (oField.m_eKind == CZorEdidMap::eKind_Group)
        {
            continue;
        }
        if (!oPlace.m_bOnlyHere)
        {
            oPlace.m_sOther = oOther.GetValue(uiOther);
        }
        oPlace.m_bDiffers = oPlace.m_bOnlyHere || oPlace.m_sOther != oImage.GetValue(i);
        for (unsigned int uiUp = oField.m_uiGroup; oPlace.m_bDiffers && uiUp != gsc_uiNone;
             uiUp = oImage.m_oMap.GetField(uiUp).m_uiGroup)
        {
            oImage.m_aoFields[uiUp].m_bDiffers = true;
        }
    }
}

// The timings of an image by what equal ones have in common. Clocks and line rates are compared with a tolerance.
class CTimingIndex
{
public:
    explicit CTimingIndex(std::vector<SPageTiming>& aoTimings)
    {
        for (SPageTiming& oTiming : aoTimings)
        {
            // A thousand timings that are all the same are one kind.
            std::vector<SKind>& aoKinds = m_aoByKey[MakeKey(oTiming)];
            const auto itKind = std::ranges::find_if(
                aoKinds, [&](const SKind& oKind) { return IsSameTiming(*oKind.m_apoAll.front(), oTiming); });
            SKind& oKind = itKind != aoKinds.end() ? *itKind : aoKinds.emplace_back();
            oKind.m_apoAll.push_back(&oTiming);
            oKind.m_apoFree[GetList(oTiming)].push_back(&oTiming);
        }
    }

    // One that equals oTiming; best one that was not yet taken, of the same list, with the very same numbers.
    SPageTiming* Take(const SPageTiming& oTiming)
    {
        const auto itKinds = m_aoByKey.find(MakeKey(oTiming));
        SPageTiming* poBest = nullptr;
        std::deque<SPageTiming*>* papoFrom = nullptr;
        unsigned int uiBest = 0;
        const auto fnOffer = [&](SPageTiming* poOffer, std::deque<SPageTiming*>* papoFree, unsigned int uiWorth) {
            if (poBest == nullptr || uiWorth > uiBest)
            {
                poBest = poOffer;
                papoFrom = papoFree;
                uiBest = uiWorth;
            }
        };
        for (size_t i = 0; itKinds != m_aoByKey.end() && i < itKinds->second.size(); ++i)
        {
            SKind& oKind = itKinds->second[i];
            if ((oKind.m_apoAll.front()->m_oListed.m_oTiming == oTiming.m_oListed.m_oTiming) == 0)
            {
                continue;
            }
            const unsigned int uiSame = IsSameTiming(*oKind.m_apoAll.front(), oTiming) ? 1 : 0;
            fnOffer(oKind.m_apoAll.front(), nullptr, uiSame);
            for (size_t uiList = 0; uiList < msc_uiLists; ++uiList)
            {
                std::deque<SPageTiming*>& apoFree = oKind.m_apoFree[uiList];
                if (!apoFree.empty())
                {
                    fnOffer(apoFree.front(), &apoFree, (uiList == GetList(oTiming) ? 4 : 2) + uiSame);
                }
            }
        }
        if (papoFrom != nullptr)
        {
            papoFrom->pop_front();
        }
        return poBest;
    }

private:
    static constexpr size_t msc_uiLists = CZorEdidMap::eList_Detailed + 2; // and those of no list

    struct SKind
    {
        std::vector<SPageTiming*> m_apoAll;
        std::deque<SPageTiming*> m_apoFree[msc_uiLists];
    };
    using CKey = std::pair<std::array<unsigned int, 9>, std::string>;

    static size_t GetList(const SPageTiming& oTiming)
    {
        return oTiming.IsListed() ? static_cast<size_t>(oTiming.m_oListed.m_eList) : msc_uiLists - 1;
    }

    static CKey MakeKey(const SPageTiming& oPlace)
    {
        const CVidParamTimingGeneric& oTiming = oPlace.m_oListed.m_oTiming;
        return { { oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(), oTiming.GetHorizontalFrontPorch(),
                   oTiming.GetHorizontalSync(), oTiming.GetHorizontalBackPorch(), oTiming.GetVerticalRateInHz(),
                   oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync(), oTiming.GetVerticalBackPorch() },
                 oPlace.m_sBareRate + oPlace.m_sOtherCode };
    }

    // Alike in what MakeKey leaves out. Clocks and line rates, which equal timings may differ in, are held exactly.
    static bool IsSameTiming(const SPageTiming& oOne, const SPageTiming& oOther)
    {
        const auto fnKey = [](const CVidParamTimingGeneric& oTiming) {
            return std::make_tuple(oTiming.GetPixelClockInHz(), oTiming.GetHorizontalRateInHz(), oTiming.IsInterlaced(),
                                   oTiming.Is420ColorSpace(), oTiming.Is3D());
        };
        return fnKey(oOne.m_oListed.m_oTiming) == fnKey(oOther.m_oListed.m_oTiming);
    }

    std::map<CKey, std::vector<SKind>> m_aoByKey;
};

// Each timing of A has the row of itself and of the timing of B that it takes; those of B that none has taken have rows
// of their own.
void CompareTimings(SPageImage& oFirst, SPageImage& oSecond)
{
    CTimingIndex oOfSecond(oSecond.m_aoTimings);
    for (SPageTiming& oTiming : oFirst.m_aoTimings)
    {
        SPageTiming* poOther = oOfSecond.Take(oTiming);
        oTiming.m_poOther = poOther;
        if (poOther != nullptr)
        {
            poOther->m_bRowOfOther = true;
        }
    }
    CTimingIndex oOfFirst(oFirst.m_aoTimings);
    for (SPageTiming& oTiming : oSecond.m_aoTimings)
    {
        oTiming.m_poOther = oOfFirst.Take(oTiming);
    }
}
} // namespace

SPageImage::SPageImage(SInput oInput, unsigned int uiThisYear) : m_oInput(std::move(oInput))
{
    m_oMap.Read(static_cast<unsigned int>(m_oInput.m_aui8Bytes.size()), m_oInput.m_aui8Bytes.data());
    m_aoFields.resize(m_oMap.GetFieldCount());
    m_uiAnnounced = FindAnnounced(m_oMap);
    m_aoFindings = CheckImage(m_oMap, uiThisYear);
    m_sFile = ShowName(m_oInput.m_sName.substr(m_oInput.m_sName.find_last_of('/') + 1));
    m_sTitle = FindTitle(*this);
    if (!m_oLoaded.Load(m_oInput))
    {
        m_sProblem = m_oLoaded.GetProblem();
    }
    else
    {
        const CListedFields oFields(m_oMap);
        for (const SListedTiming& oListed : ListTimings(m_oLoaded))
        {
            m_aoTimings.push_back({ oListed });
            oFields.Complete(m_aoTimings.back());
            m_aoTimings.back().m_bStandIn =
                oListed.m_eList == CZorEdidMap::eList_Established && IsOfGtf(oListed.m_oTiming);
        }
    }
    LoadBase(m_oInput.m_aui8Bytes, m_oBase);
    char szMaker[64] = {};
    m_sMaker = m_oBase.GetManufacturerName(szMaker, sizeof(szMaker)) != 0 ? szMaker : "";
    AddModesOfMap(*this);
}

const CZorEdidMap::SField* SPageImage::FindField(unsigned int uiOffset, unsigned int uiBit) const
{
    const unsigned int uiLeaf = m_oMap.FindLeaf(uiOffset, uiBit);
    return uiLeaf == gsc_uiNone ? nullptr : &m_oMap.GetField(uiLeaf);
}

std::string SPageImage::GetValueAt(unsigned int uiOffset, unsigned int uiBit) const
{
    const unsigned int uiLeaf = m_oMap.FindLeaf(uiOffset, uiBit);
    return uiLeaf == gsc_uiNone ? "" : static_cast<const char*>(m_oMap.GetValue(uiLeaf));
}

const SPageTiming* SPageImage::FindPreferred() const
{
    const auto itPreferred =
        std::ranges::find_if(m_aoTimings, [](const SPageTiming& oTiming) { return oTiming.m_oListed.m_bPreferred; });
    return itPreferred == m_aoTimings.end() ? nullptr : &*itPreferred;
}

double SPageImage::GetNumberAt(unsigned int uiOffset, unsigned int uiBit) const
{
    const CField* poField = FindField(uiOffset, uiBit);
    return poField == nullptr ? 0 : GetFieldNumber(*poField);
}

void CompareImages(SPage& oPage)
{
    std::vector<std::string> aasPaths[2];
    std::map<std::string, unsigned int> aaoFound[2];
    for (size_t i = 0; i < 2; ++i)
    {
        aaoFound[i] = MakePaths(*oPage.m_apoImages[i], aasPaths[i]);
    }
    for (size_t i = 0; i < 2; ++i)
    {
        SPageImage& oImage = *oPage.m_apoImages[i];
        const SPageImage& oOther = *oPage.m_apoImages[1 - i];
        CompareFields(oImage, aasPaths[i], oOther, aaoFound[1 - i]);
    }
    CompareTimings(*oPage.m_apoImages[0], *oPage.m_apoImages[1]);
}

void ReadBorders(const CZorEdidMap& oMap, const CField& oGroup, SPageTiming& oTiming)
{
    constexpr unsigned int uiBorderOffset = 15; // of an 18-byte timing: pixels each side, then lines each side
    if (oGroup.m_uiLength == sizeof(CEdidUtils::SEdidDetailedRaw))
    {
        oTiming.m_uiBorderWidth = oMap.GetData()[oGroup.m_uiOffset + uiBorderOffset];
        oTiming.m_uiBorderHeight = oMap.GetData()[oGroup.m_uiOffset + uiBorderOffset + 1];
    }
}

bool IsOfGtf(const CVidParamTimingGeneric& oTiming)
{
    return oTiming.GetVideoFamilyType() == CVidParamTiming::eVidParamType_Gtf;
}

double GetNumberOf(const CZorEdidMap& oMap, unsigned int uiGroup, std::string_view sName)
{
    for (unsigned int i = uiGroup; i < oMap.GetField(uiGroup).m_uiEnd; ++i)
    {
        if (sName == oMap.GetField(i).m_pszName)
        {
            return GetFieldNumber(oMap.GetField(i));
        }
    }
    return -1;
}

double SPageTiming::GetRate() const
{
    return HasNumbers() ? GetFieldRate(m_oListed.m_oTiming)
                        : strtod(m_sBareRate.substr(m_sBareRate.rfind('/') + 1).c_str(), nullptr);
}

std::string SPageTiming::GetRateText() const { return HasNumbers() ? FormatRate(GetRate()) : m_sBareRate; }

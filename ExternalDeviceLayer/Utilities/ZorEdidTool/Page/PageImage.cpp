// Reading one image for the page, and comparing two.

#include "PageImage.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "Cea861Bytes.h"
#include "EdidBaseLayout.h"
#include "MapText.h"
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
        if (oField.m_eKind == CZorEdidMap::eKind_Text && oField.m_uiOffset >= EdidBaseLayout::gsc_uiContentsOffset &&
            oField.m_uiOffset < CEdidUtils::msc_uiBlockSize)
        {
            const unsigned int uiTag =
                oField.m_uiOffset - EdidBaseLayout::gsc_uiContentsOffset + EdidBaseLayout::gsc_uiTagOffset;
            std::string sText = static_cast<const char*>(oImage.m_oMap.GetValue(i));
            if (oImage.m_oMap.GetData()[uiTag] == EdidBaseLayout::gsc_ui8TagName && !sText.empty())
            {
                return sText;
            }
        }
    }
    return oImage.m_sFile;
}

// Where the fields begin that lie behind the announced blocks.
unsigned int FindAnnounced(const CZorEdidMap& oMap)
{
    const unsigned int uiCount = FindExtensionCount(oMap.GetData(), oMap.GetSize());
    const unsigned int uiBlocks = uiCount < oMap.GetSize() ? oMap.GetData()[uiCount] + 1U : oMap.GetSize();
    unsigned int uiField = 0;
    while (uiField < oMap.GetFieldCount() && oMap.GetField(uiField).m_uiOffset / CEdidUtils::msc_uiBlockSize < uiBlocks)
    {
        uiField = oMap.GetField(uiField).m_uiEnd;
    }
    return uiField;
}

// The library leaves borders out. oGroup is the map's group of the timing; those of DisplayID have none.
void ReadBorders(const CZorEdidMap& oMap, const CField& oGroup, SPageTiming& oTiming)
{
    constexpr unsigned int uiBorderOffset = 15; // of an 18-byte timing: pixels each side, then lines each side
    if (oGroup.m_uiLength == sizeof(CEdidUtils::SEdidDetailedRaw))
    {
        oTiming.m_uiBorderWidth = oMap.GetData()[oGroup.m_uiOffset + uiBorderOffset];
        oTiming.m_uiBorderHeight = oMap.GetData()[oGroup.m_uiOffset + uiBorderOffset + 1];
    }
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
        if (oTiming.m_oListed.m_eList == eTimingList_Detailed && itGroup != m_aoDetailed.end())
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

// ---- Modes of the map ----

// The mode that a field stands for; empty for another field.
std::string GetModeText(const SPageImage& oImage, unsigned int uiField)
{
    constexpr std::string_view asNames[] = { "Short video descriptor", "Detailed timing", "Standard timing",
                                             "CVT 3 byte timing code" };
    const CField& oField = oImage.m_oMap.GetField(uiField);
    const std::string_view sName = oField.m_pszName;
    if (oField.m_eKind == CZorEdidMap::eKind_Flag)
    {
        return oField.m_llNumber != 0 && sName.find(" @ ") != std::string_view::npos ? std::string(sName) : "";
    }
    const bool bType = sName.starts_with("Type ") && sName.ends_with(" timing");
    if (oField.m_eKind != CZorEdidMap::eKind_Group ||
        (!bType && std::find(std::begin(asNames), std::end(asNames), sName) == std::end(asNames)))
    {
        return "";
    }
    const std::string sText = oImage.GetValue(uiField);
    return sText.find("Hz") == std::string::npos ? "" : sText.substr(0, sText.find(", native"));
}

void FindUnlisted(SPageImage& oImage)
{
    std::set<std::string> asListed;
    for (const bool bListed : { true, false })
    {
        for (unsigned int i = 0; i < oImage.m_uiAnnounced; ++i)
        {
            const std::string sMode = GetModeText(oImage, i);
            const bool bNumbered = oImage.m_oMap.GetField(i).m_uiTiming != gsc_uiNone;
            if (bNumbered == bListed && !sMode.empty() && asListed.insert(sMode).second && !bListed)
            {
                oImage.m_asUnlisted.push_back(sMode);
            }
        }
    }
}

// Timings of an image that the library refuses.
void AddTimingsOfMap(SPageImage& oImage)
{
    const CZorEdidMap& oMap = oImage.m_oMap;
    const CEdidBase oBase;
    unsigned int auiCounts[eTimingList_Detailed + 1] = {};
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CField& oGroup = oMap.GetField(i);
        const unsigned char* pui8Bytes = oMap.GetData() + oGroup.m_uiOffset;
        CVidParamTimingGeneric oTiming;
        const bool bDetailed = std::string_view("Detailed timing") == oGroup.m_pszName;
        int iRead = 0;
        if (bDetailed && oGroup.m_uiLength == sizeof(CEdidUtils::SEdidDetailedRaw))
        {
            iRead = CEdidUtils::ConvertDetailedDescriptorToVidParam(
                *reinterpret_cast<const CEdidUtils::SEdidDetailedRaw*>(pui8Bytes), &oTiming);
        }
        else if (std::string_view("Standard timing") == oGroup.m_pszName &&
                 oGroup.m_uiLength == sizeof(CEdidBase::SStandard))
        {
            iRead = oBase.GetStandardTiming(reinterpret_cast<const CEdidBase::SStandard*>(pui8Bytes), &oTiming);
        }
        if (iRead == 0)
        {
            continue;
        }
        const ETimingList eList = bDetailed ? eTimingList_Detailed : eTimingList_Standard;
        SPageTiming oPlace = {
            { eList, auiCounts[eList]++, oGroup.m_uiOffset / CEdidUtils::msc_uiBlockSize, "", oTiming }, true
        };
        oPlace.m_oListed.m_bPreferred = oGroup.m_uiOffset == EdidBaseLayout::gsc_uiDescriptorsOffset &&
                                        EdidBaseLayout::IsPreferredTimingDeclared(oMap.GetData());
        ReadBorders(oMap, oGroup, oPlace);
        oImage.m_aoTimings.push_back(oPlace);
    }
}

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
    return oField.m_eKind == CZorEdidMap::eKind_Reserved && std::string_view("Padding") == oField.m_pszName &&
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
    explicit CTimingIndex(const std::vector<SPageTiming>& aoTimings)
    {
        for (const SPageTiming& oTiming : aoTimings)
        {
            m_aoByKey[MakeKey(oTiming.m_oListed.m_oTiming)].push_back(&oTiming.m_oListed.m_oTiming);
        }
        // Of a thousand timings that are all the same, one is enough.
        for (auto& [oKey, apoTimings] : m_aoByKey)
        {
            std::ranges::sort(apoTimings, IsAhead);
            const auto fnSame = [](const auto* poOne, const auto* poOther) {
                return !IsAhead(poOne, poOther) && !IsAhead(poOther, poOne);
            };
            apoTimings.erase(std::unique(apoTimings.begin(), apoTimings.end(), fnSame), apoTimings.end());
        }
    }

    bool Has(const CVidParamTimingGeneric& oTiming) const
    {
        const auto itFound = m_aoByKey.find(MakeKey(oTiming));
        return itFound != m_aoByKey.end() &&
               std::ranges::any_of(itFound->second, [&](const auto* poOther) { return (*poOther == oTiming) != 0; });
    }

private:
    using CKey = std::array<unsigned int, 9>;

    static CKey MakeKey(const CVidParamTimingGeneric& oTiming)
    {
        return { oTiming.GetHorizontalActive(),   oTiming.GetVerticalActive(),      oTiming.GetHorizontalFrontPorch(),
                 oTiming.GetHorizontalSync(),     oTiming.GetHorizontalBackPorch(), oTiming.GetVerticalRateInHz(),
                 oTiming.GetVerticalFrontPorch(), oTiming.GetVerticalSync(),        oTiming.GetVerticalBackPorch() };
    }

    static bool IsAhead(const CVidParamTimingGeneric* poOne, const CVidParamTimingGeneric* poOther)
    {
        const auto fnKey = [](const CVidParamTimingGeneric& oTiming) {
            return std::make_tuple(oTiming.GetPixelClockInHz(), oTiming.GetHorizontalRateInHz(), oTiming.IsInterlaced(),
                                   oTiming.Is420ColorSpace(), oTiming.Is3D());
        };
        return fnKey(*poOne) < fnKey(*poOther);
    }

    std::map<CKey, std::vector<const CVidParamTimingGeneric*>> m_aoByKey;
};

void CompareTimings(SPageImage& oImage, const SPageImage& oOther)
{
    const CTimingIndex oIndex(oOther.m_aoTimings);
    for (SPageTiming& oTiming : oImage.m_aoTimings)
    {
        oTiming.m_bOnlyHere = !oIndex.Has(oTiming.m_oListed.m_oTiming);
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
        AddTimingsOfMap(*this);
        return;
    }
    char szMaker[64] = {};
    m_sMaker = m_oLoaded.GetEdid().GetManufacturerName(szMaker, sizeof(szMaker)) != 0 ? szMaker : "";
    const CListedFields oFields(m_oMap);
    for (const SListedTiming& oListed : ListTimings(m_oLoaded))
    {
        m_aoTimings.push_back({ oListed });
        oFields.Complete(m_aoTimings.back());
    }
    FindUnlisted(*this);
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

const SListedTiming* SPageImage::FindPreferred() const
{
    const auto itPreferred =
        std::ranges::find_if(m_aoTimings, [](const SPageTiming& oTiming) { return oTiming.m_oListed.m_bPreferred; });
    return itPreferred == m_aoTimings.end() ? nullptr : &itPreferred->m_oListed;
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
        CompareTimings(oImage, oOther);
    }
}

double GetFieldNumber(const CZorEdidMap::SField& oField)
{
    double dNumber = static_cast<double>(oField.m_llNumber);
    for (unsigned int i = 0; i < oField.m_uiDecimals; ++i)
    {
        dNumber /= 10;
    }
    return dNumber;
}

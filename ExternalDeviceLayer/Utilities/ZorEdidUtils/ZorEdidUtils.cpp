// Modes of an EDID: extracting and ordering them, the text of one, the comparison of two EDIDs. Files are read in
// ZorEdidUtilsFile.cpp, reports written in the other sources beside it.

#include "ZorEdidUtils.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <span>
#include <tuple>

#include "ListFill.h"
#include "Standards/BaseBlock.h"
#include "ZorAssert.h"
#include "ZorEdidUtilsModes.h"
#include "ZorEdidUtilsReport.h"

using namespace ZorUtils;

namespace
{
using CModeList = CZorEdidUtils::CModeList;

// 1 when the first key is the smaller, so that sorting puts the larger first.
constexpr int CompareDescending(unsigned int uiFirst, unsigned int uiSecond)
{
    if (uiFirst == uiSecond)
    {
        return 0;
    }
    return uiFirst < uiSecond ? 1 : -1;
}
} // namespace

int CZorEdidUtils::SortVidParam(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond,
                                unsigned long /*ulContext*/)
{
    if (int iOrder = CompareDescending(oFirst.GetHorizontalActive(), oSecond.GetHorizontalActive()); iOrder != 0)
    {
        return iOrder;
    }
    if (int iOrder = CompareDescending(oFirst.GetVerticalActive(), oSecond.GetVerticalActive()); iOrder != 0)
    {
        return iOrder;
    }
    if (int iOrder = CompareDescending(oFirst.GetVerticalRateInHz(), oSecond.GetVerticalRateInHz()); iOrder != 0)
    {
        return iOrder;
    }
    return CompareDescending(oFirst.GetPixelClockInKiloHz(), oSecond.GetPixelClockInKiloHz());
}

CTextLine& ZorUtils::AppendAllFields(CTextLine& oLine, const SVidParamGenericData& oData)
{
    const unsigned int uiFlags = oData.uiFlags;
    return oLine.Decimal(oData.uiHorizontalActive, 4)
        .Text(" ")
        .Decimal(oData.uiVerticalActive, 4)
        .Text(" ")
        .Decimal(oData.uiVerticalRateInHz, 3)
        .Text(" ")
        .Decimal(oData.uiHorizontalRateInHz, 3)
        .Text(" ")
        .Decimal(oData.uiPixelClockInHz, 6)
        .Text(" ")
        .Decimal(oData.uiHorizontalFrontPorch, 4)
        .Text(" ")
        .Decimal(oData.uiHorizontalSync, 3)
        .Text(" ")
        .Decimal(oData.uiHorizontalBackPorch, 3)
        .Text(" ")
        .Decimal(oData.uiVerticalFrontPorch, 3)
        .Text(" ")
        .Decimal(oData.uiVerticalSync, 3)
        .Text(" ")
        .Decimal(oData.uiVerticalBackPorch, 3)
        .Text((uiFlags & CVidParamTimingGeneric::eFlag_Interlaced) != 0 ? " yes" : "  no")
        .Text((uiFlags & CVidParamTimingGeneric::eFlag_BottomFieldFirst) != 0 ? " yes" : "  no")
        .Text((uiFlags & CVidParamTimingGeneric::eFlag_HorizontalPositive) != 0 ? " +" : " -")
        .Text((uiFlags & CVidParamTimingGeneric::eFlag_VerticalPositive) != 0 ? " +" : " -");
}

void CZorEdidUtils::GetFormatedVideoParam(const SVidParamGenericData& oData, int bFullFormat, CMString& oText,
                                          const char* /*pszLinePrefix*/)
{
    CTextLine oLine("");
    if (bFullFormat != 0)
    {
        AppendAllFields(oLine, oData);
    }
    else
    {
        oLine.Decimal(oData.uiHorizontalActive, 4)
            .Text(" x ")
            .Decimal(oData.uiVerticalActive, 4)
            .Text((oData.uiFlags & CVidParamTimingGeneric::eFlag_Interlaced) != 0 ? "i @" : "p @")
            .Decimal(oData.uiVerticalRateInHz, 3)
            .Text(" Hz");
    }
    oText = oLine.Get();
}

// ---- Lists ----

namespace
{
bool ExtractPreferred(const CEdid& oEdid, CVidParamTimingGeneric& oPreferred)
{
    return ZorStandards::BaseBlock::IsPreferredTimingDeclared(oEdid.GetBaseBlock()) &&
           oEdid.GetBaseDetailed(0, &oPreferred) != 0;
}

// Appends a copy of oTiming for each index, as filled by oGet(index, &oTiming); false as soon as oGet gives 0. The list
// takes memory once.
template <class GETTER>
bool AppendTimings(CModeList& oList, CVidParamTimingGeneric& oTiming, unsigned int uiCount, GETTER oGet)
{
    ZorCore::CListFill<CVidParamTimingGeneric> oFill(oList, uiCount, oList.GetCount());
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        if (oGet(i, &oTiming) == 0)
        {
            return false;
        }
        oFill.Add(oTiming);
    }
    return true;
}

bool AppendEstablished(const CEdid& oEdid, int bVesaOnly, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(oList, oTiming, oEdid.GetEstablishedCount(bVesaOnly),
                         [&](unsigned int uiIndex, CVidParamTiming* poTiming) {
                             return oEdid.GetEstablished(uiIndex, poTiming, bVesaOnly);
                         });
}

bool AppendBaseStandard(const CEdid& oEdid, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(oList, oTiming, oEdid.GetBaseStandardCount(),
                         [&](unsigned int uiIndex, CVidParamTiming* poTiming) {
                             return oEdid.GetBaseStandard(uiIndex, poTiming, nullptr);
                         });
}

bool AppendBaseDetailed(const CEdid& oEdid, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(
        oList, oTiming, oEdid.GetBaseDetailedCount(),
        [&](unsigned int uiIndex, CVidParamTiming* poTiming) { return oEdid.GetBaseDetailed(uiIndex, poTiming); });
}

// Both lists, which may be one, get room for all timings of the block, and give back what the other one took.
bool AppendExtStandard(const CEdidExtBlock& oBlock, CVidParamTimingGeneric& oTiming, CModeList& oNative,
                       CModeList& oOther)
{
    const unsigned int uiCount = oBlock.GetStandardCount();
    ZorCore::CListFill<CVidParamTimingGeneric> oNativeFill(oNative, uiCount, oNative.GetCount());
    std::optional<ZorCore::CListFill<CVidParamTimingGeneric>> oOwnFill;
    if (&oOther != &oNative)
    {
        oOwnFill.emplace(oOther, uiCount, oOther.GetCount());
    }
    ZorCore::CListFill<CVidParamTimingGeneric>& oOtherFill = oOwnFill ? *oOwnFill : oNativeFill;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        int bNative = 1; // a block without the notion leaves it, and its timings count as native
        if (oBlock.GetStandard(i, &oTiming, &bNative) == 0)
        {
            return false;
        }
        (bNative != 0 ? oNativeFill : oOtherFill).Add(oTiming);
    }
    return true;
}

bool AppendExtDetailed(const CEdidExtBlock& oBlock, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(
        oList, oTiming, oBlock.GetDetailedCount(),
        [&](unsigned int uiIndex, CVidParamTiming* poTiming) { return oBlock.GetDetailed(uiIndex, poTiming); });
}

bool AppendExtensions(const CEdid& oEdid, CVidParamTimingGeneric& oTiming, CModeList& oStandardNative,
                      CModeList& oStandard, CModeList& oDetailed)
{
    for (unsigned int i = 0; i < oEdid.GetExtensionCount(); ++i)
    {
        const CEdidExtBlock* poBlock = oEdid.GetExtension(i);
        if (poBlock == nullptr)
        {
            continue;
        }
        if (!AppendExtStandard(*poBlock, oTiming, oStandardNative, oStandard) ||
            !AppendExtDetailed(*poBlock, oTiming, oDetailed))
        {
            return false;
        }
    }
    return true;
}

// What ExtractModeList does before sorting.
bool CollectModes(const CEdid& oEdid, CVidParamTimingGeneric& oPreferred, CModeList& oEstablishedVesa,
                  CModeList& oEstablishedAll, CModeList& oBaseStandard, CModeList& oBaseDetailed,
                  CModeList& oExtStandardNative, CModeList& oExtStandard, CModeList& oExtDetailed)
{
    oPreferred.ClearData();
    // All lists but oExtStandard, which keeps what the caller put in and the order of the blocks.
    for (CModeList* poList :
         { &oEstablishedVesa, &oEstablishedAll, &oBaseStandard, &oBaseDetailed, &oExtStandardNative, &oExtDetailed })
    {
        poList->RemoveAll();
    }
    // One object for all lists: a DisplayID block writes the fields that its records hold and leaves the others.
    CVidParamTimingGeneric oTiming;
    if (!ExtractPreferred(oEdid, oPreferred) || !AppendEstablished(oEdid, 1, oTiming, oEstablishedVesa) ||
        !AppendEstablished(oEdid, 0, oTiming, oEstablishedAll) || !AppendBaseStandard(oEdid, oTiming, oBaseStandard) ||
        !AppendBaseDetailed(oEdid, oTiming, oBaseDetailed) ||
        !AppendExtensions(oEdid, oTiming, oExtStandardNative, oExtStandard, oExtDetailed))
    {
        MASSERT_FAILED();
        return false;
    }
    return true;
}

// ---- Order ----

// The place of a mode in sorted order: by the keys of SortVidParam, larger values first, equals in their old order.
struct SPlace
{
    unsigned long long m_ullSize;         // width and height, inverted
    unsigned long long m_ullRateAndClock; // hertz and kilohertz, inverted
    unsigned int m_uiBefore;              // place before sorting
    const CVidParamTimingGeneric* m_poTiming;

    bool operator<(const SPlace& oOther) const
    {
        return std::tie(m_ullSize, m_ullRateAndClock, m_uiBefore) <
               std::tie(oOther.m_ullSize, oOther.m_ullRateAndClock, oOther.m_uiBefore);
    }
};

constexpr unsigned long long JoinInverted(unsigned int uiHigh, unsigned int uiLow)
{
    return ~((static_cast<unsigned long long>(uiHigh) << 32) | uiLow);
}

// Modes in sorted order, as places that point to them: nothing is moved while they are sorted (sorting copies took 8 %
// of the instructions of a comparison). The timings must stay where they are.
class CSortedModes
{
public:
    explicit CSortedModes(unsigned int uiMostModes) { m_aoPlaces.SetCount(uiMostModes, -1); }

    void Add(const CModeList& oList)
    {
        for (unsigned int i = 0; i < oList.GetCount(); ++i)
        {
            const SVidParamGenericData& oData = oList[i].GetData();
            m_aoPlaces.SetAt(static_cast<int>(m_uiCount),
                             { JoinInverted(oData.uiHorizontalActive, oData.uiVerticalActive),
                               JoinInverted(oData.uiVerticalRateInHz, oList[i].GetPixelClockInKiloHz()), m_uiCount,
                               &oList[i] });
            ++m_uiCount;
        }
    }
    void Sort() { std::sort(m_aoPlaces.GetData(), m_aoPlaces.GetData() + m_uiCount); }

    unsigned int GetCount() const { return m_uiCount; }
    const CVidParamTimingGeneric& operator[](unsigned int uiIndex) const { return *m_aoPlaces[uiIndex].m_poTiming; }
    unsigned int GetPlaceBefore(unsigned int uiIndex) const { return m_aoPlaces[uiIndex].m_uiBefore; }

private:
    CMArray<SPlace, const SPlace&> m_aoPlaces;
    unsigned int m_uiCount = 0;
};
} // namespace

// SortElements moves neighbours only: n squared steps through virtual getters, 19 % of the instructions of the report
// of modes. Equals keep their order here as there.
void ZorUtils::SortModes(CModeList& oList)
{
    if (oList.GetCount() < 2)
    {
        return;
    }
    CSortedModes oSorted(oList.GetCount());
    oSorted.Add(oList);
    oSorted.Sort();
    const CModeList oUnsorted(oList); // the places point into the list itself
    for (unsigned int i = 0; i < oList.GetCount(); ++i)
    {
        oList.SetAt(static_cast<int>(i), oUnsorted[oSorted.GetPlaceBefore(i)]);
    }
}

int CZorEdidUtils::ExtractModeList(const CEdid& oEdid, CVidParamTimingGeneric& oPreferred, CModeList& oEstablishedVesa,
                                   CModeList& oEstablishedAll, CModeList& oBaseStandard, CModeList& oBaseDetailed,
                                   CModeList& oExtStandardNative, CModeList& oExtStandard, CModeList& oExtDetailed)
{
    if (!CollectModes(oEdid, oPreferred, oEstablishedVesa, oEstablishedAll, oBaseStandard, oBaseDetailed,
                      oExtStandardNative, oExtStandard, oExtDetailed))
    {
        return 0;
    }
    for (CModeList* poList :
         { &oEstablishedVesa, &oEstablishedAll, &oBaseStandard, &oBaseDetailed, &oExtStandardNative, &oExtDetailed })
    {
        SortModes(*poList);
    }
    return 1;
}

// ---- Comparison ----

bool SModes::Extract(const CEdid& oEdid)
{
    return CZorEdidUtils::ExtractModeList(oEdid, m_oPreferred, m_oEstablishedVesa, m_oEstablishedAll, m_oBaseStandard,
                                          m_oBaseDetailed, m_oExtStandardNative, m_oExtStandard, m_oExtDetailed) != 0;
}

bool SModes::Collect(const CEdid& oEdid)
{
    return CollectModes(oEdid, m_oPreferred, m_oEstablishedVesa, m_oEstablishedAll, m_oBaseStandard, m_oBaseDetailed,
                        m_oExtStandardNative, m_oExtStandard, m_oExtDetailed);
}

namespace
{
// The modes that take part in a comparison, in sorted order. They need not be sorted list by list before, which took
// 24 % of the instructions of a comparison.
CSortedModes GetComparedModes(const SModes& oModes, int bCompareEstablished)
{
    const CModeList* const apoLists[] = { &oModes.m_oEstablishedVesa, &oModes.m_oEstablishedAll,
                                          &oModes.m_oBaseStandard,    &oModes.m_oBaseDetailed,
                                          &oModes.m_oExtStandard,     &oModes.m_oExtDetailed };
    const std::span aoLists = std::span(apoLists).subspan(bCompareEstablished != 0 ? 0 : 2);
    unsigned int uiCount = 0;
    for (const CModeList* poList : aoLists)
    {
        uiCount += poList->GetCount();
    }
    CSortedModes oCompared(uiCount);
    for (const CModeList* poList : aoLists)
    {
        oCompared.Add(*poList);
    }
    oCompared.Sort();
    return oCompared;
}

bool HoldSameModes(const CSortedModes& oFirst, const CSortedModes& oSecond)
{
    if (oFirst.GetCount() != oSecond.GetCount())
    {
        return false;
    }
    for (unsigned int i = 0; i < oFirst.GetCount(); ++i)
    {
        if ((oFirst[i] == oSecond[i]) == 0)
        {
            return false;
        }
    }
    return true;
}
} // namespace

int CZorEdidUtils::CompareTimings(const CEdid& oFirst, const CEdid& oSecond, int bCompareEstablished,
                                  int bComparePreferred)
{
    SModes oFirstModes;
    SModes oSecondModes;
    const bool bFirstHasModes = oFirstModes.Collect(oFirst); // both, so that each one without modes reports
    const bool bSecondHasModes = oSecondModes.Collect(oSecond);
    if (!bFirstHasModes || !bSecondHasModes)
    {
        MASSERT_FAILED();
        return 0;
    }
    if (bComparePreferred != 0 && (oFirstModes.m_oPreferred != oSecondModes.m_oPreferred) != 0)
    {
        return 0;
    }
    return HoldSameModes(GetComparedModes(oFirstModes, bCompareEstablished),
                         GetComparedModes(oSecondModes, bCompareEstablished))
               ? 1
               : 0;
}

int CZorEdidUtils::CompareTimings(const CByteArray& oFirst, const CByteArray& oSecond, int bCompareEstablished,
                                  int bComparePreferred)
{
    CEdid oFirstEdid;
    CEdid oSecondEdid;
    if (oFirstEdid.SetEdidBuffer(oFirst.GetData(), oFirst.GetCount(), 0) == 0 ||
        oSecondEdid.SetEdidBuffer(oSecond.GetData(), oSecond.GetCount(), 0) == 0)
    {
        return 0;
    }
    return CompareTimings(oFirstEdid, oSecondEdid, bCompareEstablished, bComparePreferred);
}

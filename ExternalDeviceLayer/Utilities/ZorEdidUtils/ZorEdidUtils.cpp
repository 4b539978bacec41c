// Modes of an EDID: extracting and ordering them, the text of one, the comparison of two EDIDs. Files are read in
// ZorEdidUtilsFile.cpp, reports written in the other sources beside it.

#include "ZorEdidUtils.h"

#include "EdidBaseLayout.h"
#include "ZorAssert.h"
#include "ZorEdidUtilsModes.h"

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

const char* YesOrNo(unsigned int uiFlag) { return uiFlag != 0 ? "yes" : " no"; }

const char* PlusOrMinus(unsigned int uiFlag) { return uiFlag != 0 ? "+" : "-"; }
} // namespace

int CZorEdidUtils::SortVidParam(const CVidParamTimingGeneric& oFirst, const CVidParamTimingGeneric& oSecond,
                                unsigned long /*ulContext*/)
{
    if (int iOrder = CompareDescending(oFirst.GetHorizontalActive(), oSecond.GetHorizontalActive()))
    {
        return iOrder;
    }
    if (int iOrder = CompareDescending(oFirst.GetVerticalActive(), oSecond.GetVerticalActive()))
    {
        return iOrder;
    }
    if (int iOrder = CompareDescending(oFirst.GetVerticalRateInHz(), oSecond.GetVerticalRateInHz()))
    {
        return iOrder;
    }
    return CompareDescending(oFirst.GetPixelClockInKiloHz(), oSecond.GetPixelClockInKiloHz());
}

void CZorEdidUtils::GetFormatedVideoParam(const SVidParamGenericData& oData, int bFullFormat, CMString& oText,
                                          const char* /*pszLinePrefix*/)
{
    const unsigned int uiFlags = oData.uiFlags;
    const unsigned int uiInterlaced = uiFlags & CVidParamTimingGeneric::eFlag_Interlaced;
    oText.Empty();
    if (!bFullFormat)
    {
        oText.Format("%4d x %4d%s @%3d Hz", static_cast<int>(oData.uiHorizontalActive),
                     static_cast<int>(oData.uiVerticalActive), uiInterlaced != 0 ? "i" : "p",
                     static_cast<int>(oData.uiVerticalRateInHz));
        return;
    }
    oText.Format("%4d %4d %3d %3d %6d %4d %3d %3d %3d %3d %3d %s %s %s %s", static_cast<int>(oData.uiHorizontalActive),
                 static_cast<int>(oData.uiVerticalActive), static_cast<int>(oData.uiVerticalRateInHz),
                 static_cast<int>(oData.uiHorizontalRateInHz), static_cast<int>(oData.uiPixelClockInHz),
                 static_cast<int>(oData.uiHorizontalFrontPorch), static_cast<int>(oData.uiHorizontalSync),
                 static_cast<int>(oData.uiHorizontalBackPorch), static_cast<int>(oData.uiVerticalFrontPorch),
                 static_cast<int>(oData.uiVerticalSync), static_cast<int>(oData.uiVerticalBackPorch),
                 YesOrNo(uiInterlaced), YesOrNo(uiFlags & CVidParamTimingGeneric::eFlag_BottomFieldFirst),
                 PlusOrMinus(uiFlags & CVidParamTimingGeneric::eFlag_HorizontalPositive),
                 PlusOrMinus(uiFlags & CVidParamTimingGeneric::eFlag_VerticalPositive));
}

namespace
{
int ExtractPreferred(const CEdid& oEdid, CVidParamTimingGeneric& oPreferred)
{
    return EdidBaseLayout::IsPreferredTimingDeclared(oEdid.GetBaseBlock()) && oEdid.GetBaseDetailed(0, &oPreferred);
}

// Appends a copy of oTiming for each index, as filled by oGet(index, &oTiming); 0 as soon as oGet gives 0.
template <class GETTER>
int AppendTimings(CModeList& oList, CVidParamTimingGeneric& oTiming, unsigned int uiCount, GETTER oGet)
{
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        if (!oGet(i, &oTiming))
        {
            return 0;
        }
        oList.Add(oTiming);
    }
    return 1;
}

int AppendEstablished(const CEdid& oEdid, int bVesaOnly, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(oList, oTiming, oEdid.GetEstablishedCount(bVesaOnly),
                         [&](unsigned int uiIndex, CVidParamTiming* poTiming) {
                             return oEdid.GetEstablished(uiIndex, poTiming, bVesaOnly);
                         });
}

int AppendBaseStandard(const CEdid& oEdid, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(oList, oTiming, oEdid.GetBaseStandardCount(),
                         [&](unsigned int uiIndex, CVidParamTiming* poTiming) {
                             return oEdid.GetBaseStandard(uiIndex, poTiming, nullptr);
                         });
}

int AppendBaseDetailed(const CEdid& oEdid, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(
        oList, oTiming, oEdid.GetBaseDetailedCount(),
        [&](unsigned int uiIndex, CVidParamTiming* poTiming) { return oEdid.GetBaseDetailed(uiIndex, poTiming); });
}

int AppendExtStandard(const CEdidExtBlock& oBlock, CVidParamTimingGeneric& oTiming, CModeList& oNative,
                      CModeList& oOther)
{
    for (unsigned int i = 0; i < oBlock.GetStandardCount(); ++i)
    {
        int bNative = 1; // a block without the notion leaves it, and its timings count as native
        if (!oBlock.GetStandard(i, &oTiming, &bNative))
        {
            return 0;
        }
        (bNative ? oNative : oOther).Add(oTiming);
    }
    return 1;
}

int AppendExtDetailed(const CEdidExtBlock& oBlock, CVidParamTimingGeneric& oTiming, CModeList& oList)
{
    return AppendTimings(
        oList, oTiming, oBlock.GetDetailedCount(),
        [&](unsigned int uiIndex, CVidParamTiming* poTiming) { return oBlock.GetDetailed(uiIndex, poTiming); });
}

int AppendExtensions(const CEdid& oEdid, CVidParamTimingGeneric& oTiming, CModeList& oStandardNative,
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
            return 0;
        }
    }
    return 1;
}
} // namespace

int CZorEdidUtils::ExtractModeList(const CEdid& oEdid, CVidParamTimingGeneric& oPreferred, CModeList& oEstablishedVesa,
                                   CModeList& oEstablishedAll, CModeList& oBaseStandard, CModeList& oBaseDetailed,
                                   CModeList& oExtStandardNative, CModeList& oExtStandard, CModeList& oExtDetailed)
{
    // All lists but oExtStandard, which keeps what the caller put in and the order of the blocks.
    CModeList* const apoOwnLists[] = { &oEstablishedVesa, &oEstablishedAll,    &oBaseStandard,
                                       &oBaseDetailed,    &oExtStandardNative, &oExtDetailed };

    oPreferred.ClearData();
    for (CModeList* poList : apoOwnLists)
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
        return 0;
    }

    for (CModeList* poList : apoOwnLists)
    {
        poList->SortElements(SortVidParam, 0);
    }
    return 1;
}

namespace
{
// The modes that take part in a comparison.
CModeList GetComparedModes(const SModes& oModes, int bCompareEstablished)
{
    CModeList oCompared;
    if (bCompareEstablished)
    {
        oCompared.Append(oModes.m_oEstablishedVesa);
        oCompared.Append(oModes.m_oEstablishedAll);
    }
    oModes.AppendStandardAndDetailed(oCompared);
    return oCompared;
}

// Whether both lists hold the same modes, in whatever order. Sorts them.
int HoldSameModes(CModeList& oFirst, CModeList& oSecond)
{
    if (oFirst.GetCount() != oSecond.GetCount())
    {
        return 0;
    }
    oFirst.SortElements(CZorEdidUtils::SortVidParam, 0);
    oSecond.SortElements(CZorEdidUtils::SortVidParam, 0);
    for (unsigned int i = 0; i < oFirst.GetCount(); ++i)
    {
        if (!(oFirst[i] == oSecond[i]))
        {
            return 0;
        }
    }
    return 1;
}
} // namespace

int CZorEdidUtils::CompareTimings(const CEdid& oFirst, const CEdid& oSecond, int bCompareEstablished,
                                  int bComparePreferred)
{
    SModes oFirstModes;
    SModes oSecondModes;
    const int bFirstHasModes = oFirstModes.Extract(oFirst);
    const int bSecondHasModes = oSecondModes.Extract(oSecond);
    if (!bFirstHasModes || !bSecondHasModes)
    {
        MASSERT_FAILED();
        return 0;
    }
    if (bComparePreferred && oFirstModes.m_oPreferred != oSecondModes.m_oPreferred)
    {
        return 0;
    }
    CModeList oFirstCompared = GetComparedModes(oFirstModes, bCompareEstablished);
    CModeList oSecondCompared = GetComparedModes(oSecondModes, bCompareEstablished);
    return HoldSameModes(oFirstCompared, oSecondCompared);
}

int CZorEdidUtils::CompareTimings(const CByteArray& oFirst, const CByteArray& oSecond, int bCompareEstablished,
                                  int bComparePreferred)
{
    CEdid oFirstEdid;
    CEdid oSecondEdid;
    if (!oFirstEdid.SetEdidBuffer(oFirst.GetData(), oFirst.GetCount(), 0) ||
        !oSecondEdid.SetEdidBuffer(oSecond.GetData(), oSecond.GetCount(), 0))
    {
        return 0;
    }
    return CompareTimings(oFirstEdid, oSecondEdid, bCompareEstablished, bComparePreferred);
}

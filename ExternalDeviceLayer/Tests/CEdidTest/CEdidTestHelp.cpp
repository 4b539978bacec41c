// The routines that the suites share; the suites' own steps are in the Test_ sources.

#include "CEdidTestHelp.h"

#include "Edid.h"
#include "VidParamCea.h"
#include "VidParamGtf.h"

namespace
{
constexpr unsigned int gsc_uiPreferredTimingBit = 0x02; // of the feature byte

void FillTiming(const tagRVideo_VidParam& oRow, CVidParamTiming& oTiming)
{
    oTiming.SetHorizontalActive(oRow.uiHorizontalActive);
    oTiming.SetVerticalActive(oRow.uiVerticalActive);
    oTiming.SetVerticalRateInHz(oRow.uiVerticalRateInHz);
    oTiming.SetHorizontalRateInKiloHz(oRow.uiHorizontalRateInKiloHz);
    oTiming.SetPixelClockInKiloHz(oRow.uiPixelClockInKiloHz);
    oTiming.SetHorizontalFrontPorch(oRow.uiHorizontalFrontPorch);
    oTiming.SetHorizontalSync(oRow.uiHorizontalSync);
    oTiming.SetHorizontalBackPorch(oRow.uiHorizontalBackPorch);
    oTiming.SetVerticalFrontPorch(oRow.uiVerticalFrontPorch);
    oTiming.SetVerticalSync(oRow.uiVerticalSync);
    oTiming.SetVerticalBackPorch(oRow.uiVerticalBackPorch);
}

// The walk of all validators: runs oCheckRow for each row, up to the first that does not hold. oCheckRow writes the
// line, so that it names the validator.
template <class CHECK>
int ValidateRows(unsigned int uiCount, const CHECK& oCheckRow)
{
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        MTEST_PASS_ON(oCheckRow(i));
    }
    return 1;
}

// A detailed timing against a row of a mode table or a formula. Writes no line.
bool IsDetailedEqual(const CEdid& oEdid, unsigned int uiIndex, const STimingData& oRow)
{
    CVidParamTimingGeneric oExpected;
    CVidParamTimingGeneric oTiming;
    return GetVidParam(oRow, oExpected) != 0 && oEdid.GetDetailed(uiIndex, &oTiming) != 0 &&
           (oExpected != oTiming) == 0;
}
} // namespace

int LoadCopy(CEdid& oEdid, const SEdidImage& aui8Image)
{
    const SEdidImage aui8Copy = aui8Image;
    return oEdid.SetEdidBuffer(aui8Copy.data(), static_cast<unsigned int>(aui8Copy.size()), 0);
}

int CompareRawData(const CEdid& oEdid, unsigned int uiSize, const unsigned char* pui8Expected)
{
    if (pui8Expected == nullptr || oEdid.GetSize() != uiSize)
    {
        return 0;
    }
    const CMArray<unsigned char, const unsigned char&> aui8Edid = oEdid.GetEdidBuffer();
    for (unsigned int i = 0; i < uiSize; ++i)
    {
        if (aui8Edid[static_cast<int>(i)] != pui8Expected[i])
        {
            return 0;
        }
    }
    return 1;
}

unsigned int ReadLittleEndian(const unsigned char* pui8Data, unsigned int uiSize)
{
    unsigned int uiValue = 0;
    for (unsigned int i = uiSize; i > 0; --i)
    {
        uiValue = uiValue << 8 | pui8Data[i - 1];
    }
    return uiValue;
}

// What the lookups return is not looked at on purpose: a miss shows in the comparison that follows.
int GetVidParam(const STimingData& oRow, CVidParamTimingGeneric& oTiming)
{
    switch (oRow.m_eTimingType)
    {
    case CVidParamTiming::eVidParamType_Gtf:
        CVidParamGtf::GetVidParam(oRow.m_uiHorizontalActive, oRow.m_uiVerticalActive, oRow.m_uiVerticalRateInHz,
                                  &oTiming);
        return 1;

    case CVidParamTiming::eVidParamType_Dmt:
        CVidParamDmt::GetVidParam(0, &oTiming, oRow.m_uiHorizontalActive, oRow.m_uiVerticalActive,
                                  oRow.m_uiVerticalRateInHz, oRow.m_eModeListType);
        return 1;

    case CVidParamTiming::eVidParamType_Cea:
        if (oRow.m_uiVic != 0)
        {
            CVidParamCea::GetVidParamFromVic(oRow.m_uiVic, &oTiming);
        }
        else
        {
            CVidParamCea::GetVidParam(0, &oTiming, oRow.m_uiHorizontalActive, oRow.m_uiVerticalActive,
                                      oRow.m_uiVerticalRateInHz, CVidParamCea::eScanTypeAny);
        }
        return 1;

    default:
        return 0;
    }
}

int IsPreferredTimingProtected(const CEdid& oEdid)
{
    const unsigned char* const pui8Base = oEdid.GetBaseBlock();
    const bool bByRevision = pui8Base[gsc_uiVersionOffset] == 1 && pui8Base[gsc_uiRevisionOffset] >= 3;
    const bool bByFeature = (pui8Base[gsc_uiFeatureOffset] & gsc_uiPreferredTimingBit) != 0;
    return bByRevision || bByFeature ? 1 : 0;
}

// The base validators fetch through the merged numbering, in which the base block's timings come first.
int ValidateBaseDetailed(const CEdid& oEdid, unsigned int uiCount, const tagRVideo_VidParam* poRows)
{
    MTEST_STEP(oEdid.GetBaseDetailedCount() == uiCount);

    CVidParamTimingGeneric oExpected;
    CVidParamTimingGeneric oTiming;
    return ValidateRows(uiCount, [&](unsigned int uiIndex) {
        FillTiming(poRows[uiIndex], oExpected);
        MTEST_STEP(oEdid.GetDetailed(uiIndex, &oTiming) != 0 && (oExpected != oTiming) == 0);
        return 1;
    });
}

int ValidateBaseDetailed(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows)
{
    if (oEdid.GetBaseDetailedCount() != uiCount)
    {
        return 0;
    }
    return ValidateRows(uiCount, [&](unsigned int uiIndex) {
        MTEST_STEP(IsDetailedEqual(oEdid, uiIndex, poRows[uiIndex]));
        return 1;
    });
}

int ValidateDetailed(const CEdid& oEdid, unsigned int uiCount, const tagRVideo_VidParam* poRows)
{
    MTEST_STEP(oEdid.GetDetailedCount() == uiCount);

    return ValidateRows(uiCount, [&](unsigned int uiIndex) {
        CRVidParamTiming const oExpected(poRows[uiIndex], eRVideoFamily_None);
        CRVidParamTiming oTiming;
        MTEST_STEP(oEdid.GetDetailed(uiIndex, &oTiming) != 0 && (oExpected != oTiming) == 0);
        return 1;
    });
}

int ValidateDetailed(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows)
{
    MTEST_STEP(oEdid.GetDetailedCount() == uiCount);

    return ValidateRows(uiCount, [&](unsigned int uiIndex) {
        MTEST_STEP(IsDetailedEqual(oEdid, uiIndex, poRows[uiIndex]));
        return 1;
    });
}

int ValidateBaseStandard(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows)
{
    MTEST_STEP(oEdid.GetBaseStandardCount() == uiCount);

    return ValidateRows(uiCount, [&](unsigned int uiIndex) {
        CVidParamTimingGeneric oExpected;
        CVidParamTimingGeneric oTiming;
        int iNative = 0;
        MTEST_STEP(GetVidParam(poRows[uiIndex], oExpected) != 0 &&
                   oEdid.GetStandard(uiIndex, &oTiming, &iNative) != 0 && iNative == 0 && (oExpected != oTiming) == 0);
        return 1;
    });
}

int ValidateStandard(const CEdid& oEdid, unsigned int uiCount, const STimingData* poRows)
{
    if (oEdid.GetStandardCount() != uiCount)
    {
        return 0;
    }
    return ValidateRows(uiCount, [&](unsigned int uiIndex) {
        CVidParamTimingGeneric oExpected;
        CVidParamTimingGeneric oTiming;
        MTEST_STEP(GetVidParam(poRows[uiIndex], oExpected) != 0 && oEdid.GetStandard(uiIndex, &oTiming, nullptr) != 0 &&
                   (oExpected != oTiming) == 0);
        return 1;
    });
}

int RemoveAndValidateStandard(unsigned int uiIndex, CEdid& oEdid, unsigned int uiCount, const STimingData* poRows,
                              unsigned int uiSize, const unsigned char* pui8Expected)
{
    MTEST_STEP(oEdid.RemoveStandard(uiIndex));
    MTEST_STEP(oEdid.IsChecksumValid());
    MTEST_STEP(ValidateStandard(oEdid, uiCount, poRows));
    MTEST_STEP(CompareRawData(oEdid, uiSize, pui8Expected));
    return 1;
}

int HasDetailedState(const CEdid& oEdid, CVidParamTable aoRows, const SEdidImage& aui8Expected)
{
    MTEST_PASS_ON(oEdid.IsChecksumValid());
    MTEST_PASS_ON(ValidateDetailed(oEdid, static_cast<unsigned int>(aoRows.size()), aoRows.data()));
    return CompareRawData(oEdid, static_cast<unsigned int>(aui8Expected.size()), aui8Expected.data());
}

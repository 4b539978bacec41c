#include "EditDisplayId.h"

#include <stdlib.h>

#include "MakerDisplayId.h"
#include "Standards/DisplayIdBlocks.h"
#include "Standards/ExtensionBlocks.h"
#include "ZorEdidFacts.h"
#include "ZorEdidModes.h"

using namespace ZorStandards;
using ZorWrite::SDisplayIdFacts;

namespace
{
// What is digital and says no more is taken for DVI, as EDID 1.3 means it.
SDisplayIdFacts::EInterface GetInterface(const CZorEdidFacts& oFacts)
{
    switch (oFacts.GetLink().m_oKind.m_oValue)
    {
    case CZorEdidFacts::eLink_Analog:
        return SDisplayIdFacts::eInterface_Analog;
    case CZorEdidFacts::eLink_Hdmi:
        return SDisplayIdFacts::eInterface_Hdmi;
    case CZorEdidFacts::eLink_DisplayPort:
        return SDisplayIdFacts::eInterface_DisplayPort;
    default:
        return SDisplayIdFacts::eInterface_Dvi;
    }
}

SDisplayIdFacts ReadFacts(const CFieldEdits& oFields, const SZorMode& oNative)
{
    constexpr unsigned int uiUsualDepth = 8;
    constexpr long long llMmPerCm = 10;
    const CZorEdidMap& oMap = oFields.GetMap();
    CZorEdidFacts oFacts;
    oFacts.Read(oMap.GetSize(), oMap.GetData());
    const unsigned int uiDepth = oFacts.GetColour().m_oDepth.m_oValue;
    // The timing's millimetres where they are the base block's centimetres.
    const auto fnMm = [&](EZorEdidField eTiming, EZorEdidField eBase) {
        const long long llFine = oFields.GetNumber(eTiming);
        const long long llCoarse = llMmPerCm * oFields.GetNumber(eBase);
        const bool bFine = llCoarse == 0 || llabs(llFine - llCoarse) < llMmPerCm;
        return static_cast<unsigned int>(bFine ? llFine : llCoarse);
    };
    return { GetInterface(oFacts),
             { fnMm(eZorEdidField_BaseDetailedImageWidth, eZorEdidField_BaseDisplayScreenWidth),
               fnMm(eZorEdidField_BaseDetailedImageHeight, eZorEdidField_BaseDisplayScreenHeight) },
             oNative.m_uiWidth,
             oNative.m_uiHeight,
             uiDepth != 0 ? uiDepth : uiUsualDepth,
             oFacts.GetAudio().m_oBasic.m_oValue,
             oFields.GetNumber(eZorEdidField_CtaYcbcr444) != 0 && oFields.GetNumber(eZorEdidField_CtaYcbcr422) != 0 };
}
} // namespace

std::string BeginDisplayId(CFieldEdits& oFields, bool bPreferred)
{
    if (oFields.Has(eZorEdidField_Displayid))
    {
        return "";
    }
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    const SZorImageMode* poPreferred = oModes.GetPreferred();
    const SZorMode oNative = poPreferred != nullptr ? poPreferred->m_oMode : SZorMode{};
    unsigned char aui8Block[gsc_uiBlockSize];
    ZorWrite::MakeDisplayIdBlock(ReadFacts(oFields, oNative), oFields.GetMap().GetData(), aui8Block);
    std::string sProblem = oFields.AddBlock(gsc_uiDisplayIdTag, { std::begin(aui8Block), std::end(aui8Block) });
    sProblem = sProblem.empty() ? oFields.AddBlock(gsc_uiDisplayIdTag, {}) : sProblem;
    ZorWrite::CType1Bytes aui8Timing;
    if (!sProblem.empty() || bPreferred || !ZorWrite::WriteType1(oNative, true, aui8Timing))
    {
        return sProblem;
    }
    return oFields.AddItem(eZorEdidField_DisplayidType1, { std::begin(aui8Timing), std::end(aui8Timing) },
                           FindPlaceInDisplayId(oFields));
}

CFieldEdits::SWhere FindPlaceInDisplayId(const CFieldEdits& oFields)
{
    const CZorEdidMap& oMap = oFields.GetMap();
    const unsigned int uiBlocks = oMap.CountFields(eZorEdidField_Displayid);
    CFieldEdits::SWhere oWhere;
    if (uiBlocks < 2)
    {
        return oWhere;
    }
    const unsigned int uiFirst = oMap.GetField(oMap.FindField(eZorEdidField_Displayid)).m_uiOffset;
    const unsigned int uiLast = oMap.GetField(oMap.FindField(eZorEdidField_Displayid, uiBlocks - 1)).m_uiOffset;
    if (oMap.GetData()[uiFirst + DisplayId::gsc_uiDataBlocksOffset] == DisplayId::gsc_uiProduct1Tag)
    {
        oWhere.m_uiBlock = uiLast / gsc_uiBlockSize;
    }
    return oWhere;
}

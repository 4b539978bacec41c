#include "EditDisplayId.h"

#include <stdlib.h>

#include <algorithm>
#include <bit>

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
    const unsigned int uiSaid = oFacts.GetColour().m_oDepth.m_oValue;
    const unsigned int uiDepth = uiSaid != 0 ? uiSaid : uiUsualDepth;
    // The mask has a bit for each even depth from 6 on.
    const unsigned int uiMask = oFacts.GetColour().m_aoDepths[CZorEdidFacts::eFormat_Rgb].m_oValue;
    const auto uiLinkDepth = static_cast<unsigned int>(4 + 2 * std::bit_width(uiMask));
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
             uiDepth,
             uiMask != 0 ? uiLinkDepth : uiDepth,
             oFacts.GetAudio().m_oBasic.m_oValue,
             oFields.GetNumber(eZorEdidField_CtaYcbcr444) != 0 && oFields.GetNumber(eZorEdidField_CtaYcbcr422) != 0 };
}

// What announces a mode there, but for data blocks of CTA-861.
constexpr EZorEdidField gsc_aeTimings[] = {
    eZorEdidField_DisplayidType1Timing,  eZorEdidField_DisplayidType2Timing,   eZorEdidField_DisplayidType3Timing,
    eZorEdidField_DisplayidType5Timing,  eZorEdidField_DisplayidType6Timing,   eZorEdidField_DisplayidType7Timing,
    eZorEdidField_DisplayidType9Timing,  eZorEdidField_DisplayidType10Timing,  eZorEdidField_DisplayidTimingDmtId,
    eZorEdidField_DisplayidTimingVic,    eZorEdidField_DisplayidTimingHdmiVic, eZorEdidField_DisplayidDmtModesMode,
    eZorEdidField_DisplayidVicModesMode,
};

unsigned int CountModes(const CFieldEdits& oFields)
{
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    return oModes.GetCount();
}

// Whether a timing means the wanted rate by its 1000/1001 only.
bool IsFractionWanted(const SZorImageMode& oPlace, const SWanted& oWanted)
{
    SZorMode oWhole = oPlace.m_oMode;
    oWhole.m_bFractionToo = false;
    return oPlace.m_eField == eZorEdidField_DisplayidType10Timing && !IsPlaceOf(oWhole, oWanted);
}

std::string ClearBit(CFieldEdits& oFields, unsigned int uiOffset, unsigned int uiBit)
{
    return oFields.Apply({ eZorEdidField_None, uiOffset, uiBit, "raw:0" });
}

// The bit of the 1000/1001 in the first byte of a Type X timing is where the map has it.
std::string ClearFraction(CFieldEdits& oFields, unsigned int uiOffset)
{
    const CZorEdidMap& oMap = oFields.GetMap();
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_eId == eZorEdidField_DisplayidTimingFractionalRate && oField.m_uiOffset == uiOffset)
        {
            const auto iBit = std::countr_zero(oMap.GetPiece(oField.m_uiFirstPiece).m_ui8Mask);
            return ClearBit(oFields, uiOffset, static_cast<unsigned int>(iBit));
        }
    }
    return "its 1000/1001 has no bit of its own";
}

std::string RemoveRecord(CFieldEdits& oFields, const SZorImageMode& oPlace)
{
    const unsigned int uiField = FindPlaceField(oFields.GetMap(), oPlace);
    if (uiField == CZorEdidMap::msc_uiNone)
    {
        return "it is not where it was found";
    }
    const std::string sName = NameField(oFields.GetMap(), uiField);
    const unsigned int uiModes = CountModes(oFields);
    std::string sProblem = oFields.Remove(uiField);
    if (sProblem.empty() && CountModes(oFields) + 1 != uiModes)
    {
        sProblem =
            "the timings of its data block have different lengths, and only --remove-part removes them, together";
    }
    if (sProblem.empty() && oPlace.m_eReason == SZorImageMode::eReason_Flag)
    {
        oFields.Note(sName + " was marked as preferred");
    }
    return sProblem.empty() ? "" : sName + ": " + sProblem;
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
    if (poPreferred == nullptr && !bPreferred)
    {
        oFields.Note("DisplayID asks for a preferred timing, and the image has none; --add-mode with preferred adds "
                     "one");
    }
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

bool IsInDisplayId(const CBytes& aui8Image, const SZorImageMode& oPlace)
{
    return aui8Image[oPlace.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize] == gsc_uiDisplayIdTag &&
           std::ranges::find(gsc_aeTimings, oPlace.m_eField) != std::end(gsc_aeTimings);
}

// From the last one to the first, as what comes before stays where it was found.
std::string RemoveFromDisplayId(CFieldEdits& oFields, const SWanted& oWanted)
{
    const CBytes aui8Image = oFields.GetBytes();
    CPlaces aoPlaces = FindPlaces(aui8Image, oWanted);
    std::erase_if(aoPlaces, [&](const SZorImageMode& oPlace) { return !IsInDisplayId(aui8Image, oPlace); });
    std::string sProblem;
    for (auto itPlace = aoPlaces.rbegin(); itPlace != aoPlaces.rend() && sProblem.empty(); ++itPlace)
    {
        const bool bBit = itPlace->m_uiBit != SZorImageMode::msc_uiNone;
        sProblem = bBit                                  ? ClearBit(oFields, itPlace->m_uiOffset, itPlace->m_uiBit)
                   : IsFractionWanted(*itPlace, oWanted) ? ClearFraction(oFields, itPlace->m_uiOffset)
                                                         : RemoveRecord(oFields, *itPlace);
    }
    return sProblem;
}

#include "EditDisplayId.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>
#include <map>
#include <set>
#include <vector>

#include "EditPositions.h"
#include "MakerDisplayId.h"
#include "Standards/DisplayIdBlocks.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/VideoCodes.h"
#include "TextFormat.h"
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

constexpr unsigned int gsc_uiUsualDepth = 8;

// By what the image says best. Only without any of it the preferred timing counts, which is not the shape of a tube.
unsigned int ReadRatio(const CZorEdidFacts::SSize& oSize, const SZorMode& oPreferred)
{
    constexpr unsigned int uiSquare = 100;
    if (oSize.m_oAspect.IsSaid())
    {
        return ZorWrite::GetRatio(oSize.m_oAspect.m_oValue, uiSquare);
    }
    if (oSize.m_oNative.IsSaid())
    {
        return ZorWrite::GetRatio(oSize.m_oNative.m_oValue.m_uiWidth, oSize.m_oNative.m_oValue.m_uiHeight);
    }
    return oSize.m_oSize.IsSaid()
               ? ZorWrite::GetRatio(oSize.m_oSize.m_oValue.m_uiWidth, oSize.m_oSize.m_oValue.m_uiHeight)
               : ZorWrite::GetRatio(oPreferred.m_uiWidth, oPreferred.m_uiHeight);
}

SDisplayIdFacts MakeFacts(const CZorEdidFacts& oFacts, const SZorMode& oPreferred)
{
    constexpr unsigned int uiTenths = 10;
    const CZorEdidFacts::SMillimetres& oSize = oFacts.GetSize().m_oSize.m_oValue;
    const unsigned int uiDepth = oFacts.GetColour().m_oDepth.Or(gsc_uiUsualDepth);
    // Where only the format is known, in the depth of the display. An analog input has RGB as well.
    const auto fnDepths = [&](CZorEdidFacts::EFormat eFormat) {
        const unsigned int uiDepths = oFacts.GetColour().m_aoDepths[eFormat].m_oValue;
        const bool bKnown = (oFacts.GetColour().m_oFormats.m_oValue & 1U << eFormat) != 0;
        return uiDepths != 0 || (!bKnown && eFormat != CZorEdidFacts::eFormat_Rgb) ? uiDepths
                                                                                   : ZorWrite::GetDepthsTo(uiDepth);
    };
    return { GetInterface(oFacts),
             { (oSize.m_uiWidth + uiTenths / 2) / uiTenths, (oSize.m_uiHeight + uiTenths / 2) / uiTenths },
             oFacts.GetSize().m_oNative.m_oValue.m_uiWidth,
             oFacts.GetSize().m_oNative.m_oValue.m_uiHeight,
             ReadRatio(oFacts.GetSize(), oPreferred),
             uiDepth,
             oFacts.GetAudio().m_oAudio.m_oValue,
             fnDepths(CZorEdidFacts::eFormat_Rgb),
             fnDepths(CZorEdidFacts::eFormat_YCbCr444),
             fnDepths(CZorEdidFacts::eFormat_YCbCr422) };
}

// A section has values of these and none for 'not known'.
void NoteUnsaid(CFieldEdits& oFields, const CZorEdidFacts& oFacts)
{
    std::vector<std::string> asUnsaid;
    const auto fnName = [&](bool bSaid, const std::string& sValue) {
        if (!bSaid)
        {
            asUnsaid.push_back(sValue);
        }
    };
    fnName(oFacts.GetSize().m_oKind.IsSaid(), "a standalone display device");
    fnName(oFacts.GetLink().m_oKind.m_oValue != CZorEdidFacts::eLink_Digital, "DVI");
    fnName(oFacts.GetColour().m_oDepth.IsSaid(), FormatText("%u bits per colour", gsc_uiUsualDepth));
    fnName(oFacts.GetAudio().m_oAudio.IsSaid(), "no audio");
    if (!asUnsaid.empty())
    {
        oFields.Note("DisplayID says what the image does not: " + JoinTexts(asUnsaid) + "; --set changes it");
    }
    const unsigned int uiYear = oFacts.GetIdentity().m_oYear.Or(ZorWrite::gsc_uiFirstDisplayIdYear);
    if (uiYear < ZorWrite::gsc_uiFirstDisplayIdYear)
    {
        oFields.Note(FormatText("DisplayID says %u for the year, its first one", ZorWrite::gsc_uiFirstDisplayIdYear));
    }
}

// What announces a mode there or in a data block of CTA-861 for DisplayID's timings.
constexpr EZorEdidField gsc_aeTimings[] = {
    eZorEdidField_DisplayidType1Timing,  eZorEdidField_DisplayidType2Timing,   eZorEdidField_DisplayidType3Timing,
    eZorEdidField_DisplayidType5Timing,  eZorEdidField_DisplayidType6Timing,   eZorEdidField_DisplayidType7Timing,
    eZorEdidField_DisplayidType9Timing,  eZorEdidField_DisplayidType10Timing,  eZorEdidField_DisplayidTimingDmtId,
    eZorEdidField_DisplayidTimingVic,    eZorEdidField_DisplayidTimingHdmiVic, eZorEdidField_DisplayidDmtModesMode,
    eZorEdidField_DisplayidVicModesMode,
};

bool IsInBlock(const CBytes& aui8Image, const SZorImageMode& oPlace, unsigned int uiTag)
{
    return aui8Image[oPlace.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize] == uiTag;
}

// Whether a place of a DisplayID block lies in data blocks of CTA-861 there, which are one part.
bool IsInInnerCta(const CBytes& aui8Image, const SZorImageMode& oPlace)
{
    const unsigned char* pui8Block = aui8Image.data() + oPlace.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize;
    const unsigned int uiOffset = oPlace.m_uiOffset % gsc_uiBlockSize;
    const unsigned int uiEnd = std::min(DisplayId::GetSectionSize(pui8Block), gsc_uiChecksumOffset);
    DisplayId::CDataBlockWalk oWalk(pui8Block, DisplayId::gsc_uiDataBlocksOffset, uiEnd, uiEnd);
    while (oWalk.Next())
    {
        if (uiOffset >= oWalk.GetOffset() && uiOffset < oWalk.GetOffset() + oWalk.GetSize())
        {
            return oWalk.GetTag() == DisplayId::gsc_uiCtaTag;
        }
    }
    return false;
}

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

// The bits of the 1000/1001 in the first bytes of Type X timings are where the map has them. False where one has none.
bool AddFractionBits(const CZorEdidMap& oMap, const std::set<unsigned int>& oOffsets, CFieldEdits::CBits& aoBits)
{
    const size_t uiBefore = aoBits.size();
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_eId == eZorEdidField_DisplayidTimingFractionalRate && oOffsets.contains(oField.m_uiOffset))
        {
            const auto iBit = std::countr_zero(oMap.GetPiece(oField.m_uiFirstPiece).m_ui8Mask);
            aoBits.push_back({ oField.m_uiOffset, static_cast<unsigned int>(iBit) });
        }
    }
    return aoBits.size() == uiBefore + oOffsets.size();
}

// Records and codes, in one step. Each is one mode, unless records of different lengths make the data block one part.
std::string RemoveRecords(CFieldEdits& oFields, const CPlaces& aoPlaces)
{
    std::vector<unsigned int> auiFields;
    std::vector<std::string> asPreferred;
    for (const SZorImageMode& oPlace : aoPlaces)
    {
        if (std::string sReason = RefuseWrongSum(oFields, oPlace.m_uiOffset); !sReason.empty())
        {
            return NamePlaces(oFields.GetBytes(), { oPlace }) + ": " + sReason;
        }
        auiFields.push_back(FindPlaceField(oFields.GetMap(), oPlace));
        if (auiFields.back() == CZorEdidMap::msc_uiNone)
        {
            return "it is not where it was found";
        }
        if (oPlace.m_eReason == SZorImageMode::eReason_Flag)
        {
            asPreferred.push_back(NameField(oFields.GetMap(), auiFields.back()) + " was marked as preferred");
        }
    }
    const std::string sName = auiFields.empty() ? "" : NameField(oFields.GetMap(), auiFields.front());
    const std::string sMore = auiFields.size() > 1 ? FormatText(" and %zu more", auiFields.size() - 1) : "";
    const size_t uiModes = CountModes(oFields);
    std::string sProblem =
        DoInPlace(oFields, [&auiFields](CFieldEdits& oEdited) { return oEdited.RemoveItems(auiFields); });
    if (sProblem.empty() && CountModes(oFields) + auiFields.size() != uiModes)
    {
        sProblem =
            "the timings of its data block have different lengths, and only --remove-part removes them, together";
    }
    for (const std::string& sNote : asPreferred)
    {
        oFields.Note(sNote);
    }
    return sProblem.empty() ? "" : sName + sMore + ": " + sProblem;
}

// The timing of DisplayID with this number in the library's list of detailed timings; false without one.
bool FindNumberedTiming(const CBytes& aui8Image, unsigned int uiNumber, SZorImageMode& oPlace)
{
    const auto fnIsMeant = [&](const SZorImageMode& oOther) {
        return oOther.m_eList == SZorImageMode::eList_Detailed && oOther.m_uiNumber == uiNumber &&
               IsDisplayIdTiming(aui8Image, oOther);
    };
    const CPlaces aoPlaces = FindAllPlaces(aui8Image);
    const auto itPlace = std::ranges::find_if(aoPlaces, fnIsMeant);
    oPlace = itPlace != aoPlaces.end() ? *itPlace : SZorImageMode{};
    return itPlace != aoPlaces.end();
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
    const SZorMode oPreferred = poPreferred != nullptr ? poPreferred->m_oMode : SZorMode{};
    CZorEdidFacts oFacts;
    oFacts.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    NoteUnsaid(oFields, oFacts);
    unsigned char aui8Block[gsc_uiBlockSize];
    ZorWrite::MakeDisplayIdBlock(MakeFacts(oFacts, oPreferred), oFields.GetMap().GetData(), aui8Block);
    std::string sProblem = oFields.AddBlock(gsc_uiDisplayIdTag, { std::begin(aui8Block), std::end(aui8Block) });
    sProblem = sProblem.empty() ? oFields.AddBlock(gsc_uiDisplayIdTag, {}) : sProblem;
    ZorWrite::CType1Bytes aui8Timing;
    if (!sProblem.empty() || bPreferred || !ZorWrite::WriteType1(oPreferred, true, aui8Timing))
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

bool IsDisplayIdTiming(const CBytes& aui8Image, const SZorImageMode& oPlace)
{
    const bool bDisplayId = IsInBlock(aui8Image, oPlace, gsc_uiDisplayIdTag) && !IsInInnerCta(aui8Image, oPlace);
    return (bDisplayId || IsInBlock(aui8Image, oPlace, gsc_uiCtaTag)) &&
           std::ranges::find(gsc_aeTimings, oPlace.m_eField) != std::end(gsc_aeTimings);
}

// Bits first, as they move nothing.
std::string RemoveDisplayIdTimings(CFieldEdits& oFields, const SWanted& oWanted)
{
    const CBytes aui8Image = oFields.GetBytes();
    CPlaces aoRecords;
    CFieldEdits::CBits aoBits;
    std::set<unsigned int> oFractions; // offsets
    for (const SZorImageMode& oPlace : FindPlaces(aui8Image, oWanted))
    {
        if (!IsDisplayIdTiming(aui8Image, oPlace))
        {
            continue;
        }
        if (oPlace.m_uiBit != SZorImageMode::msc_uiNone)
        {
            aoBits.push_back({ oPlace.m_uiOffset, oPlace.m_uiBit });
        }
        else if (IsFractionWanted(oPlace, oWanted))
        {
            oFractions.insert(oPlace.m_uiOffset);
        }
        else
        {
            aoRecords.push_back(oPlace);
        }
    }
    if (!AddFractionBits(oFields.GetMap(), oFractions, aoBits))
    {
        return "its 1000/1001 has no bit of its own";
    }
    oFields.ClearBits(aoBits);
    return RemoveRecords(oFields, aoRecords);
}

std::vector<SEdit> ListNumberedTimings(const CBytes& aui8Image, const std::vector<SEdit>& aoEdits)
{
    std::map<unsigned int, SEdit, std::greater<>> aoByOffset; // the last one goes first: the others stay where they are
    for (const SEdit& oEdit : aoEdits)
    {
        SZorImageMode oPlace = {};
        if (oEdit.m_eKind == eEdit_RemoveDetailed && FindNumberedTiming(aui8Image, oEdit.m_uiNumber, oPlace))
        {
            SEdit& oLater = aoByOffset.try_emplace(oPlace.m_uiOffset, oEdit).first->second;
            oLater.m_fnNamed = [oPlace](CFieldEdits& oFields) { return RemoveRecords(oFields, { oPlace }); };
        }
    }
    std::vector<SEdit> aoLater;
    std::ranges::transform(aoByOffset, std::back_inserter(aoLater), [](const auto& oPair) { return oPair.second; });
    return aoLater;
}

// Modes that an image is to announce: where each goes, as a code, a detailed timing or a timing of DisplayID.

#include <math.h>

#include <algorithm>
#include <charconv>
#include <vector>

#include "EditDisplayId.h"
#include "EditLimits.h"
#include "EditNamed.h"
#include "EditPlaces.h"
#include "ExactTimings.h"
#include "FieldEdits.h"
#include "ModePlaces.h"
#include "NearWord.h"
#include "TableTimings.h"
#include "TextFormat.h"
#include "ZorEdidTimings.h"

using namespace ZorStandards;

namespace
{
using CTexts = std::vector<std::string>;

struct SAddedMode
{
    SZorMode m_oMode = {};
    SZorMode m_oWished = {}; // without a type: size and rate
    bool m_bPreferred = false;
    bool m_bDisplayId = false;
};

// ---- As a code ----

std::string AddVic(CFieldEdits& oFields, unsigned int uiVic)
{
    unsigned int uiPlace = 0;
    if (FindCode(oFields.GetMap(), uiVic, uiPlace))
    {
        oFields.Note(FormatText("VIC %u is there already", uiVic));
        return "";
    }
    if (Is420Only(oFields.GetMap(), uiVic))
    {
        oFields.Note(FormatText("VIC %u is there already, and stays in YCbCr 4:2:0 only", uiVic));
        return "";
    }
    std::string sProblem = oFields.AddItem(eZorEdidField_CtaVideo, { static_cast<unsigned char>(uiVic) });
    if (sProblem.empty())
    {
        FollowWithLimitsOfVic(oFields, uiVic);
    }
    return sProblem;
}

// ---- As a timing ----

// Millimetres of the picture, from the first detailed timing, else from the base block.
unsigned int GetMm(const CFieldEdits& oFields, EZorEdidField eTiming, EZorEdidField eBase)
{
    constexpr unsigned int uiMmPerCm = 10;
    const auto uiMm = static_cast<unsigned int>(oFields.GetNumber(eTiming));
    return uiMm != 0 ? uiMm : uiMmPerCm * static_cast<unsigned int>(oFields.GetNumber(eBase));
}

// Type VII where the image has a structure of version 2, else Type I.
std::string AddDisplayIdTiming(CFieldEdits& oFields, const SAddedMode& oAdded)
{
    const bool bVersion2 = oFields.GetNumber(eZorEdidField_DisplayidSectionVersion) == 2;
    CBytes aui8Bytes(CZorEdidTimings::msc_uiDisplayIdSize);
    if (CZorEdidTimings::MakeDisplayId(bVersion2 ? 7 : 1, oAdded.m_oMode, oAdded.m_bPreferred, aui8Bytes.data()) == 0)
    {
        return "neither a detailed timing nor one of DisplayID holds its numbers";
    }
    std::string sProblem = BeginDisplayId(oFields, oAdded.m_bPreferred);
    return !sProblem.empty() ? sProblem
                             : oFields.AddItem(bVersion2 ? eZorEdidField_DisplayidType7 : eZorEdidField_DisplayidType1,
                                               aui8Bytes, FindPlaceInDisplayId(oFields));
}

// An image with DisplayID and without CTA-861 stays so where its base block is full.
std::string AddDetailed(CFieldEdits& oFields, const SAddedMode& oAdded, const CBytes& aui8Bytes,
                        CFieldEdits::SWhere oWhere)
{
    if (!oAdded.m_bPreferred && oFields.Has(eZorEdidField_Displayid) && !oFields.Has(eZorEdidField_Cta))
    {
        oWhere.m_bNewBlock = false;
        if (oFields.AddDescriptor(aui8Bytes, oWhere).empty() || AddDisplayIdTiming(oFields, oAdded).empty())
        {
            return "";
        }
        oWhere.m_bNewBlock = true;
    }
    return oFields.AddDescriptor(aui8Bytes, oWhere);
}

std::string AddTiming(CFieldEdits& oFields, const SAddedMode& oAdded)
{
    CFieldEdits::SWhere oWhere;
    if (oAdded.m_bPreferred)
    {
        oWhere = { 0, 0, false, 0 }; // the first one is the preferred one
    }
    CBytes aui8Bytes(CZorEdidTimings::msc_uiDetailedSize);
    const bool bDetailed =
        !oAdded.m_bDisplayId &&
        CZorEdidTimings::MakeDetailed(
            oAdded.m_oMode, GetMm(oFields, eZorEdidField_BaseDetailedImageWidth, eZorEdidField_BaseDisplayScreenWidth),
            GetMm(oFields, eZorEdidField_BaseDetailedImageHeight, eZorEdidField_BaseDisplayScreenHeight),
            aui8Bytes.data()) != 0;
    std::string sProblem =
        bDetailed ? AddDetailed(oFields, oAdded, aui8Bytes, oWhere) : AddDisplayIdTiming(oFields, oAdded);
    if (sProblem.empty())
    {
        FollowWithLimits(oFields, { oAdded.m_oMode });
    }
    return sProblem;
}

// Clocks of records have steps of up to 10 kHz.
bool IsThere(const SZorMode& oMode, const SZorImageMode& oPresent)
{
    constexpr unsigned int uiHalfStep = 5000;
    SZorMode oPartner = {};
    return ZorWrite::IsSameTiming(oPresent.m_oMode, oMode, uiHalfStep) ||
           (CZorEdidModes::GetPartner(oPresent.m_oMode, oPartner) &&
            ZorWrite::IsSameTiming(oPartner, oMode, uiHalfStep));
}

// Whether the wish is the rate of the mode as it is printed: 74.55 Hz. A whole one may mean another timing.
bool IsRateOf(const SZorMode& oWished, const SZorMode& oPresent)
{
    const SZorMode::SRate& oRate = oWished.m_oNominalRate;
    return ZorWrite::IsFraction(oRate) && ZorWrite::IsSamePicture(oPresent, oWished) &&
           ZorWrite::IsSameRate(oRate, oPresent.m_oRate);
}

// A record or a code that announces the timing, preferred or in DisplayID where that was asked. Null for none.
const SZorImageMode* FindPresent(const CZorEdidModes& oModes, const SAddedMode& oAdded)
{
    constexpr EZorEdidField aeDisplayId[] = { eZorEdidField_DisplayidType1Timing, eZorEdidField_DisplayidType7Timing };
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oPresent = oModes.Get(i);
        const bool bDisplayId = std::ranges::find(aeDisplayId, oPresent.m_eField) != std::end(aeDisplayId);
        const bool bPreferred = oPresent.m_eReason == SZorImageMode::eReason_FirstDetailed ||
                                oPresent.m_eReason == SZorImageMode::eReason_Flag;
        if ((bDisplayId || !oAdded.m_bDisplayId) && (bPreferred || !oAdded.m_bPreferred) &&
            oPresent.m_eNumbers != SZorImageMode::eNumbers_Assumed && oPresent.m_oMode.m_bTiming &&
            oPresent.m_oMode.m_eY420 != SZorMode::eY420_Only &&
            (IsThere(oAdded.m_oMode, oPresent) || IsRateOf(oAdded.m_oWished, oPresent.m_oMode)))
        {
            return &oPresent;
        }
    }
    return nullptr;
}

void NotePreferredBeside(CFieldEdits& oFields, const CZorEdidModes& oModes, const SZorMode& oPreferred)
{
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oOther = oModes.Get(i);
        if (oOther.m_eReason == SZorImageMode::eReason_Flag && !IsThere(oPreferred, oOther))
        {
            oFields.Note("DisplayID still prefers " + NamePlaces(oFields.GetBytes(), { oOther }));
        }
    }
}

// Before EDID 1.4 a flag says that the first detailed timing is preferred.
std::string FollowPreferred(CFieldEdits& oFields, const SAddedMode& oAdded)
{
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    NotePreferredBeside(oFields, oModes, oAdded.m_oMode);
    const bool bUnsaid = oFields.Has(eZorEdidField_BaseDisplayPreferredTiming) &&
                         oFields.GetNumber(eZorEdidField_BaseDisplayPreferredTiming) == 0;
    return bUnsaid ? oFields.Set(eZorEdidField_BaseDisplayPreferredTiming, "yes") : "";
}

std::string AddMode(CFieldEdits& oFields, const SAddedMode& oAdded)
{
    constexpr unsigned int uiBlockSize = 128;
    if (oFields.GetMap().GetSize() < uiBlockSize)
    {
        return "the base block is not whole";
    }
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    if (const SZorImageMode* poPresent = FindPresent(oModes, oAdded))
    {
        oFields.Note("is there already: " + NamePlaces(oFields.GetBytes(), { *poPresent }));
        return "";
    }
    const SVics oVics = FindExactVics(oAdded.m_oMode);
    const bool bCode = !oAdded.m_bPreferred && !oAdded.m_bDisplayId && !oVics.m_auiCodes.empty() &&
                       oFields.GetNumber(eZorEdidField_CtaRevision) == 3;
    if (!bCode)
    {
        const std::string sProblem = AddTiming(oFields, oAdded);
        return sProblem.empty() && oAdded.m_bPreferred ? FollowPreferred(oFields, oAdded) : sProblem;
    }
    return AddVic(oFields, oVics.m_auiCodes.front());
}

// ---- Values ----

// By a type of ListTimingTypes, or by what is usual for new modes. Types that new images know, too, have all pixels
// here as there: the lists of timings round widths to cells.
bool FindTiming(const SZorMode& oWanted, const std::string& sType, SZorMode& oTiming)
{
    const auto* poSource =
        std::ranges::find(gsc_aoTimingSources, sType == "cea" ? "cta" : sType, &STimingSourceName::m_pszName);
    if (sType.empty() || poSource != std::end(gsc_aoTimingSources))
    {
        const EZorTimingSource eSource = sType.empty() ? eZorTimingSource_Any : poSource->m_eSource;
        return FindZorTiming(oWanted, eSource, true, oTiming) != 0;
    }
    const CExactTimings aoTimings = FindTimings(oWanted, sType);
    const auto itTiming =
        std::ranges::find_if(aoTimings, [](const SExactTiming& oFound) { return oFound.m_oMode.m_bTiming; });
    oTiming = itTiming != aoTimings.end() ? itTiming->m_oMode : oTiming;
    return itTiming != aoTimings.end();
}

// "2560x1440@144[,TYPE][,preferred][,displayid]"
std::string ParseAddedMode(const CTexts& asFields, SAddedMode& oAdded)
{
    const CTexts asTypes = ListTimingTypes();
    std::string sAsked;
    SZorMode oWanted = {};
    if (!ParseExactMode(asFields[0], oWanted))
    {
        return "'" + asFields[0] + "' is not a mode such as 2560x1440@144 or 1920x1080@59.94";
    }
    for (size_t i = 1; i < asFields.size(); ++i)
    {
        if (asFields[i] == "preferred")
        {
            oAdded.m_bPreferred = true;
        }
        else if (asFields[i] == "displayid")
        {
            oAdded.m_bDisplayId = true;
        }
        else if (const std::string sType = asFields[i] == "cta" ? "cea" : asFields[i];
                 std::ranges::find(asTypes, sType) != asTypes.end())
        {
            sAsked = sType;
        }
        else
        {
            CTexts asWords = asTypes;
            asWords.insert(asWords.end(), { "preferred", "displayid" });
            return "unknown word '" + asFields[i] + "'" +
                   NameKnownWords(asFields[i], asWords, "preferred, displayid, or one of " + JoinTexts(asTypes));
        }
    }
    oAdded.m_oWished = sAsked.empty() ? oWanted : oAdded.m_oWished;
    if (!FindTiming(oWanted, sAsked, oAdded.m_oMode))
    {
        return sAsked.empty() ? "no table and no formula has a timing for '" + asFields[0] + "'"
                              : sAsked + " has no timing for '" + asFields[0] + "'";
    }
    return "";
}

// Active, sync start, sync end, total.
bool ParseAxis(const CTexts& asWords, size_t uiFirst, SZorMode::SAxis& oAxis)
{
    unsigned int auiNumbers[4] = {};
    for (size_t i = 0; i < std::size(auiNumbers); ++i)
    {
        if (uiFirst + i >= asWords.size() || !ParseNumber(asWords[uiFirst + i], auiNumbers[i]) ||
            (i != 0 && auiNumbers[i] <= auiNumbers[i - 1]))
        {
            return false;
        }
    }
    oAxis = { auiNumbers[0], auiNumbers[1] - auiNumbers[0], auiNumbers[2] - auiNumbers[1], auiNumbers[3], 0, false };
    return true;
}

// Flags of a line; false for an unknown one.
bool TakeFlag(std::string sFlag, SZorMode& oMode)
{
    std::ranges::transform(sFlag, sFlag.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    oMode.m_oHorizontal.m_bPositive = oMode.m_oHorizontal.m_bPositive || sFlag == "+hsync";
    oMode.m_oVertical.m_bPositive = oMode.m_oVertical.m_bPositive || sFlag == "+vsync";
    oMode.m_bInterlaced = oMode.m_bInterlaced || sFlag == "interlace";
    return sFlag == "+hsync" || sFlag == "-hsync" || sFlag == "+vsync" || sFlag == "-vsync" || sFlag == "interlace";
}

// Modeline "NAME" MHZ and eight numbers; the word and the name may be left out.
bool ParseModeline(const std::string& sText, SZorMode& oMode)
{
    CTexts asWords;
    std::string sLine = sText;
    if (const size_t uiQuote = sLine.find('"'); uiQuote != std::string::npos) // a name may have blanks
    {
        const size_t uiEnd = sLine.find('"', uiQuote + 1);
        sLine = uiEnd != std::string::npos ? sLine.substr(uiEnd + 1) : "";
    }
    for (const std::string& sWord : SplitText(sLine, " \t"))
    {
        if (!sWord.empty())
        {
            asWords.push_back(sWord);
        }
    }
    double dMegaHz = 0;
    size_t uiClock = 0;
    for (; uiClock < std::min<size_t>(asWords.size(), 3); ++uiClock)
    {
        const char* pszEnd = asWords[uiClock].data() + asWords[uiClock].size();
        const auto oResult = std::from_chars(asWords[uiClock].data(), pszEnd, dMegaHz, std::chars_format::fixed);
        if (oResult.ec == std::errc() && oResult.ptr == pszEnd)
        {
            break;
        }
    }
    constexpr double dMostMegaHz = 1e6;
    constexpr double dHzPerMegaHz = 1e6;
    if (!(dMegaHz > 0 && dMegaHz < dMostMegaHz) || !ParseAxis(asWords, uiClock + 1, oMode.m_oHorizontal) ||
        !ParseAxis(asWords, uiClock + 5, oMode.m_oVertical))
    {
        return false;
    }
    for (size_t i = uiClock + 9; i < asWords.size(); ++i)
    {
        if (!TakeFlag(asWords[i], oMode))
        {
            return false;
        }
    }
    const unsigned int uiFields = oMode.m_bInterlaced ? 2 : 1;
    oMode.m_oVertical.m_uiFront /= uiFields; // those of a line are of the frame
    oMode.m_oVertical.m_uiSync /= uiFields;
    oMode.m_bTiming = true;
    oMode.m_ullClock = static_cast<unsigned long long>(llround(dMegaHz * dHzPerMegaHz));
    oMode.m_uiWidth = oMode.m_oHorizontal.m_uiActive;
    oMode.m_uiHeight = oMode.m_oVertical.m_uiActive;
    oMode.m_uiRepetition = 1;
    oMode.m_oRate = { oMode.m_ullClock * uiFields, 1ULL * oMode.m_oHorizontal.m_uiTotal * oMode.m_oVertical.m_uiTotal };
    oMode.m_oNominalRate = oMode.m_oRate;
    return true;
}
} // namespace

void FollowWithLimits(CFieldEdits& oFields, const std::vector<SZorMode>& aoModes)
{
    CBytes aui8Base = oFields.GetBytes();
    const unsigned int uiOffset = BaseBlock::FindRangeLimits(aui8Base.data());
    if (uiOffset == 0)
    {
        return;
    }
    const unsigned int uiRevision = BaseBlock::ReadRevision(aui8Base.data());
    const SLimits oOld = Descriptors::ReadRangeLimits(aui8Base.data() + uiOffset, uiRevision);
    SLimits oWide = oOld;
    for (const SZorMode& oMode : aoModes)
    {
        oWide = oMode.m_oRate.m_ullDivisor != 0 ? WidenLimits(oWide, oMode) : oWide;
    }
    if (oOld == oWide)
    {
        return;
    }
    if (!WriteLimits(aui8Base.data() + uiOffset, uiRevision, oWide))
    {
        oFields.Note("the mode exceeds the range limits, which cannot be widened so far: " + GetLimitsText(oOld));
        return;
    }
    const auto itLimits = aui8Base.begin() + uiOffset;
    oFields.PutBase(uiOffset, { itLimits, itLimits + Descriptors::gsc_uiDescriptorSize });
    oFields.Note("the range limits become " + GetLimitsText(oWide) + "; they were " + GetLimitsText(oOld));
}

void FollowWithLimitsOfVic(CFieldEdits& oFields, unsigned int uiVic)
{
    std::vector<SZorMode> aoModes;
    for (const SExactTiming& oTiming : FindTimingsOfVic(uiVic))
    {
        aoModes.push_back(oTiming.m_oMode);
    }
    FollowWithLimits(oFields, aoModes);
}

void NoteOtherPreferred(CFieldEdits& oFields)
{
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        if (oModes.Get(i).m_eField == eZorEdidField_BaseDetailed)
        {
            NotePreferredBeside(oFields, oModes, oModes.Get(i).m_oMode);
            return;
        }
    }
}

std::string ParseAddMode(const std::string& sText, CNamedEdit& fnEdit)
{
    SAddedMode oAdded;
    std::string sProblem = ParseAddedMode(SplitText(sText, ","), oAdded);
    fnEdit = [oAdded](CFieldEdits& oFields) { return AddMode(oFields, oAdded); };
    return sProblem;
}

std::string ParseAddModeline(const std::string& sText, CNamedEdit& fnEdit)
{
    SAddedMode oAdded;
    if (!ParseModeline(sText, oAdded.m_oMode))
    {
        return "'" + ShowName(sText) +
               "' is not a line such as 'Modeline \"1280x720\" 74.25 1280 1390 1430 1650 720 725 730 750 +hsync "
               "+vsync'";
    }
    fnEdit = [oAdded](CFieldEdits& oFields) { return AddMode(oFields, oAdded); };
    return "";
}

std::string ParseAddVic(const std::string& sText, CNamedEdit& fnEdit)
{
    unsigned int uiVic = 0;
    if (!ParseNumber(sText, uiVic) || FindTimingsOfVic(uiVic).empty())
    {
        return "'" + sText + "' is not a published video code, 1 to 127 and 193 to 219";
    }
    fnEdit = [uiVic](CFieldEdits& oFields) { return AddVic(oFields, uiVic); };
    return "";
}

// What data blocks of CTA-861 and HDMI say: HDR, colorimetry, links, variable refresh, 4:2:0.

#include <algorithm>
#include <vector>

#include "EditNamed.h"
#include "FieldEdits.h"
#include "ImageModes.h"
#include "NearWord.h"
#include "Standards/ColourBlocks.h"
#include "Standards/ExtensionBlocks.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/VideoCodes.h"
#include "TextFormat.h"
#include "ZorEdidFacts.h"
#include "ZorEdidModes.h"

using namespace ZorStandards;

namespace
{
using CTexts = std::vector<std::string>;

// ---- HDR ----

struct SHdrWord
{
    const char* m_pszName;
    EZorEdidField m_eId;
};
constexpr SHdrWord gsc_aoTransfers[] = {
    { "sdr", eZorEdidField_CtaHdrStaticTraditionalGammaSdr },
    { "gamma", eZorEdidField_CtaHdrStaticTraditionalGammaHdr },
    { "pq", eZorEdidField_CtaHdrStaticSmpteSt2084 },
    { "hlg", eZorEdidField_CtaHdrStaticHlg },
};
constexpr SHdrWord gsc_aoLuminances[] = {
    { "max", eZorEdidField_CtaHdrStaticMaxLuminance },
    { "frame", eZorEdidField_CtaHdrStaticMaxFrameAverageLuminance },
    { "min", eZorEdidField_CtaHdrStaticMinLuminance },
};

std::string AddHdr(CFieldEdits& oFields, const CTexts& asTransfers, const CTexts& asLuminances)
{
    constexpr size_t uiFlags = 2;
    constexpr size_t uiMax = 0; // of the luminances
    constexpr size_t uiMin = 2;
    if (!asLuminances[uiMin].empty() && asLuminances[uiMax].empty() &&
        (!oFields.Has(gsc_aoLuminances[uiMax].m_eId) || oFields.GetNumber(gsc_aoLuminances[uiMax].m_eId) == 0))
    {
        return "min: this luminance is a fraction of the maximum, max, which the image does not have";
    }
    size_t uiLeast = uiFlags; // a luminance needs the bytes of those before it
    for (size_t i = 0; i < asLuminances.size(); ++i)
    {
        uiLeast = asLuminances[i].empty() ? uiLeast : uiFlags + i + 1;
    }
    CBytes aui8Flags(uiFlags);
    Colour::gsc_oGammaSdr.Write(aui8Flags.data(), 1);
    Colour::gsc_oMetadataType1.Write(aui8Flags.data(), 1);
    std::string sProblem = oFields.Has(eZorEdidField_CtaHdrStatic)
                               ? std::string()
                               : oFields.AddDataBlock(eZorEdidField_CtaHdrStatic, aui8Flags);
    sProblem = sProblem.empty() ? oFields.Lengthen(eZorEdidField_CtaHdrStatic, uiLeast) : sProblem;
    for (const SHdrWord& oWord : gsc_aoTransfers)
    {
        const bool bAsked = std::ranges::find(asTransfers, oWord.m_pszName) != asTransfers.end();
        sProblem = sProblem.empty() && bAsked ? oFields.Set(oWord.m_eId, "yes") : sProblem;
    }
    for (size_t i = 0; i < asLuminances.size(); ++i)
    {
        sProblem = sProblem.empty() && !asLuminances[i].empty()
                       ? oFields.Set(gsc_aoLuminances[i].m_eId, asLuminances[i])
                       : sProblem;
    }
    return sProblem;
}

// ---- Colorimetry ----

struct SColorimetry
{
    const char* m_pszName;
    EZorEdidField m_eId;
};
constexpr SColorimetry gsc_aoColorimetries[] = {
    { "xvycc601", eZorEdidField_CtaColorimetryXvycc601 },   { "xvycc709", eZorEdidField_CtaColorimetryXvycc709 },
    { "sycc601", eZorEdidField_CtaColorimetrySycc601 },     { "opycc601", eZorEdidField_CtaColorimetryOpycc601 },
    { "oprgb", eZorEdidField_CtaColorimetryOprgb },         { "bt2020cycc", eZorEdidField_CtaColorimetryBt2020cycc },
    { "bt2020ycc", eZorEdidField_CtaColorimetryBt2020ycc }, { "bt2020rgb", eZorEdidField_CtaColorimetryBt2020rgb },
    { "st2113rgb", eZorEdidField_CtaColorimetrySt2113rgb }, { "ictcp", eZorEdidField_CtaColorimetryIctcp },
    { "srgb", eZorEdidField_CtaColorimetrySrgb },           { "default-rgb", eZorEdidField_CtaColorimetryDefaultrgb },
};

std::string PutColorimetry(CFieldEdits& oFields, const CTexts& asNames)
{
    std::string sProblem = oFields.Has(eZorEdidField_CtaColorimetry)
                               ? std::string()
                               : oFields.AddDataBlock(eZorEdidField_CtaColorimetry, { 0, 0 });
    for (const SColorimetry& oColorimetry : gsc_aoColorimetries)
    {
        const bool bAsked = std::ranges::find(asNames, oColorimetry.m_pszName) != asNames.end();
        sProblem = sProblem.empty() ? oFields.Set(oColorimetry.m_eId, bAsked ? "yes" : "no") : sProblem;
    }
    return sProblem;
}

// ---- HDMI ----

constexpr unsigned int gsc_uiMostTmds1 = Hdmi::gsc_uiMostTmdsInMegaHz;      // of HDMI's own data block
constexpr unsigned int gsc_uiMostTmds2 = HdmiForum::gsc_uiMostTmdsInMegaHz; // with scrambling
constexpr size_t gsc_uiVrrSize = HdmiForum::gsc_oVrrMax.GetEnd();

CZorEdidFacts::ELink GetLink(const CFieldEdits& oFields)
{
    CZorEdidFacts oFacts;
    oFacts.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    return oFacts.GetLink().m_oKind.m_oValue;
}

// What HDMI asks of the rest of an image, and most sources do not.
void NoteOlderDemands(CFieldEdits& oFields, CZorEdidFacts::ELink eLink)
{
    constexpr long long llRevision = 3;
    const long long llFound = oFields.GetNumber(eZorEdidField_BaseEdidRevision);
    if (llFound != llRevision)
    {
        oFields.Note(FormatText("HDMI asks for EDID 1.3, and the image is of EDID 1.%lld", llFound) +
                     (oFields.IsRevision4() ? ", as those of many HDMI displays" : ""));
    }
    if (eLink == CZorEdidFacts::eLink_Analog || eLink == CZorEdidFacts::eLink_DisplayPort)
    {
        oFields.Note(std::string("HDMI is announced though the base block says that the input is ") +
                     (eLink == CZorEdidFacts::eLink_Analog ? "analog" : "DisplayPort"));
    }
    if (oFields.GetNumber(eZorEdidField_CtaRevision) < Cta::gsc_uiHighestRevision)
    {
        oFields.Note(
            "HDMI asks for a CTA-861 block of revision 3 as the first extension block; the image has another one");
    }
}

// The highest clock of the modes that the image has, which a new link has to carry: MHz, in steps of the fields.
unsigned int GetMostMegaHz(const CFieldEdits& oFields)
{
    constexpr unsigned long long ullStep = Hdmi::gsc_uiMegaHzPerTmdsUnit * 1000000ULL;
    unsigned long long ullMost = 0;
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        ullMost = std::max(ullMost, oModes.Get(i).m_oMode.m_ullClock);
    }
    return static_cast<unsigned int>((ullMost + ullStep - 1) / ullStep) * Hdmi::gsc_uiMegaHzPerTmdsUnit;
}

// HDMI's own data block, with a clock.
std::string EnsureHdmi(CFieldEdits& oFields)
{
    if (!oFields.Has(eZorEdidField_CtaHdmi))
    {
        CBytes aui8Payload(Hdmi::gsc_uiNewSize);
        Hdmi::WriteNew(aui8Payload.data(), gsc_uiMostTmds1);
        const CZorEdidFacts::ELink eLink = GetLink(oFields);
        std::string sProblem = oFields.AddDataBlock(eZorEdidField_CtaHdmi, aui8Payload);
        if (sProblem.empty())
        {
            NoteOlderDemands(oFields, eLink);
        }
        return sProblem;
    }
    return oFields.Lengthen(eZorEdidField_CtaHdmi, Hdmi::gsc_uiNewSize);
}

// The capabilities of the HDMI Forum, in either of its data blocks, of at least this size.
std::string EnsureForum(CFieldEdits& oFields, size_t uiLeast)
{
    if (oFields.Has(eZorEdidField_CtaHdmiForumSink))
    {
        return oFields.Lengthen(eZorEdidField_CtaHdmiForumSink, HdmiForum::gsc_uiSinkSkip + uiLeast);
    }
    std::string sProblem = EnsureHdmi(oFields);
    if (sProblem.empty() && !oFields.Has(eZorEdidField_CtaHdmiForum))
    {
        CBytes aui8Payload(HdmiForum::gsc_uiNewSize);
        HdmiForum::WriteNew(aui8Payload.data(), std::min(GetMostMegaHz(oFields), gsc_uiMostTmds2), 0);
        sProblem = oFields.AddBeside(eZorEdidField_CtaHdmi, eZorEdidField_CtaHdmiForum, aui8Payload);
    }
    return sProblem.empty() ? oFields.Lengthen(eZorEdidField_CtaHdmiForum, uiLeast) : sProblem;
}

// HDMI 2.1 asks for a flag where video codes of 3840 pixels and more are listed.
std::string FollowUhdCodes(CFieldEdits& oFields)
{
    return oFields.IsFound({ eZorEdidRule_UhdVicMissing }) ? oFields.Set(eZorEdidField_CtaHdmiForumUhdVic, "yes") : "";
}

std::string PutTmds(CFieldEdits& oFields, unsigned int uiMegaHz)
{
    const std::string sRate = std::to_string(uiMegaHz > gsc_uiMostTmds1 ? HdmiForum::RoundUpTmds(uiMegaHz) : uiMegaHz);
    if (uiMegaHz > gsc_uiMostTmds1)
    {
        std::string sProblem = EnsureForum(oFields, HdmiForum::gsc_uiNewSize);
        return !sProblem.empty() ? sProblem
                                 : oFields.SetAll({ { eZorEdidField_CtaHdmiForumMaxTmdsCharacterRate, sRate },
                                                    { eZorEdidField_CtaHdmiForumScdcPresent, "yes" } });
    }
    std::string sProblem = EnsureHdmi(oFields);
    sProblem = sProblem.empty() ? oFields.Set(eZorEdidField_CtaHdmiMaxTmdsClock, sRate) : sProblem;
    return sProblem.empty() && oFields.Has(eZorEdidField_CtaHdmiForumMaxTmdsCharacterRate)
               ? oFields.Set(eZorEdidField_CtaHdmiForumMaxTmdsCharacterRate, "raw:0")
               : sProblem;
}

// With the fixed rate link a sink takes the highest clock of TMDS as well.
std::string PutFrl(CFieldEdits& oFields, unsigned int uiCode)
{
    std::string sProblem = EnsureForum(oFields, HdmiForum::gsc_uiNewSize);
    sProblem = sProblem.empty() ? oFields.SetAll({ { eZorEdidField_CtaHdmiForumMaxFrlRate, std::to_string(uiCode) },
                                                   { eZorEdidField_CtaHdmiForumScdcPresent, "yes" } })
                                : sProblem;
    sProblem = sProblem.empty() ? FollowUhdCodes(oFields) : sProblem;
    return sProblem.empty() && oFields.GetNumber(eZorEdidField_CtaHdmiForumMaxTmdsCharacterRate) < gsc_uiMostTmds2
               ? oFields.Set(eZorEdidField_CtaHdmiForumMaxTmdsCharacterRate, std::to_string(gsc_uiMostTmds2))
               : sProblem;
}

// DisplayPort has the range limits for it.
std::string PutDisplayPortVrr(CFieldEdits& oFields, unsigned int uiLeast, unsigned int uiMost)
{
    CNamedEdit fnLimits;
    ParseRangeLimits(FormatText("%u-%uHz", uiLeast, uiMost), fnLimits);
    std::string sProblem = fnLimits(oFields);
    return sProblem.empty() ? oFields.Set(eZorEdidField_BaseDisplayContinuousFrequency, "yes") : sProblem;
}

// A source drives a mode of the highest rate, and lowers it.
void NoteUnreached(CFieldEdits& oFields, unsigned int uiMost)
{
    double dHighest = 0; // Hz
    CZorEdidModes oModes;
    oModes.Read(oFields.GetMap().GetSize(), oFields.GetMap().GetData());
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        dHighest = std::max(dHighest, GetRate(oModes.Get(i).m_oMode));
    }
    if (dHighest <= uiMost - 1.0)
    {
        oFields.Note(FormatText("no mode has a rate of %u Hz, and the highest one is of %.2f Hz; --add-mode adds one",
                                uiMost, dHighest));
    }
}

// Range limits that are there come to hold the range.
std::string PutVrr(CFieldEdits& oFields, unsigned int uiLeast, unsigned int uiMost)
{
    if (oFields.IsRevision4() && GetLink(oFields) == CZorEdidFacts::eLink_DisplayPort &&
        oFields.Has(eZorEdidField_BaseRange) && !oFields.Has(eZorEdidField_CtaHdmi))
    {
        return PutDisplayPortVrr(oFields, uiLeast, uiMost);
    }
    std::string sProblem = EnsureForum(oFields, gsc_uiVrrSize);
    if (uiMost < HdmiForum::gsc_uiLeastVrrMax)
    {
        oFields.Note("VRR_MAX is 0, as it has no rates below 100 Hz: the rate of the timing is the maximum");
    }
    const std::string sMost = uiMost < HdmiForum::gsc_uiLeastVrrMax ? "raw:0" : std::to_string(uiMost);
    sProblem = sProblem.empty() ? oFields.SetAll({ { eZorEdidField_CtaHdmiForumVrrMin, std::to_string(uiLeast) },
                                                   { eZorEdidField_CtaHdmiForumVrrMax, sMost } })
                                : sProblem;
    sProblem = sProblem.empty() ? FollowUhdCodes(oFields) : sProblem;
    if (!sProblem.empty() || !oFields.Has(eZorEdidField_BaseRange))
    {
        return sProblem;
    }
    const auto uiLow = static_cast<unsigned int>(oFields.GetNumber(eZorEdidField_BaseRangeMinVerticalRate));
    const auto uiHigh = static_cast<unsigned int>(oFields.GetNumber(eZorEdidField_BaseRangeMaxVerticalRate));
    CNamedEdit fnLimits;
    ParseRangeLimits(FormatText("%u-%uHz", std::min(uiLow, uiLeast), std::max(uiHigh, uiMost)), fnLimits);
    return uiLow <= uiLeast && uiHigh >= uiMost ? "" : fnLimits(oFields);
}

// ---- 4:2:0 ----

std::string Add420Only(CFieldEdits& oFields, unsigned int uiVic)
{
    if (Is420Only(oFields.GetMap(), uiVic))
    {
        oFields.Note(FormatText("VIC %u is there in 4:2:0 already", uiVic));
        return "";
    }
    std::string sProblem = oFields.AddItem(eZorEdidField_Cta420Video, { static_cast<unsigned char>(uiVic) });
    if (sProblem.empty())
    {
        FollowWithLimitsOfVic(oFields, uiVic);
    }
    return sProblem;
}
// A code that the image has is 4:2:0 as well, by the capability map; others are 4:2:0 only.
std::string Put420(CFieldEdits& oFields, unsigned int uiVic)
{
    constexpr unsigned int uiBits = 8;
    unsigned int uiCode = 0;
    if (!FindCode(oFields.GetMap(), uiVic, uiCode))
    {
        return Add420Only(oFields, uiVic);
    }
    CBytes aui8Map = oFields.GetPayload(eZorEdidField_Cta420Map);
    const bool bAll = aui8Map.empty() && oFields.Has(eZorEdidField_Cta420Map);
    aui8Map.resize(std::max<size_t>(aui8Map.size(), uiCode / uiBits + 1));
    const unsigned int uiBit = 1U << uiCode % uiBits;
    if (bAll || (aui8Map[uiCode / uiBits] & uiBit) != 0)
    {
        oFields.Note(FormatText("VIC %u is announced in 4:2:0 as well already", uiVic));
        return "";
    }
    aui8Map[uiCode / uiBits] = static_cast<unsigned char>(aui8Map[uiCode / uiBits] | uiBit);
    std::string sProblem = oFields.PutPayload(eZorEdidField_Cta420Map, aui8Map);
    if (sProblem.empty())
    {
        oFields.Note(FormatText("VIC %u is 4:2:0 as well, by the capability map", uiVic));
    }
    return sProblem;
}

} // namespace

bool FindCode(const CZorEdidMap& oMap, unsigned int uiVic, unsigned int& uiPlace)
{
    const unsigned int uiBlocks = CountExtensions(oMap.GetData(), oMap.GetSize());
    unsigned int uiPlaces = 0;
    bool bFound = false;
    ForEachVideoPlace(oMap.GetData(), oMap.GetSize(), uiBlocks, [&](unsigned int /*uiOffset*/, unsigned char ui8Byte) {
        uiPlace = bFound ? uiPlace : uiPlaces++;
        bFound = bFound || ReadShortVideo(ui8Byte).m_uiCode == uiVic;
    });
    return bFound;
}

bool Is420Only(const CZorEdidMap& oMap, unsigned int uiVic)
{
    unsigned int uiEnd = 0; // of the last 4:2:0 data block
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        uiEnd = oField.m_eId == eZorEdidField_Cta420Video ? oField.m_uiOffset + oField.m_uiLength : uiEnd;
        if (oField.m_eId == eZorEdidField_CtaVideoVic && oField.m_uiOffset < uiEnd && oField.m_llNumber == uiVic)
        {
            return true;
        }
    }
    return false;
}

// A word of a list that is not known.
std::string RefuseSome(const std::string& sName, const CTexts& asKnown)
{
    return "unknown value '" + sName + "'" + NameKnownWords(sName, asKnown, "some of " + JoinTexts(asKnown));
}

// pq,hlg,max=600,frame=400,min=0.05
std::string ParseAddHdr(const std::string& sText, CNamedEdit& fnEdit)
{
    CTexts asTransfers;
    CTexts asLuminances(std::size(gsc_aoLuminances));
    for (const std::string& sWord : SplitText(sText, ","))
    {
        const size_t uiEquals = sWord.find('=');
        const std::string sName = sWord.substr(0, uiEquals);
        const auto* poLuminance = std::ranges::find(gsc_aoLuminances, sName, &SHdrWord::m_pszName);
        if (uiEquals != std::string::npos && poLuminance != std::end(gsc_aoLuminances))
        {
            asLuminances[static_cast<size_t>(poLuminance - gsc_aoLuminances)] = sWord.substr(uiEquals + 1);
        }
        else if (std::ranges::find(gsc_aoTransfers, sWord, &SHdrWord::m_pszName) != std::end(gsc_aoTransfers))
        {
            asTransfers.push_back(sWord);
        }
        else
        {
            CTexts asNames = ListNames(gsc_aoTransfers);
            for (const std::string& sLuminance : ListNames(gsc_aoLuminances))
            {
                asNames.push_back(sLuminance + "=");
            }
            return RefuseSome(sWord, asNames);
        }
    }
    fnEdit = [=](CFieldEdits& oFields) { return AddHdr(oFields, asTransfers, asLuminances); };
    return "";
}

std::string ParseColorimetry(const std::string& sText, CNamedEdit& fnEdit)
{
    CTexts asNames = SplitText(sText, ",+");
    std::ranges::replace(asNames, "dci-p3", "st2113rgb"); // as programs of today call it
    for (const std::string& sName : asNames)
    {
        if (std::ranges::find(gsc_aoColorimetries, sName, &SColorimetry::m_pszName) == std::end(gsc_aoColorimetries))
        {
            return RefuseSome(sName, ListNames(gsc_aoColorimetries));
        }
    }
    fnEdit = [asNames](CFieldEdits& oFields) { return PutColorimetry(oFields, asNames); };
    return "";
}

std::string ParseVrr(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiMostMaximum = 1023;
    const size_t uiHyphen = sText.find('-');
    unsigned int uiLeast = 0;
    unsigned int uiMost = 0;
    if (uiHyphen == std::string::npos || !ParseNumber(sText.substr(0, uiHyphen), uiLeast) ||
        !ParseNumber(sText.substr(uiHyphen + 1), uiMost) || uiLeast == 0 || uiLeast > HdmiForum::gsc_uiMostVrrMin ||
        uiMost <= uiLeast || uiMost > uiMostMaximum)
    {
        return "'" + sText + "' is not a range of rates such as 48-144: from 1 to 48 Hz, up to 1023 Hz";
    }
    fnEdit = [=](CFieldEdits& oFields) {
        std::string sProblem = PutVrr(oFields, uiLeast, uiMost);
        if (sProblem.empty())
        {
            NoteUnreached(oFields, uiMost);
        }
        return sProblem;
    };
    return "";
}

// Lanes and Gbit/s of each, in either order: 4x6 and 6x4 are the same.
std::string ParseFrl(const std::string& sText, CNamedEdit& fnEdit)
{
    CTexts asRates;
    for (unsigned int i = 1; i < std::size(HdmiForum::gsc_aoFrlRates); ++i)
    {
        const unsigned int uiLanes = HdmiForum::gsc_aoFrlRates[i].m_ui8Lanes;
        const unsigned int uiGbps = HdmiForum::gsc_aoFrlRates[i].m_ui8Gbps;
        if (sText == FormatText("%ux%u", uiGbps, uiLanes) || sText == FormatText("%ux%u", uiLanes, uiGbps))
        {
            fnEdit = [i](CFieldEdits& oFields) { return PutFrl(oFields, i); };
            return "";
        }
        asRates.push_back(FormatText("%ux%u", uiGbps, uiLanes));
    }
    return "unknown value '" + sText + "'" + NameKnownWords(sText, asRates);
}

std::string ParseTmds(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiLeast = 25;
    unsigned int uiMegaHz = 0;
    if (!ParseNumber(sText, uiMegaHz) || uiMegaHz < uiLeast || uiMegaHz > gsc_uiMostTmds2)
    {
        return "'" + sText + "' is not a number of MHz from 25 to 600";
    }
    fnEdit = [uiMegaHz](CFieldEdits& oFields) { return PutTmds(oFields, uiMegaHz); };
    return "";
}

std::string ParseYCbCr420(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiMost = 253;
    std::vector<unsigned int> auiVics;
    for (const std::string& sVic : SplitText(sText, ",+"))
    {
        if (!ParseNumber(sVic, auiVics.emplace_back()) || auiVics.back() == 0 || auiVics.back() > uiMost)
        {
            return "'" + sVic + "' is not a video code, 1 to 253";
        }
    }
    fnEdit = [auiVics](CFieldEdits& oFields) {
        std::string sProblem;
        for (const unsigned int uiVic : auiVics)
        {
            sProblem = sProblem.empty() ? Put420(oFields, uiVic) : sProblem;
        }
        return sProblem;
    };
    return "";
}

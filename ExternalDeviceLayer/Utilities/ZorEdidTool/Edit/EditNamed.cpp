// What the base block says: identity, size, colour, range limits.

#include "EditNamed.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <vector>

#include "EditFollow.h"
#include "EditLimits.h"
#include "FieldEdits.h"
#include "MapText.h"
#include "NearWord.h"
#include "TextFormat.h"

using namespace ZorStandards;

namespace
{
using CTexts = std::vector<std::string>;

// ---- Texts of descriptors ----

std::string PutText(CFieldEdits& oFields, EZorEdidField eId, unsigned char ui8Tag, const std::string& sText)
{
    if (oFields.Has(eId))
    {
        return oFields.Set(eId, sText);
    }
    const unsigned int uiLength = static_cast<unsigned int>(sText.size());
    if (!Descriptors::IsTextFor(sText.data(), uiLength))
    {
        return Descriptors::gsc_pszTextFor;
    }
    CBytes aui8Bytes(Descriptors::gsc_uiDescriptorSize);
    Descriptors::WriteText(aui8Bytes.data(), ui8Tag, sText.data(), uiLength);
    return oFields.AddDescriptor(aui8Bytes);
}

// ---- Date ----

// uiWeek: as it is stored.
std::string PutDate(CFieldEdits& oFields, unsigned int uiWeek, unsigned int uiYear)
{
    const auto eYear =
        uiWeek == BaseBlock::gsc_uiModelYearWeek ? eZorEdidField_BaseIdentityModelYear : eZorEdidField_BaseIdentityYear;
    std::string sProblem = oFields.Apply(
        { eZorEdidField_None, BaseBlock::gsc_uiWeekOffset, SSetting::msc_uiNone, FormatText("raw:%u", uiWeek) });
    sProblem = sProblem.empty() ? oFields.Set(eYear, std::to_string(uiYear)) : sProblem;
    if (sProblem.empty())
    {
        FollowDate(oFields, uiWeek, uiYear);
    }
    return sProblem;
}

// ---- Size ----

struct SSize
{
    unsigned int m_uiWidthInMm = 0;
    unsigned int m_uiHeightInMm = 0;
};

// The first detailed timing has the millimetres, as in a new image.
std::string PutFirstTimingSize(CFieldEdits& oFields, const std::string& sWidth, const std::string& sHeight)
{
    const unsigned int uiWidth = oFields.GetMap().FindField(eZorEdidField_BaseDetailedImageWidth);
    const bool bBase =
        uiWidth != CZorEdidMap::msc_uiNone && oFields.GetMap().GetField(uiWidth).m_uiOffset < gsc_uiBlockSize;
    return bBase ? oFields.SetAll({ { eZorEdidField_BaseDetailedImageWidth, sWidth },
                                    { eZorEdidField_BaseDetailedImageHeight, sHeight } })
                 : "";
}

// The nearest centimetre in the base block, which HDMI may take for a ratio or for units of 5 cm, and millimetres where
// detailed timings and DisplayID have a size.
std::string PutSize(CFieldEdits& oFields, const SSize& oSize)
{
    constexpr unsigned int uiMmPerCm = 10;
    constexpr unsigned int uiCentimetres = 2; // of HDMI's Image_Size
    const auto fnCm = [](unsigned int uiMm) { return FormatText("raw:%u", (uiMm + uiMmPerCm / 2) / uiMmPerCm); };
    const auto fnPut = [&](unsigned int uiOffset, unsigned int uiMm) {
        return oFields.Apply({ eZorEdidField_None, uiOffset, SSetting::msc_uiNone, fnCm(uiMm) });
    };
    const std::string sWidth = FormatText("%u mm", oSize.m_uiWidthInMm);
    const std::string sHeight = FormatText("%u mm", oSize.m_uiHeightInMm);
    std::string sProblem = fnPut(BaseBlock::gsc_uiImageWidthOffset, oSize.m_uiWidthInMm);
    sProblem = sProblem.empty() ? fnPut(BaseBlock::gsc_uiImageHeightOffset, oSize.m_uiHeightInMm) : sProblem;
    sProblem = sProblem.empty() ? PutFirstTimingSize(oFields, sWidth, sHeight) : sProblem;
    if (sProblem.empty())
    {
        FollowWhereGiven(oFields, { { eZorEdidField_CtaHdmiImageSize, FormatText("raw:%u", uiCentimetres) },
                                    { eZorEdidField_BaseDetailedImageWidth, sWidth },
                                    { eZorEdidField_BaseDetailedImageHeight, sHeight },
                                    { eZorEdidField_DisplayidParametersImageWidth, sWidth },
                                    { eZorEdidField_DisplayidParametersImageHeight, sHeight } });
    }
    return sProblem;
}

// ---- Range limits ----

struct SRange
{
    unsigned int m_uiLeast = 0;
    unsigned int m_uiMost = 0; // 0: not given
};

struct SAskedLimits
{
    SRange m_oHz;
    SRange m_oKiloHz;
    unsigned int m_uiMegaHz = 0;
};

// "48-144"
bool ParseRange(const std::string& sText, SRange& oRange)
{
    const size_t uiHyphen = sText.find('-');
    return uiHyphen != std::string::npos && ParseNumber(sText.substr(0, uiHyphen), oRange.m_uiLeast) &&
           ParseNumber(sText.substr(uiHyphen + 1), oRange.m_uiMost) && oRange.m_uiLeast != 0 &&
           oRange.m_uiLeast <= oRange.m_uiMost;
}

std::string ParseLimit(const std::string& sText, SAskedLimits& oAsked)
{
    const auto fnCut = [&](size_t uiUnit) { return sText.substr(0, sText.size() - uiUnit); };
    const bool bGood = sText.ends_with("kHz")   ? ParseRange(fnCut(3), oAsked.m_oKiloHz)
                       : sText.ends_with("MHz") ? ParseNumber(fnCut(3), oAsked.m_uiMegaHz) && oAsked.m_uiMegaHz != 0
                                                : sText.ends_with("Hz") && ParseRange(fnCut(2), oAsked.m_oHz);
    return bGood ? "" : "'" + sText + "' is not a limit such as 48-144Hz, 30-222kHz or 600MHz";
}

SLimits Replace(SLimits oLimits, const SAskedLimits& oAsked)
{
    constexpr unsigned int uiMegaHzPerUnit = 10;
    if (oAsked.m_oHz.m_uiMost != 0)
    {
        oLimits.m_uiMinVerticalRateInHz = oAsked.m_oHz.m_uiLeast;
        oLimits.m_uiMaxVerticalRateInHz = oAsked.m_oHz.m_uiMost;
    }
    if (oAsked.m_oKiloHz.m_uiMost != 0)
    {
        oLimits.m_uiMinHorizontalRateInKiloHz = oAsked.m_oKiloHz.m_uiLeast;
        oLimits.m_uiMaxHorizontalRateInKiloHz = oAsked.m_oKiloHz.m_uiMost;
    }
    if (oAsked.m_uiMegaHz != 0)
    {
        oLimits.m_uiMaxPixelClockInKiloHz =
            (oAsked.m_uiMegaHz + uiMegaHzPerUnit - 1) / uiMegaHzPerUnit * Descriptors::gsc_uiKiloHzPer10MegaHz;
        oLimits.m_uiPreciseMaxPixelClockInKiloHz = oLimits.m_uiMaxPixelClockInKiloHz;
    }
    return oLimits;
}

std::string PutLimits(CFieldEdits& oFields, const SAskedLimits& oAsked)
{
    constexpr unsigned int uiMostMegaHz = 2550;
    if (oFields.GetMap().GetSize() < gsc_uiBlockSize)
    {
        return "the base block is not whole";
    }
    const bool bNew = !oFields.Has(eZorEdidField_BaseRange);
    const CBytes aui8Base = oFields.GetBytes();
    const unsigned int uiOffset = BaseBlock::FindRangeLimits(aui8Base.data());
    if (bNew && (oAsked.m_oHz.m_uiMost == 0 || oAsked.m_oKiloHz.m_uiMost == 0 || oAsked.m_uiMegaHz == 0))
    {
        return "the image has no range limits, and new ones need all of Hz, kHz and MHz";
    }
    if (!bNew && uiOffset == 0)
    {
        return "the base block has no range limits of its own";
    }
    if (oAsked.m_uiMegaHz > uiMostMegaHz)
    {
        return "a clock is at most 2550 MHz";
    }
    CBytes aui8Limits(aui8Base.begin() + uiOffset, aui8Base.begin() + uiOffset + Descriptors::gsc_uiDescriptorSize);
    if (bNew)
    {
        Descriptors::WriteEmptyLimits(aui8Limits.data(), oFields.IsRevision4());
    }
    const unsigned int uiRevision = BaseBlock::ReadRevision(aui8Base.data());
    const SLimits oOld = Descriptors::ReadRangeLimits(aui8Limits.data(), uiRevision);
    const SLimits oLimits = Replace(oOld, oAsked);
    if (!WriteLimits(aui8Limits.data(), uiRevision, oLimits))
    {
        return "rates are 1 to 255, from E-EDID 1.4 on up to 510";
    }
    if (bNew)
    {
        return oFields.AddDescriptor(aui8Limits);
    }
    if (oLimits == oOld)
    {
        oFields.Note(GetLimitsText(oLimits) + " are the range limits already");
        return "";
    }
    oFields.PutBase(uiOffset, aui8Limits);
    oFields.Note(GetLimitsText(oLimits) + " became the range limits; they were " + GetLimitsText(oOld));
    return "";
}

// ---- Chromaticities ----

struct SColourSpace
{
    const char* m_pszName;
    const char* m_pszNumbers; // x and y of red, green, blue and white
};
constexpr SColourSpace gsc_aoSpaces[] = {
    { "srgb", "0.640,0.330,0.300,0.600,0.150,0.060,0.3127,0.3290" },
    { "p3", "0.680,0.320,0.265,0.690,0.150,0.060,0.3127,0.3290" },
    { "bt2020", "0.708,0.292,0.170,0.797,0.131,0.046,0.3127,0.3290" },
};
constexpr EZorEdidField gsc_aeChromaticities[] = {
    eZorEdidField_BaseChromaticityRedX,   eZorEdidField_BaseChromaticityRedY,   eZorEdidField_BaseChromaticityGreenX,
    eZorEdidField_BaseChromaticityGreenY, eZorEdidField_BaseChromaticityBlueX,  eZorEdidField_BaseChromaticityBlueY,
    eZorEdidField_BaseChromaticityWhiteX, eZorEdidField_BaseChromaticityWhiteY,
};

// x and y of a point. The field refuses what is not a number.
bool IsColor(const std::string& sX, const std::string& sY)
{
    constexpr double dMost = 1.000001; // decimals have no exact sum
    char* pszEndX = nullptr;
    char* pszEndY = nullptr;
    const double dX = strtod(sX.c_str(), &pszEndX);
    const double dY = strtod(sY.c_str(), &pszEndY);
    const bool bNumbers = *pszEndX == '\0' && *pszEndY == '\0';
    return !bNumbers || (dX > 0 && dY > 0 && dX + dY <= dMost);
}

// A display of other colours or another gamma than sRGB's does not say that it is one. One that has both says it.
std::string FollowSrgb(CFieldEdits& oFields)
{
    const unsigned char* pui8Base = oFields.GetMap().GetData();
    const bool bColors = oFields.GetMap().GetSize() >= gsc_uiBlockSize &&
                         memcmp(pui8Base + BaseBlock::gsc_uiChromaticitiesOffset, BaseBlock::gsc_aui8SrgbColors,
                                sizeof(BaseBlock::gsc_aui8SrgbColors)) == 0;
    if (bColors && pui8Base[BaseBlock::gsc_uiGammaOffset] == BaseBlock::gsc_ui8SrgbGamma)
    {
        return oFields.Set(eZorEdidField_BaseDisplaySrgbDefault, "yes");
    }
    if (bColors)
    {
        oFields.Note("the colours are those of sRGB and the gamma is not, so that the image does not say that it is "
                     "sRGB; with --gamma 2.2 it does");
    }
    return oFields.IsFound({ eZorEdidRule_SrgbColors, eZorEdidRule_SrgbGamma })
               ? oFields.Set(eZorEdidField_BaseDisplaySrgbDefault, "no")
               : "";
}
} // namespace

std::string ParseName(const std::string& sText, CNamedEdit& fnEdit)
{
    fnEdit = [sText](CFieldEdits& oFields) {
        return PutText(oFields, eZorEdidField_BaseName, Descriptors::gsc_ui8TagName, sText);
    };
    return "";
}

std::string ParseSerialText(const std::string& sText, CNamedEdit& fnEdit)
{
    fnEdit = [sText](CFieldEdits& oFields) {
        return PutText(oFields, eZorEdidField_BaseSerial, Descriptors::gsc_ui8TagSerialNumber, sText);
    };
    return "";
}

std::string ParseMaker(const std::string& sText, CNamedEdit& fnEdit)
{
    fnEdit = [sText](CFieldEdits& oFields) {
        std::string sProblem = oFields.Set(eZorEdidField_BaseIdentityManufacturer, sText);
        if (sProblem.empty())
        {
            FollowMaker(oFields, sText);
        }
        return sProblem;
    };
    const bool bLetters = sText.size() == 3 && std::ranges::all_of(sText, [](char c) { return c >= 'A' && c <= 'Z'; });
    return bLetters ? "" : "'" + sText + "' is not three capital letters such as ABC";
}

std::string ParseProduct(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiMost = 0xFFFF;
    unsigned int uiCode = 0;
    const bool bCode = ParseNumber(sText, uiCode) && uiCode <= uiMost;
    fnEdit = [uiCode](CFieldEdits& oFields) {
        const std::string sCode = FormatText("raw:%u", uiCode);
        std::string sProblem = oFields.Set(eZorEdidField_BaseIdentityProductCode, sCode);
        if (sProblem.empty())
        {
            FollowWhereGiven(oFields, { { eZorEdidField_DisplayidProductProductCode, sCode } });
        }
        return sProblem;
    };
    return bCode ? "" : "'" + sText + "' is not a number from 0 to 65535";
}

// WEEK/YEAR, or YEAR alone for the model year.
std::string ParseDate(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiMostWeek = 54;
    constexpr unsigned int uiLastYear = BaseBlock::gsc_uiFirstYear + 0xFF;
    unsigned int uiWeek = 0;
    unsigned int uiYear = 0;
    if (!ParseWeekAndYear(sText, uiWeek, uiYear) || uiYear < BaseBlock::gsc_uiFirstYear || uiYear > uiLastYear ||
        uiWeek > uiMostWeek)
    {
        return "'" + sText + "' is not WEEK/YEAR or YEAR such as 12/2026: weeks are 1 to 54, years 1990 to 2245";
    }
    fnEdit = [=](CFieldEdits& oFields) {
        if (uiWeek == 0)
        {
            return PutDate(oFields, oFields.IsRevision4() ? BaseBlock::gsc_uiModelYearWeek : 0, uiYear);
        }
        if (uiWeek == uiMostWeek && !oFields.IsRevision4())
        {
            return std::string("before EDID 1.4 weeks are 1 to 53");
        }
        return PutDate(oFields, uiWeek, uiYear);
    };
    return "";
}

std::string ParseSize(const std::string& sText, CNamedEdit& fnEdit)
{
    constexpr unsigned int uiMostMm = 2554; // 255 cm
    SSize oSize;
    char szUnit[3] = {};
    char cEnd = '\0';
    const int iRead =
        sscanf(sText.c_str(), "%4ux%4u%2[cm]%c", &oSize.m_uiWidthInMm, &oSize.m_uiHeightInMm, szUnit, &cEnd);
    const std::string sUnit = szUnit;
    if (sUnit == "cm")
    {
        oSize.m_uiWidthInMm *= 10;
        oSize.m_uiHeightInMm *= 10;
    }
    if (iRead != 3 || (sUnit != "mm" && sUnit != "cm") || oSize.m_uiWidthInMm == 0 || oSize.m_uiHeightInMm == 0 ||
        oSize.m_uiWidthInMm > uiMostMm || oSize.m_uiHeightInMm > uiMostMm)
    {
        return "'" + sText + "' is not a size such as 600x340mm or 60x34cm, up to 255 cm";
    }
    fnEdit = [oSize](CFieldEdits& oFields) { return PutSize(oFields, oSize); };
    return "";
}

std::string ParseRangeLimits(const std::string& sText, CNamedEdit& fnEdit)
{
    SAskedLimits oAsked;
    for (const std::string& sLimit : SplitText(sText, ","))
    {
        std::string sProblem = ParseLimit(sLimit, oAsked);
        if (!sProblem.empty())
        {
            return sProblem;
        }
    }
    fnEdit = [oAsked](CFieldEdits& oFields) { return PutLimits(oFields, oAsked); };
    return "";
}

std::string ParseChromaticities(const std::string& sText, CNamedEdit& fnEdit)
{
    const auto* poSpace = std::ranges::find(gsc_aoSpaces, sText, &SColourSpace::m_pszName);
    const CTexts asNumbers = SplitText(poSpace != std::end(gsc_aoSpaces) ? poSpace->m_pszNumbers : sText, ",");
    if (asNumbers.size() != std::size(gsc_aeChromaticities))
    {
        const std::string sNear = AskForNearWord(sText, ListNames(gsc_aoSpaces));
        return "'" + sText + "' is not srgb, p3, bt2020 or eight numbers" +
               (sNear.empty() ? ": x and y of red, green, blue and white" : sNear);
    }
    for (size_t i = 0; i + 1 < asNumbers.size(); i += 2)
    {
        if (!IsColor(asNumbers[i], asNumbers[i + 1]))
        {
            return "'" + asNumbers[i] + "," + asNumbers[i + 1] +
                   "' is not a colour: x and y are above 0, and at most 1 together";
        }
    }
    fnEdit = [asNumbers](CFieldEdits& oFields) {
        std::string sProblem;
        for (size_t i = 0; i < asNumbers.size() && sProblem.empty(); ++i)
        {
            sProblem = oFields.Set(gsc_aeChromaticities[i], asNumbers[i]);
        }
        if (sProblem.empty())
        {
            FollowColors(oFields, asNumbers);
        }
        return sProblem.empty() ? FollowSrgb(oFields) : sProblem;
    };
    return "";
}

std::string ParseGamma(const std::string& sText, CNamedEdit& fnEdit)
{
    fnEdit = [sText](CFieldEdits& oFields) {
        std::string sProblem = oFields.Set(eZorEdidField_BaseDisplayGamma, sText);
        if (!sProblem.empty())
        {
            return sProblem;
        }
        FollowWhereGiven(oFields, { { eZorEdidField_DisplayidParametersGamma, sText },
                                    { eZorEdidField_DisplayidParameters2GammaEotf, sText } });
        return FollowSrgb(oFields);
    };
    return "";
}

#include "EditFollow.h"

#include <stdlib.h>

#include <algorithm>
#include <array>
#include <span>

#include "MakerDisplayId.h"
#include "MapText.h"
#include "TextFormat.h"

namespace
{
using CTexts = std::vector<std::string>;

constexpr size_t gsc_uiNumbers = 8; // x and y of four points

struct SPlaceOfColor
{
    EZorEdidField m_eId;
    unsigned int m_uiNumber; // of several of this id
};
using CPlacesOfColors = std::array<SPlaceOfColor, gsc_uiNumbers>;

constexpr CPlacesOfColors gsc_aoColors1 = { {
    { eZorEdidField_DisplayidColorX, 0 },
    { eZorEdidField_DisplayidColorY, 0 },
    { eZorEdidField_DisplayidColorX, 1 },
    { eZorEdidField_DisplayidColorY, 1 },
    { eZorEdidField_DisplayidColorX, 2 },
    { eZorEdidField_DisplayidColorY, 2 },
    { eZorEdidField_DisplayidColorX, 3 },
    { eZorEdidField_DisplayidColorY, 3 },
} };
constexpr CPlacesOfColors gsc_aoColors2 = { {
    { eZorEdidField_DisplayidParameters2Primary1X, 0 },
    { eZorEdidField_DisplayidParameters2Primary1Y, 0 },
    { eZorEdidField_DisplayidParameters2Primary2X, 0 },
    { eZorEdidField_DisplayidParameters2Primary2Y, 0 },
    { eZorEdidField_DisplayidParameters2Primary3X, 0 },
    { eZorEdidField_DisplayidParameters2Primary3Y, 0 },
    { eZorEdidField_DisplayidParameters2WhitePointX, 0 },
    { eZorEdidField_DisplayidParameters2WhitePointY, 0 },
} };

// In steps of two bits from 8 to 16.
constexpr EZorEdidField gsc_aeRgbDepths[] = {
    eZorEdidField_DisplayidInterfaceRgb444_8bpc,  eZorEdidField_DisplayidInterfaceRgb444_10bpc,
    eZorEdidField_DisplayidInterfaceRgb444_12bpc, eZorEdidField_DisplayidInterfaceRgb444_14bpc,
    eZorEdidField_DisplayidInterfaceRgb444_16bpc,
};
constexpr EZorEdidField gsc_ae444Depths[] = {
    eZorEdidField_DisplayidInterfaceYcbcr444_8bpc,  eZorEdidField_DisplayidInterfaceYcbcr444_10bpc,
    eZorEdidField_DisplayidInterfaceYcbcr444_12bpc, eZorEdidField_DisplayidInterfaceYcbcr444_14bpc,
    eZorEdidField_DisplayidInterfaceYcbcr444_16bpc,
};
constexpr EZorEdidField gsc_ae422Depths[] = {
    eZorEdidField_DisplayidInterfaceYcbcr422_8bpc,  eZorEdidField_DisplayidInterfaceYcbcr422_10bpc,
    eZorEdidField_DisplayidInterfaceYcbcr422_12bpc, eZorEdidField_DisplayidInterfaceYcbcr422_14bpc,
    eZorEdidField_DisplayidInterfaceYcbcr422_16bpc,
};
constexpr unsigned int gsc_uiDepth8 = 0x1; // a bit for each of them
constexpr unsigned int gsc_uiDepth10 = 0x2;
constexpr unsigned int gsc_uiDepth12 = 0x4;
constexpr unsigned int gsc_uiDepth16 = 0x10;

void NoteStill(CFieldEdits& oFields, unsigned int uiField, const std::string& sWhy)
{
    oFields.Note("DisplayID still says " + static_cast<std::string>(oFields.GetMap().GetValue(uiField)) + ": " + sWhy);
}

// One that cannot be set has a note of what it still says.
void SetOrNote(CFieldEdits& oFields, unsigned int uiField, const CFieldEdits::SValue& oValue, unsigned int uiNumber)
{
    if (const std::string sProblem = oFields.Set(oValue.m_eId, oValue.m_sValue, uiNumber); !sProblem.empty())
    {
        NoteStill(oFields, uiField, sProblem);
    }
}

void FollowField(CFieldEdits& oFields, const CFieldEdits::SValue& oValue, unsigned int uiNumber)
{
    const CZorEdidMap& oMap = oFields.GetMap();
    const unsigned int uiField = oMap.FindField(oValue.m_eId, uiNumber);
    if (uiField == CZorEdidMap::msc_uiNone)
    {
        return;
    }
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    const bool bNotGiven = oField.m_eKind == CZorEdidMap::eKind_Number && !oField.m_bNumber;
    if (oField.m_llNumber != 0 && !bNotGiven)
    {
        SetOrNote(oFields, uiField, oValue, uiNumber);
    }
}

// A field that is there always says something.
void FollowFlag(CFieldEdits& oFields, EZorEdidField eId, unsigned int uiNumber, bool bSet)
{
    const CZorEdidMap& oMap = oFields.GetMap();
    const unsigned int uiField = oMap.FindField(eId, uiNumber);
    if (uiField != CZorEdidMap::msc_uiNone && (oMap.GetField(uiField).m_llNumber != 0) != bSet)
    {
        SetOrNote(oFields, uiField, { eId, bSet ? "raw:1" : "raw:0" }, uiNumber);
    }
}

// Where the interface has the format at all.
void FollowDepths(CFieldEdits& oFields, std::span<const EZorEdidField> aeDepths, unsigned int uiDepths)
{
    for (unsigned int uiNumber = 0; uiNumber < oFields.GetMap().CountFields(aeDepths[0]); ++uiNumber)
    {
        const auto fnIsSet = [&](EZorEdidField eId) {
            const unsigned int uiField = oFields.GetMap().FindField(eId, uiNumber);
            return uiField != CZorEdidMap::msc_uiNone && oFields.GetMap().GetField(uiField).m_llNumber != 0;
        };
        if (std::ranges::none_of(aeDepths, fnIsSet))
        {
            continue;
        }
        for (size_t i = 0; i < aeDepths.size(); ++i)
        {
            FollowFlag(oFields, aeDepths[i], uiNumber, (uiDepths >> i & 1) != 0);
        }
    }
}

// HDMI has depths of its own, the deep colours.
void FollowLinkDepths(CFieldEdits& oFields, unsigned int uiBits)
{
    constexpr unsigned int uiLeast = 8;
    if (oFields.Has(eZorEdidField_CtaHdmi))
    {
        return;
    }
    if (uiBits < uiLeast)
    {
        const unsigned int uiField = oFields.GetMap().FindField(gsc_aeRgbDepths[0]);
        if (uiField != CZorEdidMap::msc_uiNone)
        {
            oFields.Note("the depths of the interface in DisplayID stay, which --set changes");
        }
        return;
    }
    const unsigned int uiDepths = ZorWrite::GetDepthsTo(uiBits) >> 1; // without 6 bits
    FollowDepths(oFields, gsc_aeRgbDepths, uiDepths);
    FollowDepths(oFields, gsc_ae444Depths, uiDepths);
    FollowDepths(oFields, gsc_ae422Depths, uiDepths);
}

// From CIE 1931 (x, y) to CIE 1976 (u', v').
CTexts ConvertTo1976(const CTexts& asNumbers)
{
    CTexts asConverted;
    for (size_t i = 0; i + 1 < asNumbers.size(); i += 2)
    {
        const double dX = strtod(asNumbers[i].c_str(), nullptr);
        const double dY = strtod(asNumbers[i + 1].c_str(), nullptr);
        const double dSum = 12 * dY - 2 * dX + 3;
        asConverted.push_back(FormatText("%.6f", 4 * dX / dSum));
        asConverted.push_back(FormatText("%.6f", 9 * dY / dSum));
    }
    return asConverted;
}

void FollowPoints(CFieldEdits& oFields, const CPlacesOfColors& aoPlaces, size_t uiPlaces, EZorEdidField e1976,
                  const CTexts& asNumbers)
{
    const CTexts asWritten = oFields.GetNumber(e1976) != 0 ? ConvertTo1976(asNumbers) : asNumbers;
    for (size_t i = 0; i < uiPlaces; ++i)
    {
        FollowField(oFields, { aoPlaces[i].m_eId, asWritten[i] }, aoPlaces[i].m_uiNumber);
    }
}
} // namespace

void FollowWhereGiven(CFieldEdits& oFields, const std::vector<CFieldEdits::SValue>& aoValues)
{
    for (const CFieldEdits::SValue& oValue : aoValues)
    {
        for (unsigned int i = 0; i < oFields.GetMap().CountFields(oValue.m_eId); ++i)
        {
            FollowField(oFields, oValue, i);
        }
    }
}

void FollowSerial(CFieldEdits& oFields, unsigned int uiSerial)
{
    FollowWhereGiven(oFields, { { eZorEdidField_DisplayidProductSerialNumber, FormatText("raw:%u", uiSerial) } });
}

// The overall depth, which dithering may raise, is not below that of the display, and stays the same where it was.
void FollowColorDepth(CFieldEdits& oFields, unsigned int uiBits)
{
    const std::string sDepth = uiBits != 0 ? FormatText("%u", uiBits) : "not defined";
    const long long llOverall = oFields.GetNumber(eZorEdidField_DisplayidParametersOverallBitDepth);
    if (llOverall < static_cast<long long>(uiBits) ||
        llOverall == oFields.GetNumber(eZorEdidField_DisplayidParametersNativeBitDepth))
    {
        FollowWhereGiven(oFields, { { eZorEdidField_DisplayidParametersOverallBitDepth, sDepth } });
    }
    FollowWhereGiven(oFields, { { eZorEdidField_DisplayidParametersNativeBitDepth, sDepth },
                                { eZorEdidField_DisplayidParameters2NativeBitDepth,
                                  uiBits != 0 ? sDepth + " bits per color" : sDepth } });
    FollowLinkDepths(oFields, uiBits);
}

// YCbCr 4:2:2 has room for 12 bits without a deep colour.
void FollowDeepColor(CFieldEdits& oFields, unsigned int uiDeepColor)
{
    const unsigned int uiDepths = gsc_uiDepth8 | ((uiDeepColor & 1) != 0 ? gsc_uiDepth10 : 0) |
                                  ((uiDeepColor & 2) != 0 ? gsc_uiDepth12 : 0) |
                                  ((uiDeepColor & 4) != 0 ? gsc_uiDepth16 : 0);
    FollowDepths(oFields, gsc_aeRgbDepths, uiDepths);
    FollowDepths(oFields, gsc_ae444Depths,
                 oFields.GetNumber(eZorEdidField_CtaHdmiDcY444) != 0 ? uiDepths : gsc_uiDepth8);
}

// Three bytes: letters in version 1, in version 2 an identifier of IEEE.
void FollowMaker(CFieldEdits& oFields, const std::string& sLetters)
{
    for (unsigned int i = 0; i < oFields.GetMap().CountFields(eZorEdidField_DisplayidProductVendor); ++i)
    {
        const unsigned int uiField = oFields.GetMap().FindField(eZorEdidField_DisplayidProductVendor, i);
        const unsigned char* pui8Old = oFields.GetMap().GetData() + oFields.GetMap().GetField(uiField).m_uiOffset;
        const bool bLetters =
            std::all_of(pui8Old, pui8Old + sLetters.size(), [](unsigned char ui8) { return ui8 >= 'A' && ui8 <= 'Z'; });
        const auto* pui8Letters = reinterpret_cast<const unsigned char*>(sLetters.data());
        const std::string sRaw = "raw:" + FormatHex(pui8Letters, sLetters.size());
        if (!bLetters || !oFields.Set(eZorEdidField_DisplayidProductVendor, sRaw, i).empty())
        {
            NoteStill(oFields, uiField, "it takes an identifier of IEEE, which --set changes");
        }
    }
}

void FollowDate(CFieldEdits& oFields, unsigned int uiWeek, unsigned int uiYear)
{
    for (unsigned int i = 0; i < oFields.GetMap().CountFields(eZorEdidField_DisplayidProductYear); ++i)
    {
        const unsigned int uiField = oFields.GetMap().FindField(eZorEdidField_DisplayidProductYear, i);
        const bool bHeld = uiYear >= ZorWrite::gsc_uiFirstDisplayIdYear;
        std::string sProblem = bHeld ? "" : FormatText("its first year is %u", ZorWrite::gsc_uiFirstDisplayIdYear);
        sProblem = sProblem.empty() ? oFields.Set(eZorEdidField_DisplayidProductWeek, FormatText("raw:%u", uiWeek), i)
                                    : sProblem;
        sProblem =
            sProblem.empty() ? oFields.Set(eZorEdidField_DisplayidProductYear, std::to_string(uiYear), i) : sProblem;
        if (!sProblem.empty())
        {
            NoteStill(oFields, uiField, sProblem);
        }
    }
}

void FollowAudio(CFieldEdits& oFields)
{
    for (unsigned int i = 0; i < oFields.GetMap().CountFields(eZorEdidField_DisplayidParametersAudioSupport); ++i)
    {
        FollowFlag(oFields, eZorEdidField_DisplayidParametersAudioSupport, i, true);
    }
}

// Of other numbers than three primaries nothing says which is red.
void FollowColors(CFieldEdits& oFields, const CTexts& asNumbers)
{
    constexpr unsigned int uiPrimaries = 3;
    FollowPoints(oFields, gsc_aoColors2, gsc_uiNumbers, eZorEdidField_DisplayidParameters2ColorInformation, asNumbers);
    if (oFields.GetMap().CountFields(eZorEdidField_DisplayidColorPrimary) == uiPrimaries)
    {
        const bool bWhite = oFields.Has(eZorEdidField_DisplayidColorWhitePoint);
        FollowPoints(oFields, gsc_aoColors1, bWhite ? gsc_uiNumbers : 2 * uiPrimaries,
                     eZorEdidField_DisplayidColorChromaticityCoordinates, asNumbers);
        return;
    }
    for (const EZorEdidField eId : { eZorEdidField_DisplayidColorStandardColorSpace, eZorEdidField_DisplayidColorX })
    {
        if (oFields.Has(eId))
        {
            const unsigned int uiField = oFields.GetMap().FindField(eId);
            NoteStill(oFields, uiField, NameField(oFields.GetMap(), uiField) + ", which --set changes");
        }
    }
}

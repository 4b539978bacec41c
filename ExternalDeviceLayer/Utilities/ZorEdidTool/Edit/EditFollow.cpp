#include "EditFollow.h"

#include <stdlib.h>

#include <array>

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

void NoteStill(CFieldEdits& oFields, unsigned int uiField, const std::string& sWhy)
{
    oFields.Note("DisplayID still says " + static_cast<std::string>(oFields.GetMap().GetValue(uiField)) + ": " + sWhy);
}

void FollowField(CFieldEdits& oFields, const CFieldEdits::SValue& oValue, unsigned int uiNumber)
{
    const CZorEdidMap& oMap = oFields.GetMap();
    const unsigned int uiField = oMap.FindField(oValue.m_eId, uiNumber);
    if (uiField == CZorEdidMap::msc_uiNone || oMap.GetField(uiField).m_llNumber == 0 ||
        oMap.GetValue(uiField) == "not given")
    {
        return;
    }
    if (const std::string sProblem = oFields.Set(oValue.m_eId, oValue.m_sValue, uiNumber); !sProblem.empty())
    {
        NoteStill(oFields, uiField, sProblem);
    }
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

// The overall depth is not below that of the display.
void FollowColorDepth(CFieldEdits& oFields, unsigned int uiBits)
{
    const std::string sDepth = uiBits != 0 ? FormatText("%u", uiBits) : "not defined";
    if (oFields.GetNumber(eZorEdidField_DisplayidParametersOverallBitDepth) < static_cast<long long>(uiBits))
    {
        FollowWhereGiven(oFields, { { eZorEdidField_DisplayidParametersOverallBitDepth, sDepth } });
    }
    FollowWhereGiven(oFields, { { eZorEdidField_DisplayidParametersNativeBitDepth, sDepth },
                                { eZorEdidField_DisplayidParameters2NativeBitDepth,
                                  uiBits != 0 ? sDepth + " bits per color" : sDepth } });
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

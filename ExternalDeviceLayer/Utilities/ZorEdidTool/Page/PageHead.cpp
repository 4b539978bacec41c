// The head of the page: what the monitor is, in words, and how large it is beside a sheet of paper.

#include <algorithm>
#include <math.h>
#include <span>

#include "MapText.h"
#include "PageParts.h"
#include "Standards/BaseBlock.h"
#include "Standards/Makers.h"
#include "TextFormat.h"

using namespace ZorStandards::BaseBlock;

namespace
{
constexpr double gsc_dMmPerInch = 25.4;
constexpr double gsc_dMmPerCm = 10;
constexpr double gsc_dPaperWidth = 210; // ISO 216 A4, millimetres
constexpr double gsc_dPaperHeight = 297;

constexpr unsigned int gsc_uiHighBit = 7;

struct SSize
{
    double m_dWidth = 0; // millimetres; 0 when the image says none
    double m_dHeight = 0;

    bool IsKnown() const { return m_dWidth > 0 && m_dHeight > 0; }
    double GetDiagonal() const { return sqrt(m_dWidth * m_dWidth + m_dHeight * m_dHeight); }
};

// Of the field with this id in the structure that the byte is in; 0 when there is none.
double GetMeasure(const SPageImage& oImage, unsigned int uiOffset, EZorEdidField eId)
{
    const CZorEdidMap::SField* poField = oImage.FindField(uiOffset, gsc_uiHighBit);
    return poField != nullptr ? std::max(GetNumberOf(oImage.m_oMap, poField->m_uiGroup, eId), 0.0) : 0;
}

// The whole centimetres of the base block, or the millimetres of the first timing where they say the same.
SSize FindSize(const SPageImage& oImage)
{
    const SSize oSize = {
        GetMeasure(oImage, gsc_uiImageWidthOffset, eZorEdidField_BaseDisplayScreenWidth) * gsc_dMmPerCm,
        GetMeasure(oImage, gsc_uiImageHeightOffset, eZorEdidField_BaseDisplayScreenHeight) * gsc_dMmPerCm
    };
    const SSize oFine = { GetMeasure(oImage, gsc_uiDescriptorsOffset, eZorEdidField_BaseDetailedImageWidth),
                          GetMeasure(oImage, gsc_uiDescriptorsOffset, eZorEdidField_BaseDetailedImageHeight) };
    const bool bClose = fabs(oFine.m_dWidth - oSize.m_dWidth) <= gsc_dMmPerCm &&
                        fabs(oFine.m_dHeight - oSize.m_dHeight) <= gsc_dMmPerCm;
    return oFine.IsKnown() && (bClose || !oSize.IsKnown()) ? oFine : oSize;
}

std::string DescribeSize(const SPageImage& oImage)
{
    const SSize oSize = FindSize(oImage);
    if (!oSize.IsKnown())
    {
        return "not given";
    }
    return FormatText("%.1f \u00D7 %.1f cm, diagonal %.1f cm (%.1f in)", oSize.m_dWidth / gsc_dMmPerCm,
                      oSize.m_dHeight / gsc_dMmPerCm, oSize.GetDiagonal() / gsc_dMmPerCm,
                      oSize.GetDiagonal() / gsc_dMmPerInch);
}

// ---- Words ----

// Nothing comes twice.
void Append(std::string& sList, const std::string& sNext, const char* pszBetween = ", ")
{
    const bool bPresent = (pszBetween + sList + pszBetween).find(pszBetween + sNext + pszBetween) != std::string::npos;
    if (!sNext.empty() && !bPresent)
    {
        sList += (sList.empty() ? "" : pszBetween) + sNext;
    }
}

std::string DescribeMaker(const SPageImage& oImage)
{
    const std::string sMaker = oImage.GetValueAt(gsc_uiManufacturerOffset, gsc_uiHighBit - 1);
    const char* pszName = ZorStandards::FindMakerName(sMaker.c_str());
    return pszName == nullptr ? sMaker : std::string(pszName) + " (" + sMaker + ")";
}

std::string DescribeProduct(const SPageImage& oImage)
{
    const std::string sProduct = oImage.GetValueAt(gsc_uiProductOffset, gsc_uiHighBit);
    const std::string sSerial = oImage.GetValueAt(gsc_uiSerialOffset, gsc_uiHighBit);
    return (sProduct.empty() ? "" : "product " + sProduct) + (sSerial.empty() ? "" : ", serial " + sSerial);
}

std::string DescribeDate(const SPageImage& oImage)
{
    constexpr double dLastWeek = 54;
    const CZorEdidMap::SField* poYear = oImage.FindField(gsc_uiYearOffset, gsc_uiHighBit);
    if (poYear == nullptr)
    {
        return "";
    }
    const double dWeek = oImage.GetNumberAt(gsc_uiWeekOffset, gsc_uiHighBit);
    const std::string sText = oImage.GetValueAt(gsc_uiYearOffset, gsc_uiHighBit);
    if (poYear->m_eId == eZorEdidField_BaseIdentityModelYear)
    {
        return sText + " (model year)";
    }
    return dWeek == 0 || dWeek > dLastWeek ? sText : sText + FormatText(", week %.0f", dWeek);
}

std::string DescribePreferredMode(const SPageImage& oImage)
{
    const SImageMode* poPreferred = FindPreferred(oImage.m_aoModes);
    return poPreferred != nullptr ? DescribeMode(*poPreferred) : "";
}

// The pixels of the display parameters of DisplayID; empty when they are not given.
std::string DescribePixels(const SPageImage& oImage, unsigned int uiGroup)
{
    const double dWidth = GetNumberOf(oImage.m_oMap, uiGroup, eZorEdidField_DisplayidParametersHorizontalPixels);
    const double dHeight = GetNumberOf(oImage.m_oMap, uiGroup, eZorEdidField_DisplayidParametersVerticalPixels);
    return dWidth > 0 && dHeight > 0 ? FormatText("%.0f \u00D7 %.0f pixels (DisplayID)", dWidth, dHeight) : "";
}

// What the image itself calls native.
std::string DescribeNativeModes(const SPageImage& oImage)
{
    std::string sText;
    for (unsigned int i = 0; i < oImage.m_uiAnnounced; ++i)
    {
        const CZorEdidMap::SField& oField = oImage.m_oMap.GetField(i);
        const bool bSet = oField.m_eKind == CZorEdidMap::eKind_Flag && oField.m_llNumber != 0;
        if (bSet && oField.m_eId == eZorEdidField_BaseDisplayPreferredIsNative)
        {
            Append(sText, DescribePreferredMode(oImage));
        }
        if (bSet && oField.m_eId == eZorEdidField_CtaVideoNative)
        {
            Append(sText, oImage.m_oMap.GetField(i + 1).m_pszMeaning); // of the code, whose bits are the next ones
        }
        const bool bParameters =
            oField.m_eId == eZorEdidField_DisplayidParameters || oField.m_eId == eZorEdidField_DisplayidParameters2;
        if (oField.m_eKind == CZorEdidMap::eKind_Group && bParameters)
        {
            Append(sText, DescribePixels(oImage, i));
        }
    }
    return sText.empty() ? "not given" : sText;
}

// Digital or analogue, then the standard and the depth where revision 1.4 names them, then what extensions add.
std::string DescribeInterface(const SPageImage& oImage)
{
    const bool bPresent = oImage.FindField(gsc_uiVideoInputOffset, gsc_uiHighBit) != nullptr; // not cut off
    const bool bDigital = oImage.GetNumberAt(gsc_uiVideoInputOffset, gsc_uiHighBit) != 0;
    std::string sText = bDigital ? "digital" : bPresent ? "analogue" : "";
    for (const ZorStandards::SBitsPlace& oBits : { gsc_oColorDepth, gsc_oInterface })
    {
        const CZorEdidMap::SField* poField = oImage.FindField(oBits.m_ui8Offset, oBits.m_ui8Low);
        const bool bNamed = poField != nullptr && poField->m_eKind == CZorEdidMap::eKind_Name &&
                            poField->m_pszMeaning != nullptr && poField->m_llNumber != 0;
        const char* pszUnit = oBits.m_ui8Low == gsc_oColorDepth.m_ui8Low ? " a colour" : "";
        Append(sText, bDigital && bNamed ? std::string(poField->m_pszMeaning) + pszUnit : "");
    }
    const CZorEdidMap::SField* poInterface = oImage.FindField(gsc_oInterface.m_ui8Offset, gsc_oInterface.m_ui8Low);
    if (poInterface != nullptr && poInterface->m_eId == eZorEdidField_BaseDisplayInterface &&
        (poInterface->m_llNumber == CEdidBase::eDigitalInterfaceHdmiA ||
         poInterface->m_llNumber == CEdidBase::eDigitalInterfaceHdmiB))
    {
        return sText; // says HDMI already
    }
    std::string sHdmi;
    for (unsigned int i = 0; i < oImage.m_uiAnnounced; ++i)
    {
        const CZorEdidMap::SField& oField = oImage.m_oMap.GetField(i);
        if (oField.m_eId == eZorEdidField_CtaHdmiForum || oField.m_eId == eZorEdidField_CtaHdmiForumSink)
        {
            sHdmi = "HDMI 2.0 or later";
        }
        else if (sHdmi.empty() && oField.m_eId == eZorEdidField_CtaHdmi)
        {
            sHdmi = "HDMI"; // all versions have this block
        }
    }
    Append(sText, sHdmi);
    return sText;
}

// The colour spaces that the images of a source may use.
std::string DescribeColorimetry(const SPageImage& oImage)
{
    const CZorEdidMap& oMap = oImage.m_oMap;
    std::string sText;
    unsigned int uiEnd = 0; // of the data block
    for (unsigned int i = 0; i < oImage.m_uiAnnounced; ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        if (oField.m_eKind == CZorEdidMap::eKind_Group && oField.m_eId == eZorEdidField_CtaColorimetry)
        {
            uiEnd = oField.m_uiEnd;
        }
        if (i < uiEnd && oField.m_eKind == CZorEdidMap::eKind_Flag && oField.m_llNumber != 0 &&
            oField.m_eId != eZorEdidField_CtaColorimetryGamutMetadataP0)
        {
            Append(sText, oField.m_pszName);
        }
    }
    return sText;
}

std::string DescribeBlocks(const SPageImage& oImage)
{
    std::string sText;
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); i = oImage.m_oMap.GetField(i).m_uiEnd)
    {
        sText += (sText.empty() ? "" : ", ") + std::string(oImage.m_oMap.GetField(i).m_pszName);
    }
    return FormatText("%u bytes: ", oImage.m_oMap.GetSize()) + sText;
}

// A field, and the words around its number; a flag and a group have the first words only.
struct SPhrase
{
    EZorEdidField m_eField;
    const char* m_pszAhead;
    const char* m_pszBehind;
};

constexpr SPhrase gsc_aoHdrKinds[] = {
    { eZorEdidField_CtaHdrStaticSmpteSt2084, "PQ (SMPTE ST 2084)", "" },
    { eZorEdidField_CtaHdrStaticHlg, "Hybrid Log-Gamma", "" },
    { eZorEdidField_CtaHdrStaticTraditionalGammaHdr, "traditional gamma over the HDR range", "" },
    { eZorEdidField_CtaHdr10Plus, "HDR10+", "" },
    { eZorEdidField_CtaDolbyVision, "Dolby Vision", "" },
};
constexpr SPhrase gsc_aoHdrLuminances[] = {
    { eZorEdidField_CtaHdrStaticMaxLuminance, "up to ", " cd/m\u00B2" },
    { eZorEdidField_CtaHdrStaticMaxFrameAverageLuminance, "", " cd/m\u00B2 over a whole frame" },
    { eZorEdidField_CtaHdrStaticMinLuminance, "down to ", " cd/m\u00B2" },
};

// No more digits than the code of a luminance is good for.
std::string FormatLuminance(double dLuminance)
{
    return FormatText("%.*f", dLuminance >= 10 ? 0 : dLuminance >= 0.01 ? 2 : 4, dLuminance);
}

void AppendPhrases(const SPageImage& oImage, std::span<const SPhrase> aoPhrases, std::string& sText)
{
    for (const SPhrase& oPhrase : aoPhrases)
    {
        for (unsigned int i = 0; i < oImage.m_uiAnnounced; ++i)
        {
            const CZorEdidMap::SField& oField = oImage.m_oMap.GetField(i);
            const bool bNumber = oField.m_eKind == CZorEdidMap::eKind_Number;
            if (oPhrase.m_eField == oField.m_eId &&
                (oField.m_eKind == CZorEdidMap::eKind_Group || oField.m_llNumber != 0))
            {
                const std::string sNumber = bNumber ? FormatLuminance(GetFieldNumber(oField)) : "";
                Append(sText, oPhrase.m_pszAhead + sNumber + oPhrase.m_pszBehind);
                break;
            }
        }
    }
}

// Luminances of a display without HDR do not belong under HDR.
std::string DescribeHdr(const SPageImage& oImage)
{
    std::string sText;
    AppendPhrases(oImage, gsc_aoHdrKinds, sText);
    if (sText.empty())
    {
        return oImage.m_sProblem.empty() ? "none announced" : "";
    }
    AppendPhrases(oImage, gsc_aoHdrLuminances, sText);
    return sText;
}

std::string DescribeColourWords(const SPageImage& oImage)
{
    std::string sText = DescribeColours(oImage);
    const double dGamma = oImage.GetNumberAt(gsc_uiGammaOffset, gsc_uiHighBit);
    Append(sText, dGamma > 0 ? FormatText("gamma %.2f", dGamma) : "");
    Append(sText, DescribeColorimetry(oImage));
    return sText;
}

struct SFact
{
    const char* m_pszName;
    std::string (*m_pfnDescribe)(const SPageImage&);
};

constexpr SFact gsc_aoFacts[] = {
    { "Maker", DescribeMaker },
    { "Product", DescribeProduct },
    { "Made", DescribeDate },
    { "Size", DescribeSize },
    { "Preferred mode", DescribePreferredMode },
    { "Native mode", DescribeNativeModes },
    { "Interface", DescribeInterface },
    { "Colour", DescribeColourWords },
    { "HDR", DescribeHdr },
    { "Image", DescribeBlocks },
};

CHtml MakeFacts(const SPageImage& oImage)
{
    CHtml oHtml;
    oHtml << "<dl class=\"facts\">\n";
    for (const SFact& oFact : gsc_aoFacts)
    {
        const std::string sValue = oFact.m_pfnDescribe(oImage);
        if (!sValue.empty())
        {
            oHtml << "<div><dt>" << SText{ oFact.m_pszName } << "</dt><dd>" << SText{ sValue } << "</dd></div>\n";
        }
    }
    if (!oImage.m_sProblem.empty())
    {
        oHtml << "<div><dt>Library</dt><dd>refuses the image: " << SText{ oImage.m_sProblem } << "</dd></div>\n";
    }
    return oHtml << "</dl>\n";
}

// ---- Size to scale ----

// The picture is in millimetres. Texts keep their size on the page, whatever the monitor's.
class CSizePicture
{
public:
    explicit CSizePicture(const SPage& oPage)
    {
        for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
        {
            const SSize oSize = FindSize(*oPage.m_apoImages[i]);
            if (oSize.IsKnown())
            {
                m_aoSizes.push_back({ oSize, oPage.GetMark(i) });
                m_dWidth = std::max(m_dWidth, oSize.m_dWidth);
                m_dHeight = std::max(m_dHeight, oSize.m_dHeight);
            }
        }
        m_dText = (m_dWidth + gsc_dPaperWidth) / 26;
    }

    CHtml Make() const
    {
        CHtml oHtml;
        if (m_aoSizes.empty())
        {
            return oHtml;
        }
        const double dPaperLeft = m_dWidth + 2 * m_dText;
        oHtml << "<figure class=\"size\">\n<svg role=\"img\" aria-labelledby=\"size-title size-desc\" viewBox=\"-2 -2 "
              << SDecimal{ dPaperLeft + gsc_dPaperWidth + 4, 1 } << " " << SDecimal{ m_dHeight + 4, 1 }
              << "\"><title id=\"size-title\">Size to scale</title><desc id=\"size-desc\">";
        Describe(oHtml);
        oHtml << "</desc>\n";
        for (const SMarkedSize& oSize : m_aoSizes)
        {
            Draw(oHtml, oSize);
        }
        DrawBox(oHtml << "<g class=\"paper\">", dPaperLeft, gsc_dPaperWidth, gsc_dPaperHeight);
        DrawText(oHtml, dPaperLeft + gsc_dPaperWidth / 2, m_dHeight - gsc_dPaperHeight / 2, "A4");
        oHtml << "</g>\n</svg>\n<figcaption>To scale, beside a sheet of A4 paper: ";
        for (size_t i = 0; i < m_aoSizes.size(); ++i)
        {
            const SSize& oSize = m_aoSizes[i].m_oSize;
            oHtml << SText{ i == 0 ? "" : "; " } << SText{ m_aoSizes[i].m_pszMark }
                  << SText{ *m_aoSizes[i].m_pszMark == '\0' ? "" : " " }
                  << SText{ FormatText("%.0f \u00D7 %.0f mm, %.1f in", oSize.m_dWidth, oSize.m_dHeight,
                                       oSize.GetDiagonal() / gsc_dMmPerInch) };
        }
        return oHtml << ".</figcaption>\n</figure>\n";
    }

private:
    struct SMarkedSize
    {
        SSize m_oSize;
        const char* m_pszMark;
    };

    void Describe(CHtml& oHtml) const
    {
        for (const SMarkedSize& oMarked : m_aoSizes)
        {
            oHtml << "Monitor " << SText{ oMarked.m_pszMark } << " " << SDecimal{ oMarked.m_oSize.m_dWidth, 0 }
                  << " by " << SDecimal{ oMarked.m_oSize.m_dHeight, 0 } << " mm. ";
        }
        oHtml << "Paper 210 by 297 mm.";
    }

    // Both rest on the bottom line.
    void DrawBox(CHtml& oHtml, double dLeft, double dWidth, double dHeight) const
    {
        oHtml << "<rect x=\"" << SDecimal{ dLeft, 1 } << "\" y=\"" << SDecimal{ m_dHeight - dHeight, 1 }
              << "\" width=\"" << SDecimal{ dWidth, 1 } << "\" height=\"" << SDecimal{ dHeight, 1 } << "\" rx=\"3\"/>";
    }

    void DrawText(CHtml& oHtml, double dX, double dY, const std::string& sText) const
    {
        oHtml << "<text x=\"" << SDecimal{ dX, 1 } << "\" y=\"" << SDecimal{ dY, 1 } << "\" font-size=\""
              << SDecimal{ m_dText, 1 } << "\" text-anchor=\"middle\" dominant-baseline=\"middle\">" << SText{ sText }
              << "</text>";
    }

    void Draw(CHtml& oHtml, const SMarkedSize& oMarked) const
    {
        const SSize& oSize = oMarked.m_oSize;
        const double dTop = m_dHeight - oSize.m_dHeight;
        const bool bSecond = *oMarked.m_pszMark == 'B';
        oHtml << "<g class=\"screen" << SText{ bSecond ? " second" : "" } << "\">";
        DrawBox(oHtml, 0, oSize.m_dWidth, oSize.m_dHeight);
        oHtml << "<path d=\"M0 " << SDecimal{ m_dHeight, 1 } << "L" << SDecimal{ oSize.m_dWidth, 1 } << " "
              << SDecimal{ dTop, 1 } << "\"/>";
        // In a corner that the diagonals do not cross.
        DrawText(oHtml, bSecond ? oSize.m_dWidth - m_dText : m_dText, bSecond ? m_dHeight - m_dText : dTop + m_dText,
                 oMarked.m_pszMark);
        oHtml << "</g>\n";
    }

    std::vector<SMarkedSize> m_aoSizes;
    double m_dWidth = 0;
    double m_dHeight = gsc_dPaperHeight;
    double m_dText = 0;
};
} // namespace

CHtml MakeHead(const SPage& oPage)
{
    CHtml oHtml;
    oHtml << "<div class=\"head\">\n";
    for (size_t i = 0; i < oPage.m_apoImages.size(); ++i)
    {
        oHtml << "<div class=\"monitor\">\n";
        if (oPage.IsPair())
        {
            oHtml << "<h3>" << SText{ oPage.GetMark(i) } << ": " << SText{ oPage.m_apoImages[i]->m_sTitle }
                  << "</h3>\n";
        }
        oHtml << MakeFacts(*oPage.m_apoImages[i]) << "</div>\n";
    }
    return oHtml << CSizePicture(oPage).Make() << "</div>\n";
}

std::string DescribeMode(const SImageMode& oMode)
{
    const CVidParamTimingGeneric& oTiming = oMode.m_oTiming;
    const bool bInterlaced = oTiming.IsInterlaced() != 0;
    return FormatText("%u \u00D7 %u%s at %s Hz%s", oTiming.GetHorizontalActive(), oTiming.GetVerticalActive(),
                      bInterlaced ? "i" : "", GetRateText(oMode).c_str(), bInterlaced ? " (fields)" : "");
}

std::string FormatRate(double dRate)
{
    CHtml oText; // which has no text but the number
    oText << SDecimal{ dRate, 2 };
    return oText.Get();
}

double GetFieldRate(const CVidParamTimingGeneric& oTiming)
{
    const double dTotal = static_cast<double>(oTiming.ComputeHorizontalTotalPixel()) * GetVerticalTotal(oTiming);
    const double dFields = oTiming.IsInterlaced() != 0 ? 2 : 1;
    return dTotal == 0 ? 0 : dFields * oTiming.GetPixelClockInHz() / dTotal;
}

double GetRate(const SImageMode& oMode)
{
    return oMode.m_bTiming ? GetFieldRate(oMode.m_oTiming) : oMode.m_uiRate / 100.0;
}

std::string GetRateText(const SImageMode& oMode)
{
    return oMode.m_bTiming ? FormatRate(GetRate(oMode)) : GetBareRateText(oMode);
}

// Reading modes out of the map.

#include "FieldModes.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <stdlib.h>

#include "MapText.h"
#include "Standards/BaseBlock.h"
#include "VidParamCea.h"
#include "VidParamDmt.h"

namespace
{
using CField = CZorEdidMap::SField;
using CTimings = std::vector<CVidParamTimingGeneric>;

constexpr std::string_view gsc_sShortVideo = "Short video descriptor";
constexpr std::string_view gsc_sDetailed = "Detailed timing";
constexpr std::string_view gsc_sStandard = "Standard timing";
constexpr std::string_view gsc_sCvtCode = "CVT 3 byte timing code";
constexpr std::string_view gsc_sType1 = "Type I timing";
constexpr std::string_view gsc_sType2 = "Type II timing";
constexpr std::string_view gsc_sType3 = "Type III timing";
constexpr std::string_view gsc_sType5 = "Type V timing";
constexpr std::string_view gsc_sType6 = "Type VI timing";
constexpr std::string_view gsc_sType7 = "Type VII timing";
constexpr std::string_view gsc_sType9 = "Type IX timing";
constexpr std::string_view gsc_sType10 = "Type X timing";
constexpr std::string_view gsc_sVideoCode = "Video identification code";
constexpr std::string_view gsc_sHdmiVic = "HDMI_VIC";
constexpr std::string_view gsc_sDmtCode = "DMT ID";
constexpr std::string_view gsc_sVicCode = "VIC";
constexpr std::string_view gsc_sHdmiVicCode = "HDMI VIC";
constexpr std::string_view gsc_sY420Block = "YCbCr 4:2:0 video data block";
constexpr std::string_view gsc_sY420Map = "YCbCr 4:2:0 capability map data block";

// ---- Numbers of a mode written out ----

constexpr std::string_view gsc_sPreferred = "Preferred timing";
constexpr std::string_view gsc_sClock = "Pixel clock";
constexpr std::string_view gsc_sActiveX = "Horizontal active image";
constexpr std::string_view gsc_sBlankX = "Horizontal blank";
constexpr std::string_view gsc_sFrontX = "Horizontal front porch";
constexpr std::string_view gsc_sSyncX = "Horizontal sync width";
constexpr std::string_view gsc_sSignX = "Horizontal sync polarity";
constexpr std::string_view gsc_sActiveY = "Vertical active image";
constexpr std::string_view gsc_sBlankY = "Vertical blank";
constexpr std::string_view gsc_sFrontY = "Vertical front porch";
constexpr std::string_view gsc_sSyncY = "Vertical sync width";
constexpr std::string_view gsc_sSignY = "Vertical sync polarity";

constexpr std::string_view gsc_sNative = "Native";

// Groups whose summary is a mode. The numbers of those of the second list stand in their fields.
constexpr std::string_view gsc_asModes[] = { gsc_sShortVideo, gsc_sDetailed, gsc_sStandard, gsc_sCvtCode,
                                             gsc_sType3,      gsc_sType5,    gsc_sType9,    gsc_sType10 };
constexpr std::string_view gsc_asWrittenOut[] = { gsc_sType1, gsc_sType2, gsc_sType6, gsc_sType7 };
// Leaves whose value is one.
constexpr std::string_view gsc_asCodes[] = { gsc_sHdmiVic, gsc_sDmtCode, gsc_sVicCode, gsc_sHdmiVicCode };

// Blocks whose modes are in YCbCr 4:2:0.
constexpr std::string_view gsc_asY420Blocks[] = { gsc_sY420Block, gsc_sY420Map };

// "Video code 97, 3840x2160p ...": a bit of the capability map says that this code comes in YCbCr 4:2:0, too.
constexpr std::string_view gsc_sCodeBit = "Video code ";

// The video codes that HDMI_VIC 1 to 4 are other names of.
constexpr unsigned int gsc_auiHdmiVics[] = { 95, 94, 93, 98 };

bool IsOneOf(std::string_view sName, auto& asNames)
{
    return std::find(std::begin(asNames), std::end(asNames), sName) != std::end(asNames);
}

// ---- Texts ----

// What stands in "1024 x 768i @ 87 Hz", "720(1440)x480i 59.94/60 Hz 4:3" and their kin.
struct SModeText
{
    unsigned int m_uiWidth;
    unsigned int m_uiHeight;
    bool m_bInterlaced;
    std::string m_sRate; // "87", "59.94/60"
};

unsigned int TakeNumber(std::string_view& sText)
{
    const size_t uiEnd = std::min(sText.find_first_not_of("0123456789"), sText.size());
    const unsigned long ulNumber = strtoul(std::string(sText.substr(0, uiEnd)).c_str(), nullptr, 10);
    sText.remove_prefix(uiEnd);
    return static_cast<unsigned int>(ulNumber);
}

std::optional<SModeText> ReadModeText(std::string_view sText)
{
    SModeText oMode = {};
    oMode.m_uiWidth = TakeNumber(sText);
    const size_t uiBy = sText.find('x'); // the sent width may stand ahead of it, in brackets
    if (uiBy == std::string_view::npos)
    {
        return std::nullopt;
    }
    sText.remove_prefix(std::min(sText.find_first_not_of(' ', uiBy + 1), sText.size()));
    oMode.m_uiHeight = TakeNumber(sText);
    oMode.m_bInterlaced = sText.starts_with('i');
    const size_t uiRate = sText.find_first_of("0123456789");
    const size_t uiEnd = sText.find(" Hz");
    if (oMode.m_uiWidth == 0 || oMode.m_uiHeight == 0 || uiEnd == std::string_view::npos || uiRate > uiEnd)
    {
        return std::nullopt;
    }
    oMode.m_sRate = sText.substr(uiRate, uiEnd - uiRate);
    return oMode;
}

// The mode that a field stands for, in the map's words; empty for another field.
std::string GetModeText(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CField& oField = oMap.GetField(uiField);
    const std::string_view sName = oField.m_pszName;
    if (oField.m_eKind == CZorEdidMap::eKind_Flag)
    {
        const std::string_view sMode =
            sName.starts_with(gsc_sCodeBit) ? sName.substr(sName.find(' ', gsc_sCodeBit.size()) + 1) : sName;
        const bool bMode = sMode.find(" Hz") != std::string_view::npos && ReadModeText(sMode).has_value();
        return bMode && oField.m_llNumber != 0 ? std::string(sMode) : "";
    }
    const bool bGroup = oField.m_eKind == CZorEdidMap::eKind_Group;
    if (!(bGroup ? IsOneOf(sName, gsc_asModes) || IsOneOf(sName, gsc_asWrittenOut) : IsOneOf(sName, gsc_asCodes)))
    {
        return "";
    }
    std::string sText = static_cast<const char*>(oMap.GetValue(uiField));
    if (!bGroup)
    {
        sText.erase(0, sText.find(", ") + 2); // "16, 1920x1080p ...": the code stands ahead
    }
    return sText.find("Hz") == std::string::npos ? "" : sText.substr(0, sText.find(", native"));
}

// ---- Numbers ----

// The number of the first field of this name in a group; -1 when there is none.
double GetNumberOf(const CZorEdidMap& oMap, unsigned int uiGroup, std::string_view sName)
{
    for (unsigned int i = uiGroup; i < oMap.GetField(uiGroup).m_uiEnd; ++i)
    {
        if (sName == oMap.GetField(i).m_pszName)
        {
            return GetFieldNumber(oMap.GetField(i));
        }
    }
    return -1;
}

// A timing of DisplayID that is written out. Without those of an interlaced one: what its lines count is read in two
// ways.
CTimings ReadWrittenOut(const CZorEdidMap& oMap, unsigned int uiGroup, const SModeText& oMode)
{
    constexpr double dHzPerKiloHz = 1000;
    const auto fnGet = [&](std::string_view sName) {
        return static_cast<unsigned int>(std::max(GetNumberOf(oMap, uiGroup, sName), 0.0));
    };
    const double dClock = GetNumberOf(oMap, uiGroup, gsc_sClock) * dHzPerKiloHz;
    if (oMode.m_bInterlaced || dClock <= 0 || dClock > std::numeric_limits<unsigned int>::max())
    {
        return {};
    }
    CVidParamTimingGeneric oTiming;
    oTiming.SetPixelClockInHz(static_cast<unsigned int>(dClock));
    oTiming.SetHorizontalActive(fnGet(gsc_sActiveX));
    oTiming.SetHorizontalFrontPorch(fnGet(gsc_sFrontX));
    oTiming.SetHorizontalSync(fnGet(gsc_sSyncX));
    oTiming.SetHorizontalBackPorch(fnGet(gsc_sBlankX) - fnGet(gsc_sFrontX) - fnGet(gsc_sSyncX)); // may wrap, as theirs
    oTiming.SetHorizontalPolarityPositive(static_cast<int>(fnGet(gsc_sSignX)));
    oTiming.SetVerticalActive(fnGet(gsc_sActiveY));
    oTiming.SetVerticalFrontPorch(fnGet(gsc_sFrontY));
    oTiming.SetVerticalSync(fnGet(gsc_sSyncY));
    oTiming.SetVerticalBackPorch(fnGet(gsc_sBlankY) - fnGet(gsc_sFrontY) - fnGet(gsc_sSyncY));
    oTiming.SetVerticalPolarityPositive(static_cast<int>(fnGet(gsc_sSignY)));
    oTiming.SetHorizontalRateInHz(oTiming.ComputeHorizontalRateInHz());
    oTiming.SetVerticalRateInHz(oTiming.ComputeVerticalRateInHz());
    oTiming.SetVideoFamilyType(CVidParamTiming::eVidParamType_Detailed);
    return { oTiming };
}

// A code, and behind it its 1000/1001 variant where the mode has two rates; none where the library has no numbers.
CTimings FindCode(unsigned int uiCode, const SModeText& oMode)
{
    CTimings aoTimings;
    for (const unsigned int uiKey : { uiCode, uiCode + CVidParamCea::msc_uiVariantKey })
    {
        CVidParamTimingGeneric oTiming;
        const bool bAnnounced = uiKey == uiCode || oMode.m_sRate.find('/') != std::string::npos;
        if (bAnnounced && CVidParamCea::IsVicSupported(uiKey) != 0 &&
            CVidParamCea::GetVidParamFromVic(uiKey, &oTiming) != 0)
        {
            aoTimings.push_back(oTiming);
        }
    }
    return aoTimings;
}

CTimings FindDmt(const SModeText& oMode, std::string_view sText)
{
    const bool bReduced =
        sText.find("reduced blanking") != std::string_view::npos || sText.find("Hz RB") != std::string_view::npos;
    const bool bWhole = oMode.m_sRate.find_first_not_of("0123456789") == std::string::npos;
    CVidParamTimingGeneric oTiming;
    const bool bFound = bWhole && !oMode.m_bInterlaced &&
                        CVidParamDmt::GetVidParam(
                            0, &oTiming, oMode.m_uiWidth, oMode.m_uiHeight,
                            static_cast<unsigned int>(strtoul(oMode.m_sRate.c_str(), nullptr, 10)),
                            bReduced ? CVidParamDmt::eModeListReducedBlanking : CVidParamDmt::eModeListStandard) != 0;
    return bFound ? CTimings{ oTiming } : CTimings{};
}

class CModeReader
{
public:
    CModeReader(const CZorEdidMap& oMap, const CEdidBase& oBase) : m_oMap(oMap), m_oBase(oBase) {}

    // The timings of a field with a mode, with all numbers; none where there are only its size and rate.
    CTimings Read(unsigned int uiField, const SModeText& oMode, const std::string& sText) const
    {
        const CField& oField = m_oMap.GetField(uiField);
        const std::string_view sName = oField.m_pszName;
        if (IsOneOf(sName, gsc_asWrittenOut))
        {
            return ReadWrittenOut(m_oMap, uiField, oMode);
        }
        if (sName == gsc_sDetailed || sName == gsc_sStandard)
        {
            return ReadRecord(oField);
        }
        if (sName == gsc_sShortVideo)
        {
            return FindCode(static_cast<unsigned int>(GetNumberOf(m_oMap, uiField, gsc_sVideoCode)), oMode);
        }
        if (sName.starts_with(gsc_sCodeBit))
        {
            std::string_view sCode = sName.substr(gsc_sCodeBit.size());
            return FindCode(TakeNumber(sCode), oMode);
        }
        if (sName == gsc_sVicCode || sName == gsc_sHdmiVic || sName == gsc_sHdmiVicCode)
        {
            return FindCode(GetVideoCode(oField), oMode);
        }
        constexpr unsigned int uiEstablishedBytes = 3;
        const unsigned int uiByte = oField.m_uiOffset - ZorStandards::BaseBlock::gsc_uiEstablishedOffset; // may wrap
        if (oField.m_eKind == CZorEdidMap::eKind_Flag && uiByte < uiEstablishedBytes)
        {
            return ReadEstablished(oField, uiByte);
        }
        const bool bDmt = sName == gsc_sDmtCode || oField.m_eKind == CZorEdidMap::eKind_Flag;
        return bDmt ? FindDmt(oMode, sText) : CTimings{};
    }

private:
    static unsigned int GetVideoCode(const CField& oField)
    {
        const size_t uiCode = static_cast<size_t>(oField.m_llNumber);
        if (oField.m_pszName == gsc_sVicCode)
        {
            return static_cast<unsigned int>(uiCode);
        }
        return uiCode >= 1 && uiCode <= std::size(gsc_auiHdmiVics) ? gsc_auiHdmiVics[uiCode - 1] : 0;
    }

    CTimings ReadRecord(const CField& oField) const
    {
        const unsigned char* pui8Bytes = m_oMap.GetData() + oField.m_uiOffset;
        CVidParamTimingGeneric oTiming;
        int iRead = 0;
        if (oField.m_uiLength == sizeof(CEdidUtils::SEdidDetailedRaw))
        {
            iRead = CEdidUtils::ConvertDetailedDescriptorToVidParam(
                *reinterpret_cast<const CEdidUtils::SEdidDetailedRaw*>(pui8Bytes), &oTiming);
        }
        else if (oField.m_uiLength == sizeof(CEdidBase::SStandard))
        {
            iRead = m_oBase.GetStandardTiming(reinterpret_cast<const CEdidBase::SStandard*>(pui8Bytes), &oTiming);
        }
        return iRead != 0 ? CTimings{ oTiming } : CTimings{};
    }

    CTimings ReadEstablished(const CField& oField, unsigned int uiByte) const
    {
        constexpr unsigned int uiBitsPerByte = 8;
        const unsigned int uiMask = m_oMap.GetPiece(oField.m_uiFirstPiece).m_ui8Mask;
        CVidParamTimingGeneric oTiming;
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(uiMask << uiByte * uiBitsPerByte);
        const int iRead = m_oBase.GetEstablishedFromId(eId, &oTiming, 0);
        return iRead != 0 ? CTimings{ oTiming } : CTimings{};
    }

    const CZorEdidMap& m_oMap;
    const CEdidBase& m_oBase;
};

bool IsSet(const CZorEdidMap& oMap, unsigned int uiGroup, std::string_view sName)
{
    return oMap.GetField(uiGroup).m_eKind == CZorEdidMap::eKind_Group && GetNumberOf(oMap, uiGroup, sName) > 0;
}

// A mode of which the image gives size and rate only.
CVidParamTimingGeneric MakeBareTiming(const SModeText& oMode)
{
    CVidParamTimingGeneric oTiming;
    oTiming.SetHorizontalActive(oMode.m_uiWidth);
    oTiming.SetVerticalActive(oMode.m_uiHeight);
    oTiming.SetInterlaced(oMode.m_bInterlaced ? 1 : 0);
    return oTiming;
}
} // namespace

CFieldModes::CFieldModes(const CZorEdidMap& oMap) : m_oMap(oMap)
{
    constexpr std::array<unsigned char, 8> aui8Header = { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00 };
    if (oMap.GetSize() >= CEdidUtils::msc_uiBlockSize)
    {
        std::vector<unsigned char> aui8Base(oMap.GetData(), oMap.GetData() + CEdidUtils::msc_uiBlockSize);
        std::ranges::copy(aui8Header, aui8Base.begin());
        m_oBase.SetEdidBuffer(aui8Base.data(), CEdidUtils::msc_uiBlockSize, 0);
    }
}

std::vector<SFieldMode> CFieldModes::Read(unsigned int uiField) const
{
    const CField& oField = m_oMap.GetField(uiField);
    const std::string sText = GetModeText(m_oMap, uiField);
    const std::optional<SModeText> oMode = ReadModeText(sText);
    if (!oMode.has_value())
    {
        return {};
    }
    CTimings aoTimings = CModeReader(m_oMap, m_oBase).Read(uiField, *oMode, sText);
    const bool bBare = aoTimings.empty();
    if (bBare)
    {
        aoTimings.push_back(MakeBareTiming(*oMode));
    }
    const std::vector<unsigned int> auiChain = GetChain(m_oMap, uiField);
    const bool b420 = std::ranges::any_of(
        auiChain, [&](unsigned int uiUp) { return IsOneOf(m_oMap.GetField(uiUp).m_pszName, gsc_asY420Blocks); });
    std::vector<SFieldMode> aoModes;
    for (CVidParamTimingGeneric& oTiming : aoTimings)
    {
        oTiming.Set420ColorSpace(b420 ? 1 : 0);
        aoModes.push_back({ oTiming, bBare ? oMode->m_sRate : "", sText, IsSet(m_oMap, uiField, gsc_sNative),
                            oField.m_pszName == gsc_sDetailed &&
                                oField.m_uiOffset == ZorStandards::BaseBlock::gsc_uiDescriptorsOffset &&
                                ZorStandards::BaseBlock::IsPreferredTimingDeclared(m_oMap.GetData()) });
    }
    return aoModes;
}

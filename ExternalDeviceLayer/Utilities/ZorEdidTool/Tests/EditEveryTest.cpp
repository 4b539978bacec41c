// Every edit at every number over the images of the self-check and of the files given: an edit changes what it names
// and nothing else, a refusal is not our fault, and numbers mean the image as it was read. What an image says is
// read here through the library's own operations and the bytes, apart from the command's verification.
//
// EditEveryTest MONITOR FILE...

#include <stdio.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <set>

#include "CEdidTestImages.h"
#include "EdidExtBlockDisplayID.h"
#include "EditSteps.h"
#include "Messages.h"
#include "TestBytes.h"
#include "TextFormat.h"
#include "ZorEdidMap.h"
#include "ZorEdidModes.h"

namespace
{
unsigned int g_uiFailures = 0;
unsigned int g_uiEdits = 0;
std::map<std::string, unsigned int> g_oRefusals;

// What an image says: lists of texts by name, such as "standard 1" for the standard timings of block 1.
using CTexts = std::vector<std::string>;
using CFacts = std::map<std::string, CTexts>;

std::string Text(const CVidParamTimingGeneric& oTiming, int iNative = 0)
{
    char szText[160];
    const SVidParamGenericData& oData = oTiming.GetData();
    snprintf(szText, sizeof(szText), "%ux%u %u %u %u/%u/%u %u/%u/%u %x %d", oData.uiHorizontalActive,
             oData.uiVerticalActive, oData.uiPixelClockInHz, oData.uiVerticalRateInHz, oData.uiHorizontalFrontPorch,
             oData.uiHorizontalSync, oData.uiHorizontalBackPorch, oData.uiVerticalFrontPorch, oData.uiVerticalSync,
             oData.uiVerticalBackPorch, oData.uiFlags, iNative);
    return szText;
}

std::string Hex(const unsigned char* pui8Bytes, size_t uiCount)
{
    std::string sText;
    for (size_t i = 0; i < uiCount; ++i)
    {
        char szByte[4];
        snprintf(szByte, sizeof(szByte), "%02x", pui8Bytes[i]);
        sText += szByte;
    }
    return sText;
}

void ReadBase(const CEdid& oEdid, CFacts& oFacts)
{
    const unsigned char* pui8Base = oEdid.GetBaseBlock();
    oFacts["identity"] = { Hex(pui8Base, 12), Hex(pui8Base + 16, 4), Hex(pui8Base + 21, 14), Hex(pui8Base + 126, 1) };
    oFacts["serial"] = { Hex(pui8Base + 12, 4) };
    oFacts["input"] = { Hex(pui8Base + 20, 1) };
    for (unsigned int i = 0; i < oEdid.GetEstablishedCount(0); ++i)
    {
        CVidParamTimingGeneric oTiming;
        oEdid.GetEstablished(i, &oTiming, 0);
        oFacts["established"].push_back(Text(oTiming));
    }
    for (unsigned int i = 0; i < oEdid.GetBaseStandardCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        oEdid.GetBaseStandard(i, &oTiming, nullptr);
        oFacts["standard 0"].push_back(Text(oTiming));
    }
    for (unsigned int i = 0; i < oEdid.GetBaseDetailedCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        oEdid.GetBaseDetailed(i, &oTiming);
        oFacts["detailed 0"].push_back(Text(oTiming));
    }
    for (const unsigned char* pui8Slot = pui8Base + 54; pui8Slot < pui8Base + 126; pui8Slot += 18)
    {
        if (pui8Slot[0] == 0 && pui8Slot[1] == 0 && pui8Slot[3] != 0x10)
        {
            oFacts["display descriptors"].push_back(Hex(pui8Slot, 18));
        }
        else if (pui8Slot[3] != 0x10)
        {
            oFacts["image sizes"].push_back(Hex(pui8Slot + 12, 3));
        }
    }
}

// Data blocks of a kind that an edit may name are a list by themselves.
std::string NameKind(const unsigned char* pui8DataBlock)
{
    const unsigned int uiTag = pui8DataBlock[0] >> 5;
    const std::string sStart = Hex(pui8DataBlock + 1, std::min(pui8DataBlock[0] & 0x1FU, 4U));
    const bool bDepths = (pui8DataBlock[0] & 0x1F) >= 6;
    return uiTag == 1                                              ? "audio blocks"
           : uiTag == 2                                            ? "video blocks"
           : uiTag == 3 && bDepths && sStart.starts_with("030c00") ? "hdmi"
           : uiTag == 4                                            ? "speaker blocks"
           : uiTag == 7 && sStart == "01030c00"                    ? "hdmi video"
           : uiTag == 7 && sStart.starts_with("0f")                ? "hdmi video"
           : uiTag == 7 && sStart.starts_with("0e")                ? "4:2:0 video"
                                                                   : "other";
}

// 3D formats after the video codes that they hold for, as the map of the image resolves them.
void Read3d(const CBytes& aui8Image, CFacts& oFacts)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const std::string sName = oMap.GetField(i).m_pszName;
        CTexts& asFormats = oFacts["3d " + std::to_string(oMap.GetField(i).m_uiOffset / gsc_uiBlockSize)];
        std::string sFormat;
        for (unsigned int j = i + 1; j < oMap.GetField(i).m_uiEnd; ++j)
        {
            const CZorEdidMap::SField& oField = oMap.GetField(j);
            const std::string sNumber = std::to_string(oField.m_llNumber);
            if (sName == "3D_MASK" && oField.m_llNumber != 0)
            {
                const std::string sCode = oField.m_pszName; // "Video code 16, 1920x1080p ..."
                const size_t uiComma = sCode.find(", ");
                asFormats.push_back(sCode.substr(uiComma == std::string::npos ? 0 : uiComma + 2) + "|in 3D");
            }
            const bool bOrder = sFormat.empty() && sName == "3D format";
            const char* pszCode = oField.m_pszMeaning != nullptr ? oField.m_pszMeaning : "unknown";
            sFormat += bOrder ? pszCode + std::string("|") : sNumber + " ";
        }
        if (sName == "3D format" || sName == "3D_Structure_ALL")
        {
            asFormats.push_back(sFormat);
        }
    }
}

void ReadCea(CEdidExtBlockCEA861& oCea, const std::string& sBlock, CFacts& oFacts)
{
    const unsigned char* pui8Data = oCea.GetData();
    oFacts["header " + sBlock] = { Hex(pui8Data, 2), std::to_string(pui8Data[3] & (pui8Data[1] < 2 ? 0xBF : 0xB0)) };
    oFacts["basic audio " + sBlock] = { std::to_string(pui8Data[3] & 0x40) };
    if (pui8Data[1] >= 2)
    {
        oFacts["natives " + sBlock] = { std::to_string(pui8Data[3] & 0x0F) };
    }
    for (unsigned int i = 0; i < oCea.GetStandardCount(); ++i)
    {
        CVidParamTimingGeneric oTiming;
        int iNative = 0;
        oCea.GetStandard(i, &oTiming, &iNative);
        oFacts["standard " + sBlock].push_back(Text(oTiming, iNative));
    }
    for (unsigned int i = 0; i < oCea.GetDetailedCount(); ++i)
    {
        oFacts["detailed " + sBlock].push_back(Hex(pui8Data + oCea.GetDetailedTimingsOffset(i), 18));
    }
    for (unsigned int i = 0; i < oCea.GetAudioDescriptorCount(); ++i)
    {
        CAudio oAudio = {};
        oCea.GetAudioDescriptor(i, &oAudio);
        oFacts["audio " + sBlock].push_back(
            std::to_string(oAudio.m_eFormat) + " " + std::to_string(oAudio.m_uiChannels) + " " +
            std::to_string(oAudio.m_eSamplingFreq) + " " + std::to_string(oAudio.m_uiExtra));
    }
    for (unsigned int i = 0; i < oCea.GetSpeakerDescriptorCount(); ++i)
    {
        unsigned int uiMask = 0;
        oCea.GetSpeakerDescriptor(i, &uiMask);
        oFacts["speakers " + sBlock].push_back(std::to_string(uiMask));
    }
    unsigned int uiBits = 0;
    const unsigned int uiEnd = pui8Data[1] >= 3 ? pui8Data[2] : 0;
    for (unsigned int i = 4; i < uiEnd && i + (pui8Data[i] & 0x1F) < 127; i += 1U + (pui8Data[i] & 0x1F))
    {
        const std::string sKind = NameKind(pui8Data + i);
        oFacts[sKind + " " + sBlock].push_back(Hex(pui8Data + i, 1U + (pui8Data[i] & 0x1F)));
        uiBits |= sKind == "hdmi" ? (pui8Data[i + 6] >> 4) & 7U : 0;
    }
    oFacts["deep " + sBlock] = { std::to_string(uiBits) };
    // Codes, also those without a timing.
    unsigned int uiLength = 0;
    for (unsigned int i = 0;; ++i)
    {
        const unsigned int uiOffset = oCea.GetDataBlockOffset(CEdidExtBlockCEA861::eCea861Tag_Video, i, &uiLength);
        if (uiOffset == 0)
        {
            break;
        }
        for (unsigned int j = 0; j < uiLength; ++j)
        {
            oFacts["codes " + sBlock].push_back(Hex(pui8Data + uiOffset + j, 1));
        }
    }
}

void ReadDisplayId(const unsigned char* pui8Block, const std::string& sBlock, CFacts& oFacts)
{
    const CEdidExtBlockDisplayID oDisplayId(gsc_uiBlockSize, pui8Block);
    for (unsigned int i = 0; i < oDisplayId.GetDetailedCount(); ++i)
    {
        unsigned int uiSize = 0;
        const unsigned int uiOffset = oDisplayId.GetDetailedTimingsOffset(i, uiSize);
        oFacts["detailed " + sBlock].push_back(Hex(pui8Block + uiOffset, uiSize));
    }
    oFacts["header " + sBlock + " of DisplayID"] = { Hex(pui8Block, 2), Hex(pui8Block + 3, 2) };
    const unsigned int uiEnd = 5U + pui8Block[2];
    for (unsigned int i = 5; i + 3 <= uiEnd; i += 3U + pui8Block[i + 2])
    {
        const bool bTimings = oDisplayId.GetDetailedCount() != 0 && (pui8Block[i] == 3 || pui8Block[i] == 4);
        const bool bBytes = !bTimings && (pui8Block[i] != 0 || pui8Block[i + 2] != 0);
        if (bBytes)
        {
            oFacts["parts " + sBlock].push_back(Hex(pui8Block + i, std::min(3U + pui8Block[i + 2], uiEnd - i)));
        }
    }
}

CFacts ReadFacts(const CBytes& aui8Image)
{
    CFacts oFacts;
    CEdid oEdid;
    oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
    ReadBase(oEdid, oFacts);
    Read3d(aui8Image, oFacts);
    for (size_t i = 1; i * gsc_uiBlockSize < aui8Image.size(); ++i)
    {
        const unsigned char* pui8Block = aui8Image.data() + i * gsc_uiBlockSize;
        const std::string sBlock = std::to_string(i);
        if (i <= aui8Image[126] && pui8Block[0] == 2 &&
            CEdidExtBlockCEA861::IsSupported(gsc_uiBlockSize, pui8Block) != 0)
        {
            CEdidExtBlockCEA861 oCea(gsc_uiBlockSize, pui8Block, 0);
            ReadCea(oCea, sBlock, oFacts);
            continue;
        }
        if (i <= aui8Image[126] && CEdidExtBlockDisplayID::IsSupported(gsc_uiBlockSize, pui8Block) != 0)
        {
            ReadDisplayId(pui8Block, sBlock, oFacts);
            continue;
        }
        oFacts["bytes " + sBlock] = { Hex(pui8Block, gsc_uiBlockSize) };
    }
    return oFacts;
}

void Fail(const std::string& sImage, const std::string& sEdits, const std::string& sWhat)
{
    ++g_uiFailures;
    printf("%s: %s: %s\n", sImage.c_str(), sEdits.c_str(), sWhat.c_str());
}

SEdit MakeEdit(EEditKind eKind, const std::string& sValue)
{
    for (const SEditOption& oOption : GetEditOptions())
    {
        SEdit oEdit = {};
        if (oOption.m_eKind == eKind)
        {
            const std::string sProblem = ParseEdit(oOption, sValue, oEdit);
            if (!sProblem.empty())
            {
                Fail("", oEdit.m_sText, sProblem);
            }
            return oEdit;
        }
    }
    return {};
}

// What an edit may do to the lists that it names.
using CRule = std::function<bool(const CTexts& asBefore, const CTexts& asAfter)>;
using CNamed = std::map<std::string, CRule>; // by the names of the lists

CRule Erased(unsigned int uiNumber)
{
    return [uiNumber](CTexts asBefore, const CTexts& asAfter) {
        if (uiNumber >= asBefore.size())
        {
            return false;
        }
        asBefore.erase(asBefore.begin() + uiNumber);
        return asBefore == asAfter;
    };
}

CRule Replaced(unsigned int uiNumber)
{
    return [uiNumber](CTexts asBefore, CTexts asAfter) {
        asBefore[uiNumber] = asAfter[uiNumber] = "";
        return asBefore == asAfter;
    };
}

bool IsAny(const CTexts&, const CTexts&) { return true; }

// The named timing goes, and with it only timings of the same picture.
CRule CodeErased(unsigned int uiNumber)
{
    return [uiNumber](CTexts asBefore, CTexts asAfter) {
        const std::string sNamed = asBefore[uiNumber];
        const std::string sPicture = sNamed.substr(0, sNamed.find(' ') + 1);
        const auto nBefore = std::count(asBefore.begin(), asBefore.end(), sNamed);
        const auto nAfter = std::count(asAfter.begin(), asAfter.end(), sNamed);
        std::sort(asBefore.begin(), asBefore.end());
        std::sort(asAfter.begin(), asAfter.end());
        CTexts asGone;
        std::set_difference(asBefore.begin(), asBefore.end(), asAfter.begin(), asAfter.end(),
                            std::back_inserter(asGone));
        return nAfter < nBefore && asGone.size() == asBefore.size() - asAfter.size() &&
               std::all_of(asGone.begin(), asGone.end(), [&](const std::string& s) { return s.starts_with(sPicture); });
    };
}

CRule Becomes(const CTexts& asExpected)
{
    return [asExpected](const CTexts&, const CTexts& asAfter) { return asAfter == asExpected; };
}

// Of texts of hexadecimal digits, all together.
CRule DiffersInBytes(unsigned int uiMost)
{
    return [uiMost](const CTexts& asBefore, const CTexts& asAfter) {
        const std::string sBefore = JoinTexts(asBefore);
        const std::string sAfter = JoinTexts(asAfter);
        unsigned int uiDigits = 0;
        for (size_t i = 0; i < std::min(sBefore.size(), sAfter.size()); ++i)
        {
            uiDigits += sBefore[i] != sAfter[i] ? 1U : 0U;
        }
        return sBefore.size() == sAfter.size() && uiDigits <= 2 * uiMost;
    };
}

// What DisplayID says of an edit, too, follows in these bytes and the checksums of the section and of the block.
void LetDisplayIdFollow(const CBytes& aui8Image, unsigned int uiBytes, CNamed& oNamed)
{
    constexpr unsigned int uiChecksums = 2;
    for (size_t i = 1; i * gsc_uiBlockSize < aui8Image.size(); ++i)
    {
        for (const char* pszName : { "bytes ", "parts " })
        {
            if (aui8Image[i * gsc_uiBlockSize] == 0x70)
            {
                oNamed[pszName + std::to_string(i)] = DiffersInBytes(uiChecksums + uiBytes);
            }
        }
    }
}

// The number of native timings, when one at this place goes.
CRule LoweredAbove(unsigned int uiPlace)
{
    return [uiPlace](const CTexts& asBefore, const CTexts& asAfter) {
        const unsigned int uiBefore = asBefore.empty() ? 0 : static_cast<unsigned int>(std::stoul(asBefore[0]));
        return asBefore.empty() ? asAfter.empty()
                                : asAfter == CTexts{ std::to_string(uiBefore - (uiPlace < uiBefore ? 1 : 0)) };
    };
}

// Bit 1 of byte 24, of the third text, which begins with byte 21.
bool IsOnlyNativeCleared(CTexts asBefore, const CTexts& asAfter)
{
    constexpr size_t uiDigit = 7;
    char& cBefore = asBefore[2][uiDigit];
    const std::string sSet = "2367abef";
    const std::string sCleared = "014589cd";
    const size_t uiPlace = asBefore == asAfter ? std::string::npos : sSet.find(cBefore);
    cBefore = uiPlace != std::string::npos ? sCleared[uiPlace] : cBefore;
    return asBefore == asAfter;
}

bool IsShortened(const CTexts& asBefore, const CTexts& asAfter) // and nothing but
{
    size_t uiFound = 0;
    for (const std::string& sText : asBefore)
    {
        uiFound += uiFound < asAfter.size() && asAfter[uiFound] == sText ? 1U : 0U;
    }
    return uiFound == asAfter.size();
}

// Only formats of one code are gone, and all of its.
bool Is3dOfOneCodeGone(CTexts asBefore, CTexts asAfter)
{
    std::sort(asBefore.begin(), asBefore.end());
    std::sort(asAfter.begin(), asAfter.end());
    const auto fnCode = [](const std::string& sFormat) { return sFormat.substr(0, sFormat.find('|')); };
    std::string sGone;
    size_t uiNext = 0;
    for (const std::string& sFormat : asBefore)
    {
        const bool bKept = uiNext < asAfter.size() && asAfter[uiNext] == sFormat;
        uiNext += bKept ? 1 : 0;
        if (!bKept && !sGone.empty() && sGone != fnCode(sFormat))
        {
            return false;
        }
        sGone = bKept ? sGone : fnCode(sFormat);
    }
    return uiNext == asAfter.size() &&
           std::none_of(asAfter.begin(), asAfter.end(), [&](const std::string& s) { return fnCode(s) == sGone; });
}

// A mask of 15: its 11 bits are written, the others stay.
bool AreSpeakersSet(CTexts asBefore, const CTexts& asAfter)
{
    if (asBefore.empty())
    {
        return asAfter.empty() || asAfter == CTexts{ "830f0000" };
    }
    const unsigned int uiRest = static_cast<unsigned int>(std::stoul(asBefore[0].substr(4, 2), nullptr, 16)) & 0xF8U;
    const unsigned char ui8Rest = static_cast<unsigned char>(uiRest);
    asBefore[0].replace(2, 4, "0f" + Hex(&ui8Rest, 1));
    return asBefore == asAfter;
}

// Of the first range limits. Rates over 255 are not wider by their bytes.
bool AreOnlyLimitsWider(CTexts asBefore, const CTexts& asAfter)
{
    const auto fnByte = [](const std::string& sDescriptor, size_t uiByte) {
        return std::stoul(sDescriptor.substr(2 * uiByte, 2), nullptr, 16);
    };
    for (size_t i = 0; i < asBefore.size() && i < asAfter.size(); ++i)
    {
        std::string& sBefore = asBefore[i];
        const std::string& sAfter = asAfter[i];
        if (sBefore.starts_with("000000fd") && sBefore != sAfter)
        {
            const bool bWider = fnByte(sAfter, 5) <= fnByte(sBefore, 5) && fnByte(sAfter, 6) >= fnByte(sBefore, 6) &&
                                fnByte(sAfter, 7) <= fnByte(sBefore, 7) && fnByte(sAfter, 8) >= fnByte(sBefore, 8) &&
                                fnByte(sAfter, 9) >= fnByte(sBefore, 9);
            const bool bCvt = sBefore.substr(20, 2) == "04";
            sBefore.replace(8, bCvt ? 18 : 12, sAfter.substr(8, bCvt ? 18 : 12));
            return (bWider || sAfter.substr(8, 2) != "00") && asBefore == asAfter;
        }
    }
    return asBefore == asAfter;
}

bool IsOneAdded(const CTexts& asBefore, const CTexts& asAfter)
{
    return asAfter.size() == asBefore.size() + 1 && IsShortened(asAfter, asBefore);
}

// False for a refusal.
bool Try(const std::string& sImage, const CBytes& aui8Image, const SEdit& oEdit, const CNamed& oNamed)
{
    ++g_uiEdits;
    CBytes aui8Edited;
    const std::string sReason = ApplyEdits(aui8Image, { oEdit }, aui8Edited);
    if (!sReason.empty())
    {
        ++g_oRefusals[sReason];
        if (sReason.starts_with("internal fault"))
        {
            Fail(sImage, oEdit.m_sText, sReason);
        }
        return false;
    }
    CFacts oBefore = ReadFacts(aui8Image);
    CFacts oAfter = ReadFacts(aui8Edited);
    for (const auto& [sName, fnRule] : oNamed)
    {
        if (!fnRule(oBefore[sName], oAfter[sName]))
        {
            Fail(sImage, oEdit.m_sText, sName + " is wrong");
        }
        oBefore.erase(sName);
        oAfter.erase(sName);
    }
    std::erase_if(oBefore, [](const auto& oFact) { return oFact.second.empty(); });
    std::erase_if(oAfter, [](const auto& oFact) { return oFact.second.empty(); });
    for (const auto& [sName, asTexts] : oBefore)
    {
        if (oAfter[sName] != asTexts)
        {
            Fail(sImage, oEdit.m_sText, sName + " has changed");
        }
    }
    if (oAfter.size() != oBefore.size())
    {
        Fail(sImage, oEdit.m_sText, "something has come up");
    }
    return true;
}

// What the removal of a timing by its number in its block names.
CNamed NameStandard(size_t uiBlock, unsigned int uiNumber)
{
    const std::string sBlock = std::to_string(uiBlock);
    if (uiBlock == 0)
    {
        return { { "standard " + sBlock, Erased(uiNumber) } };
    }
    return { { "standard " + sBlock, CodeErased(uiNumber) },
             { "codes " + sBlock, IsShortened },
             { "video blocks " + sBlock, IsAny },
             { "hdmi " + sBlock, IsAny },
             { "hdmi video " + sBlock, IsAny },
             { "3d " + sBlock, Is3dOfOneCodeGone } };
}

// uiPlace is that among the detailed timings that are counted for the native ones, or gsc_uiNotCounted.
constexpr unsigned int gsc_uiNotCounted = ~0U;

CNamed NameDetailed(size_t uiBlock, unsigned int uiNumber, unsigned int uiPlace, size_t uiBlocks)
{
    CNamed oNamed = { { "detailed " + std::to_string(uiBlock), Erased(uiNumber) },
                      { "image sizes", uiBlock == 0 ? CRule(IsShortened) : CRule(std::equal_to<CTexts>()) } };
    for (size_t i = 1; i < uiBlocks; ++i)
    {
        oNamed["natives " + std::to_string(i)] = LoweredAbove(uiPlace);
    }
    return oNamed;
}

// The edits whose numbers go through the lists of the blocks. aoRemovals gets those that are done.
void TryNumbered(const std::string& sImage, const CBytes& aui8Image, const std::vector<SEditedBlock>& aoBlocks,
                 std::vector<SEdit>& aoRemovals)
{
    std::map<EEditKind, unsigned int> oNumbers;
    const auto fnRemove = [&](EEditKind eKind, const CNamed& oNamed) {
        const SEdit oEdit = MakeEdit(eKind, std::to_string(oNumbers[eKind]++));
        if (Try(sImage, aui8Image, oEdit, oNamed))
        {
            aoRemovals.push_back(oEdit);
        }
    };
    CFacts oFacts = ReadFacts(aui8Image);
    for (unsigned int i = 0; i < CEdid::msc_uiEstablishedCount && i < oFacts["established"].size(); ++i)
    {
        fnRemove(eEdit_RemoveEstablished, { { "established", Erased(i) } });
    }
    unsigned int uiPlace = 0; // of a detailed timing, see NameDetailed
    for (size_t i = 0; i < aoBlocks.size(); ++i)
    {
        const std::string sBlock = std::to_string(i);
        for (unsigned int j = 0; j < aoBlocks[i].m_uiStandards; ++j)
        {
            fnRemove(eEdit_RemoveStandard, NameStandard(i, j));
        }
        for (unsigned int j = 0; j < aoBlocks[i].m_uiDetaileds; ++j)
        {
            const bool bCounted = i == 0 || oFacts.contains("header " + sBlock);
            const unsigned int uiCounted = bCounted ? uiPlace++ : gsc_uiNotCounted;
            fnRemove(eEdit_RemoveDetailed, NameDetailed(i, j, uiCounted, aoBlocks.size()));
        }
        for (unsigned int j = 0; j < aoBlocks[i].m_uiAudios; ++j)
        {
            const std::string sSet = std::to_string(oNumbers[eEdit_AudioRemove]) + "=";
            const std::string sBlocks = "audio blocks " + sBlock;
            Try(sImage, aui8Image, MakeEdit(eEdit_AudioSet, sSet + "dts,6ch,48+96,1536kbps"),
                { { "audio " + sBlock, Replaced(j) }, { sBlocks, IsAny } });
            fnRemove(eEdit_AudioRemove,
                     { { "audio " + sBlock, Erased(j) }, { sBlocks, IsAny }, { "basic audio " + sBlock, IsAny } });
        }
    }
}

void TryValues(const std::string& sImage, const CBytes& aui8Image, EEditKind eKind,
               const std::vector<std::string>& asValues, const CNamed& oNamed)
{
    for (const std::string& sValue : asValues)
    {
        Try(sImage, aui8Image, MakeEdit(eKind, sValue), oNamed);
    }
}

// The edits that find their place themselves.
void TryOthers(const std::string& sImage, const CBytes& aui8Image, size_t uiBlocks)
{
    CFacts oFacts = ReadFacts(aui8Image);
    std::map<std::string, CNamed> oDeep;
    CNamed oAudioAdd;
    CNamed oSpeakers;
    CNamed oNoSpeakers;
    for (size_t i = 0; i < uiBlocks; ++i)
    {
        const std::string sBlock = std::to_string(i);
        for (const auto& [sValue, sBits] : CFacts{ { "none", { "0" } }, { "30", { "1" } }, { "30,36,48", { "7" } } })
        {
            const bool bHdmi = !oFacts["hdmi " + sBlock].empty();
            oDeep[sValue]["deep " + sBlock] = Becomes(bHdmi ? sBits : oFacts["deep " + sBlock]);
            oDeep[sValue]["hdmi " + sBlock] = IsAny;
        }
        oSpeakers["speaker blocks " + sBlock] = [](const CTexts& asBefore, const CTexts& asAfter) {
            return asBefore == asAfter || AreSpeakersSet(asBefore, asAfter);
        };
        oNoSpeakers["speaker blocks " + sBlock] = Becomes({});
        oAudioAdd["audio " + sBlock] = [](const CTexts& asBefore, const CTexts& asAfter) {
            return asBefore == asAfter || IsOneAdded(asBefore, asAfter);
        };
        oAudioAdd["audio blocks " + sBlock] = IsAny;
        for (CNamed* poNamed : { &oSpeakers, &oNoSpeakers, &oAudioAdd })
        {
            (*poNamed)["basic audio " + sBlock] = IsAny;
        }
        oSpeakers["speakers " + sBlock] = oNoSpeakers["speakers " + sBlock] = IsAny;
    }
    // Depths of RGB and 4:4:4, and that there is audio.
    for (auto& [sValue, oNamed] : oDeep)
    {
        LetDisplayIdFollow(aui8Image, 2, oNamed);
    }
    LetDisplayIdFollow(aui8Image, 1, oAudioAdd);
    for (const auto& [sValue, oNamed] : oDeep)
    {
        TryValues(sImage, aui8Image, eEdit_DeepColor, { sValue }, oNamed);
    }
    TryValues(sImage, aui8Image, eEdit_AudioAdd, { "pcm,8ch,32+44.1+48+192,16+24", "ac3,6ch,48,640kbps" }, oAudioAdd);
    TryValues(sImage, aui8Image, eEdit_Speakers, { "FL/FR+LFE+FC+RL/RR" }, oSpeakers);
    TryValues(sImage, aui8Image, eEdit_Speakers, { "none" }, oNoSpeakers);
    const unsigned char ui8Input = static_cast<unsigned char>((aui8Image[20] & 0x8F) | 0x40);
    CNamed oSerial = { { "serial", Becomes({ "04030201" }) } };
    CNamed oDepth = { { "input", Becomes({ Hex(&ui8Input, 1) }) } };
    LetDisplayIdFollow(aui8Image, 4, oSerial);
    LetDisplayIdFollow(aui8Image, 1, oDepth);
    TryValues(sImage, aui8Image, eEdit_Serial, { "0x01020304" }, oSerial);
    TryValues(sImage, aui8Image, eEdit_ColorDepth, { "12" }, oDepth);
    CNamed oPreferred = { { "detailed 0", Replaced(0) },
                          { "display descriptors", AreOnlyLimitsWider },
                          { "identity", IsOnlyNativeCleared } };
    for (size_t i = 1; i * gsc_uiBlockSize < aui8Image.size(); ++i)
    {
        oPreferred["natives " + std::to_string(i)] = [](const CTexts& asBefore, const CTexts& asAfter) {
            return asBefore == asAfter || (asBefore == CTexts{ "1" } && asAfter == CTexts{ "0" });
        };
    }
    TryValues(sImage, aui8Image, eEdit_Preferred,
              { "1280x720@60", "1920x1200@60,dmt-rb", "3840x2160@30", "1024x768@75,gtf" }, oPreferred);
}

// ---- Modes ----

double GetHz(const SZorMode::SRate& oRate)
{
    return oRate.m_ullDivisor == 0 ? 0
                                   : static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor);
}

// A mode at one of its rates.
struct SModeAtRate
{
    SZorMode m_oMode;
    double m_dRate;
    std::string GetName() const
    {
        char szName[80];
        snprintf(szName, sizeof(szName), m_dRate == std::round(m_dRate) ? "%ux%u%s@%.0f" : "%ux%u%s@%.2f",
                 m_oMode.m_uiWidth, m_oMode.m_uiHeight, m_oMode.m_bInterlaced ? "i" : "", m_dRate);
        return szName;
    }
};

bool IsNear(double dFirst, double dSecond) { return std::abs(dFirst - dSecond) < 0.006; }

// Whether a mode at this rate goes with the wanted one.
bool GoesWith(const SZorMode& oMode, const SModeAtRate& oWanted)
{
    const SZorMode& oOther = oWanted.m_oMode;
    const bool bWidth = oMode.m_uiWidth == oOther.m_uiWidth || oMode.m_oHorizontal.m_uiActive == oOther.m_uiWidth;
    const double dExact = GetHz(oMode.m_oRate);
    const double dNominal = GetHz(oMode.m_oNominalRate);
    const double dFraction = oMode.m_bFractionToo ? 1000.0 / 1001 : 1;
    const bool bWhole = oWanted.m_dRate == std::round(oWanted.m_dRate);
    const bool bOwnName = std::fmod(oWanted.m_dRate, 6) == 0 && IsNear(dExact, oWanted.m_dRate * 1000 / 1001);
    const bool bRate = IsNear(dExact, oWanted.m_dRate) || IsNear(dNominal, oWanted.m_dRate) ||
                       IsNear(dExact * dFraction, oWanted.m_dRate) || IsNear(dNominal * dFraction, oWanted.m_dRate) ||
                       (bWhole && std::round(dExact) == oWanted.m_dRate && !bOwnName);
    return dNominal != 0 && bWidth && oMode.m_uiHeight == oOther.m_uiHeight &&
           oMode.m_bInterlaced == oOther.m_bInterlaced && bRate;
}

// All fields that announce modes, by what they say and their order.
CTexts ListModes(const CBytes& aui8Image, const std::function<bool(const SZorMode&)>& fnWithout)
{
    CTexts asModes;
    CZorEdidModes oModes;
    oModes.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorImageMode& oMode = oModes.Get(i);
        // The library takes any pair that begins with 01 for an unused one, and makes it 01 01 when others move up.
        const bool bUnused = oMode.m_oMode.m_eKind == SZorMode::eModeKind_Standard && oMode.m_oMode.m_uiCode < 0x200;
        if (!bUnused && !fnWithout(oMode.m_oMode))
        {
            char szMode[160];
            snprintf(szMode, sizeof(szMode), "%u: %u %x, %ux%u@%f, %llu, %u %u %x", oMode.m_eField,
                     oMode.m_oMode.m_eKind, oMode.m_oMode.m_uiCode, oMode.m_oMode.m_uiWidth, oMode.m_oMode.m_uiHeight,
                     GetHz(oMode.m_oMode.m_oRate), oMode.m_oMode.m_ullClock, oMode.m_eReason, oMode.m_oMode.m_eY420,
                     oMode.m_uiStereo);
            asModes.emplace_back(szMode);
        }
    }
    return asModes;
}

// Removes a mode or a code, and looks whether all other modes are there as before.
void TryMode(const std::string& sImage, const CBytes& aui8Image, const SEdit& oEdit,
             const std::function<bool(const SZorMode&)>& fnGoes, std::vector<SEdit>& aoRemovals)
{
    CNamed oNamed = { { "established", IsShortened },
                      { "standard 0", IsShortened },
                      { "detailed 0", IsShortened },
                      { "image sizes", IsShortened },
                      { "display descriptors", IsAny } };
    for (size_t i = 1; i * gsc_uiBlockSize < aui8Image.size(); ++i)
    {
        for (const char* pszName : { "standard ", "codes ", "video blocks ", "hdmi ", "hdmi video ", "4:2:0 video ",
                                     "natives ", "3d ", "detailed ", "parts ", "bytes " })
        {
            oNamed[pszName + std::to_string(i)] = IsAny;
        }
    }
    CBytes aui8Edited;
    if (Try(sImage, aui8Image, oEdit, oNamed) && ApplyEdits(aui8Image, { oEdit }, aui8Edited).empty())
    {
        aoRemovals.push_back(oEdit);
        if (ListModes(aui8Edited, [](const SZorMode&) { return false; }) != ListModes(aui8Image, fnGoes))
        {
            Fail(sImage, oEdit.m_sText, "other modes than this one have gone, or it has not");
        }
    }
}

void TryModes(const std::string& sImage, const CBytes& aui8Image, std::vector<SEdit>& aoRemovals)
{
    std::map<std::string, SModeAtRate> oWanted;
    std::set<unsigned int> oCodes;
    CZorEdidModes oModes;
    oModes.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        const SZorMode& oMode = oModes.Get(i).m_oMode;
        for (const double dFactor : { 1.0, oMode.m_bFractionToo ? 1000.0 / 1001 : 1.0 })
        {
            const SModeAtRate oAtRate = { oMode, GetHz(oMode.m_oNominalRate) * dFactor };
            oWanted.emplace(oAtRate.GetName(), oAtRate);
        }
        if (oMode.m_eKind == SZorMode::eModeKind_Vic)
        {
            oCodes.insert(oMode.m_uiCode);
        }
    }
    for (const auto& [sName, oMode] : oWanted)
    {
        if (oMode.m_dRate != 0)
        {
            TryMode(
                sImage, aui8Image, MakeEdit(eEdit_Remove, sName),
                [&oAtRate = oMode](const SZorMode& o) { return GoesWith(o, oAtRate); }, aoRemovals);
        }
    }
    for (const unsigned int uiCode : oCodes)
    {
        const auto fnGoes = [uiCode](const SZorMode& o) {
            constexpr unsigned int auiHdmi[] = { 0, 95, 94, 93, 98 };
            return (o.m_eKind == SZorMode::eModeKind_Vic && o.m_uiCode == uiCode) ||
                   (o.m_eKind == SZorMode::eModeKind_HdmiVic && auiHdmi[o.m_uiCode] == uiCode);
        };
        TryMode(sImage, aui8Image, MakeEdit(eEdit_RemoveCode, std::to_string(uiCode)), fnGoes, aoRemovals);
    }
}

// Numbers mean the image as it was read: no order of removals makes a difference, and none needs doing twice.
void TryOrders(const std::string& sImage, const CBytes& aui8Image, const std::vector<SEdit>& aoRemovals)
{
    std::vector<SEdit> aoReversed(aoRemovals.rbegin(), aoRemovals.rend());
    std::vector<SEdit> aoMixed = aoRemovals;
    for (size_t i = 0; i < aoMixed.size(); ++i)
    {
        std::swap(aoMixed[i], aoMixed[(i * 7919 + 13) % aoMixed.size()]);
    }
    aoMixed.insert(aoMixed.end(), aoRemovals.begin(), aoRemovals.end());
    CBytes aui8First;
    const std::string sFirst = ApplyEdits(aui8Image, aoRemovals, aui8First);
    for (const std::vector<SEdit>& aoOrder : { aoReversed, aoMixed })
    {
        CBytes aui8Edited;
        const std::string sReason = ApplyEdits(aui8Image, aoOrder, aui8Edited);
        if (!sReason.empty() || !sFirst.empty() || aui8Edited != aui8First)
        {
            std::string sWhat = "the order makes a difference; ";
            sWhat.append(sFirst).append("; ").append(sReason);
            Fail(sImage, "all removals", sWhat);
        }
    }
}

void TestImage(const std::string& sImage, const CBytes& aui8Image)
{
    CEditImage oImage;
    if (!oImage.Load(aui8Image))
    {
        return;
    }
    std::vector<SEdit> aoRemovals;
    TryNumbered(sImage, aui8Image, oImage.GetBlocks(), aoRemovals);
    TryModes(sImage, aui8Image, aoRemovals);
    TryOthers(sImage, aui8Image, oImage.GetBlocks().size());
    TryOrders(sImage, aui8Image, aoRemovals);
}

// ---- The verification ----

// The image as one of EDID 1.4 with data blocks of all kinds, before two detailed timings that are called native, and
// with a block that the library does not read.
CBytes MakeFullImage(const CBytes& aui8Monitor)
{
    const CBytes aui8DataBlocks = {
        0x44, 0x90, 0x04, 0x05, 0x1F,                                        // video
        0x26, 0x89, 0x07, 0x07, 0x15, 0x07, 0x50, 0x23, 0x0F, 0x7F, 0x07,    // audio
        0x84, 0x01, 0xF8, 0x40, 0x99, 0x83, 0x02, 0x00, 0x00,                // speakers
        0x74, 0x03, 0x0C, 0x00, 0x10, 0x00, 0xB8, 0x2D, 0x20, 0xC0, 0x28, 3, // HDMI with a code and 3D formats
        0x01, 0x40, 0x80, 0x05, 0x06, 0x18, 0x00, 0x26, 0x77, 0x65, 0xD8, 0x5D, 0xC4, 0x01, 0x02, // another vendor
        0xE3, 0x0F, 0x05, 0x00, 0xE2, 0x00, 0x0F,
    };
    CBytes aui8Image = aui8Monitor;
    aui8Image.resize(2 * gsc_uiBlockSize);
    aui8Image[19] = 4;
    aui8Image[20] = 0xA5;
    aui8Image[126] = 2;
    unsigned char* pui8Cea = aui8Image.data() + gsc_uiBlockSize;
    const CBytes aui8Detaileds(pui8Cea + pui8Cea[2], pui8Cea + pui8Cea[2] + 2 * ZorStandards::Cta::gsc_uiDetailedSize);
    std::fill(pui8Cea + 4, pui8Cea + gsc_uiBlockSize, static_cast<unsigned char>(0));
    pui8Cea[2] = static_cast<unsigned char>(4 + aui8DataBlocks.size());
    pui8Cea[3] = 0x7F;
    std::copy(aui8DataBlocks.begin(), aui8DataBlocks.end(), pui8Cea + 4);
    std::copy(aui8Detaileds.begin(), aui8Detaileds.end(), pui8Cea + pui8Cea[2]);
    aui8Image.resize(3 * gsc_uiBlockSize, 0x10);
    return FixChecksums(aui8Image);
}

// A bit of the edited image, turned over with the checksum made right, is a fault. Some are tried of each edit.
void TestVerification(const CBytes& aui8Image, const SEdit& oEdit)
{
    constexpr size_t uiStep = 11;
    static size_t s_uiFirst = 0;

    CEditImage oImage;
    oImage.Load(aui8Image);
    const std::string sReason = oImage.Apply(oEdit);
    const CBytes aui8Edited = oImage.GetBytes();
    if (!sReason.empty() || !VerifyEdits(aui8Image, aui8Edited, oImage.GetBlocks()).empty())
    {
        Fail("full image", oEdit.m_sText, "it must be done: " + sReason);
    }
    for (size_t uiBit = s_uiFirst++ % uiStep; uiBit < 8 * aui8Edited.size(); uiBit += uiStep)
    {
        CBytes aui8Foreign = aui8Edited;
        aui8Foreign[uiBit / 8] ^= static_cast<unsigned char>(1U << (uiBit % 8));
        if (uiBit / 8 % gsc_uiBlockSize != gsc_uiBlockSize - 1)
        {
            aui8Foreign = FixChecksums(aui8Foreign);
        }
        if (VerifyEdits(aui8Image, aui8Foreign, oImage.GetBlocks()).empty())
        {
            char szPlace[80];
            snprintf(szPlace, sizeof(szPlace), "bit %zu of byte %zu of block %zu is not watched", uiBit % 8,
                     uiBit / 8 % gsc_uiBlockSize, uiBit / 8 / gsc_uiBlockSize);
            Fail("full image", oEdit.m_sText, szPlace);
        }
    }
}

void TestVerifications(const CBytes& aui8Monitor)
{
    const CBytes aui8Image = MakeFullImage(aui8Monitor);
    for (const auto& [eKind, pszValue] :
         std::initializer_list<std::pair<EEditKind, const char*>>{ { eEdit_Serial, "5" },
                                                                   { eEdit_RemoveEstablished, "1" },
                                                                   { eEdit_Remove, "1280x720@60" },
                                                                   { eEdit_Remove, "640x480@60" },
                                                                   { eEdit_RemoveCode, "16" },
                                                                   { eEdit_RemoveStandard, "0" },
                                                                   { eEdit_RemoveStandard, "9" },
                                                                   { eEdit_RemoveDetailed, "1" },
                                                                   { eEdit_Preferred, "1280x720@60" },
                                                                   { eEdit_ColorDepth, "10" },
                                                                   { eEdit_DeepColor, "30,48" },
                                                                   { eEdit_AudioAdd, "ac3,6ch,48,640kbps" },
                                                                   { eEdit_AudioSet, "1=dts,6ch,48+96,1536kbps" },
                                                                   { eEdit_AudioRemove, "0" },
                                                                   { eEdit_Speakers, "LFE+FLH/FRH" },
                                                                   { eEdit_Speakers, "none" },
                                                                   { eEdit_RepairChecksums, "" } })
    {
        TestVerification(aui8Image, MakeEdit(eKind, pszValue));
    }
}
} // namespace

int main(int iCount, char** ppszArguments)
{
    CatchMessages(false);
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        TestImage(oImage.m_pszName, CBytes(oImage.m_paui8Image->begin(), oImage.m_paui8Image->end()));
    }
    for (int i = 1; i < iCount; ++i)
    {
        std::ifstream oFile(ppszArguments[i], std::ios::binary);
        const CBytes aui8Image(std::istreambuf_iterator<char>(oFile), {});
        TestImage(ppszArguments[i], aui8Image);
        if (i == 1)
        {
            TestVerifications(aui8Image);
        }
    }
    unsigned int uiRefused = 0;
    for (const auto& [sReason, uiCount] : g_oRefusals)
    {
        printf("%5u refused: %s\n", uiCount, sReason.c_str());
        uiRefused += uiCount;
    }
    if (3 * uiRefused > g_uiEdits)
    {
        Fail("all images", "all edits", "most of them must be done");
    }
    printf("%u edits, %u failures\n", g_uiEdits, g_uiFailures);
    return g_uiFailures == 0 ? 0 : 1;
}

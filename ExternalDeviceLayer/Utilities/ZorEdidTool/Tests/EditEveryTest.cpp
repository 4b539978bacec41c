// Every edit at every number over the images of the self-check and of the files given: an edit changes what it names
// and nothing else, a refusal is no fault of ours, and numbers mean the image as it was read. What an image says is
// read here through the library's own operations and the bytes, apart from the command's verification.
//
// EditEveryTest FILE...

#include <stdio.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

#include "CEdidTestImages.h"
#include "EditImage.h"
#include "EditVerify.h"
#include "Messages.h"

namespace
{
constexpr size_t gsc_uiBlockSize = 128;

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

void ReadCea(CEdidExtBlockCEA861& oCea, const std::string& sBlock, CFacts& oFacts)
{
    const unsigned char* pui8Data = oCea.GetData();
    oFacts["header " + sBlock] = { Hex(pui8Data, 2), std::to_string(pui8Data[3] & 0xBF) };
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
    oCea.GetColorBitDepthSupport(uiBits);
    oFacts["deep " + sBlock] = { std::to_string(uiBits) };
    // Data blocks of kinds that no edit touches.
    const unsigned int uiEnd = pui8Data[1] >= 3 ? pui8Data[2] : 0;
    for (unsigned int i = 4; i < uiEnd && i + (pui8Data[i] & 0x1F) < 127; i += 1U + (pui8Data[i] & 0x1F))
    {
        const unsigned int uiTag = pui8Data[i] >> 5;
        const bool bTouched =
            (uiTag >= 1 && uiTag <= 4) || (uiTag == 7 && (pui8Data[i + 1] == 1 || pui8Data[i + 1] == 15));
        if (!bTouched)
        {
            oFacts["other " + sBlock].push_back(Hex(pui8Data + i, 1U + (pui8Data[i] & 0x1F)));
        }
    }
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

CFacts ReadFacts(const CBytes& aui8Image)
{
    CFacts oFacts;
    CEdid oEdid;
    oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
    ReadBase(oEdid, oFacts);
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
                Fail("", oOption.m_pszName + (" " + sValue), sProblem);
            }
            return oEdit;
        }
    }
    return {};
}

// Empty, or the reason of a refusal.
std::string ApplyAll(const CBytes& aui8Image, const std::vector<SEdit>& aoEdits, CBytes& aui8Edited)
{
    CEditImage oImage;
    oImage.Load(aui8Image);
    for (const SEdit& oEdit : aoEdits)
    {
        const std::string sReason = oImage.Apply(oEdit);
        if (!sReason.empty())
        {
            return sReason;
        }
    }
    aui8Edited = oImage.GetBytes();
    const std::string sFault = VerifyEdits(aui8Image, aui8Edited, oImage.GetBlocks());
    return sFault.empty() ? "" : "internal fault: " + sFault;
}

// What an edit may do to the lists that it names.
using CRule = std::function<bool(const CTexts& asBefore, const CTexts& asAfter)>;
using CNamed = std::map<std::string, CRule>; // by the names of the lists

CRule Erased(unsigned int uiNumber)
{
    return [uiNumber](CTexts asBefore, const CTexts& asAfter) {
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

bool IsShortened(const CTexts& asBefore, const CTexts& asAfter) // and nothing but
{
    size_t uiFound = 0;
    for (const std::string& sText : asBefore)
    {
        uiFound += uiFound < asAfter.size() && asAfter[uiFound] == sText ? 1U : 0U;
    }
    return uiFound == asAfter.size();
}

bool IsOneAdded(const CTexts& asBefore, const CTexts& asAfter)
{
    return asAfter.size() == asBefore.size() + 1 && IsShortened(asAfter, asBefore);
}

void Try(const std::string& sImage, const CBytes& aui8Image, const SEdit& oEdit, const CNamed& oNamed)
{
    ++g_uiEdits;
    CBytes aui8Edited;
    const std::string sReason = ApplyAll(aui8Image, { oEdit }, aui8Edited);
    if (!sReason.empty())
    {
        ++g_oRefusals[sReason];
        if (sReason.starts_with("internal fault"))
        {
            Fail(sImage, oEdit.m_sText, sReason);
        }
        return;
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
}

void TestImage(const std::string& sImage, const CBytes& aui8Image)
{
    CEditImage oImage;
    if (!oImage.Load(aui8Image))
    {
        return;
    }
    const CFacts oFacts = ReadFacts(aui8Image);
    std::vector<SEdit> aoRemovals;
    std::map<EEditKind, unsigned int> oNumbers;
    const auto fnRemove = [&](EEditKind eKind, const CNamed& oNamed) {
        const SEdit oEdit = MakeEdit(eKind, std::to_string(oNumbers[eKind]++));
        Try(sImage, aui8Image, oEdit, oNamed);
        CBytes aui8Edited;
        if (ApplyAll(aui8Image, { oEdit }, aui8Edited).empty())
        {
            aoRemovals.push_back(oEdit);
        }
    };
    for (unsigned int i = 0;
         i < CEdid::msc_uiEstablishedCount && oFacts.contains("established") && i < oFacts.at("established").size();
         ++i)
    {
        fnRemove(eEdit_RemoveEstablished, { { "established", Erased(i) } });
    }
    CNamed oDeep;
    CNamed oAudioAdd;
    CNamed oSpeakers;
    const std::vector<SEditedBlock>& aoBlocks = oImage.GetBlocks();
    for (size_t i = 0; i < aoBlocks.size(); ++i)
    {
        const std::string sBlock = std::to_string(i);
        for (unsigned int j = 0; j < aoBlocks[i].m_uiStandards; ++j)
        {
            fnRemove(eEdit_RemoveStandard, { { "standard " + sBlock, i == 0 ? Erased(j) : CodeErased(j) },
                                             { "codes " + sBlock, IsShortened } });
        }
        for (unsigned int j = 0; j < aoBlocks[i].m_uiDetaileds; ++j)
        {
            fnRemove(eEdit_RemoveDetailed,
                     { { "detailed " + sBlock, Erased(j) },
                       { "image sizes", i == 0 ? CRule(IsShortened) : CRule(std::equal_to<CTexts>()) } });
        }
        for (unsigned int j = 0; j < aoBlocks[i].m_uiAudios; ++j)
        {
            const std::string sSet = std::to_string(oNumbers[eEdit_AudioRemove]) + "=";
            Try(sImage, aui8Image, MakeEdit(eEdit_AudioSet, sSet + "dts,6ch,48+96,1536kbps"),
                { { "audio " + sBlock, Replaced(j) } });
            fnRemove(eEdit_AudioRemove, { { "audio " + sBlock, Erased(j) } });
        }
        oDeep["deep " + sBlock] = IsAny;
        oSpeakers["speakers " + sBlock] = [](const CTexts& asBefore, const CTexts& asAfter) {
            return asBefore == asAfter || asAfter[0] == "15";
        };
        oAudioAdd["audio " + sBlock] = [](const CTexts& asBefore, const CTexts& asAfter) {
            return asBefore == asAfter || IsOneAdded(asBefore, asAfter);
        };
    }
    for (const char* pszValue : { "none", "30", "30,36,48" })
    {
        Try(sImage, aui8Image, MakeEdit(eEdit_DeepColor, pszValue), oDeep);
    }
    for (const char* pszValue : { "pcm,8ch,32+44.1+48+192,16+24", "ac3,6ch,48,640kbps" })
    {
        Try(sImage, aui8Image, MakeEdit(eEdit_AudioAdd, pszValue), oAudioAdd);
    }
    Try(sImage, aui8Image, MakeEdit(eEdit_Speakers, "FL/FR+LFE+FC+RL/RR"), oSpeakers);
    Try(sImage, aui8Image, MakeEdit(eEdit_Serial, "0x01020304"), { { "serial", IsAny } });
    Try(sImage, aui8Image, MakeEdit(eEdit_ColorDepth, "12"), { { "input", IsAny } });
    for (const char* pszValue : { "1280x720@60", "1920x1200@60,dmt-rb", "3840x2160@30", "1024x768@75,gtf" })
    {
        Try(sImage, aui8Image, MakeEdit(eEdit_Preferred, pszValue), { { "detailed 0", Replaced(0) } });
    }

    // Numbers mean the image as it was read: no order of removals makes a difference, and none needs doing twice.
    std::vector<SEdit> aoReversed(aoRemovals.rbegin(), aoRemovals.rend());
    std::vector<SEdit> aoMixed = aoRemovals;
    for (size_t i = 0; i < aoMixed.size(); ++i)
    {
        std::swap(aoMixed[i], aoMixed[(i * 7919 + 13) % aoMixed.size()]);
    }
    aoMixed.insert(aoMixed.end(), aoRemovals.begin(), aoRemovals.end());
    CBytes aui8First;
    const std::string sFirst = ApplyAll(aui8Image, aoRemovals, aui8First);
    for (const std::vector<SEdit>& aoOrder : { aoReversed, aoMixed })
    {
        CBytes aui8Edited;
        const std::string sReason = ApplyAll(aui8Image, aoOrder, aui8Edited);
        if (!sReason.empty() || !sFirst.empty() || aui8Edited != aui8First)
        {
            Fail(sImage, "all removals", sFirst + "; " + sReason + "; the order makes a difference");
        }
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
        TestImage(ppszArguments[i], CBytes(std::istreambuf_iterator<char>(oFile), {}));
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

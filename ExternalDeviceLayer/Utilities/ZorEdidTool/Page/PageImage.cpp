// Reading one image for the page, and comparing two.

#include "PageImage.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>
#include <utility>

#include "MapText.h"
#include "PageParts.h"
#include "Standards/BaseBlock.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

using CField = CZorEdidMap::SField;

std::string FindTitle(const SPageImage& oImage)
{
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); ++i)
    {
        const CField& oField = oImage.m_oMap.GetField(i);
        if (oField.m_eKind == CZorEdidMap::eKind_Text &&
            oField.m_uiOffset >= ZorStandards::BaseBlock::gsc_uiContentsOffset &&
            oField.m_uiOffset < CEdidUtils::msc_uiBlockSize)
        {
            const unsigned int uiTag = oField.m_uiOffset - ZorStandards::BaseBlock::gsc_uiContentsOffset +
                                       ZorStandards::BaseBlock::gsc_uiTagOffset;
            std::string sText = static_cast<const char*>(oImage.m_oMap.GetValue(i));
            if (oImage.m_oMap.GetData()[uiTag] == ZorStandards::BaseBlock::gsc_ui8TagName && !sText.empty())
            {
                return sText;
            }
        }
    }
    return oImage.m_sFile;
}

// With the header put right, which is all that the library asks of a base block.
std::string FindMaker(std::vector<unsigned char> aui8Bytes)
{
    constexpr std::array<unsigned char, 8> aui8Header = { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00 };
    CEdidBase oBase;
    if (aui8Bytes.size() >= CEdidUtils::msc_uiBlockSize)
    {
        std::ranges::copy(aui8Header, aui8Bytes.begin());
        oBase.SetEdidBuffer(aui8Bytes.data(), CEdidUtils::msc_uiBlockSize, 0);
    }
    char szMaker[64] = {};
    return oBase.GetManufacturerName(szMaker, sizeof(szMaker)) != 0 ? szMaker : "";
}

// The names on the way to each field. Of fields of one name in a group, each carries its rank: offsets shift.
std::map<std::string, unsigned int> MakePaths(const SPageImage& oImage, std::vector<std::string>& asPaths)
{
    std::map<std::string, unsigned int> aoFound;
    std::map<std::string, unsigned int> aoCounts;
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); ++i)
    {
        const CField& oField = oImage.m_oMap.GetField(i);
        const std::string sOpen = oField.m_uiGroup == gsc_uiNone ? "" : asPaths[oField.m_uiGroup] + "\n";
        std::string sPath = sOpen + oField.m_pszName;
        sPath += FormatText("\t%u", aoCounts[sPath]++);
        aoFound.emplace(sPath, i);
        asPaths.push_back(sPath);
    }
    return aoFound;
}

// Padding of a single value: more or less of it says nothing.
bool IsPlainPadding(const SPageImage& oImage, unsigned int uiField)
{
    const CField& oField = oImage.m_oMap.GetField(uiField);
    const unsigned char* pui8First = oImage.m_oMap.GetData() + oField.m_uiOffset;
    return oField.m_eKind == CZorEdidMap::eKind_Reserved && oField.m_eId == eZorEdidField_Padding &&
           std::all_of(pui8First, pui8First + oField.m_uiLength, [&](unsigned char ui8) { return ui8 == *pui8First; });
}

// Whether both are such padding of the same value, or this one is and the other is not there.
bool IsSamePadding(const SPageImage& oImage, unsigned int uiField, const SPageImage& oOther, unsigned int uiOther)
{
    const auto fnFirst = [](const SPageImage& oIn, unsigned int uiIn) {
        return oIn.m_oMap.GetData()[oIn.m_oMap.GetField(uiIn).m_uiOffset];
    };
    return IsPlainPadding(oImage, uiField) &&
           (uiOther == gsc_uiNone ||
            (IsPlainPadding(oOther, uiOther) && fnFirst(oImage, uiField) == fnFirst(oOther, uiOther)));
}

void CompareFields(SPageImage& oImage, const std::vector<std::string>& asPaths, const SPageImage& oOther,
                   const std::map<std::string, unsigned int>& aoOthers)
{
    for (unsigned int i = 0; i < oImage.m_oMap.GetFieldCount(); ++i)
    {
        const CField& oField = oImage.m_oMap.GetField(i);
        SPageField& oPlace = oImage.m_aoFields[i];
        const auto itOther = aoOthers.find(asPaths[i]);
        const unsigned int uiOther = itOther == aoOthers.end() ? gsc_uiNone : itOther->second;
        if (IsSamePadding(oImage, i, oOther, uiOther))
        {
            continue;
        }
        oPlace.m_bOnlyHere = uiOther == gsc_uiNone;
        if (oField.m_eKind == CZorEdidMap::eKind_Group)
        {
            continue;
        }
        if (!oPlace.m_bOnlyHere)
        {
            oPlace.m_sOther = oOther.GetValue(uiOther);
        }
        oPlace.m_bDiffers = oPlace.m_bOnlyHere || oPlace.m_sOther != oImage.GetValue(i);
        for (unsigned int uiUp = oField.m_uiGroup; oPlace.m_bDiffers && uiUp != gsc_uiNone;
             uiUp = oImage.m_oMap.GetField(uiUp).m_uiGroup)
        {
            oImage.m_aoFields[uiUp].m_bDiffers = true;
        }
    }
}
} // namespace

SPageImage::SPageImage(SInput oInput, unsigned int uiThisYear) : m_oInput(std::move(oInput))
{
    m_oMap.Read(static_cast<unsigned int>(m_oInput.m_aui8Bytes.size()), m_oInput.m_aui8Bytes.data());
    m_aoFields.resize(m_oMap.GetFieldCount());
    m_uiAnnounced = FindAnnouncedEnd(m_oMap);
    m_aoFindings = CheckImage(m_oMap, uiThisYear);
    m_sFile = ShowName(m_oInput.m_sName.substr(m_oInput.m_sName.find_last_of('/') + 1));
    m_sTitle = FindTitle(*this);
    const bool bLoaded = m_oLoaded.Load(m_oInput);
    m_sProblem = m_oLoaded.GetProblem();
    m_aoModes = ListModes(m_oMap, bLoaded ? &m_oLoaded : nullptr);
    m_sMaker = FindMaker(m_oInput.m_aui8Bytes);
}

const CZorEdidMap::SField* SPageImage::FindField(unsigned int uiOffset, unsigned int uiBit) const
{
    const unsigned int uiLeaf = m_oMap.FindLeaf(uiOffset, uiBit);
    return uiLeaf == gsc_uiNone ? nullptr : &m_oMap.GetField(uiLeaf);
}

std::string SPageImage::GetValueAt(unsigned int uiOffset, unsigned int uiBit) const
{
    const unsigned int uiLeaf = m_oMap.FindLeaf(uiOffset, uiBit);
    return uiLeaf == gsc_uiNone ? "" : static_cast<const char*>(m_oMap.GetValue(uiLeaf));
}

double SPageImage::GetNumberAt(unsigned int uiOffset, unsigned int uiBit) const
{
    const CField* poField = FindField(uiOffset, uiBit);
    return poField == nullptr ? 0 : GetFieldNumber(*poField);
}

void CompareImages(SPage& oPage)
{
    std::vector<std::string> aasPaths[2];
    std::map<std::string, unsigned int> aaoFound[2];
    for (size_t i = 0; i < 2; ++i)
    {
        aaoFound[i] = MakePaths(*oPage.m_apoImages[i], aasPaths[i]);
    }
    for (size_t i = 0; i < 2; ++i)
    {
        SPageImage& oImage = *oPage.m_apoImages[i];
        const SPageImage& oOther = *oPage.m_apoImages[1 - i];
        CompareFields(oImage, aasPaths[i], oOther, aaoFound[1 - i]);
    }
    oPage.m_oPairs = MatchModes(oPage.m_apoImages[0]->m_aoModes, oPage.m_apoImages[1]->m_aoModes);
}

double GetNumberOf(const CZorEdidMap& oMap, unsigned int uiGroup, EZorEdidField eId)
{
    for (unsigned int i = uiGroup; i < oMap.GetField(uiGroup).m_uiEnd; ++i)
    {
        if (oMap.GetField(i).m_eId == eId)
        {
            return GetFieldNumber(oMap.GetField(i));
        }
    }
    return -1;
}

// Reading one image for the page, and comparing two.

#include "PageImage.h"

#include <algorithm>
#include <utility>

#include "MapDiff.h"
#include "MapText.h"
#include "PageParts.h"
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
        if (oField.m_eId == eZorEdidField_BaseDescriptorText && oField.m_uiOffset < CEdidUtils::msc_uiBlockSize &&
            oImage.m_oMap.GetField(oField.m_uiGroup).m_eId == eZorEdidField_BaseName && !oImage.GetValue(i).empty())
        {
            return oImage.GetValue(i);
        }
    }
    return oImage.m_sFile;
}

// Padding of a single value: more or less of it says nothing.
bool IsPlainPadding(const CZorEdidMap& oMap, unsigned int uiField)
{
    const CField& oField = oMap.GetField(uiField);
    const unsigned char* pui8First = oMap.GetData() + oField.m_uiOffset;
    return oField.m_eId == eZorEdidField_Padding &&
           std::all_of(pui8First, pui8First + oField.m_uiLength, [&](unsigned char ui8) { return ui8 == *pui8First; });
}

// Marks a leaf, or a group with all that it holds, and the groups that it lies in. uiOther is gsc_uiNone for what only
// oImage has. Bits that read the same, such as those of no stereo, are left to the bytes.
void MarkDifference(SPageImage& oImage, unsigned int uiField, const SPageImage& oOther, unsigned int uiOther)
{
    const CField& oField = oImage.m_oMap.GetField(uiField);
    const bool bOnlyHere = uiOther == gsc_uiNone;
    const std::string sOther = bOnlyHere ? "" : oOther.GetValue(uiOther);
    if (bOnlyHere ? IsPlainPadding(oImage.m_oMap, uiField) : sOther == oImage.GetValue(uiField))
    {
        return;
    }
    for (unsigned int i = uiField; i < oField.m_uiEnd; ++i)
    {
        oImage.m_aoFields[i] = { true, bOnlyHere, sOther };
    }
    for (unsigned int i = oField.m_uiGroup; i != gsc_uiNone; i = oImage.m_oMap.GetField(i).m_uiGroup)
    {
        oImage.m_aoFields[i].m_bDiffers = true;
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
    SPageImage& oFirst = *oPage.m_apoImages[0];
    SPageImage& oSecond = *oPage.m_apoImages[1];
    SMapPart aoParts[2]; // maps are not copied
    for (size_t i = 0; i < 2; ++i)
    {
        const CZorEdidMap& oMap = oPage.m_apoImages[i]->m_oMap;
        aoParts[i].m_oMap.Read(oMap.GetSize(), oMap.GetData());
    }
    for (const auto& [uiFirst, uiSecond] : CompareMaps(aoParts[0], aoParts[1]))
    {
        if (uiFirst != gsc_uiNone)
        {
            MarkDifference(oFirst, uiFirst, oSecond, uiSecond);
        }
        if (uiSecond != gsc_uiNone)
        {
            MarkDifference(oSecond, uiSecond, oFirst, uiFirst);
        }
    }
    oPage.m_oPairs = MatchModes(oFirst.m_aoModes, oSecond.m_aoModes);
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

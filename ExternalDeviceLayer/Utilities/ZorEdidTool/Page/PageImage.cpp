// Reading one image for the page, and comparing two.

#include "PageImage.h"

#include <algorithm>
#include <utility>

#include "CutBase.h"
#include "MapDiff.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

using CField = CZorEdidMap::SField;

CModes LoadAndList(const SInput& oInput, CLoadedImage& oLoaded)
{
    return oLoaded.Load(oInput) ? ListTimings(oLoaded) : CModes{};
}

CZorEdidFacts ReadFacts(const SInput& oInput)
{
    const std::vector<unsigned char> aui8Bytes = FillCutBase(oInput.m_aui8Bytes);
    CZorEdidFacts oFacts;
    oFacts.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data());
    return oFacts;
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

SPageImage::SPageImage(SInput oInput, unsigned int uiThisYear)
    : m_oInput(std::move(oInput)), m_oFacts(ReadFacts(m_oInput)), m_aoListed(LoadAndList(m_oInput, m_oLoaded)),
      m_oModes(FillCutBase(m_oInput.m_aui8Bytes), m_oLoaded.IsLoaded() ? &m_oLoaded.GetEdid() : nullptr, m_aoListed)
{
    m_oMap.Read(static_cast<unsigned int>(m_oInput.m_aui8Bytes.size()), m_oInput.m_aui8Bytes.data());
    m_aoFields.resize(m_oMap.GetFieldCount());
    m_aoFindings = CheckImage(m_oMap, uiThisYear);
    m_sFile = ShowName(m_oInput.m_sName.substr(m_oInput.m_sName.find_last_of('/') + 1));
    m_sTitle = m_oFacts.GetIdentity().m_oName.m_oValue.m_szText;
    m_sTitle = m_sTitle.empty() ? m_sFile : m_sTitle;
}

const CZorEdidMap::SField* SPageImage::FindField(unsigned int uiOffset, unsigned int uiBit) const
{
    const unsigned int uiLeaf = m_oMap.FindLeaf(uiOffset, uiBit);
    return uiLeaf == gsc_uiNone ? nullptr : &m_oMap.GetField(uiLeaf);
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
    oPage.m_poComparison = std::make_unique<SPageComparison>(oFirst, oSecond);
}

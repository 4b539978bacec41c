// Comparing modes, facts and fields, and saying what differs.

#include "ImageDiff.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "CutBase.h"
#include "ExactTimings.h"
#include "Json.h"
#include "MapText.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;

CFactList ReadFacts(const std::vector<unsigned char>& aui8Bytes)
{
    CZorEdidFacts oFacts;
    oFacts.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data());
    return ListFacts(oFacts);
}

// ---- Facts ----

struct SFactText
{
    std::string m_sJson;
    std::string m_sWords;
    EZorEdidField m_eId;
};

SFactText MakeText(const SNamedFact& oFact)
{
    CJsonWriter oJson(CJsonWriter::eStyle_Line);
    oFact.m_oValue.Write(oJson);
    return { oJson.GetText(), oFact.m_oValue.GetText(), oFact.m_eId };
}

// Of a block that was not read whole. What makes it so differs as a field; here it makes 'not said' 'not known'.
bool IsOfUnread(const SNamedFact& oFact) { return std::string_view(oFact.m_pszPath).starts_with("unread."); }

// By name; a list has its elements under its own name, each as an object. Where elements name their source, of which
// each has one, it is a part of the name: "link.vrr.ranges[hdmi-forum]".
using CFactTexts = std::multimap<std::string, SFactText>;

CFactTexts ListTexts(const CFactList& aoFacts)
{
    CFactTexts oTexts;
    for (size_t i = 0; i < aoFacts.size();)
    {
        const std::string_view sPath = aoFacts[i].m_pszPath;
        const size_t uiList = sPath.find('#');
        if (IsOfUnread(aoFacts[i]))
        {
            ++i;
            continue;
        }
        if (uiList == std::string_view::npos)
        {
            oTexts.emplace(sPath, MakeText(aoFacts[i]));
            ++i;
            continue;
        }
        const std::string_view sList = sPath.substr(0, uiList + 1);
        const EZorEdidField eId = aoFacts[i].m_eId;
        const unsigned int uiElement = aoFacts[i].m_uiElement;
        CJsonWriter oJson(CJsonWriter::eStyle_Line);
        std::vector<std::string> asWords;
        std::string sSource;
        oJson.BeginObject();
        for (; i < aoFacts.size() && aoFacts[i].m_uiElement == uiElement &&
               std::string_view(aoFacts[i].m_pszPath).starts_with(sList);
             ++i)
        {
            const std::string sName = aoFacts[i].m_pszPath + sList.size() + 1;
            oJson.Name(sName);
            aoFacts[i].m_oValue.Write(oJson);
            if (sName == "source")
            {
                sSource = "[" + aoFacts[i].m_oValue.GetText() + "]";
                continue;
            }
            asWords.push_back(sName + " " + aoFacts[i].m_oValue.GetText());
        }
        oJson.EndObject();
        oTexts.emplace(std::string(sList.substr(0, uiList)) + sSource,
                       SFactText{ oJson.GetText(), JoinTexts(asWords, "; "), eId });
    }
    return oTexts;
}

// Takes out of both lists what they share. Elements of lists are matched whatever their order.
void DropShared(CFactTexts& oFirst, CFactTexts& oSecond)
{
    for (auto it = oFirst.begin(); it != oFirst.end();)
    {
        const auto [itBegin, itEnd] = oSecond.equal_range(it->first);
        const auto itSame = std::find_if(
            itBegin, itEnd, [&](const auto& oOther) { return oOther.second.m_sJson == it->second.m_sJson; });
        const bool bShared = itSame != itEnd;
        if (bShared)
        {
            oSecond.erase(itSame);
        }
        it = bShared ? oFirst.erase(it) : std::next(it);
    }
}

// ---- Fields ----

bool HasError(const CZorEdidMap& oMap, unsigned int uiField)
{
    bool bError = false;
    for (unsigned int i = 0; i < oMap.GetNoteCount() && oMap.GetField(uiField).m_uiNotes != 0 && !bError; ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
        bError = oNote.m_uiField == uiField && oNote.m_eSeverity == CZorEdidMap::eSeverity_Error;
    }
    return bError;
}

// What follows from the content: how long things are, where they begin, sums, and places that are not used. A wrong one
// is a difference of its own.
bool IsLayout(const CZorEdidMap& oMap, unsigned int uiField)
{
    constexpr EZorEdidField aeLengths[] = {
        eZorEdidField_CtaDataBlockLength, eZorEdidField_CtaDetailedOffset,      eZorEdidField_CtaHdmiVicLen,
        eZorEdidField_CtaHdmi3dLen,       eZorEdidField_DisplayidSectionLength, eZorEdidField_DisplayidDataBlockLength
    };
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    // A length that does not fit is an error of the block; a checksum is wrong by its own note only.
    const bool bNoted = oField.m_uiNotes != 0 || (oField.m_eKind != CZorEdidMap::eKind_Checksum &&
                                                  oField.m_uiGroup != gsc_uiNone && HasError(oMap, oField.m_uiGroup));
    const bool bLength = std::ranges::find(aeLengths, oField.m_eId) != std::end(aeLengths);
    const bool bUnusedPair = oField.m_eId == eZorEdidField_BaseStandard && uiField + 1 < oField.m_uiEnd &&
                             oMap.GetField(uiField + 1).m_eId == eZorEdidField_Unused;
    const bool bCount = oField.m_eId == eZorEdidField_BaseExtensionCount;
    return ((bLength || bCount || oField.m_eKind == CZorEdidMap::eKind_Checksum) && !bNoted) || bUnusedPair ||
           oField.m_eId == eZorEdidField_Padding || oField.m_eId == eZorEdidField_BaseDummy;
}

// The sum or count of the other image that the field is compared with where only one of them is wrong.
unsigned int FindRightOne(const CZorEdidMap& oMap, unsigned int uiField, const SMapPart& oOther)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    for (const unsigned int i : oOther.m_oWithout)
    {
        const CZorEdidMap::SField& oRight = oOther.Get(i);
        const bool bSumOrCount =
            oRight.m_eKind == CZorEdidMap::eKind_Checksum || oRight.m_eId == eZorEdidField_BaseExtensionCount;
        if (bSumOrCount && oRight.m_eId == oField.m_eId &&
            oRight.m_uiOffset / ZorStandards::gsc_uiBlockSize == oField.m_uiOffset / ZorStandards::gsc_uiBlockSize)
        {
            return i;
        }
    }
    return gsc_uiNone;
}

// An extension block by its place, as there may be several of a kind.
std::string GetBlockText(const CZorEdidMap& oMap, unsigned int uiField)
{
    const unsigned int uiBlock = oMap.GetField(uiField).m_uiOffset / ZorStandards::gsc_uiBlockSize;
    const bool bExtension = oMap.GetField(uiField).m_uiDepth == 0 && uiBlock != 0;
    return bExtension ? FormatText(", block %u", uiBlock) : "";
}

// Bits of a list of codes, which move with the codes; what they say is said of the modes.
bool IsOfCodes(const CZorEdidMap::SField& oField)
{
    return oField.m_eId == eZorEdidField_CtaHdmi3dMaskPlace || oField.m_eId == eZorEdidField_Cta420MapVic;
}

// How a data block of timings writes them, which follows from its timings where the whole block is here alone.
bool IsFormOfTimings(EZorEdidField eId)
{
    constexpr EZorEdidField aeForms[] = { eZorEdidField_CtaType7M,        eZorEdidField_CtaType7Revision,
                                          eZorEdidField_CtaType8CodeType, eZorEdidField_CtaType8Ycbcr420,
                                          eZorEdidField_CtaType8CodeSize, eZorEdidField_CtaType8Revision,
                                          eZorEdidField_CtaType10M,       eZorEdidField_CtaType10Revision };
    return std::ranges::find(aeForms, eId) != std::end(aeForms);
}

// The place of the mode that the field is a part of: of itself or of a group that it lies in, and announces the mode.
unsigned int FindModePlace(const CZorEdidMap& oMap, unsigned int uiField)
{
    CZorEdidMap::SMode oMode;
    for (unsigned int i = uiField; i != gsc_uiNone; i = oMap.GetField(i).m_uiGroup)
    {
        if (oMap.GetMode(i, oMode) && !oMode.m_bReference)
        {
            return oMap.GetField(i).m_uiOffset;
        }
    }
    return gsc_uiNone;
}

// Bits and bytes without a meaning are said as they are.
std::string GetText(const CZorEdidMap& oMap, unsigned int uiField)
{
    constexpr size_t uiMost = 8; // bytes
    const std::string sText = uiField != gsc_uiNone ? GetFieldValue(oMap, uiField) : "";
    if (uiField == gsc_uiNone || !sText.empty() || oMap.GetField(uiField).m_eKind == CZorEdidMap::eKind_Group)
    {
        return uiField != gsc_uiNone && sText.empty() ? "present" : sText;
    }
    const std::vector<SFieldByte> aoBytes = GetFieldBytes(oMap, uiField);
    std::string sBytes = "0x";
    for (size_t i = 0; i < std::min(aoBytes.size(), uiMost); ++i)
    {
        const unsigned char ui8Bits =
            static_cast<unsigned char>(oMap.GetData()[aoBytes[i].m_uiOffset] & aoBytes[i].m_uiMask);
        sBytes += FormatHex(&ui8Bits, 1);
    }
    return sBytes + (aoBytes.size() > uiMost ? FormatText("... (%zu bytes)", aoBytes.size()) : "");
}

// Whether a fact that differs says what the field says: it is of this field, or a list of the names of all fields of
// its structure, or an element of a list, which says all that its group has.
bool IsSaidBy(const SFactDifference& oFact, const CZorEdidMap& oMap, unsigned int uiField)
{
    const EZorEdidField eId = oMap.GetField(uiField).m_eId;
    const std::string& sValue = oFact.m_asValues[oFact.m_asValues[0].empty() ? 1 : 0];
    if (oFact.m_eId == eZorEdidField_None || std::ranges::count(ListFields(oFact.m_eId), eId) != 0)
    {
        return oFact.m_eId != eZorEdidField_None;
    }
    if (oFact.m_sName.starts_with("colour.primaries.") || oFact.m_sName == "colour.white")
    {
        // Of two numbers, which the base block splits into fields of their own beside it.
        const std::string sId = CZorEdidMap::GetId(oFact.m_eId);
        return std::string_view(CZorEdidMap::GetId(eId)).starts_with(sId.substr(0, sId.rfind('.') + 1));
    }
    if (sValue.starts_with('['))
    {
        return std::string_view(CZorEdidMap::GetId(eId))
            .starts_with(CZorEdidMap::GetId(oFact.m_eId) + std::string("."));
    }
    const std::vector<unsigned int> auiChain = GetChain(oMap, uiField);
    return sValue.starts_with('{') && std::ranges::any_of(auiChain, [&](unsigned int uiGroup) {
               return oMap.GetField(uiGroup).m_eId == oFact.m_eId;
           });
}

using CImages = std::array<const SComparedImage*, 2>;

// What the maps say otherwise, but for what differing modes and facts say already.
class CFieldComparison
{
public:
    CFieldComparison(const CImages& apoImages, const std::vector<SFactDifference>& aoFacts,
                     const std::array<std::vector<const SModeRow*>, 2>& aapoOnly)
        : m_apoImages(apoImages), m_aoFacts(aoFacts)
    {
        for (size_t i = 0; i < 2; ++i)
        {
            AddPlaces(apoImages[i]->m_oModes, aapoOnly[i], m_aoOnly[i]);
            for (const SModeRow& oRow : apoImages[i]->m_oModes.GetRows())
            {
                m_aoRows[i].emplace(std::pair(oRow.m_poEntry->m_uiOffset, oRow.m_poEntry->m_eField), &oRow);
            }
        }
    }

    std::vector<SFieldDifference> Find() const
    {
        std::vector<SFieldDifference> aoFields;
        const auto fnIsSameMode = [this](unsigned int uiFirst, unsigned int uiSecond) {
            const SModeRow* poFirst = FindRow(0, uiFirst);
            const SModeRow* poSecond = FindRow(1, uiSecond);
            return poFirst != nullptr && poSecond != nullptr && IsSameMode(*poFirst, *poSecond);
        };
        for (const auto& [uiFirst, uiSecond] :
             CompareMapsInAnyOrder(m_apoImages[0]->m_oPart, m_apoImages[1]->m_oPart, fnIsSameMode))
        {
            std::array<unsigned int, 2> auiFields = { uiFirst, uiSecond };
            if (IsSaid(0, uiFirst) || IsSaid(1, uiSecond) || IsSame(auiFields))
            {
                continue;
            }
            const size_t uiImage = uiFirst != gsc_uiNone ? 0 : 1;
            const unsigned int uiField = auiFields[uiImage];
            if (auiFields[1 - uiImage] == gsc_uiNone)
            {
                auiFields[1 - uiImage] = FindRightOne(GetMap(uiImage), uiField, m_apoImages[1 - uiImage]->m_oPart);
            }
            aoFields.push_back({ GetMap(uiImage).GetField(uiField).m_eId,
                                 GetPath(GetMap(uiImage), uiField),
                                 GetBlockText(GetMap(uiImage), uiField) + GetModeText(uiImage, uiField),
                                 auiFields,
                                 { GetText(GetMap(0), auiFields[0]), GetText(GetMap(1), auiFields[1]) } });
        }
        DropMoved(aoFields);
        return aoFields;
    }

private:
    // The places of these modes, and of all that are the same: a mode that is announced twice here and once there may
    // be paired with either.
    static void AddPlaces(const CImageModes& oModes, const std::vector<const SModeRow*>& apoOnly,
                          std::set<unsigned int>& oPlaces)
    {
        using CSize = std::pair<unsigned int, unsigned int>;
        const auto fnSize = [](const SModeRow& oRow) {
            return CSize{ oRow.m_oMode.m_uiWidth, oRow.m_oMode.m_uiHeight };
        };
        std::map<CSize, std::vector<const SModeRow*>> aoDistinct;
        const auto fnHas = [&](const SModeRow& oRow) {
            return std::ranges::any_of(aoDistinct[fnSize(oRow)],
                                       [&](const SModeRow* poOther) { return IsSameMode(*poOther, oRow); });
        };
        for (const SModeRow* poOnly : apoOnly)
        {
            if (!fnHas(*poOnly))
            {
                aoDistinct[fnSize(*poOnly)].push_back(poOnly);
            }
        }
        for (const SModeRow& oRow : oModes.GetRows())
        {
            if (fnHas(oRow))
            {
                oPlaces.insert(oRow.m_poEntry->m_uiOffset);
            }
        }
    }

    const CZorEdidMap& GetMap(size_t uiImage) const { return m_apoImages[uiImage]->m_oPart.m_oMap; }

    // The mode that a group of fields announces; null for another group.
    const SModeRow* FindRow(size_t uiImage, unsigned int uiGroup) const
    {
        const CZorEdidMap::SField& oGroup = GetMap(uiImage).GetField(uiGroup);
        const auto itRow = m_aoRows[uiImage].find({ oGroup.m_uiOffset, oGroup.m_eId });
        return itRow != m_aoRows[uiImage].end() ? itRow->second : nullptr;
    }

    // Of a field in a timing the mode: ", 3840 x 2160 @ 119.88 Hz"; empty for another field.
    std::string GetModeText(size_t uiImage, unsigned int uiField) const
    {
        const CZorEdidMap& oMap = GetMap(uiImage);
        for (unsigned int i = oMap.GetField(uiField).m_uiGroup; i != gsc_uiNone; i = oMap.GetField(i).m_uiGroup)
        {
            if (const SModeRow* poRow = FindRow(uiImage, i); poRow != nullptr)
            {
                return ", " + GetSizeText(poRow->m_oMode) + " @ " + GetShortRate(poRow->m_oMode) + " Hz";
            }
        }
        return "";
    }

    // Of a group within a block also where nothing is left to be said of what it holds.
    bool IsSaid(size_t uiImage, unsigned int uiField) const
    {
        if (uiField == gsc_uiNone)
        {
            return false;
        }
        const CZorEdidMap& oMap = GetMap(uiImage);
        const CZorEdidMap::SField& oField = oMap.GetField(uiField);
        const auto fnIsSaidBy = [&](const SFactDifference& oFact) { return IsSaidBy(oFact, oMap, uiField); };
        if (IsOfCodes(oField) || m_aoOnly[uiImage].contains(FindModePlace(oMap, uiField)) ||
            std::ranges::any_of(m_aoFacts, fnIsSaidBy))
        {
            return true;
        }
        bool bAll = oField.m_eKind == CZorEdidMap::eKind_Group && oField.m_uiDepth != 0;
        bool bAny = false;
        for (unsigned int i = uiField + 1; i < oField.m_uiEnd && bAll; i = oMap.GetField(i).m_uiEnd)
        {
            const CZorEdidMap::EArea eArea = oMap.GetField(i).m_eArea;
            const bool bWord = oMap.GetField(i).m_eKind == CZorEdidMap::eKind_Group ||
                               (eArea != CZorEdidMap::eArea_Structure && eArea != CZorEdidMap::eArea_Unused &&
                                !IsFormOfTimings(oMap.GetField(i).m_eId));
            bAny = bAny || bWord;
            bAll = !bWord || IsSaid(uiImage, i);
        }
        return bAll && bAny;
    }

    bool IsSame(const std::array<unsigned int, 2>& auiFields) const
    {
        const auto [uiFirst, uiSecond] = auiFields;
        return uiFirst != gsc_uiNone && uiSecond != gsc_uiNone &&
               GetText(GetMap(0), uiFirst) == GetText(GetMap(1), uiSecond) &&
               m_apoImages[0]->m_oPart.GetBytes(uiFirst) == m_apoImages[1]->m_oPart.GetBytes(uiSecond);
    }

    // Takes out what each image has once, in another place of a list.
    void DropMoved(std::vector<SFieldDifference>& aoFields) const
    {
        using CKey = std::tuple<EZorEdidField, std::string, std::vector<unsigned char>>;
        const auto fnKey = [&](const SFieldDifference& oField, size_t uiImage) {
            return CKey{ oField.m_eId, oField.m_asValues[uiImage],
                         m_apoImages[uiImage]->m_oPart.GetBytes(oField.m_auiFields[uiImage]) };
        };
        std::multimap<CKey, size_t> auiOther; // what only the second image has
        for (size_t i = 0; i < aoFields.size(); ++i)
        {
            if (aoFields[i].m_auiFields[0] == gsc_uiNone)
            {
                auiOther.emplace(fnKey(aoFields[i], 1), i);
            }
        }
        std::set<size_t> auiMoved;
        for (size_t i = 0; i < aoFields.size(); ++i)
        {
            const bool bOnlyHere = aoFields[i].m_auiFields[1] == gsc_uiNone;
            const auto itOther = bOnlyHere ? auiOther.find(fnKey(aoFields[i], 0)) : auiOther.end();
            if (itOther != auiOther.end())
            {
                auiMoved.insert({ i, itOther->second });
                auiOther.erase(itOther);
            }
        }
        size_t uiField = 0;
        std::erase_if(aoFields, [&](const SFieldDifference&) { return auiMoved.contains(uiField++); });
    }

    const CImages& m_apoImages;
    const std::vector<SFactDifference>& m_aoFacts;
    std::array<std::set<unsigned int>, 2> m_aoOnly; // offsets of the modes that only one image has
    // The first row of each field that announces modes, by offset and id.
    std::array<std::map<std::pair<unsigned int, EZorEdidField>, const SModeRow*>, 2> m_aoRows;
};

// ---- Forms of a mode ----

std::array<std::string, 2> Get420Values(const CRowPair& apoPair)
{
    const auto fnText = [](const SModeRow* poRow) {
        const SZorMode::EY420 eY420 = poRow->m_oMode.m_eY420;
        return eY420 == SZorMode::eY420_Also ? "also" : eY420 == SZorMode::eY420_Only ? "only" : "no";
    };
    return { fnText(apoPair.first), fnText(apoPair.second) };
}

std::array<std::string, 2> Get3dValues(const CRowPair& apoPair)
{
    const bool bBoth = apoPair.first->Is3d() && apoPair.second->Is3d();
    return { apoPair.first->Is3d() ? "yes" : "no", bBoth ? "yes, other forms" : apoPair.second->Is3d() ? "yes" : "no" };
}

// Of the pairs that differ in a form the modes with the same two values together.
void AddForms(const char* pszForm, const std::vector<CRowPair>& apoPairs, bool (*pfnDiffer)(const CRowPair&),
              std::array<std::string, 2> (*pfnValues)(const CRowPair&), std::vector<SFormDifference>& aoForms)
{
    constexpr size_t uiMostNamed = 3;
    std::map<std::array<std::string, 2>, std::vector<const SModeRow*>> apoByValues;
    for (const CRowPair& apoPair : apoPairs)
    {
        if (pfnDiffer(apoPair))
        {
            apoByValues[pfnValues(apoPair)].push_back(apoPair.first);
        }
    }
    for (const auto& [asValues, apoRows] : apoByValues)
    {
        std::vector<std::string> asNames;
        for (const SModeWithPartner& oMode : GroupPartners(apoRows))
        {
            const SZorMode& oNamed = oMode.m_poRow->m_oMode;
            asNames.push_back(GetSizeText(oNamed) + " @ " + GetShortRate(oNamed) + " Hz");
        }
        aoForms.push_back({ pszForm, asValues,
                            FormatText("%zu mode%s", asNames.size(), asNames.size() == 1 ? "" : "s") +
                                (asNames.size() <= uiMostNamed ? ": " + JoinTexts(asNames) : "") });
    }
}
} // namespace

SComparedImage::SComparedImage(const std::vector<unsigned char>& aui8Bytes)
    : m_aoFacts(ReadFacts(FillCutBase(aui8Bytes))), m_oModes(FillCutBase(aui8Bytes), nullptr, {})
{
    m_oPart.m_oMap.Read(static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data());
    for (unsigned int i = 0; i < m_oPart.m_oMap.GetFieldCount(); ++i)
    {
        if (IsLayout(m_oPart.m_oMap, i))
        {
            m_oPart.m_oWithout.insert(i);
        }
    }
}

CImageDiff::CImageDiff(const SComparedImage& oFirst, const SComparedImage& oSecond, const SDiffRules& oRules)
    : m_apoImages{ &oFirst, &oSecond }, m_oRules(oRules), m_oPairs(MatchModes(oFirst.m_oModes, oSecond.m_oModes))
{
    const SModeRow* poFirst = oFirst.m_oModes.FindPreferred();
    const SModeRow* poSecond = oSecond.m_oModes.FindPreferred();
    const bool bDiffer =
        poFirst == nullptr || poSecond == nullptr ? poFirst != poSecond : !IsSameMode(*poFirst, *poSecond);
    m_apoForms = PairButForms(ListUnpaired(0), ListUnpaired(1));
    const bool bSaid = std::ranges::count(m_apoForms, CRowPair(poFirst, poSecond)) != 0;
    m_bPreferred = bDiffer && !bSaid && !oRules.m_bIgnorePreferred;
    if (oRules.m_bAll)
    {
        FindFacts();
        m_aoFields = CFieldComparison(m_apoImages, m_aoFacts, { ListUnpaired(0), ListUnpaired(1) }).Find();
    }
}

std::vector<const SModeRow*> CImageDiff::ListOnly(size_t uiImage) const { return ListButForms(uiImage, false); }
std::vector<const SModeRow*> CImageDiff::ListMore(size_t uiImage) const { return ListButForms(uiImage, true); }

std::vector<const SModeRow*> CImageDiff::ListButForms(size_t uiImage, bool bShared) const
{
    std::set<const SModeRow*> apoDiffering;
    for (const CRowPair& apoPair : m_apoForms)
    {
        apoDiffering.insert(uiImage == 0 ? apoPair.first : apoPair.second);
    }
    std::vector<const SModeRow*> apoRows = ListUnpaired(uiImage, bShared);
    std::erase_if(apoRows, [&](const SModeRow* poRow) { return apoDiffering.contains(poRow); });
    return apoRows;
}

std::vector<const SModeRow*> CImageDiff::ListUnpaired(size_t uiImage) const
{
    std::vector<const SModeRow*> apoRows = ListUnpaired(uiImage, false);
    const std::vector<const SModeRow*> apoMore = ListUnpaired(uiImage, true);
    apoRows.insert(apoRows.end(), apoMore.begin(), apoMore.end());
    return apoRows;
}

// bShared: those that the other image has as well.
std::vector<const SModeRow*> CImageDiff::ListUnpaired(size_t uiImage, bool bShared) const
{
    const bool bEstablished = m_oRules.m_bEstablished || m_oRules.m_bAll;
    const std::vector<SModeRow>& aoRows = m_apoImages[uiImage]->m_oModes.GetRows();
    std::vector<const SModeRow*> apoOnly;
    for (size_t i = 0; i < aoRows.size(); ++i)
    {
        // All are matched, so that another field may announce what an established timing of the other image does.
        const SZorMode::EModeKind eKind = aoRows[i].m_oMode.m_eKind;
        const bool bLeftOut =
            !bEstablished && (eKind == SZorMode::eModeKind_Established || eKind == SZorMode::eModeKind_EstablishedIII);
        if (m_oPairs.HasNoPartner(uiImage, i) && m_oPairs.IsOnlyHere(uiImage, i) != bShared && !bLeftOut)
        {
            apoOnly.push_back(&aoRows[i]);
        }
    }
    return apoOnly;
}

std::vector<SFormDifference> CImageDiff::ListForms() const
{
    std::vector<SFormDifference> aoForms;
    AddForms("4:2:0", m_apoForms, DifferIn420, Get420Values, aoForms);
    AddForms("3D", m_apoForms, DifferIn3d, Get3dValues, aoForms);
    return aoForms;
}

void CImageDiff::FindFacts()
{
    CFactTexts oFirst = ListTexts(m_apoImages[0]->m_aoFacts);
    CFactTexts oSecond = ListTexts(m_apoImages[1]->m_aoFacts);
    DropShared(oFirst, oSecond);
    const auto fnNone = [this](size_t uiImage) {
        const bool bUnread = std::ranges::any_of(m_apoImages[uiImage]->m_aoFacts, IsOfUnread);
        return SFactText{ "", bUnread ? "not known" : "not said", eZorEdidField_None };
    };
    const auto fnAdd = [this](const std::string& sName, EZorEdidField eId, const SFactText& oOne,
                              const SFactText& oOther) {
        m_aoFacts.push_back({ sName, eId, { oOne.m_sJson, oOther.m_sJson }, { oOne.m_sWords, oOther.m_sWords } });
    };
    for (const auto& [sName, oText] : oFirst)
    {
        const auto itOther = oSecond.find(sName);
        const bool bBoth =
            itOther != oSecond.end() && (!oText.m_sJson.starts_with('{') || sName.ends_with(']')); // elements by source
        fnAdd(sName, oText.m_eId, oText, bBoth ? itOther->second : fnNone(1));
        if (bBoth)
        {
            oSecond.erase(itOther);
        }
    }
    for (const auto& [sName, oText] : oSecond)
    {
        fnAdd(sName, oText.m_eId, fnNone(0), oText);
    }
    std::ranges::stable_sort(m_aoFacts, {}, &SFactDifference::m_sName);
}

// ---- In words ----

std::string DescribeMode(const SModeRow& oRow)
{
    std::string sText = oRow.m_oMode.m_bTiming ? GetExactNumbers(oRow.m_oMode) : GetExactText(oRow.m_oMode);
    sText.erase(0, sText.find_first_not_of(' '));
    for (const std::string& sMark : ListMarks(oRow))
    {
        sText += "  " + sMark;
    }
    return sText;
}

std::string SModeWithPartner::GetPartnerText() const
{
    return m_poPartner == nullptr ? "" : ", and at " + GetShortRate(m_poPartner->m_oMode) + " Hz";
}

std::vector<SModeWithPartner> GroupPartners(const std::vector<const SModeRow*>& apoRows)
{
    std::vector<SModeWithPartner> aoModes;
    for (const SModeRow* poRow : apoRows)
    {
        if (!aoModes.empty() && aoModes.back().m_poRow->m_poEntry == poRow->m_poEntry)
        {
            aoModes.back().m_poPartner = poRow;
        }
        else
        {
            aoModes.push_back({ poRow, nullptr });
        }
    }
    return aoModes;
}

// What one image prefers, and whether the other one has it at all.
std::string DescribePreferred(const CImageDiff& oDiff, size_t uiImage, const SDiffWords& oWords)
{
    const SModeRow* poPreferred = oDiff.GetImage(uiImage).m_oModes.FindPreferred();
    if (poPreferred == nullptr)
    {
        return oWords.m_asPreferred[uiImage] + ": none\n";
    }
    const bool bShared = std::ranges::any_of(oDiff.GetImage(1 - uiImage).m_oModes.GetRows(),
                                             [&](const SModeRow& oRow) { return IsSameMode(oRow, *poPreferred); });
    const std::string& sMark = bShared ? oWords.m_asShared[uiImage] : oWords.m_asOnly[uiImage];
    return oWords.m_asPreferred[uiImage] + ": " + DescribeMode(*poPreferred) + (sMark.empty() ? "" : "  " + sMark) +
           "\n";
}

// But what has been said of the preferred mode. bOnce: a mode in several places has one line where all say the same.
std::string DescribeModes(const CImageDiff& oDiff, size_t uiImage, std::vector<const SModeRow*> apoRows,
                          const std::string& sWord, bool bOnce)
{
    std::string sText;
    std::set<std::string> oLines;
    const SModeRow* poPreferred = oDiff.GetImage(uiImage).m_oModes.FindPreferred();
    const bool bSaid = oDiff.DifferInPreferred() && poPreferred != nullptr;
    // That row, or another one of its mode where it has a partner.
    auto itSaid = std::ranges::find(apoRows, poPreferred);
    if (itSaid == apoRows.end())
    {
        itSaid = std::ranges::find_if(apoRows,
                                      [&](const SModeRow* poRow) { return bSaid && IsSameMode(*poRow, *poPreferred); });
    }
    if (bSaid && itSaid != apoRows.end())
    {
        apoRows.erase(itSaid);
    }
    for (const SModeWithPartner& oMode : GroupPartners(apoRows))
    {
        const std::string sLine = sWord + ": " + DescribeMode(*oMode.m_poRow) + oMode.GetPartnerText() + "\n";
        sText += oLines.insert(sLine).second || !bOnce ? sLine : "";
    }
    return sText;
}

std::string DescribeDiff(const CImageDiff& oDiff, const SDiffWords& oWords)
{
    std::string sText;
    for (size_t i = 0; i < 2 && oDiff.DifferInPreferred(); ++i)
    {
        sText += DescribePreferred(oDiff, i, oWords);
    }
    for (size_t i = 0; i < 2; ++i)
    {
        sText += DescribeModes(oDiff, i, oDiff.ListOnly(i), oWords.m_asOnly[i], true);
    }
    for (const SFormDifference& oForm : oDiff.ListForms())
    {
        sText += oForm.m_pszForm + (": " + oForm.m_asValues[0]) + " | " + oForm.m_asValues[1] + " (" + oForm.m_sModes +
                 ")\n";
    }
    for (size_t i = 0; i < 2; ++i)
    {
        sText += DescribeModes(oDiff, i, oDiff.ListMore(i), oWords.m_asMore[i], false);
    }
    for (const SFactDifference& oFact : oDiff.GetFacts())
    {
        sText += oFact.m_sName + ": " + oFact.m_asWords[0] + " | " + oFact.m_asWords[1] + "\n";
    }
    const auto fnValue = [](const std::string& sValue) { return sValue.empty() ? std::string("missing") : sValue; };
    for (const SFieldDifference& oField : oDiff.GetFields())
    {
        sText += std::string(CZorEdidMap::GetId(oField.m_eId)) + " (" + oField.m_sPath + oField.m_sWhich +
                 "): " + fnValue(oField.m_asValues[0]) + " | " + fnValue(oField.m_asValues[1]) + "\n";
    }
    return sText;
}

void WriteDiff(const CImageDiff& oDiff, CJsonWriter& oJson)
{
    constexpr const char* apszOnly[] = { "only_in_first", "only_in_second" };
    constexpr const char* apszMore[] = { "more_in_first", "more_in_second" };
    const auto fnModes = [&](const char* pszName, const std::vector<const SModeRow*>& apoRows) {
        oJson.BeginArray(pszName);
        for (const SModeRow* poRow : apoRows)
        {
            WriteMode(*poRow, oJson);
        }
        oJson.EndArray();
    };
    constexpr const char* apszSides[] = { "first", "second" };
    oJson.BeginObject("modes");
    for (size_t i = 0; i < 2; ++i)
    {
        fnModes(apszOnly[i], oDiff.ListOnly(i));
        fnModes(apszMore[i], oDiff.ListMore(i));
    }
    const auto fnPairs = [&](const char* pszName, bool b420) {
        oJson.BeginArray(pszName);
        for (const CRowPair& apoPair : oDiff.GetFormPairs())
        {
            if (DifferIn420(apoPair) == b420)
            {
                oJson.BeginObject();
                oJson.Name(apszSides[0]);
                WriteMode(*apoPair.first, oJson);
                oJson.Name(apszSides[1]);
                WriteMode(*apoPair.second, oJson);
                oJson.EndObject();
            }
        }
        oJson.EndArray();
    };
    fnPairs("stereo", false);
    fnPairs("ycbcr420", true);
    if (oDiff.DifferInPreferred())
    {
        oJson.BeginObject("preferred");
        for (size_t i = 0; i < 2; ++i)
        {
            if (const SModeRow* poPreferred = oDiff.GetImage(i).m_oModes.FindPreferred(); poPreferred != nullptr)
            {
                oJson.Name(apszSides[i]);
                WriteMode(*poPreferred, oJson);
            }
        }
        oJson.EndObject();
    }
    oJson.EndObject();
    if (!oDiff.GetRules().m_bAll)
    {
        return;
    }
    const auto fnValues = [&](const std::array<std::string, 2>& asValues, bool bJson) {
        for (size_t i = 0; i < 2; ++i)
        {
            if (!asValues[i].empty())
            {
                oJson.Name(apszSides[i]);
                bJson ? oJson.Raw(asValues[i]) : oJson.Value(asValues[i]);
            }
        }
    };
    oJson.BeginArray("facts");
    for (const SFactDifference& oFact : oDiff.GetFacts())
    {
        oJson.BeginObject();
        oJson.Member("fact", oFact.m_sName);
        fnValues(oFact.m_asValues, true);
        oJson.EndObject();
    }
    oJson.EndArray();
    oJson.BeginArray("fields");
    for (const SFieldDifference& oField : oDiff.GetFields())
    {
        oJson.BeginObject();
        oJson.Member("id", CZorEdidMap::GetId(oField.m_eId));
        oJson.Member("path", oField.m_sPath);
        fnValues(oField.m_asValues, false);
        oJson.EndObject();
    }
    oJson.EndArray();
}

// CZorEdidWriter: the bits of a value put into the image, the checksums over them made right, and all of it read back.

#include "ZorEdidWriter.h"

#include <string.h>

#include "EdidUtils.h"
#include "MapGroupName.h"
#include "MapWrite.h"
#include "MapWriter.h"
#include "Standards/BaseBlock.h"
#include "ZorTools.h"

namespace ZorMap
{
namespace
{
using CField = CZorEdidMap::SField;
using CFields = CZorEdidWriter::CFields;

constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;
constexpr unsigned int gsc_uiMostRawBits = 32;
constexpr char gsc_szRaw[] = "raw:";

// Bytes of an image.
struct SBytes
{
    unsigned int m_uiFirst;
    unsigned int m_uiEnd;

    bool Holds(unsigned int uiOffset, unsigned int uiLength) const
    {
        return uiOffset >= m_uiFirst && uiOffset + uiLength <= m_uiEnd;
    }
};

bool IsBytesInRow(const SMapContent& oMap, const CField& oField)
{
    constexpr unsigned char ui8WholeByte = 0xFF;
    return oField.m_uiPieces == 1 && oMap.m_aoPieces[oField.m_uiFirstPiece].m_ui8Mask == ui8WholeByte;
}

// ---- What the bits are to be ----

// One way to write a leaf: the new bytes of the image, or the reason of a refusal.
struct SDraft
{
    CImageBytes m_aui8Image;
    CMString m_oText; // what the field must then say; empty where the bytes themselves were given
    bool m_bExact = true;
    SBytes m_oRoom = { 0, 0 }; // bytes whose fields may change with the value: of a text
    CMString m_oReason = {};
};

SDraft Refuse(const CMString& oReason)
{
    SDraft oDraft;
    oDraft.m_oReason = oReason;
    return oDraft;
}

void PutBytes(const CImageBytes& aui8Bytes, unsigned int uiOffset, CImageBytes& aui8Image)
{
    ZorTools_memcpy(aui8Image.GetData() + uiOffset, aui8Bytes.GetData(), aui8Bytes.GetCount());
}

SDraft DraftBytes(const SMapContent& oMap, const CField& oField, const char* pszBytes)
{
    CImageBytes aui8Bytes;
    if (!ParseHexBytes(pszBytes, aui8Bytes) || aui8Bytes.GetCount() != oField.m_uiLength)
    {
        CMString oReason;
        oReason.Format("it takes %u bytes of two hexadecimal digits each", oField.m_uiLength);
        return Refuse(oReason);
    }
    SDraft oDraft = { oMap.m_aui8Data, {} };
    PutBytes(aui8Bytes, oField.m_uiOffset, oDraft.m_aui8Image);
    return oDraft;
}

SDraft DraftRaw(const SMapContent& oMap, const CField& oField, const char* pszRaw)
{
    const unsigned int uiBits = CountBits(oMap, oField);
    if (IsBytesInRow(oMap, oField) && oField.m_uiLength > 1)
    {
        return DraftBytes(oMap, oField, pszRaw);
    }
    unsigned int uiRaw = 0;
    if (uiBits > gsc_uiMostRawBits || !ParseRaw(pszRaw, uiRaw) || (uiBits < gsc_uiMostRawBits && uiRaw >> uiBits != 0))
    {
        CMString oReason;
        oReason.Format("raw: takes a number of %u bits, decimal or hexadecimal after 0x", uiBits);
        return Refuse(oReason);
    }
    SDraft oDraft = { oMap.m_aui8Data, {} };
    PutRaw(oMap, oField, uiRaw, oDraft.m_aui8Image);
    return oDraft;
}

// Whether a leaf is the line feed in the place of a text descriptor's text, which is empty and has no leaf.
bool IsEmptyText(const SMapContent& oMap, unsigned int uiField)
{
    const CField& oField = oMap.GetField(uiField);
    return oField.m_eId == eId_LineFeed && oField.m_uiGroup != gsc_uiNone &&
           oField.m_uiOffset == oMap.GetField(oField.m_uiGroup).m_uiOffset + Descriptors::gsc_uiContentsOffset;
}

// That line feed of a group which is a text descriptor with an empty text: setting the group sets the text.
unsigned int FindEmptyText(const SMapContent& oMap, unsigned int uiGroup)
{
    for (unsigned int i = uiGroup + 1; i < oMap.GetField(uiGroup).m_uiEnd; ++i)
    {
        if (oMap.GetField(i).m_uiGroup == uiGroup && IsEmptyText(oMap, i))
        {
            return i;
        }
    }
    return gsc_uiNone;
}

// A text descriptor ends its text by a line feed and blanks, so that the text may take all of its room. Other texts
// fill theirs.
SBytes GetTextRoom(const SMapContent& oMap, unsigned int uiField)
{
    const CField& oField = oMap.GetField(uiField);
    SBytes oRoom = { oField.m_uiOffset, oField.m_uiOffset + oField.m_uiLength };
    if (oField.m_eId == eId_BaseDescriptorText || IsEmptyText(oMap, uiField))
    {
        const CField& oGroup = oMap.GetField(oField.m_uiGroup);
        oRoom.m_uiEnd = oGroup.m_uiOffset + oGroup.m_uiLength;
    }
    return oRoom;
}

SDraft DraftText(const SMapContent& oMap, unsigned int uiField, const char* pszText)
{
    constexpr char cFirst = ' ';
    constexpr char cLast = '~';
    const CField& oField = oMap.GetField(uiField);
    const SBytes oRoom = GetTextRoom(oMap, uiField);
    const unsigned int uiRoom = oRoom.m_uiEnd - oRoom.m_uiFirst;
    const size_t uiLength = strlen(pszText);
    bool bPlain = true;
    for (const char* pszNext = pszText; *pszNext != '\0'; ++pszNext)
    {
        bPlain = bPlain && *pszNext >= cFirst && *pszNext <= cLast;
    }
    if (!bPlain || uiLength == 0 || uiLength > uiRoom)
    {
        CMString oReason;
        oReason.Format(uiRoom == 1 ? "it takes %u ASCII character" : "it takes 1 to %u ASCII characters", uiRoom);
        return Refuse(oReason);
    }
    SDraft oDraft = { oMap.m_aui8Data, pszText };
    oDraft.m_oRoom = oRoom;
    unsigned char* pui8Room = oDraft.m_aui8Image.GetData() + oRoom.m_uiFirst;
    const auto uiText = static_cast<unsigned int>(uiLength);
    for (unsigned int i = 0; i < uiRoom; ++i)
    {
        pui8Room[i] = static_cast<unsigned char>(i < uiText ? pszText[i] : cFirst);
    }
    if (oField.m_eId != eId_BaseDescriptorText && !IsEmptyText(oMap, uiField))
    {
        oDraft.m_oText += CMString(cFirst, uiRoom - uiText);
    }
    else if (uiText < uiRoom)
    {
        pui8Room[uiText] = gsc_ui8LineFeed;
    }
    return oDraft;
}

SDraft DraftChoice(const SMapContent& oMap, unsigned int uiField, const char* pszValue)
{
    const SRawChoice oChoice = ChooseRaw(oMap, uiField, pszValue);
    if (!oChoice.m_bFound)
    {
        return Refuse(oChoice.m_oReason);
    }
    SDraft oDraft = { oMap.m_aui8Data, oChoice.m_oText, oChoice.m_bExact };
    PutRaw(oMap, oMap.GetField(uiField), oChoice.m_uiRaw, oDraft.m_aui8Image);
    return oDraft;
}

// ---- Rates of range limits ----

// Past 255 they need an offset, which has bits of its own.
const Descriptors::SRatePlaces* FindRatePlaces(EZorEdidField eId)
{
    const bool bVertical = eId == eId_BaseRangeMinVerticalRate || eId == eId_BaseRangeMaxVerticalRate;
    const bool bHorizontal = eId == eId_BaseRangeMinHorizontalRate || eId == eId_BaseRangeMaxHorizontalRate;
    return bVertical ? &Descriptors::gsc_oVerticalRates : bHorizontal ? &Descriptors::gsc_oHorizontalRates : nullptr;
}

SDraft DraftRate(const SMapContent& oMap, unsigned int uiField, const char* pszValue)
{
    using namespace Descriptors;
    constexpr unsigned int uiMostRate = 2 * gsc_uiRateOffset;
    const CField& oField = oMap.GetField(uiField);
    const SRatePlaces& oPlaces = *FindRatePlaces(oField.m_eId);
    const unsigned char* pui8Limits = oMap.GetData() + oMap.GetField(oField.m_uiGroup).m_uiOffset;
    const unsigned int uiOffsets = oPlaces.m_oOffsets.Read(pui8Limits);
    const bool bMaximum =
        oField.m_eId == eId_BaseRangeMaxVerticalRate || oField.m_eId == eId_BaseRangeMaxHorizontalRate;
    unsigned int uiLeast = oPlaces.m_oMinimum.Read(pui8Limits) + (IsMinimumOffset(uiOffsets) ? gsc_uiRateOffset : 0);
    unsigned int uiMost = oPlaces.m_oMaximum.Read(pui8Limits) + (IsMaximumOffset(uiOffsets) ? gsc_uiRateOffset : 0);
    // A minimum with an offset is below a maximum with one.
    const unsigned int uiFrom = bMaximum && uiLeast > gsc_uiRateOffset ? gsc_uiRateOffset + 1 : 1;
    const unsigned int uiTo = bMaximum || uiMost > gsc_uiRateOffset ? uiMostRate : gsc_uiRateOffset;
    unsigned int uiRate = 0;
    const bool bNumber = ParseWholeNumber(pszValue, oField.m_pszUnit, uiRate);
    if (!bNumber || uiRate < uiFrom || uiRate > uiTo)
    {
        CMString oReason;
        oReason.Format("%s; it takes %u to %u %s",
                       !bNumber      ? "not a value of this field"
                       : uiRate == 0 ? "a reserved, unknown or forbidden value"
                                     : "out of range",
                       uiFrom, uiTo, oField.m_pszUnit);
        return Refuse(oReason);
    }
    (bMaximum ? uiMost : uiLeast) = uiRate;
    SDraft oDraft = { oMap.m_aui8Data, FormatNumber(uiRate, 0, oField.m_pszUnit) };
    WriteRates(oDraft.m_aui8Image.GetData() + oMap.GetField(oField.m_uiGroup).m_uiOffset, oPlaces, uiLeast, uiMost,
               true);
    return oDraft;
}

// Why a value cannot be given by its meaning; null where it can.
const char* GetOnlyRaw(const SMapContent& oMap, unsigned int uiField)
{
    const CField& oField = oMap.GetField(uiField);
    switch (oField.m_eKind)
    {
    case CZorEdidMap::eKind_Reserved:
        return "it is reserved or filler; raw: writes its bits";
    case CZorEdidMap::eKind_Unknown:
        return "its meaning is not known; raw: writes its bits";
    case CZorEdidMap::eKind_Checksum:
        return "it is a checksum, which follows the bytes; raw: writes it";
    case CZorEdidMap::eKind_Bytes:
        return oField.m_eArea == eArea_Structure ? "the standard fixes it; raw: writes its bytes" : nullptr;
    default:
        return nullptr;
    }
}

// With the id of its first field that is set by a value and says more than tags and lengths.
SDraft RefuseGroup(const SMapContent& oMap, unsigned int uiGroup)
{
    const unsigned int uiEnd = oMap.GetField(uiGroup).m_uiEnd;
    unsigned int uiField = uiGroup + 1;
    while (uiField < uiEnd &&
           (oMap.GetField(uiField).m_eKind == CZorEdidMap::eKind_Group ||
            CZorEdidMap::GetId(oMap.GetField(uiField).m_eId) == nullptr ||
            oMap.GetField(uiField).m_eArea == eArea_Structure || GetOnlyRaw(oMap, uiField) != nullptr))
    {
        ++uiField;
    }
    const CMString sReason = "it is a group; its fields are set one by one";
    return Refuse(uiField == uiEnd ? sReason
                                   : sReason + ", such as " + CZorEdidMap::GetId(oMap.GetField(uiField).m_eId));
}

SDraft MakeDraft(const SMapContent& oMap, unsigned int uiField, const char* pszValue)
{
    const CField& oField = oMap.GetField(uiField);
    if (oField.m_eKind == CZorEdidMap::eKind_Group)
    {
        return RefuseGroup(oMap, uiField);
    }
    if (strncmp(pszValue, gsc_szRaw, strlen(gsc_szRaw)) == 0)
    {
        return DraftRaw(oMap, oField, pszValue + strlen(gsc_szRaw));
    }
    if (const char* pszOnlyRaw = GetOnlyRaw(oMap, uiField))
    {
        return Refuse(pszOnlyRaw);
    }
    const CMString oText = FormatValue(oMap, uiField);
    if (oText == pszValue)
    {
        return { oMap.m_aui8Data, oText };
    }
    const bool bOffsets = oMap.m_oFacts.m_uiRevision >= BaseBlock::gsc_uiVideoInputRevision;
    if (bOffsets && FindRatePlaces(oField.m_eId) != nullptr)
    {
        return DraftRate(oMap, uiField, pszValue);
    }
    const SRow& oRow = *oMap.m_aoEntries[uiField].m_oOrigin.m_poRow;
    if (oRow.m_oPlace.m_ui8Run == 0)
    {
        return DraftChoice(oMap, uiField, pszValue);
    }
    return oField.m_eKind == CZorEdidMap::eKind_Text && oRow.m_oForm.m_pfnText == nullptr
               ? DraftText(oMap, uiField, pszValue)
               : DraftBytes(oMap, oField, pszValue);
}

// ---- What follows ----

bool IsChanged(const SMapContent& oMap, const CImageBytes& aui8Image, unsigned int uiOffset, unsigned int uiLength)
{
    return memcmp(oMap.GetData() + uiOffset, aui8Image.GetData() + uiOffset, uiLength) != 0;
}

// Checksums over changed bytes, apart from the field that is set itself. That of a section comes before that of the
// block, which is over both.
void FollowWithChecksums(const SMapContent& oMap, unsigned int uiField, CImageBytes& aui8Image, CFields& auiFollowed)
{
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const auto& [oField, oOrigin] = oMap.m_aoEntries[i];
        if (oField.m_eKind != CZorEdidMap::eKind_Checksum || i == uiField ||
            !IsChanged(oMap, aui8Image, oOrigin.m_uiOffset, oOrigin.m_uiLength))
        {
            continue;
        }
        const unsigned char ui8Read = aui8Image[oField.m_uiOffset];
        CEdidUtils::StoreChecksum(oOrigin.m_uiLength, aui8Image.GetData() + oOrigin.m_uiOffset);
        if (aui8Image[oField.m_uiOffset] != ui8Read)
        {
            auiFollowed.Add(i);
        }
    }
}

// ---- Reading back ----

bool HasSamePlace(const CField& oFirst, const CField& oSecond)
{
    return oFirst.m_eId == oSecond.m_eId && oFirst.m_eKind == oSecond.m_eKind &&
           oFirst.m_uiOffset == oSecond.m_uiOffset && oFirst.m_uiLength == oSecond.m_uiLength &&
           oFirst.m_uiDepth == oSecond.m_uiDepth && strcmp(oFirst.m_pszName, oSecond.m_pszName) == 0;
}

// A minimum that is stored as a fraction of a maximum, and the offsets of rates.
struct SDependence
{
    EZorEdidField m_eId;
    EZorEdidField m_eDependent;
};

constexpr SDependence gsc_aoDependences[] = {
    { eId_CtaHdrStaticMaxLuminance, eId_CtaHdrStaticMinLuminance },
    { eId_CtaAmdMaxLuminance, eId_CtaAmdMinLuminance },
    { eId_CtaAmdSecondMaxLuminance, eId_CtaAmdSecondMinLuminance },
    { eId_BaseRangeMinVerticalRate, eId_BaseRangeVerticalRateOffsets },
    { eId_BaseRangeMaxVerticalRate, eId_BaseRangeVerticalRateOffsets },
    { eId_BaseRangeMinHorizontalRate, eId_BaseRangeHorizontalRateOffsets },
    { eId_BaseRangeMaxHorizontalRate, eId_BaseRangeHorizontalRateOffsets },
};

// eZorEdidField_None for a field that no other depends on.
EZorEdidField GetDependent(EZorEdidField eId)
{
    for (const SDependence& oDependence : gsc_aoDependences)
    {
        if (oDependence.m_eId == eId)
        {
            return oDependence.m_eDependent;
        }
    }
    return eZorEdidField_None;
}

// Two maps of images of the same size, before and after a change.
class CComparison
{
public:
    // Fields that may differ: uiField, the one that depends on it, and all that lie in the room.
    CComparison(const SMapContent& oBefore, const SMapContent& oAfter, unsigned int uiField, const SBytes& oRoom)
        : m_oBefore(oBefore), m_oAfter(oAfter), m_uiField(uiField),
          m_eDependent(GetDependent(oBefore.GetField(uiField).m_eId)), m_oRoom(oRoom),
          m_bFacts(oBefore.m_oFacts.m_uiRevision != oAfter.m_oFacts.m_uiRevision ||
                   oBefore.m_oFacts.m_bDigital != oAfter.m_oFacts.m_bDigital ||
                   oBefore.m_oFacts.m_bContinuous != oAfter.m_oFacts.m_bContinuous)
    {
    }

    // A field before the change of which another one has become after it, or that reads differently. gsc_uiNone for
    // none.
    unsigned int FindDifference() const
    {
        unsigned int uiBefore = Skip(m_oBefore, 0);
        unsigned int uiAfter = Skip(m_oAfter, 0);
        while (uiBefore < m_oBefore.GetFieldCount() && uiAfter < m_oAfter.GetFieldCount())
        {
            if (!HasSamePlace(m_oBefore.GetField(uiBefore), m_oAfter.GetField(uiAfter)) ||
                (uiBefore != m_uiField && IsOther(uiBefore, uiAfter) && !IsFollower(uiBefore, uiAfter)))
            {
                return uiBefore;
            }
            uiBefore = Skip(m_oBefore, uiBefore + 1);
            uiAfter = Skip(m_oAfter, uiAfter + 1);
        }
        return uiBefore < m_oBefore.GetFieldCount() ? uiBefore
               : uiAfter < m_oAfter.GetFieldCount() ? m_oBefore.GetFieldCount() - 1
                                                    : gsc_uiNone;
    }

    // Leaves of the map after the change that are new or read differently.
    void ListOthers(CFields& auiOthers) const
    {
        for (unsigned int i = 0; i < m_oAfter.GetFieldCount(); ++i)
        {
            const CField& oField = m_oAfter.GetField(i);
            if (oField.m_eKind == CZorEdidMap::eKind_Group || oField.m_eKind == CZorEdidMap::eKind_Checksum)
            {
                continue;
            }
            const unsigned int uiBefore = FindLeafOf(m_oBefore, m_oAfter, oField);
            if (uiBefore != m_uiField && (!HasSamePlace(m_oBefore.GetField(uiBefore), oField) || IsOther(uiBefore, i)))
            {
                auiOthers.Add(i);
            }
        }
    }

private:
    unsigned int Skip(const SMapContent& oMap, unsigned int uiField) const
    {
        while (uiField < oMap.GetFieldCount() && oMap.GetField(uiField).m_eKind != CZorEdidMap::eKind_Group &&
               m_oRoom.Holds(oMap.GetField(uiField).m_uiOffset, oMap.GetField(uiField).m_uiLength))
        {
            ++uiField;
        }
        return uiField;
    }

    // A dependent number that is one still, or names of offsets.
    bool IsFollower(unsigned int uiBefore, unsigned int uiAfter) const
    {
        const CField& oAfter = m_oAfter.GetField(uiAfter);
        return m_eDependent != eZorEdidField_None && m_oBefore.GetField(uiBefore).m_eId == m_eDependent &&
               (oAfter.m_bNumber || oAfter.m_eKind == CZorEdidMap::eKind_Name);
    }

    // Leaves of the same place. Summaries of groups, and checksums, follow their bytes.
    bool IsOther(unsigned int uiBefore, unsigned int uiAfter) const
    {
        const CField& oBefore = m_oBefore.GetField(uiBefore);
        const CField& oAfter = m_oAfter.GetField(uiAfter);
        if (oBefore.m_eKind == CZorEdidMap::eKind_Group || oBefore.m_eKind == CZorEdidMap::eKind_Checksum)
        {
            return false;
        }
        if (oBefore.m_llNumber != oAfter.m_llNumber || oBefore.m_bNumber != oAfter.m_bNumber ||
            oBefore.m_pszMeaning != oAfter.m_pszMeaning)
        {
            return true;
        }
        // The text comes from the record.
        const SOrigin& oRecord = m_oBefore.m_aoEntries[uiBefore].m_oOrigin;
        return (m_bFacts || memcmp(m_oBefore.GetData() + oRecord.m_uiOffset, m_oAfter.GetData() + oRecord.m_uiOffset,
                                   oRecord.m_uiLength) != 0) &&
               !(FormatValue(m_oBefore, uiBefore) == FormatValue(m_oAfter, uiAfter));
    }

    const SMapContent& m_oBefore;
    const SMapContent& m_oAfter;
    unsigned int m_uiField;
    EZorEdidField m_eDependent;
    SBytes m_oRoom;
    bool m_bFacts; // those of the image differ
};

// Empty, or why the draft must not count.
CMString CheckDraft(const SMapContent& oBefore, const SMapContent& oAfter, unsigned int uiField, const SDraft& oDraft)
{
    const unsigned int uiOther = CComparison(oBefore, oAfter, uiField, oDraft.m_oRoom).FindDifference();
    if (uiOther != gsc_uiNone)
    {
        return "it would change the meaning of other fields, such as " + NameInGroup(oBefore, uiOther) +
               "; raw: writes it nonetheless";
    }
    const CMString oText = FormatValue(oAfter, uiField);
    return oDraft.m_oText.GetLength() == 0 || oText == oDraft.m_oText ? CMString()
                                                                      : "it would read as \"" + oText + "\"";
}
} // namespace

bool IsAcceptedRaw(const SMapContent& oMap, unsigned int uiField, unsigned int uiRaw)
{
    SDraft oDraft = { oMap.m_aui8Data, {} };
    PutRaw(oMap, oMap.GetField(uiField), uiRaw, oDraft.m_aui8Image);
    SMapContent oAfter;
    CMapWriter::Write(oAfter, oDraft.m_aui8Image.GetCount(), oDraft.m_aui8Image.GetData());
    return CheckDraft(oMap, oAfter, uiField, oDraft).GetLength() == 0;
}
} // namespace ZorMap

using namespace ZorMap;

int CZorEdidWriter::Read(unsigned int uiSize, const unsigned char* pui8Data) { return m_oMap.Read(uiSize, pui8Data); }

int CZorEdidWriter::Set(unsigned int uiField, const char* pszValue, SAnswer& oAnswer)
{
    oAnswer = {};
    if (uiField >= m_oMap.GetFieldCount() || pszValue == nullptr)
    {
        MASSERT_FAILED();
        return 0;
    }
    const SMapContent& oBefore = *m_oMap.m_poContent;
    const bool bRaw = strncmp(pszValue, gsc_szRaw, strlen(gsc_szRaw)) == 0;
    const unsigned int uiEmpty = bRaw ? gsc_uiNone : FindEmptyText(oBefore, uiField);
    SDraft oDraft =
        uiEmpty != gsc_uiNone ? DraftText(oBefore, uiEmpty, pszValue) : MakeDraft(oBefore, uiField, pszValue);
    uiField = uiEmpty != gsc_uiNone ? uiEmpty : uiField;
    oAnswer.m_oReason = oDraft.m_oReason;
    oAnswer.m_oBefore = uiEmpty != gsc_uiNone ? CMString() : m_oMap.GetValue(uiField);
    oAnswer.m_oAfter = oAnswer.m_oBefore;
    oAnswer.m_bExact = oDraft.m_bExact && oDraft.m_oReason.GetLength() == 0;
    if (oDraft.m_oReason.GetLength() != 0)
    {
        return 0;
    }
    if (!IsChanged(oBefore, oDraft.m_aui8Image, 0, oBefore.GetSize()))
    {
        return 1; // nothing to follow: a wrong checksum stays
    }
    FollowWithChecksums(oBefore, uiField, oDraft.m_aui8Image, oAnswer.m_auiFollowed);
    CZorEdidMap oChanged;
    oChanged.Read(oDraft.m_aui8Image.GetCount(), oDraft.m_aui8Image.GetData());
    const SMapContent& oAfter = *oChanged.m_poContent;
    oAnswer.m_oReason = bRaw ? CMString() : CheckDraft(oBefore, oAfter, uiField, oDraft);
    if (oAnswer.m_oReason.GetLength() != 0)
    {
        oAnswer.m_bExact = false;
        oAnswer.m_auiFollowed.RemoveAll();
        return 0;
    }
    for (unsigned int i = 0; i < oAnswer.m_auiFollowed.GetCount(); ++i)
    {
        oAnswer.m_auiFollowed[i] = oAfter.FindLeaf(oBefore.GetField(oAnswer.m_auiFollowed[i]).m_uiOffset, 0);
    }
    if (bRaw || GetDependent(oBefore.GetField(uiField).m_eId) != eZorEdidField_None)
    {
        CComparison(oBefore, oAfter, uiField, {}).ListOthers(oAnswer.m_auiOthers);
    }
    oAnswer.m_oAfter = oChanged.GetValue(FindLeafOf(oAfter, oBefore, oBefore.GetField(uiField)));
    SMapContent* const poContent = m_oMap.m_poContent;
    m_oMap.m_poContent = oChanged.m_poContent;
    oChanged.m_poContent = poContent;
    return 1;
}

unsigned int CZorEdidWriter::ListNames(unsigned int uiField, CMArrayString& aoNames) const
{
    aoNames.RemoveAll();
    if (uiField >= m_oMap.GetFieldCount())
    {
        MASSERT_FAILED();
        return 0;
    }
    const SMapContent& oMap = *m_oMap.m_poContent;
    const bool bGroup = oMap.GetField(uiField).m_eKind == CZorEdidMap::eKind_Group;
    if (!bGroup && GetOnlyRaw(oMap, uiField) == nullptr &&
        oMap.m_aoEntries[uiField].m_oOrigin.m_poRow->m_oPlace.m_ui8Run == 0)
    {
        ZorMap::ListNames(oMap, uiField, aoNames);
    }
    return aoNames.GetCount();
}

// The writers of fields and of parts over the same bytes.

#include "FieldEdits.h"

#include <algorithm>
#include <map>
#include <set>

#include "BlockParts.h"
#include "EdidUtils.h"
#include "EditImage.h"
#include "Findings.h"
#include "MapKinds.h"
#include "MapText.h"
#include "Standards/BaseBlock.h"
#include "Standards/ExtensionBlocks.h"
#include "TextFormat.h"

namespace
{
constexpr unsigned int gsc_uiBlockSize = CEdidUtils::msc_uiBlockSize;

unsigned int CountBytes(const CBytes& aui8Bytes) { return static_cast<unsigned int>(aui8Bytes.size()); }

// What precedes the payload of a data block of this kind.
unsigned int GetHeadSize(EZorEdidField eId)
{
    ZorMap::SDataBlockHead oHead = {};
    const bool bKnown = ZorMap::FindCtaHead(eId, oHead) || ZorMap::FindDisplayIdHead(eId, 1, oHead) ||
                        ZorMap::FindDisplayIdHead(eId, 2, oHead);
    return bKnown ? oHead.m_uiSize : 0;
}
} // namespace

std::vector<std::string> NameNewFindings(const std::vector<SFinding>& aoBefore, const std::vector<SFinding>& aoAfter)
{
    std::map<EZorEdidRule, unsigned int> auiKnown;
    std::vector<std::string> asNew;
    for (const SFinding& oFinding : aoBefore)
    {
        ++auiKnown[oFinding.m_eRule];
    }
    for (const SFinding& oFinding : aoAfter)
    {
        unsigned int& uiKnown = auiKnown[oFinding.m_eRule];
        if (uiKnown-- == 0)
        {
            uiKnown = 0;
            asNew.push_back("check then finds: " + oFinding.m_sField + ": " + oFinding.m_sWhat +
                            (oFinding.m_sFound.empty() ? "" : ": found " + oFinding.m_sFound) + " [" +
                            FindZorEdidRule(oFinding.m_eRule)->m_pszId + "]");
        }
    }
    return asNew;
}

CFieldEdits::CFieldEdits(const CBytes& aui8Image, const CBytes& aui8Read)
{
    Read(aui8Image);
    m_oRead.Read(CountBytes(aui8Read), aui8Read.data());
    m_oBegun.Read(CountBytes(aui8Image), aui8Image.data());
}

void CFieldEdits::Read(const CBytes& aui8Image) { m_oParts.Read(CountBytes(aui8Image), aui8Image.data()); }

CBytes CFieldEdits::GetBytes() const { return { GetMap().GetData(), GetMap().GetData() + GetMap().GetSize() }; }

long long CFieldEdits::GetNumber(EZorEdidField eId) const
{
    const unsigned int uiField = GetMap().FindField(eId);
    return uiField != CZorEdidMap::msc_uiNone ? GetMap().GetField(uiField).m_llNumber : 0;
}

bool CFieldEdits::IsRevision4() const
{
    return GetMap().GetSize() >= gsc_uiBlockSize &&
           ZorStandards::BaseBlock::IsAtLeastRevision(GetMap().GetData(),
                                                      ZorStandards::BaseBlock::gsc_uiVideoInputRevision);
}

bool CFieldEdits::IsFound(std::initializer_list<EZorEdidRule> aeRules) const
{
    const std::vector<SFinding> aoFindings = CheckImage(GetMap(), GetThisYear());
    return std::ranges::any_of(aoFindings, [&](const SFinding& oFinding) {
        return std::ranges::find(aeRules, oFinding.m_eRule) != aeRules.end();
    });
}

// ---- Fields ----

// Whether the edit that goes on has made the field, alone or with what it lies in.
bool CFieldEdits::IsNew(unsigned int uiField) const
{
    for (unsigned int i = uiField; i != CZorEdidMap::msc_uiNone; i = GetMap().GetField(i).m_uiGroup)
    {
        if (m_oBegun.CountFields(GetMap().GetField(i).m_eId) == 0)
        {
            return true;
        }
    }
    return false;
}

std::string CFieldEdits::SetBy(unsigned int uiField, const std::string& sValue)
{
    CZorEdidWriter oWriter;
    const CBytes aui8Before = GetBytes();
    oWriter.Read(CountBytes(aui8Before), aui8Before.data());
    std::string sNote;
    std::string sProblem = SetField(oWriter, uiField, sValue, sNote, IsNew(uiField));
    if (sProblem.empty())
    {
        Read({ oWriter.GetMap().GetData(), oWriter.GetMap().GetData() + oWriter.GetMap().GetSize() });
        (GetBytes() == aui8Before ? m_asSame : m_asNotes).push_back(sNote);
    }
    return sProblem;
}

std::string CFieldEdits::Do(const CNamedEdit& fnEdit)
{
    const std::vector<SFinding> aoBefore = CheckImage(GetMap(), GetThisYear());
    const CBytes aui8Before = GetBytes();
    const bool bCta = Has(eZorEdidField_Cta);
    const bool bOneNative = GetNumber(eZorEdidField_CtaNativeCount) == 1;
    m_oBegun.Read(CountBytes(aui8Before), aui8Before.data());
    std::string sProblem = fnEdit(*this);
    sProblem = sProblem.empty() && HasOtherPreferred(aui8Before) ? ClearNative(bOneNative) : sProblem;
    // Of the images with CTA-861 alone a rule asks for 640x480.
    constexpr unsigned char ui8Vga = 1;
    if (sProblem.empty() && !bCta && Has(eZorEdidField_Cta) && IsFound({ eZorEdidRule_VgaMissing }))
    {
        sProblem = AddItem(eZorEdidField_CtaVideo, { ui8Vga });
    }
    for (const std::string& sFinding : NameNewFindings(aoBefore, CheckImage(GetMap(), GetThisYear())))
    {
        Note(sFinding);
    }
    return sProblem;
}

// Whether another picture is preferred than in the image before.
bool CFieldEdits::HasOtherPreferred(const CBytes& aui8Before) const
{
    using ZorStandards::Descriptors::HasPixelClock;
    const unsigned int uiFirst = ZorStandards::BaseBlock::DescriptorOffset(0);
    if (aui8Before.size() < gsc_uiBlockSize || GetMap().GetSize() < gsc_uiBlockSize ||
        !HasPixelClock(aui8Before.data() + uiFirst))
    {
        return false;
    }
    const unsigned char* pui8Now = GetMap().GetData() + uiFirst;
    return !HasPixelClock(pui8Now) || HasOtherPicture(aui8Before.data() + uiFirst, pui8Now);
}

// The bit of EDID 1.4, and counts of native timings that counted the first one alone: with a new first one they are 2.
std::string CFieldEdits::ClearNative(bool bOneNative)
{
    const size_t uiNotes = m_asNotes.size();
    std::string sProblem;
    if (IsRevision4() && GetNumber(eZorEdidField_BaseDisplayPreferredIsNative) != 0)
    {
        sProblem = Set(eZorEdidField_BaseDisplayPreferredIsNative, "no");
    }
    for (unsigned int i = 0; i < GetMap().CountFields(eZorEdidField_CtaNativeCount) && sProblem.empty(); ++i)
    {
        const unsigned int uiField = GetMap().FindField(eZorEdidField_CtaNativeCount, i);
        const long long llNatives = GetMap().GetField(uiField).m_llNumber;
        sProblem = bOneNative && llNatives != 0 ? Set(eZorEdidField_CtaNativeCount, "0", i) : sProblem;
        if (!bOneNative && llNatives != 0)
        {
            Note(NameWithValue(uiField) + ": the preferred timing is counted among the native ones");
        }
    }
    if (m_asNotes.size() != uiNotes)
    {
        Note("the preferred timing is not called native, as its picture differs; --set "
             "base.display.preferred-is-native=yes says that it is");
    }
    return sProblem;
}

std::string CFieldEdits::Apply(const SSetting& oSetting)
{
    unsigned int uiField = CZorEdidMap::msc_uiNone;
    std::string sProblem = FindSetting(GetMap(), oSetting, uiField);
    return sProblem.empty() ? SetBy(uiField, oSetting.m_sValue) : sProblem;
}

std::string CFieldEdits::Set(EZorEdidField eId, const std::string& sValue, unsigned int uiNumber)
{
    return Apply({ eId, uiNumber, SSetting::msc_uiNone, sValue });
}

std::string CFieldEdits::SetAll(std::initializer_list<SValue> aoValues)
{
    std::string sProblem;
    for (const SValue& oValue : aoValues)
    {
        sProblem = sProblem.empty() ? Set(oValue.m_eId, oValue.m_sValue) : sProblem;
    }
    return sProblem;
}

// ---- Parts ----

std::string CFieldEdits::NameWithValue(unsigned int uiField) const
{
    const std::string sValue = static_cast<const char*>(GetMap().GetValue(uiField));
    return NameField(GetMap(), uiField) + (sValue.empty() ? "" : " " + sValue);
}

// By the ids that another call takes. The image that it would get does not have what this call has added.
std::string CFieldEdits::NameRemovable(const CZorEdidParts::SAnswer& oAnswer) const
{
    constexpr unsigned int uiMostNamed = 4;
    std::set<unsigned int> oNamed; // fields of the image that was read
    std::string sText;
    for (unsigned int i = 0; i < oAnswer.m_auiRemovable.GetCount() && oNamed.size() < uiMostNamed; ++i)
    {
        const CZorEdidMap::SField& oField = GetMap().GetField(oAnswer.m_auiRemovable[i]);
        const unsigned char* pui8Part = GetMap().GetData() + oField.m_uiOffset;
        const unsigned int uiCount = m_oRead.CountFields(oField.m_eId);
        for (unsigned int uiNumber = 0; uiNumber < uiCount; ++uiNumber)
        {
            const unsigned int uiRead = m_oRead.FindField(oField.m_eId, uiNumber);
            const CZorEdidMap::SField& oRead = m_oRead.GetField(uiRead);
            const unsigned char* pui8Read = m_oRead.GetData() + oRead.m_uiOffset;
            if (std::equal(pui8Read, pui8Read + oRead.m_uiLength, pui8Part, pui8Part + oField.m_uiLength) &&
                oNamed.insert(uiRead).second)
            {
                const std::string sValue = static_cast<const char*>(m_oRead.GetValue(uiRead));
                sText += sText.empty() ? "; one of these could go: " : ", ";
                sText += CZorEdidMap::GetId(oField.m_eId);
                sText += uiCount > 1 ? "[" + std::to_string(uiNumber) + "]" : "";
                sText += sValue.empty() ? "" : " (" + sValue + ")";
                break;
            }
        }
    }
    return sText;
}

// fnDo does one step of CZorEdidParts and gives its result.
template <class DO>
std::string CFieldEdits::EditParts(DO fnDo, const char* pszDone)
{
    CZorEdidParts::SAnswer oAnswer;
    const unsigned int uiBlockMaps = GetMap().CountFields(eZorEdidField_BlockMap);
    if (fnDo(oAnswer) == 0)
    {
        return static_cast<const char*>(oAnswer.m_oReason) + NameRemovable(oAnswer);
    }
    if (oAnswer.m_uiField != CZorEdidMap::msc_uiNone)
    {
        m_asNotes.push_back(NameWithValue(oAnswer.m_uiField) + " " + pszDone);
    }
    if (oAnswer.m_uiNewBlock != 0)
    {
        const bool bCta = GetMap().GetData()[oAnswer.m_uiNewBlock * gsc_uiBlockSize] == ZorStandards::gsc_uiCtaTag;
        m_asNotes.push_back("no block had room: block " + std::to_string(oAnswer.m_uiNewBlock) + " is new");
        if (bCta && !Has(eZorEdidField_CtaVideoCapability))
        {
            m_asNotes.push_back("it has no video capability data block, as nothing says what the display does with "
                                "the range of RGB and with overscan; --add cta.video-capability=4a says that the range "
                                "follows the source and nothing is overscanned");
        }
    }
    if (GetMap().CountFields(eZorEdidField_BlockMap) > uiBlockMaps)
    {
        m_asNotes.push_back("EDID 1.3 asks for a block map beside two extension blocks: block 1 is one, and the others "
                            "follow it");
    }
    return "";
}

std::string CFieldEdits::AddDataBlock(EZorEdidField eId, const CBytes& aui8Payload, const SWhere& oWhere)
{
    return EditParts(
        [&](CZorEdidParts::SAnswer& oAnswer) {
            return m_oParts.AddDataBlock(eId, CountBytes(aui8Payload), aui8Payload.data(), oWhere, oAnswer);
        },
        "was added");
}

// CZorEdidMap::msc_uiNone for none.
unsigned int CFieldEdits::FindLastTiming(unsigned int uiBlock) const
{
    unsigned int uiLast = CZorEdidMap::msc_uiNone;
    for (unsigned int i = 0; i < GetMap().GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = GetMap().GetField(i);
        uiLast =
            oField.m_eId == eZorEdidField_BaseDetailed && oField.m_uiOffset / gsc_uiBlockSize == uiBlock ? i : uiLast;
    }
    return uiLast;
}

std::string CFieldEdits::AddBeside(EZorEdidField eOther, EZorEdidField eId, const CBytes& aui8Payload)
{
    const unsigned int uiOther = GetMap().FindField(eOther);
    SWhere oWhere;
    oWhere.m_uiBlock = GetMap().GetField(uiOther).m_uiOffset / gsc_uiBlockSize;
    oWhere.m_bNewBlock = false;
    if (AddDataBlock(eId, aui8Payload, oWhere).empty())
    {
        return "";
    }
    const unsigned int uiTiming = FindLastTiming(oWhere.m_uiBlock);
    if (uiTiming == CZorEdidMap::msc_uiNone)
    {
        return AddDataBlock(eId, aui8Payload);
    }
    const CBytes aui8Before = GetBytes();
    const std::vector<std::string> asNotes = m_asNotes;
    const auto itMoved = aui8Before.begin() + GetMap().GetField(uiTiming).m_uiOffset;
    const CBytes aui8Moved(itMoved, itMoved + ZorStandards::Descriptors::gsc_uiDescriptorSize);
    bool bAdded = Remove(uiTiming).empty();
    m_asNotes = asNotes;
    bAdded = bAdded && AddDataBlock(eId, aui8Payload, oWhere).empty();
    const size_t uiMoved = m_asNotes.size();
    if (!bAdded || !AddDescriptor(aui8Moved).empty())
    {
        Read(aui8Before);
        m_asNotes = asNotes;
        return AddDataBlock(eId, aui8Payload);
    }
    m_asNotes[uiMoved] += ": it made room in block " + std::to_string(oWhere.m_uiBlock);
    return "";
}

std::string CFieldEdits::AddItem(EZorEdidField eId, const CBytes& aui8Item, const SWhere& oWhere)
{
    return EditParts(
        [&](CZorEdidParts::SAnswer& oAnswer) {
            return m_oParts.AddItem(eId, CountBytes(aui8Item), aui8Item.data(), oWhere, oAnswer);
        },
        "was added");
}

std::string CFieldEdits::AddBlock(unsigned int uiTag, const CBytes& aui8Block)
{
    const unsigned char* pui8Block = aui8Block.empty() ? nullptr : aui8Block.data();
    return EditParts(
        [&](CZorEdidParts::SAnswer& oAnswer) {
            return m_oParts.AddBlock(uiTag, CountBytes(aui8Block), pui8Block, {}, oAnswer);
        },
        "was added");
}

std::string CFieldEdits::PutDescriptor(const CBytes& aui8Bytes, const SWhere& oWhere)
{
    return EditParts(
        [&](CZorEdidParts::SAnswer& oAnswer) { return m_oParts.AddDescriptor(aui8Bytes.data(), oWhere, oAnswer); },
        "was added");
}

std::string CFieldEdits::AddDescriptor(const CBytes& aui8Bytes, const SWhere& oWhere)
{
    using namespace ZorStandards::Descriptors;
    if (aui8Bytes.size() != gsc_uiDescriptorSize)
    {
        return "a descriptor has 18 bytes";
    }
    std::string sProblem = PutDescriptor(aui8Bytes, oWhere);
    const bool bFirst = oWhere.m_uiBlock == 0 && oWhere.m_uiPlace == 0;
    const bool bOfBase = bFirst || (oWhere.m_uiBlock == SWhere().m_uiBlock && !HasPixelClock(aui8Bytes.data()));
    if (sProblem.empty() || !bOfBase || GetMap().GetSize() < gsc_uiBlockSize)
    {
        return sProblem;
    }
    const CBytes aui8Before = GetBytes();
    const std::vector<std::string> asNotes = m_asNotes;
    if (!AddBehindMovedTiming(aui8Bytes, oWhere).empty())
    {
        Read(aui8Before);
        m_asNotes = asNotes;
        return sProblem;
    }
    return "";
}

// The first timing moves for a new first one only.
std::string CFieldEdits::AddBehindMovedTiming(const CBytes& aui8Bytes, const SWhere& oWhere)
{
    using namespace ZorStandards;
    const bool bTiming = Descriptors::HasPixelClock(aui8Bytes.data());
    const CBytes aui8Base = GetBytes();
    unsigned int uiTimings = 0;
    while (uiTimings < BaseBlock::gsc_uiDescriptors &&
           Descriptors::HasPixelClock(aui8Base.data() + BaseBlock::DescriptorOffset(uiTimings)))
    {
        ++uiTimings;
    }
    if (uiTimings < (bTiming ? 1U : 2U))
    {
        return "no timing can move";
    }
    const unsigned int uiOffset = BaseBlock::DescriptorOffset(uiTimings - 1);
    const auto itMoved = aui8Base.begin() + uiOffset;
    const CBytes aui8Moved(itMoved, itMoved + Descriptors::gsc_uiDescriptorSize);
    SWhere oTo;
    oTo.m_bNewBlock = bTiming;
    std::string sProblem = Remove(GetMap().FindLeaf(uiOffset, 0));
    if (!sProblem.empty())
    {
        return sProblem;
    }
    m_asNotes.pop_back(); // of the removal
    sProblem = PutDescriptor(aui8Bytes, oWhere);
    const size_t uiMoved = m_asNotes.size();
    sProblem = sProblem.empty() ? PutDescriptor(aui8Moved, oTo) : sProblem;
    if (sProblem.empty())
    {
        m_asNotes[uiMoved] += ": it made room in the base block";
    }
    return sProblem;
}

std::string CFieldEdits::AddStandard(const CBytes& aui8Bytes)
{
    if (aui8Bytes.size() != 2)
    {
        return "a standard timing has 2 bytes";
    }
    return EditParts(
        [&](CZorEdidParts::SAnswer& oAnswer) { return m_oParts.AddStandard(aui8Bytes.data(), {}, oAnswer); },
        "was added");
}

std::string CFieldEdits::Remove(unsigned int uiField)
{
    const std::string sName = NameWithValue(uiField);
    CZorEdidParts::CFields auiFollowed;
    std::string sProblem = EditParts(
        [&](CZorEdidParts::SAnswer& oAnswer) {
            const int iResult = m_oParts.Remove(uiField, oAnswer);
            auiFollowed = oAnswer.m_auiFollowed;
            return iResult;
        },
        "");
    if (sProblem.empty())
    {
        m_asNotes.push_back(sName + " was removed" + NameFollowed(GetMap(), auiFollowed));
    }
    return sProblem;
}

std::string CFieldEdits::RemoveItems(const std::vector<unsigned int>& auiFields)
{
    CZorEdidParts::SAnswer oAnswer;
    if (auiFields.empty())
    {
        return "";
    }
    const std::string sNames = NameSome(auiFields);
    const unsigned int uiCount = static_cast<unsigned int>(auiFields.size());
    if (m_oParts.RemoveItems(uiCount, auiFields.data(), oAnswer) == 0)
    {
        return static_cast<const char*>(oAnswer.m_oReason);
    }
    Note(sNames + (uiCount == 1 ? " was removed" : " were removed") + NameFollowed(GetMap(), oAnswer.m_auiFollowed));
    return "";
}

// The first ones, and how many more there are.
std::string CFieldEdits::NameSome(const std::vector<unsigned int>& auiFields) const
{
    constexpr size_t uiMost = 8;
    std::vector<std::string> asNames;
    for (size_t i = 0; i < std::min(uiMost, auiFields.size()); ++i)
    {
        asNames.push_back(NameWithValue(auiFields[i]));
    }
    asNames.push_back(auiFields.size() > uiMost ? FormatText("%zu more", auiFields.size() - uiMost) : "");
    return JoinTexts(asNames);
}

void CFieldEdits::ClearBits(const CBits& aoBits)
{
    if (aoBits.empty())
    {
        return;
    }
    CBytes aui8Image = GetBytes();
    std::vector<unsigned int> auiFields;
    std::set<size_t> oBlocks; // offsets
    for (const auto& [uiOffset, uiBit] : aoBits)
    {
        aui8Image[uiOffset] = static_cast<unsigned char>(aui8Image[uiOffset] & ~(1U << uiBit));
        auiFields.push_back(GetMap().FindLeaf(uiOffset, uiBit));
        oBlocks.insert(uiOffset / gsc_uiBlockSize * gsc_uiBlockSize);
    }
    for (const size_t uiBlock : oBlocks)
    {
        ZorWrite::StoreBlockChecksums(aui8Image.data() + uiBlock);
    }
    const std::string sNames = NameSome(auiFields);
    Read(aui8Image);
    CZorEdidWriter::CFields auiSums;
    for (unsigned int i = 0; i < GetMap().GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = GetMap().GetField(i);
        if (oField.m_eKind == CZorEdidMap::eKind_Checksum &&
            oBlocks.contains(oField.m_uiOffset / gsc_uiBlockSize * gsc_uiBlockSize))
        {
            auiSums.Add(i);
        }
    }
    Note(sNames + (aoBits.size() == 1 ? " was cleared" : " were cleared") + NameFollowed(GetMap(), auiSums));
}

std::string CFieldEdits::Move(unsigned int uiField, unsigned int uiPlace)
{
    return EditParts([&](CZorEdidParts::SAnswer& oAnswer) { return m_oParts.Move(uiField, uiPlace, oAnswer); },
                     "has moved here");
}

// ---- Payloads ----

CBytes CFieldEdits::GetPayload(EZorEdidField eId) const
{
    const unsigned int uiField = GetMap().FindField(eId);
    if (uiField == CZorEdidMap::msc_uiNone)
    {
        return {};
    }
    const CZorEdidMap::SField& oField = GetMap().GetField(uiField);
    const unsigned char* pui8Block = GetMap().GetData() + oField.m_uiOffset;
    return { pui8Block + std::min(GetHeadSize(eId), oField.m_uiLength), pui8Block + oField.m_uiLength };
}

// The old data block makes room for the new one, which takes its place.
std::string CFieldEdits::PutPayload(EZorEdidField eId, const CBytes& aui8Payload, const SWhere& oNewAt)
{
    const unsigned int uiField = GetMap().FindField(eId);
    if (uiField == CZorEdidMap::msc_uiNone)
    {
        return AddDataBlock(eId, aui8Payload, oNewAt);
    }
    const CBytes aui8Before = GetBytes();
    const std::vector<std::string> asNotes = m_asNotes;
    const CZorEdidMap::SField oField = GetMap().GetField(uiField);
    SWhere oWhere = { oField.m_uiOffset / gsc_uiBlockSize, 0, false, 0 };
    for (unsigned int i = uiField; i > 0 && GetMap().GetField(i - 1).m_uiDepth >= oField.m_uiDepth; --i)
    {
        const CZorEdidMap::SField& oOther = GetMap().GetField(i - 1);
        oWhere.m_uiPlace += oOther.m_uiDepth == oField.m_uiDepth && oOther.m_eKind == CZorEdidMap::eKind_Group ? 1 : 0;
    }
    std::string sProblem = Remove(uiField);
    const bool bRemoved = sProblem.empty();
    sProblem = bRemoved ? AddDataBlock(eId, aui8Payload, oWhere) : sProblem;
    if (bRemoved && !sProblem.empty() && AddDataBlock(eId, aui8Payload).empty()) // in another block, which is said
    {
        sProblem.clear();
        m_asNotes.erase(m_asNotes.begin() + static_cast<std::ptrdiff_t>(asNotes.size())); // of the removal
    }
    else
    {
        m_asNotes = asNotes;
    }
    if (!sProblem.empty())
    {
        Read(aui8Before);
        return sProblem;
    }
    m_asSame.push_back(NameWithValue(GetMap().FindField(eId)) + " took its place");
    return "";
}

std::string CFieldEdits::Lengthen(EZorEdidField eId, size_t uiLeast)
{
    CBytes aui8Payload = GetPayload(eId);
    if (aui8Payload.size() >= uiLeast)
    {
        return "";
    }
    aui8Payload.resize(uiLeast);
    return PutPayload(eId, aui8Payload);
}

void CFieldEdits::PutBase(unsigned int uiOffset, const CBytes& aui8Bytes)
{
    CBytes aui8Image = GetBytes();
    std::copy(aui8Bytes.begin(), aui8Bytes.end(), aui8Image.begin() + uiOffset);
    CEdidUtils::StoreChecksum(gsc_uiBlockSize, aui8Image.data());
    Read(aui8Image);
}

std::vector<std::string> CFieldEdits::TakeNotes()
{
    std::vector<std::string> asNotes;
    asNotes.swap(m_asNotes.empty() ? m_asSame : m_asNotes);
    m_asNotes.clear();
    m_asSame.clear();
    return asNotes;
}

// CZorEdidParts: a part is found by its bytes, its block is taken apart, changed and put together, and the image that
// comes of it is read and compared before it counts.

#include "ZorEdidParts.h"

#include <string.h>

#include <algorithm>
#include <tuple>

#include "ImageBlocks.h"
#include "MapKinds.h"
#include "PartsComparison.h"

using namespace ZorWrite;
using namespace ZorStandards;

namespace
{
using SWhere = CZorEdidParts::SWhere;
using SAnswer = CZorEdidParts::SAnswer;

constexpr unsigned int gsc_uiAny = CZorEdidParts::msc_uiAny;
constexpr unsigned int gsc_uiNone = CZorEdidMap::msc_uiNone;
constexpr unsigned int gsc_uiMostExtensions = 127; // more need a second block map
constexpr unsigned int gsc_uiStandardSize = 2;
constexpr unsigned char gsc_aui8UnusedStandard[gsc_uiStandardSize] = { 1, 1 };
constexpr unsigned char gsc_aui8Dummy[Descriptors::gsc_uiDescriptorSize] = { 0, 0, 0, Descriptors::gsc_ui8TagEmpty };

// A part that is there.
struct SPart
{
    enum EKind : unsigned char
    {
        eKind_Block,
        eKind_Piece, // an element of a list of its block
        eKind_Item   // of a data block
    };

    EKind m_eKind;
    unsigned int m_uiBlock;
    EList m_eList;
    unsigned int m_uiPlace; // in the list
    unsigned int m_uiItem;
    SRange m_oRange; // in the image
};

// A data block that is to be, or the data block that an item is to be in.
struct SNewPart
{
    EZorEdidField m_eId;
    bool m_bDisplayId;
    unsigned int m_uiVersion; // of DisplayID
    SPiece m_oPiece;          // the whole data block
    SRange m_oItem;           // in it, of an item
};

unsigned int CountTimings(const CPieces& aoDescriptors)
{
    unsigned int uiCount = 0;
    for (unsigned int i = 0; i < aoDescriptors.GetCount(); ++i)
    {
        uiCount += IsTiming(aoDescriptors[i]) ? 1U : 0U;
    }
    return uiCount;
}

// Detailed timings come before all other descriptors.
bool IsOrdered(const CPieces& aoDescriptors)
{
    const SPiece* poFirst = aoDescriptors.GetData();
    return std::is_partitioned(poFirst, poFirst + aoDescriptors.GetCount(), IsTiming);
}

CMString NameBlock(unsigned int uiBlock)
{
    CMString oName;
    oName.Format("block %u", uiBlock);
    return oName;
}
} // namespace

namespace ZorWrite
{
// One change, from the image as it is to the image that counts.
class CPartsEdit
{
public:
    CPartsEdit(CZorEdidParts& oParts, SAnswer& oAnswer) : m_oParts(oParts), m_oAnswer(oAnswer), m_oMap(oParts.GetMap())
    {
        m_oAnswer = {};
        m_aui8Image.SetCount(m_oMap.GetSize(), -1);
        if (m_aui8Image.GetCount() != 0)
        {
            memcpy(m_aui8Image.GetData(), m_oMap.GetData(), m_aui8Image.GetCount());
        }
        m_aui8Before = m_aui8Image;
    }

    int AddBlock(unsigned int uiTag, const unsigned char* pui8Block, const SWhere& oWhere);
    int AddStandard(const unsigned char* pui8Bytes, const SWhere& oWhere);
    int AddDescriptor(const unsigned char* pui8Bytes, const SWhere& oWhere);
    int AddDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload, const SWhere& oWhere);
    int AddItem(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item, const SWhere& oWhere);
    int Remove(unsigned int uiField);
    int RemoveItems(unsigned int uiCount, const unsigned int* puiFields);
    int Move(unsigned int uiField, unsigned int uiPlace);

private:
    int Refuse(const CMString& oReason)
    {
        m_oAnswer.m_oReason = oReason;
        return 0;
    }

    // ---- The blocks that an edit may choose from ----

    unsigned int CountCounted() const
    {
        const unsigned int uiCounted = 1 + CountExtensions(m_aui8Image.GetData(), m_aui8Image.GetCount());
        return std::min(uiCounted, CountBlocks(m_aui8Image));
    }
    // Takes the block apart. False with its reason kept, for when no other block does it.
    bool Open(unsigned int uiBlock, CBlockParts& oBlock)
    {
        const CMString oReason = uiBlock < CountBlocks(m_aui8Image)
                                     ? oBlock.Read(GetBlock(m_aui8Image, uiBlock), uiBlock == 0)
                                     : CMString("is not whole");
        if (oReason.GetLength() != 0)
        {
            m_oWhyNot = NameBlock(uiBlock) + " " + oReason;
        }
        return oReason.GetLength() == 0;
    }
    // Puts the block together. False where bytes lack, with what could go.
    bool Close(unsigned int uiBlock, const CBlockParts& oBlock)
    {
        const unsigned int uiLacking = oBlock.Write(GetBlock(m_aui8Image, uiBlock));
        if (uiLacking != 0)
        {
            NoteLack(uiBlock, uiLacking);
        }
        return uiLacking == 0;
    }
    void NoteLack(unsigned int uiBlock, unsigned int uiLacking, EList eList = eLists);
    int RefuseForRoom(const char* pszWhere);
    void ListRemovable();
    bool AddFurtherBlock(unsigned int uiTag, unsigned int uiVersion);

    // ---- Parts ----

    SRange GetRange(unsigned int uiBlock, unsigned int uiOffset, unsigned int uiSize) const
    {
        return { uiBlock * gsc_uiBlockSize + uiOffset, uiSize };
    }
    bool FindPart(unsigned int uiField, SPart& oPart);
    bool FindPartOf(const CZorEdidMap::SField& oField, const CBlockParts& oBlock, SPart& oPart) const;
    static SRange FindPiece(const unsigned char* pui8Block, bool bBase, EList eList, unsigned int uiPlace);
    bool PutDescriptor(unsigned int uiBlock, const SPiece& oPiece, unsigned int uiPlace);
    bool PutBaseDescriptor(CBlockParts& oBlock, const SPiece& oPiece, unsigned int uiPlace);
    bool PutDataBlock(unsigned int uiBlock, const SNewPart& oNew, unsigned int uiPlace);
    bool PutItem(unsigned int uiBlock, const SNewPart& oNew, unsigned int uiPlace);
    static unsigned int ChoosePlace(const CPieces& aoDataBlocks, EZorEdidField eId, unsigned int uiPlace);
    bool MakeDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload, const SWhere& oWhere,
                       unsigned int uiVersion, SNewPart& oNew);
    bool IsFor(unsigned int uiBlock, const SNewPart& oNew) const;
    int AddNew(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Bytes, const SWhere& oWhere,
               bool bItem);

    int RemoveWholeBlock(const SPart& oPart);
    int RemovePieceOf(const SPart& oPart);
    void RemoveItemOf(CBlockParts& oBlock, const SPart& oPart);
    int MoveWholeBlock(const SPart& oPart, unsigned int uiPlace);
    int MoveItemOf(const SPart& oPart, unsigned int uiPlace);
    void MoveNatives(const SPart& oPart, unsigned int uiPlace);

    int Commit(EZorEdidField eId, const SRange& oPart);
    int CommitMove(const SRange& oBefore, const SRange& oAfter);

    CZorEdidParts& m_oParts;
    SAnswer& m_oAnswer;
    const CZorEdidMap& m_oMap;
    CImageBytes m_aui8Before;
    CImageBytes m_aui8Image;
    SNamed m_oNamed;
    CMString m_oWhyNot;
    unsigned int m_uiLackBlock = 0;
    EList m_eLackList = eLists; // all lists of the block share its room; those of the base block have their own
    bool m_bLack = false;
    CMString m_oNoFurther = {}; // why there is no further block
    bool m_bBlocks = false;     // the list of blocks is another one
};

// ---- The step that every change takes ----

// eId: what the map must call the part; none where its place alone says it.
int CPartsEdit::Commit(EZorEdidField eId, const SRange& oPart)
{
    if (IsCounted(m_aui8Before))
    {
        FollowBlocks(m_aui8Before, m_bBlocks, m_aui8Image);
    }
    CZorEdidMap& oAfter = m_oParts.m_aoMaps[1 - m_oParts.m_uiPresent];
    if (oAfter.Read(m_aui8Image.GetCount(), m_aui8Image.GetData()) == 0)
    {
        return Refuse("out of memory");
    }
    const CPartsComparison oComparison(m_oMap, oAfter, m_oNamed);
    const CMString oDifference = oComparison.FindDifference();
    if (oDifference.GetLength() != 0)
    {
        return Refuse(oDifference);
    }
    const unsigned int uiField = oPart.m_uiSize != 0 ? FindField(oAfter, oPart) : gsc_uiNone;
    if (oPart.m_uiSize != 0 &&
        (uiField == gsc_uiNone || (eId != eZorEdidField_None && oAfter.GetField(uiField).m_eId != eId)))
    {
        return Refuse("it would not be read as such a part");
    }
    m_oAnswer.m_uiField = uiField;
    oComparison.ListFollowed(m_oAnswer.m_auiFollowed);
    m_oParts.m_uiPresent = 1 - m_oParts.m_uiPresent;
    return 1;
}

int CPartsEdit::CommitMove(const SRange& oBefore, const SRange& oAfter)
{
    m_oNamed.m_aoBefore.Add(oBefore);
    m_oNamed.m_aoAfter.Add(oAfter);
    const unsigned int uiBefore = m_oParts.m_uiPresent;
    if (Commit(eZorEdidField_None, oAfter) == 0)
    {
        return 0;
    }
    const CPartsComparison oComparison(m_oMap, m_oParts.GetMap(), m_oNamed);
    const CMString oDifference = oComparison.FindDifference(oBefore, oAfter);
    if (oDifference.GetLength() != 0)
    {
        m_oParts.m_uiPresent = uiBefore;
        m_oAnswer = {};
        return Refuse(oDifference);
    }
    return 1;
}

// ---- Room ----

// Keeps the block that lacks least, of several without room.
void CPartsEdit::NoteLack(unsigned int uiBlock, unsigned int uiLacking, EList eList)
{
    if (!m_bLack || uiLacking < m_oAnswer.m_uiLacking)
    {
        m_bLack = true;
        m_uiLackBlock = uiBlock;
        m_eLackList = eList;
        m_oAnswer.m_uiLacking = uiLacking;
    }
}

int CPartsEdit::RefuseForRoom(const char* pszWhere)
{
    if (!m_bLack)
    {
        CMString oReason = m_oWhyNot.GetLength() != 0 ? m_oWhyNot : CMString("the image has no ") + pszWhere;
        oReason += m_oNoFurther.GetLength() != 0 ? "; no new block, as " + m_oNoFurther : CMString();
        return Refuse(oReason);
    }
    CMString oReason;
    oReason.Format("block %u lacks %u %s", m_uiLackBlock, m_oAnswer.m_uiLacking,
                   m_oAnswer.m_uiLacking == 1 ? "byte" : "bytes");
    ListRemovable();
    oReason += m_oNoFurther.GetLength() != 0 ? "; no new block, as " + m_oNoFurther : CMString();
    return Refuse(oReason);
}

// The first detailed timing of the base block is the preferred one, which an image keeps.
void CPartsEdit::ListRemovable()
{
    CBlockParts oBlock;
    if (m_uiLackBlock >= CountBlocks(m_aui8Before) ||
        oBlock.Read(GetBlock(m_aui8Before, m_uiLackBlock), m_uiLackBlock == 0).GetLength() != 0)
    {
        return;
    }
    for (unsigned int uiList = 0; uiList < eLists; ++uiList)
    {
        const CPieces& aoPieces = oBlock.Get(static_cast<EList>(uiList));
        for (unsigned int i = 0; i < aoPieces.GetCount() && (m_eLackList == eLists || m_eLackList == uiList); ++i)
        {
            const unsigned int uiField =
                FindField(m_oMap, GetRange(m_uiLackBlock, aoPieces[i].m_uiOffset, aoPieces[i].m_uiSize));
            const bool bPreferred = uiList == eList_Descriptors && i == 0 && IsTiming(aoPieces[i]);
            if (aoPieces[i].m_uiSize >= m_oAnswer.m_uiLacking && uiField != gsc_uiNone && !bPreferred)
            {
                m_oAnswer.m_auiRemovable.Add(uiField);
            }
        }
    }
}

// At the end of the image; the first CTA-861 block before all but a block map, as HDMI has it. With a block map where
// E-EDID asks for one. Gives its number by the answer.
bool CPartsEdit::AddFurtherBlock(unsigned int uiTag, unsigned int uiVersion)
{
    const unsigned int uiBlocks = CountBlocks(m_aui8Image);
    if (!IsCounted(m_aui8Image) || uiBlocks > gsc_uiMostExtensions)
    {
        m_oNoFurther = uiBlocks > gsc_uiMostExtensions ? "more than 127 need a second block map"
                                                       : "the image does not end where its count of blocks says";
        return false;
    }
    bool bFirst = uiTag == gsc_uiCtaTag;
    for (unsigned int i = 1; i < uiBlocks; ++i)
    {
        bFirst = bFirst && GetBlock(m_aui8Image, i)[0] != gsc_uiCtaTag;
    }
    const bool bMapped = uiBlocks > 1 && GetBlock(m_aui8Image, 1)[0] == gsc_uiBlockMapTag;
    unsigned char aui8Block[gsc_uiBlockSize];
    MakeBlock(uiTag, uiVersion, m_aui8Image, aui8Block);
    m_bBlocks = true;
    m_oAnswer.m_uiNewBlock = !bFirst ? uiBlocks : bMapped ? 2 : 1;
    InsertBlock(m_aui8Image, m_oAnswer.m_uiNewBlock, aui8Block);
    const unsigned int uiMap = AddBlockMap(m_aui8Image);
    if (uiMap != 0)
    {
        m_oNamed.m_aoAfter.Add(GetRange(uiMap, 0, gsc_uiBlockSize));
        ++m_oAnswer.m_uiNewBlock;
    }
    m_oNamed.m_aoAfter.Add(GetRange(m_oAnswer.m_uiNewBlock, 0, gsc_uiBlockSize));
    return true;
}

// ---- Adding ----

int CPartsEdit::AddBlock(unsigned int uiTag, const unsigned char* pui8Block, const SWhere& oWhere)
{
    const unsigned int uiBlocks = CountBlocks(m_aui8Image);
    const unsigned int uiPlace = oWhere.m_uiPlace == gsc_uiAny ? uiBlocks : oWhere.m_uiPlace;
    if (!IsCounted(m_aui8Image))
    {
        return Refuse("the image does not end where its count of blocks says");
    }
    if (uiBlocks > gsc_uiMostExtensions)
    {
        return Refuse("there are 127 extension blocks already");
    }
    if (uiPlace == 0 || uiPlace > uiBlocks)
    {
        CMString oReason;
        oReason.Format("a new block takes a place from 1 to %u", uiBlocks);
        return Refuse(oReason);
    }
    unsigned char aui8Block[gsc_uiBlockSize];
    MakeBlock(uiTag, GetSectionVersion(m_aui8Image), m_aui8Image, aui8Block);
    if (pui8Block != nullptr)
    {
        memcpy(aui8Block, pui8Block, gsc_uiBlockSize);
        StoreBlockChecksums(aui8Block);
    }
    m_bBlocks = true;
    InsertBlock(m_aui8Image, uiPlace, aui8Block);
    const unsigned int uiMap = AddBlockMap(m_aui8Image);
    if (uiMap != 0)
    {
        m_oNamed.m_aoAfter.Add(GetRange(uiMap, 0, gsc_uiBlockSize));
    }
    const SRange oRange = GetRange(uiPlace + (uiMap != 0 ? 1 : 0), 0, gsc_uiBlockSize);
    m_oNamed.m_aoAfter.Add(oRange);
    return Commit(eZorEdidField_None, oRange);
}

int CPartsEdit::AddStandard(const unsigned char* pui8Bytes, const SWhere& oWhere)
{
    CBlockParts oBlock;
    if (!Open(0, oBlock))
    {
        return Refuse(m_oWhyNot);
    }
    const SPiece oPiece = MakePiece(pui8Bytes, gsc_uiStandardSize);
    if (IsUnusedSlot(oPiece) || pui8Bytes[0] == 0)
    {
        return Refuse("these bytes say no standard timing");
    }
    CPieces& aoStandards = oBlock.Get(eList_Standards);
    SPiece* poFirst = aoStandards.GetData();
    const auto uiUnused =
        static_cast<unsigned int>(std::find_if(poFirst, poFirst + aoStandards.GetCount(), IsUnusedSlot) - poFirst);
    const unsigned int uiPlace = oWhere.m_uiPlace == gsc_uiAny ? uiUnused : oWhere.m_uiPlace;
    if (uiUnused == aoStandards.GetCount())
    {
        NoteLack(0, gsc_uiStandardSize, eList_Standards);
        return RefuseForRoom("base block");
    }
    if (uiPlace >= aoStandards.GetCount())
    {
        return Refuse("standard timings have places from 0 to 7");
    }
    const SRange oBefore = GetRange(0, aoStandards[uiUnused].m_uiOffset, gsc_uiStandardSize);
    RemovePiece(aoStandards, uiUnused);
    InsertPiece(aoStandards, uiPlace, oPiece);
    Close(0, oBlock);
    const SRange oAfter = FindPiece(GetBlock(m_aui8Image, 0), true, eList_Standards, uiPlace);
    m_oNamed.m_aoBefore.Add(oBefore);
    m_oNamed.m_aoAfter.Add(oAfter);
    return Commit(eZorEdidField_None, oAfter);
}

// Where the piece of a list is, from the start of its block.
SRange CPartsEdit::FindPiece(const unsigned char* pui8Block, bool bBase, EList eList, unsigned int uiPlace)
{
    CBlockParts oBlock;
    if (oBlock.Read(pui8Block, bBase).GetLength() != 0 || uiPlace >= oBlock.Get(eList).GetCount())
    {
        return { 0, 0 };
    }
    const SPiece& oPiece = oBlock.Get(eList)[uiPlace];
    return { oPiece.m_uiOffset, oPiece.m_uiSize };
}

// It replaces a dummy descriptor: that at the place, or else the next one.
bool CPartsEdit::PutBaseDescriptor(CBlockParts& oBlock, const SPiece& oPiece, unsigned int uiPlace)
{
    CPieces& aoDescriptors = oBlock.Get(eList_Descriptors);
    const unsigned int uiTimings = CountTimings(aoDescriptors);
    SPiece* poFirst = aoDescriptors.GetData();
    SPiece* poEnd = poFirst + aoDescriptors.GetCount();
    const bool bTiming = IsTiming(oPiece);
    const unsigned int uiFrom = uiPlace != gsc_uiAny ? uiPlace : uiTimings;
    SPiece* poDummy = std::find_if(poFirst + std::min(uiFrom, aoDescriptors.GetCount()), poEnd, IsDummy);
    poDummy = poDummy != poEnd ? poDummy : std::find_if(poFirst, poEnd, IsDummy);
    if (poDummy == poEnd)
    {
        NoteLack(0, Descriptors::gsc_uiDescriptorSize, eList_Descriptors);
        return false;
    }
    const auto uiDummy = static_cast<unsigned int>(poDummy - poFirst);
    m_oNamed.m_aoBefore.Add(GetRange(0, poDummy->m_uiOffset, Descriptors::gsc_uiDescriptorSize));
    unsigned int uiTo = uiPlace;
    if (uiPlace == gsc_uiAny)
    {
        uiTo = bTiming ? uiTimings : uiDummy;
    }
    RemovePiece(aoDescriptors, uiDummy);
    InsertPiece(aoDescriptors, uiTo, oPiece);
    if (uiTo >= aoDescriptors.GetCount() || !IsOrdered(aoDescriptors))
    {
        m_oWhyNot = "in the base block detailed timings come before all other descriptors";
        m_oNamed.m_aoBefore.RemoveAll();
        return false;
    }
    m_oNamed.m_aoAfter.Add(GetRange(0, BaseBlock::DescriptorOffset(uiTo), Descriptors::gsc_uiDescriptorSize));
    return true;
}

bool CPartsEdit::PutDescriptor(unsigned int uiBlock, const SPiece& oPiece, unsigned int uiPlace)
{
    CBlockParts oBlock;
    if (!Open(uiBlock, oBlock))
    {
        return false;
    }
    if (uiBlock == 0)
    {
        const unsigned int uiNumber = std::min(uiPlace, CountTimings(oBlock.Get(eList_Descriptors)));
        if (!PutBaseDescriptor(oBlock, oPiece, uiPlace))
        {
            return false;
        }
        Close(0, oBlock);
        if (IsTiming(oPiece))
        {
            ChangeNatives(m_aui8Image, uiNumber, 1);
        }
        return true;
    }
    CPieces& aoDetailed = oBlock.Get(eList_Detailed);
    const unsigned int uiTo = std::min(uiPlace, aoDetailed.GetCount());
    InsertPiece(aoDetailed, uiTo, oPiece);
    if (!Close(uiBlock, oBlock))
    {
        return false;
    }
    ChangeNatives(m_aui8Image, CountDetailedAhead(m_aui8Image, uiBlock) + uiTo, 1);
    SRange oRange = FindPiece(GetBlock(m_aui8Image, uiBlock), false, eList_Detailed, uiTo);
    oRange.m_uiOffset += uiBlock * gsc_uiBlockSize;
    m_oNamed.m_aoAfter.Add(oRange);
    return true;
}

int CPartsEdit::AddDescriptor(const unsigned char* pui8Bytes, const SWhere& oWhere)
{
    const SPiece oPiece = MakePiece(pui8Bytes, Descriptors::gsc_uiDescriptorSize);
    const bool bTiming = IsTiming(oPiece);
    if (IsDummy(oPiece) || !Descriptors::IsDescriptor(pui8Bytes))
    {
        return Refuse("these bytes are not a descriptor");
    }
    for (unsigned int i = 0; i < CountCounted(); ++i)
    {
        const bool bAsked = oWhere.m_uiBlock == gsc_uiAny ? i == 0 || bTiming : oWhere.m_uiBlock == i;
        const bool bTakes = i == 0 || GetBlock(m_aui8Image, i)[0] == gsc_uiCtaTag;
        if (bAsked && bTakes && PutDescriptor(i, oPiece, oWhere.m_uiPlace))
        {
            return Commit(eZorEdidField_None, m_oNamed.m_aoAfter[m_oNamed.m_aoAfter.GetCount() - 1]);
        }
    }
    if (bTiming && oWhere.m_bNewBlock && oWhere.m_uiBlock == gsc_uiAny && AddFurtherBlock(gsc_uiCtaTag, 0) &&
        PutDescriptor(m_oAnswer.m_uiNewBlock, oPiece, gsc_uiAny))
    {
        return Commit(eZorEdidField_None, m_oNamed.m_aoAfter[m_oNamed.m_aoAfter.GetCount() - 1]);
    }
    return RefuseForRoom("block that takes it");
}

// Whether a block may take the data block.
bool CPartsEdit::IsFor(unsigned int uiBlock, const SNewPart& oNew) const
{
    const unsigned char* pui8Block = GetBlock(m_aui8Image, uiBlock);
    if (oNew.m_bDisplayId)
    {
        CBlockParts oBlock;
        oBlock.Read(pui8Block, false);
        return pui8Block[0] == gsc_uiDisplayIdTag && std::max(1U, oBlock.GetVersion()) == oNew.m_uiVersion;
    }
    return pui8Block[0] == gsc_uiCtaTag && pui8Block[Cta::gsc_uiRevisionOffset] >= Cta::gsc_uiDataBlocksRevision &&
           (oNew.m_eId != eZorEdidField_CtaExtensionOverride || uiBlock == 1);
}

// False for an id that is not a data block, and for a data block of the other version of DisplayID.
bool CPartsEdit::MakeDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload,
                               const SWhere& oWhere, unsigned int uiVersion, SNewPart& oNew)
{
    ZorMap::SDataBlockHead oHead = {};
    oNew = { eId, !ZorMap::FindCtaHead(eId, oHead), uiVersion, {}, { 0, 0 } };
    if (oNew.m_bDisplayId && !ZorMap::FindDisplayIdHead(eId, uiVersion, oHead))
    {
        return false;
    }
    if (oNew.m_bDisplayId)
    {
        oHead.m_aui8Bytes[1] = oWhere.m_ui8Flags;
    }
    oNew.m_oPiece = MakePiece(oHead.m_aui8Bytes, oHead.m_uiSize);
    const unsigned int uiMost =
        oNew.m_bDisplayId ? DisplayId::gsc_uiMostDataBytes : Cta::gsc_uiHeaderSize + Cta::gsc_uiMostPayload;
    if (uiLength > uiMost - oHead.m_uiSize)
    {
        m_oWhyNot.Format("a data block of this kind takes up to %u bytes", uiMost - oHead.m_uiSize);
        return false;
    }
    if (uiLength != 0)
    {
        memcpy(oNew.m_oPiece.m_aui8Bytes + oHead.m_uiSize, pui8Payload, uiLength);
    }
    oNew.m_oPiece.m_uiSize += uiLength;
    oNew.m_oItem = { oHead.m_uiSize, uiLength };
    return StoreDataBlockLength(oNew.m_oPiece, oNew.m_bDisplayId);
}

// Two kinds have a place by their standard.
unsigned int CPartsEdit::ChoosePlace(const CPieces& aoDataBlocks, EZorEdidField eId, unsigned int uiPlace)
{
    if (eId == eZorEdidField_CtaExtensionOverride)
    {
        return 0;
    }
    ZorMap::SDataBlockHead oHdmi = {};
    ZorMap::FindCtaHead(eZorEdidField_CtaHdmi, oHdmi);
    const bool bForum = eId == eZorEdidField_CtaHdmiForum || eId == eZorEdidField_CtaHdmiForumSink;
    for (unsigned int i = 0; uiPlace == gsc_uiAny && bForum && i < aoDataBlocks.GetCount(); ++i)
    {
        const unsigned char* pui8Bytes = aoDataBlocks[i].m_aui8Bytes;
        if (Cta::gsc_oHeaderTag.Read(pui8Bytes) == Cta::gsc_oHeaderTag.Read(oHdmi.m_aui8Bytes) &&
            aoDataBlocks[i].m_uiSize >= oHdmi.m_uiSize &&
            memcmp(pui8Bytes + 1, oHdmi.m_aui8Bytes + 1, oHdmi.m_uiSize - 1) == 0)
        {
            return i + 1;
        }
    }
    return std::min(uiPlace, aoDataBlocks.GetCount());
}

bool CPartsEdit::PutDataBlock(unsigned int uiBlock, const SNewPart& oNew, unsigned int uiPlace)
{
    CBlockParts oBlock;
    if (!Open(uiBlock, oBlock))
    {
        return false;
    }
    const unsigned char* pui8Header = oNew.m_oPiece.m_aui8Bytes;
    if (oNew.m_bDisplayId && ReadLittle24(pui8Header) == 0)
    {
        m_oWhyNot = "a data block of tag 0 without a payload would be read as filler";
        return false;
    }
    CPieces& aoDataBlocks = oBlock.Get(eList_DataBlocks);
    const unsigned int uiTo = ChoosePlace(aoDataBlocks, oNew.m_eId, uiPlace);
    InsertPiece(aoDataBlocks, uiTo, oNew.m_oPiece);
    if (!Close(uiBlock, oBlock))
    {
        return false;
    }
    SRange oRange = FindPiece(GetBlock(m_aui8Image, uiBlock), false, eList_DataBlocks, uiTo);
    oRange.m_uiOffset += uiBlock * gsc_uiBlockSize;
    m_oNamed.m_aoAfter.Add(oRange);
    return true;
}

// Into the last data block of the kind with room, or at a place of the first one.
bool CPartsEdit::PutItem(unsigned int uiBlock, const SNewPart& oNew, unsigned int uiPlace)
{
    CBlockParts oBlock;
    if (!Open(uiBlock, oBlock))
    {
        return false;
    }
    const unsigned int uiHead = oNew.m_oItem.m_uiOffset;
    const unsigned int uiCount = oBlock.Get(eList_DataBlocks).GetCount();
    const auto fnIs = [&](const SPiece& oPiece) {
        SPiece oHead = oPiece;
        oHead.m_uiSize = oNew.m_oPiece.m_uiSize;
        StoreDataBlockLength(oHead, oNew.m_bDisplayId); // the lengths may differ
        return oPiece.m_uiSize >= uiHead && memcmp(oHead.m_aui8Bytes, oNew.m_oPiece.m_aui8Bytes, uiHead) == 0;
    };
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        const unsigned int uiNumber = uiPlace == gsc_uiAny ? uiCount - 1 - i : i;
        CBlockParts oTried = oBlock;
        SPiece& oPiece = oTried.Get(eList_DataBlocks)[uiNumber];
        if (!fnIs(oPiece))
        {
            continue;
        }
        const SItems oItems = FindItems(oPiece.m_aui8Bytes, oPiece.m_uiSize, oNew.m_bDisplayId);
        const unsigned int uiItem = std::min(uiPlace, oItems.Count(oPiece));
        const unsigned int uiAt = oItems.m_uiFirst + uiItem * oItems.m_uiSize;
        if (oItems.m_uiSize != oNew.m_oPiece.m_uiSize - uiHead || oPiece.m_uiSize + oItems.m_uiSize > gsc_uiBlockSize)
        {
            continue;
        }
        memmove(oPiece.m_aui8Bytes + uiAt + oItems.m_uiSize, oPiece.m_aui8Bytes + uiAt, oPiece.m_uiSize - uiAt);
        memcpy(oPiece.m_aui8Bytes + uiAt, oNew.m_oPiece.m_aui8Bytes + uiHead, oItems.m_uiSize);
        oPiece.m_uiSize += oItems.m_uiSize;
        if (StoreDataBlockLength(oPiece, oNew.m_bDisplayId) && Close(uiBlock, oTried))
        {
            const SRange oData = FindPiece(GetBlock(m_aui8Image, uiBlock), false, eList_DataBlocks, uiNumber);
            m_oNamed.m_aoAfter.Add(GetRange(uiBlock, oData.m_uiOffset + uiAt, oItems.m_uiSize));
            return true;
        }
    }
    return false;
}

int CPartsEdit::AddNew(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Bytes, const SWhere& oWhere,
                       bool bItem)
{
    SNewPart oNew = {};
    bool bKnown = false;
    bool bDisplayId = false;
    unsigned int uiNewVersion = 0; // the first one that has the kind, or that of the image
    const auto fnLast = [&] { return m_oNamed.m_aoAfter[m_oNamed.m_aoAfter.GetCount() - 1]; };
    for (unsigned int uiRound = 0; uiRound < 2; ++uiRound) // into lists first
    {
        for (unsigned int i = 1; i < CountCounted() && (uiRound == 1 || bItem); ++i)
        {
            CBlockParts oBlock;
            oBlock.Read(GetBlock(m_aui8Image, i), false);
            const unsigned int uiVersion = std::max(1U, oBlock.GetVersion());
            if ((oWhere.m_uiBlock != gsc_uiAny && oWhere.m_uiBlock != i) ||
                !MakeDataBlock(eId, uiLength, pui8Bytes, oWhere, uiVersion, oNew) || !IsFor(i, oNew))
            {
                continue;
            }
            if (uiRound == 0 ? PutItem(i, oNew, oWhere.m_uiPlace)
                             : PutDataBlock(i, oNew, bItem ? gsc_uiAny : oWhere.m_uiPlace))
            {
                return Commit(uiRound == 0 ? eZorEdidField_None : eId, fnLast());
            }
        }
    }
    for (unsigned int uiVersion = DisplayId::gsc_uiHighestMajorVersion; uiVersion > 0; --uiVersion)
    {
        SNewPart oOther = {};
        if (uiNewVersion != GetSectionVersion(m_aui8Image) &&
            MakeDataBlock(eId, uiLength, pui8Bytes, oWhere, uiVersion, oOther))
        {
            bKnown = true;
            bDisplayId = oOther.m_bDisplayId;
            uiNewVersion = uiVersion;
            oNew = oOther;
        }
    }
    if (!bKnown)
    {
        return Refuse(m_oWhyNot.GetLength() != 0 ? m_oWhyNot : CMString("it is not a kind of data block"));
    }
    if (oWhere.m_bNewBlock && oWhere.m_uiBlock == gsc_uiAny && eId != eZorEdidField_CtaExtensionOverride &&
        AddFurtherBlock(bDisplayId ? gsc_uiDisplayIdTag : gsc_uiCtaTag, uiNewVersion) &&
        PutDataBlock(m_oAnswer.m_uiNewBlock, oNew, gsc_uiAny))
    {
        return Commit(eId, fnLast());
    }
    return RefuseForRoom(bDisplayId ? "DisplayID block that takes it" : "CTA-861 block that takes it");
}

int CPartsEdit::AddDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload,
                             const SWhere& oWhere)
{
    return AddNew(eId, uiLength, pui8Payload, oWhere, false);
}

int CPartsEdit::AddItem(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item, const SWhere& oWhere)
{
    for (unsigned int uiVersion = 1; uiVersion <= DisplayId::gsc_uiHighestMajorVersion; ++uiVersion)
    {
        SNewPart oNew = {};
        if (MakeDataBlock(eId, uiLength, pui8Item, oWhere, uiVersion, oNew))
        {
            const SItems oItems = FindItems(oNew.m_oPiece.m_aui8Bytes, oNew.m_oPiece.m_uiSize, oNew.m_bDisplayId);
            const bool bList = oItems.m_uiSize != 0 && oItems.m_uiFirst == oNew.m_oItem.m_uiOffset;
            if (bList && oItems.m_uiSize == uiLength && uiLength != 0)
            {
                return AddNew(eId, uiLength, pui8Item, oWhere, true);
            }
            CMString oReason;
            oReason.Format("an item of such a data block has %u byte%s", oItems.m_uiSize,
                           oItems.m_uiSize == 1 ? "" : "s");
            return Refuse(bList ? oReason : CMString("a data block of this kind is not a list of items"));
        }
    }
    return Refuse(m_oWhyNot.GetLength() != 0 ? m_oWhyNot : CMString("it is not a kind of data block"));
}

// ---- Finding ----

bool CPartsEdit::FindPartOf(const CZorEdidMap::SField& oField, const CBlockParts& oBlock, SPart& oPart) const
{
    const unsigned int uiBase = oPart.m_uiBlock * gsc_uiBlockSize;
    const unsigned int uiOffset = oField.m_uiOffset - uiBase;
    for (unsigned int uiList = 0; uiList < eLists; ++uiList)
    {
        const CPieces& aoPieces = oBlock.Get(static_cast<EList>(uiList));
        for (unsigned int i = 0; i < aoPieces.GetCount(); ++i)
        {
            const SPiece& oPiece = aoPieces[i];
            oPart = { SPart::eKind_Piece,
                      oPart.m_uiBlock,
                      static_cast<EList>(uiList),
                      i,
                      0,
                      { oField.m_uiOffset, oField.m_uiLength } };
            if (uiOffset == oPiece.m_uiOffset && oField.m_uiLength == oPiece.m_uiSize)
            {
                return true;
            }
            const SItems oItems = uiList == eList_DataBlocks ? FindItems(oPiece.m_aui8Bytes, oPiece.m_uiSize,
                                                                         oBlock.GetKind() == eBlock_DisplayId)
                                                             : SItems{ 0, 0 };
            for (unsigned int uiItem = 0; uiItem < oItems.Count(oPiece); ++uiItem)
            {
                if (uiOffset == oPiece.m_uiOffset + oItems.m_uiFirst + uiItem * oItems.m_uiSize &&
                    oField.m_uiLength == oItems.m_uiSize)
                {
                    oPart.m_eKind = SPart::eKind_Item;
                    oPart.m_uiItem = uiItem;
                    return true;
                }
            }
        }
    }
    return false;
}

// False with the reason in the answer.
bool CPartsEdit::FindPart(unsigned int uiField, SPart& oPart)
{
    const CZorEdidMap::SField& oAsked = m_oMap.GetField(uiField);
    const unsigned int uiBlock = oAsked.m_uiOffset / gsc_uiBlockSize;
    oPart = { SPart::eKind_Block, uiBlock, eList_DataBlocks, 0, 0, GetRange(uiBlock, 0, gsc_uiBlockSize) };
    if (oAsked.m_uiDepth == 0)
    {
        if (uiBlock != 0 && uiBlock < CountCounted())
        {
            return true;
        }
        Refuse(uiBlock == 0 ? "the base block is always the first one and cannot be removed"
                            : "it is not a block that the image counts");
        return false;
    }
    CBlockParts oBlock;
    if (uiBlock >= CountCounted() || !Open(uiBlock, oBlock))
    {
        Refuse(uiBlock >= CountCounted() ? CMString("it is in no block that the image counts") : m_oWhyNot);
        return false;
    }
    for (unsigned int i = uiField; i != gsc_uiNone && m_oMap.GetField(i).m_uiDepth != 0;
         i = m_oMap.GetField(i).m_uiGroup)
    {
        if (FindPartOf(m_oMap.GetField(i), oBlock, oPart))
        {
            return true;
        }
    }
    Refuse("it is not a part that can be removed or moved");
    return false;
}

// ---- Removing ----

int CPartsEdit::Remove(unsigned int uiField)
{
    SPart oPart = {};
    if (!FindPart(uiField, oPart))
    {
        return 0;
    }
    return oPart.m_eKind == SPart::eKind_Block   ? RemoveWholeBlock(oPart)
           : oPart.m_eKind == SPart::eKind_Piece ? RemovePieceOf(oPart)
                                                 : RemoveItems(1, &uiField);
}

int CPartsEdit::RemoveWholeBlock(const SPart& oPart)
{
    if (!IsCounted(m_aui8Image))
    {
        return Refuse("the image does not end where its count of blocks says");
    }
    CBlockParts oBlock;
    if (GetBlock(m_aui8Image, oPart.m_uiBlock)[0] == gsc_uiCtaTag && Open(oPart.m_uiBlock, oBlock))
    {
        const unsigned int uiAhead = CountDetailedAhead(m_aui8Image, oPart.m_uiBlock);
        for (unsigned int i = CountTimings(oBlock.Get(eList_Detailed)); i > 0; --i)
        {
            ChangeNatives(m_aui8Image, uiAhead + i - 1, -1);
        }
    }
    m_bBlocks = true;
    ZorWrite::RemoveBlock(m_aui8Image, oPart.m_uiBlock);
    m_oNamed.m_aoBefore.Add(oPart.m_oRange);
    if (RemoveBlockMap(m_aui8Image) != 0)
    {
        m_oNamed.m_aoBefore.Add(GetRange(1, 0, gsc_uiBlockSize));
    }
    return Commit(eZorEdidField_None, { 0, 0 });
}

int CPartsEdit::RemovePieceOf(const SPart& oPart)
{
    CBlockParts oBlock;
    Open(oPart.m_uiBlock, oBlock);
    CPieces& aoPieces = oBlock.Get(oPart.m_eList);
    const SPiece oRemoved = aoPieces[oPart.m_uiPlace];
    unsigned int uiNumber = oPart.m_uiPlace + CountDetailedAhead(m_aui8Image, oPart.m_uiBlock);
    if (oPart.m_eList == eList_Standards)
    {
        aoPieces[oPart.m_uiPlace] = MakePiece(gsc_aui8UnusedStandard, gsc_uiStandardSize);
        m_oNamed.m_aoAfter.Add(oPart.m_oRange);
    }
    else if (oPart.m_eList == eList_Descriptors)
    {
        // The other timings move up, and so do the descriptors after them; others leave their place empty.
        const unsigned int uiDummy = IsTiming(oRemoved) ? aoPieces.GetCount() - 1 : oPart.m_uiPlace;
        RemovePiece(aoPieces, oPart.m_uiPlace);
        InsertPiece(aoPieces, uiDummy, MakePiece(gsc_aui8Dummy, Descriptors::gsc_uiDescriptorSize));
        m_oNamed.m_aoAfter.Add(GetRange(0, BaseBlock::DescriptorOffset(uiDummy), Descriptors::gsc_uiDescriptorSize));
    }
    else
    {
        RemovePiece(aoPieces, oPart.m_uiPlace);
    }
    m_oNamed.m_aoBefore.Add(oPart.m_oRange);
    Close(oPart.m_uiBlock, oBlock);
    if (IsTiming(oRemoved) && (oPart.m_eList == eList_Descriptors || oPart.m_eList == eList_Detailed))
    {
        ChangeNatives(m_aui8Image, uiNumber, -1);
    }
    return Commit(eZorEdidField_None, { 0, 0 });
}

// A data block goes with its last item.
void CPartsEdit::RemoveItemOf(CBlockParts& oBlock, const SPart& oPart)
{
    CPieces& aoDataBlocks = oBlock.Get(eList_DataBlocks);
    SPiece& oPiece = aoDataBlocks[oPart.m_uiPlace];
    const bool bDisplayId = oBlock.GetKind() == eBlock_DisplayId;
    const SItems oItems = FindItems(oPiece.m_aui8Bytes, oPiece.m_uiSize, bDisplayId);
    if (oPart.m_eKind == SPart::eKind_Piece || oItems.Count(oPiece) <= 1)
    {
        // As it was read: items of it may have gone before.
        const unsigned int uiRead =
            FindPiece(GetBlock(m_aui8Before, oPart.m_uiBlock), false, eList_DataBlocks, oPart.m_uiPlace).m_uiSize;
        m_oNamed.m_aoBefore.Add(GetRange(oPart.m_uiBlock, oPiece.m_uiOffset, uiRead));
        RemovePiece(aoDataBlocks, oPart.m_uiPlace);
        return;
    }
    const unsigned int uiAt = oItems.m_uiFirst + oPart.m_uiItem * oItems.m_uiSize;
    oPiece.m_uiSize -= oItems.m_uiSize;
    memmove(oPiece.m_aui8Bytes + uiAt, oPiece.m_aui8Bytes + uiAt + oItems.m_uiSize, oPiece.m_uiSize - uiAt);
    StoreDataBlockLength(oPiece, bDisplayId);
    m_oNamed.m_aoBefore.Add(oPart.m_oRange);
}

// From the last item to the first, so that earlier ones stay where they were found. A block is put together once.
int CPartsEdit::RemoveItems(unsigned int uiCount, const unsigned int* puiFields)
{
    CMArray<SPart, const SPart&> aoParts;
    for (unsigned int i = 0; i < uiCount; ++i)
    {
        SPart oPart = {};
        if (!FindPart(puiFields[i], oPart))
        {
            return 0;
        }
        if (oPart.m_eKind == SPart::eKind_Block || oPart.m_eList != eList_DataBlocks)
        {
            return Refuse("only data blocks and items of them are removed together");
        }
        oPart.m_uiItem = oPart.m_eKind == SPart::eKind_Piece ? gsc_uiAny : oPart.m_uiItem; // goes first
        aoParts.Add(oPart);
    }
    const auto fnOrder = [](const SPart& oPart) {
        return std::tuple(oPart.m_uiBlock, oPart.m_uiPlace, oPart.m_uiItem);
    };
    SPart* const poEnd = aoParts.GetData() + aoParts.GetCount();
    std::sort(aoParts.GetData(), poEnd,
              [&](const SPart& oOne, const SPart& oOther) { return fnOrder(oOne) > fnOrder(oOther); });
    CBlockParts oBlock;
    const SPart* poLast = nullptr;
    for (const SPart* poPart = aoParts.GetData(); poPart != poEnd; ++poPart)
    {
        const bool bSameDataBlock =
            poLast != nullptr && poLast->m_uiBlock == poPart->m_uiBlock && poLast->m_uiPlace == poPart->m_uiPlace;
        if (bSameDataBlock && (poLast->m_uiItem == gsc_uiAny || poLast->m_uiItem == poPart->m_uiItem))
        {
            continue; // is gone already
        }
        if (poLast == nullptr || poLast->m_uiBlock != poPart->m_uiBlock)
        {
            if (poLast != nullptr)
            {
                Close(poLast->m_uiBlock, oBlock);
            }
            Open(poPart->m_uiBlock, oBlock);
        }
        RemoveItemOf(oBlock, *poPart);
        poLast = poPart;
    }
    if (poLast != nullptr)
    {
        Close(poLast->m_uiBlock, oBlock);
    }
    return Commit(eZorEdidField_None, { 0, 0 });
}

// ---- Moving ----

int CPartsEdit::Move(unsigned int uiField, unsigned int uiPlace)
{
    SPart oPart = {};
    if (!FindPart(uiField, oPart))
    {
        return 0;
    }
    if (oPart.m_eKind == SPart::eKind_Block)
    {
        return MoveWholeBlock(oPart, uiPlace);
    }
    if (oPart.m_eKind == SPart::eKind_Item)
    {
        return MoveItemOf(oPart, uiPlace);
    }
    CBlockParts oBlock;
    Open(oPart.m_uiBlock, oBlock);
    CPieces& aoPieces = oBlock.Get(oPart.m_eList);
    const SPiece oPiece = aoPieces[oPart.m_uiPlace];
    if (uiPlace >= aoPieces.GetCount())
    {
        CMString oReason;
        oReason.Format("the places are 0 to %u", aoPieces.GetCount() - 1);
        return Refuse(oReason);
    }
    RemovePiece(aoPieces, oPart.m_uiPlace);
    InsertPiece(aoPieces, uiPlace, oPiece);
    if (oPart.m_eList == eList_Descriptors && !IsOrdered(aoPieces))
    {
        return Refuse("in the base block detailed timings come before all other descriptors");
    }
    if (IsTiming(oPiece))
    {
        MoveNatives(oPart, uiPlace);
    }
    Close(oPart.m_uiBlock, oBlock);
    SRange oAfter = FindPiece(GetBlock(m_aui8Image, oPart.m_uiBlock), oPart.m_uiBlock == 0, oPart.m_eList, uiPlace);
    oAfter.m_uiOffset += oPart.m_uiBlock * gsc_uiBlockSize;
    return CommitMove(oPart.m_oRange, oAfter);
}

// The count of natives covers the first timings: a timing that moves among them raises it, one that leaves lowers it.
void CPartsEdit::MoveNatives(const SPart& oPart, unsigned int uiPlace)
{
    if (oPart.m_eList != eList_Descriptors && oPart.m_eList != eList_Detailed)
    {
        return;
    }
    const unsigned int uiAhead = CountDetailedAhead(m_aui8Image, oPart.m_uiBlock);
    const unsigned int uiFrom = uiAhead + oPart.m_uiPlace;
    const unsigned int uiTo = uiAhead + uiPlace;
    for (unsigned int i = 1; i < CountBlocks(m_aui8Image); ++i)
    {
        const unsigned int uiNatives =
            GetBlock(m_aui8Image, i)[0] == gsc_uiCtaTag ? Cta::gsc_oNativeCount.Read(GetBlock(m_aui8Image, i)) : 0;
        if ((uiFrom < uiNatives) != (uiTo < uiNatives))
        {
            ChangeNatives(m_aui8Image, std::min(uiFrom, uiTo), uiTo < uiNatives ? 1 : -1);
            return;
        }
    }
}

int CPartsEdit::MoveWholeBlock(const SPart& oPart, unsigned int uiPlace)
{
    if (!IsCounted(m_aui8Image))
    {
        return Refuse("the image does not end where its count of blocks says");
    }
    if (uiPlace == 0 || uiPlace >= CountBlocks(m_aui8Image))
    {
        CMString oReason;
        oReason.Format("the places are 1 to %u", CountBlocks(m_aui8Image) - 1);
        return Refuse(oReason);
    }
    unsigned char aui8Block[gsc_uiBlockSize];
    memcpy(aui8Block, GetBlock(m_aui8Image, oPart.m_uiBlock), gsc_uiBlockSize);
    m_bBlocks = true;
    ZorWrite::RemoveBlock(m_aui8Image, oPart.m_uiBlock);
    InsertBlock(m_aui8Image, uiPlace, aui8Block);
    return CommitMove(oPart.m_oRange, GetRange(uiPlace, 0, gsc_uiBlockSize));
}

int CPartsEdit::MoveItemOf(const SPart& oPart, unsigned int uiPlace)
{
    CBlockParts oBlock;
    Open(oPart.m_uiBlock, oBlock);
    SPiece& oPiece = oBlock.Get(eList_DataBlocks)[oPart.m_uiPlace];
    const SItems oItems = FindItems(oPiece.m_aui8Bytes, oPiece.m_uiSize, oBlock.GetKind() == eBlock_DisplayId);
    if (uiPlace >= oItems.Count(oPiece))
    {
        CMString oReason;
        oReason.Format("the places are 0 to %u", oItems.Count(oPiece) - 1);
        return Refuse(oReason);
    }
    const auto fnItem = [&](unsigned int uiItem) {
        return oPiece.m_aui8Bytes + oItems.m_uiFirst + uiItem * oItems.m_uiSize;
    };
    if (uiPlace < oPart.m_uiItem)
    {
        std::rotate(fnItem(uiPlace), fnItem(oPart.m_uiItem), fnItem(oPart.m_uiItem + 1));
    }
    else
    {
        std::rotate(fnItem(oPart.m_uiItem), fnItem(oPart.m_uiItem + 1), fnItem(uiPlace + 1));
    }
    Close(oPart.m_uiBlock, oBlock);
    return CommitMove(
        oPart.m_oRange,
        GetRange(oPart.m_uiBlock, oPiece.m_uiOffset + oItems.m_uiFirst + uiPlace * oItems.m_uiSize, oItems.m_uiSize));
}
} // namespace ZorWrite

// ---- The class ----

int CZorEdidParts::Read(unsigned int uiSize, const unsigned char* pui8Data)
{
    m_uiPresent = 0;
    return m_aoMaps[0].Read(uiSize, pui8Data);
}

int CZorEdidParts::AddBlock(unsigned int uiTag, unsigned int uiLength, const unsigned char* pui8Block,
                            const SWhere& oWhere, SAnswer& oAnswer)
{
    const bool bBytes = uiLength != 0;
    if (uiTag == 0 || uiTag > 0xFF || (bBytes && (uiLength != gsc_uiBlockSize || pui8Block[0] != uiTag)))
    {
        MASSERT_FAILED();
        oAnswer = {};
        return 0;
    }
    return CPartsEdit(*this, oAnswer).AddBlock(uiTag, bBytes ? pui8Block : nullptr, oWhere);
}

int CZorEdidParts::AddStandard(const unsigned char* pui8Bytes, const SWhere& oWhere, SAnswer& oAnswer)
{
    return CPartsEdit(*this, oAnswer).AddStandard(pui8Bytes, oWhere);
}

int CZorEdidParts::AddDescriptor(const unsigned char* pui8Bytes, const SWhere& oWhere, SAnswer& oAnswer)
{
    return CPartsEdit(*this, oAnswer).AddDescriptor(pui8Bytes, oWhere);
}

int CZorEdidParts::AddDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload,
                                const SWhere& oWhere, SAnswer& oAnswer)
{
    return CPartsEdit(*this, oAnswer).AddDataBlock(eId, uiLength, pui8Payload, oWhere);
}

int CZorEdidParts::AddItem(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item,
                           const SWhere& oWhere, SAnswer& oAnswer)
{
    return CPartsEdit(*this, oAnswer).AddItem(eId, uiLength, pui8Item, oWhere);
}

int CZorEdidParts::Remove(unsigned int uiField, SAnswer& oAnswer) { return CPartsEdit(*this, oAnswer).Remove(uiField); }

int CZorEdidParts::RemoveItems(unsigned int uiCount, const unsigned int* puiFields, SAnswer& oAnswer)
{
    return CPartsEdit(*this, oAnswer).RemoveItems(uiCount, puiFields);
}

int CZorEdidParts::Move(unsigned int uiField, unsigned int uiPlace, SAnswer& oAnswer)
{
    return CPartsEdit(*this, oAnswer).Move(uiField, uiPlace);
}

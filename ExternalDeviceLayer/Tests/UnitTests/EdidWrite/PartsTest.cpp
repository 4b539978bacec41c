// Parts added, removed and moved: what is taken back leaves the bytes as they were, what is refused changes nothing.

#include "ZorEdidParts.h"

#include <gtest/gtest.h>

#include <functional>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "MapKinds.h"
#include "OsServices.h"
#include "SharedFiles.h"
#include "ZorEdidRepair.h"

namespace
{
using SAnswer = CZorEdidParts::SAnswer;
using SWhere = CZorEdidParts::SWhere;
using CAdd = std::function<int(CZorEdidParts& oParts, SAnswer& oAnswer)>;

class Parts : public testing::Test
{
protected:
    Parts() { OsServices::SetMsgLevel(0, 0, 0); }
};

CBytes GetBytes(const CZorEdidParts& oParts)
{
    return { oParts.GetMap().GetData(), oParts.GetMap().GetData() + oParts.GetMap().GetSize() };
}

// Empty, or the bytes that differ.
std::string Differ(const CBytes& aui8Expected, const CZorEdidParts& oParts)
{
    const CBytes aui8Bytes = GetBytes(oParts);
    std::string sText = aui8Bytes.size() == aui8Expected.size() ? "" : "sizes";
    for (size_t i = 0; i < std::min(aui8Bytes.size(), aui8Expected.size()); ++i)
    {
        sText += aui8Bytes[i] == aui8Expected[i] ? "" : " " + std::to_string(i);
    }
    return sText;
}

void Read(CZorEdidParts& oParts, const CBytes& aui8Image)
{
    ASSERT_EQ(1, oParts.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()));
}

unsigned int CountNotes(const CZorEdidMap& oMap)
{
    unsigned int uiNotes = 0;
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        uiNotes += oMap.GetNote(i).m_eSeverity == CZorEdidMap::eSeverity_Error ? 1U : 0U;
    }
    return uiNotes;
}

// The field number uiNumber with this id.
unsigned int Find(const CZorEdidMap& oMap, EZorEdidField eId, unsigned int uiNumber = 0)
{
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        if (oMap.GetField(i).m_eId == eId && uiNumber-- == 0)
        {
            return i;
        }
    }
    ADD_FAILURE() << CZorEdidMap::GetId(eId);
    return 0;
}

long long GetNumber(const CZorEdidParts& oParts, EZorEdidField eId, unsigned int uiNumber = 0)
{
    return oParts.GetMap().GetField(Find(oParts.GetMap(), eId, uiNumber)).m_llNumber;
}

std::map<std::string, CBytes> GetImages()
{
    std::map<std::string, CBytes> oImages = { { "both", MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }) } };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        oImages[oImage.m_pszName] = ToBytes(*oImage.m_paui8Image);
    }
    oImages.merge(ReadImages(ZOREDID_SHARED_DIR "/corpus"));
    for (auto& [sName, aui8Image] : oImages) // what an edit makes right, it leaves right
    {
        CZorEdidRepair oRepair;
        oRepair.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
        aui8Image.assign(oRepair.GetData(), oRepair.GetData() + oRepair.GetSize());
    }
    return oImages;
}

CAdd AddBlock(unsigned int uiTag)
{
    return [=](CZorEdidParts& oParts, SAnswer& oAnswer) { return oParts.AddBlock(uiTag, 0, nullptr, {}, oAnswer); };
}
CAdd AddDescriptor(const char* pszBytes)
{
    return [aui8Bytes = ParseBytes(pszBytes)](CZorEdidParts& oParts, SAnswer& oAnswer) {
        return oParts.AddDescriptor(aui8Bytes.data(), {}, oAnswer);
    };
}
CAdd AddDataBlock(EZorEdidField eId, const char* pszPayload, SWhere oWhere = {})
{
    return [=, aui8Bytes = ParseBytes(pszPayload)](CZorEdidParts& oParts, SAnswer& oAnswer) {
        return oParts.AddDataBlock(eId, static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data(), oWhere, oAnswer);
    };
}
CAdd AddItem(EZorEdidField eId, const CBytes& aui8Bytes, SWhere oWhere = {})
{
    return [=](CZorEdidParts& oParts, SAnswer& oAnswer) {
        return oParts.AddItem(eId, static_cast<unsigned int>(aui8Bytes.size()), aui8Bytes.data(), oWhere, oAnswer);
    };
}
CAdd AddStandard(const char* pszBytes)
{
    return [aui8Bytes = ParseBytes(pszBytes)](CZorEdidParts& oParts, SAnswer& oAnswer) {
        return oParts.AddStandard(aui8Bytes.data(), {}, oAnswer);
    };
}

// 1920 x 1080 at 60 Hz in 14 bytes.
CBytes Type6Record1080p() { return ParseBytes("13 44 02 7F 07 37 04 17 57 01 2B 2C 03 04"); }

constexpr char gsc_szDetailed[] = "01 1D 00 72 51 D0 1E 20 6E 28 55 00 09 25 21 00 00 1E"; // 1280 x 720 at 60 Hz
constexpr char gsc_szName[] = "00*3 FC 00 41 0A 20*11";

// Images that do not come back byte for byte: a dummy descriptor with contents, or before other descriptors, and a
// block map with wrong tags.
bool IsOdd(const CZorEdidMap& oMap)
{
    const CZorEdidMap::SField* poDummy = nullptr;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const CZorEdidMap::SField& oField = oMap.GetField(i);
        const bool bDummy = oField.m_eId == eZorEdidField_BaseDummy;
        if (poDummy != nullptr && !bDummy && oField.m_uiDepth == poDummy->m_uiDepth && oField.m_uiLength == 18)
        {
            return true;
        }
        poDummy = bDummy ? &oField : poDummy;
        if (bDummy && std::any_of(oMap.GetData() + oField.m_uiOffset + 5, oMap.GetData() + oField.m_uiOffset + 18,
                                  [](unsigned char ui8Byte) { return ui8Byte != 0; }))
        {
            return true;
        }
    }
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        if (oMap.GetNote(i).m_eRule == eZorEdidRule_BlockMapTag)
        {
            return true;
        }
    }
    return false;
}

// Adds and takes back, with the block that was added for it. Whether there was room.
bool AddAndRemove(const CBytes& aui8Image, const CAdd& fnAdd)
{
    CZorEdidParts oParts;
    SAnswer oAnswer;
    Read(oParts, aui8Image);
    const unsigned int uiNotes = CountNotes(oParts.GetMap());
    if (fnAdd(oParts, oAnswer) == 0)
    {
        EXPECT_EQ("", Differ(aui8Image, oParts));
        EXPECT_NE(0, oAnswer.m_oReason.GetLength());
        return false;
    }
    EXPECT_NE("", Differ(aui8Image, oParts));
    EXPECT_LE(CountNotes(oParts.GetMap()), uiNotes);
    unsigned int uiField = oAnswer.m_uiField;
    while (oAnswer.m_uiNewBlock != 0 && oParts.GetMap().GetField(uiField).m_uiDepth != 0)
    {
        uiField = oParts.GetMap().GetField(uiField).m_uiGroup;
    }
    EXPECT_EQ(1, oParts.Remove(uiField, oAnswer)) << static_cast<const char*>(oAnswer.m_oReason);
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    EXPECT_TRUE(IsOdd(oMap) || Differ(aui8Image, oParts).empty()) << Differ(aui8Image, oParts);
    return true;
}

TEST_F(Parts, EveryKindOfDataBlock)
{
    const CBytes aui8Image = MakeEdid({ MakeCeaBlock(), MakeDisplayIdBlock({}), MakeDisplayIdBlock({}, 0, 0x20) });
    unsigned int uiKinds = 0;
    for (unsigned int uiId = 1; uiId < 0x1000; ++uiId)
    {
        const auto eId = static_cast<EZorEdidField>(uiId);
        ZorMap::SDataBlockHead oHead = {};
        if (!ZorMap::FindCtaHead(eId, oHead) && !ZorMap::FindDisplayIdHead(eId, 1, oHead) &&
            !ZorMap::FindDisplayIdHead(eId, 2, oHead))
        {
            continue;
        }
        CZorEdidParts oParts;
        SAnswer oAnswer;
        const CBytes aui8Payload(30, 1);
        Read(oParts, aui8Image);
        unsigned int uiLength = 0; // the first one without an error
        const unsigned int uiNotes = CountNotes(oParts.GetMap());
        while (uiLength < aui8Payload.size() &&
               (oParts.AddDataBlock(eId, uiLength, aui8Payload.data(), {}, oAnswer) == 0 ||
                CountNotes(oParts.GetMap()) > uiNotes))
        {
            Read(oParts, aui8Image);
            ++uiLength;
        }
        if (uiLength < aui8Payload.size())
        {
            SCOPED_TRACE(CZorEdidMap::GetId(eId));
            EXPECT_EQ(eId, oParts.GetMap().GetField(oAnswer.m_uiField).m_eId);
            EXPECT_EQ(1, oParts.Remove(oAnswer.m_uiField, oAnswer));
            EXPECT_EQ("", Differ(aui8Image, oParts));
            ++uiKinds;
        }
    }
    EXPECT_GT(uiKinds, 60U);
}

TEST_F(Parts, WhatIsAddedGoesAgain)
{
    const std::map<std::string, CAdd> oAdds = {
        { "CTA-861 block", AddBlock(2) },
        { "DisplayID block", AddBlock(0x70) },
        { "standard timing", AddStandard("81 80") },
        { "detailed timing", AddDescriptor(gsc_szDetailed) },
        { "name", AddDescriptor(gsc_szName) },
        { "video code", AddItem(eZorEdidField_CtaVideo, { 97 }) },
        { "audio descriptor", AddItem(eZorEdidField_CtaAudio, { 9, 7, 1 }) },
        { "Type I timing", AddItem(eZorEdidField_DisplayidType1, Type1Record1080p()) },
        { "Type VI timing", AddItem(eZorEdidField_DisplayidType6, Type6Record1080p()) },
        { "Type VII timing", AddItem(eZorEdidField_DisplayidType7, Type1Record1080p()) },
        { "HDR", AddDataBlock(eZorEdidField_CtaHdrStatic, "05 01") },
        { "tile", AddDataBlock(eZorEdidField_DisplayidTiled, "82 11 10 00 7F 07 37 04 ..22") },
    };
    for (const auto& [sName, aui8Image] : GetImages())
    {
        SCOPED_TRACE(sName);
        for (const auto& [sAdd, fnAdd] : oAdds)
        {
            SCOPED_TRACE(sAdd);
            AddAndRemove(aui8Image, fnAdd);
        }
    }
}

// They say their own length: a data block of shorter ones cannot take a longer one.
TEST_F(Parts, Type6TimingsOfAnotherLengthStandApart)
{
    CZorEdidParts oParts;
    SAnswer oAnswer;
    CBytes aui8Long = Join({ Type6Record1080p(), CBytes(3) });
    aui8Long[2] |= 0x40;
    Read(oParts, MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(0x13, 0, Type6Record1080p())) }));
    for (const CBytes& aui8Record : { Type6Record1080p(), aui8Long, aui8Long })
    {
        ASSERT_EQ(1, AddItem(eZorEdidField_DisplayidType6, aui8Record)(oParts, oAnswer));
    }
    EXPECT_EQ(2U, oParts.GetMap().CountFields(eZorEdidField_DisplayidType6));
    EXPECT_EQ(4U, oParts.GetMap().CountFields(eZorEdidField_DisplayidType6Timing));
    EXPECT_EQ(0U, CountNotes(oParts.GetMap()));
}

// Each field of each image: its part is removed, or moved to the front and back, or refused.
TEST_F(Parts, WhatIsThereGoesAndMoves)
{
    unsigned int uiRemoved = 0;
    unsigned int uiMoved = 0;
    for (unsigned int uiImage = 0; const auto& [sName, aui8Image] : GetImages())
    {
        constexpr unsigned int uiEach = 5; // that takes long enough
        if (uiImage++ % uiEach != 0)
        {
            continue;
        }
        SCOPED_TRACE(sName);
        CZorEdidParts oParts;
        SAnswer oAnswer;
        Read(oParts, aui8Image);
        for (unsigned int i = 0; i < oParts.GetMap().GetFieldCount(); ++i)
        {
            if (oParts.GetMap().GetField(i).m_eKind != CZorEdidMap::eKind_Group)
            {
                continue;
            }
            SCOPED_TRACE(i);
            const unsigned int uiFirst = oParts.GetMap().GetField(i).m_uiDepth == 0 ? 1 : 0;
            if (oParts.Move(i, uiFirst, oAnswer) == 1)
            {
                EXPECT_EQ(aui8Image.size(), GetBytes(oParts).size());
                ++uiMoved;
                Read(oParts, aui8Image);
            }
            else
            {
                EXPECT_NE(0, oAnswer.m_oReason.GetLength());
            }
            if (oParts.Remove(i, oAnswer) == 1)
            {
                ++uiRemoved;
                Read(oParts, aui8Image);
            }
            EXPECT_EQ("", Differ(aui8Image, oParts));
        }
    }
    EXPECT_GT(uiRemoved, 100U);
    EXPECT_GT(uiMoved, 100U);
}

TEST_F(Parts, WhatFollows)
{
    CZorEdidParts oParts;
    SAnswer oAnswer;
    CBytes aui8Image = MakeEdid({ MakeCeaBlock() });
    aui8Image[131] = 0x02; // the base block's timing, and that of the CTA-861 block
    aui8Image = FixChecksums(aui8Image);
    Read(oParts, aui8Image);
    ASSERT_EQ(1, AddDescriptor(gsc_szDetailed)(oParts, oAnswer));
    EXPECT_EQ(3, GetNumber(oParts, eZorEdidField_CtaNativeCount)); // one that comes between natives is native, too
    ASSERT_EQ(1, oParts.Remove(oAnswer.m_uiField, oAnswer));
    EXPECT_EQ("", Differ(aui8Image, oParts));
    // The sections count each other, and the first one says what the product is.
    ASSERT_EQ(1, AddBlock(0x70)(oParts, oAnswer));
    ASSERT_EQ(1, AddBlock(0x70)(oParts, oAnswer));
    EXPECT_EQ(3, GetNumber(oParts, eZorEdidField_BaseExtensionCount));
    EXPECT_EQ(1, GetNumber(oParts, eZorEdidField_DisplayidSectionExtensionCount));
    EXPECT_EQ(3, GetNumber(oParts, eZorEdidField_DisplayidSectionProductType));
    EXPECT_EQ(0, GetNumber(oParts, eZorEdidField_DisplayidSectionProductType, 1));
    ASSERT_EQ(1, oParts.Remove(Find(oParts.GetMap(), eZorEdidField_Displayid), oAnswer));
    EXPECT_EQ(0, GetNumber(oParts, eZorEdidField_DisplayidSectionExtensionCount));
    EXPECT_EQ(3, GetNumber(oParts, eZorEdidField_DisplayidSectionProductType));
    // A count of the HDMI Forum takes the place of byte 126.
    ASSERT_EQ(1, AddDataBlock(eZorEdidField_CtaExtensionOverride, "02")(oParts, oAnswer));
    EXPECT_EQ(1, GetNumber(oParts, eZorEdidField_BaseExtensionCount));
    ASSERT_EQ(1, AddBlock(2)(oParts, oAnswer));
    EXPECT_EQ(3, GetNumber(oParts, eZorEdidField_CtaExtensionOverrideCount));
    EXPECT_EQ(1, GetNumber(oParts, eZorEdidField_BaseExtensionCount));
    ASSERT_EQ(1, oParts.Remove(Find(oParts.GetMap(), eZorEdidField_CtaExtensionOverride), oAnswer));
    EXPECT_EQ(3, GetNumber(oParts, eZorEdidField_BaseExtensionCount));
    // The data block of the HDMI Forum follows that of HDMI.
    ASSERT_EQ(1, AddDataBlock(eZorEdidField_CtaHdmi, "10 00")(oParts, oAnswer));
    ASSERT_EQ(1, AddDataBlock(eZorEdidField_CtaHdrStatic, "05 01")(oParts, oAnswer));
    ASSERT_EQ(1, AddDataBlock(eZorEdidField_CtaHdmiForum, "01 78 00 00")(oParts, oAnswer));
    EXPECT_LT(Find(oParts.GetMap(), eZorEdidField_CtaHdmiForum), Find(oParts.GetMap(), eZorEdidField_CtaHdrStatic));
    // E-EDID 1.3 asks for a block map of more than one block.
    aui8Image[19] = 3;
    aui8Image = FixChecksums(aui8Image);
    EXPECT_TRUE(AddAndRemove(aui8Image, AddBlock(0x70)));
    Read(oParts, aui8Image);
    ASSERT_EQ(1, AddBlock(0x70)(oParts, oAnswer));
    EXPECT_EQ(0x02, GetNumber(oParts, eZorEdidField_BlockMapTag));
    EXPECT_EQ(0x70, GetNumber(oParts, eZorEdidField_BlockMapTag, 1));
    // A further DisplayID block has the version of the first one, also where a part asks for it.
    for (const unsigned int uiVersion : { 0x13U, 0x20U })
    {
        Read(oParts, MakeEdid({ MakeDisplayIdBlock(MakeDataBlock(0x7E, 0, CBytes(115)), UINT_MAX, uiVersion) }));
        ASSERT_EQ(1, AddDataBlock(eZorEdidField_DisplayidTiled, "82 11 10 00 7F 07 37 04 ..22")(oParts, oAnswer));
        ASSERT_EQ(1, AddBlock(0x70)(oParts, oAnswer));
        EXPECT_EQ(uiVersion, oParts.GetMap().GetData()[0x101]);
        EXPECT_EQ(uiVersion, oParts.GetMap().GetData()[0x181]);
    }
    // The only data block has the bytes of the collection, too.
    Read(oParts, MakeEdid({}));
    ASSERT_EQ(1, AddBlock(2)(oParts, oAnswer));
    ASSERT_EQ(1, AddItem(eZorEdidField_CtaVideo, { 97 })(oParts, oAnswer)) << oAnswer.m_oReason;
    EXPECT_EQ(eZorEdidField_CtaVideo, oParts.GetMap().GetField(oAnswer.m_uiField).m_eId);
}

TEST_F(Parts, FullBlocksSayWhatLacks)
{
    const SWhere oHere = { CZorEdidParts::msc_uiAny, CZorEdidParts::msc_uiAny, false, 0 };
    const auto fnDescriptor = [&](CZorEdidParts& oParts, SAnswer& oAnswer) {
        return oParts.AddDescriptor(ParseBytes(gsc_szDetailed).data(), oHere, oAnswer);
    };
    const struct
    {
        const char* m_pszName;
        CAdd m_fnAdd;
        unsigned int m_uiTimes;
        unsigned int m_uiLacking;
        unsigned int m_uiRemovable;
    } aoCases[] = {
        { "standard timings", AddStandard("81 80"), 8, 2, 8 },
        { "detailed timings", fnDescriptor, 3 + 5, 6, 6 }, // of 102 bytes in the CTA-861 block
        { "data blocks", AddDataBlock(eZorEdidField_CtaHdrStatic, "05 01 00 00 00", oHere), 14, 3, 16 },
        { "items", AddItem(eZorEdidField_DisplayidType1, Type1Record1080p(), oHere), 2, 4, 4 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CZorEdidParts oParts;
        SAnswer oAnswer;
        Read(oParts, MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }));
        unsigned int uiTimes = 0;
        while (uiTimes < 100 && oCase.m_fnAdd(oParts, oAnswer) == 1)
        {
            ++uiTimes;
        }
        EXPECT_EQ(oCase.m_uiTimes, uiTimes);
        EXPECT_EQ(oCase.m_uiLacking, oAnswer.m_uiLacking) << static_cast<const char*>(oAnswer.m_oReason);
        EXPECT_EQ(oCase.m_uiRemovable, oAnswer.m_auiRemovable.GetCount());
        ASSERT_NE(0U, oAnswer.m_auiRemovable.GetCount());
        const unsigned int uiLast = oAnswer.m_auiRemovable[oAnswer.m_auiRemovable.GetCount() - 1];
        ASSERT_EQ(1, oParts.Remove(uiLast, oAnswer));
        EXPECT_EQ(1, oCase.m_fnAdd(oParts, oAnswer));
    }
}

TEST_F(Parts, DamageIsRefused)
{
    const struct
    {
        const char* m_pszName;
        size_t m_uiOffset;
        unsigned char m_ui8Byte;
        CAdd m_fnAdd;
    } aoCases[] = {
        { "data blocks run past the descriptors", 132, 0x5F, AddItem(eZorEdidField_CtaVideo, { 97 }) },
        { "descriptors begin outside", 130, 0x82, AddDataBlock(eZorEdidField_CtaHdrStatic, "05 01") },
        { "section is too long", 258, 0x7F, AddDataBlock(eZorEdidField_DisplayidSerial, "41") },
        { "data block is too long", 263, 0x7F, AddDataBlock(eZorEdidField_DisplayidSerial, "41") },
        { "blocks that are not counted", 126, 1, AddBlock(2) },
        { "not version 1", 18, 2, AddStandard("81 80") },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CBytes aui8Image = MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() });
        aui8Image[oCase.m_uiOffset] = oCase.m_ui8Byte;
        CZorEdidParts oParts;
        SAnswer oAnswer;
        Read(oParts, aui8Image);
        EXPECT_EQ(0, oCase.m_fnAdd(oParts, oAnswer) == 1 && oAnswer.m_uiNewBlock == 0);
    }
}
} // namespace

// Each rule of the map's own has an image that breaks it, mostly one of the cases of the other tests, and a near miss:
// the same image with one bit or byte changed, where the field then has no such note.

#include <set>

#include "DisplayIdImages.h"
#include "MapCases.h"
#include "ZorEdidRules.h"

namespace
{
using CRules = std::set<EZorEdidRule>;

CBytes WithCount(CBytes aui8Image)
{
    aui8Image[126] = static_cast<unsigned char>(aui8Image.size() / gsc_uiBlockSize - 1);
    return FixChecksums(aui8Image);
}

// What the tables of the other tests do not break.
std::vector<CBytes> ListMoreImages()
{
    std::vector<CBytes> aaui8Images;
    for (const char* pszChanges : { "@08 04 40", "@3F 00", "@48 00*3 F9 00 02", "@48 00*3 F7 00 09",
                                    "@48 00*3 FD 00 00 4B 1E 53 11 00 0A 20*6", "@26 31 D9", "@26 3B D9", "@26 4B C0" })
    {
        aaui8Images.push_back(FixChecksums(ChangeBytes(MakeEdid({}), pszChanges)));
    }
    for (const char* pszDataBlocks :
         { "F6 22 12 00*21", "E3 23 00 04", "E8 2A 01 00*6", "41 61 E1 0F 01", "FF 02 95 12 03 58 01 00*25",
           "65 03 0C 01 10 00 67 D8 5D C4 01 00 80 00", "65 03 0C 00 10 00 67 D8 5D C4 02 00 80 00",
           "65 03 0C 00 10 00 67 D8 5D C4 01 3C 80 00", "65 03 0C 00 10 00 6A D8 5D C4 01 78 80 00 00 30 20",
           "65 03 0C 00 10 00 41 10 67 D8 5D C4 01 00 80 00" })
    {
        CBytes aui8Block = ParseBytes(pszDataBlocks);
        aui8Block.insert(aui8Block.begin(), { 2, 3, static_cast<unsigned char>(4 + aui8Block.size()), 0x40 });
        aaui8Images.push_back(FixChecksums(BehindBaseBlock(aui8Block)));
    }
    for (const char* pszBlock : { "70 15 79 03 00", "70 12 79 03 00 00 00 0C 41 42 03",
                                  "70 12 79 03 00 00 00 0C 41 42 43 "
                                  "01 00 01 00 00 00 40",
                                  "10 01 01", "40 01 00 01", "70 20 79 03 00 2C 00 4F" })
    {
        aaui8Images.push_back(FixChecksums(BehindBaseBlock(ParseBytes(pszBlock))));
    }
    for (const char* pszBlocks :
         { "02 03 07 40 E2 78 02 ..128 02 03 04 ..256 02 03 04 ..384", "70 12 79 03 00 ..128 70 12 79 01 00 ..256",
           "02 03 04 40 ..128 70 12 79 03 01 ..256" })
    {
        aaui8Images.push_back(WithCount(Join({ MakeEdid({}), ParseBytes(pszBlocks) })));
    }
    const CBytes aui8Good = MakeEdid({});
    aaui8Images.push_back(WithChange(aui8Good, 127, static_cast<unsigned char>(aui8Good[127] + 1)));
    return aaui8Images;
}

// Near misses that take more than one byte: whole images that break the rule, and that nearly do.
struct SPair
{
    EZorEdidRule m_eRule;
    CBytes m_aui8Broken;
    CBytes m_aui8NearMiss;
};

std::vector<SPair> ListPairs()
{
    const CBytes aui8Cta = ParseBytes("02 03 04 00 01 1D 80 18 71 1C 16 20 58 2C 25 00 ..128");
    const CBytes aui8Map = ParseBytes("F0 02 ..128");
    const auto fnMake = [](const CBytes& aui8Blocks) { return WithCount(Join({ MakeEdid({}), aui8Blocks })); };
    const CBytes aui8One = fnMake(aui8Cta);
    const CBytes aui8Cut(aui8One.begin(), aui8One.end() - 112);
    CBytes aui8Many = WithCount(Join({ MakeEdid({}), CBytes(255 * gsc_uiBlockSize) }));
    return {
        { eZorEdidRule_BlockCut, aui8Cut, aui8One },
        { eZorEdidRule_DetailedCut, aui8Cut, aui8One },
        { eZorEdidRule_BlockNotCounted, FixChecksums(WithChange(aui8One, 126, 0)), aui8One },
        { eZorEdidRule_TooManyBlocks, Join({ aui8Many, CBytes(gsc_uiBlockSize) }), aui8Many },
        { eZorEdidRule_BlockKind, fnMake(ParseBytes("03 03 04 ..128")), aui8One },
        { eZorEdidRule_BlockErased, Join({ MakeEdid({}), CBytes(gsc_uiBlockSize, 0xFF) }),
          Join({ MakeEdid({}), CBytes(gsc_uiBlockSize - 1, 0xFF), { 0xFE } }) },
        { eZorEdidRule_BlockMapPlace, fnMake(Join({ aui8Cta, aui8Map })), fnMake(Join({ aui8Map, aui8Cta })) },
        { eZorEdidRule_FirstDescriptor, FixChecksums(ChangeBytes(MakeEdid({}), "@36 00*3 10 00*14")), MakeEdid({}) },
        { eZorEdidRule_NameEmpty, FixChecksums(ChangeBytes(MakeEdid({}), "@13 03 @48 00*3 FC 00 20*13")),
          FixChecksums(ChangeBytes(MakeEdid({}), "@13 03 @48 00*3 FC 00 20*12 41")) },
        { eZorEdidRule_DisplayIdFiller, fnMake(ParseBytes("70 12 00 03 00 EB 01 ..128")),
          fnMake(ParseBytes("70 12 00 03 00 EB 00 ..128")) },
        { eZorEdidRule_DisplayIdOtherVersion, fnMake(ParseBytes("70 12 79 03 00 2B 00 00 ..128")),
          fnMake(ParseBytes("70 20 79 03 00 2B 00 00 ..128")) },
    };
}

std::vector<CBytes> ListImages()
{
    std::vector<CBytes> aaui8Images = ListMoreImages();
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/base.txt", 6))
    {
        aaui8Images.push_back(FixChecksums(ChangeBytes(MakeEdid({}), oRow.GetText(1))));
    }
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/cta-blocks.txt", 4))
    {
        aaui8Images.push_back(MakeCtaImage(oRow));
    }
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/displayid-blocks.txt", 4))
    {
        aaui8Images.push_back(MakeSectionImage(oRow));
    }
    for (const SCaseRow& oRow : ReadCases("EdidMap/golden/other-blocks.txt", 3))
    {
        aaui8Images.push_back(BehindBaseBlock(oRow.GetBytes(1)));
    }
    return aaui8Images;
}

bool IsNoted(const CZorEdidMap& oMap, unsigned int uiField, EZorEdidRule eRule)
{
    const CZorEdidMap::SField& oField = oMap.GetField(uiField);
    for (unsigned int i = 0; i < oField.m_uiNotes; ++i)
    {
        if (oMap.GetNote(oField.m_uiFirstNote + i).m_eRule == eRule)
        {
            return true;
        }
    }
    return false;
}

// The field is still there, in its place, and the rule is kept.
bool IsNearMiss(const CBytes& aui8Image, const CZorEdidMap::SField& oField, EZorEdidRule eRule)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    bool bThere = false;
    for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
    {
        const bool bSame = oMap.GetField(i).m_eId == oField.m_eId && oMap.GetField(i).m_uiOffset == oField.m_uiOffset;
        if (bSame && IsNoted(oMap, i, eRule))
        {
            return false;
        }
        bThere = bThere || bSame;
    }
    return bThere;
}

// How far a near miss may lie from the image: one bit of the field, one byte of a short one, one bit of anything.
enum EDistance
{
    eDistance_Bit,
    eDistance_Byte,
    eDistance_Anywhere
};

bool HasNearMiss(const CBytes& aui8Image, const CZorEdidMap::SField& oField, EZorEdidRule eRule, EDistance eDistance)
{
    constexpr size_t uiShort = 4; // bytes
    const bool bAnywhere = eDistance == eDistance_Anywhere;
    const size_t uiFirst = bAnywhere ? 0 : oField.m_uiOffset;
    const size_t uiLength =
        eDistance == eDistance_Byte ? std::min<size_t>(oField.m_uiLength, uiShort) : oField.m_uiLength;
    const size_t uiEnd = bAnywhere ? aui8Image.size() : std::min(aui8Image.size(), uiFirst + uiLength);
    for (size_t uiOffset = uiFirst; uiOffset < uiEnd; ++uiOffset)
    {
        for (unsigned int uiMask = 1; uiMask < 256; uiMask = eDistance == eDistance_Byte ? uiMask + 1 : uiMask * 2)
        {
            const auto ui8Value = static_cast<unsigned char>(aui8Image[uiOffset] ^ uiMask);
            const CBytes aui8Changed = WithChange(aui8Image, uiOffset, ui8Value);
            if (IsNearMiss(eRule == eZorEdidRule_Checksum ? aui8Changed : FixChecksums(aui8Changed), oField, eRule))
            {
                return true;
            }
        }
    }
    return false;
}

bool IsNotedAnywhere(const CBytes& aui8Image, EZorEdidRule eRule)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        if (oMap.GetNote(i).m_eRule == eRule)
        {
            return true;
        }
    }
    return false;
}

TEST(MapRules, EachHasAnImageThatBreaksItAndANearMiss)
{
    CRules oBroken;
    CRules oRighted;
    const std::vector<CBytes> aaui8Images = ListImages();
    for (const SPair& oPair : ListPairs())
    {
        EXPECT_TRUE(IsNotedAnywhere(oPair.m_aui8Broken, oPair.m_eRule)) << FindZorEdidRule(oPair.m_eRule)->m_pszId;
        EXPECT_FALSE(IsNotedAnywhere(oPair.m_aui8NearMiss, oPair.m_eRule)) << FindZorEdidRule(oPair.m_eRule)->m_pszId;
        oBroken.insert(oPair.m_eRule);
        oRighted.insert(oPair.m_eRule);
    }
    for (const EDistance eDistance : { eDistance_Bit, eDistance_Byte, eDistance_Anywhere })
    {
        for (const CBytes& aui8Image : aaui8Images)
        {
            CZorEdidMap oMap;
            oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
            for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
            {
                const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
                oBroken.insert(oNote.m_eRule);
                if (!oRighted.contains(oNote.m_eRule) &&
                    HasNearMiss(aui8Image, oMap.GetField(oNote.m_uiField), oNote.m_eRule, eDistance))
                {
                    oRighted.insert(oNote.m_eRule);
                }
            }
        }
    }
    constexpr int iFirstOfCheck = 500;
    for (unsigned int i = 0; i < GetZorEdidRuleCount() && GetZorEdidRule(i).m_eRule < iFirstOfCheck; ++i)
    {
        const SZorEdidRule& oRule = GetZorEdidRule(i);
        EXPECT_TRUE(oBroken.contains(oRule.m_eRule)) << oRule.m_pszId << " has no image that breaks it";
        EXPECT_TRUE(oRighted.contains(oRule.m_eRule)) << oRule.m_pszId << " has no near miss";
    }
}
} // namespace

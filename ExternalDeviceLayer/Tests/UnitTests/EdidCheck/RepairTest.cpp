// What is repaired, what is left, and that nothing else changes.

#include "ZorEdidRepair.h"

#include <gtest/gtest.h>

#include "DisplayIdImages.h"
#include "OsServices.h"
#include "RepairCheck.h"
#include "SharedFiles.h"

namespace
{
// A block with a text and with standard timings that are not used, and three CTA-861 blocks, which break no rule.
CBytes MakeGood()
{
    CBytes aui8Image = MakeEdid({ MakeCeaBlock(), MakeCeaBlock(), MakeCeaBlock() });
    const CBytes aui8Name = ParseBytes("00*3 FC 00 41 0A 20*11");
    std::copy(aui8Name.begin(), aui8Name.end(), aui8Image.begin() + 0x48);
    aui8Image[0x13] = 4; // before 1.4, several blocks need a map
    return FixChecksums(aui8Image);
}

TEST(Repair, OneRightAnswer)
{
    struct SCase
    {
        const char* m_pszName;
        size_t m_uiOffset;
        const char* m_pszDamage;
        bool m_bFixed; // the sums of the damaged image are right
        std::vector<EZorEdidRule> m_aeRules;
        bool m_bAsBefore; // the damage is undone
    };
    const SCase aoCases[] = {
        { "nothing to do", 0, "00", true, {}, true },
        { "checksum", 0xFF, "00", false, { eZorEdidRule_Checksum }, true },
        { "blocks that are copies", 126, "01", true, {}, false },
        { "header, with the checksum of the right one", 6, "FE 04", false, { eZorEdidRule_BaseHeader }, true },
        { "header, sealed as it is", 6, "FE", true, {}, false },
        { "header and another byte", 7, "01 00", false, {}, false },
        { "more of the header", 1, "FE FE FE", false, {}, false },
        { "fewer blocks than counted", 126, "09", true, {}, false },
        { "not counted, and not sound", 126, "01", false, {}, false },
        { "blanks of a text", 0x50, "00 00", true, { eZorEdidRule_Blanks }, true },
        { "unused standard timing", 0x28, "00 00", true, { eZorEdidRule_StandardTimingZero }, true },
        { "standard timing of no size", 0x28, "00 40", true, {}, false },
        { "padding of a CTA-861 block", 0xA0, "FF", true, { eZorEdidRule_CtaPadding }, true },
        { "what is announced", 0x15, "FF", true, {}, false },
    };
    const CBytes aui8Good = MakeGood();
    for (const SCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        CBytes aui8Bad = aui8Good;
        const CBytes aui8Damage = ParseBytes(oCase.m_pszDamage);
        std::copy(aui8Damage.begin(), aui8Damage.end(),
                  aui8Bad.begin() + static_cast<std::ptrdiff_t>(oCase.m_uiOffset));
        if (oCase.m_bFixed)
        {
            aui8Bad = FixChecksums(aui8Bad);
        }
        else if (oCase.m_uiOffset == 126)
        {
            aui8Bad[4 * gsc_uiBlockSize - 1] ^= 1;
            FixBlockSum(aui8Bad, 0);
        }
        CZorEdidRepair oRepair;
        ASSERT_EQ(1, oRepair.Read(static_cast<unsigned int>(aui8Bad.size()), aui8Bad.data()));
        std::vector<EZorEdidRule> aeRules;
        for (unsigned int i = 0; i < oRepair.GetCount(); ++i)
        {
            aeRules.push_back(oRepair.Get(i).m_eRule);
        }
        EXPECT_EQ(oCase.m_aeRules, aeRules);
        EXPECT_EQ(oCase.m_bAsBefore, CBytes(oRepair.GetData(), oRepair.GetData() + oRepair.GetSize()) == aui8Good);
        EXPECT_EQ("", CheckRepair(aui8Bad));
    }
}

// Counts go up where what they take in is sound, and bytes after the data blocks of a section become 0.
TEST(Repair, CountsAndFillers)
{
    constexpr size_t uiSection = gsc_uiBlockSize;
    const auto fnFix = [](CBytes aui8Image) {
        if (aui8Image[gsc_uiBlockSize] == 0x70)
        {
            FixSectionSum(aui8Image, uiSection);
        }
        return FixChecksums(aui8Image);
    };
    const CBytes aui8Section = MakeDisplayIdBlock(ParseBytes("23 00 01 10"), 121);
    const CBytes aui8Sections = fnFix(WithChange(MakeEdid({ aui8Section, aui8Section }), uiSection + 4, 1));
    const struct
    {
        EZorEdidRule m_eRule;
        CBytes m_aui8Good;
        size_t m_uiOffset;
        unsigned char m_ui8Damage;
    } aoCases[] = {
        { eZorEdidRule_BlockNotCounted, fnFix(WithChange(MakeEdid({ MakeCeaBlock() }), 0x23, 0x20)), 126, 0 },
        { eZorEdidRule_DisplayIdSections, aui8Sections, uiSection + 4, 0 },
        { eZorEdidRule_DisplayIdFiller, aui8Sections, uiSection + 100, 7 },
    };
    for (const auto& oCase : aoCases)
    {
        SCOPED_TRACE(FindZorEdidRule(oCase.m_eRule)->m_pszId);
        const CBytes aui8Bad = fnFix(WithChange(oCase.m_aui8Good, oCase.m_uiOffset, oCase.m_ui8Damage));
        CZorEdidRepair oRepair;
        ASSERT_EQ(1, oRepair.Read(static_cast<unsigned int>(aui8Bad.size()), aui8Bad.data()));
        EXPECT_EQ(oCase.m_aui8Good, CBytes(oRepair.GetData(), oRepair.GetData() + oRepair.GetSize()));
        ASSERT_NE(0U, oRepair.GetCount());
        EXPECT_EQ(oCase.m_eRule, oRepair.Get(0).m_eRule);
        EXPECT_EQ("", CheckRepair(aui8Bad));
    }
    // A sum that is right would hide that the block was never written.
    CBytes aui8Erased = aui8Sections;
    std::fill(aui8Erased.end() - gsc_uiBlockSize, aui8Erased.end(), static_cast<unsigned char>(0xFF));
    CZorEdidRepair oRepair;
    ASSERT_EQ(1, oRepair.Read(static_cast<unsigned int>(aui8Erased.size()), aui8Erased.data()));
    EXPECT_EQ(0xFF, oRepair.GetData()[oRepair.GetSize() - 1]);
}

std::vector<EZorEdidRule> ListWithheld(const CZorEdidRepair& oRepair)
{
    std::vector<EZorEdidRule> aeRules;
    for (unsigned int i = 0; i < oRepair.GetWithheldCount(); ++i)
    {
        aeRules.push_back(oRepair.GetWithheld(i).m_eRule);
    }
    return aeRules;
}

// Findings in a block do not keep it from being counted; a rule that is ignored keeps its fault,
// but gets right sums for what else is repaired.
TEST(Repair, WhatIsLeft)
{
    const auto fnRead = [](CZorEdidRepair& oRepair, const CBytes& aui8Image) {
        oRepair.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
        return CBytes(oRepair.GetData(), oRepair.GetData() + oRepair.GetSize());
    };
    CBytes aui8Cta = MakeCeaBlock();
    aui8Cta[1] = 4; // no such revision
    const CBytes aui8Good = FixChecksums(MakeEdid({ FixChecksums(aui8Cta) }));
    CBytes aui8Bad = FixChecksums(WithChange(aui8Good, 126, 0));
    CZorEdidRepair oRepair;
    EXPECT_EQ(aui8Good, fnRead(oRepair, aui8Bad));
    EXPECT_EQ("", CheckRepair(aui8Bad));
    EXPECT_EQ(std::vector<EZorEdidRule>(), ListWithheld(oRepair));
    aui8Bad.back() ^= 1;
    EXPECT_EQ(aui8Bad, fnRead(oRepair, aui8Bad));
    EXPECT_EQ(std::vector{ eZorEdidRule_BlockNotCounted }, ListWithheld(oRepair));
    EXPECT_EQ(aui8Good.size() - gsc_uiBlockSize, oRepair.GetWithheld(0).m_uiOffset);

    std::fill(aui8Bad.end() - gsc_uiBlockSize, aui8Bad.end(), static_cast<unsigned char>(0xFF));
    EXPECT_EQ(aui8Bad, fnRead(oRepair, aui8Bad));
    ASSERT_EQ(std::vector{ eZorEdidRule_BlockNotCounted }, ListWithheld(oRepair));
    EXPECT_STREQ("the block was never written", oRepair.GetWithheld(0).m_pszReason);

    CZorEdidRepair oLeaving;
    oLeaving.LeaveOut(eZorEdidRule_Checksum);
    oLeaving.LeaveOut(eZorEdidRule_BlockNotCounted);
    EXPECT_EQ(aui8Bad, fnRead(oLeaving, aui8Bad));
    EXPECT_EQ(0U, oLeaving.GetCount() + oLeaving.GetWithheldCount());
    const CBytes aui8Padding = FixChecksums(WithChange(MakeGood(), 0xA0, 0xFF));
    EXPECT_EQ(MakeGood(), fnRead(oLeaving, aui8Padding));

    // A checksum that shows what is left wrong goes on to show it, whatever else is made right in the block.
    const CBytes aui8Whole = MakeGood();
    for (const auto& [eRule, uiPlace] :
         { std::pair(eZorEdidRule_BlockNotCounted, 126U), std::pair(eZorEdidRule_BlocksMissing, 126U),
           std::pair(eZorEdidRule_BaseHeader, 6U) })
    {
        SCOPED_TRACE(FindZorEdidRule(eRule)->m_pszId);
        CZorEdidRepair oSparing;
        oSparing.LeaveOut(eRule);
        const CBytes aui8Wrong = WithChange(aui8Whole, uiPlace, eRule == eZorEdidRule_BlockNotCounted ? 0 : 9);
        EXPECT_EQ(aui8Wrong, fnRead(oSparing, aui8Wrong));
        EXPECT_EQ(std::vector{ eZorEdidRule_Checksum }, ListWithheld(oSparing));
        CBytes aui8Text = WithChange(aui8Wrong, 0x52, 0);
        aui8Text[127] = static_cast<unsigned char>(aui8Text[127] + ' ');
        EXPECT_EQ(aui8Wrong, fnRead(oSparing, aui8Text));
        EXPECT_EQ(std::vector{ eZorEdidRule_Checksum }, ListWithheld(oSparing));
    }
}

TEST(Repair, RefusesNothingAndNoBytes)
{
    CZorEdidRepair oRepair;
    EXPECT_EQ(0, oRepair.Read(0, nullptr));
    EXPECT_EQ(0, oRepair.Read(1, nullptr));
    EXPECT_EQ(0U, oRepair.GetSize());
    for (unsigned int i = 1; i < 300; ++i)
    {
        const CBytes aui8Zeros(i);
        EXPECT_EQ("", CheckRepair(aui8Zeros)) << i;
    }
}

// Whole and damaged at each third byte.
TEST(Repair, RealImagesKeepWhatTheyAnnounce)
{
    OsServices::SetMsgLevel(0, 0, 0);
    for (const auto& [sName, aui8Image] :
         ReadImages(std::string(ZOREDID_SHARED_DIR).empty() ? "" : ZOREDID_SHARED_DIR "/corpus"))
    {
        SCOPED_TRACE(sName);
        ASSERT_EQ("", CheckRepair(aui8Image));
        CBytes aui8Bad = aui8Image;
        for (size_t i = 0; i < aui8Bad.size(); i += 3 + i % 61)
        {
            aui8Bad[i] ^= static_cast<unsigned char>(1U << (i % 8));
            ASSERT_EQ("", CheckRepair(aui8Bad)) << i;
        }
    }
}
} // namespace

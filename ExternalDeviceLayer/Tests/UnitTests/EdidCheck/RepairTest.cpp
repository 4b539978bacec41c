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
        { "blocks that break rules once counted", 126, "01", true, {}, false },
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

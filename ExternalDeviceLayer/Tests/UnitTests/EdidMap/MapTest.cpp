// The map of an image: what each byte says, and the promise that every bit is said once.

#include <gtest/gtest.h>
#include <string.h>

#include "CaseFile.h"
#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "MapCheck.h"
#include "OsServices.h"
#include "SharedFiles.h"
#include "VidParamTimingGeneric.h"

namespace
{
// Without the lines of the classes about bad blocks.
class Map : public testing::Test
{
protected:
    Map() { OsServices::SetMsgLevel(0, 0, 0); }
};

using CImages = std::map<std::string, CBytes>;

CImages GetOwnImages()
{
    CImages oImages = { { "both blocks", MakeEdid({ MakeCeaBlock(), MakeFullDisplayIdBlock() }) } };
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        oImages[oImage.m_pszName] = ToBytes(*oImage.m_paui8Image);
    }
    return oImages;
}

CImages GetAllImages()
{
    CImages oImages = GetOwnImages();
    oImages.merge(ReadImages(ZOREDID_SHARED_DIR "/corpus"));
    return oImages;
}

// From a buffer of exactly that size, which is gone when the map is asked.
void ReadExact(CZorEdidMap& oMap, const CBytes& aui8Image)
{
    EXPECT_EQ(aui8Image.empty() ? 0 : 1,
              oMap.Read(static_cast<unsigned int>(aui8Image.size()), CopyToHeap(aui8Image).get()));
}

std::string CheckImage(const CBytes& aui8Image)
{
    CZorEdidMap oMap;
    ReadExact(oMap, aui8Image);
    return CheckMap(oMap);
}

// ---- The promise ----

TEST_F(Map, EveryBitIsInOneLeaf)
{
    for (const auto& [sName, aui8Image] : GetAllImages())
    {
        EXPECT_EQ("", CheckImage(aui8Image)) << sName;
        CBytes aui8Late = aui8Image; // as 1.3, and as the revision to come
        aui8Late[0x13] = aui8Image[0x13] == 3 ? 5 : 3;
        EXPECT_EQ("", CheckImage(aui8Late)) << sName << ", another revision";
    }
}

TEST_F(Map, EveryBitOfDamagedAndCutImagesIsInOneLeaf)
{
    unsigned int uiRandom = 1;
    for (const auto& [sName, aui8Image] : GetOwnImages())
    {
        for (size_t i = 0; i < aui8Image.size(); i += 1 + uiRandom % 3)
        {
            uiRandom = uiRandom * 1664525 + 1013904223;
            CBytes aui8Damaged = aui8Image;
            aui8Damaged[i] = static_cast<unsigned char>(uiRandom >> 24);
            aui8Damaged[(uiRandom >> 8) % aui8Image.size()] ^= 0x55;
            aui8Damaged.resize(uiRandom % 4 == 0 ? i + 1 : aui8Image.size());
            EXPECT_EQ("", CheckImage(aui8Damaged)) << sName << ", byte " << i;
        }
    }
}

TEST_F(Map, TakesAnySize)
{
    CZorEdidMap oMap;
    EXPECT_EQ(1, oMap.Read(3, CopyToHeap({ 1, 2, 3 }).get()));
    EXPECT_NE(0U, oMap.GetFieldCount());
    EXPECT_EQ(0, oMap.Read(3, nullptr));
    EXPECT_EQ(0U, oMap.GetFieldCount() + oMap.GetSize() + oMap.GetNoteCount());
    EXPECT_EQ(CZorEdidMap::msc_uiNone, oMap.FindLeaf(0, 0));

    // Its own bytes, and a part of them.
    const CBytes aui8Monitor = MakeEdid({ MakeCeaBlock() });
    ReadExact(oMap, aui8Monitor);
    const unsigned int uiFields = oMap.GetFieldCount();
    EXPECT_EQ(1, oMap.Read(oMap.GetSize(), oMap.GetData()));
    EXPECT_EQ(uiFields, oMap.GetFieldCount());
    EXPECT_EQ(1, oMap.Read(gsc_uiBlockSize, oMap.GetData() + gsc_uiBlockSize));
    EXPECT_EQ(0, memcmp(oMap.GetData(), aui8Monitor.data() + gsc_uiBlockSize, gsc_uiBlockSize));

    // 256 blocks and three bytes more.
    CBytes aui8Image = MakeEdid({});
    aui8Image[0x7E] = 255;
    aui8Image.resize(256 * gsc_uiBlockSize + 3, 0xF0);
    EXPECT_EQ("", CheckImage(aui8Image));
    ReadExact(oMap, aui8Image);
    const CZorEdidMap::SField& oTail = oMap.GetField(oMap.FindLeaf(256 * gsc_uiBlockSize + 1, 0));
    EXPECT_EQ(std::make_pair(256U * 128U, 3U), std::make_pair(oTail.m_uiOffset, oTail.m_uiLength));

    // A tail as long, whose value has all of its bytes, and a longer one.
    constexpr size_t uiMost = 32768;
    for (const size_t uiMore : { size_t{ 0 }, size_t{ 1 } })
    {
        aui8Image.resize(256 * gsc_uiBlockSize + uiMost + uiMore);
        ReadExact(oMap, aui8Image);
        const std::string sValue = static_cast<const char*>(oMap.GetValue(oMap.FindLeaf(256 * gsc_uiBlockSize, 0)));
        EXPECT_EQ(uiMost * 3 - 1 + uiMore * 4, sValue.size());
        EXPECT_EQ(uiMore != 0, sValue.ends_with(" ..."));
    }
}

// ---- What bytes say: an image with bytes changed, a place, and the field there ----

// "14.7" is the leaf of bit 7 of byte 14h; each '^' in front goes out by one group.
unsigned int FindPlace(const CZorEdidMap& oMap, const std::string& sPlace)
{
    const size_t uiLevels = sPlace.find_first_not_of('^');
    const size_t uiPoint = sPlace.find('.');
    unsigned int uiField =
        oMap.FindLeaf(static_cast<unsigned int>(std::stoul(sPlace.substr(uiLevels, uiPoint - uiLevels), nullptr, 16)),
                      static_cast<unsigned int>(std::stoul(sPlace.substr(uiPoint + 1))));
    for (size_t i = 0; i < uiLevels; ++i)
    {
        const unsigned int uiDepth = oMap.GetField(uiField).m_uiDepth;
        while (uiField > 0 && oMap.GetField(uiField).m_uiDepth >= uiDepth)
        {
            --uiField;
        }
    }
    return uiField;
}

std::string GetNotes(const CZorEdidMap& oMap, unsigned int uiField)
{
    std::string sNotes;
    for (unsigned int i = 0; i < oMap.GetNoteCount(); ++i)
    {
        const CZorEdidMap::SNote& oNote = oMap.GetNote(i);
        sNotes += oNote.m_uiField != uiField ? "" : (sNotes.empty() ? "" : "; ") + std::string(oNote.m_pszText);
    }
    return sNotes;
}

std::string TrimEnd(const std::string& sText) { return sText.substr(0, sText.find_last_not_of(' ') + 1); }

// Columns: reason, changes, place, name, value, notes or "-".
void RunCases(const char* pszFile, const CBytes& aui8Image)
{
    for (const SCaseRow& oRow : ReadCases(pszFile, 6))
    {
        CZorEdidMap oMap;
        ReadExact(oMap, FixChecksums(ChangeBytes(aui8Image, oRow.GetText(1))));
        const unsigned int uiField = FindPlace(oMap, oRow.GetText(2));
        EXPECT_EQ(oRow.GetText(3), oMap.GetField(uiField).m_pszName) << oRow.GetName();
        EXPECT_EQ(oRow.GetText(4), TrimEnd(static_cast<const char*>(oMap.GetValue(uiField)))) << oRow.GetName();
        EXPECT_EQ(oRow.GetText(5) == "-" ? "" : oRow.GetText(5), GetNotes(oMap, uiField)) << oRow.GetName();
        EXPECT_EQ("", CheckMap(oMap)) << oRow.GetName();
    }
}

// Each row and group has an id of the list, each id of the list is that of a row or a group, and no two are spelled
// alike.
TEST_F(Map, Ids)
{
    class CCollector final : public ZorMap::CIdVisitor
    {
    public:
        std::set<EZorEdidField> m_aeFound;

    private:
        void OnPart(EZorEdidField eId, const char* pszName, CZorEdidMap::EKind, const char*) override
        {
            EXPECT_NE(nullptr, CZorEdidMap::GetId(eId)) << pszName;
            m_aeFound.insert(eId);
        }
    };
    CCollector oCollector;
    ZorMap::VisitIds(oCollector);
#define ZOR_EDID_FIELD(NUMBER, NAME, ...) eZorEdidField_##NAME,
    for (const EZorEdidField eId : { ZOR_EDID_FIELDS(ZOR_EDID_FIELD, ZOR_EDID_NO_FIELD, ZOR_EDID_FIELD) })
    {
        EXPECT_EQ(eId, CZorEdidMap::FindId(CZorEdidMap::GetId(eId))) << CZorEdidMap::GetId(eId);
        EXPECT_EQ(1U, oCollector.m_aeFound.count(eId)) << CZorEdidMap::GetId(eId);
    }
#undef ZOR_EDID_FIELD
    CZorEdidMap::SIdDescription oField;
    EXPECT_EQ(1, CZorEdidMap::DescribeId(eZorEdidField_CtaHdmiForumVrrMax, oField));
    EXPECT_STREQ("Hz", oField.m_pszUnit);
    EXPECT_EQ(0, CZorEdidMap::DescribeId(eZorEdidField_None, oField));
    EXPECT_EQ(nullptr, oField.m_pszName);
    EXPECT_EQ(eZorEdidField_None, CZorEdidMap::FindId("cta.no-such-field"));
}

TEST_F(Map, BaseBlock) { RunCases("EdidMap/golden/base.txt", MakeEdid({})); }

// How bad what a note says is.
TEST_F(Map, SeveritiesOfNotes)
{
    struct SCase
    {
        CZorEdidMap::ESeverity m_eSeverity;
        const char* m_pszChanges; // of the base block
        const char* m_pszBlocks;
        const char* m_pszNote;
    };
    constexpr SCase aoCases[] = {
        { CZorEdidMap::eSeverity_Note, "@48 00*3 FD 00 32 55 18 42 0F", "",
          "the line rate is outside of the display range limits" },
        { CZorEdidMap::eSeverity_Warning, "@13 03 @48 00*3 FD 00 32 55 18 42 0F", "",
          "the line rate is outside of the display range limits" },
        { CZorEdidMap::eSeverity_Warning, "", "70 12 79 03 01 ..128 70 12 79 03 00 ..256",
          "a section after the first one names a product type or use case" },
        { CZorEdidMap::eSeverity_Error, "", "70 12 79 03 00 10 40 03 09 00 01 ..128",
          "runs past the end of its data block" },
        { CZorEdidMap::eSeverity_Error, "", "02 03 09 40 E4 07 05 01 00 ..128", "runs past the end of its data block" },
        { CZorEdidMap::eSeverity_Error, "", "02 03 06 40 45 10 ..128",
          "runs past the end of its data block collection" },
        { CZorEdidMap::eSeverity_Error, "", "02 03 0E 40 69 D8 5D C4 01 78 80 60 00 C0 ..128",
          "runs past the end of its structure" },
        { CZorEdidMap::eSeverity_Error, "", "02 03 0D 40 E8 2A 20 03 7F 07 37 04 3B ..128",
          "its last descriptor runs past its end" },
        { CZorEdidMap::eSeverity_Error, "", "02 03 10 40 6B 03 0C 00 10 00 00 44 20 A0 01 FF ..128",
          "is too short for what 3D_Multi_present announces" },
        { CZorEdidMap::eSeverity_Warning, "", "02 03 0A 40 A5 3F 00*4 ..128", "is shorter than the standard has it" },
        { CZorEdidMap::eSeverity_Warning, "", "02 03 07 40 E2 79 00 ..128",
          "no HDMI vendor-specific data block precedes it" },
        { CZorEdidMap::eSeverity_Warning, "", "02 03 09 40 41 10 E2 0F 02 ..128", "no video code has this place" },
        { CZorEdidMap::eSeverity_Note, "", "02 03 09 40 41 10 E2 0F 00 ..128", "marks no video code" },
        { CZorEdidMap::eSeverity_Warning, "", "02 03 07 40 E2 78 02 ..128 02 03 04 40 ..256",
          "needs an extension count of 1 in the base block" },
        { CZorEdidMap::eSeverity_Warning, "", "02 03 04 40 ..128 02 03 07 40 E2 78 02 ..256",
          "is not the first data block of block 1" },
        { CZorEdidMap::eSeverity_Note, "", "02 03 08 40 83 00 00 08 ..128", "is deprecated" },
        { CZorEdidMap::eSeverity_Warning, "", "70 14 79 03 00 ..128", "revision is not published" },
        { CZorEdidMap::eSeverity_Warning, "", "70 12 79 03 00 00 00 0C 41 42 43 00*6 36 10 00 ..128",
          "no week of a year" },
        { CZorEdidMap::eSeverity_Warning, "", "10 01 01 00 00 ..128", "0 is not a clock" },
    };
    for (const SCase& oCase : aoCases)
    {
        CBytes aui8Image = Join({ ChangeBytes(MakeEdid({}), oCase.m_pszChanges), ParseBytes(oCase.m_pszBlocks) });
        aui8Image[126] = static_cast<unsigned char>(aui8Image.size() / gsc_uiBlockSize - 1);
        CZorEdidMap oMap;
        ReadExact(oMap, FixChecksums(aui8Image));
        unsigned int i = 0;
        while (i < oMap.GetNoteCount() && std::string(oMap.GetNote(i).m_pszText) != oCase.m_pszNote)
        {
            ++i;
        }
        ASSERT_LT(i, oMap.GetNoteCount()) << oCase.m_pszNote;
        EXPECT_EQ(oCase.m_eSeverity, oMap.GetNote(i).m_eSeverity) << oCase.m_pszNote;
    }
}

TEST_F(Map, BlocksAsCounted)
{
    CBytes aui8Image = MakeEdid({ MakeCeaBlock() });
    ++aui8Image[0x7F];
    aui8Image[0x80 + 0x7F] = 0;
    CZorEdidMap oMap;
    ReadExact(oMap, aui8Image);
    const unsigned int uiChecksum = oMap.FindLeaf(0x7F, 0);
    CMString sExpected;
    sExpected.Format("0x%02x, should be 0x%02x", aui8Image[0x7F], aui8Image[0x7F] - 1);
    EXPECT_STREQ(sExpected, oMap.GetValue(uiChecksum));
    EXPECT_EQ("the checksum is wrong", GetNotes(oMap, uiChecksum));

    const CBytes aui8Block = MakeCeaBlock();
    const CBytes aui8More = Join({ MakeEdid({ aui8Block }), aui8Block, CBytes(gsc_uiBlockSize / 2) });
    ReadExact(oMap, aui8More);
    EXPECT_EQ("", GetNotes(oMap, FindPlace(oMap, "^80.0")));
    EXPECT_EQ("not counted by the number of extension blocks", GetNotes(oMap, FindPlace(oMap, "^100.0")));
    EXPECT_EQ("cut short: a block has 128 bytes; not counted by the number of extension blocks",
              GetNotes(oMap, FindPlace(oMap, "^180.0")));
}

// A map elsewhere says so once; those of block 1 are compared tag by tag.
TEST_F(Map, BlockMapIsBlock1)
{
    const CBytes aui8Map = ParseBytes("F0 70 70 ..128");
    CZorEdidMap oMap;
    ReadExact(oMap, FixChecksums(MakeEdid({ MakeCeaBlock(), aui8Map, aui8Map })));
    EXPECT_EQ("a block map is block 1 or block 128", GetNotes(oMap, FindPlace(oMap, "^100.0")));
    EXPECT_EQ("", GetNotes(oMap, FindPlace(oMap, "101.0")));
    ReadExact(oMap, Join({ MakeEdid({}), MakeEdid({ aui8Map, aui8Map }) }));
    EXPECT_EQ("not counted by the number of extension blocks", GetNotes(oMap, FindPlace(oMap, "^100.0")));
    ReadExact(oMap, FixChecksums(MakeEdid({ aui8Map, aui8Map })));
    EXPECT_EQ("", GetNotes(oMap, FindPlace(oMap, "^80.0")));
    EXPECT_EQ("the block has another tag", GetNotes(oMap, FindPlace(oMap, "81.0")));
}

// HDMI's own count, of 2 blocks where byte 126 says 1.
TEST_F(Map, BlocksAsCountedByAnOverride)
{
    struct SCase
    {
        const char* m_pszName;
        const char* m_pszBlock;
        bool m_bCounts;
    };
    constexpr SCase aoCases[] = {
        { "the first data block", "02 03 07 00 E2 78 02", true },
        { "a longer one", "02 03 08 00 E3 78 02 00", true },
        { "revision 2 has no data blocks", "02 02 07 00 E2 78 02", false },
        { "after another data block", "02 03 09 00 41 10 E2 78 02", false },
        { "after a zero", "02 03 08 00 00 E2 78 02", false },
        { "no byte after the extended tag", "02 03 06 00 E1 78 02", false },
        { "after the data blocks", "02 03 04 00 E2 78 02", false },
        { "another kind of block", "70 03 07 00 E2 78 02", false },
    };
    const CBytes aui8Block = MakeCeaBlock();
    for (const SCase& oCase : aoCases)
    {
        CBytes aui8Image = Join({ MakeEdid({ aui8Block }), aui8Block });
        const CBytes aui8Count = ParseBytes(oCase.m_pszBlock);
        std::copy(aui8Count.begin(), aui8Count.end(), aui8Image.begin() + gsc_uiBlockSize);
        CZorEdidMap oMap;
        ReadExact(oMap, aui8Image);
        EXPECT_EQ(oCase.m_bCounts ? "" : "not counted by the number of extension blocks",
                  GetNotes(oMap, FindPlace(oMap, "^100.0")))
            << oCase.m_pszName;
    }
}

// ---- Numbers ----

// Width to height: 100 / 178.
TEST_F(Map, PortraitRatio)
{
    CZorEdidMap oMap;
    ReadExact(oMap, ChangeBytes(MakeEdid({}), "@15 00 4F"));
    const CZorEdidMap::SField& oField = oMap.GetField(FindPlace(oMap, "16.0"));
    EXPECT_EQ(std::make_pair(5618LL, 4U), std::make_pair(oField.m_llNumber, oField.m_uiDecimals));
}

// "1920 x 1080i @ 60 Hz" and "1920x1080i 59.94/60 Hz 16:9" begin with the size of the timing.
bool HasSize(std::string sText, const CVidParamTimingGeneric& oTiming)
{
    std::erase(sText, ' ');
    const std::string sSize =
        std::to_string(oTiming.GetHorizontalActive()) + "x" + std::to_string(oTiming.GetVerticalActive());
    return sText.starts_with(sSize) && (sText.size() == sSize.size() || !isdigit(sText[sSize.size()]));
}

TEST_F(Map, NumbersAreThoseOfTheLibrary)
{
    for (const auto& [sName, aui8Image] : GetAllImages())
    {
        CEdid oEdid;
        CZorEdidMap oMap;
        if (LoadExact(oEdid, aui8Image) == 0)
        {
            continue;
        }
        ReadExact(oMap, aui8Image);
        unsigned int auiFound[CZorEdidMap::eList_Detailed + 1] = {};
        for (unsigned int i = 0; i < oMap.GetFieldCount(); ++i)
        {
            const CZorEdidMap::SField& oField = oMap.GetField(i);
            const unsigned int uiNumber = oField.m_uiTiming;
            // A mode's name follows its code.
            const bool bCode = oField.m_eKind == CZorEdidMap::eKind_Name && oField.m_pszMeaning != nullptr;
            const std::string sValue = bCode ? oField.m_pszMeaning : static_cast<const char*>(oMap.GetValue(i));
            CVidParamTimingGeneric oTiming;
            switch (oField.m_eList)
            {
            case CZorEdidMap::eList_Established:
                EXPECT_NE(0, oEdid.GetEstablished(uiNumber, &oTiming, 0)) << sName;
                EXPECT_TRUE(HasSize(oField.m_pszName, oTiming)) << sName << ": " << oField.m_pszName;
                break;
            case CZorEdidMap::eList_Standard:
                EXPECT_NE(0, oEdid.GetStandard(uiNumber, &oTiming, nullptr)) << sName;
                // The library takes these pairs as the modes of 768 and 480 lines.
                EXPECT_TRUE(HasSize(sValue, oTiming) || sValue.starts_with("1360 x 765") ||
                            sValue.starts_with("848 x 477"))
                    << sName << ": " << sValue;
                if (oField.m_uiTimings == 2) // at 1000/1001
                {
                    EXPECT_NE(0, oEdid.GetStandard(uiNumber + 1, &oTiming, nullptr)) << sName;
                    EXPECT_TRUE(HasSize(sValue, oTiming)) << sName << ": " << sValue;
                    ++auiFound[oField.m_eList];
                }
                break;
            case CZorEdidMap::eList_Detailed:
                EXPECT_NE(0, oEdid.GetDetailed(uiNumber, &oTiming)) << sName;
                EXPECT_TRUE(HasSize(sValue, oTiming)) << sName << ": " << sValue;
                break;
            case CZorEdidMap::eList_None:
                EXPECT_EQ(CZorEdidMap::msc_uiNone, uiNumber) << sName;
                continue;
            }
            ++auiFound[oField.m_eList];
        }
        EXPECT_EQ(oEdid.GetEstablishedCount(0), auiFound[CZorEdidMap::eList_Established]) << sName;
        EXPECT_LE(oEdid.GetBaseStandardCount(), auiFound[CZorEdidMap::eList_Standard]) << sName;
        unsigned int uiDetailed = 0; // a descriptor of 0 pixels counts, but is not a timing
        for (unsigned int i = 0; i < oEdid.GetDetailedCount(); ++i)
        {
            CVidParamTimingGeneric oTiming;
            uiDetailed += oEdid.GetDetailed(i, &oTiming) != 0 ? 1U : 0U;
        }
        EXPECT_EQ(uiDetailed, auiFound[CZorEdidMap::eList_Detailed]) << sName;
    }
}
} // namespace

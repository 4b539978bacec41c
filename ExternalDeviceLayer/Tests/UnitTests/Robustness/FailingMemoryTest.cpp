// Every operation that takes memory, with each of its allocations failing in turn: nothing leaks, the object is as its
// header says, and what it promises of its bytes holds. Once through operator new, once through a replaced allocator.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <new>

#include "CapturedOutput.h"
#include "EdidExtBlockCEA861.h"
#include "EditRunner.h"
#include "FailingHeap.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "TemporaryFile.h"
#include "ZorEdidUtils.h"

namespace
{
using CBlock = CEdidExtBlockCEA861;
using CByteArray = CZorEdidUtils::CByteArray;

constexpr const char* gsc_pszText = "One, two; three";

// Everything that the scenarios work on.
struct SObjects
{
    explicit SObjects(const CBytes& aui8Image)
    {
        m_oRunner.Load(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()));
        m_oAlone.Delete(0, 8);
        m_oLocked.LockBuffer();
        m_aui8Bytes.SetSize(10, -1);
        m_asTexts.SetSize(11, -1);
        for (unsigned int i = 0; i < 10; ++i)
        {
            m_aui8Bytes[i] = static_cast<unsigned char>('0' + i);
            m_asTexts[i].Format("text %u", i);
        }
        Reset();
    }

    // Takes back what a scenario may leave half done. A copy of a locked text takes memory.
    void Reset()
    {
        m_asTexts.SetSize(10, -1);
        m_asLockedTexts = m_asTexts;
        for (unsigned int i = 0; i < m_asLockedTexts.GetCount(); ++i)
        {
            m_asLockedTexts[i].LockBuffer();
        }
        m_asLines.RemoveAll();
        m_aoModes[5].RemoveAll(); // the one that is appended to
    }

    const CEdid& GetEdid() const { return m_oRunner.GetEdid(); }
    const CBlock& GetBlock() const { return static_cast<const CBlock&>(*GetEdid().GetExtension(0)); }

    CEditRunner m_oRunner;
    CMString m_oText{ gsc_pszText };
    CMString m_oSharer{ m_oText };
    CMString m_oAlone{ "another text, longer than the first one" }; // its buffer is longer than it
    CMString m_oLocked{ "a locked text" };
    CByteArray m_aui8Bytes;  // full
    CMArrayString m_asTexts; // there is room for one more
    CMArrayString m_asLockedTexts;
    CMMap<unsigned int, CMString, const unsigned int&, const CMString&> m_oMap;
    unsigned int m_uiKeys = 0;   // in the map
    unsigned int m_uiValues = 0; // assigned in it

    CVidParamTimingGeneric m_oPreferred;
    CZorEdidUtils::CModeList m_aoModes[7];
    CMArrayString m_asLines;
    CByteArray m_aui8Output;
};

enum EPart
{
    eEdid,
    eStrings,
    eArrays,
    eOutputs,
    eNone
};
using CState = std::array<std::string, eNone>;

struct SScenario
{
    const char* m_pszName;
    std::function<void(SObjects&)> m_fnAct;
    EPart m_eOpen = eNone; // may be anything valid when memory runs out; all else is as before
};

std::string GetText(const CMString& oText)
{
    const std::string sText = static_cast<const char*>(oText);
    EXPECT_EQ(sText.size(), static_cast<size_t>(oText.GetLength()));
    return sText + '\n';
}

std::string GetTexts(const CMArrayString& asTexts)
{
    std::string sTexts;
    for (unsigned int i = 0; i < asTexts.GetCount(); ++i)
    {
        sTexts += GetText(asTexts[i]);
    }
    return sTexts;
}

std::string GetBytes(const CByteArray& aui8Bytes)
{
    return std::string(aui8Bytes.GetData(), aui8Bytes.GetData() + aui8Bytes.GetCount());
}

// The contents of all objects, which are valid whatever has failed.
CState GetState(SObjects& o)
{
    EXPECT_EQ(gsc_pszText + std::string("\n"), GetText(o.m_oSharer)) << "a string that shared the buffer";
    const CBytes aui8Edid = Serialise(o.GetEdid());
    CState asState = { std::string(aui8Edid.begin(), aui8Edid.end()),
                       GetText(o.m_oText) + GetText(o.m_oAlone) + GetText(o.m_oLocked),
                       GetBytes(o.m_aui8Bytes) + GetTexts(o.m_asTexts) + GetTexts(o.m_asLockedTexts),
                       GetBytes(o.m_aui8Output) + GetTexts(o.m_asLines) };
    for (const CZorEdidUtils::CModeList& aoModes : o.m_aoModes)
    {
        for (unsigned int i = 0; i < aoModes.GetCount(); ++i)
        {
            EXPECT_LT(aoModes[i].GetHorizontalActive(), 10000U);
            asState[eOutputs] += std::to_string(aoModes[i].GetHorizontalActive()) + ' ';
        }
        asState[eOutputs] += '\n';
    }
    // What was inserted before is all there, and so is a key whose value got no memory, with an empty one.
    for (unsigned int i = 0; i < o.m_uiKeys; ++i)
    {
        EXPECT_EQ(o.m_uiKeys, static_cast<unsigned int>(o.m_oMap.GetCount()));
        EXPECT_EQ(i < o.m_uiValues ? gsc_pszText : std::string(), static_cast<const char*>(o.m_oMap[i]));
    }
    return asState;
}

// ---- Strings, arrays, the map ----

void WalkTokens(SObjects& o)
{
    for (CMString::CIterator oToken = o.m_oText.Begin(",; "); oToken != o.m_oText.End(); oToken++)
    {
        CMString::CIterator oCopy;
        oCopy = oToken;
        const CMString oText = *oCopy;
    }
}

void JoinTokens(SObjects& o)
{
    o.m_asLines.InitFromString(o.m_oText, ",; ");
    o.m_oText = o.m_asLines.Join(" and ");
}

void FillMap(SObjects& o)
{
    for (; o.m_uiValues < 25; ++o.m_uiValues)
    {
        CMString& oValue = o.m_oMap[o.m_uiValues];
        o.m_uiKeys = o.m_uiValues + 1;
        oValue = gsc_pszText;
    }
}

int CompareDown(const CMString& oFirst, const CMString& oSecond, unsigned long /*ulContext*/)
{
    return ZorTools_strcmp(oSecond, oFirst);
}

// ---- Tools: the EDID is only read ----

template <CZorEdidUtils::EEdidFormatType TYPE>
void Report(SObjects& o)
{
    CZorEdidUtils::GetFormatedEdid(TYPE, o.GetEdid(), o.m_asLines, "# ");
}

void ExtractModes(SObjects& o)
{
    CZorEdidUtils::ExtractModeList(o.GetEdid(), o.m_oPreferred, o.m_aoModes[0], o.m_aoModes[1], o.m_aoModes[2],
                                   o.m_aoModes[3], o.m_aoModes[4], o.m_aoModes[5], o.m_aoModes[6]);
}

void CompareBytes(SObjects& o)
{
    const CByteArray aui8Bytes = o.GetEdid().GetEdidBuffer();
    CZorEdidUtils::CompareTimings(aui8Bytes, aui8Bytes, 1, 1);
}

void AskColorBitDepth(SObjects& o)
{
    unsigned int uiBits = 0;
    auto& oBlock = const_cast<CBlock&>(o.GetBlock());     // the question is one, but not const
    EXPECT_EQ(1, oBlock.GetColorBitDepthSupport(uiBits)); // looks at an HDMI block with codes
}

const SScenario gsc_aoScenarios[] = {
    { "construct", [](SObjects&) { const CMString oText("text"); } },
    { "repeat", [](SObjects&) { const CMString oText('x', 40); } },
    { "assign a text", [](SObjects& o) { o.m_oText = "a text that is longer than what stood there before"; } },
    { "assign a character", [](SObjects& o) { o.m_oText = 'x'; } },
    { "assign a locked string", [](SObjects& o) { o.m_oText = o.m_oLocked; } },
    { "append a character", [](SObjects& o) { o.m_oText += 'x'; } },
    { "append a text", [](SObjects& o) { o.m_oText += "more"; } },
    { "append itself", [](SObjects& o) { o.m_oText += o.m_oText; } },
    { "sum", [](SObjects& o) { const CMString oSum = 'a' + o.m_oText + "b" + o.m_oAlone + 'c'; } },
    { "insert a character", [](SObjects& o) { o.m_oText.Insert(3, 'x'); } },
    { "insert a text", [](SObjects& o) { o.m_oText.Insert(3, "more"); } },
    { "delete", [](SObjects& o) { o.m_oText.Delete(1, 2); } },
    { "set a character", [](SObjects& o) { o.m_oText.SetAt(1, 'x'); } },
    { "upper case", [](SObjects& o) { o.m_oText.MakeUpper(); } },
    { "reverse", [](SObjects& o) { o.m_oText.MakeReverse(); } },
    { "trim", [](SObjects& o) { o.m_oText.Trim("Oe"); } },
    { "middle", [](SObjects& o) { const CMString oPart = o.m_oText.Mid(2, 3); } },
    { "find in any case", [](SObjects& o) { o.m_oText.FindNoCase("TWO", 0); } },
    { "buffer", [](SObjects& o) { o.m_oText.ReleaseBuffer(o.m_oText.GetBuffer(100) != nullptr ? -1 : 0); } },
    { "lock", [](SObjects& o) { o.m_oText.LockBuffer(); } },
    { "format", [](SObjects& o) { o.m_oText.Format("%d %s", 5, static_cast<const char*>(o.m_oAlone)); } },
    { "append a format", [](SObjects& o) { o.m_oText.AppendFormat("%d", 5); } },
    { "free extra", [](SObjects& o) { o.m_oAlone.FreeExtra(); } },
    { "walk tokens", WalkTokens },
    { "join tokens", JoinTokens, eOutputs },
    { "array: set size", [](SObjects& o) { o.m_aui8Bytes.SetSize(500, -1); } },
    { "array: add", [](SObjects& o) { o.m_aui8Bytes.Add(0x55); } },
    { "array: append", [](SObjects& o) { o.m_aui8Bytes.Append(CByteArray(o.m_aui8Bytes)); } },
    { "array: free extra", [](SObjects& o) { o.m_asTexts.FreeExtra(); } },
    { "array: copy locked texts", [](SObjects& o) { const CMArrayString asCopy(o.m_asLockedTexts); } },
    { "array: append locked texts", [](SObjects& o) { o.m_asTexts.Append(o.m_asLockedTexts); }, eArrays },
    { "array: assign locked texts", [](SObjects& o) { o.m_asLines = o.m_asLockedTexts; }, eOutputs },
    { "array: add a locked text", [](SObjects& o) { o.m_asTexts.Add(o.m_asLockedTexts[1]); }, eArrays },
    { "array: sort locked texts", [](SObjects& o) { o.m_asLockedTexts.SortElements(CompareDown, 0); }, eArrays },
    { "map", FillMap },

    { "mode lists", ExtractModes, eOutputs },
    { "report", Report<CZorEdidUtils::eEdidFormatZorEdidExtractor>, eOutputs },
    { "mode report", Report<CZorEdidUtils::eEdidFormatRVideoOutRes>, eOutputs },
    { "extended report", Report<CZorEdidUtils::eEdidFormatZorEdidExtractorExt>, eOutputs },
    { "compare", [](SObjects& o) { CZorEdidUtils::CompareTimings(o.GetEdid(), o.GetEdid(), 1, 1); } },
    { "compare bytes", CompareBytes },
    { "serialise", [](SObjects& o) { o.m_aui8Output = o.GetEdid().GetEdidBuffer(); } },
    { "equality", [](SObjects& o) { EXPECT_NE(0, o.GetEdid() == o.GetEdid()); } },
    { "type of a block", [](SObjects& o) { CZorEdidUtils::GetExtensionType(o.GetBlock()); } },
    { "audio format", [](SObjects&) { CBlock::GetAudioFormatStr(CBlock::eAudioFormat_Ac3); } },
    { "audio frequency", [](SObjects&) { CBlock::GetAudioSamplingFreqStr(CBlock::eAudioSamplingFreq_48KHz); } },
    { "colour depth", AskColorBitDepth },
};

// ---- The driver ----

// What the containers take goes through here to the failing heap.
class CForwardingAllocator final : public CMAllocator
{
public:
    void* Alloc(unsigned long ulSize) override
    {
        void* p = ::operator new(ulSize);
        ++m_lHeld;
        return p;
    }
    void Free(const void* p) override
    {
        m_lHeld -= p != nullptr ? 1 : 0;
        ::operator delete(const_cast<void*>(p));
    }

    long m_lHeld = 0;
};

class FailingMemory : public testing::Test
{
protected:
    // Acts on fresh objects with allocation 1, 2, 3... failing, until it succeeds. CHECK looks at the objects each time
    // and is told whether the action failed. Gives the number of allocations.
    template <class ACT, class CHECK>
    unsigned int Run(const ACT& fnAct, const CHECK& fnCheck)
    {
        unsigned int uiNumber = 0;
        for (const bool bReplaced : { false, true })
        {
            uiNumber = 0;
            for (bool bThrown = true; bThrown && !HasFailure();)
            {
                SCOPED_TRACE(testing::Message()
                             << "allocation " << ++uiNumber << ", allocator replaced: " << bReplaced);
                CMAllocator::m_poGlobalAllocator = bReplaced ? &m_oAllocator : nullptr;
                const unsigned long ulHeld = FailingHeap::GetHeldCount();
                const int iDescriptor = GetNextDescriptor();
                {
                    SObjects oObjects(m_aui8Image);
                    bThrown = false;
                    FailingHeap::FailAt(uiNumber);
                    try
                    {
                        fnAct(oObjects);
                    }
                    catch (const std::bad_alloc&)
                    {
                        bThrown = true;
                    }
                    EXPECT_EQ(FailingHeap::HasFailed(), bThrown) << "somebody has swallowed the exception";
                    FailingHeap::FailAt(0);
                    fnCheck(oObjects, bThrown);
                }
                EXPECT_EQ(ulHeld, FailingHeap::GetHeldCount()) << "a leak";
                EXPECT_EQ(0, m_oAllocator.m_lHeld) << "a leak in a container";
                EXPECT_EQ(iDescriptor, GetNextDescriptor()) << "a file is open";
                CMAllocator::m_poGlobalAllocator = nullptr;
            }
        }
        return uiNumber - 1;
    }

    // What failed leaves all but its open part as it was, and done again it gives what it gives otherwise.
    void RunScenario(const SScenario& oScenario)
    {
        SCOPED_TRACE(oScenario.m_pszName);
        SObjects oObjects(m_aui8Image);
        const CState asBefore = GetState(oObjects);
        oScenario.m_fnAct(oObjects);
        const CState asDone = GetState(oObjects);
        const unsigned int uiAllocations = Run(oScenario.m_fnAct, [&](SObjects& oNow, bool bThrown) {
            if (bThrown)
            {
                const CState asNow = GetState(oNow);
                for (size_t i = 0; i < asNow.size(); ++i)
                {
                    EXPECT_TRUE(i == oScenario.m_eOpen || asNow[i] == asBefore[i]) << asNow[i];
                }
                oNow.Reset();
                oScenario.m_fnAct(oNow);
            }
            EXPECT_EQ(asDone, GetState(oNow));
        });
        EXPECT_GT(uiAllocations, 0U);
    }

    // An edit that runs out of memory has done its work on the bytes or not begun it, and every checksum holds; the
    // lists may be behind, and loading the bytes again mends them.
    void RunEdit(const SEditStep& oStep)
    {
        SCOPED_TRACE(testing::Message() << "operation " << oStep.m_uiOperation << ", index " << oStep.m_uiIndex);
        const auto Act = [&](SObjects& o) { o.m_oRunner.Run(oStep); };
        SObjects oDone(m_aui8Image);
        Act(oDone);
        const CBytes aui8Done = Serialise(oDone.GetEdid());
        Run(Act, [&](SObjects& o, bool bThrown) {
            const CEdid& oEdid = o.GetEdid();
            const CBytes aui8Held = Serialise(oEdid);
            EXPECT_TRUE(aui8Held == aui8Done || (bThrown && aui8Held == m_aui8Image));
            EXPECT_TRUE(oEdid.IsChecksumValid());
            ReadEverything(oEdid);
            const unsigned int uiTableTimings = oEdid.GetStandardCount();
            EXPECT_EQ(nullptr, o.m_oRunner.Apply({ CEditRunner::eEdit_Reload, 0, 0, 0 }));
            EXPECT_LE(uiTableTimings, oEdid.GetStandardCount()) << "a timing that is gone is listed";
            EXPECT_EQ(nullptr, o.m_oRunner.Apply(oStep));
        });
    }

    const CQuietMessages m_oQuiet;
    CForwardingAllocator m_oAllocator;
    CBytes m_aui8Image = MakeImageWithAllBlocks();
};

TEST_F(FailingMemory, Scenarios)
{
    for (const SScenario& oScenario : gsc_aoScenarios)
    {
        RunScenario(oScenario);
    }
}

TEST_F(FailingMemory, Files)
{
    const std::string sTable = MakeTextTable(CBytes(m_aui8Image.begin(), m_aui8Image.begin() + gsc_uiBlockSize));
    const CTemporaryFile oBin(".bin", m_aui8Image.data(), m_aui8Image.size());
    const CTemporaryFile oDat(".dat", sTable.data(), sTable.size());
    for (const char* pszPath : { oBin.GetPath(), oDat.GetPath() })
    {
        const auto Act = [&](SObjects& o) {
            EXPECT_EQ(1, CZorEdidUtils::ExtractEdidFromFile(CMString(pszPath), o.m_aui8Output));
        };
        RunScenario({ pszPath, Act, eOutputs });
    }
}

TEST_F(FailingMemory, Load)
{
    const CBytes aui8New = m_aui8Image;
    m_aui8Image = ToBytes(AsusHd::g_auiAsusHdEdidData);
    const auto Act = [&](SObjects& o) {
        EXPECT_EQ(1, o.m_oRunner.Load(aui8New.data(), static_cast<unsigned int>(aui8New.size())));
    };
    const unsigned int uiAllocations = Run(Act, [&](SObjects& o, bool bThrown) {
        // The blocks that came before the failure, whole; the old contents are gone.
        CBytes aui8Held = Serialise(o.GetEdid());
        EXPECT_EQ(bThrown, aui8Held.size() < aui8New.size());
        EXPECT_TRUE(o.GetEdid().IsChecksumValid());
        ReadEverything(o.GetEdid());
        aui8Held.insert(aui8Held.end(), aui8New.begin() + static_cast<long>(aui8Held.size()), aui8New.end());
        EXPECT_EQ(aui8New, aui8Held);
        Act(o);
        EXPECT_EQ(aui8New, Serialise(o.GetEdid()));
    });
    EXPECT_GT(uiAllocations, 5U);
}

TEST_F(FailingMemory, Edits)
{
    for (unsigned int i = 0; i < CEditRunner::eEdit_RemoveDataRange && !HasFailure(); ++i)
    {
        for (const unsigned int uiIndex : { 0U, 1U, 8U, 20U })
        {
            RunEdit({ i, 0, uiIndex, 0x00020E42 });
        }
    }
}

// One code stands as a short video descriptor and as an HDMI code: its removal edits two data blocks.
TEST_F(FailingMemory, RemovalOfEveryTableTiming)
{
    const CBytes aui8Codes = { 0x05, 0x07, 0x90 }; // in the video block; code 7 has no timing
    const auto itCodes = std::search(m_aui8Image.begin(), m_aui8Image.end(), aui8Codes.begin(), aui8Codes.end());
    ASSERT_NE(m_aui8Image.end(), itCodes);
    *(itCodes + 1) = 95; // HDMI code 1
    FixBlockSum(m_aui8Image, 1);
    const unsigned int uiCount = SObjects(m_aui8Image).GetBlock().GetStandardCount();
    EXPECT_GT(uiCount, 20U);
    for (unsigned int i = 0; i < uiCount && !HasFailure(); ++i)
    {
        RunEdit({ CEditRunner::eEdit_BlockRemoveStandard, 0, i, 0 });
    }
}
} // namespace

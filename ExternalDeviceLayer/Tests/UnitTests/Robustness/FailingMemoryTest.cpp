// Every operation that takes memory, with each of its allocations failing in turn: nothing leaks, the object is as its
// header says, and what it promises of its bytes holds. Once through operator new, once through a replaced allocator.

#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "CapturedOutput.h"
#include "CountingAllocator.h"
#include "EditRunner.h"
#include "FailingHeap.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "StringOperations.h"
#include "TemporaryFile.h"
#include "ZorEdidUtils.h"

namespace
{
// Everything that is worked on.
struct SObjects
{
    explicit SObjects(const CBytes& aui8Image)
    {
        m_oRunner.Load(aui8Image);
        m_oLocked.LockBuffer();
        m_aui8Bytes.SetSize(10, -1);
        m_asLocked.SetSize(11, -1);
        for (unsigned int i = 0; i < 10; ++i)
        {
            m_asLocked[i].Format("locked text %u", 10 - i);
            m_asLocked[i].LockBuffer(); // a copy takes memory
        }
        m_asLocked.SetSize(10, -1); // and there is room for one more
        for (unsigned int i = 0; i < 10; ++i)
        {
            m_oMap[i] = "value"; // a whole block of nodes
        }
        m_oAlone.Delete(0, 8); // its buffer is longer than it
    }

    // The contents, all of which can be read whatever has failed.
    std::string GetState()
    {
        const CBytes aui8Edid = Serialise(m_oRunner.GetEdid());
        std::string sState(aui8Edid.begin(), aui8Edid.end());
        for (const CMString* poText : { &m_oText, &m_oSharer, &m_oAlone, &m_oLocked })
        {
            sState += std::string(GetText(*poText)) + '\n';
        }
        sState += GetText(m_asLocked.Join("\n"));
        sState.append(m_aui8Bytes.GetData(), m_aui8Bytes.GetData() + m_aui8Bytes.GetCount());
        return sState + std::to_string(m_oMap.GetCount()) + ' ' + std::to_string(m_oEmptyMap.GetCount());
    }

    CEditRunner m_oRunner;
    CMString m_oText{ " One, two; three" };
    CMString m_oSharer{ m_oText };
    CMString m_oAlone{ "another text, longer than the first one" };
    CMString m_oLocked{ "a locked text" };
    CByteArray m_aui8Bytes;
    CMArrayString m_asLocked;
    CMMap<unsigned int, CMString, const unsigned int&, const CMString&> m_oMap;
    CMMap<unsigned int, CMString, const unsigned int&, const CMString&> m_oEmptyMap;
};

void SortCopy(SObjects& o)
{
    CMArrayString asCopy(o.m_asLocked);
    asCopy[9].LockBuffer(); // the first in order, which goes through all places
    asCopy.SortElements([](const CMString& o1, const CMString& o2, unsigned long) { return ZorTools_strcmp(o1, o2); },
                        0);
    EXPECT_STREQ("locked text 1", asCopy[0]);
}

// With little of everything: the time goes with the square.
void ReadASmallOne(SObjects& /*o*/)
{
    CEdid oEdid;
    const char* pszBlock = "02 03 16 40 41 10 23 09 07 07 83 01 00 00 67 03 0C 00 10 00 38 2D ..127 sum";
    EXPECT_EQ(1, LoadExact(oEdid, MakeEdid({ ParseBytes(pszBlock) })));
    ReadEverything(oEdid);
}

using CAct = std::function<void(SObjects&)>;

const std::pair<const char*, CAct> gsc_aoScenarios[] = {
    { "array: set size", [](SObjects& o) { o.m_aui8Bytes.SetSize(500, -1); } },
    { "array: add", [](SObjects& o) { o.m_aui8Bytes.Add(0x55); } },
    { "array: append", [](SObjects& o) { o.m_aui8Bytes.Append(CByteArray(o.m_aui8Bytes)); } },
    { "array: free extra", [](SObjects& o) { o.m_asLocked.FreeExtra(); } },
    { "array: copy texts", [](SObjects& o) { const CMArrayString asCopy(o.m_asLocked); } },
    { "array: append texts", [](SObjects& o) { CMArrayString(o.m_asLocked).Append(o.m_asLocked); } },
    { "array: assign texts", [](SObjects& o) { CMArrayString() = o.m_asLocked; } },
    { "array: add a text", [](SObjects& o) { CMArrayString(o.m_asLocked).Add(o.m_asLocked[1]); } },
    { "array: sort", SortCopy },
    { "map: one more", [](SObjects& o) { o.m_oMap[10]; } },
    { "map: the first", [](SObjects& o) { o.m_oEmptyMap[0]; } },
    { "read everything", ReadASmallOne },
};

class FailingMemory : public testing::Test
{
protected:
    // Acts on fresh objects with allocation 1, 2, 3... failing, until it succeeds. CHECK looks at the objects each time
    // and learns whether the action failed.
    template <class ACT, class CHECK>
    void Run(const ACT& fnAct, const CHECK& fnCheck)
    {
        for (const bool bReplaced : { false, true })
        {
            unsigned int uiNumber = 0;
            for (bool bThrown = true; bThrown && !HasFailure();)
            {
                SCOPED_TRACE(testing::Message() << "allocation " << ++uiNumber << ", replaced: " << bReplaced);
                const unsigned long ulHeld = g_oFailingHeap.m_ulTaken - g_oFailingHeap.m_ulGivenBack;
                const int iDescriptor = GetNextDescriptor();
                {
                    const std::unique_ptr<CCountingAllocator> poAllocator(bReplaced ? new CCountingAllocator : nullptr);
                    SObjects oObjects(m_aui8Image);
                    bThrown = false;
                    g_oFailingHeap.m_uiLeft = uiNumber;
                    try
                    {
                        fnAct(oObjects);
                    }
                    catch (const std::bad_alloc&)
                    {
                        bThrown = true;
                        ++m_uiFailures;
                    }
                    EXPECT_EQ(g_oFailingHeap.m_uiLeft == 0, bThrown) << "somebody has swallowed the exception";
                    g_oFailingHeap.m_uiLeft = 0;
                    fnCheck(oObjects, bThrown);
                }
                EXPECT_EQ(ulHeld, g_oFailingHeap.m_ulTaken - g_oFailingHeap.m_ulGivenBack) << "a leak";
                EXPECT_EQ(iDescriptor, GetNextDescriptor()) << "a file is open";
            }
        }
    }

    void TearDown() override { EXPECT_GT(m_uiFailures, 4U); }

    // What failed leaves all as it was, and done again it gives what it gives otherwise.
    void RunScenario(const char* pszName, const CAct& fnAct)
    {
        SCOPED_TRACE(pszName);
        SObjects oObjects(m_aui8Image);
        const std::string sBefore = oObjects.GetState();
        fnAct(oObjects);
        const std::string sDone = oObjects.GetState();
        Run(fnAct, [&](SObjects& o, bool bThrown) {
            if (bThrown)
            {
                EXPECT_EQ(sBefore, o.GetState());
                fnAct(o);
            }
            EXPECT_EQ(sDone, o.GetState());
        });
    }

    // An edit that runs out of memory has done its work on the bytes or not begun it, and every checksum holds; the
    // lists may be out of date until the bytes are loaded again.
    void RunEdit(const SEditStep& oStep)
    {
        SCOPED_TRACE(testing::Message() << "operation " << oStep.m_uiOperation << ", index " << oStep.m_uiIndex);
        const auto Act = [&](SObjects& o) { o.m_oRunner.Run(oStep); };
        SObjects oDone(m_aui8Image);
        Act(oDone);
        const CBytes aui8Done = Serialise(oDone.m_oRunner.GetEdid());
        Run(Act, [&](SObjects& o, bool bThrown) {
            const CEdid& oEdid = o.m_oRunner.GetEdid();
            const CBytes aui8Held = Serialise(oEdid);
            EXPECT_TRUE(aui8Held == aui8Done || (bThrown && aui8Held == m_aui8Image));
            EXPECT_TRUE(oEdid.IsChecksumValid());
            ReadEverything(oEdid);
            if (bThrown && aui8Held == m_aui8Image) // once more, on the same object
            {
                Act(o);
                EXPECT_EQ(aui8Done, Serialise(oEdid));
            }
            else if (bThrown) // the next edit derives all lists
            {
                o.m_oRunner.Run({ CEditRunner::eEdit_FirstOfBlock + 2, 0, 0, 0 });
                CEdid oFresh;
                LoadExact(oFresh, Serialise(oEdid));
                EXPECT_EQ(GetLists(oFresh)[1], GetLists(oEdid)[1]);
            }
            const unsigned int uiTableTimings = oEdid.GetStandardCount();
            EXPECT_EQ("", o.m_oRunner.Apply({ CEditRunner::eEdit_Reload, 0, 0, 0 }));
            EXPECT_LE(uiTableTimings, oEdid.GetStandardCount()) << "a timing that is gone is listed";
            EXPECT_EQ("", o.m_oRunner.Apply(oStep));
        });
    }

    const CQuietMessages m_oQuiet;
    CBytes m_aui8Image = MakeImageWithAllBlocks();
    unsigned int m_uiFailures = 0;
};

TEST_F(FailingMemory, Scenarios)
{
    for (const auto& [pszName, fnAct] : gsc_aoScenarios)
    {
        RunScenario(pszName, fnAct);
    }
    // A string that shares its buffer, so that each change takes memory, and one whose buffer is longer than it.
    for (const SStringOperation& oOperation : gsc_aoStringOperations)
    {
        for (CMString SObjects::*poOwn : { &SObjects::m_oText, &SObjects::m_oAlone })
        {
            RunScenario(oOperation.m_pszName, [&](SObjects& o) {
                SStringStep<CMString> oStep = { o.*poOwn, o.m_oLocked, 'o', 3, 40, ", ;eE", 0x20E45 };
                oOperation.m_pfnLibrary(oStep);
            });
        }
    }
}

TEST_F(FailingMemory, Files)
{
    const std::string sTable = MakeTextTable(CBytes(m_aui8Image.begin(), m_aui8Image.begin() + gsc_uiBlockSize));
    const CTemporaryFile oBin(".bin", m_aui8Image.data(), m_aui8Image.size());
    const CTemporaryFile oDat(".dat", sTable.data(), sTable.size());
    for (const char* pszPath : { oBin.GetPath(), oDat.GetPath() })
    {
        RunScenario(pszPath, [&](SObjects& /*o*/) {
            CByteArray aui8Loaded;
            EXPECT_EQ(1, CZorEdidUtils::ExtractEdidFromFile(CMString(pszPath), aui8Loaded));
        });
    }
}

TEST_F(FailingMemory, Load)
{
    const CBytes aui8New = std::exchange(m_aui8Image, ToBytes(AsusHd::g_auiAsusHdEdidData));
    const auto Act = [&](SObjects& o) { EXPECT_EQ(1, o.m_oRunner.Load(aui8New)); };
    Run(Act, [&](SObjects& o, bool bThrown) {
        // The blocks that came before the failure, whole; the old contents are gone.
        CBytes aui8Held = Serialise(o.m_oRunner.GetEdid());
        EXPECT_EQ(bThrown, aui8Held.size() < aui8New.size());
        EXPECT_TRUE(std::equal(aui8Held.begin(), aui8Held.end(), aui8New.begin()));
        ReadEverything(o.m_oRunner.GetEdid());
        Act(o);
        EXPECT_EQ(aui8New, Serialise(o.m_oRunner.GetEdid()));
    });
}

TEST_F(FailingMemory, Edits)
{
    const unsigned int uiTimings = SObjects(m_aui8Image).m_oRunner.GetEdid().GetExtension(0)->GetStandardCount();
    EXPECT_GT(uiTimings, 20U);
    for (unsigned int i = 0; i < CEditRunner::eEdit_RemoveDataRange && !HasFailure(); ++i)
    {
        const unsigned int uiStep = i == CEditRunner::eEdit_FirstOfBlock ? 1 : 7;
        for (unsigned int uiIndex = 0; uiIndex < uiTimings; uiIndex += uiStep)
        {
            RunEdit({ i, 0, uiIndex, 0x00020E42 });
        }
    }
}
} // namespace

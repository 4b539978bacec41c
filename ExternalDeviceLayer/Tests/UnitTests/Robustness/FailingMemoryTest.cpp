// Every operation that takes memory, with each of its allocations failing in turn: nothing leaks, the object is as its
// header says, and what it promises of its bytes holds. Once through operator new, once through a replaced allocator.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <new>
#include <string>

#include "CapturedOutput.h"
#include "EdidExtBlockCEA861.h"
#include "EditRunner.h"
#include "FailingHeap.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "ZorEdidUtils.h"

namespace
{
// A container heap that fails on demand.
class CFailingAllocator final : public CMAllocator
{
public:
    CFailingAllocator() { m_poGlobalAllocator = this; }
    ~CFailingAllocator() { m_poGlobalAllocator = nullptr; }
    CFailingAllocator(const CFailingAllocator&) = delete;
    CFailingAllocator& operator=(const CFailingAllocator&) = delete;

    void* Alloc(unsigned long ulSize) override
    {
        if (m_uiLeft != 0 && --m_uiLeft == 0)
        {
            m_bFailed = true;
            throw std::bad_alloc();
        }
        ++m_iHeld;
        return ::operator new(ulSize);
    }
    void Free(const void* p) override
    {
        if (p != nullptr)
        {
            --m_iHeld;
            ::operator delete(const_cast<void*>(p));
        }
    }

    unsigned int m_uiLeft = 0;
    bool m_bFailed = false;
    long m_iHeld = 0;
};

enum EHeap
{
    eOperatorNew,
    eAllocator
};

class FailingMemory : public testing::TestWithParam<EHeap>
{
protected:
    void SetUp() override
    {
        if (GetParam() == eAllocator)
        {
            m_poAllocator = std::make_unique<CFailingAllocator>();
        }
    }

    // Makes an object by MAKE and runs OPERATE on it with allocation 1, 2, 3... failing, until it succeeds. CHECK looks
    // at the object each time and is told whether the operation failed. Gives the number of allocations.
    template <class MAKE, class OPERATE, class CHECK>
    unsigned int Run(const MAKE& Make, const OPERATE& Operate, const CHECK& Check)
    {
        constexpr unsigned int uiTooMany = 100000;
        for (unsigned int uiNumber = 1; uiNumber < uiTooMany; ++uiNumber)
        {
            const long iNewHeld = FailingHeap::GetHeldCount();
            const long iAllocatorHeld = m_poAllocator != nullptr ? m_poAllocator->m_iHeld : 0;
            bool bThrown = false;
            bool bFailed = false;
            {
                auto poObject = Make();
                FailAt(uiNumber);
                try
                {
                    Operate(*poObject);
                }
                catch (const std::bad_alloc&)
                {
                    bThrown = true;
                }
                bFailed = HasFailed();
                FailAt(0);
                Check(*poObject, bThrown);
            }
            EXPECT_EQ(bFailed, bThrown) << "allocation " << uiNumber << ": somebody has swallowed the exception";
            EXPECT_EQ(iNewHeld, FailingHeap::GetHeldCount()) << "allocation " << uiNumber << ": a leak";
            EXPECT_EQ(iAllocatorHeld, m_poAllocator != nullptr ? m_poAllocator->m_iHeld : 0)
                << "allocation " << uiNumber << ": a leak in a container";
            if (!bThrown)
            {
                return uiNumber - 1;
            }
        }
        ADD_FAILURE() << "the operation never succeeded";
        return uiTooMany;
    }

private:
    void FailAt(unsigned int uiNumber)
    {
        if (m_poAllocator != nullptr)
        {
            m_poAllocator->m_uiLeft = uiNumber;
            m_poAllocator->m_bFailed = false;
            return;
        }
        FailingHeap::FailAt(uiNumber);
    }
    bool HasFailed() const { return m_poAllocator != nullptr ? m_poAllocator->m_bFailed : FailingHeap::HasFailed(); }

    const CQuietMessages m_oQuiet;
    std::unique_ptr<CFailingAllocator> m_poAllocator;
};

INSTANTIATE_TEST_SUITE_P(Heaps, FailingMemory, testing::Values(eOperatorNew, eAllocator),
                         [](const auto& oInfo) { return oInfo.param == eOperatorNew ? "OperatorNew" : "Allocator"; });

std::unique_ptr<CEditRunner> MakeLoaded(const CBytes& aui8Image)
{
    auto poRunner = std::make_unique<CEditRunner>();
    poRunner->Load(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()));
    return poRunner;
}

// ---- Whole EDIDs ----

TEST_P(FailingMemory, Load)
{
    const CBytes aui8Image = MakeImageWithAllBlocks();
    const CBytes aui8Other = ToBytes(AsusHd::g_auiAsusHdEdidData);
    const unsigned int uiSize = static_cast<unsigned int>(aui8Image.size());
    const unsigned int uiAllocations = Run(
        [&] { return MakeLoaded(aui8Other); }, [&](CEditRunner& oRunner) { oRunner.Load(aui8Image.data(), uiSize); },
        [&](CEditRunner& oRunner, bool bThrown) {
            // The blocks that came before the failure, whole; the old contents are gone.
            const CBytes aui8Held = Serialise(oRunner.GetEdid());
            ASSERT_EQ(bThrown, aui8Held.size() != aui8Image.size());
            ASSERT_TRUE(std::equal(aui8Held.begin(), aui8Held.end(), aui8Image.begin()));
            ASSERT_TRUE(oRunner.GetEdid().IsChecksumValid());
            ReadEverything(oRunner.GetEdid());
            ASSERT_EQ(1, oRunner.Load(aui8Image.data(), uiSize));
            ASSERT_EQ(aui8Image, Serialise(oRunner.GetEdid()));
        });
    EXPECT_GT(uiAllocations, 5U);
}

// A code that stands as a short video descriptor and as an HDMI code: its removal edits two data blocks.
CBytes MakeImageWithCodeInTwoBlocks()
{
    CBytes aui8Image = MakeImageWithAllBlocks();
    const CBytes aui8Codes = { 0x05, 0x07, 0x90 }; // in the video block; code 7 has no timing
    const auto itCodes = std::search(aui8Image.begin(), aui8Image.end(), aui8Codes.begin(), aui8Codes.end());
    EXPECT_NE(aui8Image.end(), itCodes);
    *(itCodes + 1) = 95; // HDMI code 1
    FixBlockSum(aui8Image, 1);
    return aui8Image;
}

// An edit that runs out of memory has done its work on the bytes or not begun it, and every checksum holds; the lists
// may be behind, and loading the bytes again mends them.
class FailingEdits : public FailingMemory
{
protected:
    void RunEdit(const CBytes& aui8Image, const SEditStep& oStep)
    {
        SCOPED_TRACE(testing::Message() << "operation " << oStep.m_uiOperation << ", index " << oStep.m_uiIndex);
        const auto poDone = MakeLoaded(aui8Image);
        poDone->Run(oStep);
        const CBytes aui8Done = Serialise(poDone->GetEdid());
        Run([&] { return MakeLoaded(aui8Image); }, [&](CEditRunner& oRunner) { oRunner.Run(oStep); },
            [&](CEditRunner& oRunner, bool bThrown) {
                const CBytes aui8Held = Serialise(oRunner.GetEdid());
                ASSERT_TRUE(aui8Held == aui8Done || (bThrown && aui8Held == aui8Image));
                ASSERT_TRUE(oRunner.GetEdid().IsChecksumValid());
                ReadEverything(oRunner.GetEdid());
                const unsigned int uiTableTimings = oRunner.GetEdid().GetStandardCount();
                ASSERT_EQ(nullptr, oRunner.Apply({ CEditRunner::eEdit_Reload, 0, 0, 0 }));
                ASSERT_LE(uiTableTimings, oRunner.GetEdid().GetStandardCount()) << "a timing that is gone is listed";
                ASSERT_EQ(nullptr, oRunner.Apply(oStep));
            });
    }
};

INSTANTIATE_TEST_SUITE_P(FailingMemory, FailingEdits, testing::Values(eOperatorNew, eAllocator),
                         [](const auto& oInfo) { return oInfo.param == eOperatorNew ? "OperatorNew" : "Allocator"; });

TEST_P(FailingEdits, EveryOperation)
{
    for (unsigned int uiOperation = 0; uiOperation < CEditRunner::eEdit_RemoveDataRange && !HasFailure(); ++uiOperation)
    {
        for (const unsigned int uiIndex : { 0U, 1U, 8U, 20U })
        {
            RunEdit(MakeImageWithAllBlocks(), { uiOperation, 0, uiIndex, 0x00020E42 });
        }
    }
}

TEST_P(FailingEdits, EveryTableTiming)
{
    const CBytes aui8Image = MakeImageWithCodeInTwoBlocks();
    const unsigned int uiCount = MakeLoaded(aui8Image)->GetEdid().GetExtension(0)->GetStandardCount();
    EXPECT_GT(uiCount, 20U);
    for (unsigned int uiIndex = 0; uiIndex < uiCount && !HasFailure(); ++uiIndex)
    {
        RunEdit(aui8Image, { CEditRunner::eEdit_BlockRemoveStandard, 0, uiIndex, 0 });
    }
}

// ---- Tools: the EDID is only read; the outputs are usable afterwards ----

struct SOutputs
{
    CEdid m_oEdid;
    CVidParamTimingGeneric m_oPreferred;
    CZorEdidUtils::CModeList m_aoModes[7];
    CMArrayString m_oLines;
    CZorEdidUtils::CByteArray m_aui8Bytes;
};

std::unique_ptr<SOutputs> MakeOutputs()
{
    auto poOutputs = std::make_unique<SOutputs>();
    const CBytes aui8Image = MakeImageWithAllBlocks();
    poOutputs->m_oEdid.SetEdidBuffer(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()), 0);
    poOutputs->m_oLines.Add("what stood there before");
    return poOutputs;
}

void ExtractModes(SOutputs& oOutputs)
{
    CZorEdidUtils::ExtractModeList(oOutputs.m_oEdid, oOutputs.m_oPreferred, oOutputs.m_aoModes[0],
                                   oOutputs.m_aoModes[1], oOutputs.m_aoModes[2], oOutputs.m_aoModes[3],
                                   oOutputs.m_aoModes[4], oOutputs.m_aoModes[5], oOutputs.m_aoModes[6]);
}

void CheckOutputs(SOutputs& oOutputs, bool /*bThrown*/)
{
    EXPECT_EQ(MakeImageWithAllBlocks(), Serialise(oOutputs.m_oEdid));
    for (const CZorEdidUtils::CModeList& aoModes : oOutputs.m_aoModes)
    {
        for (unsigned int i = 0; i < aoModes.GetCount(); ++i)
        {
            EXPECT_LT(aoModes[i].GetHorizontalActive(), 10000U);
        }
    }
    for (unsigned int i = 0; i < oOutputs.m_oLines.GetCount(); ++i)
    {
        EXPECT_EQ(ZorTools_strlen(oOutputs.m_oLines[i]), static_cast<unsigned int>(oOutputs.m_oLines[i].GetLength()));
    }
    // A second run on the same outputs gives what a first one gives.
    CZorEdidUtils::GetEdidFormatedAsZorEdidExtractor(oOutputs.m_oEdid, oOutputs.m_oLines, "");
    EXPECT_GT(oOutputs.m_oLines.GetCount(), 20U);
}

TEST_P(FailingMemory, ModeLists) { EXPECT_GT(Run(MakeOutputs, ExtractModes, CheckOutputs), 5U); }

TEST_P(FailingMemory, Reports)
{
    for (const auto eType : { CZorEdidUtils::eEdidFormatZorEdidExtractor, CZorEdidUtils::eEdidFormatRVideoOutRes,
                              CZorEdidUtils::eEdidFormatZorEdidExtractorExt })
    {
        const unsigned int uiAllocations = Run(
            MakeOutputs,
            [&](SOutputs& oOutputs) {
                CZorEdidUtils::GetFormatedEdid(eType, oOutputs.m_oEdid, oOutputs.m_oLines, "# ");
            },
            CheckOutputs);
        EXPECT_GT(uiAllocations, 20U);
    }
}

TEST_P(FailingMemory, Comparison)
{
    Run(
        MakeOutputs,
        [](SOutputs& oOutputs) { CZorEdidUtils::CompareTimings(oOutputs.m_oEdid, oOutputs.m_oEdid, 1, 1); },
        CheckOutputs);
    Run(
        MakeOutputs,
        [](SOutputs& oOutputs) {
            const auto aui8Bytes = oOutputs.m_oEdid.GetEdidBuffer();
            CZorEdidUtils::CompareTimings(aui8Bytes, aui8Bytes, 1, 1);
        },
        CheckOutputs);
}

TEST_P(FailingMemory, SerialisingAndComparing)
{
    Run(
        MakeOutputs, [](SOutputs& oOutputs) { oOutputs.m_aui8Bytes = oOutputs.m_oEdid.GetEdidBuffer(); },
        [](SOutputs& oOutputs, bool bThrown) {
            EXPECT_EQ(bThrown ? 0U : 384U, oOutputs.m_aui8Bytes.GetCount());
            CheckOutputs(oOutputs, bThrown);
        });
    Run(
        MakeOutputs, [](SOutputs& oOutputs) { EXPECT_NE(0, oOutputs.m_oEdid == oOutputs.m_oEdid); }, CheckOutputs);
}

// Questions that take memory for their answer.
TEST_P(FailingMemory, Questions)
{
    const std::function<void(CEdidExtBlockCEA861&)> aQuestions[] = {
        [](CEdidExtBlockCEA861& oBlock) { CZorEdidUtils::GetExtensionType(oBlock); },
        [](CEdidExtBlockCEA861&) { CEdidExtBlockCEA861::GetAudioFormatStr(CEdidExtBlockCEA861::eAudioFormat_Ac3); },
        [](CEdidExtBlockCEA861&) {
            CEdidExtBlockCEA861::GetAudioSamplingFreqStr(CEdidExtBlockCEA861::eAudioSamplingFreq_48KHz);
        },
        [](CEdidExtBlockCEA861& oBlock) {
            unsigned int uiBits = 0;
            EXPECT_EQ(1, oBlock.GetColorBitDepthSupport(uiBits)); // looks at an HDMI block with codes
        },
    };
    for (const auto& Ask : aQuestions)
    {
        const unsigned int uiAllocations = Run(
            MakeOutputs,
            [&](SOutputs& oOutputs) { Ask(static_cast<CEdidExtBlockCEA861&>(*oOutputs.m_oEdid.GetExtension(0))); },
            CheckOutputs);
        EXPECT_GT(uiAllocations, 0U);
    }
}

// Files are closed on the way out.
TEST_P(FailingMemory, Files)
{
    std::string sFolder = testing::TempDir() + "zoredid-XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(sFolder.data()));
    const std::string sBin = sFolder + "/image.bin";
    const std::string sDat = sFolder + "/image.dat";
    const CBytes aui8Image = MakeImageWithAllBlocks();
    FILE* poFile = fopen(sBin.c_str(), "wb");
    fwrite(aui8Image.data(), 1, aui8Image.size(), poFile);
    fclose(poFile);
    poFile = fopen(sDat.c_str(), "w");
    fputs("        ________________________________________", poFile);
    for (size_t i = 0; i < gsc_uiBlockSize; ++i)
    {
        fprintf(poFile, i % 10 == 0 ? "\n  0 |  %02X" : "  %02X", aui8Image[i]);
    }
    fputs("\n\n", poFile);
    fclose(poFile);

    for (const std::string& sPath : { sBin, sDat })
    {
        Run([] { return std::make_unique<CZorEdidUtils::CByteArray>(); },
            [&](CZorEdidUtils::CByteArray& aui8Data) {
                EXPECT_EQ(1, CZorEdidUtils::ExtractEdidFromFile(CMString(sPath.c_str()), aui8Data));
            },
            [](CZorEdidUtils::CByteArray& aui8Data, bool /*bThrown*/) {
                static const int s_iLowest = dup(STDERR_FILENO);
                const int iNow = dup(STDERR_FILENO);
                EXPECT_EQ(s_iLowest + 1, iNow) << "a file is open";
                close(iNow);
                aui8Data.RemoveAll();
            });
        EXPECT_EQ(0, remove(sPath.c_str()));
    }
    EXPECT_EQ(0, rmdir(sFolder.c_str()));
}

// ---- Strings ----

struct SStrings
{
    CMString m_oText{ "One, two; three" };
    CMString m_oSharer{ m_oText };
    CMString m_oAlone{ "another text, longer than the first one" };
    CMArrayString m_oList;
};

struct SStringCase
{
    const char* m_pszName;
    std::function<void(SStrings&)> m_Operate;
};

std::string GetText(const CMString& oText) { return static_cast<const char*>(oText); }

// Whatever was to happen, the text is as before, and so is that of the string that shared its buffer.
TEST_P(FailingMemory, Strings)
{
    const SStringCase aoCases[] = {
        { "Construct", [](SStrings&) { const CMString oText("text"); } },
        { "Repeat", [](SStrings&) { const CMString oText('x', 40); } },
        { "AssignText", [](SStrings& o) { o.m_oText = "a text that is longer than what stood there before"; } },
        { "AssignChar", [](SStrings& o) { o.m_oText = 'x'; } },
        { "AssignLocked",
          [](SStrings& o) {
              o.m_oAlone.LockBuffer();
              o.m_oText = o.m_oAlone;
          } },
        { "AppendChar", [](SStrings& o) { o.m_oText += 'x'; } },
        { "AppendText", [](SStrings& o) { o.m_oText += "more"; } },
        { "AppendItself", [](SStrings& o) { o.m_oText += o.m_oText; } },
        { "Sum", [](SStrings& o) { const CMString oSum = 'a' + o.m_oText + "b" + o.m_oAlone + 'c'; } },
        { "InsertChar", [](SStrings& o) { o.m_oText.Insert(3, 'x'); } },
        { "InsertText", [](SStrings& o) { o.m_oText.Insert(3, "more"); } },
        { "Delete", [](SStrings& o) { o.m_oText.Delete(1, 2); } },
        { "SetAt", [](SStrings& o) { o.m_oText.SetAt(1, 'x'); } },
        { "MakeUpper", [](SStrings& o) { o.m_oText.MakeUpper(); } },
        { "MakeReverse", [](SStrings& o) { o.m_oText.MakeReverse(); } },
        { "Trim", [](SStrings& o) { o.m_oText.Trim("Oe"); } },
        { "Mid", [](SStrings& o) { const CMString oPart = o.m_oText.Mid(2, 3); } },
        { "FindNoCase", [](SStrings& o) { o.m_oText.FindNoCase("TWO", 0); } },
        { "GetBuffer",
          [](SStrings& o) {
              o.m_oText.GetBuffer(100);
              o.m_oText.ReleaseBuffer(-1);
          } },
        { "LockBuffer", [](SStrings& o) { o.m_oText.LockBuffer(); } },
        { "Format", [](SStrings& o) { o.m_oText.Format("%d %s", 5, static_cast<const char*>(o.m_oAlone)); } },
        { "AppendFormat", [](SStrings& o) { o.m_oText.AppendFormat("%d", 5); } },
        { "FreeExtra",
          [](SStrings& o) {
              o.m_oAlone.Delete(0, 8);
              o.m_oAlone.FreeExtra();
          } },
        { "Tokens",
          [](SStrings& o) {
              for (CMString::CIterator oToken = o.m_oText.Begin(",; "); oToken != o.m_oText.End(); oToken++)
              {
                  CMString::CIterator oCopy;
                  oCopy = oToken;
                  const CMString oText = *oCopy;
              }
          } },
        { "InitFromString", [](SStrings& o) { o.m_oList.InitFromString(o.m_oText, ",; "); } },
        { "Join",
          [](SStrings& o) {
              o.m_oList.InitFromString(o.m_oText, ",; ");
              const CMString oJoined = o.m_oList.Join(" and ");
          } },
    };
    const std::string sBefore = "One, two; three";
    for (const SStringCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const unsigned int uiAllocations =
            Run([] { return std::make_unique<SStrings>(); }, oCase.m_Operate,
                [&](SStrings& oStrings, bool bThrown) {
                    EXPECT_EQ(sBefore, GetText(oStrings.m_oSharer)) << "a string that shared the buffer";
                    EXPECT_EQ(GetText(oStrings.m_oText).size(), static_cast<size_t>(oStrings.m_oText.GetLength()));
                    EXPECT_EQ(GetText(oStrings.m_oAlone).size(), static_cast<size_t>(oStrings.m_oAlone.GetLength()));
                    if (bThrown)
                    {
                        EXPECT_EQ(sBefore, GetText(oStrings.m_oText));
                    }
                    oStrings.m_oText = "usable";
                    oStrings.m_oText += " again";
                    EXPECT_EQ("usable again", GetText(oStrings.m_oText));
                });
        EXPECT_GT(uiAllocations, 0U);
    }
}

// ---- Arrays and maps ----

using CByteArray = CMArray<unsigned char, const unsigned char&>;
using CTexts = CMArray<CMString, const CMString&>;

struct SArrays
{
    SArrays()
    {
        for (unsigned char ui8 = 0; ui8 < 10; ++ui8)
        {
            m_aui8Bytes.Add(ui8);
            CMString oText;
            oText.Format("text %u", static_cast<unsigned int>(ui8));
            m_aoTexts.Add(oText);
        }
        m_aoLocked = m_aoTexts;
        for (unsigned int i = 0; i < m_aoLocked.GetCount(); ++i)
        {
            m_aoLocked[i].LockBuffer(); // so that a copy takes memory
        }
    }

    CByteArray m_aui8Bytes;
    CTexts m_aoTexts;
    CTexts m_aoLocked;
};

struct SArrayCase
{
    const char* m_pszName;
    std::function<void(SArrays&)> m_Operate;
    bool m_bStrong; // the elements are as before when memory runs out
};

TEST_P(FailingMemory, Arrays)
{
    const SArrayCase aoCases[] = {
        { "SetSize", [](SArrays& o) { o.m_aui8Bytes.SetSize(500, -1); }, true },
        { "Add",
          [](SArrays& o) {
              const unsigned int uiCapacityAtLeast = 16;
              while (o.m_aui8Bytes.GetCount() < uiCapacityAtLeast)
              {
                  o.m_aui8Bytes.Add(0x55);
              }
          },
          false }, // several additions in one: each of them is strong
        { "AppendBytes", [](SArrays& o) { o.m_aui8Bytes.Append(CByteArray(o.m_aui8Bytes)); }, true },
        { "AppendTexts", [](SArrays& o) { o.m_aoTexts.Append(o.m_aoLocked); }, false },
        { "CopyTexts", [](SArrays& o) { const CTexts aoCopy(o.m_aoLocked); }, true },
        { "AssignTexts",
          [](SArrays& o) {
              o.m_aoTexts.RemoveAll();
              o.m_aoTexts = o.m_aoLocked;
          },
          false },
        { "AddText",
          [](SArrays& o) {
              for (int i = 0; i < 6; ++i)
              {
                  o.m_aoTexts.Add(o.m_aoLocked[1]);
              }
          },
          false },
        { "FreeExtra",
          [](SArrays& o) {
              o.m_aui8Bytes.SetSize(11, -1);
              o.m_aui8Bytes.SetSize(10, -1);
              o.m_aui8Bytes.FreeExtra();
          },
          true },
        { "SortTexts",
          [](SArrays& o) {
              o.m_aoLocked.SortElements([](const CMString& oFirst, const CMString& oSecond,
                                           unsigned long) { return ZorTools_strcmp(oSecond, oFirst); },
                                        0);
          },
          true },
    };
    for (const SArrayCase& oCase : aoCases)
    {
        SCOPED_TRACE(oCase.m_pszName);
        const unsigned int uiAllocations =
            Run([] { return std::make_unique<SArrays>(); }, oCase.m_Operate,
                [&](SArrays& oArrays, bool bThrown) {
                    for (CTexts* paoTexts : { &oArrays.m_aoTexts, &oArrays.m_aoLocked })
                    {
                        for (unsigned int i = 0; i < paoTexts->GetCount(); ++i)
                        {
                            EXPECT_EQ(GetText((*paoTexts)[i]).size(), static_cast<size_t>((*paoTexts)[i].GetLength()));
                        }
                    }
                    if (bThrown && oCase.m_bStrong)
                    {
                        EXPECT_EQ(10U, oArrays.m_aui8Bytes.GetCount());
                        EXPECT_EQ(10U, oArrays.m_aoTexts.GetCount());
                        EXPECT_EQ(9, oArrays.m_aui8Bytes[9]);
                    }
                    oArrays.m_aoTexts.Add("usable");
                    oArrays.m_aui8Bytes.Add(1);
                    EXPECT_EQ("usable", GetText(oArrays.m_aoTexts[oArrays.m_aoTexts.GetCount() - 1]));
                });
        EXPECT_GT(uiAllocations, 0U);
    }
}

// What was inserted before is all there, and so is a key whose value got no memory, with an empty one.
TEST_P(FailingMemory, Map)
{
    using CTextMap = CMMap<unsigned int, CMString, const unsigned int&, const CMString&>;
    const std::string sValue = "a value with memory of its own";
    unsigned int uiBegun = 0; // insertions
    unsigned int uiDone = 0;  // insertions, and values assigned
    const unsigned int uiAllocations = Run(
        [&] {
            uiBegun = 0;
            uiDone = 0;
            return std::make_unique<CTextMap>();
        },
        [&](CTextMap& oMap) {
            for (; uiDone < 25; ++uiDone)
            {
                CMString& oValue = oMap[uiDone];
                ++uiBegun;
                oValue = sValue.c_str();
            }
        },
        [&](CTextMap& oMap, bool /*bThrown*/) {
            ASSERT_EQ(uiBegun, static_cast<unsigned int>(oMap.GetCount()));
            for (unsigned int i = 0; i < uiBegun; ++i)
            {
                EXPECT_EQ(i < uiDone ? sValue : "", GetText(oMap[i]));
            }
            EXPECT_EQ(uiBegun, static_cast<unsigned int>(oMap.GetCount()));
            oMap[99] = "usable";
            EXPECT_EQ("usable", GetText(oMap[99]));
        });
    EXPECT_EQ(1U + 3U + 25U, uiAllocations); // the table, three blocks of ten nodes, the values
}
}

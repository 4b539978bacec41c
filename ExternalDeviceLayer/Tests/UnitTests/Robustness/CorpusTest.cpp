// Real images, and those of the self-check: everything read, then every edit at every index, each keeping its promises.

#include <gtest/gtest.h>

#include <algorithm>

#include "CapturedOutput.h"
#include "EditRunner.h"
#include "ReadEverything.h"
#include "RobustnessImages.h"
#include "SharedFiles.h"
#include "ZorEdidUtils.h"

namespace
{
constexpr unsigned int gsc_uiMostBlocks = 3; // edits go to that many extension blocks

// Each serves as an audio descriptor, a speaker mask, a depth, a serial number; the last is refused as a descriptor.
constexpr unsigned int gsc_auiValues[] = { 0x00020E42, 0xFFFFFFFF, 0x3 };

// The indexes that an edit can have, and two beyond.
unsigned int GetIndexCount(const CEdid& oEdid, const SEditStep& oStep)
{
    switch (oStep.m_uiOperation)
    {
    case CEditRunner::eEdit_RemoveStandard:
    case CEditRunner::eEdit_BlockRemoveStandard:
        return oEdid.GetStandardCount() + 2;
    case CEditRunner::eEdit_RemoveDetailed:
    case CEditRunner::eEdit_BlockRemoveDetailed:
        return oEdid.GetDetailedCount() + 2;
    case CEditRunner::eEdit_SetEstablished:
        return CEdidBase::msc_uiEstablishedCount + 2;
    case CEditRunner::eEdit_SetEstablishedFromId:
        return 26;
    case CEditRunner::eEdit_SetAudio:
    case CEditRunner::eEdit_RemoveAudio:
    case CEditRunner::eEdit_SetSpeaker:
    case CEditRunner::eEdit_RemoveSpeaker:
        return 12;
    case CEditRunner::eEdit_SetPreferredMode:
        return std::min(oEdid.GetStandardCount() + 1, 4U);
    default:
        return 1;
    }
}

bool IsBlockEdit(unsigned int uiOperation)
{
    return uiOperation >= CEditRunner::eEdit_BlockRemoveStandard && uiOperation <= CEditRunner::eEdit_AddVendorSpecific;
}

bool UsesValue(unsigned int uiOperation)
{
    switch (uiOperation)
    {
    case CEditRunner::eEdit_RemoveStandard:
    case CEditRunner::eEdit_RemoveDetailed:
    case CEditRunner::eEdit_BlockRemoveStandard:
    case CEditRunner::eEdit_BlockRemoveDetailed:
    case CEditRunner::eEdit_RemoveAudio:
    case CEditRunner::eEdit_RemoveSpeaker:
    case CEditRunner::eEdit_AddVendorSpecific:
    case CEditRunner::eEdit_RePackStandards:
    case CEditRunner::eEdit_UpdateChecksum:
        return false;
    default:
        return true;
    }
}

// Each edit of a block behind a removal of a table timing, which leaves lists behind the bytes, and both once more.
void RunEditsBehindARemoval(const CBytes& aui8Image)
{
    CEditRunner oRunner;
    for (unsigned int uiOperation = CEditRunner::eEdit_BlockRemoveStandard;
         uiOperation <= CEditRunner::eEdit_AddVendorSpecific; ++uiOperation)
    {
        oRunner.Load(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()));
        for (unsigned int i = 0; i < 4; ++i)
        {
            const unsigned int uiNext = i % 2 == 0 ? CEditRunner::eEdit_BlockRemoveStandard : uiOperation;
            const char* pszBroken = oRunner.Apply({ uiNext, 0, 0, gsc_auiValues[0] });
            ASSERT_EQ(nullptr, pszBroken) << pszBroken << ": operation " << uiOperation << ", step " << i;
        }
    }
}

// Each edit on a fresh copy of the image.
void RunAllEdits(const CBytes& aui8Image, unsigned int& uiEdits)
{
    const unsigned int uiSize = static_cast<unsigned int>(aui8Image.size());
    CEditRunner oFirst;
    oFirst.Load(aui8Image.data(), uiSize);
    const unsigned int uiBlocks = std::clamp(oFirst.GetEdid().GetExtensionCount(), 1U, gsc_uiMostBlocks);
    for (unsigned int uiOperation = 0; uiOperation <= CEditRunner::eEdit_AddVendorSpecific; ++uiOperation)
    {
        for (unsigned int uiBlock = 0; uiBlock < (IsBlockEdit(uiOperation) ? uiBlocks : 1); ++uiBlock)
        {
            SEditStep oStep = { uiOperation, uiBlock, 0, 0 };
            const unsigned int uiIndexes = GetIndexCount(oFirst.GetEdid(), oStep);
            for (oStep.m_uiIndex = 0; oStep.m_uiIndex < uiIndexes; ++oStep.m_uiIndex)
            {
                for (const unsigned int uiValue : gsc_auiValues)
                {
                    oStep.m_uiValue = uiValue;
                    CEditRunner oRunner;
                    oRunner.Load(aui8Image.data(), uiSize);
                    const char* pszBroken = oRunner.Apply(oStep);
                    ASSERT_EQ(nullptr, pszBroken) << pszBroken << ": operation " << uiOperation << ", block " << uiBlock
                                                  << ", index " << oStep.m_uiIndex << ", value " << uiValue;
                    ++uiEdits;
                    if (!UsesValue(uiOperation))
                    {
                        break;
                    }
                }
            }
        }
    }
}

// Edits one after the other, to the end: all table timings, all detailed timings, all audio; then additions until none
// fits any more.
void RunDown(const CBytes& aui8Image)
{
    CEditRunner oRunner;
    oRunner.Load(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()));
    const SEditStep aoSteps[] = {
        { CEditRunner::eEdit_AddAudio, 0, 0, 0x00020E42 },   { CEditRunner::eEdit_AddSpeaker, 0, 0, 0x7FF },
        { CEditRunner::eEdit_AddVendorSpecific, 0, 0, 0 },   { CEditRunner::eEdit_BlockRemoveDetailed, 0, 0, 0 },
        { CEditRunner::eEdit_RemoveAudio, 0, 0, 0 },         { CEditRunner::eEdit_AddAudio, 0, 0, 0x00020E42 },
        { CEditRunner::eEdit_RemoveSpeaker, 0, 0, 0 },       { CEditRunner::eEdit_RemoveStandard, 0, 0, 0 },
        { CEditRunner::eEdit_RemoveDetailed, 0, 1, 0 },      { CEditRunner::eEdit_Reload, 0, 0, 0 },
        { CEditRunner::eEdit_BlockRemoveStandard, 0, 0, 0 }, { CEditRunner::eEdit_RemoveDetailed, 0, 0, 0 },
    };
    for (const SEditStep& oStep : aoSteps)
    {
        unsigned int uiBefore = 0;
        unsigned int uiRuns = 0;
        do
        {
            uiBefore = oRunner.GetSuccessCount();
            const char* pszBroken = oRunner.Apply(oStep);
            ASSERT_EQ(nullptr, pszBroken) << pszBroken << ": operation " << oStep.m_uiOperation << ", run " << uiRuns;
        } while (oRunner.GetSuccessCount() != uiBefore && ++uiRuns < 64);
    }
    ReadEverything(oRunner.GetEdid());
}

TEST(EditSweep, EveryEditOfTheSelfChecksImages)
{
    const CQuietMessages oQuiet;
    unsigned int uiEdits = 0;
    for (const SNamedEdidImage& oImage : gsc_aoEdidTestImages)
    {
        SCOPED_TRACE(oImage.m_pszName);
        const CBytes aui8Image = ToBytes(*oImage.m_paui8Image);
        ASSERT_NO_FATAL_FAILURE(RunAllEdits(aui8Image, uiEdits));
        ASSERT_NO_FATAL_FAILURE(RunEditsBehindARemoval(aui8Image));
        ASSERT_NO_FATAL_FAILURE(RunDown(aui8Image));
    }
    ASSERT_NO_FATAL_FAILURE(RunAllEdits(MakeImageWithAllBlocks(), uiEdits));
    CBytes aui8Image = MakeImageWithDisplayDescriptor();
    ASSERT_NO_FATAL_FAILURE(RunEditsBehindARemoval(aui8Image));
    ++aui8Image[gsc_uiBlockSize - 1]; // a wrong checksum, which the edits of the base block mend
    ASSERT_NO_FATAL_FAILURE(RunAllEdits(aui8Image, uiEdits));
    RecordProperty("edits", static_cast<int>(uiEdits));
}

// Where there are modes, each report has something to say.
void ExpectReports(const CEdid& oEdid)
{
    CVidParamTimingGeneric oPreferred;
    CZorEdidUtils::CModeList aoModes[7];
    const int bModes = CZorEdidUtils::ExtractModeList(oEdid, oPreferred, aoModes[0], aoModes[1], aoModes[2], aoModes[3],
                                                      aoModes[4], aoModes[5], aoModes[6]);
    for (const auto eType : { CZorEdidUtils::eEdidFormatZorEdidExtractor, CZorEdidUtils::eEdidFormatRVideoOutRes,
                              CZorEdidUtils::eEdidFormatZorEdidExtractorExt })
    {
        CMArrayString oLines;
        CZorEdidUtils::GetFormatedEdid(eType, oEdid, oLines, "");
        EXPECT_EQ(bModes != 0, oLines.GetCount() != 0) << "report " << eType;
    }
}

TEST(CorpusSweep, EverythingIsRead)
{
    const CQuietMessages oQuiet;
    const auto aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no folder with real images";
    }
    for (const SCorpusImage& oImage : aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        const unsigned int uiSize = static_cast<unsigned int>(oImage.m_aui8Data.size());
        CEdid oEdid;
        EXPECT_EQ(1, oEdid.SetEdidBuffer(oImage.m_aui8Data.data(), uiSize, 0));
        const unsigned long long ullDigest = ReadEverything(oEdid);
        ExpectReports(oEdid);

        const auto aui8Written = oEdid.GetEdidBuffer();
        CEdid oAgain;
        EXPECT_EQ(1, oAgain.SetEdidBuffer(aui8Written.GetData(), aui8Written.GetCount(), 0));
        EXPECT_EQ(ullDigest, ReadEverything(oAgain));
    }
}

TEST(CorpusSweep, EveryEdit)
{
    const CQuietMessages oQuiet;
    const auto aoImages = ReadCorpus();
    if (aoImages.empty())
    {
        GTEST_SKIP() << "no folder with real images";
    }
    unsigned int uiEdits = 0;
    for (const SCorpusImage& oImage : aoImages)
    {
        SCOPED_TRACE(oImage.m_sName);
        ASSERT_NO_FATAL_FAILURE(RunAllEdits(oImage.m_aui8Data, uiEdits));
        ASSERT_NO_FATAL_FAILURE(RunEditsBehindARemoval(oImage.m_aui8Data));
        ASSERT_NO_FATAL_FAILURE(RunDown(oImage.m_aui8Data));
    }
    RecordProperty("edits", static_cast<int>(uiEdits));
}
}

// What loading costs in memory, exactly: more is a loss of speed that no other test sees, less deserves a new number.

#include <gtest/gtest.h>

#include "CEdidTestImages.h"
#include "Edid.h"
#include "FailingHeap.h"
#include "TestBytes.h"
#include "VidParamTimingGeneric.h"

namespace
{
struct SMemoryCase
{
    const SEdidImage& m_aui8Image;
    unsigned int m_uiBlocks; // that are loaded
    unsigned long m_ulTaken; // allocations, all of which are held
    unsigned long m_ulBytes; // of them
};

// The base block's list of standard timings; then the list of extension blocks, a block's object and its bytes, and its
// lists of timings, audio and speakers, each taken once and exactly. Codes and places of descriptors are read from the
// bytes.
const SMemoryCase gsc_aoMemoryCases[] = {
    { gsc_aui8Philips288P6, 1, 1, 28 },
    { gsc_aui8Philips288P6, 2, 7, 592 },
    { gsc_aui8LgUltraHd, 2, 7, 516 },
};

TEST(MemoryUse, LoadingAndWalking)
{
    for (const SMemoryCase& oCase : gsc_aoMemoryCases)
    {
        SCOPED_TRACE(&oCase - gsc_aoMemoryCases);
        const SFailingHeap oBefore = g_oFailingHeap;
        CEdid oEdid;
        oEdid.SetEdidBuffer(oCase.m_aui8Image.data(), oCase.m_uiBlocks * 128, 0);
        const SFailingHeap oLoaded = g_oFailingHeap;
        CVidParamTimingGeneric oTiming;
        for (unsigned int i = 0; oEdid.GetEstablished(i, &oTiming, 0) || oEdid.GetStandard(i, &oTiming, nullptr) ||
                                 oEdid.GetDetailed(i, &oTiming);
             ++i)
        {
        }
        EXPECT_EQ(oLoaded.m_ulTaken, g_oFailingHeap.m_ulTaken) << "a walk takes no memory";
        EXPECT_EQ(oBefore.m_ulGivenBack, oLoaded.m_ulGivenBack) << "what was taken and given back was taken in vain";
        EXPECT_EQ(oCase.m_ulTaken, oLoaded.m_ulTaken - oBefore.m_ulTaken);
        EXPECT_EQ(oCase.m_ulBytes, oLoaded.m_ulBytes - oBefore.m_ulBytes);
    }
}
} // namespace

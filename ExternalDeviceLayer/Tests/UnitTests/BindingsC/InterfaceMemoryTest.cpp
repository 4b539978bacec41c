// The interface for C while memory runs out: no exception comes out, and nothing is lost.

#include <gtest/gtest.h>

#include "FailingHeap.h"
#include "SharedFiles.h"
#include "TestBytes.h"
#include "WalkInterface.h"

namespace
{
// Each allocation of a walk fails once; of those of the values of many fields, which are alike, one in many.
TEST(InterfaceForCMemory, RunsOut)
{
    const CBytes aui8Image = ReadBytes(ZOREDID_SOURCE_DIR "/examples/monitor.bin");
    unsigned int uiFailures = 0;
    for (unsigned int i = 1;; i += i < 400 ? 1 : i / 16)
    {
        const unsigned long ulHeld = g_oFailingHeap.m_ulTaken - g_oFailingHeap.m_ulGivenBack;
        g_oFailingHeap.m_uiLeft = i;
        walk_interface(aui8Image.data(), aui8Image.size(), i); // a value that failed differs from the same one later
        const bool bFailed = g_oFailingHeap.m_uiLeft == 0;
        g_oFailingHeap.m_uiLeft = 0;
        ASSERT_EQ(ulHeld, g_oFailingHeap.m_ulTaken - g_oFailingHeap.m_ulGivenBack) << "allocation " << i;
        if (!bFailed)
        {
            break;
        }
        ++uiFailures;
    }
    EXPECT_LT(100U, uiFailures);
}
} // namespace

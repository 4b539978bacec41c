// Fuzz target: the input is a program of edits, each of which must keep its promises, and the image that they edit.
//
//   byte 0  number of edits, modulo 64; bit 7 makes the checksum of the base block wrong
//   then    edits of 8 bytes: operation, block, index (16 bits), value (32 bits)
//   then    the image, which is repaired

#include "EditRunner.h"
#include "FuzzSupport.h"
#include "ReadEverything.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    const unsigned int uiHead = oInput.Take(1);
    std::vector<SEditStep> aoSteps(uiHead % 64);
    for (SEditStep& oStep : aoSteps)
    {
        oStep.m_uiOperation = oInput.Take(1);
        oStep.m_uiBlock = oInput.Take(1);
        oStep.m_uiIndex = oInput.Take(2);
        oStep.m_uiValue = oInput.Take(4);
    }
    CBytes aui8Image = RepairImage(oInput.TakeRest());
    aui8Image[gsc_uiBlockSize - 1] = static_cast<unsigned char>(aui8Image[gsc_uiBlockSize - 1] + uiHead / 128);
    CEditRunner oRunner;
    oRunner.Load(aui8Image);
    for (const SEditStep& oStep : aoSteps)
    {
        const std::string sBroken = oRunner.Apply(oStep);
        if (!sBroken.empty())
        {
            fprintf(stderr, "operation %u, block %u, index %u, value 0x%X\n",
                    oStep.m_uiOperation % CEditRunner::msc_uiOperationCount, oStep.m_uiBlock, oStep.m_uiIndex,
                    oStep.m_uiValue);
            Require(false, sBroken.c_str());
        }
    }
    // One in sixteen is read in full: what edits leave must be as safe as what is loaded.
    if (uiSize % 16 == 0)
    {
        ReadEverything(oRunner.GetEdid());
    }
    return 0;
}

// Fuzz target: the input chooses an image and a program of edits, each of which must keep its promises.
//
//   byte 0  number of the self-check's image; at their count and above: an image of the input's own, repaired, whose
//           number of blocks (1 to 4) stands in the next byte and whose bytes follow; bit 7 of that byte makes the
//           checksum of the base block wrong
//   then    edits of 8 bytes: operation, block, index (16 bits), value (32 bits)

#include "CEdidTestImages.h"
#include "EditRunner.h"
#include "FuzzSupport.h"
#include "ReadEverything.h"

namespace
{
constexpr unsigned int gsc_uiMostEdits = 64;

CBytes TakeImage(CInput& oInput)
{
    const size_t uiChoice = oInput.TakeByte();
    if (uiChoice < std::size(gsc_aoEdidTestImages))
    {
        return ToBytes(*gsc_aoEdidTestImages[uiChoice].m_paui8Image);
    }
    const unsigned int uiHead = oInput.TakeByte();
    CBytes aui8Image((1 + uiHead % 4) * gsc_uiBlockSize);
    for (unsigned char& ui8Byte : aui8Image)
    {
        ui8Byte = static_cast<unsigned char>(oInput.TakeByte());
    }
    aui8Image = RepairImage(aui8Image);
    aui8Image[gsc_uiBlockSize - 1] = static_cast<unsigned char>(aui8Image[gsc_uiBlockSize - 1] + (uiHead >> 7));
    return aui8Image;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    CInput oInput(pui8Data, uiSize);
    const CBytes aui8Image = TakeImage(oInput);
    CEditRunner oRunner;
    oRunner.Load(aui8Image.data(), static_cast<unsigned int>(aui8Image.size()));
    for (unsigned int i = 0; i < gsc_uiMostEdits && !oInput.IsEmpty(); ++i)
    {
        SEditStep oStep = {};
        oStep.m_uiOperation = oInput.TakeByte();
        oStep.m_uiBlock = oInput.TakeByte();
        oStep.m_uiIndex = oInput.Take16();
        oStep.m_uiValue = oInput.Take32();
        if (const char* pszBroken = oRunner.Apply(oStep))
        {
            fprintf(stderr, "edit %u: operation %u, block %u, index %u, value 0x%X\n", i,
                    oStep.m_uiOperation % CEditRunner::msc_uiOperationCount, oStep.m_uiBlock, oStep.m_uiIndex,
                    oStep.m_uiValue);
            Require(false, pszBroken);
        }
    }
    // One in sixteen is read in full: what edits leave behind must be as safe as what is loaded.
    if (uiSize % 16 == 0)
    {
        ReadEverything(oRunner.GetEdid());
    }
    return 0;
}

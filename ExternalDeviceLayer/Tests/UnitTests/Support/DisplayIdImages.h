// Makes DisplayID extension blocks, and EDIDs around them, with right checksums.

#pragma once

#include <limits.h>

#include <vector>

#include "TestBytes.h"

// A block of 128 bytes around these data blocks, whose length it announces unless another one is given. Both checksums
// are right where the section leaves room for its own.
inline CBytes MakeDisplayIdBlock(const CBytes& aui8DataBlocks, unsigned int uiSectionLength = UINT_MAX,
                                 unsigned int uiRevision = 0x12)
{
    const size_t uiLength = uiSectionLength != UINT_MAX ? uiSectionLength : aui8DataBlocks.size();
    CBytes aui8Block = { 0x70, static_cast<unsigned char>(uiRevision), static_cast<unsigned char>(uiLength), 0, 0 };
    Append(aui8Block, aui8DataBlocks);
    aui8Block.resize(gsc_uiBlockSize);
    FixSectionSum(aui8Block, 0);
    return FixChecksums(aui8Block);
}

// One data block: header and payload.
inline CBytes MakeDataBlock(unsigned int uiTag, unsigned int uiRevision, const CBytes& aui8Payload)
{
    return Join({ { static_cast<unsigned char>(uiTag), static_cast<unsigned char>(uiRevision),
                    static_cast<unsigned char>(aui8Payload.size()) },
                  aui8Payload });
}

// 1920 x 1080 at 60 Hz, 148.5 MHz: blanking 280 with 88, 44, 148 and 45 with 4, 5, 36, both syncs positive.
inline CBytes Type1Record1080p() { return ParseBytes("01 3A 00 00 7F 07 17 01 57 80 2B 00 37 04 2C 00 03 80 04 00"); }

// 1280 x 720 at 60 Hz, 74.25 MHz: blanking 368 with 112, 40, 216 and 30 with 5, 5, 20, horizontal sync positive.
inline CBytes Type2Record720p() { return ParseBytes("00 1D 00 08 9F 5A D4 CF 02 1D 44"); }

// Two tiles across and two down, this one at location 1, 0; 1920 by 1080 each.
inline CBytes TilePayload() { return ParseBytes("82 11 10 00 7F 07 37 04 ..22"); }

// A tile, a Type I and a Type II timing: a block with everything that is understood.
inline CBytes MakeFullDisplayIdBlock()
{
    return MakeDisplayIdBlock(Join({ MakeDataBlock(18, 0, TilePayload()), MakeDataBlock(3, 1, Type1Record1080p()),
                                     MakeDataBlock(4, 0, Type2Record720p()) }),
                              121);
}

// A detailed timing of 1920 x 1080 at 148.5 MHz.
inline CBytes Detailed1080p() { return ParseBytes("02 3A 80 18 71 38 2D 40 58 2C 45 00 09 25 21 00 00 1E"); }

// A base block of version 1.4 with one detailed timing, 1920 x 1080 at 148.5 MHz, and these extension blocks.
inline CBytes MakeEdid(const std::vector<CBytes>& aoBlocks)
{
    CBytes aui8Edid = Join({ ParseBytes("00 FF*6 00 06 10 01 00 01 00*3 01 1E 01 04 B5 34 1D 78 02 ..38 01*16"),
                             Detailed1080p(), ParseBytes("00*3 10 ..21 10 ..39 10 ..56") }); // empty descriptors
    aui8Edid[126] = static_cast<unsigned char>(aoBlocks.size());
    FixBlockSum(aui8Edid, 0);
    for (const CBytes& aui8Block : aoBlocks)
    {
        Append(aui8Edid, aui8Block);
    }
    return aui8Edid;
}

// A CTA-861 block of revision 3 with two codes, 16 (native) and 4, and one detailed timing, 1920 x 1080 at 148.5 MHz.
inline CBytes MakeCeaBlock()
{
    return FixChecksums(Join({ ParseBytes("02 03 07 00 42 90 04"), Detailed1080p(), CBytes(103) }));
}

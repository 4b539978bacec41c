// Makes DisplayID extension blocks, and EDIDs around them, with right checksums.

#pragma once

#include <vector>

#include "TestBytes.h"

// A block of 128 bytes around these data blocks. Both checksums are right where the section leaves room for its own.
inline CBytes MakeDisplayIdBlock(const CBytes& aui8DataBlocks, unsigned int uiSectionLength,
                                 unsigned int uiRevision = 0x12)
{
    CBytes aui8Block = { 0x70, static_cast<unsigned char>(uiRevision), static_cast<unsigned char>(uiSectionLength), 0,
                         0 };
    Append(aui8Block, aui8DataBlocks);
    aui8Block.resize(128);
    if (5 + uiSectionLength <= 126)
    {
        FixSum(aui8Block, 1, 5 + uiSectionLength);
    }
    FixSum(aui8Block, 0, 127);
    return aui8Block;
}

inline CBytes MakeDisplayIdBlock(const CBytes& aui8DataBlocks)
{
    return MakeDisplayIdBlock(aui8DataBlocks, static_cast<unsigned int>(aui8DataBlocks.size()));
}

// One data block: header and payload.
inline CBytes MakeDataBlock(unsigned int uiTag, unsigned int uiRevision, const CBytes& aui8Payload)
{
    CBytes aui8Block = { static_cast<unsigned char>(uiTag), static_cast<unsigned char>(uiRevision),
                         static_cast<unsigned char>(aui8Payload.size()) };
    Append(aui8Block, aui8Payload);
    return aui8Block;
}

// 1920 x 1080 at 60 Hz, 148.5 MHz: blanking 280 with 88, 44, 148 and 45 with 4, 5, 36, both syncs positive.
inline CBytes Type1Record1080p()
{
    return { 0x01, 0x3A, 0x00, 0x00, 0x7F, 0x07, 0x17, 0x01, 0x57, 0x80,
             0x2B, 0x00, 0x37, 0x04, 0x2C, 0x00, 0x03, 0x80, 0x04, 0x00 };
}

// 1280 x 720 at 60 Hz, 74.25 MHz: blanking 368 with 112, 40, 216 and 30 with 5, 5, 20, horizontal sync positive.
inline CBytes Type2Record720p() { return { 0x00, 0x1D, 0x00, 0x08, 0x9F, 0x5A, 0xD4, 0xCF, 0x02, 0x1D, 0x44 }; }

// Two tiles across and two down, this one at location 1, 0; 1920 by 1080 each.
inline CBytes TilePayload()
{
    CBytes aui8Payload = { 0x82, 0x11, 0x10, 0x00, 0x7F, 0x07, 0x37, 0x04 };
    aui8Payload.resize(22);
    return aui8Payload;
}

// A tile, a Type I and a Type II timing: a block with everything that is understood.
inline CBytes MakeFullDisplayIdBlock()
{
    CBytes aui8Blocks = MakeDataBlock(18, 0, TilePayload());
    Append(aui8Blocks, MakeDataBlock(3, 1, Type1Record1080p()));
    Append(aui8Blocks, MakeDataBlock(4, 0, Type2Record720p()));
    return MakeDisplayIdBlock(aui8Blocks, 121);
}

// A detailed timing of 1920 x 1080 at 148.5 MHz.
inline CBytes Detailed1080p()
{
    return {
        0x02, 0x3A, 0x80, 0x18, 0x71, 0x38, 0x2D, 0x40, 0x58, 0x2C, 0x45, 0x00, 0x09, 0x25, 0x21, 0x00, 0x00, 0x1E
    };
}

// A base block of version 1.4 with one detailed timing, 1920 x 1080 at 148.5 MHz, and these extension blocks.
inline CBytes MakeEdid(const std::vector<CBytes>& aoBlocks)
{
    CBytes aui8Edid = { 0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x06, 0x10, 0x01, 0x00, 0x01,
                        0x00, 0x00, 0x00, 0x01, 0x1E, 0x01, 0x04, 0xB5, 0x34, 0x1D, 0x78, 0x02 };
    aui8Edid.resize(38);
    aui8Edid.resize(54, 0x01); // no standard timings
    Append(aui8Edid, Detailed1080p());
    for (size_t i = 0; i < 3; ++i)
    {
        Append(aui8Edid, { 0x00, 0x00, 0x00, 0x10 }); // an empty display descriptor
        aui8Edid.resize(aui8Edid.size() + 14);
    }
    aui8Edid.resize(gsc_uiBlockSize);
    aui8Edid[126] = static_cast<unsigned char>(aoBlocks.size());
    FixBlockSum(aui8Edid, 0);
    for (const CBytes& aui8Block : aoBlocks)
    {
        Append(aui8Edid, aui8Block);
    }
    return aui8Edid;
}

// A CEA-861 block of revision 3 with two codes, 16 (native) and 4, and one detailed timing, 1920 x 1080 at 148.5 MHz.
inline CBytes MakeCeaBlock()
{
    CBytes aui8Block = Join({ { 0x02, 0x03, 0x07, 0x00, 0x42, 0x90, 0x04 }, Detailed1080p() });
    aui8Block.resize(gsc_uiBlockSize);
    return FixChecksums(aui8Block);
}

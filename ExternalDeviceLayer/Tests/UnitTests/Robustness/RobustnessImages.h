// Images for the robustness tests, and the one with all block types.

#pragma once

#include <stddef.h>

#include "CEdidTestImages.h"
#include "DisplayIdImages.h"
#include "OsServices.h"

using CImage = CBytes;

inline constexpr size_t gsc_uiBlockSize = 128;

// Assertion lines are the normal answer to damaged bytes, and there are many of them.
class CQuietMessages
{
public:
    CQuietMessages() { OsServices::SetMsgLevel(0, 0, 0); }
    ~CQuietMessages() { OsServices::SetMsgLevel(1, 1, 0); }
    CQuietMessages(const CQuietMessages&) = delete;
    CQuietMessages& operator=(const CQuietMessages&) = delete;
};

inline void FixBlockSum(CImage& aui8Image, size_t uiBlock)
{
    FixSum(aui8Image, uiBlock * gsc_uiBlockSize, (uiBlock + 1) * gsc_uiBlockSize - 1);
}

inline CImage ToImage(const SEdidImage& aui8Image) { return CImage(aui8Image.begin(), aui8Image.end()); }

// An image of the self-check with a CEA-861 block (audio, speakers, HDMI codes), and a DisplayID block behind it.
inline CImage MakeImageWithAllBlocks()
{
    CImage aui8Image = ToImage(ExtStandard2::g_auiStandard2EdidData);
    Append(aui8Image, MakeFullDisplayIdBlock());
    aui8Image[126] = 2;
    FixBlockSum(aui8Image, 0);
    return aui8Image;
}

// Loading CTA-861 blocks and comparing their lists, for the tests of this folder.

#pragma once

#include <memory>

#include "BlockLists.h"
#include "CaseFile.h"

// Completes a block that is given up to its last byte that is not zero.
inline CBytes CompleteBlock(CBytes aui8Block)
{
    aui8Block.resize(gsc_uiBlockSize);
    return FixChecksums(aui8Block);
}

inline std::unique_ptr<CEdidExtBlockCEA861> LoadBlock(const CBytes& aui8Block, unsigned int uiStripFlags = 0)
{
    return std::make_unique<CEdidExtBlockCEA861>(static_cast<unsigned int>(aui8Block.size()),
                                                 CopyToHeap(aui8Block).get(), uiStripFlags);
}

inline CEdidExtBlockCEA861::SAudioDescriptor MakeAudio(unsigned int uiFormat, unsigned int uiChannels,
                                                       unsigned int uiRates, unsigned int uiExtra)
{
    return { static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiFormat), uiChannels,
             static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(uiRates), uiExtra };
}

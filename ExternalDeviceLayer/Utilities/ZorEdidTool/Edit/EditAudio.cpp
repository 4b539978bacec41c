// Edits of audio descriptors and speaker data blocks of an image under edit.

#include "EditImage.h"
#include "Standards/AudioBlocks.h"

namespace
{
constexpr const char* gsc_pszCutAudio = " is damaged: an audio data block is cut within a descriptor";

constexpr ZorStandards::Cta::SDataBlockKind gsc_oAudioBlocks = { CEdidExtBlockCEA861::eCea861Tag_Audio, false };

bool IsAudioCut(const CEdidExtBlockCEA861& oCea)
{
    ZorStandards::Cta::CDataBlockWalk oWalk = WalkDataBlocks(oCea);
    bool bCut = false;
    while (!bCut && oWalk.Next(gsc_oAudioBlocks))
    {
        bCut = oWalk.GetLength() % ZorStandards::Audio::gsc_uiDescriptorSize != 0;
    }
    return bCut;
}

// Where the next descriptor goes when the first audio data block has room for it.
unsigned int CountFirstAudios(const CEdidExtBlockCEA861& oCea)
{
    ZorStandards::Cta::CDataBlockWalk oWalk = WalkDataBlocks(oCea);
    return oWalk.Next(gsc_oAudioBlocks) ? oWalk.GetLength() / ZorStandards::Audio::gsc_uiDescriptorSize : 0;
}
} // namespace

// ---- Audio ----

// A new descriptor goes after those of the first audio data block, or into a block of its own after all others.
std::string CEditImage::AddAudio(const CAudio& oAudio)
{
    if (oAudio.m_uiChannels < 2)
    {
        return "the library takes 2 to 8 channels";
    }
    return EditFirst([&](SEditedBlock& oBlock) {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        const unsigned int uiFirst = CountFirstAudios(*poCea);
        const unsigned int uiCount = poCea->GetAudioDescriptorCount();
        std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
            return IsAudioCut(oCea)                        ? NameBlock(oBlock) + gsc_pszCutAudio
                   : oCea.AddAudioDescriptor(&oAudio) == 0 ? NameBlock(oBlock) + " has no room"
                                                           : "";
        });
        if (sReason.empty())
        {
            const unsigned int uiPlace = CountFirstAudios(*poCea) > uiFirst ? uiFirst : uiCount;
            oBlock.m_aiAudios.insert(oBlock.m_aiAudios.begin() + uiPlace, -1);
            oBlock.m_oEdits.m_aoAudioAdded.push_back(oAudio);
        }
        return sReason;
    });
}

std::string CEditImage::SetAudio(unsigned int uiNumber, const CAudio& oAudio)
{
    const SPlace oPlace = Find(&SEditedBlock::m_uiAudios, uiNumber);
    if (oPlace.m_poBlock == nullptr)
    {
        return NameRange(&SEditedBlock::m_uiAudios, "audio descriptors");
    }
    if (oAudio.m_uiChannels < 2)
    {
        return "the library takes 2 to 8 channels";
    }
    SEditedBlock& oBlock = *oPlace.m_poBlock;
    unsigned int uiPlace = 0;
    if (!FindPresent(oBlock.m_aiAudios, oPlace.m_uiNumber, uiPlace))
    {
        return "an earlier edit has removed it";
    }
    std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
        return std::string(oCea.SetAudioDescriptor(uiPlace, &oAudio) != 0 ? "" : "the library refuses it");
    });
    if (sReason.empty())
    {
        oBlock.m_oEdits.m_oAudioSet[oPlace.m_uiNumber] = oAudio;
    }
    return sReason;
}

std::string CEditImage::RemoveAudio(unsigned int uiNumber)
{
    const SPlace oPlace = Find(&SEditedBlock::m_uiAudios, uiNumber);
    if (oPlace.m_poBlock == nullptr)
    {
        return NameRange(&SEditedBlock::m_uiAudios, "audio descriptors");
    }
    SEditedBlock& oBlock = *oPlace.m_poBlock;
    unsigned int uiPlace = 0;
    if (!FindPresent(oBlock.m_aiAudios, oPlace.m_uiNumber, uiPlace))
    {
        return "";
    }
    std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
        return IsAudioCut(oCea)                           ? NameBlock(oBlock) + gsc_pszCutAudio
               : oCea.RemoveAudioDescriptor(uiPlace) == 0 ? "the library refuses it"
                                                          : "";
    });
    if (sReason.empty())
    {
        oBlock.m_aiAudios.erase(oBlock.m_aiAudios.begin() + uiPlace);
        oBlock.m_oEdits.m_oAudioSet.erase(oPlace.m_uiNumber);
        oBlock.m_oEdits.m_oAudioRemoved.insert(oPlace.m_uiNumber);
    }
    return sReason;
}

// ---- Speakers ----

std::string CEditImage::SetSpeakers(unsigned int uiMask)
{
    if (uiMask == 0)
    {
        return RemoveSpeakers();
    }
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        if (poCea != nullptr && poCea->GetSpeakerDescriptorCount() != 0)
        {
            return SetSpeakersOf(oBlock, uiMask);
        }
    }
    return EditFirst([&](SEditedBlock& oBlock) { return SetSpeakersOf(oBlock, uiMask); });
}

std::string CEditImage::SetSpeakersOf(SEditedBlock& oBlock, unsigned int uiMask)
{
    const bool bHasOne = GetCea(oBlock)->GetSpeakerDescriptorCount() != 0;
    std::string sReason = EditCea(oBlock, [&](CEdidExtBlockCEA861& oCea) {
        const int iDone = bHasOne ? oCea.SetSpeakerDescriptorKeepingRest(0, uiMask) : oCea.AddSpeakerDescriptor(uiMask);
        return iDone != 0
                   ? ""
                   : NameBlock(oBlock) + (bHasOne ? " has a speaker data block that is too short" : " has no room");
    });
    if (sReason.empty())
    {
        SBlockEdits& oEdits = oBlock.m_oEdits;
        oEdits.m_bSpeakers = true;
        oEdits.m_bSpeakersAdded = oEdits.m_bSpeakersAdded || !bHasOne;
        oEdits.m_uiSpeakers = uiMask;
    }
    return sReason;
}

std::string CEditImage::RemoveSpeakers()
{
    for (SEditedBlock& oBlock : m_aoBlocks)
    {
        const CEdidExtBlockCEA861* poCea = GetCea(oBlock);
        if (poCea == nullptr || poCea->GetSpeakerDescriptorCount() == 0)
        {
            continue;
        }
        std::string sReason = EditCea(oBlock, [](CEdidExtBlockCEA861& oCea) {
            while (oCea.GetSpeakerDescriptorCount() != 0)
            {
                if (oCea.RemoveSpeakerDescriptor(0) == 0)
                {
                    return std::string("the library refuses it");
                }
            }
            return std::string();
        });
        if (!sReason.empty())
        {
            return sReason;
        }
        oBlock.m_oEdits.m_bSpeakers = true;
        oBlock.m_oEdits.m_bReadSpeakersGone = true;
        oBlock.m_oEdits.m_uiSpeakers = 0;
    }
    return "";
}

// Suite 10: short audio descriptors read, changed, added and removed, each time with the bytes of the whole EDID
// compared: where a new data block goes, when a block grows, what becomes of the flags and of the detailed timings.

#include "CEdidTestSuites.h"
#include "Edid.h"
#include "EdidExtBlockCEA861.h"

namespace
{
using SAudioDescriptor = CEdidExtBlockCEA861::SAudioDescriptor;

constexpr unsigned int gsc_uiExtensionTypeCea861 = 2;

constexpr SAudioDescriptor MakeDescriptor(unsigned int uiFormat, unsigned int uiChannels, unsigned int uiFrequencies,
                                          unsigned int uiExtra)
{
    return { static_cast<CEdidExtBlockCEA861::EAudioFormat>(uiFormat), uiChannels,
             static_cast<CEdidExtBlockCEA861::EAudioSamplingFreq>(uiFrequencies), uiExtra };
}

// Loads the image and gives its one block, with this many audio descriptors; null, and one line, when a step does not
// hold.
CEdidExtBlockCEA861* LoadAudioBlock(CEdid& oEdid, const SEdidImage& aui8Image, unsigned int uiCount)
{
    if (LoadCopy(oEdid, aui8Image) == 0)
    {
        MASSERT_FAILED();
        return nullptr;
    }
    if (oEdid.GetExtensionCount() != 1 || oEdid.GetExtension(0) == nullptr ||
        oEdid.GetExtension(0)->GetExtensionType() != gsc_uiExtensionTypeCea861)
    {
        MASSERT_FAILED();
        return nullptr;
    }
    CEdidExtBlockCEA861* const poBlock = static_cast<CEdidExtBlockCEA861*>(oEdid.GetExtension(0));
    if (poBlock->GetAudioDescriptorCount() != uiCount)
    {
        MASSERT_FAILED();
        return nullptr;
    }
    return poBlock;
}

// Format, channels and frequencies; the extra byte is left out.
bool IsSameKind(const SAudioDescriptor& oOne, const SAudioDescriptor& oOther)
{
    return oOne.m_eFormat == oOther.m_eFormat && oOne.m_uiChannels == oOther.m_uiChannels &&
           oOne.m_eSamplingFreq == oOther.m_eSamplingFreq;
}

int CheckKind(const CEdidExtBlockCEA861& oBlock, unsigned int uiIndex, const SAudioDescriptor& oExpected)
{
    SAudioDescriptor oDescriptor = {};
    MTEST_STEP(oBlock.GetAudioDescriptor(uiIndex, &oDescriptor));
    MTEST_STEP(IsSameKind(oDescriptor, oExpected));
    return 1;
}

// All four fields.
int CheckDescriptor(const CEdidExtBlockCEA861& oBlock, unsigned int uiIndex, const SAudioDescriptor& oExpected)
{
    SAudioDescriptor oDescriptor = {};
    MTEST_STEP(oBlock.GetAudioDescriptor(uiIndex, &oDescriptor));
    MTEST_STEP(IsSameKind(oDescriptor, oExpected) && oDescriptor.m_uiExtra == oExpected.m_uiExtra);
    return 1;
}

int Test_Audio_Filter(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8OneBlock, 1);
    MTEST_PASS_ON(poBlock != nullptr);
    SAudioDescriptor oRead = {};
    MTEST_STEP(poBlock->GetAudioDescriptor(0, &oRead));
    MTEST_STEP(IsSameKind(oRead, MakeDescriptor(1, 2, 7, 0)));
    const SAudioDescriptor oFiltered = MakeDescriptor(1, 2, 3, oRead.m_uiExtra);
    MTEST_STEP(poBlock->SetAudioDescriptor(0, &oFiltered));
    MTEST_PASS_ON(CheckDescriptor(*poBlock, 0, oFiltered));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8Filtered->data()));
    return 1;
}

int Test_Audio_Add(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8NoBlock, 0);
    MTEST_PASS_ON(poBlock != nullptr);
    const SAudioDescriptor oAdded = MakeDescriptor(1, 2, 7, 7);
    MTEST_STEP(poBlock->AddAudioDescriptor(&oAdded));
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 1);
    MTEST_PASS_ON(CheckDescriptor(*poBlock, 0, oAdded));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8Added->data()));
    return 1;
}

// One byte is free until the last detailed timing goes.
int Test_Audio_Add_Not_Enough_Space(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8Full, 0);
    MTEST_PASS_ON(poBlock != nullptr);
    MTEST_STEP(poBlock->GetAvailableSpace() == 1);
    MTEST_STEP(poBlock->GetDetailedCount() == 5);
    MTEST_STEP(poBlock->RemoveDetailed(4));
    MTEST_STEP(poBlock->GetAvailableSpace() == 1 + gsc_uiDescriptorSize);
    const SAudioDescriptor oAdded = MakeDescriptor(1, 2, 7, 7);
    MTEST_STEP(poBlock->AddAudioDescriptor(&oAdded));
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 1);
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8FullAdded->data()));
    return 1;
}

int Test_Audio_2Blocks(const SAudioData& oData)
{
    CEdid oEdid;
    const CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8TwoDescriptors, 2);
    MTEST_PASS_ON(poBlock != nullptr);
    MTEST_PASS_ON(CheckDescriptor(*poBlock, 0, MakeDescriptor(2, 6, 7, 80)));
    MTEST_PASS_ON(CheckDescriptor(*poBlock, 1, MakeDescriptor(1, 2, 87, 7)));
    return 1;
}

// A descriptor of another format joins the block that is there.
int Test_Audio_AddAudioBlock(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8OneBlock, 1);
    MTEST_PASS_ON(poBlock != nullptr);
    MTEST_PASS_ON(CheckKind(*poBlock, 0, MakeDescriptor(1, 2, 7, 0)));
    const SAudioDescriptor oAdded = MakeDescriptor(2, 2, 7, 0);
    poBlock->AddAudioDescriptor(&oAdded); // judged by what follows, not by its result
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 2);
    MTEST_PASS_ON(CheckKind(*poBlock, 0, MakeDescriptor(1, 2, 7, 0)));
    MTEST_PASS_ON(CheckKind(*poBlock, 1, oAdded));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8AddBlock->data()));
    return 1;
}

// The last descriptor takes its data block with it.
int Test_Audio_RemoveLastAudioBlock(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8OneBlock, 1);
    MTEST_PASS_ON(poBlock != nullptr);
    MTEST_STEP(poBlock->RemoveAudioDescriptor(0));
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 0);
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8Removed->data()));
    return 1;
}

// A data block of ten is full: the eleventh descriptor opens a new one.
int Test_Audio_10blocksPresents(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8Ten, 10);
    MTEST_PASS_ON(poBlock != nullptr);
    const SAudioDescriptor oAdded = MakeDescriptor(11, 2, 7, 0);
    MTEST_STEP(poBlock->AddAudioDescriptor(&oAdded));
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 11);
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8Eleven->data()));
    return 1;
}

int Test_Audio_Add2(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8OneBlock, 1);
    MTEST_PASS_ON(poBlock != nullptr);
    const SAudioDescriptor oAdded = MakeDescriptor(11, 2, 7, 0);
    MTEST_STEP(poBlock->AddAudioDescriptor(&oAdded));
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 2);
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8Add2->data()));
    return 1;
}

// A change in place moves nothing.
int Test_Audio_Set(const SAudioData& oData)
{
    CEdid oEdid;
    CEdidExtBlockCEA861* const poBlock = LoadAudioBlock(oEdid, *oData.m_paui8Add2, 2);
    MTEST_PASS_ON(poBlock != nullptr);
    MTEST_PASS_ON(CheckKind(*poBlock, 1, MakeDescriptor(11, 2, 7, 0)));
    const SAudioDescriptor oSet = MakeDescriptor(2, 2, 3, 0);
    MTEST_STEP(poBlock->SetAudioDescriptor(1, &oSet));
    MTEST_STEP(poBlock->GetAudioDescriptorCount() == 2);
    MTEST_PASS_ON(CheckKind(*poBlock, 1, oSet));
    MTEST_STEP(CompareRawData(oEdid, 256, oData.m_paui8Set->data()));
    return 1;
}
} // namespace

SAudioData GetAudioData()
{
    SAudioData oData = {};
    oData.m_paui8OneBlock = &Audio::g_auiAudioOneBlockEdidData;
    oData.m_paui8NoBlock = &Audio::g_auiAudioNoBlockEdidData;
    oData.m_paui8Full = &Audio::g_auiAudioFullEdidData;
    oData.m_paui8TwoDescriptors = &Audio::g_auiAudioTwoDescriptorsEdidData;
    oData.m_paui8Ten = &Audio::g_auiAudioTenEdidData;
    oData.m_paui8Filtered = &Audio::g_auiAudioFilteredEdidData;
    oData.m_paui8Added = &Audio::g_auiAudioAddedEdidData;
    oData.m_paui8FullAdded = &Audio::g_auiAudioFullAddedEdidData;
    oData.m_paui8AddBlock = &Audio::g_auiAudioAddBlockEdidData;
    oData.m_paui8Removed = &Audio::g_auiAudioRemovedEdidData;
    oData.m_paui8Eleven = &Audio::g_auiAudioElevenEdidData;
    oData.m_paui8Add2 = &Audio::g_auiAudioAdd2EdidData;
    oData.m_paui8Set = &Audio::g_auiAudioSetEdidData;
    return oData;
}

int RunAudio(const SAudioData& oData)
{
    MTEST_STEP(Test_Audio_Filter(oData));
    MTEST_STEP(Test_Audio_Add(oData));
    MTEST_STEP(Test_Audio_Add_Not_Enough_Space(oData));
    MTEST_STEP(Test_Audio_2Blocks(oData));
    MTEST_STEP(Test_Audio_AddAudioBlock(oData));
    MTEST_STEP(Test_Audio_RemoveLastAudioBlock(oData));
    MTEST_STEP(Test_Audio_10blocksPresents(oData));
    MTEST_STEP(Test_Audio_Add2(oData));
    MTEST_STEP(Test_Audio_Set(oData));
    return 1;
}

int Test_Audio() { return RunAudio(GetAudioData()); }

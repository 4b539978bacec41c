// The library as the suites of the self-check see it in this test: each answer passes through CFault, which can make
// one of them wrong. This header goes ahead of each source (see CMakeLists.txt), and its last lines put the classes
// below in the place of the library's.

#pragma once

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "EdidUtils.h"
#include "VidParamCea.h"
#include "ZorEdidUtils.h"

// Counts the parts of all answers: a result, and what a call that succeeds writes for its caller.
class CFault
{
public:
    static constexpr unsigned int msc_uiNone = ~0U;

    // The part of this number will be wrong.
    static void Choose(unsigned int uiPart)
    {
        ms_uiChosen = uiPart;
        ms_uiCount = 0;
    }
    static unsigned int GetCount() { return ms_uiCount; }
    static std::string GetName() { return ms_sName; } // of the last part that was wrong

    // Whether the part that is about to be given is the chosen one.
    static bool IsNext(const char* pszCall, const char* pszPart)
    {
        const bool bChosen = ms_uiCount++ == ms_uiChosen;
        ms_sName = bChosen ? std::string(pszCall) + ": " + pszPart : ms_sName;
        return bChosen;
    }

    template <class VALUE>
    static VALUE Change(const char* pszCall, const char* pszPart, VALUE& oValue, int iMask = 1)
    {
        return oValue = static_cast<VALUE>(oValue ^ (IsNext(pszCall, pszPart) ? iMask : 0));
    }

    static int Result(const char* pszCall, int iResult)
    {
        return IsNext(pszCall, "result") ? static_cast<int>(iResult == 0) : iResult;
    }
    static unsigned int Result(const char* pszCall, unsigned int uiCount) { return Change(pszCall, "count", uiCount); }

    // What stands behind an argument: nothing behind those that only lead into the call.
    template <class ARGUMENT, class = std::enable_if_t<!std::is_convertible_v<ARGUMENT, CVidParamTiming*> ||
                                                       std::is_null_pointer_v<ARGUMENT>>>
    static void Output(const char* /*pszCall*/, const ARGUMENT& /*oArgument*/)
    {
    }
    static void Output(const char* pszCall, int* piNative) { Change(pszCall, "native", *piNative); }
    static void Output(const char* pszCall, char* pszText) { Change(pszCall, "text", *pszText); }
    static void Output(const char* pszCall, CEdidBase::EColorBitDepth& eDepth) { Change(pszCall, "depth", eDepth); }
    static void Output(const char* pszCall, CVidParamTiming* poTiming)
    {
        poTiming->SetHorizontalActive(poTiming->GetHorizontalActive() + (IsNext(pszCall, "timing") ? 8 : 0));
    }
    static void Output(const char* pszCall, CEdidExtBlockCEA861::SAudioDescriptor* poDescriptor)
    {
        Change(pszCall, "format", poDescriptor->m_eFormat);
        Change(pszCall, "channels", poDescriptor->m_uiChannels);
        Change(pszCall, "frequencies", poDescriptor->m_eSamplingFreq);
        Change(pszCall, "extra", poDescriptor->m_uiExtra);
    }

private:
    inline static constinit unsigned int ms_uiChosen = msc_uiNone;
    inline static constinit unsigned int ms_uiCount = 0;
    inline static std::string ms_sName;
};

// A member that asks the library by REAL and gives its answer through CFault. The assertion takes the semicolon.
#define ZOR_FAULTY(BEFORE, REAL, NAME, BEHIND)                                                                         \
    template <class... ARGUMENTS>                                                                                      \
    BEFORE auto NAME(ARGUMENTS&&... oArguments) BEHIND                                                                 \
    {                                                                                                                  \
        const auto oResult = REAL NAME(std::forward<ARGUMENTS>(oArguments)...);                                        \
        if (oResult != 0)                                                                                              \
        {                                                                                                              \
            (CFault::Output(#NAME, std::forward<ARGUMENTS>(oArguments)), ...);                                         \
        }                                                                                                              \
        return CFault::Result(#NAME, oResult);                                                                         \
    }                                                                                                                  \
    static_assert(true)
#define ZOR_STATIC(CLASS, NAME) ZOR_FAULTY(static, CLASS::, NAME, )
#define ZOR_ASK(NAME) ZOR_FAULTY(, CEdid::, NAME, const)
#define ZOR_EDIT(NAME) ZOR_FAULTY(, CEdid::, NAME, )
#define ZOR_BLOCK(NAME) ZOR_FAULTY(, m_poReal->, NAME, const)

// clang-format off
class CFaultyBlock
{
public:
    using EAudioFormat = CEdidExtBlockCEA861::EAudioFormat;
    using EAudioSamplingFreq = CEdidExtBlockCEA861::EAudioSamplingFreq;
    using SAudioDescriptor = CEdidExtBlockCEA861::SAudioDescriptor;

    ZOR_BLOCK(GetExtensionType); ZOR_BLOCK(GetDetailedCount); ZOR_BLOCK(RemoveDetailed); ZOR_BLOCK(GetAvailableSpace);
    ZOR_BLOCK(GetAudioDescriptorCount); ZOR_BLOCK(GetAudioDescriptor); ZOR_BLOCK(SetAudioDescriptor);
    ZOR_BLOCK(AddAudioDescriptor); ZOR_BLOCK(RemoveAudioDescriptor); ZOR_BLOCK(SetColorBitDepthSupport);
    int GetColorBitDepthSupport(unsigned int& uiBits) const
    {
        const int bResult = m_poReal->GetColorBitDepthSupport(uiBits);
        CFault::Change("GetColorBitDepthSupport", "bits", uiBits);
        return CFault::Result("GetColorBitDepthSupport", bResult);
    }

    CEdidExtBlockCEA861* m_poReal = nullptr;
};

// The members of the base block that are called by its name.
class CFaultyBase : public CEdid
{
public:
    ZOR_STATIC(CEdidBase, GetEdidSizeFromData);
    ZOR_FAULTY(, CEdidBase::, GetDetailed, const); ZOR_FAULTY(, CEdidBase::, SetPreferredMode, );
};

class CFaultyEdid : public CFaultyBase
{
public:
    ZOR_EDIT(ClearEdidBuffer); ZOR_EDIT(SetEdidBuffer); ZOR_ASK(GetSize); ZOR_ASK(IsChecksumValid);
    ZOR_ASK(GetMonitorID); ZOR_ASK(GetManufacturerName); ZOR_ASK(GetMonitorName); ZOR_ASK(GetMonitorString);
    ZOR_ASK(GetMonitorSerialNumber); ZOR_ASK(GetColorBitDepth); ZOR_EDIT(SetColorBitDepth);
    ZOR_ASK(GetEstablishedCount); ZOR_ASK(GetEstablished); ZOR_ASK(GetExtraStdTiming); ZOR_ASK(GetExtensionCount);
    ZOR_ASK(GetBaseStandardCount); ZOR_ASK(GetBaseStandard); ZOR_ASK(GetBaseDetailedCount);
    ZOR_ASK(GetStandardCount); ZOR_ASK(GetStandard); ZOR_EDIT(RemoveStandard);
    ZOR_ASK(GetDetailedCount); ZOR_ASK(GetDetailed); ZOR_EDIT(RemoveDetailed);
    // clang-format on

    // Parts: the lowest and the highest bit of each byte, with the checksum right, and all bits at once.
    const unsigned char* GetBaseBlock() const
    {
        std::copy_n(CEdid::GetBaseBlock(), 128, m_aui8Base);
        for (unsigned int i = 0; i < 2 * 127; ++i)
        {
            const unsigned char ui8Old = m_aui8Base[i / 2];
            CFault::Change("GetBaseBlock", "bit", m_aui8Base[i / 2], i % 2 == 0 ? 0x01 : 0x80);
            m_aui8Base[127] = static_cast<unsigned char>(m_aui8Base[127] + ui8Old - m_aui8Base[i / 2]);
        }
        const unsigned char ui8Mask = CFault::IsNext("GetBaseBlock", "all bits") ? 0xFF : 0;
        std::for_each(m_aui8Base, m_aui8Base + 128, [&](unsigned char& ui8Byte) { ui8Byte ^= ui8Mask; });
        return m_aui8Base;
    }

    // Parts: the bytes at both ends of both blocks.
    CMArray<unsigned char, const unsigned char&> GetEdidBuffer() const
    {
        CMArray<unsigned char, const unsigned char&> aui8Data = CEdid::GetEdidBuffer();
        for (int iOffset : { 0, 127, 128, 255 })
        {
            CFault::Change("GetEdidBuffer", "byte", aui8Data[iOffset]);
        }
        return aui8Data;
    }

    // A block that is missing stays so.
    CFaultyBlock* GetExtension(unsigned int uiIndex)
    {
        m_bMissing = m_bMissing || (m_oBlock.m_poReal == nullptr && CFault::IsNext("GetExtension", "result"));
        m_oBlock.m_poReal = static_cast<CEdidExtBlockCEA861*>(CEdid::GetExtension(uiIndex));
        return m_bMissing ? nullptr : &m_oBlock;
    }

private:
    mutable unsigned char m_aui8Base[128] = {};
    CFaultyBlock m_oBlock = {};
    bool m_bMissing = false;
};

struct SFaultyEdidUtils
{
    ZOR_STATIC(CEdidUtils, Is8BitsChecksumValid);
};

struct SFaultyCea : CVidParamCea
{
    ZOR_STATIC(CVidParamCea, GetVidParam);
};

struct SFaultyTools
{
    // The suite compares the preferred modes and leaves the established timings out.
    static int CompareTimings(const CEdid& oFirst, const CEdid& oSecond, int bEstablished, int bPreferred)
    {
        const int bSame = CZorEdidUtils::CompareTimings(oFirst, oSecond, bEstablished, bPreferred);
        return CFault::Result("CompareTimings", bSame != 0 && bEstablished == 0 && bPreferred != 0);
    }
};

#define CEdid CFaultyEdid
#define CEdidBase CFaultyBase
#define CEdidExtBlock CFaultyBlock
#define CEdidExtBlockCEA861 CFaultyBlock
#define CEdidUtils SFaultyEdidUtils
#define CVidParamCea SFaultyCea
#define CZorEdidUtils SFaultyTools

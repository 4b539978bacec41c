// The library as the suites of the self-check see it in this test: each answer passes through SFault, which can make
// one of them wrong. This header is included before each source (see CMakeLists.txt), and its last lines let the
// classes below replace the library's.

#pragma once

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

#include "Edid.h"
#include "EdidExtBlockCEA861.h"
#include "EdidUtils.h"
#include "TestBytes.h" // works on the library
#include "VidParamCea.h"
#include "ZorEdidUtils.h"

// Counts the parts of all answers: a result, and what a call that succeeds writes for its caller. One can be wrong.
struct SFault
{
    inline static constinit unsigned int ms_uiChosen = 0, ms_uiCount = 0;
    inline static std::string ms_sName; // of the part that was wrong

    static bool IsNext(const char* pszCall, const char* pszPart)
    {
        const bool bIsChosen = ms_uiCount++ == ms_uiChosen;
        ms_sName = bIsChosen ? std::string(pszCall) + ": " + pszPart : ms_sName;
        return bIsChosen;
    }

    static void Change(const char* pszCall, const char* pszPart, auto& oValue, int iMask = 1)
    {
        oValue = static_cast<std::decay_t<decltype(oValue)>>(oValue ^ (IsNext(pszCall, pszPart) ? iMask : 0));
    }

    static auto Give(const char* pszCall, auto oResult, auto&&... oArguments)
    {
        if (oResult != 0)
        {
            (Output(pszCall, std::forward<decltype(oArguments)>(oArguments)), ...);
        }
        return IsNext(pszCall, "result") ? static_cast<decltype(oResult)>(oResult ^ 1) : oResult;
    }

    // What follows an argument: nothing after those that only lead into the call.
    template <class ARGUMENT, class = std::enable_if_t<!std::is_convertible_v<ARGUMENT, CVidParamTiming*>>>
    static void Output(const char*, const ARGUMENT&)
    {
    }
    static void Output(const char*, std::nullptr_t) {}
    static void Output(const char* pszCall, int* piNative) { Change(pszCall, "native", *piNative); }
    static void Output(const char* pszCall, char* pszText) { Change(pszCall, "text", *pszText); }
    static void Output(const char* pszCall, unsigned int* puiBits) { Change(pszCall, "bits", *puiBits); }
    static void Output(const char* pszCall, CEdid::EColorBitDepth& eDepth) { Change(pszCall, "depth", eDepth); }
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
};

// A member that asks the library by REAL and gives its answer through SFault.
#define ZOR_FAULTY(BEFORE, REAL, NAME, BEHIND)                                                                         \
    BEFORE auto NAME(auto&&... oArguments) BEHIND                                                                      \
    {                                                                                                                  \
        return SFault::Give(#NAME, REAL NAME(oArguments...), std::forward<decltype(oArguments)>(oArguments)...);       \
    }
#define ZOR_STATIC(CLASS, NAME) ZOR_FAULTY(static, CLASS::, NAME, )
// The same for a list of members: each scan expands one more of them.
#define ZOR_MEMBER(NAME, ...) ZOR_FAULTY(, Real()., NAME, const) __VA_OPT__(ZOR_NEXT ZOR_EMPTY()()(__VA_ARGS__))
#define ZOR_NEXT() ZOR_MEMBER
#define ZOR_EMPTY()
#define ZOR_SCAN(...) __VA_ARGS__
#define ZOR_SCAN5(...) ZOR_SCAN(ZOR_SCAN(ZOR_SCAN(ZOR_SCAN(ZOR_SCAN(__VA_ARGS__)))))
#define ZOR_MEMBERS(...) ZOR_SCAN5(ZOR_SCAN5(ZOR_SCAN5(ZOR_SCAN5(ZOR_SCAN5(ZOR_MEMBER(__VA_ARGS__))))))

struct SFaultyBlock
{
    using EAudioFormat = CEdidExtBlockCEA861::EAudioFormat;
    using EAudioSamplingFreq = CEdidExtBlockCEA861::EAudioSamplingFreq;
    using SAudioDescriptor = CEdidExtBlockCEA861::SAudioDescriptor;

    ZOR_MEMBERS(GetExtensionType, GetDetailedCount, RemoveDetailed, GetAvailableSpace, GetAudioDescriptorCount,
                GetAudioDescriptor, SetAudioDescriptor, AddAudioDescriptor, RemoveAudioDescriptor,
                SetColorBitDepthSupport)
    int GetColorBitDepthSupport(unsigned int& uiBits) const
    {
        return SFault::Give("GetColorBitDepthSupport", Real().GetColorBitDepthSupport(uiBits), &uiBits);
    }
    CEdidExtBlockCEA861& Real() const { return *m_poReal; }

    CEdidExtBlockCEA861* m_poReal = nullptr;
};

class CFaultyEdid : public CEdid
{
public:
    ZOR_MEMBERS(ClearEdidBuffer, SetEdidBuffer, GetSize, IsChecksumValid, GetMonitorID, GetManufacturerName,
                GetMonitorName, GetMonitorString, GetMonitorSerialNumber, GetColorBitDepth, SetColorBitDepth,
                GetEstablishedCount, GetEstablished, GetExtraStdTiming, GetExtensionCount, GetBaseStandardCount,
                GetBaseStandard, GetBaseDetailedCount, GetStandardCount, GetStandard, RemoveStandard, GetDetailedCount,
                GetDetailed, RemoveDetailed, SetPreferredMode)
    ZOR_STATIC(CEdid, GetEdidSizeFromData)
    CEdid& Real() const { return const_cast<CFaultyEdid&>(*this); }

    // Parts: the lowest and the highest bit of each byte, with the checksum right, and all bits at once.
    const unsigned char* GetBaseBlock() const
    {
        m_aui8Base.assign(CEdid::GetBaseBlock(), CEdid::GetBaseBlock() + 128);
        for (unsigned int i = 0; i < 2 * 127; ++i)
        {
            SFault::Change("GetBaseBlock", "bit", m_aui8Base[i / 2], i % 2 == 0 ? 0x01 : 0x80);
        }
        FixBlockSum(m_aui8Base, 0);
        const unsigned char ui8Mask = SFault::IsNext("GetBaseBlock", "all bits") ? 0xFF : 0;
        std::ranges::for_each(m_aui8Base, [=](unsigned char& ui8Byte) { ui8Byte ^= ui8Mask; });
        return m_aui8Base.data();
    }

    // Parts: the bytes at both ends of both blocks.
    CMArray<unsigned char, const unsigned char&> GetEdidBuffer() const
    {
        CMArray<unsigned char, const unsigned char&> aui8Data = CEdid::GetEdidBuffer();
        for (int iOffset : { 0, 127, 128, 255 })
        {
            SFault::Change("GetEdidBuffer", "byte", aui8Data[iOffset]);
        }
        return aui8Data;
    }

    // A block that is missing stays so.
    SFaultyBlock* GetExtension(unsigned int uiIndex)
    {
        m_bIsMissing = m_bIsMissing || (m_oBlock.m_poReal == nullptr && SFault::IsNext("GetExtension", "result"));
        m_oBlock.m_poReal = static_cast<CEdidExtBlockCEA861*>(CEdid::GetExtension(uiIndex));
        return m_bIsMissing ? nullptr : &m_oBlock;
    }

private:
    mutable CBytes m_aui8Base;
    SFaultyBlock m_oBlock = {};
    bool m_bIsMissing = false;
};

struct SFaultyTools : CVidParamCea
{
    ZOR_STATIC(CEdidUtils, Is8BitsChecksumValid)
    ZOR_STATIC(CVidParamCea, GetVidParam)
    // The suite compares the preferred modes and leaves the established timings out.
    static int CompareTimings(const CEdid& oFirst, const CEdid& oSecond, int bEstablished, int bPreferred)
    {
        const int bSame = CZorEdidUtils::CompareTimings(oFirst, oSecond, bEstablished, bPreferred);
        return SFault::Give("CompareTimings", static_cast<int>(bSame != 0 && bEstablished == 0 && bPreferred != 0));
    }
};

#define CEdid CFaultyEdid
#define CEdidBase CFaultyEdid
#define CEdidExtBlock SFaultyBlock
#define CEdidExtBlockCEA861 SFaultyBlock
#define CEdidUtils SFaultyTools
#define CVidParamCea SFaultyTools
#define CZorEdidUtils SFaultyTools

// The modes of an image: a visitor of its structures that adds an entry for each field, then what other fields say
// about the entries.

#include "ZorEdidModes.h"

#include <algorithm>

#include "FactsBlocks.h"
#include "Standards/Formulas.h"
#include "Standards/HdmiBlocks.h"
#include "Standards/Modes.h"
#include "Standards/Ouis.h"

namespace ZorFacts
{
namespace
{
using CModes = CMArray<SZorImageMode, const SZorImageMode&>;
using CReferences = CMArray<SZorModeReference, const SZorModeReference&>;
using EReason = SZorImageMode::EReason;

constexpr unsigned int gsc_uiNone = SZorImageMode::msc_uiNone;

// ---- Entries that other fields refer to by their place ----

// Indexes of CModes in the order in which references count them.
template <unsigned int MOST>
class CPlaces
{
public:
    void Add(unsigned int uiMode)
    {
        if (m_uiCount < MOST)
        {
            m_auiModes[m_uiCount++] = uiMode;
        }
    }
    unsigned int GetCount() const { return m_uiCount; }
    // gsc_uiNone for a place without a mode.
    unsigned int Get(unsigned int uiPlace) const { return uiPlace < m_uiCount ? m_auiModes[uiPlace] : gsc_uiNone; }

private:
    unsigned int m_auiModes[MOST];
    unsigned int m_uiCount = 0;
};

// What maps of 4:2:0 and 3D fields say about codes by their places: of all CTA-861 blocks, or of the data blocks of
// CTA-861 in one of a DisplayID section.
struct SVideoPlaces
{
    CPlaces<256> m_oVideo; // of short video descriptors; more than maps and references count
    SPart m_oMap420 = { { nullptr, 0 }, 0 };
    bool m_bMap420 = false;
    unsigned int m_uiStereoAll = 0;
    unsigned int m_uiStereoMask = 0; // places of m_oVideo
    bool m_bHdmi = false;
    bool m_bStereo = false;
    SPart m_oStereo = { { nullptr, 0 }, 0 };
};

// ---- Numbers ----

// What the base block says about the timings of modes that have only a size and a rate.
struct SFormula
{
    enum EKind : unsigned char
    {
        eGtf,
        eSecondaryGtf,
        eCvt
    };
    EKind m_eKind = eGtf;
    SGtfCurve m_oCurve = {};
    unsigned int m_uiSecondaryStart = 0; // kHz: the line rate from which on the secondary curve counts
};

// The formula of E-EDID 1.4 table 3.28, where the display takes any rate; before 1.4 GTF with one of its curves.
SFormula FindFormula(const CRecordBytes& oBase)
{
    using namespace BaseBlock;
    constexpr unsigned int uiRevision4 = 4;
    constexpr unsigned int uiStartUnit = 2; // kHz
    SFormula oFormula;
    const bool b4 = IsAtLeastRevision(oBase.GetData(), uiRevision4);
    if (b4 && !oBase.IsSet(gsc_oContinuousFrequency))
    {
        return oFormula;
    }
    if (const unsigned int uiLimits = FindRangeLimits(oBase.GetData()))
    {
        const unsigned char* pui8Descriptor = oBase.GetData() + uiLimits;
        const unsigned int uiFormula = gsc_oFormula.Read(pui8Descriptor);
        oFormula.m_eKind = uiFormula == gsc_uiCvtFormula && b4   ? SFormula::eCvt
                           : uiFormula == gsc_uiSecondaryFormula ? SFormula::eSecondaryGtf
                                                                 : SFormula::eGtf;
        oFormula.m_oCurve = { gsc_oSecondaryC.Read(pui8Descriptor), gsc_oSecondaryM.Read(pui8Descriptor),
                              gsc_oSecondaryK.Read(pui8Descriptor), gsc_oSecondaryJ.Read(pui8Descriptor) };
        oFormula.m_uiSecondaryStart = gsc_oSecondaryStart.Read(pui8Descriptor) * uiStartUnit;
    }
    return oFormula;
}

bool ComputeAssumed(SZorMode& oMode, const SFormula& oFormula)
{
    constexpr unsigned int uiHzPerKiloHz = 1000;
    if (oFormula.m_eKind == SFormula::eCvt)
    {
        SZorMode oCvt = oMode;
        oCvt.m_eBlanking = SZorMode::eBlanking_Standard;
        const bool bComputed = ComputeCvt(oCvt);
        oMode = bComputed ? oCvt : oMode;
        return bComputed;
    }
    if (!ComputeGtf(oMode))
    {
        return false;
    }
    const unsigned long long ullStart = 1ULL * oFormula.m_uiSecondaryStart * uiHzPerKiloHz;
    if (oFormula.m_eKind == SFormula::eSecondaryGtf && oMode.m_ullClock >= ullStart * oMode.m_oHorizontal.m_uiTotal)
    {
        ComputeGtf(oMode, oFormula.m_oCurve);
    }
    return true;
}

// ---- The visitor ----

class CModeVisitor
{
public:
    CModeVisitor(CModes& aoModes, CReferences& aoReferences) : m_aoModes(aoModes), m_aoReferences(aoReferences) {}

    void VisitBase(const SPart& oBase);
    void VisitDescriptor(const SPart& oDescriptor);
    void VisitCta(const SPart& oBlock);
    void VisitCtaData(unsigned int uiTag, const SPart& oPayload);
    void VisitDisplayId(const SPart& /*oSection*/) {}
    void VisitDisplayIdData(unsigned int uiVersion, const SPart& oData);
    void VisitCollection(const SPart& oBlocks);
    void VisitOther(unsigned int uiTag, const SPart& oBlock);

    // After the walk: what references and maps say about the entries.
    void Finish();

private:
    using Reader = bool (*)(const CRecordBytes&, SZorMode&);

    unsigned int Add(EZorEdidField eField, const SZorMode& oMode, unsigned int uiOffset, unsigned int uiBit,
                     unsigned int uiRank, SZorImageMode::ENumbers eNumbers);
    unsigned int AddRead(EZorEdidField eField, const SPart& oRecord, Reader pfnRead);
    unsigned int AddCode(EZorEdidField eField, bool (*pfnMake)(SZorMode&, unsigned int), unsigned int uiCode,
                         unsigned int uiOffset, SZorMode::EY420 eY420);
    enum EOrder : unsigned char
    {
        eOrder_HighFirst,
        eOrder_LowFirst
    };
    void AddBits(EZorEdidField eField, const SPart& oBytes, unsigned int uiFirst, unsigned int uiBits, EOrder eOrder,
                 bool (*pfnMake)(SZorMode&, unsigned int));
    void AddDetailed(const SPart& oDescriptor);
    void AddStandard(const SPart& oPair, bool bSquare);
    void AddCvtCode(const SPart& oCode);
    void AddFormat(const SPart& oFormat, bool bFraction, bool b420);
    void AddTimingCode(unsigned int uiType, const SPart& oCode, SZorMode::EY420 eY420);
    void AddTimingCodes(unsigned int uiType, unsigned int uiSize, const SPart& oCodes, SZorMode::EY420 eY420);
    void AddLongTimings(unsigned int uiTag, unsigned int uiRevision, unsigned int uiMoreBytes, const SPart& oRecords);
    void VisitVideo(const SPart& oPayload, bool bOnly420);
    void VisitFormats(const SPart& oPayload);
    void VisitHdmi(const SPart& oHdmi);
    void VisitStereo(const SPart& oFields, unsigned int uiMulti, bool bPresent);
    void AddReferences(const SPart& oBytes);

    SZorImageMode* Find(unsigned int uiMode) { return uiMode != gsc_uiNone ? &m_aoModes[uiMode] : nullptr; }
    template <class IS>
    unsigned int FindMode(IS fnIs) const;
    unsigned int FindVideoMode(unsigned int uiCode) const;
    unsigned int FindReference(unsigned int uiByte) const;
    void Prefer(unsigned int uiMode, EReason eReason);
    void Mark420();
    void MarkStereo();
    void MarkPlaces();
    void MarkNative();
    void RankPreferred();

    CModes& m_aoModes;
    CReferences& m_aoReferences;
    bool m_bSquare = false;
    bool m_bFirstPreferred = false;
    bool m_bFirstNative = false;
    SFormula m_oFormula;
    unsigned int m_uiNativeDetailed = 0;
    unsigned int m_uiPreferred = 0;
    SVideoPlaces m_oPlaces;
    CPlaces<256> m_oDetailed;                   // of detailed timings
    CPlaces<16> m_oLong;                        // of Types VII and X in CTA-861
    CPlaces<1> m_oCodes;                        // of Type VIII in CTA-861
    unsigned int m_uiFormatOffset = gsc_uiNone; // of the first video format descriptor
    SPart m_oPreference = { { nullptr, 0 }, 0 };
    unsigned int m_uiNativeReference = 0;
};

unsigned int CModeVisitor::Add(EZorEdidField eField, const SZorMode& oMode, unsigned int uiOffset, unsigned int uiBit,
                               unsigned int uiRank, SZorImageMode::ENumbers eNumbers)
{
    if (oMode.m_uiWidth == 0 || oMode.m_uiHeight == 0)
    {
        return gsc_uiNone;
    }
    m_aoModes.Add({ oMode, eField, uiOffset, uiBit, uiRank, eNumbers, EReason::eReason_None, 0, 0,
                    SZorImageMode::eList_None, gsc_uiNone });
    return m_aoModes.GetCount() - 1;
}

unsigned int CModeVisitor::AddRead(EZorEdidField eField, const SPart& oRecord, Reader pfnRead)
{
    SZorMode oMode = {};
    if (!pfnRead(oRecord.m_oBytes, oMode))
    {
        return gsc_uiNone;
    }
    SZorImageMode::ENumbers eNumbers = oMode.m_bTiming ? SZorImageMode::eNumbers_Bytes : SZorImageMode::eNumbers_None;
    if (oMode.m_eBlanking != SZorMode::eBlanking_NotGiven)
    {
        const SReducedBlanking oReduced =
            oMode.m_eKind == SZorMode::eModeKind_Type10 ? ReadReducedBlanking(oRecord.m_oBytes) : SReducedBlanking{};
        eNumbers = ComputeCvt(oMode, oReduced) ? SZorImageMode::eNumbers_Formula : eNumbers;
    }
    return Add(eField, oMode, oRecord.m_uiOffset, gsc_uiNone, 0, eNumbers);
}

unsigned int CModeVisitor::AddCode(EZorEdidField eField, bool (*pfnMake)(SZorMode&, unsigned int), unsigned int uiCode,
                                   unsigned int uiOffset, SZorMode::EY420 eY420)
{
    SZorMode oMode = {};
    if (!pfnMake(oMode, uiCode))
    {
        return gsc_uiNone;
    }
    oMode.m_eY420 = eY420;
    return Add(eField, oMode, uiOffset, gsc_uiNone, 0, SZorImageMode::eNumbers_Table);
}

// A bit a mode, from the first byte on; the modes count from uiFirst.
void CModeVisitor::AddBits(EZorEdidField eField, const SPart& oBytes, unsigned int uiFirst, unsigned int uiBits,
                           EOrder eOrder, bool (*pfnMake)(SZorMode&, unsigned int))
{
    for (unsigned int i = 0; i < uiBits; ++i)
    {
        const unsigned int uiBit = eOrder == eOrder_LowFirst ? i % gsc_uiBits : gsc_uiBits - 1 - i % gsc_uiBits;
        SZorMode oMode = {};
        if (oBytes.m_oBytes.IsSet(i / gsc_uiBits, uiBit) && pfnMake(oMode, uiFirst + i))
        {
            Add(eField, oMode, oBytes.m_uiOffset + i / gsc_uiBits, uiBit, 0, SZorImageMode::eNumbers_Table);
        }
    }
}

// ---- Base block, and what other blocks have of it ----

void CModeVisitor::VisitBase(const SPart& oBase)
{
    using namespace BaseBlock;
    constexpr unsigned int uiStandards = 8;
    const unsigned char* pui8Base = oBase.m_oBytes.GetData();
    m_bSquare = !IsAtLeastRevision(pui8Base, gsc_ui16To10Revision);
    m_bFirstPreferred = IsPreferredTimingDeclared(pui8Base);
    m_bFirstNative = IsNativeTimingDeclared(pui8Base);
    m_oFormula = FindFormula(oBase.m_oBytes);
    AddBits(eZorEdidField_BaseEstablishedMode, oBase.From(gsc_uiEstablishedOffset), 0, gsc_uiEstablishedModes,
            eOrder_HighFirst, MakeEstablishedMode);
    for (unsigned int i = 0; i < uiStandards; ++i)
    {
        AddStandard(oBase.Part(gsc_uiStandardsOffset + i * gsc_uiStandardTimingSize, gsc_uiStandardTimingSize),
                    m_bSquare);
    }
}

void CModeVisitor::AddDetailed(const SPart& oDescriptor)
{
    const unsigned int uiMode = AddRead(eZorEdidField_BaseDetailed, oDescriptor, ReadDetailedMode);
    const bool bFirst = oDescriptor.m_uiOffset == BaseBlock::gsc_uiDescriptorsOffset;
    m_oDetailed.Add(uiMode);
    if (uiMode != gsc_uiNone && bFirst)
    {
        m_aoModes[uiMode].m_eReason = m_bFirstPreferred ? EReason::eReason_FirstDetailed : EReason::eReason_None;
        m_aoModes[uiMode].m_oMode.m_bNative = m_bFirstNative;
    }
}

void CModeVisitor::AddStandard(const SPart& oPair, bool bSquare)
{
    SZorMode oMode = {};
    if (oPair.GetSize() < 2 || !ReadStandardMode(oPair.m_oBytes, bSquare, oMode))
    {
        return;
    }
    const SZorImageMode::ENumbers eNumbers = oMode.m_bTiming                     ? SZorImageMode::eNumbers_Table
                                             : ComputeAssumed(oMode, m_oFormula) ? SZorImageMode::eNumbers_Assumed
                                                                                 : SZorImageMode::eNumbers_None;
    Add(eZorEdidField_BaseStandard, oMode, oPair.m_uiOffset, gsc_uiNone, 0, eNumbers);
}

void CModeVisitor::AddCvtCode(const SPart& oCode)
{
    SZorMode oMode = {};
    for (unsigned int uiRank = 0; ReadCvtCodeMode(oCode.m_oBytes, uiRank, oMode); ++uiRank)
    {
        const SZorImageMode::ENumbers eNumbers =
            ComputeCvt(oMode) ? SZorImageMode::eNumbers_Formula : SZorImageMode::eNumbers_None;
        Add(eZorEdidField_BaseCvtCode, oMode, oCode.m_uiOffset, gsc_uiNone, uiRank, eNumbers);
    }
}

void CModeVisitor::VisitDescriptor(const SPart& oDescriptor)
{
    using namespace Descriptors;
    if (HasPixelClock(oDescriptor.m_oBytes.GetData()))
    {
        AddDetailed(oDescriptor);
        return;
    }
    switch (oDescriptor.GetByte(gsc_uiTagOffset))
    {
    case gsc_ui8TagExtraStandards:
        for (unsigned int i = 0; i < gsc_uiExtraStandards; ++i)
        {
            AddStandard(oDescriptor.Part(gsc_uiContentsOffset + i * gsc_uiStandardTimingSize, gsc_uiStandardTimingSize),
                        m_bSquare);
        }
        break;
    case gsc_ui8TagEstablishedIII:
        AddBits(eZorEdidField_BaseEstablished3Mode, oDescriptor.From(gsc_uiListOffset), 0, gsc_uiEstablishedIIIModes,
                eOrder_HighFirst, MakeEstablishedIIIMode);
        break;
    case gsc_ui8TagCvtCodes:
        for (unsigned int i = 0; i < gsc_uiCvtCodes; ++i)
        {
            AddCvtCode(oDescriptor.Part(gsc_uiListOffset + i * gsc_uiCvtCodeSize, gsc_uiCvtCodeSize));
        }
        break;
    default:
        break;
    }
}

// The video timing block extension: detailed timings, CVT codes, standard timings.
void CModeVisitor::VisitOther(unsigned int uiTag, const SPart& oBlock)
{
    if (uiTag != Vtb::gsc_uiTag)
    {
        return;
    }
    unsigned int uiAt = Vtb::gsc_uiListsOffset;
    const unsigned int uiEnd = std::min(oBlock.GetSize(), gsc_uiChecksumOffset);
    const auto fnList = [&](const SPlace& oCount, unsigned int uiSize, auto fnAdd) {
        const unsigned int uiCount = oBlock.m_oBytes.Get(oCount);
        for (unsigned int i = 0; i < uiCount && uiAt + (i + 1) * uiSize <= uiEnd; ++i)
        {
            fnAdd(oBlock.Part(uiAt + i * uiSize, uiSize));
        }
        uiAt += uiCount * uiSize; // also of what does not fit
    };
    fnList(Vtb::gsc_oDetailedTimings, Descriptors::gsc_uiDescriptorSize,
           [this](const SPart& oPart) { AddRead(eZorEdidField_BaseDetailed, oPart, ReadDetailedMode); });
    fnList(Vtb::gsc_oCvtCodes, gsc_uiCvtCodeSize, [this](const SPart& oPart) { AddCvtCode(oPart); });
    fnList(Vtb::gsc_oStandardTimings, gsc_uiStandardTimingSize,
           [this](const SPart& oPart) { AddStandard(oPart, false); });
}

// ---- CTA-861 ----

void CModeVisitor::VisitCta(const SPart& oBlock)
{
    if (oBlock.GetByte(Cta::gsc_uiRevisionOffset) >= Cta::gsc_uiNativeCountRevision)
    {
        m_uiNativeDetailed =
            std::max(m_uiNativeDetailed, oBlock.GetByte(Cta::gsc_uiFlagsOffset) & Cta::gsc_oNativeCount.GetMost());
    }
}

void CModeVisitor::VisitCtaData(unsigned int uiTag, const SPart& oPayload)
{
    switch (uiTag)
    {
    case Cta::gsc_uiVideoTag:
        VisitVideo(oPayload, false);
        break;
    case Cta::gsc_uiVendorTag:
        if (oPayload.m_oBytes.Get(Cta::gsc_oOui) == gsc_uiOuiHdmi)
        {
            VisitHdmi(oPayload.From(Cta::gsc_uiOuiSize));
        }
        break;
    case Cta::gsc_uiVideoFormatTag:
        VisitFormats(oPayload);
        break;
    case gsc_uiExtended + Cta::gsc_uiExtendedNative:
        m_uiNativeReference = m_uiNativeReference != 0 ? m_uiNativeReference : oPayload.GetByte(0);
        AddReferences(oPayload.Part(0, 1));
        break;
    case gsc_uiExtended + Cta::gsc_uiExtendedPreference:
        m_oPreference = m_oPreference.GetSize() != 0 ? m_oPreference : oPayload;
        AddReferences(oPayload);
        break;
    case gsc_uiExtended + Cta::gsc_uiExtended420Video:
        VisitVideo(oPayload, true);
        break;
    case gsc_uiExtended + Cta::gsc_uiExtended420Map:
        m_oPlaces.m_oMap420 = m_oPlaces.m_bMap420 ? m_oPlaces.m_oMap420 : oPayload;
        m_oPlaces.m_bMap420 = true;
        break;
    case gsc_uiExtended + Cta::gsc_uiExtendedType7:
        AddLongTimings(DisplayId::gsc_uiType7Tag, oPayload.m_oBytes.Get(Cta::gsc_oTimingRevision), 0,
                       oPayload.Part(1, DisplayId::gsc_oType7.m_uiSize)); // one of them
        break;
    case gsc_uiExtended + Cta::gsc_uiExtendedType8:
        AddTimingCodes(oPayload.m_oBytes.Get(Cta::gsc_oTimingCodeType),
                       oPayload.m_oBytes.IsSet(Cta::gsc_oTimingWideCodes) ? 2 : 1, oPayload.From(1),
                       oPayload.m_oBytes.IsSet(Cta::gsc_oTimingCodes420) ? SZorMode::eY420_Also : SZorMode::eY420_No);
        break;
    case gsc_uiExtended + Cta::gsc_uiExtendedType10:
        AddLongTimings(DisplayId::gsc_uiType10Tag, 0, oPayload.m_oBytes.Get(Cta::gsc_oTimingMoreBytes),
                       oPayload.From(1));
        break;
    default:
        break;
    }
}

void CModeVisitor::VisitVideo(const SPart& oPayload, bool bOnly420)
{
    for (unsigned int i = 0; i < oPayload.GetSize(); ++i)
    {
        const unsigned int uiMode = AddCode(
            eZorEdidField_CtaVideoDescriptor,
            [](SZorMode& oMode, unsigned int uiSvd) { return ReadShortVideoMode(uiSvd, oMode); }, oPayload.GetByte(i),
            oPayload.m_uiOffset + i, bOnly420 ? SZorMode::eY420_Only : SZorMode::eY420_No);
        if (!bOnly420)
        {
            m_oPlaces.m_oVideo.Add(uiMode);
        }
    }
}

void CModeVisitor::AddFormat(const SPart& oFormat, bool bFraction, bool b420)
{
    SZorMode oMode = {};
    m_uiFormatOffset = std::min(m_uiFormatOffset, oFormat.m_uiOffset);
    for (unsigned int uiRank = 0; ReadFormatMode(oFormat.m_oBytes, uiRank, bFraction, oMode); ++uiRank)
    {
        oMode.m_eY420 = b420 ? SZorMode::eY420_Also : SZorMode::eY420_No;
        const SZorImageMode::ENumbers eNumbers =
            ComputeOvt(oMode) ? SZorImageMode::eNumbers_Formula : SZorImageMode::eNumbers_None;
        Add(eZorEdidField_CtaVideoFormatDescriptor, oMode, oFormat.m_uiOffset, gsc_uiNone, uiRank, eNumbers);
    }
}

void CModeVisitor::VisitFormats(const SPart& oPayload)
{
    const CRecordBytes& oHead = oPayload.m_oBytes;
    const unsigned int uiSize = 1 + oHead.Get(Cta::gsc_oFormatsSize);
    for (unsigned int uiAt = 1; uiAt + uiSize <= oPayload.GetSize(); uiAt += uiSize)
    {
        AddFormat(oPayload.Part(uiAt, uiSize), oHead.IsSet(Cta::gsc_oFormatsNtsc), oHead.IsSet(Cta::gsc_oFormats420));
    }
}

void CModeVisitor::VisitHdmi(const SPart& oHdmi)
{
    using namespace Hdmi;
    const unsigned int uiVideo = GetVideoOffset(oHdmi.m_oBytes);
    const SPart oVideo = oHdmi.From(uiVideo);
    if (!oHdmi.m_oBytes.IsSet(gsc_oVideoPresent) || oVideo.GetSize() < gsc_uiVideoSize)
    {
        return;
    }
    const unsigned int uiCodes = oVideo.m_oBytes.Get(gsc_oVicCount);
    const SPart oCodes = oVideo.Part(gsc_uiVideoSize, uiCodes);
    for (unsigned int i = 0; i < oCodes.GetSize(); ++i)
    {
        AddCode(eZorEdidField_CtaHdmiVic, MakeHdmiMode, oCodes.GetByte(i), oCodes.m_uiOffset + i, SZorMode::eY420_No);
    }
    VisitStereo(oVideo.Part(gsc_uiVideoSize + uiCodes, oVideo.m_oBytes.Get(gsc_o3dLength)),
                oVideo.m_oBytes.Get(gsc_o3dMultiPresent), oVideo.m_oBytes.IsSet(gsc_o3dPresent));
}

// 3D_present makes frame packing and top-and-bottom, by rate, a duty of some formats: HDMI 1.4b 8.3.2. The rest is kept
// for Finish, as the codes that it refers to may follow.
void CModeVisitor::VisitStereo(const SPart& oFields, unsigned int uiMulti, bool bPresent)
{
    using namespace Hdmi;
    constexpr unsigned int uiAllPlaces = 0xFFFF;  // without a mask
    constexpr unsigned int uiStructures = 0x01FF; // bit 15 says more about the last one
    if (m_oPlaces.m_bHdmi)
    {
        return; // of several blocks the first one counts
    }
    m_oPlaces.m_bHdmi = true;
    m_oPlaces.m_bStereo = bPresent;
    unsigned int uiUsed = 0;
    if ((uiMulti == eMulti_All || uiMulti == eMulti_AllAndMask) && oFields.GetSize() >= gsc_uiStructureAllSize)
    {
        m_oPlaces.m_uiStereoAll = oFields.m_oBytes.Get(Big16(0)) & uiStructures;
        m_oPlaces.m_uiStereoMask =
            uiMulti == eMulti_All ? uiAllPlaces : oFields.m_oBytes.Get(Big16(gsc_uiStructureAllSize));
        uiUsed = gsc_uiStructureAllSize + (uiMulti == eMulti_AllAndMask ? gsc_uiMaskSize : 0);
    }
    m_oPlaces.m_oStereo = oFields.From(uiUsed);
}

// What they point at may follow: Finish looks for it.
void CModeVisitor::AddReferences(const SPart& oBytes)
{
    for (unsigned int i = 0; i < oBytes.GetSize(); ++i)
    {
        if (ReadVideoReference(oBytes.GetByte(i)).m_eKind != SVideoReference::eReserved)
        {
            m_aoReferences.Add({ oBytes.m_uiOffset + i, oBytes.GetByte(i), gsc_uiNone });
        }
    }
}

// ---- DisplayID ----

void CModeVisitor::AddTimingCode(unsigned int uiType, const SPart& oCode, SZorMode::EY420 eY420)
{
    const unsigned int uiCode = oCode.m_oBytes.Get(Little16(0)); // a byte past the end is 0
    unsigned int uiMode = gsc_uiNone;
    switch (uiType)
    {
    case DisplayId::eCodeType_Dmt:
        uiMode = AddCode(eZorEdidField_DisplayidTimingDmtId, MakeDmtMode, uiCode, oCode.m_uiOffset, eY420);
        break;
    case DisplayId::eCodeType_Vic:
        uiMode = AddCode(eZorEdidField_DisplayidTimingVic, MakeVideoMode, uiCode, oCode.m_uiOffset, eY420);
        break;
    case DisplayId::eCodeType_HdmiVic:
        uiMode = AddCode(eZorEdidField_DisplayidTimingHdmiVic, MakeHdmiMode, uiCode, oCode.m_uiOffset, eY420);
        break;
    default:
        break;
    }
    m_oCodes.Add(uiMode);
}

void CModeVisitor::AddTimingCodes(unsigned int uiType, unsigned int uiSize, const SPart& oCodes, SZorMode::EY420 eY420)
{
    for (unsigned int uiAt = 0; uiAt + uiSize <= oCodes.GetSize(); uiAt += uiSize)
    {
        AddTimingCode(uiType, oCodes.Part(uiAt, uiSize), eY420);
    }
}

// Records of one of the types that describe a timing; one that is cut short is left out.
void CModeVisitor::AddLongTimings(unsigned int uiTag, unsigned int uiRevision, unsigned int uiMoreBytes,
                                  const SPart& oRecords)
{
    using namespace DisplayId;
    struct SType
    {
        unsigned int m_uiTag;
        unsigned int m_uiSize;
        EZorEdidField m_eField;
        Reader m_pfnRead;
    };
    constexpr SType aoTypes[] = {
        { gsc_uiType1Tag, gsc_oType1.m_uiSize, eZorEdidField_DisplayidType1Timing, ReadType1Mode },
        { gsc_uiType2Tag, gsc_oType2.m_uiSize, eZorEdidField_DisplayidType2Timing, ReadType2Mode },
        { gsc_uiType3Tag, gsc_uiType3Size, eZorEdidField_DisplayidType3Timing, ReadType3Mode },
        { gsc_uiType5Tag, gsc_uiType5Size, eZorEdidField_DisplayidType5Timing, ReadType5Mode },
        { gsc_uiType6Tag, gsc_oType6.m_uiSize, eZorEdidField_DisplayidType6Timing, ReadType6Mode },
        { gsc_uiType7Tag, gsc_oType7.m_uiSize, eZorEdidField_DisplayidType7Timing, ReadType7Mode },
        { gsc_uiType9Tag, gsc_uiType9Size, eZorEdidField_DisplayidType9Timing, ReadType9Mode },
        { gsc_uiType10Tag, gsc_uiType10Size, eZorEdidField_DisplayidType10Timing, ReadType10Mode },
    };
    constexpr unsigned int ui420Revision = 2; // of Type VII
    const SType* poType = std::ranges::find(aoTypes, uiTag, &SType::m_uiTag);
    if (poType == std::end(aoTypes))
    {
        return;
    }
    const bool b420 = uiTag == gsc_uiType7Tag && uiRevision >= ui420Revision;
    unsigned int uiSize = poType->m_uiSize + uiMoreBytes;
    for (unsigned int uiAt = 0; uiAt < oRecords.GetSize(); uiAt += uiSize)
    {
        if (uiTag == gsc_uiType6Tag)
        {
            uiSize = oRecords.From(uiAt).m_oBytes.IsSet(gsc_oType6IsLong) ? gsc_uiType6LongSize : poType->m_uiSize;
        }
        if (uiSize > oRecords.GetSize() - uiAt)
        {
            return;
        }
        const unsigned int uiMode =
            AddRead(poType->m_eField, oRecords.Part(uiAt, uiSize), b420 ? ReadType7Revision2Mode : poType->m_pfnRead);
        m_oLong.Add(uiMode);
        if (uiMode != gsc_uiNone && m_aoModes[uiMode].m_oMode.m_bPreferred)
        {
            m_aoModes[uiMode].m_eReason = EReason::eReason_Flag;
        }
    }
}

void CModeVisitor::VisitDisplayIdData(unsigned int /*uiVersion*/, const SPart& oData)
{
    using namespace DisplayId;
    const unsigned int uiTag = oData.GetByte(0);
    const unsigned int uiRevision = gsc_oHeaderRevision.Read(oData.m_oBytes.GetData());
    const CRecordBytes& oHead = oData.m_oBytes;
    const SPart oPayload = oData.From(gsc_uiHeaderSize);
    const CPlaces<16> oLong = m_oLong; // references of CTA-861 count its own data blocks only
    const CPlaces<1> oCodes = m_oCodes;
    switch (uiTag)
    {
    case gsc_uiType4Tag:
        AddTimingCodes(uiRevision == 0 ? 0 : oHead.Get(gsc_oCodeType), 1, oPayload, SZorMode::eY420_No);
        break;
    case gsc_uiType8Tag:
        AddTimingCodes(oHead.Get(gsc_oCodeType), oHead.IsSet(gsc_oWideCodes) ? 2 : 1, oPayload,
                       uiRevision != 0 && oHead.IsSet(gsc_oCodes420) ? SZorMode::eY420_Also : SZorMode::eY420_No);
        break;
    case gsc_uiDmtBitsTag:
        AddBits(eZorEdidField_DisplayidDmtModesMode, oPayload, 1, oPayload.GetSize() * gsc_uiBits, eOrder_LowFirst,
                MakeDmtMode);
        break;
    case gsc_uiVicBitsTag:
        AddBits(eZorEdidField_DisplayidVicModesMode, oPayload, 1, oPayload.GetSize() * gsc_uiBits, eOrder_LowFirst,
                MakeVideoMode);
        break;
    default:
        AddLongTimings(uiTag, uiRevision,
                       uiTag == gsc_uiType7Tag || uiTag == gsc_uiType10Tag ? oHead.Get(gsc_oMoreTimingBytes) : 0,
                       oPayload);
        break;
    }
    m_oLong = oLong;
    m_oCodes = oCodes;
}

void CModeVisitor::VisitCollection(const SPart& oBlocks)
{
    const SVideoPlaces oPlaces = m_oPlaces;
    m_oPlaces = {};
    WalkCtaData(oBlocks, *this);
    MarkPlaces();
    m_oPlaces = oPlaces;
}

// ---- What is said about the entries ----

template <class IS>
unsigned int CModeVisitor::FindMode(IS fnIs) const
{
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        if (fnIs(m_aoModes[i]))
        {
            return i;
        }
    }
    return gsc_uiNone;
}

// A mode of the code itself, else of HDMI's code for the same format.
unsigned int CModeVisitor::FindVideoMode(unsigned int uiCode) const
{
    const unsigned int uiMode = FindMode([uiCode](const SZorImageMode& oListed) {
        return oListed.m_oMode.m_eKind == SZorMode::eModeKind_Vic && oListed.m_oMode.m_uiCode == uiCode;
    });
    return uiMode != gsc_uiNone ? uiMode : FindMode([uiCode](const SZorImageMode& oListed) {
        const SHdmiCode* poHdmi =
            oListed.m_oMode.m_eKind == SZorMode::eModeKind_HdmiVic ? FindHdmiCode(oListed.m_oMode.m_uiCode) : nullptr;
        return poHdmi != nullptr && poHdmi->m_ui8VideoCode == uiCode;
    });
}

unsigned int CModeVisitor::FindReference(unsigned int uiByte) const
{
    const auto [eKind, uiNumber] = ReadVideoReference(uiByte);
    switch (eKind)
    {
    case SVideoReference::eVideoCode:
        return FindVideoMode(uiNumber);
    case SVideoReference::eDetailed:
        return m_oDetailed.Get(uiNumber);
    case SVideoReference::eType7Or10:
        return m_oLong.Get(uiNumber);
    case SVideoReference::eFormatRate:
        return FindMode([this, uiRate = uiNumber](const SZorImageMode& oListed) {
            return oListed.m_eField == eZorEdidField_CtaVideoFormatDescriptor &&
                   oListed.m_uiOffset == m_uiFormatOffset && oListed.m_oMode.m_oNominalRate.m_ullDividend == uiRate;
        });
    case SVideoReference::eType8:
        return m_oCodes.Get(0);
    case SVideoReference::eReserved:
        break;
    }
    return gsc_uiNone;
}

void CModeVisitor::Prefer(unsigned int uiMode, EReason eReason)
{
    SZorImageMode* poMode = Find(uiMode);
    if (poMode != nullptr && poMode->m_uiPreference == 0)
    {
        poMode->m_eReason = eReason;
        poMode->m_uiPreference = ++m_uiPreferred;
        poMode->m_oMode.m_bPreferred = true;
    }
}

void CModeVisitor::Mark420()
{
    for (unsigned int i = 0; m_oPlaces.m_bMap420 && i < m_oPlaces.m_oVideo.GetCount(); ++i)
    {
        const bool bMarked =
            m_oPlaces.m_oMap420.GetSize() == 0 || m_oPlaces.m_oMap420.m_oBytes.IsSet(i / gsc_uiBits, i % gsc_uiBits);
        SZorImageMode* poMode = Find(m_oPlaces.m_oVideo.Get(i));
        if (bMarked && poMode != nullptr)
        {
            poMode->m_oMode.m_eY420 = SZorMode::eY420_Also;
        }
    }
}

void CModeVisitor::MarkNative()
{
    for (unsigned int i = 0; i < m_uiNativeDetailed; ++i)
    {
        if (SZorImageMode* poMode = Find(m_oDetailed.Get(i)))
        {
            poMode->m_oMode.m_bNative = true;
        }
    }
    SZorImageMode* poMode = m_uiNativeReference != 0 ? Find(FindReference(m_uiNativeReference)) : nullptr;
    if (poMode != nullptr)
    {
        poMode->m_oMode.m_bNative = true;
    }
}

// The formats that 3D_present obliges to: 1080p at 24 Hz, 720p at 50 and 60 Hz, 1080i at 50 and 60 Hz.
void CModeVisitor::MarkStereo()
{
    using namespace Hdmi;
    struct SDuty
    {
        unsigned int m_uiCode;
        unsigned int m_uiStructures;
    };
    constexpr unsigned int uiPackingAndTop = 0x41; // frame packing, top-and-bottom
    constexpr unsigned int uiSideBySide = 0x100;
    constexpr SDuty aoDuties[] = { { 32, uiPackingAndTop },
                                   { 4, uiPackingAndTop },
                                   { 19, uiPackingAndTop },
                                   { 5, uiSideBySide },
                                   { 20, uiSideBySide } };
    constexpr unsigned int uiPlaces = 16; // of the mask
    for (unsigned int i = 0; i < m_oPlaces.m_oVideo.GetCount(); ++i)
    {
        SZorImageMode* poMode = Find(m_oPlaces.m_oVideo.Get(i));
        if (poMode == nullptr)
        {
            continue;
        }
        poMode->m_uiStereo |= i < uiPlaces && ((m_oPlaces.m_uiStereoMask >> i) & 1U) != 0 ? m_oPlaces.m_uiStereoAll : 0;
        const SDuty* poDuty = std::ranges::find(aoDuties, poMode->m_oMode.m_uiCode, &SDuty::m_uiCode);
        poMode->m_uiStereo |= m_oPlaces.m_bStereo && poDuty != std::end(aoDuties) ? poDuty->m_uiStructures : 0;
    }
    for (unsigned int uiAt = 0; uiAt < m_oPlaces.m_oStereo.GetSize(); ++uiAt)
    {
        const CRecordBytes oFormat = m_oPlaces.m_oStereo.m_oBytes.GetPart(uiAt, 1);
        const unsigned int uiStructure = oFormat.Get(gsc_oStructure);
        if (SZorImageMode* poMode = Find(m_oPlaces.m_oVideo.Get(oFormat.Get(gsc_oVicOrder))))
        {
            poMode->m_uiStereo |= 1U << uiStructure;
        }
        uiAt += uiStructure >= gsc_uiFirstWithDetail ? 1 : 0;
    }
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        SZorImageMode& oMode = m_aoModes[i];
        oMode.m_oMode.m_eStereo = oMode.m_uiStereo != 0 ? SZorMode::eStereo_Hdmi : oMode.m_oMode.m_eStereo;
    }
}

void CModeVisitor::MarkPlaces()
{
    Mark420();
    MarkStereo();
}

void CModeVisitor::RankPreferred()
{
    for (unsigned int i = 0; i < m_oPreference.GetSize(); ++i)
    {
        Prefer(FindReference(m_oPreference.GetByte(i)), EReason::eReason_Preference);
    }
    for (const EReason eReason : { EReason::eReason_FirstDetailed, EReason::eReason_Flag })
    {
        for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
        {
            if (m_aoModes[i].m_eReason == eReason)
            {
                Prefer(i, eReason);
            }
        }
    }
}

void CModeVisitor::Finish()
{
    for (unsigned int i = 0; i < m_aoReferences.GetCount(); ++i)
    {
        m_aoReferences[i].m_uiMode = FindReference(m_aoReferences[i].m_uiByte);
    }
    MarkPlaces();
    MarkNative();
    RankPreferred();
}
} // namespace
} // namespace ZorFacts

int CZorEdidModes::Read(unsigned int uiSize, const unsigned char* pui8Data)
{
    m_aoModes.RemoveAll();
    m_aoReferences.RemoveAll();
    if (pui8Data == nullptr || uiSize < ZorStandards::gsc_uiBlockSize)
    {
        return 0;
    }
    // A mode takes two bytes and more, but for bits and rates.
    m_aoModes.SetSize(0, static_cast<int>(uiSize / 2));
    ZorFacts::CModeVisitor oVisitor(m_aoModes, m_aoReferences);
    ZorFacts::WalkImage(uiSize, pui8Data, oVisitor);
    oVisitor.Finish();
    return 1;
}

const SZorImageMode* CZorEdidModes::GetPreferred() const
{
    for (unsigned int i = 0; i < m_aoModes.GetCount(); ++i)
    {
        if (m_aoModes[i].m_uiPreference == 1)
        {
            return &m_aoModes[i];
        }
    }
    return nullptr;
}

bool CZorEdidModes::GetPartner(const SZorMode& oMode, SZorMode& oPartner)
{
    constexpr unsigned long long ullPer = 1001;
    constexpr unsigned long long ullOf = 1000;
    if (!oMode.m_bFractionToo)
    {
        return false;
    }
    SZorMode oVideo = oMode;
    ZorStandards::SReducedBlanking oReduced;
    oReduced.m_bVideo = true;
    if (oMode.m_eBlanking == SZorMode::eBlanking_Reduced2 && oMode.m_eKind != SZorMode::eModeKind_Dmt &&
        ZorStandards::ComputeCvt(oVideo, oReduced))
    {
        oVideo.m_bFractionToo = false;
        oVideo.m_oNominalRate = { oMode.m_oNominalRate.m_ullDividend * ullOf,
                                  oMode.m_oNominalRate.m_ullDivisor * ullPer };
        oPartner = oVideo;
        return true;
    }
    oPartner = oMode;
    oPartner.m_bFractionToo = false;
    oPartner.m_ullClock = (oMode.m_ullClock * ullOf * 2 / ullPer + 1) / 2;
    for (SZorMode::SRate* poRate : { &oPartner.m_oRate, &oPartner.m_oNominalRate })
    {
        *poRate = { poRate->m_ullDividend * ullOf, poRate->m_ullDivisor * ullPer };
    }
    return true;
}

// The reader of facts: it walks an image once and puts what it finds into the record. FactsBase.cpp, FactsCta.cpp and
// FactsDisplayId.cpp have the readers of the structures; FactsReader.cpp has the precedence of sources and what is only
// known at the end. Private to this folder.

#pragma once

#include <iterator>

#include "FactsBlocks.h"
#include "ZorEdidFacts.h"

namespace ZorFacts
{
using namespace ZorStandards;
using CFacts = CZorEdidFacts;

inline constexpr unsigned int gsc_uiTenthsPerCentimetre = 100; // of millimetres

// Who answers a question.
enum ESource : unsigned char
{
    eSource_None,
    eSource_Base,       // bytes 8 to 34 of the base block
    eSource_Descriptor, // its display descriptors
    eSource_Timing,     // its first timing
    eSource_Cta,        // CTA-861
    eSource_Hdmi,       // HDMI Licensing and the HDMI Forum
    eSource_Microsoft,
    eSource_Vesa, // VESA's display device data block and display information extension
    eSource_DisplayId1,
    eSource_DisplayId2,
    eSource_Count
};

// Bytes of the image: a structure, and where it is. Places are known when this is compiled, which makes it fast.
struct SBytes
{
    SBytes(const unsigned char* pui8Bytes, unsigned int uiSize, unsigned int uiOffset)
        : m_pui8Bytes(pui8Bytes), m_uiSize(uiSize), m_uiOffset(uiOffset)
    {
    }
    SBytes(const SPart& oPart)
        : m_pui8Bytes(oPart.m_oBytes.GetData()), m_uiSize(oPart.GetSize()), m_uiOffset(oPart.m_uiOffset)
    {
    }

    const unsigned char* m_pui8Bytes;
    unsigned int m_uiSize;
    unsigned int m_uiOffset; // in the image

    template <const SPlace& PLACE>
    bool Has() const
    {
        constexpr unsigned int uiEnd = PLACE.GetEnd();
        return uiEnd <= m_uiSize;
    }
    // The caller has asked Has.
    template <const SPlace& PLACE>
    unsigned int Get() const
    {
        return PLACE.Read(m_pui8Bytes);
    }
    template <const SPlace& PLACE>
    unsigned int Or0() const
    {
        return Has<PLACE>() ? Get<PLACE>() : 0;
    }
    template <const SPlace& PLACE>
    unsigned int OffsetOf() const
    {
        constexpr unsigned int uiFirst = PLACE.GetFirst();
        return m_uiOffset + uiFirst;
    }
    SBytes From(unsigned int uiSkip) const
    {
        return uiSkip < m_uiSize ? SBytes(m_pui8Bytes + uiSkip, m_uiSize - uiSkip, m_uiOffset + uiSkip)
                                 : SBytes(m_pui8Bytes, 0, m_uiOffset);
    }
};

// The bit of a flag among the bytes of its structure, the first byte below.
constexpr unsigned long long FlagOf(const SPlace& oPlace)
{
    return 1ULL << (oPlace.m_aoPieces[0].m_ui8Offset * gsc_uiBits + oPlace.m_aoPieces[0].m_ui8Low);
}

constexpr unsigned int FlagIf(unsigned int uiCondition, unsigned int uiFlag) { return uiCondition != 0 ? uiFlag : 0; }

// Primary use cases, of DisplayID 2 and Microsoft's block; Other for a code without one here.
constexpr CFacts::EKind FindUseCase(unsigned int uiCode)
{
    constexpr CFacts::EKind aeKinds[] = { CFacts::eKind_Generic,      CFacts::eKind_Other,
                                          CFacts::eKind_Generic,      CFacts::eKind_Television,
                                          CFacts::eKind_Monitor,      CFacts::eKind_Monitor,
                                          CFacts::eKind_Presentation, CFacts::eKind_HeadMounted,
                                          CFacts::eKind_HeadMounted };
    return uiCode < std::size(aeKinds) ? aeKinds[uiCode] : CFacts::eKind_Other;
}

// The first block that may say more than is read of it. At least a base block.
CFacts::SUnread FindUnread(const unsigned char* pui8Image, unsigned int uiSize);

class CReader
{
public:
    CReader(CFacts& oFacts, const unsigned char* pui8Image, unsigned int uiSize)
        : m_oFacts(oFacts), m_pui8Image(pui8Image), m_uiSize(uiSize)
    {
    }

    // At least a base block.
    void Read();

    // For WalkImage.
    void VisitBase(const SPart& oBase);
    void VisitDescriptor(const SPart& oDescriptor);
    void VisitCta(const SPart& oBlock);
    void VisitCtaData(unsigned int uiTag, const SPart& oPayload);
    void VisitDisplayId(const SPart& oBlock);
    void VisitDisplayIdData(unsigned int uiVersion, const SPart& oData);
    void VisitCollection(const SPart& oBlocks) { WalkCtaData(oBlocks, *this); }
    void VisitOther(unsigned int uiTag, const SPart& oBlock);

private:
    // ---- Putting facts ----

    // The first answer stays.
    template <class V, class W>
    static void Set(SZorFact<V>& oFact, const W& oValue, EZorEdidField eId, unsigned int uiOffset)
    {
        if (!oFact.IsSaid())
        {
            Replace(oFact, oValue, eId, uiOffset);
        }
    }
    template <class V, class W>
    static void Replace(SZorFact<V>& oFact, const W& oValue, EZorEdidField eId, unsigned int uiOffset)
    {
        oFact.m_oValue = static_cast<V>(oValue);
        oFact.m_eId = eId;
        oFact.m_ui16Offset = static_cast<unsigned short>(uiOffset);
    }
    // The field of a place, where the structure reaches that far.
    template <const SPlace& PLACE, class V>
    static void Take(SZorFact<V>& oFact, const SBytes& oBytes, EZorEdidField eId)
    {
        if (oBytes.Has<PLACE>())
        {
            Set(oFact, oBytes.Get<PLACE>(), eId, oBytes.OffsetOf<PLACE>());
        }
    }
    // Of a data block whose bytes are one fact: its group. uiHeader: bytes of its header.
    template <const SPlace& PLACE, class V>
    static void TakeAll(SZorFact<V>& oFact, const SBytes& oPayload, EZorEdidField eId, unsigned int uiHeader)
    {
        if (oPayload.Has<PLACE>())
        {
            Set(oFact, oPayload.Get<PLACE>(), eId, oPayload.m_uiOffset - uiHeader);
        }
    }
    // Of several sources the one that the table prefers stays; a difference is noted.
    template <class V, class W>
    void Offer(CFacts::EQuestion eQuestion, ESource eSource, SZorFact<V>& oFact, const W& oValue, EZorEdidField eId,
               unsigned int uiOffset)
    {
        const unsigned char ui8Rank = RankOf(eQuestion, eSource);
        if (!oFact.IsSaid())
        {
            m_aui8Ranks[eQuestion] = ui8Rank;
            Replace(oFact, oValue, eId, uiOffset);
            return;
        }
        const bool bBetter = ui8Rank < m_aui8Ranks[eQuestion];
        if (!IsSame(oFact.m_oValue, static_cast<V>(oValue)))
        {
            const SPlaceInImage oHave = { oFact.m_eId, oFact.m_ui16Offset };
            const SPlaceInImage oOther = { eId, static_cast<unsigned short>(uiOffset) };
            NoteConflict(eQuestion, bBetter ? oOther : oHave, bBetter ? oHave : oOther);
        }
        if (bBetter)
        {
            m_aui8Ranks[eQuestion] = ui8Rank;
            Replace(oFact, oValue, eId, uiOffset);
        }
    }
    template <const SPlace& PLACE, class V>
    void OfferPlace(CFacts::EQuestion eQuestion, ESource eSource, SZorFact<V>& oFact, const SBytes& oBytes,
                    EZorEdidField eId)
    {
        if (oBytes.Has<PLACE>())
        {
            Offer(eQuestion, eSource, oFact, oBytes.Get<PLACE>(), eId, oBytes.OffsetOf<PLACE>());
        }
    }

    struct SPlaceInImage
    {
        EZorEdidField m_eId;
        unsigned short m_ui16Offset;
    };
    void NoteConflict(CFacts::EQuestion eQuestion, const SPlaceInImage& oTaken, const SPlaceInImage& oOther);
    static unsigned char RankOf(CFacts::EQuestion eQuestion, ESource eSource);

    template <class V>
    static bool IsSame(const V& oOne, const V& oOther)
    {
        return oOne == oOther;
    }
    // The second one is in whole uiUnit tenths of a millimetre.
    static bool IsSame(const CFacts::SMillimetres& oOne, const CFacts::SMillimetres& oOther,
                       unsigned int uiUnit = gsc_uiTenthsPerCentimetre);
    // 16 by 9 or 4 by 3, in whatever unit.
    static bool IsRatio(const CFacts::SMillimetres& oSize);
    static bool IsSame(const CFacts::SPoint& oOne, const CFacts::SPoint& oOther);
    static bool IsSame(const CFacts::SPrimaries& oOne, const CFacts::SPrimaries& oOther);
    static bool IsSame(float fOne, float fOther);

    // False for a text without characters.
    static bool MakeText(CFacts::SText& oText, const SBytes& oBytes);
    void AddRange(const CFacts::SVariableRefresh& oRange);
    void AddSpace(CFacts::ESpace eSpace, CFacts::ETransfer eTransfer, EZorEdidField eId, unsigned int uiOffset);
    void AddFormat(CFacts::EFormat eFormat, EZorEdidField eId, unsigned int uiOffset);
    void RaiseMaxTmds(unsigned int uiKiloHz, EZorEdidField eId, unsigned int uiOffset);
    void SetHdmiVersion(unsigned int uiVersion, EZorEdidField eId, unsigned int uiOffset);

    // ---- Base block ----

    void ReadIdentity(const unsigned char* pui8Base);
    void ReadDisplay(const unsigned char* pui8Base);
    void ReadChromaticities(const SBytes& oBase);
    void ReadDescriptor(const SBytes& oDescriptor);
    void ReadTiming(const SBytes& oTiming);
    void ReadRange(const SBytes& oRange);

    // ---- CTA-861 ----

    void ReadExtended(unsigned int uiTag, const SBytes& oPayload);
    void Read420(unsigned int uiTag, const SBytes& oPayload);
    void ReadVendor(const SBytes& oPayload);
    void ReadVendorVideo(const SBytes& oPayload);
    void ReadAudio(const SBytes& oPayload);
    void ReadHdmiAudio(const SBytes& oPayload);
    void ReadHdmi(const SBytes& oHdmi);
    void ReadHdmiForum(const SBytes& oSink);
    void ReadDsc(const SBytes& oSink);
    void ReadAmd(const SBytes& oAmd);
    void ReadMicrosoft(const SBytes& oMicrosoft);
    void ReadDisplayDevice(const SBytes& oDevice);
    void ReadVideoCapability(const SBytes& oCapability);
    void ReadStaticHdr(const SBytes& oHdr);
    void ReadDynamicHdr(const SBytes& oHdr);
    void ReadDolbyVision(const SBytes& oDolby);
    void ReadNativeResolution(const SBytes& oNative);

    // ---- DisplayID ----

    void ReadProduct(const SBytes& oBlock, bool bVersion2);
    void ReadContainerId(const SBytes& oPayload);
    // uiTimes: tenths of a millimetre of a unit.
    void ReadParameters(const SBytes& oBlock, ESource eSource, unsigned int uiTimes);
    template <unsigned int OFFSET>
    void OfferColours(const SBytes& oBlock, ESource eSource, EZorEdidField eId, bool b1976);
    void ReadParameters1(const SBytes& oBlock);
    void ReadParameters2(const SBytes& oBlock);
    void ReadColour(const SBytes& oBlock);
    void ReadDevice(const SBytes& oBlock);
    void ReadRange1(const SBytes& oBlock);
    void ReadDynamicRange(const SBytes& oBlock);
    void ReadInterface(const SBytes& oBlock);
    void ReadFeatures(const SBytes& oBlock);
    void ReadDepths(const SBytes& oDepths, unsigned int uiFormats);
    void ReadTile(const SBytes& oBlock, ESource eSource);
    void ReadAdaptiveSync(const SBytes& oBlock);
    void ReadVesaVendor(const SBytes& oBlock);
    void ReadBrightness(const SBytes& oBlock);

    // ---- What the whole image says ----

    void Finish();
    void FinishSize();
    void FinishLink();
    void FinishColour();

    CFacts& m_oFacts;
    const unsigned char* m_pui8Image;
    unsigned int m_uiSize;
    unsigned char m_aui8Ranks[CFacts::eQuestion_Count] = {}; // of the answers taken
    bool m_b420 = false;                                     // a data block of YCbCr 4:2:0 modes was there
    EZorEdidField m_e420 = eZorEdidField_None;
    unsigned int m_ui420Offset = 0;
};
} // namespace ZorFacts

// The numbers that the EDID classes give the timings of an image, put to the fields that the timings stand in. The last
// step of CMapWriter. The classes say what they list and how many; where each one stands is found here by their rules.
// Where the two do not fit together, no number is given.

#include "EdidBase.h"
#include "EdidExtBlockCEA861.h"
#include "EdidExtBlockDisplayID.h"
#include "Hdmi1xVsdb.h"
#include "MapWriter.h"
#include "Standards/BaseBlock.h"
#include "VidParamCea.h"
#include "VidParamTimingGeneric.h"

namespace ZorMap
{
namespace
{
constexpr unsigned int gsc_uiCtaTag = 0x02;

// Numbers that follow each other; msc_uiNone for none.
struct SNumbers
{
    unsigned int m_uiFirst;
    unsigned int m_uiCount;
};

class CNumbers
{
public:
    explicit CNumbers(CMapWriter& oWriter) : m_oWriter(oWriter) {}

    void Add(const CEdidBase& oBase);
    void Add(const CEdidExtBlockCEA861& oBlock, unsigned int uiOffset);
    void Add(const CEdidExtBlockDisplayID& oBlock, unsigned int uiOffset);

private:
    void SetStandard(unsigned int uiOffset, const SNumbers& oNumbers)
    {
        m_oWriter.SetTiming(m_oWriter.FindField(uiOffset, 1), CZorEdidMap::eList_Standard, oNumbers.m_uiFirst,
                            oNumbers.m_uiCount);
    }
    // Detailed timing number uiIndex of a block. One that counts but holds no timing gets no number.
    template <class BLOCK>
    void SetDetailed(const BLOCK& oBlock, unsigned int uiIndex, unsigned int uiOffset, unsigned int uiLength)
    {
        CVidParamTimingGeneric oTiming;
        if (oBlock.GetDetailed(uiIndex, &oTiming) != 0)
        {
            m_oWriter.SetTiming(m_oWriter.FindField(uiOffset, uiLength), CZorEdidMap::eList_Detailed,
                                m_uiDetailed + uiIndex);
        }
    }

    CMapWriter& m_oWriter;
    unsigned int m_uiStandard = 0; // number of the next block's first timing
    unsigned int m_uiDetailed = 0;
};

// ---- Base block ----

// The library takes these pairs as the modes of 480 and 768 lines, which standard timings have no numbers for, and
// aspect ratio 0 as 16:10 in images of all revisions.
const char* GetOtherSize(unsigned int uiRevision, const unsigned char* pui8Pair)
{
    constexpr unsigned char ui8Wide60 = 0xC0; // 16:9 at 60 Hz
    constexpr unsigned int uiFirstWithout1To1 = 3;
    if (uiRevision < uiFirstWithout1To1 && pui8Pair[1] >> 6 == 0)
    {
        return "the library lists it as 16:10";
    }
    if (pui8Pair[1] != ui8Wide60)
    {
        return nullptr;
    }
    return pui8Pair[0] == 0x4B   ? "the library lists it as 848 x 480"
           : pui8Pair[0] == 0x8B ? "the library lists it as 1360 x 768"
                                 : nullptr;
}

void CNumbers::Add(const CEdidBase& oBase)
{
    unsigned int uiNumber = 0;
    for (unsigned int i = 0; i < 3 * gsc_uiBits; ++i) // bytes in order, bits from 7 down
    {
        const unsigned int uiByte = i / gsc_uiBits;
        const unsigned int uiBit = gsc_uiBits - 1 - i % gsc_uiBits;
        const auto eId = static_cast<CEdidBase::EEstablishedTiming>(1U << (uiByte * gsc_uiBits + uiBit));
        if (oBase.GetEstablishedFromId(eId, nullptr, 0) != 0)
        {
            m_oWriter.SetTiming(m_oWriter.FindLeaf(BaseBlock::gsc_uiEstablishedOffset + uiByte, uiBit),
                                CZorEdidMap::eList_Established, uiNumber++);
        }
    }
    constexpr unsigned int uiPairSize = sizeof(CEdidBase::SStandard);
    for (unsigned int i = 0; i < CEdidBase::msc_uiStandardSlotCount; ++i)
    {
        if (oBase.GetStandard(static_cast<CEdidBase::EStandardSlotIndex>(i), nullptr, nullptr) != 0)
        {
            const unsigned int uiOffset = BaseBlock::gsc_uiStandardsOffset + i * uiPairSize;
            const unsigned int uiField = m_oWriter.FindField(uiOffset, uiPairSize);
            m_oWriter.SetTiming(uiField, CZorEdidMap::eList_Standard, m_uiStandard++);
            if (const char* pszOther = GetOtherSize(m_oWriter.GetFacts().m_uiRevision, oBase.GetBaseBlock() + uiOffset))
            {
                m_oWriter.AddNote(uiField, CZorEdidMap::eSeverity_Note, pszOther);
            }
        }
    }
    const unsigned int uiCount = oBase.GetDetailedCount();
    unsigned int uiRank = 0;
    for (unsigned int i = 0; i < CEdidBase::msc_uiDescriptorCount && uiRank < uiCount; ++i)
    {
        const unsigned int uiOffset = BaseBlock::DescriptorOffset(i);
        const unsigned char* pui8Descriptor = oBase.GetBaseBlock() + uiOffset;
        if (!BaseBlock::IsDisplayDescriptor(pui8Descriptor) ||
            pui8Descriptor[BaseBlock::gsc_uiTagOffset] == BaseBlock::gsc_ui8TagDetailed)
        {
            SetDetailed(oBase, uiRank++, uiOffset, BaseBlock::gsc_uiDescriptorSize);
        }
    }
    m_uiDetailed = uiCount;
}

// ---- CEA-861 ----

// The numbers that a list gives to codes: one for a code, native or not, and one for its 1000/1001 variant directly
// behind. A code that comes again has the number that it has.
class CCodeNumbers
{
public:
    explicit CCodeNumbers(unsigned int uiFirst) : m_uiNext(uiFirst) {}

    // None for a code that is not listed. The classes list 193 to 253 as the native forms of 65 to 125. CTA-861-F
    // made them codes of their own, so that the number would lead to another timing than the byte says.
    SNumbers Add(unsigned int uiSvd)
    {
        unsigned int uiVic = 0;
        int iNative = 0;
        if (CEdidExtBlockCEA861::IsSupportedSvd(uiSvd) == 0 ||
            CEdidExtBlockCEA861::ExtractSvdCodeInfo(uiSvd, &uiVic, &iNative) == 0 || uiVic >= msc_uiCodes)
        {
            return { CZorEdidMap::msc_uiNone, 0 };
        }
        const unsigned int uiCount = CVidParamCea::IsVicSupported(uiVic + CVidParamCea::msc_uiVariantKey) != 0 ? 2 : 1;
        unsigned int& uiNumber = m_auiNumbers[uiVic][iNative != 0 ? 1 : 0]; // plus 1: 0 is none yet
        if (uiNumber == 0)
        {
            uiNumber = m_uiNext + 1;
            m_uiNext += uiCount;
        }
        const bool bSame = uiSvd <= msc_uiLastNativeSvd;
        return { bSame ? uiNumber - 1 : CZorEdidMap::msc_uiNone, bSame ? uiCount : 0 };
    }
    unsigned int GetNext() const { return m_uiNext; }

private:
    static constexpr unsigned int msc_uiCodes = 128;
    static constexpr unsigned int msc_uiLastNativeSvd = 192;

    unsigned int m_auiNumbers[msc_uiCodes][2] = {};
    unsigned int m_uiNext;
};

// A code as a short video descriptor has it, and its byte in the block.
struct SCode
{
    unsigned int m_uiSvd;
    unsigned int m_uiOffset;
};

// In the order of the block's list. Each code has a byte of its own.
struct SCodes
{
    SCode m_aoCode[CMapWriter::msc_uiBlockSize];
    unsigned int m_uiCount = 0;

    void Add(unsigned int uiSvd, unsigned int uiOffset)
    {
        if (m_uiCount < CMapWriter::msc_uiBlockSize)
        {
            m_aoCode[m_uiCount++] = { uiSvd, uiOffset };
        }
    }
};

// Calls fnVisit with offset and length of the payload of each data block of a kind, until it gives false.
template <class TAG, class VISIT>
bool VisitDataBlocks(const CEdidExtBlockCEA861& oBlock, TAG eTag, VISIT fnVisit)
{
    unsigned int uiLength = 0;
    unsigned int uiOffset = oBlock.GetDataBlockOffset(eTag, 0, &uiLength);
    for (unsigned int i = 1; uiOffset != 0; ++i)
    {
        if (!fnVisit(uiOffset, uiLength))
        {
            return false;
        }
        uiOffset = oBlock.GetDataBlockOffset(eTag, i, &uiLength);
    }
    return true;
}

template <class TAG>
void AddVideoCodes(const CEdidExtBlockCEA861& oBlock, TAG eTag, SCodes& oCodes)
{
    VisitDataBlocks(oBlock, eTag, [&](unsigned int uiOffset, unsigned int uiLength) {
        for (unsigned int i = 0; i < uiLength; ++i)
        {
            oCodes.Add(oBlock.GetData()[uiOffset + i], uiOffset + i);
        }
        return true;
    });
}

template <class TAG>
void AddHdmiCodes(const CEdidExtBlockCEA861& oBlock, TAG eTag, SCodes& oCodes)
{
    VisitDataBlocks(oBlock, eTag, [&](unsigned int uiOffset, unsigned int uiLength) {
        const unsigned char* pui8Payload = oBlock.GetData() + uiOffset;
        if (CHdmi1xVsdb::IsSupported(uiLength, pui8Payload) == 0)
        {
            return true;
        }
        const CHdmi1xVsdb::SVics oVics = CHdmi1xVsdb::FindVics(uiLength, pui8Payload);
        for (unsigned int i = 0; i < oVics.m_uiCount; ++i)
        {
            unsigned char ui8Vic = 0;
            if (CHdmi1xVsdb::ConvertHdmiVicToCeaVic(pui8Payload[oVics.m_uiVicsOffset + i], ui8Vic) != 0)
            {
                oCodes.Add(ui8Vic, uiOffset + oVics.m_uiVicsOffset + i);
            }
        }
        return true;
    });
}

// The codes that a 4:2:0 capability map selects come first in the list of 4:2:0 timings; they stand in no byte of their
// own. False for a map without bits, which stands for all codes: what is behind it is left without numbers.
bool AddMappedCodes(const CEdidExtBlockCEA861& oBlock, const SCodes& oCodes, CCodeNumbers& oNumbers)
{
    const auto fnVisit = [&](unsigned int uiOffset, unsigned int uiLength) {
        for (unsigned int i = 0; i < uiLength * gsc_uiBits && i < oCodes.m_uiCount; ++i)
        {
            if (((oBlock.GetData()[uiOffset + i / gsc_uiBits] >> (i % gsc_uiBits)) & 1U) != 0)
            {
                oNumbers.Add(oCodes.m_aoCode[i].m_uiSvd);
            }
        }
        return uiLength != 0;
    };
    return VisitDataBlocks(oBlock, CEdidExtBlockCEA861::eCea861ExtTag_Yuv420CapabilityMap, fnVisit);
}

void CNumbers::Add(const CEdidExtBlockCEA861& oBlock, unsigned int uiOffset)
{
    SCodes oCodes;
    AddVideoCodes(oBlock, CEdidExtBlockCEA861::eCea861Tag_Video, oCodes);
    AddHdmiCodes(oBlock, CEdidExtBlockCEA861::eCea861Tag_VendorSpecific, oCodes);
    AddHdmiCodes(oBlock, CEdidExtBlockCEA861::eCea861ExtTag_VendorVideo, oCodes);
    CCodeNumbers oNumbers(m_uiStandard);
    for (unsigned int i = 0; i < oCodes.m_uiCount; ++i)
    {
        SetStandard(uiOffset + oCodes.m_aoCode[i].m_uiOffset, oNumbers.Add(oCodes.m_aoCode[i].m_uiSvd));
    }
    CCodeNumbers oNumbers420(oNumbers.GetNext());
    if (AddMappedCodes(oBlock, oCodes, oNumbers420))
    {
        SCodes oCodes420;
        AddVideoCodes(oBlock, CEdidExtBlockCEA861::eCea861ExtTag_Yuv420Video, oCodes420);
        for (unsigned int i = 0; i < oCodes420.m_uiCount; ++i)
        {
            SetStandard(uiOffset + oCodes420.m_aoCode[i].m_uiOffset, oNumbers420.Add(oCodes420.m_aoCode[i].m_uiSvd));
        }
    }
    m_uiStandard += oBlock.GetStandardCount();

    for (unsigned int i = 0; i < oBlock.GetDetailedCount(); ++i)
    {
        SetDetailed(oBlock, i, uiOffset + oBlock.GetDetailedTimingsOffset(i), gsc_uiMapDescriptorSize);
    }
    m_uiDetailed += oBlock.GetDetailedCount();
}

// ---- DisplayID ----

void CNumbers::Add(const CEdidExtBlockDisplayID& oBlock, unsigned int uiOffset)
{
    for (unsigned int i = 0; i < oBlock.GetDetailedCount(); ++i)
    {
        unsigned int uiSize = 0;
        const unsigned int uiRecord = oBlock.GetDetailedTimingsOffset(i, uiSize);
        SetDetailed(oBlock, i, uiOffset + uiRecord, uiSize);
    }
    m_uiDetailed += oBlock.GetDetailedCount();
}
} // namespace

void NumberTimings(CMapWriter& oWriter, unsigned int uiSize)
{
    const CRecord oImage = oWriter.GetRecord(0, uiSize);
    const unsigned char* pui8Data = oImage.GetData();
    CEdidBase oBase;
    if (uiSize % CMapWriter::msc_uiBlockSize != 0 || oBase.SetEdidBuffer(pui8Data, uiSize, 0) == 0)
    {
        return; // CEdid refuses it, too
    }
    CNumbers oNumbers(oWriter);
    oNumbers.Add(oBase);
    const unsigned int uiAnnounced =
        (oImage.GetByte(BaseBlock::gsc_uiExtensionCountOffset) + 1U) * CMapWriter::msc_uiBlockSize;
    const unsigned int uiEnd = uiAnnounced < uiSize ? uiAnnounced : uiSize;
    for (unsigned int uiOffset = CMapWriter::msc_uiBlockSize; uiOffset < uiEnd; uiOffset += CMapWriter::msc_uiBlockSize)
    {
        // Asked first, as a block that is refused would write a line.
        const unsigned char* pui8Block = pui8Data + uiOffset;
        if (pui8Block[0] == gsc_uiCtaTag &&
            CEdidExtBlockCEA861::IsSupported(CMapWriter::msc_uiBlockSize, pui8Block) != 0)
        {
            oNumbers.Add(CEdidExtBlockCEA861(CMapWriter::msc_uiBlockSize, pui8Block, 0), uiOffset);
        }
        else if (pui8Block[0] == CEdidExtBlockDisplayID::msc_uiExtensionTag &&
                 CEdidExtBlockDisplayID::IsSupported(CMapWriter::msc_uiBlockSize, pui8Block) != 0)
        {
            oNumbers.Add(CEdidExtBlockDisplayID(CMapWriter::msc_uiBlockSize, pui8Block), uiOffset);
        }
    }
}
} // namespace ZorMap

// Video codes of a CEA-861 block: short video descriptors, HDMI codes and the YCbCr 4:2:0 blocks gathered into one list
// of table timings, a timing taken out of the bytes again, and the deep colour bits of the HDMI vendor blocks. The
// timings behind the codes come from VidParamCea, the inside of an HDMI vendor block from Hdmi1xVsdb.

#include "EdidExtBlockCEA861.h"

#include <bit>

#include "EdidExtBlockCEA861Private.h"
#include "Hdmi1xVsdb.h"
#include "VidParamCea.h"
#include "ZorAssert.h"

namespace
{
// The key of the 1000/1001 variant of a code, in the table and in the lists; it never stands in a block.
constexpr unsigned int gsc_uiVariantOffset = 1000;

// A short video descriptor: 1 to 127 are codes; with bit 7 set, bits 6 to 0 of 129 to 253 are a native code.
constexpr unsigned int gsc_uiNativeBit = 0x80;
constexpr unsigned int gsc_uiHighestSvd = 253;

using SVicCodeEntry = CEdidExtBlockCEA861::SVicCodeEntry;
using SVicCodeEntryLookUp = CEdidExtBlockCEA861::SVicCodeEntryLookUp;

// The one or two timings of a code: the code itself and, where the table has one, its 1000/1001 variant.
struct SCodeTimings
{
    SVicCodeEntry m_aoEntry[2];
    unsigned int m_uiCount;
};

SCodeTimings GetCodeTimings(unsigned int uiCode)
{
    SCodeTimings oTimings = {};
    if (!CEdidExtBlockCEA861::IsSupportedSvd(uiCode))
    {
        return oTimings;
    }
    SVicCodeEntry& oEntry = oTimings.m_aoEntry[0];
    CEdidExtBlockCEA861::ExtractSvdCodeInfo(uiCode, &oEntry.m_uiVic, &oEntry.m_bNative);
    oTimings.m_aoEntry[1] = { oEntry.m_uiVic + gsc_uiVariantOffset, oEntry.m_bNative };
    oTimings.m_uiCount = CVidParamCea::IsVicSupported(oTimings.m_aoEntry[1].m_uiVic) ? 2 : 1;
    return oTimings;
}

void AddOnce(CListFill<SVicCodeEntry>& oFill, const SVicCodeEntry& oEntry)
{
    for (unsigned int i = 0; i < oFill.GetCount(); ++i)
    {
        if (oFill.GetAt(i).m_uiVic == oEntry.m_uiVic && oFill.GetAt(i).m_bNative == oEntry.m_bNative)
        {
            return;
        }
    }
    oFill.Add(oEntry);
}

void AddCode(CListFill<SVicCodeEntry>& oFill, unsigned int uiCode)
{
    const SCodeTimings oTimings = GetCodeTimings(uiCode);
    for (unsigned int i = 0; i < oTimings.m_uiCount; ++i)
    {
        AddOnce(oFill, oTimings.m_aoEntry[i]);
    }
}
}

// Every code of the block in the order that the capability map counts them, unusable ones included. Each comes from a
// byte of its own behind a header, so they all fit.
struct CEdidExtBlockCEA861::SAllCodes
{
    unsigned int m_auiCode[gsc_uiCea861Size];
    SVicCodeEntryLookUp m_aoSource[gsc_uiCea861Size]; // m_uiVic is not used
    unsigned int m_uiCount;

    void Add(unsigned int uiCode, const SVicCodeEntryLookUp& oSource)
    {
        m_auiCode[m_uiCount] = uiCode;
        m_aoSource[m_uiCount] = oSource;
        ++m_uiCount;
    }

    // Appends the codes of one HDMI vendor block, given its payload; null adds nothing.
    void AddHdmiVics(unsigned int uiLength, unsigned char* pui8Payload, const SVicCodeEntryLookUp& oSource)
    {
        if (pui8Payload == nullptr)
        {
            return;
        }
        const CHdmi1xVsdb oVsdb(uiLength, pui8Payload);
        unsigned int uiVic = 0;
        for (unsigned int i = 0; (uiVic = oVsdb.EnumCea861Vic(i)) != 0; ++i)
        {
            Add(uiVic, oSource);
        }
    }
};

// What one RemoveStandard has taken out of the video blocks so far.
struct CEdidExtBlockCEA861::SRemovedSvds
{
    unsigned int m_uiBlockIndex; // the block that the last one came from, as it was numbered before anything moved
    unsigned int m_uiInBlock;    // taken from that block
    unsigned int m_uiBlocks;     // emptied blocks, which have lost their header
};

unsigned int CEdidExtBlockCEA861::GetStandardCount() const
{
    return m_aoVicCode.GetCount() + m_aoVicCode420.GetCount();
}

int CEdidExtBlockCEA861::GetStandard(unsigned int uiIndex, CVidParamTiming* poTiming, int* piNative) const
{
    if (uiIndex >= GetStandardCount() || poTiming == nullptr)
    {
        return 0;
    }
    poTiming->ClearData();
    const SVicCodeEntry oEntry = GetVicCodeEntry(uiIndex);
    if (piNative != nullptr)
    {
        *piNative = oEntry.m_bNative;
    }
    if (oEntry.m_uiVic == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    const int iResult = CVidParamCea::GetVidParamFromVic(oEntry.m_uiVic, poTiming);
    poTiming->Set420ColorSpace(uiIndex >= m_aoVicCode.GetCount());
    return iResult;
}

int CEdidExtBlockCEA861::RemoveStandard(unsigned int uiIndex)
{
    if (uiIndex >= GetStandardCount())
    {
        return 0;
    }
    const unsigned int uiVic = GetVicCodeEntry(uiIndex).m_uiVic;
    if (uiVic == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    // The entries tell the places before anything moved; they come in block order, and in a block in rising position.
    int bRemoved = 0;
    SRemovedSvds oRemoved = {};
    CCea861Undo oUndo(m_aui8Raw.GetData());
    for (unsigned int i = 0; i < m_aoVicLookUp.GetCount(); ++i)
    {
        const SVicCodeEntryLookUp& oLookUp = m_aoVicLookUp.GetData()[i];
        if (oLookUp.m_uiVic != uiVic)
        {
            continue;
        }
        const bool bSvd = !oLookUp.m_bExtended && oLookUp.m_uiTag == eCea861Tag_Video;
        if (!(bSvd ? RemoveSvd(oLookUp, oRemoved) : RemoveHdmiVic(oLookUp)))
        {
            MASSERT_FAILED();
            break;
        }
        bRemoved = 1;
    }
    oUndo.Complete();
    if (bRemoved)
    {
        UpdateChecksum();
        m_bListsBehind = 1; // the other lists and byte 2 stay, on purpose
        ExtractStandardTimings();
    }
    return bRemoved;
}

// Takes one short video descriptor out of its block, and the header of a block that empties. oRemoved tells what
// earlier calls of the same removal took out, and is brought up to date. 0 when the block is not there.
int CEdidExtBlockCEA861::RemoveSvd(const SVicCodeEntryLookUp& oLookUp, SRemovedSvds& oRemoved)
{
    if (oLookUp.m_uiBlockIndex != oRemoved.m_uiBlockIndex)
    {
        oRemoved.m_uiBlockIndex = oLookUp.m_uiBlockIndex;
        oRemoved.m_uiInBlock = 0;
    }
    unsigned int uiLength = 0;
    const unsigned int uiOffset =
        GetDataBlockOffset(eCea861Tag_Video, oLookUp.m_uiBlockIndex - oRemoved.m_uiBlocks, &uiLength);
    const unsigned int uiPosition = oLookUp.m_uiPosition - oRemoved.m_uiInBlock;
    if (uiOffset == 0 || uiPosition >= uiLength)
    {
        return 0;
    }
    ShrinkDataBlock(uiOffset, uiOffset + uiPosition, 1);
    ++oRemoved.m_uiInBlock;
    if (uiLength == 1)
    {
        RemoveDataRange(uiOffset - 1, 1);
        ++oRemoved.m_uiBlocks;
    }
    return 1;
}

// Takes one HDMI code out of its vendor block, which keeps its length. 0 when the block is not there.
int CEdidExtBlockCEA861::RemoveHdmiVic(const SVicCodeEntryLookUp& oLookUp)
{
    unsigned int uiLength = 0;
    const unsigned int uiOffset = oLookUp.m_bExtended
                                      ? GetDataBlockOffset(static_cast<ECea861_DataBlockExtTags>(oLookUp.m_uiTag),
                                                           oLookUp.m_uiBlockIndex, &uiLength)
                                      : GetDataBlockOffset(static_cast<ECea861_DataBlockTags>(oLookUp.m_uiTag),
                                                           oLookUp.m_uiBlockIndex, &uiLength);
    if (uiOffset == 0)
    {
        return 0;
    }
    CHdmi1xVsdb oVsdb(uiLength, m_aui8Raw.GetData() + uiOffset);
    // The block holds the code itself, whichever timing of the pair is removed.
    oVsdb.RemoveCea861Vic(oLookUp.m_uiVic > gsc_uiVariantOffset ? oLookUp.m_uiVic - gsc_uiVariantOffset
                                                                : oLookUp.m_uiVic);
    return 1;
}

// The payload of the data block that the walk has reached, when that is an HDMI vendor block; else null.
unsigned char* CEdidExtBlockCEA861::GetHdmiPayload(const CDataBlockWalk& oWalk)
{
    unsigned char* pui8Payload = m_aui8Raw.GetData() + oWalk.GetOffset();
    return CHdmi1xVsdb::IsSupported(oWalk.GetLength(), pui8Payload) ? pui8Payload : nullptr;
}

unsigned int CEdidExtBlockCEA861::ExtractStandardTimings()
{
    // Empty before memory may run out: places that no longer hold would let a removal take out another code.
    m_aoVicCode.RemoveAll();
    m_aoVicLookUp.RemoveAll();
    m_aoVicCode420.RemoveAll();

    SAllCodes oCodes;
    oCodes.m_uiCount = 0;
    unsigned int uiBlock = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_Video); ++uiBlock)
    {
        for (unsigned int i = 0; i < oWalk.GetLength(); ++i)
        {
            oCodes.Add(oWalk.GetByte(i), { 0, uiBlock, 0, eCea861Tag_Video, i });
        }
    }
    uiBlock = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_VendorSpecific); ++uiBlock)
    {
        oCodes.AddHdmiVics(oWalk.GetLength(), GetHdmiPayload(oWalk), { 0, uiBlock, 0, eCea861Tag_VendorSpecific, 0 });
    }
    uiBlock = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861ExtTag_VendorVideo); ++uiBlock)
    {
        oCodes.AddHdmiVics(oWalk.GetLength(), GetHdmiPayload(oWalk), { 0, uiBlock, 1, eCea861ExtTag_VendorVideo, 0 });
    }
    ListTimings(oCodes);
    List420Timings(oCodes);
    return CEdidExtBlockCEA861::GetStandardCount(); // qualified: also runs while the object is being made
}

// The ordinary timings, each once, and a look-up entry for each occurrence.
void CEdidExtBlockCEA861::ListTimings(const SAllCodes& oCodes)
{
    unsigned int uiMost = 0;
    for (unsigned int i = 0; i < oCodes.m_uiCount; ++i)
    {
        uiMost += GetCodeTimings(oCodes.m_auiCode[i]).m_uiCount;
    }
    CListFill<SVicCodeEntry> oFill(m_aoVicCode, uiMost);
    CListFill<SVicCodeEntryLookUp> oFillLookUp(m_aoVicLookUp, uiMost);
    for (unsigned int i = 0; i < oCodes.m_uiCount; ++i)
    {
        const SCodeTimings oTimings = GetCodeTimings(oCodes.m_auiCode[i]);
        SVicCodeEntryLookUp oLookUp = oCodes.m_aoSource[i];
        for (unsigned int j = 0; j < oTimings.m_uiCount; ++j)
        {
            AddOnce(oFill, oTimings.m_aoEntry[j]);
            oLookUp.m_uiVic = oTimings.m_aoEntry[j].m_uiVic;
            oFillLookUp.Add(oLookUp);
        }
    }
}

// The timings in YCbCr 4:2:0: capability maps first, then the 4:2:0 video blocks.
void CEdidExtBlockCEA861::List420Timings(const SAllCodes& oCodes)
{
    CListFill<SVicCodeEntry> oFill(m_aoVicCode420, GetMost420Timings());
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861ExtTag_Yuv420CapabilityMap);)
    {
        if (oWalk.GetLength() == 0) // all ordinary timings, uncompared
        {
            for (unsigned int i = 0; i < m_aoVicCode.GetCount(); ++i)
            {
                oFill.Add(m_aoVicCode.GetData()[i]);
            }
        }
        for (unsigned int uiBit = 0; uiBit < 8 * oWalk.GetLength(); ++uiBit)
        {
            if ((oWalk.GetByte(uiBit / 8) >> uiBit % 8 & 1) == 0)
            {
                continue;
            }
            if (uiBit >= oCodes.m_uiCount)
            {
                MASSERT_FAILED();
                continue;
            }
            AddCode(oFill, oCodes.m_auiCode[uiBit]);
        }
    }
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861ExtTag_Yuv420Video);)
    {
        for (unsigned int i = 0; i < oWalk.GetLength(); ++i)
        {
            AddCode(oFill, oWalk.GetByte(i));
        }
    }
}

// As many as there can be: two for each bit set and for each short video descriptor.
unsigned int CEdidExtBlockCEA861::GetMost420Timings() const
{
    unsigned int uiCodes = 0;
    unsigned int uiCopies = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861ExtTag_Yuv420CapabilityMap);)
    {
        uiCopies += oWalk.GetLength() == 0 ? 1U : 0U;
        for (unsigned int i = 0; i < oWalk.GetLength(); ++i)
        {
            uiCodes += static_cast<unsigned int>(std::popcount(oWalk.GetByte(i)));
        }
    }
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861ExtTag_Yuv420Video);)
    {
        uiCodes += oWalk.GetLength();
    }
    return uiCopies * m_aoVicCode.GetCount() + 2 * uiCodes;
}

// An entry of GetStandard's numbering; the caller has tested the index.
CEdidExtBlockCEA861::SVicCodeEntry CEdidExtBlockCEA861::GetVicCodeEntry(unsigned int uiIndex) const
{
    const unsigned int uiOrdinary = m_aoVicCode.GetCount();
    return uiIndex < uiOrdinary ? m_aoVicCode.GetData()[uiIndex] : m_aoVicCode420.GetData()[uiIndex - uiOrdinary];
}

int CEdidExtBlockCEA861::ExtractSvdCodeInfo(unsigned int uiCode, unsigned int* puiVic, int* piNative)
{
    const unsigned int uiVic = uiCode & ~gsc_uiNativeBit;
    const bool bValid = uiCode <= gsc_uiHighestSvd && uiVic != 0;
    if (puiVic != nullptr)
    {
        *puiVic = bValid ? uiVic : 0;
    }
    if (piNative != nullptr)
    {
        *piNative = bValid && uiCode >= gsc_uiNativeBit;
    }
    return bValid;
}

int CEdidExtBlockCEA861::IsSupportedSvd(unsigned int uiCode)
{
    unsigned int uiVic = 0;
    return ExtractSvdCodeInfo(uiCode, &uiVic, nullptr) && CVidParamCea::IsVicSupported(uiVic);
}

// ---- Colour depth ----

int CEdidExtBlockCEA861::GetColorBitDepthSupport(unsigned int& uiBits)
{
    uiBits = 0;
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_VendorSpecific);)
    {
        unsigned char* pui8Payload = GetHdmiPayload(oWalk);
        if (pui8Payload == nullptr)
        {
            continue;
        }
        CHdmi1xVsdb oVsdb(oWalk.GetLength(), pui8Payload);
        unsigned int uiBlockBits = 0;
        if (!oVsdb.GetColorBitDepthSupport(uiBlockBits))
        {
            MASSERT_FAILED();
            return 0;
        }
        uiBits |= uiBlockBits;
    }
    return 1;
}

int CEdidExtBlockCEA861::SetColorBitDepthSupport(unsigned int uiBits)
{
    const unsigned int uiLists = GetTouchedLists(0);
    CCea861Undo oUndo(m_aui8Raw.GetData());
    for (CDataBlockWalk oWalk(*this); oWalk.Next(eCea861Tag_VendorSpecific);)
    {
        unsigned char* pui8Payload = GetHdmiPayload(oWalk);
        if (pui8Payload == nullptr)
        {
            continue;
        }
        CHdmi1xVsdb oVsdb(oWalk.GetLength(), pui8Payload);
        if (!oVsdb.SetColorBitDepthSupport(uiBits))
        {
            MASSERT_FAILED();
            return 0;
        }
    }
    oUndo.Complete();
    FinishEdit(uiLists);
    return 1;
}

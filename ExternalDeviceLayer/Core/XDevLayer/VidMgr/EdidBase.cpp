// Loading, identity and video input of the base block. Its timings are in EdidBaseTimings.cpp.

#include "EdidBase.h"

#include <stdio.h>

#include <algorithm>

#include "Standards/BaseBlock.h"
#include "Standards/Makers.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace ZorStandards;
using namespace ZorStandards::BaseBlock;

namespace
{
static_assert(DescriptorOffset(CEdidBase::msc_uiDescriptorCount) == gsc_uiExtensionCountOffset,
              "the descriptors fill the block up to byte 126");

constexpr unsigned int gsc_uiTextCharacters = gsc_uiDescriptorSize - gsc_uiContentsOffset; // at most
constexpr char gsc_cLineFeed = 0x0A;
constexpr char gsc_cTab = 0x09;

constexpr unsigned int gsc_uiMonitorIdLength = 7; // three letters, four digits

bool IsZeroBlock(const unsigned char* pui8Block)
{
    return std::all_of(pui8Block, pui8Block + CEdidUtils::msc_uiBlockSize,
                       [](unsigned char ui8Byte) { return ui8Byte == 0; });
}
} // namespace

CEdidBase::CEdidBase() : m_aui8Edid{}, m_auiEstablishedMask{}, m_uiEdidSize(0) { FillEstablishedMask(); }

CEdidBase::~CEdidBase() { CEdidBase::ClearEdidBuffer(); }

int CEdidBase::ClearEdidBuffer()
{
    ZorTools_memset(m_aui8Edid, 0, sizeof(m_aui8Edid));
    m_uiEdidSize = 0;
    return 1;
}

int CEdidBase::SetEdidBuffer(const unsigned char* pui8Data, unsigned int uiSize, unsigned int)
{
    CEdidBase::ClearEdidBuffer();
    if (pui8Data == nullptr || uiSize < CEdidUtils::msc_uiBlockSize ||
        ZorTools_memcmp(pui8Data, EDID_V1_HEADER, sizeof(EDID_V1_HEADER)) != 0)
    {
        return 0;
    }
    ZorTools_memcpy(m_aui8Edid, pui8Data, CEdidUtils::msc_uiBlockSize);
    m_uiEdidSize = CEdidUtils::msc_uiBlockSize;
    ExtractStandardTimings();
    return 1;
}

unsigned int CEdidBase::GetEdidSizeFromData(unsigned int uiSize, const unsigned char* pui8Data)
{
    if (pui8Data == nullptr || uiSize == 0)
    {
        return 0;
    }
    if (uiSize % CEdidUtils::msc_uiBlockSize != 0)
    {
        MASSERT_FAILED();
    }
    unsigned int uiOffset = 0;
    while (uiSize - uiOffset >= CEdidUtils::msc_uiBlockSize && !IsZeroBlock(pui8Data + uiOffset))
    {
        uiOffset += CEdidUtils::msc_uiBlockSize;
    }
    return uiOffset;
}

void CEdidBase::UpdateChecksum()
{
    m_aui8Edid[CEdidUtils::msc_uiChecksumOffset] = 0; // a derived class may have written it while the size is 0
    CEdidUtils::StoreChecksum(m_uiEdidSize, m_aui8Edid);
}

unsigned int CEdidBase::GetExtBlockType(unsigned int uiIndex) const
{
    return uiIndex == 0 && m_aui8Edid[gsc_uiVersionOffset] == gsc_uiVersion ? m_aui8Edid[gsc_uiExtensionCountOffset]
                                                                            : 0;
}

int CEdidBase::GetMonitorID(char* pszId, unsigned int uiSize) const
{
    if (pszId == nullptr || uiSize <= gsc_uiMonitorIdLength)
    {
        return 0;
    }
    const SManufacturerCode oCode = ReadManufacturerCode(m_aui8Edid);
    return snprintf(pszId, gsc_uiMonitorIdLength + 1, "%s%04X", oCode.m_szCode, ReadProductCode(m_aui8Edid));
}

int CEdidBase::GetMonitorName(char* pszText, unsigned int uiSize) const
{
    return GetDescriptorText(gsc_ui8TagName, pszText, uiSize) ? 1 : 0;
}

int CEdidBase::GetMonitorString(char* pszText, unsigned int uiSize) const
{
    return GetDescriptorText(gsc_ui8TagString, pszText, uiSize) ? 1 : 0;
}

int CEdidBase::GetMonitorSerialNumber(char* pszText, unsigned int uiSize) const
{
    return GetDescriptorText(gsc_ui8TagSerialNumber, pszText, uiSize) ? 1 : 0;
}

int CEdidBase::GetMonitorRangeLimits(SRangeLimits& oLimits) const
{
    const unsigned char* pui8Descriptor = FindDisplayDescriptor(gsc_ui8TagRangeLimits, 0);
    if (pui8Descriptor == nullptr)
    {
        return 0;
    }
    // Byte 4 of a display descriptor is 0: no offsets.
    const Descriptors::SRangeLimits oRead = Descriptors::ReadRangeLimits(pui8Descriptor, 0);
    oLimits = { oRead.m_uiMinVerticalRateInHz,
                oRead.m_uiMaxVerticalRateInHz,
                oRead.m_uiMinHorizontalRateInKiloHz,
                oRead.m_uiMaxHorizontalRateInKiloHz,
                0,
                oRead.m_uiMaxPixelClockInKiloHz };
    return 1;
}

void CEdidBase::SetSerialNumber(unsigned int uiSerial)
{
    if (ReadSerialNumber(m_aui8Edid) == uiSerial)
    {
        return;
    }
    WriteLittle32(m_aui8Edid + gsc_uiSerialOffset, uiSerial);
    UpdateChecksum();
}

int CEdidBase::GetColorBitDepth(EColorBitDepth& eDepth) const
{
    eDepth = eColorBitDepthReserved;
    if (!HasVideoInputFields())
    {
        return 0;
    }
    eDepth = static_cast<EColorBitDepth>(gsc_oColorDepth.Read(m_aui8Edid));
    return 1;
}

int CEdidBase::SetColorBitDepth(EColorBitDepth eDepth)
{
    if (!HasVideoInputFields() || eDepth > eColorBitDepthReserved)
    {
        return 0;
    }
    if (gsc_oColorDepth.Read(m_aui8Edid) != eDepth)
    {
        gsc_oColorDepth.Write(m_aui8Edid, eDepth);
        UpdateChecksum();
    }
    return 1;
}

int CEdidBase::GetDigitalVideoInterface(EDigitalInterface& eInterface) const
{
    eInterface = eDigitalInterfaceNotDefined;
    bool bRefused = false;
    if (!IsDigital())
    {
        MASSERT_FAILED();
        bRefused = true;
    }
    if (m_aui8Edid[gsc_uiVersionOffset] != gsc_uiVersion)
    {
        MASSERT_FAILED();
        bRefused = true;
    }
    if (m_aui8Edid[gsc_uiRevisionOffset] < gsc_uiVideoInputRevision)
    {
        MASSERT_FAILED();
        bRefused = true;
    }
    if (bRefused)
    {
        MASSERT_FAILED();
        return 0;
    }
    const unsigned int uiInterface = gsc_oInterface.Read(m_aui8Edid);
    eInterface = uiInterface < eDigitalInterfaceReserved ? static_cast<EDigitalInterface>(uiInterface)
                                                         : eDigitalInterfaceReserved;
    return 1;
}

const unsigned char* CEdidBase::FindDisplayDescriptor(unsigned char ui8Tag, unsigned int uiRank) const
{
    for (unsigned int i = 0; i < msc_uiDescriptorCount; ++i)
    {
        const unsigned char* pui8Descriptor = m_aui8Edid + DescriptorOffset(i);
        if (IsDisplayDescriptor(pui8Descriptor) && pui8Descriptor[gsc_uiTagOffset] == ui8Tag && uiRank-- == 0)
        {
            return pui8Descriptor;
        }
    }
    return nullptr;
}

bool CEdidBase::GetDescriptorText(unsigned char ui8Tag, char* pszText, unsigned int uiSize) const
{
    const unsigned char* pui8Descriptor = FindDisplayDescriptor(ui8Tag, 0);
    if (pui8Descriptor == nullptr || pszText == nullptr)
    {
        return false;
    }
    ZorTools_memset(pszText, 0, uiSize);
    const unsigned int uiLimit = std::min(uiSize, gsc_uiTextCharacters);
    for (unsigned int i = 0; i < uiLimit; ++i)
    {
        const char cNext = static_cast<char>(pui8Descriptor[gsc_uiContentsOffset + i]);
        if (cNext == gsc_cLineFeed || cNext == gsc_cTab)
        {
            return i > 0;
        }
        pszText[i] = cNext;
    }
    return uiLimit > 0;
}

int CEdidBase::GetManufacturerName(char* pszName, unsigned int uiSize) const
{
    if (pszName == nullptr || uiSize == 0)
    {
        return 0;
    }
    pszName[0] = '\0';
    const char* pszMaker = FindMakerName(ReadManufacturerCode(m_aui8Edid).m_szCode);
    if (pszMaker == nullptr)
    {
        return 0;
    }
    ZorTools_strcpy_s(pszName, uiSize, pszMaker);
    return static_cast<int>(ZorTools_strlen(pszName));
}

bool CEdidBase::IsDigital() const { return (m_aui8Edid[gsc_uiVideoInputOffset] & gsc_uiDigitalMask) != 0; }

bool CEdidBase::HasVideoInputFields() const
{
    return IsDigital() && IsAtLeastRevision(m_aui8Edid, gsc_uiVideoInputRevision);
}

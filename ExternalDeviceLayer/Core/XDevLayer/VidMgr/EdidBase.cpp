// Loading, identity and video input of the base block. Its timings stand in EdidBaseTimings.cpp.

#include "EdidBase.h"

#include <stdio.h>

#include <algorithm>
#include <iterator>

#include "EdidBaseLayout.h"
#include "ZorAssert.h"
#include "ZorTools.h"

using namespace EdidBaseLayout;

namespace
{
constexpr unsigned int gsc_uiTextCharacters = gsc_uiDescriptorSize - gsc_uiContentsOffset; // at most
constexpr char gsc_cLineFeed = 0x0A;
constexpr char gsc_cTab = 0x09;

// Range limits descriptor, from its first byte. Rates in Hz and kHz, the clock in 10 MHz.
constexpr unsigned int gsc_uiMinVerticalRateOffset = 5;
constexpr unsigned int gsc_uiMaxVerticalRateOffset = 6;
constexpr unsigned int gsc_uiMinHorizontalRateOffset = 7;
constexpr unsigned int gsc_uiMaxHorizontalRateOffset = 8;
constexpr unsigned int gsc_uiMaxPixelClockOffset = 9;
constexpr unsigned int gsc_uiKiloHzPer10MegaHz = 10000;

constexpr unsigned int gsc_uiMonitorIdLength = 7; // three letters, four digits

struct SManufacturer
{
    const char* m_pszCode;
    const char* m_pszName;
};

bool IsZeroBlock(const unsigned char* pui8Block)
{
    return std::all_of(pui8Block, pui8Block + CEdidUtils::msc_uiBlockSize,
                       [](unsigned char ui8Byte) { return ui8Byte == 0; });
}
}

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
    const unsigned int uiProduct =
        static_cast<unsigned int>(m_aui8Edid[gsc_uiProductOffset + 1]) << 8 | m_aui8Edid[gsc_uiProductOffset];
    return snprintf(pszId, gsc_uiMonitorIdLength + 1, "%s%04X", oCode.m_szCode, uiProduct);
}

int CEdidBase::GetManufacturerName(char* pszName, unsigned int uiSize) const
{
    // Letters as assigned to the makers, and the name to show for them. The first row with the letters counts, so that
    // the second one of "NEC" is never found; the row of nulls ends the walk.
    // clang-format off
    static constexpr SManufacturer s_aoManufaturerTable[] = {
        { "AAA", "Avolites Ltd" },
        { "ACI", "ASUSTek Computer Inc." },
        { "ACR", "Acer Technologies" },
        { "ADI", "ADI" },
        { "AOC", "AOC International (U.S.A.), Ltd." },
        { "API", "Acer" },
        { "APP", "Apple Computer, Inc." },
        { "AST", "AST" },
        { "BDS", "Barco" },
        { "BNO", "Bang & Olufsen" },
        { "BNQ", "BenQ Corporation" },
        { "BRG", "Bridge Information Co., Ltd" },
        { "CCP", "EPSON" },
        { "CMN", "Chimei Innolux Corporation" },
        { "CMO", "Chi Mei Optoelectronics corp." },
        { "CPQ", "Compaq" },
        { "CRO", "Extraordinary Technologies PTY Limited" },
        { "CTL", "Chilin" },
        { "CPC", "Daewoo" },
        { "CTX", "CTX - Chuntex Electronic" },
        { "DEC", "DEC" },
        { "DEL", "Dell Computer Corp." },
        { "DON", "DENON, Ltd." },
        { "DPC", "Delta Electronics, Inc." },
        { "DWE", "Daewoo" },
        { "DYS", "Dooyang" },
        { "ECS", "ELITEGROUP Computer Systems" },
        { "EHJ", "EPSON" },
        { "EIZ", "EIZO NANAO" },
        { "ELS", "Elsa AG" },
        { "ENC", "Eizo Nanao Corporation" },
        { "EPH", "Epiphan Systems Inc." },
        { "FCM", "Funai Electric Company of Taiwan" },
        { "FIM", "FIMI" },
        { "FPA", "FUJITSU" },
        { "FUJ", "FUJITSU" },
        { "FUS", "Fujitsu Siemens Computers GmbH" },
        { "GSM", "LG" },
        { "GWY", "Gateway" },
        { "HEI", "Hyundai Electronics Industries Co., Ltd" },
        { "HIQ", "Kaohsiung Opto Electronics Americas, Inc." },
        { "HIT", "Hitachi" },
        { "HSD", "HannStar Display Corp" },
        { "HSL", "Hansol Electronics" },
        { "HTC", "Hitachi" },
        { "HWP", "Hewlett Packard" },
        { "HYC", "Iheeyong" },
        { "ICL", "Fujitsu ICL" },
        { "IBM", "IBM" },
        { "INT", "Interphase Corporation" },
        { "IOD", "I-O DATA DEVICE, INC." },
        { "IVM", "Iiyama North America" },
        { "KDS", "Korea Data Systems" },
        { "LEN", "Lenovo Group Limited" },
        { "MAG", "MAG" },
        { "MAX", "Maxdata Computer Gmbh" },
        { "MDD", "MODIS" },
        { "MEG", "Abeam Tech Ltd" },
        { "MEI", "Panasonic Industry Company" },
        { "MEL", "NEC-MITSUBISHI ELECTRIC VISUAL SYSTEMS" },
        { "MIR", "Miro Computer Products AG" },
        { "MTC", "MITAC" },
        { "ZOR", "Zorvane Electronic Systems Ltd." },
        { "NAN", "EIZO NANAO" },
        { "NDI", "National Display" },
        { "NEC", "NEC Corporation" },
        { "NEC", "NEC-MITSUBISHI ELECTRIC VISUAL SYSTEMS" },
        { "NOK", "NOKIA" },
        { "OKI", "OKI" },
        { "ONK", "ONKYO Corporation" },
        { "OQI", "ViewSonic" },
        { "ORN", "ORION ELECTRIC CO., LTD." },
        { "OTM", "Optoma Corporation" },
        { "OVR", "Oculus VR, Inc." },
        { "PBN", "Packard Bell" },
        { "PHL", "Philips Consumer Electronics Co." },
        { "PIO", "Pioneer Electronic Corporation" },
        { "PGS", "Princeton Graphic Systems" },
        { "PHL", "Philips Consumer Electronics Co." },
        { "PLB", "PLB Monitor, Inc." },
        { "PNR", "Planar Systems, Inc." },
        { "PPM", "Clinton" },
        { "PTS", "Proview Technology Corp." },
        { "QDS", "Quanta Display Inc." },
        { "REL", "Relisys" },
        { "SAM", "Samsung" },
        { "SEC", "Seiko Epson Corporation" },
        { "SDI", "Samsung" },
        { "SGX", "Silicon Graphics" },
        { "SHP", "Sharp Corporation" },
        { "SIB", "SANYO" },
        { "SII", "Silicon Image, Inc." },
        { "SML", "Smile International Corp." },
        { "SNY", "SONY Corporation" },
        { "SPT", "Sceptre Corporation" },
        { "STC", "Sampo" },
        { "STN", "SAMTRON" },
        { "TAT", "Tatung" },
        { "TAX", "Taxan" },
        { "TEA", "TEAC" },
        { "TOS", "Toshiba" },
        { "TOP", "Orion Communications Co., Ltd." },
        { "TRL", "Royal Information Company" },
        { "TSB", "Toshiba America Info Systems Inc" },
        { "TST", "Transtream Inc" },
        { "TTK", "TOTOKU" },
        { "TVM", "TVM" },
        { "UNM", "Unisys" },
        { "VIZ", "VIZIO, Inc" },
        { "VSC", "ViewSonic Corporation" },
        { "WKC", "Wide/Image System" },
        { "YMH", "Yamaha Corporation" },
        { nullptr, nullptr },
    };
    // clang-format on
    static_assert(std::size(s_aoManufaturerTable) == 113, "112 makers and the row that ends the walk");

    if (pszName == nullptr || uiSize == 0)
    {
        return 0;
    }
    pszName[0] = '\0';
    const SManufacturerCode oCode = ReadManufacturerCode(m_aui8Edid);
    for (const SManufacturer* poRow = s_aoManufaturerTable; poRow->m_pszCode != nullptr; ++poRow)
    {
        if (ZorTools_strncmp(poRow->m_pszCode, oCode.m_szCode, gsc_uiManufacturerLetters) == 0)
        {
            ZorTools_strcpy_s(pszName, uiSize, poRow->m_pszName);
            return static_cast<int>(ZorTools_strlen(pszName));
        }
    }
    return 0;
}

int CEdidBase::GetMonitorName(char* pszText, unsigned int uiSize) const
{
    return GetDescriptorText(gsc_ui8TagName, pszText, uiSize);
}

int CEdidBase::GetMonitorString(char* pszText, unsigned int uiSize) const
{
    return GetDescriptorText(gsc_ui8TagString, pszText, uiSize);
}

int CEdidBase::GetMonitorSerialNumber(char* pszText, unsigned int uiSize) const
{
    return GetDescriptorText(gsc_ui8TagSerialNumber, pszText, uiSize);
}

int CEdidBase::GetMonitorRangeLimits(SRangeLimits& oLimits) const
{
    const unsigned char* pui8Descriptor = FindDisplayDescriptor(gsc_ui8TagRangeLimits, 0);
    if (pui8Descriptor == nullptr)
    {
        return 0;
    }
    oLimits.m_uiMinVerticalRateInHz = pui8Descriptor[gsc_uiMinVerticalRateOffset];
    oLimits.m_uiMaxVerticalRateInHz = pui8Descriptor[gsc_uiMaxVerticalRateOffset];
    oLimits.m_uiMinHorizontalRateInKiloHz = pui8Descriptor[gsc_uiMinHorizontalRateOffset];
    oLimits.m_uiMaxHorizontalRateInKiloHz = pui8Descriptor[gsc_uiMaxHorizontalRateOffset];
    oLimits.m_uiMinPixelClockInKiloHz = 0;
    oLimits.m_uiMaxPixelClockInKiloHz = pui8Descriptor[gsc_uiMaxPixelClockOffset] * gsc_uiKiloHzPer10MegaHz;
    return 1;
}

void CEdidBase::SetSerialNumber(unsigned int uiSerial)
{
    unsigned char aui8Serial[4];
    for (unsigned int ui = 0; ui < sizeof(aui8Serial); ++ui)
    {
        aui8Serial[ui] = static_cast<unsigned char>(uiSerial >> 8 * ui & 0xFF);
    }
    if (ZorTools_memcmp(m_aui8Edid + gsc_uiSerialOffset, aui8Serial, sizeof(aui8Serial)) == 0)
    {
        return;
    }
    ZorTools_memcpy(m_aui8Edid + gsc_uiSerialOffset, aui8Serial, sizeof(aui8Serial));
    UpdateChecksum();
}

int CEdidBase::GetColorBitDepth(EColorBitDepth& eDepth) const
{
    eDepth = eColorBitDepthReserved;
    if (!HasVideoInputFields())
    {
        return 0;
    }
    eDepth = static_cast<EColorBitDepth>((m_aui8Edid[gsc_uiVideoInputOffset] & gsc_uiColorDepthMask) >>
                                         gsc_uiColorDepthShift);
    return 1;
}

int CEdidBase::SetColorBitDepth(EColorBitDepth eDepth)
{
    if (!HasVideoInputFields() || eDepth > eColorBitDepthReserved)
    {
        return 0;
    }
    unsigned char& ui8VideoInput = m_aui8Edid[gsc_uiVideoInputOffset];
    const unsigned char ui8Changed =
        static_cast<unsigned char>((ui8VideoInput & ~gsc_uiColorDepthMask) | eDepth << gsc_uiColorDepthShift);
    if (ui8Changed != ui8VideoInput)
    {
        ui8VideoInput = ui8Changed;
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
    const unsigned int uiInterface = m_aui8Edid[gsc_uiVideoInputOffset] & gsc_uiInterfaceMask;
    eInterface = uiInterface < eDigitalInterfaceReserved ? static_cast<EDigitalInterface>(uiInterface)
                                                         : eDigitalInterfaceReserved;
    return 1;
}

const unsigned char* CEdidBase::FindDisplayDescriptor(unsigned char ui8Tag, unsigned int uiRank) const
{
    for (unsigned int ui = 0; ui < msc_uiDescriptorCount; ++ui)
    {
        const unsigned char* pui8Descriptor = m_aui8Edid + DescriptorOffset(ui);
        if (IsDisplayDescriptor(pui8Descriptor) && pui8Descriptor[gsc_uiTagOffset] == ui8Tag && uiRank-- == 0)
        {
            return pui8Descriptor;
        }
    }
    return nullptr;
}

int CEdidBase::GetDescriptorText(unsigned char ui8Tag, char* pszText, unsigned int uiSize) const
{
    const unsigned char* pui8Descriptor = FindDisplayDescriptor(ui8Tag, 0);
    if (pui8Descriptor == nullptr || pszText == nullptr)
    {
        return 0;
    }
    ZorTools_memset(pszText, 0, uiSize);
    const unsigned int uiLimit = std::min(uiSize, gsc_uiTextCharacters);
    for (unsigned int ui = 0; ui < uiLimit; ++ui)
    {
        const char cNext = static_cast<char>(pui8Descriptor[gsc_uiContentsOffset + ui]);
        if (cNext == gsc_cLineFeed || cNext == gsc_cTab)
        {
            return ui > 0 ? 1 : 0;
        }
        pszText[ui] = cNext;
    }
    return uiLimit > 0 ? 1 : 0;
}

bool CEdidBase::IsDigital() const { return (m_aui8Edid[gsc_uiVideoInputOffset] & gsc_uiDigitalMask) != 0; }

bool CEdidBase::HasVideoInputFields() const
{
    return IsDigital() && IsAtLeastRevision(m_aui8Edid, gsc_uiVideoInputRevision);
}

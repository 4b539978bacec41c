// The names of the makers that the base block names by three letters.

#include "EdidBase.h"

#include <iterator>

#include "Standards/BaseBlock.h"
#include "ZorTools.h"

using namespace ZorStandards::BaseBlock;

namespace
{
struct SManufacturer
{
    const char* m_pszCode;
    const char* m_pszName;
};
} // namespace

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

// The names of makers.

#include "Makers.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace ZorStandards
{
namespace
{
struct SMaker
{
    const char* m_pszLetters;
    const char* m_pszName;
};

// The first row with the letters counts, so that the second one of "NEC" is never found.
// clang-format off
constexpr SMaker gsc_aoMakers[] = {
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
};
// clang-format on
static_assert(std::size(gsc_aoMakers) == 112);
} // namespace

const char* FindMakerName(const char* pszLetters)
{
    const std::string_view sLetters(pszLetters, gsc_uiMakerLetters);
    const auto* poMaker = std::ranges::find(gsc_aoMakers, sLetters, &SMaker::m_pszLetters);
    return poMaker != std::end(gsc_aoMakers) ? poMaker->m_pszName : nullptr;
}
} // namespace ZorStandards

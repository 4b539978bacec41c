// Companies by the identifiers that IEEE assigns. Private to the library.

#pragma once

namespace ZorStandards
{
struct SOui
{
    unsigned int m_uiOui; // as it is written, the first byte on top
    const char* m_pszName;
};

inline constexpr unsigned int gsc_uiOuiAmd = 0x00001A;
inline constexpr unsigned int gsc_uiOuiNvidia = 0x00044B;
inline constexpr unsigned int gsc_uiOuiDolby = 0x00D046;
inline constexpr unsigned int gsc_uiOuiUhdAlliance = 0x1ABBFB;
inline constexpr unsigned int gsc_uiOuiVesa = 0x3A0292;
inline constexpr unsigned int gsc_uiOuiHdr10Plus = 0x90848B;
inline constexpr unsigned int gsc_uiOuiMicrosoft = 0xCA125C;
inline constexpr unsigned int gsc_uiOuiHdmi = 0x000C03;
inline constexpr unsigned int gsc_uiOuiHdmiForum = 0xC45DD8;

inline constexpr SOui gsc_aoOuis[] = {
    { gsc_uiOuiAmd, "AMD" },
    { gsc_uiOuiNvidia, "NVIDIA" },
    { gsc_uiOuiHdmi, "HDMI Licensing" },
    { 0x000C6E, "ASUSTek" },
    { 0x0010FA, "Apple" },
    { 0x0012FA, "THX" },
    { 0x0014B9, "MStar" },
    { gsc_uiOuiDolby, "Dolby Laboratories" },
    { 0x00E047, "InFocus" },
    { gsc_uiOuiUhdAlliance, "UHD Alliance" },
    { gsc_uiOuiVesa, "VESA" },
    { gsc_uiOuiHdr10Plus, "HDR10+ Technologies" },
    { gsc_uiOuiHdmiForum, "HDMI Forum" },
    { gsc_uiOuiMicrosoft, "Microsoft" },
};

// Null for a company that the list lacks.
constexpr const char* FindOuiName(unsigned int uiOui)
{
    for (const SOui& oOui : gsc_aoOuis)
    {
        if (oOui.m_uiOui == uiOui)
        {
            return oOui.m_pszName;
        }
    }
    return nullptr;
}
} // namespace ZorStandards

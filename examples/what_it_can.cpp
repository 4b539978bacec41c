// Prints what a display can do: some facts, and every mode that its EDID announces.

#include <cstdio>

#include "Edid.h"
#include "ZorEdidFacts.h"
#include "ZorEdidModes.h"

namespace
{
void PrintMode(const SZorImageMode& oMode)
{
    const SZorMode::SRate& oRate = oMode.m_oMode.m_oRate; // exact: 60 is 148500000 / (2200 * 1125)
    const double dRate = static_cast<double>(oRate.m_ullDividend) / static_cast<double>(oRate.m_ullDivisor);
    std::printf("%u x %u%s at %.3f Hz, byte %u%s\n", oMode.m_oMode.m_uiWidth, oMode.m_oMode.m_uiHeight,
                oMode.m_oMode.m_bInterlaced ? " interlaced" : "", dRate, oMode.m_uiOffset,
                oMode.m_uiPreference == 1 ? ", preferred" : "");
}
} // namespace

int main(int iCount, char** apszArguments)
{
    static unsigned char s_aui8Bytes[256 * 128];
    std::FILE* poFile = iCount == 2 ? std::fopen(apszArguments[1], "rb") : nullptr;
    if (poFile == nullptr)
    {
        return 1;
    }
    const unsigned int uiSize = static_cast<unsigned int>(std::fread(s_aui8Bytes, 1, sizeof(s_aui8Bytes), poFile));
    std::fclose(poFile);

    CZorEdidFacts oFacts;
    CZorEdidModes oModes;
    if (oFacts.Read(uiSize, s_aui8Bytes) == 0 || oModes.Read(uiSize, s_aui8Bytes) == 0)
    {
        return 1;
    }
    const CZorEdidFacts::SSize& oSize = oFacts.GetSize();
    if (oSize.m_oSize.IsSaid())
    {
        std::printf("%.1f inches across\n", oSize.GetDiagonal());
    }
    std::printf("ALLM: %s\n", !oFacts.GetLink().m_oAllm.IsSaid()  ? "not said"
                              : oFacts.GetLink().m_oAllm.m_oValue ? "yes"
                                                                  : "no");
    for (unsigned int i = 0; i < oModes.GetCount(); ++i)
    {
        SZorMode oPartner;
        PrintMode(oModes.Get(i));
        if (CZorEdidModes::GetPartner(oModes.Get(i).m_oMode, oPartner)) // 59.94 for 60
        {
            std::printf("    and at 1000/1001 of that\n");
        }
    }
    return 0;
}

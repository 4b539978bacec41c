// PCI look-up over a bus of the test's own, so that it is the same on every machine.

#include <filesystem>
#include <gtest/gtest.h>
#include <stdio.h>

extern "C"
{
#include <pci/pci.h> // does not declare its own linkage
}

#include "OsServices.h"
#include "OsServicesTestSupport.h"
#include "ZorLibrary.h"
#include "ZorVxdPciLib_Linux.h"

namespace
{
using SScans = SWatched<&SZorVxdPciLibCalls::pfnScanBus>;
using SCleanUps = SWatched<&SZorVxdPciLibCalls::pfnCleanup>;

constinit pci_access g_oAccess = {};
constinit pci_dev g_aoDevices[4] = {};

class Pci : public testing::Test
{
protected:
    void SetUp() override
    {
        const unsigned char aaui8Places[4][3] = { { 0, 0, 0 }, { 0, 0x1F, 3 }, { 1, 1, 0 }, { 0xFF, 0x1F, 7 } };
        for (size_t i = 0; i < 4; ++i)
        {
            g_aoDevices[i].bus = aaui8Places[i][0];
            g_aoDevices[i].dev = aaui8Places[i][1];
            g_aoDevices[i].func = aaui8Places[i][2];
            g_aoDevices[i].next = i < 3 ? &g_aoDevices[i + 1] : nullptr;
        }
        g_oZorVxdPciLibCalls.pfnAlloc = [] { return &g_oAccess; };
        g_oZorVxdPciLibCalls.pfnInit = [](pci_access* poAccess) { poAccess->numeric_ids = 7; };
        SScans::Start(g_oZorVxdPciLibCalls, [](pci_access* poAccess) {
            EXPECT_EQ(7, poAccess->numeric_ids) << "it was initialised";
            poAccess->devices = g_aoDevices;
        });
        SCleanUps::Start(g_oZorVxdPciLibCalls, [](pci_access* poAccess) { *poAccess = {}; });
    }
    void TearDown() override { ZorVxdPciLibCleanUp(); }

private:
    const CRestored<SZorVxdPciLibCalls> m_oRestored{ g_oZorVxdPciLibCalls };
};

struct SHandleCase
{
    const char* m_pszName;
    unsigned int m_uiHandle;
    const pci_dev* m_poDevice;
};

// clang-format off
constexpr SHandleCase gsc_aoHandleCases[] = {
    { "HostBridge",             0x00000000, &g_aoDevices[0] },
    { "AllThreeFields",         0x000000FB, &g_aoDevices[1] },
    { "DeviceStartsAtBitThree", 0x00000108, &g_aoDevices[2] },
    { "HigherBitsDoNotCount",   0xFFFF0108, &g_aoDevices[2] },
    { "AllBitsSet",             0x0000FFFF, &g_aoDevices[3] },
    { "OtherFunction",          0x00000109, nullptr },
    { "OtherDevice",            0x00000100, nullptr },
    { "OtherBus",               0x00000208, nullptr },
};
// clang-format on
}

TEST_F(Pci, FindsByBusDeviceAndFunctionAfterOneScan)
{
    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(0, SCleanUps::ms_iCount) << "there is nothing to clean up yet";
    for (const SHandleCase& oCase : gsc_aoHandleCases)
    {
        EXPECT_EQ(oCase.m_poDevice, ZorVxdPciLibConvertHandle(oCase.m_uiHandle)) << oCase.m_pszName;
    }
    EXPECT_EQ(1, SScans::ms_iCount);
    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(1, SCleanUps::ms_iCount);
    EXPECT_EQ(nullptr, g_poZorVxdPciLibAccess);
    g_oZorVxdPciLibCalls.pfnAlloc = []() -> pci_access* { return nullptr; };
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0108)) << "no access";
}

TEST_F(Pci, LastObjectEndsTheLookUp)
{
    {
        const OsServices oFirst(nullptr);
        {
            const OsServices oSecond(nullptr);
            EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0108));
        }
        EXPECT_EQ(0, SCleanUps::ms_iCount);
    }
    EXPECT_EQ(1, SCleanUps::ms_iCount);
    EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0108));
    EXPECT_EQ(2, SScans::ms_iCount) << "it scans anew";
}

TEST(PciMachine, FindsADeviceOfThisMachine)
{
    std::error_code oError;
    const std::filesystem::directory_iterator oFirst("/sys/bus/pci/devices", oError);
    if (oError || oFirst == std::filesystem::directory_iterator())
    {
        GTEST_SKIP() << "this machine shows no PCI bus";
    }
    unsigned int auiPlace[3] = {};
    ASSERT_EQ(3, sscanf(oFirst->path().filename().c_str(), "%*x:%x:%x.%x", auiPlace, auiPlace + 1, auiPlace + 2));
    EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(auiPlace[0] << 8 | auiPlace[1] << 3 | auiPlace[2]));
    ZorVxdPciLibCleanUp();
}

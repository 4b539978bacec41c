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
constinit pci_access g_oAccess = {};
constinit pci_dev g_aoDevices[4] = {};
constinit bool g_bInitialised = false;
constinit unsigned int g_uiScans = 0;
constinit unsigned int g_uiCleanUps = 0;

void SetDevice(size_t uiIndex, unsigned char ui8Bus, unsigned char ui8Device, unsigned char ui8Function)
{
    pci_dev& oDevice = g_aoDevices[uiIndex];
    oDevice.bus = ui8Bus;
    oDevice.dev = ui8Device;
    oDevice.func = ui8Function;
    oDevice.next = uiIndex + 1 < std::size(g_aoDevices) ? &g_aoDevices[uiIndex + 1] : nullptr;
}

pci_access* GiveAccess() { return &g_oAccess; }

class Pci : public testing::Test
{
protected:
    void SetUp() override
    {
        g_uiScans = 0;
        g_uiCleanUps = 0;
        SetDevice(0, 0, 0, 0);
        SetDevice(1, 0, 0x1F, 3);
        SetDevice(2, 1, 1, 0);
        SetDevice(3, 0xFF, 0x1F, 7);
        g_oZorVxdPciLibCalls.pfnAlloc = GiveAccess;
        g_oZorVxdPciLibCalls.pfnInit = [](pci_access*) { g_bInitialised = true; };
        g_oZorVxdPciLibCalls.pfnScanBus = [](pci_access* poAccess) {
            EXPECT_TRUE(g_bInitialised);
            ++g_uiScans;
            poAccess->devices = g_aoDevices;
        };
        g_oZorVxdPciLibCalls.pfnCleanup = [](pci_access* poAccess) {
            ++g_uiCleanUps;
            g_bInitialised = false;
            *poAccess = {};
        };
    }
    void TearDown() override { ZorVxdPciLibCleanUp(); }

private:
    const CRestored<SZorVxdPciLibCalls> m_oRestored{ g_oZorVxdPciLibCalls };
};

struct SHandleCase
{
    const char* m_szName;
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

TEST_F(Pci, FindsByBusDeviceAndFunction)
{
    for (const SHandleCase& oCase : gsc_aoHandleCases)
    {
        EXPECT_EQ(oCase.m_poDevice, ZorVxdPciLibConvertHandle(oCase.m_uiHandle)) << oCase.m_szName;
    }
}

TEST_F(Pci, ScansOnceAndAnewAfterCleanUp)
{
    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(0U, g_uiCleanUps) << "there is nothing to clean up yet";
    g_oZorVxdPciLibCalls.pfnAlloc = []() -> pci_access* { return nullptr; };
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0108)) << "no access";
    g_oZorVxdPciLibCalls.pfnAlloc = GiveAccess;
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0200));
    EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0108));
    EXPECT_EQ(1U, g_uiScans);

    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(1U, g_uiCleanUps);
    EXPECT_EQ(nullptr, g_poZorVxdPciLibAccess);
    SetDevice(3, 2, 0, 0);
    EXPECT_EQ(&g_aoDevices[3], ZorVxdPciLibConvertHandle(0x0200));
    EXPECT_EQ(2U, g_uiScans);
}

TEST_F(Pci, LastObjectEndsTheLookUp)
{
    {
        const OsServices oFirst(nullptr);
        {
            const OsServices oSecond(nullptr);
            EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0108));
        }
        EXPECT_EQ(0U, g_uiCleanUps);
    }
    EXPECT_EQ(1U, g_uiCleanUps);
}

TEST(PciMachine, FindsADeviceOfThisMachine)
{
    std::error_code oError;
    const std::filesystem::directory_iterator oFirst("/sys/bus/pci/devices", oError);
    if (oError || oFirst == std::filesystem::directory_iterator())
    {
        GTEST_SKIP() << "this machine shows no PCI bus";
    }
    unsigned int uiBus = 0;
    unsigned int uiDevice = 0;
    unsigned int uiFunction = 0;
    ASSERT_EQ(3, sscanf(oFirst->path().filename().c_str(), "%*x:%x:%x.%x", &uiBus, &uiDevice, &uiFunction));
    EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(uiBus << 8 | uiDevice << 3 | uiFunction));
    ZorVxdPciLibCleanUp();
}

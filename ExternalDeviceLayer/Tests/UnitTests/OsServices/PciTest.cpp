// PCI look-up over libpci's own reader of text dumps, so that the bus is the same on every machine.

#include <filesystem>
#include <gtest/gtest.h>
#include <stdio.h>
#include <string>
#include <unistd.h>

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
constinit unsigned int g_uiScans = 0;
constinit unsigned int g_uiCleanUps = 0;

std::string GetDumpPath() { return testing::TempDir() + "zor_pci_" + std::to_string(getpid()) + ".txt"; }

// aszDevices  addresses as the dump writes them: bus, device, function in hexadecimal.
void WriteDump(std::initializer_list<const char*> aszDevices)
{
    FILE* const poFile = fopen(GetDumpPath().c_str(), "w");
    ASSERT_NE(nullptr, poFile);
    for (const char* const pszDevice : aszDevices)
    {
        fprintf(poFile, "%s Device\n00: 34 12 78 56 00 00 00 00 00 00 00 00 00 00 00 00\n\n", pszDevice);
    }
    fclose(poFile);
}

pci_access* AllocDumpAccess()
{
    pci_access* const poAccess = pci_alloc();
    poAccess->method = PCI_ACCESS_DUMP;
    std::string sName = "dump.name";
    std::string sPath = GetDumpPath();
    EXPECT_EQ(0, pci_set_param(poAccess, sName.data(), sPath.data()));
    return poAccess;
}

class Pci : public testing::Test
{
protected:
    void SetUp() override
    {
        g_uiScans = 0;
        g_uiCleanUps = 0;
        g_oZorVxdPciLibCalls.pfnAlloc = AllocDumpAccess;
        g_oZorVxdPciLibCalls.pfnScanBus = [](pci_access* poAccess) {
            ++g_uiScans;
            pci_scan_bus(poAccess);
        };
        g_oZorVxdPciLibCalls.pfnCleanup = [](pci_access* poAccess) {
            ++g_uiCleanUps;
            pci_cleanup(poAccess);
        };
        WriteDump({ "00:00.0", "00:1f.3", "01:01.0", "ff:1f.7" });
    }

    void TearDown() override
    {
        ZorVxdPciLibCleanUp();
        unlink(GetDumpPath().c_str());
    }

private:
    const CRestored<SZorVxdPciLibCalls> m_oRestored{ g_oZorVxdPciLibCalls };
};

struct SHandleCase
{
    const char* m_szName;
    unsigned int m_uiHandle;
    int m_iBus, m_iDevice, m_iFunction; // bus -1: not found
};

// clang-format off
const SHandleCase gsc_aoHandleCases[] = {
    { "HostBridge",             0x00000000,   0,    0,  0 },
    { "DeviceStartsAtBitThree", 0x00000108,   1,    1,  0 },
    { "HigherBitsDoNotCount",   0xFFFF0108,   1,    1,  0 },
    { "AllThreeFields",         0x000000FB,   0, 0x1F,  3 },
    { "AllBitsSet",             0x0000FFFF, 255, 0x1F,  7 },
    { "OtherFunction",          0x00000109,  -1,   -1, -1 },
    { "OtherDevice",            0x00000100,  -1,   -1, -1 },
    { "OtherBus",               0x00000208,  -1,   -1, -1 },
};
// clang-format on
}

TEST_F(Pci, FindsByBusDeviceAndFunction)
{
    for (const SHandleCase& oCase : gsc_aoHandleCases)
    {
        SCOPED_TRACE(oCase.m_szName);
        const pci_dev* const poDevice = ZorVxdPciLibConvertHandle(oCase.m_uiHandle);
        ASSERT_EQ(oCase.m_iBus >= 0, poDevice != nullptr);
        if (poDevice != nullptr)
        {
            EXPECT_EQ(oCase.m_iBus, poDevice->bus);
            EXPECT_EQ(oCase.m_iDevice, poDevice->dev);
            EXPECT_EQ(oCase.m_iFunction, poDevice->func);
        }
    }
    EXPECT_EQ(1U, g_uiScans);
}

TEST_F(Pci, ScansOnceAndAnewAfterCleanUp)
{
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0200));
    WriteDump({ "02:00.0" });
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0200)) << "a device that comes later stays out of the list";
    EXPECT_EQ(1U, g_uiScans);

    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(nullptr, g_poZorVxdPciLibAccess);
    EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0200));
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0108));
    EXPECT_EQ(2U, g_uiScans);
    EXPECT_EQ(1U, g_uiCleanUps);
}

TEST_F(Pci, ReleaseWithoutLookUpCleansNothingUp)
{
    EXPECT_EQ(1U, ReleaseZORLibrary());
    EXPECT_EQ(0U, g_uiCleanUps);
}

TEST_F(Pci, NoAccessFindsNothingAndTheNextLookUpTriesAgain)
{
    g_oZorVxdPciLibCalls.pfnAlloc = []() -> pci_access* { return nullptr; };
    EXPECT_EQ(nullptr, ZorVxdPciLibConvertHandle(0x0108));
    EXPECT_EQ(0U, g_uiScans);
    g_oZorVxdPciLibCalls.pfnAlloc = AllocDumpAccess;
    EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(0x0108));
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
    for (const auto& oEntry : std::filesystem::directory_iterator("/sys/bus/pci/devices", oError))
    {
        unsigned int uiDomain = 0;
        unsigned int uiBus = 0;
        unsigned int uiDevice = 0;
        unsigned int uiFunction = 0;
        if (sscanf(oEntry.path().filename().c_str(), "%x:%x:%x.%x", &uiDomain, &uiBus, &uiDevice, &uiFunction) == 4)
        {
            EXPECT_NE(nullptr, ZorVxdPciLibConvertHandle(uiBus << 8 | uiDevice << 3 | uiFunction));
            ZorVxdPciLibCleanUp();
            return;
        }
    }
    GTEST_SKIP() << "this machine shows no PCI bus";
}

// PCI look-up by bus, device and function. The only source that knows libpci's records.

#include "ZorVxdPciLib_Linux.h"

extern "C"
{
#include <pci/pci.h> // does not declare its own linkage
}

#include "ZorLibrary.h"

constinit SZorVxdPciLibCalls g_oZorVxdPciLibCalls = { pci_alloc, pci_init, pci_scan_bus, pci_cleanup };
constinit pci_access* g_poZorVxdPciLibAccess = nullptr;

namespace
{
// Fields of a PCI handle.
constexpr unsigned int BusOf(unsigned int uiHandle) { return (uiHandle >> 8) & 0xFF; }
constexpr unsigned int DeviceOf(unsigned int uiHandle) { return (uiHandle >> 3) & 0x1F; }
constexpr unsigned int FunctionOf(unsigned int uiHandle) { return uiHandle & 0x07; }

// The access with its list of devices; the bus is scanned at the first call. Null when libpci gives no access.
pci_access* GetAccess()
{
    if (g_poZorVxdPciLibAccess == nullptr)
    {
        pci_access* const poAccess = g_oZorVxdPciLibCalls.pfnAlloc();
        if (poAccess == nullptr)
        {
            return nullptr;
        }
        g_poZorVxdPciLibAccess = poAccess;
        g_oZorVxdPciLibCalls.pfnInit(poAccess);
        g_oZorVxdPciLibCalls.pfnScanBus(poAccess);
    }
    return g_poZorVxdPciLibAccess;
}
} // namespace

pci_dev* ZorVxdPciLibConvertHandle(unsigned int uiHandle)
{
    const pci_access* const poAccess = GetAccess();
    if (poAccess == nullptr)
    {
        return nullptr;
    }
    for (pci_dev* poDevice = poAccess->devices; poDevice != nullptr; poDevice = poDevice->next)
    {
        if (poDevice->bus == BusOf(uiHandle) && poDevice->dev == DeviceOf(uiHandle) &&
            poDevice->func == FunctionOf(uiHandle))
        {
            return poDevice;
        }
    }
    return nullptr;
}

void ZorVxdPciLibCleanUp()
{
    if (g_poZorVxdPciLibAccess != nullptr)
    {
        g_oZorVxdPciLibCalls.pfnCleanup(g_poZorVxdPciLibAccess);
        g_poZorVxdPciLibAccess = nullptr;
    }
}

// PCI look-up through libpci. Private to the operating-system layer and its tests; programs that want the members of
// struct pci_dev include libpci's own header.

#pragma once

struct pci_access;
struct pci_dev;

// The libpci calls in one place, so that a test can bring its own bus. pci_init ends the process with status 1 on a
// machine where it finds no way to the bus.
struct SZorVxdPciLibCalls
{
    pci_access* (*pfnAlloc)();
    void (*pfnInit)(pci_access* poAccess);
    void (*pfnScanBus)(pci_access* poAccess);
    void (*pfnCleanup)(pci_access* poAccess);
};

extern SZorVxdPciLibCalls g_oZorVxdPciLibCalls;
extern pci_access* g_poZorVxdPciLibAccess; // null before the first look-up and after the clean-up

// uiHandle  bus in bits 15 to 8, device in bits 7 to 3, function in bits 2 to 0; higher bits do not count, and neither
//           does the PCI domain: the first device that fits is taken.
// The bus is scanned at the first look-up only. The device is valid until ZorVxdPciLibCleanUp; null when there is none.
pci_dev* ZorVxdPciLibConvertHandle(unsigned int uiHandle);

// Ends the look-up, if one was made; the next look-up scans anew.
void ZorVxdPciLibCleanUp();

// What the PCI look-up of ZorLibrary.h asks of libpci. Private to the operating-system layer and its tests.

#pragma once

struct pci_access;

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

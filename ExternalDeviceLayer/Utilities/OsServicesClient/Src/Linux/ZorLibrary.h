/// Low-level access: physical memory, a microsecond timer, PCI look-up, start and stop. OsServices uses these; a
/// program that needs no object may call them itself. No function writes a message: a failure is the null or 0 of the
/// result, and the cause stays in errno.
///
/// Mapping, look-up, start and stop are for one thread at a time; the timer works from any thread.

#pragma once

#pragma GCC visibility push(default)

struct pci_dev; ///< libpci's; a program that wants its members includes libpci's own header

/// A 64-bit number in two halves.
struct SZorFrequency
{
    unsigned int m_uiLow;
    unsigned int m_uiHigh;
};

/// Maps uiSize bytes of physical memory from the given address on, for reading and writing, and gives a pointer to
/// exactly that byte, also when it does not lie on a page start. Needs the rights of /dev/mem. Null on failure, also
/// for a size of 0 on a page start. The caller owns the mapping until memUnmap; the stop of the layer leaves it alone.
///   uiMode  has no effect on this platform.
void* memMap64(unsigned long long uiAddress, unsigned int uiSize, unsigned int uiMode);
void* memMapEx(unsigned int uiAddress, unsigned int uiSize, unsigned int uiMode);
/// Tries the modes 0, 1 and 6 until one gives an address.
void* memMap(unsigned int uiAddress, unsigned int uiSize);

/// pAddress  exactly what the mapping gave, not another address inside it.
/// Returns 1; 0, with nothing unmapped, when it is not a live mapping.
unsigned int memUnmap(void* pAddress);

/// Always 1; there is nothing to set up.
unsigned int tmInit();
/// Keeps the processor busy for at least uiDelay microseconds of the monotonic clock. Always 1.
unsigned int tmDelay(unsigned int uiDelay);
/// Microseconds of the monotonic clock. 0 when it cannot be read, with *puiCounter left alone. Not null.
unsigned int tmCounter(unsigned long long* puiCounter);
/// Counter ticks in a second: always 1000000. Not null. Always 1.
unsigned int tmFrequency(SZorFrequency* poFrequency);

/// Finds a PCI device through libpci, which ends the process with status 1 where it finds no way to the bus.
///   uiHandle  bus in bits 15 to 8, device in bits 7 to 3, function in bits 2 to 0. Higher bits do not count, and
///             neither does the PCI domain: the first device that fits is taken.
/// The bus is scanned at the first look-up only. Null when no device matches. The layer owns the device, which is
/// valid until ZorVxdPciLibCleanUp.
pci_dev* ZorVxdPciLibConvertHandle(unsigned int uiHandle);
/// Ends the look-up, if one was made, and invalidates the devices it gave; the next look-up scans anew. The stop of the
/// layer does the same.
void ZorVxdPciLibCleanUp();

/// Always 1.
unsigned int InitZORLibrary();
/// Ends the PCI look-up and invalidates the device pointers it gave. Mappings stay. Always 1.
unsigned int ReleaseZORLibrary();

#pragma GCC visibility pop

// The neutral names of the low-level access. They only pass on; the work is done in ZorVxd_Linux.cpp and
// ZorVxdPciLib_Linux.cpp.

#include "ZorLibrary.h"

#include "ZorVxd_Linux.h"

void* memMap64(unsigned long long uiAddress, unsigned int uiSize, unsigned int uiMode)
{
    return ZorVxdMapMemoryLinux(static_cast<unsigned int>(uiAddress), static_cast<unsigned int>(uiAddress >> 32),
                                uiSize, uiMode);
}

void* memMapEx(unsigned int uiAddress, unsigned int uiSize, unsigned int uiMode)
{
    return memMap64(uiAddress, uiSize, uiMode);
}

void* memMap(unsigned int uiAddress, unsigned int uiSize)
{
    constexpr unsigned int auiModes[] = { 0, 1, 6 };
    for (const unsigned int uiMode : auiModes)
    {
        void* const pAddress = memMapEx(uiAddress, uiSize, uiMode);
        if (pAddress != nullptr)
        {
            return pAddress;
        }
    }
    return nullptr;
}

unsigned int memUnmap(void* pAddress) { return ZorVxdUnmapMemoryLinux(pAddress); }

unsigned int tmInit() { return 1; }

unsigned int tmDelay(unsigned int uiDelay) { return ZorVxdPrivateLinuxTimer_Delay(uiDelay); }

unsigned int tmCounter(unsigned long long* puiCounter) { return ZorVxdPrivateLinuxTimer_Counter(puiCounter); }

unsigned int tmFrequency(SZorFrequency* poFrequency) { return ZorVxdPrivateLinuxTimer_Frequency(poFrequency); }

unsigned int InitZORLibrary() { return 1; }

unsigned int ReleaseZORLibrary()
{
    ZorVxdPciLibCleanUp();
    return 1;
}

// Fuzz target: the input as a raw and as a text EDID file, through real files; descriptors and memory come back.

#include <fcntl.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

#include <string>

#include "FuzzSupport.h"
#include "ZorEdidUtils.h"

namespace
{
// Counts what the containers hold.
class CCountingAllocator : public CMAllocator
{
public:
    void* Alloc(unsigned long ulSize) override
    {
        ++m_iHeld;
        return ::operator new(ulSize);
    }
    void Free(const void* p) override
    {
        if (p != nullptr)
        {
            --m_iHeld;
            ::operator delete(const_cast<void*>(p));
        }
    }

    int m_iHeld = 0;
};

CCountingAllocator& GetAllocator()
{
    static CCountingAllocator s_oAllocator;
    return s_oAllocator;
}

std::string MakePath(const char* pszEnding)
{
    const char* pszFolder = getenv("TMPDIR");
    return std::string(pszFolder != nullptr ? pszFolder : P_tmpdir) + "/zoredid-fuzz-" + std::to_string(getpid()) +
           pszEnding;
}

// The lowest free descriptor: the same before and after when none was left open.
int GetNextDescriptor()
{
    const int iDescriptor = dup(STDERR_FILENO);
    close(iDescriptor);
    return iDescriptor;
}

// Writes the input to the path, loads it through READ and checks what must hold for any file.
template <class READ>
void RunFile(const std::string& sPath, const uint8_t* pui8Data, size_t uiSize, const READ& Read)
{
    const int iFile = open(sPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    Require(iFile >= 0 && write(iFile, pui8Data, uiSize) == static_cast<ssize_t>(uiSize), "the test can write");
    close(iFile);

    const int iDescriptor = GetNextDescriptor();
    const int iHeld = GetAllocator().m_iHeld;
    {
        CZorEdidUtils::CByteArray aui8Data;
        aui8Data.Add(0x55); // what stood there goes
        const int iResult = CZorEdidUtils::ExtractEdidFromFile(CMString(sPath.c_str()), aui8Data);
        Read(iResult, aui8Data);
    }
    Require(GetNextDescriptor() == iDescriptor, "a file is closed");
    Require(GetAllocator().m_iHeld == iHeld, "memory comes back");
}
}

extern "C" int LLVMFuzzerInitialize(int* /*piCount*/, char*** /*pppszArguments*/)
{
    SilenceMessages();
    CMAllocator::m_poGlobalAllocator = &GetAllocator();
    return freopen("/dev/null", "w", stdout) != nullptr ? 0 : 1; // the text loader prints a size it does not like
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    static const std::string s_sBinPath = MakePath(".bin");
    static const std::string s_sDatPath = MakePath(".dat");
    RunFile(s_sBinPath, pui8Data, uiSize, [&](int iResult, const CZorEdidUtils::CByteArray& aui8Data) {
        Require((iResult != 0) == (uiSize != 0), "a raw file loads unless it is empty");
        Require(iResult == 0 || (aui8Data.GetCount() == uiSize && memcmp(aui8Data.GetData(), pui8Data, uiSize) == 0),
                "a raw file is its bytes");
    });
    RunFile(s_sDatPath, pui8Data, uiSize, [](int iResult, const CZorEdidUtils::CByteArray& aui8Data) {
        Require(iResult == 0 || aui8Data.GetCount() % 128 == 0, "a text file gives whole blocks");
    });
    unlink(s_sBinPath.c_str());
    unlink(s_sDatPath.c_str());
    return 0;
}

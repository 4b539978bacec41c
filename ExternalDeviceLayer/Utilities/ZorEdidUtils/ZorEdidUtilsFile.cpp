// EDID images out of files: raw images and text tables. Nothing here parses an EDID.

#include "ZorEdidUtils.h"

#include <limits.h>
#include <stdio.h>
#include <sys/stat.h>

#include "EdidUtils.h"
#include "ZorAssert.h"
#include "ZorEdidUtilsTable.h"

using namespace ZorUtils;

namespace
{
// An open file, closed at the end of its scope.
class CInputFile
{
public:
    CInputFile(const CMString& oPath, const char* pszMode) : m_poFile(nullptr)
    {
        if (oPath.GetLength() != 0)
        {
            m_poFile = fopen(static_cast<const char*>(oPath), pszMode);
        }
    }
    ~CInputFile()
    {
        if (m_poFile != nullptr)
        {
            fclose(m_poFile);
        }
    }
    CInputFile(const CInputFile&) = delete;
    CInputFile& operator=(const CInputFile&) = delete;

    bool IsOpen() const { return m_poFile != nullptr; }
    FILE* Get() const { return m_poFile; }

private:
    FILE* m_poFile; // null when the file did not open
};

bool IsNameOfKind(const CMString& oPath, const char* pszKind) { return oPath.FindNoCase(pszKind, 0) != -1; }
} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes paths by value
int CZorEdidUtils::ExtractEdidFromFile(CMString oPath, CByteArray& oData)
{
    int bLoaded = 0;
    if (IsNameOfKind(oPath, ".bin"))
    {
        bLoaded = ExtractEdidFromBinFile(oPath, oData);
    }
    else if (IsNameOfKind(oPath, ".dat"))
    {
        bLoaded = ExtractEdidFromDatFile(oPath, oData);
    }
    if (bLoaded == 0)
    {
        MASSERT_FAILED();
        return 0;
    }
    return 1;
}

namespace
{
// Size in bytes, with the file rewound; 0 for an empty file and for more than an array can hold. A folder opens
// for reading and gives LONG_MAX.
unsigned int GetFileSize(FILE* poFile)
{
    fseek(poFile, 0, SEEK_END);
    const long lSize = ftell(poFile);
    rewind(poFile);
    return lSize > 0 && lSize <= INT_MAX ? static_cast<unsigned int>(lSize) : 0;
}
} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes paths by value
int CZorEdidUtils::ExtractEdidFromBinFile(CMString oPath, CByteArray& oData)
{
    oData.RemoveAll();
    const CInputFile oFile(oPath, "rb");
    if (!oFile.IsOpen())
    {
        return 0;
    }
    const unsigned int uiSize = GetFileSize(oFile.Get());
    if (uiSize == 0)
    {
        return 0;
    }
    oData.SetCount(uiSize, -1);
    return fread(oData.GetData(), 1, uiSize, oFile.Get()) != 0 ? 1 : 0;
}

namespace
{
// What has no lines and perhaps no end: a folder, or a device such as /dev/zero. A pipe is read to its end like a file.
// Asked before opening, which may already act on a device.
bool IsFolderOrDevice(const CMString& oPath)
{
    struct stat oStatus;
    return stat(static_cast<const char*>(oPath), &oStatus) == 0 &&
           (S_ISDIR(oStatus.st_mode) || S_ISCHR(oStatus.st_mode) || S_ISBLK(oStatus.st_mode));
}
} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface takes paths by value
int CZorEdidUtils::ExtractEdidFromDatFile(CMString oPath, CByteArray& oData)
{
    oData.RemoveAll();
    if (IsFolderOrDevice(oPath))
    {
        return 0;
    }
    const CInputFile oFile(oPath, "rt");
    if (!oFile.IsOpen() || !ReadEdidTable(oFile.Get(), oData))
    {
        return 0;
    }
    if (oData.GetCount() % CEdidUtils::msc_uiBlockSize != 0)
    {
        printf("Invalid EDID size (%d bytes) !\n", static_cast<int>(oData.GetCount()));
        printf("\n");
        return 0;
    }
    return 1;
}

// Version, errors, and the bytes of a file.

#include <errno.h>
#include <stdio.h>
#include <string.h>

#include <iterator>

#include "HandlesC.h"
#include "ZorEdidImages.h"
#include "ZorEdidUtils.h"

using namespace ZorC;

struct zoredid_image
{
    CZorEdidUtils::CByteArray m_aui8Bytes;
};

namespace
{
constexpr size_t gsc_uiMostOfFile = 16U << 20; // anything larger is not a file of EDIDs, or is a device without an end

size_t GetEnd(const zoredid_image& oImage, size_t uiBegin)
{
    return ZorImages::FindImageEnd(oImage.m_aui8Bytes.GetCount(), oImage.m_aui8Bytes.GetData(), uiBegin);
}

int Load(zoredid_image& oImage, unsigned int uiSize, const unsigned char* pui8Data)
{
    CZorEdidUtils::CByteArray aui8Bytes; // the caller's may be the image's own
    aui8Bytes.SetCount(uiSize, -1);
    if (uiSize != 0)
    {
        memcpy(aui8Bytes.GetData(), pui8Data, uiSize);
    }
    oImage.m_aui8Bytes = aui8Bytes;
    return uiSize != 0 ? 1 : 0;
}

// A file of the kernel has no size before it is read.
zoredid_status LoadFile(zoredid_image& oImage, FILE* poFile)
{
    constexpr unsigned int uiFirst = 4096;
    CZorEdidUtils::CByteArray& aui8Bytes = oImage.m_aui8Bytes;
    size_t uiRead = 0;
    for (unsigned int uiRoom = uiFirst; uiRead <= gsc_uiMostOfFile; uiRoom *= 2)
    {
        aui8Bytes.SetCount(uiRoom, -1);
        uiRead += fread(aui8Bytes.GetData() + uiRead, 1, uiRoom - uiRead, poFile);
        if (uiRead < uiRoom)
        {
            break;
        }
    }
    const bool bSize = uiRead != 0 && uiRead <= gsc_uiMostOfFile;
    aui8Bytes.SetCount(bSize ? static_cast<unsigned int>(uiRead) : 0, -1);
    return bSize ? ZOREDID_OK : ZOREDID_ERROR_SIZE;
}
} // namespace

const char* zoredid_get_version() { return ZOREDID_VERSION; }

const char* zoredid_status_get_text(zoredid_status status)
{
    constexpr const char* apszTexts[] = {
        "no error",
        "invalid argument: a null pointer, or an index or a number that is out of range",
        "no memory",
        "too few bytes or too many",
        "the file cannot be read",
        "the edit is refused",
        "the image has no such field"
    };
    static_assert(std::size(apszTexts) == ZOREDID_ERROR_NO_FIELD + 1);
    return status >= 0 && status <= ZOREDID_ERROR_NO_FIELD ? apszTexts[status] : "unknown error";
}

zoredid_image* zoredid_image_create() { return Create<zoredid_image>(); }
void zoredid_image_free(zoredid_image* image) { delete image; }

zoredid_status zoredid_image_load(zoredid_image* image, const void* data, size_t size)
{
    if (image == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    const zoredid_status status =
        ReadBytes(data, size, [&](auto uiSize, auto* pui8Data) { return Load(*image, uiSize, pui8Data); });
    if (status != ZOREDID_OK)
    {
        image->m_aui8Bytes.RemoveAll();
    }
    return status;
}

zoredid_status zoredid_image_open(zoredid_image* image, const char* path)
{
    if (image == nullptr)
    {
        return ZOREDID_ERROR_ARGUMENT;
    }
    image->m_aui8Bytes.RemoveAll();
    FILE* const poFile = path != nullptr ? fopen(path, "rbe") : nullptr;
    if (poFile == nullptr)
    {
        return path != nullptr ? ZOREDID_ERROR_FILE : ZOREDID_ERROR_ARGUMENT;
    }
    zoredid_status status = Guard([&] { return LoadFile(*image, poFile); });
    status = ferror(poFile) != 0 ? ZOREDID_ERROR_FILE : status;
    const int iError = errno;
    fclose(poFile);
    errno = iError;
    if (status != ZOREDID_OK)
    {
        image->m_aui8Bytes.RemoveAll();
    }
    return status;
}

const unsigned char* zoredid_image_get_data(const zoredid_image* image, size_t* size)
{
    return image != nullptr ? GiveBytes(image->m_aui8Bytes.GetData(), image->m_aui8Bytes.GetCount(), size)
                            : GiveBytes(nullptr, 0, size);
}

size_t zoredid_image_get_count(const zoredid_image* image)
{
    size_t uiCount = 0;
    for (size_t i = 0; image != nullptr && i < image->m_aui8Bytes.GetCount(); i = GetEnd(*image, i))
    {
        ++uiCount;
    }
    return uiCount;
}

const unsigned char* zoredid_image_get_edid(const zoredid_image* image, size_t index, size_t* size)
{
    size_t uiBegin = 0;
    for (size_t i = 0; image != nullptr && uiBegin < image->m_aui8Bytes.GetCount(); ++i)
    {
        const size_t uiEnd = GetEnd(*image, uiBegin);
        if (i == index)
        {
            return GiveBytes(image->m_aui8Bytes.GetData() + uiBegin, uiEnd - uiBegin, size);
        }
        uiBegin = uiEnd;
    }
    return GiveBytes(nullptr, 0, size);
}

// The EDIDs in the bytes of an input, one after the other: so write tools that copy all monitors into one file, and
// those that read a memory past the end of an EDID, where it often begins again.

#include <algorithm>
#include <iterator>
#include <utility>

#include "InputReaders.h"
#include "ZorEdidImages.h"

namespace
{
using CBytes = std::vector<unsigned char>;

// The offsets of the EDIDs, the first one 0. Each ends where the next one begins.
std::vector<size_t> FindImages(const CBytes& aui8Bytes)
{
    std::vector<size_t> auiOffsets = { 0 };
    for (size_t uiEnd = ZorImages::FindImageEnd(aui8Bytes.size(), aui8Bytes.data(), 0); uiEnd < aui8Bytes.size();
         uiEnd = ZorImages::FindImageEnd(aui8Bytes.size(), aui8Bytes.data(), uiEnd))
    {
        auiOffsets.push_back(uiEnd);
    }
    return auiOffsets;
}

std::string Count(size_t uiCount)
{
    constexpr const char* apszCounts[] = { "no EDIDs", "one EDID", "two EDIDs", "three EDIDs", "four EDIDs" };
    return uiCount < std::size(apszCounts) ? apszCounts[uiCount] : std::to_string(uiCount) + " EDIDs";
}

std::string GetOrdinal(size_t uiImage)
{
    constexpr const char* apszOrdinals[] = { "first", "second", "third", "fourth" };
    return uiImage < std::size(apszOrdinals) ? apszOrdinals[uiImage] : std::to_string(uiImage + 1) + "th";
}

// An EDID of the file. Of those with the same bytes all but the first are repeated.
struct SImage
{
    CBytes m_aui8Bytes;
    size_t m_uiBlock;    // where it begins
    size_t m_uiOriginal; // the first one with these bytes, maybe itself

    bool IsRepeated(size_t uiImage) const { return m_uiOriginal != uiImage; }
};

std::vector<SImage> CutImages(const CBytes& aui8Bytes, const std::vector<size_t>& auiOffsets)
{
    std::vector<SImage> aoImages;
    for (size_t i = 0; i < auiOffsets.size(); ++i)
    {
        const auto itBegin = aui8Bytes.begin() + static_cast<std::ptrdiff_t>(auiOffsets[i]);
        const auto itEnd = i + 1 < auiOffsets.size()
                               ? itBegin + static_cast<std::ptrdiff_t>(auiOffsets[i + 1] - auiOffsets[i])
                               : aui8Bytes.end();
        SImage oImage = { CBytes(itBegin, itEnd), auiOffsets[i] / gsc_uiBlockSize, 0 };
        const auto fnHasBytes = [&oImage](const SImage& oOther) { return oOther.m_aui8Bytes == oImage.m_aui8Bytes; };
        const auto itOriginal = std::find_if(aoImages.begin(), aoImages.end(), fnHasBytes);
        oImage.m_uiOriginal = static_cast<size_t>(itOriginal - aoImages.begin());
        aoImages.push_back(std::move(oImage));
    }
    return aoImages;
}

// "the file holds two EDIDs, the second begins at block 2"
std::string Describe(const std::vector<SImage>& aoImages)
{
    constexpr size_t uiMost = 8; // of a line that can still be read
    std::string sText = "the file holds " + Count(aoImages.size());
    for (size_t i = 1; i < aoImages.size() && i < uiMost; ++i)
    {
        sText +=
            ", the " + GetOrdinal(i) + (i == 1 ? " begins" : "") + " at block " + std::to_string(aoImages[i].m_uiBlock);
        sText += aoImages[i].IsRepeated(i) ? " (the same as the " + GetOrdinal(aoImages[i].m_uiOriginal) + ")" : "";
    }
    return sText + (aoImages.size() > uiMost ? ", ..." : "");
}

// oInput with the bytes of this image.
SInput MakeInput(const SInput& oInput, const std::vector<SImage>& aoImages, size_t uiImage)
{
    SInput oMade = oInput;
    oMade.m_aui8Bytes = aoImages[uiImage].m_aui8Bytes;
    oMade.m_uiImage = static_cast<unsigned int>(uiImage) + 1;
    oMade.m_uiOffset = static_cast<unsigned int>(aoImages[uiImage].m_uiBlock) * gsc_uiBlockSize;
    oMade.m_sForm += ", image " + std::to_string(uiImage + 1) + " of " + std::to_string(aoImages.size());
    return oMade;
}

// All of them as inputs of their own; those that are repeated once.
CInputs MakeInputs(const SInput& oInput, const std::vector<SImage>& aoImages)
{
    CInputs aoInputs;
    for (size_t i = 0; i < aoImages.size(); ++i)
    {
        if (aoImages[i].IsRepeated(i))
        {
            continue;
        }
        SInput& oMade = aoInputs.emplace_back(MakeInput(oInput, aoImages, i));
        for (const SImage& oImage : aoImages)
        {
            if (oImage.m_uiOriginal == i)
            {
                oMade.m_auiOffsets.push_back(static_cast<unsigned int>(oImage.m_uiBlock) * gsc_uiBlockSize);
            }
        }
    }
    aoInputs.front().m_sImages = Describe(aoImages);
    for (size_t i = 0; i < aoInputs.size() && aoInputs.size() > 1; ++i)
    {
        SInput& oMade = aoInputs[i];
        oMade.m_sFile = oInput.GetFile();
        oMade.m_sName += " (image " + std::to_string(oMade.m_uiImage) + ")";
        oMade.m_sHint = i == 0 ? oMade.m_sHint : "";
    }
    return aoInputs;
}
} // namespace

void AddImages(SInput oInput, unsigned int uiWanted, CInputs& aoInputs)
{
    const std::vector<size_t> auiOffsets = FindImages(oInput.m_aui8Bytes);
    const size_t uiCount = auiOffsets.size();
    if (uiCount == 1 && uiWanted <= 1)
    {
        aoInputs.push_back(std::move(oInput));
        return;
    }
    const std::vector<SImage> aoImages = CutImages(oInput.m_aui8Bytes, auiOffsets);
    if (uiWanted > uiCount)
    {
        oInput.m_aui8Bytes.clear();
        oInput.m_sHint.clear();
        oInput.m_sProblem = "no image " + std::to_string(uiWanted) + "; " + Describe(aoImages);
        aoInputs.push_back(std::move(oInput));
        return;
    }
    CInputs aoMade =
        uiWanted == 0 ? MakeInputs(oInput, aoImages) : CInputs{ MakeInput(oInput, aoImages, uiWanted - 1) };
    std::move(aoMade.begin(), aoMade.end(), std::back_inserter(aoInputs));
}

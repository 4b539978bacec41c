// Fuzz target: the input as a document of explain --json is refused or makes an image, and as an image it
// comes back from its document. Bytes after the last whole block also damage that document.

#include <algorithm>

#include "BuildImage.h"
#include "FuzzSupport.h"
#include "MapJson.h"

namespace
{
SBuilt Build(const std::string& sDocument)
{
    size_t uiNext = 0;
    CJsonReader oReader([&](char* pcBytes, size_t uiSize) {
        const size_t uiCopied = sDocument.copy(pcBytes, uiSize, uiNext);
        uiNext += uiCopied;
        return uiCopied;
    });
    SExplained oExplained;
    const std::string sProblem = oReader.HasMore() ? ReadExplained(oReader, oExplained) : "is empty";
    SBuilt oBuilt = sProblem.empty() ? BuildImage(oExplained) : SBuilt{ {}, sProblem };
    Require(oBuilt.m_sProblem.size() < 500, "a problem is short");
    Require(!oBuilt.m_sProblem.empty() || oBuilt.m_aui8Bytes.size() == oExplained.m_aui8Read.size(),
            "the image keeps its size");
    return oBuilt;
}

std::string Explain(const CBytes& aui8Image)
{
    CZorEdidMap oMap;
    oMap.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data());
    return MakeExplanation({ "name", aui8Image, "form", "" }, oMap, std::vector<bool>(oMap.GetFieldCount(), true));
}

void TestImage(const CBytes& aui8Image)
{
    const SBuilt oBuilt = Build(Explain(aui8Image));
    Require(oBuilt.m_sProblem.empty() && oBuilt.m_aui8Bytes == aui8Image, "an image comes back");
    Require(oBuilt.m_asNotes.empty(), "nothing was changed");
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    Build(std::string(pui8Data, pui8Data + uiSize));
    const CBytes aui8Image(pui8Data, pui8Data + uiSize);
    if (aui8Image.empty())
    {
        return 0;
    }
    TestImage(aui8Image);

    // Three bytes each: where, and what is put there.
    std::string sDocument = Explain(aui8Image);
    const size_t uiDamages = uiSize / gsc_uiBlockSize * gsc_uiBlockSize;
    for (size_t i = uiDamages; i + 3 <= uiSize; i += 3)
    {
        const size_t uiPlace = (pui8Data[i] * size_t{ 256 } + pui8Data[i + 1]) * 3;
        sDocument[uiPlace % sDocument.size()] = static_cast<char>(pui8Data[i + 2]);
    }
    const SBuilt oChanged = Build(sDocument);
    if (oChanged.m_sProblem.empty())
    {
        TestImage(oChanged.m_aui8Bytes);
    }
    return 0;
}

// Fuzz target: the input is an EDID image in any state, and after its last whole block the edits of its parts. What is
// refused changes nothing and says why; what is done leaves an image whose map says each bit once.

#include <algorithm>

#include "FuzzSupport.h"
#include "MapCheck.h"
#include "ZorEdidParts.h"

namespace
{
constexpr size_t gsc_uiEditSize = 4; // which edit, of what, two numbers

CBytes GetBytes(const CZorEdidParts& oParts)
{
    return { oParts.GetMap().GetData(), oParts.GetMap().GetData() + oParts.GetMap().GetSize() };
}

// One edit of the parts; the payload of a new one is what follows in the input, as far as there are bytes.
int Edit(CZorEdidParts& oParts, const uint8_t* pui8Edit, size_t uiRest, CZorEdidParts::SAnswer& oAnswer)
{
    const unsigned int uiSecond = pui8Edit[2];
    const unsigned int uiThird = pui8Edit[3];
    const unsigned int uiField = (pui8Edit[1] * 256U + uiSecond) % oParts.GetMap().GetFieldCount();
    const auto eId = oParts.GetMap().GetField(uiField).m_eId;
    CBytes aui8Payload(pui8Edit, pui8Edit + std::min<size_t>(uiRest, gsc_uiBlockSize));
    aui8Payload.resize(gsc_uiBlockSize);
    CZorEdidParts::SWhere oWhere;
    if (pui8Edit[0] >= 128)
    {
        oWhere = { uiSecond % 8, uiThird % 32, (uiThird & 0x20) != 0, static_cast<unsigned char>(uiThird) };
    }
    switch (pui8Edit[0] % 7)
    {
    case 0:
        return oParts.AddBlock(uiThird % 2 != 0 ? 0x02 : std::max(uiSecond, 1U), 0, nullptr, oWhere, oAnswer);
    case 1:
        return oParts.AddStandard(aui8Payload.data(), oWhere, oAnswer);
    case 2:
        return oParts.AddDescriptor(aui8Payload.data(), oWhere, oAnswer);
    case 3:
        return oParts.AddDataBlock(eId, uiThird % 64, aui8Payload.data(), oWhere, oAnswer);
    case 4:
        return oParts.AddItem(eId, uiThird % 24, aui8Payload.data(), oWhere, oAnswer);
    case 5:
        return oParts.Remove(uiField, oAnswer);
    default:
        return oParts.Move(uiField, uiThird % 16, oAnswer);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pui8Data, size_t uiSize)
{
    const size_t uiImage = uiSize / gsc_uiBlockSize * gsc_uiBlockSize;
    const CBytes aui8Input(pui8Data, pui8Data + uiImage);
    const CBytes aui8Image = uiSize % 2 == 0 && uiImage != 0 ? RepairImage(aui8Input) : aui8Input;
    CZorEdidParts oParts;
    if (aui8Image.empty() || oParts.Read(static_cast<unsigned int>(aui8Image.size()), aui8Image.data()) == 0)
    {
        return 0;
    }
    for (size_t i = uiImage; i + gsc_uiEditSize <= uiSize; i += gsc_uiEditSize)
    {
        const CBytes aui8Before = GetBytes(oParts);
        CZorEdidParts::SAnswer oAnswer;
        const int iDone = Edit(oParts, pui8Data + i, uiSize - i, oAnswer);
        Require(iDone != 0 || GetBytes(oParts) == aui8Before, "a refusal changes nothing");
        Require(iDone != 0 || oAnswer.m_oReason.GetLength() != 0, "a refusal has a reason");
        Require(oAnswer.m_uiField == CZorEdidMap::msc_uiNone || oAnswer.m_uiField < oParts.GetMap().GetFieldCount(),
                "the part is a field");
        const std::string sBroken = iDone != 0 ? CheckMap(oParts.GetMap()) : "";
        Require(sBroken.empty(), sBroken.c_str());
    }
    return 0;
}

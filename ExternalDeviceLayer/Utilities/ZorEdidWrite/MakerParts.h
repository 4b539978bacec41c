// The image that CZorEdidMaker makes, part by part, with the reason for the first part that cannot be. Private to the
// library.

#pragma once

#include "ModePlaces.h"
#include "Standards/BaseBlock.h"
#include "ZorEdidParts.h"

namespace ZorWrite
{
class CMakerParts
{
public:
    const CZorEdidMap& GetMap() const { return m_oParts.GetMap(); }
    unsigned int CountBlocks() const { return GetMap().GetSize() / ZorStandards::gsc_uiBlockSize; }
    // Of the last call that returned false.
    const CMString& GetReason() const { return m_oAnswer.m_oReason; }

    bool Read(unsigned int uiSize, const unsigned char* pui8Data) { return m_oParts.Read(uiSize, pui8Data) != 0; }
    bool AddDescriptor(const CDetailedBytes& aui8Bytes);
    // 128 bytes; null for an empty block.
    bool AddBlock(unsigned int uiTag, const unsigned char* pui8Block);
    bool AddDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload);
    bool AddItem(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item);
    // Into the last block of the image.
    bool AddItemToLast(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item);
    // The value of the first field with this id, as CZorEdidWriter takes it; the nearest one is good. sNearest is that
    // one, empty where the field says what was asked.
    bool Set(EZorEdidField eId, const char* pszValue, CMString& sNearest);

private:
    CZorEdidParts m_oParts;
    CZorEdidParts::SAnswer m_oAnswer;
};
} // namespace ZorWrite

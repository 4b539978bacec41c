#include "MakerParts.h"

#include "Standards/BaseBlock.h"
#include "ZorEdidWriter.h"

namespace ZorWrite
{
namespace
{
// A further block is the caller's to add, with what all of them have.
CZorEdidParts::SWhere InPresentBlocks()
{
    CZorEdidParts::SWhere oWhere;
    oWhere.m_bNewBlock = false;
    return oWhere;
}
} // namespace

bool CMakerParts::AddDescriptor(const CDetailedBytes& aui8Bytes)
{
    return m_oParts.AddDescriptor(aui8Bytes, InPresentBlocks(), m_oAnswer) != 0;
}

bool CMakerParts::AddBlock(unsigned int uiTag, const unsigned char* pui8Block)
{
    return m_oParts.AddBlock(uiTag, pui8Block != nullptr ? ZorStandards::gsc_uiBlockSize : 0, pui8Block, {},
                             m_oAnswer) != 0;
}

bool CMakerParts::AddDataBlock(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Payload)
{
    return m_oParts.AddDataBlock(eId, uiLength, pui8Payload, InPresentBlocks(), m_oAnswer) != 0;
}

bool CMakerParts::AddItem(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item)
{
    return m_oParts.AddItem(eId, uiLength, pui8Item, InPresentBlocks(), m_oAnswer) != 0;
}

bool CMakerParts::AddItemToLast(EZorEdidField eId, unsigned int uiLength, const unsigned char* pui8Item)
{
    CZorEdidParts::SWhere oWhere = InPresentBlocks();
    oWhere.m_uiBlock = CountBlocks() - 1;
    return m_oParts.AddItem(eId, uiLength, pui8Item, oWhere, m_oAnswer) != 0;
}

bool CMakerParts::Set(EZorEdidField eId, const char* pszValue, CMString& sNearest)
{
    CZorEdidWriter oWriter;
    CZorEdidWriter::SAnswer oAnswer;
    oWriter.Read(GetMap().GetSize(), GetMap().GetData());
    const unsigned int uiField = oWriter.GetMap().FindField(eId);
    const bool bSet = uiField != CZorEdidMap::msc_uiNone && oWriter.Set(uiField, pszValue, oAnswer) != 0 &&
                      m_oParts.Read(oWriter.GetMap().GetSize(), oWriter.GetMap().GetData()) != 0;
    sNearest = oAnswer.m_bExact ? CMString() : oAnswer.m_oAfter;
    m_oAnswer.m_oReason = bSet ? CMString() : oAnswer.m_oReason;
    return bSet;
}
} // namespace ZorWrite

// The headers of the data blocks of each kind, for who makes data blocks. Private to the library.

#pragma once

#include "ZorEdidMapIds.h"

namespace ZorMap
{
// The first bytes of a data block, up to what the map calls its payload: of CTA-861 tag and length, extended tag and
// OUI; of DisplayID tag, revision and flags, length. The length counts nothing yet.
struct SDataBlockHead
{
    unsigned char m_aui8Bytes[5];
    unsigned int m_uiSize;
};

// Of the group that the map makes of a data block. Of an id with several tags that of the first one. False for other
// ids. Of DisplayID the data block is one of structure version 1 or 2.
bool FindCtaHead(EZorEdidField eId, SDataBlockHead& oHead);
bool FindDisplayIdHead(EZorEdidField eId, unsigned int uiVersion, SDataBlockHead& oHead);
} // namespace ZorMap

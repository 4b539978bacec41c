// What the tests of extension blocks in the map share: what is expected of the fields of the block after the base
// block, as a line of text.

#pragma once

#include <gtest/gtest.h>

#include "CaseFile.h"
#include "ZorEdidMap.h"

// A base block of zeros that counts one extension block, and that block.
CBytes BehindBaseBlock(CBytes aui8Block);

// The images that the rows of golden/cta-blocks.txt and golden/displayid-blocks.txt describe: a header or nothing for
// the usual one, then data blocks.
CBytes MakeCtaImage(const SCaseRow& oRow);
CBytes MakeSectionImage(const SCaseRow& oRow);

// The next field of this name in the extension block; the count for none.
unsigned int FindNext(const CZorEdidMap& oMap, unsigned int uiField, const std::string& sName);

// The notes of the fields of the extension block, or of one of them.
std::vector<std::string> GetNotes(const CZorEdidMap& oMap, unsigned int uiField = CZorEdidMap::msc_uiNone);

// "NAME=VALUE; !NOTE; ...": fields of the extension block in the order of the map, those between them left out. A note
// is one of the field named before it. All notes of the block are named.
void ExpectFields(const CBytes& aui8Image, const std::string& sExpected);

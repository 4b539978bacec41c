// Where an image announces a mode or names a video code: in all of its fields, whether the library lists them or not.

#pragma once

#include <string>
#include <vector>

#include "CeaBlocks.h"
#include "EditPlan.h"
#include "ZorEdidModes.h"

// "1920x1080@60", "VIC 219".
std::string GetWantedName(const SWanted& oWanted);

// Whether a mode is the wanted one, or of the wanted code.
bool IsPlaceOf(const SZorMode& oMode, const SWanted& oWanted);

using CPlaces = std::vector<SZorImageMode>;

// The fields in the order of the image, with their numbers in the library's lists: of all modes, of the wanted one.
CPlaces FindAllPlaces(const CBytes& aui8Image);
CPlaces FindPlaces(const CBytes& aui8Image, const SWanted& oWanted);

// The codes of a block in the meaning of CTA-861-H, by the offsets of their bytes: of video data blocks, YCbCr 4:2:0
// video data blocks and HDMI vendor data blocks. Codes that are not published count as well.
CCodes FindCodes(const CEdidExtBlockCEA861& oCea, const SWanted& oWanted);

// The field of a place in the map of its image.
unsigned int FindPlaceField(const CZorEdidMap& oMap, const SZorImageMode& oPlace);

// "block 1: Video data block > Short video descriptor 3", each once, joined by commas.
std::string NamePlaces(const CBytes& aui8Image, const CPlaces& aoPlaces);

// Why nothing is removed, with the modes of the same size that the image has.
std::string RefuseMissing(const CBytes& aui8Image, const SWanted& oWanted);

// Takes the places at uiOffset, its rates, out of a CVT code of three bytes, which becomes an unused one with the last
// of them. False, with nothing changed, when its preferred rate would go and others stay.
bool RemoveCvtRates(unsigned char* pui8Code, unsigned int uiOffset, const CPlaces& aoPlaces);

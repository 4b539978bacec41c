// The edits that say what a display is or can do, whatever bytes that takes: each option a few calls of CFieldEdits.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ZorEdidMap.h"

class CFieldEdits;

// Done after the edits by number. Empty, or the reason of a refusal; the image must then be given up.
using CNamedEdit = std::function<std::string(CFieldEdits& oFields)>;

// ---- What several of them use ----

// Range limits that are there come to hold all of the modes, or a note says that they cannot.
void FollowWithLimits(CFieldEdits& oFields, const std::vector<SZorMode>& aoModes);
// The same for what a video code means.
void FollowWithLimitsOfVic(CFieldEdits& oFields, unsigned int uiVic);
// The place of a code among the short video descriptors of video data blocks, as the 4:2:0 capability map counts them.
// False for a code that they do not have.
bool FindCode(const CZorEdidMap& oMap, unsigned int uiVic, unsigned int& uiPlace);
bool Is420Only(const CZorEdidMap& oMap, unsigned int uiVic);

// Of a DisplayID timing that is marked as preferred beside another first detailed timing.
void NoteOtherPreferred(CFieldEdits& oFields);

// ---- The options ----

// Each makes the edit of an option's value. Empty, or what is wrong with the value.
std::string ParseName(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseSerialText(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseMaker(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseProduct(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseDate(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseSize(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseRangeLimits(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseChromaticities(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseGamma(const std::string& sText, CNamedEdit& fnEdit);

// EditAddMode.cpp
std::string ParseAddMode(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseAddModeline(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseAddVic(const std::string& sText, CNamedEdit& fnEdit);

// EditNamedCta.cpp
std::string ParseAddHdr(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseColorimetry(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseVrr(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseFrl(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseTmds(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseYCbCr420(const std::string& sText, CNamedEdit& fnEdit);

// EditParts.cpp
std::string ParseTile(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseAdd(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseRemovePart(const std::string& sText, CNamedEdit& fnEdit);
std::string ParseMovePart(const std::string& sText, CNamedEdit& fnEdit);

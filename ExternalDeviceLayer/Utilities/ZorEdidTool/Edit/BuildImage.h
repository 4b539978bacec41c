// The image of a document of explain --json, with what was changed in the document.

#pragma once

#include <string>
#include <vector>

#include "ExplainedImage.h"

struct SBuilt
{
    std::vector<unsigned char> m_aui8Bytes = {};
    std::string m_sProblem = {}; // why the image is missing: the field and the reason
    std::vector<std::string> m_asNotes = {};
};

// The raw bits of all leaves are the image. Then each leaf whose value was changed is set to it by CZorEdidWriter, in
// the order of the document, with the checksums that follow. Changed is what differs from what the bytes read as. A
// leaf of which both were changed is refused.
SBuilt BuildImage(const SExplained& oExplained);

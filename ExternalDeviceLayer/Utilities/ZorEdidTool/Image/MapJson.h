// The map of an image as JSON, for zoredid explain.

#pragma once

#include <string>
#include <vector>

#include "Input.h"
#include "ZorEdidMap.h"

// The document with a tree of those fields whose place in abShown is true. A field that is shown has all of its groups
// shown.
std::string MakeExplanation(const SInput& oInput, const CZorEdidMap& oMap, const std::vector<bool>& abShown);

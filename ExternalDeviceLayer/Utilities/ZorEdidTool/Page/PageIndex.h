// The index of many monitors: a table with a row for each image, which sorts and filters in a browser.

#pragma once

#include <string>
#include <string_view>

#include "PageHtml.h"
#include "PageImage.h"

// sName is the image's name in its folder. sLink is the address of its page as seen from the index; empty without one.
CHtml MakeIndexRow(const SPageImage& oImage, const std::string& sName, const std::string& sLink);

// Of an input that gives no image; these come last.
CHtml MakeUnreadRow(const std::string& sName, const std::string& sProblem);
bool IsUnreadRow(std::string_view svRow);

// The index up to its rows, and the file of that with the rows after it.
CHtml OpenIndex(const std::string& sTitle);
std::string CloseIndex(const std::string& sTitle, CHtml oIndex, const std::string& sMark);

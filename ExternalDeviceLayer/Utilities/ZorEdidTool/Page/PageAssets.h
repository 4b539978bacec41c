// The page's style and script: Page.css and Page.js, taken into the program when it is built (PageAssets.cpp.in).

#pragma once

#include <string>

const char* GetPageStyle();
const char* GetPageScript();

// SHA-256 in base64, as a content security policy has it.
std::string GetPageStyleHash();
std::string GetPageScriptHash();

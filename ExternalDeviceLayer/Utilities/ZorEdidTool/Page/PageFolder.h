// A folder of images as a folder of pages, with an index of all.

#pragma once

#include <string>

#include "Tool.h"

struct SPageFolder
{
    std::string m_sImages; // the folder of the images
    std::string m_sOut;    // that of the pages; it need not exist
    bool m_bForce = false; // make all pages again, also over files that no run of this made
    unsigned int m_uiJobs = 1;
};

// Writes index.html and, below pages/, a page for each image of all files in the folder and in those below it. A page
// that an earlier run made of the same image stays as it is, so that a run that broke off is resumed by another one.
void WritePageFolder(const SPageFolder& oFolder, STool& oTool);

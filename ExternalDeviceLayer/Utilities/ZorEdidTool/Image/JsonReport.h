// Images as JSON, one document or one line each: `show` and `report` with --json and --jsonl.

#pragma once

#include <array>

#include "CommandLine.h"
#include "ManyFiles.h"

struct SJsonOptions
{
    bool m_bDocument = false;
    bool m_bLines = false;

    bool IsAsked() const { return m_bDocument || m_bLines; }
};

// Declares --json and --jsonl, which exclude each other.
std::array<COption, 2> DeclareJson(COptions& oCommand, SJsonOptions& oOptions);

// Each input has its object, read and loaded or not. One that the library does not load ends in eExit_Input all the
// same. The document is written as it comes, so that memory does not grow with the number of images.
void ReportAsJson(const SJsonOptions& oOptions, SFiles& oFiles, STool& oTool);

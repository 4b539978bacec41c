// What becomes of an edited image: it is written, or only tried, and what has changed is said. Shared by the
// subcommands that make images of images.

#pragma once

#include <string>
#include <vector>

#include "CommandLine.h"

struct SEditOutput
{
    std::string m_sOutput;
    bool m_bForce = false;
    bool m_bDiff = false;
    bool m_bDryRun = false;
};

// Declares -o, --force and --dry-run. pszImage is what is written: "The edited image".
void DeclareImageOutput(COptions& oCommand, const char* pszImage, SEditOutput& oOutput);
// The same and --diff, of an image that was read.
void DeclareEditOutput(COptions& oCommand, const char* pszImage, SEditOutput& oOutput);

// Empty, or what is missing or does not go together.
std::string CheckEditOutput(const SEditOutput& oOutput);

// Writes the image, or finds out what would prevent it, and reports that. False when it cannot be written.
bool WriteEdited(const SEditOutput& oOutput, const std::vector<unsigned char>& aui8Edited, STool& oTool);

// What has changed, by meaning.
std::string DescribeEdited(const std::vector<unsigned char>& aui8Read, const std::vector<unsigned char>& aui8Edited);

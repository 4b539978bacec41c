// The findings about one image in each form that zoredid check writes, and what a document has around them.

#pragma once

#include <string>
#include <vector>

#include "Findings.h"
#include "Input.h"

// The findings of one image, or none and a problem where it cannot be read.
struct SChecked
{
    const SInput& m_oInput;
    std::vector<SFinding> m_aoFindings = {};
};

// "block 1 offset 0x7f (Checksum)"
std::string DescribePlace(const SFinding& oFinding);

// A line for each finding.
std::string MakeFindingLines(const SChecked& oChecked);

// An element of the document of check --json.
std::string MakeCheckedJson(const SChecked& oChecked);

// SARIF 2.1.0: what precedes and follows the results, and the results of an image, separated by gsc_pszBetween;
// empty for none. A text form of an image has no places, as its bytes are not those of the image.
std::string OpenSarif();
inline constexpr const char* gsc_pszCloseSarif = "\n]}]}\n";
inline constexpr const char* gsc_pszBetween = ",\n";
std::string MakeSarifResults(const SChecked& oChecked);

// JUnit's XML, as build servers read it: one suite with a case for each image. A case fails by findings of eFailOn or
// more, and lists all.
struct SJUnitCounts
{
    unsigned long long m_ullImages;
    unsigned long long m_ullFailed;
    unsigned long long m_ullUnreadable;
};
std::string OpenJUnit(const SJUnitCounts& oCounts);
inline constexpr const char* gsc_pszCloseJUnit = "</testsuite>\n";
std::string MakeJUnitCase(const SChecked& oChecked, CZorEdidMap::ESeverity eFailOn);

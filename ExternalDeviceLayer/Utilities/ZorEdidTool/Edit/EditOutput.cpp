// Writing and describing, for edit, build and make.

#include "EditOutput.h"

#include "ImageDiff.h"
#include "Output.h"
#include "OutputForms.h"

namespace
{
using CBytes = std::vector<unsigned char>;

SWritten Write(const SEditOutput& oOutput, const CBytes& aui8Edited)
{
    if (!oOutput.m_bDryRun)
    {
        return WriteImage(oOutput.m_sOutput, aui8Edited, oOutput.m_bForce);
    }
    SWritten oWritten;
    const SOutputForm* const poForm = FindOutputForm(oOutput.m_sOutput, oWritten.m_sProblem);
    return poForm == nullptr ? oWritten : CheckOutput(oOutput.m_sOutput, oOutput.m_bForce, poForm->m_bText);
}
} // namespace

void DeclareImageOutput(COptions& oCommand, const char* pszImage, SEditOutput& oOutput)
{
    oCommand
        .Word("-o,--output", oOutput.m_sOutput,
              (std::string(pszImage) + ", raw or as its ending says (.hex, .c ...); - is standard output").c_str())
        .Placeholder("OUT");
    oCommand.Flag("--force", oOutput.m_bForce, "Replace OUT if it exists");
    oCommand.Flag("--dry-run", oOutput.m_bDryRun, "Do everything but write, and report what would prevent writing");
}

void DeclareEditOutput(COptions& oCommand, const char* pszImage, SEditOutput& oOutput)
{
    DeclareImageOutput(oCommand, pszImage, oOutput);
    oCommand.Flag("--diff", oOutput.m_bDiff, "Print what has changed, by meaning; compare --bytes has the bytes");
}

std::string CheckEditOutput(const SEditOutput& oOutput)
{
    if (oOutput.m_sOutput.empty() && !oOutput.m_bDryRun)
    {
        return "-o OUT is needed, or --dry-run";
    }
    return oOutput.m_bDiff && !oOutput.m_bDryRun && IsStandardOutput(oOutput.m_sOutput)
               ? "-o " + oOutput.m_sOutput + " and --diff both write to standard output"
               : "";
}

bool WriteEdited(const SEditOutput& oOutput, const CBytes& aui8Edited, STool& oTool)
{
    if (!oOutput.m_sOutput.empty())
    {
        ReportWritten(oOutput.m_sOutput, Write(oOutput, aui8Edited), oTool);
    }
    return oTool.m_eExit == eExit_Good;
}

std::string DescribeEdited(const CBytes& aui8Read, const CBytes& aui8Edited)
{
    const SComparedImage oRead(aui8Read);
    const SComparedImage oEdited(aui8Edited);
    return DescribeDiff(CImageDiff(oRead, oEdited, { .m_bAll = true }),
                        { { "removed", "added" },
                          { "removed, still announced elsewhere", "added, announced elsewhere as well" },
                          { "preferred before", "preferred after" },
                          { "stays, no longer preferred", "was there, not preferred" } });
}

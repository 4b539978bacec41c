// What the subcommands of zoredid share: exit statuses, what one image's turn gives, and how a subcommand joins the
// command line. Each subcommand is a file of its own: it declares its options, calls the library and prints.

#pragma once

#include <string>

class COptions;
struct SInput;
struct SWritten;

enum EExit : int
{
    eExit_Good = 0,
    eExit_Finding = 1,     // files that differ, warnings and errors
    eExit_CommandLine = 2, // the command line is wrong
    eExit_Input = 3        // an input cannot be read or loaded, or a result not be written; all others are still done
};

// What one image's turn gives. It is printed whole, in the order of the inputs, whichever thread made it.
struct SOutcome
{
    std::string m_sOut;   // standard output
    std::string m_sError; // standard error: whole lines
    EExit m_eExit = eExit_Good;

    // The worst of all counts.
    void Note(EExit eExit) { m_eExit = eExit > m_eExit ? eExit : m_eExit; }
};

// The state of one run, set by the options that precede the subcommand.
struct STool
{
    bool m_bVerbose = false;    // the library's messages, and what an input was taken for, on standard error
    unsigned int m_uiImage = 0; // which EDID of a file that holds several, from 1; 0 for all
    EExit m_eExit = eExit_Good;

    // The worst of all turns decides.
    void Note(EExit eExit) { m_eExit = eExit > m_eExit ? eExit : m_eExit; }
};

// One line "zoredid: NAME: REASON", with both as ShowName writes them: a reason may hold words of the user.
std::string MakeErrorLine(const std::string& sName, const std::string& sReason);

// One error line and the status of an input that cannot be loaded.
SOutcome RefuseInput(const SInput& oInput, const std::string& sReason);

// One line on standard error, "zoredid: TEXT", with the text as ShowName writes it.
void PrintError(const std::string& sText);

// Text on standard output. FinishOutput reports a write that failed.
void PrintResult(const std::string& sText);

// How OUT was written, on standard error; nothing where that went as usual. What went wrong is noted.
void ReportWritten(const std::string& sPath, const SWritten& oWritten, STool& oTool);

// Prints and notes the outcome of a subcommand without turns.
void PrintOutcome(const SOutcome& oOutcome, STool& oTool);

// Writes all that has been printed; what cannot be written becomes an error line and eExit_Input.
// The last act of a run.
void FinishOutput(STool& oTool);

// The options of each subcommand, and what it does when called. oCommand and oTool outlive that.
void DeclareShowOptions(COptions& oCommand, STool& oTool);
void DeclareReportOptions(COptions& oCommand, STool& oTool);
void DeclareModesOptions(COptions& oCommand, STool& oTool);
void DeclareCompareOptions(COptions& oCommand, STool& oTool);
void DeclareCheckOptions(COptions& oCommand, STool& oTool);
void DeclareExplainOptions(COptions& oCommand, STool& oTool);
void DeclarePageOptions(COptions& oCommand, STool& oTool);
void DeclareEditOptions(COptions& oCommand, STool& oTool);
void DeclareBuildOptions(COptions& oCommand, STool& oTool);
void DeclareMakeOptions(COptions& oCommand, STool& oTool);
void DeclareTimingOptions(COptions& oCommand, STool& oTool);
void DeclareListOptions(COptions& oCommand, STool& oTool);
void DeclareConvertOptions(COptions& oCommand, STool& oTool);

// One turn for each of many inputs, in several threads, with the output in the order of the inputs. Memory does not
// grow with their number.

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Input.h"
#include "Tool.h"

struct SFiles
{
    std::vector<std::string> m_asNames;
    std::string m_sListFile; // names, one a line; "-" is standard input. They follow m_asNames
    bool m_bNulSeparated = false;
    unsigned int m_uiJobs = 1;

    std::string m_sCommand; // the subcommand, for its help

    // Set by subcommands, not by the command line.
    bool m_bTurnsForBadOnes = false; // an input that cannot be read has a turn, too, which then answers for it
    bool m_bTurnsSayImages = false;  // turns say SInput::m_sImages; otherwise standard error has it
    std::string m_sHead;             // standard output before all turns, unless the run itself is refused
    // In its place, called when all turns are done: their standard output waits in a temporary file until then.
    std::function<std::string()> m_fnHead;
    // Takes the standard output of each turn in place of that of the run, in the order of the inputs.
    std::function<void(const std::string&)> m_fnTake;
    std::string m_sBetween; // between the standard outputs of two turns, such as a comma
    std::string m_sTail;    // after all turns

    // Whether the text about an input begins with its name, as it is one of several.
    bool NeedsName(const SInput& oInput) const
    {
        return m_asNames.size() > 1 || !m_sListFile.empty() || oInput.IsOneOfSeveral();
    }
};

// Declares FILE..., --files-from, -0 and -j.
void DeclareFiles(COptions& oCommand, SFiles& oFiles);

// What FILE is where there is one of them.
inline constexpr char gsc_szFileHelp[] = "An image in any form, \"-\" for standard input, or a connector";

// Reads each file and hands its EDIDs to fnTurn, which must not touch anything shared. An input that cannot be read
// becomes an error line and eExit_Input, unless it has a turn. What the library writes during a turn goes to the turn's
// error text with --verbose, and nowhere otherwise.
void ForEachInput(const SFiles& oFiles, STool& oTool, const std::function<SOutcome(const SInput&)>& fnTurn);

// What a subcommand does that takes fewer images than there are one after the other in a file: it takes the first one
// and says so, or is refused. Those that --monitor all takes of a text are always refused then.
enum ESeveral
{
    eSeveral_First,
    eSeveral_Refused
};

// Reads one file of a subcommand that takes few images, at most uiMost. What cannot be read is reported on standard
// error and noted; with --verbose, so is what it was taken for.
CInputs ReadFewInputs(const std::string& sName, size_t uiMost, ESeveral eSeveral, STool& oTool);

// The same where one image is taken.
SInput ReadOneInput(const std::string& sName, ESeveral eSeveral, STool& oTool);

// Writing a result into a file: whole or not at all.

#pragma once

#include <string>

// Writes sContent to sPath; "-" is standard output. A file is replaced in one step: a temporary file beside it is
// written, synchronised and renamed, so that no reader ever sees a part. An existing file keeps its mode bits; a link
// is followed. A device or a pipe is written as it stands.
//   bForce   an existing file may be replaced; without it, it is a problem
//   bIsText  what is no text is never written to a terminal
// False with the reason in sProblem, such as "exists already (use --force)"; the target is then as it was.
bool WriteOutput(const std::string& sPath, const std::string& sContent, bool bForce, bool bIsText,
                 std::string& sProblem);

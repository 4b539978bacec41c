// Writing a result into a file: whole or not at all.

#pragma once

#include <string>

// Writes sContent to sPath; "-" is standard output. A file is replaced in one step: a temporary file beside it is
// written, synchronised and renamed, so that no reader ever sees a part. An existing file keeps its mode bits. Links
// are followed, and a dangling one has its target created. Pipes, sockets and character devices are
// streams: they are written in place. A block device is not, and is refused.
//   bForce   an existing file or link may be replaced; without it, it is a problem
//   bIsText  binary data is never written to a terminal
// False with the reason in sProblem, such as "exists already (use --force)"; the target is then as it was.
bool WriteOutput(const std::string& sPath, const std::string& sContent, bool bForce, bool bIsText,
                 std::string& sProblem);

// What WriteOutput would refuse, as far as that is known without writing.
bool CheckOutput(const std::string& sPath, bool bForce, bool bIsText, std::string& sProblem);

// Whether the path leads to what standard output is, such as "-" and "/dev/stdout".
bool IsStandardOutput(const std::string& sPath);

// Writing a result into a file: whole or not at all, where the file system lets it.

#pragma once

#include <string>

struct SWritten
{
    std::string
        m_sProblem;      // why it was not written, one line, such as "exists already (use --force)"; empty when it was
    std::string m_sHint; // what the user should know of how it was written; mostly empty

    bool IsGood() const { return m_sProblem.empty(); }
};

// Writes sContent to sPath; "-" is standard output. A file is replaced in one step: a temporary file beside it is
// written, synchronised and renamed, so that no reader ever sees a part. An existing file keeps its mode bits. Links
// are followed, and a dangling one has its target created. Pipes, sockets and character devices are
// streams: they are written in place. A block device is not, and is refused.
//   bForce   an existing file or link may be replaced; without it, it is a problem. A file whose folder takes no other
//            one, such as a control file of the kernel, is written in place, with a hint
//   bIsText  binary data is never written to a terminal
// With a problem the target is as it was, unless it was written in place.
SWritten WriteOutput(const std::string& sPath, const std::string& sContent, bool bForce, bool bIsText);

// What WriteOutput would say, as far as that is known without writing.
SWritten CheckOutput(const std::string& sPath, bool bForce, bool bIsText);

// Before several threads write: the mode of new files is asked for, which changes it for a moment in all threads.
void PrepareForThreads();

// Whether the path leads to what standard output is, such as "-" and "/dev/stdout".
bool IsStandardOutput(const std::string& sPath);

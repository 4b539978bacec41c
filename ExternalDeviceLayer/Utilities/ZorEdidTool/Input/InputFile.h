// A file or standard input, read piece by piece from start to end.

#pragma once

#include <stddef.h>

#include <string>

class CInputFile
{
public:
    // "-" is standard input. Folders and devices are not read, but for a terminal as standard input, and the null
    // device as an empty file.
    explicit CInputFile(const std::string& sName);
    ~CInputFile();
    CInputFile(const CInputFile&) = delete;
    CInputFile& operator=(const CInputFile&) = delete;

    // Up to uiSize bytes, which may be fewer before the end, too; 0 at the end or with a problem.
    size_t Read(char* pcBytes, size_t uiSize);

    // Why it cannot be read, one line; empty while it can.
    const std::string& GetProblem() const { return m_sProblem; }

private:
    int m_iFile = -1;
    bool m_bOwned = false; // to be closed
    std::string m_sProblem;
};

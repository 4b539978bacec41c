// A file that is written under a name of its own, until it takes the place of another one.

#pragma once

#include <stddef.h>
#include <stdint.h>

#include <string>

// Whatever ends the command before that, the file goes: SIGINT, SIGTERM and SIGHUP remove it, too, and then end the
// command as they do anyway. A signal that is ignored stays so. There may be as many at a time as there may be jobs.
class CUnfinishedFile
{
public:
    // In the folder, "" or a path with a slash at its end.
    explicit CUnfinishedFile(const std::string& sFolder);
    ~CUnfinishedFile();
    CUnfinishedFile(const CUnfinishedFile&) = delete;
    CUnfinishedFile& operator=(const CUnfinishedFile&) = delete;

    // Below 0, with errno set, if no file could be created.
    int GetFile() const { return m_iFile; }

    // False with errno set when what was written has not reached the disk.
    bool Close();

    // Gives it this name. A file that came up there in the meantime is replaced only with bForce. False with errno set.
    bool Rename(const std::string& sPath, bool bForce);

private:
    std::string m_sPath; // empty once there is no such file
    int m_iFile = -1;
    static constexpr size_t msc_uiNoPlace = SIZE_MAX;
    size_t m_uiPlace = msc_uiNoPlace; // among the names that signals remove
};

// Finding the browser app by the place of the program, and opening it.

#include "BrowserApp.h"

#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace
{
// From the folder of the program: as installed, and in a build folder.
constexpr const char* gsc_apszPlaces[] = { "../share/zoredid/zoredid.html", "../../Bindings/Browser/zoredid.html" };

bool IsSet(const char* pszVariable)
{
    const char* pszValue = getenv(pszVariable); // NOLINT(concurrency-mt-unsafe): nothing sets the environment
    return pszValue != nullptr && *pszValue != '\0';
}
} // namespace

std::string FindBrowserApp()
{
    std::error_code oNone;
    const std::filesystem::path oProgram = std::filesystem::read_symlink("/proc/self/exe", oNone);
    for (const char* pszPlace : gsc_apszPlaces)
    {
        const std::filesystem::path oApp = std::filesystem::weakly_canonical(oProgram.parent_path() / pszPlace, oNone);
        if (std::filesystem::is_regular_file(oApp, oNone))
        {
            return oApp.string();
        }
    }
    return "";
}

bool OpenOnDesktop(const std::string& sPath)
{
    if (!IsSet("DISPLAY") && !IsSet("WAYLAND_DISPLAY"))
    {
        return false;
    }
    std::string sProgram = "xdg-open";
    std::string sFile = sPath;
    char* const ppszArguments[] = { sProgram.data(), sFile.data(), nullptr };
    pid_t iChild = 0;
    int iStatus = 0;
    return posix_spawnp(&iChild, sProgram.c_str(), nullptr, nullptr, ppszArguments, environ) == 0 &&
           waitpid(iChild, &iStatus, 0) == iChild && WIFEXITED(iStatus) && WEXITSTATUS(iStatus) == 0;
}

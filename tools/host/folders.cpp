#include "host/folders.h"

#include "host/wordings.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

namespace AirlumeHost
{

std::string temporaryFolder()
{
    const char *const folder = std::getenv("TMPDIR");
    return folder && *folder != '\0' ? folder : "/tmp";
}

std::string privateFolderName()
{
    return "airlume-" + std::to_string(geteuid());
}

bool isPrivate(const std::string &folder)
{
    struct stat status = {};
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::string makePrivate(const std::string &folder)
{
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return withReason("cannot make the folder " + folder, errno);
    return isPrivate(folder) ? std::string() : "this is not a folder of yours alone: " + folder;
}

FolderLock::FolderLock(const std::string &folder)
    : m_handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    // The timer's signal interrupts the waiting. It comes again, should it once come too early.
    struct sigaction interrupt = {};
    interrupt.sa_handler = [](int) {};
    struct sigaction before = {};
    sigaction(SIGALRM, &interrupt, &before);
    const itimerval patience = {{1, 0}, {1, 0}};
    const itimerval none = {};
    setitimer(ITIMER_REAL, &patience, nullptr);
    flock(m_handle, LOCK_EX);
    setitimer(ITIMER_REAL, &none, nullptr);
    sigaction(SIGALRM, &before, nullptr);
}

FolderLock::~FolderLock()
{
    if (m_handle >= 0)
        close(m_handle);
}

} // namespace AirlumeHost

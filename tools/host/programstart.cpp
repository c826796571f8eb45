#include "host/programstart.h"

#include "host/folders.h"
#include "host/languagecode.h"
#include "host/languagehost.h"
#include "host/localserver.h"
#include "host/wordings.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace AirlumeHost
{

namespace
{
std::string in(const std::string &folder, const std::string &name)
{
    return folder + '/' + name;
}

bool isOurs(std::optional<uid_t> listener)
{
    return listener == geteuid();
}

/// Root's host serves everybody.
bool isHostForUs(std::optional<uid_t> listener)
{
    return isOurs(listener) || listener == uid_t(0);
}

/// Lets copies that are started without us find, in the temporary folder, the one that is about to
/// run in the private folder inside it.
void linkToCopy(const std::string &temporary)
{
    const std::string link = in(temporary, CopyName);
    const std::string target = in(privateFolderName(), CopyName);
    struct stat status = {};
    // What a copy left behind when it ended, and nobody else's.
    if (lstat(link.c_str(), &status) == 0 && status.st_uid == geteuid() && !S_ISDIR(status.st_mode))
        unlink(link.c_str());
    const int result = symlink(target.c_str(), link.c_str());
    // In the way may be another user's copy, as ever.
    static_cast<void>(result);
}

/// A handle that becomes readable when this process ends, whatever it has become by then; -1 where
/// there is no such thing, and the host ends later.
int handleOfThisProcess()
{
#ifdef SYS_pidfd_open
    return static_cast<int>(syscall(SYS_pidfd_open, getpid(), 0));
#else
    return -1;
#endif
}

/// The host's own life, apart from the terminal and the output of the program.
[[noreturn]] void serveOnce(LocalServer &server, std::string_view language, int program)
{
    setsid();
    const int nothing = open("/dev/null", O_RDWR);
    for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, handle);
    {
        LanguageHost host(server, language);
        host.answerOnce(program);
        server.close();
    }
    _exit(0);
}

/// Leaves a host behind, as nobody's child, so that no zombie stays with the program. The server
/// listens already: a program that is faster than the host is heard all the same.
bool leaveHostBehind(LocalServer &server, std::string_view language)
{
    const int program = handleOfThisProcess();
    const pid_t child = fork();
    if (child < 0)
        return false;
    if (child == 0) {
        const pid_t host = fork();
        if (host == 0)
            serveOnce(server, language, program);
        _exit(host < 0 ? 1 : 0);
    }
    int status = 0;
    pid_t waited = -1;
    do {
        waited = waitpid(child, &status, 0);
    } while (waited < 0 && errno == EINTR);
    // Where our starter wants no news of children there is none.
    if (waited == child && status != 0)
        return false;
    server.leave();
    return true;
}

/// Puts a host into the user's own folder. Returns an empty text, or why it cannot.
std::string provideHost(const std::string &temporary, std::string_view language)
{
    const std::string own = in(temporary, privateFolderName());
    if (std::string problem = makePrivate(own); !problem.empty())
        return problem;
    // The host holds it too, until its end: it is there for the copy that was started with it.
    const FolderLock lock(own);
    if (isOurs(listenerAt(in(own, CopyName))) || isOurs(listenerAt(in(own, HostName))))
        return {};
    LocalServer server;
    if (std::string problem = server.listen(in(own, HostName)); !problem.empty())
        return problem;
    linkToCopy(temporary);
    return leaveHostBehind(server, language) ? std::string() : "no process can be had for a host";
}

/// Whether the program shall have the user's own folder for its temporary one.
bool belongsIntoOwnFolder(const std::string &temporary, std::string_view language)
{
    const std::string own = in(temporary, privateFolderName());
    if (isPrivate(own) && isOurs(listenerAt(in(own, CopyName))))
        return true;
    if (language == English || isOurs(listenerAt(in(temporary, CopyName))) ||
        isHostForUs(listenerAt(in(temporary, HostName))))
        return false;
    const std::string problem = provideHost(temporary, language);
    if (!problem.empty())
        complain(printable(problem) + "; Airlume starts in English");
    return problem.empty();
}
} // namespace

int becomeProgram(std::string_view language, char *const *command)
{
    const std::string temporary = temporaryFolder();
    if (belongsIntoOwnFolder(temporary, language))
        setenv("TMPDIR", in(temporary, privateFolderName()).c_str(), 1);
    execvp(command[0], command);
    const int error = errno;
    complain(withReason("cannot start " + printable(command[0]), error));
    return error == ENOENT ? 127 : 126;
}

} // namespace AirlumeHost

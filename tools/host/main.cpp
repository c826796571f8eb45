#include "host/folders.h"
#include "host/languagecode.h"
#include "host/languagehost.h"
#include "host/localserver.h"
#include "host/programstart.h"
#include "host/wordings.h"

#include <cstdio>

#include <getopt.h>
#include <unistd.h>

using namespace AirlumeHost;

namespace
{
constexpr const char *Usage = R"(airlume-host [--language CODE|auto] [--once]
airlume-host [--language CODE|auto] --run PROGRAM [ARGUMENT...]

Tells Airlume the language to speak, as a host suite does.

  --language CODE|auto  the language (default: auto, the desktop's)
  --once                end after one answer, or after ten seconds
  --run                 become PROGRAM, with a host that answers it once unless a host listens
  -h, --help            print this
  -v, --version         print the version

Without --once and --run it takes commands from the standard input, one a line:
  language CODE  tell this language, now and to those who ask later
  raw TEXT       send TEXT as it stands (\n, \r, \t and \\ are known)
  exit           tell Airlume to end
  quit           end this host, as the end of the input does
)";

enum Status { Success = 0, CannotListen = 1, WrongUse = 2, NotAsked = 3 };

struct Options {
    std::string_view language = languageOfEnvironment();
    bool once = false;
    bool run = false;
};

int refuse(std::string_view sentence)
{
    complain(sentence);
    complain("see airlume-host --help");
    return WrongUse;
}

int listenAndServe(const Options &options)
{
    const std::string folder = temporaryFolder();
    LocalServer server;
    std::string problem;
    {
        const FolderLock lock(folder);
        problem = server.listen(folder + '/' + HostName);
    }
    if (!problem.empty()) {
        complain(printable(problem));
        return CannotListen;
    }
    LanguageHost host(server, options.language);
    print("listening");
    const LanguageHost::Outcome outcome =
        options.once ? host.answerOnce(-1) : host.obey(STDIN_FILENO);
    if (outcome != LanguageHost::Outcome::NobodyAsked)
        return Success;
    complain("nobody has asked for a language");
    return NotAsked;
}
} // namespace

int main(int argc, char *argv[])
{
    const option known[] = {{"language", required_argument, nullptr, 'l'},
        {"once", no_argument, nullptr, 'o'}, {"run", no_argument, nullptr, 'r'},
        {"help", no_argument, nullptr, 'h'}, {"version", no_argument, nullptr, 'v'}, {}};
    Options options;
    // "+": what follows the program are its own arguments.
    for (int found = 0; (found = getopt_long(argc, argv, "+hv", known, nullptr)) != -1;) {
        switch (found) {
        case 'l':
            options.language = optarg;
            if (options.language == "auto")
                options.language = languageOfEnvironment();
            else if (!isLanguageCode(options.language))
                return refuse("no language \"" + printable(optarg) + "\"; there are: auto " +
                              languageCodes());
            break;
        case 'o':
            options.once = true;
            break;
        case 'r':
            options.run = true;
            break;
        case 'h':
            std::fputs(Usage, stdout);
            return Success;
        case 'v':
            print("airlume-host " AIRLUME_VERSION);
            return Success;
        default:
            return refuse("this option is not understood");
        }
    }
    if (options.run && options.once)
        return refuse("--run ends after one answer anyway: leave --once out");
    if (options.run != (optind < argc))
        return refuse(options.run ? "--run wants a program" : "there are no arguments but options");
    return options.run ? becomeProgram(options.language, argv + optind) : listenAndServe(options);
}

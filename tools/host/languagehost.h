#ifndef AIRLUME_TOOLS_HOST_LANGUAGEHOST_H
#define AIRLUME_TOOLS_HOST_LANGUAGEHOST_H

#include "host/localserver.h"

#include <list>
#include <string>
#include <string_view>

namespace AirlumeHost
{

/// Answers the language requests of Airlume as a host suite does, and prints what comes and goes.
/// Only one may run in a process: it listens to the process's signals.
class LanguageHost
{
public:
    enum class Outcome {
        Answered,    ///< the one answer has been given
        NobodyAsked, ///< ten seconds have passed without a request
        Ended        ///< by a command, a signal, or the end of what was watched
    };

    /// `server` listens already, and does no longer after the end. `language`: one of the codes.
    LanguageHost(LocalServer &server, std::string_view language);
    ~LanguageHost();
    LanguageHost(const LanguageHost &) = delete;
    LanguageHost &operator=(const LanguageHost &) = delete;

    /// Ends with the first answer or after ten seconds; earlier when `program` becomes readable,
    /// the handle of a process that has ended then (pidfd_open(2)). -1: none.
    Outcome answerOnce(int program);

    /// Answers every request and takes commands, one a line, from `input`, until that ends.
    Outcome obey(int input);

private:
    struct Client {
        int handle;
        bool asked;
        std::string heard;
    };
    using Clients = std::list<Client>;

    Outcome serve(int watched, bool once);
    void welcome();
    /// True when the client has asked, and was answered.
    bool hear(Clients::iterator client);
    bool send(Client &client, const std::string &message);
    void sendToThoseWhoAsked(const std::string &message);
    /// Takes what has come; false when the commands have ended.
    bool read(int input);
    bool carryOut(const std::string &command);

    LocalServer &m_server;
    std::string m_language;
    Clients m_clients;
    std::string m_input;
};

} // namespace AirlumeHost

#endif

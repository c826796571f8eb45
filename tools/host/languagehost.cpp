#include "host/languagehost.h"

#include "host/languagecode.h"
#include "host/wordings.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace AirlumeHost
{

namespace
{
constexpr std::string_view Request = "IpcRequestLanguage";
constexpr std::string_view Exit = "IpcResponseExit";
constexpr std::chrono::milliseconds Patience(10000);
// More than a user has copies; without a limit, handles could run out.
constexpr std::size_t MostClients = 64;

/// Written to by the signals that end the host, read by its loop.
std::array<int, 2> endPipe = {-1, -1};

void askToEnd(int)
{
    const int error = errno;
    const ssize_t written = write(endPipe[1], "", 1);
    static_cast<void>(written);
    errno = error;
}

std::string languageMessage(std::string_view code)
{
    return "IpcResponseLanguage:" + std::string(code);
}

/// Whether the text is, or may still become, a request.
bool mayBeRequest(std::string_view text)
{
    return text.substr(0, Request.size()) == Request.substr(0, text.size());
}
} // namespace

LanguageHost::LanguageHost(LocalServer &server, std::string_view language)
    : m_server(server)
    , m_language(language)
{
    if (pipe(endPipe.data()) == 0) {
        for (const int end : endPipe)
            fcntl(end, F_SETFL, O_NONBLOCK);
    }
    struct sigaction action = {};
    action.sa_handler = askToEnd;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before = {};
        sigaction(signal, &action, &before);
        // As nohup(1) and shells want it.
        if (before.sa_handler == SIG_IGN)
            sigaction(signal, &before, nullptr);
    }
    // Who has gone while it is spoken to is noticed by the result.
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

LanguageHost::~LanguageHost()
{
    for (const Client &client : m_clients)
        close(client.handle);
}

LanguageHost::Outcome LanguageHost::answerOnce(int program)
{
    return serve(program, true);
}

LanguageHost::Outcome LanguageHost::obey(int input)
{
    return serve(input, false);
}

LanguageHost::Outcome LanguageHost::serve(int watched, bool once)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + Patience;
    for (;;) {
        // A negative handle is passed over.
        const bool isFull = m_clients.size() >= MostClients;
        std::vector<pollfd> polled = {{endPipe[0], POLLIN, 0}, {watched, POLLIN, 0},
            {isFull ? -1 : m_server.handle(), POLLIN, 0}};
        for (const Client &client : m_clients)
            polled.push_back({client.handle, POLLIN, 0});
        int timeout = -1;
        if (once) {
            const auto left =
                std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
            if (left <= 0)
                return Outcome::NobodyAsked;
            timeout = static_cast<int>(left);
        }
        if (poll(polled.data(), static_cast<nfds_t>(polled.size()), timeout) <= 0)
            continue;

        // A request that has come counts also when its sender has ended since.
        std::size_t index = 3;
        for (auto next = m_clients.begin(); next != m_clients.end();) {
            const auto client = next++;
            if (polled[index++].revents != 0 && hear(client) && once)
                return Outcome::Answered;
        }
        if (polled[0].revents != 0)
            return Outcome::Ended;
        if (polled[1].revents != 0 && (once || !read(watched)))
            return Outcome::Ended;
        if (polled[2].revents != 0)
            welcome();
    }
}

void LanguageHost::welcome()
{
    if (const std::optional<int> connection = m_server.accept()) {
        m_clients.push_back({*connection, false, {}});
        print("connected");
    }
}

bool LanguageHost::hear(Clients::iterator client)
{
    std::array<char, 4096> block;
    const ssize_t size = recv(client->handle, block.data(), block.size(), MSG_DONTWAIT);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return false;
    if (size <= 0) {
        print("disconnected");
        close(client->handle);
        m_clients.erase(client);
        return false;
    }
    const std::string_view text(block.data(), static_cast<std::size_t>(size));
    print("received " + printable(text));
    client->heard.append(text);
    if (!mayBeRequest(client->heard)) {
        client->heard.clear();
        return false;
    }
    if (client->heard.size() < Request.size())
        return false;
    client->heard.clear();
    client->asked = true;
    return send(*client, languageMessage(m_language));
}

bool LanguageHost::send(Client &client, const std::string &message)
{
    // Whole or not at all: a message in pieces is not understood.
    const ssize_t sent = ::send(client.handle, message.data(), message.size(), MSG_DONTWAIT);
    const bool whole = sent == static_cast<ssize_t>(message.size());
    print((whole ? "sent " : "could not send ") + printable(message));
    return whole;
}

void LanguageHost::sendToThoseWhoAsked(const std::string &message)
{
    bool anybody = false;
    for (Client &client : m_clients) {
        if (client.asked) {
            send(client, message);
            anybody = true;
        }
    }
    if (!anybody)
        print("nobody has asked yet");
}

bool LanguageHost::read(int input)
{
    std::array<char, 4096> block;
    const ssize_t size = ::read(input, block.data(), block.size());
    if (size <= 0)
        return size < 0 && errno == EINTR;
    m_input.append(block.data(), static_cast<std::size_t>(size));
    for (std::size_t end = m_input.find('\n'); end != std::string::npos; end = m_input.find('\n')) {
        const std::string line = m_input.substr(0, end);
        m_input.erase(0, end + 1);
        if (!carryOut(line))
            return false;
    }
    return true;
}

bool LanguageHost::carryOut(const std::string &command)
{
    const std::size_t blank = std::min(command.find(' '), command.size());
    const std::string verb = command.substr(0, blank);
    const std::string object = command.substr(std::min(blank + 1, command.size()));
    if (verb == "quit")
        return false;
    if (verb == "language" && isLanguageCode(object)) {
        m_language = object;
        sendToThoseWhoAsked(languageMessage(m_language));
    } else if (verb == "language") {
        print("languages: " + languageCodes());
    } else if (verb == "raw") {
        sendToThoseWhoAsked(unescaped(object));
    } else if (verb == "exit") {
        sendToThoseWhoAsked(std::string(Exit));
    } else if (!verb.empty()) {
        print("commands: language CODE | raw TEXT | exit | quit");
    }
    return true;
}

} // namespace AirlumeHost

#include "judgedchild.h"

#include "prober.h"

#include <QCoreApplication>
#include <QThread>

#include <cxxabi.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <mutex>

namespace PluginCheck
{

namespace
{

/// Above those that a back end opens, and that one which closes "all" of its own would try.
constexpr int FirstDescriptor = 200;

int resultsEnd = -1;
int commandsEnd = -1;
std::mutex sending;

/// Out of the way, and not handed on to what the back end starts.
int movedUp(int descriptor)
{
    const int moved = ::fcntl(descriptor, F_DUPFD_CLOEXEC, FirstDescriptor);
    if (moved >= 0)
        ::close(descriptor);
    return moved;
}

/// Any thread. Without a way to the judge there is nothing left to do.
void send(const QByteArray &octets)
{
    const std::lock_guard<std::mutex> lock(sending);
    const char *data = octets.constData();
    for (qint64 left = octets.size(); left > 0;) {
        const ssize_t written = ::write(resultsEnd, data, static_cast<size_t>(left));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            ::_exit(CutOff);
        data += written;
        left -= written;
    }
}

void announce(Call call)
{
    send(parcel(Parcel::CallBegins, call));
}

void passOn(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    // In the order of QtMsgType, which is not that of their gravity.
    static const char *const levels[] = {"debug", "warning", "critical", "fatal", "info"};
    send(parcel(Parcel::Said, Message{QLatin1String(levels[type]), text}));
}

QString nameOfException()
{
    const std::type_info *type = abi::__cxa_current_exception_type();
    if (!type)
        return QStringLiteral("nothing at all");
    int status = 0;
    const std::unique_ptr<char, void (*)(void *)> name(
        abi::__cxa_demangle(type->name(), nullptr, nullptr, &status), std::free);
    return QString::fromLocal8Bit(name ? name.get() : type->name());
}

/// Whatever was thrown and not caught ends here, on any thread.
[[noreturn]] void tellOfException()
{
    QString text = nameOfException();
    try {
        if (const std::exception_ptr thrown = std::current_exception())
            std::rethrow_exception(thrown);
    } catch (const std::exception &exception) {
        text += QStringLiteral(": ") + QString::fromLocal8Bit(exception.what());
    } catch (...) {
        // Its type is all that can be said.
    }
    send(parcel(Parcel::Thrown, text));
    ::_exit(CutOff);
}

void answerRounds(WiFiApiInterface &api)
{
    Prober prober(api, announce);
    for (;;) {
        char command = 0;
        const ssize_t got = ::read(commandsEnd, &command, 1);
        if (got == 0)
            return;
        if (got > 0)
            send(parcel(Parcel::Answered, prober.ask()));
        else if (errno != EINTR)
            ::_exit(CutOff);
    }
}

} // namespace

int runJudgedChild(int results, const QString &path)
{
    resultsEnd = movedUp(results);
    commandsEnd = movedUp(STDIN_FILENO);
    if (resultsEnd < 0 || commandsEnd < 0 || ::open("/dev/null", O_RDONLY) != STDIN_FILENO)
        return CutOff;
    // What was printed before a crash is wanted most.
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    std::set_terminate(tellOfException);
    qInstallMessageHandler(passOn);

    announce(Call::Loading);
    const auto tell = [](const Backend &backend) { send(parcel(Parcel::BackendKnown, backend)); };
    const Backend backend = loadBackend(path, tell);
    announce(Call::None);
    tell(backend);
    if (!backend.api)
        return 0;

    // As in Airlume: the object lives in a thread with an event loop, and is called from another.
    const std::unique_ptr<QThread> thread(
        QThread::create([&backend] { answerRounds(*backend.api); }));
    QObject::connect(thread.get(), &QThread::finished, qApp, &QCoreApplication::quit);
    thread->start();
    const int status = QCoreApplication::exec();
    thread->wait();
    return status;
}

} // namespace PluginCheck

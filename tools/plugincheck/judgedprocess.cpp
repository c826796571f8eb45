#include "judgedprocess.h"

#include "advice.h"
#include "judgedchild.h"

#include <QCoreApplication>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace PluginCheck
{

namespace
{

QString where(Call call)
{
    switch (call) {
    case Call::Loading:
        return QStringLiteral("while it was being loaded.");
    case Call::None:
        return QStringLiteral("outside any call.");
    case Call::Ending:
        return QStringLiteral("while the program was ending.");
    default:
        return QStringLiteral("in ") + nameOf(call) + QLatin1Char('.');
    }
}

Problem silent(Call call, int timeout)
{
    return {QStringLiteral("no-answer"),
        nameOf(call) + QStringLiteral(" has not answered for ") +
            QString::number(timeout / 1000.0) +
            QStringLiteral(" s. Airlume would wait for it without limit, and may not even close."),
        {QStringLiteral("Unplug the Wi-Fi adapter and plug it in again, or restart the system's "
                        "Wi-Fi service or the computer."),
            QStringLiteral("If that does not help, send this report to whoever wrote the back "
                           "end.")}};
}

Problem meddled()
{
    return {QStringLiteral("meddled"),
        QStringLiteral("The back end writes to files or connections that are not its own; in "
                       "Airlume they would be the desktop's or the program's."),
        Advice::withBrokenBackend()};
}

QString signalText(int number)
{
    return QStringLiteral("signal ") + QString::number(number) + QStringLiteral(", ") +
           QString::fromLocal8Bit(::strsignal(number));
}

} // namespace

void Heard::add(const Heard &later)
{
    messages += later.messages.mid(0, MaximumMessages - messages.size());
    output += later.output.left(MaximumOutput - output.size());
    errors += later.errors.left(MaximumOutput - errors.size());
}

JudgedProcess::JudgedProcess(const QString &backend, int timeout, QObject *parent)
    : QProcess(parent)
    , m_backend(backend)
    , m_timeout(timeout)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(timeout);
    connect(&m_limit, &QTimer::timeout, this, [this] { fail(silent(m_call, m_timeout)); });
    connect(this, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
        &JudgedProcess::onFinished);
    open(m_results, &JudgedProcess::readResults);
    open(m_output, &JudgedProcess::readOutput);
    open(m_errors, &JudgedProcess::readOutput);
}

JudgedProcess::~JudgedProcess()
{
    disconnect();
    killAll();
    for (const Way *way : {&m_results, &m_output, &m_errors})
        ::close(way->ends[0]);
}

void JudgedProcess::open(Way &way, void (JudgedProcess::*onReadable)())
{
    if (::pipe(way.ends) != 0)
        qFatal("No pipe: %s", std::strerror(errno));
    for (const int end : way.ends)
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(way.ends[0], F_SETFL, O_NONBLOCK);
    way.notifier = std::make_unique<QSocketNotifier>(way.ends[0], QSocketNotifier::Read);
    connect(way.notifier.get(), &QSocketNotifier::activated, this, onReadable);
}

void JudgedProcess::begin()
{
    // What it prints goes through pipes of our own, which can be emptied at any moment.
    setProcessChannelMode(QProcess::ForwardedChannels);
    m_limit.start();
    start(QCoreApplication::applicationFilePath(),
        {QLatin1String(ChildOption), QString::number(m_results.ends[1]), m_backend});
    const bool started = waitForStarted();
    for (const Way *way : {&m_results, &m_output, &m_errors})
        ::close(way->ends[1]);
    m_group = processId();
    if (!started)
        qFatal("Cannot run %s", qPrintable(program()));
}

// Between fork and exec: only what a signal handler may call.
void JudgedProcess::setupChildProcess()
{
    // A group of its own: a key pressed at the terminal is for the judge alone, which then ends
    // all that the back end started.
    ::setpgid(0, 0);
#ifdef Q_OS_LINUX
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    ::dup2(m_output.ends[1], STDOUT_FILENO);
    ::dup2(m_errors.ends[1], STDERR_FILENO);
    ::fcntl(m_results.ends[1], F_SETFD, 0);
}

void JudgedProcess::askOnce()
{
    m_limit.start();
    write("?", 1);
}

void JudgedProcess::end()
{
    m_call = Call::Ending;
    m_limit.start();
    closeWriteChannel();
}

Heard JudgedProcess::takeHeard()
{
    readOutput();
    Heard heard;
    std::swap(heard, m_heard);
    return heard;
}

/// What lies in the pipe, at most about `most`. Stops listening at its end.
QByteArray JudgedProcess::drained(Way &way, int most)
{
    QByteArray octets;
    char buffer[16384];
    while (octets.size() < most) {
        const ssize_t got = ::read(way.ends[0], buffer, sizeof buffer);
        if (got < 0 && errno == EINTR)
            continue;
        if (got == 0)
            way.notifier->setEnabled(false);
        if (got <= 0)
            break;
        octets.append(buffer, static_cast<int>(got));
    }
    return octets;
}

void JudgedProcess::readOutput()
{
    // More than a pipe holds: what was written before this moment is then read.
    constexpr int PipeAndMore = 1024 * 1024;
    m_heard.add({{}, drained(m_output, PipeAndMore), drained(m_errors, PipeAndMore)});
}

void JudgedProcess::readResults()
{
    m_unpacker.add(drained(m_results, std::numeric_limits<int>::max() / 2));
    while (!m_over) {
        const std::optional<QByteArray> content = m_unpacker.next();
        if (!content)
            break;
        open(*content);
    }
    if (!m_over && m_unpacker.isSpoilt())
        fail(meddled());
}

void JudgedProcess::open(const QByteArray &content)
{
    QDataStream stream(content);
    stream.setVersion(QDataStream::Qt_5_15);
    Parcel kind{};
    Message message;
    Backend backend;
    Answers answers;
    stream >> kind;
    switch (kind) {
    case Parcel::CallBegins:
        stream >> m_call;
        m_limit.start();
        return;
    case Parcel::Said:
        stream >> message;
        m_heard.add({{message}, {}, {}});
        return;
    case Parcel::Thrown:
        stream >> m_thrown;
        return;
    case Parcel::BackendKnown:
        stream >> backend;
        if (backend.isWhole)
            m_limit.stop();
        emit backendKnown(backend);
        return;
    case Parcel::Answered:
        stream >> answers;
        m_limit.stop();
        emit answered(answers);
        return;
    }
}

void JudgedProcess::onFinished()
{
    readResults();
    if (m_over)
        return;
    if (m_call != Call::Ending || exitStatus() != NormalExit || exitCode() != 0) {
        fail(howItEnded());
        return;
    }
    m_over = true;
    killAll();
    emit ended();
}

Problem JudgedProcess::howItEnded() const
{
    const QString fate = QStringLiteral(" It would have taken Airlume with it.");
    if (!m_thrown.isEmpty()) {
        return {QStringLiteral("threw"),
            QStringLiteral("The back end threw an exception (") + m_thrown + QStringLiteral(") ") +
                where(m_call) + fate,
            Advice::withBrokenBackend()};
    }
    if (exitStatus() == CrashExit) {
        return {QStringLiteral("crashed"),
            QStringLiteral("The back end crashed (") + signalText(exitCode()) +
                QStringLiteral(") ") + where(m_call) + fate,
            Advice::withBrokenBackend()};
    }
    if (exitCode() == CutOff) {
        return {QStringLiteral("meddled"),
            QStringLiteral("The back end closed files or connections that are not its own ") +
                where(m_call) + QStringLiteral(" In Airlume they would be the program's."),
            Advice::withBrokenBackend()};
    }
    return {QStringLiteral("ended-process"),
        QStringLiteral("The back end ended its process, with status ") +
            QString::number(exitCode()) + QStringLiteral(", ") + where(m_call) + fate,
        Advice::withBrokenBackend()};
}

void JudgedProcess::fail(const Problem &problem)
{
    m_over = true;
    m_limit.stop();
    killAll();
    emit failed(problem);
}

void JudgedProcess::killAll()
{
    if (m_group > 0)
        ::kill(static_cast<pid_t>(-m_group), SIGKILL);
    if (state() != NotRunning)
        waitForFinished();
}

} // namespace PluginCheck

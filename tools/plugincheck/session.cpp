#include "session.h"

#include "callwatch.h"
#include "crashguard.h"
#include "plaintext.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace PluginCheck
{

namespace
{

constexpr int WatchdogPeriod = 100; // ms

Problem crashed(CallWatch::Operation operation)
{
    const QString where =
        operation == CallWatch::Loading ? QStringLiteral("while it was being loaded.")
        : operation == CallWatch::None
            ? QStringLiteral("outside any call.")
            : QStringLiteral("in ") + CallWatch::nameOf(operation) + QLatin1Char('.');
    return {QStringLiteral("crashed"),
        QStringLiteral("The back end crashed ") + where +
            QStringLiteral(" It would have taken Airlume with it."),
        {QStringLiteral("This cannot be set right from outside: send this report to whoever wrote "
                        "the back end, or use another one.")}};
}

Problem silent(CallWatch::Operation operation, int timeout)
{
    return {QStringLiteral("no-answer"),
        CallWatch::nameOf(operation) + QStringLiteral(" has not answered for ") +
            QString::number(timeout / 1000.0) + QStringLiteral(" s."),
        {QStringLiteral("Unplug the Wi-Fi adapter and plug it in again, or restart the system's "
                        "Wi-Fi service, for example `sudo systemctl restart NetworkManager`"),
            QStringLiteral("If that does not help, send this report to whoever wrote the back "
                           "end.")}};
}

QByteArray rendered(const Report &report, bool json)
{
    return json ? jsonReport(report) + '\n' : terminalBytes(textReport(report), terminalIsUtf8());
}

} // namespace

Session::Session(const Options &options, QObject *parent)
    : QObject(parent)
    , m_options(options)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &Session::startRound);
    connect(&m_watchdog, &QTimer::timeout, this, &Session::lookForSilence);
}

Session::~Session() = default;

int Session::run()
{
    guardAgainstCrashes();
    {
        const CallWatch::Running running(CallWatch::Loading);
        m_backend = loadBackend(m_options.backend);
    }
    if (!m_backend.api) {
        print(problemReport(m_backend, m_backend.problem, MessageCollector::take()));
        return static_cast<int>(m_outcome);
    }

    Interruption interruption;
    connect(&interruption, &Interruption::requested, this, &Session::onInterrupted);
    m_thread = std::make_unique<ProbeThread>(*m_backend.api);
    connect(m_thread.get(), &ProbeThread::answered, this, &Session::onAnswered);
    m_thread->start();
    m_watchdog.start(WatchdogPeriod);
    startRound();
    QCoreApplication::exec();
    m_thread.reset();
    return static_cast<int>(m_outcome);
}

void Session::startRound()
{
    guardAgainstCrashes();
    m_thread->askOnce();
}

void Session::onAnswered(const Answers &answers)
{
    print(answeredReport(m_backend, answers, MessageCollector::take()));
    if (m_round == m_options.rounds) {
        QCoreApplication::quit();
        return;
    }
    ++m_round;
    m_pause.start(m_options.interval);
}

void Session::onInterrupted()
{
    if (CallWatch::current() != CallWatch::None) {
        std::fputs("Interrupted while the back end was being asked.\n", stderr);
        endNow();
    }
    QCoreApplication::quit();
}

void Session::lookForSilence()
{
    const CallWatch::Operation operation = CallWatch::current();
    if (CallWatch::elapsed() <= m_options.timeout)
        return;
    print(problemReport(m_backend, silent(operation, m_options.timeout), MessageCollector::take()));
    endNow();
}

void Session::print(Report report)
{
    report.round = m_round;
    m_outcome = m_round == 1 ? report.verdict.outcome : combined(m_outcome, report.verdict.outcome);
    QByteArray output;
    if (!m_options.json && m_options.rounds != 1) {
        output = (m_round == 1 ? "" : "\n") + QByteArray("Round ") + QByteArray::number(m_round) +
                 report.time.toLocalTime().toString(QStringLiteral(", HH:mm:ss")).toLatin1() +
                 "\n\n";
    }
    output += rendered(report, m_options.json);
    std::fwrite(output.constData(), 1, static_cast<size_t>(output.size()), stdout);
    std::fflush(stdout);
}

void Session::guardAgainstCrashes()
{
    CrashGuard::LastWords words;
    for (int i = 0; i < CallWatch::OperationCount; ++i) {
        Report report = problemReport(m_backend, crashed(static_cast<CallWatch::Operation>(i)), {});
        report.round = m_round;
        words[static_cast<size_t>(i)] = rendered(report, m_options.json);
    }
    CrashGuard::arm(words);
}

// The thread hangs inside the back end and cannot be ended, so nothing is taken down in order.
void Session::endNow()
{
    std::_Exit(static_cast<int>(m_outcome));
}

} // namespace PluginCheck

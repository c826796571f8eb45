#include "session.h"

#include "interruption.h"
#include "plaintext.h"

#include <QCoreApplication>

#include <cstdio>
#include <unistd.h>

namespace PluginCheck
{

namespace
{

/// Between two looks while a scan is waited for, in ms.
constexpr int ScanPause = 1000;

QByteArray rendered(const Report &report, bool json)
{
    return json ? jsonReport(report) + '\n' : terminalBytes(textReport(report), terminalIsUtf8());
}

void write(std::FILE *stream, const QByteArray &text)
{
    // Ended by a signal in the middle, half a line would be left.
    const Interruption::Held held;
    std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stream);
    std::fflush(stream);
}

/// For the person who waits, not for a program that reads the report.
void remark(const QString &text)
{
    write(stderr, terminalBytes(escaped(text), terminalIsUtf8()) + '\n');
}

} // namespace

Session::Session(const Options &options, QObject *parent)
    : QObject(parent)
    , m_options(options)
    , m_process(options.backend, options.timeout)
{
    m_pause.setSingleShot(true);
    m_pause.setTimerType(Qt::PreciseTimer);
    connect(&m_pause, &QTimer::timeout, &m_process, &JudgedProcess::askOnce);
    connect(&m_process, &JudgedProcess::backendKnown, this, &Session::onBackendKnown);
    connect(&m_process, &JudgedProcess::answered, this, &Session::onAnswered);
    connect(&m_process, &JudgedProcess::ended, this, &Session::onEnded);
    connect(&m_process, &JudgedProcess::failed, this, &Session::onFailed);
}

int Session::run()
{
    m_status = static_cast<int>(Outcome::NothingHeard);
    if (!m_options.record.isEmpty()) {
        const QString problem = m_record.open(m_options.record);
        if (!problem.isEmpty()) {
            remark(problem);
            return static_cast<int>(Outcome::Broken);
        }
        remark(QStringLiteral("Recording to ") + m_options.record +
               QStringLiteral("; Ctrl+C ends it."));
    }
    m_process.begin();
    Interruption::guard(m_process.group(), m_status);
    QCoreApplication::exec();
    return m_status;
}

void Session::onBackendKnown(const Backend &backend)
{
    m_backend = backend;
    if (!backend.isWhole)
        return;
    if (backend.problem.code.isEmpty()) {
        m_process.askOnce();
        return;
    }
    m_last = problemReport(m_backend, m_backend.problem, {});
    m_process.end();
}

void Session::onAnswered(const Answers &answers)
{
    if (!m_running.isValid())
        m_running.start();
    takeHeard();
    m_between.add(m_history.add(answers));
    const Report report = answeredReport(m_backend, answers, m_heard, m_between);
    if (waitForScan(report))
        return;
    m_heard = Heard();
    m_between = Deviations();
    if (m_record.isOpen() && !record(answers)) {
        m_process.end();
        return;
    }
    if (isLastRound()) {
        m_last = report;
        m_process.end();
        return;
    }
    print(report);
    ++m_round;
    pause();
}

bool Session::waitForScan(const Report &report)
{
    if (m_options.rounds != 1 || !mayImprove(report.verdict) ||
        m_running.elapsed() >= m_options.wait)
        return false;
    if (!m_isWaiting && ::isatty(STDERR_FILENO) == 1) {
        remark(QStringLiteral("Waiting up to ") + QString::number(m_options.wait / 1000.0) +
               QStringLiteral(" s for the first scan; Ctrl+C ends."));
    }
    m_isWaiting = true;
    m_pause.start(qMin(ScanPause, m_options.wait));
    return true;
}

/// False when nothing more can be recorded.
bool Session::record(const Answers &answers)
{
    // Late by a little is on time: the replay is asked late as well.
    const qint64 step = answers.at / m_options.interval;
    const double seconds = static_cast<double>(step * m_options.interval) / 1000.0;
    const QString problem = m_record.add(
        m_transcript.add(m_options.anonymous ? m_anonymizer.anonymous(answers) : answers, seconds));
    if (!problem.isEmpty())
        remark(problem);
    return problem.isEmpty();
}

bool Session::isLastRound() const
{
    return m_round == m_options.rounds ||
           (m_options.recordFor > 0 && m_running.elapsed() >= m_options.recordFor);
}

/// Records keep step with the clock; otherwise the pause is the same after each round.
void Session::pause()
{
    if (!m_record.isOpen()) {
        m_pause.start(m_options.interval);
        return;
    }
    const qint64 into = m_running.elapsed() % m_options.interval;
    m_pause.start(static_cast<int>(m_options.interval - into));
}

void Session::onEnded()
{
    takeHeard();
    if (m_last) {
        m_last->heard.add(m_heard);
        print(*m_last);
    }
    if (m_record.isOpen()) {
        remark(QStringLiteral("Recorded ") + QString::number(m_running.elapsed() / 1000) +
               QStringLiteral(" s."));
    }
    QCoreApplication::quit();
}

void Session::onFailed(const Problem &problem)
{
    takeHeard();
    if (!m_last) {
        m_last = problemReport(m_backend, problem, m_heard);
    } else {
        m_last->heard.add(m_heard);
        if (m_last->answers) {
            // It answered, and only its end went wrong.
            m_last->deviations.add(Weight::Broken, problem.code, problem.text, {});
            m_last->verdict = judge(*m_last->answers, m_last->deviations, m_last->heard.messages);
        }
    }
    print(*m_last);
    QCoreApplication::quit();
}

void Session::takeHeard()
{
    m_heard.add(m_process.takeHeard());
}

void Session::print(Report report)
{
    report.round = m_round;
    const Outcome outcome = report.verdict.outcome;
    m_status = static_cast<int>(
        m_round == 1 ? outcome : combined(static_cast<Outcome>(int(m_status)), outcome));
    if (m_record.isOpen() && report.answers && outcome != Outcome::Broken)
        return;
    QByteArray output;
    if (!m_options.json && m_options.rounds != 1) {
        output = (m_round == 1 ? "" : "\n") + QByteArray("Round ") + QByteArray::number(m_round) +
                 report.time.toLocalTime().toString(QStringLiteral(", HH:mm:ss")).toLatin1() +
                 "\n\n";
    }
    write(stdout, output + rendered(report, m_options.json));
}

} // namespace PluginCheck

#include "bench/watchedprogram.h"

#include <QDir>
#include <QFile>

#include <ctime>
#include <unistd.h>

namespace
{
const int AnswerTimeoutMs = 60000;

/// The number of kB in a line "Name:   123 kB" of /proc/PID/status, in MB.
double megabytes(const QByteArray &status, const char *name)
{
    const int line = status.indexOf(QByteArray("\n") + name + ":");
    const int number = status.indexOf(':', line) + 1;
    return status.mid(number, status.indexOf("kB", number) - number).trimmed().toDouble() / 1024.;
}
} // namespace

WatchedProgram::WatchedProgram(const QString &program, int networks)
{
    // A hard link is a program of its own: what it writes beside itself stays in this folder.
    const QString copy = m_folder.filePath(QStringLiteral("program"));
    if (link(QFile::encodeName(program).constData(), QFile::encodeName(copy).constData()) != 0)
        QFile::copy(program, copy);

    const QString scenario = m_folder.filePath(QStringLiteral("scenario.json"));
    QFile file(scenario);
    if (file.open(QIODevice::WriteOnly))
        file.write("{\"generate\": {\"count\": " + QByteArray::number(networks) + "}}");

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        environment.insert(QString::fromLatin1(name), m_folder.path());
    environment.insert(QStringLiteral("AIRLUME_SCENARIO"), scenario);
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"),
        QStringLiteral(AIRLUME_BUILD_DIR "/tests/watch:" AIRLUME_BUILD_DIR "/plugins/simulated"));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("airlumewatch"));
    m_process.setProcessEnvironment(environment);
    m_process.setProgram(copy);
    m_process.setStandardErrorFile(QProcess::nullDevice());
}

WatchedProgram::~WatchedProgram()
{
    m_process.kill();
    m_process.waitForFinished();
}

WatchedProgram::FirstPaint WatchedProgram::start()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const double startMs =
        static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
    m_process.start();
    const QList<QByteArray> words = readLine().split(' ');
    if (words.size() != 3 || words.first() != "painted")
        qFatal("%s paints no window", qPrintable(m_process.program()));
    return {words.at(1).toDouble() / 1e6 - startMs, words.at(2).toDouble() / 1e6};
}

qint64 WatchedProgram::ask(const QByteArray &command)
{
    m_process.write(command + '\n');
    return readLine().toLongLong();
}

WatchedProgram::Memory WatchedProgram::memory() const
{
    const QByteArray status = procFile("status");
    return {megabytes(status, "VmRSS"), megabytes(status, "RssAnon")};
}

double WatchedProgram::cpuMs() const
{
    // The fields from the third on follow the program's name, which stands in brackets.
    const QByteArray stat = procFile("stat");
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    const double ticks = fields.value(11).toDouble() + fields.value(12).toDouble();
    return ticks * 1000. / static_cast<double>(sysconf(_SC_CLK_TCK));
}

QByteArray WatchedProgram::readLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(AnswerTimeoutMs))
            qFatal("%s does not answer", qPrintable(m_process.program()));
    }
    return m_process.readLine().trimmed();
}

QByteArray WatchedProgram::procFile(const char *name) const
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(m_process.processId()).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

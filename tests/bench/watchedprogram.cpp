#include "bench/watchedprogram.h"

#include <QDir>
#include <QFile>

#include <ctime>
#include <unistd.h>

namespace
{
const int AnswerTimeoutMs = 60000;
} // namespace

WatchedProgram::WatchedProgram(const char *program, int networks, const QStringList &arguments)
{
    // A hard link is a program of its own: what it writes beside itself stays in this folder.
    const QString original = QStringLiteral(AIRLUME_BUILD_DIR "/bin/") + QLatin1String(program);
    const QString copy = m_folder.filePath(QLatin1String(program));
    if (link(QFile::encodeName(original).constData(), QFile::encodeName(copy).constData()) != 0)
        QFile::copy(original, copy);

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
    m_process.setArguments(arguments);
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

ProcessState WatchedProgram::held() const
{
    const std::optional<ProcessState> state = processState(m_process.processId());
    if (!state)
        qFatal("%s has ended", qPrintable(m_process.program()));
    return *state;
}

QByteArray WatchedProgram::readLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(AnswerTimeoutMs))
            qFatal("%s does not answer", qPrintable(m_process.program()));
    }
    return m_process.readLine().trimmed();
}

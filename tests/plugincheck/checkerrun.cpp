#include "plugincheck/checkerrun.h"

#include <QElapsedTimer>
#include <QJsonDocument>

namespace
{
constexpr int Patience = 60000; // ms
} // namespace

CheckerRun::CheckerRun(const QStringList &arguments, const QStringList &environment)
{
    QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
    for (const QString &variable : environment) {
        const int sign = variable.indexOf(QLatin1Char('='));
        surroundings.insert(variable.left(sign), variable.mid(sign + 1));
    }
    m_process.setProcessEnvironment(surroundings);
    m_process.start(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-plugincheck"), arguments);
}

CheckerRun::~CheckerRun()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

bool CheckerRun::finish()
{
    const bool finished =
        m_process.state() == QProcess::NotRunning || m_process.waitForFinished(Patience);
    read();
    return finished;
}

bool CheckerRun::waitForLines(int count)
{
    return waitUntil([this, count] { return m_output.count('\n') >= count; });
}

bool CheckerRun::waitForErrors(const QByteArray &text)
{
    return waitUntil([this, &text] { return m_errors.contains(text); });
}

template <typename Condition> bool CheckerRun::waitUntil(Condition condition)
{
    QElapsedTimer timer;
    timer.start();
    for (;;) {
        const bool ended = m_process.state() == QProcess::NotRunning;
        read();
        if (condition() || ended || timer.elapsed() > Patience)
            return condition();
        m_process.waitForFinished(20);
    }
}

int CheckerRun::status() const
{
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QVector<QJsonObject> CheckerRun::reports() const
{
    QVector<QJsonObject> objects;
    QList<QByteArray> lines = m_output.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    for (const QByteArray &line : qAsConst(lines))
        objects.append(QJsonDocument::fromJson(line).object());
    return objects;
}

QString CheckerRun::folder(const char *kind)
{
    return QStringLiteral(AIRLUME_BUILD_DIR "/tests/backends/") + QLatin1String(kind);
}

QString CheckerRun::library(const char *kind)
{
    return folder(kind) + QStringLiteral("/libWiFiApiPlugin.dylib");
}

void CheckerRun::read()
{
    m_output += m_process.readAllStandardOutput();
    m_errors += m_process.readAllStandardError();
}

#include "host/hostrun.h"

#include <QDir>

namespace
{
constexpr int Patience = 60000; // ms
} // namespace

HostRun::HostRun(const QStringList &arguments, const QString &locale)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    m_process.setProcessEnvironment(environment);
    m_process.start(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"), arguments);
    m_process.waitForStarted(Patience);
}

HostRun::~HostRun()
{
    m_process.closeWriteChannel();
    if (status() < 0)
        m_process.kill();
}

bool HostRun::prints(const QByteArray &line)
{
    for (;;) {
        m_output += m_process.readAllStandardOutput();
        const int end = m_output.indexOf(line + '\n');
        if (end >= 0) {
            m_skipped = m_output.left(end);
            m_output.remove(0, end + line.size() + 1);
            return true;
        }
        if (!m_process.waitForReadyRead(Patience))
            return false;
    }
}

bool HostRun::type(const QByteArray &line)
{
    m_process.write(line + '\n');
    return m_process.waitForBytesWritten(Patience);
}

int HostRun::status()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(Patience))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString HostRun::socketPath()
{
    return QDir::temp().filePath(QStringLiteral("HarborWindowLocalProcess"));
}

Client::Client()
{
    m_socket.connectToServer(QStringLiteral("HarborWindowLocalProcess"));
    m_socket.waitForConnected(Patience);
}

bool Client::say(const QByteArray &text)
{
    m_socket.write(text);
    return m_socket.waitForBytesWritten(Patience);
}

bool Client::hears(const QByteArray &text)
{
    QByteArray heard;
    while (heard.size() < text.size()) {
        if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(Patience))
            return false;
        heard += m_socket.readAll();
    }
    return heard == text;
}

#include "flows/hostsuite.h"

#include <QDir>
#include <QFile>

#include <sys/socket.h>

namespace
{
const int TimeoutMs = 60000;
const QByteArray Request("IpcRequestLanguage:Airlume");
} // namespace

HostSuite::HostSuite(const QString &temporaryFolder)
    : m_server(new QLocalServer)
{
    const QString folder = temporaryFolder.isEmpty() ? QDir::tempPath() : temporaryFolder;
    m_server->listen(folder + QStringLiteral("/HarborWindowLocalProcess"));
}

bool HostSuite::waitForConnection()
{
    if (m_server->waitForNewConnection(TimeoutMs))
        m_connection = m_server->nextPendingConnection();
    return m_connection;
}

bool HostSuite::waitForRequest()
{
    while (m_connection->bytesAvailable() < Request.size()) {
        if (!m_connection->waitForReadyRead(TimeoutMs))
            return false;
    }
    return m_connection->readAll() == Request;
}

bool HostSuite::say(const QByteArray &message)
{
    m_connection->write(message);
    while (m_connection->bytesToWrite() > 0) {
        if (!m_connection->waitForBytesWritten(TimeoutMs))
            return false;
    }
    return true;
}

int HostSuite::handle() const
{
    return static_cast<int>(m_connection->socketDescriptor());
}

bool HostSuite::closeHalf()
{
    return ::shutdown(handle(), SHUT_WR) == 0;
}

void HostSuite::die()
{
    m_connection->abort();
    m_server.reset();
    m_connection = nullptr;
}

QString textIn(const QString &code, const QString &key)
{
    QFile file(
        QStringLiteral(AIRLUME_SOURCE_DIR "/src/resources/i18n/%1/AirlumeLang.txt").arg(code));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    const QString head = key + QStringLiteral("=\"");
    for (const QString &line : lines) {
        if (line.startsWith(head))
            return line.mid(head.size()).chopped(1);
    }
    return {};
}

QJsonArray tabsIn(const QString &code)
{
    QJsonArray titles;
    for (const char *key : {"L_SIGNAL_GRAPH_TAB_NAME", "L_CHANNEL_GRAPH_TAB_NAME",
             "L_CHANNEL_INTERFACE_TAB_NAME", "L_HOME_TESTING_TAB_NAME"})
        titles.append(textIn(code, QLatin1String(key)));
    return titles;
}

bool speaks(const QJsonObject &state, const QString &code)
{
    return state[QStringLiteral("tabs")].toArray() == tabsIn(code);
}

std::function<bool(const QJsonObject &)> speaking(const QString &code)
{
    return [code](const QJsonObject &state) { return speaks(state, code); };
}

#include "i18n/ipclocalsocket.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "i18n/languagelabels.h"

#include <QCoreApplication>
#include <QLocalSocket>
#include <QTextStream>
#include <QTimer>

namespace
{
const int ConnectTimeoutMs = 1000;
const int WriteTimeoutMs = 100;
const QLatin1String LanguageRequest("IpcRequestLanguage:Airlume");
const QLatin1String LanguageResponse("IpcResponseLanguage");
const QLatin1String ExitResponse("IpcResponseExit");
} // namespace

IpcLocalSocket::IpcLocalSocket(const QString &name)
    : m_pSocket(new QLocalSocket)
    , m_strLang(LanguageLabels::m_strDefaultLang)
    , m_strServerName(name)
{
    m_pSocket->connectToServer(m_strServerName, QIODevice::ReadWrite);
    if (m_pSocket->waitForConnected(ConnectTimeoutMs))
        RequestLanguage();
    else
        // A busy host leaves the socket trying on, for half a minute and at full speed.
        m_pSocket->close();
    connect(m_pSocket, SIGNAL(readyRead()), this, SLOT(slotReadyRead()));
    // An early answer may have been read while the request was written, with nobody listening.
    if (m_pSocket->bytesAvailable() > 0)
        QTimer::singleShot(0, m_pSocket, SIGNAL(readyRead()));
}

IpcLocalSocket::~IpcLocalSocket()
{
    Release();
}

void IpcLocalSocket::RequestLanguage()
{
    QTextStream stream(m_pSocket);
    stream << LanguageRequest;
    stream.flush();
    m_pSocket->waitForBytesWritten(WriteTimeoutMs);
}

void IpcLocalSocket::slotReadyRead()
{
    QLocalSocket *socket = qobject_cast<QLocalSocket *>(sender());
    if (!socket) {
        AIRLUME_NULL_POINT();
        return;
    }
    QTextStream stream(socket);
    QString text = stream.readAll();
    if (text.startsWith(LanguageResponse))
        DealResponseLanguage(text);
    else if (text.startsWith(ExitResponse))
        QCoreApplication::quit();
}

void IpcLocalSocket::DealResponseLanguage(QString &text)
{
    const QString code = text.mid(text.indexOf(QLatin1Char(':')) + 1);
    if (code == m_strLang)
        return;
    m_strLang = code;
    if (!QtCommonTools::IsFindLang(m_strLang))
        m_strLang = LanguageLabels::m_strDefaultLang;
    // Also when the fallback left the code as it was: setting the labels again does no harm.
    emit ChangeLanguage();
}

void IpcLocalSocket::Release()
{
    delete m_pSocket;
    m_pSocket = nullptr;
}

#include "common/QtCommonTools.h"
#include "fuzz/require.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagefileoperate.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTextCodec>
#include <QTextStream>
#include <QTimer>

#include <linux/sockios.h>
#include <sys/ioctl.h>

namespace
{
const int ExitOfTheHost = 0;
const int AllRead = 1;

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &) {}

/// The program's end of the channel and the host's, connected for as long as the process lives.
class Channel : public QObject
{
public:
    Channel()
    {
        // Local servers are files: this one's name is the process's own.
        const QString name =
            QStringLiteral("AirlumeFuzz%1").arg(QCoreApplication::applicationPid());
        require(m_server.listen(name));
        m_program = new IpcLocalSocket(name);
        require(m_server.waitForNewConnection(60000));
        m_host = m_server.nextPendingConnection();
        QtCommonTools::m_pLocalSocket = m_program;
        connect(m_program, &IpcLocalSocket::ChangeLanguage, this, [this] { ++m_changes; });
    }

    IpcLocalSocket *program() const { return m_program; }
    int changes() const { return m_changes; }

    /// Sends one message and runs the event loop until it was read: what the loop ended with.
    int send(const QByteArray &message)
    {
        m_changes = 0;
        QTimer::singleShot(0, this, [this, message] { sendInside(message); });
        return QCoreApplication::exec();
    }

private:
    void sendInside(const QByteArray &message)
    {
        require(m_host->write(message) == message.size());
        // A loop of its own shows whether the message has ended it.
        QEventLoop inner;
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [this, &inner] {
            if (inner.isRunning() && m_host->bytesToWrite() == 0 && unread() == 0)
                inner.exit(AllRead);
        });
        poll.start(0);
        if (inner.exec() == AllRead)
            QCoreApplication::exit(AllRead);
    }

    /// Octets on the way that the program has not read yet.
    int unread() const
    {
        int octets = 0;
        require(ioctl(static_cast<int>(m_host->socketDescriptor()), SIOCOUTQ, &octets) == 0);
        return octets;
    }

    QLocalServer m_server;
    IpcLocalSocket *m_program = nullptr;
    QLocalSocket *m_host = nullptr;
    int m_changes = 0;
};

Channel *channel = nullptr;

void checkMessage(const QByteArray &message)
{
    QTextStream stream(message);
    const QString text = stream.readAll();
    const bool isLanguage = text.startsWith(QLatin1String("IpcResponseLanguage"));
    const bool isExit = text.startsWith(QLatin1String("IpcResponseExit"));
    const QString before = channel->program()->GetLang();
    const QString code = text.mid(text.indexOf(QLatin1Char(':')) + 1);
    const bool changed = isLanguage && code != before;

    const int end = channel->send(message);

    require(end == (isExit ? ExitOfTheHost : AllRead));
    require(channel->changes() == (changed ? 1 : 0));
    QString known = code;
    const QString expected = QtCommonTools::IsFindLang(known) ? code : QStringLiteral("enu");
    require(channel->program()->GetLang() == (changed ? expected : before));
    require(QtCommonTools::IsFindLang(channel->program()->GetLang()));
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qInstallMessageHandler(dropMessage);
    new QCoreApplication(*argc, *argv);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QtCommonTools::m_pLangFileOperate = new LanguageFileOperate;
    channel = new Channel;
    return 0;
}

/// Any octets as messages of the host, which come one after another; 0xff stands between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    channel->program()->GetLang() = QStringLiteral("enu");
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<int>(size));
    for (const QByteArray &message : input.split('\xff')) {
        if (!message.isEmpty())
            checkMessage(message);
    }
    return 0;
}

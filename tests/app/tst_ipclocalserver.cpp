#include "app/ipclocalserver.h"
#include "support/messagelog.h"

#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QtTest>

#include <cstring>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
const QString Name = QStringLiteral("Airlume_LocalServer");

/// As a second copy asks.
bool someoneListens(const QString &name = Name)
{
    QLocalSocket probe;
    probe.connectToServer(name, QIODevice::ReadWrite);
    return probe.waitForConnected(200);
}

/// Leaves what a crashed copy leaves: a socket file that nobody listens on.
bool leaveSocketBehind(const QString &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray bytes = QFile::encodeName(path);
    std::memcpy(address.sun_path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound =
        ::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
    ::close(socket);
    return bound;
}
} // namespace

class TestIpcLocalServer : public QObject
{
    Q_OBJECT

private slots:
    void isFoundByASecondCopyAtOnce();
    void reportsEveryNewProcessOnce();
    void reportsNewProcessesAndNothingElse();
    void keepsTheConnectionAndExchangesNothing();
    void doesNotTireOfSecondCopies();
    void clearsTheSocketOfACrashedCopy();
    void takesTheNameOverFromALivingServer();
    void releaseStopsListeningAndMayBeRepeated();
    void stopsListeningWhenDestroyed();
    void belongsToItsUserAlone();
    void leavesADirectoryOfItsNameAlone();
    void saysNothingWhenListeningFails();
};

void TestIpcLocalServer::isFoundByASecondCopyAtOnce()
{
    QVERIFY(!someoneListens());
    const IpcLocalServer server(Name);
    // Without the event loop: a busy first copy is found too.
    QVERIFY(someoneListens());
    QVERIFY(!server.parent());
}

void TestIpcLocalServer::reportsEveryNewProcessOnce()
{
    const IpcLocalServer server(Name);
    QSignalSpy processes(&server, &IpcLocalServer::signalNewProcess);
    QLocalSocket first;
    first.connectToServer(Name);
    QTRY_COMPARE(processes.size(), 1);
    QLocalSocket second;
    second.connectToServer(Name);
    QTRY_COMPARE(processes.size(), 2);
    first.abort();
    second.abort();
    QCoreApplication::processEvents();
    QCOMPARE(processes.size(), 2);
}

void TestIpcLocalServer::reportsNewProcessesAndNothingElse()
{
    IpcLocalServer server(Name);
    QSignalSpy processes(&server, &IpcLocalServer::signalNewProcess);
    server.slotNewConnection();
    QCOMPARE(processes.size(), 1);
    server.Release();
    server.slotNewConnection();
    QCOMPARE(processes.size(), 2);
}

void TestIpcLocalServer::keepsTheConnectionAndExchangesNothing()
{
    const IpcLocalServer server(Name);
    QSignalSpy processes(&server, &IpcLocalServer::signalNewProcess);
    QLocalSocket copy;
    copy.connectToServer(Name);
    QTRY_COMPARE(processes.size(), 1);
    copy.write("hello");
    QVERIFY(copy.waitForBytesWritten());
    QVERIFY(!copy.waitForReadyRead(100));
    QCOMPARE(copy.bytesAvailable(), 0);
    QCOMPARE(copy.state(), QLocalSocket::ConnectedState);
}

void TestIpcLocalServer::doesNotTireOfSecondCopies()
{
    const IpcLocalServer server(Name);
    QSignalSpy processes(&server, &IpcLocalServer::signalNewProcess);
    // More than Qt keeps waiting by default, since none is ever taken from the queue.
    for (int copy = 1; copy <= 100; ++copy) {
        QVERIFY2(someoneListens(), qPrintable(QString::number(copy)));
        QTRY_COMPARE(processes.size(), copy);
    }
}

void TestIpcLocalServer::clearsTheSocketOfACrashedCopy()
{
    const QString path = QDir::tempPath() + QLatin1Char('/') + Name;
    QVERIFY(leaveSocketBehind(path));
    QVERIFY(QFile::exists(path));
    QVERIFY(!someoneListens());
    QLocalServer unaided;
    QVERIFY(!unaided.listen(Name));

    const IpcLocalServer server(Name);
    QVERIFY(someoneListens());
}

void TestIpcLocalServer::takesTheNameOverFromALivingServer()
{
    // Two copies started within the same moment: the later one has the name from then on.
    const IpcLocalServer earlier(Name);
    const IpcLocalServer later(Name);
    QSignalSpy toEarlier(&earlier, &IpcLocalServer::signalNewProcess);
    QSignalSpy toLater(&later, &IpcLocalServer::signalNewProcess);
    QVERIFY(someoneListens());
    QTRY_COMPARE(toLater.size(), 1);
    QCOMPARE(toEarlier.size(), 0);
}

void TestIpcLocalServer::releaseStopsListeningAndMayBeRepeated()
{
    IpcLocalServer server(Name);
    server.Release();
    QVERIFY(!someoneListens());
    server.Release();
    QVERIFY(!someoneListens());
}

void TestIpcLocalServer::stopsListeningWhenDestroyed()
{
    {
        const IpcLocalServer server(Name);
        QVERIFY(someoneListens());
    }
    QVERIFY(!someoneListens());
    QVERIFY(!QFile::exists(QDir::tempPath() + QLatin1Char('/') + Name));
}

void TestIpcLocalServer::belongsToItsUserAlone()
{
    // Also where whatever is made is for everybody.
    const mode_t mask = umask(0);
    const IpcLocalServer server(Name);
    umask(mask);
    struct stat status;
    const QByteArray path = QFile::encodeName(QDir::tempPath() + QLatin1Char('/') + Name);
    QCOMPARE(stat(path.constData(), &status), 0);
    QVERIFY(S_ISSOCK(status.st_mode));
    QCOMPARE(status.st_mode & 0777u, 0700u);
    QVERIFY(someoneListens());
}

void TestIpcLocalServer::leavesADirectoryOfItsNameAlone()
{
    QDir temporary(QDir::tempPath());
    QVERIFY(temporary.mkpath(Name + QStringLiteral("/inside")));
    {
        const IpcLocalServer server(Name);
        QVERIFY(!someoneListens());
    }
    QVERIFY(temporary.exists(Name + QStringLiteral("/inside")));
    QVERIFY(QDir(temporary.filePath(Name)).removeRecursively());
    // Nothing else was left: what the attempt made for itself is gone.
    QCOMPARE(
        temporary.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot), QStringList());
}

void TestIpcLocalServer::saysNothingWhenListeningFails()
{
    const MessageLog log;
    const QString impossible(500, QLatin1Char('x'));
    IpcLocalServer server(impossible);
    QVERIFY(!someoneListens(impossible));
    QCOMPARE(log.criticals(), QStringList());
    QCOMPARE(log.messages(QtWarningMsg), QStringList());
    server.Release();
}

QTEST_GUILESS_MAIN(TestIpcLocalServer)
#include "tst_ipclocalserver.moc"

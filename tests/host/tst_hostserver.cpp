#include "host/localserver.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace AirlumeHost;

/// The local server of airlume-host, beside those of others.
class TestHostServer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void qtConnectsToItByItsName();
    void lookingForAServerIsNoConnection();
    void nobodyListensAtWhatIsNoServer();
    void anotherServerIsLeftAlone();
    void socketOfACrashedServerIsClearedAway();
    void whatIsNoSocketIsLeftAlone_data();
    void whatIsNoSocketIsLeftAlone();
    void socketIsForItsUserAlone();
    void closingRemovesTheFile();
    void closingLeavesAnotherServersFile();
    void longNamesAreRefused();

private:
    QString m_file;
    std::string m_path;
};

void TestHostServer::init()
{
    m_file = QDir::temp().filePath(QStringLiteral("server"));
    QFile::remove(m_file);
    QDir(m_file).removeRecursively();
    m_path = QFile::encodeName(m_file).toStdString();
}

void TestHostServer::qtConnectsToItByItsName()
{
    LocalServer server;
    QCOMPARE(server.listen(m_path), std::string());
    QLocalSocket client;
    client.connectToServer(QStringLiteral("server"));
    QVERIFY(client.waitForConnected());
    const std::optional<int> connection = server.accept();
    QVERIFY(connection);
    QCOMPARE(::write(*connection, "deu", 3), ssize_t(3));
    QVERIFY(client.waitForReadyRead());
    QCOMPARE(client.readAll(), QByteArray("deu"));
    ::close(*connection);
}

void TestHostServer::lookingForAServerIsNoConnection()
{
    QLocalServer other;
    QVERIFY(other.listen(m_file));
    QCOMPARE(listenerAt(m_path).value_or(uid_t(-1)), geteuid());
    QVERIFY(!other.waitForNewConnection(200));
}

void TestHostServer::nobodyListensAtWhatIsNoServer()
{
    QVERIFY(!listenerAt(m_path));
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!listenerAt(m_path));
    QVERIFY(file.remove());
    QVERIFY(QFile::link(m_file, m_file));
    QVERIFY(!listenerAt(m_path));
    QVERIFY(!listenerAt(std::string(1000, 'x')));
    QVERIFY(!listenerAt(QDir::tempPath().toStdString()));
}

void TestHostServer::anotherServerIsLeftAlone()
{
    QLocalServer other;
    QVERIFY(other.listen(m_file));
    LocalServer server;
    QCOMPARE(server.listen(m_path), "a host listens already: " + m_path);
    server.close();
    QLocalSocket client;
    client.connectToServer(m_file);
    QVERIFY(client.waitForConnected());
    QVERIFY(other.waitForNewConnection(60000));
}

void TestHostServer::socketOfACrashedServerIsClearedAway()
{
    LocalServer crashed;
    QCOMPARE(crashed.listen(m_path), std::string());
    crashed.leave();
    QVERIFY(QFile::exists(m_file));
    QVERIFY(!listenerAt(m_path));
    LocalServer server;
    QCOMPARE(server.listen(m_path), std::string());
    QVERIFY(listenerAt(m_path));
}

void TestHostServer::whatIsNoSocketIsLeftAlone_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("a file") << QString();
    QTest::newRow("a link") << QStringLiteral("/nonexistent/airlume");
}

void TestHostServer::whatIsNoSocketIsLeftAlone()
{
    QFETCH(QString, target);
    if (target.isEmpty())
        QVERIFY(QFile(m_file).open(QIODevice::WriteOnly));
    else
        QVERIFY(QFile::link(target, m_file));
    LocalServer server;
    QCOMPARE(server.listen(m_path), "this is in the way: " + m_path);
    struct stat status = {};
    QCOMPARE(lstat(m_path.c_str(), &status), 0);
}

void TestHostServer::socketIsForItsUserAlone()
{
    const mode_t mask = umask(0);
    LocalServer server;
    const std::string problem = server.listen(m_path);
    const mode_t left = umask(mask);
    QCOMPARE(problem, std::string());
    QCOMPARE(left, mode_t(0));
    struct stat status = {};
    QCOMPARE(lstat(m_path.c_str(), &status), 0);
    QCOMPARE(status.st_mode & mode_t(S_IRWXG | S_IRWXO), mode_t(0));
}

void TestHostServer::closingRemovesTheFile()
{
    LocalServer server;
    QCOMPARE(server.listen(m_path), std::string());
    server.close();
    QVERIFY(!QFile::exists(m_file));
    server.close();
}

void TestHostServer::closingLeavesAnotherServersFile()
{
    LocalServer server;
    QCOMPARE(server.listen(m_path), std::string());
    QVERIFY(QFile::remove(m_file));
    QLocalServer other;
    QVERIFY(other.listen(m_file));
    server.close();
    QVERIFY(listenerAt(m_path));
}

void TestHostServer::longNamesAreRefused()
{
    LocalServer server;
    const std::string name = '/' + std::string(107, 'x');
    QCOMPARE(server.listen(name), "this name is too long for a socket: " + name);
}

QTEST_GUILESS_MAIN(TestHostServer)
#include "tst_hostserver.moc"

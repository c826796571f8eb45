#include "common/QtCommonTools.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagelabels.h"
#include "support/busyhost.h"
#include "support/languagecodes.h"
#include "support/messagelog.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QtTest>

/// The real socket against a real server that plays the host suite.
class TestIpcLocalSocket : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void init();
    void cleanup();
    void asksForTheLanguageOnce();
    void staysEnglishWithoutAHost();
    void obeysALanguageAnswer_data();
    void obeysALanguageAnswer();
    void sameCodeAgainChangesNothing();
    void unknownCodeFallsBackToEnglishAndStillTells_data();
    void unknownCodeFallsBackToEnglishAndStillTells();
    void answerWithoutColonIsACodeAsAWhole();
    void ignoresOtherTexts_data();
    void ignoresOtherTexts();
    void twoMessagesInOneReadAreOneUnknownCode();
    void exitMessageQuitsTheEventLoop();
    void hostThatDiesChangesNothing();
    void answersBeforeTheEventLoopRunsAreNotLost();
    void answersThatOutrunTheRequestAreNotLost();
    void busyHostIsGivenUpAfterASecond();
    void releaseIsIdempotent();
    void reportsASlotCallWithoutASender();

private:
    void connectHost();
    void say(const QByteArray &text);

    QScopedPointer<QLocalServer> m_server;
    QScopedPointer<IpcLocalSocket> m_socket;
    QLocalSocket *m_host = nullptr;
};

void TestIpcLocalSocket::init()
{
    m_server.reset(new QLocalServer);
    QVERIFY(m_server->listen(QStringLiteral("TestHost")));
}

void TestIpcLocalSocket::cleanup()
{
    m_socket.reset();
    m_server.reset();
    m_host = nullptr;
    QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang;
}

void TestIpcLocalSocket::connectHost()
{
    m_socket.reset(new IpcLocalSocket(QStringLiteral("TestHost")));
    if (!m_server->hasPendingConnections())
        QVERIFY(m_server->waitForNewConnection(5000));
    m_host = m_server->nextPendingConnection();
    QVERIFY(m_host);
}

void TestIpcLocalSocket::say(const QByteArray &text)
{
    QCOMPARE(m_host->write(text), qint64(text.size()));
    m_host->flush();
}

void TestIpcLocalSocket::asksForTheLanguageOnce()
{
    connectHost();
    QByteArray received;
    QTRY_VERIFY((received += m_host->readAll()).size() >= 26);
    // A round trip, so that anything more would have arrived.
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    say("IpcResponseLanguage:deu");
    QVERIFY(changed.wait());
    received += m_host->readAll();
    QCOMPARE(received, QByteArray("IpcRequestLanguage:Airlume"));
}

void TestIpcLocalSocket::staysEnglishWithoutAHost()
{
    m_server.reset();
    MessageLog log;
    m_socket.reset(new IpcLocalSocket(QStringLiteral("TestHost")));
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
    QVERIFY(log.criticals().isEmpty());
}

void TestIpcLocalSocket::obeysALanguageAnswer_data()
{
    QTest::addColumn<QString>("code");
    for (const char *code : LanguageCodes) {
        if (qstrcmp(code, "enu") != 0)
            QTest::newRow(code) << QString::fromLatin1(code);
    }
}

void TestIpcLocalSocket::obeysALanguageAnswer()
{
    QFETCH(QString, code);
    connectHost();
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    say("IpcResponseLanguage:" + code.toLatin1());
    QVERIFY(changed.wait());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_socket->GetLang(), code);
}

void TestIpcLocalSocket::sameCodeAgainChangesNothing()
{
    connectHost();
    QString text = QStringLiteral("IpcResponseLanguage:deu");
    m_socket->DealResponseLanguage(text);
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    m_socket->DealResponseLanguage(text);
    QCOMPARE(changed.size(), 0);
    QCOMPARE(m_socket->GetLang(), QStringLiteral("deu"));
}

void TestIpcLocalSocket::unknownCodeFallsBackToEnglishAndStillTells_data()
{
    QTest::addColumn<QString>("answer");
    QTest::newRow("unknown") << QStringLiteral("IpcResponseLanguage:xyz");
    QTest::newRow("line end") << QStringLiteral("IpcResponseLanguage:deu\n");
    QTest::newRow("carriage return") << QStringLiteral("IpcResponseLanguage:deu\r\n");
    QTest::newRow("upper case") << QStringLiteral("IpcResponseLanguage:DEU");
    QTest::newRow("empty") << QStringLiteral("IpcResponseLanguage:");
    QTest::newRow("two colons") << QStringLiteral("IpcResponseLanguage::deu");
    QTest::newRow("long") << QStringLiteral("IpcResponseLanguage:") +
                                 QString(100000, QLatin1Char('x'));
}

void TestIpcLocalSocket::unknownCodeFallsBackToEnglishAndStillTells()
{
    QFETCH(QString, answer);
    connectHost();
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    m_socket->DealResponseLanguage(answer);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
}

void TestIpcLocalSocket::answerWithoutColonIsACodeAsAWhole()
{
    connectHost();
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    QString known = QStringLiteral("fra");
    m_socket->DealResponseLanguage(known);
    QCOMPARE(m_socket->GetLang(), QStringLiteral("fra"));
    QString unknown = QStringLiteral("IpcResponseLanguage");
    m_socket->DealResponseLanguage(unknown);
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
    QCOMPARE(changed.size(), 2);
}

void TestIpcLocalSocket::ignoresOtherTexts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("lower case") << QByteArray("ipcresponselanguage:deu");
    QTest::newRow("leading blank") << QByteArray(" IpcResponseLanguage:deu");
    QTest::newRow("exit in lower case") << QByteArray("ipcResponseExit");
    QTest::newRow("NUL") << QByteArray(4, '\0');
    QTest::newRow("invalid UTF-8") << QByteArray("\xff\xfe\xfd");
    QTest::newRow("a lot") << QByteArray(1000000, 'x');
}

void TestIpcLocalSocket::ignoresOtherTexts()
{
    QFETCH(QByteArray, text);
    connectHost();
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    say(text);
    // What is written to a local socket can be read at once, so that this reads all of it.
    QTRY_COMPARE(m_host->bytesToWrite(), qint64(0));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(changed.size(), 0);
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
    // The channel still works: the text was read, and not heeded.
    say("IpcResponseLanguage:kor");
    QTRY_COMPARE(m_socket->GetLang(), QStringLiteral("kor"));
    QCOMPARE(changed.size(), 1);
}

void TestIpcLocalSocket::twoMessagesInOneReadAreOneUnknownCode()
{
    connectHost();
    QSignalSpy changed(m_socket.data(), &IpcLocalSocket::ChangeLanguage);
    say("IpcResponseLanguage:deuIpcResponseLanguage:fra");
    QVERIFY(changed.wait());
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
}

void TestIpcLocalSocket::exitMessageQuitsTheEventLoop()
{
    connectHost();
    say("IpcResponseExit, please");
    QTimer::singleShot(20000, QCoreApplication::instance(), [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
}

void TestIpcLocalSocket::hostThatDiesChangesNothing()
{
    connectHost();
    QString text = QStringLiteral("IpcResponseLanguage:jpn");
    m_socket->DealResponseLanguage(text);
    QSignalSpy gone(m_host, &QLocalSocket::disconnected);
    m_host->abort();
    m_server->close();
    QCoreApplication::processEvents();
    QCOMPARE(m_socket->GetLang(), QStringLiteral("jpn"));
}

void TestIpcLocalSocket::answersBeforeTheEventLoopRunsAreNotLost()
{
    // The host answers while the socket is still being constructed.
    connect(m_server.data(), &QLocalServer::newConnection, this, [this] {
        m_host = m_server->nextPendingConnection();
        say("IpcResponseLanguage:tur");
    });
    m_socket.reset(new IpcLocalSocket(QStringLiteral("TestHost")));
    QTRY_COMPARE(m_socket->GetLang(), QStringLiteral("tur"));
}

void TestIpcLocalSocket::answersThatOutrunTheRequestAreNotLost()
{
    m_server.reset();
    // Answers in the moment in which the connection comes, on a thread of its own: some of these
    // answers are there before the request is written.
    QAtomicInt ending;
    BusyHost host("TestHost");
    QVERIFY(host.isFull());
    QVERIFY(!host.accept(0));
    QScopedPointer<QThread> answering(QThread::create([&] {
        while (!ending.loadAcquire()) {
            if (host.accept(20))
                host.say("IpcResponseLanguage:tur");
        }
    }));
    answering->start();
    int lost = 0;
    for (int i = 0; i < 300 && lost == 0; ++i) {
        IpcLocalSocket socket(QStringLiteral("TestHost"));
        if (!QTest::qWaitFor([&] { return socket.GetLang() == QStringLiteral("tur"); }, 5000))
            ++lost;
    }
    ending.storeRelease(1);
    QVERIFY(answering->wait());
    QCOMPARE(lost, 0);
}

void TestIpcLocalSocket::busyHostIsGivenUpAfterASecond()
{
    m_server.reset();
    BusyHost host("TestHost");
    QVERIFY(host.isFull());
    QElapsedTimer timer;
    timer.start();
    m_socket.reset(new IpcLocalSocket(QStringLiteral("TestHost")));
    QVERIFY(timer.elapsed() >= 1000);
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
    // It has given up for good: no connection comes, although there is room for it now.
    QVERIFY(!host.accept(0));
    QTest::qWait(300);
    QVERIFY(!host.accept(0));
}

void TestIpcLocalSocket::releaseIsIdempotent()
{
    connectHost();
    m_socket->Release();
    m_socket->Release();
    QCOMPARE(m_socket->GetLang(), QStringLiteral("enu"));
}

void TestIpcLocalSocket::reportsASlotCallWithoutASender()
{
    connectHost();
    MessageLog log;
    m_socket->slotReadyRead();
    QCOMPARE(log.criticals().size(), 1);
    QVERIFY(log.criticals().first().startsWith(
        QLatin1String("NUll pointfile:ipclocalsocket function:slotReadyRead line:")));
}

QTEST_GUILESS_MAIN(TestIpcLocalSocket)
#include "tst_ipclocalsocket.moc"

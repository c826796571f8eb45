#include "flows/hostsuite.h"
#include "flows/sharedtemporaryfolder.h"
#include "host/hostrun.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <csignal>

namespace
{
const QStringList German = {QStringLiteral("--language"), QStringLiteral("deu")};
const QStringList Once = {QStringLiteral("--once")};
} // namespace

/// airlume-host as a process, without Airlume.
class TestAirlumeHost : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void answersEveryRequest();
    void answersInTheDesktopsLanguage();
    void requestInPiecesIsAnsweredOnce();
    void otherTextIsNotAnswered();
    void onceEndsAfterOneAnswer();
    void onceIsNotUsedUpByASilentConnection();
    void onceEndsAfterTenSeconds();
    void answerReachesAClientThatReadsLate();
    void commandsReachTheOnesThatHaveAsked();
    void endsWithItsInput();
    void aSignalEndsItInOrder_data();
    void aSignalEndsItInOrder();
    void aHostThatListensIsLeftAlone();
    void takesOverFromAHostThatWasKilled();
    void isNoHostForOthers();
    void moreClientsThanItTakesWaitForTheirTurn();
    void tellsWhatIsWrongInTheCommandLine_data();
    void tellsWhatIsWrongInTheCommandLine();
    void tellsWhyAProgramCannotBeStarted();
    void passesTheProgramsArgumentsOn();
};

void TestAirlumeHost::cleanup()
{
    // Nothing stays behind; a file would also be in the way of the next one.
    const bool left = QFile::remove(HostRun::socketPath());
    QVERIFY(!left || QTest::currentTestFailed());
}

void TestAirlumeHost::answersEveryRequest()
{
    HostRun host(German);
    QVERIFY(host.prints("listening"));
    Client first;
    QVERIFY(first.say());
    QVERIFY(first.hears("IpcResponseLanguage:deu"));
    QVERIFY(first.say());
    QVERIFY(first.hears("IpcResponseLanguage:deu"));
    Client second;
    QVERIFY(second.say());
    QVERIFY(second.hears("IpcResponseLanguage:deu"));
    QVERIFY(host.type("quit"));
    QCOMPARE(host.status(), 0);
}

void TestAirlumeHost::answersInTheDesktopsLanguage()
{
    for (const QStringList &arguments :
        {QStringList(), QStringList({QStringLiteral("--language"), QStringLiteral("auto")})}) {
        HostRun host(arguments + Once, QStringLiteral("zh_TW.UTF-8"));
        QVERIFY(host.prints("listening"));
        Client client;
        QVERIFY(client.say());
        QVERIFY(client.hears("IpcResponseLanguage:cht"));
        QCOMPARE(host.status(), 0);
    }
}

void TestAirlumeHost::requestInPiecesIsAnsweredOnce()
{
    HostRun host(German);
    QVERIFY(host.prints("listening"));
    Client client;
    for (const char *piece : {"Ipc", "RequestLang"}) {
        QVERIFY(client.say(piece));
        QVERIFY(host.prints(QByteArray("received ") + piece));
    }
    QVERIFY(client.say("uage:Airlume"));
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
}

void TestAirlumeHost::otherTextIsNotAnswered()
{
    HostRun host(German);
    QVERIFY(host.prints("listening"));
    Client client;
    for (const QByteArray &text : {QByteArray("\x1b[2J"), QByteArray("ipcrequestlanguage"),
             QByteArray("Ipc IpcRequestLanguage:Airlume")}) {
        QVERIFY(client.say(text));
        QVERIFY(host.prints("received " + QByteArray(text).replace("\x1b", "\\x1b")));
    }
    QVERIFY(client.say());
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
}

void TestAirlumeHost::onceEndsAfterOneAnswer()
{
    HostRun host(German + Once);
    // It takes no commands, and does not mind the end of the input.
    host.process().closeWriteChannel();
    QVERIFY(host.prints("listening"));
    Client client;
    QVERIFY(client.say());
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
    QCOMPARE(host.status(), 0);
    QCOMPARE(host.errors(), QByteArray());
    QVERIFY(!QFile::exists(HostRun::socketPath()));
}

void TestAirlumeHost::onceIsNotUsedUpByASilentConnection()
{
    HostRun host(German + Once);
    QVERIFY(host.prints("listening"));
    {
        Client silent;
        QVERIFY(host.prints("connected"));
    }
    QVERIFY(host.prints("disconnected"));
    Client idle;
    QVERIFY(host.prints("connected"));
    Client client;
    QVERIFY(client.say());
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
    QCOMPARE(host.status(), 0);
}

void TestAirlumeHost::onceEndsAfterTenSeconds()
{
    QElapsedTimer timer;
    timer.start();
    HostRun host(German + Once);
    QVERIFY(host.prints("listening"));
    // A connection alone does not hold it.
    Client silent;
    QCOMPARE(host.status(), 3);
    QVERIFY(timer.elapsed() >= 10000);
    QCOMPARE(host.errors(), QByteArray("airlume-host: nobody has asked for a language\n"));
    QVERIFY(!QFile::exists(HostRun::socketPath()));
}

void TestAirlumeHost::answerReachesAClientThatReadsLate()
{
    HostRun host(German + Once);
    QVERIFY(host.prints("listening"));
    Client client;
    QVERIFY(client.say());
    QCOMPARE(host.status(), 0);
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
}

void TestAirlumeHost::commandsReachTheOnesThatHaveAsked()
{
    HostRun host(German);
    QVERIFY(host.prints("listening"));
    QVERIFY(host.type("exit"));
    QVERIFY(host.prints("nobody has asked yet"));
    Client silent;
    Client client;
    QVERIFY(client.say());
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
    QVERIFY(host.type("language jpn"));
    QVERIFY(client.hears("IpcResponseLanguage:jpn"));
    QVERIFY(host.type("raw a\\nb \\\\"));
    QVERIFY(client.hears("a\nb \\"));
    QVERIFY(host.prints("sent a\\x0ab \\"));
    QVERIFY(host.type("language klingon"));
    QVERIFY(
        host.prints("languages: enu deu sve fra nld ita esp dan fin nor ell ptb rus plk hun csy "
                    "slv sky rom kor jpn ara tur chs cht"));
    for (const char *unknown : {"help", "languages deu"}) {
        QVERIFY(host.type(unknown));
        QVERIFY(host.prints("commands: language CODE | raw TEXT | exit | quit"));
    }
    // Several in one piece, and an empty one.
    QVERIFY(host.type("raw one\n\nraw two"));
    QVERIFY(client.hears("onetwo"));
    QVERIFY(host.type("exit"));
    QVERIFY(client.hears("IpcResponseExit"));
    // The language stays for those who ask later; who has not asked has heard nothing.
    QVERIFY(silent.say());
    QVERIFY(silent.hears("IpcResponseLanguage:jpn"));
}

void TestAirlumeHost::endsWithItsInput()
{
    HostRun host(German);
    QVERIFY(host.prints("listening"));
    host.process().closeWriteChannel();
    QCOMPARE(host.status(), 0);
}

void TestAirlumeHost::aSignalEndsItInOrder_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("interrupt") << SIGINT << German;
    QTest::newRow("terminate") << SIGTERM << German + Once;
    QTest::newRow("hang up") << SIGHUP << German;
}

void TestAirlumeHost::aSignalEndsItInOrder()
{
    QFETCH(int, signal);
    QFETCH(QStringList, arguments);
    HostRun host(arguments);
    QVERIFY(host.prints("listening"));
    QCOMPARE(kill(static_cast<pid_t>(host.process().processId()), signal), 0);
    QCOMPARE(host.status(), 0);
    QVERIFY(!QFile::exists(HostRun::socketPath()));
}

void TestAirlumeHost::aHostThatListensIsLeftAlone()
{
    HostSuite suite;
    HostRun host(German);
    QCOMPARE(host.status(), 1);
    QCOMPARE(host.errors(),
        "airlume-host: a host listens already: " + QFile::encodeName(HostRun::socketPath()) + '\n');
    // The first connection it sees is a client's.
    Client client;
    QVERIFY(client.say());
    QVERIFY(suite.isAsked());
}

void TestAirlumeHost::takesOverFromAHostThatWasKilled()
{
    {
        HostRun killed(German);
        QVERIFY(killed.prints("listening"));
        killed.process().kill();
        QCOMPARE(killed.status(), -1);
    }
    QVERIFY(QFile::exists(HostRun::socketPath()));
    HostRun host(German + Once);
    QVERIFY(host.prints("listening"));
    Client client;
    QVERIFY(client.say());
    QVERIFY(client.hears("IpcResponseLanguage:deu"));
    QCOMPARE(host.status(), 0);
}

void TestAirlumeHost::isNoHostForOthers()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    const SharedTemporaryFolder shared;
    QProcess host;
    host.start(QStringLiteral("setpriv"),
        {QStringLiteral("--reuid=65533"), QStringLiteral("--regid=65533"),
            QStringLiteral("--clear-groups"), QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"),
            QStringLiteral("--language"), QStringLiteral("deu")});
    QVERIFY(host.waitForReadyRead(60000));
    QCOMPARE(host.readAllStandardOutput(), QByteArray("listening\n"));
    // Root gets past the permissions of the file.
    Client client;
    QVERIFY(client.isConnected());
    client.say();
    QVERIFY(!client.hears("IpcResponseLanguage:deu"));
    HostRun second(German);
    QCOMPARE(second.status(), 1);
    QCOMPARE(second.errors(), "airlume-host: another user has taken this name: " +
                                  QFile::encodeName(HostRun::socketPath()) +
                                  " (set TMPDIR to a folder of your own)\n");
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished());
    QVERIFY(!QFile::exists(HostRun::socketPath()));
}

void TestAirlumeHost::moreClientsThanItTakesWaitForTheirTurn()
{
    HostRun host(German);
    QVERIFY(host.prints("listening"));
    std::vector<std::unique_ptr<Client>> crowd;
    for (int i = 0; i < 64; ++i) {
        crowd.push_back(std::make_unique<Client>());
        QVERIFY(host.prints("connected"));
    }
    Client late;
    QVERIFY(late.isConnected());
    QVERIFY(late.say());
    for (int round = 0; round < 3; ++round) {
        QVERIFY(crowd.back()->say());
        QVERIFY(crowd.back()->hears("IpcResponseLanguage:deu"));
        QVERIFY(host.prints("sent IpcResponseLanguage:deu"));
        QCOMPARE(host.skipped(), QByteArray("received IpcRequestLanguage:Airlume\n"));
    }
    crowd.erase(crowd.begin());
    QVERIFY(host.prints("connected"));
    QVERIFY(late.hears("IpcResponseLanguage:deu"));
}

void TestAirlumeHost::tellsWhatIsWrongInTheCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("complaint");
    const auto row = [](const char *complaint, const char *line) {
        QTest::newRow(complaint) << QString::fromLatin1(line).split(
                                        QLatin1Char(' '), Qt::SkipEmptyParts)
                                 << QByteArray(complaint);
    };
    row("no language \"DEU\"; there are: auto enu deu ", "--language DEU");
    row("unrecognized option", "--bogus");
    row("requires an argument", "--language");
    row("--run wants a program", "--run");
    row("--run ends after one answer anyway", "--once --run true");
    row("there are no arguments but options", "deu");
}

void TestAirlumeHost::tellsWhatIsWrongInTheCommandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, complaint);
    HostRun host(arguments);
    QCOMPARE(host.status(), 2);
    const QByteArray errors = host.errors();
    QVERIFY2(errors.contains(complaint), errors.constData());
    QVERIFY2(errors.endsWith("airlume-host: see airlume-host --help\n"), errors.constData());
}

void TestAirlumeHost::tellsWhyAProgramCannotBeStarted()
{
    HostRun missing({QStringLiteral("--run"), QStringLiteral("/nonexistent/airlume")});
    QCOMPARE(missing.status(), 127);
    QCOMPARE(missing.errors(),
        QByteArray("airlume-host: cannot start /nonexistent/airlume: No such file or directory\n"));
    HostRun folder({QStringLiteral("--run"), QDir::tempPath()});
    QCOMPARE(folder.status(), 126);
    QVERIFY(folder.errors().endsWith("Permission denied\n"));
}

void TestAirlumeHost::passesTheProgramsArgumentsOn()
{
    // Options after the program are its own.
    HostRun host({QStringLiteral("--run"), QStringLiteral("sh"), QStringLiteral("-c"),
        QStringLiteral("echo $$ \"$@\"; exit 5"), QStringLiteral("--once"), QStringLiteral("-h"),
        QStringLiteral("two words")});
    const QByteArray id = QByteArray::number(host.process().processId());
    QVERIFY(host.prints(id + " -h two words"));
    QCOMPARE(host.status(), 5);
}

QTEST_GUILESS_MAIN(TestAirlumeHost)
#include "tst_airlumehost.moc"

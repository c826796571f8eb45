#include "flows/desktopcommand.h"
#include "flows/hostsuite.h"
#include "support/busyhost.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <vector>

#include <sys/stat.h>

namespace
{
const QString HostName = QStringLiteral("HarborWindowLocalProcess");
const uint FirstUser = 65533;
const uint SecondUser = 65534;
#ifdef __SANITIZE_ADDRESS__
const int Moments = 1;
#else
const int Moments = 5;
#endif
} // namespace

/// The program in the language of the desktop, where there are a host suite, other copies or other
/// users.
class TestOwnLanguageMeetings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_command.prepare()); }
    void init() { m_command.renewFolder(); }
    void cleanup();
    void aHostSuiteIsAskedInstead();
    void aHostSuiteThatIsBusyKeepsItsName();
    void aHostSuiteMayComeLater();
    void aSecondStartEndsAtOnce();
    void aStartAfterADirectOneEndsAtOnce();
    void startsAtTheSameInstantAllSpeakIt();
    void usersDoNotMeet();
    void anotherUsersHostIsNotAsked();

private:
    DesktopCommand m_command;
};

void TestOwnLanguageMeetings::cleanup()
{
    QTRY_COMPARE_WITH_TIMEOUT(hostCount(), 0, 60000);
    m_command.removeFolder();
}

void TestOwnLanguageMeetings::aHostSuiteIsAskedInstead()
{
    HostSuite suite;
    const auto airlume = m_command.program("de_DE.UTF-8");
    airlume->launch();
    // The first connection that it sees is the program's.
    QVERIFY(suite.isAsked());
    QVERIFY(suite.sayLanguage("fin"));
    QVERIFY2(airlume->waitFor(speaking(QStringLiteral("fin"))), qPrintable(airlume->output()));
    QCOMPARE(hostCount(), 0);
    QVERIFY(!QFile::exists(ownFolder()));
    QVERIFY(suite.say("IpcResponseExit"));
    QVERIFY(airlume->waitForEnd());
}

void TestOwnLanguageMeetings::aHostSuiteThatIsBusyKeepsItsName()
{
    BusyHost suite("HarborWindowLocalProcess");
    QVERIFY(suite.isFull());
    const auto airlume = m_command.program("de_DE.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY(speaks(airlume->state(), QStringLiteral("enu")));
    QCOMPARE(hostSockets(), QStringList(QDir::temp().filePath(HostName)));
}

void TestOwnLanguageMeetings::aHostSuiteMayComeLater()
{
    const auto airlume = m_command.program("de_DE.UTF-8");
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    HostSuite suite;
    QVERIFY(airlume->waitFor(speaking(QStringLiteral("deu"))));
    const auto second = m_command.program("de_DE.UTF-8");
    second->launch();
    QVERIFY(endsUnseen(*second));
    QVERIFY(endsByItsButton(*airlume));
    const auto next = m_command.program("de_DE.UTF-8");
    next->launch();
    QVERIFY(suite.isAsked());
    QVERIFY(suite.sayLanguage("ita"));
    QVERIFY(next->waitFor(speaking(QStringLiteral("ita"))));
}

void TestOwnLanguageMeetings::aSecondStartEndsAtOnce()
{
    const auto first = m_command.program("ja_JP.UTF-8");
    QVERIFY2(first->start(), qPrintable(first->output()));
    QVERIFY(first->waitFor(speaking(QStringLiteral("jpn"))));
    for (const char *locale : {"ja_JP.UTF-8", "de_DE.UTF-8", "C"}) {
        const auto second = m_command.program(locale);
        second->launch();
        QVERIFY2(endsUnseen(*second), locale);
        QCOMPARE(hostCount(), 0);
    }
    const auto bare = m_command.bareProgram();
    bare->launch();
    QVERIFY(endsUnseen(*bare));
    QVERIFY(first->waitFor(speaking(QStringLiteral("jpn"))));
    QVERIFY(endsByItsButton(*first));

    // What it left behind is in nobody's way.
    const auto next = m_command.bareProgram();
    QVERIFY2(next->start(), qPrintable(next->output()));
    const auto further = m_command.program("de_DE.UTF-8");
    further->launch();
    QVERIFY(endsUnseen(*further));
}

void TestOwnLanguageMeetings::aStartAfterADirectOneEndsAtOnce()
{
    const auto first = m_command.bareProgram();
    QVERIFY2(first->start(), qPrintable(first->output()));
    const auto second = m_command.program("de_DE.UTF-8");
    second->launch();
    QVERIFY(endsUnseen(*second));
    QCOMPARE(hostCount(), 0);
    QVERIFY(first->waitFor(speaking(QStringLiteral("enu"))));
    QVERIFY(endsByItsButton(*first));

    // The socket that it left behind gives way to the next copy's.
    const auto next = m_command.program("de_DE.UTF-8");
    QVERIFY2(next->start(), qPrintable(next->output()));
    const auto bare = m_command.bareProgram();
    bare->launch();
    QVERIFY(endsUnseen(*bare));
}

void TestOwnLanguageMeetings::startsAtTheSameInstantAllSpeakIt()
{
    for (int moment = 0; moment < Moments; ++moment) {
        std::vector<std::unique_ptr<AirlumeProcess>> copies;
        for (int copy = 0; copy < 4; ++copy)
            copies.push_back(m_command.program("ko_KR.UTF-8"));
        for (const auto &copy : copies)
            copy->launch();
        // Each shows its window, or ends since another did.
        int running = 0;
        for (const auto &copy : copies) {
            if (copy->waitFor(speaking(QStringLiteral("kor"))))
                ++running;
            else
                QVERIFY2(endsUnseen(*copy), qPrintable(copy->output()));
        }
        QVERIFY(running >= 1);
    }
}

void TestOwnLanguageMeetings::usersDoNotMeet()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    const auto first = m_command.program("de_DE.UTF-8");
    const auto second = m_command.program("ar_EG.UTF-8");
    const auto root = m_command.program("fr_FR.UTF-8");
    first->setUser(FirstUser);
    second->setUser(SecondUser);
    // A generous user, whose files are for everybody.
    const mode_t mask = umask(0);
    for (const auto &airlume : {first.get(), second.get(), root.get()})
        airlume->launch();
    umask(mask);
    QVERIFY2(first->waitFor(speaking(QStringLiteral("deu"))), qPrintable(first->output()));
    QVERIFY2(second->waitFor(speaking(QStringLiteral("ara"))), qPrintable(second->output()));
    QVERIFY2(root->waitFor(speaking(QStringLiteral("fra"))), qPrintable(root->output()));
    for (uint user : {FirstUser, SecondUser, uint(geteuid())}) {
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(ownFolder(user)).constData(), &status), 0);
        QCOMPARE(status.st_uid, user);
        QCOMPARE(status.st_mode & mode_t(07777), mode_t(0700));
    }
    // Only one of them has the link outside of the folder; also in English, each finds the copy.
    for (uint user : {FirstUser, SecondUser, uint(geteuid())}) {
        const auto further = m_command.program("C");
        further->setUser(user);
        further->launch();
        QVERIFY(endsUnseen(*further));
    }
}

void TestOwnLanguageMeetings::anotherUsersHostIsNotAsked()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    QProcess host;
    host.start(QStringLiteral("setpriv"),
        {QStringLiteral("--reuid=65533"), QStringLiteral("--regid=65533"),
            QStringLiteral("--clear-groups"), QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"),
            QStringLiteral("--language"), QStringLiteral("jpn")});
    QVERIFY(host.waitForReadyRead(60000));
    // It lets everybody connect.
    const QByteArray socket = QFile::encodeName(QDir::temp().filePath(HostName));
    QCOMPARE(chmod(socket.constData(), 0777), 0);
    const auto first = m_command.program("de_DE.UTF-8");
    const auto second = m_command.program("de_DE.UTF-8");
    first->setUser(FirstUser);
    second->setUser(SecondUser);
    QVERIFY2(first->start(), qPrintable(first->output()));
    QVERIFY(first->waitFor(speaking(QStringLiteral("jpn"))));
    QVERIFY2(second->start(), qPrintable(second->output()));
    QVERIFY(second->waitFor(speaking(QStringLiteral("deu"))));
    host.closeWriteChannel();
    QVERIFY(host.waitForFinished());
}

QTEST_GUILESS_MAIN(TestOwnLanguageMeetings)
#include "tst_ownlanguagemeetings.moc"

#include "flows/airlumeprocess.h"
#include "flows/sharedtemporaryfolder.h"
#include "support/busyhost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopedPointer>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");
const uint FirstUser = 65533;
const uint SecondUser = 65534;

QString socketPath()
{
    return QDir::tempPath() + QStringLiteral("/Airlume_LocalServer");
}

bool isSocketOf(uint userId, const QString &path = socketPath())
{
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISSOCK(status.st_mode) &&
           status.st_uid == userId;
}

/// Starts a further copy, and tells whether it ended at once with 0.
bool furtherCopyEnds(uint userId)
{
    AirlumeProcess further(Simulated);
    if (userId != geteuid())
        further.setUser(userId);
    further.launch();
    return further.waitForEnd() && further.endedNormally() && further.exitCode() == 0 &&
           !further.output().contains(QStringLiteral("qss"));
}
} // namespace

/// The name of the program's own server is taken: it starts, and works.
class TestServerName : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void takenByAFile_data();
    void takenByAFile();
    void takenByADirectory();
    void takenByAServerThatNeverAccepts();
    void takenByAnotherUser();
    void takenByAnotherUsersFile();
    void everyUserHasACopyInFoldersOfTheirOwn();
};

void TestServerName::cleanup()
{
    QFile::remove(socketPath());
}

void TestServerName::takenByAFile_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("that is stale") << QString();
    QTest::newRow("that is a link to nowhere") << QStringLiteral("/nonexistent/airlume");
    QTest::newRow("that is a link to itself") << socketPath();
}

void TestServerName::takenByAFile()
{
    QFETCH(QString, target);
    QFile file(socketPath());
    if (target.isEmpty())
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("stale") == 5 && file.flush());
    else
        QVERIFY(QFile::link(target, socketPath()));
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor(hasRows));
    // It has the name now, and guards it.
    QVERIFY(isSocketOf(geteuid()));
    QVERIFY(furtherCopyEnds(geteuid()));
    QVERIFY(airlume.isRunning());
}

void TestServerName::takenByADirectory()
{
    QVERIFY(QDir().mkpath(socketPath() + QStringLiteral("/inside")));
    {
        AirlumeProcess airlume(Simulated);
        QVERIFY2(airlume.start(), qPrintable(airlume.output()));
        QVERIFY(airlume.waitFor(hasRows));
        // Without protection, the next copy runs as well.
        AirlumeProcess further(Simulated);
        QVERIFY2(further.start(), qPrintable(further.output()));
        QVERIFY(further.waitFor(hasRows));
        QVERIFY(airlume.waitFor(hasRows));
    }
    QVERIFY(QFileInfo(socketPath() + QStringLiteral("/inside")).isDir());
    QVERIFY(QDir(socketPath()).removeRecursively());
}

void TestServerName::takenByAServerThatNeverAccepts()
{
    const BusyHost stranger("Airlume_LocalServer");
    QVERIFY(stranger.isFull());
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor(hasRows));
    QVERIFY(furtherCopyEnds(geteuid()));
    QVERIFY(airlume.isRunning());
}

void TestServerName::takenByAnotherUser()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    const SharedTemporaryFolder shared;
    AirlumeProcess first(Simulated);
    first.setUser(FirstUser);
    // A generous user, whose files are for everybody.
    const mode_t mask = umask(0);
    const bool started = first.start();
    umask(mask);
    QVERIFY2(started, qPrintable(first.output()));
    QVERIFY(first.waitFor(hasRows));
    QVERIFY(isSocketOf(FirstUser));

    // The copy of the first user neither swallows the start of the second, nor loses its socket.
    AirlumeProcess second(Simulated);
    second.setUser(SecondUser);
    QVERIFY2(second.start(), qPrintable(second.output()));
    QVERIFY(second.waitFor(hasRows));
    QVERIFY(isSocketOf(FirstUser));
    QVERIFY(first.isRunning());

    // Further copies of the first user end. Those of the second do not: nothing guards them.
    QVERIFY(furtherCopyEnds(FirstUser));
    AirlumeProcess third(Simulated);
    third.setUser(SecondUser);
    QVERIFY2(third.start(), qPrintable(third.output()));
    for (AirlumeProcess *airlume : {&first, &second, &third}) {
        QVERIFY(airlume->command(QStringLiteral("click close1")));
        QVERIFY(airlume->waitForEnd());
        QCOMPARE(airlume->exitCode(), 0);
    }
}

void TestServerName::takenByAnotherUsersFile()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    const SharedTemporaryFolder shared;
    QFile file(socketPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    AirlumeProcess airlume(Simulated);
    airlume.setUser(SecondUser);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor(hasRows));
    QVERIFY(QFileInfo(socketPath()).isFile());
}

void TestServerName::everyUserHasACopyInFoldersOfTheirOwn()
{
    if (!mayRunAsOthers())
        QSKIP("Needs root, and a build tree that others may read");
    const SharedTemporaryFolder shared;
    AirlumeProcess first(Simulated);
    AirlumeProcess second(Simulated);
    first.setOwnTemporaryFolder();
    first.setUser(FirstUser);
    second.setOwnTemporaryFolder();
    second.setUser(SecondUser);
    QVERIFY2(first.start(), qPrintable(first.output()));
    QVERIFY2(second.start(), qPrintable(second.output()));
    QVERIFY(first.waitFor(hasRows));
    QVERIFY(second.waitFor(hasRows));
    QVERIFY(!QFile::exists(socketPath()));
    const QString inFolder = QStringLiteral("/tmp/Airlume_LocalServer");
    QVERIFY(isSocketOf(FirstUser, first.folder() + inFolder));
    QVERIFY(isSocketOf(SecondUser, second.folder() + inFolder));
}

QTEST_GUILESS_MAIN(TestServerName)
#include "tst_servername.moc"

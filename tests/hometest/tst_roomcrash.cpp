#include "hometest/roomplan.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

// The window's close button ends the process without a word, and so does a crash. A room is
// confirmed on screen when the call that stores it has returned.
class TestRoomCrash : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyConfirmedChangeSurvivesAKill();
    void aKilledProcessDoesNotHoldUpTheNextOne();
    void twoProcessesLeaveAReadableFile();

private:
    static int confirmed(QProcess &writer, int before);
    static void start(QProcess &writer, int first, int last);
};

void TestRoomCrash::init()
{
    QFile::remove(RoomHouse::file());
    QFile::remove(RoomHouse::file() + QStringLiteral(".lock"));
    QFile empty(RoomHouse::file());
    QVERIFY(empty.open(QIODevice::WriteOnly));
}

void TestRoomCrash::start(QProcess &writer, int first, int last)
{
    writer.start(QCoreApplication::applicationDirPath() + QStringLiteral("/roomwriter"),
        {QString::number(first), QString::number(last)});
}

// The last change the writer has said. A kill may cut the last line short.
int TestRoomCrash::confirmed(QProcess &writer, int before)
{
    int last = before;
    while (writer.canReadLine())
        last = writer.readLine().trimmed().toInt();
    return last;
}

void TestRoomCrash::everyConfirmedChangeSurvivesAKill()
{
    const int changes = 500;
    const quint32 seed = QRandomGenerator::system()->generate();
    QRandomGenerator random(seed);
    int done = 0;
    int kills = 0;
    int unconfirmed = 0;
    while (done < changes) {
        QProcess writer;
        start(writer, done + 1, changes);
        QVERIFY(writer.waitForReadyRead());
        QTest::qSleep(1 + random.bounded(20));
        // A moment between milliseconds.
        for (quint32 spin = random.bounded(200000u); spin > 0; --spin)
            QCoreApplication::instance();
        if (writer.state() == QProcess::Running)
            ++kills;
        writer.kill();
        QVERIFY(writer.waitForFinished());

        const int said = confirmed(writer, done);
        QVERIFY(said > done);
        QVERIFY2(RoomHouse::isReadable(RoomHouse::file()), qPrintable(QString::number(said)));
        const RoomHouse::Rooms rooms = RoomHouse::roomsIn(RoomHouse::file());
        // One change may have been written without having been said.
        const bool oneMore = rooms != RoomPlan::after(said);
        if (oneMore) {
            QVERIFY2(rooms == RoomPlan::after(said + 1),
                qPrintable(QStringLiteral("lost a change before %1, seed %2").arg(said).arg(seed)));
            ++unconfirmed;
        }
        done = oneMore ? said + 1 : said;
    }
    qInfo("%d changes, %d kills, %d of them between the disk and the confirmation; seed %u",
        changes, kills, unconfirmed, seed);
    QVERIFY(kills > 5);
}

void TestRoomCrash::aKilledProcessDoesNotHoldUpTheNextOne()
{
    // What a process leaves that is killed between creating its lock and signing it.
    QFile lock(RoomHouse::file() + QStringLiteral(".lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.close();
    QElapsedTimer time;
    time.start();
    QProcess writer;
    start(writer, 1, 1);
    QVERIFY(writer.waitForFinished());
    QVERIFY2(time.elapsed() < 10000, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(RoomHouse::roomsIn(RoomHouse::file()), RoomPlan::after(1));
    QVERIFY(!lock.exists());
}

void TestRoomCrash::twoProcessesLeaveAReadableFile()
{
    QProcess first;
    QProcess second;
    start(first, 1, 50);
    start(second, 1001, 1050);
    while (first.state() != QProcess::NotRunning || second.state() != QProcess::NotRunning) {
        QVERIFY(RoomHouse::isReadable(RoomHouse::file()));
        QTest::qWait(1);
    }
    QCOMPARE(first.exitCode(), 0);
    QCOMPARE(second.exitCode(), 0);
    QVERIFY(!RoomHouse::roomsIn(RoomHouse::file()).isEmpty());
    QVERIFY(!QFile::exists(RoomHouse::file() + QStringLiteral(".lock")));
}

QTEST_GUILESS_MAIN(TestRoomCrash)
#include "tst_roomcrash.moc"

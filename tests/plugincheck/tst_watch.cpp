#include "plugincheck/checkerrun.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace
{

QJsonArray networksOf(const QJsonObject &report)
{
    return report.value(QStringLiteral("networks")).toArray();
}

QString textAt(const QJsonObject &report, const char *key)
{
    return report.value(QLatin1String(key)).toString();
}

} // namespace

/// airlume-plugincheck over time: rounds and signals.
class TestWatch : public QObject
{
    Q_OBJECT

private slots:
    void watchingPrintsOneObjectALine();
    void watchingInTextNumbersTheRounds();
    void failingByTurnsStillCountsAsHeard();
    void changingInterfacesAreFollowed();
    void singleLookWaitsForTheFirstScan();
    void waitingForAScanHasAnEnd();
    void signalEndsTheWatch_data();
    void signalEndsTheWatch();
    void signalEndsAHangingCallAndWhatItStarted();
    void backendDoesNotOutliveAKilledChecker();
};

void TestWatch::watchingPrintsOneObjectALine()
{
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--rounds"), QStringLiteral("3"),
        QStringLiteral("--interval"), QStringLiteral("0.02"), CheckerRun::library("sound")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 0);
    QCOMPARE(run.output().count('\n'), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(run.reports().at(i).value(QStringLiteral("round")).toInt(), i + 1);
        QCOMPARE(networksOf(run.reports().at(i)).size(), 3);
    }
}

void TestWatch::watchingInTextNumbersTheRounds()
{
    CheckerRun run({QStringLiteral("--rounds"), QStringLiteral("2"), QStringLiteral("--interval"),
        QStringLiteral("0.02"), CheckerRun::library("sound")});
    QVERIFY(run.finish());
    QVERIFY(run.output().startsWith("Round 1, "));
    QVERIFY(run.output().contains("\n\nRound 2, "));
}

void TestWatch::failingByTurnsStillCountsAsHeard()
{
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--rounds"), QStringLiteral("4"),
                       QStringLiteral("--interval"), QStringLiteral("0.01"),
                       CheckerRun::library("alternating")},
        {QStringLiteral("AIRLUME_TEST_RESULTS=01")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 0);
    QStringList results;
    for (const QJsonObject &report : run.reports())
        results.append(textAt(report, "result"));
    const QString failed = QStringLiteral("nothing-heard");
    const QString heard = QStringLiteral("heard");
    QCOMPARE(results, (QStringList{failed, failed, heard, failed}));
}

void TestWatch::changingInterfacesAreFollowed()
{
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--rounds"), QStringLiteral("4"),
                       QStringLiteral("--interval"), QStringLiteral("0.01"),
                       CheckerRun::library("changinglist")},
        // The second list is the first round's own.
        {QStringLiteral("AIRLUME_TEST_INTERFACES=a|a|b,a||c")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 2);
    QStringList chosen;
    for (const QJsonObject &report : run.reports()) {
        QString name;
        const QJsonArray interfaces = report.value(QStringLiteral("interfaces")).toArray();
        for (const QJsonValue &interface : interfaces) {
            if (interface.toObject().value(QStringLiteral("chosen")).toBool())
                name = textAt(interface.toObject(), "name");
        }
        chosen.append(name);
    }
    QCOMPARE(chosen,
        (QStringList{QStringLiteral("a"), QStringLiteral("a"), QString(), QStringLiteral("c")}));
    // It goes on after its interfaces came back as if nothing had been.
    const QJsonArray deviations =
        run.reports().last().value(QStringLiteral("deviations")).toArray();
    QCOMPARE(deviations.size(), 1);
    QCOMPARE(
        textAt(deviations.first().toObject(), "code"), QStringLiteral("no-failure-after-return"));
}

void TestWatch::singleLookWaitsForTheFirstScan()
{
    CheckerRun run({QStringLiteral("--json"), CheckerRun::library("faulty")},
        {QStringLiteral("AIRLUME_TEST_FAULT=late")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 0);
    QCOMPARE(run.reports().size(), 1);
    QCOMPARE(networksOf(run.reports().first()).size(), 3);
    QCOMPARE(run.errors(), QByteArray());
}

void TestWatch::waitingForAScanHasAnEnd()
{
    for (const char *fault : {"own", "nothing"}) {
        CheckerRun run({QStringLiteral("--json"), QStringLiteral("--wait"), QStringLiteral("0.2"),
                           CheckerRun::library(*fault == 'o' ? "faulty" : "nonetworks")},
            {QStringLiteral("AIRLUME_TEST_FAULT=") + QLatin1String(fault)});
        QVERIFY(run.finish());
        QCOMPARE(run.status(), 1);
        QCOMPARE(textAt(run.reports().value(0), "reason"),
            *fault == 'o' ? QStringLiteral("own-network-only") : QStringLiteral("empty-list"));
    }
}

void TestWatch::signalEndsTheWatch_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<int>("status");
    QTest::newRow("SIGINT, heard") << SIGINT << QByteArray("sound") << 0;
    QTest::newRow("SIGTERM, heard") << SIGTERM << QByteArray("sound") << 0;
    QTest::newRow("SIGINT, nothing heard") << SIGINT << QByteArray("radiooff") << 1;
    QTest::newRow("SIGTERM, out of contract") << SIGTERM << QByteArray("garbage") << 2;
}

void TestWatch::signalEndsTheWatch()
{
    QFETCH(int, signal);
    QFETCH(QByteArray, kind);
    CheckerRun run(
        {QStringLiteral("--json"), QStringLiteral("--watch"), QStringLiteral("--interval"),
            QStringLiteral("600"), CheckerRun::library(kind.constData())});
    QVERIFY(run.waitForLines(1));
    QCOMPARE(run.process().state(), QProcess::Running);
    QCOMPARE(::kill(static_cast<pid_t>(run.process().processId()), signal), 0);
    QVERIFY(run.finish());
    QTEST(run.status(), "status");
    QCOMPARE(run.reports().size(), 1);
    QVERIFY(!run.reports().first().isEmpty());
}

void TestWatch::signalEndsAHangingCallAndWhatItStarted()
{
    QTemporaryDir folder;
    const QString note = folder.filePath(QStringLiteral("note"));
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--timeout"), QStringLiteral("600"),
                       CheckerRun::library("faulty")},
        {QStringLiteral("AIRLUME_TEST_FAULT=ignoresignals"),
            QStringLiteral("AIRLUME_TEST_NOTE=") + note});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(note), 60000);
    QFile file(note);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const pid_t child = file.readAll().toInt();
    QVERIFY(child > 0);
    QCOMPARE(::kill(child, 0), 0);
    QCOMPARE(::kill(static_cast<pid_t>(run.process().processId()), SIGINT), 0);
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 1);
    QCOMPARE(run.output(), QByteArray());
    QTRY_VERIFY_WITH_TIMEOUT(::kill(child, 0) != 0, 60000);
}

void TestWatch::backendDoesNotOutliveAKilledChecker()
{
#ifdef Q_OS_LINUX
    QTemporaryDir folder;
    const QString note = folder.filePath(QStringLiteral("note"));
    CheckerRun run(
        {QStringLiteral("--timeout"), QStringLiteral("600"), CheckerRun::library("faulty")},
        {QStringLiteral("AIRLUME_TEST_FAULT=ignoresignals"),
            QStringLiteral("AIRLUME_TEST_NOTE=") + note});
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(note), 60000);
    QFile file(note);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const pid_t child = file.readAll().toInt();
    run.process().kill();
    QVERIFY(run.finish());
    QTRY_VERIFY_WITH_TIMEOUT(::kill(child, 0) != 0, 60000);
#endif
}

QTEST_GUILESS_MAIN(TestWatch)

#include "tst_watch.moc"

#include "plugincheck/checkerrun.h"

#include <QElapsedTimer>
#include <QJsonArray>
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

/// airlume-plugincheck over time: rounds, signals, back ends that hang or crash.
class TestWatch : public QObject
{
    Q_OBJECT

private slots:
    void hangingBackendIsGivenUp();
    void crashIsReportedWithItsPlace_data();
    void crashIsReportedWithItsPlace();
    void fatalMessageIsPassedOnSafely();
    void watchingPrintsOneObjectALine();
    void watchingInTextNumbersTheRounds();
    void failingByTurnsStillCountsAsHeard();
    void changingInterfacesAreFollowed();
    void signalEndsTheWatch_data();
    void signalEndsTheWatch();
    void signalEndsAHangingCall();
};

void TestWatch::hangingBackendIsGivenUp()
{
    QElapsedTimer timer;
    timer.start();
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--timeout"), QStringLiteral("0.3"),
                       CheckerRun::library("blocking")},
        {QStringLiteral("AIRLUME_TEST_BLOCK_SECONDS=300")});
    QVERIFY(run.finish());
    QVERIFY(timer.elapsed() < 50000);
    QCOMPARE(run.status(), 2);
    QCOMPARE(run.reports().size(), 1);
    const QJsonObject report = run.reports().first();
    QCOMPARE(textAt(report, "reason"), QStringLiteral("no-answer"));
    QVERIFY(
        textAt(report, "text")
            .startsWith(QStringLiteral("getVisiableNetworkMapList() has not answered for 0.3 s")));
}

void TestWatch::crashIsReportedWithItsPlace_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<QString>("words");
    QTest::newRow("load") << QStringLiteral("load") << QStringLiteral("while it was being loaded");
    QTest::newRow("list") << QStringLiteral("list") << QStringLiteral("in getWiFiNicList()");
    QTest::newRow("usable") << QStringLiteral("usable") << QStringLiteral("in isWiFiNicUsable()");
    QTest::newRow("query") << QStringLiteral("query")
                           << QStringLiteral("in getVisiableNetworkMapList()");
}

void TestWatch::crashIsReportedWithItsPlace()
{
    QFETCH(QString, where);
    QFETCH(QString, words);
    const QStringList environment(QStringLiteral("AIRLUME_TEST_CRASH=") + where);
    CheckerRun text({CheckerRun::library("crashing")}, environment);
    QVERIFY(text.finish());
    QCOMPARE(text.status(), 2);
    QVERIFY2(text.text().simplified().contains(QStringLiteral("The back end crashed ") + words),
        text.output().constData());
    CheckerRun json({QStringLiteral("--json"), CheckerRun::library("crashing")}, environment);
    QVERIFY(json.finish());
    QCOMPARE(json.status(), 2);
    QCOMPARE(json.reports().size(), 1);
    QCOMPARE(textAt(json.reports().first(), "reason"), QStringLiteral("crashed"));
}

void TestWatch::fatalMessageIsPassedOnSafely()
{
    CheckerRun run(
        {CheckerRun::library("crashing")}, {QStringLiteral("AIRLUME_TEST_CRASH=fatalquery")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 2);
    QCOMPARE(run.errors(), QByteArray("The back end gave up: The radio \\x1b[31mexploded\n"));
}

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
        {QStringLiteral("AIRLUME_TEST_INTERFACES=a|b,a||c")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 0);
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

void TestWatch::signalEndsAHangingCall()
{
    CheckerRun run(
        {QStringLiteral("--json"), QStringLiteral("--watch"), QStringLiteral("--timeout"),
            QStringLiteral("600"), QStringLiteral("--interval"), QStringLiteral("0"),
            CheckerRun::library("blocking")},
        {QStringLiteral("AIRLUME_TEST_BLOCK_SECONDS=300"),
            QStringLiteral("AIRLUME_TEST_BLOCK_AFTER=2")});
    QVERIFY(run.waitForErrors("Blocking now"));
    QCOMPARE(::kill(static_cast<pid_t>(run.process().processId()), SIGINT), 0);
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 0);
    QCOMPARE(run.reports().size(), 1);
    QCOMPARE(textAt(run.reports().first(), "result"), QStringLiteral("heard"));
    QVERIFY(run.errors().contains("Interrupted"));
}

QTEST_GUILESS_MAIN(TestWatch)

#include "tst_watch.moc"

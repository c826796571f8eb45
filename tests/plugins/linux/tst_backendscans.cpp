#include "backendbench.h"
#include "linux/problemtexts.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)

/// When the back end has new scans made, and by whom.
class TestBackendScans : public QObject
{
    Q_OBJECT

private slots:
    void scansAreTriggeredSeldom();
    void linkThatCarriesSomethingIsLeftAloneLonger();
    void scansOfOthersCount_data();
    void scansOfOthersCount();
    void noScanIsStartedBesideARunningOne();
    void busyRadioIsNoProblem();
    void failedTriggerIsSaidOnceAndTheCacheServes_data();
    void failedTriggerIsSaidOnceAndTheCacheServes();
    void withoutPermissionTheManagerIsAsked();
    void refusedRequestIsSaidOnceAndTheCacheServes_data();
    void refusedRequestIsSaidOnceAndTheCacheServes();
    void adapterThatIsNotReadyGetsASecondChance_data();
    void adapterThatIsNotReadyGetsASecondChance();
    void refusalIsOverWhenARequestIsAccepted();
    void usualIntervalHoldsOnceAScanIsStarted_data();
    void usualIntervalHoldsOnceAScanIsStarted();
    void radioThatCameBackScansAtOnce();
    void scanOnDemandObeysTheInterval();
};

void TestBackendScans::scansAreTriggeredSeldom()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    for (int i = 0; i < 30; ++i) // 120 s
        QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered, QVector<int>(10, 2));
    QVERIFY(bench.requester.m_requested.isEmpty());
    QCOMPARE(bench.problems, QStringList());
}

void TestBackendScans::linkThatCarriesSomethingIsLeftAloneLonger()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    bench.kernel.m_links = {stationLink("b1", -47, 300)};
    bench.kernel.m_links.first().bytes = 0;
    for (int i = 0; i < 31; ++i) { // 124 s, with 10 kB/s
        QVERIFY(bench.round());
        *bench.kernel.m_links.first().bytes += 40000;
    }
    QCOMPARE(bench.kernel.m_triggered.size(), 7);
}

void TestBackendScans::scansOfOthersCount_data()
{
    QTest::addColumn<QVector<int>>("frequencies");
    QTest::addColumn<bool>("enough");
    QTest::newRow("of all channels") << QVector<int>{2412, 2437, 5180} << true;
    QTest::newRow("of what is in the air") << QVector<int>{5180, 2412} << true;
    QTest::newRow("of one channel") << QVector<int>{5180} << false;
    QTest::newRow("lost") << QVector<int>() << false;
}

void TestBackendScans::scansOfOthersCount()
{
    QFETCH(QVector<int>, frequencies);
    QFETCH(bool, enough);
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    AccessPoint other = heard();
    other.bssid = QStringLiteral("b2");
    other.frequency = 5180;
    bench.kernel.m_accessPoints = {heard(true), other};
    bench.kernel.m_accessPoints.first().frequency = 2412;
    QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered.size(), 1);
    for (int i = 0; i < 30; ++i) {
        FinishedScan scan;
        scan.index = 2;
        scan.frequencies = frequencies;
        scan.heard = bench.kernel.m_accessPoints;
        scan.read = true;
        scan.startedAt = bench.now - 1000;
        scan.finishedAt = bench.now;
        if (i % 2 == 0)
            bench.events.m_finished.append(scan);
        QVERIFY(bench.round());
    }
    QCOMPARE(bench.kernel.m_triggered.size(), enough ? 1 : 11);
}

void TestBackendScans::noScanIsStartedBesideARunningOne()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.events.m_running.insert(2, bench.now + 4000);
    for (int i = 0; i < 7; ++i)
        QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered.size(), 0);
    // Its end was not told: it cannot be running any more.
    for (int i = 0; i < 2; ++i)
        QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered.size(), 1);
}

void TestBackendScans::busyRadioIsNoProblem()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_triggerError = EBUSY;
    for (int i = 0; i < 5; ++i)
        QVERIFY(bench.round());
    // It may be one of a single channel: tried again with each query.
    QCOMPARE(bench.kernel.m_triggered.size(), 5);
    QCOMPARE(bench.problems, QStringList());
    QVERIFY(bench.requester.m_requested.isEmpty());
}

void TestBackendScans::failedTriggerIsSaidOnceAndTheCacheServes_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("ENETDOWN") << ENETDOWN;
    QTest::newRow("ENODEV") << ENODEV;
    QTest::newRow("EOPNOTSUPP") << EOPNOTSUPP;
    QTest::newRow("EAGAIN") << EAGAIN;
}

void TestBackendScans::failedTriggerIsSaidOnceAndTheCacheServes()
{
    QFETCH(int, error);
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_accessPoints = {heard()};
    bench.kernel.m_triggerError = error;
    for (int i = 0; i < 25; ++i) {
        QList<ScanMap> networks;
        QVERIFY(bench.round(&networks));
        QCOMPARE(networks.size(), 1);
    }
    QCOMPARE(
        bench.problems, QStringList{ProblemTexts::scanRefused(QStringLiteral("wlan0"), error)});
    QVERIFY(bench.kernel.m_triggered.size() > 1);
    QVERIFY(bench.requester.m_requested.isEmpty());
}

void TestBackendScans::withoutPermissionTheManagerIsAsked()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_triggerError = EPERM;
    QVERIFY(bench.round());
    QCOMPARE(bench.requester.m_requested, QStringList{QStringLiteral("wlan0")});
    for (int i = 0; i < 4; ++i)
        QVERIFY(bench.round());
    QCOMPARE(bench.requester.m_requested.size(), 3);
    // The kernel's answer does not change while the program runs.
    QCOMPARE(bench.kernel.m_triggered.size(), 1);
    QCOMPARE(bench.problems, QStringList());
}

void TestBackendScans::refusedRequestIsSaidOnceAndTheCacheServes_data()
{
    QTest::addColumn<Result>("result");
    QTest::newRow("no bus") << Result::NoBus;
    QTest::newRow("no service") << Result::NoService;
    QTest::newRow("not permitted") << Result::NotPermitted;
    QTest::newRow("not available") << Result::NotAvailable;
    QTest::newRow("no interface") << Result::NoInterface;
    QTest::newRow("no reply") << Result::NoReply;
    QTest::newRow("failed") << Result::Failed;
}

void TestBackendScans::refusedRequestIsSaidOnceAndTheCacheServes()
{
    QFETCH(Result, result);
    const ScanAnswer refusal{result, QStringLiteral("because")};
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_accessPoints = {heard()};
    bench.kernel.m_triggerError = EPERM;
    for (int i = 0; i < 25; ++i) { // 100 s
        QList<ScanMap> networks;
        const int requests = bench.requester.m_requested.size();
        QVERIFY(bench.round(&networks));
        QCOMPARE(networks.size(), 1);
        if (bench.requester.m_requested.size() > requests)
            bench.requester.m_answer = refusal;
    }
    QCOMPARE(
        bench.problems, QStringList{ProblemTexts::scanRefused(QStringLiteral("wlan0"), refusal)});
    const int requests = bench.requester.m_requested.size();
    // After 4 s, 30 s, a minute: less and less often.
    QVERIFY2(requests >= 2 && requests <= 3, qPrintable(QString::number(requests)));
}

void TestBackendScans::adapterThatIsNotReadyGetsASecondChance_data()
{
    QTest::addColumn<Result>("result");
    QTest::newRow("not available") << Result::NotAvailable;
    QTest::newRow("no interface") << Result::NoInterface;
}

void TestBackendScans::adapterThatIsNotReadyGetsASecondChance()
{
    QFETCH(Result, result);
    const ScanAnswer refusal{result, QString()};
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_triggerError = EPERM;
    QVERIFY(bench.round());
    bench.requester.m_answer = refusal;
    QVERIFY(bench.round());
    QVERIFY(bench.round()); // asked again after the usual time
    QCOMPARE(bench.requester.m_requested.size(), 2);
    QCOMPARE(bench.problems, QStringList());
    bench.requester.m_answer = ScanAnswer{Result::Accepted, QString()};
    QVERIFY(bench.round());
    bench.requester.m_answer = refusal;
    QVERIFY(bench.round());
    QCOMPARE(bench.problems, QStringList());
    bench.requester.m_answer = refusal;
    QVERIFY(bench.round());
    QCOMPARE(
        bench.problems, QStringList{ProblemTexts::scanRefused(QStringLiteral("wlan0"), refusal)});
}

void TestBackendScans::refusalIsOverWhenARequestIsAccepted()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_triggerError = EPERM;
    const ScanAnswer refusal{Result::NoService, QString()};
    QVERIFY(bench.round());
    bench.requester.m_answer = refusal;
    QVERIFY(bench.round());
    QCOMPARE(bench.problems.size(), 1);
    bench.requester.m_answer = ScanAnswer{Result::Accepted, QString()};
    QVERIFY(bench.round());
    bench.requester.m_answer = refusal;
    QVERIFY(bench.round());
    QCOMPARE(bench.problems.size(), 2);
}

void TestBackendScans::usualIntervalHoldsOnceAScanIsStarted_data()
{
    QTest::addColumn<bool>("own");
    QTest::newRow("by the kernel") << true;
    QTest::newRow("by a manager") << false;
}

void TestBackendScans::usualIntervalHoldsOnceAScanIsStarted()
{
    QFETCH(bool, own);
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_triggerError = own ? EIO : EPERM;
    const auto asked = [&] {
        return own ? bench.kernel.m_triggered.size() : bench.requester.m_requested.size();
    };
    QVERIFY(bench.round());
    bench.requester.m_answer = ScanAnswer{Result::Failed, QString()};
    QVERIFY(bench.round());
    bench.now += 30000;
    if (own)
        bench.kernel.m_triggerError = 0;
    QVERIFY(bench.round());
    QCOMPARE(asked(), 2);
    bench.requester.m_answer = ScanAnswer{Result::Accepted, QString()};
    for (int i = 0; i < 2; ++i) // 8 s
        QVERIFY(bench.round());
    QCOMPARE(asked(), 3);
}

void TestBackendScans::radioThatCameBackScansAtOnce()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    QVERIFY(bench.round());
    bench.kernel.m_states[QStringLiteral("wlan0")] = {false, true, false};
    bench.now -= 3999; // as soon as possible after the last scan
    QVERIFY(!bench.round());
    bench.kernel.m_states[QStringLiteral("wlan0")] = {true, false, false};
    bench.now -= 3999;
    QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered.size(), 2);
}

void TestBackendScans::scanOnDemandObeysTheInterval()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    QVERIFY(bench.backend.startScan(QStringLiteral("wlan0")));
    QVERIFY(bench.backend.startScan(QStringLiteral("wlan0")));
    QCOMPARE(bench.kernel.m_triggered.size(), 1);
    QVERIFY(!bench.backend.startScan(QStringLiteral("wlan7")));
    bench.now += 60000;
    bench.kernel.m_triggerError = EOPNOTSUPP;
    QVERIFY(!bench.backend.startScan(QStringLiteral("wlan0")));
}

QTEST_GUILESS_MAIN(TestBackendScans)
#include "tst_backendscans.moc"

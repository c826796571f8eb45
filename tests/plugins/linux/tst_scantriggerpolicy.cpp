#include "linux/scantriggerpolicy.h"

#include <QTest>

using LinuxWifi::ScanTriggerPolicy;

class TestScanTriggerPolicy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void firstScanIsDueAtOnce();
    void nextScanWaits_data();
    void nextScanWaits();
    void joinedInterfaceIsLeftInPeaceLonger();
    void refusalWaitsLongest();
    void interfacesAreApart();
    void forgottenInterfaceMayScanAtOnce();
    void scansStayRareWhenAskedEveryFourSeconds_data();
    void scansStayRareWhenAskedEveryFourSeconds();

private:
    qint64 m_now = 0;
    ScanTriggerPolicy m_policy{[this] { return m_now; }};
};

void TestScanTriggerPolicy::init()
{
    m_now = 5000;
    m_policy.forgetAll();
}

void TestScanTriggerPolicy::firstScanIsDueAtOnce()
{
    m_now = 0;
    QVERIFY(m_policy.due(2, false));
    QVERIFY(m_policy.due(2, true));
}

void TestScanTriggerPolicy::nextScanWaits_data()
{
    QTest::addColumn<bool>("joined");
    QTest::addColumn<qint64>("interval");
    QTest::newRow("joined") << true << ScanTriggerPolicy::JoinedIntervalMs + 0;
    QTest::newRow("not joined") << false << ScanTriggerPolicy::IdleIntervalMs + 0;
}

void TestScanTriggerPolicy::nextScanWaits()
{
    QFETCH(bool, joined);
    QFETCH(qint64, interval);
    m_policy.started(2);
    QVERIFY(!m_policy.due(2, joined));
    m_now += interval - 1;
    QVERIFY(!m_policy.due(2, joined));
    m_now += 1;
    QVERIFY(m_policy.due(2, joined));
}

void TestScanTriggerPolicy::joinedInterfaceIsLeftInPeaceLonger()
{
    m_policy.started(2);
    m_now += ScanTriggerPolicy::IdleIntervalMs;
    QVERIFY(m_policy.due(2, false));
    QVERIFY(!m_policy.due(2, true));
}

void TestScanTriggerPolicy::refusalWaitsLongest()
{
    m_policy.refused(2);
    m_now += ScanTriggerPolicy::RefusedIntervalMs - 1;
    QVERIFY(!m_policy.due(2, true));
    QVERIFY(!m_policy.due(2, false));
    m_now += 1;
    QVERIFY(m_policy.due(2, true));
    // Once it works again, the usual interval holds.
    m_policy.started(2);
    m_now += ScanTriggerPolicy::JoinedIntervalMs;
    QVERIFY(m_policy.due(2, true));
}

void TestScanTriggerPolicy::interfacesAreApart()
{
    m_policy.started(2);
    QVERIFY(!m_policy.due(2, true));
    QVERIFY(m_policy.due(3, true));
}

void TestScanTriggerPolicy::forgottenInterfaceMayScanAtOnce()
{
    m_policy.started(2);
    m_policy.refused(3);
    m_policy.forget(2);
    QVERIFY(m_policy.due(2, true));
    QVERIFY(!m_policy.due(3, true));
    m_policy.forgetAll();
    QVERIFY(m_policy.due(3, true));
}

void TestScanTriggerPolicy::scansStayRareWhenAskedEveryFourSeconds_data()
{
    QTest::addColumn<bool>("joined");
    QTest::addColumn<int>("shortest"); // seconds between two scans
    QTest::newRow("joined") << true << 15;
    QTest::newRow("not joined") << false << 6;
}

void TestScanTriggerPolicy::scansStayRareWhenAskedEveryFourSeconds()
{
    QFETCH(bool, joined);
    QFETCH(int, shortest);
    const int keptByKernel = 30;
    QVector<qint64> scans;
    for (int i = 0; i < 100; ++i, m_now += 4000) {
        if (m_policy.due(2, joined)) {
            scans.append(m_now);
            m_policy.started(2);
        }
    }
    QVERIFY(scans.size() > 10);
    for (int i = 1; i < scans.size(); ++i) {
        QVERIFY(scans[i] - scans[i - 1] >= shortest * 1000);
        QVERIFY(scans[i] - scans[i - 1] < keptByKernel * 1000);
    }
}

QTEST_GUILESS_MAIN(TestScanTriggerPolicy)
#include "tst_scantriggerpolicy.moc"

#include "linux/scantriggerpolicy.h"

#include <QTest>

using LinuxWifi::ScanTriggerPolicy;
using Use = LinuxWifi::ScanTriggerPolicy::Use;

Q_DECLARE_METATYPE(LinuxWifi::ScanTriggerPolicy::Use)

class TestScanTriggerPolicy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void firstScanIsDueAtOnce();
    void nextScanWaits_data();
    void nextScanWaits();
    void scansOfOthersPutItOff();
    void refusalsWaitLongerEachTime();
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
    QVERIFY(m_policy.due(2, Use::Idle));
    QVERIFY(m_policy.due(2, Use::Joined));
    QVERIFY(m_policy.due(2, Use::Busy));
}

void TestScanTriggerPolicy::nextScanWaits_data()
{
    QTest::addColumn<Use>("use");
    QTest::addColumn<qint64>("interval");
    QTest::newRow("not joined") << Use::Idle << ScanTriggerPolicy::IdleIntervalMs + 0;
    QTest::newRow("joined") << Use::Joined << ScanTriggerPolicy::JoinedIntervalMs + 0;
    QTest::newRow("something is sent") << Use::Busy << ScanTriggerPolicy::BusyIntervalMs + 0;
}

void TestScanTriggerPolicy::nextScanWaits()
{
    QFETCH(Use, use);
    QFETCH(qint64, interval);
    m_policy.started(2);
    QVERIFY(!m_policy.due(2, use));
    m_now += interval - 1;
    QVERIFY(!m_policy.due(2, use));
    m_now += 1;
    QVERIFY(m_policy.due(2, use));
}

void TestScanTriggerPolicy::scansOfOthersPutItOff()
{
    m_policy.started(2);
    m_policy.startedAt(2, m_now + 5000);
    m_policy.startedAt(2, m_now + 3000); // told late
    m_now += 5000 + ScanTriggerPolicy::IdleIntervalMs - 1;
    QVERIFY(!m_policy.due(2, Use::Idle));
    m_now += 1;
    QVERIFY(m_policy.due(2, Use::Idle));
}

void TestScanTriggerPolicy::refusalsWaitLongerEachTime()
{
    for (const qint64 wait : {30000, 60000, 120000, 120000, 120000}) {
        m_policy.started(2); // asked, and then refused
        m_policy.refused(2);
        m_now += wait - 1;
        QVERIFY(!m_policy.due(2, Use::Joined));
        QVERIFY(!m_policy.due(2, Use::Idle));
        m_now += 1;
        QVERIFY(m_policy.due(2, Use::Joined));
    }
    // Once it works again, the usual interval holds, and a refusal is the first one.
    m_policy.started(2);
    m_policy.accepted(2);
    m_now += ScanTriggerPolicy::JoinedIntervalMs;
    QVERIFY(m_policy.due(2, Use::Joined));
    m_policy.refused(2);
    m_now += ScanTriggerPolicy::RefusedIntervalMs;
    QVERIFY(m_policy.due(2, Use::Joined));
}

void TestScanTriggerPolicy::interfacesAreApart()
{
    m_policy.started(2);
    QVERIFY(!m_policy.due(2, Use::Joined));
    QVERIFY(m_policy.due(3, Use::Joined));
}

void TestScanTriggerPolicy::forgottenInterfaceMayScanAtOnce()
{
    m_policy.started(2);
    m_policy.refused(3);
    m_policy.forget(2);
    QVERIFY(m_policy.due(2, Use::Joined));
    QVERIFY(!m_policy.due(3, Use::Joined));
    m_policy.forgetAll();
    QVERIFY(m_policy.due(3, Use::Joined));
}

void TestScanTriggerPolicy::scansStayRareWhenAskedEveryFourSeconds_data()
{
    QTest::addColumn<Use>("use");
    QTest::addColumn<int>("shortest"); // seconds between two scans
    QTest::addColumn<int>("longest");
    QTest::newRow("not joined") << Use::Idle << 8 << 12;
    QTest::newRow("joined") << Use::Joined << 12 << 16;
    QTest::newRow("something is sent") << Use::Busy << 20 << 24;
}

void TestScanTriggerPolicy::scansStayRareWhenAskedEveryFourSeconds()
{
    QFETCH(Use, use);
    QFETCH(int, shortest);
    QFETCH(int, longest);
    for (const int tick : {4000, 4010, 4300}) { // on a slow machine somewhat later
        QVector<qint64> scans;
        m_policy.forgetAll();
        for (int i = 0; i < 100; ++i, m_now += tick) {
            if (m_policy.due(2, use)) {
                scans.append(m_now);
                m_policy.started(2);
            }
        }
        QVERIFY(scans.size() > 10);
        for (int i = 1; i < scans.size(); ++i) {
            QVERIFY(scans[i] - scans[i - 1] >= shortest * 1000);
            QVERIFY(scans[i] - scans[i - 1] <= longest * 1000);
        }
    }
}

QTEST_GUILESS_MAIN(TestScanTriggerPolicy)
#include "tst_scantriggerpolicy.moc"

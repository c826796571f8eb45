#include "backendbench.h"
#include "linux/netlinkgroup.h"
#include "linux/scanlistener.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;

namespace
{
ScanNotice notice(ScanNotice::Kind kind, int index, const QVector<int> &frequencies = {})
{
    ScanNotice result;
    result.kind = kind;
    result.index = index;
    result.frequencies = frequencies;
    result.probing = true;
    return result;
}

using Kind = ScanNotice::Kind;
} // namespace

/// What comes of the kernel's notices about scans.
class TestScanListener : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void finishedScanComesWithItsList();
    void otherInterfacesAreNotRead();
    void nothingIsReadWhileNothingIsWatched();
    void runningScanIsKnown();
    void abortedScanIsNoFinishedOne();
    void lostNoticesMakeAFreshRead();
    void unreadableListIsTold();
    void whatNobodyTakesIsBounded();
    void missingFamilyAndGroupAreTold();

private:
    FakeKernel m_kernel;
    std::unique_ptr<ScanLog> m_log;
    std::unique_ptr<ScanListener> m_listener;
    qint64 m_now = 0;
};

void TestScanListener::init()
{
    m_now = 1000;
    m_kernel = FakeKernel();
    m_kernel.m_accessPoints = {heard()};
    m_log = std::make_unique<ScanLog>();
    m_listener = std::make_unique<ScanListener>(
        m_kernel, *m_log, [this] { return m_now; }, nullptr);
    m_log->setWatched(2);
}

void TestScanListener::finishedScanComesWithItsList()
{
    m_listener->notice(notice(Kind::Started, 2));
    m_now += 5000;
    m_listener->notice(notice(Kind::Finished, 2, {2412, 5180}));
    QCOMPARE(m_kernel.m_read, QVector<int>{2});
    const QVector<FinishedScan> scans = m_log->take();
    QCOMPARE(scans.size(), 1);
    QCOMPARE(scans.first().index, 2);
    QCOMPARE(scans.first().startedAt, qint64(1000));
    QCOMPARE(scans.first().finishedAt, qint64(6000));
    QCOMPARE(scans.first().frequencies, (QVector<int>{2412, 5180}));
    QVERIFY(scans.first().probing && scans.first().read);
    QCOMPARE(scans.first().heard.size(), 1);
    QVERIFY(m_log->take().isEmpty());
}

void TestScanListener::otherInterfacesAreNotRead()
{
    m_listener->notice(notice(Kind::Finished, 3, {2412}));
    QVERIFY(m_kernel.m_read.isEmpty());
    const QVector<FinishedScan> scans = m_log->take();
    QCOMPARE(scans.size(), 1);
    QCOMPARE(scans.first().index, 3);
    QVERIFY(!scans.first().read);
}

void TestScanListener::nothingIsReadWhileNothingIsWatched()
{
    m_log->setWatched(0);
    m_listener->notice(notice(Kind::Finished, 2, {2412}));
    m_listener->lost();
    QVERIFY(m_kernel.m_read.isEmpty());
}

void TestScanListener::runningScanIsKnown()
{
    QVERIFY(!m_log->running(2));
    m_listener->notice(notice(Kind::Started, 2));
    QCOMPARE(m_log->running(2).value_or(-1), qint64(1000));
    QVERIFY(!m_log->running(3));
    m_listener->notice(notice(Kind::Finished, 3));
    QVERIFY(m_log->running(2));
    m_listener->notice(notice(Kind::Finished, 2));
    QVERIFY(!m_log->running(2));
}

void TestScanListener::abortedScanIsNoFinishedOne()
{
    m_listener->notice(notice(Kind::Started, 2));
    m_listener->notice(notice(Kind::Aborted, 2, {2412}));
    QVERIFY(!m_log->running(2));
    QVERIFY(m_log->take().isEmpty());
}

void TestScanListener::lostNoticesMakeAFreshRead()
{
    m_listener->notice(notice(Kind::Started, 2));
    m_listener->lost();
    QCOMPARE(m_kernel.m_read, QVector<int>{2});
    QVERIFY(!m_log->running(2));
    const QVector<FinishedScan> scans = m_log->take();
    QCOMPARE(scans.size(), 1);
    QVERIFY(scans.first().read && scans.first().frequencies.isEmpty());
    QCOMPARE(scans.first().heard.size(), 1);
}

void TestScanListener::unreadableListIsTold()
{
    m_kernel.m_accessPointsError = ENODEV;
    m_listener->notice(notice(Kind::Finished, 2, {2412}));
    m_listener->lost();
    const QVector<FinishedScan> scans = m_log->take();
    QCOMPARE(scans.size(), 1);
    QVERIFY(!scans.first().read);
}

void TestScanListener::whatNobodyTakesIsBounded()
{
    for (int i = 0; i < 1000; ++i)
        m_listener->notice(notice(Kind::Finished, 2, {i}));
    const QVector<FinishedScan> scans = m_log->take();
    QVERIFY(scans.size() >= 4 && scans.size() <= 100);
    QCOMPARE(scans.last().frequencies, QVector<int>{999});
}

void TestScanListener::missingFamilyAndGroupAreTold()
{
    NetlinkGroup controller("nlctrl", "notify");
    const int error = controller.open();
    if (error == EPROTONOSUPPORT || error == EAFNOSUPPORT || error == EACCES || error == EPERM)
        QSKIP("no generic netlink here");
    QCOMPARE(error, 0);
    QVERIFY(controller.descriptor() >= 0);
    // Nobody is waited for.
    QCOMPARE(controller.receive([](nlmsghdr *) {}), 0);
    controller.close();
    QCOMPARE(controller.descriptor(), -1);
    QCOMPARE(controller.receive([](nlmsghdr *) {}), ENOTCONN);

    QCOMPARE(NetlinkGroup("no such family", "scan").open(), EPROTONOSUPPORT);
    QCOMPARE(NetlinkGroup("nlctrl", "no such group").open(), EPROTONOSUPPORT);
}

QTEST_GUILESS_MAIN(TestScanListener)
#include "tst_scanlistener.moc"

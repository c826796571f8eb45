#include "fakemanager.h"
#include "managerbench.h"

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

/// Who of several is asked, and how changes are followed.
class TestScanAsker : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void nobodyIsTold();
    void networkManagerIsAskedAndNotWhomItHasWork();
    void interfaceThatNetworkManagerLeavesAloneIsItsOwners();
    void othersAreAskedForWhatTheyManage();
    void iwdComesBeforeWpaSupplicant();
    void connManIsAskedWhenNobodyListsTheInterface();
    void denialDoesNotHideTheOwner();
    void firstDenialIsTold();
    void hungNetworkManagerIsNotPassedOver();
    void managerThatStartsLaterIsAskedByItself();
    void managerThatStartsIsLeftAloneWhileAnotherOneScans();
    void managerThatIsReplacedIsFollowed();
    void restartedManagerIsFoundAgain();
    void requestIsIgnoredWhileOneHasNoAnswer();
    void restartedBusIsFoundAgain();
    void requesterMayGoWhileAnAnswerIsAwaited();
    void nothingIsAskedAfterTheEnd();

private:
    QString address() const { return m_bus->address(); }

    std::unique_ptr<PrivateBus> m_bus;
};

void TestScanAsker::init()
{
    m_bus = std::make_unique<PrivateBus>();
    if (!m_bus->start())
        QSKIP("dbus-daemon is missing");
}

void TestScanAsker::nobodyIsTold()
{
    ManagerBench bench(address());
    for (int i = 0; i < 2; ++i) {
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::NoService, Manager::Nobody);
    }
    QVERIFY(!bench.requester().takeAnswer());
}

void TestScanAsker::networkManagerIsAskedAndNotWhomItHasWork()
{
    const FakeWpaSupplicant supplicant(address());
    const FakeIwd iwd(address());
    const FakeNetworkManager manager(address());
    ManagerBench bench(address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
    QCOMPARE(manager.scans(), 1);
    QCOMPARE(supplicant.calls() + iwd.calls(), QStringList());
}

void TestScanAsker::interfaceThatNetworkManagerLeavesAloneIsItsOwners()
{
    const FakeWpaSupplicant supplicant(address());
    FakeNetworkManager manager(address());
    manager.setState(10);
    ManagerBench bench(address());
    auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::WpaSupplicant);
    const FakeIwd iwd(address());
    answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
    manager.setState(30);
    answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
    QCOMPARE(supplicant.scans(), 1);
    QCOMPARE(iwd.scans(), 1);
    QCOMPARE(manager.scans(), 1);
}

void TestScanAsker::othersAreAskedForWhatTheyManage()
{
    FakeIwd iwd(address());
    FakeWpaSupplicant supplicant(address());
    iwd.setInterface(QStringLiteral("wlan1"));
    ManagerBench bench(address());
    const auto first = bench.ask(QStringLiteral("wlan0"));
    COMPARE_ANSWER(first, Result::Accepted, Manager::WpaSupplicant);
    const auto second = bench.ask(QStringLiteral("wlan1"));
    COMPARE_ANSWER(second, Result::Accepted, Manager::Iwd);
    const auto third = bench.ask(QStringLiteral("wlan2"));
    COMPARE_ANSWER(third, Result::NoInterface, Manager::Iwd);
}

void TestScanAsker::iwdComesBeforeWpaSupplicant()
{
    const FakeWpaSupplicant supplicant(address());
    const FakeIwd iwd(address());
    ManagerBench bench(address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
    QCOMPARE(supplicant.calls(), QStringList());
}

void TestScanAsker::connManIsAskedWhenNobodyListsTheInterface()
{
    FakeWpaSupplicant supplicant(address());
    const FakeConnMan connman(address());
    ManagerBench bench(address());
    auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::WpaSupplicant);
    QCOMPARE(connman.calls(), QStringList());
    supplicant.setInterface(QStringLiteral("wlan1"));
    answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::ConnMan);
}

void TestScanAsker::denialDoesNotHideTheOwner()
{
    const QString denied = QStringLiteral("org.freedesktop.DBus.Error.AccessDenied");
    FakeIwd iwd(address());
    iwd.refuse(QStringLiteral("GetManagedObjects"), denied);
    FakeWpaSupplicant supplicant(address());
    ManagerBench bench(address());
    auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::WpaSupplicant);
    supplicant.refuse(QStringLiteral("GetInterface"), denied);
    const FakeConnMan connman(address());
    answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::ConnMan);
}

void TestScanAsker::firstDenialIsTold()
{
    const QString denied = QStringLiteral("org.freedesktop.DBus.Error.AccessDenied");
    FakeNetworkManager manager(address());
    manager.setState(10);
    FakeIwd iwd(address());
    iwd.refuse(QStringLiteral("GetManagedObjects"), denied);
    FakeWpaSupplicant supplicant(address());
    supplicant.refuse(QStringLiteral("GetInterface"), denied);
    ManagerBench bench(address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NotPermitted, Manager::Iwd);
}

void TestScanAsker::hungNetworkManagerIsNotPassedOver()
{
    FakeNetworkManager manager(address());
    manager.silence(QStringLiteral("GetDeviceByIpIface"));
    const FakeWpaSupplicant supplicant(address());
    ManagerBench bench(address(), 1000);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NoReply, Manager::NetworkManager);
    QCOMPARE(supplicant.calls(), QStringList());
}

void TestScanAsker::managerThatStartsLaterIsAskedByItself()
{
    ManagerBench bench(address(), 5000, 10);
    auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NoService, Manager::Nobody);
    const FakeIwd iwd(address());
    answer = bench.awaited();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
    QCOMPARE(iwd.scans(), 1);
}

void TestScanAsker::managerThatStartsIsLeftAloneWhileAnotherOneScans()
{
    const FakeNetworkManager manager(address());
    ManagerBench bench(address(), 5000, 10);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
    const FakeIwd iwd(address());
    QTest::qWait(200); // longer than a start is waited for here
    QCOMPARE(iwd.calls(), QStringList());
    QCOMPARE(manager.scans(), 1);
    QVERIFY(!bench.requester().takeAnswer());
}

void TestScanAsker::managerThatIsReplacedIsFollowed()
{
    ManagerBench bench(address());
    {
        const FakeNetworkManager manager(address());
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
    }
    {
        const FakeIwd iwd(address());
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
    }
    const FakeWpaSupplicant supplicant(address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::WpaSupplicant);
}

void TestScanAsker::restartedManagerIsFoundAgain()
{
    ManagerBench bench(address());
    for (int i = 0; i < 3; ++i) {
        {
            const FakeNetworkManager manager(address());
            const auto answer = bench.ask();
            COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
        }
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::NoService, Manager::Nobody);
    }
}

void TestScanAsker::requestIsIgnoredWhileOneHasNoAnswer()
{
    FakeNetworkManager manager(address());
    manager.silence(QStringLiteral("RequestScan"));
    ManagerBench bench(address(), 2000);
    bench.requester().request(QStringLiteral("wlan0"));
    QTRY_COMPARE(manager.scans(), 1);
    for (int i = 0; i < 5; ++i)
        bench.requester().request(QStringLiteral("wlan0"));
    const auto answer = bench.awaited();
    COMPARE_ANSWER(answer, Result::NoReply, Manager::NetworkManager);
    QCOMPARE(manager.scans(), 1);
    QVERIFY(!bench.requester().takeAnswer());
}

void TestScanAsker::restartedBusIsFoundAgain()
{
    // Without its id, which is the daemon's and not the place's.
    const QString place = address().section(QLatin1Char(','), 0, 0);
    ManagerBench bench(place);
    {
        const FakeNetworkManager manager(place);
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
    }
    m_bus->kill();
    const auto gone = bench.ask();
    COMPARE_ANSWER(gone, Result::NoBus, Manager::Nobody);
    m_bus = std::make_unique<PrivateBus>();
    QVERIFY(m_bus->start(place));
    const FakeNetworkManager manager(place);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
}

void TestScanAsker::requesterMayGoWhileAnAnswerIsAwaited()
{
    FakeNetworkManager manager(address());
    manager.silence(QStringLiteral("RequestScan"));
    {
        ManagerBench bench(address());
        bench.requester().request(QStringLiteral("wlan0"));
        QTRY_COMPARE(manager.scans(), 1);
    }
    BackgroundThread thread;
    ScanAsker::Settings settings;
    settings.addresses = [this] { return address(); };
    {
        ManagerRequester requester(thread, settings);
        requester.request(QStringLiteral("wlan0"));
        QTRY_COMPARE(manager.scans(), 2);
    }
    ManagerRequester requester(thread, settings); // in the same thread, which goes on
    requester.request(QStringLiteral("wlan0"));
    QTRY_COMPARE(manager.scans(), 3);
}

void TestScanAsker::nothingIsAskedAfterTheEnd()
{
    const FakeNetworkManager manager(address());
    ManagerBench bench(address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::NetworkManager);
    bench.thread().end();
    bench.requester().request(QStringLiteral("wlan0"));
    QVERIFY(!bench.requester().takeAnswer());
    QTest::qWait(50);
    QCOMPARE(manager.scans(), 1);
}

QTEST_GUILESS_MAIN(TestScanAsker)
#include "tst_scanasker.moc"

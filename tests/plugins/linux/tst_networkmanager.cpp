#include "fakenetworkmanager.h"
#include "linux/backgroundrequester.h"
#include "linux/networkmanager.h"

#include <QElapsedTimer>
#include <QTest>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)

class TestNetworkManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void requestIsAccepted();
    void refusalsAreTold_data();
    void refusalsAreTold();
    void unknownInterfaceIsTold();
    void deviceObjectThatIsGoneIsTold();
    void missingServiceIsTold();
    void missingBusIsTold();
    void silentServiceIsGivenUp();
    void frozenBusKeepsNobodyWaiting();
    void restartedServiceIsFoundAgain();
    void restartedBusIsFoundAgain();

private:
    /// Asks on a thread of its own, since the fake answers in this one.
    std::optional<ScanAnswer> ask(const QString &bus, const QString &interface);

    std::unique_ptr<PrivateBus> m_bus;
    const QString m_interface = QStringLiteral("wlan0");
};

void TestNetworkManager::init()
{
    m_bus = std::make_unique<PrivateBus>();
    if (!m_bus->start())
        QSKIP("dbus-daemon is missing");
}

std::optional<ScanAnswer> TestNetworkManager::ask(const QString &bus, const QString &interface)
{
    const NetworkManager manager{bus, 2000};
    BackgroundRequester requester(
        [manager](const QString &name) { return manager.requestScan(name); });
    requester.request(interface);
    std::optional<ScanAnswer> answer;
    const bool answered =
        QTest::qWaitFor([&] { return (answer = requester.takeAnswer()).has_value(); }, 20000);
    return answered ? answer : std::nullopt;
}

void TestNetworkManager::requestIsAccepted()
{
    FakeNetworkManager fake(m_bus->address());
    const auto answer = ask(m_bus->address(), m_interface);
    QVERIFY(answer.has_value());
    QVERIFY2(answer->result == Result::Accepted, qPrintable(answer->detail));
    QCOMPARE(fake.device().scans(), 1);
}

void TestNetworkManager::refusalsAreTold_data()
{
    QTest::addColumn<QString>("error");
    QTest::addColumn<Result>("result");
    const auto row = [](const char *error, Result result) {
        QTest::newRow(error) << QString::fromLatin1(error) << result;
    };
    row("org.freedesktop.NetworkManager.PermissionDenied", Result::NotPermitted);
    row("org.freedesktop.NetworkManager.Device.NotAllowed", Result::NotAvailable);
    row("org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    row("org.freedesktop.DBus.Error.UnknownMethod", Result::NoInterface);
    row("org.freedesktop.DBus.Error.NoReply", Result::NoReply);
    row("org.freedesktop.DBus.Error.Spawn.ChildExited", Result::NoService);
    row("org.example.Something", Result::Failed);
}

void TestNetworkManager::refusalsAreTold()
{
    QFETCH(QString, error);
    QFETCH(Result, result);
    FakeNetworkManager fake(m_bus->address());
    fake.device().refuseWith(error);
    const auto answer = ask(m_bus->address(), m_interface);
    QVERIFY(answer.has_value());
    QVERIFY2(answer->result == result, qPrintable(answer->detail));
    QCOMPARE(answer->detail, error + QStringLiteral(": the fake refuses"));
}

void TestNetworkManager::unknownInterfaceIsTold()
{
    FakeNetworkManager fake(m_bus->address());
    const auto answer = ask(m_bus->address(), QStringLiteral("wlan9"));
    QVERIFY(answer && answer->result == Result::NoInterface);
    QCOMPARE(fake.device().scans(), 0);
}

void TestNetworkManager::deviceObjectThatIsGoneIsTold()
{
    FakeNetworkManager fake(m_bus->address());
    fake.removeDeviceObject();
    const auto answer = ask(m_bus->address(), m_interface);
    QVERIFY(answer.has_value());
    QVERIFY2(answer->result == Result::NoInterface, qPrintable(answer->detail));
}

void TestNetworkManager::missingServiceIsTold()
{
    const auto answer = ask(m_bus->address(), m_interface);
    QVERIFY(answer.has_value());
    QVERIFY2(answer->result == Result::NoService, qPrintable(answer->detail));
}

void TestNetworkManager::missingBusIsTold()
{
    const auto answer = ask(QStringLiteral("unix:path=/nowhere/bus"), m_interface);
    QVERIFY(answer.has_value());
    QVERIFY2(answer->result == Result::NoBus, qPrintable(answer->detail));
}

void TestNetworkManager::silentServiceIsGivenUp()
{
    FakeNetworkManager fake(m_bus->address());
    fake.device().setSilent(true);
    QElapsedTimer timer;
    timer.start();
    const auto answer = ask(m_bus->address(), m_interface);
    QVERIFY(answer.has_value());
    QVERIFY2(answer->result == Result::NoReply, qPrintable(answer->detail));
    QVERIFY(timer.elapsed() >= 1900);
}

void TestNetworkManager::frozenBusKeepsNobodyWaiting()
{
    const NetworkManager manager{m_bus->address(), 2000};
    FakeNetworkManager fake(m_bus->address());
    BackgroundRequester requester(
        [manager](const QString &name) { return manager.requestScan(name); });
    m_bus->freeze(true);
    QElapsedTimer timer;
    timer.start();
    requester.request(m_interface);
    QVERIFY(!requester.takeAnswer());
    QVERIFY(timer.elapsed() < 1000);
    m_bus->freeze(false);
    std::optional<ScanAnswer> answer;
    QVERIFY(QTest::qWaitFor([&] { return (answer = requester.takeAnswer()).has_value(); }, 20000));
    QVERIFY(answer->result == Result::Accepted);
}

void TestNetworkManager::restartedServiceIsFoundAgain()
{
    for (int i = 0; i < 2; ++i) {
        {
            FakeNetworkManager fake(m_bus->address());
            const auto answer = ask(m_bus->address(), m_interface);
            QVERIFY(answer && answer->result == Result::Accepted);
        }
        const auto answer = ask(m_bus->address(), m_interface);
        QVERIFY(answer && answer->result == Result::NoService);
    }
}

void TestNetworkManager::restartedBusIsFoundAgain()
{
    {
        FakeNetworkManager fake(m_bus->address());
        const auto answer = ask(m_bus->address(), m_interface);
        QVERIFY(answer && answer->result == Result::Accepted);
    }
    const QString old = m_bus->address();
    m_bus->kill();
    const auto gone = ask(old, m_interface);
    QVERIFY(gone && gone->result == Result::NoBus);
    init();
    FakeNetworkManager fake(m_bus->address());
    const auto answer = ask(m_bus->address(), m_interface);
    QVERIFY(answer && answer->result == Result::Accepted);
}

QTEST_GUILESS_MAIN(TestNetworkManager)
#include "tst_networkmanager.moc"

#include "fakemanager.h"
#include "managerbench.h"

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)
Q_DECLARE_METATYPE(LinuxWifi::Manager)

/// Each manager by itself, on a bus of its own.
class TestWifiManagers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void everyManagerIsAskedAndAccepts_data();
    void everyManagerIsAskedAndAccepts();
    void refusalsAreTold_data();
    void refusalsAreTold();
    void otherInterfacesAreNotAskedFor_data();
    void otherInterfacesAreNotAskedFor();
    void silenceIsGivenUp_data();
    void silenceIsGivenUp();
    void managerThatDiesDuringACallIsTold_data();
    void managerThatDiesDuringACallIsTold();
    void unmanagedDeviceIsNetworkManagersNoMore();
    void iwdWithoutAStationIsNotAvailable();
    void passiveScanFollowsARefusedActiveOne();
    void passiveScanIsNotAskedOfWhoeverForbidsScans();
    void connManWithoutPowerIsNotAvailable();
    void connManWithoutWifiManagesNothing();

private:
    std::unique_ptr<FakeManager> made(Manager manager) const;

    std::unique_ptr<PrivateBus> m_bus;
};

namespace
{
/// The method by which each is asked who manages the interface, and that which asks for a scan.
struct Methods {
    Manager manager;
    const char *name;
    const char *find;
    const char *scan;
};
const Methods Managers[] = {
    {Manager::NetworkManager, "NetworkManager", "GetDeviceByIpIface", "RequestScan"},
    {Manager::Iwd, "iwd", "GetManagedObjects", "Scan"},
    {Manager::WpaSupplicant, "wpa_supplicant", "GetInterface", "Scan"},
    {Manager::ConnMan, "ConnMan", "GetTechnologies", "Scan"},
};

void addRows(bool find = true, bool scan = true)
{
    QTest::addColumn<Manager>("manager");
    QTest::addColumn<QString>("method");
    for (const Methods &methods : Managers) {
        if (find)
            QTest::addRow("%s %s", methods.name, methods.find)
                << methods.manager << QString::fromLatin1(methods.find);
        if (scan)
            QTest::addRow("%s %s", methods.name, methods.scan)
                << methods.manager << QString::fromLatin1(methods.scan);
    }
}
} // namespace

void TestWifiManagers::init()
{
    m_bus = std::make_unique<PrivateBus>();
    if (!m_bus->start())
        QSKIP("dbus-daemon is missing");
}

std::unique_ptr<FakeManager> TestWifiManagers::made(Manager manager) const
{
    switch (manager) {
    case Manager::NetworkManager:
        return std::make_unique<FakeNetworkManager>(m_bus->address());
    case Manager::Iwd:
        return std::make_unique<FakeIwd>(m_bus->address());
    case Manager::WpaSupplicant:
        return std::make_unique<FakeWpaSupplicant>(m_bus->address());
    case Manager::ConnMan:
        return std::make_unique<FakeConnMan>(m_bus->address());
    case Manager::Nobody:
        break;
    }
    return nullptr;
}

void TestWifiManagers::everyManagerIsAskedAndAccepts_data()
{
    addRows(false, true);
}

void TestWifiManagers::everyManagerIsAskedAndAccepts()
{
    QFETCH(Manager, manager);
    const auto fake = made(manager);
    ManagerBench bench(m_bus->address());
    for (int i = 1; i <= 2; ++i) {
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::Accepted, manager);
        QCOMPARE(fake->scans(), i);
    }
}

void TestWifiManagers::refusalsAreTold_data()
{
    QTest::addColumn<Manager>("manager");
    QTest::addColumn<QString>("method");
    QTest::addColumn<QString>("error");
    QTest::addColumn<Result>("result");
    const auto row = [](Manager manager, const char *method, const char *error, Result result) {
        QTest::addRow("%s: %s", method, error)
            << manager << QString::fromLatin1(method) << QString::fromLatin1(error) << result;
    };
    const Manager nm = Manager::NetworkManager;
    row(nm, "RequestScan", "org.freedesktop.NetworkManager.PermissionDenied", Result::NotPermitted);
    row(nm, "RequestScan", "org.freedesktop.NetworkManager.Device.NotAllowed",
        Result::NotAvailable);
    row(nm, "RequestScan", "org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    row(nm, "RequestScan", "org.freedesktop.DBus.Error.UnknownMethod", Result::NoInterface);
    row(nm, "RequestScan", "org.freedesktop.DBus.Error.NoReply", Result::NoReply);
    row(nm, "RequestScan", "org.example.Something", Result::Failed);
    row(nm, "GetDeviceByIpIface", "org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    row(nm, "Get", "org.freedesktop.DBus.Error.UnknownMethod", Result::NoInterface);
    row(nm, "Get", "org.example.Something", Result::Failed);
    const Manager iwd = Manager::Iwd;
    row(iwd, "Scan", "net.connman.iwd.InProgress", Result::Accepted);
    row(iwd, "Scan", "net.connman.iwd.Busy", Result::Accepted);
    row(iwd, "Scan", "net.connman.iwd.NotAvailable", Result::NotAvailable);
    row(iwd, "Scan", "net.connman.iwd.Failed", Result::Failed);
    row(iwd, "Scan", "org.freedesktop.DBus.Error.UnknownObject", Result::NoInterface);
    row(iwd, "GetManagedObjects", "org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    const Manager wpa = Manager::WpaSupplicant;
    row(wpa, "Scan", "fi.w1.wpa_supplicant1.Interface.ScanError", Result::Failed);
    row(wpa, "Scan", "org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    row(wpa, "GetInterface", "org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    const Manager connman = Manager::ConnMan;
    row(connman, "Scan", "net.connman.Error.InProgress", Result::Accepted);
    row(connman, "Scan", "net.connman.Error.PermissionDenied", Result::NotPermitted);
    row(connman, "Scan", "net.connman.Error.NotSupported", Result::NotAvailable);
    row(connman, "Scan", "net.connman.Error.Failed", Result::Failed);
    row(connman, "GetTechnologies", "org.freedesktop.DBus.Error.AccessDenied",
        Result::NotPermitted);
}

void TestWifiManagers::refusalsAreTold()
{
    QFETCH(Manager, manager);
    QFETCH(QString, method);
    QFETCH(QString, error);
    QFETCH(Result, result);
    const auto fake = made(manager);
    fake->refuse(method, error);
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, result, manager);
    if (result != Result::Accepted && result != Result::NoInterface)
        QCOMPARE(answer->detail, error + QStringLiteral(": the fake refuses"));
}

void TestWifiManagers::otherInterfacesAreNotAskedFor_data()
{
    addRows(false, true);
}

void TestWifiManagers::otherInterfacesAreNotAskedFor()
{
    QFETCH(Manager, manager);
    if (manager == Manager::ConnMan)
        QSKIP("ConnMan does not tell its interfaces");
    const auto fake = made(manager);
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask(QStringLiteral("wlan9"));
    COMPARE_ANSWER(answer, Result::NoInterface, manager);
    QCOMPARE(fake->scans(), 0);
}

void TestWifiManagers::silenceIsGivenUp_data()
{
    addRows();
}

void TestWifiManagers::silenceIsGivenUp()
{
    QFETCH(Manager, manager);
    QFETCH(QString, method);
    const auto fake = made(manager);
    fake->silence(method);
    ManagerBench bench(m_bus->address(), 1000);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NoReply, manager);
    QCOMPARE(fake->calls().last(), method);
}

void TestWifiManagers::managerThatDiesDuringACallIsTold_data()
{
    addRows();
}

void TestWifiManagers::managerThatDiesDuringACallIsTold()
{
    QFETCH(Manager, manager);
    QFETCH(QString, method);
    const auto fake = made(manager);
    fake->dieAt(method);
    ManagerBench bench(m_bus->address(), 30000);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NoReply, manager);
    // The next one is told that it is gone.
    const auto next = bench.ask();
    COMPARE_ANSWER(next, Result::NoService, Manager::Nobody);
}

void TestWifiManagers::unmanagedDeviceIsNetworkManagersNoMore()
{
    FakeNetworkManager fake(m_bus->address());
    ManagerBench bench(m_bus->address());
    int scans = 0;
    for (const uint state : {10U, 20U, 30U, 100U, 10U}) {
        const bool managed = state != 10;
        fake.setState(state);
        const auto answer = bench.ask();
        COMPARE_ANSWER(
            answer, managed ? Result::Accepted : Result::NoInterface, Manager::NetworkManager);
        scans += managed ? 1 : 0;
        QCOMPARE(fake.scans(), scans);
    }
}

void TestWifiManagers::iwdWithoutAStationIsNotAvailable()
{
    FakeIwd fake(m_bus->address());
    fake.setStation(false);
    FakeWpaSupplicant other(m_bus->address());
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NotAvailable, Manager::Iwd);
    QVERIFY2(answer->detail.contains(QStringLiteral("powered false")), qPrintable(answer->detail));
    QCOMPARE(fake.scans(), 0);
    QCOMPARE(other.calls(), QStringList()); // it is iwd's all the same
}

void TestWifiManagers::passiveScanFollowsARefusedActiveOne()
{
    FakeWpaSupplicant fake(m_bus->address());
    fake.refuseActiveScans();
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::WpaSupplicant);
    QCOMPARE(fake.scans(), 2);
}

void TestWifiManagers::passiveScanIsNotAskedOfWhoeverForbidsScans()
{
    FakeWpaSupplicant fake(m_bus->address());
    fake.refuse(QStringLiteral("Scan"), QStringLiteral("org.freedesktop.DBus.Error.AccessDenied"));
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NotPermitted, Manager::WpaSupplicant);
    QCOMPARE(fake.scans(), 1);
}

void TestWifiManagers::connManWithoutPowerIsNotAvailable()
{
    FakeConnMan fake(m_bus->address());
    fake.setPowered(false);
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NotAvailable, Manager::ConnMan);
    QCOMPARE(fake.scans(), 0);
}

void TestWifiManagers::connManWithoutWifiManagesNothing()
{
    FakeConnMan fake(m_bus->address());
    fake.setType(QStringLiteral("bluetooth"));
    ManagerBench bench(m_bus->address());
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NoInterface, Manager::ConnMan);
    QCOMPARE(fake.scans(), 0);
}

QTEST_GUILESS_MAIN(TestWifiManagers)
#include "tst_wifimanagers.moc"

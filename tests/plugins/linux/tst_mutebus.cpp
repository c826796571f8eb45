#include "fakemanager.h"
#include "managerbench.h"
#include "mutebus.h"

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(MuteBus::Kind)

/// Buses that are there and of no use: nobody waits for them for long, the end not at all.
class TestMuteBus : public QObject
{
    Q_OBJECT

private slots:
    void uselessBusIsGivenUp_data();
    void uselessBusIsGivenUp();
    void endDoesNotWaitForAUselessBus_data();
    void endDoesNotWaitForAUselessBus();
    void missingBusIsTold_data();
    void missingBusIsTold();
    void nextAddressIsTried();
    void busThatStopsIsGivenUpAndFoundAgain();
    void endDoesNotWaitForABusThatStopped();
};

void TestMuteBus::uselessBusIsGivenUp_data()
{
    QTest::addColumn<MuteBus::Kind>("kind");
    QTest::newRow("says nothing") << MuteBus::Kind::SaysNothing;
    QTest::newRow("authenticates") << MuteBus::Kind::Authenticates;
    QTest::newRow("takes no connections") << MuteBus::Kind::TakesNoConnections;
    QTest::newRow("hangs up") << MuteBus::Kind::HangsUp;
    QTest::newRow("babbles") << MuteBus::Kind::Babbles;
}

void TestMuteBus::uselessBusIsGivenUp()
{
    QFETCH(MuteBus::Kind, kind);
    const MuteBus bus(kind);
    ManagerBench bench(bus.address(), 200);
    for (int i = 0; i < 3; ++i) {
        const auto answer = bench.ask();
        COMPARE_ANSWER(answer, Result::NoBus, Manager::Nobody);
        QVERIFY(!answer->detail.isEmpty());
    }
}

void TestMuteBus::endDoesNotWaitForAUselessBus_data()
{
    uselessBusIsGivenUp_data();
}

void TestMuteBus::endDoesNotWaitForAUselessBus()
{
    QFETCH(MuteBus::Kind, kind);
    const MuteBus bus(kind);
    ManagerBench bench(bus.address(), 3600 * 1000);
    bench.requester().request(QStringLiteral("wlan0"));
    QTest::qWait(100);
    bench.thread().end(); // would take an hour if it waited
    bench.requester().request(QStringLiteral("wlan0"));
}

void TestMuteBus::missingBusIsTold_data()
{
    QTest::addColumn<QString>("address");
    const auto row = [](const char *name, const QString &address) {
        QTest::newRow(name) << address;
    };
    row("no address", QString());
    row("no such file", QStringLiteral("unix:path=/nowhere/bus"));
    row("no socket", QStringLiteral("unix:path=/dev/null"));
    row("too long", QStringLiteral("unix:path=/") + QString(200, QLatin1Char('x')));
    row("abstract", QStringLiteral("unix:abstract=/nowhere/bus"));
    row("not a Unix socket", QStringLiteral("tcp:host=localhost,port=1"));
    row("several", QStringLiteral("unix:path=/nowhere/1;unix:path=/nowhere/2"));
}

void TestMuteBus::missingBusIsTold()
{
    QFETCH(QString, address);
    ManagerBench bench(address);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::NoBus, Manager::Nobody);
    QVERIFY(!answer->detail.isEmpty());
}

void TestMuteBus::nextAddressIsTried()
{
    PrivateBus good;
    if (!good.start())
        QSKIP("dbus-daemon is missing");
    const MuteBus mute(MuteBus::Kind::SaysNothing);
    const FakeIwd iwd(good.address());
    ManagerBench bench(QStringLiteral("tcp:host=localhost,port=1;unix:path=/nowhere;") +
                           mute.address() + QLatin1Char(';') + good.address(),
        1000);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
}

void TestMuteBus::busThatStopsIsGivenUpAndFoundAgain()
{
    PrivateBus bus;
    if (!bus.start())
        QSKIP("dbus-daemon is missing");
    const FakeIwd iwd(bus.address());
    ManagerBench bench(bus.address(), 1000);
    auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
    bus.freeze(true);
    for (int i = 0; i < 2; ++i) { // with a connection, and in making one
        answer = bench.ask();
        COMPARE_ANSWER(answer, Result::NoBus, Manager::Nobody);
    }
    bus.freeze(false);
    answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
}

void TestMuteBus::endDoesNotWaitForABusThatStopped()
{
    PrivateBus bus;
    if (!bus.start())
        QSKIP("dbus-daemon is missing");
    const FakeIwd iwd(bus.address());
    ManagerBench bench(bus.address(), 3600 * 1000);
    const auto answer = bench.ask();
    COMPARE_ANSWER(answer, Result::Accepted, Manager::Iwd);
    bus.freeze(true);
    bench.requester().request(QStringLiteral("wlan0"));
    QTest::qWait(100);
    bench.thread().end();
    bus.freeze(false);
}

QTEST_GUILESS_MAIN(TestMuteBus)
#include "tst_mutebus.moc"

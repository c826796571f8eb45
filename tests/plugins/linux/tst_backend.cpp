#include "backendbench.h"
#include "linux/problemtexts.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;

Q_DECLARE_METATYPE(LinuxWifi::WifiInterface::Mode)

/// What the back end answers, and what it says when it cannot.
class TestBackend : public QObject
{
    Q_OBJECT

private slots:
    void interfacesAreNamedForAirlumesRule_data();
    void interfacesAreNamedForAirlumesRule();
    void namedInterfaceIsTheOneThatListens();
    void usableMeansUpAndNotBlocked_data();
    void usableMeansUpAndNotBlocked();
    void firstUsableInterfaceListens();
    void joinedInterfaceIsPreferred();
    void namedInterfaceListens();
    void unknownInterfaceFails();
    void networksAreAppended();
    void joinedNetworkComesWithItsLink();
    void listOfLinksServesWhereTheAddressGetsNoAnswer();
    void peersThatAreNotTheAccessPointAreNotItsLink();
    void multiLinkStationIsAskedByItsOwnAddress();
    void oneOfSeveralLinksIsJoined();
    void unreadableLinkLeavesTheCachedSignal();
    void machineWithoutWifiFailsWithOneMessage_data();
    void machineWithoutWifiFailsWithOneMessage();
    void unusableInterfaceFailsWithOneMessage_data();
    void unusableInterfaceFailsWithOneMessage();
    void oldEntriesAreNotShownWhileTheRadioIsOff();
    void problemThatComesBackIsSaidAgain();
    void unreadableNetworksFail_data();
    void unreadableNetworksFail();
    void hotspotAndMonitorAreNamed_data();
    void hotspotAndMonitorAreNamed();
    void adapterThatCameBackFailsOnce();
    void adapterGoneDuringAQueryNeedsNoFurtherFailure();
    void joinedNetworkAloneIsGiven();
    void addressOfTheInterfaceIsGiven();
};

void TestBackend::interfacesAreNamedForAirlumesRule_data()
{
    QTest::addColumn<QStringList>("joined");
    QTest::addColumn<QStringList>("down");
    QTest::addColumn<QStringList>("names");
    const auto list = [](const char *names) {
        return QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    // The one that listens is the second, and of those the first that is usable.
    QTest::newRow("nothing tells them apart") << list("") << list("") << list("b a c");
    QTest::newRow("the first is joined") << list("a") << list("") << list("b a c");
    QTest::newRow("the second is joined") << list("b") << list("") << list("a b c");
    QTest::newRow("the third is joined") << list("c") << list("") << list("a c b");
    QTest::newRow("the first is down") << list("") << list("a") << list("a b c");
    QTest::newRow("the joined one is down") << list("a") << list("a") << list("a b c");
    QTest::newRow("all are down") << list("") << list("a b c") << list("a b c");
}

void TestBackend::interfacesAreNamedForAirlumesRule()
{
    QFETCH(QStringList, joined);
    QFETCH(QStringList, down);
    QFETCH(QStringList, names);
    Bench bench;
    int index = 2;
    for (const char *const name : {"a", "b", "c"}) {
        const QString text = QString::fromLatin1(name);
        bench.kernel.add(index++, name, {!down.contains(text), false, false},
            joined.contains(text) ? "Home" : "");
    }
    QStringList named;
    QVERIFY(bench.backend.interfaceNames(named));
    QCOMPARE(named, names);
    QCOMPARE(bench.problems, QStringList());
}

void TestBackend::namedInterfaceIsTheOneThatListens()
{
    // Airlume's own rule, with every mixture of states.
    for (int bits = 0; bits < 64; ++bits) {
        Bench bench;
        for (int i = 0; i < 3; ++i) {
            const char *const names[] = {"a", "b", "c"};
            bench.kernel.add(i + 2, names[i], {(bits >> i & 1) != 0, false, false},
                (bits >> (i + 3) & 1) != 0 ? "Home" : "");
        }
        QStringList names;
        QVERIFY(bench.backend.interfaceNames(names));
        QString taken = names.first();
        for (int i = 1; i < names.size(); ++i) {
            if (bench.backend.usable(names.at(i))) {
                taken = names.at(i);
                break;
            }
        }
        QCOMPARE(bench.round(), (bits & 7) != 0);
        const int watched = bench.events.m_watched;
        QCOMPARE(watched != 0, (bits & 7) != 0);
        if (watched != 0)
            QCOMPARE(bench.kernel.m_interfaces.at(watched - 2).name, taken);
    }
}

void TestBackend::usableMeansUpAndNotBlocked_data()
{
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("soft");
    QTest::addColumn<bool>("hard");
    for (int bits = 0; bits < 8; ++bits)
        QTest::addRow("%d", bits) << ((bits & 1) != 0) << ((bits & 2) != 0) << ((bits & 4) != 0);
}

void TestBackend::usableMeansUpAndNotBlocked()
{
    QFETCH(bool, up);
    QFETCH(bool, soft);
    QFETCH(bool, hard);
    Bench bench;
    bench.kernel.add(2, "wlan0", {up, soft, hard});
    QCOMPARE(bench.backend.usable(QStringLiteral("wlan0")), up && !soft && !hard);
    QVERIFY(!bench.backend.usable(QStringLiteral("wlan7")));
    QVERIFY(!bench.backend.usable(QString()));
}

void TestBackend::firstUsableInterfaceListens()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {false, false, false});
    bench.kernel.add(3, "wlan1");
    bench.kernel.add(4, "wlan2");
    QVERIFY(bench.round());
    QCOMPARE(bench.events.m_watched, 3);
    QCOMPARE(bench.problems, QStringList());
}

void TestBackend::joinedInterfaceIsPreferred()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.add(3, "wlan1", {false, true, false}, "Off");
    bench.kernel.add(4, "wlan2", {true, false, false}, "Home");
    bench.kernel.add(5, "wlan3", {true, false, false}, "Other");
    QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_read, QVector<int>{4});
}

void TestBackend::namedInterfaceListens()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.add(3, "wlan1");
    QList<ScanMap> networks;
    QVERIFY(bench.backend.networks(QStringLiteral("wlan1"), networks));
    QCOMPARE(bench.kernel.m_read, QVector<int>{3});
}

void TestBackend::unknownInterfaceFails()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    QList<ScanMap> networks;
    QVERIFY(!bench.backend.networks(QStringLiteral("wlan7"), networks));
    QCOMPARE(bench.problems, QStringList{ProblemTexts::unknownInterface(QStringLiteral("wlan7"))});
}

void TestBackend::networksAreAppended()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_accessPoints = {heard()};
    QList<ScanMap> networks{ScanMap{{QStringLiteral("ssid"), QStringLiteral("before")}}};
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.size(), 2);
    QCOMPARE(networks.at(1).value(QStringLiteral("ssid")), QStringLiteral("Home"));
}

void TestBackend::joinedNetworkComesWithItsLink()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    bench.kernel.m_links = {stationLink("b1", -47, 300)};
    QList<ScanMap> networks;
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.first().value(QStringLiteral("current_connected")), QStringLiteral("1"));
    QCOMPARE(networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-47"));
    QCOMPARE(networks.first().value(QStringLiteral("link_rate")), QStringLiteral("300"));
}

void TestBackend::listOfLinksServesWhereTheAddressGetsNoAnswer()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    bench.kernel.m_links = {stationLink("b1", -47, 300)};
    for (const int error : {EOPNOTSUPP, ENOENT, EINVAL}) {
        bench.kernel.m_linkError = error;
        QList<ScanMap> networks;
        QVERIFY(bench.round(&networks));
        QCOMPARE(
            networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-47"));
    }
    // And the other way round.
    bench.kernel.m_linkError = 0;
    bench.kernel.m_linksError = EOPNOTSUPP;
    QList<ScanMap> networks;
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-47"));
    QCOMPARE(bench.problems, QStringList());
}

void TestBackend::peersThatAreNotTheAccessPointAreNotItsLink()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    bench.kernel.m_linkError = EOPNOTSUPP;
    bench.kernel.m_links = {stationLink("peer", -20, 10), stationLink("other", -21, 11)};
    QList<ScanMap> networks;
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-50"));
    bench.kernel.m_links.append(stationLink("b1", -47, 300));
    networks.clear();
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-47"));
}

void TestBackend::multiLinkStationIsAskedByItsOwnAddress()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    AccessPoint accessPoint = heard(true);
    accessPoint.mldAddress = QStringLiteral("mld");
    bench.kernel.m_accessPoints = {accessPoint};
    bench.kernel.m_links = {stationLink("mld", -44, 2402)};
    QList<ScanMap> networks;
    QVERIFY(bench.round(&networks));
    QCOMPARE(bench.kernel.m_asked.first(), QStringLiteral("mld"));
    QCOMPARE(networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-44"));
    QCOMPARE(networks.first().value(QStringLiteral("link_rate")), QStringLiteral("2402"));
}

void TestBackend::oneOfSeveralLinksIsJoined()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    AccessPoint weak = heard(true);
    weak.signal = -70;
    weak.linkId = 0;
    AccessPoint strong = heard(true);
    strong.bssid = QStringLiteral("b2");
    strong.linkId = 1;
    bench.kernel.m_accessPoints = {weak, strong};
    StationLink link = stationLink("mld", {}, {});
    link.byLink.insert(1, stationLink("", -41, 1201));
    bench.kernel.m_links = {link};
    for (int i = 0; i < 3; ++i) {
        QList<ScanMap> networks;
        QVERIFY(bench.round(&networks));
        QStringList joined;
        for (const ScanMap &network : qAsConst(networks)) {
            if (network.value(QStringLiteral("current_connected")) == QStringLiteral("1"))
                joined.append(network.value(QStringLiteral("bssid")));
        }
        QCOMPARE(joined, QStringList{QStringLiteral("b2")});
        QCOMPARE(
            networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-41"));
        QCOMPARE(networks.first().value(QStringLiteral("link_rate")), QStringLiteral("1201"));
    }
}

void TestBackend::unreadableLinkLeavesTheCachedSignal()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    bench.kernel.m_linkError = ENOENT;
    bench.kernel.m_linksError = EOPNOTSUPP;
    for (int i = 0; i < 5; ++i) {
        QList<ScanMap> networks;
        QVERIFY(bench.round(&networks));
        QCOMPARE(networks.first().value(QStringLiteral("current_connected")), QStringLiteral("1"));
        QCOMPARE(
            networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-50"));
    }
    QCOMPARE(bench.problems,
        QStringList{ProblemTexts::linkUnreadable(QStringLiteral("wlan0"), EOPNOTSUPP)});
}

void TestBackend::machineWithoutWifiFailsWithOneMessage_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("message");
    QTest::newRow("no adapter") << 0 << ProblemTexts::noInterface();
    QTest::newRow("no nl80211") << WifiKernel::NoWifiSupport + 0
                                << ProblemTexts::interfacesUnreadable(WifiKernel::NoWifiSupport);
    QTest::newRow("EPERM") << EPERM << ProblemTexts::interfacesUnreadable(EPERM);
    QTest::newRow("EAGAIN") << EAGAIN << ProblemTexts::interfacesUnreadable(EAGAIN);
}

void TestBackend::machineWithoutWifiFailsWithOneMessage()
{
    QFETCH(int, error);
    QFETCH(QString, message);
    Bench bench;
    bench.kernel.m_interfacesError = error;
    for (int i = 0; i < 10; ++i) {
        QStringList names;
        QCOMPARE(bench.backend.interfaceNames(names), error == 0);
        QVERIFY(names.isEmpty());
        QVERIFY(!bench.round());
    }
    QCOMPARE(bench.problems, QStringList{message});
    QVERIFY(bench.kernel.m_triggered.isEmpty());
}

void TestBackend::unusableInterfaceFailsWithOneMessage_data()
{
    QTest::addColumn<bool>("soft");
    QTest::addColumn<bool>("hard");
    QTest::newRow("down") << false << false;
    QTest::newRow("switched off") << true << false;
    QTest::newRow("hardware switch") << false << true;
}

void TestBackend::unusableInterfaceFailsWithOneMessage()
{
    QFETCH(bool, soft);
    QFETCH(bool, hard);
    const LinkState state{false, soft, hard};
    Bench bench;
    bench.kernel.add(2, "wlan0", state);
    for (int i = 0; i < 10; ++i)
        QVERIFY(!bench.round());
    QCOMPARE(bench.problems, QStringList{ProblemTexts::unusable(QStringLiteral("wlan0"), state)});

    bench.kernel.m_states[QStringLiteral("wlan0")] = {true, false, false};
    QVERIFY(bench.round());
    QCOMPARE(bench.problems.size(), 1);
}

void TestBackend::oldEntriesAreNotShownWhileTheRadioIsOff()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {false, true, false});
    bench.kernel.m_accessPoints = {heard()};
    QList<ScanMap> networks;
    QVERIFY(!bench.round(&networks));
    QVERIFY(networks.isEmpty());
}

void TestBackend::problemThatComesBackIsSaidAgain()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {false, false, false});
    QVERIFY(!bench.round());
    bench.kernel.m_states[QStringLiteral("wlan0")].up = true;
    QVERIFY(bench.round());
    bench.kernel.m_states[QStringLiteral("wlan0")].up = false;
    QVERIFY(!bench.round());
    QVERIFY(!bench.round());
    QCOMPARE(bench.problems.size(), 2);
    QCOMPARE(bench.problems.first(), bench.problems.last());
}

void TestBackend::unreadableNetworksFail_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<bool>("result");
    QTest::newRow("ENODEV: gone since it was listed") << ENODEV << false;
    QTest::newRow("EOPNOTSUPP") << EOPNOTSUPP << false;
    QTest::newRow("ENETDOWN") << ENETDOWN << false;
    QTest::newRow("EINTR: the list keeps changing") << EINTR << true;
    QTest::newRow("EAGAIN") << EAGAIN << true;
}

void TestBackend::unreadableNetworksFail()
{
    QFETCH(int, error);
    QFETCH(bool, result);
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_accessPoints = {heard()};
    bench.kernel.m_accessPointsError = error;
    for (int i = 0; i < 5; ++i) {
        QList<ScanMap> networks;
        QCOMPARE(bench.round(&networks), result);
        QVERIFY(networks.isEmpty());
    }
    QCOMPARE(bench.problems,
        QStringList{ProblemTexts::networksUnreadable(QStringLiteral("wlan0"), error)});
    bench.kernel.m_accessPointsError = 0;
    QList<ScanMap> networks;
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.size(), 1);
}

void TestBackend::hotspotAndMonitorAreNamed_data()
{
    QTest::addColumn<WifiInterface::Mode>("mode");
    QTest::addColumn<QString>("word");
    QTest::newRow("hotspot") << WifiInterface::Mode::AccessPoint << QStringLiteral("hotspot");
    QTest::newRow("monitor") << WifiInterface::Mode::Monitor << QStringLiteral("type managed");
    QTest::newRow("other") << WifiInterface::Mode::Other << QStringLiteral("mesh");
}

void TestBackend::hotspotAndMonitorAreNamed()
{
    QFETCH(WifiInterface::Mode, mode);
    QFETCH(QString, word);
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_interfaces.first().mode = mode;
    QStringList names;
    QVERIFY(bench.backend.interfaceNames(names));
    QCOMPARE(names, QStringList());
    QVERIFY(!bench.backend.usable(QStringLiteral("wlan0")));
    QVERIFY(!bench.round());
    QCOMPARE(bench.problems.size(), 1);
    QVERIFY2(bench.problems.first().contains(word) &&
                 bench.problems.first().contains(QStringLiteral("wlan0")),
        qPrintable(bench.problems.first()));
    // Beside a station it is nobody's trouble.
    bench.kernel.add(3, "wlan1");
    QVERIFY(bench.round());
    QCOMPARE(bench.problems.size(), 1);
}

void TestBackend::adapterThatCameBackFailsOnce()
{
    // Airlume does not ask for networks while the list of interfaces is empty, and starts afresh
    // only when a query fails.
    Bench bench;
    bench.kernel.add(2, "wlan0");
    QVERIFY(bench.round());
    const QVector<WifiInterface> interfaces = bench.kernel.m_interfaces;
    bench.kernel.m_interfaces.clear();
    for (int i = 0; i < 3; ++i) {
        QStringList names;
        QVERIFY(bench.backend.interfaceNames(names));
        QVERIFY(names.isEmpty());
    }
    QCOMPARE(bench.problems, QStringList{ProblemTexts::noInterface()});
    bench.kernel.m_interfaces = interfaces;
    QVERIFY(!bench.round());
    QVERIFY(bench.round());
    QVERIFY(bench.round());
    QCOMPARE(bench.problems.size(), 1);
}

void TestBackend::adapterGoneDuringAQueryNeedsNoFurtherFailure()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    QVERIFY(bench.round());
    const QVector<WifiInterface> interfaces = bench.kernel.m_interfaces;
    bench.kernel.m_interfaces.clear();
    QVERIFY(!bench.round());
    QVERIFY(!bench.round());
    bench.kernel.m_interfaces = interfaces;
    QVERIFY(bench.round());
}

void TestBackend::joinedNetworkAloneIsGiven()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    ScanMap network;
    bench.kernel.m_accessPoints = {heard()};
    QVERIFY(!bench.backend.joinedNetwork(QString(), network));
    bench.kernel.m_accessPoints = {heard(), heard(true)};
    QVERIFY(bench.backend.joinedNetwork(QString(), network));
    QCOMPARE(network.value(QStringLiteral("current_connected")), QStringLiteral("1"));
    bench.kernel.m_states[QStringLiteral("wlan0")].up = false;
    QVERIFY(!bench.backend.joinedNetwork(QString(), network));
}

void TestBackend::addressOfTheInterfaceIsGiven()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    QString address;
    QVERIFY(bench.backend.address(QStringLiteral("wlan0"), address));
    QCOMPARE(address, QStringLiteral("02:00:00:00:00:00"));
    QVERIFY(!bench.backend.address(QStringLiteral("wlan7"), address));
}

QTEST_GUILESS_MAIN(TestBackend)
#include "tst_backend.moc"

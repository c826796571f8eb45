#include "linux/backend.h"
#include "linux/problemtexts.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)

namespace
{
/// A kernel whose answers are set by hand.
class FakeKernel : public WifiKernel
{
public:
    int interfaces(QVector<WifiInterface> &interfaces) override
    {
        interfaces = m_interfacesError ? QVector<WifiInterface>() : m_interfaces;
        return m_interfacesError;
    }
    LinkState linkState(const QString &name) override { return m_states.value(name); }
    int accessPoints(int index, QVector<AccessPoint> &accessPoints) override
    {
        m_read.append(index);
        accessPoints = m_accessPointsError ? QVector<AccessPoint>() : m_accessPoints;
        return m_accessPointsError;
    }
    int stationLinks(int, QVector<StationLink> &links) override
    {
        links = m_linksError ? QVector<StationLink>() : m_links;
        return m_linksError;
    }
    int triggerScan(int index) override
    {
        m_triggered.append(index);
        return m_triggerError;
    }
    void close() override {}

    void add(int index, const char *name, LinkState state = {true, false, false},
        const char *joinedName = "")
    {
        m_interfaces.append({index, QString::fromLatin1(name), QStringLiteral("02:00:00:00:00:00"),
            QString::fromLatin1(joinedName)});
        m_states.insert(QString::fromLatin1(name), state);
    }

    QVector<WifiInterface> m_interfaces;
    QMap<QString, LinkState> m_states;
    QVector<AccessPoint> m_accessPoints;
    QVector<StationLink> m_links;
    int m_interfacesError = 0;
    int m_accessPointsError = 0;
    int m_linksError = 0;
    int m_triggerError = 0;
    QVector<int> m_read;
    QVector<int> m_triggered;
};

class FakeRequester : public ScanRequester
{
public:
    void request(const QString &interface) override { m_requested.append(interface); }
    std::optional<ScanAnswer> takeAnswer() override
    {
        std::optional<ScanAnswer> answer;
        answer.swap(m_answer);
        return answer;
    }

    QStringList m_requested;
    std::optional<ScanAnswer> m_answer;
};

AccessPoint heard(bool joined = false)
{
    AccessPoint accessPoint;
    accessPoint.bssid = QStringLiteral("b1");
    accessPoint.ssid = QStringLiteral("Home");
    accessPoint.signal = -50;
    accessPoint.joined = joined;
    return accessPoint;
}

/// A back end and all it is given.
struct Bench {
    FakeKernel kernel;
    FakeRequester requester;
    qint64 now = 0;
    QStringList problems;
    Backend backend{kernel, requester, [this] { return now; },
        [this](const QString &text) { problems.append(text); }};

    /// One round as Airlume makes it every four seconds.
    bool round(QList<ScanMap> *networks = nullptr)
    {
        now += 4000;
        QStringList names;
        backend.interfaceNames(names);
        for (const QString &name : qAsConst(names))
            backend.usable(name);
        QList<ScanMap> heard;
        const bool result = backend.networks(QString(), networks ? *networks : heard);
        return result;
    }
};
} // namespace

class TestBackend : public QObject
{
    Q_OBJECT

private slots:
    void interfacesAreNamedInTheirOrder();
    void usableMeansUpAndNotBlocked_data();
    void usableMeansUpAndNotBlocked();
    void firstUsableInterfaceListens();
    void joinedInterfaceIsPreferred();
    void namedInterfaceListens();
    void unknownInterfaceFails();
    void networksAreAppended();
    void joinedNetworkComesWithItsLink();
    void unreadableLinkLeavesTheCachedSignal();
    void machineWithoutWifiFailsWithOneMessage_data();
    void machineWithoutWifiFailsWithOneMessage();
    void unusableInterfaceFailsWithOneMessage_data();
    void unusableInterfaceFailsWithOneMessage();
    void oldEntriesAreNotShownWhileTheRadioIsOff();
    void problemThatComesBackIsSaidAgain();
    void unreadableNetworksFail_data();
    void unreadableNetworksFail();
    void adapterThatCameBackFailsOnce();
    void adapterGoneDuringAQueryNeedsNoFurtherFailure();
    void scansAreTriggeredSeldom();
    void busyRadioIsNoProblem();
    void failedTriggerIsSaidOnceAndTheCacheServes_data();
    void failedTriggerIsSaidOnceAndTheCacheServes();
    void withoutPermissionNetworkManagerIsAsked();
    void refusedRequestIsSaidOnceAndTheCacheServes_data();
    void refusedRequestIsSaidOnceAndTheCacheServes();
    void adapterThatIsNotReadyGetsASecondChance_data();
    void adapterThatIsNotReadyGetsASecondChance();
    void refusalIsOverWhenARequestIsAccepted();
    void radioThatCameBackScansAtOnce();
    void joinedNetworkAloneIsGiven();
    void addressOfTheInterfaceIsGiven();
    void scanOnDemandObeysTheInterval();
};

void TestBackend::interfacesAreNamedInTheirOrder()
{
    Bench bench;
    bench.kernel.add(9, "wlan1");
    bench.kernel.add(2, "wlan0");
    QStringList names;
    QVERIFY(bench.backend.interfaceNames(names));
    QCOMPARE(names, (QStringList{QStringLiteral("wlan1"), QStringLiteral("wlan0")}));
    QCOMPARE(bench.problems, QStringList());
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
    QCOMPARE(bench.kernel.m_read, QVector<int>{3});
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
    bench.kernel.m_links = {{QStringLiteral("b1"), -47, 300}};
    QList<ScanMap> networks;
    QVERIFY(bench.round(&networks));
    QCOMPARE(networks.first().value(QStringLiteral("current_connected")), QStringLiteral("1"));
    QCOMPARE(networks.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-47"));
    QCOMPARE(networks.first().value(QStringLiteral("link_rate")), QStringLiteral("300"));
}

void TestBackend::unreadableLinkLeavesTheCachedSignal()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
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

void TestBackend::scansAreTriggeredSeldom()
{
    Bench bench;
    bench.kernel.add(2, "wlan0", {true, false, false}, "Home");
    bench.kernel.m_accessPoints = {heard(true)};
    for (int i = 0; i < 30; ++i) // 120 s
        QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered, QVector<int>(6, 2));
    QVERIFY(bench.requester.m_requested.isEmpty());
    QCOMPARE(bench.problems, QStringList());
}

void TestBackend::busyRadioIsNoProblem()
{
    Bench bench;
    bench.kernel.add(2, "wlan0");
    bench.kernel.m_triggerError = EBUSY;
    QVERIFY(bench.round());
    QVERIFY(bench.round());
    QCOMPARE(bench.kernel.m_triggered.size(), 1);
    QCOMPARE(bench.problems, QStringList());
    QVERIFY(bench.requester.m_requested.isEmpty());
}

void TestBackend::failedTriggerIsSaidOnceAndTheCacheServes_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("ENETDOWN") << ENETDOWN;
    QTest::newRow("ENODEV") << ENODEV;
    QTest::newRow("EOPNOTSUPP") << EOPNOTSUPP;
    QTest::newRow("EAGAIN") << EAGAIN;
}

void TestBackend::failedTriggerIsSaidOnceAndTheCacheServes()
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

void TestBackend::withoutPermissionNetworkManagerIsAsked()
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

void TestBackend::refusedRequestIsSaidOnceAndTheCacheServes_data()
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

void TestBackend::refusedRequestIsSaidOnceAndTheCacheServes()
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
    QVERIFY2(requests >= 3 && requests <= 5, qPrintable(QString::number(requests)));
}

void TestBackend::adapterThatIsNotReadyGetsASecondChance_data()
{
    QTest::addColumn<Result>("result");
    QTest::newRow("not available") << Result::NotAvailable;
    QTest::newRow("no interface") << Result::NoInterface;
}

void TestBackend::adapterThatIsNotReadyGetsASecondChance()
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

void TestBackend::refusalIsOverWhenARequestIsAccepted()
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

void TestBackend::radioThatCameBackScansAtOnce()
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

void TestBackend::scanOnDemandObeysTheInterval()
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

QTEST_GUILESS_MAIN(TestBackend)
#include "tst_backend.moc"

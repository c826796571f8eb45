#include "simulated/scenariofile.h"
#include "simulated/simulatedair.h"

#include <QRegularExpression>
#include <QtTest>

#include <cmath>

/// The street built in: does it look like a real one, and does it serve the program's pictures?
class TestNeighbourhood : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void atLeastTwentyFourAccessPointsAreAlwaysHeard();
    void everyBandIsThere();
    void theFirstFifteenShowWhatIsSpecial();
    void everySecurityIsThere();
    void addressesAreOfNoVendor();
    void channelsHaveEveryRating();
    void signalsAreNeverOutOfRange();
    void signalsChangeLittleBetweenPolls();
    void signalsDoChange();
    void someComeAndGo();
    void joinedSignalWalksThroughTheHome();
    void linkRateFollowsTheWalk();
    void aNewcomerNeverHoldsUpTheRowsOfTheList();

private:
    QList<ScanMap> heardAt(double seconds) const;

    Scenario m_scenario;
};

namespace
{
const int poll = 4;
// Twice the script.
const int farEnd = 1200;

QString ssidOf(const ScanMap &map)
{
    return map.value(QStringLiteral("ssid"));
}

QString bssidOf(const ScanMap &map)
{
    return map.value(QStringLiteral("bssid"));
}

int channelOf(const ScanMap &map)
{
    return map.value(QStringLiteral("channel")).toInt();
}

int signalOf(const ScanMap &map)
{
    return map.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toInt();
}
} // namespace

void TestNeighbourhood::initTestCase()
{
    const ScenarioFileResult file =
        ReadScenarioFile(QStringLiteral(":/simulated/neighbourhood.json"));
    QCOMPARE(file.problem, QString());
    m_scenario = file.scenario;
}

QList<ScanMap> TestNeighbourhood::heardAt(double seconds) const
{
    SimulatedAir air(m_scenario);
    air.advanceTo(seconds);
    QList<ScanMap> maps;
    air.networks(QString(), maps);
    return maps;
}

void TestNeighbourhood::atLeastTwentyFourAccessPointsAreAlwaysHeard()
{
    for (int t = 0; t < farEnd; t += poll)
        QVERIFY(heardAt(t).size() >= 24);
}

void TestNeighbourhood::everyBandIsThere()
{
    QSet<int> channels;
    for (const ScenarioNetwork &network : qAsConst(m_scenario.networks))
        channels.insert(network.channel);
    for (const int usual : {1, 6, 11, 36, 40, 44, 48, 149, 161})
        QVERIFY2(channels.contains(usual), qPrintable(QString::number(usual)));
    for (const int odd : {3, 9, 13, 100})
        QVERIFY2(channels.contains(odd), qPrintable(QString::number(odd)));
    // Channel 69 of 6 GHz.
    QVERIFY(channels.contains(6069));
}

void TestNeighbourhood::theFirstFifteenShowWhatIsSpecial()
{
    const QList<ScanMap> first = heardAt(0.0).mid(0, 15);
    QMap<QString, QVector<int>> channels;
    for (const ScanMap &map : first)
        channels[ssidOf(map)].append(channelOf(map));
    QCOMPARE(first.first().value(QStringLiteral("current_connected")), QStringLiteral("1"));
    QCOMPARE(channels.value(QStringLiteral("Maple House")), (QVector<int>{44, 6}));
    QCOMPARE(channels.value(QStringLiteral("Old Mill Mesh")).size(), 3);
    QVERIFY(channels.contains(QString()));
    QVERIFY(channels.contains(QStringLiteral("<b>bold & free</b>")));
    QVERIFY(channels.contains(QStringLiteral("みどりの丘")));
    QVERIFY(channels.contains(QStringLiteral("Food Truck 🌮")));
}

void TestNeighbourhood::everySecurityIsThere()
{
    QSet<QString> kinds;
    const QList<ScanMap> first = heardAt(0.0).mid(0, 15);
    for (const ScanMap &map : first)
        kinds.insert(map.value(QStringLiteral("security_mode")));
    for (const char *kind :
        {"Open", "WEP", "WPA2-PSK", "WPA3-SAE", "WPA2/WPA3", "WPA2-802.1X", "OWE", "WPA/WPA2-PSK"})
        QVERIFY2(kinds.contains(QLatin1String(kind)), kind);
}

void TestNeighbourhood::addressesAreOfNoVendor()
{
    // The second bit of the first octet: locally administered, so never given to a maker.
    static const QRegularExpression local(QStringLiteral("\\A02(:[0-9a-f]{2}){5}\\z"));
    for (const ScenarioNetwork &network : qAsConst(m_scenario.networks))
        QVERIFY2(local.match(network.bssid).hasMatch(), qPrintable(network.bssid));
}

void TestNeighbourhood::channelsHaveEveryRating()
{
    QMap<int, int> counts;
    const QList<ScanMap> heard = heardAt(0.0);
    for (const ScanMap &map : heard)
        ++counts[channelOf(map)];
    const QList<int> found = counts.values();
    QVERIFY(found.contains(1));
    QVERIFY(found.contains(2) || found.contains(3));
    QVERIFY(found.contains(4) || found.contains(5) || found.contains(6));
    QVERIFY(*std::max_element(found.begin(), found.end()) >= 7);
}

void TestNeighbourhood::signalsAreNeverOutOfRange()
{
    for (int t = 0; t < farEnd; t += poll) {
        const QList<ScanMap> heard = heardAt(t);
        for (const ScanMap &map : heard) {
            bool isNumber = false;
            const int signal =
                map.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toInt(&isNumber, 10);
            QVERIFY(isNumber);
            QVERIFY2(signal >= -95 && signal <= -25, qPrintable(ssidOf(map)));
        }
    }
}

void TestNeighbourhood::signalsChangeLittleBetweenPolls()
{
    QMap<QString, int> last;
    for (int t = 0; t < farEnd; t += poll) {
        QMap<QString, int> now;
        const QList<ScanMap> heard = heardAt(t);
        for (const ScanMap &map : heard) {
            now.insert(bssidOf(map), signalOf(map));
            const int change = signalOf(map) - last.value(bssidOf(map), signalOf(map));
            QVERIFY2(std::abs(change) <= 6,
                qPrintable(ssidOf(map) + QLatin1Char(' ') + QString::number(change)));
        }
        last = now;
    }
}

void TestNeighbourhood::signalsDoChange()
{
    QMap<QString, QSet<int>> values;
    for (int t = 0; t < farEnd; t += poll) {
        const QList<ScanMap> heard = heardAt(t);
        for (const ScanMap &map : heard)
            values[bssidOf(map)].insert(signalOf(map));
    }
    QCOMPARE(values.size(), m_scenario.networks.size());
    for (auto it = values.begin(); it != values.end(); ++it)
        QVERIFY2(it.value().size() >= 3, qPrintable(it.key()));
}

void TestNeighbourhood::someComeAndGo()
{
    QMap<QString, int> heardTimes;
    int polls = 0;
    for (int t = 0; t < farEnd; t += poll, ++polls) {
        const QList<ScanMap> heard = heardAt(t);
        for (const ScanMap &map : heard)
            ++heardTimes[bssidOf(map)];
    }
    int visitors = 0;
    for (const int times : qAsConst(heardTimes)) {
        if (times < polls)
            ++visitors;
    }
    QVERIFY(visitors >= 3);
    QVERIFY(visitors <= 8);
}

void TestNeighbourhood::joinedSignalWalksThroughTheHome()
{
    int strongest = -100;
    int weakest = 0;
    SimulatedAir air(m_scenario);
    for (int t = 0; t <= 300; t += poll) {
        air.advanceTo(t);
        ScanMap map;
        QVERIFY(air.joinedNetwork(QString(), map));
        QCOMPARE(ssidOf(map), QStringLiteral("Maple House"));
        strongest = qMax(strongest, signalOf(map));
        weakest = qMin(weakest, signalOf(map));
    }
    QVERIFY(strongest >= -40 && strongest <= -30);
    QVERIFY(weakest <= -76 && weakest >= -85);
}

void TestNeighbourhood::linkRateFollowsTheWalk()
{
    SimulatedAir air(m_scenario);
    ScanMap near;
    ScanMap far;
    air.advanceTo(20.0);
    QVERIFY(air.joinedNetwork(QString(), near));
    air.advanceTo(180.0);
    QVERIFY(air.joinedNetwork(QString(), far));
    QCOMPARE(near.value(QStringLiteral("link_rate")), QStringLiteral("866"));
    QVERIFY(far.value(QStringLiteral("link_rate")).toInt() <= 130);
    QVERIFY(far.value(QStringLiteral("link_rate")).toInt() >= 1);
}

void TestNeighbourhood::aNewcomerNeverHoldsUpTheRowsOfTheList()
{
    // The program's list has fifteen rows and stops reading a scan at the first unknown name when
    // it is full: whoever comes later must stand behind the fourteen that stay.
    for (int i = 0; i < 14; ++i) {
        QCOMPARE(m_scenario.networks.at(i).from, 0.0);
        QVERIFY(std::isinf(m_scenario.networks.at(i).until));
    }
}

QTEST_GUILESS_MAIN(TestNeighbourhood)
#include "tst_neighbourhood.moc"

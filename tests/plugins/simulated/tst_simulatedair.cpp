#include "airoftests.h"

#include <QtTest>

class TestSimulatedAir : public QObject
{
    Q_OBJECT
private slots:
    void listsPluggedInterfacesInTheOrderOfTheFile();
    void unusableInterfaceIsListedButNotUsable();
    void appendsToWhatTheCallerHas();
    void mapHasTheKeysOfTheContract();
    void mapsKeepTheOrderOfTheFile();
    void sameSeedAndTimesGiveTheSameValues();
    void valuesDoNotDependOnHowOftenOneAsks();
    void anotherSeedGivesOtherValues();
    void anAddedNetworkLeavesTheOthersAsTheyWere();
    void networkIsOnTheAirFromAndUntil();
    void joinedNetworkIsMarkedAndHasALinkRate();
    void linkRateIsLeftOutWhenTheFileHasNone();
    void joinedNetworkOffTheAirIsNotJoined();
    void rawTextsReplaceWhatTheyName();
    void addressOfAnInterface();
    void hearsAnyNumberOfNetworks_data();
    void hearsAnyNumberOfNetworks();
};

void TestSimulatedAir::listsPluggedInterfacesInTheOrderOfTheFile()
{
    const SimulatedAir air = airOf(R"({"interfaces":[{"name":"z"},{"name":"a"},{"name":"m"}]})");
    QCOMPARE(interfacesOf(air),
        (QStringList{QStringLiteral("z"), QStringLiteral("a"), QStringLiteral("m")}));
    QVERIFY(air.isUsable(a));
    QVERIFY(!air.isUsable(QStringLiteral("other")));
    QVERIFY(!air.isUsable(QString()));
}

void TestSimulatedAir::unusableInterfaceIsListedButNotUsable()
{
    const SimulatedAir air = airOf(R"({"interfaces":[{"name":"a","usable":false},{"name":"b"}]})");
    QCOMPARE(interfacesOf(air), (QStringList{a, b}));
    QVERIFY(!air.isUsable(a));
    QVERIFY(air.isUsable(b));
    QVERIFY(!hears(air, a));
    QVERIFY(hears(air, b));
    QVERIFY(hears(air));
    QVERIFY(!hears(airOf(R"({"interfaces":[{"name":"a","usable":false}]})")));
}

void TestSimulatedAir::appendsToWhatTheCallerHas()
{
    const SimulatedAir air = airWithEvents({});
    QStringList names{QStringLiteral("before")};
    QVERIFY(air.interfaces(names));
    QCOMPARE(names, (QStringList{QStringLiteral("before"), a, b}));
    QList<ScanMap> maps{ScanMap()};
    QVERIFY(air.networks(QString(), maps));
    QCOMPARE(maps.size(), 3);
    QVERIFY(maps.first().isEmpty());
}

void TestSimulatedAir::mapHasTheKeysOfTheContract()
{
    const QList<ScanMap> maps = networksOf(airWithEvents({}));
    QCOMPARE(maps.at(0),
        (ScanMap{{QStringLiteral("ssid"), QStringLiteral("Home")},
            {QStringLiteral("bssid"), homeBssid}, {QStringLiteral("channel"), QStringLiteral("44")},
            {QStringLiteral("current_connected"), QStringLiteral("1")},
            {QStringLiteral("security_mode"), QStringLiteral("WPA3-SAE")},
            {QStringLiteral("WLAN_NETWORK_SIGNAL"), QStringLiteral("-50")},
            {QStringLiteral("link_rate"), QStringLiteral("866")}}));
    QCOMPARE(maps.at(1),
        (ScanMap{{QStringLiteral("ssid"), QStringLiteral("Other")},
            {QStringLiteral("bssid"), otherBssid}, {QStringLiteral("channel"), QStringLiteral("6")},
            {QStringLiteral("current_connected"), QStringLiteral("0")},
            {QStringLiteral("security_mode"), QStringLiteral("WPA2-PSK")},
            {QStringLiteral("WLAN_NETWORK_SIGNAL"), QStringLiteral("-70")}}));
}

void TestSimulatedAir::mapsKeepTheOrderOfTheFile()
{
    const SimulatedAir air = airOf(R"({"networks":[
        {"ssid":"Z","bssid":"02:00:00:00:00:01","channel":1,"signal":-90},
        {"ssid":"A","bssid":"02:00:00:00:00:02","channel":1,"signal":-30}],
        "generate":{"count":1}})");
    QStringList names;
    const QList<ScanMap> maps = networksOf(air);
    for (const ScanMap &map : maps)
        names.append(map.value(QStringLiteral("ssid")));
    QCOMPARE(names,
        (QStringList{QStringLiteral("Z"), QStringLiteral("A"), QStringLiteral("Network 0000")}));
}

void TestSimulatedAir::sameSeedAndTimesGiveTheSameValues()
{
    SimulatedAir one = airOf(R"({"seed":5,"generate":{"count":50,"wander":9}})");
    SimulatedAir two = airOf(R"({"seed":5,"generate":{"count":50,"wander":9}})");
    for (int i = 0; i < 200; ++i) {
        one.advanceTo(i * 4.0);
        two.advanceTo(i * 4.0);
        QCOMPARE(networksOf(one), networksOf(two));
    }
}

void TestSimulatedAir::valuesDoNotDependOnHowOftenOneAsks()
{
    const QByteArray json = R"({"seed":5,"repeat":70,"generate":{"count":50,"wander":9},
        "events":[{"at":20,"do":"radio_off"},{"at":30,"do":"radio_on"}]})";
    SimulatedAir often = airOf(json);
    SimulatedAir once = airOf(json);
    for (int i = 0; i <= 1015; ++i)
        often.advanceTo(i);
    once.advanceTo(1015.0);
    QVERIFY(!networksOf(once).isEmpty());
    QCOMPARE(networksOf(often), networksOf(once));
}

void TestSimulatedAir::anotherSeedGivesOtherValues()
{
    const SimulatedAir one = airOf(R"({"seed":5,"generate":{"count":50,"wander":9}})");
    const SimulatedAir two = airOf(R"({"seed":6,"generate":{"count":50,"wander":9}})");
    QVERIFY(networksOf(one) != networksOf(two));
}

void TestSimulatedAir::anAddedNetworkLeavesTheOthersAsTheyWere()
{
    const QByteArray first = R"({"ssid":"A","bssid":"02:00:00:00:00:0a","channel":1,"wander":9})";
    const QByteArray added = R"({"ssid":"B","bssid":"02:00:00:00:00:0b","channel":1,"wander":9})";
    SimulatedAir one = airOf("{\"networks\":[" + first + "]}");
    SimulatedAir two = airOf("{\"networks\":[" + added + ',' + first + "]}");
    for (int i = 0; i < 20; ++i) {
        one.advanceTo(i * 4.0);
        two.advanceTo(i * 4.0);
        QCOMPARE(networksOf(one).at(0), networksOf(two).at(1));
    }
}

void TestSimulatedAir::networkIsOnTheAirFromAndUntil()
{
    SimulatedAir air = airOf(R"({"networks":[
        {"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,"from":10,"until":20}]})");
    QVERIFY(networksOf(air).isEmpty());
    QVERIFY(hears(air));
    air.advanceTo(9.999);
    QCOMPARE(networksOf(air).size(), 0);
    air.advanceTo(10.0);
    QCOMPARE(networksOf(air).size(), 1);
    air.advanceTo(19.999);
    QCOMPARE(networksOf(air).size(), 1);
    air.advanceTo(20.0);
    QCOMPARE(networksOf(air).size(), 0);
}

void TestSimulatedAir::joinedNetworkIsMarkedAndHasALinkRate()
{
    SimulatedAir air = airOf(R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,
        "joined":true,"link_rate":866,"wander":0,"walk":[[0,-40],[100,-90],[200,-40]]}]})");
    const auto rate = [&air] {
        return networksOf(air).first().value(QStringLiteral("link_rate")).toInt();
    };
    int last = rate();
    QCOMPARE(last, 866);
    for (int t = 4; t <= 100; t += 4) {
        air.advanceTo(t);
        QVERIFY(rate() <= last);
        last = rate();
    }
    QCOMPARE(last, 65);
    air.advanceTo(200.0);
    QCOMPARE(rate(), 866);

    ScanMap map;
    QVERIFY(air.joinedNetwork(QString(), map));
    QCOMPARE(map, networksOf(air).first());
}

void TestSimulatedAir::linkRateIsLeftOutWhenTheFileHasNone()
{
    const SimulatedAir air = airOf(
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,"joined":true}]})");
    QVERIFY(!networksOf(air).first().contains(QStringLiteral("link_rate")));
}

void TestSimulatedAir::joinedNetworkOffTheAirIsNotJoined()
{
    SimulatedAir air = airOf(R"({"networks":[
        {"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,"joined":true,"until":5}]})");
    ScanMap map;
    QVERIFY(air.joinedNetwork(QString(), map));
    air.advanceTo(5.0);
    QVERIFY(!air.joinedNetwork(QString(), map));
    QVERIFY(joinedOf(air).isEmpty());
}

void TestSimulatedAir::rawTextsReplaceWhatTheyName()
{
    const SimulatedAir air = airOf(R"({"networks":[
        {"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,"joined":true,"link_rate":54,"raw":{
            "ssid":null, "bssid":"twice", "channel":"abc", "current_connected":"true",
            "security_mode":"", "WLAN_NETWORK_SIGNAL":"-67dBm", "link_rate":"fast", "other":"x"}},
        {"ssid":"B","bssid":"02:00:00:00:00:02","channel":1,"raw":{"current_connected":"1"}}]})");
    QCOMPARE(networksOf(air).first(),
        (ScanMap{{QStringLiteral("bssid"), QStringLiteral("twice")},
            {QStringLiteral("channel"), QStringLiteral("abc")},
            {QStringLiteral("current_connected"), QStringLiteral("true")},
            {QStringLiteral("security_mode"), QString()},
            {QStringLiteral("WLAN_NETWORK_SIGNAL"), QStringLiteral("-67dBm")},
            {QStringLiteral("link_rate"), QStringLiteral("fast")},
            {QStringLiteral("other"), QStringLiteral("x")}}));
    QCOMPARE(joinedOf(air), QStringList{otherBssid});
}

void TestSimulatedAir::addressOfAnInterface()
{
    SimulatedAir air = airOf(R"({"interfaces":[{"name":"a","address":"02:0a:0b:0c:0d:0e"}],
        "events":[{"at":1,"do":"unplug"}]})");
    QString address;
    QVERIFY(air.address(a, address));
    QCOMPARE(address, QStringLiteral("02:0a:0b:0c:0d:0e"));
    QVERIFY(!air.address(b, address));
    air.advanceTo(1.0);
    QVERIFY(!air.address(a, address));
}

void TestSimulatedAir::hearsAnyNumberOfNetworks_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 15, 60, 300, 1000, 5000})
        QTest::addRow("%d", count) << count;
}

void TestSimulatedAir::hearsAnyNumberOfNetworks()
{
    QFETCH(int, count);
    const SimulatedAir air = airOf("{\"generate\":{\"count\":" + QByteArray::number(count) + "}}");
    QList<ScanMap> maps;
    QVERIFY(air.networks(QString(), maps));
    QCOMPARE(maps.size(), count);
}

QTEST_GUILESS_MAIN(TestSimulatedAir)
#include "tst_simulatedair.moc"

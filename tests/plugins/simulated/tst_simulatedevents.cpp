#include "airoftests.h"

#include <QtTest>

/// What the events of a scenario do to the air.
class TestSimulatedEvents : public QObject
{
    Q_OBJECT
private slots:
    void networkIsHeardExactlyAsTold();
    void newNetworkIsHeardFromItsEventOn();
    void networkTheScriptKnewIsHeardOtherwise();
    void orderIsAsTold();
    void attachedInterfaceComesLast();
    void startingOverForgetsWhatWasHeard();
    void radioOffAndOn();
    void radioOfOneInterfaceLeavesTheOther();
    void unplugAndPlug();
    void joinAnotherAndLeave();
    void failingInterfaceQueryStillGivesTheNames();
    void failingUsableQuery();
    void failingNetworkQuery();
    void failingAllQueries();
    void namedInterfaceMustBeUsable();
    void withoutInterfaceNothingIsHeard();
    void eventAtZeroHappensAtOnce();
    void skippedEventsHappenInOrder();
    void scriptStartsOver();
    void timeDoesNotGoBack();
    void radioSwitchedByHandLastsUntilTheNextEvent();
};

void TestSimulatedEvents::radioOffAndOn()
{
    SimulatedAir air = airWithEvents(R"({"at":10,"do":"radio_off"},{"at":20,"do":"radio_on"})");
    air.advanceTo(9.0);
    QVERIFY(hears(air) && air.isUsable(a) && air.isUsable(b));
    air.advanceTo(10.0);
    QCOMPARE(interfacesOf(air), (QStringList{a, b}));
    QVERIFY(!air.isUsable(a) && !air.isUsable(b));
    QVERIFY(!hears(air) && !hears(air, a));
    QVERIFY(networksOf(air).isEmpty());
    ScanMap map;
    QVERIFY(!air.joinedNetwork(QString(), map));
    air.advanceTo(20.0);
    QVERIFY(hears(air) && air.isUsable(a) && air.isUsable(b));
    QCOMPARE(joinedOf(air), QStringList{homeBssid});
}

void TestSimulatedEvents::radioOfOneInterfaceLeavesTheOther()
{
    SimulatedAir air = airWithEvents(R"({"at":10,"do":"radio_off","interface":"a"})");
    air.advanceTo(10.0);
    QVERIFY(!air.isUsable(a) && air.isUsable(b));
    QVERIFY(!hears(air, a) && hears(air, b) && hears(air));
}

void TestSimulatedEvents::unplugAndPlug()
{
    SimulatedAir air = airWithEvents(R"({"at":10,"do":"unplug","interface":"b"},
        {"at":20,"do":"unplug"},{"at":30,"do":"plug","interface":"b"},{"at":40,"do":"plug"})");
    air.advanceTo(10.0);
    QCOMPARE(interfacesOf(air), QStringList{a});
    QVERIFY(air.isUsable(a) && !air.isUsable(b) && !hears(air, b) && hears(air));
    air.advanceTo(20.0);
    QVERIFY(interfacesOf(air).isEmpty());
    QVERIFY(!air.isUsable(a) && !hears(air));
    air.advanceTo(30.0);
    QCOMPARE(interfacesOf(air), QStringList{b});
    QVERIFY(hears(air));
    air.advanceTo(40.0);
    QCOMPARE(interfacesOf(air), (QStringList{a, b}));
}

void TestSimulatedEvents::joinAnotherAndLeave()
{
    SimulatedAir air = airWithEvents(
        R"({"at":10,"do":"join","bssid":"02:00:00:00:00:02"},{"at":20,"do":"leave"})");
    QCOMPARE(joinedOf(air), QStringList{homeBssid});
    air.advanceTo(10.0);
    QCOMPARE(joinedOf(air), QStringList{otherBssid});
    ScanMap map;
    QVERIFY(air.joinedNetwork(a, map));
    QCOMPARE(map.value(QStringLiteral("bssid")), otherBssid);
    air.advanceTo(20.0);
    QVERIFY(joinedOf(air).isEmpty());
    QVERIFY(!air.joinedNetwork(a, map));
}

void TestSimulatedEvents::failingInterfaceQueryStillGivesTheNames()
{
    SimulatedAir air = airWithEvents(R"({"at":10,"do":"fail","query":"interfaces"},
        {"at":20,"do":"recover","query":"interfaces"})");
    air.advanceTo(10.0);
    QStringList names;
    QVERIFY(!air.interfaces(names));
    QCOMPARE(names, (QStringList{a, b}));
    QVERIFY(air.isUsable(a) && hears(air));
    air.advanceTo(20.0);
    QVERIFY(air.interfaces(names));
}

void TestSimulatedEvents::failingUsableQuery()
{
    SimulatedAir air = airWithEvents(
        R"({"at":10,"do":"fail","query":"usable"},{"at":20,"do":"recover","query":"usable"})");
    air.advanceTo(10.0);
    QStringList names;
    QVERIFY(!air.isUsable(a) && air.interfaces(names) && hears(air) && hears(air, a));
    air.advanceTo(20.0);
    QVERIFY(air.isUsable(a));
}

void TestSimulatedEvents::failingNetworkQuery()
{
    SimulatedAir air = airWithEvents(
        R"({"at":10,"do":"fail","query":"networks"},{"at":20,"do":"recover","query":"networks"})");
    air.advanceTo(10.0);
    QStringList names;
    QVERIFY(air.isUsable(a) && air.interfaces(names) && !hears(air) && !hears(air, a));
    QVERIFY(networksOf(air).isEmpty());
    air.advanceTo(20.0);
    QVERIFY(hears(air));
}

void TestSimulatedEvents::failingAllQueries()
{
    SimulatedAir air = airWithEvents(R"({"at":10,"do":"fail"},{"at":20,"do":"recover"})");
    air.advanceTo(10.0);
    QStringList names;
    QVERIFY(!air.isUsable(a) && !air.interfaces(names) && !hears(air));
    air.advanceTo(20.0);
    QVERIFY(air.isUsable(a) && air.interfaces(names) && hears(air));
}

void TestSimulatedEvents::namedInterfaceMustBeUsable()
{
    const SimulatedAir air = airWithEvents({});
    QVERIFY(hears(air, a));
    QVERIFY(hears(air, b));
    QVERIFY(!hears(air, QStringLiteral("c")));
}

void TestSimulatedEvents::withoutInterfaceNothingIsHeard()
{
    const SimulatedAir air = airOf(R"({"interfaces":[],"generate":{"count":3}})");
    QStringList names;
    QVERIFY(air.interfaces(names));
    QVERIFY(names.isEmpty());
    QVERIFY(!hears(air));
}

void TestSimulatedEvents::eventAtZeroHappensAtOnce()
{
    QVERIFY(!hears(airWithEvents(R"({"at":0,"do":"radio_off"})")));
}

void TestSimulatedEvents::skippedEventsHappenInOrder()
{
    SimulatedAir air = airWithEvents(R"({"at":2,"do":"radio_on"},{"at":1,"do":"radio_off"},
        {"at":3,"do":"unplug","interface":"a"})");
    air.advanceTo(100.0);
    QCOMPARE(interfacesOf(air), QStringList{b});
    QVERIFY(air.isUsable(b));
}

void TestSimulatedEvents::scriptStartsOver()
{
    SimulatedAir air = airOf(R"({"repeat":60,"networks":[)" + home +
                             R"(,{"ssid":"Late","bssid":"02:00:00:00:00:02","channel":6,"from":30}],
        "events":[{"at":10,"do":"leave"},{"at":40,"do":"radio_off"}]})");
    for (const double start : {0.0, 60.0, 120.0, 6000.0}) {
        air.advanceTo(start);
        QCOMPARE(networksOf(air).size(), 1);
        QCOMPARE(joinedOf(air), QStringList{homeBssid});
        air.advanceTo(start + 10.0);
        QVERIFY(joinedOf(air).isEmpty());
        air.advanceTo(start + 30.0);
        QCOMPARE(networksOf(air).size(), 2);
        air.advanceTo(start + 40.0);
        QVERIFY(!hears(air));
    }
}

void TestSimulatedEvents::timeDoesNotGoBack()
{
    SimulatedAir air = airOf(R"({"generate":{"count":9,"wander":30,"until":50},
        "events":[{"at":100,"do":"radio_off"}]})");
    air.advanceTo(40.0);
    const QList<ScanMap> before = networksOf(air);
    QCOMPARE(before.size(), 9);
    for (const double earlier : {0.0, 20.0, -5.0}) {
        air.advanceTo(earlier);
        QCOMPARE(networksOf(air), before);
    }
    air.advanceTo(60.0);
    air.advanceTo(40.0);
    QCOMPARE(networksOf(air).size(), 0);
    air.advanceTo(100.0);
    air.advanceTo(0.0);
    QVERIFY(!hears(air));
}

void TestSimulatedEvents::radioSwitchedByHandLastsUntilTheNextEvent()
{
    SimulatedAir air = airWithEvents(R"({"at":10,"do":"leave"},{"at":20,"do":"radio_on"})");
    QVERIFY(!air.setRadio(QStringLiteral("c"), false));
    QVERIFY(air.setRadio(a, false));
    QVERIFY(!air.isUsable(a) && air.isUsable(b));
    air.advanceTo(10.0);
    QVERIFY(!air.isUsable(a));
    air.advanceTo(20.0);
    QVERIFY(air.isUsable(a));
    QVERIFY(air.setRadio(a, false) && air.setRadio(a, true));
    QVERIFY(air.isUsable(a));
}

void TestSimulatedEvents::networkIsHeardExactlyAsTold()
{
    SimulatedAir air = airOf(R"({"events": [
        {"at": 0, "do": "hear", "bssid": "02:00:00:00:00:07", "ssid": "Cafe", "channel": 6005,
         "security": "Open", "signal": -41},
        {"at": 2, "do": "hear", "bssid": "02:00:00:00:00:07", "signal": -47},
        {"at": 3, "do": "hear", "bssid": "02:00:00:00:00:07", "ssid": "Bar",
         "raw": {"channel": "x", "link_rate": "6", "security_mode": null}},
        {"at": 4, "do": "hear", "bssid": "02:00:00:00:00:07", "raw": {}}]})");
    ScanMap expected{{ScanKey::Ssid, QStringLiteral("Cafe")},
        {ScanKey::Bssid, QStringLiteral("02:00:00:00:00:07")},
        {ScanKey::Channel, QStringLiteral("6005")}, {ScanKey::Connected, QStringLiteral("0")},
        {ScanKey::Security, QStringLiteral("Open")}, {ScanKey::Signal, QStringLiteral("-41")}};
    QCOMPARE(networksOf(air), QList<ScanMap>{expected});
    air.advanceTo(1.999);
    QCOMPARE(networksOf(air), QList<ScanMap>{expected});
    air.advanceTo(2);
    expected[ScanKey::Signal] = QStringLiteral("-47");
    QCOMPARE(networksOf(air), QList<ScanMap>{expected});
    air.advanceTo(3);
    ScanMap odd = expected;
    odd[ScanKey::Ssid] = QStringLiteral("Bar");
    odd[ScanKey::Channel] = QStringLiteral("x");
    odd[ScanKey::LinkRate] = QStringLiteral("6");
    odd.remove(ScanKey::Security);
    QCOMPARE(networksOf(air), QList<ScanMap>{odd});
    air.advanceTo(4);
    expected[ScanKey::Ssid] = QStringLiteral("Bar");
    QCOMPARE(networksOf(air), QList<ScanMap>{expected});
}

void TestSimulatedEvents::newNetworkIsHeardFromItsEventOn()
{
    SimulatedAir air = airOf(R"({"events": [
        {"at": 5, "do": "hear", "bssid": "02:00:00:00:00:07", "ssid": "Cafe", "channel": 1},
        {"at": 6, "do": "join", "bssid": "02:00:00:00:00:07"},
        {"at": 8, "do": "lose", "bssid": "02:00:00:00:00:07"},
        {"at": 9, "do": "hear", "bssid": "02:00:00:00:00:07"}]})");
    for (const QPair<double, int> &step :
        {QPair<double, int>{0, 0}, {4.9, 0}, {5, 1}, {8, 0}, {9, 1}, {1000, 1}}) {
        air.advanceTo(step.first);
        QCOMPARE(networksOf(air).size(), step.second);
    }
    QCOMPARE(joinedOf(air), QStringList(QStringLiteral("02:00:00:00:00:07")));
}

void TestSimulatedEvents::networkTheScriptKnewIsHeardOtherwise()
{
    SimulatedAir air = airOf("{\"networks\": [" + home + R"(], "events": [
        {"at": 1, "do": "hear", "bssid": "02:00:00:00:00:01", "channel": 36},
        {"at": 2, "do": "lose", "bssid": "02:00:00:00:00:01"}]})");
    air.advanceTo(1);
    const ScanMap map = networksOf(air).value(0);
    QCOMPARE(map.value(ScanKey::Channel), QStringLiteral("36"));
    QCOMPARE(map.value(ScanKey::Signal), QStringLiteral("-50"));
    QCOMPARE(map.value(ScanKey::Security), QStringLiteral("WPA3-SAE"));
    air.advanceTo(2);
    QCOMPARE(networksOf(air).size(), 0);
}

void TestSimulatedEvents::orderIsAsTold()
{
    SimulatedAir air = airWithEvents(R"(
        {"at": 1, "do": "order", "networks": ["02:00:00:00:00:02"], "interfaces": ["b", "a"]},
        {"at": 2, "do": "order", "interfaces": ["a"]})");
    const auto first = [&air] { return networksOf(air).value(0).value(ScanKey::Bssid); };
    QCOMPARE(first(), homeBssid);
    air.advanceTo(1);
    QCOMPARE(first(), otherBssid);
    QCOMPARE(networksOf(air).size(), 2);
    QCOMPARE(interfacesOf(air), (QStringList{b, a}));
    air.advanceTo(2);
    QCOMPARE(first(), otherBssid);
    QCOMPARE(interfacesOf(air), (QStringList{a, b}));
}

void TestSimulatedEvents::attachedInterfaceComesLast()
{
    SimulatedAir air = airOf(R"({"interfaces": [], "events": [
        {"at": 1, "do": "attach", "interface": "b"}, {"at": 2, "do": "attach", "interface": "a"},
        {"at": 3, "do": "unplug", "interface": "b"}]})");
    QCOMPARE(interfacesOf(air), QStringList());
    QVERIFY(!hears(air));
    air.advanceTo(1);
    QCOMPARE(interfacesOf(air), QStringList(b));
    QVERIFY(hears(air));
    air.advanceTo(2);
    QCOMPARE(interfacesOf(air), (QStringList{b, a}));
    air.advanceTo(3);
    QCOMPARE(interfacesOf(air), QStringList(a));
}

void TestSimulatedEvents::startingOverForgetsWhatWasHeard()
{
    SimulatedAir air = airOf("{\"repeat\": 10, \"networks\": [" + home + R"(], "events": [
        {"at": 2, "do": "hear", "bssid": "02:00:00:00:00:07", "ssid": "Cafe", "channel": 1},
        {"at": 2, "do": "attach", "interface": "b"},
        {"at": 3, "do": "hear", "bssid": "02:00:00:00:00:01", "ssid": "Bar"},
        {"at": 4, "do": "order", "networks": ["02:00:00:00:00:07"]}]})");
    const QList<ScanMap> before = networksOf(air);
    air.advanceTo(9);
    QCOMPARE(networksOf(air).size(), 2);
    QCOMPARE(interfacesOf(air).size(), 2);
    air.advanceTo(10);
    QCOMPARE(networksOf(air), before);
    QCOMPARE(interfacesOf(air).size(), 1);
}

QTEST_GUILESS_MAIN(TestSimulatedEvents)
#include "tst_simulatedevents.moc"

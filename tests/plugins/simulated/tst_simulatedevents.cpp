#include "airoftests.h"

#include <QtTest>

/// What the events of a scenario do to the air.
class TestSimulatedEvents : public QObject
{
    Q_OBJECT
private slots:
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

QTEST_GUILESS_MAIN(TestSimulatedEvents)
#include "tst_simulatedevents.moc"

#include "fullscenario.h"

#include "simulated/scenarioparser.h"

#include <QtTest>

#include <cmath>

class TestScenarioParser : public QObject
{
    Q_OBJECT
private slots:
    void emptyObjectGivesOneInterfaceAndNoNetwork();
    void readsEveryFieldOfTheScenario();
    void readsEveryFieldOfAnInterface();
    void readsEveryFieldOfANetwork();
    void networkNeedsOnlyNameAddressAndChannel();
    void readsEveryEvent();
    void eventsAreSortedByTimeAndKeepTheirOrderWithin();
    void addressesAreEqualWhateverTheirCase();
    void generatesAsManyNetworksAsAsked_data();
    void generatesAsManyNetworksAsAsked();
    void generatedBlocksFollowTheNetworksOfTheFile();
    void commentsAreIgnoredEverywhere();
    void namesAreTakenAsTheyStand_data();
    void namesAreTakenAsTheyStand();
    void byteOrderMarkIsNoMistake();
};

namespace
{
ScenarioResult parseNetwork(const QByteArray &fields)
{
    return ParseScenario(
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":1)" + fields + "}]}");
}
} // namespace

void TestScenarioParser::emptyObjectGivesOneInterfaceAndNoNetwork()
{
    const ScenarioResult result = ParseScenario("{}");
    QVERIFY(!result.error.isSet());
    QCOMPARE(result.scenario.seed, quint64(1));
    QCOMPARE(result.scenario.timeScale, 1.0);
    QCOMPARE(result.scenario.repeat, 0.0);
    QCOMPARE(result.scenario.interfaces.size(), 1);
    QCOMPARE(result.scenario.interfaces.first().name, QStringLiteral("sim0"));
    QVERIFY(result.scenario.interfaces.first().usable);
    QVERIFY(result.scenario.networks.isEmpty());
    QVERIFY(result.scenario.events.isEmpty());
    QCOMPARE(result.scenario.joined, -1);
}

void TestScenarioParser::readsEveryFieldOfTheScenario()
{
    const ScenarioResult result = ParseScenario(fullFile);
    QCOMPARE(result.error.text, QString());
    QCOMPARE(result.scenario.seed, quint64(42));
    QCOMPARE(result.scenario.timeScale, 60.0);
    QCOMPARE(result.scenario.repeat, 120.5);
    QCOMPARE(result.scenario.interfaces.size(), 3);
    QCOMPARE(result.scenario.networks.size(), 5);
    QCOMPARE(result.scenario.events.size(), 6);
    QCOMPARE(result.scenario.joined, 0);
}

void TestScenarioParser::readsEveryFieldOfAnInterface()
{
    const Scenario scenario = ParseScenario(fullFile).scenario;
    QCOMPARE(scenario.interfaces.at(0).name, QStringLiteral("wlan0"));
    QCOMPARE(scenario.interfaces.at(0).usable, false);
    QCOMPARE(scenario.interfaces.at(0).address, QStringLiteral("02:00:00:00:00:aa"));
    QCOMPARE(scenario.interfaces.at(1).usable, true);
    QCOMPARE(scenario.interfaces.at(1).address, QStringLiteral("02:00:00:00:00:02"));
    QVERIFY(ParseScenario(R"({"interfaces":[]})").scenario.interfaces.isEmpty());
}

void TestScenarioParser::readsEveryFieldOfANetwork()
{
    const ScenarioNetwork network = ParseScenario(fullFile).scenario.networks.at(0);
    QCOMPARE(network.ssid, QStringLiteral("Home"));
    QCOMPARE(network.bssid, QStringLiteral("02:00:00:00:01:01"));
    QCOMPARE(network.channel, 44);
    QCOMPARE(network.security, QStringLiteral("WPA3-SAE"));
    QCOMPARE(network.wander, 1.5);
    QCOMPARE(network.linkRate, 866);
    QCOMPARE(network.from, 5.0);
    QCOMPARE(network.until, 60.0);
    QCOMPARE(network.walk.size(), 3);
    QCOMPARE(network.walk.at(1).seconds, 10.5);
    QCOMPARE(network.walk.at(1).dbm, -70.0);
    QCOMPARE(network.raw, (QMap<QString, QString>{{QStringLiteral("channel"), QStringLiteral("x")},
                              {QStringLiteral("extra"), QString()}}));
    QCOMPARE(network.missing, QStringList{QStringLiteral("ssid")});
}

void TestScenarioParser::networkNeedsOnlyNameAddressAndChannel()
{
    const ScenarioResult result = parseNetwork({});
    QCOMPARE(result.error.text, QString());
    const ScenarioNetwork &network = result.scenario.networks.first();
    QCOMPARE(network.security, QStringLiteral("WPA2-PSK"));
    QCOMPARE(network.signal, -60.0);
    QCOMPARE(network.wander, 2.0);
    QCOMPARE(network.linkRate, 0);
    QVERIFY(network.walk.isEmpty());
    QVERIFY(network.isOnAir(0.0));
    QVERIFY(network.isOnAir(1e12));
    QCOMPARE(parseNetwork(R"(,"signal":-71.5)").scenario.networks.first().signal, -71.5);
}

void TestScenarioParser::readsEveryEvent()
{
    using Action = ScenarioEvent::Action;
    using Query = ScenarioEvent::Query;
    const ScenarioResult result = ParseScenario(R"({
        "interfaces": [ { "name": "a" }, { "name": "b" } ],
        "networks": [ { "ssid": "A", "bssid": "02:00:00:00:00:01", "channel": 1 },
                      { "ssid": "B", "bssid": "02:00:00:00:00:02", "channel": 1 } ],
        "events": [
            { "at": 1, "do": "radio_off" }, { "at": 2, "do": "radio_on", "interface": "b" },
            { "at": 3, "do": "unplug", "interface": "a" }, { "at": 4, "do": "plug" },
            { "at": 5, "do": "join", "bssid": "02:00:00:00:00:02" }, { "at": 6, "do": "leave" },
            { "at": 7, "do": "fail" }, { "at": 8, "do": "fail", "query": "all" },
            { "at": 9, "do": "fail", "query": "interfaces" },
            { "at": 10, "do": "recover", "query": "usable" },
            { "at": 11, "do": "recover", "query": "networks" } ] })");
    QCOMPARE(result.error.text, QString());
    const QVector<ScenarioEvent> &events = result.scenario.events;
    QCOMPARE(events.size(), 11);
    const QVector<Action> actions{Action::RadioOff, Action::RadioOn, Action::Unplug, Action::Plug,
        Action::Join, Action::Leave, Action::Fail, Action::Fail, Action::Fail, Action::Recover,
        Action::Recover};
    const QVector<int> interfaces{-1, 1, 0, -1, -1, -1, -1, -1, -1, -1, -1};
    const QVector<Query> queries{Query::All, Query::All, Query::All, Query::All, Query::All,
        Query::All, Query::All, Query::All, Query::Interfaces, Query::Usable, Query::Networks};
    for (int i = 0; i < events.size(); ++i) {
        QCOMPARE(events.at(i).at, i + 1.0);
        QCOMPARE(events.at(i).action, actions.at(i));
        QCOMPARE(events.at(i).interface, interfaces.at(i));
        QCOMPARE(events.at(i).query, queries.at(i));
        QCOMPARE(events.at(i).network, i == 4 ? 1 : -1);
    }
}

void TestScenarioParser::eventsAreSortedByTimeAndKeepTheirOrderWithin()
{
    using Action = ScenarioEvent::Action;
    const QVector<ScenarioEvent> events = ParseScenario(R"({"events": [
        { "at": 5, "do": "radio_on" }, { "at": 1, "do": "unplug" }, { "at": 5, "do": "fail" },
        { "at": 0, "do": "leave" }, { "at": 5, "do": "radio_off" } ] })")
                                              .scenario.events;
    QVector<Action> actions;
    for (const ScenarioEvent &event : events)
        actions.append(event.action);
    QCOMPARE(actions, (QVector<Action>{Action::Leave, Action::Unplug, Action::RadioOn, Action::Fail,
                          Action::RadioOff}));

    // Few events stay in order by chance.
    QByteArray list;
    for (int i = 0; i < 100; ++i)
        list += i % 2 == 0 ? R"({"at":5,"do":"fail"},)" : R"({"at":5,"do":"recover"},)";
    const QVector<ScenarioEvent> many =
        ParseScenario("{\"events\":[" + list + R"({"at":1,"do":"leave"}]})").scenario.events;
    QCOMPARE(many.size(), 101);
    for (int i = 1; i < many.size(); ++i)
        QCOMPARE(many.at(i).action, i % 2 == 1 ? Action::Fail : Action::Recover);
}

void TestScenarioParser::addressesAreEqualWhateverTheirCase()
{
    const ScenarioResult result = ParseScenario(R"({
        "networks": [ { "ssid": "A", "bssid": "02:00:00:00:00:aB", "channel": 1 } ],
        "events": [ { "at": 1, "do": "join", "bssid": "02:00:00:00:00:Ab" } ] })");
    QCOMPARE(result.error.text, QString());
    QCOMPARE(result.scenario.networks.first().bssid, QStringLiteral("02:00:00:00:00:aB"));
    QCOMPARE(result.scenario.events.first().network, 0);
}

void TestScenarioParser::generatesAsManyNetworksAsAsked_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 15, 60, 300, 1000, 5000, 10000})
        QTest::addRow("%d", count) << count;
}

void TestScenarioParser::generatesAsManyNetworksAsAsked()
{
    QFETCH(int, count);
    const ScenarioResult result =
        ParseScenario("{\"generate\":{\"count\":" + QByteArray::number(count) + "}}");
    QCOMPARE(result.error.text, QString());
    QCOMPARE(result.scenario.networks.size(), count);
    QSet<QString> names;
    QSet<QString> addresses;
    for (const ScenarioNetwork &network : result.scenario.networks) {
        names.insert(network.ssid);
        addresses.insert(network.bssid);
        QVERIFY(network.signal >= -90.0 && network.signal <= -40.0);
        QVERIFY(network.channel >= 1 && network.channel <= 161);
    }
    QCOMPARE(names.size(), count);
    QCOMPARE(addresses.size(), count);
    if (count > 0)
        QCOMPARE(result.scenario.networks.first().ssid, QStringLiteral("Network 0000"));
}

void TestScenarioParser::generatedBlocksFollowTheNetworksOfTheFile()
{
    const ScenarioResult result = ParseScenario(R"({
        "generate": [ { "count": 2, "prefix": "Day ", "security": "Open", "wander": 7 },
                      { "count": 1, "prefix": "Night ", "from": 10, "until": 20 } ],
        "networks": [ { "ssid": "First", "bssid": "02:00:00:00:00:01", "channel": 1 } ] })");
    QCOMPARE(result.error.text, QString());
    QStringList names;
    for (const ScenarioNetwork &network : result.scenario.networks)
        names.append(network.ssid);
    QCOMPARE(names, (QStringList{QStringLiteral("First"), QStringLiteral("Day 0000"),
                        QStringLiteral("Day 0001"), QStringLiteral("Night 0000")}));
    QCOMPARE(result.scenario.networks.at(1).security, QStringLiteral("Open"));
    QCOMPARE(result.scenario.networks.at(1).wander, 7.0);
    QCOMPARE(result.scenario.networks.at(1).bssid, QStringLiteral("06:00:00:00:00:01"));
    QCOMPARE(result.scenario.networks.at(3).from, 10.0);
    QCOMPARE(result.scenario.networks.at(3).until, 20.0);
}

void TestScenarioParser::commentsAreIgnoredEverywhere()
{
    const ScenarioResult result = ParseScenario(R"({ "comment": "c",
        "interfaces": [ { "name": "a", "comment": 1 } ],
        "networks": [ { "ssid": "A", "bssid": "02:00:00:00:00:01", "channel": 1, "comment": [] } ],
        "generate": { "count": 1, "comment": null },
        "events": [ { "at": 1, "do": "leave", "comment": {} } ] })");
    QCOMPARE(result.error.text, QString());
}

void TestScenarioParser::namesAreTakenAsTheyStand_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("ssid");
    QTest::newRow("hidden") << QByteArray("") << QString();
    QTest::newRow("markup") << QByteArray("<img src=x>%1 %n") << QStringLiteral("<img src=x>%1 %n");
    QTest::newRow("emoji") << QByteArray("\xf0\x9f\x8c\xae")
                           << QString::fromUtf8("\xf0\x9f\x8c\xae");
    QTest::newRow("escaped emoji")
        << QByteArray("\\ud83c\\udf2e") << QString::fromUtf8("\xf0\x9f\x8c\xae");
    QTest::newRow("control characters")
        << QByteArray("\\u0000\\n\\u202e") << QString(QChar(0)) + QChar(u'\n') + QChar(0x202e);
    QTest::newRow("long") << QByteArray(100000, 'x') << QString(100000, QLatin1Char('x'));
}

void TestScenarioParser::namesAreTakenAsTheyStand()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, ssid);
    const ScenarioResult result =
        ParseScenario("{\"networks\":[{\"ssid\":\"" + json +
                      "\",\"bssid\":\"02:00:00:00:00:01\",\"channel\":1}]}");
    QCOMPARE(result.error.text, QString());
    QCOMPARE(result.scenario.networks.first().ssid, ssid);
}

void TestScenarioParser::byteOrderMarkIsNoMistake()
{
    QCOMPARE(ParseScenario("\xef\xbb\xbf{\"seed\":7}").scenario.seed, quint64(7));
}

QTEST_GUILESS_MAIN(TestScenarioParser)
#include "tst_scenarioparser.moc"

#include "fullscenario.h"

#include "simulated/scenarioparser.h"

#include <QtTest>

/// Scenario files that are wrong: what is said about them, and that nothing breaks.
class TestScenarioMistakes : public QObject
{
    Q_OBJECT
private slots:
    void mistakesAreNamedWithTheirPlace_data();
    void mistakesAreNamedWithTheirPlace();
    void mistakesAreNamedWithTheirLine_data();
    void mistakesAreNamedWithTheirLine();
    void tooLargeFileIsRefused();
    void deepNestingIsRefused();
    void tooManyEntriesAreRefused_data();
    void tooManyEntriesAreRefused();
    void everyTruncationIsAnError();
    void everyChangedByteIsSurvived();
};

void TestScenarioMistakes::mistakesAreNamedWithTheirPlace_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QByteArray &json, const char *field,
                         const char *text) {
        QTest::newRow(name) << json << QString::fromUtf8(field) << QString::fromUtf8(text);
    };
    const auto network = [&row](const char *name, const char *fields, const char *field,
                             const char *text) {
        row(name,
            QByteArray(R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,)") +
                fields + "}]}",
            field, text);
    };
    const auto event = [&row](const char *name, const char *fields, const char *field,
                           const char *text) {
        row(name, QByteArray(R"({"events":[{)") + fields + "}]}", field, text);
    };

    row("empty file", "", "", "is not JSON: illegal value in line 1");
    row("no JSON", "{\n\"seed\": 1,\n}", "",
        "is not JSON: object is missing after a comma in line 3");
    row("invalid UTF-8", "{\"seed\": \"\xff\"}", "", "is not JSON: invalid UTF8 string in line 1");
    row("a list", "[]", "", "must hold an object: { ... }");
    row("duplicate key", "{\"seed\":1,\n\"seed\":2}", "seed",
        "stands twice in one object; the second is in line 2");
    row("unknown key", R"({"sed":1})", "sed",
        "unknown; known here are seed, time_scale, repeat, interfaces, networks, generate, events");

    row("seed of the wrong type", R"({"seed":"1"})", "seed",
        "must be a whole number from 0 to 9007199254740992, not \"1\"");
    row("broken seed", R"({"seed":1.5})", "seed",
        "must be a whole number from 0 to 9007199254740992, not 1.5");
    row("negative seed", R"({"seed":-1})", "seed",
        "must be a whole number from 0 to 9007199254740992, not -1");
    row("time scale of nothing", R"({"time_scale":0})", "time_scale",
        "must be a number from 0.001 to 100000, not 0");
    row("time scale null", R"({"time_scale":null})", "time_scale",
        "must be a number from 0.001 to 100000, not null");
    row("repeat too short", R"({"repeat":0})", "repeat",
        "must be a number from 1 to 1000000000, not 0");

    row("interfaces no list", R"({"interfaces":"wlan0"})", "interfaces",
        "must be a list, not \"wlan0\"");
    row("interface no object", R"({"interfaces":["wlan0"]})", "interfaces[0]",
        "must be an object, not \"wlan0\"");
    row("interface key", R"({"interfaces":[{"name":"a","mac":"b"}]})", "interfaces[0].mac",
        "unknown; known here are name, usable, address");
    row("interface without name", R"({"interfaces":[{"name":"a"},{}]})", "interfaces[1].name",
        "is missing");
    row("interface with an empty name", R"({"interfaces":[{"name":""}]})", "interfaces[0].name",
        "must not be empty");
    row("interface name a number", R"({"interfaces":[{"name":7}]})", "interfaces[0].name",
        "must be a text, not 7");
    row("two interfaces of a name", R"({"interfaces":[{"name":"a"},{"name":"a"}]})",
        "interfaces[1].name", "\"a\" is the name of two interfaces");
    row("usable as text", R"({"interfaces":[{"name":"a","usable":"yes"}]})", "interfaces[0].usable",
        "must be true or false, not \"yes\"");
    row("interface address", R"({"interfaces":[{"name":"a","address":"02-00"}]})",
        "interfaces[0].address", "must look like \"02:00:00:12:34:56\", not \"02-00\"");

    row("networks no list", R"({"networks":{}})", "networks", "must be a list, not an object");
    row("network no object", R"({"networks":[[]]})", "networks[0]",
        "must be an object, not a list");
    row("ssid missing", R"({"networks":[{"bssid":"02:00:00:00:00:01","channel":1}]})",
        "networks[0].ssid", "is missing");
    row("bssid missing", R"({"networks":[{"ssid":"A","channel":1}]})", "networks[0].bssid",
        "is missing");
    row("channel missing", R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01"}]})",
        "networks[0].channel", "is missing");
    row("bssid no address", R"({"networks":[{"ssid":"A","bssid":"here","channel":1}]})",
        "networks[0].bssid", "must look like \"02:00:00:12:34:56\", not \"here\"");
    row("channel as text",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":"6"}]})",
        "networks[0].channel", "must be a whole number from 1 to 233, not \"6\"");
    row("channel out of range",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":234}]})",
        "networks[0].channel", "must be a whole number from 1 to 233, not 234");
    row("channel above those of 6 GHz",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":6234}]})",
        "networks[0].channel", "must be a whole number from 6001 to 6233, not 6234");
    row("channel below those of 6 GHz",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":6000}]})",
        "networks[0].channel", "must be a whole number from 1 to 233, not 6000");
    row("channel between two of 6 GHz",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":6001.5}]})",
        "networks[0].channel", "must be a whole number from 6001 to 6233, not 6001.5");
    row("bssid twice",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:0a","channel":1},
                        {"ssid":"B","bssid":"02:00:00:00:00:0A","channel":1}]})",
        "networks[1].bssid", "\"02:00:00:00:00:0A\" is the address of two networks");
    row("joined twice",
        R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,"joined":true},
                        {"ssid":"B","bssid":"02:00:00:00:00:02","channel":1,"joined":true}]})",
        "networks[1].joined", "networks[0] is joined already");
    network("network key", R"("chanel":1)", "networks[0].chanel",
        "unknown; known here are ssid, bssid, channel, security, signal, wander, walk, joined, "
        "link_rate, from, until, raw");
    network(
        "security a number", R"("security":3)", "networks[0].security", "must be a text, not 3");
    network("signal positive", R"("signal":5)", "networks[0].signal",
        "must be a number from -100 to 0, not 5");
    network("signal too low", R"("signal":-100.5)", "networks[0].signal",
        "must be a number from -100 to 0, not -100.5");
    network("signal with unit", R"("signal":"-67dBm")", "networks[0].signal",
        "must be a number from -100 to 0, not \"-67dBm\"");
    network("negative wander", R"("wander":-1)", "networks[0].wander",
        "must be a number from 0 to 50, not -1");
    network(
        "joined as number", R"("joined":1)", "networks[0].joined", "must be true or false, not 1");
    network("link rate of nothing", R"("link_rate":0)", "networks[0].link_rate",
        "must be a whole number from 1 to 100000, not 0");
    network("from negative", R"("from":-1)", "networks[0].from",
        "must be a number from 0 to 1000000000, not -1");
    network("until before from", R"("from":10,"until":10)", "networks[0].until",
        "must be later than \"from\"");
    network(
        "until at the start", R"("until":0)", "networks[0].until", "must be later than \"from\"");
    network("raw no object", R"("raw":"x")", "networks[0].raw", "must be an object, not \"x\"");
    network("raw number", R"("raw":{"channel":7})", "networks[0].raw.channel",
        "must be a text, or null to leave the key out, not 7");
    network("walk no list", R"("walk":1)", "networks[0].walk", "must be a list, not 1");
    network("walk beside signal", R"("signal":-50,"walk":[[0,-50],[1,-50]])", "networks[0].walk",
        "cannot stand beside \"signal\": it takes its place");
    network("walk of one point", R"("walk":[[0,-50]])", "networks[0].walk",
        "must have 2 to 1000 points, not 1");
    network("walk point no pair", R"("walk":[[0,-50],[1]])", "networks[0].walk[1]",
        "must be a list of two numbers: [seconds, dBm]");
    network("walk point of texts", R"("walk":[["0","-50"],[1,-50]])", "networks[0].walk[0]",
        "must be a list of two numbers: [seconds, dBm]");
    network("walk begins late", R"("walk":[[1,-50],[2,-50]])", "networks[0].walk[0]",
        "must be at 0 seconds, where every walk begins");
    network("walk goes back", R"("walk":[[0,-50],[2,-50],[2,-60]])", "networks[0].walk[2]",
        "must be later than the point before it");
    network(
        "walk without end", R"("walk":[[0,-50],[1e10,-50]])", "networks[0].walk[1]", "is too late");
    network("walk too loud", R"("walk":[[0,-50],[1,1]])", "networks[0].walk[1]",
        "must have a signal from -100 to 0 dBm");
    row("from after the end",
        R"({"repeat":60,"networks":[
            {"ssid":"A","bssid":"02:00:00:00:00:01","channel":1,"from":60}]})",
        "networks[0].from", "never comes: the script starts over after 60 seconds");

    row("generate of the wrong type", R"({"generate":5})", "generate", "must be an object, not 5");
    row("generate key", R"({"generate":[{"count":1},{"number":1}]})", "generate[1].number",
        "unknown; known here are count, prefix, security, wander, from, until");
    row("generate without count", R"({"generate":{}})", "generate.count", "is missing");
    row("generate too many", R"({"generate":{"count":10001}})", "generate.count",
        "must be a whole number from 0 to 10000, not 10001");
    row("generate too many in all", R"({"generate":[{"count":9999},{"count":2}]})", "generate[1]",
        "is one network too many: 10000 is the most");
    row("generate prefix", R"({"generate":{"count":1,"prefix":1}})", "generate.prefix",
        "must be a text, not 1");

    row("events no list", R"({"events":1})", "events", "must be a list, not 1");
    row("event no object", R"({"events":[1]})", "events[0]", "must be an object, not 1");
    event("event key", R"("at":1,"do":"leave","when":1)", "events[0].when",
        "unknown; known here are at, do, interface, bssid, query, ssid, channel, security, signal, "
        "raw, interfaces, networks");
    event("event without time", R"("do":"leave")", "events[0].at", "is missing");
    event("event without action", R"("at":1)", "events[0].do", "is missing");
    event("event action", R"("at":1,"do":"explode")", "events[0].do",
        "must be one of radio_off, radio_on, unplug, plug, attach, join, leave, hear, lose, order, "
        "fail, recover, not "
        "\"explode\"");
    event("event time", R"("at":"1","do":"leave")", "events[0].at",
        "must be a number from 0 to 1000000000, not \"1\"");
    event("event interface", R"("at":1,"do":"unplug","interface":"wlan9")", "events[0].interface",
        "\"wlan9\" is no interface of this file");
    event("interface of a leave", R"("at":1,"do":"leave","interface":"sim0")",
        "events[0].interface", "does not belong to this event");
    event("join without address", R"("at":1,"do":"join")", "events[0].bssid", "is missing");
    event("join nobody", R"("at":1,"do":"join","bssid":"02:00:00:00:00:09")", "events[0].bssid",
        "\"02:00:00:00:00:09\" is no network of this file");
    event("bssid of a leave", R"("at":1,"do":"leave","bssid":"02:00:00:00:00:09")",
        "events[0].bssid", "does not belong to this event");
    event("query", R"("at":1,"do":"fail","query":"lists")", "events[0].query",
        "must be one of all, interfaces, usable, networks, not \"lists\"");
    event("query of a leave", R"("at":1,"do":"leave","query":"all")", "events[0].query",
        "does not belong to this event");
    event("attach without a name", R"("at":1,"do":"attach")", "events[0].interface", "is missing");
    event("attach an empty name", R"("at":1,"do":"attach","interface":"")", "events[0].interface",
        "must not be empty");
    event("attach what is there", R"("at":1,"do":"attach","interface":"sim0")",
        "events[0].interface", "\"sim0\" is an interface of this file already");
    event("hear nobody", R"("at":1,"do":"hear")", "events[0].bssid", "is missing");
    event("hear an unknown one in part",
        R"("at":1,"do":"hear","bssid":"02:00:00:00:00:09","ssid":"A")", "events[0].channel",
        "is missing");
    event("hear a wrong channel",
        R"("at":1,"do":"hear","bssid":"02:00:00:00:00:09","ssid":"A","channel":234)",
        "events[0].channel", "must be 1 to 233, or 6001 to 6233");
    event("hear a wrong raw text",
        R"("at":1,"do":"hear","bssid":"02:00:00:00:00:09","ssid":"A","channel":1,"raw":{"x":1})",
        "events[0].raw.x", "must be a text, or null to leave the key out, not 1");
    event("lose nobody", R"("at":1,"do":"lose","bssid":"02:00:00:00:00:09")", "events[0].bssid",
        "\"02:00:00:00:00:09\" is no network of this file");
    event("ssid of a lose", R"("at":1,"do":"leave","ssid":"A")", "events[0].ssid",
        "does not belong to this event");
    event("order of strangers", R"("at":1,"do":"order","networks":["02:00:00:00:00:09"])",
        "events[0].networks[0]", "\"02:00:00:00:00:09\" is none of this file");
    event("order with one twice", R"("at":1,"do":"order","interfaces":["sim0","sim0"])",
        "events[0].interfaces[1]", "\"sim0\" stands twice");
    row("event after the end", R"({"repeat":60,"events":[{"at":61,"do":"leave"}]})", "events[0].at",
        "never comes: the script starts over after 60 seconds");
    row("hostile text",
        R"({"events":[{"at":1,"do":"a\n\u0000%1<b>0123456789012345678901234567890123456789"}]})",
        "events[0].do",
        "must be one of radio_off, radio_on, unplug, plug, attach, join, leave, hear, lose, order, "
        "fail, recover, not "
        "\"a\\u000a\\u0000%1<b>01234567890123456789012345678901...\"");
}

void TestScenarioMistakes::mistakesAreNamedWithTheirPlace()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, field);
    QFETCH(QString, text);
    const ScenarioResult result = ParseScenario(json);
    QCOMPARE(result.error.text, text);
    QCOMPARE(result.error.field, field);
}

void TestScenarioMistakes::mistakesAreNamedWithTheirLine_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("line");
    QTest::newRow("of the whole") << QByteArray("{\n\n\"seed\": -1}") << 3;
    QTest::newRow("in a list") << QByteArray("{\"networks\":\n[\n{\n},\n7]}") << 3;
    QTest::newRow("an element") << QByteArray("{\"interfaces\":\n[{\"name\":\"a,[{\"},\n\n 7]}")
                                << 4;
    QTest::newRow("deep")
        << QByteArray("{\"networks\":[{\"ssid\":\"]\\\"}\",\"bssid\":\"02:00:00:00:00:01\",\n"
                      "\"channel\":1,\"walk\":[[0,-40],\n[1,-40],\n[1,-40]]}]}")
        << 4;
    QTest::newRow("missing") << QByteArray(
                                    "{\"events\":[{\"at\":1,\"do\":\"leave\"},\n{\"at\":1}]}")
                             << 2;
    QTest::newRow("no JSON") << QByteArray("{\n,}") << 0;
    QTest::newRow("none") << QByteArray("{}") << 0;
}

void TestScenarioMistakes::mistakesAreNamedWithTheirLine()
{
    QFETCH(QByteArray, json);
    QTEST(ParseScenario(json).error.line, "line");
}

void TestScenarioMistakes::tooLargeFileIsRefused()
{
    const QByteArray padding(20 * 1024 * 1024, ' ');
    QCOMPARE(
        ParseScenario("{}" + padding).error.text, QStringLiteral("is larger than 16777216 bytes"));
    const QByteArray fitting(ScenarioLimits::Bytes - 2, ' ');
    QVERIFY(!ParseScenario("{}" + fitting).error.isSet());
}

void TestScenarioMistakes::deepNestingIsRefused()
{
    for (const int depth : {1000, 100000, 2000000}) {
        const QByteArray lists(depth, '[');
        QVERIFY(ParseScenario("{\"networks\":" + lists).error.isSet());
        QVERIFY(
            ParseScenario("{\"networks\":" + lists + QByteArray(depth, ']') + '}').error.isSet());
    }
    QByteArray objects;
    for (int i = 0; i < 100000; ++i)
        objects += "{\"a\":";
    QVERIFY(ParseScenario(objects).error.isSet());
}

void TestScenarioMistakes::tooManyEntriesAreRefused_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<int>("most");
    QTest::newRow("interfaces") << QByteArray("interfaces") << QByteArray(R"({"name":"a"})")
                                << ScenarioLimits::Interfaces;
    QTest::newRow("events") << QByteArray("events") << QByteArray(R"({"at":1,"do":"leave"})")
                            << ScenarioLimits::Events;
}

void TestScenarioMistakes::tooManyEntriesAreRefused()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, entry);
    QFETCH(int, most);
    QByteArray list = entry;
    for (int i = 0; i < most; ++i)
        list += ',' + entry;
    const ScenarioResult result = ParseScenario("{\"" + key + "\":[" + list + "]}");
    QCOMPARE(result.error.field, QString::fromUtf8(key));
    QCOMPARE(result.error.text, QStringLiteral("has more than %1 entries").arg(most));
}

void TestScenarioMistakes::everyTruncationIsAnError()
{
    for (int length = 0; length < fullFile.size(); ++length)
        QVERIFY(ParseScenario(fullFile.left(length)).error.isSet());
}

void TestScenarioMistakes::everyChangedByteIsSurvived()
{
    for (int i = 0; i < fullFile.size(); ++i) {
        for (const char replacement : {'\0', '"', '{', ']', '9', '-', '\xff'}) {
            QByteArray changed = fullFile;
            changed[i] = replacement;
            const ScenarioResult result = ParseScenario(changed);
            // Whatever is accepted is in range.
            if (!result.error.isSet()) {
                QVERIFY(result.scenario.joined < result.scenario.networks.size());
                for (const ScenarioNetwork &network : result.scenario.networks)
                    QVERIFY(network.signal >= -100.0 && network.signal <= 0.0);
            }
        }
    }
}

QTEST_GUILESS_MAIN(TestScenarioMistakes)
#include "tst_scenariomistakes.moc"

#include "simulated/simulatedplugin.h"
#include "support/messagelog.h"

#include <QTemporaryDir>
#include <QtTest>

class TestSimulatedPlugin : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void withoutScenarioTheNeighbourhoodIsHeard();
    void emptyVariableMeansNoScenario();
    void scenarioReplacesTheNeighbourhood();
    void timeStartsWithTheFirstCall();
    void timeScaleMakesTimePassFaster();
    void everyOperationAnswers();
    void startsFromItsBeginningAfterARelease();
    void leavesTheInterfaceNameOfTheCallerAlone();
    void failsOnceAfterItsOnlyInterfaceWentAndCameBack();
    void aLossThatNobodySawNeedsNoFailure();
    void forgetsTheLossAfterARelease();
    void badScenarioIsReportedOnceAndHasNoInterface_data();
    void badScenarioIsReportedOnceAndHasNoInterface();
    void badScenarioIsReportedAgainAfterARelease();
    void missingScenarioIsReported();
    void folderAsScenarioIsReported();
    void endlessFileIsReported();
    void unreadableFileIsReported();

private:
    QString write(const QByteArray &json);
    static QString ask(SimulatedPlugin &plugin);

    QTemporaryDir m_dir;
    qint64 m_now = 0;
    SimulatedPlugin::Clock m_clock = [this] { return m_now; };
};

namespace
{
const char *const variable = "AIRLUME_SCENARIO";
const QString sim0 = QStringLiteral("sim0");
} // namespace

void TestSimulatedPlugin::init()
{
    qunsetenv(variable);
    m_now = 1000000;
}

QString TestSimulatedPlugin::write(const QByteArray &json)
{
    const QString path = m_dir.filePath(QStringLiteral("scenario.json"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(json) != json.size())
        qFatal("cannot write %s", qPrintable(path));
    qputenv(variable, QFile::encodeName(path));
    return path;
}

/// What Airlume asks every four seconds: the interfaces, and if there are any, the networks.
QString TestSimulatedPlugin::ask(SimulatedPlugin &plugin)
{
    QStringList nics;
    plugin.getWiFiNicList(nics);
    if (nics.isEmpty())
        return QStringLiteral("");
    QString nic;
    QList<ScanMap> maps;
    const bool heard = plugin.getVisiableNetworkMapList(nic, maps);
    return QStringLiteral("%1 %2 %3")
        .arg(
            nics.join(QLatin1Char(',')), heard ? QStringLiteral("heard") : QStringLiteral("failed"))
        .arg(maps.size());
}

void TestSimulatedPlugin::withoutScenarioTheNeighbourhoodIsHeard()
{
    const MessageLog log;
    SimulatedPlugin plugin;
    QStringList nics;
    QVERIFY(plugin.getWiFiNicList(nics));
    QCOMPARE(nics, QStringList{sim0});
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    QString nic;
    QList<ScanMap> maps;
    QVERIFY(plugin.getVisiableNetworkMapList(nic, maps));
    QVERIFY(maps.size() >= 24);
    QCOMPARE(log.criticals(), QStringList());
}

void TestSimulatedPlugin::emptyVariableMeansNoScenario()
{
    qputenv(variable, "");
    SimulatedPlugin plugin;
    QVERIFY(plugin.initWiFiApi());
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
}

void TestSimulatedPlugin::scenarioReplacesTheNeighbourhood()
{
    write(R"({"interfaces":[{"name":"wlan7"}],"generate":{"count":3}})");
    SimulatedPlugin plugin;
    QStringList nics;
    QVERIFY(plugin.getWiFiNicList(nics));
    QCOMPARE(nics, QStringList{QStringLiteral("wlan7")});
    QString nic;
    QList<ScanMap> maps;
    QVERIFY(plugin.getVisiableNetworkMapList(nic, maps));
    QCOMPARE(maps.size(), 3);
}

void TestSimulatedPlugin::timeStartsWithTheFirstCall()
{
    write(R"({"events":[{"at":10,"do":"radio_off"}]})");
    SimulatedPlugin plugin(m_clock);
    m_now += 100000;
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    m_now += 9999;
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    m_now += 1;
    QVERIFY(!plugin.isWiFiNicUsable(sim0, 0));
}

void TestSimulatedPlugin::timeScaleMakesTimePassFaster()
{
    write(R"({"time_scale":1000,"events":[{"at":10,"do":"radio_off"}]})");
    SimulatedPlugin plugin(m_clock);
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    m_now += 9;
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    m_now += 1;
    QVERIFY(!plugin.isWiFiNicUsable(sim0, 0));
}

void TestSimulatedPlugin::everyOperationAnswers()
{
    SimulatedPlugin plugin(m_clock);
    QVERIFY(plugin.initWiFiApi());
    QVERIFY(plugin.startWiFiScan(sim0));
    QVERIFY(!plugin.startWiFiScan(QStringLiteral("other")));

    QString nic = sim0;
    QString address;
    QVERIFY(plugin.getWiFiNicAddress(nic, address));
    QCOMPARE(address, QStringLiteral("02:a1:00:00:00:01"));
    ScanMap joined;
    QVERIFY(plugin.getConnectedNetworkMap(nic, joined));
    QCOMPARE(joined.value(QStringLiteral("current_connected")), QStringLiteral("1"));
    QList<ScanMap> maps;
    QVERIFY(plugin.getVisiableNetworkMapList(nic, maps));
    QVERIFY(maps.contains(joined));

    QVERIFY(plugin.setWiFiRadio(sim0, false));
    QVERIFY(!plugin.isWiFiNicUsable(sim0, 0));
    QVERIFY(!plugin.startWiFiScan(sim0));
    QVERIFY(!plugin.getConnectedNetworkMap(nic, joined));
    QVERIFY(!plugin.getVisiableNetworkMapList(nic, maps));
    QVERIFY(plugin.setWiFiRadio(sim0, true));
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    QVERIFY(plugin.releaseWiFiApi());
}

void TestSimulatedPlugin::startsFromItsBeginningAfterARelease()
{
    write(R"({"events":[{"at":10,"do":"radio_off"}]})");
    SimulatedPlugin plugin(m_clock);
    QVERIFY(plugin.initWiFiApi());
    m_now += 10000;
    QVERIFY(!plugin.isWiFiNicUsable(sim0, 0));
    QVERIFY(plugin.releaseWiFiApi());
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    write(R"({"interfaces":[]})");
    QVERIFY(plugin.isWiFiNicUsable(sim0, 0));
    QVERIFY(plugin.releaseWiFiApi());
    QVERIFY(!plugin.isWiFiNicUsable(sim0, 0));
}

void TestSimulatedPlugin::leavesTheInterfaceNameOfTheCallerAlone()
{
    // A name left in it would tie the program to one interface for as long as it runs.
    SimulatedPlugin plugin(m_clock);
    QString nic;
    QList<ScanMap> maps;
    QVERIFY(plugin.getVisiableNetworkMapList(nic, maps));
    QCOMPARE(nic, QString());
}

void TestSimulatedPlugin::failsOnceAfterItsOnlyInterfaceWentAndCameBack()
{
    write(R"({"generate": {"count": 2}, "events": [{"at": 10, "do": "unplug"},
        {"at": 20, "do": "plug"}, {"at": 30, "do": "unplug"}, {"at": 40, "do": "plug"}]})");
    SimulatedPlugin plugin(m_clock);
    QCOMPARE(ask(plugin), QStringLiteral("sim0 heard 2"));
    for (int round = 0; round < 2; ++round) {
        m_now += 10000;
        QCOMPARE(ask(plugin), QStringLiteral(""));
        QCOMPARE(ask(plugin), QStringLiteral(""));
        m_now += 10000;
        QCOMPARE(ask(plugin), QStringLiteral("sim0 failed 0"));
        QCOMPARE(ask(plugin), QStringLiteral("sim0 heard 2"));
    }
}

void TestSimulatedPlugin::aLossThatNobodySawNeedsNoFailure()
{
    // Nothing has been answered yet.
    write(R"({"generate": {"count": 1}, "events": [{"at": 0, "do": "unplug"},
        {"at": 10, "do": "plug"}]})");
    SimulatedPlugin late(m_clock);
    QCOMPARE(ask(late), QStringLiteral(""));
    m_now += 10000;
    QCOMPARE(ask(late), QStringLiteral("sim0 heard 1"));

    write(R"({"generate": {"count": 2}, "interfaces": [{"name": "a"}, {"name": "b"}],
        "events": [{"at": 10, "do": "unplug", "interface": "a"},
        {"at": 11, "do": "plug"}, {"at": 20, "do": "unplug"}, {"at": 21, "do": "plug"},
        {"at": 30, "do": "radio_off"}, {"at": 40, "do": "radio_on"}]})");
    SimulatedPlugin plugin(m_clock);
    QCOMPARE(ask(plugin), QStringLiteral("a,b heard 2"));
    // One of two.
    m_now += 10000;
    QCOMPARE(ask(plugin), QStringLiteral("b heard 2"));
    // Both, for less time than there is between two questions.
    m_now += 12000;
    QCOMPARE(ask(plugin), QStringLiteral("a,b heard 2"));
    // The radio alone: its queries fail already.
    m_now += 10000;
    QCOMPARE(ask(plugin), QStringLiteral("a,b failed 0"));
    m_now += 10000;
    QCOMPARE(ask(plugin), QStringLiteral("a,b heard 2"));
}

void TestSimulatedPlugin::forgetsTheLossAfterARelease()
{
    write(R"({"generate": {"count": 2}, "events": [{"at": 10, "do": "unplug"}]})");
    SimulatedPlugin plugin(m_clock);
    ask(plugin);
    m_now += 10000;
    QCOMPARE(ask(plugin), QStringLiteral(""));
    QVERIFY(plugin.releaseWiFiApi());
    QCOMPARE(ask(plugin), QStringLiteral("sim0 heard 2"));
}

void TestSimulatedPlugin::badScenarioIsReportedOnceAndHasNoInterface_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");
    QTest::newRow("not JSON") << QByteArray("{\"seed\" 1}")
                              << QStringLiteral(" is not JSON: missing name separator in line 1.");
    QTest::newRow("a field")
        << QByteArray(R"({"networks":[{"ssid":"A","bssid":"02:00:00:00:00:01","channel":"x"}]})")
        << QStringLiteral(", line 1, field networks[0].channel: must be a whole number from 1 to "
                          "233, not \"x\".");
    QTest::newRow("several mistakes: the first")
        << QByteArray(R"({"seed":-1,"events":5})")
        << QStringLiteral(
               ", line 1, field seed: must be a whole number from 0 to 9007199254740992, not -1.");
    QTest::newRow("too large") << QByteArray(20 * 1024 * 1024, ' ')
                               << QStringLiteral(" is larger than 16777216 bytes.");
    QTest::newRow("empty") << QByteArray()
                           << QStringLiteral(" is not JSON: illegal value in line 1.");
}

void TestSimulatedPlugin::badScenarioIsReportedOnceAndHasNoInterface()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, message);
    const QString path = write(json);
    const MessageLog log;
    SimulatedPlugin plugin(m_clock);
    for (int poll = 0; poll < 3; ++poll, m_now += 4000) {
        QVERIFY(!plugin.initWiFiApi());
        QStringList nics;
        plugin.getWiFiNicList(nics);
        QCOMPARE(nics, QStringList());
        QString nic;
        QList<ScanMap> maps;
        QVERIFY(!plugin.getVisiableNetworkMapList(nic, maps));
        QVERIFY(maps.isEmpty());
        QVERIFY(!plugin.isWiFiNicUsable(sim0, 0));
    }
    QCOMPARE(log.criticals(), QStringList{QStringLiteral("Scenario file ") + path + message});
}

void TestSimulatedPlugin::badScenarioIsReportedAgainAfterARelease()
{
    write("[]");
    const MessageLog log;
    SimulatedPlugin plugin(m_clock);
    QVERIFY(!plugin.initWiFiApi());
    plugin.releaseWiFiApi();
    QVERIFY(!plugin.initWiFiApi());
    QCOMPARE(log.criticals().size(), 2);
}

void TestSimulatedPlugin::missingScenarioIsReported()
{
    qputenv(variable, "/nowhere/scenario.json");
    const MessageLog log;
    SimulatedPlugin plugin(m_clock);
    QVERIFY(!plugin.initWiFiApi());
    QCOMPARE(log.criticals().size(), 1);
    QVERIFY(log.criticals().first().startsWith(
        QStringLiteral("Scenario file /nowhere/scenario.json cannot be read: ")));
}

void TestSimulatedPlugin::folderAsScenarioIsReported()
{
    qputenv(variable, QFile::encodeName(m_dir.path()));
    const MessageLog log;
    SimulatedPlugin plugin(m_clock);
    QVERIFY(!plugin.initWiFiApi());
    QCOMPARE(log.criticals(), QStringList{QStringLiteral("Scenario file ") + m_dir.path() +
                                          QStringLiteral(" cannot be read: it is a folder.")});
}

void TestSimulatedPlugin::endlessFileIsReported()
{
    if (!QFile::exists(QStringLiteral("/dev/zero")))
        QSKIP("no /dev/zero here");
    qputenv(variable, "/dev/zero");
    const MessageLog log;
    SimulatedPlugin plugin(m_clock);
    QVERIFY(!plugin.initWiFiApi());
    QCOMPARE(log.criticals(),
        QStringList{QStringLiteral("Scenario file /dev/zero is larger than 16777216 bytes.")});
}

void TestSimulatedPlugin::unreadableFileIsReported()
{
    const QString path = write("{}");
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    QFile probe(path);
    if (probe.open(QIODevice::ReadOnly))
        QSKIP("this user may read everything");
    const MessageLog log;
    SimulatedPlugin plugin(m_clock);
    QVERIFY(!plugin.initWiFiApi());
    QCOMPARE(log.criticals().size(), 1);
    QVERIFY(QFile::remove(path));
}

QTEST_GUILESS_MAIN(TestSimulatedPlugin)
#include "tst_simulatedplugin.moc"

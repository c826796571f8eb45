#include "plugincheck/contract.h"

#include <QtTest>

using namespace PluginCheck;

namespace
{

ScanMap soundNetwork()
{
    return {
        {QStringLiteral("ssid"), QStringLiteral("Harbour")},
        {QStringLiteral("bssid"), QStringLiteral("02:00:5e:10:00:01")},
        {QStringLiteral("channel"), QStringLiteral("6")},
        {QStringLiteral("current_connected"), QStringLiteral("0")},
        {QStringLiteral("security_mode"), QStringLiteral("WPA2-PSK")},
        {QStringLiteral("WLAN_NETWORK_SIGNAL"), QStringLiteral("-47")},
    };
}

ScanMap networkWith(const char *key, const QString &value)
{
    ScanMap network = soundNetwork();
    network.insert(QLatin1String(key), value);
    return network;
}

QStringList codes(const Deviations &deviations)
{
    QStringList codes;
    for (const Deviation &deviation : deviations.list())
        codes.append(deviation.code);
    return codes;
}

Answers soundAnswers()
{
    Answers answers;
    answers.listed = true;
    answers.interfaces = QStringList{QStringLiteral("wlan0")};
    answers.usable = {true};
    answers.queried = true;
    answers.networks = {soundNetwork()};
    answers.listTime = answers.usableTime = answers.queryTime = 1;
    return answers;
}

} // namespace

class TestContract : public QObject
{
    Q_OBJECT

private slots:
    void interfaceIsChosenAsAirlumeChooses_data();
    void interfaceIsChosenAsAirlumeChooses();
    void soundNetworkHasNoDeviation();
    void valuesMustHaveTheirForm_data();
    void valuesMustHaveTheirForm();
    void everyKeyButTheLinkRateIsRequired_data();
    void everyKeyButTheLinkRateIsRequired();
    void otherKeysAreIgnored();
    void atMostOneNetworkIsJoined();
    void anAccessPointIsListedOnce();
    void oneNameMayHaveSeveralAccessPoints();
    void interfacesHaveDifferentNames();
    void listMayNotGrowFromQueryToQuery();
    void networksThatCameInBetweenAreNoGrowth();
    void queryMustWorkWithoutAName();
    void slowCallsAreNamed_data();
    void slowCallsAreNamed();
    void networksOfAFailedQueryAreNotJudged();
    void deviationsOfAKindAreCountedAndNotAllKept();
    void longTextsAreCutBetweenCharacters();
};

void TestContract::interfaceIsChosenAsAirlumeChooses_data()
{
    QTest::addColumn<bool>("listed");
    QTest::addColumn<QVector<bool>>("usable");
    QTest::addColumn<int>("chosen");
    QTest::newRow("none") << true << QVector<bool>{} << -1;
    QTest::newRow("listing failed, none") << false << QVector<bool>{} << -1;
    QTest::newRow("one") << true << QVector<bool>{true} << 0;
    QTest::newRow("one, not usable") << true << QVector<bool>{false} << 0;
    QTest::newRow("a usable second one goes before a usable first one")
        << true << QVector<bool>{true, true} << 1;
    QTest::newRow("second one not usable") << true << QVector<bool>{true, false} << 0;
    QTest::newRow("none usable") << true << QVector<bool>{false, false} << 0;
    QTest::newRow("first usable among the later ones")
        << true << QVector<bool>{false, false, true, true} << 2;
    QTest::newRow("listing failed, first one taken") << false << QVector<bool>{false, true} << 0;
}

void TestContract::interfaceIsChosenAsAirlumeChooses()
{
    QFETCH(bool, listed);
    QFETCH(QVector<bool>, usable);
    QTEST(chosenInterface(listed, usable), "chosen");
}

void TestContract::soundNetworkHasNoDeviation()
{
    QCOMPARE(codes(checkNetworks({soundNetwork()})), QStringList());
    QCOMPARE(codes(checkNetworks({})), QStringList());
    QCOMPARE(codes(checkAnswers(soundAnswers())), QStringList());
}

void TestContract::valuesMustHaveTheirForm_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("good");
    const auto good = [](const char *key, const QString &value) {
        QTest::addRow("%s good %s", key, qUtf8Printable(value.left(30)))
            << QByteArray(key) << value << true;
    };
    const auto bad = [](const char *key, const QString &value) {
        QTest::addRow("%s bad %s", key, qUtf8Printable(value.left(30)))
            << QByteArray(key) << value << false;
    };
    good("ssid", QString());
    good("ssid", QStringLiteral("<b>\x1b[1m"));
    good("ssid", QString(10000, QLatin1Char('x')));
    good("ssid", QString::fromUtf8("\xf0\x9f\x93\xb6"));
    bad("ssid", QString(QChar(0xd83d)));
    bad("ssid", QString(QChar(0xdcf6)) + QStringLiteral("x"));

    good("bssid", QStringLiteral("02:00:5e:10:00:0f"));
    good("bssid", QStringLiteral("02:00:5E:AB:CD:EF"));
    good("bssid", QStringLiteral("02-00-5e-10-00-0f"));
    bad("bssid", QString());
    bad("bssid", QStringLiteral("02:00:5e:10:00"));
    bad("bssid", QStringLiteral("02:00:5e:10:00:0f:01"));
    bad("bssid", QStringLiteral("02:00:5e:10:00:0g"));
    bad("bssid", QStringLiteral("2:0:5e:10:0:f"));
    bad("bssid", QStringLiteral("02:00-5e:10-00:0f"));
    bad("bssid", QStringLiteral("02005e10000f"));
    bad("bssid", QStringLiteral("02:00:5e:10:00:0f\n"));

    good("channel", QStringLiteral("0"));
    good("channel", QStringLiteral("1"));
    good("channel", QStringLiteral("165"));
    good("channel", QStringLiteral("65535"));
    bad("channel", QString());
    bad("channel", QStringLiteral("65536"));
    bad("channel", QStringLiteral("-1"));
    bad("channel", QStringLiteral("6 "));
    bad("channel", QStringLiteral("+6"));
    bad("channel", QStringLiteral("0x6"));
    bad("channel", QStringLiteral("6.0"));
    bad("channel", QStringLiteral("6,1"));
    bad("channel", QStringLiteral("4294967302"));
    bad("channel", QString(1000000, QLatin1Char('9')));
    bad("channel", QString::fromUtf8("\xd9\xa6"));

    good("current_connected", QStringLiteral("0"));
    good("current_connected", QStringLiteral("1"));
    bad("current_connected", QString());
    bad("current_connected", QStringLiteral("01"));
    bad("current_connected", QStringLiteral("true"));
    bad("current_connected", QStringLiteral("2"));

    good("security_mode", QStringLiteral("Open"));
    bad("security_mode", QString());
    bad("security_mode", QStringLiteral("  "));
    bad("security_mode", QString(QChar(0xd83d)));

    good("WLAN_NETWORK_SIGNAL", QStringLiteral("-100"));
    good("WLAN_NETWORK_SIGNAL", QStringLiteral("-1"));
    good("WLAN_NETWORK_SIGNAL", QStringLiteral("0"));
    bad("WLAN_NETWORK_SIGNAL", QString());
    bad("WLAN_NETWORK_SIGNAL", QStringLiteral("-101"));
    bad("WLAN_NETWORK_SIGNAL", QStringLiteral("1"));
    bad("WLAN_NETWORK_SIGNAL", QStringLiteral("-67dBm"));
    bad("WLAN_NETWORK_SIGNAL", QStringLiteral("-67.5"));
    bad("WLAN_NETWORK_SIGNAL", QStringLiteral("-2147483649"));

    good("link_rate", QStringLiteral("0"));
    good("link_rate", QStringLiteral("1201"));
    bad("link_rate", QString());
    bad("link_rate", QStringLiteral("-1"));
    bad("link_rate", QStringLiteral("144.4"));
    bad("link_rate", QStringLiteral("144 Mbps"));
}

void TestContract::valuesMustHaveTheirForm()
{
    QFETCH(QByteArray, key);
    QFETCH(QString, value);
    QFETCH(bool, good);
    const Deviations deviations = checkNetworks({networkWith(key.constData(), value)});
    const QString code = QStringLiteral("bad-") + QLatin1String(key);
    QCOMPARE(codes(deviations), good ? QStringList() : QStringList(code));
    if (!good) {
        QVERIFY(deviations.find(code)->examples.first().contains(QStringLiteral("network 1 ")));
        QVERIFY(deviations.find(code)->examples.first().size() < 300);
    }
}

void TestContract::everyKeyButTheLinkRateIsRequired_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys = soundNetwork().keys();
    QCOMPARE(keys.size(), 6);
    for (const QString &key : keys)
        QTest::addRow("%s", qUtf8Printable(key)) << key;
}

void TestContract::everyKeyButTheLinkRateIsRequired()
{
    QFETCH(QString, key);
    ScanMap network = soundNetwork();
    network.remove(key);
    QCOMPARE(codes(checkNetworks({network})), QStringList(QStringLiteral("missing-") + key));
}

void TestContract::otherKeysAreIgnored()
{
    QCOMPARE(codes(checkNetworks({networkWith("frequency", QStringLiteral("?"))})), QStringList());
}

void TestContract::atMostOneNetworkIsJoined()
{
    ScanMap first = networkWith("current_connected", QStringLiteral("1"));
    ScanMap second = first;
    second.insert(QStringLiteral("bssid"), QStringLiteral("02:00:5e:10:00:02"));
    QCOMPARE(codes(checkNetworks({first})), QStringList());
    const Deviations deviations = checkNetworks({soundNetwork(), second, first});
    const Deviation *several = deviations.find(QStringLiteral("several-joined"));
    QVERIFY(several);
    QVERIFY(several->examples.first().contains(QStringLiteral("network 3 ")));
    QVERIFY(several->examples.first().contains(QStringLiteral("so is network 2")));
}

void TestContract::anAccessPointIsListedOnce()
{
    const Deviations deviations = checkNetworks({soundNetwork(), soundNetwork(), soundNetwork()});
    QCOMPARE(codes(deviations), QStringList(QStringLiteral("repeated-network")));
    QCOMPARE(deviations.list().first().count, 2);
}

void TestContract::oneNameMayHaveSeveralAccessPoints()
{
    QCOMPARE(codes(checkNetworks(
                 {soundNetwork(), networkWith("bssid", QStringLiteral("02:00:5e:10:00:02")),
                     networkWith("ssid", QStringLiteral("Guests"))})),
        QStringList());
}

void TestContract::interfacesHaveDifferentNames()
{
    const QString wlan0 = QStringLiteral("wlan0");
    QCOMPARE(codes(checkInterfaces({})), QStringList());
    QCOMPARE(codes(checkInterfaces({wlan0, QStringLiteral("wlan1")})), QStringList());
    QCOMPARE(
        codes(checkInterfaces({wlan0, wlan0})), QStringList(QStringLiteral("repeated-interface")));
    QCOMPARE(codes(checkInterfaces({wlan0, QString()})),
        QStringList(QStringLiteral("empty-interface-name")));
}

void TestContract::listMayNotGrowFromQueryToQuery()
{
    Answers answers = soundAnswers();
    answers.networksAgain = answers.networks + answers.networks;
    QCOMPARE(codes(checkAnswers(answers)), QStringList(QStringLiteral("growing-list")));
    answers.networksAgain = answers.networks;
    QCOMPARE(codes(checkAnswers(answers)), QStringList());
}

void TestContract::networksThatCameInBetweenAreNoGrowth()
{
    Answers answers = soundAnswers();
    answers.networksAgain =
        answers.networks + QList<ScanMap>{networkWith("ssid", QStringLiteral("New"))};
    QCOMPARE(codes(checkAnswers(answers)), QStringList());
}

void TestContract::queryMustWorkWithoutAName()
{
    Answers answers = soundAnswers();
    answers.queried = false;
    answers.needsName = true;
    QCOMPARE(codes(checkAnswers(answers)), QStringList(QStringLiteral("needs-interface-name")));
}

void TestContract::slowCallsAreNamed_data()
{
    QTest::addColumn<double>("list");
    QTest::addColumn<double>("usable");
    QTest::addColumn<double>("query");
    QTest::addColumn<QStringList>("named");
    QTest::newRow("not called") << -1.0 << -1.0 << -1.0 << QStringList();
    QTest::newRow("at the limit") << 50.0 << 50.0 << 50.0 << QStringList();
    QTest::newRow("list") << 51.0 << 1.0 << 1.0
                          << QStringList(QStringLiteral("getWiFiNicList() took 51 ms"));
    QTest::newRow("usable") << 1.0 << 60.0 << 1.0
                            << QStringList(QStringLiteral("isWiFiNicUsable() took 60 ms"));
    QTest::newRow("query") << 1.0 << 1.0 << 3000.0
                           << QStringList(
                                  QStringLiteral("getVisiableNetworkMapList() took 3000 ms"));
}

void TestContract::slowCallsAreNamed()
{
    Answers answers = soundAnswers();
    QFETCH(double, list);
    QFETCH(double, usable);
    QFETCH(double, query);
    answers.listTime = list;
    answers.usableTime = usable;
    answers.queryTime = query;
    const Deviations deviations = checkAnswers(answers);
    const Deviation *slow = deviations.find(QStringLiteral("slow-answer"));
    QTEST(slow ? slow->examples : QStringList(), "named");
}

void TestContract::networksOfAFailedQueryAreNotJudged()
{
    Answers answers = soundAnswers();
    answers.queried = false;
    answers.networks = {ScanMap()};
    QCOMPARE(codes(checkAnswers(answers)), QStringList());
}

void TestContract::deviationsOfAKindAreCountedAndNotAllKept()
{
    QList<ScanMap> networks;
    for (int i = 0; i < 1000; ++i)
        networks.append(networkWith("channel", QStringLiteral("x")));
    const Deviations deviations = checkNetworks(networks);
    const Deviation *channel = deviations.find(QStringLiteral("bad-channel"));
    QVERIFY(channel);
    QCOMPARE(channel->count, 1000);
    QCOMPARE(channel->examples.size(), static_cast<int>(Deviations::MaximumExamples));

    Deviations twice = deviations;
    twice.add(deviations);
    QCOMPARE(twice.find(QStringLiteral("bad-channel"))->count, 2000);
    QCOMPARE(twice.find(QStringLiteral("bad-channel"))->examples.size(),
        static_cast<int>(Deviations::MaximumExamples));
}

void TestContract::longTextsAreCutBetweenCharacters()
{
    QCOMPARE(quoted(QStringLiteral("abc"), 3), QStringLiteral("\"abc\""));
    QCOMPARE(quoted(QStringLiteral("abcd"), 3), QStringLiteral("\"abc...\" [4 characters]"));
    const QString emoji = QStringLiteral("ab") + QString::fromUtf8("\xf0\x9f\x93\xb6");
    QCOMPARE(quoted(emoji, 3), QStringLiteral("\"ab...\" [4 characters]"));
}

QTEST_APPLESS_MAIN(TestContract)

#include "tst_contract.moc"

#include "plugincheck/contract.h"

#include <QtTest>

using namespace PluginCheck;

namespace
{

ScanMap soundNetwork()
{
    return {
        {ScanKey::Ssid, QStringLiteral("Harbour")},
        {ScanKey::Bssid, QStringLiteral("02:00:5e:10:00:01")},
        {ScanKey::Channel, QStringLiteral("6")},
        {ScanKey::Connected, QStringLiteral("0")},
        {ScanKey::Security, QStringLiteral("WPA2-PSK")},
        {ScanKey::Signal, QStringLiteral("-47")},
    };
}

ScanMap networkWith(const QString &key, const QString &value)
{
    ScanMap network = soundNetwork();
    network.insert(key, value);
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
    void valuesAreJudgedByWhatAirlumeMakesOfThem_data();
    void valuesAreJudgedByWhatAirlumeMakesOfThem();
    void everyKeyButTheLinkRateIsMissed_data();
    void everyKeyButTheLinkRateIsMissed();
    void misspeltKeysAreTakenForWhatTheyMean();
    void otherKeysAreIgnored();
    void atMostOneNetworkIsJoined();
    void anAccessPointIsListedOnce();
    void oneNameMayHaveSeveralAccessPoints();
    void interfacesHaveDifferentNames();
    void listMayNotGrowFromQueryToQuery();
    void networksThatCameInBetweenAreNoGrowth();
    void queryMustWorkWithoutAName();
    void readInterfaceIsToldFromTheChosenOne();
    void secondAnswersMustKeepTheirOrder();
    void slowCallsAreNamed_data();
    void slowCallsAreNamed();
    void callThatWaitsBreaksTheContract();
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

void TestContract::valuesAreJudgedByWhatAirlumeMakesOfThem_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("code");
    QTest::addColumn<bool>("broken");
    const auto row = [](const QString &key, const QString &value, const QString &code,
                         bool broken) {
        QTest::addRow("%s %s", qUtf8Printable(key), qUtf8Printable(value.left(30)))
            << key << value << (code.isEmpty() ? code : code + key) << broken;
    };
    const auto good = [&row](const QString &key, const QString &value) {
        row(key, value, QString(), false);
    };
    const auto odd = [&row](const QString &key, const QString &value,
                         const QString &code = QStringLiteral("bad-")) {
        row(key, value, code, false);
    };
    const auto bad = [&row](const QString &key, const QString &value) {
        row(key, value, QStringLiteral("bad-"), true);
    };
    const QString outside = QStringLiteral("odd-");

    good(ScanKey::Ssid, QString());
    good(ScanKey::Ssid, QStringLiteral("<b>\x1b[1m"));
    good(ScanKey::Ssid, QString(10000, QLatin1Char('x')));
    good(ScanKey::Ssid, QString::fromUtf8("\xf0\x9f\x93\xb6"));
    odd(ScanKey::Ssid, QString(QChar(0xd83d)));
    odd(ScanKey::Ssid, QString(QChar(0xdcf6)) + QStringLiteral("x"));

    good(ScanKey::Bssid, QStringLiteral("02:00:5e:10:00:0f"));
    good(ScanKey::Bssid, QStringLiteral("02:00:5E:AB:CD:EF"));
    good(ScanKey::Bssid, QStringLiteral("02-00-5e-10-00-0f"));
    for (const char *address : {"", "02:00:5e:10:00", "02:00:5e:10:00:0f:01", "02:00:5e:10:00:0g",
             "2:0:5e:10:0:f", "02:00-5e:10-00:0f", "02005e10000f", "02:00:5e:10:00:0f\n"})
        odd(ScanKey::Bssid, QLatin1String(address));

    for (const char *channel : {"0", "1", "165", "6005", "65535", "6 ", "+6"})
        good(ScanKey::Channel, QLatin1String(channel));
    for (const char *channel : {"", "65536", "-1"})
        odd(ScanKey::Channel, QLatin1String(channel), outside);
    for (const char *channel : {"0x6", "6.0", "6,1", "4294967302", "eleven"})
        bad(ScanKey::Channel, QLatin1String(channel));
    bad(ScanKey::Channel, QString(1000000, QLatin1Char('9')));
    bad(ScanKey::Channel, QString::fromUtf8("\xd9\xa6"));

    for (const char *joined : {"0", "1", "", "false", "No"})
        good(ScanKey::Connected, QLatin1String(joined));
    for (const char *joined : {"01", "true", "2", " 1"})
        bad(ScanKey::Connected, QLatin1String(joined));

    good(ScanKey::Security, QStringLiteral("Open"));
    odd(ScanKey::Security, QString());
    odd(ScanKey::Security, QStringLiteral("  "));
    odd(ScanKey::Security, QString(QChar(0xd83d)));

    for (const char *signal : {"-100", "-1", "0"})
        good(ScanKey::Signal, QLatin1String(signal));
    for (const char *signal : {"", "-101", "-105", "1"})
        odd(ScanKey::Signal, QLatin1String(signal), outside);
    for (const char *signal : {"-67dBm", "-67.5", "-2147483649"})
        bad(ScanKey::Signal, QLatin1String(signal));

    for (const char *rate : {"0", "1201", ""})
        good(ScanKey::LinkRate, QLatin1String(rate));
    odd(ScanKey::LinkRate, QStringLiteral("-1"), outside);
    bad(ScanKey::LinkRate, QStringLiteral("144.4"));
    bad(ScanKey::LinkRate, QStringLiteral("144 Mbps"));
}

void TestContract::valuesAreJudgedByWhatAirlumeMakesOfThem()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QString, code);
    const Deviations deviations = checkNetworks({networkWith(key, value)});
    QCOMPARE(codes(deviations), code.isEmpty() ? QStringList() : QStringList(code));
    QTEST(deviations.isBroken(), "broken");
    if (!code.isEmpty()) {
        QVERIFY(deviations.find(code)->rule.contains(QStringLiteral("Airlume")));
        QVERIFY(deviations.find(code)->examples.first().contains(QStringLiteral("network 1 ")));
        QVERIFY(deviations.find(code)->examples.first().size() < 300);
    }
}

void TestContract::everyKeyButTheLinkRateIsMissed_data()
{
    QTest::addColumn<QString>("key");
    const QStringList keys = soundNetwork().keys();
    QCOMPARE(keys.size(), 6);
    for (const QString &key : keys)
        QTest::addRow("%s", qUtf8Printable(key)) << key;
}

void TestContract::everyKeyButTheLinkRateIsMissed()
{
    QFETCH(QString, key);
    ScanMap network = soundNetwork();
    network.remove(key);
    const Deviations deviations = checkNetworks({network});
    QCOMPARE(codes(deviations), QStringList(QStringLiteral("missing-") + key));
    QVERIFY(!deviations.isBroken());
}

void TestContract::misspeltKeysAreTakenForWhatTheyMean()
{
    ScanMap network = soundNetwork();
    network.insert(QStringLiteral("Current-Connected"), network.take(ScanKey::Connected));
    const Deviations deviations = checkNetworks({network});
    QCOMPARE(codes(deviations), QStringList(QStringLiteral("misspelt-current_connected")));
    QVERIFY(deviations.isBroken());
    network.insert(ScanKey::Connected, QStringLiteral("0"));
    QVERIFY(checkNetworks({network}).isEmpty());
}

void TestContract::otherKeysAreIgnored()
{
    QCOMPARE(codes(checkNetworks({networkWith(QStringLiteral("frequency"), QStringLiteral("?"))})),
        QStringList());
}

void TestContract::atMostOneNetworkIsJoined()
{
    ScanMap first = networkWith(ScanKey::Connected, QStringLiteral("1"));
    ScanMap second = first;
    second.insert(ScanKey::Bssid, QStringLiteral("02:00:5e:10:00:02"));
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
                 {soundNetwork(), networkWith(ScanKey::Bssid, QStringLiteral("02:00:5e:10:00:02")),
                     networkWith(ScanKey::Ssid, QStringLiteral("Guests"))})),
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
        answers.networks + QList<ScanMap>{networkWith(ScanKey::Ssid, QStringLiteral("New"))};
    QCOMPARE(codes(checkAnswers(answers)), QStringList());
}

void TestContract::queryMustWorkWithoutAName()
{
    Answers answers = soundAnswers();
    answers.queried = false;
    answers.needsName = true;
    QCOMPARE(codes(checkAnswers(answers)), QStringList(QStringLiteral("needs-interface-name")));
}

void TestContract::readInterfaceIsToldFromTheChosenOne()
{
    Answers answers = soundAnswers();
    answers.interfaces = QStringList{QStringLiteral("a"), QStringLiteral("b")};
    answers.usable = {true, true};
    QCOMPARE(readInterface(answers), 1);
    for (const QVector<bool> &alike : {QVector<bool>{true, true}, QVector<bool>{false, false}}) {
        answers.alike = alike;
        QCOMPARE(readInterface(answers), 1);
        QCOMPARE(codes(checkAnswers(answers)), QStringList());
    }
    answers.alike = {true, false};
    QCOMPARE(readInterface(answers), 0);
    const Deviations deviations = checkAnswers(answers);
    QCOMPARE(codes(deviations), QStringList(QStringLiteral("reads-another-interface")));
    QVERIFY(!deviations.isBroken());
    QCOMPARE(readInterface(Answers()), -1);
}

void TestContract::secondAnswersMustKeepTheirOrder()
{
    Answers answers = soundAnswers();
    answers.networks.append(networkWith(ScanKey::Ssid, QStringLiteral("Second")));
    answers.networksAgain = answers.networks;
    answers.networksAgain->swapItemsAt(0, 1);
    answers.interfacesAgain = QStringList{QStringLiteral("wlan1"), QStringLiteral("wlan0")};
    QCOMPARE(codes(checkAnswers(answers)), QStringList(QStringLiteral("networks-reordered")));
    answers.interfaces.append(QStringLiteral("wlan1"));
    answers.usable.append(false);
    const Deviations deviations = checkAnswers(answers);
    QCOMPARE(codes(deviations), (QStringList{QStringLiteral("interfaces-reordered"),
                                    QStringLiteral("networks-reordered")}));
    QVERIFY(!deviations.isBroken());
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
    QTest::newRow("query") << 1.0 << 1.0 << 900.0
                           << QStringList(
                                  QStringLiteral("getVisiableNetworkMapList() took 900 ms"));
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
    QVERIFY(!deviations.isBroken());
}

void TestContract::callThatWaitsBreaksTheContract()
{
    Answers answers = soundAnswers();
    answers.queryTime = 1000;
    const Deviations deviations = checkAnswers(answers);
    QCOMPARE(codes(deviations), QStringList(QStringLiteral("waiting-answer")));
    QVERIFY(deviations.isBroken());
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
        networks.append(networkWith(ScanKey::Channel, QStringLiteral("x")));
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

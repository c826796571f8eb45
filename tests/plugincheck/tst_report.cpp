#include "plugincheck/report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

using namespace PluginCheck;

namespace
{

ScanMap network(int number)
{
    return {
        {ScanKey::Ssid, QStringLiteral("Net %1").arg(number)},
        {ScanKey::Bssid,
            QStringLiteral("02:00:00:00:00:%1").arg(number % 256, 2, 16, QLatin1Char('0'))},
        {ScanKey::Channel, QString::number(number % 165)},
        {ScanKey::Connected, QStringLiteral("0")},
        {ScanKey::Security, QStringLiteral("WPA2-PSK")},
        {ScanKey::Signal, QString::number(-(number % 100))},
    };
}

Answers heard(const QList<ScanMap> &networks)
{
    Answers answers;
    answers.listed = true;
    answers.interfaces = QStringList{QStringLiteral("wlan0"), QStringLiteral("wlan1")};
    answers.usable = {true, true};
    answers.queried = true;
    answers.networks = networks;
    answers.listTime = 0.5;
    return answers;
}

Backend backend()
{
    Backend backend;
    backend.path = QStringLiteral("/some/where/libWiFiApiPlugin.dylib");
    backend.interfaceId = QStringLiteral("org.example/1.0");
    backend.className = QStringLiteral("Example");
    backend.qtVersion = QStringLiteral("5.15");
    return backend;
}

QJsonObject json(const Report &report)
{
    return QJsonDocument::fromJson(jsonReport(report)).object();
}

QStringList linesOf(const Report &report)
{
    return textReport(report).split(QLatin1Char('\n'));
}

} // namespace

class TestReport : public QObject
{
    Q_OBJECT

private slots:
    void columnsStandUnderTheirTitles();
    void hostileCellsDoNotBreakTheTable();
    void chosenInterfaceIsMarked();
    void interfaceThatIsReadIsMarkedAgainstTheRule();
    void channelsAt6GHzAreSaidToBeThere();
    void odditiesStandApartFromBreaches();
    void longListsAreCutInTextOnly();
    void manyMessagesAreCutInTextOnly();
    void commandsAreNeverBrokenBetweenLines();
    void jsonHoldsEverythingAsItCame();
    void jsonOfAProblemHasTheSameMembers();
    void jsonIsOneLineOfAscii();
};

void TestReport::columnsStandUnderTheirTitles()
{
    ScanMap joined = network(5);
    joined.insert(ScanKey::Connected, QStringLiteral("1"));
    joined.insert(ScanKey::LinkRate, QStringLiteral("1201"));
    const QStringList lines = linesOf(answeredReport(backend(), heard({network(1), joined}), {}));
    const int title = lines.indexOf(QStringLiteral("Networks")) + 1;
    QVERIFY(title > 0);
    QCOMPARE(lines.at(title), QStringLiteral("  #  Signal dBm  Channel  Joined  Rate Mbps  Security"
                                             "  BSSID              Name"));
    QCOMPARE(lines.at(title + 1), QStringLiteral("  1          -1        1                  -  WPA2"
                                                 "-PSK  02:00:00:00:00:01  \"Net 1\""));
    QCOMPARE(lines.at(title + 2), QStringLiteral("  2          -5        5  yes          1201  WPA2"
                                                 "-PSK  02:00:00:00:00:05  \"Net 5\""));
}

void TestReport::hostileCellsDoNotBreakTheTable()
{
    ScanMap hostile;
    for (const QString &key : {ScanKey::Ssid, ScanKey::Bssid, ScanKey::Channel, ScanKey::Connected,
             ScanKey::Security, ScanKey::Signal, ScanKey::LinkRate})
        hostile.insert(
            key, QStringLiteral("\x1b[2J\n") + QChar(0x202e) + QString(5000, QLatin1Char('w')));
    Answers answers = heard({network(1), hostile});
    answers.interfaces = QStringList{QStringLiteral("\x1b[2J"), QString()};
    const Heard said{{{QStringLiteral("critical"), QStringLiteral("\x1b[2J\n")}},
        QByteArray("\x1b[2J\n\xff\xfe"), QByteArray("\x07")};
    Backend named = backend();
    named.path = named.className = named.interfaceId = QStringLiteral("\x1b[2J\n");
    const QString text = textReport(answeredReport(named, answers, said));
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        QVERIFY(line.size() < 600);
        for (const QChar character : line)
            QVERIFY(character.isPrint());
    }
    const QStringList lines = text.split(QLatin1Char('\n'));
    const int title = lines.indexOf(QStringLiteral("Networks")) + 1;
    QCOMPARE(lines.at(title + 1).indexOf(QStringLiteral("\"Net 1\"")),
        lines.at(title).indexOf(QStringLiteral("Name")));
    QCOMPARE(lines.at(title + 2).lastIndexOf(QStringLiteral("\"\\x1b")),
        lines.at(title).indexOf(QStringLiteral("Name")));
}

void TestReport::chosenInterfaceIsMarked()
{
    const QStringList lines = linesOf(answeredReport(backend(), heard({network(1)}), {}));
    QVERIFY(lines.contains(QStringLiteral("    wlan0  usable")));
    QVERIFY(lines.contains(QStringLiteral("  > wlan1  usable  (Airlume uses this one)")));
}

void TestReport::interfaceThatIsReadIsMarkedAgainstTheRule()
{
    Answers answers = heard({network(1)});
    answers.alike = {true, false};
    const Report report = answeredReport(backend(), answers, {});
    QVERIFY(linesOf(report).contains(QStringLiteral("  > wlan0  usable  (Airlume uses this one)")));
    const QJsonArray interfaces = json(report).value(QStringLiteral("interfaces")).toArray();
    QVERIFY(interfaces.at(0).toObject().value(QStringLiteral("chosen")).toBool());
    QVERIFY(!interfaces.at(1).toObject().value(QStringLiteral("chosen")).toBool());
}

void TestReport::channelsAt6GHzAreSaidToBeThere()
{
    ScanMap sixth = network(1);
    sixth.insert(ScanKey::Channel, QStringLiteral("6005"));
    const QString text = textReport(answeredReport(backend(), heard({sixth, network(2)}), {}));
    QVERIFY2(text.contains(QStringLiteral("  1          -1  5 (6 GHz)  ")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("  2          -2          2  ")), qPrintable(text));
}

void TestReport::odditiesStandApartFromBreaches()
{
    ScanMap wrong = network(1);
    wrong.insert(ScanKey::Bssid, QStringLiteral("upstairs"));
    wrong.insert(ScanKey::Channel, QStringLiteral("x"));
    const QString text = textReport(answeredReport(backend(), heard({wrong}), {}));
    const int oddities = text.indexOf(QStringLiteral("\nOdd, but no fault\n"));
    const int breaches = text.indexOf(QStringLiteral("\nBreaks of the contract\n"));
    QVERIFY(oddities > 0 && breaches > oddities);
    QVERIFY(text.indexOf(QStringLiteral("\"bssid\" should be")) < breaches);
    QVERIFY(text.indexOf(QStringLiteral("\"channel\" must be")) > breaches);
}

void TestReport::longListsAreCutInTextOnly()
{
    QList<ScanMap> networks;
    for (int i = 0; i < 1000; ++i)
        networks.append(network(i));
    const Report report = answeredReport(backend(), heard(networks), {});
    const QString text = textReport(report);
    QVERIFY(text.contains(QStringLiteral("  and 800 more; --json lists all\n")));
    QVERIFY(text.count(QLatin1Char('\n')) < 260);
    QCOMPARE(json(report).value(QStringLiteral("networks")).toArray().size(), 1000);
}

void TestReport::manyMessagesAreCutInTextOnly()
{
    const QVector<Message> messages(50, {QStringLiteral("warning"), QStringLiteral("again")});
    const Report report = answeredReport(backend(), heard({}), {messages, {}, {}});
    QCOMPARE(textReport(report).count(QStringLiteral("  warning: again\n")), 20);
    QVERIFY(textReport(report).contains(QStringLiteral("  and 30 more; --json lists all\n")));
    QCOMPARE(json(report).value(QStringLiteral("messages")).toArray().size(), 50);
}

void TestReport::commandsAreNeverBrokenBetweenLines()
{
    const QString command = QStringLiteral("`sudo do something for me`");
    for (int before = 1; before < 90; ++before) {
        const QString advice = QString(before, QLatin1Char('x')) + QLatin1Char(' ') + command +
                               QStringLiteral(", and a few words more behind it.");
        const QStringList lines =
            linesOf(problemReport(backend(), {QStringLiteral("x"), advice, {advice}}, {}));
        QCOMPARE(lines.filter(command).size(), 2);
        QVERIFY(lines.join(QLatin1Char(' '))
                    .simplified()
                    .contains(command + QStringLiteral(", and a few words more behind it.")));
        for (const QString &line : lines)
            QVERIFY(line.size() <= qMax(80, before + 8));
    }
}

void TestReport::jsonHoldsEverythingAsItCame()
{
    ScanMap odd = network(3);
    const QString name = QStringLiteral("\x1b[2J\"\\\n") + QChar(0x202e) + QChar(0) +
                         QString::fromUtf8("\xf0\x9f\x93\xb6") + QString(5000, QLatin1Char('w'));
    odd.insert(ScanKey::Ssid, name);
    odd.insert(ScanKey::Channel, QStringLiteral("x"));
    odd.insert(QStringLiteral("vendor"), QStringLiteral("y"));
    const QJsonObject object = json(answeredReport(backend(), heard({odd}),
        {{{QStringLiteral("info"), QStringLiteral("said")}}, "out", "err"}));

    QCOMPARE(object.value(QStringLiteral("format")).toInt(), 1);
    QCOMPARE(object.value(QStringLiteral("result")).toString(), QStringLiteral("out-of-contract"));
    QCOMPARE(object.value(QStringLiteral("status")).toInt(), 2);
    QVERIFY(object.value(QStringLiteral("reason")).isNull());
    QCOMPARE(object.value(QStringLiteral("listed")), QJsonValue(true));
    QCOMPARE(object.value(QStringLiteral("queried")), QJsonValue(true));
    const QJsonObject heardNetwork =
        object.value(QStringLiteral("networks")).toArray().at(0).toObject();
    QCOMPARE(heardNetwork.size(), odd.size());
    for (auto value = odd.cbegin(); value != odd.cend(); ++value)
        QCOMPARE(heardNetwork.value(value.key()).toString(), value.value());
    const QJsonArray interfaces = object.value(QStringLiteral("interfaces")).toArray();
    QCOMPARE(interfaces.size(), 2);
    QCOMPARE(interfaces.at(1).toObject().value(QStringLiteral("chosen")), QJsonValue(true));
    const QJsonObject deviation =
        object.value(QStringLiteral("deviations")).toArray().at(0).toObject();
    QCOMPARE(deviation.value(QStringLiteral("code")).toString(), QStringLiteral("bad-channel"));
    QCOMPARE(deviation.value(QStringLiteral("kind")).toString(), QStringLiteral("broken"));
    QCOMPARE(object.value(QStringLiteral("stdout")).toString(), QStringLiteral("out"));
    QCOMPARE(object.value(QStringLiteral("stderr")).toString(), QStringLiteral("err"));
    QCOMPARE(deviation.value(QStringLiteral("count")).toInt(), 1);
    QCOMPARE(object.value(QStringLiteral("times"))
                 .toObject()
                 .value(QStringLiteral("getWiFiNicList"))
                 .toDouble(),
        0.5);
    QVERIFY(object.value(QStringLiteral("times"))
                .toObject()
                .value(QStringLiteral("isWiFiNicUsable"))
                .isNull());
    QCOMPARE(object.value(QStringLiteral("messages")).toArray().at(0).toObject(),
        (QJsonObject{{QStringLiteral("level"), QStringLiteral("info")},
            {QStringLiteral("text"), QStringLiteral("said")}}));
    QVERIFY(
        QDateTime::fromString(object.value(QStringLiteral("time")).toString(), Qt::ISODateWithMs)
            .isValid());
}

void TestReport::jsonOfAProblemHasTheSameMembers()
{
    const QJsonObject problem = json(problemReport(Backend(),
        {QStringLiteral("not-found"), QStringLiteral("words"), {QStringLiteral("advice")}}, {}));
    QCOMPARE(problem.keys(), json(answeredReport(backend(), heard({network(1)}), {})).keys());
    QCOMPARE(problem.value(QStringLiteral("result")).toString(), QStringLiteral("no-answers"));
    QCOMPARE(problem.value(QStringLiteral("reason")).toString(), QStringLiteral("not-found"));
    QCOMPARE(problem.value(QStringLiteral("text")).toString(), QStringLiteral("words"));
    QVERIFY(problem.value(QStringLiteral("listed")).isNull());
    QVERIFY(problem.value(QStringLiteral("queried")).isNull());
}

void TestReport::jsonIsOneLineOfAscii()
{
    QString everything;
    for (uint character = 0; character < 0x10000; ++character)
        everything += QChar(character);
    ScanMap odd = network(1);
    odd.insert(ScanKey::Ssid, everything);
    const QByteArray line = jsonReport(answeredReport(backend(), heard({odd}), {}));
    for (const char octet : line)
        QVERIFY(octet >= 0x20 && octet < 0x7f);
    QJsonParseError error;
    QJsonDocument::fromJson(line, &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
}

QTEST_APPLESS_MAIN(TestReport)

#include "tst_report.moc"

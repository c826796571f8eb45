#include "plugincheck/anonymizer.h"
#include "plugincheck/contract.h"
#include "plugincheck/recordfile.h"
#include "plugincheck/replay.h"
#include "plugincheck/transcript.h"
#include "simulated/scenarioparser.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace PluginCheck;

Q_DECLARE_METATYPE(QVector<PluginCheck::Answers>)

namespace
{

ScanMap network(const char *bssid, const char *name, int signal, int channel = 6)
{
    return {{ScanKey::Ssid, QString::fromUtf8(name)}, {ScanKey::Bssid, QLatin1String(bssid)},
        {ScanKey::Channel, QString::number(channel)}, {ScanKey::Connected, QStringLiteral("0")},
        {ScanKey::Security, QStringLiteral("WPA2-PSK")},
        {ScanKey::Signal, QString::number(signal)}};
}

ScanMap with(ScanMap map, const QString &key, const QString &value)
{
    map.insert(key, value);
    return map;
}

ScanMap joined(const ScanMap &map)
{
    return with(
        with(map, ScanKey::Connected, ScanJoined), ScanKey::LinkRate, QStringLiteral("433"));
}

/// One sound interface that hears these.
Answers heard(const QList<ScanMap> &networks)
{
    Answers answers;
    answers.listed = true;
    answers.interfaces = QStringList{QStringLiteral("wlan0")};
    answers.usable = {true};
    answers.queried = true;
    answers.networks = networks;
    return answers;
}

Answers withInterfaces(const QStringList &names, const QVector<bool> &usable, bool queried)
{
    Answers answers = heard({network("02:00:00:00:00:01", "A", -40)});
    answers.interfaces = names;
    answers.usable = usable;
    answers.queried = names.isEmpty() ? std::nullopt : std::optional<bool>(queried);
    if (answers.queried != true)
        answers.networks.clear();
    return answers;
}

} // namespace

/// A record replays what was heard.
class TestTranscript : public QObject
{
    Q_OBJECT

private slots:
    void replayAnswersAsTheOriginal_data();
    void replayAnswersAsTheOriginal();
    void recordOfAReplayEqualsTheRecord_data();
    void recordOfAReplayEqualsTheRecord();
    void nothingIsWrittenWhenNothingChanges();
    void fileIsWholeAfterEachStep();
    void existingFileIsLeftAlone();
    void recordEndsWhereAReplayWould();
    void namesAndAddressesAreReplacedAlike();
    void namesOfInterfacesLoseTheirAddress();
};

void TestTranscript::replayAnswersAsTheOriginal_data()
{
    QTest::addColumn<QVector<Answers>>("rounds");
    const ScanMap a = network("02:00:00:00:00:0a", "A", -40);
    const ScanMap b = network("02:00:00:00:00:0b", "B", -50, 44);
    const ScanMap c = network("02:00:00:00:00:0c", "", -60, 6005);
    QTest::newRow("signals and newcomers")
        << QVector<Answers>{heard({a}), heard({with(a, ScanKey::Signal, QStringLiteral("-41")), b}),
               heard({c, a, b}), heard({a}), heard({}), heard({a, b, c})};
    QTest::newRow("order") << QVector<Answers>{
        heard({a, b, c}), heard({c, a, b}), heard({b}), heard({a, b}), heard({c, b, a})};
    QTest::newRow("roaming") << QVector<Answers>{
        heard({joined(a), b}), heard({a, joined(b)}), heard({a, b}), heard({joined(b), a})};
    QTest::newRow("changes of the network itself")
        << QVector<Answers>{heard({a}), heard({with(a, ScanKey::Channel, QStringLiteral("11"))}),
               heard({with(a, ScanKey::Security, QStringLiteral("Open"))}),
               heard({with(a, ScanKey::Ssid, QStringLiteral("Renamed"))})};
    ScanMap bare = a;
    bare.remove(ScanKey::Channel);
    bare.remove(ScanKey::Bssid);
    QTest::newRow("what no field can hold")
        << QVector<Answers>{heard({with(a, ScanKey::Channel, QStringLiteral("x")),
                                with(b, ScanKey::Signal, QStringLiteral("-105"))}),
               heard({with(a, ScanKey::Connected, QStringLiteral("true")),
                   with(b, QStringLiteral("vendor"), QStringLiteral("y"))}),
               heard({bare, b}), heard({joined(a), joined(b)}), heard({bare, a, a}),
               heard({with(a, ScanKey::Bssid, QStringLiteral("upstairs"))}), heard({ScanMap()}),
               heard({with(a, ScanKey::Bssid, QStringLiteral("02:00:00:00:00:0A")), a})};
    const QString w0 = QStringLiteral("wlan0");
    const QString w1 = QStringLiteral("wlan1");
    QTest::newRow("interfaces") << QVector<Answers>{withInterfaces({w0}, {true}, true),
        withInterfaces({w0, w1}, {true, false}, true), withInterfaces({w1, w0}, {true, true}, true),
        withInterfaces({w1}, {false}, false), withInterfaces({}, {}, false),
        withInterfaces({w0}, {true}, false), withInterfaces({w0}, {true}, true),
        withInterfaces({w0}, {false}, true), withInterfaces({w0, w1}, {false, false}, false)};
    Answers unlisted = heard({a});
    unlisted.listed = false;
    QTest::newRow("failures") << QVector<Answers>{
        heard({a}), unlisted, withInterfaces({w0}, {true}, false), heard({a}), unlisted};
}

void TestTranscript::replayAnswersAsTheOriginal()
{
    QFETCH(QVector<Answers>, rounds);
    const QVector<Answers> again = replayed(recordOf(rounds), rounds.size());
    for (int i = 0; i < rounds.size(); ++i) {
        QVERIFY2(again.at(i).networks == rounds.at(i).networks, qPrintable(QString::number(i)));
        QCOMPARE(again.at(i).interfaces, rounds.at(i).interfaces);
        QCOMPARE(again.at(i).usable, rounds.at(i).usable);
        QCOMPARE(again.at(i).listed, rounds.at(i).listed);
        QVERIFY2(again.at(i).queried == rounds.at(i).queried, qPrintable(QString::number(i)));
    }
}

void TestTranscript::recordOfAReplayEqualsTheRecord_data()
{
    QTest::addColumn<QByteArray>("scenario");
    for (const char *path :
        {"/docs/examples/scenario.json", "/plugins/simulated/neighbourhood.json"}) {
        QTest::newRow(path) << readAll(QStringLiteral(AIRLUME_SOURCE_DIR) + QLatin1String(path));
    }
}

void TestTranscript::recordOfAReplayEqualsTheRecord()
{
    QFETCH(QByteArray, scenario);
    const QVector<Answers> original = replayed(scenario, 300);
    const QByteArray record = recordOf(original);
    const QVector<Answers> again = replayed(record, 300);
    for (int i = 0; i < 300; ++i)
        QVERIFY2(again.at(i).networks == original.at(i).networks, qPrintable(QString::number(i)));
    QVERIFY(record.size() > 1000);
    QCOMPARE(recordOf(again), record);
}

void TestTranscript::nothingIsWrittenWhenNothingChanges()
{
    const Answers round = heard({joined(network("02:00:00:00:00:0a", "A", -40))});
    Transcript transcript;
    QCOMPARE(transcript.add(round, 0).size(), 3);
    QCOMPARE(transcript.add(round, 1).size(), 0);
}

void TestTranscript::fileIsWholeAfterEachStep()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("record.json"));
    RecordFile file;
    Transcript transcript;
    QCOMPARE(file.open(path), QString());
    for (int second = 0; second < 20; ++second) {
        const ScenarioResult result = ParseScenario(readAll(path));
        QCOMPARE(result.error.text, QString());
        QCOMPARE(result.scenario.events.size(), second == 0 ? 0 : second + 1);
        const Answers round = heard({network("02:00:00:00:00:0a", "A", -40 - second)});
        QCOMPARE(file.add(transcript.add(round, second)), QString());
    }
}

void TestTranscript::existingFileIsLeftAlone()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("record.json"));
    QFile precious(path);
    QVERIFY(precious.open(QIODevice::WriteOnly));
    precious.write("mine");
    precious.close();
    QVERIFY(RecordFile().open(path).contains(path));
    QCOMPARE(readAll(path), QByteArray("mine"));
    QVERIFY(!RecordFile().open(QStringLiteral("/no/such/folder/record.json")).isEmpty());
}

void TestTranscript::recordEndsWhereAReplayWould()
{
    QCOMPARE(RecordFile::MaximumSize, qint64(ScenarioLimits::Bytes));
    QCOMPARE(RecordFile::MaximumEvents, ScenarioLimits::Events);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("record.json"));
    RecordFile file;
    Transcript transcript;
    QCOMPARE(file.open(path), QString());
    const QByteArray name(1024 * 1024, 'x');
    QString problem;
    for (int i = 0; i < 20 && problem.isEmpty(); ++i) {
        const QByteArray address = "02:00:00:00:00:" + QByteArray::number(10 + i);
        problem = file.add(
            transcript.add(heard({network(address.constData(), name.constData(), -40)}), i));
    }
    QVERIFY(problem.contains(QStringLiteral("size")));
    const QByteArray record = readAll(path);
    QVERIFY(record.size() <= ScenarioLimits::Bytes && record.size() > 10 * name.size());
    QCOMPARE(ParseScenario(record).error.text, QString());
}

void TestTranscript::namesAndAddressesAreReplacedAlike()
{
    Anonymizer anonymizer;
    const auto replaced = [&anonymizer](const QList<ScanMap> &networks) {
        return anonymizer.anonymous(heard(networks)).networks;
    };
    ScanMap secret = joined(network("3C:37:86:aa:bb:cc", "Smith family", -40));
    secret.insert(QStringLiteral("note"), QStringLiteral("Smith"));
    const QList<ScanMap> first =
        replaced({secret, network("3c:37:86:aa:bb:cd", "Smith family", -50),
            network("00:11:22:33:44:55", "", -60), network("upstairs", "Other", -60)});
    QCOMPARE(first.at(0), joined(network("3c:37:86:00:00:01", "Network 1", -40)));
    QCOMPARE(first.at(1), network("3c:37:86:00:00:02", "Network 1", -50));
    QCOMPARE(first.at(2), network("00:11:22:00:00:03", "", -60));
    QCOMPARE(first.at(3), network("address 4", "Network 2", -60));
    QCOMPARE(replaced({network("3c:37:86:aa:bb:cd", "Other", -51)}),
        QList<ScanMap>{network("3c:37:86:00:00:02", "Network 2", -51)});
}

void TestTranscript::namesOfInterfacesLoseTheirAddress()
{
    Anonymizer anonymizer;
    Answers answers = heard({});
    answers.interfaces = QStringList{QStringLiteral("wlan0"), QStringLiteral("wlx3c3786aabbcc")};
    QCOMPARE(anonymizer.anonymous(answers).interfaces,
        (QStringList{QStringLiteral("wlan0"), QStringLiteral("wlx3c3786000001")}));
}

QTEST_APPLESS_MAIN(TestTranscript)

#include "tst_transcript.moc"

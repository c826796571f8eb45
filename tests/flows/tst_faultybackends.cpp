#include "flows/airlumeprocess.h"

#include <QSettings>
#include <QtTest>

namespace
{
const QString NoRadio = QStringLiteral("Please make sure turn on the wireless radio.");

QString status(const QJsonObject &state)
{
    return state[QStringLiteral("status")].toString();
}

int rowCount(const QJsonObject &state)
{
    return state[QStringLiteral("rows")].toArray().size();
}
} // namespace

/// The program with back ends that are missing, wrong or misbehaving.
class TestFaultyBackEnds : public QObject
{
    Q_OBJECT

private slots:
    void opensWithoutAUsableBackEnd_data();
    void opensWithoutAUsableBackEnd();
    void showsGarbageAsItCan();
    void anEmptyAnswerIsNoFault();
    void showsFifteenOfAThousandNetworks();
    void goesOnAfterFailedQueries();
    void staysAliveWhileTheBackEndBlocks();
    void radioSwitchedOffAndOnIsFollowed();
    void onlyInterfaceIsUsedAgainWhenItComesBack();
    void badScenarioFileLeavesNoInterface();
    void anExceptionEndsTheProgramAsACrashDoes();
};

void TestFaultyBackEnds::opensWithoutAUsableBackEnd_data()
{
    QTest::addColumn<QString>("backEnd");
    QTest::newRow("missing") << QString();
    QTest::newRow("of another interface") << QStringLiteral("tests/backends/wronginterface");
    QTest::newRow("no library at all") << QStringLiteral("tests/backends/notalibrary");
    QTest::newRow("without interfaces") << QStringLiteral("tests/backends/noint");
    QTest::newRow("radio off") << QStringLiteral("tests/backends/radiooff");
}

void TestFaultyBackEnds::opensWithoutAUsableBackEnd()
{
    QFETCH(QString, backEnd);
    AirlumeProcess airlume(backEnd);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return status(state) == NoRadio; }));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("connected")].toString() == QLatin1String("Not Connected");
    }));
    QCOMPARE(rowCount(airlume.state()), 0);
}

void TestFaultyBackEnds::showsGarbageAsItCan()
{
    AirlumeProcess airlume(QStringLiteral("tests/backends/garbage"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return rowCount(state) > 0; }));
    const QJsonArray rows = airlume.state()[QStringLiteral("rows")].toArray();
    for (const QJsonValue &row : rows) {
        const int signal = row.toArray().at(2).toString().toInt();
        const int channel = row.toArray().at(3).toString().toInt();
        QVERIFY2(signal >= -100 && signal <= 0, qPrintable(QString::number(signal)));
        QVERIFY2(channel >= 0 && channel < 65536, qPrintable(QString::number(channel)));
    }
    for (int tab = 3; tab >= 0; --tab)
        QVERIFY(airlume.command(QStringLiteral("tab %1").arg(tab)));
    for (int row = 0; row < rows.size(); ++row) {
        airlume.command(QStringLiteral("tick %1").arg(row));
        airlume.command(QStringLiteral("tick %1").arg(row));
    }
    QVERIFY(airlume.state()[QStringLiteral("visible")].toBool());
}

void TestFaultyBackEnds::anEmptyAnswerIsNoFault()
{
    AirlumeProcess airlume(QStringLiteral("tests/backends/nonetworks"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY2(airlume.waitFor([&airlume](const QJsonObject &) {
        return airlume.output().contains(QStringLiteral("nic:"));
    }),
        qPrintable(airlume.output()));
    QCOMPARE(status(airlume.state()), QStringLiteral("Scanning..."));
    QCOMPARE(rowCount(airlume.state()), 0);
}

void TestFaultyBackEnds::showsFifteenOfAThousandNetworks()
{
    AirlumeProcess airlume(QStringLiteral("tests/backends/thousand"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return rowCount(state) > 0; }));
    QCOMPARE(rowCount(airlume.state()), 15);
    for (int tab = 3; tab >= 0; --tab)
        QVERIFY(airlume.command(QStringLiteral("tab %1").arg(tab)));
}

void TestFaultyBackEnds::goesOnAfterFailedQueries()
{
    AirlumeProcess airlume(QStringLiteral("tests/backends/alternating"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return status(state) == NoRadio; }));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return rowCount(state) > 0; }));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return status(state) == NoRadio; }));
}

void TestFaultyBackEnds::staysAliveWhileTheBackEndBlocks()
{
    AirlumeProcess airlume(QStringLiteral("tests/backends/blocking"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.command(QStringLiteral("click maximize")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("geometry")].toArray().at(3).toInt() > 700 ||
               state[QStringLiteral("geometry")].toArray().at(0).toInt() == 0;
    }));
}

void TestFaultyBackEnds::onlyInterfaceIsUsedAgainWhenItComesBack()
{
    AirlumeProcess airlume(QStringLiteral("plugins/simulated"));
    airlume.setScenario(R"({"generate": {"count": 5},
        "events": [{"at": 3, "do": "unplug"}, {"at": 30, "do": "plug"}]})");
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return rowCount(state) == 5; }));
    QVERIFY(airlume.waitFor(
        [](const QJsonObject &state) { return status(state) == NoRadio && rowCount(state) == 0; }));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return status(state) == QLatin1String("Scanning...") && rowCount(state) == 5;
    }));
}

void TestFaultyBackEnds::radioSwitchedOffAndOnIsFollowed()
{
    AirlumeProcess airlume(QStringLiteral("plugins/simulated"));
    airlume.setScenario(R"({"generate": {"count": 5},
        "events": [{"at": 3, "do": "radio_off"}, {"at": 9, "do": "radio_on"}]})");
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return rowCount(state) == 5; }));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return status(state) == NoRadio; }));
    QVERIFY(airlume.waitFor(
        [](const QJsonObject &state) { return status(state) == QLatin1String("Scanning..."); }));
}

void TestFaultyBackEnds::badScenarioFileLeavesNoInterface()
{
    AirlumeProcess airlume(QStringLiteral("plugins/simulated"));
    airlume.setScenario(R"({"networks": [{"ssid": "A", "bssid": "02:00:00:00:00:01",
        "channel": "six"}]})");
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) { return status(state) == NoRadio; }));
    const QStringList lines = airlume.output().split(QLatin1Char('\n'));
    const QStringList complaints = lines.filter(QStringLiteral("networks[0].channel"));
    QCOMPARE(complaints.size(), 1);
    QVERIFY(complaints.first().contains(QLatin1String("scenario.json")));
}

void TestFaultyBackEnds::anExceptionEndsTheProgramAsACrashDoes()
{
    AirlumeProcess airlume(QStringLiteral("tests/backends/faulty"));
    airlume.setEnvironment(QStringLiteral("AIRLUME_TEST_FAULT"), QStringLiteral("throw"));
    airlume.launch();
    QVERIFY(airlume.waitForEnd());
    QVERIFY(!airlume.endedNormally());
    QVERIFY2(airlume.output().contains(QStringLiteral("terminate called")),
        qPrintable(airlume.output()));
    // The rooms were written before.
    const QSettings rooms(
        airlume.folder() + QStringLiteral("/WifiHomeTest.ini"), QSettings::IniFormat);
    QCOMPARE(rooms.childGroups().size(), 5);
}

QTEST_GUILESS_MAIN(TestFaultyBackEnds)
#include "tst_faultybackends.moc"

#include "flows/airlumeprocess.h"

#include <QFile>
#include <QSettings>
#include <QtTest>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");

} // namespace

/// The program from start to end, as a process.
class TestStartUp : public QObject
{
    Q_OBJECT

private slots:
    void firstStartShowsTheNetworksAndMakesTheRooms();
    void secondCopyEndsAtOnceAndLeavesTheFirstAlone();
    void socketOfACrashedCopyIsNoHindrance();
    void closeButtonEndsWithStatusZero_data();
    void closeButtonEndsWithStatusZero();
    void joinedNetworkIsTickedAndNamed();
    void logIsUtf8InEveryLocale();
};

void TestStartUp::firstStartShowsTheNetworksAndMakesTheRooms()
{
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY2(airlume.waitFor(hasRows), qPrintable(airlume.output()));
    const QJsonObject state = airlume.state();
    QCOMPARE(state[QStringLiteral("geometry")].toArray().at(2).toInt(), 1100);
    QCOMPARE(state[QStringLiteral("status")].toString(), QStringLiteral("Scanning..."));
    QCOMPARE(state[QStringLiteral("rows")].toArray().size(), 15);
    QCOMPARE(state[QStringLiteral("tabs")].toArray(),
        QJsonArray({QStringLiteral("Signal Graph"), QStringLiteral("Channel Graph"),
            QStringLiteral("Channel Interference"), QStringLiteral("Home Testing")}));
    QVERIFY(airlume.output().contains(QStringLiteral("open qss success")));
    QVERIFY2(
        !airlume.output().contains(QStringLiteral("NUll point")), qPrintable(airlume.output()));

    QSettings rooms(airlume.folder() + QStringLiteral("/WifiHomeTest.ini"), QSettings::IniFormat);
    QCOMPARE(rooms.childGroups(), QStringList({QStringLiteral("Bedroom1"),
                                      QStringLiteral("Bedroom2"), QStringLiteral("Home Office"),
                                      QStringLiteral("Kitchen"), QStringLiteral("Living Room")}));
}

void TestStartUp::secondCopyEndsAtOnceAndLeavesTheFirstAlone()
{
    AirlumeProcess first(Simulated);
    QVERIFY2(first.start(), qPrintable(first.output()));
    QVERIFY(first.waitFor(hasRows));
    const QJsonValue before = first.state()[QStringLiteral("geometry")];
    for (int copy = 0; copy < 3; ++copy) {
        AirlumeProcess second(Simulated);
        second.launch();
        QVERIFY(second.waitForEnd());
        QVERIFY(second.endedNormally());
        QCOMPARE(second.exitCode(), 0);
        // It never came as far as the window, or as the room file.
        QVERIFY2(!second.output().contains(QStringLiteral("qss")), qPrintable(second.output()));
        QVERIFY(!QFile::exists(second.folder() + QStringLiteral("/WifiHomeTest.ini")));
    }
    QVERIFY(first.isRunning());
    QCOMPARE(first.state()[QStringLiteral("geometry")], before);
}

void TestStartUp::socketOfACrashedCopyIsNoHindrance()
{
    AirlumeProcess crashed(Simulated);
    QVERIFY2(crashed.start(), qPrintable(crashed.output()));
    QVERIFY(crashed.waitFor(hasRows));
    crashed.kill();
    QVERIFY(QFile::exists(QDir::tempPath() + QStringLiteral("/Airlume_LocalServer")));

    AirlumeProcess next(Simulated);
    QVERIFY2(next.start(), qPrintable(next.output()));
    QVERIFY(next.waitFor(hasRows));
    AirlumeProcess further(Simulated);
    further.launch();
    QVERIFY(further.waitForEnd());
    QCOMPARE(further.exitCode(), 0);
    QVERIFY(next.isRunning());
}

void TestStartUp::closeButtonEndsWithStatusZero_data()
{
    QTest::addColumn<QString>("backEnd");
    QTest::newRow("while both threads run") << Simulated;
    QTest::newRow("while the back end does not answer")
        << QStringLiteral("tests/backends/blocking");
    QTest::newRow("without a back end") << QString();
}

void TestStartUp::closeButtonEndsWithStatusZero()
{
    QFETCH(QString, backEnd);
    AirlumeProcess airlume(backEnd);
    // Far longer than the end is waited for.
    airlume.setEnvironment(QStringLiteral("AIRLUME_TEST_BLOCK_SECONDS"), QStringLiteral("3600"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([&](const QJsonObject &) {
        return !backEnd.endsWith(QStringLiteral("blocking")) ||
               airlume.output().contains(QStringLiteral("Blocking now"));
    }));
    QVERIFY(airlume.command(QStringLiteral("click close1")));
    QVERIFY(airlume.waitForEnd());
    QVERIFY(airlume.endedNormally());
    QCOMPARE(airlume.exitCode(), 0);
}

void TestStartUp::joinedNetworkIsTickedAndNamed()
{
    AirlumeProcess airlume(Simulated);
    airlume.setScenario(R"({"networks": [
        {"ssid": "<b>Home</b>", "bssid": "02:00:00:00:00:01", "channel": 44, "joined": true},
        {"ssid": "Other", "bssid": "02:00:00:00:00:02", "channel": 6}]})");
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("connected")].toString() ==
               QLatin1String("Connected to <b>Home</b>");
    }));
    QVERIFY(airlume.waitFor(hasRows));
    // Unticked by hand, it stays so, and a second click shows its curve.
    QVERIFY(airlume.command(QStringLiteral("tick 0")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return !state[QStringLiteral("rows")].toArray().at(0).toArray().at(0).toBool();
    }));
}

void TestStartUp::logIsUtf8InEveryLocale()
{
    AirlumeProcess airlume(Simulated);
    airlume.setEnvironment(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    const QString name = QString::fromUtf8("wlän無");
    airlume.setScenario("{\"interfaces\": [{\"name\": \"" + name.toUtf8() + "\"}]}");
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    const QString line = QStringLiteral("nic: \"%1\"").arg(name);
    QVERIFY2(airlume.waitFor([&](const QJsonObject &) { return airlume.output().contains(line); }),
        qPrintable(airlume.output()));
}

QTEST_GUILESS_MAIN(TestStartUp)
#include "tst_startup.moc"

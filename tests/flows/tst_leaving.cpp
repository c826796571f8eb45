#include "flows/airlumeprocess.h"

#include <QtTest>

namespace
{
/// Joined at first; left, and joined again long after that must have been noticed.
const QByteArray Scenario = R"({
    "networks": [
        { "ssid": "Attic", "bssid": "02:00:00:00:00:01", "channel": 1, "signal": -70 },
        { "ssid": "Home", "bssid": "02:00:00:00:00:02", "channel": 44, "signal": -50, "wander": 0,
          "joined": true, "link_rate": 433 },
        { "ssid": "", "bssid": "02:00:00:00:00:03", "channel": 11, "signal": -60 }
    ],
    "events": [
        { "at": 8, "do": "leave" },
        { "at": 70, "do": "join", "bssid": "02:00:00:00:00:02" }
    ]
})";
const QString NotConnected = QStringLiteral("Not Connected");

QStringList texts(const QJsonObject &state, const char *key)
{
    return state[QLatin1String(key)].toVariant().toStringList();
}

std::function<bool(const QJsonObject &)> connected(const QString &text)
{
    return [text](const QJsonObject &state) {
        return state[QStringLiteral("connected")].toString() == text;
    };
}

/// Name and tick of each row.
QStringList ticks(const QJsonObject &state)
{
    QStringList found;
    const QJsonArray rows = state[QStringLiteral("rows")].toArray();
    for (const QJsonValue &row : rows)
        found.append(QStringLiteral("%1 %2").arg(row[1].toString()).arg(row[0].toBool()));
    return found;
}
} // namespace

/// The computer leaves its network while scans go on, and joins it again.
class TestLeaving : public QObject
{
    Q_OBJECT

private slots:
    void leavingIsSeenEverywhereAndJoiningAgainToo();
};

void TestLeaving::leavingIsSeenEverywhereAndJoiningAgainToo()
{
    AirlumeProcess airlume(QStringLiteral("plugins/simulated"));
    airlume.setScenario(Scenario);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    const QString home = QStringLiteral("Connected to Home");
    QVERIFY(airlume.waitFor(connected(home)));
    QVERIFY(airlume.command(QStringLiteral("tab 3")));
    QVERIFY(airlume.command(QStringLiteral("room 0")));
    QVERIFY(airlume.command(QStringLiteral("click HomeTesting_btn_Test")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return texts(state, "rooms").first().contains(QStringLiteral("Now:50% signal and "));
    }));
    QJsonObject before = airlume.state();
    QCOMPARE(before[QStringLiteral("gauge")].toInt(), -50);
    QCOMPARE(texts(before, "bold"), QStringList(QStringLiteral("Home")));
    QCOMPARE(ticks(before).size(), 3);

    QVERIFY(airlume.waitFor(connected(NotConnected)));
    const QJsonObject left = airlume.state();
    QCOMPARE(left[QStringLiteral("gauge")].toInt(), 0);
    QCOMPARE(texts(left, "bold"), QStringList());
    QCOMPARE(ticks(left), ticks(before));
    QVERIFY(airlume.command(QStringLiteral("click HomeTesting_btn_Test")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("modal")].toString() == QLatin1String("QMessageBox") &&
               texts(state, "labels").contains(QStringLiteral("No Network Connected!"));
    }));
    QVERIFY(airlume.command(QStringLiteral("dismiss")));
    QCOMPARE(texts(airlume.state(), "rooms"), texts(before, "rooms"));

    QVERIFY(airlume.waitFor(connected(home), 180000));
    const QJsonObject again = airlume.state();
    QCOMPARE(texts(again, "bold"), QStringList(QStringLiteral("Home")));
    QCOMPARE(ticks(again), ticks(before));
    QVERIFY(airlume.waitFor(
        [](const QJsonObject &state) { return state[QStringLiteral("gauge")].toInt() == -50; }));
    QVERIFY(airlume.command(QStringLiteral("click HomeTesting_btn_Test")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return texts(state, "rooms").first().contains(QStringLiteral("Last:50% signal and "));
    }));
    QVERIFY(airlume.command(QStringLiteral("click close1")));
    QVERIFY(airlume.waitForEnd());
    QCOMPARE(airlume.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestLeaving)
#include "tst_leaving.moc"

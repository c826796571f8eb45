#include "air.h"
#include "companion.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QMap>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <functional>

/// What an ordinary user's list of networks does over minutes, whoever manages the radio. Runs
/// inside of the virtual machine, as root. AIRLUME_WATCH_SECONDS (60) is how long is watched.
class TestSteady : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void wholeListIsHeardSoon();
    void joinedListIsSteady();
    void roamingKeepsTheOrder();
    void changedAccessPointStandsOnce_data();
    void changedAccessPointStandsOnce();
    void switchedOffAccessPointLeaves();
    void haltedBusHoldsNothingUp();

private:
    using Condition = std::function<bool(const QJsonObject &)>;
    bool until(const Condition &condition, int seconds = 120);

    Companion m_desk{QStringLiteral("desk"), true};
};

namespace
{
const int TickMs = 4000; ///< Airlume asks that often.

int watchSeconds()
{
    bool given = false;
    const int seconds = qEnvironmentVariableIntValue("AIRLUME_WATCH_SECONDS", &given);
    return given ? seconds : 60;
}

QString value(const QJsonObject &network, const char *key)
{
    return network.value(QLatin1String(key)).toString();
}

QStringList bssidsOf(const QJsonObject &answer)
{
    QStringList bssids;
    for (const QJsonObject &network : networksOf(answer))
        bssids.append(value(network, "bssid"));
    return bssids;
}

/// Holds one answer after the other against what came before.
class Watch
{
public:
    void take(const QJsonObject &answer)
    {
        ++m_answers;
        if (!succeeded(answer)) {
            ++m_failures;
            return;
        }
        const QStringList bssids = bssidsOf(answer);
        const QSet<QString> now(bssids.cbegin(), bssids.cend());
        m_repeated += bssids.size() - now.size();
        for (const QString &bssid : qAsConst(m_last)) {
            if (!now.contains(bssid))
                m_gone.append(bssid);
        }
        m_last = now;
        m_fewest = m_answers == 1 ? now.size() : std::min(m_fewest, now.size());
        m_most = std::max(m_most, now.size());
        m_joined += joinedOf(answer).isEmpty() ? 0 : 1;
        takeOrder(answer);
    }

    int answers() const { return m_answers; }
    int failures() const { return m_failures; }
    int repeated() const { return m_repeated; }
    int joined() const { return m_joined; }
    int swaps() const { return m_swaps; }
    QStringList gone() const { return m_gone; }

    QString summary() const
    {
        return QStringLiteral("%1 queries: %2 to %3 networks, %4 disappearances%5, %6 stood twice, "
                              "%7 with one joined, %8 changes of order within a name")
            .arg(QString::number(m_answers), QString::number(m_fewest), QString::number(m_most),
                QString::number(m_gone.size()),
                m_gone.isEmpty()
                    ? QString()
                    : QStringLiteral(" (") + m_gone.join(QStringLiteral(", ")) + QLatin1Char(')'),
                QString::number(m_repeated), QString::number(m_joined), QString::number(m_swaps));
    }

private:
    void takeOrder(const QJsonObject &answer)
    {
        QMap<QString, QStringList> order;
        for (const QJsonObject &network : networksOf(answer))
            order[value(network, "ssid")].append(value(network, "bssid"));
        for (auto it = order.cbegin(); it != order.cend(); ++it) {
            const QStringList before = m_order.value(it.key());
            if (before.size() == it->size() && before != *it)
                ++m_swaps;
        }
        m_order = order;
    }

    int m_answers = 0;
    int m_failures = 0;
    int m_repeated = 0;
    int m_joined = 0;
    int m_swaps = 0;
    int m_fewest = 0;
    int m_most = 0;
    QStringList m_gone;
    QSet<QString> m_last;
    QMap<QString, QStringList> m_order; ///< BSSIDs by name.
};

bool join(const char *station)
{
    return Air::hwsim(QStringLiteral("station wlan0 ") + QLatin1String(station));
}
} // namespace

void TestSteady::initTestCase()
{
    if (!Air::available())
        QSKIP("there are no radios outside of the virtual machine");
    // The usual beacon interval: a scan that asks meets it about every second time.
    QVERIFY(Air::hwsim(QStringLiteral("change hidden extras shy")));
    QVERIFY(Air::hwsim(QStringLiteral("start hidden")));
    QVERIFY(Air::hwsim(QStringLiteral("group desk netdev")));
    QVERIFY(m_desk.startListener());
}

bool TestSteady::until(const Condition &condition, int seconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (condition(m_desk.networks()))
            return true;
        QTest::qWait(1000);
    } while (timer.elapsed() < seconds * 1000);
    return false;
}

void TestSteady::wholeListIsHeardSoon()
{
    QVector<Air::Station> stations = Air::stations();
    QElapsedTimer timer;
    timer.start();
    QString difference;
    const bool heard = until([&](const QJsonObject &answer) {
        difference = Air::difference(stations, networksOf(answer));
        return difference.isEmpty();
    });
    qInfo().noquote() << "the whole list after" << timer.elapsed() / 1000 << "s";
    QVERIFY2(heard, qPrintable(difference));
    QCOMPARE(m_desk.takeMessages(), QStringList());
}

void TestSteady::joinedListIsSteady()
{
    // Of two access points of that name iwd takes the one that it likes.
    QVERIFY(join("home5"));
    QVERIFY(until([](const QJsonObject &answer) {
        return value(joinedOf(answer), "ssid") == QStringLiteral("Home") &&
               networksOf(answer).size() == 10;
    }));
    Watch watch;
    while (watch.answers() * TickMs < watchSeconds() * 1000) {
        watch.take(m_desk.networks());
        QTest::qWait(TickMs);
    }
    qInfo().noquote() << watch.summary();
    QCOMPARE(watch.gone(), QStringList());
    QCOMPARE(watch.failures(), 0);
    QCOMPARE(watch.repeated(), 0);
    QCOMPARE(watch.joined(), watch.answers());
    QCOMPARE(watch.swaps(), 0);
}

void TestSteady::roamingKeepsTheOrder()
{
    if (!Air::hwsim(QStringLiteral("roam home2")))
        QSKIP("this manager chooses the access point itself");
    Watch watch;
    for (const char *const station : {"home2", "home5", "home2"}) {
        QVERIFY(Air::hwsim(QStringLiteral("roam ") + QLatin1String(station)));
        const QString bssid = QLatin1String(station) == QLatin1String("home2")
                                  ? QStringLiteral("02:00:00:00:02:00")
                                  : QStringLiteral("02:00:00:00:04:00");
        QVERIFY(until([&](const QJsonObject &answer) {
            watch.take(answer);
            return value(joinedOf(answer), "bssid") == bssid;
        }));
        for (int i = 0; i < 3; ++i) {
            watch.take(m_desk.networks());
            QTest::qWait(TickMs);
        }
    }
    qInfo().noquote() << watch.summary();
    QCOMPARE(watch.swaps(), 0);
    QCOMPARE(watch.repeated(), 0);
    QCOMPARE(watch.gone(), QStringList());
}

void TestSteady::changedAccessPointStandsOnce_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("channel") << "channel 11"
                             << "channel"
                             << "11";
    QTest::newRow("security") << "security sae"
                              << "security_mode"
                              << "WPA3-SAE";
    QTest::newRow("name") << "ssid Renamed"
                          << "ssid"
                          << "Renamed";
}

void TestSteady::changedAccessPointStandsOnce()
{
    QFETCH(QString, change);
    QFETCH(QString, key);
    QFETCH(QString, expected);
    const QString bssid = QStringLiteral("02:00:00:00:03:00");
    QVERIFY(Air::hwsim(QStringLiteral("change open ") + change));
    QVERIFY(Air::hwsim(QStringLiteral("start open")));
    Watch watch;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(until([&](const QJsonObject &answer) {
        watch.take(answer);
        const QVector<QJsonObject> networks = networksOf(answer);
        return std::any_of(networks.begin(), networks.end(), [&](const QJsonObject &network) {
            return value(network, "bssid") == bssid && network.value(key) == expected;
        });
    }));
    qInfo().noquote() << "seen after" << timer.elapsed() / 1000 << "s;" << watch.summary();
    QCOMPARE(watch.repeated(), 0);
}

void TestSteady::switchedOffAccessPointLeaves()
{
    const QString bssid = QStringLiteral("02:00:00:00:05:00");
    QVERIFY(until([&](const QJsonObject &answer) { return bssidsOf(answer).contains(bssid); }));
    QVERIFY(Air::hwsim(QStringLiteral("stop secure")));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(until([&](const QJsonObject &answer) { return !bssidsOf(answer).contains(bssid); }));
    qInfo() << "left after" << timer.elapsed() / 1000 << "s";
    QVERIFY(timer.elapsed() < 100000);
    QVERIFY(Air::hwsim(QStringLiteral("start secure")));
}

void TestSteady::haltedBusHoldsNothingUp()
{
    const auto askTenTimes = [this] {
        const int calls = m_desk.times().size();
        for (int i = 0; i < 10; ++i) {
            if (!succeeded(m_desk.networks()))
                return QVector<double>();
            QTest::qWait(TickMs);
        }
        QVector<double> times = m_desk.times().mid(calls);
        std::sort(times.begin(), times.end());
        return times;
    };
    const QVector<double> before = askTenTimes();
    QVERIFY(Air::hwsim(QStringLiteral("bus halt")));
    const QVector<double> halted = askTenTimes();
    QCOMPARE(before.size(), 10);
    QCOMPARE(halted.size(), 10);
    qInfo() << "queries: median" << before.at(5) << "ms, with a mute bus" << halted.at(5)
            << "ms, longest" << halted.last() << "ms (on an emulated processor)";
    // Whoever waits for the bus waits for seconds.
    QVERIFY(halted.at(5) < 1000);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(m_desk.end());
    qInfo() << "the process ended after" << timer.elapsed() << "ms";
    QVERIFY(Air::hwsim(QStringLiteral("bus resume")));
}

int main(int argc, char *argv[])
{
    // Qt Test ends a function after five minutes otherwise.
    qputenv("QTEST_FUNCTION_TIMEOUT", QByteArray::number((watchSeconds() + 600) * 1000));
    const QCoreApplication application(argc, argv);
    TestSteady test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_steady.moc"

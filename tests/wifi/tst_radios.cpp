#include "air.h"
#include "companion.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTest>

#include <algorithm>
#include <functional>

/// The back end on a kernel with radios and nothing else: no D-Bus, no NetworkManager. Root scans
/// by itself; a plain user reads what the kernel heard. Runs inside of the virtual machine, as
/// root.
class TestRadios : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyAccessPointIsHeard();
    void plainUserHearsTheSame();
    void joinedNetworkIsMarkedWithItsRate();
    void joinedSignalFollowsTheAccessPoint();
    void switchedOffAccessPointsDisappear();
    void interfaceDownIsToldOnceAndSurvived();
    void blockedRadioIsToldOnceAndSurvived();
    void unpluggedAdapterIsToldOnceAndSurvived();
    void joinedHiddenNetworkHasItsName();
    void monitorInterfaceIsLeftOut();
    void answersCameAtOnce();

private:
    /// Asks every half second until `condition` holds for the answer; false after `seconds`.
    static bool until(Companion &listener, const QString &interface,
        const std::function<bool(const QJsonObject &)> &condition, int seconds = 90);
    void everyoneFails(const char *part);
    void everyoneHears();

    Companion m_root{QString(), false};
    Companion m_user{QStringLiteral("tester"), false};
    const QVector<Companion *> m_everyone{&m_root, &m_user};
};

void TestRadios::initTestCase()
{
    if (!Air::available())
        QSKIP("there are no radios outside of the virtual machine");
    for (Companion *const listener : m_everyone)
        QVERIFY(
            listener->start(QStringLiteral(AIRLUME_LISTENER), {QStringLiteral(AIRLUME_PLUGIN)}));
    QCOMPARE(Air::stations().size(), 10);
    for (Companion *const listener : m_everyone) {
        const QJsonArray names =
            listener->ask(QStringLiteral("list")).value(QStringLiteral("data")).toArray();
        QVERIFY(names.contains(QStringLiteral("wlan0")) && names.contains(QStringLiteral("wlan1")));
        QCOMPARE(names.size(), 2);
        QVERIFY(succeeded(listener->ask(QStringLiteral("usable wlan0"))));
        QVERIFY(!succeeded(listener->ask(QStringLiteral("usable lo"))));
    }
}

bool TestRadios::until(Companion &listener, const QString &interface,
    const std::function<bool(const QJsonObject &)> &condition, int seconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (condition(listener.networks(interface)))
            return true;
        QTest::qWait(500);
    } while (timer.elapsed() < seconds * 1000);
    return false;
}

void TestRadios::everyAccessPointIsHeard()
{
    const QVector<Air::Station> stations = Air::stations();
    QString difference;
    QJsonObject answer;
    const bool heard = until(m_root, QStringLiteral("wlan0"), [&](const QJsonObject &latest) {
        answer = latest;
        difference = Air::difference(stations, networksOf(latest));
        return difference.isEmpty();
    });
    QVERIFY2(heard, qPrintable(difference));
    for (const QJsonObject &network : networksOf(answer)) {
        const auto text = [&network](const char *key) {
            return network.value(QLatin1String(key)).toString();
        };
        qInfo().noquote() << QStringLiteral("%1  channel %2  %3 dBm  %4  \"%5\"")
                                 .arg(text("bssid"), text("channel").rightJustified(3),
                                     text("WLAN_NETWORK_SIGNAL").rightJustified(3),
                                     text("security_mode").leftJustified(11), text("ssid"));
    }
    QVERIFY(joinedOf(answer).isEmpty());
    QCOMPARE(m_root.takeMessages(), QStringList());
}

void TestRadios::plainUserHearsTheSame()
{
    const QVector<Air::Station> stations = Air::stations();
    QString difference;
    const bool heard = until(m_user, QStringLiteral("wlan0"), [&](const QJsonObject &answer) {
        m_root.networks(QStringLiteral("wlan0")); // whose scans fill the kernel's cache
        difference = Air::difference(stations, networksOf(answer));
        return difference.isEmpty();
    });
    QVERIFY2(heard, qPrintable(difference));
    // Nobody can be asked for a scan here: told once, and no failure.
    QStringList messages = m_user.takeMessages();
    until(m_user, QString(), [&](const QJsonObject &) {
        messages += m_user.takeMessages();
        return !messages.isEmpty();
    });
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages.first().contains(QStringLiteral("system bus")), qPrintable(messages.first()));
    qInfo().noquote() << "the user is told:" << messages.first();
}

void TestRadios::joinedNetworkIsMarkedWithItsRate()
{
    QVERIFY(Air::hwsim(QStringLiteral("station wlan0 home5")));
    for (Companion *const listener : m_everyone) {
        // Without a name the joined interface answers, wherever the kernel lists it.
        QJsonObject joined;
        QVERIFY2(until(*listener, QString(),
                     [&joined](const QJsonObject &answer) {
                         joined = joinedOf(answer);
                         return !joined.isEmpty() && networksOf(answer).size() > 5;
                     }),
            qPrintable(listener->name()));
        QCOMPARE(
            joined.value(QStringLiteral("bssid")).toString(), QStringLiteral("02:00:00:00:04:00"));
        QCOMPARE(joined.value(QStringLiteral("ssid")).toString(), QStringLiteral("Home"));
        const int signal = joined.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toString().toInt();
        QVERIFY2(qAbs(signal + 57) <= 2, qPrintable(QString::number(signal)));
        const int rate = joined.value(QStringLiteral("link_rate")).toString().toInt();
        QVERIFY2(rate >= 6 && rate < 10000, qPrintable(QString::number(rate)));
        qInfo().noquote() << listener->name() << "is joined at" << rate << "Mbps," << signal
                          << "dBm";
        QVERIFY(joinedOf(listener->networks(QStringLiteral("wlan1"))).isEmpty());
    }
}

void TestRadios::joinedSignalFollowsTheAccessPoint()
{
    const auto signalIs = [](int expected) {
        return [expected](const QJsonObject &answer) {
            const QJsonObject joined = joinedOf(answer);
            const int signal =
                joined.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toString().toInt();
            return !joined.isEmpty() && qAbs(signal - expected) <= 2;
        };
    };
    QVERIFY(Air::hwsim(QStringLiteral("signal home5 -40")));
    for (Companion *const listener : m_everyone)
        QVERIFY2(until(*listener, QString(), signalIs(-40)), qPrintable(listener->name()));
    QVERIFY(Air::hwsim(QStringLiteral("signal home5 -57")));
    QVERIFY(until(m_user, QString(), signalIs(-57)));
}

void TestRadios::switchedOffAccessPointsDisappear()
{
    const QString joined = QStringLiteral("02:00:00:00:04:00");
    const QString other = QStringLiteral("02:00:00:00:06:00");
    const auto hears = [](const QJsonObject &answer, const QString &bssid) {
        const QVector<QJsonObject> networks = networksOf(answer);
        return std::any_of(networks.begin(), networks.end(), [&bssid](const QJsonObject &network) {
            return network.value(QStringLiteral("bssid")).toString() == bssid;
        });
    };
    QVERIFY(until(
        m_root, QStringLiteral("wlan0"), [&](const QJsonObject &a) { return hears(a, other); }));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(Air::hwsim(QStringLiteral("stop office home5")));
    for (Companion *const listener : m_everyone) {
        QVERIFY2(until(*listener, QStringLiteral("wlan0"),
                     [](const QJsonObject &answer) { return joinedOf(answer).isEmpty(); }),
            qPrintable(listener->name()));
    }
    qInfo() << "the joined network was lost after" << timer.elapsed() / 1000 << "s";
    for (Companion *const listener : m_everyone) {
        QVERIFY2(until(*listener, QStringLiteral("wlan0"),
                     [&](const QJsonObject &answer) {
                         m_root.networks(QStringLiteral("wlan0"));
                         return !hears(answer, joined) && !hears(answer, other) &&
                                networksOf(answer).size() >= 5;
                     }),
            qPrintable(listener->name()));
    }
    // Two scans that did not hear them, or 90 s.
    qInfo() << "both had disappeared after" << timer.elapsed() / 1000 << "s";
    QVERIFY(Air::hwsim(QStringLiteral("station wlan0")));
    QVERIFY(Air::hwsim(QStringLiteral("start home5 office")));
}

void TestRadios::everyoneFails(const char *part)
{
    for (Companion *const listener : m_everyone) {
        listener->takeMessages();
        for (int i = 0; i < 5; ++i) {
            const QJsonObject answer = listener->networks();
            QVERIFY2(!succeeded(answer), qPrintable(listener->name()));
            QVERIFY(networksOf(answer).isEmpty());
        }
        const QStringList messages = listener->takeMessages();
        QVERIFY2(messages.size() == 1, qPrintable(messages.join(QLatin1Char('\n'))));
        QVERIFY2(messages.first().contains(QLatin1String(part)), qPrintable(messages.first()));
        qInfo().noquote() << listener->name() << "is told:" << messages.first();
    }
}

void TestRadios::everyoneHears()
{
    const QVector<Air::Station> stations = Air::stations();
    for (Companion *const listener : m_everyone) {
        QString difference;
        QVERIFY2(until(*listener, QStringLiteral("wlan0"),
                     [&](const QJsonObject &answer) {
                         m_root.networks(QStringLiteral("wlan0"));
                         difference = Air::difference(stations, networksOf(answer));
                         return succeeded(answer) && difference.isEmpty();
                     }),
            qPrintable(listener->name() + QStringLiteral(": ") + difference));
    }
}

void TestRadios::interfaceDownIsToldOnceAndSurvived()
{
    const auto set = [](const char *name, const char *state) {
        return Air::run(
            QStringLiteral("ip"), {QStringLiteral("link"), QStringLiteral("set"),
                                      QString::fromLatin1(name), QString::fromLatin1(state)});
    };
    QVERIFY(set("wlan0", "down") && set("wlan1", "down"));
    QVERIFY(!succeeded(m_user.ask(QStringLiteral("usable wlan0"))));
    everyoneFails("is down");
    QVERIFY(set("wlan0", "up") && set("wlan1", "up"));
    QVERIFY(succeeded(m_user.ask(QStringLiteral("usable wlan0"))));
    everyoneHears();
}

void TestRadios::blockedRadioIsToldOnceAndSurvived()
{
    QVERIFY(Air::hwsim(QStringLiteral("block wlan0")));
    // The other one is still there.
    QVERIFY(succeeded(m_user.networks()));
    QVERIFY(Air::hwsim(QStringLiteral("block wlan1")));
    QVERIFY(!succeeded(m_user.ask(QStringLiteral("usable wlan0"))));
    everyoneFails("is blocked");
    QVERIFY(Air::hwsim(QStringLiteral("unblock wlan0")));
    QVERIFY(Air::hwsim(QStringLiteral("unblock wlan1")));
    everyoneHears();
}

void TestRadios::unpluggedAdapterIsToldOnceAndSurvived()
{
    QVERIFY(Air::hwsim(QStringLiteral("unplug wlan1")));
    QVERIFY(succeeded(m_user.networks(QStringLiteral("wlan0"))));
    QVERIFY(!succeeded(m_user.networks(QStringLiteral("wlan1"))));
    QVERIFY(Air::hwsim(QStringLiteral("unplug wlan0")));
    everyoneFails("no Wi-Fi interface");
    for (Companion *const listener : m_everyone) {
        const QJsonObject answer = listener->ask(QStringLiteral("list"));
        QVERIFY(answer.value(QStringLiteral("data")).toArray().isEmpty());
    }
    QVERIFY(Air::hwsim(QStringLiteral("plug wlan0")));
    QVERIFY(Air::hwsim(QStringLiteral("plug wlan1")));
    everyoneHears();
}

void TestRadios::joinedHiddenNetworkHasItsName()
{
    QVERIFY(Air::hwsim(QStringLiteral("station wlan0 hidden")));
    for (Companion *const listener : m_everyone) {
        QVERIFY2(until(*listener, QString(),
                     [](const QJsonObject &answer) {
                         return joinedOf(answer).value(QStringLiteral("ssid")).toString() ==
                                QStringLiteral("Hidden");
                     }),
            qPrintable(listener->name()));
    }
    QVERIFY(Air::hwsim(QStringLiteral("station wlan0")));
}

void TestRadios::monitorInterfaceIsLeftOut()
{
    QVERIFY(Air::run(QStringLiteral("ip"), {QStringLiteral("link"), QStringLiteral("set"),
                                               QStringLiteral("wlan1"), QStringLiteral("down")}));
    QVERIFY(Air::run(QStringLiteral("iw"),
        {QStringLiteral("dev"), QStringLiteral("wlan1"), QStringLiteral("set"),
            QStringLiteral("type"), QStringLiteral("monitor")}));
    for (Companion *const listener : m_everyone) {
        const QJsonObject answer = listener->ask(QStringLiteral("list"));
        QCOMPARE(
            answer.value(QStringLiteral("data")).toArray(), QJsonArray{QStringLiteral("wlan0")});
    }
}

void TestRadios::answersCameAtOnce()
{
    for (Companion *const listener : m_everyone) {
        QVector<double> times = listener->times();
        std::sort(times.begin(), times.end());
        const double median = times.at(times.size() / 2);
        qInfo().noquote() << listener->name() << "asked" << times.size() << "times: median"
                          << median << "ms, longest" << times.last()
                          << "ms (on an emulated processor)";
        QVERIFY2(median < 50, qPrintable(QString::number(median)));
    }
}

QTEST_GUILESS_MAIN(TestRadios)
#include "tst_radios.moc"

#include "air.h"
#include "companion.h"

#include <QDBusInterface>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>
#include <QTest>

#include <functional>

/// The back end and Airlume on a desktop with NetworkManager, for a user who sits at the machine
/// and for one who does not. Runs inside of the virtual machine, as root.
class TestDesktop : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyAccessPointIsHeard_data();
    void everyAccessPointIsHeard();
    void networkManagerJoins();
    void joinedNetworkIsMarkedWithItsRate_data();
    void joinedNetworkIsMarkedWithItsRate();
    void onlyTheUserWithoutSessionIsRefused();
    void userInSessionMakesNetworkManagerScan();
    void windowListsTheNetworks();
    void roomTestRecordsPercentAndSpeed();
    void roamingLeavesRowsAndCurvesToTheirOwners();
    void windowRecoversWhenTheAdapterWasUnplugged();
    void blockedRadioIsSurvived();
    void stoppedNetworkManagerIsToldOnceAndSurvived();

private:
    using Condition = std::function<bool(const QJsonObject &)>;
    static bool until(Companion &listener, const Condition &condition, int seconds = 120);
    static bool untilShown(Companion &window, const Condition &condition, int seconds = 120);
    static qlonglong lastScan();
    bool untilScanned(Companion &listener);

    Companion m_desk{QStringLiteral("desk"), true};
    Companion m_visitor{QStringLiteral("visitor"), false};
    Companion m_window{QStringLiteral("desk"), true};
};

Q_DECLARE_METATYPE(Companion *)

namespace
{
const QString Interface = QStringLiteral("wlan0");

bool setUnmanagedInterface(const char *state)
{
    return Air::run(QStringLiteral("ip"), {QStringLiteral("link"), QStringLiteral("set"),
                                              QStringLiteral("wlan1"), QString::fromLatin1(state)});
}

bool shows(const QJsonObject &window, const QString &label)
{
    return window.value(QStringLiteral("labels")).toArray().contains(label);
}

/// What belongs to which of the access points of one name in the window: rows, curves, triangles.
QStringList ownersIn(const QJsonObject &window, const QString &ssid)
{
    QStringList owners;
    for (const QJsonObject &row : networksOf(window)) {
        if (row.value(QStringLiteral("ssid")).toString() == ssid)
            owners.append(QStringLiteral("row \"%1\" of %2")
                              .arg(row.value(QStringLiteral("name")).toString(),
                                  row.value(QStringLiteral("bssid")).toString()));
    }
    const QJsonArray curves = window.value(QStringLiteral("curves")).toArray();
    for (const QJsonValue &value : curves) {
        const QJsonObject curve = value.toObject();
        const QString name = curve.value(QStringLiteral("name")).toString();
        const QString graph = curve.value(QStringLiteral("graph")).toString();
        if (name.trimmed() != ssid)
            continue;
        QString owner = QStringLiteral("%1 \"%2\" %3")
                            .arg(graph, name, curve.value(QStringLiteral("color")).toString());
        if (graph != QStringLiteral("SignalTimePlot")) // where the middle moves on
            owner += QStringLiteral(" on %1").arg(curve.value(QStringLiteral("middle")).toDouble());
        owners.append(owner);
    }
    owners.sort();
    return owners;
}

QString differenceOf(const QJsonObject &answer)
{
    return Air::difference(Air::stations(), networksOf(answer));
}
} // namespace

void TestDesktop::initTestCase()
{
    if (!Air::available())
        QSKIP("there are no radios outside of the virtual machine");
    // The interface that NetworkManager leaves alone would be the first one.
    QVERIFY(setUnmanagedInterface("down"));
    for (Companion *const listener : {&m_desk, &m_visitor})
        QVERIFY(
            listener->start(QStringLiteral(AIRLUME_LISTENER), {QStringLiteral(AIRLUME_PLUGIN)}));
}

bool TestDesktop::until(Companion &listener, const Condition &condition, int seconds)
{
    QElapsedTimer timer;
    timer.start();
    do {
        if (condition(listener.networks()))
            return true;
        QTest::qWait(500);
    } while (timer.elapsed() < seconds * 1000);
    return false;
}

bool TestDesktop::untilShown(Companion &window, const Condition &condition, int seconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < seconds * 1000) {
        const QJsonObject shown = window.next();
        if (shown.isEmpty())
            return false;
        if (condition(shown))
            return true;
    }
    return false;
}

/// When NetworkManager's last scan ended, in ms since the boot.
qlonglong TestDesktop::lastScan()
{
    const QString service = QStringLiteral("org.freedesktop.NetworkManager");
    QDBusInterface manager(service, QStringLiteral("/org/freedesktop/NetworkManager"), service,
        QDBusConnection::systemBus());
    const QDBusReply<QDBusObjectPath> device =
        manager.call(QStringLiteral("GetDeviceByIpIface"), Interface);
    QDBusInterface wireless(service, device.value().path(),
        service + QStringLiteral(".Device.Wireless"), QDBusConnection::systemBus());
    return wireless.property("LastScan").toLongLong();
}

bool TestDesktop::untilScanned(Companion &listener)
{
    const qlonglong before = lastScan();
    return until(listener, [before](const QJsonObject &) { return lastScan() > before; });
}

void TestDesktop::everyAccessPointIsHeard_data()
{
    QTest::addColumn<Companion *>("listener");
    QTest::newRow("user in a session") << &m_desk;
    QTest::newRow("user without a session") << &m_visitor;
}

void TestDesktop::everyAccessPointIsHeard()
{
    QFETCH(Companion *, listener);
    QString difference;
    const bool heard = until(*listener, [&difference](const QJsonObject &answer) {
        difference = differenceOf(answer);
        return difference.isEmpty();
    });
    QVERIFY2(heard, qPrintable(difference));
}

void TestDesktop::networkManagerJoins()
{
    const QStringList connect =
        QStringLiteral("device wifi connect Home bssid 02:00:00:00:04:00 password hwsim-pass")
            .split(QLatin1Char(' '));
    // Its own list of networks may lag behind the kernel's.
    QVERIFY(until(m_desk,
        [&connect](const QJsonObject &) { return Air::run(QStringLiteral("nmcli"), connect); }));
    // Its first list takes a while; the other tests go on meanwhile.
    const QString plugin = Air::published(QStringLiteral(AIRLUME_PLUGIN));
    QVERIFY(m_window.start(
        QStringLiteral("env"), {QStringLiteral("QT_QPA_PLATFORM=offscreen"),
                                   QStringLiteral("QT_PLUGIN_PATH=") + QFileInfo(plugin).path(),
                                   Air::published(QStringLiteral(AIRLUME_WINDOW_READER))}));
}

void TestDesktop::joinedNetworkIsMarkedWithItsRate_data()
{
    everyAccessPointIsHeard_data();
}

void TestDesktop::joinedNetworkIsMarkedWithItsRate()
{
    QFETCH(Companion *, listener);
    QJsonObject joined;
    QVERIFY(until(*listener, [&joined](const QJsonObject &answer) {
        joined = joinedOf(answer);
        return !joined.isEmpty() && joined.contains(QStringLiteral("link_rate"));
    }));
    QCOMPARE(joined.value(QStringLiteral("bssid")).toString(), QStringLiteral("02:00:00:00:04:00"));
    const int signal = joined.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toString().toInt();
    QVERIFY2(qAbs(signal + 57) <= 2, qPrintable(QString::number(signal)));
    const int rate = joined.value(QStringLiteral("link_rate")).toString().toInt();
    QVERIFY2(rate >= 6 && rate < 10000, qPrintable(QString::number(rate)));
    qInfo().noquote() << listener->name() << "is joined at" << rate << "Mbps," << signal << "dBm";
}

void TestDesktop::onlyTheUserWithoutSessionIsRefused()
{
    QStringList messages;
    QVERIFY(until(m_visitor, [&](const QJsonObject &answer) {
        messages += m_visitor.takeMessages();
        return succeeded(answer) && !messages.isEmpty();
    }));
    QVERIFY2(messages.size() == 1 && messages.first().contains(QStringLiteral("does not allow")),
        qPrintable(messages.join(QLatin1Char('\n'))));
    qInfo().noquote() << "the user without a session is told:" << messages.first();
    QCOMPARE(m_desk.takeMessages(), QStringList());
}

void TestDesktop::userInSessionMakesNetworkManagerScan()
{
    QElapsedTimer timer;
    timer.start();
    QVERIFY(untilScanned(m_desk));
    qInfo() << "a scan had ended after" << timer.elapsed() / 1000 << "s";
    QCOMPARE(m_desk.takeMessages(), QStringList());
}

void TestDesktop::windowListsTheNetworks()
{
    QString difference;
    QJsonObject shown;
    const bool listed = untilShown(m_window, [&](const QJsonObject &latest) {
        m_desk.networks(); // keeps the kernel's list fresh
        shown = latest;
        difference = differenceOf(latest);
        return difference.isEmpty() && shows(latest, QStringLiteral("Scanning..."));
    });
    QVERIFY2(listed, qPrintable(difference));
    for (const QJsonObject &row : networksOf(shown)) {
        const auto text = [&row](
                              const char *key) { return row.value(QLatin1String(key)).toString(); };
        qInfo().noquote() << QStringLiteral("row: \"%1\"").arg(text("ssid")).leftJustified(24)
                          << text("WLAN_NETWORK_SIGNAL") << text("channel").rightJustified(3)
                          << text("security_mode").leftJustified(11) << text("bssid");
    }
}

void TestDesktop::roomTestRecordsPercentAndSpeed()
{
    // The joined access point is heard with -57 dBm.
    static const QRegularExpression result(
        QStringLiteral("\\nNow:(\\d+)% signal and ([1-9]\\d*) Mbps\\n"));
    QString room;
    const bool tested = untilShown(m_window, [&room](const QJsonObject &shown) {
        room = shown.value(QStringLiteral("room")).toString();
        const QRegularExpressionMatch match = result.match(room);
        return match.hasMatch() && qAbs(match.captured(1).toInt() - 43) <= 2;
    });
    QVERIFY2(tested, qPrintable(room));
    qInfo().noquote() << "room:" << room.split(QLatin1Char('\n')).join(QStringLiteral(" | "));
}

void TestDesktop::roamingLeavesRowsAndCurvesToTheirOwners()
{
    const QString home = QStringLiteral("Home");
    const auto isJoinedTo = [this](const char *bssid) {
        return until(m_desk, [bssid](const QJsonObject &answer) {
            return joinedOf(answer).value(QStringLiteral("bssid")).toString() ==
                   QLatin1String(bssid);
        });
    };
    const QStringList before = ownersIn(m_window.next(), home);
    qInfo().noquote() << before.join(QStringLiteral("; "));
    QCOMPARE(before.filter(QStringLiteral("row ")).size(), 2);
    // Each graph knows both names; one of them has a triangle there.
    QCOMPARE(before.filter(QRegularExpression(QStringLiteral("Signal2GPlot.* on 1$"))).size(), 1);
    QCOMPARE(before.filter(QRegularExpression(QStringLiteral("Signal5GPlot.* on 36$"))).size(), 1);
    for (const char *const station : {"home2", "home5"}) {
        QVERIFY(Air::hwsim(QStringLiteral("roam ") + QLatin1String(station)));
        QVERIFY(isJoinedTo(QLatin1String(station) == QLatin1String("home2") ? "02:00:00:00:02:00"
                                                                            : "02:00:00:00:04:00"));
        // Until the window has taken it over and drawn it: a fresh pass comes every 15 s.
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 25000)
            QCOMPARE(ownersIn(m_window.next(), home), before);
    }
}

void TestDesktop::windowRecoversWhenTheAdapterWasUnplugged()
{
    const QString radioOff = QStringLiteral("Please make sure turn on the wireless radio.");
    // The one in use last, so that there is no interface at all from one moment to the next.
    QVERIFY(Air::hwsim(QStringLiteral("unplug wlan1")));
    QVERIFY(Air::hwsim(QStringLiteral("unplug wlan0")));
    QVERIFY(untilShown(m_window, [&](const QJsonObject &shown) { return shows(shown, radioOff); }));
    QVERIFY(Air::hwsim(QStringLiteral("plug wlan0")));
    QVERIFY(untilShown(m_window,
        [](const QJsonObject &shown) { return shows(shown, QStringLiteral("Scanning...")); }));
    // Fresh data reaches the list again.
    QVERIFY(Air::hwsim(QStringLiteral("signal secure -45")));
    QVERIFY(untilShown(m_window, [](const QJsonObject &shown) {
        const QVector<QJsonObject> rows = networksOf(shown);
        return std::any_of(rows.begin(), rows.end(), [](const QJsonObject &row) {
            return row.value(QStringLiteral("ssid")) == QStringLiteral("Secure") &&
                   qAbs(row.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toString().toInt() + 45) <=
                       2;
        });
    }));
    QVERIFY(Air::hwsim(QStringLiteral("plug wlan1")));
    QVERIFY(setUnmanagedInterface("down"));
    QVERIFY(until(m_desk, [](const QJsonObject &answer) { return succeeded(answer); }));
    m_desk.takeMessages();
}

void TestDesktop::blockedRadioIsSurvived()
{
    QVERIFY(Air::hwsim(QStringLiteral("block wlan0")));
    QVERIFY(until(m_desk, [](const QJsonObject &answer) { return !succeeded(answer); }));
    const QStringList messages = m_desk.takeMessages();
    QVERIFY(!messages.isEmpty());
    // The kernel takes the interface down a moment before or after the block shows.
    QVERIFY2(messages.last().contains(QStringLiteral("is down")) ||
                 messages.last().contains(QStringLiteral("is blocked")),
        qPrintable(messages.last()));
    QVERIFY(Air::hwsim(QStringLiteral("unblock wlan0")));
    QVERIFY(untilScanned(m_desk));
    QVERIFY(succeeded(m_desk.networks()));
}

void TestDesktop::stoppedNetworkManagerIsToldOnceAndSurvived()
{
    QVERIFY(setUnmanagedInterface("up"));
    QVERIFY(Air::hwsim(QStringLiteral("nm stop")));
    m_desk.takeMessages();
    QStringList messages;
    QVERIFY(until(m_desk, [&](const QJsonObject &answer) {
        messages += m_desk.takeMessages();
        return succeeded(answer) &&
               !messages.filter(QStringLiteral("wpa_supplicant does not allow")).isEmpty();
    }));
    // NetworkManager's wpa_supplicant is still there, but not for everybody.
    messages = messages.filter(QStringLiteral("wpa_supplicant does not allow"));
    QVERIFY2(messages.size() == 1, qPrintable(messages.join(QLatin1Char('\n'))));
    qInfo().noquote() << "the user is told:" << messages.first();
    QVERIFY(setUnmanagedInterface("down"));
    QVERIFY(Air::hwsim(QStringLiteral("nm start")));
    QVERIFY(untilScanned(m_desk));
    QVERIFY(until(m_desk, [](const QJsonObject &answer) { return succeeded(answer); }));
}

QTEST_GUILESS_MAIN(TestDesktop)
#include "tst_desktop.moc"

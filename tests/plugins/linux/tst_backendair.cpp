#include "backendbench.h"
#include "linux/problemtexts.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;

namespace
{
const int Interface = 2;

/// A back end that listens with one interface.
struct Listening : Bench {
    Listening() { kernel.add(Interface, "wlan0"); }

    AccessPoint accessPoint(const char *bssid, const char *ssid, int signal = -50) const
    {
        AccessPoint result;
        result.bssid = QString::fromLatin1(bssid);
        result.ssid = QString::fromUtf8(ssid);
        result.frequency = 2412;
        result.channel = 1;
        result.signal = signal;
        result.heardAt = now;
        return result;
    }

    void scanEnds(const QVector<AccessPoint> &list, int index = Interface)
    {
        FinishedScan scan;
        scan.index = index;
        scan.startedAt = now - 3000;
        scan.finishedAt = now;
        scan.frequencies = {2412};
        scan.heard = list;
        scan.read = true;
        events.m_finished.append(scan);
    }

    QStringList answer(const char *key = "bssid")
    {
        QList<ScanMap> networks;
        round(&networks);
        QStringList values;
        for (const ScanMap &network : qAsConst(networks))
            values.append(network.value(QLatin1String(key)));
        return values;
    }
};

QStringList list(const char *names)
{
    return QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
} // namespace

/// What the back end remembers of the air.
class TestBackendAir : public QObject
{
    Q_OBJECT

private slots:
    void interfaceInUseIsWatched();
    void listsBetweenQueriesAddUp();
    void kernelThatForgetsTakesNothingAway();
    void listThatPassesByKeepsWhatWasHeard();
    void twoMissedScansTakeAnAccessPointAway();
    void unreadScanJudgesNobody();
    void interfaceThatWentForgetsEverything_data();
    void interfaceThatWentForgetsEverything();
    void interfacesHaveTheirOwnAir();
    void hiddenJoinedNetworkHasItsNameAndKeepsIt();
    void roamingKeepsTheOrder();
    void leavingIsSeenAtOnce();
    void networkThatWasLeftKeepsItsLastSignal();
    void interfaceThatIsScannedIsTaken();
    void interfaceThatNobodyManagesIsLeft();
};

void TestBackendAir::interfaceInUseIsWatched()
{
    Listening l;
    l.answer();
    QCOMPARE(l.events.m_watched, Interface);
    l.kernel.m_states[QStringLiteral("wlan0")].up = false;
    l.answer();
    QCOMPARE(l.events.m_watched, 0);
}

void TestBackendAir::listsBetweenQueriesAddUp()
{
    Listening l;
    l.answer();
    l.scanEnds({l.accessPoint("a", "A")});
    l.scanEnds({l.accessPoint("b", "B")});
    l.kernel.m_accessPoints = {l.accessPoint("c", "C")};
    QCOMPARE(l.answer(), list("a b c"));
}

void TestBackendAir::kernelThatForgetsTakesNothingAway()
{
    Listening l;
    l.kernel.m_accessPoints = {l.accessPoint("a", "A"), l.accessPoint("b", "B")};
    QCOMPARE(l.answer(), list("a b"));
    l.kernel.m_accessPoints = {l.accessPoint("b", "B")};
    for (int i = 0; i < 10; ++i)
        QCOMPARE(l.answer(), list("a b"));
}

void TestBackendAir::listThatPassesByKeepsWhatWasHeard()
{
    Listening l;
    l.kernel.m_accessPoints = {l.accessPoint("a", "A")};
    QCOMPARE(l.answer(), list("a"));
    for (const int error : {EAGAIN, EINTR, ENOBUFS}) {
        l.kernel.m_accessPointsError = error;
        QCOMPARE(l.answer(), list("a"));
    }
}

void TestBackendAir::twoMissedScansTakeAnAccessPointAway()
{
    Listening l;
    l.answer();
    l.scanEnds({l.accessPoint("a", "A"), l.accessPoint("b", "B")});
    QCOMPARE(l.answer(), list("a b"));
    l.scanEnds({l.accessPoint("b", "B")});
    QCOMPARE(l.answer(), list("a b"));
    l.scanEnds({l.accessPoint("b", "B")});
    QCOMPARE(l.answer(), list("b"));
}

void TestBackendAir::unreadScanJudgesNobody()
{
    Listening l;
    l.answer();
    l.scanEnds({l.accessPoint("a", "A")});
    l.answer();
    for (int i = 0; i < 5; ++i) {
        l.scanEnds({});
        l.events.m_finished.last().read = false;
        QCOMPARE(l.answer(), list("a"));
    }
    // Nor does a scan of another interface.
    for (int i = 0; i < 5; ++i) {
        l.scanEnds({}, 3);
        QCOMPARE(l.answer(), list("a"));
    }
}

void TestBackendAir::interfaceThatWentForgetsEverything_data()
{
    QTest::addColumn<bool>("unplugged");
    QTest::newRow("unplugged") << true;
    QTest::newRow("switched off") << false;
}

void TestBackendAir::interfaceThatWentForgetsEverything()
{
    QFETCH(bool, unplugged);
    Listening l;
    l.kernel.m_accessPoints = {l.accessPoint("a", "A")};
    QCOMPARE(l.answer(), list("a"));
    l.kernel.m_accessPoints.clear();
    const QVector<WifiInterface> interfaces = l.kernel.m_interfaces;
    if (unplugged)
        l.kernel.m_interfaces.clear();
    else
        l.kernel.m_states[QStringLiteral("wlan0")].softBlocked = true;
    QCOMPARE(l.answer(), QStringList());
    l.kernel.m_interfaces = interfaces;
    l.kernel.m_states[QStringLiteral("wlan0")].softBlocked = false;
    for (int i = 0; i < 3; ++i)
        QCOMPARE(l.answer(), QStringList());
}

void TestBackendAir::interfacesHaveTheirOwnAir()
{
    Listening l;
    l.kernel.add(3, "wlan1");
    const auto heardBy = [&l](const char *name) {
        QList<ScanMap> networks;
        l.backend.networks(QString::fromLatin1(name), networks);
        QStringList bssids;
        for (const ScanMap &network : qAsConst(networks))
            bssids.append(network.value(QStringLiteral("bssid")));
        return bssids;
    };
    l.kernel.m_accessPoints = {l.accessPoint("a", "A")};
    QCOMPARE(heardBy("wlan0"), list("a"));
    l.kernel.m_accessPoints = {l.accessPoint("b", "B")};
    QCOMPARE(heardBy("wlan1"), list("b"));
    l.kernel.m_accessPoints.clear();
    QCOMPARE(heardBy("wlan0"), list("a"));
    QCOMPARE(heardBy("wlan1"), list("b"));
}

void TestBackendAir::hiddenJoinedNetworkHasItsNameAndKeepsIt()
{
    Listening l;
    AccessPoint hidden = l.accessPoint("a", "");
    l.kernel.m_accessPoints = {hidden};
    QCOMPARE(l.answer("ssid"), QStringList{QStringLiteral("(hidden) a")});
    l.kernel.m_interfaces.first().joinedName = QStringLiteral("Secret");
    hidden.joined = true;
    l.kernel.m_accessPoints = {hidden};
    QCOMPARE(l.answer("ssid"), QStringList{QStringLiteral("Secret")});
    QCOMPARE(l.answer("current_connected"), list("1"));
    l.kernel.m_interfaces.first().joinedName.clear();
    l.kernel.m_accessPoints = {l.accessPoint("a", "")};
    QCOMPARE(l.answer("ssid"), QStringList{QStringLiteral("Secret")});
    QCOMPARE(l.answer("current_connected"), list("0"));
}

void TestBackendAir::roamingKeepsTheOrder()
{
    Listening l;
    l.kernel.m_interfaces.first().joinedName = QStringLiteral("Home");
    for (const char *const joined : {"h1", "h2", "h1", "h3"}) {
        l.kernel.m_accessPoints = {l.accessPoint("x", "X", -30), l.accessPoint("h3", "Home", -60),
            l.accessPoint("h2", "Home", -50), l.accessPoint("h1", "Home", -40)};
        for (AccessPoint &accessPoint : l.kernel.m_accessPoints)
            accessPoint.joined = accessPoint.bssid == QLatin1String(joined);
        QCOMPARE(l.answer(), list("h1 h2 h3 x"));
    }
    QCOMPARE(l.answer("current_connected"), list("0 0 1 0"));
}

void TestBackendAir::leavingIsSeenAtOnce()
{
    Listening l;
    AccessPoint home = l.accessPoint("a", "Home");
    home.joined = true;
    l.kernel.m_accessPoints = {home};
    QCOMPARE(l.answer("current_connected"), list("1"));
    home.joined = false;
    l.kernel.m_accessPoints = {home};
    QCOMPARE(l.answer("current_connected"), list("0"));
    l.kernel.m_accessPoints = {};
    QCOMPARE(l.answer("current_connected"), list("0"));
}

void TestBackendAir::networkThatWasLeftKeepsItsLastSignal()
{
    Listening l;
    AccessPoint home = l.accessPoint("a", "Home", -50);
    home.joined = true;
    l.kernel.m_accessPoints = {home};
    l.kernel.m_links = {stationLink("a", -72, 100)};
    QCOMPARE(l.answer("WLAN_NETWORK_SIGNAL"), list("-72"));
    home.joined = false;
    l.kernel.m_accessPoints = {home};
    QCOMPARE(l.answer("WLAN_NETWORK_SIGNAL"), list("-72"));
    home.heardAt = l.now;
    home.signal = -60;
    l.kernel.m_accessPoints = {home};
    QCOMPARE(l.answer("WLAN_NETWORK_SIGNAL"), list("-60"));
}

void TestBackendAir::interfaceThatIsScannedIsTaken()
{
    // Nobody is joined. The first interface belongs to nobody, the second is scanned.
    Listening l;
    l.kernel.add(3, "wlan1");
    l.answer();
    QCOMPARE(l.events.m_watched, Interface);
    l.scanEnds({}, 3);
    l.answer();
    l.answer();
    QCOMPARE(l.events.m_watched, 3);
    QStringList names;
    l.backend.interfaceNames(names);
    QCOMPARE(names, list("wlan0 wlan1"));
}

void TestBackendAir::interfaceThatNobodyManagesIsLeft()
{
    // Whoever manages the second one does not scan by itself.
    Listening l;
    l.kernel.add(3, "wlan1");
    l.kernel.m_triggerError = EPERM;
    l.answer();
    QCOMPARE(l.requester.m_requested, list("wlan0"));
    l.requester.m_answer =
        ScanAnswer{ScanAnswer::Result::NoInterface, QString(), Manager::WpaSupplicant};
    l.answer();
    QCOMPARE(l.events.m_watched, 3);
    QCOMPARE(l.requester.m_requested, list("wlan0 wlan1"));
    QCOMPARE(l.problems, QStringList());
    // Neither is managed: there it stays.
    l.requester.m_answer =
        ScanAnswer{ScanAnswer::Result::NoInterface, QString(), Manager::WpaSupplicant};
    for (int i = 0; i < 5; ++i) {
        l.answer();
        QCOMPARE(l.events.m_watched, 3);
    }
    // The first one was switched off and on: it may have a manager now.
    l.kernel.m_states[QStringLiteral("wlan0")].up = false;
    l.answer();
    l.kernel.m_states[QStringLiteral("wlan0")].up = true;
    l.answer();
    QCOMPARE(l.events.m_watched, Interface);
}

QTEST_GUILESS_MAIN(TestBackendAir)
#include "tst_backendair.moc"

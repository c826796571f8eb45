#include "linux/scanmaps.h"

#include <QTest>

using namespace LinuxWifi;

namespace
{
AccessPoint accessPoint(const char *bssid, const char *ssid, bool joined = false)
{
    AccessPoint result;
    result.bssid = QString::fromLatin1(bssid);
    result.ssid = QString::fromUtf8(ssid);
    result.security = QStringLiteral("WPA2-PSK");
    result.channel = 36;
    result.signal = -57;
    result.joined = joined;
    return result;
}

StationLink link(const char *address, std::optional<int> signal, std::optional<int> rate)
{
    return {QString::fromLatin1(address), signal, rate};
}

QStringList values(const QList<ScanMap> &maps, const char *key)
{
    QStringList result;
    for (const ScanMap &map : maps)
        result.append(map.value(QString::fromLatin1(key)));
    return result;
}
} // namespace

class TestScanMaps : public QObject
{
    Q_OBJECT

private slots:
    void nothingGivesNothing();
    void mapHoldsEveryKey();
    void orderIsKeptButTheJoinedComesFirst();
    void linkGivesSignalAndRateOfTheJoined();
    void cachedSignalServesWithoutALink();
    void linkOfAnUnjoinedNetworkIsIgnored();
    void missingSignalIsTheBottomOfTheScale();
    void severalJoinedAreMarkedOnce();
    void linkOfSeveralRadiosHasItsOwnAddress();
    void hiddenJoinedNetworkIsNamed();
};

void TestScanMaps::nothingGivesNothing()
{
    QVERIFY(scanMaps({}, {}, {}).isEmpty());
}

void TestScanMaps::mapHoldsEveryKey()
{
    const QList<ScanMap> maps = scanMaps({accessPoint("b1", "Büro")}, {}, {});
    const ScanMap expected{{QStringLiteral("ssid"), QStringLiteral("Büro")},
        {QStringLiteral("bssid"), QStringLiteral("b1")},
        {QStringLiteral("channel"), QStringLiteral("36")},
        {QStringLiteral("current_connected"), QStringLiteral("0")},
        {QStringLiteral("security_mode"), QStringLiteral("WPA2-PSK")},
        {QStringLiteral("WLAN_NETWORK_SIGNAL"), QStringLiteral("-57")}};
    QCOMPARE(maps, QList<ScanMap>{expected});
}

void TestScanMaps::orderIsKeptButTheJoinedComesFirst()
{
    const QList<ScanMap> maps = scanMaps({accessPoint("b3", "A"), accessPoint("b1", "B"),
                                             accessPoint("b2", "A", true), accessPoint("b0", "C")},
        {}, {});
    QCOMPARE(values(maps, "bssid"), (QStringList{QStringLiteral("b2"), QStringLiteral("b3"),
                                        QStringLiteral("b1"), QStringLiteral("b0")}));
    QCOMPARE(
        values(maps, "current_connected"), (QStringList{QStringLiteral("1"), QStringLiteral("0"),
                                               QStringLiteral("0"), QStringLiteral("0")}));
}

void TestScanMaps::linkGivesSignalAndRateOfTheJoined()
{
    const QList<ScanMap> maps = scanMaps({accessPoint("b1", "A"), accessPoint("b2", "B", true)},
        {link("other", -20, 1), link("b2", -61, 234)}, {});
    QCOMPARE(maps.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-61"));
    QCOMPARE(maps.first().value(QStringLiteral("link_rate")), QStringLiteral("234"));
    QCOMPARE(maps.last().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-57"));
    QVERIFY(!maps.last().contains(QStringLiteral("link_rate")));
}

void TestScanMaps::cachedSignalServesWithoutALink()
{
    const QList<ScanMap> none = scanMaps({accessPoint("b1", "A", true)}, {}, {});
    QCOMPARE(none.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-57"));
    QVERIFY(!none.first().contains(QStringLiteral("link_rate")));
    const QList<ScanMap> empty = scanMaps({accessPoint("b1", "A", true)}, {link("b1", {}, {})}, {});
    QCOMPARE(empty.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-57"));
    QVERIFY(!empty.first().contains(QStringLiteral("link_rate")));
}

void TestScanMaps::linkOfAnUnjoinedNetworkIsIgnored()
{
    const QList<ScanMap> maps = scanMaps({accessPoint("b1", "A")}, {link("b1", -20, 300)}, {});
    QCOMPARE(maps.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-57"));
    QVERIFY(!maps.first().contains(QStringLiteral("link_rate")));
}

void TestScanMaps::missingSignalIsTheBottomOfTheScale()
{
    AccessPoint silent = accessPoint("b1", "A");
    silent.signal.reset();
    QCOMPARE(values(scanMaps({silent}, {}, {}), "WLAN_NETWORK_SIGNAL"),
        QStringList{QStringLiteral("-100")});
}

void TestScanMaps::severalJoinedAreMarkedOnce()
{
    const QVector<AccessPoint> both{
        accessPoint("b1", "A", true), accessPoint("b2", "A", true), accessPoint("b3", "C")};
    const QList<ScanMap> first = scanMaps(both, {}, {});
    QCOMPARE(values(first, "bssid").first(), QStringLiteral("b1"));
    QCOMPARE(values(first, "current_connected").count(QStringLiteral("1")), 1);
    const QList<ScanMap> linked = scanMaps(both, {link("b2", -50, 100)}, {});
    QCOMPARE(values(linked, "bssid").first(), QStringLiteral("b2"));
    QCOMPARE(values(linked, "current_connected").count(QStringLiteral("1")), 1);
}

void TestScanMaps::linkOfSeveralRadiosHasItsOwnAddress()
{
    const QList<ScanMap> maps =
        scanMaps({accessPoint("b1", "A", true)}, {link("mld", -44, 2402)}, {});
    QCOMPARE(maps.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-44"));
    QCOMPARE(maps.first().value(QStringLiteral("link_rate")), QStringLiteral("2402"));
}

void TestScanMaps::hiddenJoinedNetworkIsNamed()
{
    const QString name = QStringLiteral("Secret");
    const QList<ScanMap> maps =
        scanMaps({accessPoint("b1", ""), accessPoint("b2", "", true)}, {}, name);
    QCOMPARE(values(maps, "ssid"), (QStringList{name, QString()}));
    const QList<ScanMap> named = scanMaps({accessPoint("b2", "Heard", true)}, {}, name);
    QCOMPARE(values(named, "ssid"), QStringList{QStringLiteral("Heard")});
}

QTEST_GUILESS_MAIN(TestScanMaps)
#include "tst_scanmaps.moc"

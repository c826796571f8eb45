#include "backendbench.h"
#include "linux/scanmaps.h"

#include <QTest>

using namespace LinuxWifi;

namespace
{
AccessPoint accessPoint(const char *bssid, const char *ssid)
{
    AccessPoint result;
    result.bssid = QString::fromLatin1(bssid);
    result.ssid = QString::fromUtf8(ssid);
    result.security = QStringLiteral("WPA2-PSK");
    result.channel = 36;
    result.signal = -57;
    return result;
}

QString value(const ScanMap &map, const char *key)
{
    return map.value(QLatin1String(key));
}

QStringList values(const QList<ScanMap> &maps, const char *key)
{
    QStringList result;
    for (const ScanMap &map : maps)
        result.append(value(map, key));
    return result;
}
} // namespace

class TestScanMaps : public QObject
{
    Q_OBJECT

private slots:
    void nothingGivesNothing();
    void mapHoldsEveryKey();
    void orderIsKeptAndOneIsJoined();
    void kernelsMarksDoNotCount();
    void linkGivesSignalAndRateOfTheJoined();
    void cachedSignalServesWithoutALink();
    void linkOfNobodyIsIgnored();
    void missingSignalIsTheBottomOfTheScale();
    void oneOfSeveralLinksGivesItsOwnValues();
    void hiddenNetworkIsNamedByItsAddress();
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

void TestScanMaps::orderIsKeptAndOneIsJoined()
{
    const QList<ScanMap> maps =
        scanMaps({accessPoint("b3", "A"), accessPoint("b1", "B"), accessPoint("b2", "A")},
            QStringLiteral("b2"), {});
    QCOMPARE(values(maps, "bssid"),
        (QStringList{QStringLiteral("b3"), QStringLiteral("b1"), QStringLiteral("b2")}));
    QCOMPARE(values(maps, "current_connected"),
        (QStringList{QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("1")}));
}

void TestScanMaps::kernelsMarksDoNotCount()
{
    AccessPoint marked = accessPoint("b1", "A");
    marked.joined = true;
    const QList<ScanMap> maps =
        scanMaps({marked, accessPoint("b2", "A")}, QStringLiteral("b2"), {});
    QCOMPARE(
        values(maps, "current_connected"), (QStringList{QStringLiteral("0"), QStringLiteral("1")}));
}

void TestScanMaps::linkGivesSignalAndRateOfTheJoined()
{
    const QList<ScanMap> maps = scanMaps({accessPoint("b1", "A"), accessPoint("b2", "B")},
        QStringLiteral("b2"), stationLink("b2", -61, 234));
    QCOMPARE(value(maps.last(), "WLAN_NETWORK_SIGNAL"), QStringLiteral("-61"));
    QCOMPARE(value(maps.last(), "link_rate"), QStringLiteral("234"));
    QCOMPARE(value(maps.first(), "WLAN_NETWORK_SIGNAL"), QStringLiteral("-57"));
    QVERIFY(!maps.first().contains(QStringLiteral("link_rate")));
}

void TestScanMaps::cachedSignalServesWithoutALink()
{
    for (const std::optional<StationLink> &link :
        {std::optional<StationLink>(), std::make_optional(stationLink("b1", {}, {}))}) {
        const QList<ScanMap> maps = scanMaps({accessPoint("b1", "A")}, QStringLiteral("b1"), link);
        QCOMPARE(value(maps.first(), "WLAN_NETWORK_SIGNAL"), QStringLiteral("-57"));
        QVERIFY(!maps.first().contains(QStringLiteral("link_rate")));
    }
}

void TestScanMaps::linkOfNobodyIsIgnored()
{
    const QList<ScanMap> maps =
        scanMaps({accessPoint("b1", "A")}, QString(), stationLink("b1", -20, 300));
    QCOMPARE(value(maps.first(), "WLAN_NETWORK_SIGNAL"), QStringLiteral("-57"));
    QVERIFY(!maps.first().contains(QStringLiteral("link_rate")));
}

void TestScanMaps::missingSignalIsTheBottomOfTheScale()
{
    AccessPoint silent = accessPoint("b1", "A");
    silent.signal.reset();
    QCOMPARE(values(scanMaps({silent}, {}, {}), "WLAN_NETWORK_SIGNAL"),
        QStringList{QStringLiteral("-100")});
}

void TestScanMaps::oneOfSeveralLinksGivesItsOwnValues()
{
    AccessPoint joined = accessPoint("b1", "A");
    joined.linkId = 1;
    StationLink link = stationLink("mld", -70, 400);
    link.byLink.insert(0, stationLink("", -30, 10));
    link.byLink.insert(1, stationLink("", -44, {}));
    const QList<ScanMap> maps = scanMaps({joined}, QStringLiteral("b1"), link);
    QCOMPARE(value(maps.first(), "WLAN_NETWORK_SIGNAL"), QStringLiteral("-44"));
    QCOMPARE(value(maps.first(), "link_rate"), QStringLiteral("400"));
}

void TestScanMaps::hiddenNetworkIsNamedByItsAddress()
{
    const QList<ScanMap> maps =
        scanMaps({accessPoint("b1", ""), accessPoint("b2", "")}, QStringLiteral("b2"), {});
    QCOMPARE(values(maps, "ssid"),
        (QStringList{QStringLiteral("(hidden) b1"), QStringLiteral("(hidden) b2")}));
}

QTEST_GUILESS_MAIN(TestScanMaps)
#include "tst_scanmaps.moc"

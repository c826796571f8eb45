#include "scan/wifiapi.h"
#include "support/fakebackend.h"

#include <QtTest>

#include <cstdint>
#include <cstring>

namespace
{
/// Place of a virtual function in the table of its class, from 1 on; the two entries of the virtual
/// destructor come first. As in the C++ ABI of GCC and Clang on every Unix.
template <typename Function> int placeOf(Function function)
{
    std::uintptr_t words[2];
    static_assert(sizeof words == sizeof function, "another ABI");
    std::memcpy(words, &function, sizeof words);
    return static_cast<int>(words[0] / sizeof(void *)) - 1;
}
} // namespace

class TestWifiApi : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { _wifiApi_inf = nullptr; }
    void choosesTheInterface_data();
    void choosesTheInterface();
    void findsNoInterfaceWithoutABackEnd();
    void asksWithFlagZeroAndStopsAtTheFirstUsableLaterInterface();
    void keepsTheContract();
    void keepsTheOrderOfItsFunctions();
};

void TestWifiApi::choosesTheInterface_data()
{
    QTest::addColumn<QStringList>("nics");
    QTest::addColumn<QStringList>("usable");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("chosen");
    const QString a = QStringLiteral("A");
    const QString b = QStringLiteral("B");
    const QString c = QStringLiteral("C");
    QTest::newRow("both usable: the second") << QStringList{a, b} << QStringList{a, b} << true << b;
    QTest::newRow("none usable: the first") << QStringList{a, b} << QStringList() << true << a;
    QTest::newRow("only the first usable") << QStringList{a, b} << QStringList{a} << true << a;
    QTest::newRow("the first of the later ones")
        << QStringList{a, b, c} << QStringList{b, c} << true << b;
    QTest::newRow("only the third") << QStringList{a, b, c} << QStringList{c} << true << c;
    QTest::newRow("one, not usable") << QStringList{a} << QStringList() << true << a;
    QTest::newRow("false but a list") << QStringList{a} << QStringList{a} << false << a;
    QTest::newRow("false: usability is not asked")
        << QStringList{a, b} << QStringList{b} << false << a;
    QTest::newRow("empty") << QStringList() << QStringList() << true << QString();
    QTest::newRow("false and empty") << QStringList() << QStringList() << false << QString();
}

void TestWifiApi::choosesTheInterface()
{
    QFETCH(QStringList, nics);
    QFETCH(QStringList, usable);
    QFETCH(bool, result);
    QFETCH(QString, chosen);
    FakeBackEnd backEnd;
    backEnd.nics = nics;
    backEnd.usable = usable;
    backEnd.listResult = result;
    _wifiApi_inf = &backEnd;
    QCOMPARE(getWiFiNicUsableInWiFi(), chosen);
}

void TestWifiApi::findsNoInterfaceWithoutABackEnd()
{
    QCOMPARE(getWiFiNicUsableInWiFi(), QString());
}

void TestWifiApi::asksWithFlagZeroAndStopsAtTheFirstUsableLaterInterface()
{
    FakeBackEnd backEnd;
    backEnd.nics = QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")};
    backEnd.usable = backEnd.nics;
    _wifiApi_inf = &backEnd;
    getWiFiNicUsableInWiFi();
    QCOMPARE(backEnd.askedUsable, QStringList({QStringLiteral("A"), QStringLiteral("B")}));
    QCOMPARE(backEnd.flags, QList<int>({0, 0}));
}

void TestWifiApi::keepsTheContract()
{
    QCOMPARE(qobject_interface_iid<WiFiApiInterface *>(),
        "com.corvane.WiFiApiPlugin.WiFiApiInterface/1.0");
    QCOMPARE(WiFiApiLibrary, QStringLiteral("libWiFiApiPlugin.dylib"));
    QCOMPARE(ScanKey::Ssid, QStringLiteral("ssid"));
    QCOMPARE(ScanKey::Bssid, QStringLiteral("bssid"));
    QCOMPARE(ScanKey::Channel, QStringLiteral("channel"));
    QCOMPARE(ScanKey::Connected, QStringLiteral("current_connected"));
    QCOMPARE(ScanKey::Security, QStringLiteral("security_mode"));
    QCOMPARE(ScanKey::Signal, QStringLiteral("WLAN_NETWORK_SIGNAL"));
    QCOMPARE(ScanKey::LinkRate, QStringLiteral("link_rate"));
    QCOMPARE(ScanJoined, QStringLiteral("1"));
}

void TestWifiApi::keepsTheOrderOfItsFunctions()
{
    // Back ends are built separately and are called by these places.
    QCOMPARE(placeOf(&WiFiApiInterface::initWiFiApi), 1);
    QCOMPARE(placeOf(&WiFiApiInterface::releaseWiFiApi), 2);
    QCOMPARE(placeOf(&WiFiApiInterface::isWiFiNicUsable), 3);
    QCOMPARE(placeOf(&WiFiApiInterface::setWiFiRadio), 4);
    QCOMPARE(placeOf(&WiFiApiInterface::startWiFiScan), 5);
    QCOMPARE(placeOf(&WiFiApiInterface::getVisiableNetworkMapList), 6);
    QCOMPARE(placeOf(&WiFiApiInterface::getConnectedNetworkMap), 7);
    QCOMPARE(placeOf(&WiFiApiInterface::getWiFiNicAddress), 8);
    QCOMPARE(placeOf(&WiFiApiInterface::getWiFiNicList), 9);
}

QTEST_APPLESS_MAIN(TestWifiApi)
#include "tst_wifiapi.moc"

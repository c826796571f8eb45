#include "scan/wifiapi.h"
#include "support/fakebackend.h"

#include <QtTest>

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
}

QTEST_APPLESS_MAIN(TestWifiApi)
#include "tst_wifiapi.moc"

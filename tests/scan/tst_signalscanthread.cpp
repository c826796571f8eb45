#include "scan/signalscanthread.h"
#include "support/testair.h"

#include <QtTest>

namespace
{
/// The scan thread, one pass at a time and without its sleeps. Lists its signals in order.
class SteppedThread : public SignalScanThread
{
public:
    SteppedThread()
        : SignalScanThread(nullptr)
    {
        connect(this, &SignalScanThread::networkReturned, this,
            [this](const QString &ssid) { said.append(QStringLiteral("network ") + ssid); });
        connect(this, &SignalScanThread::signalReturned, this,
            [this](int rssi) { said.append(QStringLiteral("signal %1").arg(rssi)); });
        connect(this, &SignalScanThread::speedReturned, this,
            [this](int mbps) { said.append(QStringLiteral("speed %1").arg(mbps)); });
        connect(this, &SignalScanThread::networkLeft, this,
            [this] { said.append(QStringLiteral("left")); });
        connect(this, &SignalScanThread::dataReturned, this,
            [this](const QVector<WifiProperty> &networks) {
                said.append(QStringLiteral("data %1").arg(networks.size()));
                data = networks;
            });
        onNicChanged(QStringLiteral("wlan0"));
    }

    QStringList step()
    {
        said.clear();
        pass();
        return said;
    }

    /// What is said on the next fresh pass: that one is made of `maps`.
    QStringList fresh(const QList<ScanMap> &maps)
    {
        onVisiableMapListReturned(maps);
        QStringList heard = step();
        while (heard.size() == 1 && heard.first().startsWith(QLatin1String("data")) && m_repeats) {
            --m_repeats;
            heard = step();
        }
        m_repeats = 4;
        return heard;
    }

    QStringList said;
    QVector<WifiProperty> data;

private:
    int m_repeats = 0; ///< To come before the next fresh pass.
};

QStringList ssids(const QVector<WifiProperty> &data)
{
    QStringList names;
    for (const WifiProperty &network : data)
        names.append(network.ssid);
    return names;
}

const QString Ssid = QStringLiteral("ssid");
const QString Joined = QStringLiteral("current_connected");
const QString Signal = QStringLiteral("WLAN_NETWORK_SIGNAL");
const QString ChannelKey = QStringLiteral("channel");
const QString LinkRate = QStringLiteral("link_rate");

const ScanMap A = TestAir::scanMap(QStringLiteral("A"), QStringLiteral("a"));
const ScanMap B = TestAir::scanMap(QStringLiteral("B"), QStringLiteral("b"));
const ScanMap JoinedA = TestAir::scanMap(QStringLiteral("A"), QStringLiteral("a"), -50, 6, true);
const ScanMap JoinedB = TestAir::scanMap(QStringLiteral("B"), QStringLiteral("b"), -60, 6, true);
} // namespace

class TestSignalScanThread : public QObject
{
    Q_OBJECT

private slots:
    void saysNothingIsJoinedWithoutAnInterface();
    void sendsNothingBeforeTheFirstMaps();
    void turnsAMapIntoARecord();
    void missingKeysReadAsEmptyAndZero();
    void wholeTextMustBeANumber_data();
    void wholeTextMustBeANumber();
    void onlyTheExactTextOneIsJoined_data();
    void onlyTheExactTextOneIsJoined();
    void makesNamesUnique_data();
    void makesNamesUnique();
    void makesNamesUniqueInACrowd();
    void limitsTheJoinedSignal_data();
    void limitsTheJoinedSignal();
    void readsTheLinkRate_data();
    void readsTheLinkRate();
    void everyJoinedMapReportsInListOrder();
    void reportsTheDeduplicatedNameOfTheJoinedNetwork();
    void onlyEveryFifthPassIsFresh();
    void everyFreshPassNamesTheNetworksAnew();
    void anEmptyFreshPassKeepsTheOldRecords();
    void resendsOldRecordsWhenTheInterfaceComesBack();
    void afterSetExitOnlyRepeatsAreSent();
    void saysOnceThatTheNetworkIsLeft();
    void saysNothingOfLeavingBeforeAFreshPass();
    void changingTheNetworkIsNotLeaving();
    void whoNeverJoinedDoesNotLeave();
    void aNetworkLostWithTheInterfaceIsNotLeftAgain();
    void afterSetExitNothingIsLeft();
    void runsOnItsOwnThreadUntilInterrupted();
};

void TestSignalScanThread::saysNothingIsJoinedWithoutAnInterface()
{
    SteppedThread thread;
    thread.onNicChanged(QString());
    thread.onVisiableMapListReturned({TestAir::scanMap(Ssid, Ssid)});
    QCOMPARE(thread.step(), QStringList({QStringLiteral("signal 0"), QStringLiteral("speed 0"),
                                QStringLiteral("network ")}));
}

void TestSignalScanThread::sendsNothingBeforeTheFirstMaps()
{
    SteppedThread thread;
    QCOMPARE(thread.step(), QStringList());
}

void TestSignalScanThread::turnsAMapIntoARecord()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned({TestAir::scanMap(
        QStringLiteral("Home"), QStringLiteral("02:00:00:00:00:01"), -48, 36, true)});
    QCOMPARE(
        thread.step(), QStringList({QStringLiteral("network Home"), QStringLiteral("signal -48"),
                           QStringLiteral("speed 0"), QStringLiteral("data 1")}));
    const WifiProperty record = thread.data.first();
    QCOMPARE(record.ssid, QStringLiteral("Home"));
    QCOMPARE(record.bssid, QStringLiteral("02:00:00:00:00:01"));
    QCOMPARE(record.security, QStringLiteral("WPA2-PSK"));
    QCOMPARE(record.rssi, -48);
    QCOMPARE(record.channel, 36);
    QCOMPARE(record.connected, true);
    QCOMPARE(record.spareA, 0);
    QCOMPARE(record.spareB, -1);
}

void TestSignalScanThread::missingKeysReadAsEmptyAndZero()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned({ScanMap()});
    QCOMPARE(thread.step(), QStringList(QStringLiteral("data 1")));
    QCOMPARE(thread.data.first().ssid, QString());
    QCOMPARE(thread.data.first().security, QString());
    QCOMPARE(thread.data.first().rssi, 0);
    QCOMPARE(thread.data.first().channel, 0);
    QCOMPARE(thread.data.first().connected, false);
}

void TestSignalScanThread::wholeTextMustBeANumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::newRow("negative") << QStringLiteral("-67") << -67;
    QTest::newRow("unit") << QStringLiteral("-67dBm") << 0;
    QTest::newRow("fraction") << QStringLiteral("-67.5") << 0;
    QTest::newRow("hexadecimal") << QStringLiteral("0x10") << 0;
    QTest::newRow("words") << QStringLiteral("strong") << 0;
    QTest::newRow("too large") << QStringLiteral("99999999999") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void TestSignalScanThread::wholeTextMustBeANumber()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    ScanMap map = TestAir::scanMap(QStringLiteral("A"), QStringLiteral("b"));
    map[Signal] = text;
    map[ChannelKey] = text;
    SteppedThread thread;
    thread.onVisiableMapListReturned({map});
    thread.step();
    QCOMPARE(thread.data.first().rssi, number);
    QCOMPARE(thread.data.first().channel, number);
}

void TestSignalScanThread::onlyTheExactTextOneIsJoined_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("joined");
    QTest::newRow("1") << QStringLiteral("1") << true;
    for (const char *other : {"", "0", "01", "true", "1 ", "yes"})
        QTest::addRow("not '%s'", other) << QString::fromLatin1(other) << false;
}

void TestSignalScanThread::onlyTheExactTextOneIsJoined()
{
    QFETCH(QString, text);
    QFETCH(bool, joined);
    ScanMap map = TestAir::scanMap(QStringLiteral("A"), QStringLiteral("b"));
    map[Joined] = text;
    SteppedThread thread;
    thread.onVisiableMapListReturned({map});
    QCOMPARE(thread.step().contains(QStringLiteral("network A")), joined);
    QCOMPARE(thread.data.first().connected, joined);
}

void TestSignalScanThread::makesNamesUnique_data()
{
    QTest::addColumn<QStringList>("bssids");
    QTest::addColumn<QStringList>("names");
    const QString one = QStringLiteral("b1");
    const QString two = QStringLiteral("b2");
    const QString three = QStringLiteral("b3");
    QTest::newRow("a repeated access point is dropped")
        << QStringList{one, two, one} << QStringList{QStringLiteral("A"), QStringLiteral("A ")};
    QTest::newRow("three access points")
        << QStringList{one, two, three}
        << QStringList{QStringLiteral("A"), QStringLiteral("A "), QStringLiteral("A  ")};
    QTest::newRow("the second repeated")
        << QStringList{one, two, two} << QStringList{QStringLiteral("A"), QStringLiteral("A ")};
}

void TestSignalScanThread::makesNamesUnique()
{
    QFETCH(QStringList, bssids);
    QFETCH(QStringList, names);
    QList<ScanMap> maps;
    for (const QString &bssid : qAsConst(bssids))
        maps.append(TestAir::scanMap(QStringLiteral("A"), bssid));
    SteppedThread thread;
    thread.onVisiableMapListReturned(maps);
    thread.step();
    QCOMPARE(ssids(thread.data), names);
}

void TestSignalScanThread::makesNamesUniqueInACrowd()
{
    // Few names, some with blanks of their own, and few addresses: names run into each other, and
    // the same access point comes under several of them.
    const QStringList names{QString(), QStringLiteral(" "), QStringLiteral("A"),
        QStringLiteral("A "), QStringLiteral("A     "), QStringLiteral("B")};
    QList<ScanMap> maps;
    QMap<QString, QString> taken;
    QStringList expected;
    quint32 random = 1;
    for (int i = 0; i < 600; ++i) {
        random = random * 1664525 + 1013904223;
        QString name = names.at(static_cast<int>((random >> 8) % 6));
        const QString bssid = QString::number((random >> 16) % 97);
        maps.append(TestAir::scanMap(name, bssid));
        while (taken.contains(name) && taken.value(name) != bssid)
            name.append(QLatin1Char(' '));
        if (taken.contains(name))
            continue;
        taken.insert(name, bssid);
        expected.append(name);
    }
    QVERIFY(expected.size() > 100 && expected.size() < 600);

    SteppedThread thread;
    thread.onVisiableMapListReturned(maps);
    thread.step();
    QCOMPARE(ssids(thread.data), expected);
}

void TestSignalScanThread::limitsTheJoinedSignal_data()
{
    QTest::addColumn<int>("rssi");
    QTest::addColumn<int>("sent");
    QTest::newRow("too weak") << -105 << 0;
    QTest::newRow("just too weak") << -101 << 0;
    QTest::newRow("weakest") << -100 << -100;
    QTest::newRow("usual") << -54 << -54;
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("positive") << 5 << 0;
}

void TestSignalScanThread::limitsTheJoinedSignal()
{
    QFETCH(int, rssi);
    QFETCH(int, sent);
    SteppedThread thread;
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("A"), QStringLiteral("b"), rssi, 6, true)});
    QVERIFY(thread.step().contains(QStringLiteral("signal %1").arg(sent)));
    // The record keeps what was measured.
    QCOMPARE(thread.data.first().rssi, rssi);
}

void TestSignalScanThread::readsTheLinkRate_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("mbps");
    QTest::newRow("number") << QStringLiteral("144") << 144;
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("unit") << QStringLiteral("144 Mbps") << 0;
    QTest::newRow("fraction") << QStringLiteral("6.5") << 0;
    QTest::newRow("negative") << QStringLiteral("-144") << 0;
}

void TestSignalScanThread::readsTheLinkRate()
{
    QFETCH(QString, text);
    QFETCH(int, mbps);
    ScanMap joined = TestAir::scanMap(QStringLiteral("A"), QStringLiteral("b"), -40, 6, true);
    joined[LinkRate] = text;
    ScanMap other = TestAir::scanMap(QStringLiteral("B"), QStringLiteral("c"));
    other[LinkRate] = QStringLiteral("999");
    SteppedThread thread;
    thread.onVisiableMapListReturned({other, joined});
    QCOMPARE(thread.step(), QStringList({QStringLiteral("network A"), QStringLiteral("signal -40"),
                                QStringLiteral("speed %1").arg(mbps), QStringLiteral("data 2")}));
}

void TestSignalScanThread::everyJoinedMapReportsInListOrder()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("A"), QStringLiteral("a"), -40, 6, true),
            TestAir::scanMap(QStringLiteral("B"), QStringLiteral("b"), -60, 6, true)});
    QCOMPARE(thread.step().filter(QStringLiteral("network")),
        QStringList({QStringLiteral("network A"), QStringLiteral("network B")}));
}

void TestSignalScanThread::reportsTheDeduplicatedNameOfTheJoinedNetwork()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned({TestAir::scanMap(QStringLiteral("A"), QStringLiteral("a")),
        TestAir::scanMap(QStringLiteral("A"), QStringLiteral("b"), -60, 6, true)});
    QCOMPARE(thread.step().first(), QStringLiteral("network A "));
}

void TestSignalScanThread::onlyEveryFifthPassIsFresh()
{
    SteppedThread thread;
    for (int round = 0; round < 3; ++round) {
        thread.onVisiableMapListReturned({TestAir::scanMap(
            QStringLiteral("round %1").arg(round), QStringLiteral("b"), -50, 6, true)});
        QVERIFY(thread.step().first().startsWith(QLatin1String("network")));
        const QStringList fresh(QStringLiteral("round %1").arg(round));
        QCOMPARE(ssids(thread.data), fresh);
        // Newer maps are there, and wait.
        thread.onVisiableMapListReturned(
            {TestAir::scanMap(QStringLiteral("newer"), QStringLiteral("b"), -50, 6, true)});
        for (int repeat = 0; repeat < 4; ++repeat) {
            QCOMPARE(thread.step(), QStringList(QStringLiteral("data 1")));
            QCOMPARE(ssids(thread.data), fresh);
        }
    }
}

void TestSignalScanThread::everyFreshPassNamesTheNetworksAnew()
{
    SteppedThread thread;
    for (int round = 0; round < 3; ++round) {
        // The order in which they are heard changes from round to round.
        const bool turned = round % 2 == 1;
        const QString first = turned ? QStringLiteral("b2") : QStringLiteral("b1");
        const QString second = turned ? QStringLiteral("b1") : QStringLiteral("b2");
        thread.onVisiableMapListReturned({TestAir::scanMap(QStringLiteral("A"), first),
            TestAir::scanMap(QStringLiteral("A"), second)});
        thread.data.clear();
        thread.step();
        QCOMPARE(ssids(thread.data), QStringList({QStringLiteral("A"), QStringLiteral("A ")}));
        QCOMPARE(thread.data.first().bssid, first);
        for (int repeat = 0; repeat < 4; ++repeat)
            thread.step();
    }
}

void TestSignalScanThread::anEmptyFreshPassKeepsTheOldRecords()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("old"), QStringLiteral("b"))});
    for (int pass = 0; pass < 5; ++pass)
        thread.step();
    thread.onVisiableMapListReturned({});
    QCOMPARE(thread.step(), QStringList());
    QCOMPARE(thread.step(), QStringList());
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("new"), QStringLiteral("b"))});
    QCOMPARE(thread.step(), QStringList(QStringLiteral("data 1")));
    QCOMPARE(ssids(thread.data), QStringList(QStringLiteral("new")));
}

void TestSignalScanThread::resendsOldRecordsWhenTheInterfaceComesBack()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("old"), QStringLiteral("b"))});
    thread.step();
    thread.onNicChanged(QString());
    QVERIFY(!thread.step().contains(QStringLiteral("data 1")));
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("new"), QStringLiteral("b"))});
    thread.onNicChanged(QStringLiteral("wlan0"));
    thread.step();
    QCOMPARE(ssids(thread.data), QStringList(QStringLiteral("old")));
}

void TestSignalScanThread::afterSetExitOnlyRepeatsAreSent()
{
    SteppedThread thread;
    thread.onVisiableMapListReturned(
        {TestAir::scanMap(QStringLiteral("A"), QStringLiteral("b"), -50, 6, true)});
    thread.step();
    thread.setExit();
    for (int repeat = 0; repeat < 4; ++repeat)
        QCOMPARE(thread.step(), QStringList(QStringLiteral("data 1")));
    QCOMPARE(thread.step(), QStringList());
    QCOMPARE(thread.step(), QStringList());
}

void TestSignalScanThread::saysOnceThatTheNetworkIsLeft()
{
    SteppedThread thread;
    const QStringList joined{QStringLiteral("network A"), QStringLiteral("signal -50"),
        QStringLiteral("speed 0"), QStringLiteral("data 2")};
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(thread.fresh({JoinedA, B}), joined);
        QCOMPARE(thread.fresh({JoinedA, B}), joined);
        // Before the records, and without the name, signal and speed of a network.
        QCOMPARE(
            thread.fresh({A, B}), QStringList({QStringLiteral("left"), QStringLiteral("data 2")}));
        QCOMPARE(thread.fresh({A, B}), QStringList(QStringLiteral("data 2")));
    }
    // Also where it is not heard any more.
    thread.fresh({JoinedA, B});
    QCOMPARE(thread.fresh({B}), QStringList({QStringLiteral("left"), QStringLiteral("data 1")}));
}

void TestSignalScanThread::saysNothingOfLeavingBeforeAFreshPass()
{
    SteppedThread thread;
    thread.fresh({JoinedA});
    thread.onVisiableMapListReturned({A});
    for (int repeat = 0; repeat < 4; ++repeat)
        QCOMPARE(thread.step(), QStringList(QStringLiteral("data 1")));
    // Without any maps nothing is known of it either.
    thread.onVisiableMapListReturned({});
    QCOMPARE(thread.step(), QStringList());
    thread.onVisiableMapListReturned({A});
    QCOMPARE(thread.step(), QStringList({QStringLiteral("left"), QStringLiteral("data 1")}));
}

void TestSignalScanThread::changingTheNetworkIsNotLeaving()
{
    SteppedThread thread;
    thread.fresh({JoinedA, B});
    QVERIFY(!thread.fresh({A, JoinedB}).contains(QStringLiteral("left")));
    // Nor is one of two, nor being joined to one that has no name.
    QVERIFY(!thread.fresh({JoinedA, JoinedB}).contains(QStringLiteral("left")));
    QVERIFY(!thread.fresh({A, JoinedB}).contains(QStringLiteral("left")));
    const ScanMap nameless = TestAir::scanMap(QString(), QStringLiteral("c"), -50, 6, true);
    QVERIFY(!thread.fresh({A, nameless}).contains(QStringLiteral("left")));
    QVERIFY(thread.fresh({A}).contains(QStringLiteral("left")));
}

void TestSignalScanThread::whoNeverJoinedDoesNotLeave()
{
    SteppedThread thread;
    for (int pass = 0; pass < 3; ++pass)
        QCOMPARE(thread.fresh({A, B}), QStringList(QStringLiteral("data 2")));
}

void TestSignalScanThread::aNetworkLostWithTheInterfaceIsNotLeftAgain()
{
    SteppedThread thread;
    thread.fresh({JoinedA});
    thread.onNicChanged(QString());
    QVERIFY(thread.step().contains(QStringLiteral("network ")));
    thread.onNicChanged(QStringLiteral("wlan0"));
    QCOMPARE(thread.fresh({A}), QStringList(QStringLiteral("data 1")));
    // Gone and back between two passes, nobody has heard of it.
    thread.fresh({JoinedA});
    thread.onNicChanged(QString());
    thread.onNicChanged(QStringLiteral("wlan0"));
    QVERIFY(thread.fresh({A}).contains(QStringLiteral("left")));
}

void TestSignalScanThread::afterSetExitNothingIsLeft()
{
    SteppedThread thread;
    thread.fresh({JoinedA});
    thread.setExit();
    QCOMPARE(thread.fresh({A}), QStringList());
}

void TestSignalScanThread::runsOnItsOwnThreadUntilInterrupted()
{
    SignalScanThread thread(nullptr);
    // In this thread: a spy would be filled by the other one.
    int passes = 0;
    connect(&thread, &SignalScanThread::networkReturned, this, [&passes] { ++passes; });
    thread.start();
    // The first pass comes at once, the second a second later.
    QTRY_VERIFY_WITH_TIMEOUT(passes >= 2, 30000);
    thread.requestInterruption();
    QVERIFY(thread.wait(30000));
}

QTEST_GUILESS_MAIN(TestSignalScanThread)
#include "tst_signalscanthread.moc"

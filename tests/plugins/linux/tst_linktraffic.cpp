#include "backendbench.h"
#include "linux/linktraffic.h"

#include <QTest>

using namespace LinuxWifi;

namespace
{
AccessPoint link(const char *bssid, int id, int signal)
{
    AccessPoint result;
    result.bssid = QString::fromLatin1(bssid);
    result.joined = true;
    result.linkId = id;
    result.signal = signal;
    return result;
}

/// The counters of a device with two links.
StationLink counted(quint64 first, quint64 second)
{
    StationLink result = stationLink("mld", {}, {});
    result.byLink[0].bytes = first;
    result.byLink[1].bytes = second;
    return result;
}
} // namespace

class TestLinkTraffic : public QObject
{
    Q_OBJECT

private slots:
    void trafficIsCountedBetweenTwoLooks_data();
    void trafficIsCountedBetweenTwoLooks();
    void firstCountSaysNothing();
    void countersThatBeganAnewSayNothing();
    void anotherStationBeginsAnew();
    void linksAddUp();
    void noneJoinedCarriesNothing();
    void theOnlyJoinedCarries();
    void busiestLinkCarries();
    void strongestCarriesWhereTheKernelDoesNotTell();
    void carrierStaysWhileNoneIsClearlyAhead();
};

void TestLinkTraffic::trafficIsCountedBetweenTwoLooks_data()
{
    QTest::addColumn<quint64>("bytes");
    QTest::addColumn<bool>("busy");
    QTest::newRow("nothing") << quint64(0) << false;
    QTest::newRow("what an idle machine chats") << quint64(4 * 3000) << false;
    QTest::newRow("just below") << quint64(4 * 8000 - 1) << false;
    QTest::newRow("a call") << quint64(4 * 20000) << true;
    QTest::newRow("a download") << quint64(400000000) << true;
}

void TestLinkTraffic::trafficIsCountedBetweenTwoLooks()
{
    QFETCH(quint64, bytes);
    QFETCH(bool, busy);
    LinkTraffic traffic;
    StationLink link = stationLink("b1", -50, 100);
    link.bytes = 5000000000; // more than 32 bits hold
    traffic.take(link, 1000000);
    *link.bytes += bytes;
    traffic.take(link, 1004000);
    QCOMPARE(traffic.busy(), busy);
    traffic.take(link, 1008000);
    QVERIFY(!traffic.busy());
}

void TestLinkTraffic::firstCountSaysNothing()
{
    LinkTraffic traffic;
    StationLink link = stationLink("b1", -50, 100);
    link.bytes = 5000000000;
    traffic.take(link, 1000);
    QVERIFY(!traffic.busy());
    link.bytes.reset();
    traffic.take(link, 5000);
    QVERIFY(!traffic.busy());
}

void TestLinkTraffic::countersThatBeganAnewSayNothing()
{
    LinkTraffic traffic;
    StationLink link = stationLink("b1", -50, 100);
    link.bytes = 5000000000;
    traffic.take(link, 1000);
    link.bytes = 100000;
    traffic.take(link, 5000);
    QVERIFY(!traffic.busy());
}

void TestLinkTraffic::anotherStationBeginsAnew()
{
    LinkTraffic traffic;
    StationLink link = stationLink("b1", -50, 100);
    link.bytes = 0;
    traffic.take(link, 1000);
    link.address = QStringLiteral("b2");
    link.bytes = 900000;
    traffic.take(link, 5000);
    QVERIFY(!traffic.busy());
}

void TestLinkTraffic::linksAddUp()
{
    LinkTraffic traffic;
    traffic.take(counted(0, 0), 1000);
    traffic.take(counted(20000, 20000), 5000);
    QVERIFY(traffic.busy());
}

void TestLinkTraffic::noneJoinedCarriesNothing()
{
    LinkTraffic traffic;
    AccessPoint heard = link("a", 0, -40);
    heard.joined = false;
    QCOMPARE(traffic.carrier({heard}), QString());
    QCOMPARE(traffic.carrier({}), QString());
}

void TestLinkTraffic::theOnlyJoinedCarries()
{
    LinkTraffic traffic;
    AccessPoint plain = link("a", 0, -80);
    plain.linkId.reset();
    AccessPoint other = link("b", 0, -40);
    other.joined = false;
    QCOMPARE(traffic.carrier({other, plain}), QStringLiteral("a"));
    // Roaming: the other one is joined now, however weak.
    plain.joined = false;
    other.joined = true;
    other.signal = -95;
    QCOMPARE(traffic.carrier({other, plain}), QStringLiteral("b"));
}

void TestLinkTraffic::busiestLinkCarries()
{
    LinkTraffic traffic;
    const QVector<AccessPoint> links{link("a", 0, -40), link("b", 1, -70)};
    traffic.take(counted(0, 0), 1000);
    traffic.take(counted(100, 5000), 5000);
    QCOMPARE(traffic.carrier(links), QStringLiteral("b"));
    traffic.take(counted(9100, 5100), 9000);
    QCOMPARE(traffic.carrier(links), QStringLiteral("a"));
}

void TestLinkTraffic::strongestCarriesWhereTheKernelDoesNotTell()
{
    LinkTraffic traffic;
    QCOMPARE(traffic.carrier({link("a", 0, -70), link("b", 1, -40)}), QStringLiteral("b"));
    AccessPoint silent = link("a", 0, -70);
    silent.signal.reset();
    LinkTraffic other;
    QCOMPARE(other.carrier({silent, link("b", 1, -99)}), QStringLiteral("b"));
}

void TestLinkTraffic::carrierStaysWhileNoneIsClearlyAhead()
{
    LinkTraffic traffic;
    traffic.take(counted(0, 0), 500);
    QCOMPARE(traffic.carrier({link("a", 0, -50), link("b", 1, -51)}), QStringLiteral("a"));
    QCOMPARE(traffic.carrier({link("a", 0, -55), link("b", 1, -50)}), QStringLiteral("a"));
    QCOMPARE(traffic.carrier({link("a", 0, -56), link("b", 1, -50)}), QStringLiteral("b"));

    traffic.take(counted(1900, 1000), 5000);
    QCOMPARE(traffic.carrier({link("a", 0, -56), link("b", 1, -50)}), QStringLiteral("b"));
    traffic.take(counted(4000, 2000), 9000);
    QCOMPARE(traffic.carrier({link("a", 0, -56), link("b", 1, -50)}), QStringLiteral("a"));
}

QTEST_GUILESS_MAIN(TestLinkTraffic)
#include "tst_linktraffic.moc"

#include "channels/channelcensus.h"

#include <QtTest>

#include <limits>

using Clarity = ChannelCensus::Clarity;
Q_DECLARE_METATYPE(ChannelCensus::Clarity)

class TestChannelCensus : public QObject
{
    Q_OBJECT

private slots:
    void ratesByTheNumberOfNetworks_data();
    void ratesByTheNumberOfNetworks();
    void countsUnderAValidChannel_data();
    void countsUnderAValidChannel();
    void countsEachChannelByItselfInAscendingOrder();
    void negativeChannelsCountAsChannelZero();
    void recommendsOccupiedChannelsWithFewerThanFour_data();
    void recommendsOccupiedChannelsWithFewerThanFour();
    void clearForgetsEverything();
};

void TestChannelCensus::ratesByTheNumberOfNetworks_data()
{
    QTest::addColumn<int>("networks");
    QTest::addColumn<Clarity>("clarity");
    QTest::newRow("no network, rated worst on purpose") << 0 << Clarity::Poor;
    QTest::newRow("negative") << -1 << Clarity::Poor;
    QTest::newRow("very negative") << std::numeric_limits<int>::min() << Clarity::Poor;
    QTest::newRow("1") << 1 << Clarity::Best;
    QTest::newRow("2") << 2 << Clarity::Great;
    QTest::newRow("3") << 3 << Clarity::Great;
    QTest::newRow("4") << 4 << Clarity::Average;
    QTest::newRow("5") << 5 << Clarity::Average;
    QTest::newRow("6") << 6 << Clarity::Average;
    QTest::newRow("7") << 7 << Clarity::Poor;
    QTest::newRow("huge") << std::numeric_limits<int>::max() << Clarity::Poor;
}

void TestChannelCensus::ratesByTheNumberOfNetworks()
{
    QFETCH(int, networks);
    QFETCH(Clarity, clarity);
    QVERIFY(ChannelCensus::Rate(networks) == clarity);
}

void TestChannelCensus::countsUnderAValidChannel_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<int>("counted");
    QTest::newRow("2.4 GHz") << 6 << 6;
    QTest::newRow("5 GHz") << 165 << 165;
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("highest") << 65535 << 65535;
    QTest::newRow("one more") << 65536 << 0;
    QTest::newRow("negative") << -3 << 0;
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << 0;
}

void TestChannelCensus::countsUnderAValidChannel()
{
    QFETCH(int, channel);
    QFETCH(int, counted);
    QCOMPARE(ChannelCensus::CountedAs(channel), counted);
    ChannelCensus census;
    QCOMPARE(census.Add(channel), counted);
    QCOMPARE(census.Counts(), (QMap<int, int>{{counted, 1}}));
}

void TestChannelCensus::countsEachChannelByItselfInAscendingOrder()
{
    ChannelCensus census;
    for (int channel : {149, 6, 1, 6, 7, 6})
        census.Add(channel);
    QCOMPARE(census.Counts(), (QMap<int, int>{{1, 1}, {6, 3}, {7, 1}, {149, 1}}));
    QCOMPARE(census.Counts().firstKey(), 1);
    QCOMPARE(census.Counts().lastKey(), 149);
}

void TestChannelCensus::negativeChannelsCountAsChannelZero()
{
    ChannelCensus census;
    census.Add(-3);
    census.Add(0);
    QCOMPARE(census.Counts(), (QMap<int, int>{{0, 2}}));
}

void TestChannelCensus::recommendsOccupiedChannelsWithFewerThanFour_data()
{
    QTest::addColumn<QList<int>>("channels");
    QTest::addColumn<QString>("recommended");
    QTest::newRow("nothing heard, nothing recommended") << QList<int>{} << QString();
    QTest::newRow("one") << QList<int>{36} << QStringLiteral("36");
    QTest::newRow("four are too many")
        << QList<int>{1, 6, 6, 6, 6, 11, 11} << QStringLiteral("1,11");
    QTest::newRow("three are not") << QList<int>{6, 6, 6} << QStringLiteral("6");
    QTest::newRow("numeric order") << QList<int>{100, 11, 9} << QStringLiteral("9,11,100");
    QTest::newRow("all crowded") << QList<int>{6, 6, 6, 6} << QString();
}

void TestChannelCensus::recommendsOccupiedChannelsWithFewerThanFour()
{
    QFETCH(QList<int>, channels);
    QFETCH(QString, recommended);
    ChannelCensus census;
    for (int channel : qAsConst(channels))
        census.Add(channel);
    QCOMPARE(census.Recommended(), recommended);
}

void TestChannelCensus::clearForgetsEverything()
{
    ChannelCensus census;
    census.Add(6);
    census.Clear();
    QVERIFY(census.Counts().isEmpty());
    QVERIFY(census.Recommended().isEmpty());
}

QTEST_APPLESS_MAIN(TestChannelCensus)
#include "tst_channelcensus.moc"

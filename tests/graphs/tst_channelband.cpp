#include "graphs/channelband.h"

#include <QTest>
#include <limits>

class TestChannelBand : public QObject
{
    Q_OBJECT

private slots:
    void everyChannelBelongsToOneBand_data();
    void everyChannelBelongsToOneBand();
    void axesAreMarkedAtTheChannels();
    void triangleStandsOnTheChannel_data();
    void triangleStandsOnTheChannel();
};

void TestChannelBand::everyChannelBelongsToOneBand_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<bool>("in2G");
    QTest::newRow("lowest") << std::numeric_limits<int>::min() << true;
    QTest::newRow("-1") << -1 << true;
    QTest::newRow("0") << 0 << true;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("13") << 13 << true;
    QTest::newRow("14 counts as 5 GHz") << 14 << false;
    QTest::newRow("36") << 36 << false;
    QTest::newRow("177") << 177 << false;
    QTest::newRow("highest") << std::numeric_limits<int>::max() << false;
}

void TestChannelBand::everyChannelBelongsToOneBand()
{
    QFETCH(int, channel);
    QFETCH(bool, in2G);
    QCOMPARE(channelBand2G().contains(channel), in2G);
    QCOMPARE(channelBand5G().contains(channel), !in2G);
}

void TestChannelBand::axesAreMarkedAtTheChannels()
{
    QCOMPARE(
        channelBand2G().ticks, (QList<double>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}));
    QCOMPARE(channelBand5G().ticks,
        (QList<double>{0, 34, 40, 48, 60, 100, 112, 124, 140, 149, 161, 171}));
}

void TestChannelBand::triangleStandsOnTheChannel_data()
{
    QTest::addColumn<bool>("in2G");
    QTest::addColumn<int>("channel");
    QTest::addColumn<int>("dBm");
    QTest::addColumn<QVector<QPointF>>("points");
    QTest::newRow("1 reaches the axis minimum")
        << true << 1 << -40 << QVector<QPointF>{{0, -100}, {1, -40}, {2, -100}};
    QTest::newRow("13 reaches the axis maximum")
        << true << 13 << -55 << QVector<QPointF>{{12, -100}, {13, -55}, {14, -100}};
    QTest::newRow("14 lies left of the first labelled channel")
        << false << 14 << -60 << QVector<QPointF>{{9, -100}, {14, -60}, {19, -100}};
    QTest::newRow("36") << false << 36 << 0 << QVector<QPointF>{{31, -100}, {36, 0}, {41, -100}};
    QTest::newRow("weaker than the base")
        << false << 36 << -110 << QVector<QPointF>{{31, -100}, {36, -110}, {41, -100}};
}

void TestChannelBand::triangleStandsOnTheChannel()
{
    QFETCH(bool, in2G);
    QFETCH(int, channel);
    QFETCH(int, dBm);
    const ChannelBand &band = in2G ? channelBand2G() : channelBand5G();
    QTEST(trianglePoints(channel, dBm, band.halfWidth), "points");
}

QTEST_MAIN(TestChannelBand)
#include "tst_channelband.moc"

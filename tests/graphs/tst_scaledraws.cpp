#include "graphs/graphtest.h"
#include "graphs/signalscaledraw.h"
#include "graphs/timescaledraw.h"

#include <QTest>

class TestScaleDraws : public QObject
{
    Q_OBJECT

private slots:
    void timeLabelAddsWholeSeconds_data();
    void timeLabelAddsWholeSeconds();
    void timeScaleShowsClockTimes();
    void signalScaleShowsBareNumbers_data();
    void signalScaleShowsBareNumbers();
};

void TestScaleDraws::timeLabelAddsWholeSeconds_data()
{
    QTest::addColumn<QTime>("base");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("label");
    QTest::newRow("start") << QTime(12, 0, 0) << 0. << "12:00:00";
    QTest::newRow("fraction is cut") << QTime(12, 0, 0) << 59.9 << "12:00:59";
    QTest::newRow("fraction below zero is cut") << QTime(12, 0, 0) << -0.9 << "12:00:00";
    QTest::newRow("leading zeros") << QTime(1, 2, 3) << 1. << "01:02:04";
    QTest::newRow("hours") << QTime(12, 0, 0) << 3661. << "13:01:01";
    QTest::newRow("midnight") << QTime(23, 59, 59) << 1. << "00:00:00";
    QTest::newRow("days later") << QTime(12, 0, 0) << 2 * 86400. + 1. << "12:00:01";
}

void TestScaleDraws::timeLabelAddsWholeSeconds()
{
    QFETCH(QTime, base);
    QFETCH(double, seconds);
    QTEST(timeLabel(base, seconds), "label");
}

void TestScaleDraws::timeScaleShowsClockTimes()
{
    const TimeScaleDraw scale(QTime(8, 30, 0));
    QCOMPARE(scale.label(50.).text(), QStringLiteral("08:30:50"));
    QVERIFY(GraphTest::isPlain(scale.label(50.)));
}

void TestScaleDraws::signalScaleShowsBareNumbers_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("label");
    QTest::newRow("weakest") << -100. << "-100";
    QTest::newRow("zero") << 0. << "0";
    QTest::newRow("channel") << 171. << "171";
    QTest::newRow("six digits") << 0.12345678 << "0.123457";
    QTest::newRow("exponent") << 1000000. << "1e+06";
}

void TestScaleDraws::signalScaleShowsBareNumbers()
{
    QFETCH(double, value);
    const QwtText label = SignalScaleDraw().label(value);
    QTEST(label.text(), "label");
    QVERIFY(GraphTest::isPlain(label));
}

QTEST_MAIN(TestScaleDraws)
#include "tst_scaledraws.moc"

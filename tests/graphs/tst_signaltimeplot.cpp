#include "graphs/graphtest.h"
#include "graphs/signaltimeplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QAbstractEventDispatcher>
#include <QTest>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>

using GraphTest::curve;
using GraphTest::curves;
using GraphTest::tick;
using GraphTest::values;

namespace
{
const QString Home = QStringLiteral("Home");
const QString Cafe = QStringLiteral("Cafe");

QVector<WifiProperty> batch(int rssi)
{
    return {TestAir::network(Home, rssi), TestAir::network(Cafe, rssi - 10)};
}
} // namespace

class TestSignalTimePlot : public QObject
{
    Q_OBJECT

private slots:
    void showsFourMinutesAndHundredDbm();
    void looksLikeAGraph();
    void timerTicksEveryThreeSeconds();

    void tickingBeforeTheFirstBatchIsLogged();
    void firstBatchStoresNoSample();
    void newNetworkHasNoSampleFromItsFirstBatch();
    void networkThatIsNotShownCollectsNothing();
    void newestSampleIsDrawnTwice();
    void missingNetworkKeepsItsSamples();
    void curveNeverHasMoreThan239Points();
    void axisMovesThreeSecondsPerTickAndSamplesStandOneSecondApart();
    void samplesAreDrawnAtTheNextTick();

    void emptyFirstBatchCounts();

    void startChangesNothing();
};

void TestSignalTimePlot::showsFourMinutesAndHundredDbm()
{
    const SignalTimePlot plot;
    QCOMPARE(plot.axisInterval(QwtPlot::xBottom), QwtInterval(0., 240.));
    QVERIFY(plot.axisEnabled(QwtPlot::yLeft));
    QVERIFY(plot.axisEnabled(QwtPlot::yRight));
    for (int axis : {QwtPlot::yLeft, QwtPlot::yRight}) {
        const QwtScaleDiv scale = plot.axisScaleDiv(axis);
        QCOMPARE(scale.interval(), QwtInterval(-100., 0.));
        QCOMPARE(scale.ticks(QwtScaleDiv::MajorTick),
            (QList<double>{-100., -80., -60., -40., -20., 0.}));
        QVERIFY(scale.ticks(QwtScaleDiv::MediumTick).isEmpty());
        QVERIFY(scale.ticks(QwtScaleDiv::MinorTick).isEmpty());
        QCOMPARE(plot.axisScaleDraw(axis)->label(-40.).text(), QStringLiteral("-40"));
    }
    QVERIFY(plot.axisScaleDraw(QwtPlot::yLeft) != plot.axisScaleDraw(QwtPlot::yRight));

    const QTime base = QTime::fromString(
        plot.axisScaleDraw(QwtPlot::xBottom)->label(0.).text(), QStringLiteral("hh:mm:ss"));
    // The base time is some seconds ago by now; a day has 86400.
    const int age = (base.secsTo(QTime::currentTime()) + 86400) % 86400;
    QVERIFY2(age >= 240 && age < 240 + 60, qPrintable(QString::number(age)));
}

void TestSignalTimePlot::looksLikeAGraph()
{
    const SignalTimePlot plot;
    QVERIFY(!plot.autoReplot());
    QCOMPARE(plot.canvas()->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(qobject_cast<const QwtPlotCanvas *>(plot.canvas())->borderRadius(), 10.);
    QCOMPARE(plot.canvasBackground(), QBrush(Qt::white));
    QVERIFY(plot.plotLayout()->alignCanvasToScale(QwtPlot::xBottom));
    QVERIFY(plot.plotLayout()->alignCanvasToScale(QwtPlot::yLeft));
    QCOMPARE(int(plot.axisScaleDraw(QwtPlot::xBottom)->labelAlignment()), 196);
    const QwtScaleWidget *axis = plot.axisWidget(QwtPlot::xBottom);
    int start = -1;
    int end = -1;
    axis->getMinBorderDist(start, end);
    QCOMPARE(start, 0);
    QCOMPARE(end, QFontMetrics(axis->font()).height() / 2);
}

void TestSignalTimePlot::timerTicksEveryThreeSeconds()
{
    SignalTimePlot plot;
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(&plot);
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().interval, 3000);
    QCOMPARE(timers.first().timerType, Qt::CoarseTimer);
    plot.onStopScan();
    QCOMPARE(QAbstractEventDispatcher::instance()->registeredTimers(&plot).size(), 1);
}

void TestSignalTimePlot::tickingBeforeTheFirstBatchIsLogged()
{
    SignalTimePlot plot;
    const MessageLog log;
    plot.onShowCurve(0, Home, true);
    QCOMPARE(log.debugs(),
        (QStringList{QStringLiteral("on show curve: 0"), QStringLiteral("timeplot not find")}));
    QVERIFY(curves(plot).isEmpty());
}

void TestSignalTimePlot::firstBatchStoresNoSample()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    QCOMPARE(plot.NetworkCount(), 2);
    QVERIFY(curves(plot).isEmpty());

    MessageLog log;
    plot.onShowCurve(0, Home, true);
    QCOMPARE(log.debugs(),
        (QStringList{QStringLiteral("on show curve: 2"), QStringLiteral("show curve")}));
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>());

    plot.onDataReturned(batch(-60));
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-60.});
}

void TestSignalTimePlot::newNetworkHasNoSampleFromItsFirstBatch()
{
    SignalTimePlot plot;
    plot.onDataReturned({});
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>());
    plot.onDataReturned(batch(-60));
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-60.});
    QCOMPARE(plot.NetworkCount(), 0);
}

void TestSignalTimePlot::networkThatIsNotShownCollectsNothing()
{
    SignalTimePlot plot;
    for (int i = 0; i < 5; ++i)
        plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>());
}

void TestSignalTimePlot::newestSampleIsDrawnTwice()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    for (int rssi : {-51, -52, -53})
        plot.onDataReturned(batch(rssi));
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), (QVector<double>{-53., -53., -52.}));
}

void TestSignalTimePlot::missingNetworkKeepsItsSamples()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    plot.onDataReturned({TestAir::network(Cafe)});
    plot.onDataReturned({});
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-51.});
}

void TestSignalTimePlot::curveNeverHasMoreThan239Points()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    for (int i = 1; i <= 238; ++i)
        plot.onDataReturned(batch(-50));
    tick(&plot);
    QCOMPARE(curve(plot, Home)->dataSize(), std::size_t(238));
    for (int i = 0; i < 20; ++i)
        plot.onDataReturned(batch(-50));
    tick(&plot);
    QCOMPARE(curve(plot, Home)->dataSize(), std::size_t(239));
}

void TestSignalTimePlot::axisMovesThreeSecondsPerTickAndSamplesStandOneSecondApart()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    for (int i = 0; i < 3; ++i)
        plot.onDataReturned(batch(-50));
    tick(&plot);
    QCOMPARE(plot.axisInterval(QwtPlot::xBottom), QwtInterval(3., 242.));
    tick(&plot);
    QCOMPARE(plot.axisInterval(QwtPlot::xBottom), QwtInterval(6., 245.));
    QCOMPARE(curve(plot, Home)->sample(0).x(), 245.);
    QCOMPARE(curve(plot, Home)->sample(1).x(), 244.);
    QCOMPARE(curve(plot, Home)->sample(2).x(), 243.);
}

void TestSignalTimePlot::samplesAreDrawnAtTheNextTick()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-50));
    QCOMPARE(curve(plot, Home)->dataSize(), std::size_t(0));
    tick(&plot);
    QCOMPARE(curve(plot, Home)->dataSize(), std::size_t(1));
}

void TestSignalTimePlot::emptyFirstBatchCounts()
{
    SignalTimePlot plot;
    plot.onDataReturned({});
    QCOMPARE(plot.NetworkCount(), 0);
    QVERIFY(plot.QwtPlot::legend());
    plot.onDataReturned(batch(-50));
    QCOMPARE(plot.NetworkCount(), 0);
}

void TestSignalTimePlot::startChangesNothing()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    plot.onStartScan();
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-51.});
}

QTEST_MAIN(TestSignalTimePlot)
#include "tst_signaltimeplot.moc"

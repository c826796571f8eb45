#include "graphs/curvecolors.h"
#include "graphs/graphtest.h"
#include "graphs/signaltimeplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QSet>
#include <QTest>
#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>

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

QwtLegend *legendOf(const QwtPlot &plot)
{
    return plot.findChild<QwtLegend *>(QStringLiteral("timeplotframe"));
}
} // namespace

/// The life of the time graph's curves and of their legend.
class TestSignalTimePlotCurves : public QObject
{
    Q_OBJECT

private slots:
    void hidingDeletesTheCurveAndKeepsTheSamples();
    void colorIsOneOfTen();
    void tickingTwiceKeepsOneCurve();
    void untickingTwiceIsHarmless();
    void curvesReadTheirSamplesWhereTheyAre();
    void insertCurveForgetsAShownNetwork();
    void namesAreNeverMarkup();
    void emptyNameIsAName();
    void legendComesWithTheFirstBatch();
    void legendLabelFollowsTheTick();
    void legendEntryHidesItsCurve();
    void showCurveIgnoresNull();
    void stopForgetsAndRemovesTheLegend();
    void afterAStopThereIsNoLegendButCurves();
    void stopWithoutDataIsHarmless();
    void emptyingDeletesTheCurves();
};

void TestSignalTimePlotCurves::hidingDeletesTheCurveAndKeepsTheSamples()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    plot.onDataReturned(batch(-52));
    plot.onShowCurve(0, Home, false);
    QVERIFY(curves(plot).isEmpty());
    plot.onDataReturned(batch(-53));
    tick(&plot);

    plot.onShowCurve(0, Home, true);
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), (QVector<double>{-52., -52.}));
}

void TestSignalTimePlotCurves::colorIsOneOfTen()
{
    QSet<QRgb> allowed;
    for (const QString &name : curveColorList.mid(1, 10))
        allowed.insert(QColor(name).rgb());
    QCOMPARE(allowed.size(), 10);
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    QSet<QRgb> seen;
    for (int i = 0; i < 500; ++i) {
        plot.onShowCurve(0, Home, true);
        const QPen pen = curve(plot, Home)->pen();
        QCOMPARE(pen.widthF(), 2.);
        QCOMPARE(pen.style(), Qt::SolidLine);
        seen.insert(pen.color().rgb());
        plot.onShowCurve(0, Home, false);
    }
    QCOMPARE(seen, allowed);
}

void TestSignalTimePlotCurves::tickingTwiceKeepsOneCurve()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    tick(&plot);
    plot.onShowCurve(3, Home, true);
    QCOMPARE(curves(plot).size(), 1);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-51.});
    plot.onShowCurve(0, Home, false);
    QVERIFY(curves(plot).isEmpty());
}

void TestSignalTimePlotCurves::untickingTwiceIsHarmless()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, false);
    plot.onShowCurve(0, Home, true);
    plot.onShowCurve(0, Home, false);
    plot.onShowCurve(0, Home, false);
    QVERIFY(curves(plot).isEmpty());
}

void TestSignalTimePlotCurves::curvesReadTheirSamplesWhereTheyAre()
{
    SignalTimePlot plot;
    plot.resize(600, 300);
    plot.show();
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    tick(&plot);
    // Many newcomers rearrange the map; the curve still reads what it was given.
    plot.onDataReturned(TestAir::networks(500));
    plot.onDataReturned(batch(-52));
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-52.});
    plot.grab();
    plot.onShowCurve(0, Home, false);
    plot.onShowCurve(0, Home, true);
    plot.grab();
}

void TestSignalTimePlotCurves::insertCurveForgetsAShownNetwork()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    tick(&plot);
    QVector<WifiProperty> one = {TestAir::network(Home)};
    plot.insertCurve(one);
    QCOMPARE(plot.NetworkCount(), 1);
    QVERIFY(curves(plot).isEmpty());
    tick(&plot);
    plot.onShowCurve(0, Home, true);
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>());
}

void TestSignalTimePlotCurves::namesAreNeverMarkup()
{
    const QString name = QStringLiteral("<h1>Home</h1>");
    SignalTimePlot plot;
    plot.onDataReturned({TestAir::network(name)});
    plot.onShowCurve(0, name, true);
    QCOMPARE(curves(plot).first()->title().text(), name);
    QVERIFY(GraphTest::isPlain(curves(plot).first()->title()));
    const auto *label = legendOf(plot)->findChild<QwtLegendLabel *>();
    QCOMPARE(label->text().text(), name);
    QVERIFY(GraphTest::isPlain(label->text()));
}

void TestSignalTimePlotCurves::emptyNameIsAName()
{
    SignalTimePlot plot;
    plot.onDataReturned({TestAir::network(QString())});
    plot.onShowCurve(0, QString(), true);
    QCOMPARE(curves(plot).size(), 1);
}

void TestSignalTimePlotCurves::legendComesWithTheFirstBatch()
{
    SignalTimePlot plot;
    QVERIFY(!legendOf(plot));
    plot.onDataReturned(batch(-50));
    QVERIFY(legendOf(plot));
    QCOMPARE(plot.QwtPlot::legend(), legendOf(plot));
    QCOMPARE(plot.plotLayout()->legendPosition(), QwtPlot::RightLegend);
    plot.onDataReturned(batch(-50));
    QCOMPARE(plot.findChildren<QwtLegend *>().size(), 1);
}

void TestSignalTimePlotCurves::legendLabelFollowsTheTick()
{
    SignalTimePlot plot;
    plot.resize(600, 300);
    plot.show();
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onShowCurve(1, Cafe, true);
    const auto labels = [&plot] {
        QStringList texts;
        for (const auto *label : legendOf(plot)->findChildren<QwtLegendLabel *>()) {
            if (!label->isHidden())
                texts.append(label->text().text());
        }
        return texts;
    };
    QCOMPARE(labels(), (QStringList{Home, Cafe}));
    plot.onShowCurve(0, Home, false);
    QCOMPARE(labels(), QStringList{Cafe});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(labels(), QStringList{Cafe});
}

void TestSignalTimePlotCurves::legendEntryHidesItsCurve()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    QwtPlotCurve *home = curve(plot, Home);
    const QVariant info = plot.itemToInfo(home);
    const auto *label = legendOf(plot)->findChild<QwtLegendLabel *>();
    plot.wifiChecked(info, false);
    QVERIFY(!home->isVisible());
    QVERIFY(label->isHidden());
    plot.wifiChecked(info, true);
    QVERIFY(home->isVisible());
    QVERIFY(!label->isHidden());
    plot.wifiChecked(QVariant(), false);
    QVERIFY(home->isVisible());
}

void TestSignalTimePlotCurves::showCurveIgnoresNull()
{
    SignalTimePlot plot;
    const MessageLog log;
    plot.showCurve(nullptr, true);
    QVERIFY(log.criticals().isEmpty());
}

void TestSignalTimePlotCurves::stopForgetsAndRemovesTheLegend()
{
    SignalTimePlot plot;
    plot.resize(600, 300);
    plot.show();
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    tick(&plot);
    plot.onStopScan();
    QVERIFY(!legendOf(plot));
    QVERIFY(curves(plot).isEmpty());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    tick(&plot);
    plot.grab();
    const MessageLog log;
    plot.onShowCurve(0, Home, true);
    QVERIFY(log.debugs().contains(QStringLiteral("timeplot not find")));
}

void TestSignalTimePlotCurves::afterAStopThereIsNoLegendButCurves()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onStopScan();
    plot.onStartScan();
    plot.onDataReturned(batch(-50));
    QVERIFY(!legendOf(plot));
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned(batch(-51));
    tick(&plot);
    QCOMPARE(values(*curve(plot, Home)), QVector<double>{-51.});
    QVERIFY(!legendOf(plot));
    plot.onShowCurve(0, Home, false);
    QVERIFY(curves(plot).isEmpty());
    plot.onStopScan();
}

void TestSignalTimePlotCurves::stopWithoutDataIsHarmless()
{
    SignalTimePlot plot;
    plot.onStopScan();
    plot.onDataReturned(batch(-50));
    QVERIFY(legendOf(plot));
}

void TestSignalTimePlotCurves::emptyingDeletesTheCurves()
{
    SignalTimePlot plot;
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    plot.EmptyCurveData();
    QVERIFY(curves(plot).isEmpty());
    QVERIFY(legendOf(plot));
    MessageLog log;
    plot.onShowCurve(0, Home, true);
    QVERIFY(log.debugs().contains(QStringLiteral("timeplot not find")));
    log.clear();
    plot.onDataReturned(batch(-50));
    plot.onShowCurve(0, Home, true);
    QCOMPARE(curves(plot).size(), 1);
}

QTEST_MAIN(TestSignalTimePlotCurves)
#include "tst_signaltimeplotcurves.moc"

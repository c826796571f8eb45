#include "graphs/graphtest.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signaltimeplot.h"
#include "graphs/zoomer.h"
#include "support/testair.h"

#include <QTest>
#include <algorithm>
#include <qwt_legend_label.h>

using GraphTest::tick;

namespace
{
const QString Home = QStringLiteral("Home");
const QString Cafe = QStringLiteral("Cafe");

const QString OfTime = QStringLiteral("Untick a network in the list and tick it again to draw it.");
const QString Of2G =
    QStringLiteral("Untick a 2.4 GHz network in the list and tick it again to draw it here.");
const QString Of5G =
    QStringLiteral("Untick a 5 GHz network in the list and tick it again to draw it here.");

/// What is written in grey on the canvas, in one line.
QString notice(QwtPlot &plot)
{
    QStringList lines;
    const QVector<PaintStep> steps = GraphTest::painted(plot);
    for (const PaintStep &step : steps) {
        const QColor color = step.pen.color();
        if (!step.text.isEmpty() && color.saturation() == 0 && color.value() > 0)
            lines.append(step.text.trimmed());
    }
    return lines.join(QLatin1Char(' '));
}

template <typename Graph> void prepare(Graph &plot, const QVector<WifiProperty> &air)
{
    plot.resize(500, 250);
    plot.show();
    plot.onDataReturned(air);
    tick(&plot);
}

/// Shows and hides two networks of the graph's, and one of the other band.
template <typename Graph> void comeAndGo(const QString &text, int channel, int otherChannel)
{
    Graph plot;
    plot.resize(500, 250);
    plot.show();
    QCOMPARE(notice(plot), text);
    prepare(plot, {TestAir::network(Home, -50, channel), TestAir::network(Cafe, -60, channel),
                      TestAir::network(QStringLiteral("Other"), -60, otherChannel)});
    QCOMPARE(notice(plot), text);
    if (channel != otherChannel) {
        plot.onShowCurve(0, QStringLiteral("Other"), true);
        QCOMPARE(notice(plot), text);
    }
    plot.onShowCurve(0, Home, true);
    QCOMPARE(notice(plot), QString());
    plot.onShowCurve(0, Cafe, true);
    plot.onShowCurve(0, Home, false);
    QCOMPARE(notice(plot), QString());
    tick(&plot);
    QCOMPARE(notice(plot), QString());
    plot.onShowCurve(0, Cafe, false);
    QCOMPARE(notice(plot), text);
    plot.onShowCurve(0, Cafe, true);
    QCOMPARE(notice(plot), QString());
    plot.EmptyCurveData();
    QCOMPARE(notice(plot), text);
}
} // namespace

class TestEmptyNotice : public QObject
{
    Q_OBJECT

private slots:
    void comesAndGoesInTheTimeGraph();
    void comesAndGoesIn2GHz();
    void comesAndGoesIn5GHz();
    void isReadable();
    void showsOnTheScreenAtOnce();
    void isNoPlotItem();
    void trackerNeverFindsIt();
};

void TestEmptyNotice::comesAndGoesInTheTimeGraph()
{
    comeAndGo<SignalTimePlot>(OfTime, 6, 6);
}

void TestEmptyNotice::comesAndGoesIn2GHz()
{
    comeAndGo<Signal2GPlot>(Of2G, 6, 36);
}

void TestEmptyNotice::comesAndGoesIn5GHz()
{
    comeAndGo<Signal5GPlot>(Of5G, 36, 6);
}

void TestEmptyNotice::isReadable()
{
    Signal2GPlot plot;
    for (const QSize &size : {QSize(400, 150), QSize(1000, 300)}) {
        plot.resize(size);
        plot.show();
        const QVector<PaintStep> steps = GraphTest::painted(plot);
        QRectF bounds;
        for (const PaintStep &step : steps) {
            if (step.text.isEmpty())
                continue;
            bounds |= step.textBounds;
            // At least 4.5:1 on white.
            QVERIFY(step.pen.color().value() <= 0x76);
        }
        const QRectF canvas = plot.canvas()->contentsRect();
        QVERIFY(canvas.contains(bounds));
        QVERIFY((bounds.center() - canvas.center()).manhattanLength() < 6.);
    }
}

void TestEmptyNotice::showsOnTheScreenAtOnce()
{
    SignalTimePlot plot;
    prepare(plot, {TestAir::network(Home)});
    const QImage empty = plot.canvas()->grab().toImage();
    QVERIFY(GraphTest::repaints(*plot.canvas(), [&plot] { plot.onShowCurve(0, Home, true); }));
    QVERIFY(plot.canvas()->grab().toImage() != empty);
    QVERIFY(GraphTest::repaints(*plot.canvas(), [&plot] { plot.onShowCurve(0, Home, false); }));
    QCoreApplication::processEvents();
    QCOMPARE(plot.canvas()->grab().toImage(), empty);
}

void TestEmptyNotice::isNoPlotItem()
{
    SignalTimePlot time;
    prepare(time, {TestAir::network(Home)});
    QVERIFY(time.itemList().isEmpty());
    QVERIFY(time.findChildren<QwtLegendLabel *>().isEmpty());
    Signal2GPlot channels;
    QVERIFY(channels.itemList().isEmpty());
}

void TestEmptyNotice::trackerNeverFindsIt()
{
    SignalTimePlot plot;
    prepare(plot, {TestAir::network(Home)});
    const QPoint middle = plot.canvas()->rect().center();
    QMouseEvent move(QEvent::MouseMove, middle, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(plot.canvas(), &move);
    QVERIFY(!plot.canvas()->findChild<QWidget *>(QStringLiteral("PickerTracker")));
}

QTEST_MAIN(TestEmptyNotice)
#include "tst_emptynotice.moc"

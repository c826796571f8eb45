// What the graphs and the gauge cost, as ratios to the least that Qt and Qwt need for the same work
// in the same run.

#include "bench/baretimeplot.h"
#include "bench/sidebyside.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QApplication>
#include <QPainter>
#include <QTimerEvent>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <vector>

namespace
{
constexpr std::size_t MostRounds = 41;
const QSize GraphSize(1000, 260);

void tick(QObject *graph)
{
    QTimerEvent event(0);
    QCoreApplication::sendEvent(graph, &event);
}

/// A QwtPlot that draws `count` named triangles and does nothing else.
class BareChannelPlot : public QwtPlot
{
public:
    explicit BareChannelPlot(const QVector<WifiProperty> &air)
    {
        setAutoReplot(false);
        setCanvasBackground(QBrush(Qt::white));
        setAxisScale(yLeft, -100., 0.);
        setAxisScale(xBottom, 0., 14.);
        for (const WifiProperty &network : air) {
            m_curves.push_back(new QwtPlotCurve(network.ssid));
            m_curves.back()->setPen(Qt::darkCyan, 2.);
            m_curves.back()->attach(this);
            m_points.push_back(trianglePoints(network.channel, network.rssi, 1.));
            auto *marker = new QwtPlotMarker;
            marker->setLabel(network.ssid);
            marker->setValue(network.channel, network.rssi);
            marker->attach(this);
        }
    }

    void step()
    {
        for (std::size_t i = 0; i < m_curves.size(); ++i)
            m_curves[i]->setSamples(m_points[i]);
        replot();
    }

private:
    std::vector<QVector<QPointF>> m_points;
    std::vector<QwtPlotCurve *> m_curves;
};

/// The made-up networks as they are heard at a point in time.
void setTime(QVector<WifiProperty> &air, int time)
{
    for (int i = 0; i < air.size(); ++i)
        air[i].rssi = madeUpSignal(i, time);
}

void benchTimeTick(int count, std::size_t rounds)
{
    QVector<WifiProperty> air = TestAir::networks(count);
    SignalTimePlot plot;
    plot.onDataReturned(air);
    for (const WifiProperty &network : qAsConst(air))
        plot.onShowCurve(0, network.ssid, true);
    int time = 0;
    for (; time < HISTORY; ++time) {
        setTime(air, time);
        plot.onDataReturned(air);
    }
    BareTimePlot bare(count);
    for (QWidget *graph : {static_cast<QWidget *>(&plot), static_cast<QWidget *>(&bare)}) {
        graph->resize(GraphSize);
        graph->show();
    }
    QCoreApplication::processEvents();
    SideBySide::report("time graph, tick with all curves", count,
        SideBySide::compareProcessor(
            rounds,
            [&] {
                setTime(air, ++time);
                plot.onDataReturned(air);
                tick(&plot);
                QCoreApplication::processEvents();
            },
            [&] {
                bare.step();
                QCoreApplication::processEvents();
            }));
}

void benchChannelTick(int count, std::size_t rounds)
{
    QVector<WifiProperty> air = TestAir::networks(count);
    for (WifiProperty &network : air)
        network.channel = 1 + network.channel % 13;
    Signal2GPlot plot;
    plot.onDataReturned(air);
    for (const WifiProperty &network : qAsConst(air))
        plot.onShowCurve(0, network.ssid, true);
    BareChannelPlot bare(air);
    for (QWidget *graph : {static_cast<QWidget *>(&plot), static_cast<QWidget *>(&bare)}) {
        graph->resize(GraphSize);
        graph->show();
    }
    QCoreApplication::processEvents();
    SideBySide::report("channel graph, tick with all triangles", count,
        SideBySide::compareProcessor(
            rounds,
            [&] {
                plot.onDataReturned(air);
                tick(&plot);
                QCoreApplication::processEvents();
            },
            [&] {
                bare.step();
                QCoreApplication::processEvents();
            }));
}

/// The first batch makes a network known; the bare graph makes its triangle and its name.
template <typename Graph> void benchFirstBatch(const char *what, int count, std::size_t rounds)
{
    const QVector<WifiProperty> air = TestAir::networks(count);
    SideBySide::report(what, count,
        SideBySide::compareProcessor(
            rounds,
            [&] {
                Graph plot;
                plot.resize(GraphSize);
                plot.onDataReturned(air);
            },
            [&] { BareChannelPlot(air).resize(GraphSize); }));
}

class Gauge : public SignalStrengthDashboard
{
public:
    explicit Gauge(QWidget *parent)
        : SignalStrengthDashboard(parent)
    {
    }
};

void benchGauge()
{
    // With a parent, as in the window: the size a widget is born with decides where the dial
    // stands.
    QWidget frame;
    Gauge gauge(&frame);
    gauge.setFixedSize(320, 260);
    gauge.onNetworkReturned(QStringLiteral("Home"));
    gauge.SetSignalValue(-60);
    QImage canvas(gauge.size(), QImage::Format_ARGB32_Premultiplied);
    const auto paintBare = [&] {
        QPainter painter(&canvas);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(QColor(64, 48, 145));
        painter.setPen(QPen(QColor(64, 48, 145), 4.));
        painter.drawPie(52, 37, 216, 216, 120 * 16, 80 * 16);
        const QPoint points[] = {{156, 145}, {160, 25}, {164, 145}};
        painter.setPen(QPen(Qt::white, 8.));
        painter.drawPolyline(points, 3);
    };
    SideBySide::report("gauge painted, beside a pie and a line", -1,
        SideBySide::compareProcessor(
            MostRounds, [&] { gauge.render(&canvas); }, paintBare));
}
} // namespace

int main(int argc, char *argv[])
{
    const SideBySide::Extent extent(argc, argv);
    const QApplication app(argc, argv);
    const MessageLog quiet;
    for (int count : extent.networks())
        benchTimeTick(count, extent.rounds(MostRounds, count));
    for (int count : extent.networks())
        benchChannelTick(count, extent.rounds(MostRounds, count));
    for (int count : extent.networks()) {
        const std::size_t rounds = extent.rounds(MostRounds, count);
        benchFirstBatch<SignalTimePlot>("time graph, first batch", count, rounds);
        benchFirstBatch<Signal2GPlot>("2.4 GHz graph, first batch", count, rounds);
        benchFirstBatch<Signal5GPlot>("5 GHz graph, first batch", count, rounds);
    }
    benchGauge();
    return 0;
}

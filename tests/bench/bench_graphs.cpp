// What the graphs and the gauge cost, as ratios to the least that Qt and Qwt need for the same work
// in the same run.

#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QApplication>
#include <QPainter>
#include <QTimerEvent>
#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <vector>

namespace
{
constexpr int Rounds = 41;
const QSize GraphSize(1000, 260);

/// Processor time of this process in µs: other work on the machine does not count.
double cpuTime()
{
    return static_cast<double>(std::clock()) * 1e6 / CLOCKS_PER_SEC;
}

/// Median time of one call, in µs; `first` and `second` take turns, so that both meet the same
/// machine.
std::pair<double, double> compare(
    const std::function<void()> &first, const std::function<void()> &second)
{
    std::array<double, Rounds> times[2];
    for (std::size_t round = 0; round < Rounds; ++round) {
        int which = 0;
        for (const auto *work : {&first, &second}) {
            const double start = cpuTime();
            (*work)();
            times[which++][round] = cpuTime() - start;
        }
    }
    for (auto &list : times)
        std::nth_element(list.begin(), list.begin() + Rounds / 2, list.end());
    return {times[0][Rounds / 2], times[1][Rounds / 2]};
}

void report(const char *what, int count, std::pair<double, double> us)
{
    std::printf("%-38s %5d  %10.1f us  %10.1f us  %6.2f\n", what, count, us.first, us.second,
        us.first / us.second);
}

void tick(QObject *graph)
{
    QTimerEvent event(0);
    QCoreApplication::sendEvent(graph, &event);
}

/// A QwtPlot that draws `count` full curves and does nothing else.
class BareTimePlot : public QwtPlot
{
public:
    explicit BareTimePlot(int count)
    {
        setAutoReplot(false);
        setCanvasBackground(QBrush(Qt::white));
        insertLegend(new QwtLegend, RightLegend, -1.);
        setAxisScale(yLeft, -100., 0.);
        setAxisScale(yRight, -100., 0.);
        enableAxis(yRight);
        for (std::size_t i = 0; i < HISTORY; ++i)
            m_times[i] = HISTORY - 1. - static_cast<double>(i);
        m_samples.resize(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            m_samples[static_cast<std::size_t>(i)].fill(-30. - (i * 7) % 65);
            m_curves.push_back(new QwtPlotCurve(QStringLiteral("Network %1").arg(i)));
            m_curves.back()->setPen(Qt::darkCyan, 2.);
            m_curves.back()->attach(this);
        }
    }

    void step()
    {
        for (double &time : m_times)
            time += 3.;
        setAxisScale(xBottom, m_times.back(), m_times.front());
        for (std::size_t i = 0; i < m_curves.size(); ++i)
            m_curves[i]->setRawSamples(m_times.data(), m_samples[i].data(), HISTORY - 1);
        replot();
    }

private:
    SampleHistory m_times;
    std::vector<SampleHistory> m_samples;
    std::vector<QwtPlotCurve *> m_curves;
};

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

void benchTimeTick(int count)
{
    QVector<WifiProperty> air = TestAir::networks(count);
    SignalTimePlot plot;
    plot.onDataReturned(air);
    for (const WifiProperty &network : qAsConst(air))
        plot.onShowCurve(0, network.ssid, true);
    for (int i = 0; i < HISTORY; ++i)
        plot.onDataReturned(air);
    BareTimePlot bare(count);
    for (QWidget *graph : {static_cast<QWidget *>(&plot), static_cast<QWidget *>(&bare)}) {
        graph->resize(GraphSize);
        graph->show();
    }
    QCoreApplication::processEvents();
    report("time graph: tick / bare QwtPlot", count,
        compare(
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

void benchChannelTick(int count)
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
    report("channel graph: tick / bare QwtPlot", count,
        compare(
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

/// Cost of the first batch per network: 2000 networks against 300.
template <typename Graph> void benchFirstBatch(const char *what)
{
    const auto first = [](int count) {
        const QVector<WifiProperty> air = TestAir::networks(count);
        Graph plot;
        plot.resize(GraphSize);
        const double start = cpuTime();
        plot.onDataReturned(air);
        return (cpuTime() - start) / count;
    };
    std::array<double, Rounds> many;
    std::array<double, Rounds> few;
    for (std::size_t round = 0; round < Rounds; ++round) {
        many[round] = first(2000);
        few[round] = first(300);
    }
    std::nth_element(many.begin(), many.begin() + Rounds / 2, many.end());
    std::nth_element(few.begin(), few.begin() + Rounds / 2, few.end());
    report(what, 2000, {many[Rounds / 2], few[Rounds / 2]});
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
    report("gauge: paint / pie and polyline", 1,
        compare([&] { gauge.render(&canvas); },
            [&] {
                QPainter painter(&canvas);
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setBrush(QColor(64, 48, 145));
                painter.setPen(QPen(QColor(64, 48, 145), 4.));
                painter.drawPie(52, 37, 216, 216, 120 * 16, 80 * 16);
                const QPoint points[] = {{156, 145}, {160, 25}, {164, 145}};
                painter.setPen(QPen(Qt::white, 8.));
                painter.drawPolyline(points, 3);
            }));
}
} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    const MessageLog quiet;
    std::printf("%-38s %5s  %13s  %13s  %6s\n", "", "count", "ours", "other", "ratio");
    for (int count : {15, 60, 300})
        benchTimeTick(count);
    for (int count : {15, 60, 300})
        benchChannelTick(count);
    benchFirstBatch<SignalTimePlot>("time graph: first batch of 2000 / 300");
    benchFirstBatch<Signal2GPlot>("2.4 GHz graph: first batch of 2000 / 300");
    benchFirstBatch<Signal5GPlot>("5 GHz graph: first batch of 2000 / 300");
    benchGauge();
    return 0;
}

#ifndef AIRLUME_TESTS_BENCH_BARETIMEPLOT_H
#define AIRLUME_TESTS_BENCH_BARETIMEPLOT_H

#include <QPen>
#include <QString>
#include <array>
#include <cstddef>
#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <vector>

/// Samples of a graph's whole history.
constexpr int FullHistory = 240;

/// Signal of the made-up network `network` at a point in time, in dBm: it wanders by a few dB.
constexpr int madeUpSignal(int network, int time)
{
    return -30 - (network * 7) % 65 - (network + time / 2) % 4;
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
        for (std::size_t i = 0; i < FullHistory; ++i)
            m_times[i] = FullHistory - 1. - static_cast<double>(i);
        m_samples.resize(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            for (int time = 0; time < FullHistory; ++time)
                m_samples[static_cast<std::size_t>(i)][static_cast<std::size_t>(time)] =
                    madeUpSignal(i, time);
            m_curves.push_back(new QwtPlotCurve(QStringLiteral("Network %1").arg(i)));
            m_curves.back()->setPen(Qt::darkCyan, 2.);
            m_curves.back()->attach(this);
        }
    }

    /// Moves the time axis by one tick and draws.
    void step()
    {
        for (double &time : m_times)
            time += 3.;
        setAxisScale(xBottom, m_times.back(), m_times.front());
        for (std::size_t i = 0; i < m_curves.size(); ++i)
            m_curves[i]->setRawSamples(m_times.data(), m_samples[i].data(), FullHistory - 1);
        replot();
    }

private:
    using History = std::array<double, FullHistory>;

    History m_times;
    std::vector<History> m_samples;
    std::vector<QwtPlotCurve *> m_curves;
};

#endif

#include "graphs/channelband.h"

#include <limits>

namespace
{
const double BaseDbm = -100.;
// Channel 14 counts as 5 GHz on purpose.
const int LastChannel2G = 13;
} // namespace

const ChannelBand &channelBand2G()
{
    static const ChannelBand band = {
        QStringLiteral("2.4G"),
        {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14},
        QwtPlot::yLeft,
        std::numeric_limits<int>::min(),
        LastChannel2G,
        1.,
        QStringLiteral("Untick a 2.4 GHz network in the list and tick it again to draw it here."),
        "2GPlot not find",
    };
    return band;
}

const ChannelBand &channelBand5G()
{
    // Uneven ticks on a linear scale, on purpose: they mark the channels worth a label.
    static const ChannelBand band = {
        QStringLiteral("5G"),
        {0, 34, 40, 48, 60, 100, 112, 124, 140, 149, 161, 171},
        QwtPlot::yRight,
        LastChannel2G + 1,
        std::numeric_limits<int>::max(),
        5.,
        QStringLiteral("Untick a 5 GHz network in the list and tick it again to draw it here."),
        "5GPlot not find",
    };
    return band;
}

QVector<QPointF> trianglePoints(int channel, int dBm, double halfWidth)
{
    const double center = channel;
    return {
        {center - halfWidth, BaseDbm},
        {center, static_cast<double>(dBm)},
        {center + halfWidth, BaseDbm},
    };
}

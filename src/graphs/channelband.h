#ifndef AIRLUME_GRAPHS_CHANNELBAND_H
#define AIRLUME_GRAPHS_CHANNELBAND_H

#include <QList>
#include <QPointF>
#include <QString>
#include <QVector>
#include <qwt_plot.h>

/// What distinguishes the channel graph of one band from that of the other.
struct ChannelBand {
    QString title;              ///< Title of the channel axis.
    QList<double> ticks;        ///< Labelled channels; the axis runs from the first to the last.
    QwtPlot::Axis dBmAxis;      ///< The only y axis.
    int firstChannel;           ///< Lowest channel of the band.
    int lastChannel;            ///< Highest channel of the band.
    double halfWidth;           ///< Half the base of a network's triangle, in channel numbers.
    QString emptyNotice;        ///< Shown while the graph draws no triangle.
    const char *unknownNetwork; ///< Logged when an unknown network is to be shown.

    /// True when a network on `channel` is drawn in this band's graph.
    bool contains(int channel) const { return channel >= firstChannel && channel <= lastChannel; }
};

/// The 2.4 GHz band: every channel up to 13.
const ChannelBand &channelBand2G();
/// The 5 GHz band: every channel from 14 on.
const ChannelBand &channelBand5G();

/// The three corners of a network's triangle, the apex in the middle: x in channel numbers, y in
/// dBm. The base lies at -100 dBm.
QVector<QPointF> trianglePoints(int channel, int dBm, double halfWidth);

#endif

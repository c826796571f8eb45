#ifndef AIRLUME_GRAPHS_SIGNAL5GPLOT_H
#define AIRLUME_GRAPHS_SIGNAL5GPLOT_H

#include "graphs/signalchannelplot.h"

/// The channel graph of the 5 GHz band: channels from 14 on.
class Signal5GPlot : public SignalChannelPlot
{
    Q_OBJECT

public:
    explicit Signal5GPlot(QWidget *parent = nullptr);

    void insertCurve(QVector<WifiProperty> &networks) override;
};

#endif

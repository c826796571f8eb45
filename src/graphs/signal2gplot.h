#ifndef AIRLUME_GRAPHS_SIGNAL2GPLOT_H
#define AIRLUME_GRAPHS_SIGNAL2GPLOT_H

#include "graphs/signalchannelplot.h"

/// The channel graph of the 2.4 GHz band: channels up to 13.
class Signal2GPlot : public SignalChannelPlot
{
    Q_OBJECT

public:
    explicit Signal2GPlot(QWidget *parent = nullptr);

    void insertCurve(QVector<WifiProperty> &networks) override;
};

#endif

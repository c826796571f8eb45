#include "graphs/signal5gplot.h"

Signal5GPlot::Signal5GPlot(QWidget *parent)
    : SignalChannelPlot(channelBand5G(), parent)
{
}

void Signal5GPlot::insertCurve(QVector<WifiProperty> &networks)
{
    // Lives as long as the process: colours go on where they stood, also after a stop.
    static int counter = 1;
    insertNetworks(networks, counter);
}

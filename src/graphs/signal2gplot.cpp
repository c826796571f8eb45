#include "graphs/signal2gplot.h"

Signal2GPlot::Signal2GPlot(QWidget *parent)
    : SignalChannelPlot(channelBand2G(), parent)
{
}

void Signal2GPlot::insertCurve(QVector<WifiProperty> &networks)
{
    // Lives as long as the process: colours go on where they stood, also after a stop.
    static int counter = 1;
    insertNetworks(networks, counter);
}

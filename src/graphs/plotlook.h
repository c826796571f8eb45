#ifndef AIRLUME_GRAPHS_PLOTLOOK_H
#define AIRLUME_GRAPHS_PLOTLOOK_H

#include <QColor>

class QString;
class QwtPlot;
class QwtPlotCurve;

/// What the graphs have in common.
namespace PlotLook
{

/// Period of the graphs' repaint timers in ms.
const int TickMs = 3000;

/// Switches auto-replot off and gives `plot` its white canvas with round corners, and the keyboard
/// a way to it.
void setUpCanvas(QwtPlot *plot);

/// Centres the labels of the bottom axis below their ticks and makes room for half a label.
/// Returns the font height of the axis in pixels.
int setUpBottomLabels(QwtPlot *plot);

/// Gives the y axis `axisId` a fixed scale from -100 to 0 dBm with a tick every 20 dBm.
void setUpDbmAxis(QwtPlot *plot, int axisId);

/// A curve for the network `ssid`, without samples; not attached, owned by the caller.
QwtPlotCurve *makeCurve(const QString &ssid, const QColor &color);

} // namespace PlotLook

#endif

#ifndef AIRLUME_TESTS_GRAPHS_GRAPHTEST_H
#define AIRLUME_TESTS_GRAPHS_GRAPHTEST_H

#include "scan/wifiproperty.h"
#include "support/paintrecord.h"

#include <QVector>
#include <functional>
#include <qwt_plot.h>
#include <qwt_text.h>

class QwtPlotCurve;
class QwtPlotMarker;

/// What the tests of the graphs share. They look at a graph as a user does: at what is attached to
/// it, never at its members.
namespace GraphTest
{

/// Lets the graph's timer fire once.
void tick(QObject *graph);

/// The curves attached to `plot`, in the order they were attached.
QVector<QwtPlotCurve *> curves(const QwtPlot &plot);
/// The curve with the title `ssid`; null when there is none.
QwtPlotCurve *curve(const QwtPlot &plot, const QString &ssid);
/// The marker with the label `ssid`; null when there is none.
QwtPlotMarker *marker(const QwtPlot &plot, const QString &ssid);

/// The y values (dBm) of a curve's samples.
QVector<double> values(const QwtPlotCurve &curve);

/// True when `text` would be drawn as it stands, even if it looks like markup.
bool isPlain(const QwtText &text);

/// What `plot` draws on its canvas, in pixels of the canvas.
QVector<PaintStep> painted(QwtPlot &plot);

/// Presses, drags, turns the wheel and types on `widget`: all that could zoom a plot.
void handleLikeAZoomingUser(QWidget *widget);

/// Shows `widget` and says whether it paints itself anew after `change`.
bool repaints(QWidget &widget, const std::function<void()> &change);

} // namespace GraphTest

#endif

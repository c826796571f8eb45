#ifndef AIRLUME_GRAPHS_EMPTYNOTICE_H
#define AIRLUME_GRAPHS_EMPTYNOTICE_H

class QPainter;
class QRectF;
class QString;
class QwtPlot;

/// What the canvas of a graph says while it draws no curve. No plot item: neither legend nor
/// tracker know of it.
namespace EmptyNotice
{

/// Writes `text` into the middle of `canvasRect` unless a curve of `plot` is visible.
void Draw(const QwtPlot &plot, const QString &text, QPainter *painter, const QRectF &canvasRect);

} // namespace EmptyNotice

#endif

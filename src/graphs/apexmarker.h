#ifndef AIRLUME_GRAPHS_APEXMARKER_H
#define AIRLUME_GRAPHS_APEXMARKER_H

#include <qwt_plot_marker.h>

/// Where to centre a label of `size` that belongs at `center`, so that it lies inside `bounds`.
/// A label that is too large keeps its beginning inside.
QPointF centerInside(const QRectF &bounds, const QPointF &center, const QSizeF &size);

/// A network's name at the apex of its triangle. Where the edge of the canvas would cut the name
/// off, it moves inwards; a name wider than the canvas is elided.
class ApexMarker : public QwtPlotMarker
{
public:
    explicit ApexMarker(const QString &ssid);

    /// Where the name lies when its apex stands at `apex` of the canvas, unless it is moved; drawn
    /// in the family of `font`.
    QRectF nameRect(const QRectF &canvasRect, const QPointF &apex, const QFont &font) const;
    /// Draws the name so much lower than there, in pixels; negative: higher.
    void moveName(double down) { m_down = down; }

protected:
    void drawLabel(QPainter *painter, const QRectF &canvasRect, const QPointF &pos) const override;

private:
    QwtText fittingName(const QRectF &canvasRect, const QFont &font) const;

    double m_down = 0.;
};

#endif

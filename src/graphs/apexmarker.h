#ifndef AIRLUME_GRAPHS_APEXMARKER_H
#define AIRLUME_GRAPHS_APEXMARKER_H

#include <qwt_plot_marker.h>

/// Where to centre a label of `size` that belongs at `center`, so that it lies inside `bounds`.
/// A label that is too large keeps its beginning inside.
QPointF centerInside(const QRectF &bounds, const QPointF &center, const QSizeF &size);

/// A network's name at the apex of its triangle. Where the edge of the canvas would cut the name
/// off, it moves inwards; a name wider than the canvas is elided. The graph draws it after its
/// items, and tells it to come and go with its replots.
class ApexMarker : public QwtPlotMarker
{
public:
    explicit ApexMarker(const QString &ssid);

    /// From now on the name is drawn if the marker is visible.
    void follow() { m_drawn = isVisible(); }
    bool isDrawn() const { return m_drawn; }

    /// Where the name lies when its apex stands at `apex` of the canvas, unless it is moved; drawn
    /// in the family of `font`.
    QRectF nameRect(const QRectF &canvasRect, const QPointF &apex, const QFont &font) const;
    /// Draws the name so much lower than there, in pixels; negative: higher.
    void moveName(double down) { m_down = down; }

    /// Nothing: the graph calls drawName() when all triangles are drawn.
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
        const QRectF &canvasRect) const override;
    void drawName(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
        const QRectF &canvasRect) const;

protected:
    void drawLabel(QPainter *painter, const QRectF &canvasRect, const QPointF &pos) const override;

private:
    QwtText fittingName(const QRectF &canvasRect, const QFont &font) const;

    bool m_drawn = false;
    double m_down = 0.;
};

#endif

#ifndef AIRLUME_GRAPHS_APEXMARKER_H
#define AIRLUME_GRAPHS_APEXMARKER_H

#include <QColor>
#include <qwt_plot_marker.h>

/// Where to centre a label of `size` that belongs at `center`, so that it lies inside `bounds`.
/// A label that is too large keeps its beginning inside.
QPointF centerInside(const QRectF &bounds, const QPointF &center, const QSizeF &size);

/// A network's name at the apex of its triangle. Where the edge of the canvas would cut the name
/// off, it moves inwards; a name wider than the canvas is elided. Where nothing of it would be seen
/// it stays outside, with its triangle: its channel is of another band than the graph's. The graph
/// draws it after its items, and tells it to come and go with its replots.
class ApexMarker : public QwtPlotMarker
{
public:
    /// `color` is that of the triangle.
    ApexMarker(const QString &ssid, const QColor &color);

    /// From now on the name is drawn if the marker is visible.
    void follow() { m_drawn = isVisible(); }
    bool isDrawn() const { return m_drawn; }

    /// Puts the name at `apex` of the canvas, in the family of `font`; false when it lies outside.
    /// Measures only what has changed.
    bool place(const QRectF &canvasRect, const QPointF &apex, const QFont &font);
    /// Moves the name from where it was placed by so many pixels.
    void moveName(double down);
    /// Where the name lies.
    QRectF nameRect() const { return m_place; }

    /// The three layers of a name, lowest first: a veil over what lies below it, a line to the apex
    /// if the name was moved off it, and the text.
    void drawVeil(QPainter *painter) const;
    void drawLine(QPainter *painter) const;
    void drawText(QPainter *painter) const;

    /// Nothing: the graph draws the name when all triangles are drawn.
    void draw(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
        const QRectF &canvasRect) const override;

private:
    void fit(const QFont &font, double width);

    const QColor m_color;
    bool m_drawn = false;
    QwtText m_fitting; ///< The name, elided to m_widest.
    double m_widest = 0.;
    QPointF m_apex;
    QRectF m_place;
    bool m_moved = false;
};

#endif

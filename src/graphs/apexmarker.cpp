#include "graphs/apexmarker.h"

#include "graphs/networkname.h"

#include <QPainter>
#include <QPen>

namespace
{
double bounded(double low, double value, double high)
{
    return qMax(low, qMin(value, high));
}
} // namespace

QPointF centerInside(const QRectF &bounds, const QPointF &center, const QSizeF &size)
{
    const double halfWidth = size.width() / 2.;
    const double halfHeight = size.height() / 2.;
    return {
        bounded(bounds.left() + halfWidth, center.x(), bounds.right() - halfWidth),
        bounded(bounds.top() + halfHeight, center.y(), bounds.bottom() - halfHeight),
    };
}

ApexMarker::ApexMarker(const QString &ssid)
{
    setLabel(plainText(displayName(ssid)));
    setLabelAlignment(Qt::AlignCenter);
    setLabelOrientation(Qt::Horizontal);
    setLinePen(QPen(Qt::black, 2., Qt::SolidLine));
}

void ApexMarker::drawLabel(QPainter *painter, const QRectF &canvasRect, const QPointF &pos) const
{
    const QSizeF size = label().textSize(painter->font());
    QwtPlotMarker::drawLabel(painter, canvasRect, centerInside(canvasRect, pos, size));
}

#include "graphs/apexmarker.h"

#include "graphs/networkname.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <QWidget>
#include <qwt_plot.h>

namespace
{
// Small, and on a veil of white: names of neighbours lie on each other's triangles.
const int NamePointSize = 9;
const int BackgroundAlpha = 150;

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
    QwtText name = plainText(displayName(ssid));
    name.setBackgroundBrush(QColor(255, 255, 255, BackgroundAlpha));
    setLabel(name);
    setLabelAlignment(Qt::AlignCenter);
    setLabelOrientation(Qt::Horizontal);
    setLinePen(QPen(Qt::black, 2., Qt::SolidLine));
}

void ApexMarker::drawLabel(QPainter *painter, const QRectF &canvasRect, const QPointF &pos) const
{
    QFont font = painter->font();
    font.setPointSize(NamePointSize);
    painter->setFont(font);
    QwtText name = label();
    QSizeF size = name.textSize(font);
    if (size.width() > canvasRect.width()) {
        // Measured for the canvas, as Qwt measures: the painter's resolution may be another.
        const QFontMetricsF metrics(font, plot()->canvas());
        name.setText(metrics.elidedText(name.text(), Qt::ElideRight, canvasRect.width()),
            QwtText::PlainText);
        size = name.textSize(font);
    }
    QRectF rect(QPointF(), size);
    rect.moveCenter(centerInside(canvasRect, pos, size));
    painter->setPen(Qt::black);
    name.draw(painter, rect);
}

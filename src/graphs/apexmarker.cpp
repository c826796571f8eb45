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

QFont nameFont(QFont font)
{
    font.setPointSize(NamePointSize);
    return font;
}

QRectF rectInside(const QRectF &canvasRect, const QPointF &apex, const QwtText &name)
{
    QRectF rect(QPointF(), name.textSize());
    rect.moveCenter(centerInside(canvasRect, apex, rect.size()));
    return rect;
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

QRectF ApexMarker::nameRect(const QRectF &canvasRect, const QPointF &apex, const QFont &font) const
{
    return rectInside(canvasRect, apex, fittingName(canvasRect, nameFont(font)));
}

void ApexMarker::draw(QPainter *, const QwtScaleMap &, const QwtScaleMap &, const QRectF &) const {}

void ApexMarker::drawName(QPainter *painter, const QwtScaleMap &xMap, const QwtScaleMap &yMap,
    const QRectF &canvasRect) const
{
    QwtPlotMarker::draw(painter, xMap, yMap, canvasRect);
}

void ApexMarker::drawLabel(QPainter *painter, const QRectF &canvasRect, const QPointF &pos) const
{
    painter->setFont(nameFont(painter->font()));
    painter->setPen(Qt::black);
    const QwtText name = fittingName(canvasRect, painter->font());
    name.draw(painter, rectInside(canvasRect, pos, name).translated(0., m_down));
}

QwtText ApexMarker::fittingName(const QRectF &canvasRect, const QFont &font) const
{
    QwtText name = label();
    name.setFont(font);
    if (name.textSize().width() > canvasRect.width()) {
        // Measured for the canvas, as Qwt measures: the painter's resolution may be another.
        const QFontMetricsF metrics(font, plot()->canvas());
        name.setText(metrics.elidedText(name.text(), Qt::ElideRight, canvasRect.width()),
            QwtText::PlainText);
    }
    return name;
}

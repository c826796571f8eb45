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
const double LineWidth = 1.;

double bounded(double low, double value, double high)
{
    return qMax(low, qMin(value, high));
}

QFont nameFont(QFont font)
{
    font.setPointSize(NamePointSize);
    return font;
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

ApexMarker::ApexMarker(const QString &ssid, const QColor &color)
    : m_color(color)
{
    setLabel(plainText(displayName(ssid)));
    setLabelAlignment(Qt::AlignCenter);
    setLabelOrientation(Qt::Horizontal);
    setLinePen(QPen(Qt::black, 2., Qt::SolidLine));
}

bool ApexMarker::place(const QRectF &canvasRect, const QPointF &apex, const QFont &font)
{
    fit(nameFont(font), canvasRect.width());
    m_apex = apex;
    m_moved = false;
    // Qwt keeps the size of a text until its font changes.
    m_place.setSize(m_fitting.textSize());
    m_place.moveCenter(apex);
    const bool inside = canvasRect.intersects(m_place);
    m_place.moveCenter(centerInside(canvasRect, apex, m_place.size()));
    return inside;
}

void ApexMarker::fit(const QFont &font, double width)
{
    if (m_widest == width && m_fitting.font() == font)
        return;
    m_widest = width;
    m_fitting = label();
    m_fitting.setFont(font);
    if (m_fitting.textSize().width() > width) {
        // Measured for the canvas, as Qwt measures: the painter's resolution may be another.
        const QFontMetricsF metrics(font, plot()->canvas());
        m_fitting.setText(
            metrics.elidedText(m_fitting.text(), Qt::ElideRight, width), QwtText::PlainText);
    }
}

void ApexMarker::moveName(double down)
{
    m_place.translate(0., down);
    m_moved = down > 0.;
}

void ApexMarker::drawVeil(QPainter *painter) const
{
    painter->fillRect(m_place, QColor(255, 255, 255, BackgroundAlpha));
}

void ApexMarker::drawLine(QPainter *painter) const
{
    if (!m_moved)
        return;
    painter->save();
    painter->setPen(QPen(m_color, LineWidth));
    painter->drawLine(m_apex, QPointF(m_apex.x(), m_place.center().y()));
    painter->restore();
}

void ApexMarker::drawText(QPainter *painter) const
{
    painter->save();
    painter->setPen(Qt::black);
    m_fitting.draw(painter, m_place);
    painter->restore();
}

void ApexMarker::draw(QPainter *, const QwtScaleMap &, const QwtScaleMap &, const QRectF &) const {}

#include "graphs/signallegendlabel.h"

#include "graphs/networkname.h"

#include <QFontMetrics>

namespace
{
const int WidestName = 32; // average characters; the length of the longest ordinary name
} // namespace

SignalLegendLabel::SignalLegendLabel(QWidget *parent)
    : QwtLegendLabel(parent)
{
}

void SignalLegendLabel::setText(const QwtText &text)
{
    QwtText shown = text;
    shown.setText(displayName(text.text()), QwtText::PlainText);
    QwtLegendLabel::setText(shown);
}

QSize SignalLegendLabel::sizeHint() const
{
    return bounded(QwtLegendLabel::sizeHint());
}

QSize SignalLegendLabel::minimumSizeHint() const
{
    return bounded(QwtLegendLabel::minimumSizeHint());
}

QSize SignalLegendLabel::bounded(const QSize &size) const
{
    return {qMin(size.width(), WidestName * fontMetrics().averageCharWidth()), size.height()};
}

void SignalLegendLabel::drawText(QPainter *painter, const QRectF &rect)
{
    QwtText shown = text();
    shown.setText(
        fontMetrics().elidedText(shown.text(), Qt::ElideRight, static_cast<int>(rect.width()) + 1),
        QwtText::PlainText);
    shown.draw(painter, rect);
}

#include "app/elidedlabel.h"

#include "common/airtext.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::sizeHint() const
{
    return minimumSizeHint();
}

QSize ElidedLabel::minimumSizeHint() const
{
    return QSize(0, fontMetrics().height());
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    const QString shown = AirText::ForDisplay(text());
    if (fontMetrics().horizontalAdvance(shown) <= contentsRect().width())
        return true;
    QToolTip::showText(
        static_cast<QHelpEvent *>(event)->globalPos(), AirText::ForToolTip({text()}), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    const QString shown = fontMetrics().elidedText(
        AirText::ForDisplay(text()), Qt::ElideRight, contentsRect().width());
    // By the text, not by the interface, as QLabel does: the name stands where its language puts
    // it.
    painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    style()->drawItemText(&painter, contentsRect(),
        static_cast<int>(alignment()) | Qt::TextSingleLine, palette(), isEnabled(), shown,
        foregroundRole());
}

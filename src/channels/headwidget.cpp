#include "channels/headwidget.h"

#include "common/QtCommonTools.h"

#include <QPainter>

HeadWidget::HeadWidget(QWidget *parent)
    : QWidget(parent)
{
    QtCommonTools::SetPaletteColor(this, QPalette::Window, QColor(QStringLiteral("white")));
    setAutoFillBackground(true);
}

void HeadWidget::paintEvent(QPaintEvent *)
{
    // The line runs along the upper edge: half of its width is seen.
    QPainter painter(this);
    painter.setPen(QPen(QColor(105, 105, 105), 2 * BandHeight));
    painter.drawLine(0, 0, width(), 0);
}

#include "graphs/plotcanvas.h"

#include <QPainter>

#include <cmath>

void PlotCanvas::paintEvent(QPaintEvent *event)
{
    QwtPlotCanvas::paintEvent(event);
    const qreal scale = devicePixelRatioF();
    if (scale == std::floor(scale))
        return;
    // Half a pixel of the screen inside the edge and beyond it, up to the end of that pixel.
    const QRectF whole(rect());
    const qreal half = 0.5 / scale;
    QPainter painter(this);
    const QBrush brush = palette().brush(backgroundRole());
    painter.fillRect(QRectF(whole.right() - half, 0, 1, whole.height() + 1), brush);
    painter.fillRect(QRectF(0, whole.bottom() - half, whole.width() + 1, 1), brush);
}

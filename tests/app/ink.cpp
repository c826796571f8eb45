#include "app/ink.h"

#include <QWidget>

QRect inkOf(QWidget *widget)
{
    const QImage picture = widget->grab().toImage();
    const QRgb background = picture.pixel(0, 0);
    QRect drawn;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != background)
                drawn |= QRect(x, y, 1, 1);
        }
    }
    return drawn;
}

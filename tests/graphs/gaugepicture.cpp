#include "graphs/gaugepicture.h"

#include <QImage>
#include <QtMath>

namespace GaugePicture
{

QColor colorAt(const QImage &picture, int angle, double distance)
{
    const double radians = qDegreesToRadians(static_cast<double>(angle));
    const double ratio = picture.devicePixelRatioF();
    return picture.pixelColor(qRound((160. + std::cos(radians) * distance) * ratio),
        qRound((145. + std::sin(radians) * distance) * ratio));
}

double handAngle(const QImage &picture, double distance)
{
    int first = -1;
    int last = -1;
    for (int angle = 140; angle <= 400; ++angle) {
        if (colorAt(picture, angle, distance) == QColor(Qt::white)) {
            first = first < 0 ? angle : first;
            last = angle;
        }
    }
    return first < 0 ? -1. : (first + last) / 2.;
}

} // namespace GaugePicture

#include "app/placement.h"

#include <QSizeF>

#include <cmath>

namespace
{
/// Scales less than this from a whole number only blur what the whole number draws sharp.
const qreal Blur = 0.1;
} // namespace

QPoint CentredPosition(const QRect &desktop, const QRect &window)
{
    return QPoint((desktop.right() - desktop.left() - window.right() + window.left()) / 2,
        (desktop.bottom() - desktop.top() - window.bottom() + window.top()) / 2);
}

qreal DrawnScale(qreal scale, const QSize &available)
{
    const qreal whole = std::round(scale);
    const qreal drawn = whole >= 1 && std::abs(scale - whole) < Blur ? whole : scale;
    const QSizeF room = QSizeF(available) * scale / drawn;
    // A desktop's sizes are rounded.
    if (room.width() > SmallestWindow.width() - 0.5 &&
        room.height() > SmallestWindow.height() - 0.5)
        return drawn;
    const qreal share =
        qMin(room.width() / SmallestWindow.width(), room.height() / SmallestWindow.height());
    // Downwards: a logical pixel that is there in part only would be missing.
    const qreal fitting = std::floor(drawn * share * 100) / 100;
    return qMin(drawn, qMax<qreal>(1, fitting));
}

qreal FactorBetween(qreal scale, qreal wanted)
{
    const qreal factor = wanted / scale;
    for (const qreal candidate : {factor, std::nextafter(factor, 0.), std::nextafter(factor, 2.)}) {
        if (candidate * scale == wanted)
            return candidate;
    }
    return factor;
}

bool SystemPlacesWindows(const QString &platform)
{
    // "wayland-egl" and the like are the same window system with other buffers.
    return platform.startsWith(QLatin1String("wayland"));
}

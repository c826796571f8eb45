#include "app/placement.h"

#include <cmath>

QPoint CentredPosition(const QRect &desktop, const QRect &window)
{
    return QPoint((desktop.right() - desktop.left() - window.right() + window.left()) / 2,
        (desktop.bottom() - desktop.top() - window.bottom() + window.top()) / 2);
}

qreal FittingScale(qreal scale, const QSize &available)
{
    if (SmallestWindow.boundedTo(available) == SmallestWindow)
        return scale;
    const qreal share = qMin(available.width() / qreal(SmallestWindow.width()),
        available.height() / qreal(SmallestWindow.height()));
    // Downwards: a logical pixel that is there in part only would be missing.
    const qreal fitting = std::floor(scale * share * 100) / 100;
    return qMin(scale, qMax<qreal>(1, fitting));
}

bool SystemPlacesWindows(const QString &platform)
{
    // "wayland-egl" and the like are the same window system with other buffers.
    return platform.startsWith(QLatin1String("wayland"));
}

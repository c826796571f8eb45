#include "app/placement.h"

QPoint CentredPosition(const QRect &desktop, const QRect &window)
{
    return QPoint((desktop.right() - desktop.left() - window.right() + window.left()) / 2,
        (desktop.bottom() - desktop.top() - window.bottom() + window.top()) / 2);
}

bool SystemPlacesWindows(const QString &platform)
{
    // "wayland-egl" and the like are the same window system with other buffers.
    return platform.startsWith(QLatin1String("wayland"));
}

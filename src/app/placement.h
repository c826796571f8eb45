#ifndef AIRLUME_APP_PLACEMENT_H
#define AIRLUME_APP_PLACEMENT_H

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

/// The smallest size, in logical pixels, at which everything in the window has its room.
inline constexpr QSize SmallestWindow(1100, 602);

/// Top left corner that centres `window` on `desktop`: half the difference of widths and heights,
/// truncated toward zero. Negative for a window larger than the desktop. Pure.
QPoint CentredPosition(const QRect &desktop, const QRect &window);

/// The scale (pixels of the screen for each logical one) at which the smallest window fits into
/// `available`, the free part of a screen in logical pixels at `scale`: `scale` itself where it
/// does already, else the largest that will do, in hundredths, but never taken below 1: Qt does not
/// paint whole what it scales down. Pure.
qreal FittingScale(qreal scale, const QSize &available);

/// Whether the window system places every window itself, and a program can only ask to be moved or
/// maximised: on Wayland. `platform`: as QGuiApplication::platformName() names it. Pure.
bool SystemPlacesWindows(const QString &platform);

#endif

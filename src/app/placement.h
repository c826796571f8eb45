#ifndef AIRLUME_APP_PLACEMENT_H
#define AIRLUME_APP_PLACEMENT_H

#include <QPoint>
#include <QRect>
#include <QString>

/// Top left corner that centres `window` on `desktop`: half the difference of widths and heights,
/// truncated toward zero. Negative for a window larger than the desktop. Pure.
QPoint CentredPosition(const QRect &desktop, const QRect &window);

/// Whether the window system places every window itself, and a program can only ask to be moved or
/// maximised: on Wayland. `platform`: as QGuiApplication::platformName() names it. Pure.
bool SystemPlacesWindows(const QString &platform);

#endif

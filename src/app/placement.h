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

/// The scale (pixels of the screen for each logical one) to draw at where the desktop asks for
/// `scale`, and `available` is the free part of its screen in logical pixels then. `scale` itself,
/// but
/// - a whole number that is less than a tenth away, since pictures and lines are sharp there;
/// - where the smallest window does not fit, the largest scale at which it does, in hundredths, but
///   never less than 1: Qt does not paint whole what it scales down.
/// Pure.
qreal DrawnScale(qreal scale, const QSize &available);

/// The factor by which `scale` becomes `wanted`, to the last digit where there is such a number: a
/// whole number stays one. Pure.
qreal FactorBetween(qreal scale, qreal wanted);

/// Whether the window system places every window itself, and a program can only ask to be moved or
/// maximised: on Wayland. `platform`: as QGuiApplication::platformName() names it. Pure.
bool SystemPlacesWindows(const QString &platform);

#endif

#ifndef AIRLUME_APP_PLACEMENT_H
#define AIRLUME_APP_PLACEMENT_H

#include <QPoint>
#include <QRect>

/// Top left corner that centres `window` on `desktop`: half the difference of widths and heights,
/// truncated toward zero. Negative for a window larger than the desktop. Pure.
QPoint CentredPosition(const QRect &desktop, const QRect &window);

#endif

#ifndef AIRLUME_TESTS_SUPPORT_TOOLTIP_H
#define AIRLUME_TESTS_SUPPORT_TOOLTIP_H

#include <QPoint>
#include <QString>

class QWidget;

/// What a mouse that rests at `place` in `widget` is told, as it is read; empty: nothing. A tool
/// tip from before is taken away at once first, which by itself takes a while.
QString ToolTipAt(QWidget *widget, const QPoint &place);

#endif

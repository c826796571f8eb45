#ifndef AIRLUME_TESTS_APP_INK_H
#define AIRLUME_TESTS_APP_INK_H

#include <QRect>

class QWidget;

/// Where `widget` draws something else than in its top left pixel; empty when nowhere.
QRect inkOf(QWidget *widget);

#endif

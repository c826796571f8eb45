#ifndef AIRLUME_TESTS_APP_TEXTROOM_H
#define AIRLUME_TESTS_APP_TEXTROOM_H

#include <QStringList>

class QWidget;

/// The texts in `window` that have less room than they need: those of tabs (each as wide as when it
/// is selected, bold), buttons, labels and header sections that are visible now. Each comes with
/// what it needs and what it gets, in pixels; empty when everything can be read whole.
QStringList TextsWithoutRoom(QWidget *window);

#endif

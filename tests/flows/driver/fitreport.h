#ifndef AIRLUME_TESTS_FLOWS_FITREPORT_H
#define AIRLUME_TESTS_FLOWS_FITREPORT_H

#include <QJsonObject>

class QWidget;

/// Whether the window fits its screen and its texts fit the window, as it stands there:
/// "scale": pixels of the screen for each logical one; "screen", "window": their rectangles, and
/// "parts": those of the title bar and its visible buttons, on the screen, in logical pixels;
/// "cut": what is cut off, in words; "dark": pixels at the graph's right and lower edges that
/// nobody painted.
QJsonObject FitReport(QWidget *window);

#endif

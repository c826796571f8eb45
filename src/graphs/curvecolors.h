#ifndef AIRLUME_GRAPHS_CURVECOLORS_H
#define AIRLUME_GRAPHS_CURVECOLORS_H

#include <QColor>
#include <QStringList>

/// Names of the curve colours, as QColor::setNamedColor() takes them. All graphs share them.
extern const QStringList curveColorList;

/// Colour of the n-th network, n ≥ 0; starts over after the last colour.
QColor curveColor(int n);

/// One of the ten colours "darkCyan" to "OliveDrab", drawn with rand().
QColor randomCurveColor();

#endif

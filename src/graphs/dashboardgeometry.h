#ifndef AIRLUME_GRAPHS_DASHBOARDGEOMETRY_H
#define AIRLUME_GRAPHS_DASHBOARDGEOMETRY_H

#include <QColor>
#include <QLine>
#include <QPoint>
#include <QString>
#include <QVector>
#include <climits>

/// The arithmetic behind SignalStrengthDashboard. Lengths in pixels, signals in dBm, angles in
/// whole degrees; where nothing else is said, 0° points right and angles grow clockwise.
namespace DashboardGeometry
{

/// Ticks of the scale, numbered from 0 at the weak end.
constexpr int TickCount = 20;

/// Part of a circle in Qt's sense: counter-clockwise from `start`.
struct Arc {
    int start = 0;
    int span = 0;
    bool operator==(const Arc &other) const { return start == other.start && span == other.span; }
};

/// One text of the scale; `position` is the left end of its base line.
struct ScaleText {
    QString text;
    QPoint position;
    int pointSize = 0;
    QColor color;
    int room = INT_MAX; ///< Widest the text may be without touching something.
};

/// The vector of `length` at `angle`, its components cut to whole pixels.
QPoint offsetAt(int angle, double length);

/// Where the hand stands for the signal `dBm`: from 384 for 0 down to 153 for -100.
int handAngle(int dBm);

/// What the sector for `dBm` is corrected by.
Arc slipCorrection(int dBm);

/// The filled sector from the weak end of the scale to the hand at `angle`, which shows `dBm`.
Arc slipArc(int dBm, int angle);

/// Tick number `tick` (0 to TickCount - 1) of a dial of `radius` around `center`.
QLine tickLine(const QPoint &center, int radius, int tick);

/// Where the label of a tick goes: the left end of its base line.
QPoint labelPosition(const QPoint &center, int radius, int tick);

/// The texts that belong to a tick: its number or unit, and a word where there is one.
QVector<ScaleText> scaleTexts(const QPoint &center, int radius, int tick);

/// "46%" for -54 dBm; 0 dBm stands for no signal and gives "0%".
QString percentText(int dBm);

/// "-54" for -54 dBm.
QString numberText(int dBm);

/// Opacity (0 to 255) of the next shadow pass: full - 50·√pass cut to a whole number, and never
/// below 0.
int shadowAlpha(int full, double pass);

} // namespace DashboardGeometry

#endif

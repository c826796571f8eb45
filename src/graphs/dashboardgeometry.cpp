#include "graphs/dashboardgeometry.h"

#include "i18n/languagelabels.h"

#include <cmath>

namespace DashboardGeometry
{

namespace
{
// Truncated on purpose: the positions of ticks and labels are cut to whole pixels.
const double Pi = 3.1415926;
const double RadiansPerDegree = Pi / 180.;

const int ScaleStart = 155;
const int ScaleEnd = 390;
const int ScaleSweep = ScaleEnd - ScaleStart;
const int SlipBase = -23;
const int SlipSpan = 228 - SlipBase;
const int TickStep = 12;
const int TickInner = 27;
const int TickOuter = 20;
const int LabelOffset = 33;
const int LabelOffsetRight = 12;
const int MiddleTick = TickCount / 2 - 1;
const int LabelStep = 10;
const int NumberSize = 10; // points
const int WordSize = 12;   // points
const int WidestBest = 34; // what the ticks leave

// The back end's signals lie in -100 to 0. Far beyond them only the arithmetic must hold.
const qint64 LargestMagnitude = 1000000;

int tickAngle(int tick)
{
    return ScaleStart + tick * TickStep;
}

QPoint pointAt(const QPoint &center, int angle, int radius)
{
    const double radians = angle * RadiansPerDegree;
    return {static_cast<int>(center.x() + std::cos(radians) * radius),
        static_cast<int>(center.y() + std::sin(radians) * radius)};
}
} // namespace

QPoint offsetAt(int angle, double length)
{
    const double radians = angle * RadiansPerDegree;
    return {
        static_cast<int>(std::cos(radians) * length), static_cast<int>(std::sin(radians) * length)};
}

int handAngle(int dBm)
{
    const qint64 magnitude = qMin(qAbs(qint64(dBm)), LargestMagnitude);
    const int angle = ScaleEnd - static_cast<int>(magnitude * ScaleSweep / 100);
    // A step on purpose: from -50 to 0 the hand is turned back by 6°, elsewhere by 2°.
    return dBm < -50 || dBm > 0 ? angle - 2 : angle - 6;
}

Arc slipCorrection(int dBm)
{
    if (dBm >= -25)
        return {-8, -14};
    if (dBm >= -40)
        return {-10, -12};
    // -41 is missing here on purpose and gets the last correction.
    if (dBm >= -48 && dBm <= -42)
        return {-11, -11};
    if (dBm >= -68 && dBm <= -49)
        return {-14, -8};
    if (dBm >= -75 && dBm <= -69)
        return {-15, -6};
    if (dBm >= -96 && dBm <= -76)
        return {-20, -1};
    return {-21, 0};
}

Arc slipArc(int dBm, int angle)
{
    const Arc correction = slipCorrection(dBm);
    return {(ScaleEnd - angle) * SlipSpan / ScaleSweep + SlipBase + correction.start,
        SlipSpan * (angle - ScaleStart) / ScaleSweep + correction.span};
}

QLine tickLine(const QPoint &center, int radius, int tick)
{
    const int angle = tickAngle(tick);
    return {pointAt(center, angle, radius - TickInner), pointAt(center, angle, radius - TickOuter)};
}

QPoint labelPosition(const QPoint &center, int radius, int tick)
{
    const bool right = tick >= MiddleTick;
    const int distance = radius + (right ? LabelOffsetRight : LabelOffset - 2 * tick);
    const int lower = (right ? 4 : 2) + (tick > 17 ? 7 : 0);
    return pointAt(center, tickAngle(tick), distance) + QPoint(-1, lower);
}

QVector<ScaleText> scaleTexts(const QPoint &center, int radius, int tick)
{
    const QPoint position = labelPosition(center, radius, tick);
    const auto number = [](int dBm, const QPoint &at) {
        return ScaleText{numberText(dBm), at, NumberSize, Qt::black};
    };
    if (tick == 0 || tick == TickCount - 1)
        return {{QStringLiteral("dBm"), position, NumberSize, Qt::black}};
    if (tick == MiddleTick) {
        return {number(-50, position + QPoint(2, 0)),
            {LanguageLabels::m_strLangBoardGood, position + QPoint(1, 60), WordSize,
                QColor(162, 208, 114)}};
    }
    if (tick < MiddleTick && tick % 2 == 1) {
        const int dBm = -95 + (tick - 1) / 2 * LabelStep;
        QVector<ScaleText> texts = {number(dBm, position)};
        if (dBm == -85) {
            texts.append({LanguageLabels::m_strLangBoardPoor, position + QPoint(60, 23), WordSize,
                QColor(Qt::red)});
        }
        return texts;
    }
    if (tick > 11 && tick % 2 == 0) {
        const int dBm = -35 + (tick - 12) / 2 * LabelStep;
        QVector<ScaleText> texts = {number(dBm, position)};
        if (dBm == -15) {
            texts.append({LanguageLabels::m_strLangBoardBest, position + QPoint(-75, 23), WordSize,
                QColor(0, 176, 80), WidestBest});
        }
        return texts;
    }
    return {};
}

QString percentText(int dBm)
{
    const double percent = dBm == 0 ? 0. : dBm + 100.;
    return QString::number(percent, 'g', 6) + QLatin1Char('%');
}

QString numberText(int dBm)
{
    return QString::number(static_cast<double>(dBm), 'g', 6);
}

int shadowAlpha(int full, double pass)
{
    return qMax(0, static_cast<int>(full - 50. * std::sqrt(pass)));
}

} // namespace DashboardGeometry

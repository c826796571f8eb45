#ifndef AIRLUME_TESTS_GRAPHS_GAUGEPICTURE_H
#define AIRLUME_TESTS_GRAPHS_GAUGEPICTURE_H

#include "graphs/signalstrengthdashboard.h"

/// A gauge of its own, so that a test can have several. Made like the window's: small first, then
/// sized.
class Gauge : public SignalStrengthDashboard
{
public:
    explicit Gauge(QWidget *parent = nullptr)
        : SignalStrengthDashboard(parent)
    {
    }
};

/// What stands where on the gauge, read from its picture.
namespace GaugePicture
{

/// The colour at `distance` pixels from the origin (160, 145) in direction `angle` (degrees,
/// clockwise from the right), in a picture of any device pixel ratio.
QColor colorAt(const QImage &picture, int angle, double distance);

/// The angles (150 to 390) at which the hand is met on a circle of `distance` pixels: the middle
/// of the white stretch; -1 when there is none.
double handAngle(const QImage &picture, double distance);

} // namespace GaugePicture

#endif

#ifndef AIRLUME_GRAPHS_SIGNALSCALEDRAW_H
#define AIRLUME_GRAPHS_SIGNALSCALEDRAW_H

#include <qwt_scale_draw.h>

/// Draws a scale whose labels are bare numbers: no unit, no digit grouping.
class SignalScaleDraw : public QwtScaleDraw
{
public:
    /// `value` with up to six significant digits.
    QwtText label(double value) const override;
};

#endif

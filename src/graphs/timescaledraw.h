#ifndef AIRLUME_GRAPHS_TIMESCALEDRAW_H
#define AIRLUME_GRAPHS_TIMESCALEDRAW_H

#include <QTime>
#include <qwt_scale_draw.h>

/// Clock time `seconds` after `base` as "hh:mm:ss". Fractions of a second are cut off; goes on at
/// 00:00:00 after midnight.
QString timeLabel(const QTime &base, double seconds);

/// Draws a scale in seconds with clock times as labels.
class TimeScaleDraw : public QwtScaleDraw
{
public:
    /// `base` is the clock time of position 0.
    explicit TimeScaleDraw(const QTime &base);

    QwtText label(double seconds) const override;

private:
    QTime m_base;
};

#endif

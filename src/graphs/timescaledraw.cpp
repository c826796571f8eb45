#include "graphs/timescaledraw.h"

#include "graphs/networkname.h"

#include <QString>

QString timeLabel(const QTime &base, double seconds)
{
    return base.addSecs(static_cast<int>(seconds)).toString(QStringLiteral("hh:mm:ss"));
}

TimeScaleDraw::TimeScaleDraw(const QTime &base)
    : m_base(base)
{
}

QwtText TimeScaleDraw::label(double seconds) const
{
    return plainText(timeLabel(m_base, seconds));
}

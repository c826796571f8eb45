#include "graphs/signalscaledraw.h"

#include "graphs/networkname.h"

#include <QString>

QwtText SignalScaleDraw::label(double value) const
{
    return plainText(QString::number(value, 'g', 6));
}

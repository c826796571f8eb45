#include "graphs/networkname.h"

#include "common/airtext.h"

namespace
{
// Twice what a network may broadcast; what is longer would cover the graph.
const int LongestName = 64;
} // namespace

QString displayName(const QString &ssid)
{
    QString name = AirText::ForDisplay(ssid);
    if (name.size() > LongestName) {
        name.truncate(LongestName - (name.at(LongestName - 2).isHighSurrogate() ? 2 : 1));
        name.append(QChar(0x2026));
    }
    return name;
}

QwtText plainText(const QString &text)
{
    return QwtText(text, QwtText::PlainText);
}

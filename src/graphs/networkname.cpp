#include "graphs/networkname.h"

#include <QString>

namespace
{
const int LongestName = 64;

bool turnsReadingDirection(QChar c)
{
    const ushort code = c.unicode();
    return (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

bool breaksLine(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
           c.category() == QChar::Separator_Paragraph;
}
} // namespace

QString displayName(const QString &ssid)
{
    QString name;
    for (const QChar c : ssid) {
        if (turnsReadingDirection(c))
            continue;
        if (name.size() == LongestName) {
            const int kept = LongestName - (name.at(LongestName - 2).isHighSurrogate() ? 2 : 1);
            return name.left(kept) + QChar(0x2026);
        }
        name += breaksLine(c) ? QLatin1Char(' ') : c;
    }
    return name;
}

QwtText plainText(const QString &text)
{
    return QwtText(text, QwtText::PlainText);
}

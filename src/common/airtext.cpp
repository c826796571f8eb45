#include "common/airtext.h"

namespace AirText
{

namespace
{
/// What stands for one UTF-16 code unit.
QChar shown(QChar character)
{
    const ushort code = character.unicode();
    if (code < 0x20)
        return QChar(0x2400 + code);
    if (code == 0x7f)
        return QChar(0x2421);
    if (code == 0x2028 || code == 0x2029)
        return QChar(0x2424);
    // C1 controls, and the embeddings, overrides and isolates of the bidirectional algorithm.
    const bool hidden = (code >= 0x80 && code < 0xa0) || (code >= 0x202a && code <= 0x202e) ||
                        (code >= 0x2066 && code <= 0x2069);
    return hidden ? QChar(QChar::ReplacementCharacter) : character;
}
} // namespace

QString ForDisplay(const QString &text)
{
    const bool tooLong = text.size() > MaxShown;
    QString line = tooLong ? text.left(MaxShown) : text;
    // Not in the middle of a surrogate pair.
    if (tooLong && line.at(line.size() - 1).isHighSurrogate())
        line.chop(1);
    for (QChar &character : line)
        character = shown(character);
    if (tooLong)
        line.append(QChar(0x2026));
    return line;
}

} // namespace AirText

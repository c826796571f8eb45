#include "common/airtext.h"

#include <QTextBoundaryFinder>

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

/// `text` in pieces that fit a line of a tool tip, none of them broken within what the eye sees as
/// one character, but where that alone is longer.
QStringList folded(QString text)
{
    QStringList pieces;
    while (text.size() > ToolTipColumns) {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
        finder.setPosition(ToolTipColumns);
        if (!finder.isAtBoundary())
            finder.toPreviousBoundary();
        const int end = finder.position() > 0 ? finder.position() : ToolTipColumns;
        pieces.append(text.left(end));
        text.remove(0, end);
    }
    pieces.append(text);
    return pieces;
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

QString ForToolTip(const QStringList &lines)
{
    QStringList shown;
    for (const QString &line : lines)
        shown += folded(ForDisplay(line));
    return QStringLiteral("<div style='white-space:pre'>") +
           shown.join(QLatin1Char('\n')).toHtmlEscaped() + QStringLiteral("</div>");
}

} // namespace AirText

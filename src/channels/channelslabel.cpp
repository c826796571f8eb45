#include "channels/channelslabel.h"

#include <QPainter>
#include <QStyle>

namespace
{
const int MostPixelsWide = 440;
const int SmallestPixelSize = 11;
const QLatin1Char Comma(',');

bool fits(const QStringList &lines, const QFontMetrics &metrics, const QSize &place)
{
    return lines.size() * metrics.lineSpacing() <= place.height();
}
} // namespace

QStringList BreakAfterCommas(const QString &text, const QFontMetrics &metrics, int width)
{
    QStringList lines;
    QString line;
    int begin = 0;
    while (begin < text.size()) {
        const int comma = text.indexOf(Comma, begin);
        const int end = comma < 0 ? text.size() : comma + 1;
        const QString entry = text.mid(begin, end - begin);
        if (!line.isEmpty() && metrics.horizontalAdvance(line + entry) > width) {
            lines.append(line);
            line.clear();
        }
        line += entry;
        begin = end;
    }
    if (!line.isEmpty())
        lines.append(line);
    return lines;
}

ChannelsLabel::ChannelsLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ChannelsLabel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    const QStringList lines = BreakAfterCommas(text(), metrics, MostPixelsWide);
    int width = 0;
    for (const QString &line : lines)
        width = qMax(width, metrics.horizontalAdvance(line));
    return QSize(width, qMax(1, lines.size()) * metrics.lineSpacing());
}

QSize ChannelsLabel::minimumSizeHint() const
{
    return QSize(0, fontMetrics().lineSpacing());
}

void ChannelsLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QFont shrunk = font();
    int pixelSize = QFontInfo(shrunk).pixelSize();
    QStringList lines = BreakAfterCommas(text(), painter.fontMetrics(), width());
    while (!fits(lines, painter.fontMetrics(), size()) && pixelSize > SmallestPixelSize) {
        shrunk.setPixelSize(--pixelSize);
        painter.setFont(shrunk);
        lines = BreakAfterCommas(text(), painter.fontMetrics(), width());
    }
    const QFontMetrics metrics = painter.fontMetrics();
    if (!fits(lines, metrics, size())) {
        const int room = qMax(1, height() / metrics.lineSpacing());
        const QString rest = QStringList(lines.mid(room - 1)).join(QString());
        lines = lines.mid(0, room - 1);
        lines.append(metrics.elidedText(rest, Qt::ElideRight, width()));
    }
    style()->drawItemText(&painter, rect(), Qt::AlignCenter, palette(), isEnabled(),
        lines.join(QLatin1Char('\n')), foregroundRole());
}

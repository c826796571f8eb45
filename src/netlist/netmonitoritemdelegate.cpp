#include "netlist/netmonitoritemdelegate.h"

#include "common/airtext.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace
{
/// Whether the view's style draws the text of `option` with an ellipsis.
bool isCutOff(const QStyleOptionViewItem &option, const QAbstractItemView *view)
{
    const QStyle *style = view->style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, view) + 1;
    const QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &option, view);
    // In fractions of a pixel, as the style measures.
    return QFontMetricsF(option.font).horizontalAdvance(option.text) > room.width() - 2 * margin;
}
} // namespace

NetMonitorItemDelegate::NetMonitorItemDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
    , m_plainBrush(QColor(242, 242, 242))
    , m_markedBrush(QColor(159, 157, 230))
{
}

void NetMonitorItemDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setPen(Qt::white);
    painter->drawRect(option.rect);
    painter->restore();
    QStyledItemDelegate::paint(painter, option, index);
}

QString NetMonitorItemDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return AirText::ForDisplay(value.toString());
}

bool NetMonitorItemDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
    const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    // An empty one hides that of the cell before.
    QToolTip::showText(event->globalPos(),
        isCutOff(cell, view) ? AirText::ForToolTip({index.data().toString()}) : QString(), view,
        option.rect);
    return true;
}

#include "netlist/netmonitoritemdelegate.h"

#include "common/airtext.h"

#include <QPainter>

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

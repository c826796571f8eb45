#include "netlist/mysortfilterproxymodel.h"

#include "netlist/signalmode.h"

MySortFilterProxyModel::MySortFilterProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

bool MySortFilterProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const QVariant leftValue = sourceModel()->data(left);
    const QVariant rightValue = sourceModel()->data(right);
    if (left.column() == SignalMode::SignalColumn || left.column() == SignalMode::ChannelColumn)
        return leftValue.toDouble() < rightValue.toDouble();
    return QString::localeAwareCompare(leftValue.toString(), rightValue.toString()) < 0;
}

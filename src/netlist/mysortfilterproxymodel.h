#ifndef AIRLUME_NETLIST_MYSORTFILTERPROXYMODEL_H
#define AIRLUME_NETLIST_MYSORTFILTERPROXYMODEL_H

#include <QSortFilterProxyModel>

/// Sorts the network list: signal and channel as numbers, the other columns in locale order.
class MySortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit MySortFilterProxyModel(QObject *parent = nullptr);

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;
};

#endif

#ifndef AIRLUME_NETLIST_CHECKBOXITEMDELEGATE_H
#define AIRLUME_NETLIST_CHECKBOXITEMDELEGATE_H

#include <QItemDelegate>

/// Shows the value of a column-0 cell as a check box, which a click or the space bar toggles.
class CheckBoxItemDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    explicit CheckBoxItemDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// Where the check box stands in the cell of `option`, in the view's coordinates.
    QRect CheckBoxRect(const QStyleOptionViewItem &option) const;

protected:
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;
};

#endif

#ifndef AIRLUME_NETLIST_NETMONITORITEMDELEGATE_H
#define AIRLUME_NETLIST_NETMONITORITEMDELEGATE_H

#include <QBrush>
#include <QStyledItemDelegate>

/// Paints the text cells of the network list, with a white line around each.
class NetMonitorItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit NetMonitorItemDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    /// What a text from the air looks like in a cell: one line, nothing invisible that moves other
    /// text about, not endless.
    QString displayText(const QVariant &value, const QLocale &locale) const override;
    /// Tells a text that is cut off whole.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

private:
    // Kept for rows that alternate in colour; painting does not use them.
    QBrush m_plainBrush;
    QBrush m_markedBrush;
};

#endif

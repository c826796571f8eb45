#ifndef AIRLUME_COMMON_TABLECELLACCESSIBLE_H
#define AIRLUME_COMMON_TABLECELLACCESSIBLE_H

#include <QAccessibleWidget>
#include <QPersistentModelIndex>
#include <QPointer>

class QAbstractItemView;
class QHeaderView;
class TableAccessible;

/// One cell of a TableAccessible. The widget that a view has put there is its child. GUI thread
/// only.
class TableCellAccessible : public QAccessibleInterface,
                            public QAccessibleTableCellInterface,
                            public QAccessibleActionInterface
{
public:
    TableCellAccessible(QAbstractItemView *view, const QModelIndex &index);

    QPersistentModelIndex index() const { return m_index; }
    /// Tells what has changed since the cell was last asked or told. The description of the cell
    /// that has the focus is left for later: it would be read out at every scan.
    void tell();

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *inside) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    /// A check box where the cell can be ticked: of a mere cell readers hear ticks only.
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override;
    QList<QAccessibleInterface *> columnHeaderCells() const override;
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_index.column(); }
    int rowIndex() const override { return m_index.row(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

    /// "Toggle" where the cell can be ticked: the same as the space bar.
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    TableAccessible *tableAccessible() const;
    bool isCurrent() const;
    bool isTickable() const;
    bool isTicked() const;

    QPointer<QAbstractItemView> m_view;
    QPersistentModelIndex m_index;
    bool m_toldTicked;
    QString m_toldName;
    QString m_toldDescription;
};

/// One cell of a header of a TableAccessible. Buttons that stand in the header there are its
/// children. GUI thread only.
class TableHeadAccessible : public QAccessibleInterface
{
public:
    /// `section` -1 is the corner, where the headers meet.
    TableHeadAccessible(QAbstractItemView *view, QHeaderView *header, int section);

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QWindow *window() const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;

private:
    QWidgetList buttons() const;

    QPointer<QAbstractItemView> m_view;
    QPointer<QHeaderView> m_header;
    int m_section;
};

/// A widget inside a cell or a header of a TableAccessible, for which that cell is the parent. A
/// button can be pressed, and ticked if it can be ticked. GUI thread only.
class CellWidgetAccessible : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessibleInterface *parent() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
};

#endif

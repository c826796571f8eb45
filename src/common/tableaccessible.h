#ifndef AIRLUME_COMMON_TABLEACCESSIBLE_H
#define AIRLUME_COMMON_TABLEACCESSIBLE_H

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QHash>
#include <QPersistentModelIndex>

class QHeaderView;
class TableCellAccessible;

/// Tells assistive technology what a flat view with rows and columns shows. Qt's own keeps to
/// itself that a cell can be ticked, and what stands in headers and cells as a widget.
///
/// A cell is the same object for as long as its row lives, wherever sorting puts it. Its texts are
/// those of Qt::AccessibleTextRole and Qt::AccessibleDescriptionRole, or else of Qt::DisplayRole.
/// Costs nothing until it is asked for. GUI thread only.
class TableAccessible : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    /// `vertical` is null where a view has no such header; hidden ones count, as the views' own
    /// events count them.
    TableAccessible(QAbstractItemView *view, QHeaderView *horizontal, QHeaderView *vertical);
    ~TableAccessible() override;
    TableAccessible(const TableAccessible &) = delete;
    TableAccessible &operator=(const TableAccessible &) = delete;

    QAbstractItemView *view() const;
    /// Null for a view without.
    QHeaderView *header(Qt::Orientation orientation) const;
    /// The cell of `index`, which must be valid.
    QAccessibleInterface *cell(const QModelIndex &index) const;
    /// The cell of a header; null without that header.
    QAccessibleInterface *headerCell(Qt::Orientation orientation, int section) const;
    /// Which child the cell of `index` is.
    int childOf(const QModelIndex &index) const;

    void *interface_cast(QAccessible::InterfaceType type) override;
    QAccessibleInterface *focusChild() const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override;
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override;
    QList<int> selectedRows() const override;
    bool isColumnSelected(int column) const override;
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int row) override;
    bool unselectColumn(int) override { return false; }
    /// Forgets the cells of rows that are gone and tells what others say anew.
    void modelChange(QAccessibleTableModelChangeEvent *event) override;

private:
    int lead() const { return m_vertical ? 1 : 0; }

    QHeaderView *m_horizontal;
    QHeaderView *m_vertical;
    mutable QHash<QPersistentModelIndex, QAccessible::Id> m_cells;
    mutable QHash<int, QAccessible::Id> m_heads; ///< By child number.
};

#endif

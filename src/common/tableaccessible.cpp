#include "common/tableaccessible.h"

#include "common/tablecellaccessible.h"

#include <QHeaderView>

#include <algorithm>

TableAccessible::TableAccessible(
    QAbstractItemView *view, QHeaderView *horizontal, QHeaderView *vertical)
    : QAccessibleWidget(view, QAccessible::Table)
    , m_horizontal(horizontal)
    , m_vertical(vertical)
{
}

TableAccessible::~TableAccessible()
{
    for (QAccessible::Id id : qAsConst(m_cells))
        QAccessible::deleteAccessibleInterface(id);
    for (QAccessible::Id id : qAsConst(m_heads))
        QAccessible::deleteAccessibleInterface(id);
}

QAbstractItemView *TableAccessible::view() const
{
    return static_cast<QAbstractItemView *>(widget());
}

QHeaderView *TableAccessible::header(Qt::Orientation orientation) const
{
    return orientation == Qt::Horizontal ? m_horizontal : m_vertical;
}

QAccessibleInterface *TableAccessible::cell(const QModelIndex &index) const
{
    QAccessible::Id &id = m_cells[QPersistentModelIndex(index)];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new TableCellAccessible(view(), index));
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface *TableAccessible::headerCell(Qt::Orientation orientation, int section) const
{
    if (!header(orientation))
        return nullptr;
    const int number =
        orientation == Qt::Horizontal ? section + lead() : (section + 1) * (columnCount() + lead());
    QAccessible::Id &id = m_heads[number];
    if (id == 0) {
        id = QAccessible::registerAccessibleInterface(
            new TableHeadAccessible(view(), header(orientation), section));
    }
    return QAccessible::accessibleInterface(id);
}

int TableAccessible::childOf(const QModelIndex &index) const
{
    return (index.row() + 1) * (columnCount() + lead()) + index.column() + lead();
}

void *TableAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface *TableAccessible::focusChild() const
{
    const QModelIndex current = view()->currentIndex();
    if (view()->hasFocus() && current.isValid())
        return cell(current);
    return QAccessibleWidget::focusChild();
}

QAccessibleInterface *TableAccessible::childAt(int x, int y) const
{
    const QModelIndex index = view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y)));
    if (index.isValid())
        return cell(index);
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        const QHeaderView *head = header(orientation);
        if (!head || !head->isVisible())
            continue;
        const QPoint place = head->mapFromGlobal(QPoint(x, y));
        if (head->rect().contains(place) && head->logicalIndexAt(place) >= 0)
            return headerCell(orientation, head->logicalIndexAt(place));
    }
    return nullptr;
}

/// Numbered as Qt's views number them in their events: row by row, the headers first.
QAccessibleInterface *TableAccessible::child(int index) const
{
    const int width = columnCount() + lead();
    if (index < 0 || index >= childCount())
        return nullptr;
    const int row = index / width - 1;
    const int column = index % width - lead();
    if (row < 0)
        return headerCell(column < 0 ? Qt::Vertical : Qt::Horizontal, column);
    return column < 0 ? headerCell(Qt::Vertical, row) : cellAt(row, column);
}

int TableAccessible::childCount() const
{
    return (rowCount() + 1) * (columnCount() + lead());
}

int TableAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    if (const auto *cell = dynamic_cast<const TableCellAccessible *>(child))
        return cell->index().isValid() ? childOf(cell->index()) : -1;
    const auto found = std::find_if(m_heads.cbegin(), m_heads.cend(),
        [child](QAccessible::Id id) { return QAccessible::accessibleInterface(id) == child; });
    return found == m_heads.cend() ? -1 : found.key();
}

QAccessibleInterface *TableAccessible::cellAt(int row, int column) const
{
    const QModelIndex index = view()->model()->index(row, column);
    return index.isValid() ? cell(index) : nullptr;
}

int TableAccessible::selectedCellCount() const
{
    return view()->selectionModel()->selectedIndexes().size();
}

QList<QAccessibleInterface *> TableAccessible::selectedCells() const
{
    QList<QAccessibleInterface *> found;
    const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
    for (const QModelIndex &index : selected)
        found.append(cell(index));
    return found;
}

QString TableAccessible::columnDescription(int column) const
{
    return view()->model()->headerData(column, Qt::Horizontal).toString();
}

QString TableAccessible::rowDescription(int) const
{
    return {};
}

int TableAccessible::selectedColumnCount() const
{
    return 0;
}

int TableAccessible::selectedRowCount() const
{
    return selectedRows().size();
}

int TableAccessible::columnCount() const
{
    return view()->model()->columnCount();
}

int TableAccessible::rowCount() const
{
    return view()->model()->rowCount();
}

QList<int> TableAccessible::selectedColumns() const
{
    return {};
}

QList<int> TableAccessible::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList selected = view()->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    return rows;
}

bool TableAccessible::isColumnSelected(int) const
{
    return false;
}

bool TableAccessible::isRowSelected(int row) const
{
    return view()->selectionModel()->isRowSelected(row, QModelIndex());
}

bool TableAccessible::selectRow(int row)
{
    const QModelIndex index = view()->model()->index(row, 0);
    if (index.isValid())
        view()->setCurrentIndex(index);
    return index.isValid();
}

bool TableAccessible::unselectRow(int row)
{
    const QModelIndex index = view()->model()->index(row, 0);
    view()->selectionModel()->select(
        index, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    return index.isValid();
}

void TableAccessible::modelChange(QAccessibleTableModelChangeEvent *event)
{
    for (auto entry = m_cells.begin(); entry != m_cells.end();) {
        if (entry.key().isValid()) {
            ++entry;
        } else {
            QAccessible::deleteAccessibleInterface(entry.value());
            entry = m_cells.erase(entry);
        }
    }
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged)
        return;
    for (int row = event->firstRow(); row <= event->lastRow(); ++row) {
        for (int column = event->firstColumn(); column <= event->lastColumn(); ++column) {
            const auto entry =
                m_cells.constFind(QPersistentModelIndex(view()->model()->index(row, column)));
            if (entry == m_cells.constEnd())
                continue;
            static_cast<TableCellAccessible *>(QAccessible::accessibleInterface(entry.value()))
                ->tell();
        }
    }
}

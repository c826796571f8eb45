#include "common/tablecellaccessible.h"

#include "common/airtext.h"
#include "common/tableaccessible.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>

namespace
{
TableAccessible *tableOf(QAbstractItemView *view)
{
    return dynamic_cast<TableAccessible *>(QAccessible::queryAccessibleInterface(view));
}

QRect onScreen(const QWidget *widget, const QRect &rect)
{
    return QRect(widget->mapToGlobal(rect.topLeft()), rect.size());
}

/// The lines of a cell as one sentence.
QString oneLine(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = AirText::ForDisplay(line);
    return lines.join(QLatin1String(", "));
}
} // namespace

TableCellAccessible::TableCellAccessible(QAbstractItemView *view, const QModelIndex &index)
    : m_view(view)
    , m_index(index)
    , m_toldTicked(isTicked())
    , m_toldName(TableCellAccessible::text(QAccessible::Name))
    , m_toldDescription(TableCellAccessible::text(QAccessible::Description))
{
}

TableAccessible *TableCellAccessible::tableAccessible() const
{
    return tableOf(m_view);
}

bool TableCellAccessible::isCurrent() const
{
    return m_view->hasFocus() && m_view->currentIndex() == m_index;
}

bool TableCellAccessible::isTickable() const
{
    return m_index.flags().testFlag(Qt::ItemIsUserCheckable) &&
           m_index.data(Qt::CheckStateRole).isValid();
}

bool TableCellAccessible::isTicked() const
{
    return m_index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

void TableCellAccessible::tell()
{
    if (isTicked() != m_toldTicked) {
        m_toldTicked = isTicked();
        QAccessible::State changed;
        changed.checked = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    const QString name = text(QAccessible::Name);
    if (name != m_toldName) {
        m_toldName = name;
        QAccessibleEvent event(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    const QString description = text(QAccessible::Description);
    if (description != m_toldDescription && !isCurrent()) {
        m_toldDescription = description;
        QAccessibleEvent event(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&event);
    }
}

bool TableCellAccessible::isValid() const
{
    return m_view && m_index.isValid();
}

QWindow *TableCellAccessible::window() const
{
    return m_view ? m_view->window()->windowHandle() : nullptr;
}

QAccessibleInterface *TableCellAccessible::childAt(int x, int y) const
{
    QAccessibleInterface *inside = child(0);
    return inside && inside->rect().contains(x, y) ? inside : nullptr;
}

QAccessibleInterface *TableCellAccessible::parent() const
{
    return m_view ? QAccessible::queryAccessibleInterface(m_view) : nullptr;
}

QAccessibleInterface *TableCellAccessible::child(int index) const
{
    QWidget *inside = isValid() && index == 0 ? m_view->indexWidget(m_index) : nullptr;
    return inside ? QAccessible::queryAccessibleInterface(inside) : nullptr;
}

int TableCellAccessible::childCount() const
{
    return isValid() && m_view->indexWidget(m_index) ? 1 : 0;
}

int TableCellAccessible::indexOfChild(const QAccessibleInterface *inside) const
{
    return inside && inside == child(0) ? 0 : -1;
}

QString TableCellAccessible::text(QAccessible::Text kind) const
{
    if (!isValid())
        return {};
    if (kind == QAccessible::Description)
        return m_index.data(Qt::AccessibleDescriptionRole).toString();
    if (kind != QAccessible::Name)
        return {};
    const QString name = m_index.data(Qt::AccessibleTextRole).toString();
    return name.isEmpty() ? oneLine(m_index.data(Qt::DisplayRole).toString()) : name;
}

QRect TableCellAccessible::rect() const
{
    return isValid() ? onScreen(m_view->viewport(), m_view->visualRect(m_index)) : QRect();
}

QAccessible::Role TableCellAccessible::role() const
{
    return isValid() && isTickable() ? QAccessible::CheckBox : QAccessible::Cell;
}

QAccessible::State TableCellAccessible::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.disabled = !m_index.flags().testFlag(Qt::ItemIsEnabled);
    state.selectable = m_index.flags().testFlag(Qt::ItemIsSelectable);
    state.focusable = true;
    state.focused = isCurrent();
    state.selected = isSelected();
    state.checkable = isTickable();
    state.checked = state.checkable && isTicked();
    state.invisible = !m_view->isVisible();
    state.offscreen = !m_view->viewport()->rect().intersects(m_view->visualRect(m_index));
    return state;
}

void *TableCellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface *>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface *>(this);
    return nullptr;
}

bool TableCellAccessible::isSelected() const
{
    return isValid() && m_view->selectionModel()->isSelected(m_index);
}

QList<QAccessibleInterface *> TableCellAccessible::columnHeaderCells() const
{
    const TableAccessible *table = isValid() ? tableAccessible() : nullptr;
    QAccessibleInterface *head =
        table ? table->headerCell(Qt::Horizontal, m_index.column()) : nullptr;
    return head ? QList<QAccessibleInterface *>{head} : QList<QAccessibleInterface *>();
}

QStringList TableCellAccessible::actionNames() const
{
    return isValid() && isTickable() ? QStringList(toggleAction()) : QStringList();
}

void TableCellAccessible::doAction(const QString &name)
{
    if (!actionNames().contains(name))
        return;
    m_view->setCurrentIndex(m_index);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(m_view, &press);
}

TableHeadAccessible::TableHeadAccessible(QAbstractItemView *view, QHeaderView *header, int section)
    : m_view(view)
    , m_header(header)
    , m_section(section)
{
}

bool TableHeadAccessible::isValid() const
{
    return m_view && m_header && m_section < m_header->count();
}

QWindow *TableHeadAccessible::window() const
{
    return m_view ? m_view->window()->windowHandle() : nullptr;
}

QAccessibleInterface *TableHeadAccessible::childAt(int x, int y) const
{
    const QWidgetList all = buttons();
    for (QWidget *button : all) {
        if (button->isVisible() && onScreen(button, button->rect()).contains(x, y))
            return QAccessible::queryAccessibleInterface(button);
    }
    return nullptr;
}

QAccessibleInterface *TableHeadAccessible::parent() const
{
    return m_view ? QAccessible::queryAccessibleInterface(m_view) : nullptr;
}

QAccessibleInterface *TableHeadAccessible::child(int index) const
{
    return QAccessible::queryAccessibleInterface(buttons().value(index));
}

int TableHeadAccessible::childCount() const
{
    return buttons().size();
}

int TableHeadAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    return child ? buttons().indexOf(qobject_cast<QWidget *>(child->object())) : -1;
}

/// Those whose middle lies in the section.
QWidgetList TableHeadAccessible::buttons() const
{
    QWidgetList found;
    if (!isValid() || m_section < 0)
        return found;
    const QList<QAbstractButton *> all =
        m_header->findChildren<QAbstractButton *>(QString(), Qt::FindDirectChildrenOnly);
    for (QAbstractButton *button : all) {
        if (m_header->logicalIndexAt(button->geometry().center()) == m_section)
            found.append(button);
    }
    return found;
}

QString TableHeadAccessible::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Name || !isValid() || m_section < 0)
        return {};
    return m_view->model()->headerData(m_section, m_header->orientation()).toString();
}

QRect TableHeadAccessible::rect() const
{
    if (!isValid() || m_section < 0)
        return {};
    const int begin = m_header->sectionViewportPosition(m_section);
    const int size = m_header->sectionSize(m_section);
    const QRect section = m_header->orientation() == Qt::Horizontal
                              ? QRect(begin, 0, size, m_header->height())
                              : QRect(0, begin, m_header->width(), size);
    return onScreen(m_header->viewport(), section);
}

QAccessible::Role TableHeadAccessible::role() const
{
    return m_header && m_header->orientation() == Qt::Vertical ? QAccessible::RowHeader
                                                               : QAccessible::ColumnHeader;
}

QAccessible::State TableHeadAccessible::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    state.invisible = state.invalid || m_section < 0 || !m_header->isVisible();
    return state;
}

QAccessibleInterface *CellWidgetAccessible::parent() const
{
    const QWidget *inside = widget();
    QAbstractItemView *view = nullptr;
    const QHeaderView *header = nullptr;
    for (QWidget *outer = inside->parentWidget(); outer && !view; outer = outer->parentWidget()) {
        if (auto *found = qobject_cast<QHeaderView *>(outer))
            header = found;
        else
            view = qobject_cast<QAbstractItemView *>(outer);
    }
    const TableAccessible *table = view ? tableOf(view) : nullptr;
    if (!table)
        return QAccessibleWidget::parent();
    const QPoint middle = inside->geometry().center();
    if (header)
        return table->headerCell(header->orientation(), header->logicalIndexAt(middle));
    const QModelIndex index = view->indexAt(middle);
    return index.isValid() ? table->cell(index) : QAccessibleWidget::parent();
}

QAccessible::State CellWidgetAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget())) {
        state.checkable = button->isCheckable();
        state.checked = button->isChecked();
    }
    return state;
}

QStringList CellWidgetAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (qobject_cast<const QAbstractButton *>(widget()) && widget()->isEnabled())
        names.prepend(toggleAction());
    return names;
}

void CellWidgetAccessible::doAction(const QString &name)
{
    auto *button = qobject_cast<QAbstractButton *>(widget());
    if (button && name == toggleAction())
        button->click();
    else
        QAccessibleWidget::doAction(name);
}

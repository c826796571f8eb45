#include "hometest/linetablewidget.h"

#include "common/QtCommonTools.h"
#include "common/airtext.h"
#include "common/diagnostics.h"
#include "common/tableaccessible.h"
#include "common/tablecellaccessible.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

namespace
{
const int SmallestPixelSize = 8;

// Height of the lines as a view would lay them out. Names may need taller fonts than the table's.
qreal heightOf(const QString &text, const QFont &font)
{
    QTextLayout layout(text, font);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(QWIDGETSIZE_MAX);
        height += line.height();
    }
    layout.endLayout();
    return height;
}

// The lines of a style option's text, which are parted by line separators.
QString elideLines(const QString &text, const QFontMetrics &metrics, int width)
{
    QStringList lines = text.split(QChar::LineSeparator);
    for (QString &line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, width);
    return lines.join(QChar::LineSeparator);
}

QAccessibleInterface *createAccessible(const QString &className, QObject *object)
{
    if (className == QLatin1String("LineTableWidget")) {
        auto *table = qobject_cast<LineTableWidget *>(object);
        return table
                   ? new TableAccessible(table, table->horizontalHeader(), table->verticalHeader())
                   : nullptr;
    }
    if (className == QLatin1String("HomeTestingBtnWgt"))
        return new CellWidgetAccessible(qobject_cast<QWidget *>(object), QAccessible::Grouping);
    return nullptr;
}
} // namespace

QLineDelegate::QLineDelegate(QTableView *view)
    : QStyledItemDelegate(view)
    , m_pView(view)
{
    if (!m_pView) {
        AIRLUME_NULL_POINT();
        return;
    }
    QStyleOptionViewItem option;
    option.initFrom(m_pView);
    const int hint = m_pView->style()->styleHint(QStyle::SH_Table_GridLineColor, &option, m_pView);
    m_pen = QPen(QBrush(QColor(static_cast<QRgb>(hint))), 0, m_pView->gridStyle(), Qt::SquareCap,
        Qt::BevelJoin);
    m_pen.setWidth(2);
    m_pen.setColor(QColor(229, 229, 251, 255));
}

void QLineDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (!painter) {
        AIRLUME_NULL_POINT();
        return;
    }
    QStyledItemDelegate::paint(painter, option, index);
    const QPen saved = painter->pen();
    painter->setPen(m_pen);
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->setPen(saved);
}

void QLineDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // Its frame around one cell would divide the highlighted row.
    option->state &= ~QStyle::State_HasFocus;
    if (option->text.isEmpty() || !m_pView)
        return;
    const int margin = m_pView->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, option, m_pView);
    const int width = option->rect.width() - 2 * (margin + 1);
    const QString text = option->text;
    int pixelSize = QFontInfo(option->font).pixelSize();
    option->text = elideLines(text, option->fontMetrics, width);
    while (pixelSize > SmallestPixelSize &&
           heightOf(option->text, option->font) > option->rect.height()) {
        option->font.setPixelSize(--pixelSize);
        option->fontMetrics = QFontMetrics(option->font);
        option->text = elideLines(text, option->fontMetrics, width);
    }
}

bool QLineDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
    const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStyleOptionViewItem whole = option;
    QStyledItemDelegate::initStyleOption(&whole, index);
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const bool isCutOff = shown.text != whole.text;
    // An empty one hides that of the cell before.
    QToolTip::showText(event->globalPos(),
        isCutOff ? AirText::ForToolTip(whole.text.split(QChar::LineSeparator)) : QString(), view,
        option.rect);
    return true;
}

LineTableWidget::LineTableWidget(QWidget *parent)
    : QTableWidget(parent)
{
    QAccessible::installFactory(createAccessible);
    setStyleSheet(QStringLiteral("QTableView{selection-background-color: rgb(130, 127, 146);"
                                 "background-image: url(:/images/HomeTestLstBK.png);}"));
    setShowGrid(false);
    setItemDelegate(new QLineDelegate(this));
    QtCommonTools::SetFontSize(this, 11);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->setVisible(false);
    horizontalHeader()->setVisible(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // Tab leaves the table, for the buttons beside it.
    setTabKeyNavigation(false);
    setAccessibleName(QStringLiteral("Rooms"));
}

QItemSelectionModel::SelectionFlags LineTableWidget::selectionCommand(
    const QModelIndex &index, const QEvent *event) const
{
    const QItemSelectionModel::SelectionFlags command =
        QTableWidget::selectionCommand(index, event);
    const bool unselects = command & (QItemSelectionModel::Deselect | QItemSelectionModel::Toggle);
    return unselects ? QItemSelectionModel::NoUpdate : command;
}

/// -1: none.
int LineTableWidget::highlightedRow() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void LineTableWidget::keyPressEvent(QKeyEvent *event)
{
    const bool clicks = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                        event->key() == Qt::Key_Enter;
    const int before = currentRow();
    QTableWidget::keyPressEvent(event);
    if (currentRow() < 0 || (!clicks && currentRow() == before))
        return;
    selectRow(currentRow());
    emit cellClicked(currentRow(), currentColumn());
}

void LineTableWidget::mousePressEvent(QMouseEvent *event)
{
    m_rowBeforePress = highlightedRow();
    QTableWidget::mousePressEvent(event);
}

void LineTableWidget::mouseReleaseEvent(QMouseEvent *event)
{
    bool clicked = false;
    const auto connection = connect(
        this, &QTableWidget::cellClicked, this, [&clicked] { clicked = true; },
        Qt::DirectConnection);
    QTableWidget::mouseReleaseEvent(event);
    disconnect(connection);
    // Dragged, or by another button.
    const int row = highlightedRow();
    if (!clicked && row >= 0 && row != m_rowBeforePress)
        emit cellClicked(row, currentColumn());
}

#ifndef AIRLUME_HOMETEST_LINETABLEWIDGET_H
#define AIRLUME_HOMETEST_LINETABLEWIDGET_H

#include <QPen>
#include <QStyledItemDelegate>
#include <QTableWidget>

/// Paints a table's cells with a line along their bottom edge, in place of a grid. A text of
/// several lines is made to fit its row: each line is elided to the cell's width, and the font gets
/// smaller where the lines of the platform's font are too tall.
class QLineDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Serves `view`, which is also its parent. Null is reported; texts are not made to fit then.
    explicit QLineDelegate(QTableView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    /// Tells a cell whose lines are cut off whole.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QPen m_pen;
    QTableView *m_pView; ///< Not owned.
};

/// The table of rooms: no grid, no headers, whole rows selected one at a time, never edited in
/// place. The highlighted room is always the chosen one, however it came to be highlighted: nothing
/// else may be renamed or deleted. GUI thread only.
class LineTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    explicit LineTableWidget(QWidget *parent = nullptr);

protected:
    /// As the base, but nothing takes the highlight from a row while the room stays chosen.
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex &index, const QEvent *event) const override;
    /// As the base; moving to another row, Space and Return click the current cell.
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    /// As the base; where the mouse has highlighted another row without a click, clicks it.
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int highlightedRow() const;

    int m_rowBeforePress = -1;
};

#endif

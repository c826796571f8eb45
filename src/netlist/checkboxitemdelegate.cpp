#include "netlist/checkboxitemdelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionButton>

CheckBoxItemDelegate::CheckBoxItemDelegate(QObject *parent)
    : QItemDelegate(parent)
{
}

void CheckBoxItemDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    if (index.column() != 0)
        return;
    QStyleOptionButton box;
    box.state = QStyle::State_Enabled |
                (index.data(Qt::DisplayRole).toBool() ? QStyle::State_On : QStyle::State_Off);
    box.rect = CheckBoxRect(option);
    QApplication::style()->drawControl(QStyle::CE_CheckBox, &box, painter);
}

QSize CheckBoxItemDelegate::sizeHint(
    const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return QItemDelegate::sizeHint(option, index) + QSize(0, 4);
}

QRect CheckBoxItemDelegate::CheckBoxRect(const QStyleOptionViewItem &option) const
{
    const QStyleOptionButton box;
    QRect rect = QApplication::style()->subElementRect(QStyle::SE_CheckBoxIndicator, &box);
    rect.moveTo(option.rect.x() + (option.rect.width() - rect.width()) / 2,
        option.rect.y() + (option.rect.height() - rect.height()) / 2);
    return rect;
}

bool CheckBoxItemDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
    const QStyleOptionViewItem &option, const QModelIndex &index)
{
    switch (event->type()) {
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: {
        const QMouseEvent *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton || !CheckBoxRect(option).contains(mouse->pos()))
            return false;
        // Swallowed: the release that follows toggles, and once is enough.
        if (event->type() == QEvent::MouseButtonDblClick)
            return true;
        break;
    }
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Space && key != Qt::Key_Select)
            return false;
        break;
    }
    default:
        return false;
    }
    return model->setData(index, !index.data(Qt::DisplayRole).toBool(), Qt::EditRole);
}

#include "hometest/linetablewidget.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"

#include <QHeaderView>
#include <QPainter>

QLineDelegate::QLineDelegate(QTableView *view)
    : QStyledItemDelegate(view)
    , m_pView(view)
{
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

LineTableWidget::LineTableWidget(QWidget *parent)
    : QTableWidget(parent)
{
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
}

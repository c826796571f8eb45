#include "graphs/emptynotice.h"

#include <QPainter>
#include <algorithm>
#include <qwt_plot.h>

namespace EmptyNotice
{

namespace
{
const QColor MutedColor(0x6b, 0x6b, 0x6b); // 5.3:1 on white
const double Margin = 12.;                 // pixels

bool drawsCurves(const QwtPlot &plot)
{
    const QwtPlotItemList &items = plot.itemList();
    return std::any_of(items.cbegin(), items.cend(), [](const QwtPlotItem *item) {
        return item->rtti() == QwtPlotItem::Rtti_PlotCurve && item->isVisible();
    });
}
} // namespace

void Draw(const QwtPlot &plot, const QString &text, QPainter *painter, const QRectF &canvasRect)
{
    if (drawsCurves(plot))
        return;
    painter->save();
    painter->setFont(plot.font());
    painter->setPen(MutedColor);
    painter->drawText(canvasRect.adjusted(Margin, Margin, -Margin, -Margin),
        static_cast<int>(Qt::AlignCenter) | Qt::TextWordWrap, text);
    painter->restore();
}

} // namespace EmptyNotice

#include "graphs/zoomer.h"

#include "graphs/networkname.h"

#include <QEvent>
#include <QMouseEvent>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

namespace
{
const double FarAway = 1e11;   // pixels
const double CatchRange = 10.; // pixels
const double BorderRadius = 6.;
const int BackgroundAlpha = 170;
} // namespace

QString trackerLabel(const QString &title, double dBm)
{
    return displayName(title) + QLatin1Char(' ') + QString::number(static_cast<int>(dBm)) +
           QLatin1String("dBm");
}

Zoomer::Zoomer(QWidget *canvas)
    : QwtPlotZoomer(canvas, true)
{
    setRubberBandPen(QPen(Qt::darkGreen));
    setTrackerMode(AlwaysOn);
}

bool Zoomer::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched || watched != parentWidget())
        return false;
    // Nothing else is passed on, on purpose: the graph must never be zoomed.
    switch (event->type()) {
    case QEvent::MouseMove:
        widgetMouseMoveEvent(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::Enter:
        widgetEnterEvent(event);
        break;
    case QEvent::Leave:
        widgetLeaveEvent(event);
        break;
    default:
        break;
    }
    return false;
}

QwtText Zoomer::trackerText(const QPoint &pos) const
{
    const QwtPlotCurve *curve = curveAt(pos);
    if (!curve)
        return QwtText();
    QwtText text = plainText(trackerLabel(curve->title().text(), invTransform(pos).y()));
    const QColor color = rubberBandPen().color();
    QColor background = color;
    background.setAlpha(BackgroundAlpha);
    text.setColor(Qt::white);
    text.setBorderPen(QPen(color));
    text.setBorderRadius(BorderRadius);
    text.setBackgroundBrush(background);
    return text;
}

const QwtPlotCurve *Zoomer::curveAt(const QPoint &pos) const
{
    const QwtPlotCurve *nearest = nullptr;
    double best = FarAway;
    const QwtPlotItemList items = plot()->itemList(QwtPlotItem::Rtti_PlotCurve);
    for (const QwtPlotItem *item : items) {
        const auto *curve = static_cast<const QwtPlotCurve *>(item);
        double distance = FarAway;
        if (curve->isVisible() && curve->closestPoint(pos, &distance) >= 0 && distance < best) {
            nearest = curve;
            best = distance;
        }
    }
    return best < CatchRange ? nearest : nullptr;
}

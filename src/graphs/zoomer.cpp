#include "graphs/zoomer.h"

#include "graphs/networkname.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QMouseEvent>
#include <QResizeEvent>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

namespace
{
const double FarAway = 1e11;   // pixels
const double CatchRange = 10.; // pixels
const double BorderRadius = 6.;
const int BackgroundAlpha = 170;
const double TrackerMargin = 5.; // pixels that Qwt keeps between the text and the canvas's edges
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

void Zoomer::follow()
{
    updateDisplay();
}

bool Zoomer::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched || watched != parentWidget())
        return false;
    // Of these only moves and crossings are passed on, on purpose: the graph must never be zoomed.
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
    case QEvent::Resize:
        fitOverlay(static_cast<QResizeEvent *>(event)->size());
        follow();
        break;
    default:
        break;
    }
    return false;
}

/// The picker would do it itself, but may not see the event: it would also stretch a selection.
void Zoomer::fitOverlay(const QSize &size)
{
    auto *overlay = parentWidget()->findChild<QWidget *>(
        QStringLiteral("PickerTracker"), Qt::FindDirectChildrenOnly);
    if (overlay)
        overlay->resize(size);
}

QwtText Zoomer::trackerText(const QPoint &pos) const
{
    const QwtPlotCurve *curve = curveAt(pos);
    if (!curve)
        return QwtText();
    QwtText text = fittingText(curve->title().text(), invTransform(pos).y());
    const QColor color = rubberBandPen().color();
    QColor background = color;
    background.setAlpha(BackgroundAlpha);
    text.setColor(Qt::white);
    text.setBorderPen(QPen(color));
    text.setBorderRadius(BorderRadius);
    text.setBackgroundBrush(background);
    return text;
}

/// Where a graph is too narrow for a long name, the name is elided: the signal shall stay.
QwtText Zoomer::fittingText(const QString &title, double dBm) const
{
    const QwtText whole = plainText(trackerLabel(title, dBm));
    const double room = pickArea().boundingRect().width() - 2. * TrackerMargin;
    const double missing = whole.textSize(trackerFont()).width() - room;
    if (missing <= 0.)
        return whole;
    const QFontMetricsF metrics(trackerFont(), canvas());
    const QString name = displayName(title);
    return plainText(trackerLabel(
        metrics.elidedText(name, Qt::ElideRight, metrics.horizontalAdvance(name) - missing), dBm));
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

#include "graphs/graphtest.h"

#include <QPainter>
#include <QTest>
#include <QTimerEvent>
#include <QWheelEvent>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

namespace GraphTest
{
namespace
{
/// Counts how often a widget paints itself.
class PaintCount : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};
} // namespace

void tick(QObject *graph)
{
    QTimerEvent event(0);
    QCoreApplication::sendEvent(graph, &event);
}

QVector<QwtPlotCurve *> curves(const QwtPlot &plot)
{
    QVector<QwtPlotCurve *> found;
    const QwtPlotItemList items = plot.itemList(QwtPlotItem::Rtti_PlotCurve);
    for (QwtPlotItem *item : items)
        found.append(static_cast<QwtPlotCurve *>(item));
    return found;
}

QwtPlotCurve *curve(const QwtPlot &plot, const QString &ssid)
{
    const QVector<QwtPlotCurve *> all = curves(plot);
    for (QwtPlotCurve *candidate : all) {
        if (candidate->title().text() == ssid)
            return candidate;
    }
    return nullptr;
}

QwtPlotMarker *marker(const QwtPlot &plot, const QString &ssid)
{
    const QwtPlotItemList items = plot.itemList(QwtPlotItem::Rtti_PlotMarker);
    for (QwtPlotItem *item : items) {
        auto *candidate = static_cast<QwtPlotMarker *>(item);
        if (candidate->label().text() == ssid)
            return candidate;
    }
    return nullptr;
}

QVector<double> values(const QwtPlotCurve &curve)
{
    QVector<double> found;
    for (std::size_t i = 0; i < curve.dataSize(); ++i)
        found.append(curve.sample(static_cast<int>(i)).y());
    return found;
}

bool isPlain(const QwtText &text)
{
    QwtText plain = text;
    plain.setText(text.text(), QwtText::PlainText);
    return plain == text;
}

QVector<PaintStep> painted(QwtPlot &plot)
{
    PaintRecord record(plot.canvas()->size());
    QPainter painter(&record);
    plot.drawCanvas(&painter);
    painter.end();
    return record.steps();
}

void handleLikeAZoomingUser(QWidget *widget)
{
    const QPoint from = widget->rect().center() - QPoint(60, 40);
    const QPoint to = widget->rect().center() + QPoint(60, 40);
    const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    for (Qt::MouseButton button : buttons) {
        for (Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
            QTest::mousePress(widget, button, modifier, from);
            QMouseEvent move(
                QEvent::MouseMove, to, widget->mapToGlobal(to), Qt::NoButton, button, modifier);
            QCoreApplication::sendEvent(widget, &move);
            QTest::mouseRelease(widget, button, modifier, to);
        }
        QTest::mouseDClick(widget, button, Qt::NoModifier, from);
    }
    for (int turn : {120, -120}) {
        QWheelEvent wheel(from, widget->mapToGlobal(from), {}, {0, turn}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(widget, &wheel);
    }
    widget->setFocus();
    for (int key : {Qt::Key_Enter, Qt::Key_Return, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home,
             Qt::Key_Escape, Qt::Key_Left, Qt::Key_Up})
        QTest::keyClick(widget, static_cast<Qt::Key>(key));
}

bool repaints(QWidget &widget, const std::function<void()> &change)
{
    widget.show();
    if (!QTest::qWaitForWindowExposed(&widget))
        return false;
    QCoreApplication::processEvents();
    PaintCount paints;
    widget.installEventFilter(&paints);
    change();
    return QTest::qWaitFor([&paints] { return paints.count > 0; });
}

} // namespace GraphTest

#include "graphs/plotlook.h"

#include "graphs/graphaccessible.h"
#include "graphs/networkname.h"
#include "graphs/plotcanvas.h"
#include "graphs/signalscaledraw.h"

#include <QFontMetrics>
#include <QPen>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>

namespace PlotLook
{

namespace
{
const int Margin = 4; // keeps the labels off the frame
} // namespace

void setUpCanvas(QwtPlot *plot)
{
    plot->setAutoReplot(false);
    plot->setContentsMargins(Margin, Margin, Margin, Margin);
    auto *canvas = new PlotCanvas(plot);
    canvas->setBorderRadius(10);
    plot->setCanvas(canvas);
    plot->plotLayout()->setAlignCanvasToScales(true);
    plot->setCanvasBackground(QBrush(Qt::white));
    canvas->setCursor(Qt::ArrowCursor);
    GraphAccessible::install();
    // By Tab, to hear what it draws. The canvas would take the focus for the tracker's sake.
    plot->setFocusPolicy(Qt::TabFocus);
    canvas->setFocusProxy(plot);
}

int setUpBottomLabels(QwtPlot *plot)
{
    plot->setAxisLabelAlignment(QwtPlot::xBottom, Qt::AlignCenter | Qt::AlignBottom);
    QwtScaleWidget *axis = plot->axisWidget(QwtPlot::xBottom);
    const int fontHeight = QFontMetrics(axis->font()).height();
    axis->setMinBorderDist(0, fontHeight / 2);
    return fontHeight;
}

void setUpDbmAxis(QwtPlot *plot, int axisId)
{
    plot->setAxisScaleDiv(
        axisId, QwtScaleDiv(-100., 0., {}, {}, {-100., -80., -60., -40., -20., 0.}));
    plot->setAxisScaleDraw(axisId, new SignalScaleDraw);
}

QwtPlotCurve *makeCurve(const QString &ssid, const QColor &color)
{
    auto *curve = new QwtPlotCurve(plainText(ssid));
    curve->setPen(color, 2., Qt::SolidLine);
    curve->setStyle(QwtPlotCurve::Lines);
    return curve;
}

} // namespace PlotLook

#ifndef AIRLUME_GRAPHS_PLOTCANVAS_H
#define AIRLUME_GRAPHS_PLOTCANVAS_H

#include <qwt_plot_canvas.h>

/// A plot's canvas that is whole where a logical pixel is no whole number of the screen's. Qwt
/// keeps its picture in a pixmap whose last row and column it then leaves black.
class PlotCanvas : public QwtPlotCanvas
{
public:
    using QwtPlotCanvas::QwtPlotCanvas;

protected:
    void paintEvent(QPaintEvent *event) override;
};

#endif

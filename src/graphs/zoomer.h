#ifndef AIRLUME_GRAPHS_ZOOMER_H
#define AIRLUME_GRAPHS_ZOOMER_H

#include <qwt_plot_zoomer.h>

class QwtPlotCurve;

/// Text for a curve under the mouse: the name, a blank, the signal cut to whole dBm, "dBm".
QString trackerLabel(const QString &title, double dBm);

/// Shows the name and signal of the curve under the mouse. Owned by the canvas it watches.
///
/// A zoomer in name only: it sees neither clicks nor wheel nor keys, so it never zooms.
class Zoomer : public QwtPlotZoomer
{
    Q_OBJECT

public:
    explicit Zoomer(QWidget *canvas);

    /// Shows what the curves have come to under a mouse that may be resting. To be called when
    /// they have moved.
    void follow();

    /// Never swallows an event.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// Empty unless a visible curve has a point closer than 10 pixels to `pos` (canvas pixels).
    QwtText trackerText(const QPoint &pos) const override;

private:
    void fitOverlay(const QSize &size);
    QwtText fittingText(const QString &title, double dBm) const;
    const QwtPlotCurve *curveAt(const QPoint &pos) const;
};

#endif

#ifndef AIRLUME_GRAPHS_SIGNALLEGENDLABEL_H
#define AIRLUME_GRAPHS_SIGNALLEGENDLABEL_H

#include <qwt_legend_label.h>

/// A legend entry for a network name from the air: one line of plain text, elided where it is wider
/// than about 32 characters.
class SignalLegendLabel : public QwtLegendLabel
{
    Q_OBJECT

public:
    explicit SignalLegendLabel(QWidget *parent = nullptr);

    void setText(const QwtText &text) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void drawText(QPainter *painter, const QRectF &rect) override;

private:
    QSize bounded(const QSize &size) const;
};

#endif

#ifndef AIRLUME_GRAPHS_SIGNALLEGENDLABEL_H
#define AIRLUME_GRAPHS_SIGNALLEGENDLABEL_H

#include <qwt_legend_label.h>

/// A legend entry for a network name from the air: one line of plain text, elided where it is wider
/// than about 32 characters. Its tool tip has the name whole and tells which access point it is.
class SignalLegendLabel : public QwtLegendLabel
{
    Q_OBJECT

public:
    explicit SignalLegendLabel(QWidget *parent = nullptr);

    /// Sets what the tool tip tells beside the name.
    void setAccessPoint(const QString &bssid, int channel);

    void setText(const QwtText &text) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void drawText(QPainter *painter, const QRectF &rect) override;

protected:
    bool event(QEvent *event) override;

private:
    QSize bounded(const QSize &size) const;
    QString toolTipText() const;

    QString m_name;
    QString m_bssid;
    int m_channel = 0;
};

#endif

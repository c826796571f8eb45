#ifndef AIRLUME_GRAPHS_SIGNALLEGEND_H
#define AIRLUME_GRAPHS_SIGNALLEGEND_H

#include <qwt_legend.h>

/// A legend of network names: however long a name, its label stays one line of bounded width.
class SignalLegend : public QwtLegend
{
    Q_OBJECT

public:
    explicit SignalLegend(QWidget *parent = nullptr);

protected:
    QWidget *createWidget(const QwtLegendData &data) const override;
};

#endif

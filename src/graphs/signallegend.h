#ifndef AIRLUME_GRAPHS_SIGNALLEGEND_H
#define AIRLUME_GRAPHS_SIGNALLEGEND_H

#include <qwt_legend.h>

class SignalLegendLabel;

/// A legend of network names: however long a name, its label stays one line of bounded width.
class SignalLegend : public QwtLegend
{
    Q_OBJECT

public:
    explicit SignalLegend(QWidget *parent = nullptr);

    /// Checks and shows, or unchecks and hides, the one entry of `itemInfo`; does nothing if it has
    /// none or several.
    void showEntry(const QVariant &itemInfo, bool on);

    /// Sets what the tool tip of that entry tells beside the network's name.
    void describeEntry(const QVariant &itemInfo, const QString &bssid, int channel);

public slots:
    void updateLegend(const QVariant &itemInfo, const QList<QwtLegendData> &entries) override;

protected:
    QWidget *createWidget(const QwtLegendData &data) const override;

private:
    SignalLegendLabel *entry(const QVariant &itemInfo) const;
};

#endif

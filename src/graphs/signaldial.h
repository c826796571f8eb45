#ifndef AIRLUME_GRAPHS_SIGNALDIAL_H
#define AIRLUME_GRAPHS_SIGNALDIAL_H

#include <QString>
#include <qwt_dial.h>

/// A round, read-only dial that shows a signal from -100 to 0 dBm. GUI thread only.
class SignalDial : public QwtDial
{
    Q_OBJECT

public:
    explicit SignalDial(QWidget *parent = nullptr);

    /// Replaces the unit below the scale.
    void setLabel(const QString &label);

public slots:
    /// Shows `rssi` (dBm); values beyond the scale show at its ends.
    void onSignalReturned(int rssi);
    /// Puts the needle on 0 dBm.
    void onStopScan();

protected:
    void drawScaleContents(QPainter *painter, const QPointF &center, double radius) const override;

private:
    QString m_strLabel;
};

#endif

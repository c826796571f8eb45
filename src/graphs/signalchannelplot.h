#ifndef AIRLUME_GRAPHS_SIGNALCHANNELPLOT_H
#define AIRLUME_GRAPHS_SIGNALCHANNELPLOT_H

#include "graphs/channelband.h"
#include "scan/wifiproperty.h"

#include <QMap>
#include <QVector>
#include <qwt_plot.h>

class ApexMarker;
class QwtPlotCurve;

/// Draws each ticked network of one band as a triangle over its channel, as high as its signal,
/// with its name at the apex. The base of the graphs of both bands.
///
/// Knows the networks of both bands, by their SSID; only those of its own band are ever shown or
/// moved. New signals are drawn by a timer. GUI thread only.
class SignalChannelPlot : public QwtPlot
{
    Q_OBJECT

public:
    /// Makes every network of `networks` known, with a hidden triangle.
    virtual void insertCurve(QVector<WifiProperty> &networks) = 0;
    /// Shows or hides an item of this graph.
    void showCurve(QwtPlotItem *item, bool on);
    /// Forgets all networks and deletes their triangles and names.
    void EmptyCurveData();
    /// Number of records in the scan result that filled the graph.
    int NetworkCount() const { return networkCount; }

    /// The same for both bands, so that their graphs share a row equally.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    void replot() override;
    /// Takes one scan result.
    void onDataReturned(QVector<WifiProperty> networks);
    /// Shows or hides the network `strSsid`; the list's row number is not used.
    void onShowCurve(int index, QString strSsid, bool checked);
    void onStartScan();
    /// Forgets everything; the next scan result counts as the first.
    void onStopScan();

protected:
    /// `band` must outlive the graph.
    SignalChannelPlot(const ChannelBand &band, QWidget *parent);

    /// Does insertCurve(); `counter` chooses the colours and goes up by one per network.
    void insertNetworks(const QVector<WifiProperty> &networks, int &counter);

    void timerEvent(QTimerEvent *event) override;
    void drawItems(QPainter *painter, const QRectF &canvasRect,
        const QwtScaleMap maps[axisCnt]) const override;

private:
    /// What is known about one network.
    struct pointData {
        QwtPlotCurve *curve = nullptr;
        ApexMarker *marker = nullptr;
        QVector<QPointF> points;
        int channel = 0; ///< Where the network was first seen; never updated.
    };

    /// A name and the apex it belongs to: x in channel numbers, y in dBm.
    struct DrawnName {
        ApexMarker *marker;
        QPointF apex;
    };

    void addNetwork(const WifiProperty &record, const QColor &color);
    void removeNetwork(const QString &ssid);
    void deleteCurves();
    QVector<DrawnName> drawnNames() const;
    void drawNames(
        QPainter *painter, const QRectF &canvasRect, const QwtScaleMap maps[axisCnt]) const;

    const ChannelBand &m_band;
    QMap<QString, pointData> curveMap;
    int networkCount = 0;
    bool firstData = true;
};

#endif

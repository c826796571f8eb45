#ifndef AIRLUME_GRAPHS_SIGNALTIMEPLOT_H
#define AIRLUME_GRAPHS_SIGNALTIMEPLOT_H

#include "graphs/samplehistory.h"
#include "scan/wifiproperty.h"

#include <QMap>
#include <QVector>
#include <memory>
#include <qwt_plot.h>

class QwtPlotCurve;
class SignalLegend;
class Zoomer;

/// Draws the signal of each ticked network over the last four minutes.
///
/// Every scan result adds one sample to each network that is shown; a timer moves the time axis and
/// repaints. Networks are known by their SSID. GUI thread only.
class SignalTimePlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit SignalTimePlot(QWidget *parent = nullptr);

    /// Makes every network of `networks` known, with an empty history and without a curve. Forgets
    /// what was known about them.
    void insertCurve(QVector<WifiProperty> &networks);
    /// Shows or hides a curve of this graph together with its legend label. Ignores null.
    void showCurve(QwtPlotItem *item, bool on);
    /// Forgets all networks and deletes their curves. Shown ones are not shown again until they are
    /// ticked.
    void EmptyCurveData();
    /// Number of records in the scan result that filled the graph.
    int NetworkCount() const { return networkCount; }

public slots:
    void replot() override;
    /// Takes one scan result.
    void onDataReturned(QVector<WifiProperty> networks);
    /// Shows or hides the curve behind a legend entry.
    void wifiChecked(const QVariant &itemInfo, bool on);
    /// Shows or hides the network `strSsid`; the list's row number is not used.
    void onShowCurve(int index, QString strSsid, bool checked);
    void onStartScan();
    /// Forgets everything and removes the legend for good.
    void onStopScan();

protected:
    void timerEvent(QTimerEvent *event) override;
    void drawItems(QPainter *painter, const QRectF &canvasRect,
        const QwtScaleMap maps[axisCnt]) const override;

private:
    /// What is known about one network.
    struct curData {
        int count = 0;      ///< Valid entries in samples, 0 to HISTORY - 1.
        bool shown = false; ///< Ticked: the curve exists.
        QwtPlotCurve *curve = nullptr;
        /// Null until first shown. Shared, because the curve reads the samples in place: they must
        /// not move when the map copies an entry.
        std::shared_ptr<SampleHistory> samples;
        QString bssid;
        int channel = 0;
    };

    void addNetwork(const WifiProperty &record);
    void noteAccessPoint(curData &entry, const WifiProperty &record);
    void describe(const curData &entry);
    void deleteCurves();

    QMap<QString, curData> curveMap;
    std::array<double, HISTORY> timeData; ///< Seconds after the base time, newest first.
    SignalLegend *legend = nullptr;
    Zoomer *m_pTracker = nullptr;
    int networkCount = 0;
    bool firstData = true;
};

#endif

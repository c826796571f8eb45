#include "graphs/signaltimeplot.h"

#include "graphs/curvecolors.h"
#include "graphs/emptynotice.h"
#include "graphs/graphaccessible.h"
#include "graphs/plotlook.h"
#include "graphs/signallegend.h"
#include "graphs/timescaledraw.h"
#include "graphs/zoomer.h"

#include <QDebug>
#include <qwt_plot_curve.h>

namespace
{
const double SecondsPerTick = 3.;

QString noticeText()
{
    return QStringLiteral("Untick a network in the list and tick it again to draw it.");
}
} // namespace

SignalTimePlot::SignalTimePlot(QWidget *parent)
    : QwtPlot(parent)
{
    PlotLook::setUpCanvas(this);

    setAxisScaleDraw(xBottom, new TimeScaleDraw(QTime::currentTime().addSecs(-HISTORY)));
    setAxisScale(xBottom, 0., HISTORY);
    PlotLook::setUpBottomLabels(this);

    // Without effect on purpose: the zoomer sees no mouse button. It serves as a tracker.
    m_pTracker = new Zoomer(canvas());
    m_pTracker->setMousePattern(
        QwtEventPattern::MouseSelect2, Qt::RightButton, Qt::ControlModifier);
    m_pTracker->setMousePattern(QwtEventPattern::MouseSelect3, Qt::RightButton);

    PlotLook::setUpDbmAxis(this, yLeft);
    PlotLook::setUpDbmAxis(this, yRight);
    enableAxis(yRight);

    for (int i = 0; i < HISTORY; ++i)
        timeData[static_cast<std::size_t>(i)] = HISTORY - 1 - i;
    startTimer(PlotLook::TickMs, Qt::CoarseTimer);
}

void SignalTimePlot::insertCurve(QVector<WifiProperty> &networks)
{
    networkCount = networks.size();
    for (const WifiProperty &record : qAsConst(networks))
        addNetwork(record);
}

void SignalTimePlot::addNetwork(const WifiProperty &record)
{
    curData &entry = curveMap[record.ssid];
    delete entry.curve;
    entry = curData();
    noteAccessPoint(entry, record);
}

/// Access points of one name change places in the scan results: the name tells them apart by the
/// blanks at its end alone.
void SignalTimePlot::noteAccessPoint(curData &entry, const WifiProperty &record)
{
    if (entry.bssid == record.bssid && entry.channel == record.channel)
        return;
    entry.bssid = record.bssid;
    entry.channel = record.channel;
    describe(entry);
}

void SignalTimePlot::describe(const curData &entry)
{
    if (legend && entry.curve)
        legend->describeEntry(itemToInfo(entry.curve), entry.bssid, entry.channel);
}

void SignalTimePlot::onDataReturned(QVector<WifiProperty> networks)
{
    if (firstData) {
        legend = new SignalLegend;
        legend->setObjectName(QStringLiteral("timeplotframe"));
        insertLegend(legend, RightLegend, -1.);
        insertCurve(networks);
        firstData = false;
        return;
    }
    for (const WifiProperty &record : qAsConst(networks)) {
        const auto entry = curveMap.find(record.ssid);
        if (entry == curveMap.end()) {
            addNetwork(record);
            continue;
        }
        noteAccessPoint(*entry, record);
        if (entry->shown)
            addSample(*entry->samples, entry->count, record.rssi);
    }
}

void SignalTimePlot::timerEvent(QTimerEvent *)
{
    // The axis moves on by one tick, although a tick adds at most one sample and samples stand 1 s
    // apart: on purpose.
    for (double &time : timeData)
        time += SecondsPerTick;
    setAxisScale(xBottom, timeData.back(), timeData.front());
    for (const curData &entry : qAsConst(curveMap)) {
        if (entry.shown)
            entry.curve->setRawSamples(timeData.data(), entry.samples->data(), entry.count);
    }
    replot();
    GraphAccessible::tell(this);
}

void SignalTimePlot::replot()
{
    QwtPlot::replot();
    // Null while it is constructed, which replots.
    if (m_pTracker)
        m_pTracker->follow();
}

void SignalTimePlot::drawItems(
    QPainter *painter, const QRectF &canvasRect, const QwtScaleMap maps[axisCnt]) const
{
    QwtPlot::drawItems(painter, canvasRect, maps);
    EmptyNotice::Draw(*this, noticeText(), painter, canvasRect);
}

void SignalTimePlot::onShowCurve(int, QString strSsid, bool checked)
{
    qDebug() << "on show curve:" << curveMap.size();
    const auto entry = curveMap.find(strSsid);
    if (entry == curveMap.end()) {
        qDebug() << "timeplot not find";
        return;
    }
    if (!checked) {
        showCurve(entry->curve, false);
        entry->shown = false;
        delete entry->curve;
        entry->curve = nullptr;
        return;
    }
    qDebug() << "show curve";
    if (!entry->curve) {
        if (!entry->samples)
            entry->samples = std::make_shared<SampleHistory>();
        entry->curve = PlotLook::makeCurve(strSsid, randomCurveColor());
        entry->curve->attach(this);
        describe(*entry);
        entry->shown = true;
    }
    showCurve(entry->curve, true);
}

void SignalTimePlot::wifiChecked(const QVariant &itemInfo, bool on)
{
    if (QwtPlotItem *item = infoToItem(itemInfo))
        showCurve(item, on);
}

void SignalTimePlot::showCurve(QwtPlotItem *item, bool on)
{
    if (!item)
        return;
    item->setVisible(on);
    if (legend)
        legend->showEntry(itemToInfo(item), on);
    replot();
}

void SignalTimePlot::onStartScan() {}

void SignalTimePlot::onStopScan()
{
    if (legend) {
        QwtPlot::legend()->deleteLater();
        delete legend;
        legend = nullptr;
        updateLayout();
    }
    deleteCurves();
    // firstData stays false on purpose: after a restart there is no legend.
}

void SignalTimePlot::EmptyCurveData()
{
    deleteCurves();
    replot();
}

void SignalTimePlot::deleteCurves()
{
    for (const curData &entry : qAsConst(curveMap))
        delete entry.curve;
    curveMap.clear();
}

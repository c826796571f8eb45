#include "graphs/signalchannelplot.h"

#include "graphs/apexmarker.h"
#include "graphs/curvecolors.h"
#include "graphs/namespread.h"
#include "graphs/networkname.h"
#include "graphs/plotlook.h"
#include "graphs/signalscaledraw.h"

#include <QDebug>
#include <QPainter>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

#include <algorithm>

namespace
{
const int SmallestWidth = 400;
// Keeps the labels of neighbouring channels apart, above all 34 and 40.
const int ChannelPointSize = 8;
} // namespace

SignalChannelPlot::SignalChannelPlot(const ChannelBand &band, QWidget *parent)
    : QwtPlot(parent)
    , m_band(band)
{
    PlotLook::setUpCanvas(this);

    setAxisTitle(xBottom, plainText(m_band.title));
    setAxisScaleDiv(
        xBottom, QwtScaleDiv(m_band.ticks.first(), m_band.ticks.last(), {}, {}, m_band.ticks));
    setAxisScaleDraw(xBottom, new SignalScaleDraw);
    QFont channelFont = axisFont(xBottom);
    channelFont.setPointSize(ChannelPointSize);
    setAxisFont(xBottom, channelFont);
    qDebug() << "fmh:" << PlotLook::setUpBottomLabels(this);

    enableAxis(yLeft, m_band.dBmAxis == yLeft);
    enableAxis(yRight, m_band.dBmAxis == yRight);
    PlotLook::setUpDbmAxis(this, m_band.dBmAxis);

    startTimer(PlotLook::TickMs, Qt::CoarseTimer);
}

QSize SignalChannelPlot::sizeHint() const
{
    return minimumSizeHint();
}

QSize SignalChannelPlot::minimumSizeHint() const
{
    return {SmallestWidth, QwtPlot::minimumSizeHint().height()};
}

void SignalChannelPlot::insertNetworks(const QVector<WifiProperty> &networks, int &counter)
{
    networkCount = networks.size();
    for (const WifiProperty &record : networks)
        addNetwork(record, curveColor(counter++));
    // One for all: the triangles are hidden and the canvas paints when the event loop is back, so a
    // replot for each would show nothing more, and each costs the more the more items there are.
    replot();
}

void SignalChannelPlot::addNetwork(const WifiProperty &record, const QColor &color)
{
    removeNetwork(record.ssid);

    pointData entry;
    entry.curve = PlotLook::makeCurve(record.ssid, color);
    entry.curve->setYAxis(m_band.dBmAxis);
    // There is no legend, and preparing an entry for one is what costs most here.
    entry.curve->setItemAttribute(QwtPlotItem::Legend, false);
    entry.curve->setVisible(false);
    entry.curve->attach(this);

    entry.points = trianglePoints(record.channel, record.rssi, m_band.halfWidth);

    entry.marker = new ApexMarker(record.ssid);
    entry.marker->setYAxis(m_band.dBmAxis);
    entry.marker->setValue(record.channel, record.rssi);
    entry.marker->setVisible(false);
    entry.marker->attach(this);

    entry.channel = record.channel;
    curveMap.insert(record.ssid, entry);
}

void SignalChannelPlot::removeNetwork(const QString &ssid)
{
    const auto entry = curveMap.find(ssid);
    if (entry == curveMap.end())
        return;
    delete entry->curve;
    delete entry->marker;
    curveMap.erase(entry);
}

void SignalChannelPlot::onDataReturned(QVector<WifiProperty> networks)
{
    if (firstData) {
        insertCurve(networks);
        firstData = false;
        return;
    }
    bool added = false;
    for (const WifiProperty &record : qAsConst(networks)) {
        const auto entry = curveMap.find(record.ssid);
        if (entry == curveMap.end()) {
            addNetwork(record, randomCurveColor());
            added = true;
        } else if (m_band.contains(entry->channel)) {
            entry->points = trianglePoints(entry->channel, record.rssi, m_band.halfWidth);
            entry->marker->setValue(entry->channel, record.rssi);
        }
    }
    if (added)
        replot();
}

void SignalChannelPlot::timerEvent(QTimerEvent *)
{
    for (const pointData &entry : qAsConst(curveMap)) {
        if (m_band.contains(entry.channel))
            entry.curve->setSamples(entry.points);
    }
    replot();
}

void SignalChannelPlot::replot()
{
    for (const pointData &entry : qAsConst(curveMap))
        entry.marker->follow();
    QwtPlot::replot();
}

void SignalChannelPlot::drawItems(
    QPainter *painter, const QRectF &canvasRect, const QwtScaleMap maps[axisCnt]) const
{
    QwtPlot::drawItems(painter, canvasRect, maps);
    QVector<ApexMarker *> markers = drawnMarkers();
    placeNames(markers, painter->font(), canvasRect, maps);
    // Where there is no room for all, the strongest stays readable.
    for (auto marker = markers.crbegin(); marker != markers.crend(); ++marker)
        (*marker)->drawName(painter);
}

/// The strongest first.
QVector<ApexMarker *> SignalChannelPlot::drawnMarkers() const
{
    QVector<ApexMarker *> markers;
    for (const pointData &entry : curveMap) {
        if (entry.marker->isDrawn())
            markers.append(entry.marker);
    }
    std::stable_sort(
        markers.begin(), markers.end(), [](const ApexMarker *one, const ApexMarker *other) {
            return one->yValue() > other->yValue();
        });
    return markers;
}

/// Networks of one channel are often as strong as each other: their names would hide each other.
/// Whoever is stronger stands above, so the weaker ones step aside. Names that lie outside are in
/// nobody's way and leave the list.
void SignalChannelPlot::placeNames(QVector<ApexMarker *> &markers, const QFont &font,
    const QRectF &canvasRect, const QwtScaleMap maps[axisCnt]) const
{
    const auto liesOutside = [&](ApexMarker *marker) {
        const QPointF apex(maps[xBottom].transform(marker->xValue()),
            maps[m_band.dBmAxis].transform(marker->yValue()));
        return !marker->place(canvasRect, apex, font);
    };
    markers.erase(std::remove_if(markers.begin(), markers.end(), liesOutside), markers.end());

    QVector<QRectF> names;
    names.reserve(markers.size());
    for (const ApexMarker *marker : qAsConst(markers))
        names.append(marker->nameRect());
    const QVector<double> moves = spreadNames(names, canvasRect);
    for (int i = 0; i < moves.size(); ++i)
        markers.at(i)->moveName(moves.at(i));
}

void SignalChannelPlot::onShowCurve(int, QString strSsid, bool checked)
{
    const auto entry = curveMap.constFind(strSsid);
    if (entry == curveMap.constEnd()) {
        qDebug() << m_band.unknownNetwork;
        return;
    }
    if (!m_band.contains(entry->channel))
        return;
    // Spelled so on purpose: log readers search for it.
    qDebug() << "on show cureve:" << checked;
    showCurve(entry->curve, checked);
    // After the replot on purpose: the name follows with the next one.
    entry->marker->setVisible(checked);
}

void SignalChannelPlot::showCurve(QwtPlotItem *item, bool on)
{
    item->setVisible(on);
    replot();
}

void SignalChannelPlot::onStartScan() {}

void SignalChannelPlot::onStopScan()
{
    deleteCurves();
    networkCount = 0;
    firstData = true;
}

void SignalChannelPlot::EmptyCurveData()
{
    deleteCurves();
    replot();
}

void SignalChannelPlot::deleteCurves()
{
    for (const pointData &entry : qAsConst(curveMap)) {
        delete entry.curve;
        delete entry.marker;
    }
    curveMap.clear();
}

#include "graphs/signalchannelplot.h"

#include "graphs/apexmarker.h"
#include "graphs/curvecolors.h"
#include "graphs/emptynotice.h"
#include "graphs/graphaccessible.h"
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
// Of a triangle: how many corners, and which of them is the apex.
const int Corners = 3;
const int Apex = 1;

/// Draws the names `back` only where `front` leaves them room: through a veil they would blur what
/// is written on it.
void drawBehind(QPainter *painter, const QRectF &canvasRect,
    const QVector<const ApexMarker *> &back, const QVector<const ApexMarker *> &front)
{
    if (back.isEmpty())
        return;
    QRegion room(canvasRect.toAlignedRect());
    for (const ApexMarker *marker : front)
        room -= marker->nameRect().toAlignedRect();
    painter->save();
    painter->setClipRegion(room, Qt::IntersectClip);
    for (const ApexMarker *marker : back) {
        marker->drawVeil(painter);
        marker->drawText(painter);
    }
    painter->restore();
}
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

    entry.marker = new ApexMarker(record.ssid, color);
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
    GraphAccessible::tell(this);
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
    EmptyNotice::Draw(*this, m_band.emptyNotice, painter, canvasRect);
    drawNames(painter, canvasRect, maps);
}

/// The strongest first.
QVector<SignalChannelPlot::DrawnName> SignalChannelPlot::drawnNames() const
{
    QVector<DrawnName> names;
    for (const pointData &entry : curveMap) {
        if (!entry.marker->isDrawn())
            continue;
        // Of the triangle as it is drawn: a new signal has moved the marker, the triangle follows
        // with the next tick.
        const bool hasTriangle = entry.curve->dataSize() == static_cast<std::size_t>(Corners);
        names.append(
            {entry.marker, hasTriangle ? entry.curve->sample(Apex) : entry.marker->value()});
    }
    std::stable_sort(names.begin(), names.end(),
        [](const DrawnName &one, const DrawnName &other) { return one.apex.y() > other.apex.y(); });
    return names;
}

/// Networks of one channel are often as strong as each other: their names would hide each other.
/// Whoever is stronger stays at its apex, the weaker ones step down or behind. Names that lie
/// outside are in nobody's way.
void SignalChannelPlot::drawNames(
    QPainter *painter, const QRectF &canvasRect, const QwtScaleMap maps[axisCnt]) const
{
    QVector<ApexMarker *> markers;
    QVector<QRectF> rects;
    for (const DrawnName &name : drawnNames()) {
        const QPointF apex(
            maps[xBottom].transform(name.apex.x()), maps[m_band.dBmAxis].transform(name.apex.y()));
        if (!name.marker->place(canvasRect, apex, painter->font()))
            continue;
        markers.append(name.marker);
        rects.append(name.marker->nameRect());
    }
    const QVector<std::optional<double>> ways = spreadNames(rects, canvasRect);
    QVector<const ApexMarker *> front;
    QVector<const ApexMarker *> back;
    for (int i = markers.size() - 1; i >= 0; --i) {
        ApexMarker *const marker = markers.at(i);
        if (ways.at(i))
            marker->moveName(*ways.at(i));
        (ways.at(i) ? front : back).append(marker);
    }
    drawBehind(painter, canvasRect, back, front);
    for (const ApexMarker *marker : qAsConst(front))
        marker->drawVeil(painter);
    for (const ApexMarker *marker : qAsConst(front))
        marker->drawLine(painter);
    for (const ApexMarker *marker : qAsConst(front))
        marker->drawText(painter);
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

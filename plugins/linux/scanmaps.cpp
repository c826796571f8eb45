#include "linux/scanmaps.h"

namespace LinuxWifi
{

namespace
{
// What a driver that gives no signal is shown with: the bottom of the scale. 0 would be the top.
const int UnknownSignal = -100;

QString shownName(const AccessPoint &accessPoint)
{
    // Its own name, so that it can be ticked and told from the next.
    return accessPoint.ssid.isEmpty() ? QStringLiteral("(hidden) ") + accessPoint.bssid
                                      : accessPoint.ssid;
}

ScanMap scanMap(const AccessPoint &accessPoint)
{
    return {
        {QStringLiteral("ssid"), shownName(accessPoint)},
        {QStringLiteral("bssid"), accessPoint.bssid},
        {QStringLiteral("channel"), QString::number(accessPoint.channel)},
        {QStringLiteral("current_connected"), QStringLiteral("0")},
        {QStringLiteral("security_mode"), accessPoint.security},
        {QStringLiteral("WLAN_NETWORK_SIGNAL"),
            QString::number(accessPoint.signal.value_or(UnknownSignal))},
    };
}

void markJoined(
    ScanMap &map, const AccessPoint &accessPoint, const std::optional<StationLink> &link)
{
    map[QStringLiteral("current_connected")] = QStringLiteral("1");
    if (!link)
        return;
    LinkCounters counters;
    if (accessPoint.linkId)
        counters = link->byLink.value(*accessPoint.linkId);
    if (!counters.signal)
        counters.signal = link->signal;
    if (!counters.rate)
        counters.rate = link->rate;
    if (counters.signal)
        map[QStringLiteral("WLAN_NETWORK_SIGNAL")] = QString::number(*counters.signal);
    if (counters.rate)
        map[QStringLiteral("link_rate")] = QString::number(*counters.rate);
}
} // namespace

QList<ScanMap> scanMaps(const QVector<AccessPoint> &accessPoints, const QString &joined,
    const std::optional<StationLink> &link)
{
    QList<ScanMap> maps;
    maps.reserve(accessPoints.size());
    for (const AccessPoint &accessPoint : accessPoints) {
        maps.append(scanMap(accessPoint));
        if (accessPoint.bssid == joined)
            markJoined(maps.last(), accessPoint, link);
    }
    return maps;
}

} // namespace LinuxWifi

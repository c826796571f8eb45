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
        {ScanKey::Ssid, shownName(accessPoint)},
        {ScanKey::Bssid, accessPoint.bssid},
        {ScanKey::Channel, QString::number(accessPoint.channel)},
        {ScanKey::Connected, QStringLiteral("0")},
        {ScanKey::Security, accessPoint.security},
        {ScanKey::Signal, QString::number(accessPoint.signal.value_or(UnknownSignal))},
    };
}

void markJoined(
    ScanMap &map, const AccessPoint &accessPoint, const std::optional<StationLink> &link)
{
    map[ScanKey::Connected] = ScanJoined;
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
        map[ScanKey::Signal] = QString::number(*counters.signal);
    if (counters.rate)
        map[ScanKey::LinkRate] = QString::number(*counters.rate);
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

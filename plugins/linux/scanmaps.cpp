#include "linux/scanmaps.h"

#include <algorithm>

namespace LinuxWifi
{

namespace
{
// What a driver that gives no signal is shown with: the bottom of the scale. 0 would be the top.
const int UnknownSignal = -100;

const StationLink *linkTo(const AccessPoint &accessPoint, const QVector<StationLink> &links)
{
    for (const StationLink &link : links) {
        if (link.address == accessPoint.bssid)
            return &link;
    }
    return nullptr;
}

/// Puts the joined access point at the front: with several, the one that there is a link to.
/// False when none is joined.
bool moveJoinedToFront(QVector<AccessPoint> &accessPoints, const QVector<StationLink> &links)
{
    const auto isJoined = [](const AccessPoint &accessPoint) { return accessPoint.joined; };
    auto chosen =
        std::find_if(accessPoints.begin(), accessPoints.end(), [&](const AccessPoint &accessPoint) {
            return accessPoint.joined && linkTo(accessPoint, links);
        });
    if (chosen == accessPoints.end())
        chosen = std::find_if(accessPoints.begin(), accessPoints.end(), isJoined);
    if (chosen == accessPoints.end())
        return false;
    std::rotate(accessPoints.begin(), chosen, chosen + 1);
    return true;
}

ScanMap scanMap(const AccessPoint &accessPoint)
{
    return {
        {QStringLiteral("ssid"), accessPoint.ssid},
        {QStringLiteral("bssid"), accessPoint.bssid},
        {QStringLiteral("channel"), QString::number(accessPoint.channel)},
        {QStringLiteral("current_connected"), QStringLiteral("0")},
        {QStringLiteral("security_mode"), accessPoint.security},
        {QStringLiteral("WLAN_NETWORK_SIGNAL"),
            QString::number(accessPoint.signal.value_or(UnknownSignal))},
    };
}
} // namespace

QList<ScanMap> scanMaps(
    QVector<AccessPoint> accessPoints, const QVector<StationLink> &links, const QString &joinedName)
{
    const bool joined = moveJoinedToFront(accessPoints, links);
    QList<ScanMap> maps;
    maps.reserve(accessPoints.size());
    for (const AccessPoint &accessPoint : qAsConst(accessPoints))
        maps.append(scanMap(accessPoint));
    if (!joined)
        return maps;

    ScanMap &map = maps.first();
    map[QStringLiteral("current_connected")] = QStringLiteral("1");
    if (accessPoints.first().ssid.isEmpty())
        map[QStringLiteral("ssid")] = joinedName;
    // A link of several radios has an address of its own.
    const StationLink *link = linkTo(accessPoints.first(), links);
    if (!link && !links.isEmpty())
        link = &links.first();
    if (link && link->signal)
        map[QStringLiteral("WLAN_NETWORK_SIGNAL")] = QString::number(*link->signal);
    if (link && link->rate)
        map[QStringLiteral("link_rate")] = QString::number(*link->rate);
    return maps;
}

} // namespace LinuxWifi

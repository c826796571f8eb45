#include "linux/linktraffic.h"

#include <algorithm>

namespace LinuxWifi
{

namespace
{
// What another link must be ahead by.
const quint64 MoreTraffic = 2; // times
const int MoreSignal = 6;      // dB
const int Unheard = -1000;

/// Counters begin anew when the machine joins again.
quint64 since(std::optional<quint64> before, std::optional<quint64> after)
{
    return before && after && *after > *before ? *after - *before : 0;
}
} // namespace

void LinkTraffic::take(const StationLink &link, qint64 now)
{
    if (link.address != m_address)
        *this = LinkTraffic();
    m_address = link.address;

    m_carried.clear();
    quint64 ofLinks = 0;
    for (auto it = link.byLink.cbegin(); it != link.byLink.cend(); ++it) {
        const quint64 bytes = since(m_links.value(it.key()).bytes, it->bytes);
        m_carried.insert(it.key(), bytes);
        ofLinks += bytes;
    }
    const quint64 bytes = std::max(since(m_bytes, link.bytes), ofLinks);
    if (now > m_at)
        m_busy = bytes * 1000 >= BusyBytesPerSecond * static_cast<quint64>(now - m_at);
    m_at = now;
    m_bytes = link.bytes;
    m_links = link.byLink;
}

quint64 LinkTraffic::carried(const AccessPoint &accessPoint) const
{
    return accessPoint.linkId ? m_carried.value(*accessPoint.linkId) : 0;
}

QString LinkTraffic::carrier(const QVector<AccessPoint> &accessPoints)
{
    const auto signal = [](const AccessPoint &accessPoint) {
        return accessPoint.signal.value_or(Unheard);
    };
    const AccessPoint *current = nullptr;
    const AccessPoint *best = nullptr;
    for (const AccessPoint &accessPoint : accessPoints) {
        if (!accessPoint.joined)
            continue;
        if (accessPoint.bssid == m_carrier)
            current = &accessPoint;
        const bool ahead =
            !best || carried(accessPoint) > carried(*best) ||
            (carried(accessPoint) == carried(*best) && signal(accessPoint) > signal(*best));
        if (ahead)
            best = &accessPoint;
    }
    if (current) {
        const bool moreTraffic = carried(*best) > MoreTraffic * carried(*current);
        const bool moreSignal = carried(*best) == 0 && carried(*current) == 0 &&
                                signal(*best) >= signal(*current) + MoreSignal;
        if (!moreTraffic && !moreSignal)
            best = current;
    }
    m_carrier = best ? best->bssid : QString();
    return m_carrier;
}

} // namespace LinuxWifi

#ifndef AIRLUME_LINUX_LINKTRAFFIC_H
#define AIRLUME_LINUX_LINKTRAFFIC_H

#include "linux/wifikernel.h"

namespace LinuxWifi
{

/// How much goes over the link to the joined network, and over which of several (Wi-Fi 7). Pure;
/// times are ms of a clock that never goes back.
class LinkTraffic
{
public:
    /// From this on a scan would be felt: a call over the network takes some 20 kB/s.
    static constexpr quint64 BusyBytesPerSecond = 8000;

    /// Takes the counters as they were at `now`.
    void take(const StationLink &link, qint64 now);

    /// Whether the user sends or receives something, judged by the last two counts.
    bool busy() const { return m_busy; }

    /// The BSSID of the access point among `accessPoints` that carries the traffic; empty when the
    /// kernel marks none as joined. Of several it is the one that carries most and, where the
    /// kernel does not tell, the strongest; it changes only when another is clearly ahead.
    QString carrier(const QVector<AccessPoint> &accessPoints);

private:
    quint64 carried(const AccessPoint &accessPoint) const;

    QString m_address;
    qint64 m_at = 0;
    std::optional<quint64> m_bytes;
    QMap<int, LinkCounters> m_links;
    QMap<int, quint64> m_carried; ///< By link, between the last two counts.
    bool m_busy = false;
    QString m_carrier;
};

} // namespace LinuxWifi

#endif

#ifndef AIRLUME_LINUX_WIFIKERNEL_H
#define AIRLUME_LINUX_WIFIKERNEL_H

#include <QMap>
#include <QString>
#include <QVector>

#include <optional>

namespace LinuxWifi
{

/// A Wi-Fi interface with a network device.
struct WifiInterface {
    /// What it is used as. Only a station hears networks and can be joined to one.
    enum class Mode {
        Station,
        AccessPoint, ///< A hotspot.
        Monitor,
        Other, ///< Ad hoc, mesh, …
    };
    int index = 0;
    QString name;
    QString address;    ///< Hardware address, as in "02:00:00:00:01:00".
    QString joinedName; ///< Name of the network it is joined to; empty when it is not.
    Mode mode = Mode::Station;
};

/// What keeps an interface from working, as far as it can be seen without asking nl80211.
struct LinkState {
    bool up = false;
    bool softBlocked = false; ///< Radio switched off by a program.
    bool hardBlocked = false; ///< Radio switched off by a switch or key of the machine.

    bool usable() const { return up && !softBlocked && !hardBlocked; }
};

/// An access point in the kernel's scan cache.
struct AccessPoint {
    QString bssid;
    QString ssid;     ///< Empty when hidden.
    QString security; ///< In words.
    int channel = 0;
    int frequency = 0;         ///< MHz of the primary channel; 0 when not told.
    std::optional<int> signal; ///< dBm, -100 to -1; a driver may give none.
    bool joined = false;
    /// When it was last heard, ms of the boot-time clock (which goes on while suspended).
    std::optional<qint64> heardAt;
    /// The same as an age in ms, where the driver does not stamp what it receives. After a scan
    /// it is the scan's end for whatever answered.
    std::optional<qint64> age;
    QString mldAddress;        ///< Of a multi-link device (Wi-Fi 7), else empty.
    std::optional<int> linkId; ///< The link of such a device that uses this access point.
};

/// What the driver counts about the link to one station, or about one link of several.
struct LinkCounters {
    std::optional<int> signal;    ///< dBm, -100 to -1, about one second old.
    std::optional<int> rate;      ///< Transmit rate in Mbps.
    std::optional<quint64> bytes; ///< Sent and received since it was joined.
};

/// The link to one station, which for an interface in station mode is its access point.
struct StationLink : LinkCounters {
    QString address;                ///< The BSSID, or a multi-link device's own address.
    QMap<int, LinkCounters> byLink; ///< Of a multi-link device, as far as the kernel tells.
};

/// What the kernel knows about Wi-Fi. The functions return 0 or an errno; on an error their results
/// are empty. None waits for the radio. One thread at a time.
class WifiKernel
{
public:
    /// The kernel has no nl80211: no driver of a Wi-Fi adapter has been loaded.
    static const int NoWifiSupport;

    virtual ~WifiKernel() = default;

    /// All interfaces, in the kernel's order.
    virtual int interfaces(QVector<WifiInterface> &interfaces) = 0;
    /// An interface that is gone gives a state that is not usable.
    virtual LinkState linkState(const QString &name) = 0;
    /// The scan cache of one interface's radio. It holds old entries while the radio is off.
    virtual int accessPoints(int index, QVector<AccessPoint> &accessPoints) = 0;
    /// The link to the station of this hardware address; ENOENT when there is none.
    virtual int stationLink(int index, const QString &address, StationLink &link) = 0;
    /// The links to all stations. Several drivers answer only one of these two.
    virtual int stationLinks(int index, QVector<StationLink> &links) = 0;
    /// Starts a scan of all channels and returns at once. EPERM without CAP_NET_ADMIN, EBUSY while
    /// a scan is running.
    virtual int triggerScan(int index) = 0;
    /// Gives back what is held open. The next call opens it again.
    virtual void close() = 0;
};

} // namespace LinuxWifi

#endif

#ifndef AIRLUME_LINUX_WIFIKERNEL_H
#define AIRLUME_LINUX_WIFIKERNEL_H

#include <QString>
#include <QVector>

#include <optional>

namespace LinuxWifi
{

/// A Wi-Fi interface in station mode.
struct WifiInterface {
    int index = 0;
    QString name;
    QString address;    ///< Hardware address, as in "02:00:00:00:01:00".
    QString joinedName; ///< Name of the network it is joined to; empty when it is not.
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
    std::optional<int> signal; ///< dBm; a driver may give none.
    bool joined = false;
};

/// The link to one station, which for an interface in station mode is its access point.
struct StationLink {
    QString address;
    std::optional<int> signal; ///< dBm, about one second old.
    std::optional<int> rate;   ///< Transmit rate in Mbps.
};

/// What the kernel knows about Wi-Fi. The functions return 0 or an errno; on an error their lists
/// are empty. None waits for the radio. One thread at a time.
class WifiKernel
{
public:
    /// The kernel has no nl80211: no driver of a Wi-Fi adapter has been loaded.
    static const int NoWifiSupport;

    virtual ~WifiKernel() = default;

    /// All interfaces in station mode, in the kernel's order.
    virtual int interfaces(QVector<WifiInterface> &interfaces) = 0;
    /// An interface that is gone gives a state that is not usable.
    virtual LinkState linkState(const QString &name) = 0;
    /// The scan cache of one interface's radio. It holds old entries while the radio is off.
    virtual int accessPoints(int index, QVector<AccessPoint> &accessPoints) = 0;
    virtual int stationLinks(int index, QVector<StationLink> &links) = 0;
    /// Starts a scan of all channels and returns at once. EPERM without CAP_NET_ADMIN, EBUSY while
    /// a scan is running.
    virtual int triggerScan(int index) = 0;
    /// Gives back what is held open. The next call opens it again.
    virtual void close() = 0;
};

} // namespace LinuxWifi

#endif

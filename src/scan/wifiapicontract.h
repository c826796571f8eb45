#ifndef AIRLUME_SCAN_WIFIAPICONTRACT_H
#define AIRLUME_SCAN_WIFIAPICONTRACT_H

#include <QString>

/// What a back end and its users agree on beyond the functions of WiFiApiInterface. Qt Core only.

/// Name of a back end's file on every platform. Qt looks for it on its library paths.
inline const QString WiFiApiLibrary = QStringLiteral("libWiFiApiPlugin.dylib");

/// Keys of a scan map.
namespace ScanKey
{
inline const QString Ssid = QStringLiteral("ssid");
inline const QString Bssid = QStringLiteral("bssid");
inline const QString Channel = QStringLiteral("channel");
inline const QString Connected = QStringLiteral("current_connected");
inline const QString Security = QStringLiteral("security_mode");
inline const QString Signal = QStringLiteral("WLAN_NETWORK_SIGNAL");
inline const QString LinkRate = QStringLiteral("link_rate");
} // namespace ScanKey

/// The value of ScanKey::Connected of the joined network. Any other text means not joined.
inline const QString ScanJoined = QStringLiteral("1");

/// Added to the number of a channel at 6 GHz: 6005 is channel 5 there, which 5 alone would put at
/// 2.4 GHz.
constexpr int ScanChannel6GHz = 6000;

/// Index of the interface that Airlume uses out of `count` in the back end's order; -1 without any.
///
/// `isUsable(index)` is asked in order, and not at all when listing them failed: the list counts
/// even then. On purpose, a usable first interface does not end the search: a usable later one,
/// such as an adapter plugged in, takes its place.
template <typename IsUsable> int UsedInterface(bool listed, int count, IsUsable isUsable)
{
    for (int i = 0; listed && i < count; ++i) {
        if (isUsable(i) && i > 0)
            return i;
    }
    return count > 0 ? 0 : -1;
}

#endif

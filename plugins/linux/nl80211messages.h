#ifndef AIRLUME_LINUX_NL80211MESSAGES_H
#define AIRLUME_LINUX_NL80211MESSAGES_H

#include "linux/wifikernel.h"

struct nlmsghdr;

namespace LinuxWifi
{

// The kernel's nl80211 messages as values. Pure. Each gives nothing when the message is of another
// kind or lacks what makes it useful; attributes shorter than their type are refused by libnl.

/// What the kernel tells everybody about a scan (multicast group "scan").
struct ScanNotice {
    enum class Kind { Started, Finished, Aborted };
    Kind kind = Kind::Finished;
    int index = 0;            ///< Of the interface.
    bool probing = false;     ///< It asks the access points to answer.
    QVector<int> frequencies; ///< MHz.
};

/// NL80211_CMD_NEW_INTERFACE. Nothing for an interface without a network device (a P2P device).
std::optional<WifiInterface> parseInterface(nlmsghdr *message);

/// NL80211_CMD_NEW_SCAN_RESULTS of a dump.
std::optional<AccessPoint> parseAccessPoint(nlmsghdr *message);

/// NL80211_CMD_NEW_STATION.
std::optional<StationLink> parseStationLink(nlmsghdr *message);

/// NL80211_CMD_TRIGGER_SCAN, NL80211_CMD_NEW_SCAN_RESULTS and NL80211_CMD_SCAN_ABORTED as events.
std::optional<ScanNotice> parseScanNotice(nlmsghdr *message);

} // namespace LinuxWifi

#endif

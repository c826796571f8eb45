#ifndef AIRLUME_LINUX_NL80211MESSAGES_H
#define AIRLUME_LINUX_NL80211MESSAGES_H

#include "linux/wifikernel.h"

struct nlmsghdr;

namespace LinuxWifi
{

// The kernel's nl80211 messages as values. Pure. Each gives nothing when the message is of another
// kind or lacks what makes it useful; attributes shorter than their type are refused by libnl.

/// NL80211_CMD_NEW_INTERFACE. Nothing for an interface that is not in station mode or has no
/// network device (a P2P device).
std::optional<WifiInterface> parseInterface(nlmsghdr *message);

/// NL80211_CMD_NEW_SCAN_RESULTS of a dump.
std::optional<AccessPoint> parseAccessPoint(nlmsghdr *message);

/// NL80211_CMD_NEW_STATION.
std::optional<StationLink> parseStationLink(nlmsghdr *message);

} // namespace LinuxWifi

#endif

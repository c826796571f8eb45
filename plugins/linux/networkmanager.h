#ifndef AIRLUME_LINUX_NETWORKMANAGER_H
#define AIRLUME_LINUX_NETWORKMANAGER_H

#include "linux/scanrequester.h"

namespace LinuxWifi
{

/// NetworkManager as seen through D-Bus.
struct NetworkManager {
    /// Address of the message bus; empty means the system bus.
    QString bus;
    /// How long one call may take, in ms. NetworkManager asks polkit before it answers.
    int timeoutMs = 5000;

    /// Asks for a scan with the named interface and waits for the answer: up to two calls' time.
    /// Every request has a connection of its own and looks the interface up anew, so that nothing
    /// is left over when the bus, NetworkManager or the adapter went away and came back.
    ScanAnswer requestScan(const QString &interface) const;
};

} // namespace LinuxWifi

#endif

#ifndef AIRLUME_TESTS_SUPPORT_TESTAIR_H
#define AIRLUME_TESTS_SUPPORT_TESTAIR_H

#include "scan/wifiapiinterface.h"
#include "scan/wifiproperty.h"

/// Makers of made-up access points.
namespace TestAir
{

/// A record as the scan thread would send it.
WifiProperty network(const QString &ssid, int rssi = -50, int channel = 6, bool connected = false);

/// `count` records "Network 000", "Network 001", … on varying channels and signals.
QVector<WifiProperty> networks(int count);

/// A scan map as a back end would return it.
ScanMap scanMap(const QString &ssid, const QString &bssid, int rssi = -50, int channel = 6,
    bool connected = false);

} // namespace TestAir

#endif

#ifndef AIRLUME_SCAN_WIFIAPI_H
#define AIRLUME_SCAN_WIFIAPI_H

#include <QString>

class WiFiApiInterface;

/// The back end in use; null when none could be loaded. Set once by the main window before the
/// threads start, then used by the discovery thread alone. Not owned: the plug-in stays loaded for
/// the life of the process.
extern WiFiApiInterface *_wifiApi_inf;

/// Name of the Wi-Fi interface to use: the first usable one among the second and later ones of the
/// back end's list, else the first of the list, else empty. Discovery thread only.
QString getWiFiNicUsableInWiFi();

#endif

#include "scan/wifiapi.h"

#include "scan/wifiapiinterface.h"

WiFiApiInterface *_wifiApi_inf = nullptr;

QString getWiFiNicUsableInWiFi()
{
    if (!_wifiApi_inf)
        return QString();

    QStringList nics;
    if (_wifiApi_inf->getWiFiNicList(nics)) {
        for (int i = 0; i < nics.size(); ++i) {
            // On purpose, a usable first interface does not end the search: a usable later one,
            // such as an adapter plugged in, takes its place.
            if (_wifiApi_inf->isWiFiNicUsable(nics.at(i), 0) && i > 0) {
                nics.swapItemsAt(0, i);
                break;
            }
        }
    }
    // The list counts even when the call failed.
    return nics.isEmpty() ? QString() : nics.first();
}

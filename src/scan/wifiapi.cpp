#include "scan/wifiapi.h"

#include "scan/wifiapiinterface.h"

WiFiApiInterface *_wifiApi_inf = nullptr;

QString getWiFiNicUsableInWiFi()
{
    if (!_wifiApi_inf)
        return QString();

    QStringList nics;
    const bool listed = _wifiApi_inf->getWiFiNicList(nics);
    const int used = UsedInterface(listed, nics.size(),
        [&nics](int i) { return _wifiApi_inf->isWiFiNicUsable(nics.at(i), 0); });
    return nics.value(used);
}

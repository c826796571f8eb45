#include "scan/wifiapiinterface.h"

#include <QObject>

/// A machine with one interface, "wlan0", that hears one network and is joined to it.
class MinimalBackend : public QObject, public WiFiApiInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WiFiApiInterface_iid)
    Q_INTERFACES(WiFiApiInterface)

public:
    bool getWiFiNicList(QStringList &nics) override
    {
        nics.append(QStringLiteral("wlan0"));
        return true;
    }

    bool isWiFiNicUsable(const QString &nic, int) override { return nic == QLatin1String("wlan0"); }

    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override
    {
        // An empty name is the usual case: take the interface you would choose yourself.
        if (!nic.isEmpty() && nic != QLatin1String("wlan0"))
            return false;
        networks.append({
            {ScanKey::Ssid, QStringLiteral("Test bench")},
            {ScanKey::Bssid, QStringLiteral("02:00:00:00:00:01")},
            {ScanKey::Channel, QStringLiteral("36")},
            {ScanKey::Connected, ScanJoined},
            {ScanKey::Security, QStringLiteral("WPA2-PSK")},
            {ScanKey::Signal, QStringLiteral("-48")},
            {ScanKey::LinkRate, QStringLiteral("433")},
        });
        return true;
    }

    // Airlume calls none of these, but each must be there for the others to keep their places.
    bool initWiFiApi() override { return true; }
    bool releaseWiFiApi() override { return true; }
    bool setWiFiRadio(const QString &, bool) override { return false; }
    bool startWiFiScan(const QString &) override { return false; }
    bool getConnectedNetworkMap(QString &, ScanMap &) override { return false; }
    bool getWiFiNicAddress(const QString &, QString &) override { return false; }
};

#include "minimalbackend.moc"

#include "support/testair.h"

namespace TestAir
{

WifiProperty network(const QString &ssid, int rssi, int channel, bool connected)
{
    WifiProperty property;
    property.rssi = rssi;
    property.channel = channel;
    property.spareB = -1;
    property.connected = connected;
    property.bssid = QStringLiteral("02:00:00:") + QString::number(qHash(ssid) & 0xffffff, 16);
    property.security = QStringLiteral("WPA2-PSK");
    property.ssid = ssid;
    return property;
}

QVector<WifiProperty> networks(int count)
{
    static const int channels[] = {1, 6, 11, 3, 36, 40, 48, 100, 149, 161, 9, 13};
    QVector<WifiProperty> made;
    made.reserve(count);
    for (int i = 0; i < count; ++i) {
        made.append(network(QStringLiteral("Network %1").arg(i, 3, 10, QLatin1Char('0')),
            -30 - (i * 7) % 65, channels[i % 12]));
    }
    return made;
}

ScanMap scanMap(const QString &ssid, const QString &bssid, int rssi, int channel, bool connected)
{
    return {
        {ScanKey::Ssid, ssid},
        {ScanKey::Bssid, bssid},
        {ScanKey::Channel, QString::number(channel)},
        {ScanKey::Connected, connected ? QStringLiteral("1") : QStringLiteral("0")},
        {ScanKey::Security, QStringLiteral("WPA2-PSK")},
        {ScanKey::Signal, QString::number(rssi)},
    };
}

} // namespace TestAir

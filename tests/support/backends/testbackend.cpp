#include "testbackend.h"

TestBackend::TestBackend()
{
    Kind::prepare();
}

bool TestBackend::isWiFiNicUsable(const QString &nic, int)
{
    return Kind::isUsable(nic);
}

bool TestBackend::getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks)
{
    return Kind::query(nic, networks);
}

bool TestBackend::getWiFiNicList(QStringList &nics)
{
    return Kind::list(nics);
}

namespace Air
{

namespace
{

QString address(int index)
{
    const QString digits = QStringLiteral("%1").arg(index, 8, 16, QLatin1Char('0'));
    return QStringLiteral("02:00:") + digits.mid(0, 2) + QLatin1Char(':') + digits.mid(2, 2) +
           QLatin1Char(':') + digits.mid(4, 2) + QLatin1Char(':') + digits.mid(6, 2);
}

} // namespace

ScanMap network(int index)
{
    static constexpr int channels[] = {1, 6, 11, 36, 44, 100, 149, 13};
    ScanMap map{
        {QStringLiteral("ssid"), QStringLiteral("Network %1").arg(index, 4, 10, QLatin1Char('0'))},
        {QStringLiteral("bssid"), address(index)},
        {QStringLiteral("channel"), QString::number(channels[index % 8])},
        {QStringLiteral("current_connected"),
            index == 0 ? QStringLiteral("1") : QStringLiteral("0")},
        {QStringLiteral("security_mode"), QStringLiteral("WPA2-PSK")},
        {QStringLiteral("WLAN_NETWORK_SIGNAL"), QString::number(-35 - index % 60)},
    };
    if (index == 0)
        map.insert(QStringLiteral("link_rate"), QStringLiteral("144"));
    return map;
}

QList<ScanMap> networks(int count)
{
    QList<ScanMap> made;
    made.reserve(count);
    for (int i = 0; i < count; ++i)
        made.append(network(i));
    return made;
}

QString setting(const char *variable, const QString &fallback)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariable(variable) : fallback;
}

} // namespace Air

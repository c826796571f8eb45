#include "testbackend.h"

bool Kind::list(QStringList &nics)
{
    nics.append(QStringLiteral("test0"));
    return true;
}

bool Kind::isUsable(const QString &)
{
    return true;
}

bool Kind::query(QString &, QList<ScanMap> &networks)
{
    networks += Air::networks(3);
    return true;
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
        {ScanKey::Ssid, QStringLiteral("Network %1").arg(index, 4, 10, QLatin1Char('0'))},
        {ScanKey::Bssid, address(index)},
        {ScanKey::Channel, QString::number(channels[index % 8])},
        {ScanKey::Connected, index == 0 ? ScanJoined : QStringLiteral("0")},
        {ScanKey::Security, QStringLiteral("WPA2-PSK")},
        {ScanKey::Signal, QString::number(-35 - index % 60)},
    };
    if (index == 0)
        map.insert(ScanKey::LinkRate, QStringLiteral("144"));
    return map;
}

ScanMap networkWith(int index, const QString &key, const QString &value)
{
    ScanMap map = network(index);
    map.insert(key, value);
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

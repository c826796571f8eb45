// Values that no back end should return: missing keys, no numbers, huge numbers, a name of
// 1 MB, control characters, markup, two joined networks, one access point twice.
#include "testbackend.h"

namespace
{
QList<ScanMap> air;

ScanMap with(int index, const char *key, const QString &value)
{
    ScanMap map = Air::network(index);
    map.insert(QLatin1String(key), value);
    return map;
}

QList<ScanMap> broken()
{
    QList<ScanMap> maps{
        ScanMap(),
        with(2, "channel", QStringLiteral("eleven")),
        with(3, "channel", QStringLiteral("99999999999999999999")),
        with(4, "channel", QStringLiteral("-3")),
        with(5, "channel", QStringLiteral("2147483648")),
        with(6, "WLAN_NETWORK_SIGNAL", QStringLiteral("-67dBm")),
        with(7, "WLAN_NETWORK_SIGNAL", QStringLiteral("-2147483649")),
        with(8, "WLAN_NETWORK_SIGNAL", QStringLiteral("5")),
        with(9, "current_connected", QStringLiteral("true")),
        with(10, "current_connected", QStringLiteral("01")),
        with(11, "current_connected", QStringLiteral("1")),
        with(12, "current_connected", QStringLiteral("1")),
        with(13, "security_mode", QString()),
        with(14, "bssid", QStringLiteral("not an address")),
        with(15, "bssid", QString()),
        with(16, "link_rate", QStringLiteral("fast")),
        with(17, "ssid", QString(1024 * 1024, QLatin1Char('x'))),
        with(18, "ssid", QStringLiteral("\x1b[2J\x07<script>\n%1%s")),
        with(19, "ssid", QString(QChar(0xd800))),
        Air::network(20),
        Air::network(20),
    };
    const QStringList keys = Air::network(21).keys();
    for (const QString &key : keys) {
        ScanMap map = Air::network(21);
        map.remove(key);
        maps.append(map);
    }
    return maps;
}
} // namespace

namespace Kind
{

void prepare()
{
    air = broken();
}

bool list(QStringList &nics)
{
    nics << QString() << QStringLiteral("test0") << QStringLiteral("test0");
    return true;
}

bool isUsable(const QString &)
{
    return true;
}

bool query(QString &, QList<ScanMap> &networks)
{
    networks += air;
    return true;
}

} // namespace Kind

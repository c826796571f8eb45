// Values that no back end should return: missing keys, no numbers, huge numbers, a name of
// 1 MB, control characters, markup, two joined networks, one access point twice.
#include "testbackend.h"

namespace
{
QList<ScanMap> broken()
{
    QList<ScanMap> maps{
        ScanMap(),
        Air::networkWith(2, ScanKey::Channel, QStringLiteral("eleven")),
        Air::networkWith(3, ScanKey::Channel, QStringLiteral("99999999999999999999")),
        Air::networkWith(4, ScanKey::Channel, QStringLiteral("-3")),
        Air::networkWith(5, ScanKey::Channel, QStringLiteral("2147483648")),
        Air::networkWith(6, ScanKey::Signal, QStringLiteral("-67dBm")),
        Air::networkWith(7, ScanKey::Signal, QStringLiteral("-2147483649")),
        Air::networkWith(8, ScanKey::Signal, QStringLiteral("5")),
        Air::networkWith(9, ScanKey::Connected, QStringLiteral("true")),
        Air::networkWith(10, ScanKey::Connected, QStringLiteral("01")),
        Air::networkWith(11, ScanKey::Connected, QStringLiteral("1")),
        Air::networkWith(12, ScanKey::Connected, QStringLiteral("1")),
        Air::networkWith(13, ScanKey::Security, QString()),
        Air::networkWith(14, ScanKey::Bssid, QStringLiteral("not an address")),
        Air::networkWith(15, ScanKey::Bssid, QString()),
        Air::networkWith(16, ScanKey::LinkRate, QStringLiteral("fast")),
        Air::networkWith(17, ScanKey::Ssid, QString(1024 * 1024, QLatin1Char('x'))),
        Air::networkWith(18, ScanKey::Ssid, QStringLiteral("\x1b[2J\x07<script>\n%1%s")),
        Air::networkWith(19, ScanKey::Ssid, QString(QChar(0xd800))),
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

class Garbage : public Kind
{
    bool list(QStringList &nics) override
    {
        nics << QString() << QStringLiteral("test0") << QStringLiteral("test0");
        return true;
    }

    bool query(QString &, QList<ScanMap> &networks) override
    {
        networks += m_air;
        return true;
    }

    const QList<ScanMap> m_air = broken();
};
} // namespace

AIRLUME_TEST_KIND(Garbage)

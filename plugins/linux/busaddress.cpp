#include "linux/busaddress.h"

#include <QStringList>

namespace LinuxWifi
{

QVector<BusAddress> busAddresses(const QString &list)
{
    QVector<BusAddress> addresses;
    const QString transport = QStringLiteral("unix:");
    const QStringList texts = list.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString &text : texts) {
        if (!text.startsWith(transport))
            continue;
        const QStringList pairs = text.mid(transport.size()).split(QLatin1Char(','));
        for (const QString &pair : pairs) {
            const QByteArray key = pair.section(QLatin1Char('='), 0, 0).toLatin1();
            const QByteArray value =
                QByteArray::fromPercentEncoding(pair.section(QLatin1Char('='), 1).toUtf8());
            if (key == "path" && !value.isEmpty())
                addresses.append({text, value});
            else if (key == "abstract" && !value.isEmpty())
                addresses.append({text, '\0' + value});
        }
    }
    return addresses;
}

QString systemBusAddresses()
{
    const QString set = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    return set.isEmpty() ? QStringLiteral("unix:path=/var/run/dbus/system_bus_socket") : set;
}

} // namespace LinuxWifi

#ifndef AIRLUME_LINUX_BUSADDRESS_H
#define AIRLUME_LINUX_BUSADDRESS_H

#include <QByteArray>
#include <QString>
#include <QVector>

namespace LinuxWifi
{

/// One way to a message bus over a Unix socket.
struct BusAddress {
    QString text;      ///< As it stands in the list of addresses.
    QByteArray socket; ///< Path of the socket; begins with a zero byte when it is an abstract name.
};

/// The Unix sockets in a list of addresses in the form that D-Bus has for them
/// ("unix:path=/run/bus;unix:abstract=name,guid=..."), in their order. Other ways, as over TCP, are
/// left out: nothing can be told of them without waiting. Pure.
QVector<BusAddress> busAddresses(const QString &list);

/// The system bus' addresses: the environment's, or the usual one.
QString systemBusAddresses();

} // namespace LinuxWifi

#endif

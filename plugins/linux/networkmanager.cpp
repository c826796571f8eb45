#include "linux/networkmanager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QUuid>
#include <QVariantMap>

namespace LinuxWifi
{

namespace
{
const QString Service = QStringLiteral("org.freedesktop.NetworkManager");
const QString ManagerPath = QStringLiteral("/org/freedesktop/NetworkManager");
const QString ManagerInterface = QStringLiteral("org.freedesktop.NetworkManager");
const QString WirelessInterface = QStringLiteral("org.freedesktop.NetworkManager.Device.Wireless");

ScanAnswer answerOf(const QDBusMessage &error)
{
    using Result = ScanAnswer::Result;
    struct Meaning {
        const char *name;
        Result result;
    };
    // "No such method" is how the bus says that the adapter's object is gone.
    static const Meaning meanings[] = {
        {"org.freedesktop.DBus.Error.ServiceUnknown", Result::NoService},
        {"org.freedesktop.DBus.Error.NameHasNoOwner", Result::NoService},
        {"org.freedesktop.DBus.Error.Disconnected", Result::NoBus},
        {"org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted},
        {"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", Result::NotPermitted},
        {"org.freedesktop.NetworkManager.PermissionDenied", Result::NotPermitted},
        {"org.freedesktop.NetworkManager.Device.NotAllowed", Result::NotAvailable},
        {"org.freedesktop.NetworkManager.UnknownDevice", Result::NoInterface},
        {"org.freedesktop.DBus.Error.UnknownMethod", Result::NoInterface},
        {"org.freedesktop.DBus.Error.UnknownObject", Result::NoInterface},
        {"org.freedesktop.DBus.Error.NoReply", Result::NoReply},
        {"org.freedesktop.DBus.Error.Timeout", Result::NoReply},
        {"org.freedesktop.DBus.Error.TimedOut", Result::NoReply},
    };
    const QString detail = error.errorName() + QStringLiteral(": ") + error.errorMessage();
    for (const Meaning &meaning : meanings) {
        if (error.errorName() == QLatin1String(meaning.name))
            return {meaning.result, detail};
    }
    if (error.errorName().startsWith(QStringLiteral("org.freedesktop.DBus.Error.Spawn.")))
        return {Result::NoService, detail};
    return {Result::Failed, detail};
}

ScanAnswer requestScanOver(const QDBusConnection &bus, const QString &interface, int timeoutMs)
{
    QDBusMessage find = QDBusMessage::createMethodCall(
        Service, ManagerPath, ManagerInterface, QStringLiteral("GetDeviceByIpIface"));
    find << interface;
    const QDBusMessage found = bus.call(find, QDBus::Block, timeoutMs);
    if (found.type() != QDBusMessage::ReplyMessage)
        return answerOf(found);
    const QString device = found.arguments().value(0).value<QDBusObjectPath>().path();

    QDBusMessage scan = QDBusMessage::createMethodCall(
        Service, device, WirelessInterface, QStringLiteral("RequestScan"));
    scan << QVariantMap();
    const QDBusMessage scanned = bus.call(scan, QDBus::Block, timeoutMs);
    if (scanned.type() != QDBusMessage::ReplyMessage)
        return answerOf(scanned);
    return {ScanAnswer::Result::Accepted, {}};
}
} // namespace

ScanAnswer NetworkManager::requestScan(const QString &interface) const
{
    const QString name = QStringLiteral("airlume-scan-") + QUuid::createUuid().toString();
    ScanAnswer answer;
    {
        const QDBusConnection connection =
            bus.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, name)
                          : QDBusConnection::connectToBus(bus, name);
        if (connection.isConnected())
            answer = requestScanOver(connection, interface, timeoutMs);
        else
            answer = {ScanAnswer::Result::NoBus, connection.lastError().message()};
    }
    QDBusConnection::disconnectFromBus(name);
    return answer;
}

} // namespace LinuxWifi

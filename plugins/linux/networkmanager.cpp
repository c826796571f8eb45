#include "linux/networkmanager.h"

#include "linux/buserror.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

namespace LinuxWifi
{

namespace
{
using Result = ScanAnswer::Result;

const QString Service = QStringLiteral("org.freedesktop.NetworkManager");
const QString ManagerPath = QStringLiteral("/org/freedesktop/NetworkManager");
const QString DeviceInterface = QStringLiteral("org.freedesktop.NetworkManager.Device");
const QString WirelessInterface = QStringLiteral("org.freedesktop.NetworkManager.Device.Wireless");
const uint Unmanaged = 10; // of NMDeviceState

const QVector<ErrorMeaning> Meanings = {
    {"org.freedesktop.NetworkManager.PermissionDenied", Result::NotPermitted},
    {"org.freedesktop.NetworkManager.Device.NotAllowed", Result::NotAvailable},
    {"org.freedesktop.NetworkManager.UnknownDevice", Result::NoInterface},
};
} // namespace

NetworkManager::NetworkManager(BusCaller &bus, const Patience &patience)
    : m_bus(bus)
    , m_patience(patience)
{
}

Manager NetworkManager::manager() const
{
    return Manager::NetworkManager;
}

QString NetworkManager::service() const
{
    return Service;
}

void NetworkManager::find(const QString &interface, QObject *context, const Found &found)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        Service, ManagerPath, Service, QStringLiteral("GetDeviceByIpIface"));
    call << interface;
    m_bus.call(call, m_patience.callMs, context, [this, context, found](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage)
            findState(reply.arguments().value(0).value<QDBusObjectPath>().path(), context, found);
        else
            found(findingOf(answerOf(reply, manager(), Meanings)));
    });
}

void NetworkManager::findState(const QString &object, QObject *context, const Found &found)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        Service, object, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << DeviceInterface << QStringLiteral("State");
    m_bus.call(call, m_patience.callMs, context, [this, object, found](const QDBusMessage &reply) {
        if (reply.type() != QDBusMessage::ReplyMessage)
            found(findingOf(answerOf(reply, manager(), Meanings)));
        else if (reply.arguments().value(0).value<QDBusVariant>().variant().toUInt() == Unmanaged)
            found({Finding::State::Unknown, {}, {}});
        else
            found({Finding::State::Managed, object, {}});
    });
}

void NetworkManager::scan(const QString &object, QObject *context, const Scanned &scanned)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        Service, object, WirelessInterface, QStringLiteral("RequestScan"));
    call << QVariantMap();
    m_bus.call(call, m_patience.scanMs, context, [this, scanned](const QDBusMessage &reply) {
        scanned(answerOf(reply, manager(), Meanings));
    });
}

} // namespace LinuxWifi

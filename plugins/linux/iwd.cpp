#include "linux/iwd.h"

#include "linux/buserror.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>

namespace LinuxWifi
{

namespace
{
using Result = ScanAnswer::Result;
using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

const QString Service = QStringLiteral("net.connman.iwd");
const QString DeviceInterface = QStringLiteral("net.connman.iwd.Device");
const QString StationInterface = QStringLiteral("net.connman.iwd.Station");

const QVector<ErrorMeaning> Meanings = {
    // It is scanning already, or joins a network and will scan after that.
    {"net.connman.iwd.InProgress", Result::Accepted},
    {"net.connman.iwd.Busy", Result::Accepted},
    {"net.connman.iwd.PermissionDenied", Result::NotPermitted},
    {"net.connman.iwd.NotAvailable", Result::NotAvailable},
    {"net.connman.iwd.NotFound", Result::NoInterface},
};

Finding findingIn(const Objects &objects, const QString &interface)
{
    for (auto object = objects.begin(); object != objects.end(); ++object) {
        const QVariantMap device = object->value(DeviceInterface);
        if (device.value(QStringLiteral("Name")).toString() != interface)
            continue;
        if (object->contains(StationInterface))
            return {Finding::State::Managed, object.key().path(), {}};
        // Switched off, or an access point.
        const QString detail = QStringLiteral("mode %1, powered %2")
                                   .arg(device.value(QStringLiteral("Mode")).toString(),
                                       device.value(QStringLiteral("Powered")).toString());
        return {Finding::State::Refused, {}, {Result::NotAvailable, detail, Manager::Iwd}};
    }
    return {};
}
} // namespace

Iwd::Iwd(BusCaller &bus, const Patience &patience)
    : m_bus(bus)
    , m_patience(patience)
{
}

Manager Iwd::manager() const
{
    return Manager::Iwd;
}

QString Iwd::service() const
{
    return Service;
}

void Iwd::find(const QString &interface, QObject *context, const Found &found)
{
    const QDBusMessage call = QDBusMessage::createMethodCall(Service, QStringLiteral("/"),
        QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects"));
    m_bus.call(
        call, m_patience.callMs, context, [this, interface, found](const QDBusMessage &reply) {
            if (reply.type() != QDBusMessage::ReplyMessage)
                found(findingOf(answerOf(reply, manager(), Meanings)));
            else if (reply.signature() == QStringLiteral("a{oa{sa{sv}}}"))
                found(findingIn(qdbus_cast<Objects>(reply.arguments().value(0)), interface));
            else
                found({});
        });
}

void Iwd::scan(const QString &object, QObject *context, const Scanned &scanned)
{
    const QDBusMessage call =
        QDBusMessage::createMethodCall(Service, object, StationInterface, QStringLiteral("Scan"));
    m_bus.call(call, m_patience.scanMs, context, [this, scanned](const QDBusMessage &reply) {
        scanned(answerOf(reply, manager(), Meanings));
    });
}

} // namespace LinuxWifi

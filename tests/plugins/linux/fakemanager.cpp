#include "fakemanager.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QUuid>

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

struct Technology {
    QDBusObjectPath object;
    QVariantMap properties;
};
using Technologies = QList<Technology>;

Q_DECLARE_METATYPE(Interfaces)
Q_DECLARE_METATYPE(Objects)
Q_DECLARE_METATYPE(Technology)
Q_DECLARE_METATYPE(Technologies)

QDBusArgument &operator<<(QDBusArgument &argument, const Technology &technology)
{
    argument.beginStructure();
    argument << technology.object << technology.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Technology &technology)
{
    argument.beginStructure();
    argument >> technology.object >> technology.properties;
    argument.endStructure();
    return argument;
}

FakeManager::FakeManager(const QString &address, const QString &service)
    : m_connection(QStringLiteral("fake-") + QUuid::createUuid().toString())
    , m_service(service)
{
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<Objects>();
    qDBusRegisterMetaType<Technology>();
    qDBusRegisterMetaType<Technologies>();
    QDBusConnection connection = QDBusConnection::connectToBus(address, m_connection);
    connection.registerVirtualObject(
        QStringLiteral("/"), this, QDBusConnection::VirtualObjectRegisterOption::SubPath);
    if (!connection.registerService(service))
        qFatal("no fake %s", qPrintable(service));
}

FakeManager::~FakeManager()
{
    leave();
}

void FakeManager::leave()
{
    QDBusConnection(m_connection).unregisterObject(QStringLiteral("/"));
    QDBusConnection::disconnectFromBus(m_connection);
}

void FakeManager::refuse(const QString &method, const QString &error)
{
    m_errors.insert(method, error);
}

int FakeManager::scans() const
{
    return m_calls.filter(QStringLiteral("Scan")).size();
}

bool FakeManager::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const QString method = message.member();
    m_calls.append(method);
    m_arguments = message.arguments();
    if (method == m_deadly)
        leave();
    else if (!m_errors.value(method).isEmpty())
        connection.send(
            message.createErrorReply(m_errors.value(method), QStringLiteral("the fake refuses")));
    else if (!m_silent.contains(method))
        connection.send(answer(message));
    return true;
}

QDBusMessage FakeManager::unknownMethod(const QDBusMessage &call)
{
    return call.createErrorReply(
        QDBusError::UnknownMethod, call.interface() + QLatin1Char('.') + call.member());
}

FakeNetworkManager::FakeNetworkManager(const QString &address)
    : FakeManager(address, QStringLiteral("org.freedesktop.NetworkManager"))
{
}

QDBusMessage FakeNetworkManager::answer(const QDBusMessage &call)
{
    const QString device = QStringLiteral("/org/freedesktop/NetworkManager/Devices/2");
    const QString deviceInterface = QStringLiteral("org.freedesktop.NetworkManager.Device");
    if (call.path() == QStringLiteral("/org/freedesktop/NetworkManager") &&
        call.interface() == QStringLiteral("org.freedesktop.NetworkManager") &&
        call.member() == QStringLiteral("GetDeviceByIpIface")) {
        if (call.arguments() == QVariantList{QStringLiteral("wlan0")})
            return call.createReply(QVariant::fromValue(QDBusObjectPath(device)));
        return call.createErrorReply(QStringLiteral("org.freedesktop.NetworkManager.UnknownDevice"),
            QStringLiteral("No device found for the requested iface."));
    }
    if (call.path() == device && call.member() == QStringLiteral("Get") &&
        call.arguments() == QVariantList{deviceInterface, QStringLiteral("State")})
        return call.createReply(QVariant::fromValue(QDBusVariant(m_state)));
    if (call.path() == device &&
        call.interface() == deviceInterface + QStringLiteral(".Wireless") &&
        call.member() == QStringLiteral("RequestScan") &&
        call.signature() == QStringLiteral("a{sv}"))
        return call.createReply();
    return unknownMethod(call);
}

FakeIwd::FakeIwd(const QString &address)
    : FakeManager(address, QStringLiteral("net.connman.iwd"))
{
}

QDBusMessage FakeIwd::answer(const QDBusMessage &call)
{
    const QDBusObjectPath adapter(QStringLiteral("/net/connman/iwd/0"));
    const QDBusObjectPath device(QStringLiteral("/net/connman/iwd/0/3"));
    const QString station = QStringLiteral("net.connman.iwd.Station");
    if (call.path() == QStringLiteral("/") &&
        call.interface() == QStringLiteral("org.freedesktop.DBus.ObjectManager") &&
        call.member() == QStringLiteral("GetManagedObjects")) {
        Objects objects;
        objects[adapter][QStringLiteral("net.connman.iwd.Adapter")] = {
            {QStringLiteral("Name"), QStringLiteral("phy0")}};
        objects[device][QStringLiteral("net.connman.iwd.Device")] = {
            {QStringLiteral("Name"), m_interface}, {QStringLiteral("Powered"), m_station},
            {QStringLiteral("Mode"), QStringLiteral("station")}};
        if (m_station)
            objects[device][station] = {{QStringLiteral("State"), QStringLiteral("disconnected")}};
        return call.createReply(QVariant::fromValue(objects));
    }
    if (m_station && call.path() == device.path() && call.interface() == station &&
        call.member() == QStringLiteral("Scan"))
        return call.createReply();
    return unknownMethod(call);
}

FakeWpaSupplicant::FakeWpaSupplicant(const QString &address)
    : FakeManager(address, QStringLiteral("fi.w1.wpa_supplicant1"))
{
}

QDBusMessage FakeWpaSupplicant::answer(const QDBusMessage &call)
{
    const QString root = QStringLiteral("/fi/w1/wpa_supplicant1");
    const QString object = root + QStringLiteral("/Interfaces/1");
    if (call.path() == root && call.interface() == QStringLiteral("fi.w1.wpa_supplicant1") &&
        call.member() == QStringLiteral("GetInterface")) {
        if (call.arguments() == QVariantList{m_interface})
            return call.createReply(QVariant::fromValue(QDBusObjectPath(object)));
        return call.createErrorReply(QStringLiteral("fi.w1.wpa_supplicant1.InterfaceUnknown"),
            QStringLiteral("wpa_supplicant knows nothing about this interface."));
    }
    if (call.path() == object &&
        call.interface() == QStringLiteral("fi.w1.wpa_supplicant1.Interface") &&
        call.member() == QStringLiteral("Scan")) {
        const QString type = qdbus_cast<QVariantMap>(call.arguments().value(0))
                                 .value(QStringLiteral("Type"))
                                 .toString();
        if (type == QStringLiteral("passive") || (m_active && type == QStringLiteral("active")))
            return call.createReply();
        return call.createErrorReply(QStringLiteral("fi.w1.wpa_supplicant1.Interface.ScanError"),
            QStringLiteral("Scan request rejected"));
    }
    return unknownMethod(call);
}

FakeConnMan::FakeConnMan(const QString &address)
    : FakeManager(address, QStringLiteral("net.connman"))
{
}

QDBusMessage FakeConnMan::answer(const QDBusMessage &call)
{
    const QDBusObjectPath wired(QStringLiteral("/net/connman/technology/ethernet"));
    const QDBusObjectPath wifi(QStringLiteral("/net/connman/technology/wifi"));
    if (call.path() == QStringLiteral("/") &&
        call.interface() == QStringLiteral("net.connman.Manager") &&
        call.member() == QStringLiteral("GetTechnologies")) {
        const Technologies technologies{
            {wired, {{QStringLiteral("Type"), QStringLiteral("ethernet")},
                        {QStringLiteral("Powered"), true}}},
            {wifi, {{QStringLiteral("Type"), m_type}, {QStringLiteral("Powered"), m_powered}}}};
        return call.createReply(QVariant::fromValue(technologies));
    }
    if (call.path() == wifi.path() &&
        call.interface() == QStringLiteral("net.connman.Technology") &&
        call.member() == QStringLiteral("Scan"))
        return call.createReply();
    return unknownMethod(call);
}

#include "linux/systembus.h"

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QUuid>

namespace LinuxWifi
{

namespace
{
const QString BusService = QStringLiteral("org.freedesktop.DBus");
const QString BusPath = QStringLiteral("/org/freedesktop/DBus");
const QString OwnerSignal = QStringLiteral("NameOwnerChanged");

bool succeeded(const QDBusMessage &reply)
{
    return reply.type() == QDBusMessage::ReplyMessage;
}
} // namespace

SystemBus::SystemBus(std::function<QString()> addresses, int timeoutMs, QObject *parent)
    : QObject(parent)
    , m_addresses(std::move(addresses))
    , m_timeoutMs(timeoutMs)
{
    connect(&m_probe, &BusProbe::answered, this, &SystemBus::connectTo);
    connect(&m_probe, &BusProbe::failed, this, &SystemBus::fail);
}

SystemBus::~SystemBus()
{
    close();
}

void SystemBus::open()
{
    if (m_opening)
        return;
    m_opening = true;
    if (m_ready && QDBusConnection(m_connection).isConnected()) {
        // News of who is there may be on its way; the answer comes after it.
        listNames();
        return;
    }
    close();
    m_probe.start(busAddresses(m_addresses()), m_timeoutMs);
}

void SystemBus::close()
{
    m_ready = false;
    m_owned.clear();
    // Before the connection: it takes what it still waits for down with it, whoever refers to it.
    qDeleteAll(m_calls);
    m_calls.clear();
    if (m_connection.isEmpty())
        return;
    // This one goes through the D-Bus library's thread and returns when all calls before it have
    // been sent; one that has not would be lost with the connection, and its memory too.
    QDBusConnection(m_connection)
        .disconnect(QString(), BusPath, BusService, OwnerSignal, this,
            SLOT(onNameOwnerChanged(QString, QString, QString)));
    QDBusConnection::disconnectFromPeer(m_connection);
    m_connection.clear();
}

void SystemBus::connectTo(const QString &address)
{
    // As to a peer: as to a bus, the D-Bus library would wait for the answer to its greeting in the
    // thread that the end of the process waits for.
    m_connection = QStringLiteral("airlume-") + QUuid::createUuid().toString();
    QDBusConnection connection = QDBusConnection::connectToPeer(address, m_connection);
    if (connection.isConnected())
        sayHello();
    else
        fail(connection.lastError().message());
}

void SystemBus::sayHello()
{
    callBus("Hello", {}, [this](const QDBusMessage &reply) {
        if (!succeeded(reply)) {
            fail(reply.errorMessage());
            return;
        }
        watchNames();
        listNames();
    });
}

void SystemBus::watchNames()
{
    QDBusConnection(m_connection)
        .connect(QString(), BusPath, BusService, OwnerSignal, this,
            SLOT(onNameOwnerChanged(QString, QString, QString)));
    for (const QString &service : qAsConst(m_services)) {
        const QString rule =
            QStringLiteral("type='signal',sender='%1',interface='%1',member='%2',arg0='%3'")
                .arg(BusService, OwnerSignal, service);
        callBus("AddMatch", {rule}, [](const QDBusMessage &) {});
    }
}

void SystemBus::listNames()
{
    callBus("ListNames", {}, [this](const QDBusMessage &reply) {
        if (!succeeded(reply)) {
            fail(reply.errorMessage());
            return;
        }
        const QStringList names = reply.arguments().value(0).toStringList();
        for (const QString &service : qAsConst(m_services)) {
            if (names.contains(service))
                m_owned.insert(service);
            else
                m_owned.remove(service);
        }
        m_ready = true;
        m_opening = false;
        emit opened();
    });
}

void SystemBus::fail(const QString &reason)
{
    close();
    m_opening = false;
    emit failed(reason);
}

void SystemBus::call(
    const QDBusMessage &message, int timeoutMs, QObject *context, const Answered &answered)
{
    QDBusMessage call = message;
    call.setAutoStartService(false);
    auto *const watcher =
        new QDBusPendingCallWatcher(QDBusConnection(m_connection).asyncCall(call, timeoutMs), this);
    m_calls.insert(watcher);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        m_calls.remove(watcher);
        watcher->deleteLater();
    });
    connect(watcher, &QDBusPendingCallWatcher::finished, context,
        [watcher, answered] { answered(watcher->reply()); });
}

void SystemBus::callBus(const char *method, const QVariantList &arguments, const Answered &answered)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        BusService, BusPath, BusService, QString::fromLatin1(method));
    message.setArguments(arguments);
    call(message, m_timeoutMs, this, answered);
}

void SystemBus::onNameOwnerChanged(const QString &name, const QString &before, const QString &now)
{
    if (!m_services.contains(name))
        return;
    if (now.isEmpty())
        m_owned.remove(name);
    else
        m_owned.insert(name);
    if (m_ready && before.isEmpty() && !now.isEmpty())
        emit appeared(name);
}

} // namespace LinuxWifi

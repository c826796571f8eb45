#include "fakenetworkmanager.h"

#include <QStandardPaths>

#include <csignal>

namespace
{
const QString Service = QStringLiteral("org.freedesktop.NetworkManager");
const QString ManagerPath = QStringLiteral("/org/freedesktop/NetworkManager");
const QString DevicePath = QStringLiteral("/org/freedesktop/NetworkManager/Devices/2");
const QString ConnectionName = QStringLiteral("fake NetworkManager");
} // namespace

bool PrivateBus::start()
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
    if (program.isEmpty())
        return false;
    m_daemon.start(program, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                QStringLiteral("--print-address")});
    if (!m_daemon.waitForStarted() || !m_daemon.waitForReadyRead())
        return false;
    m_address = QString::fromLocal8Bit(m_daemon.readLine().trimmed());
    return !m_address.isEmpty();
}

PrivateBus::~PrivateBus()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    freeze(false);
    kill();
}

void PrivateBus::kill()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PrivateBus::freeze(bool frozen)
{
    ::kill(static_cast<pid_t>(m_daemon.processId()), frozen ? SIGSTOP : SIGCONT);
}

void FakeDevice::RequestScan(const QVariantMap &)
{
    ++m_scans;
    if (m_silent)
        setDelayedReply(true);
    else if (!m_error.isEmpty())
        sendErrorReply(m_error, QStringLiteral("the fake refuses"));
}

FakeNetworkManager::FakeNetworkManager(const QString &address)
    : m_connection(QDBusConnection::connectToBus(address, ConnectionName))
{
    m_connection.registerObject(ManagerPath, this, QDBusConnection::ExportAllSlots);
    m_connection.registerObject(DevicePath, &m_device, QDBusConnection::ExportAllSlots);
    m_connection.registerService(Service);
}

FakeNetworkManager::~FakeNetworkManager()
{
    m_connection.unregisterService(Service);
    QDBusConnection::disconnectFromBus(ConnectionName);
}

void FakeNetworkManager::removeDeviceObject()
{
    m_connection.unregisterObject(DevicePath);
}

QDBusObjectPath FakeNetworkManager::GetDeviceByIpIface(const QString &interface)
{
    if (interface == QStringLiteral("wlan0"))
        return QDBusObjectPath(DevicePath);
    sendErrorReply(QStringLiteral("org.freedesktop.NetworkManager.UnknownDevice"),
        QStringLiteral("No device found for the requested iface."));
    return QDBusObjectPath(QStringLiteral("/"));
}

#ifndef AIRLUME_TESTS_LINUX_FAKENETWORKMANAGER_H
#define AIRLUME_TESTS_LINUX_FAKENETWORKMANAGER_H

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QProcess>
#include <QVariantMap>

/// A message bus of its own, for as long as the object lives.
class PrivateBus
{
public:
    /// False when there is no dbus-daemon on this machine or it does not start.
    bool start();
    ~PrivateBus();

    /// Ends the daemon, as a crash would.
    void kill();
    /// Stops the daemon from answering, and lets it answer again.
    void freeze(bool frozen);
    QString address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
};

/// The device object of the one adapter that the fake NetworkManager knows.
class FakeDevice : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.NetworkManager.Device.Wireless")

public:
    int scans() const { return m_scans; }
    /// Answers requests with this error from now on; empty: accepts them.
    void refuseWith(const QString &error) { m_error = error; }
    /// Takes requests and never answers them.
    void setSilent(bool silent) { m_silent = silent; }

public slots:
    void RequestScan(const QVariantMap &options);

private:
    int m_scans = 0;
    QString m_error;
    bool m_silent = false;
};

/// As much of NetworkManager as asking for a scan needs. Answers in the thread that made it.
class FakeNetworkManager : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.NetworkManager")

public:
    /// Takes the service's name on the bus with this address.
    explicit FakeNetworkManager(const QString &address);
    ~FakeNetworkManager() override;

    FakeDevice &device() { return m_device; }
    /// The adapter is pulled out: its object goes, but the manager still names it.
    void removeDeviceObject();

public slots:
    QDBusObjectPath GetDeviceByIpIface(const QString &interface);

private:
    FakeDevice m_device;
    QDBusConnection m_connection;
};

#endif

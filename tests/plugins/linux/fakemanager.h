#ifndef AIRLUME_TESTS_LINUX_FAKEMANAGER_H
#define AIRLUME_TESTS_LINUX_FAKEMANAGER_H

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>

/// A manager of Wi-Fi on a private bus, as much of it as asking for a scan needs. It manages wlan0
/// until told otherwise, and answers in the thread that made it.
class FakeManager : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /// Takes the service's name on the bus with this address.
    FakeManager(const QString &address, const QString &service);
    ~FakeManager() override;

    /// Answers calls of this method with an error from now on; empty: answers properly again.
    void refuse(const QString &method, const QString &error);
    /// Takes calls of this method and never answers.
    void silence(const QString &method) { m_silent.append(method); }
    /// Leaves the bus without a word when this method is called.
    void dieAt(const QString &method) { m_deadly = method; }
    /// The last part of the name of each method called, in their order.
    QStringList calls() const { return m_calls; }
    /// The arguments of the latest call.
    QVariantList arguments() const { return m_arguments; }
    int scans() const;

    /// Leaves the bus.
    void leave();

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;
    QString introspect(const QString &) const override { return {}; }

protected:
    virtual QDBusMessage answer(const QDBusMessage &call) = 0;
    static QDBusMessage unknownMethod(const QDBusMessage &call);

private:
    const QString m_connection;
    const QString m_service;
    QMap<QString, QString> m_errors;
    QStringList m_silent;
    QString m_deadly;
    QStringList m_calls;
    QVariantList m_arguments;
};

class FakeNetworkManager : public FakeManager
{
public:
    explicit FakeNetworkManager(const QString &address);
    /// Of the device, as NMDeviceState has it: 10 is unmanaged, 100 activated.
    void setState(uint state) { m_state = state; }

protected:
    QDBusMessage answer(const QDBusMessage &call) override;

private:
    uint m_state = 100;
};

class FakeIwd : public FakeManager
{
public:
    explicit FakeIwd(const QString &address);
    void setInterface(const QString &interface) { m_interface = interface; }
    /// Not while it is switched off, or an access point.
    void setStation(bool station) { m_station = station; }

protected:
    QDBusMessage answer(const QDBusMessage &call) override;

private:
    QString m_interface = QStringLiteral("wlan0");
    bool m_station = true;
};

class FakeWpaSupplicant : public FakeManager
{
public:
    explicit FakeWpaSupplicant(const QString &address);
    void setInterface(const QString &interface) { m_interface = interface; }
    void refuseActiveScans() { m_active = false; }

protected:
    QDBusMessage answer(const QDBusMessage &call) override;

private:
    QString m_interface = QStringLiteral("wlan0");
    bool m_active = true;
};

class FakeConnMan : public FakeManager
{
public:
    explicit FakeConnMan(const QString &address);
    void setPowered(bool powered) { m_powered = powered; }
    void setType(const QString &type) { m_type = type; }

protected:
    QDBusMessage answer(const QDBusMessage &call) override;

private:
    QString m_type = QStringLiteral("wifi");
    bool m_powered = true;
};

#endif

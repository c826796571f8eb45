#ifndef AIRLUME_LINUX_SYSTEMBUS_H
#define AIRLUME_LINUX_SYSTEMBUS_H

#include "linux/busprobe.h"
#include "linux/wifimanager.h"

#include <QDBusMessage>
#include <QSet>
#include <QStringList>

#include <functional>

class QDBusPendingCallWatcher;

namespace LinuxWifi
{

/// A connection to the message bus that never waits for it: not for a bus that accepts and says
/// nothing, nor for one that stops in between. Lives in a thread with an event loop; what it calls
/// back it calls there.
class SystemBus : public QObject, public BusCaller
{
    Q_OBJECT

public:
    /// `addresses` is a list of addresses, asked anew for each connection; each step of making one
    /// may take `timeoutMs`.
    SystemBus(std::function<QString()> addresses, int timeoutMs, QObject *parent = nullptr);
    ~SystemBus() override;

    /// Watches who owns this name, from the next connection on.
    void watch(const QString &service) { m_services.append(service); }

    /// Connects if there is no connection, and learns who is there. Emits opened() or failed()
    /// once, later.
    void open();
    /// Forgets the connection. Calls that are under way are never answered.
    void close();
    /// Whether somebody owns this watched name.
    bool has(const QString &service) const { return m_owned.contains(service); }

    /// Calls a method of somebody who runs, without starting anybody. `answered` gets the reply or
    /// the error; it is forgotten with `context`.
    void call(const QDBusMessage &message, int timeoutMs, QObject *context,
        const Answered &answered) override;

signals:
    void opened();
    void failed(const QString &reason);
    /// A watched name, which nobody owned, has an owner now.
    void appeared(const QString &service);

private slots:
    void onNameOwnerChanged(const QString &name, const QString &before, const QString &now);

private:
    void connectTo(const QString &address);
    void sayHello();
    void watchNames();
    void listNames();
    void fail(const QString &reason);
    void callBus(const char *method, const QVariantList &arguments, const Answered &answered);

    const std::function<QString()> m_addresses;
    const int m_timeoutMs;
    QStringList m_services;
    BusProbe m_probe;
    QString m_connection; ///< Its name; empty when there is none.
    bool m_ready = false; ///< The bus has answered and the names are known.
    bool m_opening = false;
    QSet<QString> m_owned;
    QSet<QDBusPendingCallWatcher *> m_calls; ///< Those that have no answer yet.
};

} // namespace LinuxWifi

#endif

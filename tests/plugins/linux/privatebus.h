#ifndef AIRLUME_TESTS_LINUX_PRIVATEBUS_H
#define AIRLUME_TESTS_LINUX_PRIVATEBUS_H

#include <QProcess>

/// A message bus of its own, for as long as the object lives.
class PrivateBus
{
public:
    /// False when there is no dbus-daemon on this machine or it does not start. It listens at
    /// `address`, or where it likes.
    bool start(const QString &address = QString());
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

#endif

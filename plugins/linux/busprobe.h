#ifndef AIRLUME_LINUX_BUSPROBE_H
#define AIRLUME_LINUX_BUSPROBE_H

#include "linux/busaddress.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

namespace LinuxWifi
{

/// Finds out whether somebody answers at a bus' address, without waiting. The D-Bus library makes
/// its connections in a thread that all of the process shares and that the end of the process waits
/// for; a bus that takes no more connections would hold it up for ever, so it is only let near one
/// that has just answered. One probe at a time; lives in a thread with an event loop.
class BusProbe : public QObject
{
    Q_OBJECT

public:
    explicit BusProbe(QObject *parent = nullptr);
    ~BusProbe() override;

    /// Tries the addresses in their order, each for up to `timeoutMs`. Emits answered() or failed()
    /// once, later.
    void start(const QVector<BusAddress> &addresses, int timeoutMs);

signals:
    void answered(const QString &address);
    /// With the reason, in words, at the last of the addresses.
    void failed(const QString &reason);

private:
    void tryNext();
    void giveUp(const QString &reason);
    void read();
    void close();

    QVector<BusAddress> m_addresses;
    QString m_reason;
    QTimer m_timer;
    std::unique_ptr<QSocketNotifier> m_notifier;
    int m_socket = -1;
};

} // namespace LinuxWifi

#endif

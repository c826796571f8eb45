#ifndef AIRLUME_LINUX_SCANLISTENER_H
#define AIRLUME_LINUX_SCANLISTENER_H

#include "linux/netlinkgroup.h"
#include "linux/scanlog.h"

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace LinuxWifi
{

/// Writes down what the kernel tells about scans. Lives in a thread with an event loop.
class ScanListener : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<qint64()>;

    /// Owns nothing of what it is given.
    ScanListener(WifiKernel &kernel, ScanLog &log, Clock clock, QObject *parent);
    ~ScanListener() override;

    /// Begins to listen; false when the kernel does not let it.
    bool open();

    /// What the listener does about one notice, and about notices that were lost.
    void notice(const ScanNotice &notice);
    void lost();

signals:
    /// The socket failed; nothing is heard any more.
    void failed();

private:
    void receive();
    std::optional<QVector<AccessPoint>> readList(int index);

    WifiKernel &m_kernel;
    ScanLog &m_log;
    const Clock m_clock;
    NetlinkGroup m_group;
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace LinuxWifi

#endif

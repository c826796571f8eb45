#include "linux/scanwatcher.h"

#include "linux/scanlistener.h"

namespace LinuxWifi
{

ScanWatcher::ScanWatcher(BackgroundThread &thread, Clock clock)
    : m_thread(thread)
    , m_clock(std::move(clock))
{
}

ScanWatcher::~ScanWatcher() = default;

void ScanWatcher::watch(int index)
{
    m_log.setWatched(index);
    // Without an interface the driver may go and come back, and nl80211 with it under another
    // number: the listener begins anew.
    if ((index != 0) == m_listening)
        return;
    m_thread.post([this, index](QObject &owner) {
        delete m_listener;
        m_listening = false;
        if (index == 0)
            return;
        auto *const listener = new ScanListener(m_kernel, m_log, m_clock, &owner);
        QObject::connect(
            listener, &ScanListener::failed, listener, [this] { m_listening = false; });
        m_listener = listener;
        m_listening = listener->open();
    });
}

std::optional<qint64> ScanWatcher::running(int index)
{
    return m_log.running(index);
}

QVector<FinishedScan> ScanWatcher::take()
{
    return m_log.take();
}

} // namespace LinuxWifi

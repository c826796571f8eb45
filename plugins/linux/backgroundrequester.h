#ifndef AIRLUME_LINUX_BACKGROUNDREQUESTER_H
#define AIRLUME_LINUX_BACKGROUNDREQUESTER_H

#include "linux/scanrequester.h"

#include <QMutex>
#include <QObject>

#include <functional>
#include <memory>

class QThread;

namespace LinuxWifi
{

/// Lets a request that waits for its answer run on a thread of its own, one at a time. The thread
/// lives no longer than the request; the caller needs no event loop.
class BackgroundRequester : public ScanRequester
{
public:
    /// Asks for a scan and waits for the answer, for a bounded time, on any thread.
    using Ask = std::function<ScanAnswer(const QString &interface)>;

    explicit BackgroundRequester(Ask ask);
    /// Waits for a request that is still running.
    ~BackgroundRequester() override;

    void request(const QString &interface) override;
    std::optional<ScanAnswer> takeAnswer() override;

private:
    const Ask m_ask;
    QObject m_quitGuard;
    QMutex m_running; ///< Held while a request runs.
    std::unique_ptr<QThread> m_thread;
    QMutex m_mutex; ///< Guards m_answer.
    std::optional<ScanAnswer> m_answer;
};

} // namespace LinuxWifi

#endif

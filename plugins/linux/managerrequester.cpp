#include "linux/managerrequester.h"

#include "linux/backgroundthread.h"

#include <QMutex>

namespace LinuxWifi
{

/// What the two threads share.
struct ManagerRequester::Shared {
    QMutex mutex; ///< Guards the answer.
    std::optional<ScanAnswer> answer;
    ScanAsker *asker = nullptr; ///< Only looked at in the background.
};

ManagerRequester::ManagerRequester(BackgroundThread &thread, const ScanAsker::Settings &settings)
    : m_thread(thread)
    , m_settings(settings)
    , m_shared(std::make_shared<Shared>())
{
}

ManagerRequester::~ManagerRequester()
{
    m_thread.post([shared = m_shared](QObject &) { delete shared->asker; });
}

void ManagerRequester::request(const QString &interface)
{
    m_thread.post([shared = m_shared, settings = m_settings, interface](QObject &owner) {
        if (!shared->asker) {
            const auto keep = [shared](const ScanAnswer &answer) {
                const QMutexLocker lock(&shared->mutex);
                shared->answer = answer;
            };
            shared->asker = new ScanAsker(settings, keep, &owner);
        }
        shared->asker->ask(interface);
    });
}

std::optional<ScanAnswer> ManagerRequester::takeAnswer()
{
    const QMutexLocker lock(&m_shared->mutex);
    std::optional<ScanAnswer> answer;
    answer.swap(m_shared->answer);
    return answer;
}

} // namespace LinuxWifi

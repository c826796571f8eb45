#include "linux/backgroundrequester.h"

#include <QCoreApplication>
#include <QThread>

namespace LinuxWifi
{

BackgroundRequester::BackgroundRequester(Ask ask)
    : m_ask(std::move(ask))
{
    // The program ends without unloading its plug-ins; what the request uses must not be taken down
    // under it.
    if (QCoreApplication *const application = QCoreApplication::instance()) {
        QObject::connect(
            application, &QCoreApplication::aboutToQuit, &m_quitGuard,
            [this] { const QMutexLocker lock(&m_running); }, Qt::DirectConnection);
    }
}

BackgroundRequester::~BackgroundRequester()
{
    if (m_thread)
        m_thread->wait();
}

void BackgroundRequester::request(const QString &interface)
{
    if (m_thread && !m_thread->isFinished())
        return;
    if (m_thread)
        m_thread->wait();
    m_thread.reset(QThread::create([this, interface] {
        const QMutexLocker running(&m_running);
        // NOLINTNEXTLINE(clang-analyzer-core.CallAndMessage): takes a locker to mean "maybe null".
        const ScanAnswer answer = m_ask(interface);
        const QMutexLocker lock(&m_mutex);
        m_answer = answer;
    }));
    m_thread->start();
}

std::optional<ScanAnswer> BackgroundRequester::takeAnswer()
{
    const QMutexLocker lock(&m_mutex);
    std::optional<ScanAnswer> answer;
    answer.swap(m_answer);
    return answer;
}

} // namespace LinuxWifi

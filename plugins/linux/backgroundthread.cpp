#include "linux/backgroundthread.h"

#include <QCoreApplication>
#include <QThread>

namespace LinuxWifi
{

// A plain pointer, as a plug-in is unloaded after the destructors of its statics have run.
BackgroundThread *BackgroundThread::s_first = nullptr;

class BackgroundThread::Loop : public QThread
{
public:
    Loop()
    {
        setObjectName(QStringLiteral("linux back end"));
        m_owner->moveToThread(this);
    }
    QObject *owner() const { return m_owner; }

protected:
    void run() override
    {
        exec();
        delete m_owner;
    }

private:
    QObject *const m_owner = new QObject;
};

BackgroundThread::BackgroundThread()
{
    // A plug-in's objects may outlive the application. What the thread uses, as Qt's own D-Bus
    // thread, does not, so it must not run any longer.
    m_next = s_first;
    s_first = this;
    qAddPostRoutine(endAll);
    if (QCoreApplication *const application = QCoreApplication::instance()) {
        QObject::connect(
            application, &QCoreApplication::aboutToQuit, &m_quitGuard, [this] { end(); },
            Qt::DirectConnection);
    }
}

BackgroundThread::~BackgroundThread()
{
    end();
    BackgroundThread **link = &s_first;
    while (*link != this)
        link = &(*link)->m_next;
    *link = m_next;
    if (!s_first)
        qRemovePostRoutine(endAll);
}

bool BackgroundThread::post(Job job)
{
    const QMutexLocker lock(&m_mutex);
    // Without an application there is no event loop either.
    if (m_ending || !QCoreApplication::instance())
        return false;
    if (!m_loop) {
        m_loop = std::make_unique<Loop>();
        m_loop->start();
    }
    QObject *const owner = m_loop->owner();
    return QMetaObject::invokeMethod(
        owner, [owner, job = std::move(job)] { job(*owner); }, Qt::QueuedConnection);
}

void BackgroundThread::end()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_ending = true;
    }
    // Nobody replaces the loop any more. A job may still try to post another while it is awaited.
    if (m_loop) {
        m_loop->quit();
        m_loop->wait();
    }
}

void BackgroundThread::endAll()
{
    for (BackgroundThread *thread = s_first; thread; thread = thread->m_next)
        thread->end();
}

} // namespace LinuxWifi

#include "linux/backgroundthread.h"

#include <QCoreApplication>
#include <QThread>
#include <QVector>

namespace LinuxWifi
{

namespace
{
/// Those alive. Only the application's thread adds, removes and ends them.
QVector<BackgroundThread *> &threads()
{
    // Never destroyed: Qt deletes what a plug-in made after the plug-in's own statics.
    static auto *const all = new QVector<BackgroundThread *>;
    return *all;
}
} // namespace

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
    // A plug-in's objects outlive the application. What the thread uses, as Qt's own D-Bus thread,
    // does not, so it must not run any longer.
    threads().append(this);
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
    threads().removeOne(this);
    if (threads().isEmpty())
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
    for (BackgroundThread *const thread : qAsConst(threads()))
        thread->end();
}

} // namespace LinuxWifi

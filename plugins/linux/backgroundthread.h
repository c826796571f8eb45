#ifndef AIRLUME_LINUX_BACKGROUNDTHREAD_H
#define AIRLUME_LINUX_BACKGROUNDTHREAD_H

#include <QMutex>
#include <QObject>

#include <functional>
#include <memory>

class QThread;

namespace LinuxWifi
{

/// The one thread, with an event loop, for whatever must not make a query wait. It starts with the
/// first job and ends with the application: at QCoreApplication::aboutToQuit, or, where no event
/// loop ever ran, when the application is destroyed. Nothing of it runs after that.
class BackgroundThread
{
public:
    /// Runs in the thread. `owner` lives there: objects that the job makes and that stay become its
    /// children, which are deleted in the thread before it ends. A job must not wait for anything,
    /// since the end of the program waits for it.
    using Job = std::function<void(QObject &owner)>;

    /// In the application's thread, and destroyed there.
    BackgroundThread();
    ~BackgroundThread();
    BackgroundThread(const BackgroundThread &) = delete;
    BackgroundThread &operator=(const BackgroundThread &) = delete;

    /// Lets the job run as soon as those before it are done, and returns at once. False when the
    /// thread ends or has ended, and while there is no application. A job that was taken but has
    /// not begun when the end comes is dropped. Any thread.
    bool post(Job job);

    /// Ends the thread and waits until it has finished; it never starts again. May be called more
    /// than once, from any thread but its own.
    void end();

private:
    static void endAll();

    class Loop;
    static BackgroundThread *s_first; ///< Those alive, as a list.
    BackgroundThread *m_next = nullptr;
    QMutex m_mutex; ///< Guards the two below.
    std::unique_ptr<Loop> m_loop;
    bool m_ending = false;
    QObject m_quitGuard;
};

} // namespace LinuxWifi

#endif

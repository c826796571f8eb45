#include "linux/backgroundthread.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <atomic>

using namespace LinuxWifi;

/// Notes where it was destroyed.
class Resident : public QObject
{
public:
    Resident(QObject &owner, std::atomic<QThread *> &destroyedIn)
        : QObject(&owner)
        , m_destroyedIn(destroyedIn)
    {
    }
    ~Resident() override { m_destroyedIn = QThread::currentThread(); }

private:
    std::atomic<QThread *> &m_destroyedIn;
};

class TestBackgroundThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void jobsRunInOneOtherThreadInTheirOrder();
    void jobsOfManyThreadsRunInOne();
    void objectsReceiveEventsAndAreDeletedInTheThread();
    void nothingStartsAfterTheEnd();
    void endWithoutAJobStartsNothing();
    void endWaitsForTheJobThatRuns();
    void jobThatPostsWhileTheThreadEndsIsRefused();
    void threadEndsBeforeTheEventLoopReturns();
    void threadEndsWithAnApplicationThatRanNoEventLoop();
    void threadMayBeMadeBeforeTheApplication();
    void everyThreadEndsWithTheApplication();

private:
    int m_argc = 0;
    std::unique_ptr<QCoreApplication> m_application;
};

void TestBackgroundThread::init()
{
    m_application = std::make_unique<QCoreApplication>(m_argc, nullptr);
}

void TestBackgroundThread::cleanup()
{
    m_application.reset();
}

void TestBackgroundThread::jobsRunInOneOtherThreadInTheirOrder()
{
    BackgroundThread background;
    QSemaphore done;
    QVector<int> order;
    QVector<QThread *> threads;
    for (int i = 0; i < 5; ++i) {
        QVERIFY(background.post([&, i](QObject &owner) {
            QCOMPARE(owner.thread(), QThread::currentThread());
            order.append(i);
            threads.append(QThread::currentThread());
            done.release();
        }));
    }
    done.acquire(5);
    QCOMPARE(order, (QVector<int>{0, 1, 2, 3, 4}));
    QVERIFY(threads.first() != QThread::currentThread());
    QCOMPARE(threads.count(threads.first()), 5);
}

void TestBackgroundThread::jobsOfManyThreadsRunInOne()
{
    BackgroundThread background;
    QSemaphore done;
    int count = 0; // without a lock: only one thread counts
    std::vector<std::unique_ptr<QThread>> callers;
    for (int i = 0; i < 8; ++i) {
        callers.emplace_back(QThread::create([&] {
            for (int job = 0; job < 100; ++job) {
                background.post([&](QObject &) {
                    ++count;
                    done.release();
                });
            }
        }));
        callers.back()->start();
    }
    done.acquire(800);
    for (const auto &caller : callers)
        caller->wait();
    QCOMPARE(count, 800);
}

void TestBackgroundThread::objectsReceiveEventsAndAreDeletedInTheThread()
{
    std::atomic<QThread *> thread{nullptr};
    std::atomic<QThread *> destroyedIn{nullptr};
    QSemaphore fired;
    BackgroundThread background;
    background.post([&](QObject &owner) {
        thread = QThread::currentThread();
        auto *const resident = new Resident(owner, destroyedIn);
        QTimer::singleShot(0, resident, [&fired] { fired.release(); });
    });
    fired.acquire();
    QVERIFY(!destroyedIn);
    background.end();
    QVERIFY(destroyedIn);
    QCOMPARE(destroyedIn.load(), thread.load());
}

void TestBackgroundThread::nothingStartsAfterTheEnd()
{
    BackgroundThread background;
    QSemaphore done;
    background.post([&](QObject &) { done.release(); });
    done.acquire();
    background.end();
    std::atomic<int> ran{0};
    QVERIFY(!background.post([&](QObject &) { ++ran; }));
    background.end();
    QCOMPARE(ran.load(), 0);
}

void TestBackgroundThread::endWithoutAJobStartsNothing()
{
    BackgroundThread background;
    background.end();
    QVERIFY(!background.post([](QObject &) { QFAIL("a job after the end"); }));
}

void TestBackgroundThread::endWaitsForTheJobThatRuns()
{
    BackgroundThread background;
    QSemaphore begun;
    std::atomic<bool> finished{false};
    background.post([&](QObject &) {
        begun.release();
        QThread::msleep(50);
        finished = true;
    });
    begun.acquire();
    background.end();
    QVERIFY(finished);
}

void TestBackgroundThread::jobThatPostsWhileTheThreadEndsIsRefused()
{
    BackgroundThread background;
    QSemaphore begun;
    std::atomic<bool> refused{false};
    background.post([&](QObject &) {
        begun.release();
        while (background.post([](QObject &) {}))
            QThread::yieldCurrentThread();
        refused = true;
    });
    begun.acquire();
    background.end();
    QVERIFY(refused);
}

void TestBackgroundThread::threadEndsBeforeTheEventLoopReturns()
{
    BackgroundThread background;
    std::atomic<QThread *> destroyedIn{nullptr};
    QSemaphore done;
    background.post([&](QObject &owner) {
        new Resident(owner, destroyedIn);
        done.release();
    });
    done.acquire();
    QTimer::singleShot(0, m_application.get(), &QCoreApplication::quit);
    QCoreApplication::exec();
    QVERIFY(destroyedIn);
    QVERIFY(!background.post([](QObject &) {}));
}

void TestBackgroundThread::threadEndsWithAnApplicationThatRanNoEventLoop()
{
    BackgroundThread background;
    std::atomic<QThread *> destroyedIn{nullptr};
    QSemaphore done;
    background.post([&](QObject &owner) {
        new Resident(owner, destroyedIn);
        done.release();
    });
    done.acquire();
    QVERIFY(!destroyedIn);
    m_application.reset();
    QVERIFY(destroyedIn);
    init(); // nor does it start again with another one
    QVERIFY(!background.post([](QObject &) {}));
}

void TestBackgroundThread::threadMayBeMadeBeforeTheApplication()
{
    m_application.reset();
    BackgroundThread background;
    QVERIFY(!background.post([](QObject &) { QFAIL("a job without an application"); }));
    init();
    QSemaphore done;
    QVERIFY(background.post([&](QObject &) { done.release(); }));
    done.acquire();
    m_application.reset();
    QVERIFY(!background.post([](QObject &) {}));
}

void TestBackgroundThread::everyThreadEndsWithTheApplication()
{
    BackgroundThread first;
    auto second = std::make_unique<BackgroundThread>();
    BackgroundThread third;
    QSemaphore done;
    for (BackgroundThread *const thread : {&first, second.get(), &third})
        QVERIFY(thread->post([&](QObject &) { done.release(); }));
    done.acquire(3);
    second.reset();
    m_application.reset();
    init();
    QVERIFY(!first.post([](QObject &) {}));
    QVERIFY(!third.post([](QObject &) {}));
}

// Each test has an application of its own, as some end it.
QTEST_APPLESS_MAIN(TestBackgroundThread)
#include "tst_backgroundthread.moc"

#include "linux/backgroundrequester.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

namespace
{
/// Waits for an answer and takes it. (QTRY_VERIFY would look twice, and the second time in vain.)
std::optional<ScanAnswer> awaited(BackgroundRequester &requester)
{
    std::optional<ScanAnswer> answer;
    const bool answered =
        QTest::qWaitFor([&] { return (answer = requester.takeAnswer()).has_value(); }, 20000);
    return answered ? answer : std::nullopt;
}
} // namespace

class TestBackgroundRequester : public QObject
{
    Q_OBJECT

private slots:
    void answerIsGivenOnce();
    void requestReturnsWhileTheAnswerIsAwaited();
    void requestIsIgnoredWhileOneRuns();
    void nextRequestRunsAfterTheAnswer();
    void callerNeedsNoEventLoop();
    void endWaitsForARunningRequest();
};

void TestBackgroundRequester::answerIsGivenOnce()
{
    QString asked;
    BackgroundRequester requester([&asked](const QString &interface) {
        asked = interface;
        return ScanAnswer{Result::NoService, QStringLiteral("because")};
    });
    QVERIFY(!requester.takeAnswer());
    requester.request(QStringLiteral("wlan0"));
    const std::optional<ScanAnswer> answer = awaited(requester);
    QVERIFY(answer.has_value());
    QVERIFY(answer->result == Result::NoService);
    QCOMPARE(answer->detail, QStringLiteral("because"));
    QCOMPARE(asked, QStringLiteral("wlan0"));
    QVERIFY(!requester.takeAnswer());
}

void TestBackgroundRequester::requestReturnsWhileTheAnswerIsAwaited()
{
    QSemaphore mayAnswer;
    BackgroundRequester requester([&mayAnswer](const QString &) {
        mayAnswer.acquire();
        return ScanAnswer{Result::Accepted, QString()};
    });
    requester.request(QStringLiteral("wlan0"));
    QVERIFY(!requester.takeAnswer());
    mayAnswer.release();
    QVERIFY(awaited(requester).has_value());
}

void TestBackgroundRequester::requestIsIgnoredWhileOneRuns()
{
    QSemaphore mayAnswer;
    std::atomic<int> asked{0};
    BackgroundRequester requester([&](const QString &) {
        ++asked;
        mayAnswer.acquire();
        return ScanAnswer{Result::Accepted, QString()};
    });
    for (int i = 0; i < 5; ++i)
        requester.request(QStringLiteral("wlan0"));
    mayAnswer.release(5);
    QVERIFY(awaited(requester).has_value());
    QCOMPARE(asked.load(), 1);
}

void TestBackgroundRequester::nextRequestRunsAfterTheAnswer()
{
    std::atomic<int> asked{0};
    BackgroundRequester requester([&asked](const QString &) {
        ++asked;
        return ScanAnswer{Result::Accepted, QString()};
    });
    for (int i = 1; i <= 3; ++i) {
        // The thread may take a moment to end after its answer has come.
        QTRY_VERIFY((requester.request(QStringLiteral("wlan0")), asked.load() >= i));
        QVERIFY(awaited(requester).has_value());
    }
}

void TestBackgroundRequester::callerNeedsNoEventLoop()
{
    bool answered = false;
    const std::unique_ptr<QThread> caller(QThread::create([&answered] {
        BackgroundRequester requester([](const QString &) {
            return ScanAnswer{Result::Accepted, QString()};
        });
        requester.request(QStringLiteral("wlan0"));
        for (int i = 0; i < 500 && !answered; ++i) {
            QThread::msleep(10);
            answered = requester.takeAnswer().has_value();
        }
    }));
    caller->start();
    QVERIFY(caller->wait(20000));
    QVERIFY(answered);
}

void TestBackgroundRequester::endWaitsForARunningRequest()
{
    std::atomic<bool> finished{false};
    {
        BackgroundRequester requester([&finished](const QString &) {
            QThread::msleep(200);
            finished = true;
            return ScanAnswer{Result::Accepted, QString()};
        });
        requester.request(QStringLiteral("wlan0"));
    }
    QVERIFY(finished);
}

QTEST_GUILESS_MAIN(TestBackgroundRequester)
#include "tst_backgroundrequester.moc"

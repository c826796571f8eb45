#include "scan/signalscanthread.h"

#include <QtTest>

/// In a process of its own: only the first sleep of the process is the short one.
class TestFirstSleep : public QObject
{
    Q_OBJECT

private slots:
    void onlyTheFirstSleepOfTheProcessIsOneSecond();

private:
    static qint64 timeToTheSecondPass();
};

qint64 TestFirstSleep::timeToTheSecondPass()
{
    SignalScanThread thread(nullptr);
    QElapsedTimer timer;
    QVector<qint64> passes;
    connect(
        &thread, &SignalScanThread::networkReturned, &thread,
        [&] { passes.append(timer.elapsed()); }, Qt::DirectConnection);
    QSignalSpy passed(&thread, &SignalScanThread::networkReturned);
    timer.start();
    thread.start();
    while (passed.size() < 2 && timer.elapsed() < 60000)
        passed.wait(60000);
    thread.requestInterruption();
    thread.wait();
    return passes.size() < 2 ? -1 : passes.at(1) - passes.at(0);
}

void TestFirstSleep::onlyTheFirstSleepOfTheProcessIsOneSecond()
{
    const qint64 first = timeToTheSecondPass();
    const qint64 second = timeToTheSecondPass();
    // A busy machine makes both longer, never shorter.
    QVERIFY2(first >= 1000, qPrintable(QString::number(first)));
    QVERIFY2(second >= 3000, qPrintable(QString::number(second)));
    QVERIFY2(first < second, qPrintable(QStringLiteral("%1 %2").arg(first).arg(second)));
}

QTEST_GUILESS_MAIN(TestFirstSleep)
#include "tst_firstsleep.moc"

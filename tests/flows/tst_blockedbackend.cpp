#include "flows/airlumeprocess.h"

#include <QElapsedTimer>
#include <QtTest>

/// A back end that does not answer for half a minute.
class TestBlockedBackEnd : public QObject
{
    Q_OBJECT

private slots:
    void windowLivesForTheThirtySecondsAndThenFills();
};

void TestBlockedBackEnd::windowLivesForTheThirtySecondsAndThenFills()
{
    // For trying the test itself, a shorter time may be set.
    const int seconds =
        qEnvironmentVariable("AIRLUME_TEST_BLOCK_SECONDS", QStringLiteral("30")).toInt();
    AirlumeProcess airlume(QStringLiteral("tests/backends/blocking"));
    airlume.setEnvironment(QStringLiteral("AIRLUME_TEST_BLOCK_SECONDS"), QString::number(seconds));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([&](const QJsonObject &) {
        return airlume.output().contains(QStringLiteral("Blocking now"));
    }));

    int paints = 0;
    int rounds = 0;
    qint64 longest = 0;
    QElapsedTimer timer;
    while (!airlume.output().contains(QStringLiteral("Blocking over"))) {
        timer.start();
        QVERIFY(airlume.command(QStringLiteral("tab %1").arg(rounds % 4)));
        QVERIFY2(airlume.waitFor([&](const QJsonObject &state) {
            return state[QStringLiteral("paints")].toInt() > paints;
        }),
            qPrintable(airlume.output()));
        longest = qMax(longest, timer.elapsed());
        const QJsonObject state = airlume.state();
        paints = state[QStringLiteral("paints")].toInt();
        QCOMPARE(state[QStringLiteral("status")].toString(), QStringLiteral("Scanning..."));
        ++rounds;
    }
    // A window that waits for the back end answers once, at the end.
    QVERIFY2(rounds >= 4, qPrintable(QString::number(rounds)));
    QVERIFY2(longest < seconds * 1000 / 2, qPrintable(QString::number(longest)));

    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("rows")].toArray().size() == 3;
    }));
    QVERIFY(airlume.command(QStringLiteral("click close1")));
    QVERIFY(airlume.waitForEnd());
    QCOMPARE(airlume.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestBlockedBackEnd)
#include "tst_blockedbackend.moc"

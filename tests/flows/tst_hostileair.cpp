#include "flows/airlumeprocess.h"

#include <QElapsedTimer>
#include <QtTest>

/// Far more in the air than there can be: the window goes on answering.
class TestHostileAir : public QObject
{
    Q_OBJECT

private slots:
    void windowLivesOn_data();
    void windowLivesOn();

private:
    static void use(AirlumeProcess &airlume, double &usedMs);
};

void TestHostileAir::windowLivesOn_data()
{
    QTest::addColumn<QString>("backEnd");
    QTest::newRow("with a hundred thousand networks")
        << QStringLiteral("tests/backends/hundredthousand");
    QTest::newRow("with names of a megabyte") << QStringLiteral("tests/backends/longtexts");
}

void TestHostileAir::windowLivesOn()
{
    QFETCH(QString, backEnd);
#ifdef __SANITIZE_ADDRESS__
    if (backEnd.endsWith(QStringLiteral("hundredthousand")))
        QSKIP("Takes minutes under the sanitizers");
#endif
    double calmMs = 0.0;
    {
        AirlumeProcess calm(QStringLiteral("tests/backends/thousand"));
        use(calm, calmMs);
    }
    double usedMs = 0.0;
    AirlumeProcess airlume(backEnd);
    use(airlume, usedMs);
    qInfo("processor time: %.0f ms, in a calm air %.0f ms", usedMs, calmMs);
    // Whoever paints all of such texts needs hundreds of times as much.
    QVERIFY2(usedMs < 30.0 * calmMs + 2000.0, qPrintable(QString::number(usedMs)));
}

/// Clicks here and there, and tells how much processor time that took.
void TestHostileAir::use(AirlumeProcess &airlume, double &usedMs)
{
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    const auto rows = [](const QJsonObject &state) {
        return state[QStringLiteral("rows")].toArray();
    };
    // The first scan of such an air takes long on a busy machine.
    QVERIFY(
        airlume.waitFor([&](const QJsonObject &state) { return !rows(state).isEmpty(); }, 240000));
    QCOMPARE(rows(airlume.state()).size(), 15);

    const double before = airlume.held().cpuMs;
    QElapsedTimer timer;
    qint64 longest = 0;
    const auto answers = [&](const QString &command) {
        timer.start();
        const bool done = airlume.command(command) && airlume.command(QStringLiteral("ping"));
        longest = qMax(longest, timer.elapsed());
        return done;
    };
    const auto ticked = [&](const QJsonObject &state, int row) {
        return rows(state).at(row).toArray().at(0).toBool();
    };
    // A click whose row moves away under it, as a scan comes in, is tried again.
    const auto tick = [&](int row, bool on) {
        return airlume.waitFor([&](const QJsonObject &state) {
            return ticked(state, row) == on ||
                   (answers(QStringLiteral("tick %1").arg(row)) && false);
        });
    };
    // Ticked again, their curves are drawn.
    for (int row : {0, 1, 2, 3, 4, 5, 14}) {
        QVERIFY2(tick(row, false), qPrintable(QString::number(row)));
        QVERIFY2(tick(row, true), qPrintable(QString::number(row)));
    }
    for (int tab : {1, 2, 3, 0}) {
        const int paints = airlume.state()[QStringLiteral("paints")].toInt();
        QVERIFY(answers(QStringLiteral("tab %1").arg(tab)));
        QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
            return state[QStringLiteral("paints")].toInt() > paints;
        }));
    }
    // Over the next scans, too.
    const QString time = airlume.state()[QStringLiteral("times")].toArray().at(1).toString();
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
        return state[QStringLiteral("times")].toArray().at(1).toString() != time &&
               answers(QStringLiteral("ping"));
    }));
    qInfo("longest answer: %lld ms, memory: %.0f MB", longest, airlume.held().peakMb);
    // An answer that takes a minute, however busy the machine is, counts as none.
    QCOMPARE(rows(airlume.state()).size(), 15);
    usedMs = airlume.held().cpuMs - before;
}

QTEST_GUILESS_MAIN(TestHostileAir)
#include "tst_hostileair.moc"

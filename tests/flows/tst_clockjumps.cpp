#include "flows/airlumeprocess.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QtTest>

namespace
{
const qint64 Hour = 3600;

QTime rightEnd(const QJsonObject &state)
{
    return QTime::fromString(
        state[QStringLiteral("times")].toArray().at(1).toString(), QStringLiteral("hh:mm:ss"));
}

/// Seconds from one clock time to a later one, over midnight if need be.
int secondsBetween(const QTime &from, const QTime &to)
{
    return (from.secsTo(to) + 24 * 3600) % (24 * 3600);
}
} // namespace

/// The computer's clock is set while the program runs.
class TestClockJumps : public QObject
{
    Q_OBJECT

private slots:
    void graphsGoOnAndNothingSpins();

private:
    bool setClock(qint64 seconds);
    static void preload(AirlumeProcess &airlume, const QString &clock);

    QTemporaryDir m_folder;
};

/// Written in place: the program has the file mapped.
bool TestClockJumps::setClock(qint64 seconds)
{
    QFile file(m_folder.filePath(QStringLiteral("clock")));
    return file.open(QIODevice::ReadWrite) &&
           file.write(reinterpret_cast<const char *>(&seconds), sizeof seconds) == sizeof seconds;
}

void TestClockJumps::preload(AirlumeProcess &airlume, const QString &clock)
{
    airlume.setOwnTemporaryFolder();
    airlume.setEnvironment(QStringLiteral("AIRLUME_TEST_CLOCK"), clock);
    airlume.setEnvironment(QStringLiteral("LD_PRELOAD"),
        QStringLiteral(AIRLUME_BUILD_DIR "/tests/clockshift/libclockshift.so"));
    // The sanitizer's own library wants to come first.
    airlume.setEnvironment(QStringLiteral("ASAN_OPTIONS"),
        qEnvironmentVariable("ASAN_OPTIONS") + QStringLiteral(":verify_asan_link_order=0"));
}

void TestClockJumps::graphsGoOnAndNothingSpins()
{
    // Five hours before now: that the clock is moved at all can be seen in the axis.
    const qint64 start = -5 * Hour;
    QVERIFY(setClock(start));
    AirlumeProcess jumping(QStringLiteral("plugins/simulated"));
    preload(jumping, m_folder.filePath(QStringLiteral("clock")));
    AirlumeProcess steady(QStringLiteral("plugins/simulated"));
    preload(steady, m_folder.filePath(QStringLiteral("none")));
    QVERIFY2(jumping.start(), qPrintable(jumping.output()));
    QVERIFY2(steady.start(), qPrintable(steady.output()));
    QVERIFY(jumping.waitFor(hasRows));
    QVERIFY(steady.waitFor(hasRows));
    const int apart = secondsBetween(rightEnd(jumping.state()), rightEnd(steady.state()));
    QVERIFY2(qAbs(apart - 5 * Hour) < 600, qPrintable(QString::number(apart)));

    // The very first step of the axis is a shorter one.
    const QTime first = rightEnd(jumping.state());
    QVERIFY(jumping.waitFor([&](const QJsonObject &state) { return rightEnd(state) != first; }));
    const double jumpingBefore = jumping.held().cpuMs;
    const double steadyBefore = steady.held().cpuMs;
    QVERIFY(jumpingBefore > 0.0 && steadyBefore > 0.0);
    // Forth and back, by more than a day in the end.
    for (qint64 clock : {start + 3 * Hour, start - 7 * Hour, start + 30 * Hour, start - 1}) {
        const QTime before = rightEnd(jumping.state());
        QVERIFY(setClock(clock));
        QVERIFY(jumping.waitFor([&](const QJsonObject &state) {
            // Asked as often as the other, as answering takes most of the time.
            return hasRows(steady.state()) && secondsBetween(before, rightEnd(state)) >= 6;
        }));
        // The axis goes on by its own steps of 3 s, whatever the clock says.
        const int moved = secondsBetween(before, rightEnd(jumping.state()));
        QVERIFY2(moved < Hour && moved % 3 == 0, qPrintable(QString::number(moved)));
        QVERIFY(hasRows(jumping.state()));
    }
    // Side by side, so that both had as busy a machine.
    const double jumpingUsed = jumping.held().cpuMs - jumpingBefore;
    const double steadyUsed = steady.held().cpuMs - steadyBefore;
    qInfo("processor time: %.0f ms with jumps, %.0f ms without", jumpingUsed, steadyUsed);
    // One that spins would use all of some 24 s.
    QVERIFY2(jumpingUsed < 3.0 * steadyUsed + 1000.0, qPrintable(QString::number(jumpingUsed)));

    // Both threads go on, too. One change may have been on its way before the last jump.
    for (int change = 0; change < 2; ++change) {
        const QJsonValue rows = jumping.state()[QStringLiteral("rows")];
        QVERIFY(jumping.waitFor(
            [&](const QJsonObject &state) { return state[QStringLiteral("rows")] != rows; }));
    }

    // Rooms are written as ever.
    QVERIFY(setClock(start - 9 * Hour));
    QVERIFY(jumping.command(QStringLiteral("tab 3")));
    QVERIFY(jumping.command(QStringLiteral("click HomeTesting_btn_Add")));
    QVERIFY(jumping.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("focus")].toString() == QLatin1String("QLineEdit");
    }));
    QVERIFY(jumping.command(QStringLiteral("type Attic")));
    QVERIFY(jumping.command(QStringLiteral("click HomeTestingPopup_btn_Ok")));
    QVERIFY(jumping.waitFor([&](const QJsonObject &) {
        const QSettings rooms(
            jumping.folder() + QStringLiteral("/WifiHomeTest.ini"), QSettings::IniFormat);
        return rooms.childGroups().contains(QStringLiteral("Attic"));
    }));
}

QTEST_GUILESS_MAIN(TestClockJumps)
#include "tst_clockjumps.moc"

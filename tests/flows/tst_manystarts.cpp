#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"

#include <QDir>
#include <QMutex>
#include <QtTest>

#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");
#ifdef __SANITIZE_ADDRESS__
// Each start takes several times as long.
const int RoundsPerLane = 5;
const int Moments = 5;
#else
const int RoundsPerLane = 25;
const int Moments = 20;
#endif
const int Lanes = 8;

bool endedWell(AirlumeProcess &airlume)
{
    return airlume.waitForEnd() && airlume.endedNormally() && airlume.exitCode() == 0;
}

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/// One round in a temporary folder used before and after; tells what went wrong.
QString startAndEnd(const QString &folder, HostSuite *host)
{
    AirlumeProcess airlume(Simulated);
    airlume.setEnvironment(QStringLiteral("TMPDIR"), folder);
    if (!airlume.start() || (host && !host->isAsked()))
        return QStringLiteral("does not start: ") + airlume.output();
    const bool told =
        host ? host->say("IpcResponseExit") : airlume.command(QStringLiteral("click close1"));
    if (!told || !endedWell(airlume))
        return QStringLiteral("does not end: ") + airlume.output();
    // What it made in the temporary folder is its socket, which an orderly end takes away.
    QStringList left = filesIn(folder);
    left.removeAll(QStringLiteral("HarborWindowLocalProcess"));
    if (left != (host ? QStringList() : QStringList(QStringLiteral("Airlume_LocalServer"))))
        return QStringLiteral("left: ") + left.join(QLatin1Char(' '));
    return {};
}
} // namespace

/// Started and ended again and again, and by many hands at the same instant.
class TestManyStarts : public QObject
{
    Q_OBJECT

private slots:
    void twoHundredStartsAndEndsByButtonAndHost();
    void severalStartsAtTheSameInstant();
};

void TestManyStarts::twoHundredStartsAndEndsByButtonAndHost()
{
    // An orderly end waits for sleeping threads for up to 4 s, so several lanes run side by side;
    // in each, one copy follows another in the same temporary folder.
    QMutex mutex;
    QStringList failures;
    std::vector<std::thread> lanes;
    QTemporaryDir folders;
    for (int lane = 0; lane < Lanes; ++lane) {
        lanes.emplace_back([&, folder = folders.filePath(QString::number(lane))] {
            QDir().mkpath(folder);
            for (int round = 0; round < RoundsPerLane; ++round) {
                std::unique_ptr<HostSuite> host;
                if (round % 2 == 1)
                    host = std::make_unique<HostSuite>(folder);
                const QString failure = startAndEnd(folder, host.get());
                if (failure.isEmpty())
                    continue;
                QMutexLocker lock(&mutex);
                failures.append(QStringLiteral("round %1 %2").arg(round).arg(failure));
                return;
            }
        });
    }
    for (std::thread &lane : lanes)
        lane.join();
    QVERIFY2(failures.isEmpty(), qPrintable(failures.join(QLatin1Char('\n'))));
}

void TestManyStarts::severalStartsAtTheSameInstant()
{
    const QTemporaryDir folder;
    for (int moment = 0; moment < Moments; ++moment) {
        std::vector<std::unique_ptr<AirlumeProcess>> copies;
        for (int copy = 0; copy < 2 + moment % 4; ++copy) {
            copies.push_back(std::make_unique<AirlumeProcess>(Simulated));
            copies.back()->setEnvironment(QStringLiteral("TMPDIR"), folder.path());
        }
        for (const auto &copy : copies)
            copy->launch();
        // Each shows its window, or ends since another did.
        int running = 0;
        for (const auto &copy : copies) {
            if (copy->waitFor([](const QJsonObject &state) {
                    return state[QStringLiteral("visible")].toBool();
                })) {
                ++running;
                continue;
            }
            QVERIFY2(endedWell(*copy), qPrintable(copy->output()));
            QVERIFY(!copy->output().contains(QStringLiteral("qss")));
        }
        QVERIFY2(running >= 1, qPrintable(QString::number(moment)));
        for (const auto &copy : copies) {
            if (!copy->isRunning())
                continue;
            QVERIFY(copy->command(QStringLiteral("click close1")));
            QVERIFY2(endedWell(*copy), qPrintable(copy->output()));
        }
        QCOMPARE(filesIn(folder.path()), QStringList(QStringLiteral("Airlume_LocalServer")));
    }
}

QTEST_GUILESS_MAIN(TestManyStarts)
#include "tst_manystarts.moc"

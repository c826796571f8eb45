#include "plugincheck/checkerrun.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace
{

QString simulated()
{
    return QStringLiteral(AIRLUME_BUILD_DIR "/plugins/simulated");
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The events of a record; -1 of them when it is not valid JSON.
int eventsOf(const QString &path)
{
    const QJsonObject record = QJsonDocument::fromJson(contentOf(path)).object();
    return record.isEmpty() ? -1 : record.value(QStringLiteral("events")).toArray().size();
}

} // namespace

/// airlume-plugincheck --record, from outside.
class TestRecord : public QObject
{
    Q_OBJECT

private slots:
    void recordIsReplayedByTheSimulatedBackend();
    void recordIsWholeAfterAKill();
    void interruptionEndsARecordInOrder();
    void existingFileIsRefused();
    void crashEndsTheRecordAndIsReported();
    void anonymousRecordNamesNobody();

private:
    QString path() const { return m_folder.filePath(QLatin1String(QTest::currentTestFunction())); }

    QTemporaryDir m_folder;
};

void TestRecord::recordIsReplayedByTheSimulatedBackend()
{
    CheckerRun record({QStringLiteral("--record"), path(), QStringLiteral("--for"),
        QStringLiteral("0.5"), QStringLiteral("--interval"), QStringLiteral("0.2"), simulated()});
    QVERIFY(record.finish());
    QCOMPARE(record.status(), 0);
    QCOMPARE(record.output(), QByteArray());
    QVERIFY(record.errors().contains("Recorded "));
    QVERIFY(eventsOf(path()) > 10);

    const QString replay = QStringLiteral("AIRLUME_SCENARIO=") + path();
    CheckerRun original({QStringLiteral("--json"), simulated()});
    CheckerRun again({QStringLiteral("--json"), simulated()}, {replay});
    QVERIFY(original.finish() && again.finish());
    QCOMPARE(again.status(), 0);
    const auto names = [](const CheckerRun &run) {
        QStringList found;
        const QJsonArray networks =
            run.reports().value(0).value(QStringLiteral("networks")).toArray();
        for (const QJsonValue &network : networks)
            found.append(network.toObject().value(QStringLiteral("ssid")).toString());
        return found;
    };
    QVERIFY(names(again).size() > 10);
    QCOMPARE(names(again), names(original));
}

void TestRecord::recordIsWholeAfterAKill()
{
    CheckerRun run({QStringLiteral("--record"), path(), QStringLiteral("--interval"),
        QStringLiteral("0.1"), simulated()});
    int events = 0;
    // Whatever is read at any moment is a whole file.
    for (int look = 0; look < 200 && events < 40; ++look) {
        QVERIFY(!run.process().waitForFinished(20));
        if (QFile::exists(path()) && !contentOf(path()).isEmpty()) {
            // A reader may still come between the pages of one write.
            QTRY_VERIFY((events = eventsOf(path())) >= 0);
        }
    }
    QVERIFY(events > 0);
    run.process().kill();
    QVERIFY(run.finish());
    QVERIFY(eventsOf(path()) >= events);
}

void TestRecord::interruptionEndsARecordInOrder()
{
    CheckerRun run({QStringLiteral("--record"), path(), QStringLiteral("--interval"),
        QStringLiteral("0.1"), simulated()});
    QTRY_VERIFY_WITH_TIMEOUT(eventsOf(path()) > 10, 60000);
    QCOMPARE(::kill(static_cast<pid_t>(run.process().processId()), SIGINT), 0);
    QVERIFY(run.finish());
    QVERIFY(run.status() == 0 || run.status() == 1);
    QVERIFY(eventsOf(path()) > 10);
}

void TestRecord::existingFileIsRefused()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    CheckerRun run({QStringLiteral("--record"), path(), simulated()});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 2);
    QVERIFY(run.errors().contains("already"));
    QCOMPARE(contentOf(path()), QByteArray("mine"));
}

void TestRecord::crashEndsTheRecordAndIsReported()
{
    CheckerRun run({QStringLiteral("--record"), path(), QStringLiteral("--interval"),
                       QStringLiteral("0.1"), CheckerRun::library("faulty")},
        {QStringLiteral("AIRLUME_TEST_FAULT=exit@third")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 2);
    QVERIFY(run.text().contains(QStringLiteral("The back end ended its process")));
    QVERIFY(eventsOf(path()) > 2);
}

void TestRecord::anonymousRecordNamesNobody()
{
    CheckerRun run({QStringLiteral("--record"), path(), QStringLiteral("--anonymous"),
        QStringLiteral("--for"), QStringLiteral("0.1"), CheckerRun::library("sound")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 0);
    const QByteArray record = contentOf(path());
    QVERIFY(!record.contains("Network 000"));
    QVERIFY(record.contains("\"Network 1\"") && record.contains("\"Network 3\""));
    QVERIFY(record.contains("\"02:00:00:00:00:03\""));
}

QTEST_GUILESS_MAIN(TestRecord)

#include "tst_record.moc"

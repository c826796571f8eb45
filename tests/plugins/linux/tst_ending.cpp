#include "fakemanager.h"
#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"
#include "mutebus.h"
#include "privatebus.h"

#include <QTest>

#include <random>

/// Programs that end while their back end asks for a scan, on all kinds of buses. How often is the
/// environment's AIRLUME_ENDS, for long runs by hand.
class TestEnding : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void checkerEndsInOrder_data();
    void checkerEndsInOrder();
    void programEndsInOrder_data();
    void programEndsInOrder();

private:
    /// Of the bus that the row is about, which is made for it.
    QString address(const QString &kind);

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<MuteBus> m_mute;
    std::unique_ptr<FakeNetworkManager> m_manager;
    QTemporaryDir m_folder;
};

namespace
{
int times(int usually)
{
    const int set = qEnvironmentVariableIntValue("AIRLUME_ENDS");
    return set > 0 ? set : usually;
}

const QString Backend = QStringLiteral("tests/backends/asking");
} // namespace

void TestEnding::init()
{
    m_manager.reset();
    m_mute.reset();
    m_bus.reset();
}

QString TestEnding::address(const QString &kind)
{
    if (kind == QStringLiteral("no bus"))
        return QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("nothing"));
    if (kind == QStringLiteral("mute bus"))
        m_mute = std::make_unique<MuteBus>(MuteBus::Kind::SaysNothing);
    if (kind == QStringLiteral("bus that authenticates"))
        m_mute = std::make_unique<MuteBus>(MuteBus::Kind::Authenticates);
    if (kind == QStringLiteral("full bus"))
        m_mute = std::make_unique<MuteBus>(MuteBus::Kind::TakesNoConnections);
    if (m_mute)
        return m_mute->address();
    m_bus = std::make_unique<PrivateBus>();
    if (!m_bus->start())
        return {};
    // It stands still as long as nobody looks at its events: a manager that hangs.
    if (kind == QStringLiteral("hung manager"))
        m_manager = std::make_unique<FakeNetworkManager>(m_bus->address());
    if (kind == QStringLiteral("stopped bus"))
        m_bus->freeze(true);
    return m_bus->address();
}

void TestEnding::checkerEndsInOrder_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *const kind : {"no bus", "no manager", "hung manager", "mute bus",
             "bus that authenticates", "full bus", "stopped bus"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestEnding::checkerEndsInOrder()
{
    QFETCH(QString, kind);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString bus = address(kind);
    if (bus.isEmpty())
        QSKIP("dbus-daemon is missing");
    environment.insert(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), bus);
    std::minstd_rand random(1);
    for (int i = 0; i < times(4); ++i) {
        QProcess checker;
        checker.setProcessEnvironment(environment);
        checker.setProcessChannelMode(QProcess::MergedChannels);
        // A few rounds last as long as it takes to reach the bus, or less.
        checker.start(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-plugincheck"),
            {QStringLiteral("--json"), QStringLiteral("--rounds"),
                QString::number(1 + random() % 12), QStringLiteral("--interval"),
                QStringLiteral("0.002"), QStringLiteral(AIRLUME_BUILD_DIR "/") + Backend});
        QVERIFY2(checker.waitForFinished(60000), "the checker does not end");
        const QByteArray output = checker.readAll();
        QVERIFY2(checker.exitStatus() == QProcess::NormalExit, output.constData());
        QVERIFY2(checker.exitCode() == 0, output.constData());
    }
}

void TestEnding::programEndsInOrder_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *const kind : {"no manager", "bus that authenticates", "stopped bus"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestEnding::programEndsInOrder()
{
    QFETCH(QString, kind);
    const QString bus = address(kind);
    if (bus.isEmpty())
        QSKIP("dbus-daemon is missing");
    for (int i = 0; i < times(1); ++i) {
        HostSuite host;
        AirlumeProcess airlume(Backend);
        airlume.setEnvironment(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), bus);
        QVERIFY2(airlume.start(), qPrintable(airlume.output()));
        QVERIFY(host.isAsked());
        QVERIFY(airlume.waitFor(hasRows)); // and so a scan was asked for
        QVERIFY(host.say("IpcResponseExit"));
        QVERIFY2(airlume.waitForEnd(), "the program does not end");
        QVERIFY2(airlume.endedNormally(), qPrintable(airlume.output()));
        QVERIFY2(airlume.exitCode() == 0, qPrintable(airlume.output()));
    }
}

QTEST_GUILESS_MAIN(TestEnding)
#include "tst_ending.moc"

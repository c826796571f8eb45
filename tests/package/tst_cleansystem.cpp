#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"

#include <QFileInfo>
#include <QtTest>

namespace
{
const QString PrivateFolder = QStringLiteral("/usr/libexec/airlume");
const QString BackEnd = PrivateFolder + QStringLiteral("/libWiFiApiPlugin.dylib");
const QString Home = QStringLiteral("/home/tester");

QString status(const QJsonObject &state)
{
    return state[QStringLiteral("status")].toString();
}
} // namespace

/// The installed package in a system of its own, for an ordinary user; cleansystem.sh makes both.
class TestCleanSystem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void showsTheSimulatedNeighbourhood();
    void keepsTheRoomsAmongTheUsersData();
    void speaksTheLanguageOfTheLocale();
    void opensWithItsOwnBackEnd();
    void opensWithoutAnyBackEnd();

private:
    /// The installed program, to be started by the ordinary user.
    std::unique_ptr<AirlumeProcess> program(const QString &backEnd = {}) const;
    QString m_root;
};

std::unique_ptr<AirlumeProcess> TestCleanSystem::program(const QString &backEnd) const
{
    auto airlume = std::make_unique<AirlumeProcess>(
        QStringList{QStringLiteral("chroot"), QStringLiteral("--userspec=tester:tester"), m_root,
            QStringLiteral("/usr/bin/airlume")},
        backEnd, m_root);
    airlume->setEnvironment(QStringLiteral("HOME"), Home);
    airlume->setEnvironment(QStringLiteral("TMPDIR"), QStringLiteral("/tmp"));
    airlume->setEnvironment(QStringLiteral("XDG_RUNTIME_DIR"), Home);
    return airlume;
}

void TestCleanSystem::initTestCase()
{
    m_root = qEnvironmentVariable("AIRLUME_ROOT");
    QVERIFY2(QFileInfo(m_root + BackEnd).isFile(), "AIRLUME_ROOT names no system with Airlume");
}

void TestCleanSystem::showsTheSimulatedNeighbourhood()
{
    const auto airlume = program(PrivateFolder + QStringLiteral("/simulated"));
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY2(airlume->waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("rows")].toArray().size() == 15;
    }),
        qPrintable(airlume->output()));
    QVERIFY2(
        !airlume->output().contains(QStringLiteral("NUll point")), qPrintable(airlume->output()));
}

void TestCleanSystem::keepsTheRoomsAmongTheUsersData()
{
    const QFileInfo rooms(m_root + Home + QStringLiteral("/.local/share/Airlume/WifiHomeTest.ini"));
    QVERIFY(rooms.isFile());
    QCOMPARE(rooms.ownerId(), QFileInfo(m_root + Home).ownerId());
    QVERIFY(!QFile::exists(m_root + PrivateFolder + QStringLiteral("/WifiHomeTest.ini")));
}

void TestCleanSystem::speaksTheLanguageOfTheLocale()
{
    const auto airlume = program(PrivateFolder + QStringLiteral("/simulated"));
    airlume->setEnvironment(QStringLiteral("LC_ALL"), QStringLiteral("pt_PT.UTF-8"));
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QVERIFY2(airlume->waitFor(speaking(QStringLiteral("ptb"))), qPrintable(airlume->output()));
}

void TestCleanSystem::opensWithItsOwnBackEnd()
{
    const auto airlume = program();
    QVERIFY2(airlume->start(), qPrintable(airlume->output()));
    QFile maps(QStringLiteral("/proc/%1/maps").arg(airlume->processId()));
    QVERIFY(maps.open(QIODevice::ReadOnly));
    QVERIFY(maps.readAll().contains(BackEnd.toUtf8()));
}

void TestCleanSystem::opensWithoutAnyBackEnd()
{
    const QString aside = m_root + BackEnd + QStringLiteral(".aside");
    QVERIFY(QFile::rename(m_root + BackEnd, aside));
    const auto airlume = program();
    const bool started = airlume->start();
    QVERIFY(QFile::rename(aside, m_root + BackEnd));
    QVERIFY2(started, qPrintable(airlume->output()));
    QVERIFY(airlume->waitFor([](const QJsonObject &state) {
        return status(state) == QLatin1String("Please make sure turn on the wireless radio.");
    }));
}

QTEST_GUILESS_MAIN(TestCleanSystem)
#include "tst_cleansystem.moc"

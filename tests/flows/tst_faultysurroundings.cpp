#include "flows/airlumeprocess.h"
#include "flows/sharedtemporaryfolder.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");
const uint Stranger = 65534;

using Changes = QMap<QString, QString>;

/// Of a folder, longer than the path of a local socket may be.
QString longName()
{
    return QDir::tempPath() + QLatin1Char('/') + QString(200, QLatin1Char('x'));
}

/// Runs through the tabs, adds a room and ends by the button.
void walkThrough(AirlumeProcess &airlume)
{
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("rows")].toArray().size() == 15;
    }));
    for (int tab : {1, 2, 0, 3}) {
        const int paints = airlume.state()[QStringLiteral("paints")].toInt();
        QVERIFY(airlume.command(QStringLiteral("tab %1").arg(tab)));
        QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
            return state[QStringLiteral("paints")].toInt() > paints;
        }));
    }
    QCOMPARE(airlume.state()[QStringLiteral("rooms")].toArray().size(), 5);
    QVERIFY(airlume.command(QStringLiteral("click HomeTesting_btn_Add")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("focus")].toString() == QLatin1String("QLineEdit");
    }));
    QVERIFY(airlume.command(QStringLiteral("type Attic")));
    QVERIFY(airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("rooms")].toArray().size() == 6;
    }));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("modal")].toString().isEmpty();
    }));
    QVERIFY(airlume.command(QStringLiteral("click close1")));
    QVERIFY(airlume.waitForEnd());
    QVERIFY(airlume.endedNormally());
    QCOMPARE(airlume.exitCode(), 0);
}
} // namespace

/// Folders and fonts that every program may count on are missing: the window opens and works.
class TestFaultySurroundings : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void worksWhere_data();
    void worksWhere();
    void worksWithNothingToWriteIn();
    void worksWithoutFonts();

private:
    void runAsAStranger(AirlumeProcess &airlume) const;

    std::unique_ptr<SharedTemporaryFolder> m_shared;
};

void TestFaultySurroundings::initTestCase()
{
    // Root may write in any folder, so another user has to run the programs.
    if (mayRunAsOthers())
        m_shared = std::make_unique<SharedTemporaryFolder>();
    QFile file(QDir::tempPath() + QStringLiteral("/file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray theirs = QFile::encodeName(QDir::tempPath() + QStringLiteral("/theirs"));
    for (const QByteArray &forAll : {theirs, QFile::encodeName(longName())}) {
        QCOMPARE(mkdir(forAll.constData(), 0777), 0);
        QCOMPARE(chmod(forAll.constData(), 0777), 0);
    }
    if (geteuid() == 0 && !m_shared)
        QCOMPARE(chown(theirs.constData(), Stranger, Stranger), 0);
}

/// In folders that are theirs, where we are root and may.
void TestFaultySurroundings::runAsAStranger(AirlumeProcess &airlume) const
{
    if (!m_shared)
        return;
    const QDir folder(airlume.folder());
    QVERIFY(folder.mkdir(QStringLiteral("home")) && folder.mkdir(QStringLiteral("run")));
    const QString run = folder.filePath(QStringLiteral("run"));
    QVERIFY(QFile::setPermissions(run, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    airlume.setEnvironment(QStringLiteral("HOME"), folder.filePath(QStringLiteral("home")));
    airlume.setEnvironment(QStringLiteral("XDG_RUNTIME_DIR"), run);
    airlume.setUser(Stranger);
}

void TestFaultySurroundings::worksWhere_data()
{
    // /proc is a folder in which not even root may write.
    const QString unwritable = QStringLiteral("/proc");
    const QString file = QDir::tempPath() + QStringLiteral("/file");
    const QString theirs = QDir::tempPath() + QStringLiteral("/theirs");
    const QString missing = QStringLiteral("/nonexistent/folder");
    const auto only = [](const char *name, const QString &value) {
        return Changes{{QLatin1String(name), value}};
    };
    QTest::addColumn<Changes>("changes");
    QTest::newRow("the home cannot be written") << only("HOME", unwritable);
    QTest::newRow("the home is not set") << only("HOME", QString());
    QTest::newRow("the home is a file") << only("HOME", file);
    QTest::newRow("the home is missing") << only("HOME", missing);
    QTest::newRow("the temporary folder cannot be written") << only("TMPDIR", unwritable);
    QTest::newRow("the temporary folder is missing") << only("TMPDIR", missing);
    QTest::newRow("the temporary folder has a very long name") << only("TMPDIR", longName());
    QTest::newRow("the runtime folder is not set") << only("XDG_RUNTIME_DIR", QString());
    QTest::newRow("the runtime folder is missing") << only("XDG_RUNTIME_DIR", missing);
    QTest::newRow("the runtime folder is a file") << only("XDG_RUNTIME_DIR", file);
    QTest::newRow("the runtime folder is for all, and another's")
        << only("XDG_RUNTIME_DIR", theirs);
    QTest::newRow("none of these can be written") << Changes{
        {QStringLiteral("HOME"), unwritable},
        {QStringLiteral("TMPDIR"), unwritable},
        {QStringLiteral("XDG_RUNTIME_DIR"), missing},
    };
}

void TestFaultySurroundings::worksWhere()
{
    QFETCH(Changes, changes);
    AirlumeProcess airlume(Simulated);
    runAsAStranger(airlume);
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (change->isEmpty())
            airlume.unsetEnvironment(change.key());
        else
            airlume.setEnvironment(change.key(), change.value());
    }
    walkThrough(airlume);
    QVERIFY(QFile::exists(airlume.folder() + QStringLiteral("/WifiHomeTest.ini")));
}

void TestFaultySurroundings::worksWithNothingToWriteIn()
{
    if (geteuid() == 0 && !m_shared)
        QSKIP("Needs a build tree that others may read");
    AirlumeProcess airlume(Simulated);
    runAsAStranger(airlume);
    for (const char *name : {"HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME"})
        airlume.setEnvironment(QLatin1String(name), QStringLiteral("/proc"));
    const QFile::Permissions all = QFile::permissions(airlume.folder());
    const QFile::Permissions reading = QFile::ReadOwner | QFile::ExeOwner;
    QVERIFY(QFile::setPermissions(airlume.folder(), reading));
    walkThrough(airlume);
    QVERIFY(QFile::setPermissions(airlume.folder(), all));
    // The rooms lived in memory alone.
    QVERIFY(!QFile::exists(airlume.folder() + QStringLiteral("/WifiHomeTest.ini")));
}

void TestFaultySurroundings::worksWithoutFonts()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("fonts.conf"));
    QFile config(path);
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write("<?xml version=\"1.0\"?>\n<!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">\n"
                 "<fontconfig></fontconfig>\n");
    config.close();
    AirlumeProcess airlume(Simulated);
    airlume.setEnvironment(QStringLiteral("FONTCONFIG_FILE"), path);
    airlume.setEnvironment(QStringLiteral("QT_QPA_FONTDIR"), folder.path());
    walkThrough(airlume);
}

QTEST_GUILESS_MAIN(TestFaultySurroundings)
#include "tst_faultysurroundings.moc"

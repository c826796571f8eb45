#include "plugincheck/backendloader.h"

#include "plugincheck/checkerrun.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace PluginCheck;

namespace
{

/// A copy of the plug-in for another program, with `before` replaced by `after`.
QString changedCopy(const QTemporaryDir &folder, const QByteArray &before, const QByteArray &after)
{
    QFile original(CheckerRun::library("wronginterface"));
    if (!original.open(QIODevice::ReadOnly))
        return {};
    QByteArray content = original.readAll();
    if (!content.contains(before) || before.size() != after.size())
        return {};
    content.replace(before, after);
    QFile copy(folder.filePath(QStringLiteral("libWiFiApiPlugin.dylib")));
    if (!copy.open(QIODevice::WriteOnly))
        return {};
    copy.write(content);
    return copy.fileName();
}

} // namespace

class TestBackendLoader : public QObject
{
    Q_OBJECT

private slots:
    void qtVersionsThatDoNotGoTogetherAreNamed_data();
    void qtVersionsThatDoNotGoTogetherAreNamed();
    void soundBackendIsLoadedFromItsFile();
    void folderStandsForTheLibraryInIt();
    void missingFileIsReported();
    void fileThatIsNoLibraryIsReported();
    void emptyFileIsReported();
    void pluginForAnotherProgramIsReported();
    void pluginOfANewerQtIsReported();
    void pluginWithoutItsLibrariesIsReported();
};

void TestBackendLoader::qtVersionsThatDoNotGoTogetherAreNamed_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("running");
    QTest::addColumn<bool>("together");
    QTest::newRow("same") << 0x050f00 << 0x050f08 << true;
    QTest::newRow("older minor version") << 0x050c00 << 0x050f08 << true;
    QTest::newRow("newer minor version") << 0x051000 << 0x050f08 << false;
    QTest::newRow("newer major version") << 0x060000 << 0x050f08 << false;
    QTest::newRow("older major version") << 0x040800 << 0x050f08 << false;
}

void TestBackendLoader::qtVersionsThatDoNotGoTogetherAreNamed()
{
    QFETCH(int, version);
    QFETCH(int, running);
    const Problem problem = incompatibleQt(version, running);
    QTEST(problem.code.isEmpty(), "together");
    if (!problem.code.isEmpty())
        QVERIFY(problem.text.contains(QStringLiteral("Qt ") + versionText(version)));
    QCOMPARE(versionText(0x050f08), QStringLiteral("5.15"));
}

void TestBackendLoader::soundBackendIsLoadedFromItsFile()
{
    const Backend backend = loadBackend(CheckerRun::library("sound"));
    QCOMPARE(backend.problem.code, QString());
    QVERIFY(backend.api);
    QVERIFY(backend.deviations.isEmpty());
    QCOMPARE(backend.path, CheckerRun::library("sound"));
    QCOMPARE(backend.className, QStringLiteral("TestBackend"));
    QCOMPARE(backend.interfaceId, QStringLiteral("com.corvane.WiFiApiPlugin.WiFiApiInterface/1.0"));
    QCOMPARE(backend.qtVersion, QStringLiteral(QT_VERSION_STR).section(QLatin1Char('.'), 0, 1));
}

void TestBackendLoader::folderStandsForTheLibraryInIt()
{
    QCOMPARE(loadBackend(CheckerRun::folder("sound")).path, CheckerRun::library("sound"));
}

void TestBackendLoader::missingFileIsReported()
{
    const Backend backend = loadBackend(QStringLiteral("no/such/file"));
    QCOMPARE(backend.problem.code, QStringLiteral("not-found"));
    QVERIFY(backend.problem.text.contains(QStringLiteral("no/such/file")));
    QVERIFY(!backend.problem.advice.isEmpty());
    QVERIFY(!backend.api);
}

void TestBackendLoader::fileThatIsNoLibraryIsReported()
{
    const Backend backend = loadBackend(CheckerRun::folder("notalibrary"));
    QCOMPARE(backend.problem.code, QStringLiteral("not-a-plugin"));
    QCOMPARE(backend.path, CheckerRun::library("notalibrary"));
}

void TestBackendLoader::emptyFileIsReported()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("libWiFiApiPlugin.dylib")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(loadBackend(folder.path()).problem.code, QStringLiteral("not-a-plugin"));
}

void TestBackendLoader::pluginForAnotherProgramIsReported()
{
    const Backend backend = loadBackend(CheckerRun::folder("wronginterface"));
    QCOMPARE(backend.problem.code, QStringLiteral("wrong-interface"));
    QVERIFY(backend.problem.text.contains(QStringLiteral("org.example.Other/1.0")));
    QVERIFY(!backend.api);
}

void TestBackendLoader::pluginOfANewerQtIsReported()
{
    // The metadata begin with this mark and a format number; Qt's major and minor version follow.
    const QByteArray mark = QByteArray("QTMETADATA !", 12) + '\0' + char(QT_VERSION_MAJOR);
    QTemporaryDir folder;
    const QString copy = changedCopy(folder, mark + char(QT_VERSION_MINOR), mark + char(99));
    QVERIFY(!copy.isEmpty());
    const Backend backend = loadBackend(copy);
    QCOMPARE(backend.problem.code, QStringLiteral("incompatible-qt"));
    QVERIFY2(
        backend.problem.text.contains(QStringLiteral("5.99")), qPrintable(backend.problem.text));
}

void TestBackendLoader::pluginWithoutItsLibrariesIsReported()
{
#ifdef Q_OS_LINUX
    QTemporaryDir folder;
    const QString copy = changedCopy(folder, "libQt5Core.so.5", "libQt5Gone.so.5");
    QVERIFY(!copy.isEmpty());
    const Backend backend = loadBackend(copy);
    QCOMPARE(backend.problem.code, QStringLiteral("cannot-load"));
    QVERIFY2(backend.problem.text.contains(QStringLiteral("libQt5Gone.so.5")),
        qPrintable(backend.problem.text));
#endif
}

QTEST_GUILESS_MAIN(TestBackendLoader)

#include "tst_backendloader.moc"

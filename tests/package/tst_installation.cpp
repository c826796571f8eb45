#include "flows/airlumeprocess.h"

#include <QDirIterator>
#include <QJsonDocument>
#include <QtTest>

namespace
{
const QString Release = QStringLiteral(AIRLUME_RELEASE_DIR "/");
const QString BackEnd = QStringLiteral("libWiFiApiPlugin.dylib");
/// The scenarios of the documentation.
const QStringList Examples = QDir(QStringLiteral(AIRLUME_SOURCE_DIR "/docs/examples"))
                                 .entryList({QStringLiteral("*.json")}, QDir::Files);

/// All files below the folder, by their paths in it.
QStringList filesBelow(const QString &folder)
{
    QStringList found;
    QDirIterator files(folder, QDir::Files | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(QDir(folder).relativeFilePath(files.next()));
    found.sort();
    return found;
}

/// Runs a program to its end; its output, or empty when it failed.
QByteArray outputOf(const QString &program, const QStringList &arguments,
    const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.error() == QProcess::FailedToStart)
        return {};
    return process.readAllStandardOutput();
}

bool hasLoaded(qint64 processId, const QString &library)
{
    QFile maps(QStringLiteral("/proc/%1/maps").arg(processId));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(QFile::encodeName(library));
}
} // namespace

/// What `cmake --install` of a Release build puts into a folder.
class TestInstallation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hasAllThatBelongsToIt();
    void leavesTheBackEndOutWhereNoneIsWanted();
    void startsFromAnyFolderWithItsOwnBackEnd();
    void checksTheBackEndOfTheProgram();
    void showsTheSimulatedNeighbourhoodOnDemand();
    void playsTheInstalledScenarios_data();
    void playsTheInstalledScenarios();
    void manualNamesTheFoldersWhereItIsStagedFor();

private:
    QTemporaryDir m_folder;
    QString m_prefix;
    /// The installation's private folder.
    QString m_private;
};

/// A copy of the installation, at a place it was not installed to.
void TestInstallation::initTestCase()
{
    m_prefix = m_folder.filePath(QStringLiteral("another place"));
    QCOMPARE(QProcess::execute(QStringLiteral("cp"),
                 {QStringLiteral("-a"), Release + QStringLiteral("installed"), m_prefix}),
        0);
    m_private = QFileInfo(m_prefix + QStringLiteral("/bin/airlume-host")).canonicalPath();
}

void TestInstallation::hasAllThatBelongsToIt()
{
    QStringList expected = {
        QStringLiteral("bin/airlume"),
        QStringLiteral("bin/airlume-host"),
        QStringLiteral("bin/airlume-plugincheck"),
        QStringLiteral("libexec/airlume/airlume"),
        QStringLiteral("libexec/airlume/airlume-host"),
        QStringLiteral("libexec/airlume/airlume-plugincheck"),
        QStringLiteral("libexec/airlume/") + BackEnd,
        QStringLiteral("libexec/airlume/simulated/") + BackEnd,
        QStringLiteral("share/applications/airlume.desktop"),
        QStringLiteral("share/doc/airlume/copyright"),
        QStringLiteral("share/doc/airlume/examples/neighbourhood.json"),
        QStringLiteral("share/icons/hicolor/scalable/apps/airlume.svg"),
        QStringLiteral("share/man/man1/airlume-host.1"),
        QStringLiteral("share/man/man1/airlume-plugincheck.1"),
        QStringLiteral("share/man/man1/airlume.1"),
        QStringLiteral("share/man/man5/airlume-scenario.5"),
        QStringLiteral("share/metainfo/app.airlume.Airlume.metainfo.xml"),
    };
    for (int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        expected.append(QStringLiteral("share/icons/hicolor/%1x%1/apps/airlume.png")
                            .arg(QString::number(size)));
    }
    for (const QString &scenario : Examples)
        expected.append(QStringLiteral("share/doc/airlume/examples/") + scenario);
    expected.sort();
    QCOMPARE(filesBelow(m_prefix), expected);
    QCOMPARE(
        m_private, QFileInfo(m_prefix).canonicalFilePath() + QStringLiteral("/libexec/airlume"));
}

void TestInstallation::leavesTheBackEndOutWhereNoneIsWanted()
{
    QStringList expected = filesBelow(m_prefix);
    expected.removeOne(QStringLiteral("libexec/airlume/") + BackEnd);
    QCOMPARE(filesBelow(Release + QStringLiteral("without")), expected);
}

void TestInstallation::startsFromAnyFolderWithItsOwnBackEnd()
{
    AirlumeProcess airlume({m_prefix + QStringLiteral("/bin/airlume")}, QString());
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(hasLoaded(airlume.processId(), m_private + QLatin1Char('/') + BackEnd));
}

void TestInstallation::checksTheBackEndOfTheProgram()
{
    const QByteArray report =
        outputOf(m_prefix + QStringLiteral("/bin/airlume-plugincheck"), {QStringLiteral("--json")});
    const QJsonObject backEnd =
        QJsonDocument::fromJson(report).object()[QStringLiteral("backend")].toObject();
    QCOMPARE(backEnd[QStringLiteral("path")].toString(), m_private + QLatin1Char('/') + BackEnd);
    QVERIFY2(!backEnd[QStringLiteral("class")].isNull(), report.constData());
}

void TestInstallation::showsTheSimulatedNeighbourhoodOnDemand()
{
    const QString simulated = m_private + QStringLiteral("/simulated");
    AirlumeProcess airlume({m_prefix + QStringLiteral("/bin/airlume")}, simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY2(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("rows")].toArray().size() == 15;
    }),
        qPrintable(airlume.output()));
    QVERIFY(hasLoaded(airlume.processId(), simulated + QLatin1Char('/') + BackEnd));
}

void TestInstallation::playsTheInstalledScenarios_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("neighbourhood.json") << QStringLiteral("neighbourhood.json");
    for (const QString &example : Examples)
        QTest::newRow(qPrintable(example)) << example;
}

void TestInstallation::playsTheInstalledScenarios()
{
    QFETCH(QString, file);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("AIRLUME_SCENARIO"),
        m_prefix + QStringLiteral("/share/doc/airlume/examples/") + file);
    const QByteArray report = outputOf(m_prefix + QStringLiteral("/bin/airlume-plugincheck"),
        {QStringLiteral("--json"), m_private + QStringLiteral("/simulated")}, environment);
    const QJsonObject round = QJsonDocument::fromJson(report).object();
    QVERIFY2(!round[QStringLiteral("interfaces")].toArray().isEmpty(), report.constData());
    QVERIFY2(round[QStringLiteral("queried")].toBool(), report.constData());
    QVERIFY2(round[QStringLiteral("messages")].toArray().isEmpty(), report.constData());
}

void TestInstallation::manualNamesTheFoldersWhereItIsStagedFor()
{
    const QString stage = m_folder.filePath(QStringLiteral("stage"));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DESTDIR"), stage);
    outputOf(QStringLiteral("cmake"),
        {QStringLiteral("--install"), Release + QStringLiteral("build"), QStringLiteral("--prefix"),
            QStringLiteral("/opt/airlume")},
        environment);
    for (const char *page : {"man1/airlume.1", "man5/airlume-scenario.5"}) {
        QFile manual(stage + QStringLiteral("/opt/airlume/share/man/") + QLatin1String(page));
        QVERIFY2(manual.open(QIODevice::ReadOnly), page);
        const QByteArray text = manual.readAll();
        QVERIFY2(text.contains("QT_PLUGIN_PATH=/opt/airlume/libexec/airlume/simulated"), page);
        QVERIFY2(
            text.contains("AIRLUME_SCENARIO=/opt/airlume/share/doc/airlume/examples/scenario.json"),
            page);
        QVERIFY2(!text.contains('@'), page);
        QVERIFY2(!text.contains(QFile::encodeName(stage)), page);
    }
}

QTEST_GUILESS_MAIN(TestInstallation)
#include "tst_installation.moc"

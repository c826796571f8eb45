#include "scan/wifiapiinterface.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <QtTest>

#include <thread>

/// The libraries as the program loads them. QT_PLUGIN_PATH names the folder of the simulated back
/// end and then that of the minimal one.
class TestLoadedPlugin : public QObject
{
    Q_OBJECT
private slots:
    void foldersAreSearchedInTheOrderOfTheDocumentation();
    void bareFileNameFindsTheFirstFolderOfThePath();
    void metadataNameTheInterface();
    void simulatedBackEndAnswersOnAnotherThread();
    void minimalBackEndAnswers();
};

namespace
{
const QString bareName = QStringLiteral("libWiFiApiPlugin.dylib");

QString simulatedFolder()
{
    return QStringLiteral(AIRLUME_BUILD_DIR "/plugins/simulated");
}

QString minimalFolder()
{
    return QStringLiteral(AIRLUME_MINIMAL_DIR);
}

QString fileIn(const QString &folder)
{
    return folder + QLatin1Char('/') + bareName;
}
} // namespace

void TestLoadedPlugin::foldersAreSearchedInTheOrderOfTheDocumentation()
{
    const QStringList paths = QCoreApplication::libraryPaths();
    QVector<int> places;
    for (const QString &folder :
        {simulatedFolder(), minimalFolder(), QLibraryInfo::location(QLibraryInfo::PluginsPath),
            QCoreApplication::applicationDirPath()})
        places.append(paths.indexOf(QDir(folder).canonicalPath()));
    QVERIFY(!places.contains(-1));
    QVERIFY(std::is_sorted(places.begin(), places.end()));
}

void TestLoadedPlugin::bareFileNameFindsTheFirstFolderOfThePath()
{
    QPluginLoader loader(bareName);
    QCOMPARE(QFileInfo(loader.fileName()).canonicalFilePath(),
        QFileInfo(fileIn(simulatedFolder())).canonicalFilePath());
    QVERIFY2(qobject_cast<WiFiApiInterface *>(loader.instance()), qPrintable(loader.errorString()));
}

void TestLoadedPlugin::metadataNameTheInterface()
{
    for (const QString &folder : {simulatedFolder(), minimalFolder()}) {
        const QPluginLoader loader(fileIn(folder));
        QCOMPARE(loader.metaData().value(QLatin1String("IID")).toString(),
            QStringLiteral("com.corvane.WiFiApiPlugin.WiFiApiInterface/1.0"));
    }
}

void TestLoadedPlugin::simulatedBackEndAnswersOnAnotherThread()
{
    QPluginLoader loader(fileIn(simulatedFolder()));
    auto *backEnd = qobject_cast<WiFiApiInterface *>(loader.instance());
    QVERIFY(backEnd);
    QStringList nics;
    bool usable = false;
    bool heard = false;
    QList<ScanMap> maps;
    std::thread discovery([&] {
        backEnd->getWiFiNicList(nics);
        usable = backEnd->isWiFiNicUsable(nics.value(0), 0);
        QString nic;
        heard = backEnd->getVisiableNetworkMapList(nic, maps);
    });
    discovery.join();
    QCOMPARE(nics, QStringList{QStringLiteral("sim0")});
    QVERIFY(usable);
    QVERIFY(heard);
    QVERIFY(maps.size() >= 24);
}

void TestLoadedPlugin::minimalBackEndAnswers()
{
    QPluginLoader loader(fileIn(minimalFolder()));
    auto *backEnd = qobject_cast<WiFiApiInterface *>(loader.instance());
    QVERIFY2(backEnd, qPrintable(loader.errorString()));
    QStringList nics;
    QVERIFY(backEnd->getWiFiNicList(nics));
    QCOMPARE(nics, QStringList{QStringLiteral("wlan0")});
    QVERIFY(backEnd->isWiFiNicUsable(nics.first(), 0));
    QString nic;
    QList<ScanMap> maps;
    QVERIFY(backEnd->getVisiableNetworkMapList(nic, maps));
    QCOMPARE(maps.size(), 1);
    QCOMPARE(maps.first().value(QStringLiteral("WLAN_NETWORK_SIGNAL")), QStringLiteral("-48"));
    QCOMPARE(maps.first().value(QStringLiteral("link_rate")), QStringLiteral("433"));
    nic = QStringLiteral("eth0");
    QVERIFY(!backEnd->getVisiableNetworkMapList(nic, maps));
}

QTEST_GUILESS_MAIN(TestLoadedPlugin)
#include "tst_loadedplugin.moc"

#include "plugincheck/checkerrun.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

QJsonArray networksOf(const QJsonObject &report)
{
    return report.value(QStringLiteral("networks")).toArray();
}

QString textAt(const QJsonObject &report, const char *key)
{
    return report.value(QLatin1String(key)).toString();
}

/// True when a terminal only shows what is there: line feeds are all that it obeys.
bool isHarmless(const QString &text)
{
    for (const QChar character : text) {
        if (character != QLatin1Char('\n') && !character.isPrint() && !character.isSurrogate())
            return false;
    }
    return true;
}

bool isAscii(const QByteArray &octets)
{
    for (const char octet : octets) {
        if (octet != '\n' && (octet < 0x20 || octet > 0x7e))
            return false;
    }
    return true;
}

} // namespace

/// airlume-plugincheck from outside, with back ends of every kind.
class TestPlugincheck : public QObject
{
    Q_OBJECT

private slots:
    void everyKindOfBackendGetsItsVerdict_data();
    void everyKindOfBackendGetsItsVerdict();
    void everyReportIsValidJson_data();
    void everyReportIsValidJson();
    void garbageIsNamedPieceByPiece();
    void hostileTextNeverReachesTheTerminal();
    void terminalWithoutUtf8GetsAscii();
    void backendsMessagesAreShownAsSuch();
    void backendOfTheProgramIsFoundThroughQtsPaths();
    void missingBackendOfTheProgramNamesTheFolders();
    void filesThatMayNotBeReadAreToldFromMissingOnes_data();
    void filesThatMayNotBeReadAreToldFromMissingOnes();
    void wrongOptionsEndWithTheUsageOnStandardError();
    void helpAndVersionGoToStandardOutput();
    void simulatedBackendIsSound();
    void simulatedBackendWithABadScenarioTellsWhy();
};

void TestPlugincheck::everyKindOfBackendGetsItsVerdict_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *kind, int status, const char *words) {
        QTest::newRow(kind) << QByteArray(kind) << status << QString::fromLatin1(words);
    };
    row("sound", 0, "sound and hears 3 networks");
    row("hostile", 0, "sound and hears 12 networks");
    row("thousand", 0, "sound and hears 1000 networks");
    row("hundredthousand", 0, "sound and hears 100000 networks");
    row("changinglist", 0, "sound and hears 3 networks");
    row("longtexts", 0, "Airlume copes with what is odd");
    row("empty", 1, "finds no Wi-Fi interface");
    row("noint", 1, "could not list the Wi-Fi interfaces");
    row("radiooff", 1, "none that can be used");
    row("nonetworks", 1, "has not heard any network yet");
    row("alternating", 1, "asking it for networks failed");
    row("garbage", 2, "breaks the contract");
    row("namedonly", 2, "must work with an empty interface name");
    row("accumulating", 2, "those of earlier queries must not be given again");
    row("slow", 0, "getVisiableNetworkMapList() took ");
    row("wronginterface", 2, "this one is for \"org.example.Other/1.0\"");
    row("notalibrary", 2, "is not a Qt plug-in");
    row("nosuchkind", 2, "There is no file");
}

void TestPlugincheck::everyKindOfBackendGetsItsVerdict()
{
    QFETCH(QByteArray, kind);
    QFETCH(QString, words);
    CheckerRun run(
        {QStringLiteral("--wait"), QStringLiteral("0"), CheckerRun::library(kind.constData())});
    QVERIFY(run.finish());
    QTEST(run.status(), "status");
    QVERIFY2(run.text().simplified().contains(words), run.output().constData());
    QCOMPARE(run.errors(), QByteArray());
    QVERIFY(isHarmless(run.text()));
    QCOMPARE(run.text().contains(QStringLiteral("What you can do")), run.status() != 0);
}

void TestPlugincheck::everyReportIsValidJson_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *kind, int status, const char *result, const char *reason) {
        QTest::newRow(kind) << QByteArray(kind) << status << QString::fromLatin1(result)
                            << QString::fromLatin1(reason);
    };
    row("sound", 0, "heard", "");
    row("hostile", 0, "heard", "");
    row("hundredthousand", 0, "heard", "");
    row("empty", 1, "nothing-heard", "no-interface");
    row("noint", 1, "nothing-heard", "no-interface");
    row("radiooff", 1, "nothing-heard", "none-usable");
    row("nonetworks", 1, "nothing-heard", "empty-list");
    row("alternating", 1, "nothing-heard", "query-failed");
    row("garbage", 2, "out-of-contract", "");
    row("namedonly", 2, "out-of-contract", "");
    row("accumulating", 2, "out-of-contract", "");
    row("slow", 0, "heard", "");
    row("wronginterface", 2, "no-answers", "wrong-interface");
    row("notalibrary", 2, "no-answers", "not-a-plugin");
    row("nosuchkind", 2, "no-answers", "not-found");
}

void TestPlugincheck::everyReportIsValidJson()
{
    QFETCH(QByteArray, kind);
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--wait"), QStringLiteral("0"),
        CheckerRun::library(kind.constData())});
    QVERIFY(run.finish());
    QTEST(run.status(), "status");
    QVERIFY(isAscii(run.output()));
    QCOMPARE(run.reports().size(), 1);
    const QJsonObject report = run.reports().first();
    QCOMPARE(report.value(QStringLiteral("format")).toInt(), 1);
    QCOMPARE(report.value(QStringLiteral("round")).toInt(), 1);
    QTEST(report.value(QStringLiteral("status")).toInt(), "status");
    QTEST(textAt(report, "result"), "result");
    QTEST(textAt(report, "reason"), "reason");
    QVERIFY(!textAt(report, "text").isEmpty());
}

void TestPlugincheck::garbageIsNamedPieceByPiece()
{
    CheckerRun run({QStringLiteral("--json"), CheckerRun::library("garbage")});
    QVERIFY(run.finish());
    QMap<QString, int> counts;
    const QJsonArray deviations =
        run.reports().value(0).value(QStringLiteral("deviations")).toArray();
    for (const QJsonValue &deviation : deviations) {
        const QJsonObject object = deviation.toObject();
        counts.insert(textAt(object, "code"), object.value(QStringLiteral("count")).toInt());
    }
    const QMap<QString, int> expected{
        {QStringLiteral("empty-interface-name"), 1},
        {QStringLiteral("repeated-interface"), 1},
        {QStringLiteral("missing-ssid"), 2},
        {QStringLiteral("missing-bssid"), 2},
        {QStringLiteral("missing-channel"), 2},
        {QStringLiteral("missing-current_connected"), 2},
        {QStringLiteral("missing-security_mode"), 2},
        {QStringLiteral("missing-WLAN_NETWORK_SIGNAL"), 2},
        {QStringLiteral("bad-ssid"), 1},
        {QStringLiteral("bad-bssid"), 2},
        {QStringLiteral("bad-channel"), 3},
        {QStringLiteral("odd-channel"), 1},
        {QStringLiteral("bad-current_connected"), 2},
        {QStringLiteral("bad-security_mode"), 1},
        {QStringLiteral("bad-WLAN_NETWORK_SIGNAL"), 2},
        {QStringLiteral("odd-WLAN_NETWORK_SIGNAL"), 1},
        {QStringLiteral("bad-link_rate"), 1},
        {QStringLiteral("several-joined"), 1},
        {QStringLiteral("repeated-network"), 4},
    };
    QCOMPARE(counts, expected);
}

void TestPlugincheck::hostileTextNeverReachesTheTerminal()
{
    for (const char *kind : {"hostile", "garbage"}) {
        CheckerRun run({CheckerRun::library(kind)});
        QVERIFY(run.finish());
        QVERIFY(isHarmless(run.text()));
        QVERIFY(run.text().contains(QStringLiteral("\\x1b[2J")));
        QVERIFY(run.output().size() < 20000);
    }
    CheckerRun run({CheckerRun::library("hostile")});
    QVERIFY(run.finish());
    for (const char *shown :
        {"<b>bold</b><img src=x", "%1 %2 %n %s %d &amp; \\", "\\u{202e}txt.exe",
            "caf\xc3\xa9 \xe6\x97\xa5\xe6\x9c\xac \xf0\x9f\x93\xb6", "nul\\x00byte",
            "[10000 characters]", "(hidden: no name)", "test\\x1b[2J0", "WPA2\\x1b[31m\\u{202e}"})
        QVERIFY2(run.text().contains(QString::fromUtf8(shown)), shown);
}

void TestPlugincheck::terminalWithoutUtf8GetsAscii()
{
    CheckerRun run({CheckerRun::library("hostile")}, {QStringLiteral("LC_ALL=C")});
    QVERIFY(run.finish());
    QVERIFY(isAscii(run.output()));
    QVERIFY(run.output().contains("caf\\xe9 \\u{65e5}\\u{672c} \\u{1f4f6}"));
}

void TestPlugincheck::backendsMessagesAreShownAsSuch()
{
    CheckerRun run({CheckerRun::library("hostile")});
    QVERIFY(run.finish());
    QVERIFY(run.output().contains("The back end's own messages\n"
                                  "  critical: Cannot tune \\x1b[2J to %s \\x07 of network "
                                  "\\u{202e}%1\n"));
    QCOMPARE(run.errors(), QByteArray());
}

void TestPlugincheck::backendOfTheProgramIsFoundThroughQtsPaths()
{
    const QString paths =
        CheckerRun::folder("nonetworks") + QLatin1Char(':') + CheckerRun::folder("sound");
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--wait"), QStringLiteral("0")},
        {QStringLiteral("QT_PLUGIN_PATH=") + paths});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 1);
    QCOMPARE(textAt(run.reports().value(0).value(QStringLiteral("backend")).toObject(), "path"),
        CheckerRun::library("nonetworks"));
}

void TestPlugincheck::missingBackendOfTheProgramNamesTheFolders()
{
    // A copy in a folder of its own has no back end beside it.
    QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("airlume-plugincheck"));
    QVERIFY(QFile::copy(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-plugincheck"), copy));
    QProcess process;
    process.start(copy, QStringList());
    QVERIFY(process.waitForFinished());
    const QString text = QString::fromUtf8(process.readAllStandardOutput()).simplified();
    QCOMPARE(process.exitCode(), 2);
    QVERIFY2(
        text.contains(QStringLiteral("there is no libWiFiApiPlugin.dylib in ")), qPrintable(text));
    QVERIFY(text.contains(folder.path()));
    QVERIFY(text.contains(QStringLiteral("QT_PLUGIN_PATH")));
}

void TestPlugincheck::filesThatMayNotBeReadAreToldFromMissingOnes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("reason");
    QTest::newRow("unreadable file") << QStringLiteral("file") << QStringLiteral("not-readable");
    QTest::newRow("locked folder")
        << QStringLiteral("locked/file") << QStringLiteral("not-readable");
    QTest::newRow("missing file") << QStringLiteral("none") << QStringLiteral("not-found");
}

void TestPlugincheck::filesThatMayNotBeReadAreToldFromMissingOnes()
{
    QFETCH(QString, file);
    // A place that every user reaches, because root, who may read anything, gives way to nobody.
    QTemporaryDir folder(QStringLiteral("/tmp/airlume-check.XXXXXX"));
    const QString checker = folder.filePath(QStringLiteral("airlume-plugincheck"));
    QVERIFY(QFile::copy(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-plugincheck"), checker));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("locked")));
    for (const char *name : {"file", "locked/file"})
        QVERIFY(QFile::copy(CheckerRun::library("sound"), folder.filePath(QLatin1String(name))));
    QCOMPARE(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    QCOMPARE(::chmod(QFile::encodeName(checker).constData(), 0755), 0);
    QCOMPARE(::chmod(QFile::encodeName(folder.filePath(QStringLiteral("file"))).constData(), 0), 0);
    const QByteArray locked = QFile::encodeName(folder.filePath(QStringLiteral("locked")));
    QCOMPARE(::chmod(locked.constData(), 0), 0);

    QStringList command{checker, QStringLiteral("--json"), folder.filePath(file)};
    if (::geteuid() == 0) {
        command = QStringList{QStringLiteral("setpriv"), QStringLiteral("--reuid=65534"),
                      QStringLiteral("--regid=65534"), QStringLiteral("--clear-groups")} +
                  command;
    }
    QProcess process;
    process.start(command.takeFirst(), command);
    QVERIFY(process.waitForFinished());
    QCOMPARE(::chmod(locked.constData(), 0700), 0);
    QCOMPARE(process.exitCode(), 2);
    const QByteArray output = process.readAllStandardOutput();
    QTEST(textAt(QJsonDocument::fromJson(output).object(), "reason"), "reason");
}

void TestPlugincheck::wrongOptionsEndWithTheUsageOnStandardError()
{
    CheckerRun run({QStringLiteral("--no-such-option\x1b[2J")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 2);
    QCOMPARE(run.output(), QByteArray());
    QVERIFY(run.errors().contains("Usage: "));
    QVERIFY(!run.errors().contains('\x1b'));
}

void TestPlugincheck::helpAndVersionGoToStandardOutput()
{
    for (const QString &option : {QStringLiteral("--help"), QStringLiteral("--version")}) {
        CheckerRun run({option});
        QVERIFY(run.finish());
        QCOMPARE(run.status(), 0);
        QVERIFY(run.output().contains("airlume-plugincheck"));
        QCOMPARE(run.errors(), QByteArray());
    }
}

void TestPlugincheck::simulatedBackendIsSound()
{
    CheckerRun run({QStringLiteral("--json"), QStringLiteral("--rounds"), QStringLiteral("3"),
        QStringLiteral("--interval"), QStringLiteral("0.1"),
        QStringLiteral(AIRLUME_BUILD_DIR "/plugins/simulated")});
    QVERIFY(run.finish());
    QVERIFY2(run.status() == 0, run.output().constData());
    for (const QJsonObject &report : run.reports())
        QVERIFY(networksOf(report).size() >= 10);
}

void TestPlugincheck::simulatedBackendWithABadScenarioTellsWhy()
{
    CheckerRun run({QStringLiteral(AIRLUME_BUILD_DIR "/plugins/simulated")},
        {QStringLiteral("AIRLUME_SCENARIO=/no/such/scenario.json")});
    QVERIFY(run.finish());
    QCOMPARE(run.status(), 1);
    QVERIFY2(run.text().contains(QStringLiteral("critical: ")), run.output().constData());
    QVERIFY(run.text().contains(QStringLiteral("/no/such/scenario.json")));
    QVERIFY(run.text().contains(QStringLiteral("Interfaces: none")));
    QVERIFY(run.text().contains(QStringLiteral("cannot play its scenario")));
    QVERIFY(!run.text().contains(QStringLiteral("adapter")));
}

QTEST_GUILESS_MAIN(TestPlugincheck)

#include "tst_plugincheck.moc"

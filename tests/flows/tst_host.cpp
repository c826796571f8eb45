#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"
#include "support/busyhost.h"
#include "support/languagecodes.h"

#include <QFile>
#include <QtTest>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");

bool isJoined(const QJsonObject &state)
{
    return state[QStringLiteral("connected")].toString().startsWith(QLatin1String("Connected to "));
}
} // namespace

/// The program and the host suite: languages, and hosts that misbehave.
class TestHost : public QObject
{
    Q_OBJECT

private slots:
    void withoutAHostItIsEnglish();
    void hostThatNeverTakesTheConnectionDelaysTheStartOnly();
    void hostThatTakesTheConnectionLateIsHeard();
    void hostThatNeverAnswersLeavesItEnglish();
    void answerBeforeTheWindowIsShownCounts();
    void everyLanguageReachesTheWindow();
    void everyViewChangesItsLanguage();
    void reportedTextsChangeWithTheNextReport();
    void sameCodeAgainChangesNothing();
    void codeThatIsNoneGivesEnglish_data();
    void codeThatIsNoneGivesEnglish();
    void messageInTwoPiecesIsNotPutTogether();
    void garbageIsIgnored_data();
    void garbageIsIgnored();
    void languageOpensInADialogToo();
    void hostThatDiesChangesNothing();
    void airlumeHostSwitchesLanguages();
};

void TestHost::withoutAHostItIsEnglish()
{
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(speaks(airlume.state(), QStringLiteral("enu")));
}

void TestHost::hostThatNeverTakesTheConnectionDelaysTheStartOnly()
{
    BusyHost host("HarborWindowLocalProcess");
    QVERIFY(host.isFull());
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(speaks(airlume.state(), QStringLiteral("enu")));
    // It has stopped trying: taken now, the connection that was refused does not come.
    QVERIFY(!host.accept(0));
    QVERIFY(!host.accept(500));
}

void TestHost::hostThatTakesTheConnectionLateIsHeard()
{
    BusyHost host("HarborWindowLocalProcess");
    QVERIFY(host.isFull());
    AirlumeProcess airlume(Simulated);
    airlume.launch();
    QThread::msleep(900);
    QVERIFY(host.accept(60000));
    QCOMPARE(host.read(60000), QByteArray("IpcRequestLanguage:Airlume"));
    host.say("IpcResponseLanguage:fin");
    QVERIFY2(airlume.waitFor(speaking(QStringLiteral("fin"))), qPrintable(airlume.output()));
}

void TestHost::hostThatNeverAnswersLeavesItEnglish()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.waitFor(isJoined));
    QVERIFY(speaks(airlume.state(), QStringLiteral("enu")));
}

void TestHost::answerBeforeTheWindowIsShownCounts()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    airlume.launch();
    QVERIFY(host.waitForConnection());
    // In the very moment of the connection, before the request was heard.
    QVERIFY(host.sayLanguage("kor"));
    QVERIFY2(airlume.waitFor(speaking(QStringLiteral("kor"))), qPrintable(airlume.output()));
    QVERIFY(host.waitForRequest());
}

void TestHost::everyLanguageReachesTheWindow()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    // English last: it is there from the start.
    for (int i = 1; i <= 25; ++i) {
        const char *code = LanguageCodes[i % LanguageCount];
        QVERIFY2(!tabsIn(QLatin1String(code)).at(3).toString().isEmpty(), code);
        QVERIFY(host.sayLanguage(code));
        QVERIFY2(airlume.waitFor(speaking(QLatin1String(code))), code);
    }
}

void TestHost::everyViewChangesItsLanguage()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.waitFor(isJoined));
    QVERIFY(host.sayLanguage("deu"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("deu"))));
    const QJsonObject state = airlume.state();
    const auto german = [](const char *key) {
        return QJsonValue(textIn(QStringLiteral("deu"), QLatin1String(key)));
    };
    const QJsonArray headers = state[QStringLiteral("headers")].toArray();
    for (const char *key : {"L_HEADER_SSID", "L_HEADER_SIGNAL", "L_HEADER_CHANNEL",
             "L_HEADER_SECURITY", "L_HEADER_MAC_ADDRESS"})
        QVERIFY2(headers.contains(german(key)), key);
    const QJsonArray labels = state[QStringLiteral("labels")].toArray();
    for (const char *key :
        {"L_CHANNEL_INTERFACE_CURRENT_CHANNEL", "L_CHANNEL_INTERFACE_CURRENT_CHANNEL_CONN",
            "L_CHANNEL_INTERFACE_CURRENT_RECOMMENDED_TAGS", "L_HOME_DLG_ROOM_NAME"})
        QVERIFY2(labels.contains(german(key)), key);
    const QJsonArray buttons = state[QStringLiteral("buttons")].toArray();
    for (const char *key : {"L_HOME_ADD_ROOM", "L_HOME_EDIT_ROOM", "L_HOME_DEL_ROOM", "L_HOME_TEST",
             "L_HOME_DLG_OK", "L_HOME_DLG_CANCEL"})
        QVERIFY2(buttons.contains(german(key)), key);
}

void TestHost::reportedTextsChangeWithTheNextReport()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.waitFor(isJoined));
    const QJsonArray rooms = airlume.state()[QStringLiteral("rooms")].toArray();
    QVERIFY(rooms.contains(QStringLiteral("Kitchen\nN/A\nN/A")));

    QVERIFY(host.sayLanguage("tur"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("tur"))));
    const QString joined =
        textIn(QStringLiteral("tur"), QStringLiteral("L_BOARD_CONNECTED_NETWORK"));
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
        return state[QStringLiteral("connected")].toString().startsWith(joined + QLatin1Char(' '));
    }));
    // English in every language, as the rooms' results are.
    const QJsonObject state = airlume.state();
    QCOMPARE(state[QStringLiteral("rooms")].toArray(), rooms);
    QCOMPARE(state[QStringLiteral("status")].toString(), QStringLiteral("Scanning..."));
    QVERIFY(state[QStringLiteral("labels")].toArray().contains(QStringLiteral("Version 1.0")));
}

void TestHost::sameCodeAgainChangesNothing()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.sayLanguage("ita"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("ita"))));
    QVERIFY(host.sayLanguage("ita"));
    // A round trip later it still is so.
    QVERIFY(speaks(airlume.state(), QStringLiteral("ita")));
    QVERIFY(speaks(airlume.state(), QStringLiteral("ita")));
    QVERIFY(host.sayLanguage("esp"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("esp"))));
}

void TestHost::codeThatIsNoneGivesEnglish_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("unknown") << QByteArray("IpcResponseLanguage:xyz");
    QTest::newRow("line end") << QByteArray("IpcResponseLanguage:fra\n");
    QTest::newRow("no code") << QByteArray("IpcResponseLanguage:");
    QTest::newRow("two messages in one read")
        << QByteArray("IpcResponseLanguage:fraIpcResponseLanguage:ita");
    QTest::newRow("exit in the same read") << QByteArray("IpcResponseLanguage:fraIpcResponseExit");
}

void TestHost::codeThatIsNoneGivesEnglish()
{
    QFETCH(QByteArray, message);
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.sayLanguage("deu"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("deu"))));
    QVERIFY(host.say(message));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("enu"))));
    QVERIFY(airlume.isRunning());
}

void TestHost::messageInTwoPiecesIsNotPutTogether()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.say("IpcResponseLang"));
    // A round trip through the program's event loop: the first piece was read.
    airlume.state();
    airlume.state();
    QVERIFY(host.say("uage:deu"));
    airlume.state();
    airlume.state();
    QVERIFY(speaks(airlume.state(), QStringLiteral("enu")));
    QVERIFY(host.sayLanguage("deu"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("deu"))));
}

void TestHost::garbageIsIgnored_data()
{
    QTest::addColumn<QByteArray>("garbage");
    QTest::addColumn<QString>("language");
    const int size = 10 * 1024 * 1024;
    QTest::newRow("one byte") << QByteArray("I") << QStringLiteral("deu");
    QTest::newRow("zero bytes") << QByteArray(100, '\0') << QStringLiteral("deu");
    QTest::newRow("10 MB of letters") << QByteArray(size, 'x') << QStringLiteral("deu");
    QTest::newRow("10 MB that is no UTF-8") << QByteArray(size, '\xff') << QStringLiteral("deu");
    QTest::newRow("10 MB of language code")
        << "IpcResponseLanguage:" + QByteArray(size, 'x') << QStringLiteral("enu");
}

void TestHost::garbageIsIgnored()
{
    QFETCH(QByteArray, garbage);
    QFETCH(QString, language);
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.sayLanguage("deu"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("deu"))));
    const double before = airlume.held().peakMb;
    QVERIFY(before > 0.0);

    QVERIFY(host.say(garbage));
    QVERIFY2(airlume.waitFor(speaking(language)), qPrintable(airlume.output()));
    // Bytes, characters and a copy or two for a moment; the channel does not pile them up.
    QVERIFY2(
        airlume.held().peakMb < before + 200.0, qPrintable(QString::number(airlume.held().peakMb)));
    QVERIFY(host.sayLanguage("ell"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("ell"))));
}

void TestHost::languageOpensInADialogToo()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.command(QStringLiteral("tab 3")));
    QVERIFY(airlume.command(QStringLiteral("click HomeTesting_btn_Add")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("modal")].toString() == QLatin1String("HomeTestingPopupDlg");
    }));
    // An error is shown; it is told in the new language, as the rest of the dialog is.
    QVERIFY(airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")));
    const auto shows = [](const QJsonObject &state, const char *code) {
        const QString error =
            textIn(QLatin1String(code), QStringLiteral("L_HOME_DLG_ROOM_NAME_IS_NULL"));
        return state[QStringLiteral("labels")].toArray().contains(
            QStringLiteral("<html><font color=red>%1</font></html>").arg(error));
    };
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) { return shows(state, "enu"); }));
    QVERIFY(host.sayLanguage("jpn"));
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) { return shows(state, "jpn"); }));
    QVERIFY(speaks(airlume.state(), QStringLiteral("jpn")));
}

void TestHost::hostThatDiesChangesNothing()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.sayLanguage("rus"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("rus"))));
    host.die();

    QVERIFY(airlume.waitFor(hasRows));
    QVERIFY(speaks(airlume.state(), QStringLiteral("rus")));
    QVERIFY(airlume.command(QStringLiteral("click close1")));
    QVERIFY(airlume.waitForEnd());
    QCOMPARE(airlume.exitCode(), 0);
}

void TestHost::airlumeHostSwitchesLanguages()
{
    QProcess host;
    host.setProgram(QStringLiteral(AIRLUME_BUILD_DIR "/bin/airlume-host"));
    host.setArguments({QStringLiteral("--language"), QStringLiteral("slv")});
    host.start();
    const auto printed = [&host](const QByteArray &line) {
        QByteArray all;
        while (!(all += host.readAll()).contains(line + '\n')) {
            if (!host.waitForReadyRead(60000))
                return false;
        }
        return true;
    };
    const auto tell = [&host](const QByteArray &line) {
        host.write(line + '\n');
        return host.waitForBytesWritten();
    };
    QVERIFY(printed("listening"));
    AirlumeProcess airlume(Simulated);
    airlume.launch();
    QVERIFY(printed("sent IpcResponseLanguage:slv"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("slv"))));
    QVERIFY(tell("raw IpcResponseLanguage:hun\\n"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("enu"))));
    QVERIFY(tell("language hun"));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("hun"))));
    QVERIFY(tell("exit"));
    QVERIFY(airlume.waitForEnd());
    QVERIFY(airlume.endedNormally());
    QCOMPARE(airlume.exitCode(), 0);
    QVERIFY(printed("disconnected"));
    QVERIFY(tell("quit"));
    QVERIFY(host.waitForFinished());
    QCOMPARE(host.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestHost)
#include "tst_host.moc"

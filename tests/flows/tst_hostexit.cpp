#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QtTest>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");

std::function<bool(const QJsonObject &)> modal(const char *className)
{
    return [className](const QJsonObject &state) {
        return state[QStringLiteral("modal")].toString() == QLatin1String(className);
    };
}

/// When false, the program's output tells why.
bool endsInOrder(AirlumeProcess &airlume)
{
    return airlume.waitForEnd() && airlume.endedNormally() && airlume.exitCode() == 0 &&
           !airlume.output().contains(QStringLiteral("Destroyed while thread")) &&
           !airlume.output().contains(QStringLiteral("NUll point")) &&
           // Unlike the close button, this takes the server's socket away.
           !QFile::exists(QDir::tempPath() + QStringLiteral("/Airlume_LocalServer"));
}

QStringList roomsOf(const AirlumeProcess &airlume)
{
    QSettings rooms(airlume.folder() + QStringLiteral("/WifiHomeTest.ini"), QSettings::IniFormat);
    return rooms.childGroups();
}

/// Presses Add Room and waits until a name can be typed.
bool openAddRoom(AirlumeProcess &airlume)
{
    return airlume.command(QStringLiteral("tab 3")) &&
           airlume.command(QStringLiteral("click HomeTesting_btn_Add")) &&
           airlume.waitFor(modal("HomeTestingPopupDlg")) &&
           airlume.waitFor([](const QJsonObject &state) {
               return state[QStringLiteral("focus")].toString() == QLatin1String("QLineEdit");
           });
}
} // namespace

/// The host suite's exit message ends the program in order, whatever it is doing.
class TestHostExit : public QObject
{
    Q_OBJECT

private slots:
    void beforeTheWindowIsShown();
    void onceTheWindowIsShown();
    void whileScanning();
    void withTextBehindTheMessage();
    void duringADialogKeepsTheRoomsOfBefore();
    void duringANotice();
    void whileTheBackEndIsSlow();
    void whileTheBackEndBlocksForAMoment();
    void withoutABackEnd();
    void otherCaseIsNoExitMessage();
};

void TestHostExit::beforeTheWindowIsShown()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    airlume.launch();
    QVERIFY(host.waitForConnection());
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
    QCOMPARE(roomsOf(airlume).size(), 5);
}

void TestHostExit::onceTheWindowIsShown()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
}

void TestHostExit::whileScanning()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.waitFor(hasRows));
    QVERIFY(airlume.command(QStringLiteral("tab 1")));
    QVERIFY(host.sayLanguage("plk"));
    QVERIFY(airlume.waitFor(
        [](const QJsonObject &state) { return speaks(state, QStringLiteral("plk")); }));
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
    QCOMPARE(roomsOf(airlume), QStringList({QStringLiteral("Bedroom1"), QStringLiteral("Bedroom2"),
                                   QStringLiteral("Home Office"), QStringLiteral("Kitchen"),
                                   QStringLiteral("Living Room")}));
}

void TestHostExit::withTextBehindTheMessage()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.say("IpcResponseExit:Airlume\r\n"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
}

void TestHostExit::duringADialogKeepsTheRoomsOfBefore()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(openAddRoom(airlume));
    QVERIFY(airlume.command(QStringLiteral("type Attic")));
    QVERIFY(airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")));
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        return state[QStringLiteral("rooms")].toArray().contains(QStringLiteral("Attic\nN/A\nN/A"));
    }));
    QVERIFY(airlume.waitFor(modal("")));
    QVERIFY(openAddRoom(airlume));
    QVERIFY(airlume.command(QStringLiteral("type Cellar")));
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
    // The file is complete, and what was not confirmed is not in it.
    const QStringList rooms = roomsOf(airlume);
    QCOMPARE(rooms.size(), 6);
    QVERIFY(rooms.contains(QStringLiteral("Attic")));
    QSettings file(airlume.folder() + QStringLiteral("/WifiHomeTest.ini"), QSettings::IniFormat);
    for (const QString &room : rooms) {
        file.beginGroup(room);
        QVERIFY2(file.childKeys().size() == 4, qPrintable(room));
        file.endGroup();
    }
}

void TestHostExit::duringANotice()
{
    HostSuite host;
    AirlumeProcess airlume{QString()};
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.command(QStringLiteral("tab 3")));
    QVERIFY(airlume.command(QStringLiteral("room 0")));
    // Nobody is joined: pressing Test says so in a box.
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
        return state[QStringLiteral("modal")].toString() == QLatin1String("QMessageBox") ||
               (airlume.command(QStringLiteral("click HomeTesting_btn_Test")) && false);
    }));
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
}

void TestHostExit::whileTheBackEndIsSlow()
{
    HostSuite host;
    AirlumeProcess airlume(QStringLiteral("tests/backends/slow"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.waitFor(hasRows));
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
}

void TestHostExit::whileTheBackEndBlocksForAMoment()
{
    HostSuite host;
    AirlumeProcess airlume(QStringLiteral("tests/backends/blocking"));
    airlume.setEnvironment(QStringLiteral("AIRLUME_TEST_BLOCK_SECONDS"), QStringLiteral("5"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(airlume.waitFor([&](const QJsonObject &) {
        return airlume.output().contains(QStringLiteral("Blocking now"));
    }));
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
    // The back end was left in peace until it came back.
    QVERIFY2(
        airlume.output().contains(QStringLiteral("Blocking over")), qPrintable(airlume.output()));
    QCOMPARE(roomsOf(airlume).size(), 5);
}

void TestHostExit::withoutABackEnd()
{
    HostSuite host;
    AirlumeProcess airlume{QString()};
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.say("IpcResponseExit"));
    QVERIFY2(endsInOrder(airlume), qPrintable(airlume.output()));
}

void TestHostExit::otherCaseIsNoExitMessage()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.say("ipcResponseExit"));
    // A round trip, so that it was read by itself.
    airlume.state();
    airlume.state();
    QVERIFY(host.sayLanguage("rom"));
    QVERIFY(airlume.waitFor(
        [](const QJsonObject &state) { return speaks(state, QStringLiteral("rom")); }));
}

QTEST_GUILESS_MAIN(TestHostExit)
#include "tst_hostexit.moc"

#include "flows/airlumeprocess.h"
#include "flows/closerequest.h"
#include "flows/desktop.h"

#include <QtTest>

namespace
{
/// Its number on the X server.
quint32 windowOf(AirlumeProcess &airlume)
{
    return static_cast<quint32>(airlume.state()[QStringLiteral("window")].toInt());
}
} // namespace

/// The desktop closes the window: Alt+F4, the taskbar.
class TestClosing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void endsTheProgramAtOnce_data();
    void endsTheProgramAtOnce();
    void leavesADialogToItsAnswer();
};

void TestClosing::initTestCase()
{
    const QString missing = Desktop::missing(Desktop::X11);
    if (!missing.isEmpty())
        QSKIP(qPrintable(missing + QStringLiteral(" is not installed")));
}

void TestClosing::endsTheProgramAtOnce_data()
{
    QTest::addColumn<QString>("backEnd");
    QTest::newRow("while scanning") << QStringLiteral("plugins/simulated");
    // For an hour, which an orderly end would wait for.
    QTest::newRow("while the back end blocks") << QStringLiteral("tests/backends/blocking");
}

void TestClosing::endsTheProgramAtOnce()
{
    QFETCH(QString, backEnd);
    Desktop desktop(Desktop::X11, QSize(1400, 900));
    QVERIFY2(desktop.start(), qPrintable(desktop.output()));
    AirlumeProcess airlume(backEnd);
    desktop.show(&airlume);
    airlume.setEnvironment(QStringLiteral("AIRLUME_TEST_BLOCK_SECONDS"), QStringLiteral("3600"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
        return hasRows(state) || airlume.output().contains(QStringLiteral("Blocking now"));
    }));
    QVERIFY(SendCloseRequest(desktop.display(), windowOf(airlume)));
    QVERIFY(airlume.waitForEnd());
    QVERIFY2(airlume.endedNormally() && airlume.exitCode() == 0, qPrintable(airlume.output()));
    QVERIFY(!airlume.output().contains(QStringLiteral("Blocking over")));
}

void TestClosing::leavesADialogToItsAnswer()
{
    Desktop desktop(Desktop::X11, QSize(1400, 900));
    QVERIFY2(desktop.start(), qPrintable(desktop.output()));
    AirlumeProcess airlume(QStringLiteral("plugins/simulated"));
    desktop.show(&airlume);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(airlume.command(QStringLiteral("tab 3")));
    QVERIFY(airlume.command(QStringLiteral("click HomeTesting_btn_Add")));
    const auto isOpen = [](const QJsonObject &state) {
        return !state[QStringLiteral("modal")].toString().isEmpty();
    };
    QVERIFY(airlume.waitFor(isOpen));
    // Like the close button, which a dialog keeps from being pressed.
    QVERIFY(SendCloseRequest(desktop.display(), windowOf(airlume)));
    QVERIFY(airlume.command(QStringLiteral("type Attic")));
    QVERIFY(airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")));
    QVERIFY2(airlume.waitFor([&](const QJsonObject &state) {
        return !isOpen(state) && state[QStringLiteral("rooms")].toArray().size() == 6;
    }),
        qPrintable(airlume.output()));
    QVERIFY(SendCloseRequest(desktop.display(), windowOf(airlume)));
    QVERIFY(airlume.waitForEnd());
    QCOMPARE(airlume.exitCode(), 0);
}

QTEST_GUILESS_MAIN(TestClosing)
#include "tst_closing.moc"

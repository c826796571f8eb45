#include "linux/problemtexts.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)
Q_DECLARE_METATYPE(LinuxWifi::Manager)

class TestProblemTexts : public QObject
{
    Q_OBJECT

private slots:
    void everyTextNamesTheInterface();
    void errorsAreNamedWithAdvice_data();
    void errorsAreNamedWithAdvice();
    void missingWifiSupportIsNotCalledAnError();
    void stateOfTheRadioDecidesTheRemedy();
    void everyRefusalNamesWhoAndWhatToDo_data();
    void everyRefusalNamesWhoAndWhatToDo();
    void acceptedRequestIsNoProblem();
    void textsOfOthersAreNoFormats();

private:
    const QString m_interface = QStringLiteral("wlp3s0");
};

void TestProblemTexts::everyTextNamesTheInterface()
{
    const QStringList texts{ProblemTexts::unknownInterface(m_interface),
        ProblemTexts::unusable(m_interface, {}),
        ProblemTexts::unusable(m_interface, {true, true, false}),
        ProblemTexts::unusable(m_interface, {true, false, true}),
        ProblemTexts::networksUnreadable(m_interface, ENODEV),
        ProblemTexts::linkUnreadable(m_interface, ENODEV),
        ProblemTexts::linkUnreadable(m_interface, EOPNOTSUPP),
        ProblemTexts::scanRefused(m_interface, EIO)};
    for (const QString &text : texts) {
        QVERIFY2(text.contains(m_interface), qPrintable(text));
        QVERIFY2(text.endsWith(QLatin1Char('.')), qPrintable(text));
        QVERIFY2(!text.contains(QLatin1Char('%')), qPrintable(text));
    }
    QVERIFY(ProblemTexts::noInterface().contains(QStringLiteral("Plug in")));
}

void TestProblemTexts::errorsAreNamedWithAdvice_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("advice");
    QTest::newRow("ENODEV") << ENODEV << QStringLiteral("plug it in again");
    QTest::newRow("ENETDOWN") << ENETDOWN << QStringLiteral("rfkill unblock wifi");
    QTest::newRow("EOPNOTSUPP") << EOPNOTSUPP << QStringLiteral("set type managed");
    QTest::newRow("EPERM") << EPERM << QStringLiteral("sandbox");
    QTest::newRow("EAGAIN") << EAGAIN << QStringLiteral("passes by itself");
    QTest::newRow("EINTR") << EINTR << QStringLiteral("passes by itself");
    QTest::newRow("EIO") << EIO << QStringLiteral("dmesg");
}

void TestProblemTexts::errorsAreNamedWithAdvice()
{
    QFETCH(int, error);
    QFETCH(QString, advice);
    QStringList texts{ProblemTexts::networksUnreadable(m_interface, error),
        ProblemTexts::scanRefused(m_interface, error), ProblemTexts::interfacesUnreadable(error)};
    // There it is the driver that cannot, in any mode.
    if (error == EOPNOTSUPP)
        QVERIFY(
            ProblemTexts::linkUnreadable(m_interface, error).contains(QStringLiteral("driver")));
    else
        texts.append(ProblemTexts::linkUnreadable(m_interface, error));
    for (const QString &text : texts) {
        QVERIFY2(text.contains(advice), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("(error %1)").arg(error)), qPrintable(text));
    }
}

void TestProblemTexts::missingWifiSupportIsNotCalledAnError()
{
    const QString text = ProblemTexts::interfacesUnreadable(WifiKernel::NoWifiSupport);
    QVERIFY(text.contains(QStringLiteral("no Wi-Fi interface")));
    QVERIFY(!text.contains(QStringLiteral("(error")));
}

void TestProblemTexts::stateOfTheRadioDecidesTheRemedy()
{
    QVERIFY(ProblemTexts::unusable(m_interface, {})
                .contains(QStringLiteral("sudo ip link set wlp3s0 up")));
    QVERIFY(ProblemTexts::unusable(m_interface, {false, true, false})
                .contains(QStringLiteral("rfkill unblock wifi")));
    // No program can undo a hardware switch, whatever else is off.
    const QString hard = ProblemTexts::unusable(m_interface, {false, true, true});
    QVERIFY(hard.contains(QStringLiteral("switch or key")));
    QVERIFY(!hard.contains(QStringLiteral("rfkill unblock")));
}

void TestProblemTexts::everyRefusalNamesWhoAndWhatToDo_data()
{
    QTest::addColumn<Result>("result");
    QTest::addColumn<Manager>("manager");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("remedy");
    const auto row = [](Result result, Manager manager, const char *what, const char *remedy) {
        QTest::newRow(what) << result << manager << QString::fromLatin1(what)
                            << QString::fromLatin1(remedy);
    };
    const Manager nobody = Manager::Nobody;
    const Manager nm = Manager::NetworkManager;
    const Manager iwd = Manager::Iwd;
    const Manager wpa = Manager::WpaSupplicant;
    const Manager connman = Manager::ConnMan;
    row(Result::NoBus, nobody, "the system bus (D-Bus) cannot be reached",
        "Start the D-Bus service and");
    row(Result::NoService, nobody, "no program that manages Wi-Fi is running",
        "\"sudo systemctl start NetworkManager\"");

    row(Result::NotPermitted, nm, "NetworkManager does not allow this user", "polkit rule");
    row(Result::NotPermitted, iwd, "iwd does not allow this user",
        "\"sudo usermod -aG netdev $USER\" and log in again");
    row(Result::NotPermitted, wpa, "wpa_supplicant does not allow this user",
        "\"sudo usermod -aG netdev $USER\" and log in again");
    row(Result::NotPermitted, connman, "ConnMan does not allow this user", "local desktop session");

    row(Result::NotAvailable, nm, "NetworkManager does not scan with wlp3s0",
        "\"nmcli radio wifi on\"");
    row(Result::NotAvailable, iwd, "iwd does not scan with wlp3s0",
        "\"iwctl device wlp3s0 set-property Powered on\"");
    row(Result::NotAvailable, wpa, "wpa_supplicant does not scan with wlp3s0",
        "\"sudo wpa_cli -i wlp3s0 status\"");
    row(Result::NotAvailable, connman, "ConnMan does not scan with wlp3s0",
        "\"connmanctl enable wifi\"");

    row(Result::NoInterface, nm, "NetworkManager does not manage wlp3s0",
        "\"sudo nmcli device set wlp3s0 managed yes\"");
    row(Result::NoInterface, iwd, "iwd does not manage wlp3s0", "\"sudo systemctl restart iwd\"");
    row(Result::NoInterface, wpa, "wpa_supplicant does not manage wlp3s0",
        "\"sudo systemctl start NetworkManager\"");
    row(Result::NoInterface, connman, "ConnMan does not manage wlp3s0",
        "\"sudo systemctl restart connman\"");

    row(Result::NoReply, nm, "NetworkManager does not answer",
        "\"sudo systemctl restart NetworkManager\"");
    row(Result::NoReply, iwd, "iwd does not answer", "\"sudo systemctl restart iwd\"");
    row(Result::NoReply, wpa, "wpa_supplicant does not answer",
        "\"sudo systemctl restart wpa_supplicant\"");
    row(Result::NoReply, connman, "ConnMan does not answer", "\"sudo systemctl restart connman\"");

    row(Result::Failed, nm, "NetworkManager did not start a scan with wlp3s0 (some.Error: because)",
        "\"journalctl -u NetworkManager\"");
    row(Result::Failed, iwd, "iwd did not start a scan with wlp3s0 (some.Error: because)",
        "\"journalctl -u iwd\"");
    row(Result::Failed, wpa,
        "wpa_supplicant did not start a scan with wlp3s0 (some.Error: because)",
        "\"journalctl -u wpa_supplicant\"");
    row(Result::Failed, connman, "ConnMan did not start a scan with wlp3s0 (some.Error: because)",
        "\"journalctl -u connman\"");
}

void TestProblemTexts::everyRefusalNamesWhoAndWhatToDo()
{
    QFETCH(Result, result);
    QFETCH(Manager, manager);
    QFETCH(QString, what);
    QFETCH(QString, remedy);
    const QString text = ProblemTexts::scanRefused(
        m_interface, {result, QStringLiteral("some.Error: because"), manager});
    QVERIFY2(text.contains(what), qPrintable(text));
    QVERIFY2(text.contains(remedy), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("still shown")), qPrintable(text));
    QVERIFY2(text.endsWith(QLatin1Char('.')), qPrintable(text));
    QVERIFY2(!text.contains(QLatin1Char('%')), qPrintable(text));
    // A program that loads plug-ins must have no rights of its own.
    QVERIFY2(!text.contains(QStringLiteral("setcap")), qPrintable(text));
}

void TestProblemTexts::acceptedRequestIsNoProblem()
{
    QCOMPARE(
        ProblemTexts::scanRefused(m_interface, {Result::Accepted, {}, Manager::Iwd}), QString());
}

void TestProblemTexts::textsOfOthersAreNoFormats()
{
    const QString name = QStringLiteral("w%1%2");
    const QString failed =
        ProblemTexts::scanRefused(name, {Result::Failed, QStringLiteral("%1 %s"), Manager::Iwd});
    QVERIFY2(failed.contains(QStringLiteral("w%1%2 (%1 %s)")), qPrintable(failed));
    const QString unmanaged =
        ProblemTexts::scanRefused(name, {Result::NoInterface, {}, Manager::NetworkManager});
    QVERIFY2(unmanaged.contains(QStringLiteral("manage w%1%2.")), qPrintable(unmanaged));
    QVERIFY2(unmanaged.contains(QStringLiteral("set w%1%2 managed")), qPrintable(unmanaged));
}

QTEST_GUILESS_MAIN(TestProblemTexts)
#include "tst_problemtexts.moc"

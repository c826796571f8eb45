#include "linux/problemtexts.h"

#include <QTest>

#include <cerrno>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)

class TestProblemTexts : public QObject
{
    Q_OBJECT

private slots:
    void everyTextNamesTheInterface();
    void errorsAreNamedWithAdvice_data();
    void errorsAreNamedWithAdvice();
    void missingWifiSupportIsNotCalledAnError();
    void stateOfTheRadioDecidesTheRemedy();
    void everyRefusalHasItsOwnText_data();
    void everyRefusalHasItsOwnText();
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

void TestProblemTexts::everyRefusalHasItsOwnText_data()
{
    QTest::addColumn<Result>("result");
    QTest::addColumn<QString>("part");
    QTest::newRow("no bus") << Result::NoBus << QStringLiteral("system bus");
    QTest::newRow("no service") << Result::NoService << QStringLiteral("is not running");
    QTest::newRow("not permitted") << Result::NotPermitted << QStringLiteral("does not allow");
    QTest::newRow("not available") << Result::NotAvailable << QStringLiteral("at present");
    QTest::newRow("no interface") << Result::NoInterface << QStringLiteral("does not know wlp3s0");
    QTest::newRow("no reply") << Result::NoReply << QStringLiteral("does not answer");
    QTest::newRow("failed") << Result::Failed << QStringLiteral("some.Error: because");
}

void TestProblemTexts::everyRefusalHasItsOwnText()
{
    QFETCH(Result, result);
    QFETCH(QString, part);
    const QString text =
        ProblemTexts::scanRefused(m_interface, {result, QStringLiteral("some.Error: because")});
    QVERIFY2(text.contains(part), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("still shown")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("setcap")), qPrintable(text));
}

void TestProblemTexts::textsOfOthersAreNoFormats()
{
    const QString text =
        ProblemTexts::scanRefused(QStringLiteral("w%2"), {Result::Failed, QStringLiteral("%1 %s")});
    QVERIFY2(text.contains(QStringLiteral("w%2 (%1 %s)")), qPrintable(text));
}

QTEST_GUILESS_MAIN(TestProblemTexts)
#include "tst_problemtexts.moc"

#include "linux/buserror.h"

#include <QTest>

using namespace LinuxWifi;
using Result = ScanAnswer::Result;

Q_DECLARE_METATYPE(LinuxWifi::ScanAnswer::Result)

class TestBusError : public QObject
{
    Q_OBJECT

private slots:
    void replyIsAccepted();
    void errorsHaveTheirMeanings_data();
    void errorsHaveTheirMeanings();
    void missingInterfaceIsUnknownAndTheRestRefused();
};

namespace
{
QDBusMessage call()
{
    return QDBusMessage::createMethodCall(
        QStringLiteral("a.b"), QStringLiteral("/"), QStringLiteral("a.b"), QStringLiteral("C"));
}
} // namespace

void TestBusError::replyIsAccepted()
{
    const ScanAnswer answer = answerOf(call().createReply(), Manager::Iwd, {});
    QVERIFY(answer.result == Result::Accepted);
    QVERIFY(answer.manager == Manager::Iwd);
    QCOMPARE(answer.detail, QString());
}

void TestBusError::errorsHaveTheirMeanings_data()
{
    QTest::addColumn<QString>("error");
    QTest::addColumn<Result>("result");
    const auto row = [](const char *error, Result result) {
        QTest::newRow(error) << QString::fromLatin1(error) << result;
    };
    row("org.freedesktop.DBus.Error.ServiceUnknown", Result::NoService);
    row("org.freedesktop.DBus.Error.Disconnected", Result::NoBus);
    row("org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted);
    row("org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", Result::NotPermitted);
    row("org.freedesktop.DBus.Error.UnknownMethod", Result::NoInterface);
    row("org.freedesktop.DBus.Error.UnknownObject", Result::NoInterface);
    row("org.freedesktop.DBus.Error.UnknownInterface", Result::NoInterface);
    row("org.freedesktop.DBus.Error.NoReply", Result::NoReply);
    row("org.freedesktop.DBus.Error.Timeout", Result::NoReply);
    row("org.freedesktop.DBus.Error.TimedOut", Result::NoReply);
    row("org.freedesktop.DBus.Error.Disconnected", Result::NoBus);
    row("org.freedesktop.DBus.Error.Failed", Result::Failed);
    row("own.Denied", Result::NotPermitted);
    // The manager's own meaning comes first.
    row("org.freedesktop.DBus.Error.NameHasNoOwner", Result::NotAvailable);
}

void TestBusError::errorsHaveTheirMeanings()
{
    QFETCH(QString, error);
    QFETCH(Result, result);
    const QVector<ErrorMeaning> own{{"own.Denied", Result::NotPermitted},
        {"org.freedesktop.DBus.Error.NameHasNoOwner", Result::NotAvailable}};
    const ScanAnswer answer =
        answerOf(call().createErrorReply(error, QStringLiteral("because")), Manager::ConnMan, own);
    QVERIFY(answer.result == result);
    // A bus that is gone is no manager's fault.
    QVERIFY(answer.manager == (result == Result::NoBus ? Manager::Nobody : Manager::ConnMan));
    QCOMPARE(answer.detail, error + QStringLiteral(": because"));
}

void TestBusError::missingInterfaceIsUnknownAndTheRestRefused()
{
    for (const Result result : {Result::NoInterface, Result::NoService})
        QVERIFY(findingOf({result, {}, Manager::Iwd}).state == Finding::State::Unknown);
    for (const Result result : {Result::NoBus, Result::NotPermitted, Result::NotAvailable,
             Result::NoReply, Result::Failed}) {
        const Finding finding = findingOf({result, QStringLiteral("x"), Manager::Iwd});
        QVERIFY(finding.state == Finding::State::Refused);
        QVERIFY(finding.refusal.result == result);
    }
}

QTEST_APPLESS_MAIN(TestBusError)
#include "tst_buserror.moc"

#include "plugincheck/checkerrun.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QtTest>

/// Back ends that do wrong to their process or to the contract, one fault each: every one gets its
/// verdict, in text and as JSON.
class TestWrongBackends : public QObject
{
    Q_OBJECT

private slots:
    void everyFaultGetsItsVerdict_data();
    void everyFaultGetsItsVerdict();
    void everyOddityIsNamed_data();
    void everyOddityIsNamed();
    void whatWasSaidBeforeACrashIsShown();
    void whatIsPrintedStandsApart();
    void floodOfOutputIsCut();
};

namespace
{

CheckerRun faulty(const QString &fault, QStringList options = {})
{
    // Whatever does not hang has all the time that a busy machine takes.
    const bool hangs =
        QRegularExpression(QStringLiteral("hang|ignore|stop")).match(fault).hasMatch();
    options << QStringLiteral("--timeout") << (hangs ? QStringLiteral("3") : QStringLiteral("100"))
            << QStringLiteral("--wait") << QStringLiteral("0") << CheckerRun::library("faulty");
    // The sanitizers would answer the signals themselves.
    const QString sanitizers =
        qEnvironmentVariable("ASAN_OPTIONS") +
        QStringLiteral(":abort_on_error=1:handle_segv=0:handle_abort=0:symbolize=0");
    return CheckerRun(options, {QStringLiteral("AIRLUME_TEST_FAULT=") + fault,
                                   QStringLiteral("ASAN_OPTIONS=") + sanitizers});
}

QString textAt(const QJsonObject &report, const char *key)
{
    return report.value(QLatin1String(key)).toString();
}

} // namespace

void TestWrongBackends::everyFaultGetsItsVerdict_data()
{
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("words");
    const auto row = [](const char *fault, const char *reason, const char *words) {
        QTest::newRow(fault) << QString::fromLatin1(reason) << QString::fromLatin1(words);
    };
    const char *const inQuery = "in getVisiableNetworkMapList().";
    row("hang@load", "no-answer", "Loading it has not answered for 3 s");
    row("hang@list", "no-answer", "getWiFiNicList() has not answered for 3 s");
    row("hang", "no-answer", "getVisiableNetworkMapList() has not answered for 3 s");
    row("ignoresignals", "no-answer", "has not answered for 3 s");
    row("stop", "no-answer", "has not answered for 3 s");
    row("overflow", "crashed", inQuery);
    row("crash@load", "crashed", "while it was being loaded.");
    row("crash@list", "crashed", "in getWiFiNicList().");
    row("crash@usable", "crashed", "in isWiFiNicUsable().");
    row("crash@thread", "crashed", inQuery);
    row("abort", "crashed", "(signal 6, Aborted) in getVisiableNetworkMapList().");
    row("freetwice", "crashed", inQuery);
    row("fatal", "crashed", inQuery);
    row("complainandcrash", "crashed", inQuery);
    row("exit", "ended-process", "with status 0, in getVisiableNetworkMapList().");
    row("exit@load", "ended-process", "with status 0, while it was being loaded.");
    row("exitnow@load", "ended-process", "with status 0, while it was being loaded.");
    row("catchsignals", "ended-process", inQuery);
    row("takeoverterminate", "ended-process", inQuery);
    row("fork", "ended-process", inQuery);
    row("throw", "threw", "(std::runtime_error: No radio \\x1b[31mtoday) in getVisiable");
    row("throw@load", "threw", "while it was being loaded.");
    row("throw@usable", "threw", "in isWiFiNicUsable().");
    row("throw@thread", "threw", "No radio");
    row("throwint", "threw", "(int) in getVisiableNetworkMapList().");
    row("closeall", "meddled", "closed files or connections that are not its own in getVis");
    row("scribble", "meddled", "writes to files or connections that are not its own");
}

void TestWrongBackends::everyFaultGetsItsVerdict()
{
    QFETCH(QString, words);
    const QString fault = QString::fromLatin1(QTest::currentDataTag());
    CheckerRun json(faulty(fault, {QStringLiteral("--json")}));
    CheckerRun text(faulty(fault));
    QVERIFY(json.finish());
    QVERIFY(text.finish());
    QCOMPARE(json.reports().size(), 1);
    QTEST(textAt(json.reports().first(), "reason"), "reason");
    QCOMPARE(textAt(json.reports().first(), "result"), QStringLiteral("no-answers"));
    const QJsonObject backend = json.reports().first().value(QStringLiteral("backend")).toObject();
    QCOMPARE(textAt(backend, "path"), CheckerRun::library("faulty"));
    QCOMPARE(textAt(backend, "class"), QStringLiteral("TestBackend"));
    for (const CheckerRun *run : {&json, &text}) {
        QCOMPARE(run->status(), 2);
        QCOMPARE(run->errors(), QByteArray());
    }
    QVERIFY2(text.text().simplified().contains(words), text.output().constData());
    QVERIFY(!text.output().contains('\x1b'));
}

void TestWrongBackends::everyOddityIsNamed_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("codes");
    const auto row = [](const char *fault, int status, const char *codes) {
        QTest::newRow(fault) << status
                             << QString::fromLatin1(codes).split(
                                    QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    row("", 0, "");
    row("print", 0, "");
    row("mumble", 0, "");
    row("flip", 0, "interfaces-reordered");
    row("reorder", 0, "networks-reordered");
    row("readother", 0, "reads-another-interface");
    row("bssid", 0, "bad-bssid");
    row("weak", 0, "odd-WLAN_NETWORK_SIGNAL");
    row("bare", 0,
        "missing-bssid missing-channel missing-current_connected missing-security_mode "
        "missing-WLAN_NETWORK_SIGNAL");
    row("own", 1, "");
    row("unit", 2, "bad-WLAN_NETWORK_SIGNAL");
    row("yes", 2, "bad-current_connected");
    row("twojoined", 2, "several-joined");
    row("garbagekeys", 2,
        "misspelt-ssid missing-bssid missing-channel missing-current_connected "
        "missing-security_mode missing-WLAN_NETWORK_SIGNAL");
    row("abort@end", 2, "crashed");
    row("hang@end", 2, "no-answer");
    row("exitnow@end", 0, "");
}

void TestWrongBackends::everyOddityIsNamed()
{
    QFETCH(QStringList, codes);
    CheckerRun run(
        faulty(QString::fromLatin1(QTest::currentDataTag()), {QStringLiteral("--json")}));
    QVERIFY(run.finish());
    QCOMPARE(run.reports().size(), 1);
    QStringList found;
    const QJsonArray deviations =
        run.reports().first().value(QStringLiteral("deviations")).toArray();
    for (const QJsonValue &deviation : deviations) {
        // A busy machine makes any call slow.
        if (textAt(deviation.toObject(), "code") != QLatin1String("slow-answer"))
            found.append(textAt(deviation.toObject(), "code"));
    }
    QCOMPARE(found, codes);
    QTEST(run.status(), "status");
    QTEST(run.reports().first().value(QStringLiteral("status")).toInt(), "status");
    QCOMPARE(run.errors(), QByteArray());
}

void TestWrongBackends::whatWasSaidBeforeACrashIsShown()
{
    CheckerRun complaining(faulty(QStringLiteral("complainandcrash")));
    QVERIFY(complaining.finish());
    QVERIFY(complaining.output().contains("  critical: The radio is on fire\n"));
    CheckerRun fatal(faulty(QStringLiteral("fatal")));
    QVERIFY(fatal.finish());
    CheckerRun mumbling(faulty(QStringLiteral("mumbleandcrash")));
    QVERIFY(mumbling.finish());
    QVERIFY(mumbling.output().contains("\nIts standard output\n  no line feed\n"));
    QVERIFY(fatal.output().contains("  fatal: The radio \\x1b[31mexploded\n"));
}

void TestWrongBackends::whatIsPrintedStandsApart()
{
    CheckerRun json(faulty(QStringLiteral("print"), {QStringLiteral("--json")}));
    QVERIFY(json.finish());
    QCOMPARE(json.reports().size(), 1);
    QCOMPARE(textAt(json.reports().first(), "stdout"),
        QStringLiteral("{\"result\": \"heard\x1b[2J\"}\n").repeated(2));
    CheckerRun text(faulty(QStringLiteral("mumble")));
    QVERIFY(text.finish());
    QVERIFY(
        text.output().contains("\nIts standard output\n  no line feedno line feed\n\nResult: "));
}

void TestWrongBackends::floodOfOutputIsCut()
{
    CheckerRun run(faulty(QStringLiteral("flood"), {QStringLiteral("--json")}));
    QVERIFY(run.finish());
    QCOMPARE(run.reports().size(), 1);
    QCOMPARE(textAt(run.reports().first(), "stderr").size(), 64 * 1024);
}

QTEST_GUILESS_MAIN(TestWrongBackends)

#include "tst_wrongbackends.moc"

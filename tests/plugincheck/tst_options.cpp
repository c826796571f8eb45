#include "plugincheck/options.h"

#include <QtTest>

using namespace PluginCheck;

namespace
{
Options parsed(const QString &arguments)
{
    return parseOptions(QStringList(QStringLiteral("airlume-plugincheck")) +
                        arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}
} // namespace

class TestOptions : public QObject
{
    Q_OBJECT

private slots:
    void withoutArgumentsTheProgramsBackendIsCheckedOnce();
    void everyOptionIsUnderstood();
    void recordingGoesOnEverySecond();
    void watchingHasNoEndUnlessRoundsAreGiven();
    void wrongOptionsAreRefusedWithTheUsage_data();
    void wrongOptionsAreRefusedWithTheUsage();
    void emptyPathIsRefused();
    void helpTellsTheExitStatus();
};

void TestOptions::withoutArgumentsTheProgramsBackendIsCheckedOnce()
{
    const Options options = parsed(QString());
    QCOMPARE(options.action, Options::Check);
    QCOMPARE(options.backend, QString());
    QVERIFY(!options.json);
    QCOMPARE(options.rounds, 1);
    QCOMPARE(options.interval, 4000);
    QCOMPARE(options.timeout, 10000);
    QCOMPARE(options.wait, 20000);
    QVERIFY(options.record.isEmpty());
}

void TestOptions::everyOptionIsUnderstood()
{
    const Options options = parsed(
        QStringLiteral("--json --rounds 3 --interval 0.25 --timeout 2 --wait 0 some/folder"));
    QCOMPARE(options.action, Options::Check);
    QVERIFY(options.json);
    QCOMPARE(options.rounds, 3);
    QCOMPARE(options.interval, 250);
    QCOMPARE(options.timeout, 2000);
    QCOMPARE(options.wait, 0);
    QCOMPARE(options.backend, QStringLiteral("some/folder"));
}

void TestOptions::recordingGoesOnEverySecond()
{
    Options options = parsed(QStringLiteral("--record walk.json"));
    QCOMPARE(options.record, QStringLiteral("walk.json"));
    QCOMPARE(options.rounds, 0);
    QCOMPARE(options.interval, 1000);
    QCOMPARE(options.recordFor, 0);
    QVERIFY(!options.anonymous);
    options = parsed(QStringLiteral("--record w --for 60 --anonymous --interval 0.5"));
    QCOMPARE(options.interval, 500);
    QCOMPARE(options.recordFor, 60000);
    QVERIFY(options.anonymous);
}

void TestOptions::watchingHasNoEndUnlessRoundsAreGiven()
{
    QCOMPARE(parsed(QStringLiteral("--watch")).rounds, 0);
    QCOMPARE(parsed(QStringLiteral("--watch --rounds 2")).rounds, 2);
    QCOMPARE(parsed(QStringLiteral("--rounds 2 --watch")).rounds, 2);
}

void TestOptions::wrongOptionsAreRefusedWithTheUsage_data()
{
    QTest::addColumn<QString>("arguments");
    for (const char *arguments : {"--jsno", "-x", "--rounds", "--rounds 0", "--rounds -1",
             "--rounds two", "--interval x", "--interval -1", "--interval nan", "--interval inf",
             "--timeout 0", "--timeout 99999999", "one two", "--json=yes", "--wait -1", "--record",
             "--for 3", "--anonymous", "--record x --json", "--record x --watch",
             "--record x --rounds 2", "--record x --interval 0", "--record x --for 0"})
        QTest::newRow(arguments) << QString::fromLatin1(arguments);
}

void TestOptions::wrongOptionsAreRefusedWithTheUsage()
{
    QFETCH(QString, arguments);
    const Options options = parsed(arguments);
    QCOMPARE(options.action, Options::Refuse);
    QVERIFY(options.text.contains(QStringLiteral("Usage:")));
}

void TestOptions::emptyPathIsRefused()
{
    const Options options = parseOptions({QStringLiteral("airlume-plugincheck"), QString()});
    QCOMPARE(options.action, Options::Refuse);
}

void TestOptions::helpTellsTheExitStatus()
{
    const Options options = parsed(QStringLiteral("--help"));
    QCOMPARE(options.action, Options::ShowHelp);
    for (const char *word : {"--watch", "--json", "--rounds", "[backend]", "Exit status:"})
        QVERIFY2(options.text.contains(QLatin1String(word)), word);
    QCOMPARE(parsed(QStringLiteral("--version")).text, QStringLiteral("airlume-plugincheck 1.0\n"));
}

QTEST_GUILESS_MAIN(TestOptions)

#include "tst_options.moc"

#include "plugincheck/verdict.h"

#include <QStandardPaths>
#include <QtTest>

using namespace PluginCheck;

Q_DECLARE_METATYPE(PluginCheck::Answers)

namespace
{

Answers answers(const QVector<bool> &usable, std::optional<bool> queried, int networks)
{
    Answers answers;
    answers.listed = true;
    answers.usable = usable;
    for (int i = 0; i < usable.size(); ++i)
        answers.interfaces.append(QStringLiteral("wlan%1").arg(i));
    answers.queried = queried;
    for (int i = 0; i < networks; ++i) {
        answers.networks.append(
            ScanMap{{ScanKey::Connected, i == 0 ? ScanJoined : QStringLiteral("0")}});
    }
    return answers;
}

QString adviceFor(const Answers &given, const QVector<Message> &messages = {})
{
    return judge(given, {}, messages).advice.join(QLatin1Char('\n'));
}

} // namespace

class TestVerdict : public QObject
{
    Q_OBJECT

private slots:
    void reasonNamesWhatIsMissing_data();
    void reasonNamesWhatIsMissing();
    void breachGoesBeforeEverything();
    void oddityIsSaidAndNoFault();
    void mistakeInAScenarioIsSaidToBeOne();
    void backendsOwnAdviceGoesFirst();
    void antennaOfAJoinedComputerIsNotDoubted();
    void refusedScanIsPutDownToNothingElse();
    void interfaceThatCannotListenIsNotMissing();
    void lookingAgainKeepsTheBackend();
    void scanMayOnlyHelpWhereNothingIsWrong();
    void onlyCommandsThatAreInstalledAreAdvised();
    void networksAreCounted();
    void failedListingIsToldFromAnEmptyOne();
    void statusOfARunIsThatOfItsRounds_data();
    void statusOfARunIsThatOfItsRounds();
};

void TestVerdict::reasonNamesWhatIsMissing_data()
{
    QTest::addColumn<Answers>("given");
    QTest::addColumn<int>("outcome");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<bool>("radioStatus");
    const int heard = 0;
    const int nothing = 1;
    QTest::newRow("heard") << answers({true}, true, 2) << heard << QString() << false;
    QTest::newRow("heard although not usable")
        << answers({false}, true, 2) << heard << QString() << false;
    QTest::newRow("own network only")
        << answers({true}, true, 1) << nothing << QStringLiteral("own-network-only") << false;
    QTest::newRow("no interface") << answers({}, std::nullopt, 0) << nothing
                                  << QStringLiteral("no-interface") << true;
    QTest::newRow("none usable, query failed")
        << answers({false, false}, false, 0) << nothing << QStringLiteral("none-usable") << true;
    QTest::newRow("none usable, nothing heard")
        << answers({false}, true, 0) << nothing << QStringLiteral("none-usable") << false;
    QTest::newRow("query failed") << answers({false, true}, false, 0) << nothing
                                  << QStringLiteral("query-failed") << true;
    QTest::newRow("query failed with a list")
        << answers({true}, false, 3) << nothing << QStringLiteral("query-failed") << true;
    QTest::newRow("nothing heard")
        << answers({true}, true, 0) << nothing << QStringLiteral("empty-list") << false;
}

void TestVerdict::reasonNamesWhatIsMissing()
{
    QFETCH(Answers, given);
    const Verdict verdict = judge(given, {}, {});
    QTEST(static_cast<int>(verdict.outcome), "outcome");
    QTEST(verdict.reason, "reason");
    QTEST(verdict.text.contains(QStringLiteral("Please make sure turn on the wireless radio.")),
        "radioStatus");
    QCOMPARE(verdict.advice.isEmpty(), verdict.outcome == Outcome::Heard);
}

void TestVerdict::breachGoesBeforeEverything()
{
    Deviations deviations;
    deviations.add(
        Weight::Broken, QStringLiteral("x"), QStringLiteral("rule"), QStringLiteral("example"));
    for (const int networks : {0, 1, 2}) {
        const Verdict verdict = judge(answers({true}, true, networks), deviations, {});
        QCOMPARE(verdict.outcome, Outcome::Broken);
        QVERIFY(!verdict.advice.isEmpty());
    }
}

void TestVerdict::oddityIsSaidAndNoFault()
{
    Deviations deviations;
    deviations.add(
        Weight::Odd, QStringLiteral("x"), QStringLiteral("rule"), QStringLiteral("example"));
    const Verdict verdict = judge(answers({true}, true, 3), deviations, {});
    QCOMPARE(verdict.outcome, Outcome::Heard);
    QVERIFY(verdict.text.contains(QStringLiteral("odd")));
    QVERIFY(!judge(answers({true}, true, 3), {}, {}).text.contains(QStringLiteral("odd")));
}

void TestVerdict::mistakeInAScenarioIsSaidToBeOne()
{
    const QVector<Message> messages{{QStringLiteral("critical"),
        QStringLiteral("Scenario file hall.json, line 3, field seed: must be a number.")}};
    const Verdict verdict = judge(answers({}, std::nullopt, 0), {}, messages);
    QCOMPARE(verdict.outcome, Outcome::NothingHeard);
    QCOMPARE(verdict.reason, QStringLiteral("scenario-mistake"));
    QVERIFY(verdict.text.contains(messages.first().text));
    QVERIFY(!verdict.advice.join(QString()).contains(QStringLiteral("adapter")));
}

void TestVerdict::backendsOwnAdviceGoesFirst()
{
    const QVector<Message> messages{
        {QStringLiteral("critical"), QStringLiteral("Press the switch.")}};
    for (const QVector<bool> &usable : {QVector<bool>{}, QVector<bool>{false}}) {
        const Answers given =
            answers(usable, usable.isEmpty() ? std::nullopt : std::optional<bool>(false), 0);
        QVERIFY(judge(given, {}, messages).advice.first().contains(QStringLiteral("messages")));
        QVERIFY(!judge(given, {}, {}).advice.first().contains(QStringLiteral("messages")));
    }
}

void TestVerdict::antennaOfAJoinedComputerIsNotDoubted()
{
    const QString antenna = QStringLiteral("antenna");
    QVERIFY(!adviceFor(answers({true}, true, 1)).contains(antenna));
    QVERIFY(adviceFor(answers({true}, true, 0)).contains(antenna));
}

void TestVerdict::refusedScanIsPutDownToNothingElse()
{
    const QVector<Message> messages{{QStringLiteral("critical"),
        QStringLiteral("No scan can be started: the manager does not allow it.")}};
    for (const int networks : {0, 1}) {
        const QString advice = adviceFor(answers({true}, true, networks), messages);
        QVERIFY(!advice.contains(QStringLiteral("antenna")));
        QVERIFY(!advice.contains(QStringLiteral("nmcli")));
        QVERIFY(!advice.contains(QStringLiteral("Nobody")));
    }
}

void TestVerdict::interfaceThatCannotListenIsNotMissing()
{
    const Answers none = answers({}, std::nullopt, 0);
    const QVector<Message> messages{
        {QStringLiteral("critical"), QStringLiteral("The Wi-Fi interface wlan0 is a hotspot.")}};
    QVERIFY(judge(none, {}, {}).text.contains(QStringLiteral("on this computer")));
    QVERIFY(!judge(none, {}, messages).text.contains(QStringLiteral("on this computer")));
    QVERIFY(judge(none, {}, messages).text.contains(QStringLiteral("its own messages say why")));
    QVERIFY(!adviceFor(none, messages).contains(QStringLiteral("dapter")));
}

/// The checker may have been given a back end, which the advice must not forget.
void TestVerdict::lookingAgainKeepsTheBackend()
{
    const QString advice = adviceFor(answers({true}, true, 0));
    QVERIFY(advice.contains(QStringLiteral("--watch")));
    QVERIFY(!advice.contains(QCoreApplication::applicationFilePath()));
}

void TestVerdict::scanMayOnlyHelpWhereNothingIsWrong()
{
    QVERIFY(mayImprove(judge(answers({true}, true, 0), {}, {})));
    QVERIFY(mayImprove(judge(answers({true}, true, 1), {}, {})));
    QVERIFY(!mayImprove(judge(answers({true}, true, 2), {}, {})));
    QVERIFY(!mayImprove(judge(answers({false}, false, 0), {}, {})));
    QVERIFY(!mayImprove(judge(answers({}, std::nullopt, 0), {}, {})));
}

/// Every command that is advised stands in the path here, or is a file.
void TestVerdict::onlyCommandsThatAreInstalledAreAdvised()
{
    const QByteArray path = qgetenv("PATH");
    const QList<Answers> all{answers({}, std::nullopt, 0), answers({false}, false, 0),
        answers({true}, false, 0), answers({true}, true, 0), answers({true}, true, 1)};
    for (const QByteArray &where : {path, QByteArray("/nowhere")}) {
        qputenv("PATH", where);
        for (const Answers &given : all) {
            const QStringList parts =
                judge(given, {}, {}).advice.join(QLatin1Char('\n')).split(QLatin1Char('`'));
            for (int i = 1; i < parts.size(); i += 2) {
                QStringList words = parts.at(i).split(QLatin1Char(' '));
                if (words.first() == QLatin1String("sudo") ||
                    words.first().startsWith(QLatin1String("QT_PLUGIN_PATH=")))
                    words.removeFirst();
                const bool there = !QStandardPaths::findExecutable(words.first()).isEmpty() ||
                                   !QStandardPaths::findExecutable(words.first(),
                                       {QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")})
                                        .isEmpty();
                QVERIFY2(there, qPrintable(parts.at(i)));
            }
        }
    }
    qputenv("PATH", path);
}

void TestVerdict::networksAreCounted()
{
    Answers one = answers({true}, true, 1);
    one.networks.first().insert(ScanKey::Connected, QStringLiteral("0"));
    QVERIFY(judge(one, {}, {}).text.endsWith(QStringLiteral("1 network.")));
    QVERIFY(judge(answers({true}, true, 24), {}, {}).text.endsWith(QStringLiteral("24 networks.")));
}

void TestVerdict::failedListingIsToldFromAnEmptyOne()
{
    Answers failed = answers({}, std::nullopt, 0);
    const QString empty = judge(failed, {}, {}).text;
    failed.listed = false;
    QVERIFY(judge(failed, {}, {}).text != empty);
    QCOMPARE(judge(failed, {}, {}).reason, QStringLiteral("no-interface"));
}

void TestVerdict::statusOfARunIsThatOfItsRounds_data()
{
    QTest::addColumn<int>("sofar");
    QTest::addColumn<int>("round");
    QTest::addColumn<int>("both");
    QTest::newRow("heard, heard") << 0 << 0 << 0;
    QTest::newRow("heard, nothing") << 0 << 1 << 0;
    QTest::newRow("nothing, heard") << 1 << 0 << 0;
    QTest::newRow("nothing, nothing") << 1 << 1 << 1;
    QTest::newRow("broken, heard") << 2 << 0 << 2;
    QTest::newRow("heard, broken") << 0 << 2 << 2;
    QTest::newRow("broken, nothing") << 2 << 1 << 2;
}

void TestVerdict::statusOfARunIsThatOfItsRounds()
{
    QFETCH(int, sofar);
    QFETCH(int, round);
    QTEST(static_cast<int>(combined(static_cast<Outcome>(sofar), static_cast<Outcome>(round))),
        "both");
}

QTEST_GUILESS_MAIN(TestVerdict)

#include "tst_verdict.moc"

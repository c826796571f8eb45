#include "plugincheck/verdict.h"

#include <QtTest>

using namespace PluginCheck;

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
    for (int i = 0; i < networks; ++i)
        answers.networks.append(ScanMap());
    return answers;
}

} // namespace

class TestVerdict : public QObject
{
    Q_OBJECT

private slots:
    void reasonNamesWhatIsMissing_data();
    void reasonNamesWhatIsMissing();
    void deviationGoesBeforeEverything();
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
    QTest::newRow("heard") << answers({true}, true, 1) << heard << QString() << false;
    QTest::newRow("heard although not usable")
        << answers({false}, true, 1) << heard << QString() << false;
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
    const Verdict verdict = judge(given, {});
    QTEST(static_cast<int>(verdict.outcome), "outcome");
    QTEST(verdict.reason, "reason");
    QTEST(verdict.text.contains(QStringLiteral("Please make sure turn on the wireless radio.")),
        "radioStatus");
    QCOMPARE(verdict.advice.isEmpty(), verdict.outcome == Outcome::Heard);
}

void TestVerdict::deviationGoesBeforeEverything()
{
    Deviations deviations;
    deviations.add(QStringLiteral("x"), QStringLiteral("rule"), QStringLiteral("example"));
    for (const int networks : {0, 1}) {
        const Verdict verdict = judge(answers({true}, true, networks), deviations);
        QCOMPARE(verdict.outcome, Outcome::Broken);
        QVERIFY(!verdict.advice.isEmpty());
    }
}

void TestVerdict::networksAreCounted()
{
    QVERIFY(judge(answers({true}, true, 1), {}).text.endsWith(QStringLiteral("1 network.")));
    QVERIFY(judge(answers({true}, true, 24), {}).text.endsWith(QStringLiteral("24 networks.")));
}

void TestVerdict::failedListingIsToldFromAnEmptyOne()
{
    Answers failed = answers({}, std::nullopt, 0);
    const QString empty = judge(failed, {}).text;
    failed.listed = false;
    QVERIFY(judge(failed, {}).text != empty);
    QCOMPARE(judge(failed, {}).reason, QStringLiteral("no-interface"));
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

QTEST_APPLESS_MAIN(TestVerdict)

#include "tst_verdict.moc"

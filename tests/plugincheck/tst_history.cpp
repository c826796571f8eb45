#include "plugincheck/history.h"

#include <QtTest>

using namespace PluginCheck;

namespace
{

ScanMap network(const char *name, bool joined = false)
{
    return {{ScanKey::Ssid, QLatin1String(name)}, {ScanKey::Bssid, QLatin1String(name)},
        {ScanKey::Connected, joined ? ScanJoined : QStringLiteral("0")}};
}

Answers heard(
    const QStringList &interfaces, std::optional<bool> queried, const QList<ScanMap> &networks = {})
{
    Answers answers;
    answers.interfaces = interfaces;
    answers.queried = queried;
    answers.networks = networks;
    return answers;
}

QString codesOf(const Deviations &deviations)
{
    QStringList codes;
    for (const Deviation &deviation : deviations.list())
        codes.append(deviation.code);
    return codes.join(QLatin1Char(' '));
}

} // namespace

class TestHistory : public QObject
{
    Q_OBJECT

private slots:
    void returnMustBeAnnouncedByAFailure_data();
    void returnMustBeAnnouncedByAFailure();
    void orderIsComparedFromRoundToRound();
    void onlyTheOrderOfThoseThatStayCounts();
    void anotherJoinedNameMayChangeTheOrder();
};

/// Each letter is a round: + the query succeeds, - it fails, 0 there is no interface.
void TestHistory::returnMustBeAnnouncedByAFailure_data()
{
    QTest::addColumn<QString>("faults");
    const auto row = [](const char *rounds, const char *faults) {
        QTest::newRow(rounds) << QString::fromLatin1(faults);
    };
    row("++++", "    ");
    row("+0-+", "    ");
    row("+00-+", "     ");
    row("+0+", "  x");
    row("+0+0+", "  x x");
    row("+00++", "   x ");
    row("0+", "  ");
    row("0-+", "   ");
    row("-0+", "   ");
    row("+-0+", "    ");
    row("+0-0+", "     ");
}

void TestHistory::returnMustBeAnnouncedByAFailure()
{
    QString faults;
    History history;
    for (const char *round = QTest::currentDataTag(); *round; ++round) {
        const Answers answers =
            *round == '0' ? heard({}, std::nullopt)
                          : heard({QStringLiteral("wlan0")}, *round == '+', {network("A")});
        const Deviations deviations = history.add(answers);
        QCOMPARE(deviations.isBroken(), !deviations.isEmpty());
        faults += deviations.isEmpty() ? QLatin1Char(' ') : QLatin1Char('x');
    }
    QTEST(faults, "faults");
}

void TestHistory::orderIsComparedFromRoundToRound()
{
    const QStringList interfaces{QStringLiteral("a"), QStringLiteral("b")};
    const QStringList flipped{QStringLiteral("b"), QStringLiteral("a")};
    const QList<ScanMap> networks{network("A"), network("B")};
    History history;
    QVERIFY(history.add(heard(interfaces, true, networks)).isEmpty());
    QVERIFY(history.add(heard(interfaces, true, networks)).isEmpty());
    QCOMPARE(codesOf(history.add(heard(flipped, true, networks))),
        QStringLiteral("interfaces-reordered"));
    QVERIFY(history.add(heard(flipped, false)).isEmpty());
    QCOMPARE(codesOf(history.add(heard(flipped, true, {network("B"), network("A")}))),
        QStringLiteral("networks-reordered"));
}

void TestHistory::onlyTheOrderOfThoseThatStayCounts()
{
    const QList<ScanMap> before{network("A"), network("B"), network("C")};
    QVERIFY(checkOrder(before, {network("New"), network("A"), network("C")}).isEmpty());
    QVERIFY(checkOrder(before, QList<ScanMap>()).isEmpty());
    QVERIFY(checkOrder(before, {network("A"), network("B"), network("A")}).isEmpty());
    QVERIFY(!checkOrder(before, {network("C"), network("New"), network("B")}).isEmpty());
}

void TestHistory::anotherJoinedNameMayChangeTheOrder()
{
    const QList<ScanMap> before{network("A", true), network("B")};
    QVERIFY(checkOrder(before, {network("B", true), network("A")}).isEmpty());
    QVERIFY(!checkOrder(before, {network("B"), network("A", true)}).isEmpty());
}

QTEST_APPLESS_MAIN(TestHistory)

#include "tst_history.moc"

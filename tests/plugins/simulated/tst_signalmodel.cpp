#include "simulated/signalmodel.h"

#include <QSet>
#include <QtTest>

#include <cmath>

class TestSignalModel : public QObject
{
    Q_OBJECT
private slots:
    void textKeyIsTheSameOnEveryMachine();
    void wanderKeepsItsValuesForASeed();
    void wanderStaysBetweenMinusOneAndOne();
    void wanderUsesMostOfItsRange();
    void wanderChangesSlowly();
    void wanderIsDifferentForEachSeedAndKey();
    void wanderAveragesToNothing();
    void walkPassesItsPointsAndStartsOver_data();
    void walkPassesItsPointsAndStartsOver();
    void signalIsCutAtBothEnds();
    void signalWithoutWanderIsItsMean();
    void linkRateFollowsTheSignal_data();
    void linkRateFollowsTheSignal();
};

namespace
{
// Ten hours, in the steps of the program's polls.
const double farEnd = 36000.0;
const double poll = 4.0;
} // namespace

void TestSignalModel::textKeyIsTheSameOnEveryMachine()
{
    QCOMPARE(SignalModel::TextKey(QString()), quint64(0xcbf29ce484222325ULL));
    // Known values of 64-bit FNV-1a.
    QCOMPARE(SignalModel::TextKey(QStringLiteral("a")), quint64(0xaf63dc4c8601ec8cULL));
    QCOMPARE(SignalModel::TextKey(QStringLiteral("foobar")), quint64(0x85944171f73967e8ULL));
}

void TestSignalModel::wanderKeepsItsValuesForASeed()
{
    // Scenario files with a seed are written against these values.
    QVector<int> found;
    for (int i = 0; i < 8; ++i)
        found.append(qRound(1000.0 * SignalModel::Wander(2021, 7, i * 30.0)));
    QCOMPARE(found, (QVector<int>{147, 106, 389, 321, -114, 24, 49, 13}));
}

void TestSignalModel::wanderStaysBetweenMinusOneAndOne()
{
    for (quint64 key = 0; key < 20; ++key) {
        for (double t = 0.0; t < farEnd; t += 7.3) {
            const double value = SignalModel::Wander(1, key, t);
            QVERIFY(value >= -1.0 && value <= 1.0);
        }
    }
}

void TestSignalModel::wanderUsesMostOfItsRange()
{
    double lowest = 0.0;
    double highest = 0.0;
    for (double t = 0.0; t < farEnd; t += poll) {
        lowest = qMin(lowest, SignalModel::Wander(3, 5, t));
        highest = qMax(highest, SignalModel::Wander(3, 5, t));
    }
    QVERIFY(lowest < -0.7);
    QVERIFY(highest > 0.7);
}

void TestSignalModel::wanderChangesSlowly()
{
    for (quint64 key = 0; key < 20; ++key) {
        for (double t = 0.0; t < farEnd / 10; t += 0.5) {
            const double change =
                SignalModel::Wander(1, key, t + 0.5) - SignalModel::Wander(1, key, t);
            QVERIFY2(std::fabs(change) < 0.065, qPrintable(QString::number(change)));
        }
    }
}

void TestSignalModel::wanderIsDifferentForEachSeedAndKey()
{
    QSet<int> seen;
    for (quint64 seed = 0; seed < 10; ++seed) {
        for (quint64 key = 0; key < 10; ++key)
            seen.insert(qRound(1e8 * SignalModel::Wander(seed, key, 100.0)));
    }
    QCOMPARE(seen.size(), 100);
}

void TestSignalModel::wanderAveragesToNothing()
{
    double sum = 0.0;
    int count = 0;
    for (quint64 key = 0; key < 50; ++key) {
        for (double t = 0.0; t < farEnd; t += 45.0, ++count)
            sum += SignalModel::Wander(11, key, t);
    }
    QVERIFY(std::fabs(sum / count) < 0.02);
}

void TestSignalModel::walkPassesItsPointsAndStartsOver_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("dbm");
    QTest::newRow("start") << 0.0 << -40.0;
    QTest::newRow("standing") << 7.0 << -40.0;
    QTest::newRow("setting off") << 10.0 << -40.0;
    QTest::newRow("half way") << 15.0 << -60.0;
    QTest::newRow("arrived") << 20.0 << -80.0;
    QTest::newRow("going back") << 25.0 << -70.0;
    QTest::newRow("over again") << 40.0 << -40.0;
    QTest::newRow("much later") << 40015.0 << -60.0;
}

void TestSignalModel::walkPassesItsPointsAndStartsOver()
{
    QFETCH(double, seconds);
    QFETCH(double, dbm);
    const QVector<WalkPoint> walk{{0, -40}, {10, -40}, {20, -80}, {40, -40}};
    QCOMPARE(SignalModel::WalkSignal(walk, seconds), dbm);
}

void TestSignalModel::signalIsCutAtBothEnds()
{
    ScenarioNetwork network;
    network.wander = 50.0;
    bool metFloor = false;
    bool metCeiling = false;
    for (double t = 0.0; t < farEnd; t += poll) {
        network.signal = -100.0;
        const int low = SignalModel::Signal(network, 1, 1, t);
        network.signal = 0.0;
        const int high = SignalModel::Signal(network, 1, 1, t);
        QVERIFY(low >= -100 && high <= 0);
        metFloor = metFloor || low == -100;
        metCeiling = metCeiling || high == 0;
    }
    QVERIFY(metFloor && metCeiling);
}

void TestSignalModel::signalWithoutWanderIsItsMean()
{
    ScenarioNetwork network;
    network.wander = 0.0;
    network.signal = -63.4;
    for (double t = 0.0; t < 1000.0; t += poll)
        QCOMPARE(SignalModel::Signal(network, 1, 1, t), -63);
    network.walk = {{0, -40}, {10, -50}, {20, -40}};
    QCOMPARE(SignalModel::Signal(network, 1, 1, 10.0), -50);
}

void TestSignalModel::linkRateFollowsTheSignal_data()
{
    QTest::addColumn<int>("top");
    QTest::addColumn<int>("dbm");
    QTest::addColumn<int>("rate");
    QTest::newRow("as near as can be") << 866 << 0 << 866;
    QTest::newRow("last place of the top rate") << 866 << -51 << 866;
    QTest::newRow("next scheme") << 866 << -52 << 779;
    QTest::newRow("three quarters") << 866 << -58 << 650;
    QTest::newRow("below three quarters") << 866 << -59 << 585;
    QTest::newRow("-60") << 866 << -60 << 520;
    QTest::newRow("-64") << 866 << -64 << 390;
    QTest::newRow("-68") << 866 << -68 << 260;
    QTest::newRow("-71") << 866 << -71 << 195;
    QTest::newRow("-73") << 866 << -73 << 130;
    QTest::newRow("lowest scheme") << 866 << -74 << 65;
    QTest::newRow("as far as can be") << 866 << -100 << 65;
    QTest::newRow("never nothing") << 1 << -100 << 1;
}

void TestSignalModel::linkRateFollowsTheSignal()
{
    QFETCH(int, top);
    QFETCH(int, dbm);
    QFETCH(int, rate);
    QCOMPARE(SignalModel::LinkRate(top, dbm), rate);
}

QTEST_GUILESS_MAIN(TestSignalModel)
#include "tst_signalmodel.moc"

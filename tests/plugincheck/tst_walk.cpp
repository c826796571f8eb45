#include "plugincheck/contract.h"
#include "plugincheck/replay.h"
#include "simulated/scenarioparser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <algorithm>

using namespace PluginCheck;

namespace
{

const int Seconds = 71; ///< The walk's last look is its 70th second.
const QString Upstairs = QStringLiteral("02:00:00:00:04:00");
const QString Downstairs = QStringLiteral("02:00:00:00:02:00");

ScanMap joinedOf(const Answers &round)
{
    const auto joined = std::find_if(round.networks.cbegin(), round.networks.cend(), isJoined);
    return joined == round.networks.cend() ? ScanMap() : *joined;
}

int signalOf(const Answers &round, const QString &bssid)
{
    for (const ScanMap &map : round.networks) {
        if (map.value(ScanKey::Bssid) == bssid)
            return map.value(ScanKey::Signal).toInt();
    }
    return 0;
}

} // namespace

/// docs/examples/walk.json: a minute on the way from one access point of a home to the other.
class TestWalk : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void parserTakesItWithoutAComplaint();
    void recordOfItsReplayEqualsIt();
    void everyNeighbourIsHeardThroughout();
    void joinedAccessPointChangesAtTheRecordedSecond();
    void signalsSagAndRise();

private:
    QByteArray m_walk;
    QVector<Answers> m_rounds;
};

void TestWalk::initTestCase()
{
    m_walk = readAll(QStringLiteral(AIRLUME_SOURCE_DIR "/docs/examples/walk.json"));
    QVERIFY(!m_walk.isEmpty());
    m_rounds = replayed(m_walk, Seconds);
}

void TestWalk::parserTakesItWithoutAComplaint()
{
    const ScenarioResult result = ParseScenario(m_walk);
    QVERIFY2(!result.error.isSet(), qPrintable(result.error.text));
    QVERIFY(result.scenario.events.size() > 100);
    QVERIFY(result.scenario.events.last().at < Seconds);
}

void TestWalk::recordOfItsReplayEqualsIt()
{
    QCOMPARE(recordOf(m_rounds), m_walk);
}

void TestWalk::everyNeighbourIsHeardThroughout()
{
    for (int second = 0; second < Seconds; ++second) {
        QCOMPARE(m_rounds.at(second).interfaces, QStringList{QStringLiteral("wlan0")});
        QCOMPARE(m_rounds.at(second).networks.size(), 10);
    }
}

void TestWalk::joinedAccessPointChangesAtTheRecordedSecond()
{
    QStringList joins;
    int change = 0;
    const QJsonArray events =
        QJsonDocument::fromJson(m_walk).object().value(QStringLiteral("events")).toArray();
    for (const QJsonValue &value : events) {
        const QJsonObject event = value.toObject();
        const QString what = event.value(QStringLiteral("do")).toString();
        QVERIFY(what != QStringLiteral("leave"));
        if (what != QStringLiteral("join"))
            continue;
        joins.append(event.value(QStringLiteral("bssid")).toString());
        change = event.value(QStringLiteral("at")).toInt();
    }
    QCOMPARE(joins, (QStringList{Upstairs, Downstairs}));
    QVERIFY(change > 0);
    for (int second = 0; second < Seconds; ++second) {
        const ScanMap joined = joinedOf(m_rounds.at(second));
        QCOMPARE(joined.value(ScanKey::Ssid), QStringLiteral("Home"));
        QCOMPARE(joined.value(ScanKey::Bssid), second < change ? Upstairs : Downstairs);
    }
}

void TestWalk::signalsSagAndRise()
{
    int weakest = 0;
    for (const Answers &round : qAsConst(m_rounds))
        weakest = std::min(weakest, joinedOf(round).value(ScanKey::Signal).toInt());
    const Answers &first = m_rounds.first();
    const Answers &last = m_rounds.last();
    QVERIFY(signalOf(first, Upstairs) > -50);
    QVERIFY(signalOf(last, Upstairs) < -70);
    QVERIFY(signalOf(first, Downstairs) < -70);
    QVERIFY(signalOf(last, Downstairs) > -50);
    QVERIFY2(weakest < -60, qPrintable(QString::number(weakest)));
}

QTEST_APPLESS_MAIN(TestWalk)

#include "tst_walk.moc"

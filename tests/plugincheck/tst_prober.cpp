#include "plugincheck/prober.h"

#include <QThread>
#include <QtTest>

#include <functional>

using namespace PluginCheck;

namespace
{

/// Notes every call, and answers as the test says.
class NotingBackend : public WiFiApiInterface
{
public:
    QStringList calls;
    QStringList interfaces{QStringLiteral("wlan0")};
    bool listed = true;
    int slowCalls = 0; ///< So many calls from now on take 60 ms.
    std::function<QString(const QString &nic)> heard = [](const QString &) {
        return QStringLiteral("x");
    };
    std::function<bool(QString &nic, int number)> queryResult = [](QString &, int) { return true; };

    bool initWiFiApi() override { return note("initWiFiApi"); }
    bool releaseWiFiApi() override { return note("releaseWiFiApi"); }
    bool isWiFiNicUsable(const QString &nic, int flag) override
    {
        return note("usable:" + nic.toLatin1() + ':' + QByteArray::number(flag));
    }
    bool setWiFiRadio(const QString &, bool) override { return note("setWiFiRadio"); }
    bool startWiFiScan(const QString &) override { return note("startWiFiScan"); }
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override
    {
        note("query:" + nic.toLatin1() + ':' + QByteArray::number(networks.size()));
        networks.append(ScanMap{{ScanKey::Ssid, heard(nic)}});
        return queryResult(nic, ++m_queries);
    }
    bool getConnectedNetworkMap(QString &, ScanMap &) override { return note("connected"); }
    bool getWiFiNicAddress(const QString &, QString &) override { return note("address"); }
    bool getWiFiNicList(QStringList &nics) override
    {
        note("list:" + QByteArray::number(nics.size()));
        nics += interfaces;
        return listed;
    }

private:
    bool note(const QByteArray &call)
    {
        if (slowCalls > 0) {
            --slowCalls;
            QThread::msleep(60);
        }
        calls.append(QLatin1String(call));
        return true;
    }

    int m_queries = 0;
};

void ignore(Call) {}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

} // namespace

class TestProber : public QObject
{
    Q_OBJECT

private slots:
    void laterRoundsAskExactlyAsAirlumeDoes();
    void firstRoundAsksTwice();
    void everyCallIsAnnouncedAndItsEndToo();
    void interfaceThatIsReadIsFoundByName_data();
    void interfaceThatIsReadIsFoundByName();
    void everyCallGetsEmptyLists();
    void textLeftByTheBackendIsHandedBack();
    void withoutInterfaceNoNetworksAreAskedFor();
    void interfacesOfAFailedListingCount();
    void backendThatNeedsANameIsFound();
    void backendThatFailsByTurnsNeedsNoName();
    void slowCallIsForgivenWhenItsRepeatIsFast();
    void callThatIsAlwaysSlowIsNotForgiven();
};

void TestProber::laterRoundsAskExactlyAsAirlumeDoes()
{
    NotingBackend backend;
    backend.interfaces = words("wlan0 wlan1");
    Prober prober(backend, ignore);
    prober.ask();
    backend.calls.clear();
    const Answers answers = prober.ask();
    QCOMPARE(backend.calls, words("list:0 usable:wlan0:0 usable:wlan1:0 query::0"));
    QCOMPARE(answers.usable, (QVector<bool>{true, true}));
    QCOMPARE(answers.interfaces, backend.interfaces);
    QVERIFY(answers.queried == true);
    QCOMPARE(answers.networks.size(), 1);
}

void TestProber::firstRoundAsksTwice()
{
    NotingBackend backend;
    Prober prober(backend, ignore);
    const Answers answers = prober.ask();
    QCOMPARE(backend.calls, words("list:0 usable:wlan0:0 query::0 query::0 list:0"));
    QVERIFY(answers.networksAgain);
    QCOMPARE(answers.networksAgain->size(), 1);
    QVERIFY(!prober.ask().networksAgain);
}

void TestProber::everyCallIsAnnouncedAndItsEndToo()
{
    NotingBackend backend;
    QVector<Call> announced;
    Prober prober(backend, [&](Call call) {
        announced.append(call);
        backend.calls.append(QStringLiteral("announced"));
    });
    prober.ask();
    QCOMPARE(announced.size(), 10);
    for (int i = 0; i < announced.size(); ++i)
        QCOMPARE(announced.at(i) == Call::None, i % 2 == 1);
    QCOMPARE(announced.at(0), Call::GetWiFiNicList);
    QCOMPARE(announced.at(2), Call::IsWiFiNicUsable);
    QCOMPARE(announced.at(4), Call::GetVisiableNetworkMapList);
    QCOMPARE(backend.calls.mid(0, 3), words("announced list:0 announced"));
}

void TestProber::interfaceThatIsReadIsFoundByName_data()
{
    QTest::addColumn<QString>("read");
    QTest::addColumn<QVector<bool>>("alike");
    QTest::newRow("the first") << QStringLiteral("a") << QVector<bool>{true, false};
    QTest::newRow("the second") << QStringLiteral("b") << QVector<bool>{false, true};
    QTest::newRow("another") << QStringLiteral("c") << QVector<bool>{false, false};
}

void TestProber::interfaceThatIsReadIsFoundByName()
{
    QFETCH(QString, read);
    NotingBackend backend;
    backend.interfaces = words("a b");
    backend.heard = [&read](const QString &nic) { return nic.isEmpty() ? read : nic; };
    Prober prober(backend, ignore);
    QTEST(prober.ask().alike, "alike");
    QTEST(prober.ask().alike, "alike");
    backend.interfaces = words("b a");
    QCOMPARE(prober.ask().alike, QVector<bool>());
}

void TestProber::everyCallGetsEmptyLists()
{
    NotingBackend backend;
    Prober prober(backend, ignore);
    for (int i = 0; i < 3; ++i)
        prober.ask();
    for (const QString &call : qAsConst(backend.calls)) {
        if (!call.startsWith(QStringLiteral("usable")))
            QVERIFY2(call.endsWith(QStringLiteral(":0")), qPrintable(call));
    }
}

void TestProber::textLeftByTheBackendIsHandedBack()
{
    NotingBackend backend;
    backend.queryResult = [](QString &nic, int number) {
        nic = QString::number(number);
        return true;
    };
    Prober prober(backend, ignore);
    prober.ask();
    prober.ask();
    QCOMPARE(backend.calls.filter(QStringLiteral("query")), words("query::0 query:1:0 query:2:0"));
}

void TestProber::withoutInterfaceNoNetworksAreAskedFor()
{
    NotingBackend backend;
    backend.interfaces.clear();
    Prober prober(backend, ignore);
    prober.ask();
    backend.calls.clear();
    const Answers answers = prober.ask();
    QCOMPARE(backend.calls, words("list:0"));
    QVERIFY(!answers.queried);
    QVERIFY(answers.queryTime < 0);
    QVERIFY(answers.usableTime < 0);
}

void TestProber::interfacesOfAFailedListingCount()
{
    NotingBackend backend;
    backend.listed = false;
    Prober prober(backend, ignore);
    QVERIFY(prober.ask().queried == true);
}

void TestProber::backendThatNeedsANameIsFound()
{
    NotingBackend backend;
    backend.queryResult = [](QString &nic, int) { return nic == QLatin1String("wlan0"); };
    Prober prober(backend, ignore);
    const Answers answers = prober.ask();
    QVERIFY(answers.queried == false);
    QVERIFY(answers.needsName);
    QVERIFY(!prober.ask().needsName);
}

void TestProber::backendThatFailsByTurnsNeedsNoName()
{
    NotingBackend backend;
    backend.queryResult = [](QString &, int number) { return number % 2 == 0; };
    Prober prober(backend, ignore);
    QVERIFY(!prober.ask().needsName);
    QVERIFY(prober.ask().queried == false);
    QVERIFY(prober.ask().queried == true);
}

void TestProber::slowCallIsForgivenWhenItsRepeatIsFast()
{
    NotingBackend backend;
    backend.slowCalls = 1;
    Prober prober(backend, ignore);
    const Answers answers = prober.ask();
    QVERIFY(answers.listTime < 50);
    QCOMPARE(backend.calls.filter(QStringLiteral("list")).size(), 3);
    QCOMPARE(answers.interfaces.size(), 1);
}

void TestProber::callThatIsAlwaysSlowIsNotForgiven()
{
    NotingBackend backend;
    backend.slowCalls = 100;
    Prober prober(backend, ignore);
    const Answers answers = prober.ask();
    QVERIFY(answers.listTime > 50);
    QVERIFY(answers.usableTime > 50);
    QVERIFY(answers.queryTime > 50);
    QCOMPARE(answers.networks.size(), 1);
}

QTEST_APPLESS_MAIN(TestProber)

#include "tst_prober.moc"

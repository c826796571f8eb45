#include "scan/signalnetworkscanthread.h"
#include "scan/wifiapi.h"
#include "support/fakebackend.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QtTest>

namespace
{
const QString NoRadio = QStringLiteral("Please make sure turn on the wireless radio.");

/// The discovery thread, one pass at a time and without its sleeps. Lists its signals in order.
class SteppedThread : public SignalNetworkScanThread
{
public:
    SteppedThread()
        : SignalNetworkScanThread(nullptr)
    {
        connect(this, &SignalNetworkScanThread::statusChange, this,
            [this](const QString &text) { said.append(QStringLiteral("status ") + text); });
        connect(this, &SignalNetworkScanThread::nicReturned, this,
            [this](const QString &nic) { said.append(QStringLiteral("nic ") + nic); });
        connect(this, &SignalNetworkScanThread::visiableNetworkMapListReturned, this,
            [this](const QList<ScanMap> &networks) {
                said.append(QStringLiteral("networks %1").arg(networks.size()));
                last = networks;
            });
    }

    QStringList step()
    {
        said.clear();
        discover(m_argument, m_list);
        return said;
    }

    QStringList said;
    QList<ScanMap> last;

private:
    QString m_argument;
    QList<ScanMap> m_list;
};
} // namespace

class TestSignalNetworkScanThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { _wifiApi_inf = nullptr; }
    void reportsTheInterfaceOnceAndTheNetworksEachTime();
    void saysThatThereIsNoInterface();
    void doesTheSameWithoutABackEnd();
    void keepsTheNameOfAnInterfaceThatIsGone();
    void startsAnewAfterAFailedQuery();
    void sendsNothingForAnEmptyResult();
    void doesNotFollowAnotherChoiceWhileOneIsInUse();
    void keepsTheStringArgumentAndEmptiesTheList();
    void usesAnInterfaceFromAListThatFailed();
    void writesTheDebugLines();
    void runsOnItsOwnThreadUntilInterrupted();
    void restsFourSecondsBetweenTwoQueries();

private:
    FakeBackEnd m_backEnd;
};

void TestSignalNetworkScanThread::init()
{
    m_backEnd = FakeBackEnd();
    m_backEnd.air = {TestAir::scanMap(QStringLiteral("Home"), QStringLiteral("02:00:00:00:00:01"))};
    _wifiApi_inf = &m_backEnd;
}

void TestSignalNetworkScanThread::reportsTheInterfaceOnceAndTheNetworksEachTime()
{
    SteppedThread thread;
    QCOMPARE(thread.step(), QStringList({QStringLiteral("status Scanning..."),
                                QStringLiteral("nic wlan0"), QStringLiteral("networks 1")}));
    QCOMPARE(thread.last, m_backEnd.air);
    QCOMPARE(thread.step(), QStringList(QStringLiteral("networks 1")));
}

void TestSignalNetworkScanThread::saysThatThereIsNoInterface()
{
    m_backEnd.nics.clear();
    SteppedThread thread;
    const QStringList expected{QStringLiteral("status ") + NoRadio, QStringLiteral("nic ")};
    QCOMPARE(thread.step(), expected);
    QCOMPARE(thread.step(), expected);
    QCOMPARE(m_backEnd.queries, 0);
}

void TestSignalNetworkScanThread::doesTheSameWithoutABackEnd()
{
    _wifiApi_inf = nullptr;
    SteppedThread thread;
    QCOMPARE(
        thread.step(), QStringList({QStringLiteral("status ") + NoRadio, QStringLiteral("nic ")}));
}

void TestSignalNetworkScanThread::keepsTheNameOfAnInterfaceThatIsGone()
{
    SteppedThread thread;
    thread.step();
    const int queries = m_backEnd.queries;
    m_backEnd.nics.clear();
    const QStringList lost{QStringLiteral("status ") + NoRadio, QStringLiteral("nic ")};
    QCOMPARE(thread.step(), lost);
    QCOMPARE(thread.step(), lost);
    QCOMPARE(m_backEnd.queries, queries);

    // Back again: queries go on, but neither "Scanning..." nor the interface is reported.
    m_backEnd.nics = QStringList(QStringLiteral("wlan0"));
    QCOMPARE(thread.step(), QStringList(QStringLiteral("networks 1")));

    // Only a failed query lets it be found anew.
    m_backEnd.queryResult = false;
    QCOMPARE(thread.step(), lost);
    m_backEnd.queryResult = true;
    QCOMPARE(thread.step().first(), QStringLiteral("status Scanning..."));
}

void TestSignalNetworkScanThread::startsAnewAfterAFailedQuery()
{
    m_backEnd.queryResult = false;
    SteppedThread thread;
    const QStringList expected{QStringLiteral("status Scanning..."), QStringLiteral("nic wlan0"),
        QStringLiteral("status ") + NoRadio, QStringLiteral("nic ")};
    QCOMPARE(thread.step(), expected);
    QCOMPARE(thread.step(), expected);
    m_backEnd.queryResult = true;
    QCOMPARE(thread.step().last(), QStringLiteral("networks 1"));
}

void TestSignalNetworkScanThread::sendsNothingForAnEmptyResult()
{
    SteppedThread thread;
    thread.step();
    m_backEnd.air.clear();
    QCOMPARE(thread.step(), QStringList());
}

void TestSignalNetworkScanThread::doesNotFollowAnotherChoiceWhileOneIsInUse()
{
    SteppedThread thread;
    thread.step();
    m_backEnd.nics.append(QStringLiteral("wlan1"));
    m_backEnd.usable.append(QStringLiteral("wlan1"));
    QCOMPARE(thread.step(), QStringList(QStringLiteral("networks 1")));
}

void TestSignalNetworkScanThread::keepsTheStringArgumentAndEmptiesTheList()
{
    SteppedThread thread;
    thread.step();
    QCOMPARE(m_backEnd.lastNicArgument, QString());
    QCOMPARE(m_backEnd.lastListSize, 0);
    m_backEnd.written = QStringLiteral("kept");
    thread.step();
    thread.step();
    QCOMPARE(m_backEnd.lastNicArgument, QStringLiteral("kept"));
    QCOMPARE(m_backEnd.lastListSize, 0);
}

void TestSignalNetworkScanThread::usesAnInterfaceFromAListThatFailed()
{
    m_backEnd.listResult = false;
    SteppedThread thread;
    QVERIFY(thread.step().contains(QStringLiteral("nic wlan0")));
}

void TestSignalNetworkScanThread::writesTheDebugLines()
{
    MessageLog log;
    SteppedThread thread;
    thread.step();
    QCOMPARE(log.debugs(), QStringList(QStringLiteral("nic: \"wlan0\"")));
    m_backEnd.nics.clear();
    thread.step();
    QCOMPARE(log.debugs().last(), QStringLiteral("nic emtpy"));
}

void TestSignalNetworkScanThread::runsOnItsOwnThreadUntilInterrupted()
{
    qRegisterMetaType<QList<ScanMap>>("QList<QMap<QString,QString> >");
    SignalNetworkScanThread thread(nullptr);
    // In this thread: a spy would be filled by the other one.
    int results = 0;
    connect(&thread, &SignalNetworkScanThread::visiableNetworkMapListReturned, this,
        [&results] { ++results; });
    thread.start();
    QTRY_VERIFY_WITH_TIMEOUT(results > 0, 20000);
    QVERIFY(thread.isRunning());
    thread.requestInterruption();
    QVERIFY(thread.wait(20000));
}

void TestSignalNetworkScanThread::restsFourSecondsBetweenTwoQueries()
{
    SignalNetworkScanThread thread(nullptr);
    QElapsedTimer timer;
    QVector<qint64> queries;
    connect(
        &thread, &SignalNetworkScanThread::visiableNetworkMapListReturned, &thread,
        [&] { queries.append(timer.elapsed()); }, Qt::DirectConnection);
    int seen = 0;
    connect(&thread, &SignalNetworkScanThread::visiableNetworkMapListReturned, this,
        [&seen] { ++seen; });
    timer.start();
    thread.start();
    QTRY_VERIFY_WITH_TIMEOUT(seen >= 2, 60000);
    thread.requestInterruption();
    QVERIFY(thread.wait(20000));
    // A busy machine makes it longer, never shorter.
    const qint64 rest = queries.at(1) - queries.at(0);
    QVERIFY2(rest >= 4000, qPrintable(QString::number(rest)));
}

QTEST_GUILESS_MAIN(TestSignalNetworkScanThread)
#include "tst_signalnetworkscanthread.moc"

#include "scan/signalnetworkscanthread.h"
#include "scan/signalscanthread.h"
#include "scan/wifiapi.h"
#include "support/testair.h"

#include <QRandomGenerator>
#include <QSemaphore>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace
{
const int Rounds = 200;
/// The threads sleep whole seconds, so several pairs are stopped side by side.
const int PairsAtOnce = 50;

/// Answers from wherever the scheduler leaves the calling thread: at once, after giving way, or
/// late. Used by many threads at once, although a real one never is.
class RestlessBackEnd : public WiFiApiInterface
{
public:
    bool initWiFiApi() override { return true; }
    bool releaseWiFiApi() override { return true; }
    bool isWiFiNicUsable(const QString &, int) override { return dawdle(10); }
    bool setWiFiRadio(const QString &, bool) override { return false; }
    bool startWiFiScan(const QString &) override { return false; }
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override
    {
        ++entered;
        dawdle(400);
        nic += QLatin1Char('x');
        for (int i = 0; i < 20; ++i)
            networks.append(
                TestAir::scanMap(QStringLiteral("Name %1").arg(i % 5), QString::number(i)));
        const bool result = dawdle(5) && QRandomGenerator::global()->bounded(4) > 0;
        ++left;
        return result;
    }
    bool getConnectedNetworkMap(QString &, ScanMap &) override { return false; }
    bool getWiFiNicAddress(const QString &, QString &) override { return false; }
    bool getWiFiNicList(QStringList &nics) override
    {
        nics << QStringLiteral("wlan0") << QStringLiteral("wlan1");
        return dawdle(10);
    }

    std::atomic<int> entered{0};
    std::atomic<int> left{0};

private:
    static bool dawdle(int atMostMs)
    {
        const quint32 way = QRandomGenerator::global()->bounded(3u);
        if (way == 1)
            QThread::yieldCurrentThread();
        else if (way == 2)
            QThread::msleep(
                static_cast<unsigned long>(QRandomGenerator::global()->bounded(atMostMs)));
        return true;
    }
};

/// The two threads, connected as the window connects them.
struct Pair {
    std::unique_ptr<SignalScanThread> scan{new SignalScanThread(nullptr)};
    std::unique_ptr<SignalNetworkScanThread> discovery{new SignalNetworkScanThread(nullptr)};
    int records = 0;

    Pair()
    {
        QObject::connect(discovery.get(), &SignalNetworkScanThread::nicReturned, scan.get(),
            &SignalScanThread::onNicChanged);
        QObject::connect(discovery.get(), &SignalNetworkScanThread::visiableNetworkMapListReturned,
            scan.get(), &SignalScanThread::onVisiableMapListReturned);
        QObject::connect(scan.get(), &SignalScanThread::dataReturned, scan.get(),
            [this](const QVector<WifiProperty> &data) { records += data.size(); });
        scan->start();
        discovery->start();
    }
    Pair(const Pair &) = delete;
    Pair &operator=(const Pair &) = delete;

    /// As the window's destructor does it.
    void end()
    {
        discovery->disconnect();
        discovery.reset();
        scan->setExit();
        scan->disconnect();
        scan.reset();
    }
};

/// The scan thread, one pass at a time.
class SteppedThread : public SignalScanThread
{
public:
    SteppedThread()
        : SignalScanThread(nullptr)
    {
    }
    using SignalScanThread::pass;
};
} // namespace

/// The two threads and a back end whose answers come at any time, also after the end has begun.
class TestThreadTiming : public QObject
{
    Q_OBJECT

private slots:
    void twoHundredStartsAndEndsWithLateAnswers();
    void anAnswerWaitsWhileTheLastOneIsRead();
};

void TestThreadTiming::twoHundredStartsAndEndsWithLateAnswers()
{
    qRegisterMetaType<QList<ScanMap>>("QList<QMap<QString,QString> >");
    qRegisterMetaType<QVector<WifiProperty>>("QVector<WifiProperty>");
    RestlessBackEnd backEnd;
    _wifiApi_inf = &backEnd;
    int endedDuringACall = 0;
    int records = 0;
    for (int round = 0; round < Rounds; round += PairsAtOnce) {
        std::vector<std::unique_ptr<Pair>> pairs;
        for (int i = 0; i < PairsAtOnce; ++i)
            pairs.push_back(std::make_unique<Pair>());
        // Some rounds end before the first answer, some while scans come in.
        if (round % (2 * PairsAtOnce) != 0) {
            QTRY_VERIFY_WITH_TIMEOUT(std::any_of(pairs.cbegin(), pairs.cend(),
                                         [](const auto &pair) { return pair->records > 0; }),
                60000);
        } else {
            QTRY_VERIFY_WITH_TIMEOUT(backEnd.entered > backEnd.left, 60000);
        }
        for (const auto &pair : pairs)
            pair->discovery->requestInterruption();
        endedDuringACall += backEnd.entered - backEnd.left;
        for (const auto &pair : pairs)
            pair->scan->requestInterruption();
        for (const auto &pair : pairs) {
            records += pair->records;
            pair->end();
        }
        // Nobody is inside any more: the destructors waited for the late ones.
        QCOMPARE(backEnd.entered.load(), backEnd.left.load());
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    _wifiApi_inf = nullptr;
    QVERIFY(records > 0);
    QVERIFY2(endedDuringACall > 0, qPrintable(QString::number(endedDuringACall)));
}

void TestThreadTiming::anAnswerWaitsWhileTheLastOneIsRead()
{
    const ScanMap joined = TestAir::scanMap(QStringLiteral("A"), QStringLiteral("1"), -50, 6, true);
    SteppedThread scan;
    scan.onNicChanged(QStringLiteral("wlan0"));
    scan.onVisiableMapListReturned(
        {joined, TestAir::scanMap(QStringLiteral("B"), QStringLiteral("2"))});
    QStringList names;
    connect(&scan, &SignalScanThread::dataReturned, &scan, [&](const QVector<WifiProperty> &data) {
        for (const WifiProperty &network : data)
            names.append(network.ssid);
    });

    QSemaphore taken;
    bool takenAtOnce = false;
    std::thread answer;
    // The joined network is reported from the middle of the list.
    connect(&scan, &SignalScanThread::networkReturned, &scan, [&] {
        answer = std::thread([&] {
            scan.onVisiableMapListReturned({});
            taken.release();
        });
        takenAtOnce = taken.tryAcquire(1, 200);
    });
    scan.pass();
    QVERIFY(answer.joinable());
    answer.join();
    QVERIFY(!takenAtOnce);
    QVERIFY(taken.tryAcquire());
    QCOMPARE(names, QStringList({QStringLiteral("A"), QStringLiteral("B")}));
}

QTEST_GUILESS_MAIN(TestThreadTiming)
#include "tst_threadtiming.moc"

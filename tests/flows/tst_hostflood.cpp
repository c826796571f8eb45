#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"

#include <QtTest>

#include <atomic>
#include <poll.h>
#include <sys/socket.h>
#include <thread>

namespace
{
const QString Simulated = QStringLiteral("plugins/simulated");
const int Megabyte = 1024 * 1024;
#ifdef __SANITIZE_ADDRESS__
// They keep what was freed, up to 256 MB.
const double MostGrownMb = 600.0;
#else
// Less than the longest flood, which has 60 MB.
const double MostGrownMb = 40.0;
#endif

/// Says a message again and again without ever waiting for the program, as long as it lives.
class Flood
{
public:
    Flood(int handle, const QByteArray &message)
        : m_thread([this, handle, message] {
            pollfd room{handle, POLLOUT, 0};
            while (!m_over) {
                poll(&room, 1, 100);
                const ssize_t size = send(handle, message.constData(),
                    static_cast<size_t>(message.size()), MSG_DONTWAIT | MSG_NOSIGNAL);
                m_said += size > 0 ? size : 0;
            }
        })
    {
    }
    ~Flood()
    {
        m_over = true;
        m_thread.join();
    }
    Flood(const Flood &) = delete;
    Flood &operator=(const Flood &) = delete;

    qint64 said() const { return m_said; }

private:
    std::atomic<bool> m_over{false};
    std::atomic<qint64> m_said{0};
    std::thread m_thread;
};
} // namespace

/// A host suite that says too much, or in an odd way.
class TestHostFlood : public QObject
{
    Q_OBJECT

private slots:
    void thousandsOfMessages_data();
    void thousandsOfMessages();
    void windowLivesWhileItGoesOn();
    void byteByByte();
    void halfClosedByTheHostItGoesOn();
};

void TestHostFlood::thousandsOfMessages_data()
{
    QTest::addColumn<QList<QByteArray>>("messages");
    QTest::addColumn<int>("count");
    QTest::newRow("languages") << QList<QByteArray>{"IpcResponseLanguage:deu",
                                      "IpcResponseLanguage:jpn", "IpcResponseLanguage:ara",
                                      "IpcResponseLanguage:xyz"}
                               << 5000;
    QTest::newRow("garbage") << QList<QByteArray>{QByteArray(300, '\xff'), QByteArray(50, '\0'),
                                    "IpcResponse", "%n%s\r\n"}
                             << 20000;
    QTest::newRow("very long texts") << QList<QByteArray>{QByteArray(Megabyte, 'x'),
                                            "IpcResponseLanguage:" + QByteArray(Megabyte, 'y')}
                                     << 60;
}

void TestHostFlood::thousandsOfMessages()
{
    QFETCH(QList<QByteArray>, messages);
    QFETCH(int, count);
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    const double before = airlume.held().peakMb;
    QVERIFY(before > 0.0);
    for (int i = 0; i < count; ++i) {
        QVERIFY(host.say(messages.at(i % messages.size())));
        // In between, so that what is said is read in pieces of all sizes.
        if (i % (count / 20) == 0)
            QVERIFY(airlume.command(QStringLiteral("ping")));
    }
    // Whatever it made of that, it speaks a language, and hears what is said next.
    QVERIFY(airlume.waitFor([](const QJsonObject &state) {
        for (const char *code : {"enu", "deu", "jpn", "ara"}) {
            if (speaks(state, QLatin1String(code)))
                return true;
        }
        return false;
    }));
    // Said again where the last of the flood was read together with it.
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
        return speaks(state, QStringLiteral("fin")) || (host.sayLanguage("fin") && false);
    }));
    QVERIFY(airlume.waitFor(hasRows));
    // What was said is not kept.
    const double grown = airlume.held().peakMb - before;
    qInfo("memory grew by %.0f MB", grown);
    QVERIFY2(grown < MostGrownMb, qPrintable(QString::number(grown)));
}

void TestHostFlood::windowLivesWhileItGoesOn()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    {
        const Flood flood(host.handle(), "IpcResponseLanguage:deu");
        for (int tab : {1, 2, 3, 0, 1, 2, 3, 0}) {
            const qint64 said = flood.said();
            const int paints = airlume.state()[QStringLiteral("paints")].toInt();
            QVERIFY(airlume.command(QStringLiteral("tab %1").arg(tab)));
            QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
                return state[QStringLiteral("paints")].toInt() > paints && flood.said() > said;
            }));
        }
        QVERIFY(airlume.waitFor(hasRows));
    }
    QVERIFY(airlume.waitFor([&](const QJsonObject &state) {
        return speaks(state, QStringLiteral("fin")) || (host.sayLanguage("fin") && false);
    }));
}

void TestHostFlood::byteByByte()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    const QByteArray message("IpcResponseLanguage:deu");
    for (char byte : message) {
        QVERIFY(host.say(QByteArray(1, byte)));
        // A round trip: the byte was read by itself.
        QVERIFY(airlume.command(QStringLiteral("ping")));
        QVERIFY(airlume.command(QStringLiteral("ping")));
    }
    QVERIFY(speaks(airlume.state(), QStringLiteral("enu")));
    QVERIFY(host.say(message));
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("deu"))));
}

void TestHostFlood::halfClosedByTheHostItGoesOn()
{
    HostSuite host;
    AirlumeProcess airlume(Simulated);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(host.isAsked());
    QVERIFY(host.sayLanguage("nor"));
    // The host says no more, and goes on reading.
    QVERIFY(host.closeHalf());
    QVERIFY(airlume.waitFor(speaking(QStringLiteral("nor"))));
    QVERIFY(airlume.waitFor(hasRows));
    // One that never had a host, for the same time: the machine may be as busy as it likes.
    AirlumeProcess calm(Simulated);
    calm.setOwnTemporaryFolder();
    QVERIFY2(calm.start(), qPrintable(calm.output()));
    QVERIFY(calm.waitFor(hasRows));
    const double before = airlume.held().cpuMs;
    const double calmBefore = calm.held().cpuMs;
    QVERIFY(before > 0.0 && calmBefore > 0.0);
    // Two steps of the time axis, so some 6 s: a socket that is at its end must not keep it busy.
    const QJsonValue times = airlume.state()[QStringLiteral("times")];
    QVERIFY(airlume.waitFor(
        [&](const QJsonObject &state) { return state[QStringLiteral("times")] != times; }));
    const QJsonValue later = airlume.state()[QStringLiteral("times")];
    QVERIFY(airlume.waitFor(
        [&](const QJsonObject &state) { return state[QStringLiteral("times")] != later; }));
    const double used = airlume.held().cpuMs - before;
    const double calmUsed = calm.held().cpuMs - calmBefore;
    qInfo("processor time: %.0f ms, without a host %.0f ms", used, calmUsed);
    QVERIFY(speaks(airlume.state(), QStringLiteral("nor")));
    QVERIFY(airlume.command(QStringLiteral("click close1")));
    QVERIFY(airlume.waitForEnd());
    QCOMPARE(airlume.exitCode(), 0);
    QVERIFY2(used < 3.0 * calmUsed + 1000.0, qPrintable(QString::number(used)));
}

QTEST_GUILESS_MAIN(TestHostFlood)
#include "tst_hostflood.moc"

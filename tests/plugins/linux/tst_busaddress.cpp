#include "linux/busaddress.h"

#include <QTest>

using namespace LinuxWifi;

class TestBusAddress : public QObject
{
    Q_OBJECT

private slots:
    void socketsAreFoundInLists_data();
    void socketsAreFoundInLists();
    void systemBusIsTheEnvironmentsOrTheUsualOne();
};

void TestBusAddress::socketsAreFoundInLists_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QByteArrayList>("sockets");
    QTest::addColumn<QByteArrayList>("texts");
    const auto row = [](const char *name, const char *list, const QByteArrayList &sockets,
                         const QByteArrayList &texts) {
        QTest::newRow(name) << QString::fromUtf8(list) << sockets << texts;
    };
    const auto one = [&row](const char *name, const char *list, const QByteArray &socket) {
        row(name, list, {socket}, {list});
    };
    one("path", "unix:path=/run/bus", "/run/bus");
    one("with a guid", "unix:path=/run/bus,guid=00ff", "/run/bus");
    one("guid first", "unix:guid=00ff,path=/run/bus", "/run/bus");
    one("abstract", "unix:abstract=/tmp/x", QByteArray("\0/tmp/x", 7));
    one("escaped", "unix:path=/a%20b%3d%25", "/a b=%");
    row("two", "unix:path=/a;unix:path=/b", {"/a", "/b"}, {"unix:path=/a", "unix:path=/b"});
    row("over TCP", "tcp:host=localhost,port=1", {}, {});
    row("over TCP, then not", "tcp:host=h;unix:path=/b;", {"/b"}, {"unix:path=/b"});
    row("other kinds", "autolaunch:;unixexec:path=/bin/true;unix:runtime=yes", {}, {});
    row("without a path", "unix:path=;unix:path;unix:;unix", {}, {});
    row("nothing", "", {}, {});
    row("no address", ";;=,:\xff%zz", {}, {});
}

void TestBusAddress::socketsAreFoundInLists()
{
    QFETCH(QString, list);
    QFETCH(QByteArrayList, sockets);
    QFETCH(QByteArrayList, texts);
    QByteArrayList foundSockets;
    QByteArrayList foundTexts;
    for (const BusAddress &address : busAddresses(list)) {
        foundSockets.append(address.socket);
        foundTexts.append(address.text.toUtf8());
    }
    QCOMPARE(foundSockets, sockets);
    QCOMPARE(foundTexts, texts);
}

void TestBusAddress::systemBusIsTheEnvironmentsOrTheUsualOne()
{
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/elsewhere");
    QCOMPARE(systemBusAddresses(), QStringLiteral("unix:path=/elsewhere"));
    for (const char *const none : {"", static_cast<const char *>(nullptr)}) {
        if (none)
            qputenv("DBUS_SYSTEM_BUS_ADDRESS", none);
        else
            qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        const QVector<BusAddress> usual = busAddresses(systemBusAddresses());
        QCOMPARE(usual.size(), 1);
        QCOMPARE(usual.first().socket, QByteArray("/var/run/dbus/system_bus_socket"));
    }
}

QTEST_APPLESS_MAIN(TestBusAddress)
#include "tst_busaddress.moc"

#include "app/placement.h"
#include "flows/airlumeprocess.h"
#include "support/busyhost.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{
/// Ends of connections that a server of the name `path` has taken or not taken yet.
int connectionsTo(const QByteArray &path)
{
    QFile sockets(QStringLiteral("/proc/net/unix"));
    if (!sockets.open(QIODevice::ReadOnly))
        return -1;
    int connections = 0;
    const QList<QByteArray> lines = sockets.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        // The sixth is the state: 03 is connected.
        if (fields.last() == path && fields.at(5) == "03")
            ++connections;
    }
    return connections;
}
} // namespace

/// What the program does before its window is there, and where it puts it.
class TestMain : public QObject
{
    Q_OBJECT

private slots:
    void opensInTheMiddleOfTheDesktop();
    void givesUpAFirstCopyThatIsTooBusy();
};

void TestMain::opensInTheMiddleOfTheDesktop()
{
    AirlumeProcess airlume{QString()};
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    const QJsonArray geometry = airlume.state()[QStringLiteral("geometry")].toArray();
    QCOMPARE(geometry.size(), 4);
    const QRect window(geometry.at(0).toInt(), geometry.at(1).toInt(), geometry.at(2).toInt(),
        geometry.at(3).toInt());
    // Offscreen like the program's, and smaller than the window, which is as low as it can be: its
    // corner lies outside.
    const QRect desktop = QApplication::desktop()->geometry();
    QCOMPARE(window.size(), SmallestWindow);
    QVERIFY(desktop.width() < window.width());
    QVERIFY(window.x() < 0);
    QCOMPARE(window.topLeft(), CentredPosition(desktop, window));
}

void TestMain::givesUpAFirstCopyThatIsTooBusy()
{
    const QString path = QDir::tempPath() + QStringLiteral("/Airlume_LocalServer");
    // Left behind by the program of another case.
    QFile::remove(path);
    const BusyHost firstCopy("Airlume_LocalServer");
    QVERIFY(firstCopy.isFull());
    AirlumeProcess airlume{QString()};
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    // Its question is withdrawn: it would be asked of the program's own server by now.
    airlume.state();
    QCOMPARE(connectionsTo(QFile::encodeName(path)), 0);
}

QTEST_MAIN(TestMain)
#include "tst_main.moc"

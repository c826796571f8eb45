#include "graphs/gaugepicture.h"
#include "graphs/graphtest.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signaldial.h"
#include "graphs/signaltimeplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QTest>
#include <cmath>

using GraphTest::tick;

namespace
{
QString styleSheet()
{
    QFile file(QStringLiteral(":/qss/Airlume.qss"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QVector<WifiProperty> strangeNetworks()
{
    const QStringList names = {
        QString(10000, QLatin1Char('W')),
        QString::fromUtf8("Dreißig Zeichen und noch zwei ok"),
        QString::fromUtf8("咖啡馆的无线网络"),
        QString::fromUtf8("شبكة المنزل"),
        QString::fromUtf8("רשת ביתית 5"),
        QString::fromUtf8("Кафе на углу"),
        QString::fromUtf8("🏠 Home 📶"),
        QString(),
        QStringLiteral("<h1>big</h1><img src=x>"),
        QStringLiteral("two\nlines\tand a tab"),
        QString(QChar(0x202e)) + QStringLiteral("turned"),
        QStringLiteral("100%1 %s & co"),
    };
    QVector<WifiProperty> networks = TestAir::networks(names.size());
    for (int i = 0; i < names.size(); ++i)
        networks[i].ssid = names.at(i);
    return networks;
}
} // namespace

/// Paints every graph and the gauge as a user may meet them and expects no complaint from Qt.
/// Writes the pictures into the folder that AIRLUME_PICTURES names, for people to look at.
class TestGraphPictures : public QObject
{
    Q_OBJECT

private slots:
    void timeGraph_data() { graphRows(); }
    void timeGraph();
    void tracker();
    void channelGraphs_data() { graphRows(); }
    void channelGraphs();
    void gauge_data();
    void gauge();
    void dial();

private:
    static void graphRows();
    static QVector<WifiProperty> networks();
    static void keep(const QString &name, QWidget &widget);
    static QStringList complaints(const MessageLog &log);
};

void TestGraphPictures::graphRows()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("width");
    for (int width : {760, 1060}) {
        for (int count : {1, 6, 15, 60, 300})
            QTest::addRow("%d networks, %d wide", count, width) << count << width;
        QTest::addRow("strange names, %d wide", width) << 0 << width;
    }
}

QVector<WifiProperty> TestGraphPictures::networks()
{
    QFETCH(int, count);
    return count > 0 ? TestAir::networks(count) : strangeNetworks();
}

void TestGraphPictures::keep(const QString &name, QWidget &widget)
{
    const QString folder = qEnvironmentVariable("AIRLUME_PICTURES");
    if (folder.isEmpty())
        return;
    QString file = QStringLiteral("%1 x%2.png").arg(name).arg(widget.devicePixelRatio());
    file.replace(QLatin1Char(' '), QLatin1Char('_')).remove(QLatin1Char(','));
    QVERIFY(widget.grab().save(QDir(folder).filePath(file)));
}

QStringList TestGraphPictures::complaints(const MessageLog &log)
{
    // What the offscreen platform says about every window with a size of its own.
    return log.messages(QtWarningMsg)
        .replaceInStrings(
            QStringLiteral("This plugin does not support propagateSizeHints()"), QString())
        .filter(QRegularExpression(QStringLiteral(".")));
}

void TestGraphPictures::timeGraph()
{
    QFETCH(int, width);
    MessageLog log;
    QWidget window;
    window.setObjectName(QStringLiteral("Airlume"));
    window.setStyleSheet(styleSheet());
    window.resize(width, 270);
    auto *plot = new SignalTimePlot(&window);
    plot->setStyleSheet(QStringLiteral("color: rgb(0, 0, 0);"));
    (new QHBoxLayout(&window))->addWidget(plot);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    QVector<WifiProperty> air = networks();
    plot->onDataReturned(air);
    for (const WifiProperty &network : qAsConst(air))
        plot->onShowCurve(0, network.ssid, true);
    for (int batch = 0; batch < 200; ++batch) {
        for (int i = 0; i < air.size(); ++i) {
            const int swing = static_cast<int>(4. * std::sin(batch / 7. + i));
            air[i].rssi = qBound(-99, -30 - (i * 7) % 65 + swing, -1);
        }
        plot->onDataReturned(air);
        tick(plot);
    }
    QTest::qWait(0);
    keep(QStringLiteral("time %1").arg(QLatin1String(QTest::currentDataTag())), window);
    QCOMPARE(complaints(log), QStringList());
}

void TestGraphPictures::tracker()
{
    MessageLog log;
    SignalTimePlot plot;
    plot.resize(760, 270);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    const QString name = QStringLiteral("<i>Home</i>");
    plot.onDataReturned({TestAir::network(name)});
    plot.onShowCurve(0, name, true);
    for (int i = 0; i < 200; ++i)
        plot.onDataReturned({TestAir::network(name, -54)});
    tick(&plot);
    QCoreApplication::processEvents();
    const QPoint onCurve(qRound(plot.transform(QwtPlot::xBottom, 150.)),
        qRound(plot.transform(QwtPlot::yLeft, -54.)));
    QTest::mouseMove(plot.windowHandle(), plot.canvas()->mapTo(&plot, onCurve));
    QCoreApplication::processEvents();
    keep(QStringLiteral("tracker"), plot);
    QCOMPARE(complaints(log), QStringList());
}

void TestGraphPictures::channelGraphs()
{
    QFETCH(int, width);
    MessageLog log;
    QWidget window;
    window.setObjectName(QStringLiteral("Airlume"));
    window.setStyleSheet(styleSheet());
    window.resize(width, 270);
    auto *plot2G = new Signal2GPlot(&window);
    auto *plot5G = new Signal5GPlot(&window);
    auto *layout = new QHBoxLayout(&window);
    for (SignalChannelPlot *plot :
        {static_cast<SignalChannelPlot *>(plot2G), static_cast<SignalChannelPlot *>(plot5G)}) {
        plot->setStyleSheet(QStringLiteral("color: rgb(0, 0, 0);"));
        layout->addWidget(plot);
        plot->onDataReturned(networks());
        for (const WifiProperty &network : networks())
            plot->onShowCurve(0, network.ssid, true);
        tick(plot);
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    keep(QStringLiteral("channels %1").arg(QLatin1String(QTest::currentDataTag())), window);
    QCOMPARE(complaints(log), QStringList());
}

void TestGraphPictures::gauge_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("joined");
    for (int signal : {0, -1, -25, -41, -50, -51, -76, -100})
        QTest::addRow("%d", signal) << signal << true;
    QTest::addRow("unjoined") << -60 << false;
}

void TestGraphPictures::gauge()
{
    QFETCH(int, signal);
    QFETCH(bool, joined);
    MessageLog log;
    QWidget window;
    window.setObjectName(QStringLiteral("Airlume"));
    window.setStyleSheet(styleSheet());
    window.resize(320, 260);
    Gauge gauge(&window);
    gauge.setObjectName(QStringLiteral("Dial"));
    gauge.setFixedSize(320, 260);
    gauge.onNetworkReturned(joined ? QStringLiteral("Home") : QString());
    gauge.SetSignalValue(signal);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    keep(QStringLiteral("gauge %1").arg(QLatin1String(QTest::currentDataTag())), window);
    QCOMPARE(complaints(log), QStringList());
}

void TestGraphPictures::dial()
{
    MessageLog log;
    SignalDial dial;
    dial.resize(300, 300);
    dial.onSignalReturned(-60);
    dial.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dial));
    keep(QStringLiteral("dial -60"), dial);
    QCOMPARE(complaints(log), QStringList());
}

QTEST_MAIN(TestGraphPictures)
#include "tst_graphpictures.moc"

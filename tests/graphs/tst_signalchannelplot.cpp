#include "graphs/curvecolors.h"
#include "graphs/graphtest.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QSet>
#include <QTest>
#include <memory>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>

using GraphTest::curve;
using GraphTest::curves;
using GraphTest::marker;
using GraphTest::tick;
using GraphTest::values;

namespace
{
const QString Home = QStringLiteral("Home");
const QString Cafe = QStringLiteral("Cafe");

/// A channel graph that writes down what is visible whenever it is replotted.
template <typename Graph> class Watched : public Graph
{
public:
    void replot() override
    {
        replots.append(QVector<int>());
        for (QwtPlotItem *item : this->itemList()) {
            if (item->isVisible())
                replots.last().append(item->rtti());
        }
        Graph::replot();
    }

    QVector<QVector<int>> replots;
};
} // namespace

/// Every test runs for both bands: "mine" is a channel of the graph's band, "other" one of the
/// other's.
class TestSignalChannelPlot : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void firstBatchMakesEverythingHidden_data() { bands(); }
    void firstBatchMakesEverythingHidden();
    void triangleIsDrawnAtTheNextTick_data() { bands(); }
    void triangleIsDrawnAtTheNextTick();
    void apexStandsAtItsNumberOnTheScale_data() { bands(); }
    void apexStandsAtItsNumberOnTheScale();
    void networkStaysOnItsFirstChannel_data() { bands(); }
    void networkStaysOnItsFirstChannel();
    void networkOfTheOtherBandIsNeitherFedNorShown_data() { bands(); }
    void networkOfTheOtherBandIsNeitherFedNorShown();
    void channel14IsDrawnAt5GHz();
    void newcomerGetsOneOfTenColors_data() { bands(); }
    void newcomerGetsOneOfTenColors();
    void missingNetworkKeepsItsTriangle_data() { bands(); }
    void missingNetworkKeepsItsTriangle();
    void repeatedNameIsNotDoubled_data() { bands(); }
    void repeatedNameIsNotDoubled();
    void namesAreNeverMarkup_data() { bands(); }
    void namesAreNeverMarkup();

    void unknownNetworkIsLogged_data() { bands(); }
    void unknownNetworkIsLogged();
    void labelIsShownAfterTheReplot_data() { bands(); }
    void labelIsShownAfterTheReplot();
    void tickingTwiceKeepsOneTriangle_data() { bands(); }
    void tickingTwiceKeepsOneTriangle();

    void stopDeletesEverythingAndStartsAfresh_data() { bands(); }
    void stopDeletesEverythingAndStartsAfresh();
    void emptyingKeepsTheGraphRunning_data() { bands(); }
    void emptyingKeepsTheGraphRunning();

private:
    static void bands();

    std::unique_ptr<SignalChannelPlot> m_plot;
    QVector<QVector<int>> *m_replots = nullptr;
    int m_mine = 0;
    int m_other = 0;
    double m_halfWidth = 0.;
    int m_axis = 0;
    std::unique_ptr<MessageLog> m_log;
};

void TestSignalChannelPlot::bands()
{
    QTest::addColumn<bool>("is2G");
    QTest::newRow("2.4 GHz") << true;
    QTest::newRow("5 GHz") << false;
}

void TestSignalChannelPlot::init()
{
    m_plot.reset();
    m_log.reset();
    m_log = std::make_unique<MessageLog>();
    if (!QTest::currentDataTag())
        return;
    QFETCH(bool, is2G);
    if (is2G) {
        auto plot = std::make_unique<Watched<Signal2GPlot>>();
        m_replots = &plot->replots;
        m_plot = std::move(plot);
    } else {
        auto plot = std::make_unique<Watched<Signal5GPlot>>();
        m_replots = &plot->replots;
        m_plot = std::move(plot);
    }
    m_mine = is2G ? 6 : 36;
    m_other = is2G ? 36 : 6;
    m_halfWidth = is2G ? 1. : 5.;
    m_axis = is2G ? QwtPlot::yLeft : QwtPlot::yRight;
}

void TestSignalChannelPlot::firstBatchMakesEverythingHidden()
{
    m_replots->clear();
    m_plot->onDataReturned(
        {TestAir::network(Home, -50, m_mine), TestAir::network(Cafe, -60, m_other)});
    QVERIFY(!m_replots->isEmpty());
    QCOMPARE(m_plot->NetworkCount(), 2);
    QCOMPARE(curves(*m_plot).size(), 2);
    for (const QString &name : {Home, Cafe}) {
        QVERIFY(!curve(*m_plot, name)->isVisible());
        QCOMPARE(curve(*m_plot, name)->dataSize(), std::size_t(0));
        QCOMPARE(curve(*m_plot, name)->pen().widthF(), 2.);
        QCOMPARE(curve(*m_plot, name)->style(), QwtPlotCurve::Lines);
        QVERIFY(!marker(*m_plot, name)->isVisible());
    }
    QCOMPARE(marker(*m_plot, Home)->value(), QPointF(m_mine, -50.));
}

void TestSignalChannelPlot::triangleIsDrawnAtTheNextTick()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    tick(m_plot.get());
    QCOMPARE(values(*curve(*m_plot, Home)), (QVector<double>{-100., -50., -100.}));
    QCOMPARE(curve(*m_plot, Home)->sample(0).x(), m_mine - m_halfWidth);
    QCOMPARE(curve(*m_plot, Home)->sample(1).x(), double(m_mine));
    QCOMPARE(curve(*m_plot, Home)->sample(2).x(), m_mine + m_halfWidth);

    m_plot->onDataReturned({TestAir::network(Home, -70, m_mine)});
    QCOMPARE(values(*curve(*m_plot, Home)), (QVector<double>{-100., -50., -100.}));
    QCOMPARE(marker(*m_plot, Home)->value(), QPointF(m_mine, -70.));
    tick(m_plot.get());
    QCOMPARE(values(*curve(*m_plot, Home)), (QVector<double>{-100., -70., -100.}));
}

void TestSignalChannelPlot::apexStandsAtItsNumberOnTheScale()
{
    m_plot->resize(500, 300);
    m_plot->show();
    m_plot->onDataReturned({TestAir::network(Home, -20, m_mine)});
    m_plot->onShowCurve(0, Home, true);
    tick(m_plot.get());
    QCoreApplication::processEvents();
    QCOMPARE(curve(*m_plot, Home)->yAxis(), m_axis);
    QCOMPARE(marker(*m_plot, Home)->yAxis(), m_axis);
    // What counts is the picture: the left flank of the triangle, halfway up.
    const QColor color = curve(*m_plot, Home)->pen().color();
    const QImage image = m_plot->canvas()->grab().toImage();
    const int x = qRound(m_plot->transform(QwtPlot::xBottom, m_mine - m_halfWidth / 2.));
    const int y = qRound(m_plot->transform(m_axis, -60.));
    bool found = false;
    for (int dx = -3; dx <= 3; ++dx)
        found = found || image.pixelColor(x + dx, y) == color;
    QVERIFY(found);
}

void TestSignalChannelPlot::networkStaysOnItsFirstChannel()
{
    QFETCH(bool, is2G);
    const int later = is2G ? 11 : 100;
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_plot->onDataReturned({TestAir::network(Home, -60, later)});
    m_plot->onDataReturned({TestAir::network(Home, -61, m_other)});
    tick(m_plot.get());
    QCOMPARE(curve(*m_plot, Home)->sample(1), QPointF(m_mine, -61.));
    QCOMPARE(marker(*m_plot, Home)->value(), QPointF(m_mine, -61.));
}

void TestSignalChannelPlot::networkOfTheOtherBandIsNeitherFedNorShown()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_other)});
    m_plot->onDataReturned(
        {TestAir::network(Home, -60, m_other), TestAir::network(Cafe, -60, m_other)});
    QCOMPARE(curves(*m_plot).size(), 2);
    tick(m_plot.get());
    m_log->clear();
    m_plot->onShowCurve(0, Home, true);
    m_plot->onShowCurve(1, Cafe, true);
    QCOMPARE(m_log->debugs(), QStringList());
    for (const QString &name : {Home, Cafe}) {
        QVERIFY(!curve(*m_plot, name)->isVisible());
        QVERIFY(!marker(*m_plot, name)->isVisible());
        QCOMPARE(curve(*m_plot, name)->dataSize(), std::size_t(0));
    }
    QCOMPARE(marker(*m_plot, Home)->value(), QPointF(m_other, -50.));
}

void TestSignalChannelPlot::channel14IsDrawnAt5GHz()
{
    Signal2GPlot plot2G;
    Signal5GPlot plot5G;
    for (SignalChannelPlot *plot :
        {static_cast<SignalChannelPlot *>(&plot2G), static_cast<SignalChannelPlot *>(&plot5G)}) {
        plot->onDataReturned({TestAir::network(Home, -50, 14), TestAir::network(Cafe, -50, 13)});
        plot->onShowCurve(0, Home, true);
        plot->onShowCurve(0, Cafe, true);
        tick(plot);
    }
    QVERIFY(!curve(plot2G, Home)->isVisible());
    QVERIFY(curve(plot2G, Cafe)->isVisible());
    QVERIFY(curve(plot5G, Home)->isVisible());
    QVERIFY(!curve(plot5G, Cafe)->isVisible());
    QCOMPARE(curve(plot5G, Home)->sample(0), QPointF(9., -100.));
    QCOMPARE(curve(plot5G, Home)->sample(2), QPointF(19., -100.));
    QCOMPARE(curve(plot2G, Cafe)->sample(2), QPointF(14., -100.));
}

void TestSignalChannelPlot::newcomerGetsOneOfTenColors()
{
    QSet<QRgb> allowed;
    for (const QString &name : curveColorList.mid(1, 10))
        allowed.insert(QColor(name).rgb());
    m_plot->onDataReturned({});
    m_plot->onDataReturned(TestAir::networks(300));
    QSet<QRgb> seen;
    for (const QwtPlotCurve *newcomer : curves(*m_plot))
        seen.insert(newcomer->pen().color().rgb());
    QCOMPARE(seen, allowed);
    QCOMPARE(m_plot->NetworkCount(), 0);
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_plot->onShowCurve(0, Home, true);
    tick(m_plot.get());
    QCOMPARE(values(*curve(*m_plot, Home)), (QVector<double>{-100., -50., -100.}));
}

void TestSignalChannelPlot::missingNetworkKeepsItsTriangle()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_plot->onShowCurve(0, Home, true);
    m_plot->onDataReturned({});
    tick(m_plot.get());
    QVERIFY(curve(*m_plot, Home)->isVisible());
    QCOMPARE(values(*curve(*m_plot, Home)), (QVector<double>{-100., -50., -100.}));
}

void TestSignalChannelPlot::repeatedNameIsNotDoubled()
{
    const QVector<WifiProperty> twice = {
        TestAir::network(Home, -50, m_mine), TestAir::network(Home, -60, m_mine)};
    m_plot->onDataReturned(twice);
    QCOMPARE(curves(*m_plot).size(), 1);
    QCOMPARE(m_plot->itemList(QwtPlotItem::Rtti_PlotMarker).size(), 1);
    QVector<WifiProperty> again = twice;
    m_plot->insertCurve(again);
    QCOMPARE(curves(*m_plot).size(), 1);
    tick(m_plot.get());
    QCOMPARE(curve(*m_plot, Home)->sample(1).y(), -60.);
}

void TestSignalChannelPlot::namesAreNeverMarkup()
{
    const QString name = QStringLiteral("<h1>Home</h1>");
    m_plot->onDataReturned({TestAir::network(name, -50, m_mine)});
    QVERIFY(GraphTest::isPlain(curve(*m_plot, name)->title()));
    QVERIFY(GraphTest::isPlain(marker(*m_plot, name)->label()));
}

void TestSignalChannelPlot::unknownNetworkIsLogged()
{
    QFETCH(bool, is2G);
    m_log->clear();
    m_plot->onShowCurve(0, Home, true);
    QCOMPARE(m_log->debugs(),
        QStringList{is2G ? QStringLiteral("2GPlot not find") : QStringLiteral("5GPlot not find")});
}

void TestSignalChannelPlot::labelIsShownAfterTheReplot()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_replots->clear();
    m_log->clear();
    m_plot->onShowCurve(0, Home, true);
    QCOMPARE(m_log->debugs(), QStringList{QStringLiteral("on show cureve: true")});
    QCOMPARE(*m_replots, QVector<QVector<int>>{{QwtPlotItem::Rtti_PlotCurve}});
    QVERIFY(marker(*m_plot, Home)->isVisible());
    tick(m_plot.get());
    QCOMPARE(m_replots->last(),
        (QVector<int>{QwtPlotItem::Rtti_PlotCurve, QwtPlotItem::Rtti_PlotMarker}));

    m_replots->clear();
    m_log->clear();
    m_plot->onShowCurve(0, Home, false);
    QCOMPARE(m_log->debugs(), QStringList{QStringLiteral("on show cureve: false")});
    QCOMPARE(*m_replots, QVector<QVector<int>>{{QwtPlotItem::Rtti_PlotMarker}});
    QVERIFY(!marker(*m_plot, Home)->isVisible());
    QCOMPARE(curves(*m_plot).size(), 1);
}

void TestSignalChannelPlot::tickingTwiceKeepsOneTriangle()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_plot->onShowCurve(0, Home, true);
    m_plot->onShowCurve(0, Home, true);
    QCOMPARE(curves(*m_plot).size(), 1);
    QVERIFY(curve(*m_plot, Home)->isVisible());
}

void TestSignalChannelPlot::stopDeletesEverythingAndStartsAfresh()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_plot->onShowCurve(0, Home, true);
    m_plot->onStopScan();
    QCOMPARE(m_plot->NetworkCount(), 0);
    QVERIFY(m_plot->itemList().isEmpty());
    tick(m_plot.get());
    m_plot->onStartScan();
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    QCOMPARE(m_plot->NetworkCount(), 1);
    QVERIFY(!curve(*m_plot, Home)->isVisible());
    m_plot->onStopScan();
    m_plot->onStopScan();
}

void TestSignalChannelPlot::emptyingKeepsTheGraphRunning()
{
    m_plot->onDataReturned({TestAir::network(Home, -50, m_mine)});
    m_plot->onShowCurve(0, Home, true);
    m_plot->EmptyCurveData();
    QVERIFY(m_plot->itemList().isEmpty());
    tick(m_plot.get());
    m_plot->onDataReturned({TestAir::network(Home, -55, m_mine)});
    // Not a first batch: the number of that one stays.
    QCOMPARE(m_plot->NetworkCount(), 1);
    m_plot->onShowCurve(0, Home, true);
    tick(m_plot.get());
    QCOMPARE(values(*curve(*m_plot, Home)), (QVector<double>{-100., -55., -100.}));
}

QTEST_MAIN(TestSignalChannelPlot)
#include "tst_signalchannelplot.moc"

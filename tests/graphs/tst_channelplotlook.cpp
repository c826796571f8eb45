#include "graphs/graphtest.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QAbstractEventDispatcher>
#include <QTest>
#include <memory>
#include <qwt_plot_canvas.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_widget.h>

namespace
{
int blackPixels(const QImage &picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
    }
    return count;
}
} // namespace

/// How the channel graphs look before anything is drawn, and where names stand. Most tests run for
/// both bands.
class TestChannelPlotLook : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void axesFitTheBand_data() { bands(); }
    void axesFitTheBand();
    void looksLikeAGraph_data() { bands(); }
    void looksLikeAGraph();
    void timerTicksEveryThreeSeconds_data() { bands(); }
    void timerTicksEveryThreeSeconds();
    void bothGraphsAskForTheSameRoom();
    void clicksNeverZoom_data() { bands(); }
    void clicksNeverZoom();
    void nameComesAndGoesATickAfterItsTriangle_data() { bands(); }
    void nameComesAndGoesATickAfterItsTriangle();
    void namesAtOneApexStandApart_data() { bands(); }
    void namesAtOneApexStandApart();
    void networkAtSixGigahertzLeavesNoTrace_data() { bands(); }
    void networkAtSixGigahertzLeavesNoTrace();
    void nameAtTheEdgeIsDrawnInside();

private:
    static void bands();
    QImage picture();

    std::unique_ptr<SignalChannelPlot> m_plot;
    int m_axis = 0;
    std::unique_ptr<MessageLog> m_log;
};

void TestChannelPlotLook::bands()
{
    QTest::addColumn<bool>("is2G");
    QTest::newRow("2.4 GHz") << true;
    QTest::newRow("5 GHz") << false;
}

void TestChannelPlotLook::init()
{
    m_plot.reset();
    m_log.reset();
    m_log = std::make_unique<MessageLog>();
    if (!QTest::currentDataTag())
        return;
    QFETCH(bool, is2G);
    m_axis = is2G ? QwtPlot::yLeft : QwtPlot::yRight;
    if (is2G)
        m_plot = std::make_unique<Signal2GPlot>();
    else
        m_plot = std::make_unique<Signal5GPlot>();
}

void TestChannelPlotLook::axesFitTheBand()
{
    QFETCH(bool, is2G);
    QCOMPARE(m_plot->axisTitle(QwtPlot::xBottom).text(),
        is2G ? QStringLiteral("2.4G") : QStringLiteral("5G"));
    QCOMPARE(m_plot->axisEnabled(QwtPlot::yLeft), is2G);
    QCOMPARE(m_plot->axisEnabled(QwtPlot::yRight), !is2G);
    const QwtScaleDiv channels = m_plot->axisScaleDiv(QwtPlot::xBottom);
    QCOMPARE(channels.interval(), is2G ? QwtInterval(0., 14.) : QwtInterval(0., 171.));
    QCOMPARE(
        channels.ticks(QwtScaleDiv::MajorTick), (is2G ? channelBand2G() : channelBand5G()).ticks);
    const QwtScaleDiv signal = m_plot->axisScaleDiv(m_axis);
    QCOMPARE(signal.interval(), QwtInterval(-100., 0.));
    QCOMPARE(
        signal.ticks(QwtScaleDiv::MajorTick), (QList<double>{-100., -80., -60., -40., -20., 0.}));
    for (const QwtScaleDiv &scale : {channels, signal}) {
        QVERIFY(scale.ticks(QwtScaleDiv::MediumTick).isEmpty());
        QVERIFY(scale.ticks(QwtScaleDiv::MinorTick).isEmpty());
    }
}

void TestChannelPlotLook::looksLikeAGraph()
{
    QVERIFY(!m_plot->autoReplot());
    QCOMPARE(m_plot->canvas()->cursor().shape(), Qt::ArrowCursor);
    const auto *canvas = qobject_cast<const QwtPlotCanvas *>(m_plot->canvas());
    QCOMPARE(canvas->borderRadius(), 10.);
    QVERIFY(!canvas->testPaintAttribute(QwtPlotCanvas::ImmediatePaint));
    QCOMPARE(m_plot->canvasBackground(), QBrush(Qt::white));
    QVERIFY(m_plot->plotLayout()->alignCanvasToScale(QwtPlot::xBottom));
    QCOMPARE(int(m_plot->axisScaleDraw(QwtPlot::xBottom)->labelAlignment()), 196);
    const QwtScaleWidget *axis = m_plot->axisWidget(QwtPlot::xBottom);
    const int fontHeight = QFontMetrics(axis->font()).height();
    int start = -1;
    int end = -1;
    axis->getMinBorderDist(start, end);
    QCOMPARE(start, 0);
    QCOMPARE(end, fontHeight / 2);
    QCOMPARE(m_log->debugs(), QStringList{QStringLiteral("fmh: %1").arg(fontHeight)});
}

void TestChannelPlotLook::timerTicksEveryThreeSeconds()
{
    m_plot->onStopScan();
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_plot.get());
    QCOMPARE(timers.size(), 1);
    QCOMPARE(timers.first().interval, 3000);
    QCOMPARE(timers.first().timerType, Qt::CoarseTimer);
}

void TestChannelPlotLook::bothGraphsAskForTheSameRoom()
{
    const Signal2GPlot plot2G;
    const Signal5GPlot plot5G;
    QCOMPARE(plot2G.minimumSizeHint().width(), plot5G.minimumSizeHint().width());
    QCOMPARE(plot2G.sizeHint().width(), plot5G.sizeHint().width());
}

void TestChannelPlotLook::clicksNeverZoom()
{
    m_plot->resize(500, 300);
    m_plot->show();
    const QwtInterval channels = m_plot->axisInterval(QwtPlot::xBottom);
    GraphTest::handleLikeAZoomingUser(m_plot->canvas());
    QCOMPARE(m_plot->axisInterval(QwtPlot::xBottom), channels);
    QCOMPARE(m_plot->axisInterval(m_axis), QwtInterval(-100., 0.));
}

/// What is painted, without the corners of the frame.
QImage TestChannelPlotLook::picture()
{
    return m_plot->canvas()->grab(m_plot->canvas()->rect().adjusted(10, 10, -10, -10)).toImage();
}

void TestChannelPlotLook::nameComesAndGoesATickAfterItsTriangle()
{
    QFETCH(bool, is2G);
    const QString name(3, QChar(0x2588));
    m_plot->resize(500, 300);
    m_plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
    m_plot->onDataReturned({TestAir::network(name, -50, is2G ? 6 : 100)});
    GraphTest::tick(m_plot.get());
    const QImage none = picture();

    m_plot->onShowCurve(0, name, true);
    const QImage triangle = picture();
    QVERIFY(triangle != none);
    QCOMPARE(blackPixels(triangle), blackPixels(none));
    GraphTest::tick(m_plot.get());
    const QImage both = picture();
    QVERIFY(blackPixels(both) > blackPixels(none) + 100);

    m_plot->onShowCurve(0, name, false);
    const QImage nameAlone = picture();
    QVERIFY(nameAlone != both);
    QVERIFY(blackPixels(nameAlone) > blackPixels(none) + 100);
    GraphTest::tick(m_plot.get());
    QCOMPARE(picture(), none);
}

void TestChannelPlotLook::namesAtOneApexStandApart()
{
    QFETCH(bool, is2G);
    // Blocks, so that every pixel of a name is black.
    const QString first(3, QChar(0x2588));
    const QString second(4, QChar(0x2588));
    m_plot->resize(500, 300);
    m_plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
    const int channel = is2G ? 6 : 100;
    m_plot->onDataReturned(
        {TestAir::network(first, -50, channel), TestAir::network(second, -50, channel)});
    const auto drawn = [&](const QString &name, bool shown) {
        m_plot->onShowCurve(0, name, shown);
        GraphTest::tick(m_plot.get());
        return picture();
    };
    const QImage none = picture();
    const QImage one = drawn(first, true);
    const int inOne = blackPixels(one) - blackPixels(none);
    QVERIFY(inOne > 100);
    const int inBoth = blackPixels(drawn(second, true)) - blackPixels(none);
    QVERIFY2(inBoth > 2 * inOne, qPrintable(QStringLiteral("%1, %2").arg(inOne).arg(inBoth)));
    // Alone again, it stands where it stood.
    QCOMPARE(drawn(second, false), one);
}

void TestChannelPlotLook::networkAtSixGigahertzLeavesNoTrace()
{
    QFETCH(bool, is2G);
    const QString shown(3, QChar(0x2588));
    const QString wide(60, QChar(0x2588));
    m_plot->resize(500, 300);
    m_plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
    m_plot->onDataReturned({TestAir::network(shown, -50, is2G ? 13 : 171),
        TestAir::network(wide, -50, 6005), TestAir::network(QStringLiteral("\u2588"), -40, 6233)});
    m_plot->onShowCurve(0, shown, true);
    GraphTest::tick(m_plot.get());
    const QImage alone = picture();

    m_plot->onShowCurve(0, wide, true);
    m_plot->onShowCurve(0, QStringLiteral("\u2588"), true);
    GraphTest::tick(m_plot.get());
    QCOMPARE(picture(), alone);
}

void TestChannelPlotLook::nameAtTheEdgeIsDrawnInside()
{
    m_plot = std::make_unique<Signal5GPlot>();
    const QString name(3, QChar(0x2588));
    m_plot->resize(500, 300);
    m_plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
    const auto blackWith = [&](int channel) {
        m_plot->onStopScan();
        m_plot->onDataReturned({TestAir::network(name, -50, channel)});
        m_plot->onShowCurve(0, name, true);
        GraphTest::tick(m_plot.get());
        return blackPixels(m_plot->canvas()->grab().toImage());
    };
    QCOMPARE(blackWith(171), blackWith(100));
}

QTEST_MAIN(TestChannelPlotLook)
#include "tst_channelplotlook.moc"

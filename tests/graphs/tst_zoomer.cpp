#include "graphs/graphtest.h"
#include "graphs/signaltimeplot.h"
#include "graphs/zoomer.h"
#include "support/testair.h"

#include <QTest>
#include <QWindow>
#include <qwt_plot_curve.h>
#include <qwt_widget_overlay.h>

using GraphTest::tick;

namespace
{
const QString Home = QStringLiteral("Home");

class OpenZoomer : public Zoomer
{
public:
    using Zoomer::trackerText;
    using Zoomer::Zoomer;
};

/// A 0..100 × -100..0 plot; its curves have one point each.
class TrackedPlot : public QwtPlot
{
public:
    TrackedPlot()
        : zoomer(new OpenZoomer(canvas()))
    {
        resize(500, 400);
        setAxisScale(xBottom, 0., 100.);
        setAxisScale(yLeft, -100., 0.);
        replot();
        show();
    }

    QwtPlotCurve *addPoint(const QString &title, double x, double y)
    {
        auto *curve = new QwtPlotCurve(QwtText(title, QwtText::PlainText));
        curve->setSamples({{x, y}});
        curve->attach(this);
        return curve;
    }

    QPoint pixel(double x, double y) const
    {
        return {qRound(transform(xBottom, x)), qRound(transform(yLeft, y))};
    }

    QString textAt(const QPoint &pos) const { return zoomer->trackerText(pos).text(); }

    OpenZoomer *zoomer;
};

/// Moves the mouse over the canvas the way the window system does.
void moveMouse(QWidget *canvas, const QPoint &pos)
{
    QTest::mouseMove(canvas->window()->windowHandle(), canvas->mapTo(canvas->window(), pos));
    QCoreApplication::processEvents();
}

bool showsTracker(const QWidget *canvas)
{
    return canvas->findChild<QwtWidgetOverlay *>(QStringLiteral("PickerTracker"));
}
} // namespace

class TestZoomer : public QObject
{
    Q_OBJECT

private slots:
    void labelNamesTheCurveAndWholeDbm_data();
    void labelNamesTheCurveAndWholeDbm();
    void tracksPointsCloserThanTenPixels_data();
    void tracksPointsCloserThanTenPixels();
    void takesTheNearestVisibleCurve();
    void emptyPlotAndEmptyCurveHaveNoText();
    void textIsWhiteOnGreen();
    void nameIsNeverMarkup();
    void longNameLeavesTheSignalItsRoom();
    void mouseShowsTheTrackerOfTheTimeGraph();
    void deletedCurveIsNotTracked();
    void onlyMovesAndCrossingsReachTheTracker();
    void timeGraphIsNeverZoomed();
};

void TestZoomer::labelNamesTheCurveAndWholeDbm_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<double>("dBm");
    QTest::addColumn<QString>("label");
    QTest::newRow("cut, not rounded") << "Home" << -54.7 << "Home -54dBm";
    QTest::newRow("just below zero") << "Home" << -0.9 << "Home 0dBm";
    QTest::newRow("whole") << "Home" << -100. << "Home -100dBm";
    QTest::newRow("empty name") << "" << -1. << " -1dBm";
    QTest::newRow("format") << "%1 %2" << -1. << "%1 %2 -1dBm";
}

void TestZoomer::labelNamesTheCurveAndWholeDbm()
{
    QFETCH(QString, title);
    QFETCH(double, dBm);
    QTEST(trackerLabel(title, dBm), "label");
    QVERIFY(trackerLabel(QString(10000, QLatin1Char('x')), dBm).endsWith(QLatin1String("dBm")));
    QVERIFY(trackerLabel(QString(10000, QLatin1Char('x')), dBm).size() < 100);
}

void TestZoomer::tracksPointsCloserThanTenPixels_data()
{
    QTest::addColumn<QPoint>("offset");
    QTest::addColumn<bool>("tracked");
    QTest::newRow("on it") << QPoint(0, 0) << true;
    QTest::newRow("9 right") << QPoint(9, 0) << true;
    QTest::newRow("10 right") << QPoint(10, 0) << false;
    QTest::newRow("9 above") << QPoint(0, -9) << true;
    QTest::newRow("10 above") << QPoint(0, -10) << false;
    QTest::newRow("9.9 aslant") << QPoint(7, 7) << true;
    QTest::newRow("10 aslant") << QPoint(6, 8) << false;
    QTest::newRow("far away") << QPoint(100, 100) << false;
}

void TestZoomer::tracksPointsCloserThanTenPixels()
{
    QFETCH(QPoint, offset);
    QFETCH(bool, tracked);
    TrackedPlot plot;
    // A point that lies on a whole pixel.
    const QPoint at = plot.pixel(50., -50.);
    plot.addPoint(Home, plot.invTransform(QwtPlot::xBottom, at.x()),
        plot.invTransform(QwtPlot::yLeft, at.y()));
    QCOMPARE(!plot.textAt(at + offset).isEmpty(), tracked);
}

void TestZoomer::takesTheNearestVisibleCurve()
{
    TrackedPlot plot;
    plot.addPoint(QStringLiteral("left"), 50., -50.);
    QwtPlotCurve *right = plot.addPoint(QStringLiteral("right"), 51., -50.);
    const QPoint nearRight = plot.pixel(51., -50.);
    QVERIFY(plot.textAt(nearRight).startsWith(QLatin1String("right ")));
    right->setVisible(false);
    QVERIFY(plot.textAt(nearRight).startsWith(QLatin1String("left ")));
    QVERIFY(plot.textAt(plot.pixel(50., -50.)).startsWith(QLatin1String("left ")));
}

void TestZoomer::emptyPlotAndEmptyCurveHaveNoText()
{
    TrackedPlot plot;
    QCOMPARE(plot.textAt({100, 100}), QString());
    (new QwtPlotCurve(Home))->attach(&plot);
    QCOMPARE(plot.textAt({0, 0}), QString());
    QCOMPARE(plot.textAt({100, 100}), QString());
}

void TestZoomer::textIsWhiteOnGreen()
{
    TrackedPlot plot;
    plot.addPoint(Home, 50., -50.);
    const QwtText text = plot.zoomer->trackerText(plot.pixel(50., -50.));
    QCOMPARE(text.color(), QColor(Qt::white));
    QCOMPARE(text.borderPen(), QPen(QColor(Qt::darkGreen)));
    QCOMPARE(text.borderRadius(), 6.);
    QColor background(Qt::darkGreen);
    background.setAlpha(170);
    QCOMPARE(text.backgroundBrush(), QBrush(background));
    QCOMPARE(plot.zoomer->rubberBandPen().color(), QColor(Qt::darkGreen));
    QCOMPARE(plot.zoomer->trackerMode(), QwtPicker::AlwaysOn);
}

void TestZoomer::nameIsNeverMarkup()
{
    TrackedPlot plot;
    plot.addPoint(QStringLiteral("<h1>Home</h1>"), 50., -50.);
    const QwtText text = plot.zoomer->trackerText(plot.pixel(50., -50.));
    QVERIFY(text.text().startsWith(QLatin1String("<h1>Home</h1> -")));
    QVERIFY(GraphTest::isPlain(text));
}

void TestZoomer::longNameLeavesTheSignalItsRoom()
{
    TrackedPlot plot;
    const QString name(60, QLatin1Char('W'));
    plot.addPoint(name, 50., -50.);
    const auto text = [&plot] { return plot.zoomer->trackerText(plot.pixel(50., -50.)); };
    const QString elided = text().text();
    QVERIFY(elided.startsWith(QLatin1String("WWWWWWWWWW")));
    QVERIFY2(elided.endsWith(QString::fromUtf8("W… -50dBm")) ||
                 elided.endsWith(QString::fromUtf8("W… -49dBm")),
        qPrintable(elided));
    QVERIFY(text().textSize(plot.zoomer->trackerFont()).width() <= plot.canvas()->width() - 10);
    plot.resize(2000, 400);
    plot.replot();
    QCoreApplication::processEvents();
    QVERIFY(text().text().startsWith(name + QLatin1String(" -")));
}

void TestZoomer::mouseShowsTheTrackerOfTheTimeGraph()
{
    SignalTimePlot plot;
    plot.resize(700, 300);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    plot.onDataReturned({TestAir::network(Home)});
    plot.onShowCurve(0, Home, true);
    for (int i = 0; i < 100; ++i)
        plot.onDataReturned({TestAir::network(Home, -50)});
    tick(&plot);
    QCoreApplication::processEvents();

    QWidget *canvas = plot.canvas();
    const QPoint onCurve(qRound(plot.transform(QwtPlot::xBottom, 200.)),
        qRound(plot.transform(QwtPlot::yLeft, -50.)));
    moveMouse(canvas, onCurve + QPoint(0, 12));
    QVERIFY(!showsTracker(canvas));
    moveMouse(canvas, onCurve + QPoint(0, 6));
    QVERIFY(showsTracker(canvas));
    moveMouse(canvas, onCurve - QPoint(0, 12));
    QVERIFY(!showsTracker(canvas));
    moveMouse(canvas, onCurve);
    QVERIFY(showsTracker(canvas));
    plot.grab();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(canvas, &leave);
    QVERIFY(!showsTracker(canvas));
}

void TestZoomer::deletedCurveIsNotTracked()
{
    SignalTimePlot plot;
    plot.resize(700, 300);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    plot.onDataReturned({TestAir::network(Home)});
    plot.onShowCurve(0, Home, true);
    plot.onDataReturned({TestAir::network(Home, -50)});
    tick(&plot);
    QCoreApplication::processEvents();
    const QPoint newest(qRound(plot.transform(QwtPlot::xBottom, 242.)),
        qRound(plot.transform(QwtPlot::yLeft, -50.)));
    moveMouse(plot.canvas(), newest - QPoint(2, 0));
    QVERIFY(showsTracker(plot.canvas()));
    plot.onShowCurve(0, Home, false);
    plot.grab();
    moveMouse(plot.canvas(), newest - QPoint(3, 0));
    QVERIFY(!showsTracker(plot.canvas()));
}

void TestZoomer::onlyMovesAndCrossingsReachTheTracker()
{
    TrackedPlot plot;
    plot.addPoint(Home, 50., -50.);
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
             QEvent::MouseMove, QEvent::MouseButtonDblClick}) {
        QMouseEvent event(type, QPointF(10, 10), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QVERIFY(!plot.zoomer->eventFilter(plot.canvas(), &event));
        QVERIFY(!plot.zoomer->isActive());
    }
    QEvent enter(QEvent::Enter);
    QVERIFY(!plot.zoomer->eventFilter(plot.canvas(), &enter));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QVERIFY(!plot.zoomer->eventFilter(plot.canvas(), &key));
    QVERIFY(!plot.zoomer->isActive());
}

void TestZoomer::timeGraphIsNeverZoomed()
{
    SignalTimePlot plot;
    plot.resize(700, 300);
    plot.show();
    plot.onDataReturned({TestAir::network(Home)});
    auto *zoomer = plot.canvas()->findChild<Zoomer *>();
    QVERIFY(zoomer);
    const QMouseEvent second(
        QEvent::MouseButtonPress, QPointF(), Qt::RightButton, Qt::RightButton, Qt::ControlModifier);
    const QMouseEvent third(
        QEvent::MouseButtonPress, QPointF(), Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QVERIFY(zoomer->mouseMatch(QwtEventPattern::MouseSelect2, &second));
    QVERIFY(zoomer->mouseMatch(QwtEventPattern::MouseSelect3, &third));
    const QwtInterval time = plot.axisInterval(QwtPlot::xBottom);
    const QwtInterval signal = plot.axisInterval(QwtPlot::yLeft);
    GraphTest::handleLikeAZoomingUser(plot.canvas());
    QCOMPARE(zoomer->zoomRectIndex(), 0U);
    QCOMPARE(zoomer->zoomStack().size(), 1);
    QCOMPARE(plot.axisInterval(QwtPlot::xBottom), time);
    QCOMPARE(plot.axisInterval(QwtPlot::yLeft), signal);

    // The same hand does zoom a plot that can be zoomed.
    QwtPlot other;
    other.resize(700, 300);
    QwtPlotZoomer control(other.canvas());
    other.show();
    GraphTest::handleLikeAZoomingUser(other.canvas());
    QVERIFY(control.zoomStack().size() > 1);
}

QTEST_MAIN(TestZoomer)
#include "tst_zoomer.moc"

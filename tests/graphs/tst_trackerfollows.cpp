#include "graphs/graphtest.h"
#include "graphs/signaltimeplot.h"
#include "support/testair.h"

#include <QTest>
#include <QWindow>
#include <memory>
#include <qwt_picker.h>
#include <qwt_widget_overlay.h>

using GraphTest::tick;

namespace
{
const QString Short = QStringLiteral("A");
const QString Long = QStringLiteral("A network of a long name");
const int Level = -40; // dBm
} // namespace

/// The text under a mouse that rests over the time graph while the graph moves on.
class TestTrackerFollows : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void textComesWithTheCurve();
    void textGoesWithTheCurve();
    void textGoesWithAnUntickedCurve();
    void textGoesWithAllCurves();
    void textIsThatOfAnotherCurveWhole();
    void textFollowsAGraphOfAnotherSize();
    void textIsWholeHoweverLongTheName();
    void nothingComesWithoutTheMouse();

private:
    void hear(const QString &name, int dBm, int times);
    QPoint onCurve() const;
    void rest(const QPoint &pos);
    void rest() { rest(onCurve()); }
    const QWidget *tracker() const;
    QImage picture() { return m_plot->canvas()->grab().toImage(); }
    void verifyItIsAsUnderAMovingMouse();

    std::unique_ptr<SignalTimePlot> m_plot;
    QPoint m_mouse;
};

void TestTrackerFollows::init()
{
    m_plot = std::make_unique<SignalTimePlot>();
    m_plot->resize(900, 300);
    m_plot->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_plot.get()));
    // Off the canvas: a mouse that was there before would not move.
    QTest::mouseMove(m_plot->windowHandle(), QPoint(1, 1));
    m_plot->onDataReturned({TestAir::network(Short), TestAir::network(Long)});
    QCoreApplication::processEvents();
}

void TestTrackerFollows::hear(const QString &name, int dBm, int times)
{
    for (int i = 0; i < times; ++i)
        m_plot->onDataReturned({TestAir::network(name, dBm)});
    tick(m_plot.get());
    QCoreApplication::processEvents();
}

/// Where a curve that has been at the level for a while passes.
QPoint TestTrackerFollows::onCurve() const
{
    return {m_plot->canvas()->width() - 60, qRound(m_plot->transform(QwtPlot::yLeft, Level))};
}

void TestTrackerFollows::rest(const QPoint &pos)
{
    m_mouse = pos;
    QTest::mouseMove(m_plot->windowHandle(), m_plot->canvas()->mapTo(m_plot.get(), m_mouse));
    QCoreApplication::processEvents();
}

const QWidget *TestTrackerFollows::tracker() const
{
    return m_plot->canvas()->findChild<QwtWidgetOverlay *>(QStringLiteral("PickerTracker"));
}

/// Looks at the text, moves the mouse on the spot and looks again.
void TestTrackerFollows::verifyItIsAsUnderAMovingMouse()
{
    QVERIFY(tracker());
    const QRegion mask = tracker()->mask();
    QCOMPARE(tracker()->size(), m_plot->canvas()->size());
    const QImage resting = picture();
    QVERIFY(!mask.isEmpty());
    rest(m_mouse + QPoint(1, 0));
    QVERIFY(tracker());
    rest(m_mouse - QPoint(1, 0));
    QVERIFY(tracker());
    QCOMPARE(tracker()->mask(), mask);
    QCOMPARE(picture(), resting);
}

void TestTrackerFollows::textComesWithTheCurve()
{
    m_plot->onShowCurve(0, Short, true);
    hear(Short, -90, 100);
    rest();
    QVERIFY(!tracker());
    hear(Short, Level, 100);
    verifyItIsAsUnderAMovingMouse();
}

void TestTrackerFollows::textGoesWithTheCurve()
{
    m_plot->onShowCurve(0, Short, true);
    hear(Short, Level, 100);
    rest();
    QVERIFY(tracker());
    hear(Short, -90, 100);
    QVERIFY(!tracker());
}

void TestTrackerFollows::textGoesWithAnUntickedCurve()
{
    m_plot->onShowCurve(0, Short, true);
    hear(Short, Level, 100);
    rest();
    QVERIFY(tracker());
    m_plot->onShowCurve(0, Short, false);
    QVERIFY(!tracker());
}

void TestTrackerFollows::textGoesWithAllCurves()
{
    m_plot->onShowCurve(0, Short, true);
    hear(Short, Level, 100);
    rest();
    QVERIFY(tracker());
    m_plot->EmptyCurveData();
    QVERIFY(!tracker());
}

void TestTrackerFollows::textIsThatOfAnotherCurveWhole()
{
    for (const QString &name : {Short, Long}) {
        m_plot->onShowCurve(0, name, true);
        hear(name, -90, 100);
    }
    hear(Short, Level, 100);
    rest();
    QVERIFY(tracker());
    const int width = tracker()->mask().boundingRect().width();
    hear(Short, -90, 100);
    hear(Long, Level, 100);
    verifyItIsAsUnderAMovingMouse();
    QVERIFY(tracker()->mask().boundingRect().width() > 2 * width);
    hear(Long, -90, 100);
    hear(Short, Level, 100);
    verifyItIsAsUnderAMovingMouse();
    QCOMPARE(tracker()->mask().boundingRect().width(), width);
}

void TestTrackerFollows::textFollowsAGraphOfAnotherSize()
{
    m_plot->onShowCurve(0, Long, true);
    hear(Long, Level, HISTORY);
    rest();
    QVERIFY(tracker());
    // The text was moved in at the edge; now there is room for it where there was none.
    m_plot->resize(m_plot->width() + 300, m_plot->height());
    QCoreApplication::processEvents();
    verifyItIsAsUnderAMovingMouse();
    m_plot->resize(m_plot->width(), m_plot->height() + 200);
    QCoreApplication::processEvents();
    QVERIFY(!tracker());
}

void TestTrackerFollows::textIsWholeHoweverLongTheName()
{
    const QString endless(64, QLatin1Char('W'));
    m_plot->onDataReturned({TestAir::network(endless)});
    m_plot->onShowCurve(0, endless, true);
    m_plot->resize(500, 300);
    QCoreApplication::processEvents();
    hear(endless, Level, 200);
    rest();
    QVERIFY(tracker());
    QVERIFY(m_plot->canvas()->rect().contains(tracker()->mask().boundingRect()));
}

void TestTrackerFollows::nothingComesWithoutTheMouse()
{
    m_plot->onShowCurve(0, Short, true);
    hear(Short, -90, 100);
    rest();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(m_plot->canvas(), &leave);
    hear(Short, Level, 100);
    QVERIFY(!tracker());
}

QTEST_MAIN(TestTrackerFollows)
#include "tst_trackerfollows.moc"

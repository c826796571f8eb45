#include "app/builtwindow.h"

#include "netlist/signaltreeview.h"
#include "support/messagelog.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QtTest>

/// The title bar under the mouse: dragging and double clicks, on the window and on whatever in it
/// lets the mouse through.
class TestAirlumeMouse : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void doubleClickInTheTitleBandChangesTheSize_data();
    void doubleClickInTheTitleBandChangesTheSize();
    void doubleClickOnAChildCountsWhereTheWindowIs_data();
    void doubleClickOnAChildCountsWhereTheWindowIs();
    void secondDoubleClickRestores();
    void anyButtonDoubleClicks();
    void dragsByTheTitleBar();
    void dragsByWhateverLetsTheMouseThrough();
    void dragsOnlyBetweenPressAndRelease();
    void dragsOnlyWithTheLeftButton();
    void draggingSurvivesOtherButtons();
    void doesNotDragInFullScreen();
    void roundsPositions();
    void buttonsAndListKeepTheirPresses();
    void consumesNoEvent_data();
    void consumesNoEvent();
    void looksAtWidgetsOnly();

private:
    /// Sends one mouse event to `widget`: `at` is its place on the screen.
    void send(QWidget *widget, QEvent::Type type, const QPointF &at, Qt::MouseButton button,
        Qt::MouseButtons buttons);
    void press(const QPointF &at, Qt::MouseButton button = Qt::LeftButton)
    {
        send(m_window->get(), QEvent::MouseButtonPress, at, button, button);
    }
    void moveTo(const QPointF &at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        send(m_window->get(), QEvent::MouseMove, at, Qt::NoButton, buttons);
    }
    void release(const QPointF &at, Qt::MouseButton button = Qt::LeftButton)
    {
        send(m_window->get(), QEvent::MouseButtonRelease, at, button, Qt::NoButton);
    }
    QPoint place() const { return m_window->get()->pos(); }
    bool isMaximised() const { return m_window->child<QPushButton>("restore")->isVisible(); }

    QScopedPointer<BuiltWindow> m_window;
    QScopedPointer<MessageLog> m_log;
};

void TestAirlumeMouse::initTestCase()
{
    m_window.reset(new BuiltWindow);
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
}

void TestAirlumeMouse::init()
{
    m_log.reset(new MessageLog);
    m_window->get()->move(100, 80);
    QVERIFY(!isMaximised());
}

void TestAirlumeMouse::cleanup()
{
    release(QPointF(0, 0));
    if (isMaximised())
        m_window->get()->onBtnRestoreClicked();
    m_log.reset();
}

void TestAirlumeMouse::send(QWidget *widget, QEvent::Type type, const QPointF &at,
    Qt::MouseButton button, Qt::MouseButtons buttons)
{
    const QPointF inWidget = at - QPointF(widget->mapToGlobal(QPoint(0, 0)));
    const QPointF inWindow = at - QPointF(widget->window()->pos());
    QMouseEvent event(type, inWidget, inWindow, at, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void TestAirlumeMouse::doubleClickInTheTitleBandChangesTheSize_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<bool>("changes");
    QTest::newRow("first row of pixels") << QPoint(300, 0) << true;
    QTest::newRow("in the middle") << QPoint(300, 22) << true;
    QTest::newRow("last row of the band") << QPoint(300, 49) << true;
    QTest::newRow("first row below the band") << QPoint(300, 50) << false;
    QTest::newRow("in the middle of the window") << QPoint(300, 300) << false;
    QTest::newRow("left edge") << QPoint(0, 49) << true;
    QTest::newRow("right edge") << QPoint(1099, 49) << true;
}

void TestAirlumeMouse::doubleClickInTheTitleBandChangesTheSize()
{
    QFETCH(QPoint, at);
    QFETCH(bool, changes);
    const QRect before = m_window->get()->geometry();
    QTest::mouseDClick(m_window->get(), Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(isMaximised(), changes);
    QCOMPARE(m_window->get()->geometry() == before, !changes);
    QCOMPARE(m_log->debugs(),
        changes ? QStringList({QStringLiteral("show max window")}) : QStringList());
}

void TestAirlumeMouse::doubleClickOnAChildCountsWhereTheWindowIs_data()
{
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<bool>("changes");
    QTest::newRow("logo") << QPoint(10, 10) << true;
    QTest::newRow("title") << QPoint(5, 43) << true;
    // Above its top edge, as when the mouse is held: still in the band.
    QTest::newRow("treeframe") << QPoint(5, -1) << true;
    QTest::newRow("dialframe") << QPoint(5, 0) << false;
    // Its own y is small, the window's is not.
    QTest::newRow("statuslabel") << QPoint(5, 3) << false;
    QTest::newRow("label_connectedto") << QPoint(5, 3) << false;
    QTest::newRow("bottom") << QPoint(500, 1) << false;
    QTest::newRow("tab1") << QPoint(2, 2) << false;
}

void TestAirlumeMouse::doubleClickOnAChildCountsWhereTheWindowIs()
{
    QFETCH(QPoint, at);
    QFETCH(bool, changes);
    QWidget *child = m_window->child<QWidget>(QTest::currentDataTag());
    QVERIFY(child->isVisible());
    const QPointF onScreen = child->mapToGlobal(at);
    send(child, QEvent::MouseButtonDblClick, onScreen, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(isMaximised(), changes);
}

void TestAirlumeMouse::secondDoubleClickRestores()
{
    const QRect before = m_window->get()->geometry();
    QTest::mouseDClick(m_window->child<QWidget>("title"), Qt::LeftButton, {}, QPoint(300, 20));
    QVERIFY(isMaximised());
    QTest::mouseDClick(m_window->child<QWidget>("title"), Qt::LeftButton, {}, QPoint(300, 20));
    QVERIFY(!isMaximised());
    QCOMPARE(m_window->get()->geometry(), before);
}

void TestAirlumeMouse::anyButtonDoubleClicks()
{
    send(m_window->get(), QEvent::MouseButtonDblClick, place() + QPoint(300, 20), Qt::RightButton,
        Qt::RightButton);
    QVERIFY(isMaximised());
}

void TestAirlumeMouse::dragsByTheTitleBar()
{
    press(QPointF(400, 100));
    QCOMPARE(place(), QPoint(100, 80));
    moveTo(QPointF(410, 95));
    QCOMPARE(place(), QPoint(110, 75));
    // From where it was pressed, not from the last place: nothing adds up.
    moveTo(QPointF(150, 30));
    QCOMPARE(place(), QPoint(-150, 10));
    moveTo(QPointF(400, 100));
    QCOMPARE(place(), QPoint(100, 80));
    QCOMPARE(m_window->get()->size(), QSize(1100, 700));
}

void TestAirlumeMouse::dragsByWhateverLetsTheMouseThrough()
{
    for (const char *name : {"logo", "title", "statuslabel", "Dial", "label_connectedto"}) {
        m_window->get()->move(100, 80);
        QWidget *child = m_window->child<QWidget>(name);
        const QPointF at = child->mapToGlobal(QPoint(3, 3));
        send(child, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        send(child, QEvent::MouseMove, at + QPointF(20, 30), Qt::NoButton, Qt::LeftButton);
        QVERIFY2(place() == QPoint(120, 110), name);
        send(child, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    }
}

void TestAirlumeMouse::dragsOnlyBetweenPressAndRelease()
{
    moveTo(QPointF(500, 500));
    QCOMPARE(place(), QPoint(100, 80));
    press(QPointF(400, 100));
    moveTo(QPointF(401, 101));
    QCOMPARE(place(), QPoint(101, 81));
    release(QPointF(401, 101));
    moveTo(QPointF(500, 500));
    QCOMPARE(place(), QPoint(101, 81));
    // The mouse was let go outside: a move without the button moves nothing.
    m_window->get()->setMouseTracking(true);
    press(QPointF(400, 100));
    moveTo(QPointF(500, 500), Qt::NoButton);
    m_window->get()->setMouseTracking(false);
    QCOMPARE(place(), QPoint(101, 81));
}

void TestAirlumeMouse::dragsOnlyWithTheLeftButton()
{
    press(QPointF(400, 100), Qt::RightButton);
    moveTo(QPointF(410, 110), Qt::RightButton);
    QCOMPARE(place(), QPoint(100, 80));
    // Not even when the left button is down by now: it was not pressed on the window.
    moveTo(QPointF(410, 110), Qt::LeftButton | Qt::RightButton);
    QCOMPARE(place(), QPoint(100, 80));
}

void TestAirlumeMouse::draggingSurvivesOtherButtons()
{
    press(QPointF(400, 100));
    press(QPointF(405, 105), Qt::RightButton);
    release(QPointF(405, 105), Qt::RightButton);
    moveTo(QPointF(410, 110));
    QCOMPARE(place(), QPoint(110, 90));
}

void TestAirlumeMouse::doesNotDragInFullScreen()
{
    Airlume *window = m_window->get();
    window->showFullScreen();
    QVERIFY(window->isFullScreen());
    const QPoint before = place();
    press(QPointF(400, 100));
    moveTo(QPointF(420, 130));
    QCOMPARE(place(), before);
    release(QPointF(420, 130));
    window->showNormal();
    QVERIFY(!window->isFullScreen());
}

void TestAirlumeMouse::roundsPositions()
{
    // 100.5 goes up and 80.4 down.
    press(QPointF(400.5, 100.4));
    moveTo(QPointF(411.4, 110.5));
    QCOMPARE(place(), QPoint(110, 91));
    release(QPointF(0, 0));

    m_window->get()->move(100, 80);
    const auto doubleClick = [this](qreal y) {
        send(m_window->get(), QEvent::MouseButtonDblClick, place() + QPointF(300, y),
            Qt::LeftButton, Qt::LeftButton);
    };
    doubleClick(49.5);
    QVERIFY(!isMaximised());
    doubleClick(49.4);
    QVERIFY(isMaximised());
}

void TestAirlumeMouse::buttonsAndListKeepTheirPresses()
{
    QWidget *list = m_window->child<SignalTreeView>()->viewport();
    for (QWidget *child :
        {static_cast<QWidget *>(m_window->child<QPushButton>("maximize")), list}) {
        const QPointF at = child->mapToGlobal(QPoint(5, 5));
        send(child, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
        send(child, QEvent::MouseMove, at + QPointF(100, 100), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(place(), QPoint(100, 80));
        send(child, QEvent::MouseButtonRelease, at + QPointF(100, 100), Qt::LeftButton,
            Qt::NoButton);
        QVERIFY(!isMaximised());
    }
}

void TestAirlumeMouse::consumesNoEvent_data()
{
    QTest::addColumn<int>("type");
    const QMetaEnum types = QMetaEnum::fromType<QEvent::Type>();
    for (const QEvent::Type type :
        {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
            QEvent::MouseMove, QEvent::Enter, QEvent::Leave, QEvent::Close, QEvent::ToolTip}) {
        QTest::newRow(types.valueToKey(type)) << static_cast<int>(type);
    }
}

void TestAirlumeMouse::consumesNoEvent()
{
    QFETCH(int, type);
    const auto eventType = static_cast<QEvent::Type>(type);
    Airlume *window = m_window->get();
    const bool isMouse = eventType >= QEvent::MouseButtonPress && eventType <= QEvent::MouseMove;
    const QPointF at(20, 20);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        QMouseEvent mouse(eventType, at, at, at, button, button, Qt::NoModifier);
        QEvent other(eventType);
        QVERIFY(!window->eventFilter(window, isMouse ? &mouse : &other));
        QVERIFY(!window->eventFilter(this, isMouse ? &mouse : &other));
    }
}

void TestAirlumeMouse::looksAtWidgetsOnly()
{
    const QPointF at(20, 20);
    QMouseEvent doubleClick(
        QEvent::MouseButtonDblClick, at, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    m_window->get()->eventFilter(this, &doubleClick);
    QVERIFY(!isMaximised());
    m_window->get()->eventFilter(m_window->child<QLabel>("logo"), &doubleClick);
    QVERIFY(isMaximised());
}

QTEST_MAIN(TestAirlumeMouse)
#include "tst_airlumemouse.moc"

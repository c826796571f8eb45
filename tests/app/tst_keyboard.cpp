#include "app/builtwindow.h"
#include "netlist/signaltreeview.h"
#include "support/testair.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QtTest>

/// The window without a mouse.
class TestKeyboard : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void tabReachesEveryControl_data();
    void tabReachesEveryControl();
    void tabGoesRoundInBothDirections();
    void focusIsVisible_data();
    void focusIsVisible();
    void captionButtonsObeySpaceAndReturn_data();
    void captionButtonsObeySpaceAndReturn();
    void arrowsChooseTheTab();
    void arrowsChooseTheNetworkAndSpaceTicksIt();
    void spaceTicksAllNetworks();
    void roomIsChosenAndTestedByKeyboard();
    void everythingHasAnAccessibleName_data();
    void everythingHasAnAccessibleName();

private:
    QWidget *widget(const char *name) const;
    QWidgetList focusRound() const;

    QScopedPointer<BuiltWindow> m_window;
};

void TestKeyboard::initTestCase()
{
    m_window.reset(new BuiltWindow);
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
    m_window->rest();
    m_window->child<SignalTreeView>()->onDataReturned(TestAir::networks(5));
}

void TestKeyboard::init()
{
    QApplication::setActiveWindow(m_window->get());
    QVERIFY(QTest::qWaitForWindowActive(m_window->get()));
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(0);
    widget("treeView")->setFocus(Qt::TabFocusReason);
    QTRY_COMPARE(QApplication::focusWidget(), widget("treeView"));
}

QWidget *TestKeyboard::widget(const char *name) const
{
    if (QLatin1String(name) == QLatin1String("tabBar"))
        return m_window->child<QTabWidget>("tabWidget")->tabBar();
    return m_window->child<QWidget>(name);
}

/// What has the focus after each press of Tab, until it is where it was.
QWidgetList TestKeyboard::focusRound() const
{
    QWidgetList round;
    const QWidget *first = QApplication::focusWidget();
    do {
        round.append(QApplication::focusWidget());
        QTest::keyClick(round.last(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && round.size() < 50);
    return round;
}

void TestKeyboard::tabReachesEveryControl_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArrayList>("names");
    const QByteArrayList always{
        "minimize", "maximize", "close1", "SignalTreeView_pCheckAll", "treeView", "tabBar"};
    QTest::newRow("signal graph") << 0 << always;
    QTest::newRow("channel graph") << 1 << always;
    QTest::newRow("channel interference") << 2 << always;
    QTest::newRow("home testing") << 3
                                  << always + QByteArrayList{"HomeTesting_TabWgt_Home_List",
                                                  "HomeTesting_btn_Add"};
}

void TestKeyboard::tabReachesEveryControl()
{
    QFETCH(int, tab);
    QFETCH(QByteArrayList, names);
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(tab);
    const QWidgetList round = focusRound();
    for (const QByteArray &name : names)
        QVERIFY2(round.contains(widget(name.constData())), name.constData());
    for (const QWidget *reached : round)
        QVERIFY2(reached->isVisible() && reached->isEnabled(), qPrintable(reached->objectName()));
}

void TestKeyboard::tabGoesRoundInBothDirections()
{
    const QWidgetList round = focusRound();
    QVERIFY(round.size() < 50);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), round.last());
}

void TestKeyboard::focusIsVisible_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"minimize", "maximize", "close1", "SignalTreeView_pCheckAll",
             "treeView", "tabBar", "HomeTesting_btn_Add"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestKeyboard::focusIsVisible()
{
    QFETCH(QString, name);
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(3);
    QWidget *control = widget(name.toLatin1().constData());
    QWidget *other = widget(name == QLatin1String("treeView") ? "close1" : "treeView");
    other->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(!control->hasFocus());
    const QImage without = control->grab().toImage();
    control->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(control->hasFocus());
    QVERIFY(control->grab().toImage() != without);
}

void TestKeyboard::captionButtonsObeySpaceAndReturn_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("space") << static_cast<int>(Qt::Key_Space);
    QTest::newRow("return") << static_cast<int>(Qt::Key_Return);
}

void TestKeyboard::captionButtonsObeySpaceAndReturn()
{
    QFETCH(int, key);
    const QRect before = m_window->get()->geometry();
    QSignalSpy maximised(m_window->get(), &Airlume::MaxWindow);
    QSignalSpy restored(m_window->get(), &Airlume::RestoreWindow);
    widget("maximize")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    QCOMPARE(maximised.size(), 1);
    // The button that takes its place can be reached as well.
    QVERIFY(!widget("maximize")->isVisible());
    widget("treeView")->setFocus(Qt::TabFocusReason);
    QVERIFY(focusRound().contains(widget("restore")));
    widget("restore")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    QCOMPARE(restored.size(), 1);
    QCOMPARE(m_window->get()->geometry(), before);
}

void TestKeyboard::arrowsChooseTheTab()
{
    QTabWidget *tabs = m_window->child<QTabWidget>("tabWidget");
    tabs->tabBar()->setFocus(Qt::TabFocusReason);
    for (int tab = 1; tab < 4; ++tab) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(tabs->currentIndex(), tab);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QCOMPARE(tabs->currentIndex(), 2);
}

void TestKeyboard::arrowsChooseTheNetworkAndSpaceTicksIt()
{
    SignalTreeView *list = m_window->child<SignalTreeView>();
    QTest::keyClick(list, Qt::Key_Home);
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(list->currentIndex().row(), row);
        const QModelIndex box = list->model()->index(row, SignalMode::TickColumn);
        const bool ticked = box.data().toBool();
        QTest::keyClick(list, Qt::Key_Space);
        QCOMPARE(box.data().toBool(), !ticked);
        QTest::keyClick(list, Qt::Key_Space);
        QCOMPARE(box.data().toBool(), ticked);
        QTest::keyClick(list, Qt::Key_Down);
    }
}

void TestKeyboard::spaceTicksAllNetworks()
{
    SignalTreeView *list = m_window->child<SignalTreeView>();
    QCheckBox *all = m_window->child<QCheckBox>("SignalTreeView_pCheckAll");
    all->setFocus(Qt::TabFocusReason);
    for (int press = 0; press < 2; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        for (int row = 0; row < list->model()->rowCount(); ++row)
            QCOMPARE(list->model()->index(row, 0).data().toBool(), all->isChecked());
    }
}

void TestKeyboard::roomIsChosenAndTestedByKeyboard()
{
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(3);
    auto *rooms = m_window->child<QTableWidget>("HomeTesting_TabWgt_Home_List");
    rooms->setFocus();
    QTest::keyClick(rooms, Qt::Key_Down);
    const int row = rooms->currentRow();
    QVERIFY(row >= 0);
    auto *test = rooms->cellWidget(row, 1)->findChild<QPushButton *>();
    QVERIFY(test->isVisible());
    QVERIFY(m_window->child<QPushButton>("HomeTesting_btn_Edit")->isEnabled());
    QVERIFY(focusRound().contains(test));

    // The next row is chosen with the highlight.
    rooms->setFocus();
    QTest::keyClick(rooms, Qt::Key_Down);
    QCOMPARE(rooms->currentRow(), row + 1);
    QVERIFY(!test->isVisible());
    test = rooms->cellWidget(row + 1, 1)->findChild<QPushButton *>();
    QVERIFY(test->isVisible());
    QSignalSpy pressed(test, &QPushButton::clicked);
    test->setFocus();
    QTimer::singleShot(0, [] {
        if (QWidget *notice = QApplication::activeModalWidget())
            notice->close();
    });
    QTest::keyClick(test, Qt::Key_Return);
    QCOMPARE(pressed.size(), 1);
}

void TestKeyboard::everythingHasAnAccessibleName_data()
{
    QTest::addColumn<QString>("object");
    for (const char *name :
        {"minimize", "maximize", "restore", "close1", "SignalTreeView_pCheckAll", "treeView",
            "tabBar", "qwtPlot", "Dial", "HomeTesting_TabWgt_Home_List"})
        QTest::newRow(name) << QString::fromLatin1(name);
    for (const char *className : {"Signal2GPlot", "Signal5GPlot"})
        QTest::newRow(className) << QString::fromLatin1(className);
}

void TestKeyboard::everythingHasAnAccessibleName()
{
    QFETCH(QString, object);
    QWidget *named = widget(object.toLatin1().constData());
    const QWidgetList all = m_window->get()->findChildren<QWidget *>();
    for (QWidget *one : all) {
        if (object == QLatin1String(one->metaObject()->className()))
            named = one;
    }
    QVERIFY(named);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(named);
    QVERIFY(interface);
    QVERIFY(!interface->text(QAccessible::Name).isEmpty());
}

QTEST_MAIN(TestKeyboard)
#include "tst_keyboard.moc"

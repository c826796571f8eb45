#include "app/builtwindow.h"
#include "app/ink.h"
#include "app/placement.h"
#include "netlist/signaltreeview.h"
#include "support/testair.h"
#include "support/tooltip.h"

#include <QDir>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

namespace
{
const QString Hebrew = QStringLiteral("\u05e8\u05e9\u05ea \u05d1\u05d9\u05ea\u05d9\u05ea");
} // namespace

/// Whether everything in the window has its room, whatever it has to show.
class TestAirlumeFit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void opensElevenHundredWide();
    void titleBarReachesAcrossTheTop();
    void captionButtonsStandSideBySideAndWhole_data();
    void captionButtonsStandSideBySideAndWhole();
    void logoIsShownWhole();
    void listHasTheFocusAndKeepsItFromTheButtons();
    void markupInANameIsShownLiterally();
    void hugeNameDoesNotWidenTheWindow();
    void rightToLeftNameIsShown();
    void everyLanguageFitsIntoTheWindow_data();
    void everyLanguageFitsIntoTheWindow();
    void everyTabFitsIntoTheWindow();
    void barsCutNothingOff();
    void joinedNetworksRowIsReadWhole();
    void everyDesktopFontFitsIntoTheBars_data();
    void everyDesktopFontFitsIntoTheBars();

private:
    QScopedPointer<BuiltWindow> m_window;
};

void TestAirlumeFit::initTestCase()
{
    m_window.reset(new BuiltWindow);
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
    m_window->rest();
}

void TestAirlumeFit::cleanup()
{
    m_window->get()->onNetworkReturned(QString());
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(0);
    QCoreApplication::processEvents();
}

void TestAirlumeFit::opensElevenHundredWide()
{
    // The minimum width is larger than the maximum, and wins.
    QCOMPARE(m_window->get()->size(), QSize(1100, 700));
}

void TestAirlumeFit::titleBarReachesAcrossTheTop()
{
    QCOMPARE(m_window->child<QFrame>("title")->geometry(), QRect(0, 0, 1100, 44));
    const QRect bottom = m_window->child<QFrame>("bottom")->geometry();
    QCOMPARE(bottom, QRect(0, 700 - 21, 1100, 21));
    // Six below the title bar and above the status bar, ten from the sides.
    QCOMPARE(m_window->child<QFrame>("treeframe")->geometry().topLeft(), QPoint(10, 50));
    const QRect tabs = m_window->child<QTabWidget>("tabWidget")->geometry();
    QCOMPARE(tabs.left(), 10);
    QCOMPARE(tabs.bottomRight(), QPoint(1100 - 10 - 1, 700 - 21 - 6 - 1));
}

void TestAirlumeFit::captionButtonsStandSideBySideAndWhole_data()
{
    QTest::addColumn<bool>("maximized");
    QTest::newRow("normal") << false;
    QTest::newRow("maximised") << true;
}

void TestAirlumeFit::captionButtonsStandSideBySideAndWhole()
{
    QFETCH(bool, maximized);
    if (maximized)
        m_window->get()->onBtnRestoreClicked();
    QCoreApplication::processEvents();

    const QWidget *title = m_window->child<QFrame>("title");
    const QWidget *frame = m_window->child<QFrame>("buttonframe");
    int right = 0;
    int y = -1;
    for (const char *name : {"minimize", maximized ? "restore" : "maximize", "close1"}) {
        const QWidget *button = m_window->child<QPushButton>(name);
        QVERIFY2(button->isVisible(), name);
        QCOMPARE(button->size(), QSize(20, 20));
        QCOMPARE(button->visibleRegion(), QRegion(button->rect()));
        const QPoint place = button->mapTo(title, QPoint(0, 0));
        QVERIFY2(place.x() > right, name);
        right = place.x() + button->width();
        QVERIFY2(y == -1 || place.y() == y, name);
        y = place.y();
        QVERIFY2(frame->rect().contains(button->geometry()), name);
    }
    // Clear of the window's edge.
    QCOMPARE(right, title->width() - 6);
    // In the middle of the bar, to the pixel.
    QVERIFY2(qAbs(y + 10 - title->height() / 2) <= 1, qPrintable(QString::number(y)));
    if (maximized)
        m_window->get()->onBtnRestoreClicked();
}

void TestAirlumeFit::logoIsShownWhole()
{
    const QImage picture(QStringLiteral(":/images/logo.png"));
    QVERIFY(!picture.isNull());
    QLabel unstyled;
    unstyled.resize(picture.size());
    unstyled.setPixmap(QPixmap::fromImage(picture));
    QLabel *logo = m_window->child<QLabel>("logo");
    QCOMPARE(inkOf(logo).size(), inkOf(&unstyled).size());
}

void TestAirlumeFit::listHasTheFocusAndKeepsItFromTheButtons()
{
    QCOMPARE(m_window->get()->focusWidget(), m_window->child<QWidget>("treeView"));
    QTest::mouseClick(m_window->child<QPushButton>("maximize"), Qt::LeftButton);
    QTest::mouseClick(m_window->child<QPushButton>("restore"), Qt::LeftButton);
    QCOMPARE(m_window->get()->focusWidget(), m_window->child<QWidget>("treeView"));
    // The keyboard reaches them all the same.
    for (const char *name : {"minimize", "maximize", "restore", "close1"})
        QVERIFY(m_window->child<QPushButton>(name)->focusPolicy() & Qt::TabFocus);
}

void TestAirlumeFit::markupInANameIsShownLiterally()
{
    QLabel *label = m_window->child<QLabel>("label_connectedto");
    m_window->get()->onNetworkReturned(QStringLiteral("x"));
    const int bare = inkOf(label).width();
    m_window->get()->onNetworkReturned(QStringLiteral("<b>x</b>"));
    QCOMPARE(label->text(), QStringLiteral("Connected to <b>x</b>"));
    QVERIFY(inkOf(label).width() >
            bare + label->fontMetrics().horizontalAdvance(QStringLiteral("<b>")));
    // No markers are filled in either, and the text is no pattern for file names.
    m_window->get()->onNetworkReturned(QStringLiteral("%1 %2 %s <img src=:/images/logo.png>"));
    QCOMPARE(label->text(), QStringLiteral("Connected to %1 %2 %s <img src=:/images/logo.png>"));
}

void TestAirlumeFit::hugeNameDoesNotWidenTheWindow()
{
    const QString name(10000, QLatin1Char('W'));
    const QRect gauge = m_window->child<QWidget>("Dial")->geometry();
    const QRect list = m_window->child<QWidget>("treeView")->geometry();
    m_window->get()->onNetworkReturned(name);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->child<QLabel>("label_connectedto")->text(),
        QStringLiteral("Connected to ") + name);
    QCOMPARE(m_window->get()->size(), QSize(1100, 700));
    QVERIFY(m_window->get()->minimumSizeHint().width() <= 1100);
    QCOMPARE(m_window->child<QWidget>("Dial")->geometry(), gauge);
    QCOMPARE(m_window->child<QWidget>("treeView")->geometry(), list);
}

void TestAirlumeFit::rightToLeftNameIsShown()
{
    QLabel *label = m_window->child<QLabel>("label_connectedto");
    m_window->get()->onNetworkReturned(QStringLiteral("x"));
    const QImage other = label->grab().toImage();
    m_window->get()->onNetworkReturned(Hebrew);
    QCOMPARE(label->text(), QStringLiteral("Connected to ") + Hebrew);
    QVERIFY(label->grab().toImage() != other);
    QVERIFY(
        inkOf(label).width() > label->fontMetrics().horizontalAdvance(QStringLiteral("Connected")));
    // A name cannot turn the words around it.
    m_window->get()->onNetworkReturned(QStringLiteral("\u202eabc"));
    const QImage overridden = label->grab().toImage();
    m_window->get()->onNetworkReturned(QStringLiteral("\ufffdabc"));
    QCOMPARE(overridden, label->grab().toImage());
}

void TestAirlumeFit::everyLanguageFitsIntoTheWindow_data()
{
    QTest::addColumn<int>("unused");
    const QStringList codes = QDir(QStringLiteral(":/i18n")).entryList(QDir::Dirs);
    QCOMPARE(codes.size(), 25);
    for (const QString &code : codes)
        QTest::newRow(qPrintable(code)) << 0;
}

void TestAirlumeFit::everyLanguageFitsIntoTheWindow()
{
    m_window->speak(QTest::currentDataTag());
    QCoreApplication::processEvents();
    const QSize needed = m_window->get()->minimumSizeHint();
    const QSize size = m_window->get()->size();
    m_window->speak("enu");
    QVERIFY2(needed.width() <= 1100, qPrintable(QString::number(needed.width())));
    QVERIFY2(needed.height() <= 700, qPrintable(QString::number(needed.height())));
    QCOMPARE(size, QSize(1100, 700));
}

void TestAirlumeFit::everyTabFitsIntoTheWindow()
{
    QTabWidget *tabs = m_window->child<QTabWidget>("tabWidget");
    const QRect place = tabs->geometry();
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        QVERIFY(tabs->currentWidget()->isVisible());
        QCOMPARE(
            tabs->currentWidget()->visibleRegion().boundingRect(), tabs->currentWidget()->rect());
        QCOMPARE(m_window->get()->size(), QSize(1100, 700));
        QCOMPARE(tabs->geometry(), place);
    }
}

void TestAirlumeFit::barsCutNothingOff()
{
    for (const char *bar : {"title", "bottom", "dialframe"}) {
        const QWidget *frame = m_window->child<QFrame>(bar);
        const QWidgetList parts = frame->findChildren<QWidget *>();
        QVERIFY(!parts.isEmpty());
        for (const QWidget *part : parts) {
            if (part->isVisible())
                QVERIFY2(part->parentWidget()->rect().contains(part->geometry()),
                    qPrintable(part->objectName()));
        }
    }
    for (const char *name : {"statuslabel", "versionlabel"}) {
        const QLabel *label = m_window->child<QLabel>(name);
        QVERIFY2(label->fontMetrics().horizontalAdvance(label->text()) <= label->width(), name);
        QVERIFY2(label->fontMetrics().height() <= label->height(), name);
    }
}

void TestAirlumeFit::joinedNetworksRowIsReadWhole()
{
    SignalTreeView *list = m_window->child<SignalTreeView>();
    QVector<WifiProperty> scan = TestAir::networks(15);
    // As wide as they come, in bold and beside the scroll bar.
    scan[0].bssid = QStringLiteral("dd:dd:dd:dd:dd:dd");
    scan[0].security = QStringLiteral("WPA/WPA2-PSK");
    scan[0].rssi = -100;
    scan[0].channel = 6233;
    list->onDataReturned(scan);
    list->onNetworkReturned(scan[0].ssid);
    QTRY_VERIFY_WITH_TIMEOUT(list->verticalScrollBar()->isVisible(), 60000);
    QVERIFY(!list->horizontalScrollBar()->isVisible());
    for (int column = SignalMode::SsidColumn; column < SignalMode::ColumnCount; ++column) {
        const QModelIndex cell = list->model()->index(0, column);
        QVERIFY(cell.data(Qt::FontRole).value<QFont>().bold());
        QCOMPARE(ToolTipAt(list->viewport(), list->visualRect(cell).center()), QString());
    }
}

void TestAirlumeFit::everyDesktopFontFitsIntoTheBars_data()
{
    QTest::addColumn<int>("pointSize");
    for (const int pointSize : {14, 9, 12, 20, 10})
        QTest::addRow("%d pt", pointSize) << pointSize;
}

void TestAirlumeFit::everyDesktopFontFitsIntoTheBars()
{
    QFETCH(int, pointSize);
    const QFont desktop = QApplication::font();
    QFont font = desktop;
    font.setPointSize(pointSize);
    QApplication::setFont(font);
    QCoreApplication::processEvents();
    const QTabBar *tabs = m_window->child<QTabWidget>("tabWidget")->tabBar();
    QFont bold = tabs->font();
    bold.setBold(true);
    QVERIFY(QFontMetrics(bold).height() <= 23);
    for (const char *name : {"statuslabel", "versionlabel"})
        QVERIFY2(m_window->child<QLabel>(name)->fontMetrics().height() <= 21, name);
    // No smaller than need be.
    if (QFontMetrics(font).height() <= 21)
        QCOMPARE(m_window->child<QLabel>("statuslabel")->font().pointSize(), pointSize);
    const QWidget *title = m_window->child<QFrame>("title");
    for (const char *name : {"minimize", "maximize", "close1"}) {
        const QPoint place = m_window->child<QPushButton>(name)->mapTo(title, QPoint(0, 0));
        QVERIFY2(qAbs(place.y() + 10 - title->height() / 2) <= 1, name);
    }
    QVERIFY(m_window->get()->minimumSizeHint().height() <= SmallestWindow.height());
    QApplication::setFont(desktop);
}

QTEST_MAIN(TestAirlumeFit)
#include "tst_airlumefit.moc"

#include "app/lookprobe.h"
#include "app/samplewindow.h"
#include "support/messagelog.h"

#include <QLabel>
#include <QProgressBar>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>
#include <qwt_plot.h>

#include <memory>

/// The style sheet, looked at on drawn widgets that bear the main window's names: the window
/// itself, frames, bars, tabs and labels.
class TestLook : public QObject
{
    Q_OBJECT
public:
    static void initMain() { look::prepareApplication(); }

private slots:
    void initTestCase() { look::darkenDesktop(); }
    void init();
    void cleanup();
    void theStyleSheetParsesSilently();
    void theWindowAndTheGaugeStandOnLightGrey();
    void framesHaveAVerticalGradientAndAThinBorder_data();
    void framesHaveAVerticalGradientAndAThinBorder();
    void thePlotFrameIsRound();
    void tabsHaveTheirSizes();
    void theSelectedTabOpensIntoThePane();
    void aLongTitleWidensItsTab();
    void tabTextsAreDarkGrey();
    void theSelectedTabIsBold();
    void aTabIsLitWhenSelectedOrHovered();
    void progressBarsArePurple();
    void theBarsRepeatTheirPictures_data();
    void theBarsRepeatTheirPictures();
    void theLogoIsShownWhole();
    void labelsHaveTheirColoursAndFonts();

private:
    std::unique_ptr<SampleWindow> m_window;
};

static const QColor FrameGrey(0xc4, 0xc4, 0xc3);
static const QColor LampPurple(0xac, 0x91, 0xe4);

static const QColor Grey(0x80, 0x80, 0x80); // "grey" as style sheets mean it

void TestLook::init()
{
    m_window = std::make_unique<SampleWindow>(look::styleSheet());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestLook::cleanup()
{
    m_window.reset();
}

void TestLook::theStyleSheetParsesSilently()
{
    MessageLog log;
    SampleWindow window(look::styleSheet());
    look::grab(&window);
    QCOMPARE(log.messages(QtWarningMsg) + log.messages(QtDebugMsg), QStringList());

    // Qt does report unknown properties and syntax errors when they are drawn.
    window.setStyleSheet(QStringLiteral("QWidget { colour: red; }"));
    look::grab(&window);
    window.setStyleSheet(QStringLiteral("QWidget  color: red; }"));
    const QString messages =
        (log.messages(QtWarningMsg) + log.messages(QtDebugMsg)).join(QLatin1Char('\n'));
    QVERIFY(messages.contains(QLatin1String("Unknown property colour")));
    QVERIFY(messages.contains(QLatin1String("Could not parse")));
}

void TestLook::theWindowAndTheGaugeStandOnLightGrey()
{
    const QColor grey(0xf0, 0xf0, 0xf0);
    const QImage window = look::grab(m_window.get());
    QCOMPARE(look::colorAt(window, QPoint(4, 60)), grey);
    QCOMPARE(look::colorAt(look::grab(m_window->dial), QPoint(5, 5)), grey);
}

void TestLook::framesHaveAVerticalGradientAndAThinBorder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("inside");
    QTest::newRow("plot") << "plot" << QPoint(2, 1);
    QTest::newRow("plot frame") << "plotframe" << QPoint(30, 1);
    QTest::newRow("pane") << "pane" << QPoint(5, 1);
}

void TestLook::framesHaveAVerticalGradientAndAThinBorder()
{
    QFETCH(QString, name);
    QFETCH(QPoint, inside);
    QWidget *widget = m_window->plot;
    if (name == QLatin1String("plotframe"))
        widget = m_window->plotFrame;
    int top = 0;
    if (name == QLatin1String("pane")) {
        widget = m_window->tabs;
        top = m_window->tabs->tabBar()->height() - 1;
    }
    const QImage picture = look::grab(widget);
    inside.ry() += top;
    const QPoint bottom(inside.x(), widget->height() - 2);
    QCOMPARE(look::colorAt(picture, QPoint(widget->width() * 4 / 5 - 5, top)), FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(0, top + 60)), FrameGrey);
    QVERIFY(look::colorAt(picture, QPoint(1, top + 60)) != FrameGrey);
    QVERIFY(look::same(look::colorAt(picture, inside), Qt::white, 3));
    QVERIFY(look::colorAt(picture, bottom).lightness() < 250);
    QVERIFY(look::colorAt(picture, bottom).lightness() > 235);
}

void TestLook::thePlotFrameIsRound()
{
    const QImage picture = look::grab(m_window->plotFrame);
    QVERIFY(look::colorAt(picture, QPoint(0, 0)) != FrameGrey);
    QVERIFY(look::colorAt(picture, QPoint(4, 0)) != FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(11, 0)), FrameGrey);
}

void TestLook::tabsHaveTheirSizes()
{
    QTabBar *bar = m_window->tabs->tabBar();
    for (int tab = 0; tab < bar->count(); ++tab)
        bar->setTabText(tab, QStringLiteral("x"));
    // Least width, padding and the two side borders; height, padding, top margin, top border, and
    // the row in which the pane's border runs.
    QTRY_COMPARE(bar->tabRect(0).size(), QSize(160 + 2 * 5 + 2, 25 + 2 * 2 + 0 + 1 + 1));
    QCOMPARE(bar->tabRect(1).size(), QSize(140 + 2 * 15 + 2, 23 + 2 * 2 + 2 + 1 + 1));

    const QImage picture = look::grab(bar);
    const QRect other = bar->tabRect(1);
    QCOMPARE(look::colorAt(picture, QPoint(80, 0)), FrameGrey);
    QVERIFY(look::colorAt(picture, QPoint(other.center().x(), 1)) != FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(other.center().x(), 2)), FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(other.left(), 20)), FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(other.right(), 20)), FrameGrey);
    QVERIFY(look::colorAt(picture, other.topLeft() + QPoint(0, 2)) != FrameGrey);
    QVERIFY(look::colorAt(picture, other.topRight() + QPoint(0, 2)) != FrameGrey);
}

void TestLook::theSelectedTabOpensIntoThePane()
{
    const QTabBar *bar = m_window->tabs->tabBar();
    const QImage picture = look::grab(m_window->tabs);
    const int border = bar->height() - 1;
    QCOMPARE(look::colorAt(picture, QPoint(bar->tabRect(1).center().x(), border)), FrameGrey);
    for (int y : {border - 1, border, border + 1}) {
        const QColor color = look::colorAt(picture, QPoint(bar->tabRect(0).center().x(), y));
        QVERIFY(look::same(color, Qt::white));
    }
}

void TestLook::aLongTitleWidensItsTab()
{
    QTabBar *bar = m_window->tabs->tabBar();
    bar->setTabText(1, QString(40, QLatin1Char('m')));
    QVERIFY(bar->tabRect(1).width() > bar->fontMetrics().horizontalAdvance(bar->tabText(1)));
}

void TestLook::tabTextsAreDarkGrey()
{
    QTabBar *bar = m_window->tabs->tabBar();
    for (int tab : {0, 1}) {
        bar->setTabText(tab, QString());
        const QImage blank = look::grab(bar);
        bar->setTabText(tab, look::blocks());
        QCOMPARE(look::textColor(blank, look::grab(bar)), QColor(0x32, 0x32, 0x32));
    }
}

void TestLook::theSelectedTabIsBold()
{
    QTabBar *bar = m_window->tabs->tabBar();
    const auto ink = [bar](int tab) {
        const QString text = bar->tabText(tab);
        const QImage written = look::grab(bar);
        bar->setTabText(tab, QString());
        const QImage blank = look::grab(bar);
        bar->setTabText(tab, text);
        double sum = 0;
        for (int y = 0; y < written.height(); ++y) {
            for (int x = 0; x < written.width(); ++x)
                sum += blank.pixelColor(x, y).lightness() - written.pixelColor(x, y).lightness();
        }
        return sum;
    };
    for (int tab = 0; tab < bar->count(); ++tab)
        bar->setTabText(tab, QStringLiteral("Signal"));
    QVERIFY(ink(0) > 1.15 * ink(1));
}

void TestLook::aTabIsLitWhenSelectedOrHovered()
{
    QTabBar *bar = m_window->tabs->tabBar();
    const auto has = [bar](int tab, const QColor &color, int aside) {
        const QRect rect = bar->tabRect(tab);
        const QImage picture = look::grab(bar);
        for (int y = rect.top(); y < rect.top() + 8; ++y) {
            if (look::same(look::colorAt(picture, QPoint(rect.center().x() - aside, y)), color))
                return true;
        }
        return false;
    };
    const auto lamp = [&has](int tab) { return has(tab, LampPurple, 20); };
    QVERIFY(lamp(0));
    QVERIFY(!lamp(1));
    QVERIFY(has(1, QColor(0xd2, 0xcd, 0xe2), 0));
    look::hoverView(bar, bar->tabRect(1).center());
    QVERIFY(lamp(1));
    QVERIFY(!lamp(2));
}

void TestLook::progressBarsArePurple()
{
    const QImage picture = look::grab(m_window->progress);
    const int middle = m_window->progress->height() / 2;
    QCOMPARE(look::colorAt(picture, QPoint(0, middle)), Grey);
    QCOMPARE(look::colorAt(picture, QPoint(1, middle)), Grey);
    QCOMPARE(look::colorAt(picture, QPoint(10, middle)), QColor(128, 100, 162));
    QCOMPARE(look::colorAt(picture, QPoint(110, middle)), QColor(195, 182, 211));
    QVERIFY(look::colorAt(picture, QPoint(0, 0)) != Grey);
}

void TestLook::theBarsRepeatTheirPictures_data()
{
    QTest::addColumn<QString>("bar");
    QTest::addColumn<QString>("name");
    QTest::newRow("title") << "title"
                           << "topbar_bg";
    QTest::newRow("status") << "bottom"
                            << "bottom_bg";
}

void TestLook::theBarsRepeatTheirPictures()
{
    QFETCH(QString, bar);
    QFETCH(QString, name);
    QWidget *widget = m_window->findChild<QWidget *>(bar);
    QVERIFY(widget);
    for (QLabel *label : widget->findChildren<QLabel *>())
        label->hide();
    const QImage picture = look::grab(widget);
    const QImage tile = look::image(m_window.get(), name);
    QCOMPARE(picture.height(), tile.height());
    for (int x : {2, picture.width() / 3, picture.width() / 2}) {
        for (int y = 0; y < tile.height(); ++y)
            QVERIFY(look::same(picture.pixelColor(x, y), tile.pixelColor(2, y)));
    }
}

void TestLook::theLogoIsShownWhole()
{
    QCOMPARE(m_window->logo->size(), QSize(160, 44));
    QVERIFY(look::shows(
        look::grab(m_window->logo), look::image(m_window.get(), QStringLiteral("logo"))));
}

void TestLook::labelsHaveTheirColoursAndFonts()
{
    const QLabel *connected = m_window->connectedTo;
    QCOMPARE(connected->palette().color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(connected->font().pointSize(), 10);
    QVERIFY(connected->font().bold());
    for (const QLabel *label : {m_window->status, m_window->version})
        QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::white));
    m_window->status->setText(QString());
    const QImage blank = look::grab(m_window->status);
    m_window->status->setText(look::blocks());
    const QImage block = look::grab(m_window->status);
    int first = 0;
    while (first < 30 && look::colorAt(blank, {first, 10}) == look::colorAt(block, {first, 10}))
        ++first;
    QVERIFY2(first >= 10 && first <= 18, qPrintable(QString::number(first)));
    QCOMPARE(m_window->version->alignment(), Qt::AlignVCenter | Qt::AlignRight);
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"

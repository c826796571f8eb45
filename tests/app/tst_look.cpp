#include "app/lookprobe.h"
#include "app/samplewindow.h"
#include "support/messagelog.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QHoverEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTreeView>
#include <QtTest>
#include <qwt_plot.h>

#include <memory>

/// The style sheet, looked at on drawn widgets that bear the main window's names.
class TestLook : public QObject
{
    Q_OBJECT
public:
    static void initMain() { look::prepareApplication(); }

private slots:
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
    void theSelectedTabIsBold();
    void aTabIsLitWhenSelectedOrHovered();
    void progressBarsArePurple();
    void theBarsRepeatTheirPictures_data();
    void theBarsRepeatTheirPictures();
    void theLogoIsShownWhole();
    void labelsHaveTheirColoursAndFonts();
    void theListHasAFrameAndAWhiteHeader();
    void rowsAre24PixelsHigh();
    void aHoveredRowIsGrey();
    void aSelectedRowIsBlue_data();
    void aSelectedRowIsBlue();
    void theScrollBarHasItsSizeAndColours();
    void theScrollBarHandleStaysAtLeast20PixelsLong();
    void theScrollBarShowsItsArrows();
    void checkBoxesShowTheirPictures_data();
    void checkBoxesShowTheirPictures();
    void pushButtonsArePurple();
    void pushButtonStatesDiffer();
    void aFocusedPushButtonKeepsItsSize();
    void captionButtonsShowTheirPictures_data();
    void captionButtonsShowTheirPictures();

private:
    /// The picture of the bundle that fits the density of the screen.
    QImage image(const QString &name) const
    {
        const QString suffix =
            m_window->devicePixelRatio() == 2 ? QStringLiteral("@2x") : QString();
        return QImage(QStringLiteral(":/images/%1%2.png").arg(name, suffix))
            .convertToFormat(QImage::Format_ARGB32);
    }

    /// True when all (nearly) opaque pixels of `picture` stand in `widget`, from its physical pixel
    /// `at` on.
    static bool shows(const QImage &widget, const QImage &picture, const QPoint &at = QPoint())
    {
        int opaque = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor color = picture.pixelColor(x, y);
                if (color.alpha() < 220)
                    continue;
                ++opaque;
                const QColor drawn = widget.pixelColor(at + QPoint(x, y));
                if (!look::same(drawn, color, 2 + 255 - color.alpha()))
                    return false;
            }
        }
        return opaque > 0;
    }

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
    const auto lamp = [bar](int tab) {
        const QRect rect = bar->tabRect(tab);
        const QImage picture = look::grab(bar);
        for (int y = rect.top(); y < rect.top() + 8; ++y) {
            if (look::same(look::colorAt(picture, QPoint(rect.center().x() - 20, y)), LampPurple))
                return true;
        }
        return false;
    };
    QVERIFY(lamp(0));
    QVERIFY(!lamp(1));
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
    const QImage tile = image(name);
    QCOMPARE(picture.height(), tile.height());
    for (int x : {2, picture.width() / 3, picture.width() / 2}) {
        for (int y = 0; y < tile.height(); ++y)
            QVERIFY(look::same(picture.pixelColor(x, y), tile.pixelColor(2, y)));
    }
}

void TestLook::theLogoIsShownWhole()
{
    QCOMPARE(m_window->logo->size(), QSize(160, 44));
    QVERIFY(shows(look::grab(m_window->logo), image(QStringLiteral("logo"))));
}

void TestLook::labelsHaveTheirColoursAndFonts()
{
    const QLabel *connected = m_window->connectedTo;
    QCOMPARE(connected->palette().color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(connected->font().pointSize(), 10);
    QVERIFY(connected->font().bold());
    for (const QLabel *label : {m_window->status, m_window->version})
        QCOMPARE(label->palette().color(QPalette::WindowText), QColor(Qt::white));
}

void TestLook::theListHasAFrameAndAWhiteHeader()
{
    const QImage picture = look::grab(m_window->list);
    const int right = m_window->list->width() - 1;
    const int middle = m_window->list->height() / 2;
    QCOMPARE(look::colorAt(picture, QPoint(100, 0)), QColor(FrameGrey));
    QCOMPARE(look::colorAt(picture, QPoint(100, 1)), QColor(FrameGrey));
    QCOMPARE(look::colorAt(picture, QPoint(0, middle)), FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(right, middle)), FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(1, middle)), QColor(Qt::white));
    QVERIFY(look::colorAt(picture, QPoint(0, 0)) != FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(30, 10)), QColor(Qt::white));
}

void TestLook::rowsAre24PixelsHigh()
{
    const QTreeView *list = m_window->list;
    QCOMPARE(list->visualRect(list->model()->index(0, 1)).height(), 24);
    QCOMPARE(list->visualRect(list->model()->index(15, 1)).height(), 24);
}

void TestLook::aHoveredRowIsGrey()
{
    QTreeView *list = m_window->list;
    const QRect cell = list->visualRect(list->model()->index(3, 3));
    look::hoverView(list->viewport(), cell.center());
    const QImage picture = look::grab(list->viewport());
    QCOMPARE(look::colorAt(picture, QPoint(cell.right() - 5, cell.center().y())),
        QColor(0xda, 0xda, 0xda));
    QCOMPARE(
        look::colorAt(picture, QPoint(cell.right() - 5, cell.top())), QColor(0xbf, 0xcd, 0xe4));
    QCOMPARE(
        look::colorAt(picture, QPoint(cell.right() - 5, cell.bottom())), QColor(0xbf, 0xcd, 0xe4));
}

void TestLook::aSelectedRowIsBlue_data()
{
    QTest::addColumn<bool>("active");
    QTest::addColumn<QColor>("top");
    QTest::addColumn<QColor>("bottom");
    QTest::newRow("active") << true << QColor(0x6e, 0xa1, 0xf1) << QColor(0x56, 0x7d, 0xbc);
    QTest::newRow("inactive") << false << QColor(0x6b, 0x9b, 0xe8) << QColor(0x57, 0x7f, 0xbf);
}

void TestLook::aSelectedRowIsBlue()
{
    QFETCH(bool, active);
    QFETCH(QColor, top);
    QFETCH(QColor, bottom);
    QTreeView *list = m_window->list;
    list->setCurrentIndex(list->model()->index(3, 1));
    if (active)
        list->setFocus();
    const QRect cell = list->visualRect(list->model()->index(3, 3));
    const QImage picture = look::grab(list->viewport());
    const int x = cell.right() - 5;
    const QColor border(0xac, 0x91, 0xe4);
    QCOMPARE(look::colorAt(picture, QPoint(x, cell.top())), border);
    QCOMPARE(look::colorAt(picture, QPoint(x, cell.bottom())), border);
    // The border covers the gradient's first and last 24th.
    QVERIFY(look::same(look::colorAt(picture, QPoint(x, cell.top() + 1)), top, 4));
    QVERIFY(look::same(look::colorAt(picture, QPoint(x, cell.bottom() - 1)), bottom, 4));
}

void TestLook::theScrollBarHasItsSizeAndColours()
{
    const QScrollBar *bar = m_window->list->verticalScrollBar();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->width(), 16);
    const QImage picture = look::grab(m_window->list->verticalScrollBar());
    QCOMPARE(look::colorAt(picture, QPoint(8, 30)), QColor(217, 217, 217));
    QCOMPARE(look::colorAt(picture, QPoint(8, bar->height() - 20)), QColor(242, 242, 242));
    QCOMPARE(look::colorAt(picture, QPoint(0, 2)), QColor(242, 242, 242));
}

void TestLook::theScrollBarHandleStaysAtLeast20PixelsLong()
{
    QScrollBar *bar = m_window->list->verticalScrollBar();
    bar->setRange(0, 1000000);
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = Qt::Vertical;
    option.maximum = bar->maximum();
    option.pageStep = bar->pageStep();
    option.subControls = QStyle::SC_All;
    const QRect handle = bar->style()->subControlRect(
        QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, bar);
    QVERIFY(handle.height() >= 20);
}

void TestLook::theScrollBarShowsItsArrows()
{
    // At either end one arrow is disabled and drawn paler.
    QScrollBar *bar = m_window->list->verticalScrollBar();
    bar->setValue(1);
    const QImage picture = look::grab(bar);
    const QImage down = image(QStringLiteral("but_scroll_down"));
    QVERIFY(shows(picture, image(QStringLiteral("but_scroll_up"))));
    QVERIFY(shows(picture, down, QPoint(0, picture.height() - down.height())));
}

void TestLook::checkBoxesShowTheirPictures_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<QString>("name");
    QTest::newRow("normal") << false << false << "checkbox_normal";
    QTest::newRow("hovered") << false << true << "checkbox_hover";
    QTest::newRow("checked") << true << false << "checkbox_select";
    QTest::newRow("checked, hovered") << true << true << "checkbox_select";
}

void TestLook::checkBoxesShowTheirPictures()
{
    QFETCH(bool, checked);
    QFETCH(bool, hovered);
    QFETCH(QString, name);
    QCheckBox *box = m_window->checkAll;
    box->setChecked(checked);
    box->setAttribute(Qt::WA_UnderMouse, hovered);
    QStyleOptionButton option;
    option.initFrom(box);
    const QRect indicator =
        box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
    QCOMPARE(indicator.size(), QSize(15, 15));
    QVERIFY(shows(look::grab(box), image(name), indicator.topLeft() * box->devicePixelRatio()));
}

void TestLook::pushButtonsArePurple()
{
    QPushButton *button = m_window->enabled;
    QCOMPARE(button->sizeHint().height(), 21 + 2);
    button->setText(QStringLiteral("x"));
    QCOMPARE(button->sizeHint().width(), 65 + 2);
    QCOMPARE(button->font().pixelSize(), 12);
    QCOMPARE(button->palette().color(QPalette::ButtonText), QColor(Qt::white));

    const QImage picture = look::grab(button);
    QCOMPARE(look::colorAt(picture, QPoint(10, 0)), QColor(116, 113, 190));
    QVERIFY(look::colorAt(picture, QPoint(0, 0)) != QColor(116, 113, 190));
    const QColor top = look::colorAt(picture, QPoint(10, 2));
    const QColor bottom = look::colorAt(picture, QPoint(10, button->height() - 3));
    QVERIFY(top.lightness() > bottom.lightness());
    for (const QColor &color : {top, bottom})
        QVERIFY(color.hue() > 240 && color.hue() < 270);
}

void TestLook::pushButtonStatesDiffer()
{
    QPushButton *button = m_window->enabled;
    QVector<QImage> pictures{look::grab(button)};
    button->setFocus();
    pictures << look::grab(button);
    button->clearFocus();
    look::hoverButton(button);
    pictures << look::grab(button);
    button->setDown(true);
    pictures << look::grab(button);
    button->setDown(false);
    button->setAttribute(Qt::WA_UnderMouse, false);
    button->setEnabled(false);
    pictures << look::grab(button);
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = 0; j < i; ++j)
            QVERIFY(pictures[i] != pictures[j]);
    }
}

void TestLook::aFocusedPushButtonKeepsItsSize()
{
    QPushButton *button = m_window->enabled;
    const QSize size = button->sizeHint();
    button->setFocus();
    button->setText(button->text() + QLatin1Char('.'));
    button->setText(button->text().chopped(1));
    QCOMPARE(button->sizeHint(), size);
}

void TestLook::captionButtonsShowTheirPictures_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("picture");
    QTest::newRow("minimize") << "minimize"
                              << "min";
    QTest::newRow("maximize") << "maximize"
                              << "maximize";
    QTest::newRow("restore") << "restore"
                             << "restore";
    QTest::newRow("close") << "close1"
                           << "close";
}

void TestLook::captionButtonsShowTheirPictures()
{
    QFETCH(QString, name);
    QFETCH(QString, picture);
    QPushButton *button = m_window->findChild<QPushButton *>(name);
    QVERIFY(button);
    QCOMPARE(button->size(), QSize(20, 20));
    m_window->list->setFocus();
    QVERIFY(shows(look::grab(button), image(picture + QStringLiteral("_normal"))));
    look::hoverButton(button);
    QVERIFY(shows(look::grab(button), image(picture + QStringLiteral("_hover"))));
    button->setDown(true);
    QVERIFY(shows(look::grab(button), image(picture + QStringLiteral("_press"))));
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"

#include "app/lookprobe.h"
#include "app/samplewindow.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QTreeView>
#include <QtTest>

#include <memory>

/// The style sheet, looked at on the controls: the list, scroll bars, check boxes, buttons.
class TestLookControls : public QObject
{
    Q_OBJECT
public:
    static void initMain() { look::prepareApplication(); }

private slots:
    void init();
    void cleanup();
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
    std::unique_ptr<SampleWindow> m_window;
};

static const QColor FrameGrey(0xc4, 0xc4, 0xc3);

void TestLookControls::init()
{
    m_window = std::make_unique<SampleWindow>(look::styleSheet());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestLookControls::cleanup()
{
    m_window.reset();
}

void TestLookControls::theListHasAFrameAndAWhiteHeader()
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

void TestLookControls::rowsAre24PixelsHigh()
{
    const QTreeView *list = m_window->list;
    QCOMPARE(list->visualRect(list->model()->index(0, 1)).height(), 24);
    QCOMPARE(list->visualRect(list->model()->index(15, 1)).height(), 24);
}

void TestLookControls::aHoveredRowIsGrey()
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

void TestLookControls::aSelectedRowIsBlue_data()
{
    QTest::addColumn<bool>("active");
    QTest::addColumn<QColor>("top");
    QTest::addColumn<QColor>("bottom");
    QTest::newRow("active") << true << QColor(0x6e, 0xa1, 0xf1) << QColor(0x56, 0x7d, 0xbc);
    QTest::newRow("inactive") << false << QColor(0x6b, 0x9b, 0xe8) << QColor(0x57, 0x7f, 0xbf);
}

void TestLookControls::aSelectedRowIsBlue()
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

void TestLookControls::theScrollBarHasItsSizeAndColours()
{
    const QScrollBar *bar = m_window->list->verticalScrollBar();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->width(), 16);
    const QImage picture = look::grab(m_window->list->verticalScrollBar());
    QCOMPARE(look::colorAt(picture, QPoint(8, 30)), QColor(217, 217, 217));
    QCOMPARE(look::colorAt(picture, QPoint(8, bar->height() - 20)), QColor(242, 242, 242));
    QCOMPARE(look::colorAt(picture, QPoint(0, 2)), QColor(242, 242, 242));
}

void TestLookControls::theScrollBarHandleStaysAtLeast20PixelsLong()
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

void TestLookControls::theScrollBarShowsItsArrows()
{
    // At either end one arrow is disabled and drawn paler.
    QScrollBar *bar = m_window->list->verticalScrollBar();
    bar->setValue(1);
    const QImage picture = look::grab(bar);
    const QImage down = look::image(m_window.get(), QStringLiteral("but_scroll_down"));
    QVERIFY(look::shows(picture, look::image(m_window.get(), QStringLiteral("but_scroll_up"))));
    QVERIFY(look::shows(picture, down, QPoint(0, picture.height() - down.height())));
}

void TestLookControls::checkBoxesShowTheirPictures_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<QString>("name");
    QTest::newRow("normal") << false << false << "checkbox_normal";
    QTest::newRow("hovered") << false << true << "checkbox_hover";
    QTest::newRow("checked") << true << false << "checkbox_select";
    QTest::newRow("checked, hovered") << true << true << "checkbox_select";
}

void TestLookControls::checkBoxesShowTheirPictures()
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
    QVERIFY(look::shows(look::grab(box), look::image(m_window.get(), name),
        indicator.topLeft() * box->devicePixelRatio()));
}

void TestLookControls::pushButtonsArePurple()
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

void TestLookControls::pushButtonStatesDiffer()
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

void TestLookControls::aFocusedPushButtonKeepsItsSize()
{
    QPushButton *button = m_window->enabled;
    const QSize size = button->sizeHint();
    button->setFocus();
    button->setText(button->text() + QLatin1Char('.'));
    button->setText(button->text().chopped(1));
    QCOMPARE(button->sizeHint(), size);
}

void TestLookControls::captionButtonsShowTheirPictures_data()
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

void TestLookControls::captionButtonsShowTheirPictures()
{
    QFETCH(QString, name);
    QFETCH(QString, picture);
    QPushButton *button = m_window->findChild<QPushButton *>(name);
    QVERIFY(button);
    QCOMPARE(button->size(), QSize(20, 20));
    m_window->list->setFocus();
    QVERIFY(look::shows(
        look::grab(button), look::image(m_window.get(), picture + QStringLiteral("_normal"))));
    look::hoverButton(button);
    QVERIFY(look::shows(
        look::grab(button), look::image(m_window.get(), picture + QStringLiteral("_hover"))));
    button->setDown(true);
    QVERIFY(look::shows(
        look::grab(button), look::image(m_window.get(), picture + QStringLiteral("_press"))));
}

QTEST_MAIN(TestLookControls)
#include "tst_lookcontrols.moc"

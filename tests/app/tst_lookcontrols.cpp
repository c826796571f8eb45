#include "app/lookprobe.h"
#include "app/samplewindow.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
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
    void initTestCase() { look::darkenDesktop(); }
    void init();
    void cleanup();
    void theListHasAFrameAndAWhiteHeader();
    void headersAreBoldAndSmall();
    void rowTextsAreDark();
    void rowsAre24PixelsHigh();
    void aHoveredRowIsGrey();
    void aRowHasOneFrame();
    void aSelectedRowIsBlue_data();
    void aSelectedRowIsBlue();
    void theScrollBarHasItsSizeAndColours();
    void theScrollBarHandleStaysAtLeast20PixelsLong();
    void theScrollBarShowsItsArrows();
    void checkBoxesShowTheirPictures_data();
    void checkBoxesShowTheirPictures();
    void pushButtonsArePurple();
    void pushButtonStatesDiffer();
    void aDisabledPushButtonIsPaleWithTheSameBorder();
    void focusShowsInPurpleOrWhite_data();
    void focusShowsInPurpleOrWhite();
    void textFieldsSelectInPurple();
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
    QVERIFY(look::colorAt(picture, QPoint(right, 0)) != FrameGrey);
    QCOMPARE(look::colorAt(picture, QPoint(30, 10)), QColor(Qt::white));
}

void TestLookControls::headersAreBoldAndSmall()
{
    QTreeView *list = m_window->list;
    list->header()->setStyleSheet(QString());
    auto *model = qobject_cast<QStandardItemModel *>(list->model());
    const auto picture = [&](const QString &text) {
        model->setHorizontalHeaderItem(1, new QStandardItem(text));
        return look::grab(list->header());
    };
    const QImage blank = picture(QString());
    const QImage block = picture(look::blocks());
    QCOMPARE(look::textColor(blank, block), QColor(0x24, 0x21, 0x2f));

    QFont font = list->font();
    font.setPointSize(8);
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(look::blocks());
    const int y = list->header()->height() / 2;
    int inked = 0;
    for (int x = 0; x < list->header()->width(); ++x) {
        if (look::colorAt(block, QPoint(x, y)) != look::colorAt(blank, QPoint(x, y)))
            ++inked;
    }
    QVERIFY2(qAbs(inked - width) <= 2, qPrintable(QStringLiteral("%1 %2").arg(inked).arg(width)));
}

void TestLookControls::rowTextsAreDark()
{
    QTreeView *list = m_window->list;
    const QModelIndex index = list->model()->index(1, 1);
    list->model()->setData(index, QString());
    const QImage blank = look::grab(list);
    list->model()->setData(index, look::blocks());
    QCOMPARE(look::textColor(blank, look::grab(list)), QColor(0x24, 0x21, 0x2f));
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

void TestLookControls::aRowHasOneFrame()
{
    QTreeView *list = m_window->list;
    const QModelIndex index = list->model()->index(3, 2);
    const QRect cell = list->visualRect(index);
    look::hoverView(list->viewport(), cell.center());
    const QImage hovered = look::grab(list->viewport());
    const QColor grey(0xda, 0xda, 0xda);
    QCOMPARE(look::colorAt(hovered, QPoint(cell.left(), cell.center().y())), grey);
    QCOMPARE(look::colorAt(hovered, QPoint(cell.right(), cell.center().y())), grey);
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
    QCOMPARE(look::colorAt(picture, QPoint(1, 30)), QColor(242, 242, 242));
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

void TestLookControls::aDisabledPushButtonIsPaleWithTheSameBorder()
{
    QPushButton *button = m_window->disabled;
    button->setText(QString());
    const QImage blank = look::grab(button);
    const QColor ground = look::colorAt(blank, QPoint(20, button->height() / 2));
    const QColor enabled =
        look::colorAt(look::grab(m_window->enabled), QPoint(5, button->height() / 2));
    QVERIFY(ground.saturation() < enabled.saturation() / 2);
    QCOMPARE(look::colorAt(blank, QPoint(20, 0)), QColor(116, 113, 190));
    button->setText(look::blocks());
    QCOMPARE(look::textColor(blank, look::grab(button)), QColor(Qt::white));
}

void TestLookControls::focusShowsInPurpleOrWhite_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QColor>("color");
    for (const char *kind : {"caption button", "tab bar", "check box"})
        QTest::newRow(kind) << QString::fromLatin1(kind) << QColor(0x54, 0x43, 0x9f);
    QTest::newRow("list") << QStringLiteral("list") << QColor(0x8d, 0x7f, 0xc4);
    QTest::newRow("push button") << QStringLiteral("push button") << QColor(Qt::white);
}

void TestLookControls::focusShowsInPurpleOrWhite()
{
    QFETCH(QString, kind);
    QFETCH(QColor, color);
    const QHash<QString, QWidget *> widgets{
        {QStringLiteral("caption button"), m_window->maximize},
        {QStringLiteral("tab bar"), m_window->tabs->tabBar()},
        {QStringLiteral("check box"), m_window->checkAll},
        {QStringLiteral("list"), m_window->list},
        {QStringLiteral("push button"), m_window->enabled},
    };
    QWidget *widget = widgets.value(kind);
    if (kind == QLatin1String("push button"))
        m_window->enabled->setText(QString());
    const auto pixels = [&] {
        const QImage picture = look::grab(widget);
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                count += look::same(picture.pixelColor(x, y), color) ? 1 : 0;
        }
        return count;
    };
    m_window->rooms->setFocus();
    const int before = pixels();
    widget->setFocus();
    QVERIFY(widget->hasFocus());
    QVERIFY(pixels() >= before + 15);
}

void TestLookControls::textFieldsSelectInPurple()
{
    const QPalette palette = m_window->edit->palette();
    QCOMPARE(palette.color(QPalette::Highlight), QColor(64, 48, 145));
    QCOMPARE(palette.color(QPalette::HighlightedText), QColor(Qt::white));
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
    // Nothing is drawn around the picture, whose corners are round.
    QCOMPARE(look::grab(button).pixelColor(0, 0).alpha(), 0);
    QVERIFY(look::shows(
        look::grab(button), look::image(m_window.get(), picture + QStringLiteral("_press"))));
}

QTEST_MAIN(TestLookControls)
#include "tst_lookcontrols.moc"

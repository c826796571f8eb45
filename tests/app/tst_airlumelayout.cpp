#include "app/builtwindow.h"
#include "app/widestyle.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedLayout>
#include <QTabWidget>
#include <QtTest>
#include <qwt_plot.h>

Q_DECLARE_METATYPE(QMargins)

namespace
{
QString policyName(QSizePolicy::Policy policy)
{
    return QLatin1String(QMetaEnum::fromType<QSizePolicy::Policy>().valueToKey(policy));
}

/// What stands in one place of a layout, with its alignment if it has one.
QString described(QLayoutItem *item)
{
    QString text;
    if (QWidget *widget = item->widget()) {
        text = widget->objectName().isEmpty() ? QLatin1String(widget->metaObject()->className())
                                              : widget->objectName();
    } else if (QLayout *layout = item->layout()) {
        text = layout->objectName().isEmpty() ? QLatin1String(layout->metaObject()->className())
                                              : layout->objectName();
    } else if (QSpacerItem *spacer = item->spacerItem()) {
        text = QStringLiteral("%1x%2 %3 %4")
                   .arg(spacer->sizeHint().width())
                   .arg(spacer->sizeHint().height())
                   .arg(policyName(spacer->sizePolicy().horizontalPolicy()),
                       policyName(spacer->sizePolicy().verticalPolicy()));
    }
    if (item->alignment()) {
        text += QLatin1String(" ") + QLatin1String(QMetaEnum::fromType<Qt::Alignment>().valueToKeys(
                                         static_cast<int>(item->alignment())));
    }
    return text;
}

QStringList described(QLayout *layout)
{
    QStringList items;
    for (int i = 0; i < layout->count(); ++i)
        items.append(described(layout->itemAt(i)));
    return items;
}
} // namespace

/// The window's widgets and their places, in the window as it is built.
class TestAirlumeLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void windowIsFramelessAndNothingElse();
    void windowHasItsSizes();
    void everyWidgetHasItsNameClassAndParent_data();
    void everyWidgetHasItsNameClassAndParent();
    void rowsFollowOneAnother();
    void everyLayoutHasItsContents_data();
    void everyLayoutHasItsContents();
    void everyLayoutHasItsMarginsAndSpacing_data();
    void everyLayoutHasItsMarginsAndSpacing();
    void everySizeIsSet_data();
    void everySizeIsSet();
    void everyFrameHasItsLook_data();
    void everyFrameHasItsLook();
    void captionButtonsAreFlatAndCanBeNamed_data();
    void captionButtonsAreFlatAndCanBeNamed();
    void oneOfTheTwoSizeButtonsIsShown();
    void tabsAreInOrder();
    void tabsHoldTheirViews();
    void graphsHaveTheirStyleSheet();
    void connectedNetworkLabelIsCentredPlainText();

private:
    QScopedPointer<BuiltWindow> m_window;
};

void TestAirlumeLayout::initTestCase()
{
    QTest::ignoreMessage(QtDebugMsg, "open qss success");
    m_window.reset(new BuiltWindow(new WideStyle));
    // Before the event loop brings what the threads have to say.
    QCOMPARE(m_window->child<QLabel>("statuslabel")->text(), QStringLiteral("Scanning..."));
    QCOMPARE(m_window->child<QLabel>("versionlabel")->text(), QStringLiteral("Version 1.0"));
    QCOMPARE(m_window->child<QLabel>("label_connectedto")->text(), QString());
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
    m_window->rest();
}

void TestAirlumeLayout::windowIsFramelessAndNothingElse()
{
    const Qt::WindowFlags hints = m_window->get()->windowFlags() & ~Qt::WindowType_Mask;
    QCOMPARE(hints, Qt::WindowFlags(Qt::FramelessWindowHint));
    QVERIFY(m_window->get()->isWindow());
    QVERIFY(!m_window->get()->parent());
}

void TestAirlumeLayout::windowHasItsSizes()
{
    QCOMPARE(m_window->get()->objectName(), QStringLiteral("Airlume"));
    QCOMPARE(m_window->get()->minimumWidth(), 1100);
    QCOMPARE(m_window->get()->maximumSize(), QSize(800, 700));
    QCOMPARE(
        m_window->get()->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    QVERIFY(!m_window->get()->styleSheet().isEmpty());
}

void TestAirlumeLayout::everyWidgetHasItsNameClassAndParent_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("parent");

    const struct {
        const char *name;
        const char *className;
        const char *parent;
    } rows[] = {
        {"title", "QFrame", "Airlume"},
        {"logo", "QLabel", "title"},
        {"buttonframe", "QFrame", "title"},
        {"minimize", "QPushButton", "buttonframe"},
        {"maximize", "QPushButton", "buttonframe"},
        {"restore", "QPushButton", "buttonframe"},
        {"close1", "QPushButton", "buttonframe"},
        {"treeframe", "QFrame", "Airlume"},
        {"treeView", "SignalTreeView", "treeframe"},
        {"dialframe", "QFrame", "treeframe"},
        {"Dial", "SignalStrengthDashboard", "dialframe"},
        {"label_connectedto", "QLabel", "dialframe"},
        {"tabWidget", "QTabWidget", "Airlume"},
        {"tab1", "QWidget", "qt_tabwidget_stackedwidget"},
        {"tab2", "QWidget", "qt_tabwidget_stackedwidget"},
        {"qwtPlot", "SignalTimePlot", "tab1"},
        {"bottom", "QFrame", "Airlume"},
        {"statuslabel", "QLabel", "bottom"},
        {"versionlabel", "QLabel", "bottom"},
    };
    for (const auto &row : rows)
        QTest::newRow(row.name) << QByteArray(row.className) << QString::fromLatin1(row.parent);
}

void TestAirlumeLayout::everyWidgetHasItsNameClassAndParent()
{
    QFETCH(QByteArray, className);
    QFETCH(QString, parent);
    const QWidget *widget = m_window->child<QWidget>(QTest::currentDataTag());
    QVERIFY(widget);
    QVERIFY2(widget->inherits(className.constData()), widget->metaObject()->className());
    QCOMPARE(widget->parent()->objectName(), parent);
}

void TestAirlumeLayout::rowsFollowOneAnother()
{
    QGridLayout *grid = m_window->child<QGridLayout>("gridLayout");
    QVERIFY(grid);
    QCOMPARE(m_window->get()->layout(), grid);
    QCOMPARE(grid->rowCount(), 3);
    QCOMPARE(grid->columnCount(), 1);
    QCOMPARE(described(grid->itemAtPosition(0, 0)), QStringLiteral("title"));
    QCOMPARE(described(grid->itemAtPosition(1, 0)), QStringLiteral("verticalLayout_3"));
    QCOMPARE(described(grid->itemAtPosition(2, 0)), QStringLiteral("bottom"));
}

void TestAirlumeLayout::everyLayoutHasItsContents_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("owner");
    QTest::addColumn<QStringList>("contents");

    // Every parent of a layout is the widget it lays out, or the layout it stands in.
    QTest::newRow("horizontalLayout1")
        << QByteArray("QHBoxLayout") << QStringLiteral("title")
        << QStringList({QStringLiteral("logo"), QStringLiteral("840x17 Expanding Minimum"),
               QStringLiteral("verticalLayout")});
    QTest::newRow("verticalLayout")
        << QByteArray("QVBoxLayout") << QStringLiteral("horizontalLayout1")
        << QStringList({QStringLiteral("buttonframe AlignVCenter")});
    QTest::newRow("horizontalLayout2")
        << QByteArray("QHBoxLayout") << QStringLiteral("buttonframe")
        << QStringList({QStringLiteral("minimize"), QStringLiteral("QStackedLayout"),
               QStringLiteral("close1")});
    QTest::newRow("verticalLayout_3")
        << QByteArray("QVBoxLayout") << QStringLiteral("gridLayout")
        << QStringList({QStringLiteral("treeframe"), QStringLiteral("horizontalLayout5")});
    QTest::newRow("horizontalLayout3")
        << QByteArray("QHBoxLayout") << QStringLiteral("treeframe")
        << QStringList({QStringLiteral("treeView"), QStringLiteral("dialframe")});
    QTest::newRow("verticalLayout_2")
        << QByteArray("QVBoxLayout") << QStringLiteral("dialframe")
        << QStringList({QStringLiteral("Dial AlignTop"), QStringLiteral("horizontalLayout_4")});
    QTest::newRow("horizontalLayout_4")
        << QByteArray("QHBoxLayout") << QStringLiteral("verticalLayout_2")
        << QStringList({QStringLiteral("label_connectedto AlignTop")});
    QTest::newRow("horizontalLayout5")
        << QByteArray("QHBoxLayout") << QStringLiteral("verticalLayout_3")
        << QStringList({QStringLiteral("tabWidget")});
    QTest::newRow("horizontalLayout6")
        << QByteArray("QHBoxLayout") << QStringLiteral("bottom")
        << QStringList({QStringLiteral("statuslabel"), QStringLiteral("versionlabel"),
               QStringLiteral("20x12 Fixed Minimum")});
}

void TestAirlumeLayout::everyLayoutHasItsContents()
{
    QFETCH(QByteArray, className);
    QFETCH(QString, owner);
    QFETCH(QStringList, contents);
    QLayout *layout = m_window->child<QLayout>(QTest::currentDataTag());
    QVERIFY(layout);
    QCOMPARE(layout->metaObject()->className(), className.constData());
    QCOMPARE(layout->parent()->objectName(), owner);
    QCOMPARE(described(layout), contents);
}

void TestAirlumeLayout::everyLayoutHasItsMarginsAndSpacing_data()
{
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<int>("spacing"); // -1: whatever it is
    QTest::newRow("gridLayout") << QMargins(0, 0, 0, 0) << 6;
    QTest::newRow("horizontalLayout1") << QMargins(0, 0, 0, 0) << 6;
    QTest::newRow("horizontalLayout2") << QMargins(0, 0, 0, 0) << WideStyle::Spacing;
    QTest::newRow("verticalLayout_3") << QMargins(10, 0, 10, 0) << -1;
    QTest::newRow("horizontalLayout3") << QMargins(0, 6, 0, 0) << 0;
    QTest::newRow("horizontalLayout6") << QMargins(0, 0, 0, 0) << 6;
}

void TestAirlumeLayout::everyLayoutHasItsMarginsAndSpacing()
{
    QFETCH(QMargins, margins);
    QFETCH(int, spacing);
    const QLayout *layout = m_window->child<QLayout>(QTest::currentDataTag());
    QCOMPARE(layout->contentsMargins(), margins);
    if (spacing >= 0)
        QCOMPARE(layout->spacing(), spacing);
    QCOMPARE(m_window->child<QLayout>("verticalLayout_2")->spacing(), 15);
}

void TestAirlumeLayout::everySizeIsSet_data()
{
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<QSize>("maximum");

    // -1: whatever it is.
    const int any = -1;
    const QSize open(any, any);
    QTest::newRow("title") << QSize(any, 44) << QSize(QWIDGETSIZE_MAX, 44);
    QTest::newRow("logo") << QSize(any, 44) << open;
    QTest::newRow("buttonframe") << open << QSize(46, 50);
    for (const char *button : {"minimize", "maximize", "restore", "close1"})
        QTest::newRow(button) << QSize(20, 20) << QSize(20, 20);
    QTest::newRow("treeView") << QSize(100, 100) << open;
    QTest::newRow("Dial") << QSize(320, 260) << QSize(320, 260);
    QTest::newRow("label_connectedto") << QSize(any, 20) << open;
    QTest::newRow("tabWidget") << QSize(any, 200) << open;
    QTest::newRow("bottom") << QSize(any, 21) << QSize(QWIDGETSIZE_MAX, 21);
}

void TestAirlumeLayout::everySizeIsSet()
{
    QFETCH(QSize, minimum);
    QFETCH(QSize, maximum);
    const QWidget *widget = m_window->child<QWidget>(QTest::currentDataTag());
    if (minimum.width() >= 0)
        QCOMPARE(widget->minimumWidth(), minimum.width());
    if (minimum.height() >= 0)
        QCOMPARE(widget->minimumHeight(), minimum.height());
    if (maximum.width() >= 0)
        QCOMPARE(widget->maximumWidth(), maximum.width());
    if (maximum.height() >= 0)
        QCOMPARE(widget->maximumHeight(), maximum.height());
    // And the widget has room for what it asks for.
    QVERIFY(widget->width() >= widget->minimumWidth());
    QVERIFY(widget->height() >= widget->minimumHeight());
}

void TestAirlumeLayout::everyFrameHasItsLook_data()
{
    QTest::addColumn<int>("shape");
    QTest::newRow("title") << -1;
    QTest::newRow("dialframe") << static_cast<int>(QFrame::NoFrame);
    QTest::newRow("bottom") << static_cast<int>(QFrame::StyledPanel);
}

void TestAirlumeLayout::everyFrameHasItsLook()
{
    QFETCH(int, shape);
    const QFrame *frame = m_window->child<QFrame>(QTest::currentDataTag());
    QCOMPARE(frame->frameShadow(), QFrame::Raised);
    if (shape >= 0)
        QCOMPARE(static_cast<int>(frame->frameShape()), shape);
}

void TestAirlumeLayout::captionButtonsAreFlatAndCanBeNamed_data()
{
    QTest::addColumn<QString>("accessibleName");
    QTest::newRow("minimize") << QStringLiteral("Minimize");
    QTest::newRow("maximize") << QStringLiteral("Maximize");
    QTest::newRow("restore") << QStringLiteral("Restore");
    QTest::newRow("close1") << QStringLiteral("Close");
}

void TestAirlumeLayout::captionButtonsAreFlatAndCanBeNamed()
{
    QFETCH(QString, accessibleName);
    const QPushButton *button = m_window->child<QPushButton>(QTest::currentDataTag());
    QVERIFY(button->isFlat());
    // Pictures only: the name is all that a screen reader has.
    QCOMPARE(button->text(), QString());
    QCOMPARE(button->accessibleName(), accessibleName);
}

void TestAirlumeLayout::oneOfTheTwoSizeButtonsIsShown()
{
    const auto *stack = m_window->child<QStackedLayout>("horizontalLayout2");
    QVERIFY(!stack);
    QLayout *row = m_window->child<QLayout>("horizontalLayout2");
    stack = qobject_cast<QStackedLayout *>(row->itemAt(1)->layout());
    QVERIFY(stack);
    QCOMPARE(stack->count(), 2);
    QCOMPARE(stack->widget(0), m_window->child<QPushButton>("maximize"));
    QCOMPARE(stack->widget(1), m_window->child<QPushButton>("restore"));
    QCOMPARE(stack->currentWidget(), m_window->child<QPushButton>("maximize"));
    QVERIFY(!m_window->child<QPushButton>("restore")->isVisible());
}

void TestAirlumeLayout::tabsAreInOrder()
{
    const QTabWidget *tabs = m_window->child<QTabWidget>("tabWidget");
    QCOMPARE(tabs->count(), 4);
    QCOMPARE(tabs->currentIndex(), 0);
    const QStringList titles = {QStringLiteral("Signal Graph"), QStringLiteral("Channel Graph"),
        QStringLiteral("Channel Interference"), QStringLiteral("Home Testing")};
    for (int tab = 0; tab < 4; ++tab)
        QCOMPARE(tabs->tabText(tab), titles.at(tab));
    QCOMPARE(tabs->widget(0)->objectName(), QStringLiteral("tab1"));
    QCOMPARE(tabs->widget(1)->objectName(), QStringLiteral("tab2"));
    QVERIFY(tabs->widget(2)->inherits("ChannelInterfaceWgt"));
    QVERIFY(tabs->widget(3)->inherits("SignalHomeTestingWgt"));
}

void TestAirlumeLayout::tabsHoldTheirViews()
{
    QLayout *first = m_window->child<QWidget>("tab1")->layout();
    QVERIFY(qobject_cast<QHBoxLayout *>(first));
    QCOMPARE(described(first), QStringList({QStringLiteral("qwtPlot")}));
    QCOMPARE(m_window->child<QWidget>("qwtPlot")->sizePolicy(),
        QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));

    QLayout *second = m_window->child<QWidget>("tab2")->layout();
    QVERIFY(qobject_cast<QHBoxLayout *>(second));
    QCOMPARE(described(second),
        QStringList({QStringLiteral("Signal2GPlot"), QStringLiteral("Signal5GPlot")}));
}

void TestAirlumeLayout::graphsHaveTheirStyleSheet()
{
    const QList<QwtPlot *> graphs = m_window->get()->findChildren<QwtPlot *>();
    QCOMPARE(graphs.size(), 3);
    for (const QwtPlot *graph : graphs)
        QCOMPARE(graph->styleSheet(), QStringLiteral("color: rgb(0, 0, 0);"));
}

void TestAirlumeLayout::connectedNetworkLabelIsCentredPlainText()
{
    const QLabel *label = m_window->child<QLabel>("label_connectedto");
    QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QVERIFY(label->isVisible());
}

QTEST_MAIN(TestAirlumeLayout)
#include "tst_airlumelayout.moc"

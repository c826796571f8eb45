#include "app/lookprobe.h"
#include "app/samplewindow.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTableWidget>
#include <QTreeView>
#include <QtTest>

#include <memory>

/// Every text whose colour or ground is the style sheet's own choice can be read: 4.5:1 or better,
/// in every state, measured on the drawn widget.
class TestContrast : public QObject
{
    Q_OBJECT
public:
    static void initMain() { look::prepareApplication(); }

private slots:
    void initTestCase() { look::darkenDesktop(); }
    void init();
    void cleanup();
    void theMeasureKnowsTextFromGround();
    void labels_data();
    void labels();
    void tabs_data();
    void tabs();
    void pushButtons_data();
    void pushButtons();
    void listHeader();
    void listRows_data();
    void listRows();
    void selectedRoom();

private:
    static void verifyReadable(const QImage &blank, const QImage &block)
    {
        const double contrast = look::textContrast(blank, block);
        QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
    }

    std::unique_ptr<SampleWindow> m_window;
};

void TestContrast::init()
{
    m_window = std::make_unique<SampleWindow>(look::styleSheet());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestContrast::cleanup()
{
    m_window.reset();
}

void TestContrast::theMeasureKnowsTextFromGround()
{
    QLabel label;
    label.setStyleSheet(QStringLiteral("background: #ffffff; color: #767676"));
    label.resize(100, 30);
    const QImage blank = look::grab(&label);
    QCOMPARE(look::textContrast(blank, blank), 0.0);
    label.setText(look::blocks());
    QVERIFY(qAbs(look::textContrast(blank, look::grab(&label)) - 4.54) < 0.01);
}

void TestContrast::labels_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("status") << QStringLiteral("statuslabel");
    QTest::newRow("version") << QStringLiteral("versionlabel");
    QTest::newRow("connected network") << QStringLiteral("label_connectedto");
}

void TestContrast::labels()
{
    QFETCH(QString, name);
    QLabel *label = m_window->findChild<QLabel *>(name);
    QVERIFY(label);
    label->setText(QString());
    const QImage blank = look::grab(m_window.get());
    label->setText(look::blocks());
    verifyReadable(blank, look::grab(m_window.get()));
}

void TestContrast::tabs_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<bool>("hovered");
    QTest::newRow("selected") << 0 << false;
    QTest::newRow("selected, hovered") << 0 << true;
    QTest::newRow("other") << 1 << false;
    QTest::newRow("other, hovered") << 1 << true;
}

void TestContrast::tabs()
{
    QFETCH(int, tab);
    QFETCH(bool, hovered);
    QTabBar *bar = m_window->tabs->tabBar();
    const auto picture = [&](const QString &text) {
        bar->setTabText(tab, text);
        if (hovered)
            look::hoverView(bar, bar->tabRect(tab).center());
        return look::grab(bar);
    };
    const QImage blank = picture(QString());
    verifyReadable(blank, picture(look::blocks()));
}

void TestContrast::pushButtons_data()
{
    QTest::addColumn<QString>("state");
    for (const char *state : {"normal", "hovered", "pressed", "focused", "disabled"})
        QTest::newRow(state) << QString::fromLatin1(state);
}

void TestContrast::pushButtons()
{
    QFETCH(QString, state);
    QPushButton *button =
        state == QLatin1String("disabled") ? m_window->disabled : m_window->enabled;
    if (state == QLatin1String("hovered"))
        look::hoverButton(button);
    if (state == QLatin1String("pressed"))
        button->setDown(true);
    if (state == QLatin1String("focused"))
        button->setFocus();
    button->setText(QString());
    const QImage blank = look::grab(button);
    button->setText(look::blocks());
    verifyReadable(blank, look::grab(button));
}

void TestContrast::listHeader()
{
    auto *model = qobject_cast<QStandardItemModel *>(m_window->list->model());
    model->setHorizontalHeaderItem(1, new QStandardItem);
    const QImage blank = look::grab(m_window->list);
    model->setHorizontalHeaderItem(1, new QStandardItem(look::blocks()));
    verifyReadable(blank, look::grab(m_window->list));
}

void TestContrast::listRows_data()
{
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("active");
    QTest::newRow("normal") << false << false << true;
    QTest::newRow("hovered") << true << false << true;
    QTest::newRow("selected") << false << true << true;
    QTest::newRow("selected, hovered") << true << true << true;
    QTest::newRow("normal, inactive") << false << false << false;
    QTest::newRow("selected, inactive") << false << true << false;
    QTest::newRow("selected, hovered, inactive") << true << true << false;
}

void TestContrast::listRows()
{
    QFETCH(bool, hovered);
    QFETCH(bool, selected);
    QFETCH(bool, active);
    QTreeView *list = m_window->list;
    const QModelIndex index = list->model()->index(1, 1);
    if (active)
        list->setFocus();
    if (selected)
        list->setCurrentIndex(index);
    if (hovered)
        look::hoverView(list->viewport(), list->visualRect(index).center());
    list->model()->setData(index, QString());
    const QImage blank = look::grab(list);
    list->model()->setData(index, look::blocks());
    verifyReadable(blank, look::grab(list));
}

void TestContrast::selectedRoom()
{
    QTableWidget *rooms = m_window->rooms;
    rooms->setCurrentCell(0, 0);
    rooms->item(0, 0)->setText(QString());
    const QImage blank = look::grab(rooms);
    rooms->item(0, 0)->setText(look::blocks());
    verifyReadable(blank, look::grab(rooms));
}

QTEST_MAIN(TestContrast)
#include "tst_contrast.moc"

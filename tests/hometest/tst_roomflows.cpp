#include "common/QtCommonTools.h"
#include "hometest/hometestingpopupdlg.h"
#include "hometest/linetablewidget.h"
#include "hometest/modalhand.h"
#include "hometest/roomhouse.h"
#include "hometest/signalhometestingwgt.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

using RoomHouse::Rooms;

// The rooms by mouse and keyboard, through the modal dialogs.
class TestRoomFlows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void addsARoomAtTheBottom();
    void aNewRoomIsInNameOrderAfterARestart();
    void refusesAnEmptyNameThenTakesAGoodOne();
    void refusesADuplicateAndCancels();
    void trimsTheName();
    void theAddDialogStartsEmptyEveryTime();
    void renamingKeepsTheResults();
    void renamingToTheSameNameIsRefused();
    void deletingAsksAndReturnCancels();
    void deletingRemovesTheRoom();
    void deletingTheFirstAndTheLastRoom();
    void deletedAndAddedAgainIsUntested();
    void holds201Rooms();
    void testsTwice();
    void testsAtNoSignal();
    void testsWithoutANetwork();
    void losingTheNetworkStopsTests();
    void hostileNamesLiveTheirWholeLife_data();
    void hostileNamesLiveTheirWholeLife();

private:
    LineTableWidget *table() const { return m_panel->findChild<LineTableWidget *>(); }
    QString cell(int row) const { return table()->item(row, 0)->text(); }
    QPushButton *button(const char *name) const
    {
        return m_panel->findChild<QPushButton *>(QString::fromLatin1(name));
    }
    QPushButton *testButton(int row) const
    {
        return table()->cellWidget(row, 1)->findChild<QPushButton *>();
    }
    void open();
    void reopen(const Rooms &rooms);
    void clickRow(int row);
    void click(QPushButton *target) { QTest::mouseClick(target, Qt::LeftButton); }
    void add(const QString &name);
    void rename(int row, const QString &name);
    void remove(int row);
    Rooms onDisk() const { return RoomHouse::roomsIn(RoomHouse::file()); }

    SignalHomeTestingWgt *m_panel = nullptr;
};

namespace
{
QLineEdit *edit(QWidget *dialog)
{
    return dialog->findChild<QLineEdit *>();
}

QPushButton *ok(QWidget *dialog)
{
    return dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Ok"));
}

QPushButton *cancel(QWidget *dialog)
{
    return dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Cancel"));
}

// The red text, without its markup; empty when no error is shown.
QString error(QWidget *dialog)
{
    QString text = dialog->findChildren<QLabel *>().at(1)->text();
    return text.remove(QStringLiteral("<html><font color=red>"))
        .remove(QStringLiteral("</font></html>"));
}

// Types a name, by keys where keys can, and confirms it with Return.
void type(QWidget *dialog, const QString &name)
{
    if (name.size() < 100)
        QTest::keyClicks(edit(dialog), name);
    else
        edit(dialog)->insert(name);
}

// Confirms a notice and hands its text out.
ModalHand::Action takeNotice(QString *text)
{
    return [text](QWidget *box) {
        QMessageBox *notice = qobject_cast<QMessageBox *>(box);
        QVERIFY(notice);
        QCOMPARE(notice->windowTitle(), QStringLiteral("notice"));
        *text = notice->text();
        ModalHand::press(notice, Qt::Key_Return);
    };
}
} // namespace

void TestRoomFlows::init()
{
    RoomHouse::restartWithoutFile();
    open();
}

void TestRoomFlows::open()
{
    m_panel = SignalHomeTestingWgt::Instance(nullptr);
    m_panel->resize(1080, 600);
    m_panel->show();
    QApplication::setActiveWindow(m_panel);
}

void TestRoomFlows::reopen(const Rooms &rooms)
{
    delete m_panel;
    RoomHouse::restartWith(rooms);
    open();
}

void TestRoomFlows::cleanup()
{
    delete m_panel;
    QtCommonTools::Release();
}

void TestRoomFlows::clickRow(int row)
{
    table()->scrollToItem(table()->item(row, 0));
    const QRect rect = table()->visualItemRect(table()->item(row, 0));
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, rect.center());
}

void TestRoomFlows::add(const QString &name)
{
    ModalHand hand;
    hand.then([&](QWidget *dialog) {
        type(dialog, name);
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
}

void TestRoomFlows::rename(int row, const QString &name)
{
    clickRow(row);
    ModalHand hand;
    hand.then([&](QWidget *dialog) {
        edit(dialog)->selectAll();
        type(dialog, name);
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Edit"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
}

void TestRoomFlows::remove(int row)
{
    clickRow(row);
    ModalHand hand;
    hand.then([](QWidget *dialog) { QTest::mouseClick(ok(dialog), Qt::LeftButton); });
    click(button("HomeTesting_btn_Del"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
}

void TestRoomFlows::addsARoomAtTheBottom()
{
    add(QStringLiteral("Attic"));
    QCOMPARE(table()->rowCount(), 6);
    QCOMPARE(cell(5), QStringLiteral("Attic\nN/A\nN/A"));
    QCOMPARE(table()->rowHeight(5), 65);
    QVERIFY(table()->viewport()->rect().intersects(table()->visualItemRect(table()->item(5, 0))));
    QVERIFY(testButton(5)->isHidden());
    QCOMPARE(onDisk().value(QStringLiteral("Attic")), HomeTest_Value());
    QCOMPARE(onDisk().size(), 6);
    clickRow(5);
    QVERIFY(testButton(5)->isVisible());
}

void TestRoomFlows::aNewRoomIsInNameOrderAfterARestart()
{
    add(QStringLiteral("Attic"));
    delete m_panel;
    RoomHouse::restart();
    open();
    QVERIFY(cell(0).startsWith(QStringLiteral("Attic\n")));
    QCOMPARE(table()->rowCount(), 6);
}

void TestRoomFlows::refusesAnEmptyNameThenTakesAGoodOne()
{
    ModalHand hand;
    hand.then([](QWidget *dialog) { QTest::mouseClick(ok(dialog), Qt::LeftButton); });
    hand.then([](QWidget *dialog) {
        QCOMPARE(error(dialog), QStringLiteral("The room name cannot be empty"));
        type(dialog, QStringLiteral("   "));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    hand.then([](QWidget *dialog) {
        QCOMPARE(error(dialog), QStringLiteral("The room name cannot be empty"));
        type(dialog, QStringLiteral("Attic"));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(table()->rowCount(), 6);
}

void TestRoomFlows::refusesADuplicateAndCancels()
{
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        type(dialog, QStringLiteral(" Kitchen "));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    hand.then([](QWidget *dialog) {
        QCOMPARE(error(dialog), QStringLiteral("The room name already exists"));
        QTest::mouseClick(cancel(dialog), Qt::LeftButton);
    });
    click(button("HomeTesting_btn_Add"));
    hand.then([](QWidget *dialog) {
        QCOMPARE(error(dialog), QString());
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(table()->rowCount(), 5);
    QCOMPARE(onDisk().size(), 5);
}

void TestRoomFlows::trimsTheName()
{
    add(QStringLiteral("  Guest  room "));
    QCOMPARE(cell(5), QStringLiteral("Guest  room\nN/A\nN/A"));
    QVERIFY(onDisk().contains(QStringLiteral("Guest  room")));
}

void TestRoomFlows::theAddDialogStartsEmptyEveryTime()
{
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        type(dialog, QStringLiteral("Half a na"));
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    click(button("HomeTesting_btn_Add"));
    hand.then([](QWidget *dialog) {
        QCOMPARE(edit(dialog)->text(), QString());
        QVERIFY(edit(dialog)->hasFocus());
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(table()->rowCount(), 5);
}

void TestRoomFlows::renamingKeepsTheResults()
{
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(-38);
    m_panel->SetSignalSpeedValue(144);
    clickRow(3);
    click(testButton(3));
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        QCOMPARE(edit(dialog)->text(), QStringLiteral("Kitchen"));
        edit(dialog)->setText(QStringLiteral("Galley"));
        QTest::mouseClick(ok(dialog), Qt::LeftButton);
    });
    click(button("HomeTesting_btn_Edit"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(cell(3), QStringLiteral("Galley\nNow:62% signal and 144 Mbps\nN/A"));
    QVERIFY(testButton(3)->isVisible());
    QCOMPARE(onDisk().value(QStringLiteral("Galley")), (HomeTest_Value{62, 144, -1, -1}));
    QVERIFY(!onDisk().contains(QStringLiteral("Kitchen")));
    // The next test belongs to the new name.
    click(testButton(3));
    QCOMPARE(onDisk().value(QStringLiteral("Galley")), (HomeTest_Value{62, 144, 62, 144}));
    QCOMPARE(onDisk().size(), 5);
}

void TestRoomFlows::renamingToTheSameNameIsRefused()
{
    clickRow(3);
    ModalHand hand;
    hand.then([](QWidget *dialog) { ModalHand::press(dialog, Qt::Key_Return); });
    hand.then([](QWidget *dialog) {
        QCOMPARE(error(dialog), QStringLiteral("The room name already exists"));
        edit(dialog)->setText(QStringLiteral("kitchen"));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Edit"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(cell(3), QStringLiteral("kitchen\nN/A\nN/A"));
    QVERIFY(!onDisk().contains(QStringLiteral("Kitchen")));
}

void TestRoomFlows::deletingAsksAndReturnCancels()
{
    clickRow(1);
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        QVERIFY(cancel(dialog)->hasFocus());
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Del"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(table()->rowCount(), 5);
    QCOMPARE(onDisk().size(), 5);
    QVERIFY(testButton(1)->isVisible());
}

void TestRoomFlows::deletingRemovesTheRoom()
{
    remove(1);
    QCOMPARE(table()->rowCount(), 4);
    QVERIFY(!onDisk().contains(QStringLiteral("Bedroom2")));
    QCOMPARE(onDisk(), *QtCommonTools::GetHomeTestingIni());
    for (int row = 0; row < 4; ++row)
        QVERIFY(testButton(row)->isHidden());
    QVERIFY(!button("HomeTesting_btn_Edit")->isEnabled());
    QVERIFY(!button("HomeTesting_btn_Del")->isEnabled());
    QVERIFY(table()->selectionModel()->selectedRows().isEmpty());
    clickRow(1);
    QVERIFY(testButton(1)->isVisible());
    QVERIFY(button("HomeTesting_btn_Del")->isEnabled());
}

void TestRoomFlows::deletingTheFirstAndTheLastRoom()
{
    remove(0);
    remove(3);
    remove(0);
    remove(0);
    QCOMPARE(table()->rowCount(), 1);
    QCOMPARE(cell(0), QStringLiteral("Kitchen\nN/A\nN/A"));
    remove(0);
    QCOMPARE(table()->rowCount(), 0);
    QCOMPARE(onDisk(), Rooms());
    add(QStringLiteral("Attic"));
    QCOMPARE(onDisk().size(), 1);
    QCOMPARE(cell(0), QStringLiteral("Attic\nN/A\nN/A"));
}

void TestRoomFlows::deletedAndAddedAgainIsUntested()
{
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(-38);
    clickRow(3);
    click(testButton(3));
    remove(3);
    add(QStringLiteral("Kitchen"));
    QCOMPARE(cell(4), QStringLiteral("Kitchen\nN/A\nN/A"));
    QCOMPARE(onDisk().value(QStringLiteral("Kitchen")), HomeTest_Value());
}

void TestRoomFlows::holds201Rooms()
{
    reopen(RoomHouse::manyRooms(200));
    add(QStringLiteral("Room 200"));
    QCOMPARE(table()->rowCount(), 201);
    QCOMPARE(cell(200), QStringLiteral("Room 200\nN/A\nN/A"));

    QString notice;
    ModalHand hand;
    hand.then(takeNotice(&notice));
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(notice, QStringLiteral("The room is too much!"));
    QCOMPARE(table()->rowCount(), 201);
    QCOMPARE(onDisk().size(), 201);

    remove(100);
    add(QStringLiteral("Room 201"));
    QCOMPARE(table()->rowCount(), 201);
    QCOMPARE(onDisk(), *QtCommonTools::GetHomeTestingIni());
}

void TestRoomFlows::testsTwice()
{
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(-38);
    m_panel->SetSignalSpeedValue(144);
    clickRow(3);
    click(testButton(3));
    QCOMPARE(cell(3), QStringLiteral("Kitchen\nNow:62% signal and 144 Mbps\nN/A"));
    m_panel->SetSignalValue(-71);
    m_panel->SetSignalSpeedValue(6);
    click(testButton(3));
    QCOMPARE(cell(3),
        QStringLiteral("Kitchen\nNow:29% signal and 6 Mbps\nLast:62% signal and 144 Mbps"));
    QCOMPARE(onDisk().value(QStringLiteral("Kitchen")), (HomeTest_Value{29, 6, 62, 144}));
    // What was "Last" is dropped.
    click(testButton(3));
    QCOMPARE(onDisk().value(QStringLiteral("Kitchen")), (HomeTest_Value{29, 6, 29, 6}));
}

void TestRoomFlows::testsAtNoSignal()
{
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(0);
    clickRow(0);
    click(testButton(0));
    QCOMPARE(cell(0), QStringLiteral("Bedroom1\nNow:0% signal and 0 Mbps\nN/A"));
    QCOMPARE(onDisk().value(QStringLiteral("Bedroom1")), (HomeTest_Value{0, 0, -1, -1}));
}

void TestRoomFlows::testsWithoutANetwork()
{
    // Not joined from the start.
    m_panel->SetSignalValue(-38);
    clickRow(3);
    const Rooms before = onDisk();
    QString notice;
    ModalHand hand;
    hand.then(takeNotice(&notice));
    click(testButton(3));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(notice, QStringLiteral("No Network Connected!"));
    QCOMPARE(cell(3), QStringLiteral("Kitchen\nN/A\nN/A"));
    QCOMPARE(onDisk(), before);
}

void TestRoomFlows::losingTheNetworkStopsTests()
{
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(-38);
    clickRow(3);
    click(testButton(3));
    m_panel->onNetworkReturned(QString());
    QString notice;
    ModalHand hand;
    hand.then(takeNotice(&notice));
    click(testButton(3));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(notice, QStringLiteral("No Network Connected!"));
    QCOMPARE(onDisk().value(QStringLiteral("Kitchen")), (HomeTest_Value{62, 0, -1, -1}));
}

void TestRoomFlows::hostileNamesLiveTheirWholeLife_data()
{
    QTest::addColumn<QString>("name");
    int number = 0;
    for (const QString &name : RoomHouse::hostileNames())
        QTest::addRow("name %d", number++) << name;
}

void TestRoomFlows::hostileNamesLiveTheirWholeLife()
{
    QFETCH(QString, name);
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(-38);
    m_panel->SetSignalSpeedValue(144);
    // Long or unusual texts come from the clipboard rather than from keys.
    ModalHand hand;
    hand.then([&](QWidget *dialog) {
        edit(dialog)->insert(name);
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(cell(5), name + QStringLiteral("\nN/A\nN/A"));
    clickRow(5);
    click(testButton(5));
    QCOMPARE(cell(5), name + QStringLiteral("\nNow:62% signal and 144 Mbps\nN/A"));
    QVERIFY(!m_panel->grab().isNull());

    delete m_panel;
    RoomHouse::restart();
    open();
    QCOMPARE(QtCommonTools::GetHomeTestingIni()->value(name), (HomeTest_Value{62, 144, -1, -1}));
    int row = 0;
    while (row < 6 && !cell(row).startsWith(name + QLatin1Char('\n')))
        ++row;
    QVERIFY(row < 6);
    rename(row, QStringLiteral("Plain"));
    QCOMPARE(cell(row), QStringLiteral("Plain\nNow:62% signal and 144 Mbps\nN/A"));
    remove(row);
    QCOMPARE(onDisk().size(), 5);
    QVERIFY(!onDisk().contains(name));
}

QTEST_MAIN(TestRoomFlows)
#include "tst_roomflows.moc"

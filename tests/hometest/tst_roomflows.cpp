#include "common/QtCommonTools.h"
#include "hometest/linetablewidget.h"
#include "hometest/roomhand.h"
#include "hometest/signalhometestingwgt.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using RoomHouse::Rooms;

// The rooms by mouse and keyboard, through the modal dialogs.
class TestRoomFlows : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_hand.firstStart(); }
    void cleanup() { m_hand.close(); }

    void addsARoomAtTheBottom();
    void aNewRoomIsInNameOrderAfterARestart();
    void refusesAnEmptyNameThenTakesAGoodOne();
    void refusesADuplicateAndCancels();
    void trimsTheName();
    void theAddDialogStartsEmptyEveryTime();
    void eachDialogSaysWhatItIsFor();
    void theNameFieldHasTheKeyboardEveryTime_data();
    void theNameFieldHasTheKeyboardEveryTime();
    void renamingKeepsTheResults();
    void renamingToTheSameNameIsRefused();
    void deletingAsksAndReturnCancels();
    void deletingRemovesTheRoom();
    void deletingTheFirstAndTheLastRoom();
    void deletingByKeyboardLeavesTheKeyboardInTheTable_data();
    void deletingByKeyboardLeavesTheKeyboardInTheTable();
    void deletedAndAddedAgainIsUntested();
    void holds201Rooms();

private:
    RoomHand m_hand;
};

void TestRoomFlows::addsARoomAtTheBottom()
{
    m_hand.add(QStringLiteral("Attic"));
    QCOMPARE(m_hand.table()->rowCount(), 6);
    QCOMPARE(m_hand.cell(5), QStringLiteral("Attic\nN/A\nN/A"));
    QCOMPARE(m_hand.table()->rowHeight(5), 65);
    QVERIFY(m_hand.table()->viewport()->rect().intersects(
        m_hand.table()->visualItemRect(m_hand.table()->item(5, 0))));
    QVERIFY(m_hand.testButton(5)->isHidden());
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Attic")), HomeTest_Value());
    QCOMPARE(m_hand.onDisk().size(), 6);
    m_hand.clickRow(5);
    QVERIFY(m_hand.testButton(5)->isVisible());
}

void TestRoomFlows::aNewRoomIsInNameOrderAfterARestart()
{
    m_hand.add(QStringLiteral("Attic"));
    m_hand.restart();
    QVERIFY(m_hand.cell(0).startsWith(QStringLiteral("Attic\n")));
    QCOMPARE(m_hand.table()->rowCount(), 6);
}

void TestRoomFlows::refusesAnEmptyNameThenTakesAGoodOne()
{
    ModalHand hand;
    hand.then([](QWidget *dialog) { QTest::mouseClick(RoomHand::ok(dialog), Qt::LeftButton); });
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::error(dialog), QStringLiteral("The room name cannot be empty"));
        RoomHand::type(dialog, QStringLiteral("   "));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::error(dialog), QStringLiteral("The room name cannot be empty"));
        RoomHand::type(dialog, QStringLiteral("Attic"));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.table()->rowCount(), 6);
}

void TestRoomFlows::refusesADuplicateAndCancels()
{
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        RoomHand::type(dialog, QStringLiteral(" Kitchen "));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::error(dialog), QStringLiteral("The room name already exists"));
        QTest::mouseClick(RoomHand::cancel(dialog), Qt::LeftButton);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::error(dialog), QString());
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.table()->rowCount(), 5);
    QCOMPARE(m_hand.onDisk().size(), 5);
}

void TestRoomFlows::trimsTheName()
{
    m_hand.add(QStringLiteral("  Guest  room "));
    QCOMPARE(m_hand.cell(5), QStringLiteral("Guest  room\nN/A\nN/A"));
    QVERIFY(m_hand.onDisk().contains(QStringLiteral("Guest  room")));
}

void TestRoomFlows::theAddDialogStartsEmptyEveryTime()
{
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        RoomHand::type(dialog, QStringLiteral("Half a na"));
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::edit(dialog)->text(), QString());
        QVERIFY(RoomHand::edit(dialog)->hasFocus());
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.table()->rowCount(), 5);
}

void TestRoomFlows::eachDialogSaysWhatItIsFor()
{
    m_hand.clickRow(3);
    QStringList titles;
    ModalHand hand;
    for (const char *name :
        {"HomeTesting_btn_Add", "HomeTesting_btn_Edit", "HomeTesting_btn_Del"}) {
        hand.then([&titles](QWidget *dialog) {
            titles.append(dialog->findChild<QLabel *>()->text());
            ModalHand::press(dialog, Qt::Key_Escape);
        });
        m_hand.click(m_hand.button(name));
    }
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(titles, (QStringList{QStringLiteral("Add Room"), QStringLiteral("Edit Room"),
                         QStringLiteral("Delete Room")}));
}

void TestRoomFlows::theNameFieldHasTheKeyboardEveryTime_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("add") << QByteArray("HomeTesting_btn_Add");
    QTest::newRow("edit") << QByteArray("HomeTesting_btn_Edit");
}

void TestRoomFlows::theNameFieldHasTheKeyboardEveryTime()
{
    QFETCH(QByteArray, button);
    m_hand.clickRow(3);
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        RoomHand::cancel(dialog)->setFocus();
        RoomHand::cancel(dialog)->click();
    });
    m_hand.click(m_hand.button(button.constData()));
    hand.then([](QWidget *dialog) {
        QVERIFY(RoomHand::edit(dialog)->hasFocus());
        ModalHand::press(dialog, Qt::Key_Escape);
    });
    m_hand.click(m_hand.button(button.constData()));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
}

void TestRoomFlows::renamingKeepsTheResults()
{
    m_hand.panel()->onNetworkReturned(QStringLiteral("Home"));
    m_hand.panel()->SetSignalValue(-38);
    m_hand.panel()->SetSignalSpeedValue(144);
    m_hand.clickRow(3);
    m_hand.click(m_hand.testButton(3));
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::edit(dialog)->text(), QStringLiteral("Kitchen"));
        RoomHand::edit(dialog)->setText(QStringLiteral("Galley"));
        QTest::mouseClick(RoomHand::ok(dialog), Qt::LeftButton);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Edit"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.cell(3), QStringLiteral("Galley\nNow:62% signal and 144 Mbps\nN/A"));
    QVERIFY(m_hand.testButton(3)->isVisible());
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Galley")), (HomeTest_Value{62, 144, -1, -1}));
    QVERIFY(!m_hand.onDisk().contains(QStringLiteral("Kitchen")));
    // The next test belongs to the new name.
    m_hand.click(m_hand.testButton(3));
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Galley")), (HomeTest_Value{62, 144, 62, 144}));
    QCOMPARE(m_hand.onDisk().size(), 5);
}

void TestRoomFlows::renamingToTheSameNameIsRefused()
{
    m_hand.clickRow(3);
    ModalHand hand;
    hand.then([](QWidget *dialog) { ModalHand::press(dialog, Qt::Key_Return); });
    hand.then([](QWidget *dialog) {
        QCOMPARE(RoomHand::error(dialog), QStringLiteral("The room name already exists"));
        RoomHand::edit(dialog)->setText(QStringLiteral("kitchen"));
        ModalHand::press(dialog, Qt::Key_Return);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Edit"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.cell(3), QStringLiteral("kitchen\nN/A\nN/A"));
    QVERIFY(!m_hand.onDisk().contains(QStringLiteral("Kitchen")));
}

void TestRoomFlows::deletingAsksAndReturnCancels()
{
    m_hand.clickRow(1);
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        QVERIFY(RoomHand::cancel(dialog)->hasFocus());
        ModalHand::press(dialog, Qt::Key_Return);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Del"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.table()->rowCount(), 5);
    QCOMPARE(m_hand.onDisk().size(), 5);
    QVERIFY(m_hand.testButton(1)->isVisible());
}

void TestRoomFlows::deletingRemovesTheRoom()
{
    m_hand.remove(1);
    QCOMPARE(m_hand.table()->rowCount(), 4);
    QVERIFY(!m_hand.onDisk().contains(QStringLiteral("Bedroom2")));
    QCOMPARE(m_hand.onDisk(), *QtCommonTools::GetHomeTestingIni());
    for (int row = 0; row < 4; ++row)
        QVERIFY(m_hand.testButton(row)->isHidden());
    QVERIFY(!m_hand.button("HomeTesting_btn_Edit")->isEnabled());
    QVERIFY(!m_hand.button("HomeTesting_btn_Del")->isEnabled());
    QVERIFY(m_hand.table()->selectionModel()->selectedRows().isEmpty());
    m_hand.clickRow(1);
    QVERIFY(m_hand.testButton(1)->isVisible());
    QVERIFY(m_hand.button("HomeTesting_btn_Del")->isEnabled());
}

void TestRoomFlows::deletingTheFirstAndTheLastRoom()
{
    m_hand.remove(0);
    m_hand.remove(3);
    m_hand.remove(0);
    m_hand.remove(0);
    QCOMPARE(m_hand.table()->rowCount(), 1);
    QCOMPARE(m_hand.cell(0), QStringLiteral("Kitchen\nN/A\nN/A"));
    m_hand.remove(0);
    QCOMPARE(m_hand.table()->rowCount(), 0);
    QCOMPARE(m_hand.onDisk(), Rooms());
    m_hand.add(QStringLiteral("Attic"));
    QCOMPARE(m_hand.onDisk().size(), 1);
    QCOMPARE(m_hand.cell(0), QStringLiteral("Attic\nN/A\nN/A"));
}

void TestRoomFlows::deletingByKeyboardLeavesTheKeyboardInTheTable_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("next");
    QTest::newRow("first") << 0 << 1;
    QTest::newRow("middle") << 2 << 2;
    QTest::newRow("last") << 4 << 3;
}

void TestRoomFlows::deletingByKeyboardLeavesTheKeyboardInTheTable()
{
    QFETCH(int, row);
    QFETCH(int, next);
    m_hand.clickRow(row);
    QPushButton *del = m_hand.button("HomeTesting_btn_Del");
    del->setFocus();
    ModalHand hand;
    hand.then([](QWidget *dialog) {
        RoomHand::ok(dialog)->setFocus();
        ModalHand::press(dialog, Qt::Key_Return);
    });
    QTest::keyClick(del, Qt::Key_Return);
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.table()->rowCount(), 4);
    QApplication::setActiveWindow(m_hand.panel());
    QTRY_VERIFY(m_hand.table()->hasFocus());
    QVERIFY(m_hand.table()->selectionModel()->selectedRows().isEmpty());
    // It goes on from where the room was.
    QTest::keyClick(m_hand.table(), Qt::Key_Down);
    QVERIFY(m_hand.table()->selectionModel()->isRowSelected(next, QModelIndex()) ||
            m_hand.table()->currentRow() == next);
    QTest::keyClick(m_hand.table(), Qt::Key_Space);
    QVERIFY(m_hand.table()->selectionModel()->isRowSelected(next, QModelIndex()));
    QVERIFY(m_hand.testButton(next)->isVisible());
}

void TestRoomFlows::deletedAndAddedAgainIsUntested()
{
    m_hand.panel()->onNetworkReturned(QStringLiteral("Home"));
    m_hand.panel()->SetSignalValue(-38);
    m_hand.clickRow(3);
    m_hand.click(m_hand.testButton(3));
    m_hand.remove(3);
    m_hand.add(QStringLiteral("Kitchen"));
    QCOMPARE(m_hand.cell(4), QStringLiteral("Kitchen\nN/A\nN/A"));
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Kitchen")), HomeTest_Value());
}

void TestRoomFlows::holds201Rooms()
{
    m_hand.reopen(RoomHouse::manyRooms(200));
    m_hand.add(QStringLiteral("Room 200"));
    QCOMPARE(m_hand.table()->rowCount(), 201);
    QCOMPARE(m_hand.cell(200), QStringLiteral("Room 200\nN/A\nN/A"));
    QVERIFY(m_hand.table()->viewport()->rect().contains(
        m_hand.table()->visualItemRect(m_hand.table()->item(200, 0))));

    QString notice;
    ModalHand hand;
    hand.then(RoomHand::takeNotice(&notice));
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(notice, QStringLiteral("The room is too much!"));
    QCOMPARE(m_hand.table()->rowCount(), 201);
    QCOMPARE(m_hand.onDisk().size(), 201);

    m_hand.remove(100);
    m_hand.add(QStringLiteral("Room 201"));
    QCOMPARE(m_hand.table()->rowCount(), 201);
    QCOMPARE(m_hand.onDisk(), *QtCommonTools::GetHomeTestingIni());
}

QTEST_MAIN(TestRoomFlows)
#include "tst_roomflows.moc"

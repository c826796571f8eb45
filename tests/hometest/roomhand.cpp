#include "hometest/roomhand.h"

#include "common/QtCommonTools.h"
#include "hometest/linetablewidget.h"
#include "hometest/signalhometestingwgt.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

void RoomHand::firstStart()
{
    RoomHouse::restartWithoutFile();
    open();
}

void RoomHand::reopen(const RoomHouse::Rooms &rooms)
{
    delete m_panel;
    RoomHouse::restartWith(rooms);
    open();
}

void RoomHand::restart()
{
    delete m_panel;
    RoomHouse::restart();
    open();
}

void RoomHand::open()
{
    m_panel = SignalHomeTestingWgt::Instance(nullptr);
    m_panel->resize(1080, 600);
    m_panel->show();
    QApplication::setActiveWindow(m_panel);
}

void RoomHand::close()
{
    delete m_panel;
    m_panel = nullptr;
    QtCommonTools::Release();
}

LineTableWidget *RoomHand::table() const
{
    return m_panel->findChild<LineTableWidget *>();
}

QString RoomHand::cell(int row) const
{
    return table()->item(row, 0)->text();
}

QPushButton *RoomHand::button(const char *objectName) const
{
    return m_panel->findChild<QPushButton *>(QString::fromLatin1(objectName));
}

QPushButton *RoomHand::testButton(int row) const
{
    return table()->cellWidget(row, 1)->findChild<QPushButton *>();
}

RoomHouse::Rooms RoomHand::onDisk() const
{
    return RoomHouse::roomsIn(RoomHouse::file());
}

void RoomHand::click(QPushButton *target)
{
    QTest::mouseClick(target, Qt::LeftButton);
}

void RoomHand::clickRow(int row)
{
    table()->scrollToItem(table()->item(row, 0));
    const QRect rect = table()->visualItemRect(table()->item(row, 0));
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, rect.center());
}

void RoomHand::add(const QString &name)
{
    ModalHand hand;
    hand.then([&](QWidget *dialog) {
        type(dialog, name);
        ModalHand::press(dialog, Qt::Key_Return);
    });
    click(button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
}

void RoomHand::rename(int row, const QString &name)
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

void RoomHand::remove(int row)
{
    clickRow(row);
    ModalHand hand;
    hand.then([](QWidget *dialog) { QTest::mouseClick(ok(dialog), Qt::LeftButton); });
    click(button("HomeTesting_btn_Del"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
}

QLineEdit *RoomHand::edit(QWidget *dialog)
{
    return dialog->findChild<QLineEdit *>();
}

QPushButton *RoomHand::ok(QWidget *dialog)
{
    return dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Ok"));
}

QPushButton *RoomHand::cancel(QWidget *dialog)
{
    return dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Cancel"));
}

QString RoomHand::error(QWidget *dialog)
{
    QString text = dialog->findChildren<QLabel *>().at(1)->text();
    return text.remove(QStringLiteral("<html><font color=red>"))
        .remove(QStringLiteral("</font></html>"));
}

void RoomHand::type(QWidget *dialog, const QString &name)
{
    if (name.size() < 100)
        QTest::keyClicks(edit(dialog), name);
    else
        edit(dialog)->insert(name);
}

ModalHand::Action RoomHand::takeNotice(QString *text)
{
    return [text](QWidget *box) {
        QMessageBox *notice = qobject_cast<QMessageBox *>(box);
        QVERIFY(notice);
        QCOMPARE(notice->windowTitle(), QStringLiteral("notice"));
        *text = notice->text();
        ModalHand::press(notice, Qt::Key_Return);
    };
}

#ifndef AIRLUME_TESTS_HOMETEST_ROOMHAND_H
#define AIRLUME_TESTS_HOMETEST_ROOMHAND_H

#include "hometest/modalhand.h"
#include "hometest/roomhouse.h"

class LineTableWidget;
class QLineEdit;
class QPushButton;
class SignalHomeTestingWgt;

/// Works the home-testing panel by mouse and keyboard, as a user would.
class RoomHand
{
public:
    /// A first start: no room file.
    void firstStart();
    /// A start with these rooms.
    void reopen(const RoomHouse::Rooms &rooms);
    /// Ends the program's objects and starts them with the file as it is.
    void restart();
    void close();

    SignalHomeTestingWgt *panel() const { return m_panel; }
    LineTableWidget *table() const;
    QString cell(int row) const;
    QPushButton *button(const char *objectName) const;
    QPushButton *testButton(int row) const;
    RoomHouse::Rooms onDisk() const;

    void click(QPushButton *target);
    void clickRow(int row);
    void add(const QString &name);
    void rename(int row, const QString &name);
    void remove(int row);

    static QLineEdit *edit(QWidget *dialog);
    static QPushButton *ok(QWidget *dialog);
    static QPushButton *cancel(QWidget *dialog);
    /// The error shown, without its markup; empty when there is none.
    static QString error(QWidget *dialog);
    /// Types a name, by keys where keys can.
    static void type(QWidget *dialog, const QString &name);
    /// Confirms a notice and hands its text out.
    static ModalHand::Action takeNotice(QString *text);

private:
    void open();

    SignalHomeTestingWgt *m_panel = nullptr;
};

#endif

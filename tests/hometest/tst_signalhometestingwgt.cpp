#include "common/QtCommonTools.h"
#include "hometest/hometestingbtnwgt.h"
#include "hometest/hometestingpopupdlg.h"
#include "hometest/linetablewidget.h"
#include "hometest/roomhouse.h"
#include "hometest/signalhometestingwgt.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"

#include <QLabel>
#include <QLayout>
#include <QMetaMethod>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

using RoomHouse::Rooms;

// The panel without its dialogs: what it shows and how it takes the values it is sent.
class TestSignalHomeTestingWgt : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void isASingletonUntilItIsDeleted();
    void declaresItsSlotsInOrder();
    void showsTheRoomsInNameOrder();
    void showsTheStoredResults();
    void setsTheTableUp();
    void setsTheButtonsUp();
    void setsThePictureUp();
    void laysItselfOut();
    void aClickMovesTheTestButton();
    void aClickOnTheSameRowChangesNothing();
    void aTestIsStoredUnderTheNameInTheCell();
    void fitsThePictureToTheTable();
    void aTabChangeFitsThePictureToTheWindowsState();
    void thePictureNeverHoldsTheWindowOpen();
    void aPanelTooLowForThePictureHasNone();
    void loadingAgainReplacesTheRows();
    void aNewLanguageTranslatesButtonsAndDialogs();
    void missingWidgetsAreReported();

private:
    LineTableWidget *table() const { return m_panel->findChild<LineTableWidget *>(); }
    QPushButton *button(const char *name) const
    {
        return m_panel->findChild<QPushButton *>(QString::fromLatin1(name));
    }
    QLabel *picture() const
    {
        return qobject_cast<QLabel *>(m_panel->layout()->itemAt(0)->layout()->itemAt(0)->widget());
    }
    QString cell(int row) const { return table()->item(row, 0)->text(); }
    bool hasTestButton(int row) const;
    QList<int> rowsWithTestButton() const;
    void reload(const Rooms &rooms);

    SignalHomeTestingWgt *m_panel = nullptr;
};

void TestSignalHomeTestingWgt::init()
{
    RoomHouse::restartWithoutFile();
    m_panel = SignalHomeTestingWgt::Instance(nullptr);
}

void TestSignalHomeTestingWgt::cleanup()
{
    delete m_panel;
    QtCommonTools::Release();
}

void TestSignalHomeTestingWgt::reload(const Rooms &rooms)
{
    delete m_panel;
    RoomHouse::restartWith(rooms);
    m_panel = SignalHomeTestingWgt::Instance(nullptr);
}

bool TestSignalHomeTestingWgt::hasTestButton(int row) const
{
    return !table()->cellWidget(row, 1)->findChild<QPushButton *>()->isHidden();
}

QList<int> TestSignalHomeTestingWgt::rowsWithTestButton() const
{
    QList<int> rows;
    for (int row = 0; row < table()->rowCount(); ++row) {
        if (hasTestButton(row))
            rows.append(row);
    }
    return rows;
}

void TestSignalHomeTestingWgt::isASingletonUntilItIsDeleted()
{
    QWidget other;
    QCOMPARE(SignalHomeTestingWgt::Instance(&other), m_panel);
    QCOMPARE(SignalHomeTestingWgt::m_pInstance, m_panel);
    QVERIFY(!m_panel->parent());
    delete m_panel;
    QVERIFY(!SignalHomeTestingWgt::m_pInstance);
    m_panel = SignalHomeTestingWgt::Instance(&other);
    QCOMPARE(m_panel->parentWidget(), &other);
    delete m_panel;
    m_panel = SignalHomeTestingWgt::Instance(nullptr);
}

void TestSignalHomeTestingWgt::declaresItsSlotsInOrder()
{
    const QMetaObject &meta = SignalHomeTestingWgt::staticMetaObject;
    QList<QByteArray> declared;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        declared.append(meta.method(i).methodSignature());
    QCOMPARE(declared,
        (QList<QByteArray>{"SetSignalValue(int)", "SetSignalSpeedValue(int)", "ResMaxWindow()",
            "ResRestoreWindow()", "onNetworkReturned(QString)", "SetTestBtnVisible(int,int)",
            "ClickedTestBtn()", "ClickedTab()", "DelHome()", "EditHome()", "AddHome()",
            "AddHomeName(QString)", "UpdateHomeName(QString)", "DelHomeName()"}));
}

void TestSignalHomeTestingWgt::showsTheRoomsInNameOrder()
{
    QCOMPARE(table()->rowCount(), 5);
    const QStringList names{QStringLiteral("Bedroom1"), QStringLiteral("Bedroom2"),
        QStringLiteral("Home Office"), QStringLiteral("Kitchen"), QStringLiteral("Living Room")};
    for (int row = 0; row < 5; ++row)
        QCOMPARE(cell(row), names.at(row) + QStringLiteral("\nN/A\nN/A"));
    reload({{QStringLiteral("b"), {}}, {QStringLiteral("B"), {}}, {QStringLiteral("a"), {}}});
    QCOMPARE(cell(0).left(1) + cell(1).left(1) + cell(2).left(1), QStringLiteral("Bab"));
}

void TestSignalHomeTestingWgt::showsTheStoredResults()
{
    reload(
        {{QStringLiteral("Attic"), {62, 144, 40, 300}}, {QStringLiteral("Hall"), {0, 0, -1, 7}}});
    QCOMPARE(cell(0),
        QStringLiteral("Attic\nNow:62% signal and 144 Mbps\nLast:40% signal and 300 Mbps"));
    QCOMPARE(cell(1), QStringLiteral("Hall\nNow:0% signal and 0 Mbps\nN/A"));
}

void TestSignalHomeTestingWgt::setsTheTableUp()
{
    QCOMPARE(table()->objectName(), QStringLiteral("HomeTesting_TabWgt_Home_List"));
    QVERIFY(table()->wordWrap());
    QCOMPARE(table()->columnCount(), 2);
    QCOMPARE(table()->palette().brush(QPalette::Base), QBrush(QColor(240, 240, 240)));
    for (int row = 0; row < table()->rowCount(); ++row) {
        QCOMPARE(table()->rowHeight(row), 65);
        QCOMPARE(table()->item(row, 0)->textAlignment(), int(Qt::AlignLeft | Qt::AlignVCenter));
        QCOMPARE(table()->item(row, 1)->textAlignment(), int(Qt::AlignVCenter));
        QVERIFY(qobject_cast<HomeTestingBtnWgt *>(table()->cellWidget(row, 1)));
    }
    QCOMPARE(rowsWithTestButton(), QList<int>());
}

void TestSignalHomeTestingWgt::setsTheButtonsUp()
{
    const QPushButton *add = button("HomeTesting_btn_Add");
    const QPushButton *edit = button("HomeTesting_btn_Edit");
    const QPushButton *del = button("HomeTesting_btn_Del");
    QCOMPARE(add->text(), QStringLiteral("Add Room"));
    QCOMPARE(edit->text(), QStringLiteral("Edit Room"));
    QCOMPARE(del->text(), QStringLiteral("Delete Room"));
    QVERIFY(add->isEnabled());
    QVERIFY(!edit->isEnabled());
    QVERIFY(!del->isEnabled());
    QCOMPARE(add->parentWidget()->minimumWidth(), 100);
    QCOMPARE(add->parentWidget()->maximumWidth(), 100);
}

void TestSignalHomeTestingWgt::setsThePictureUp()
{
    // A fresh window is 480 pixels high.
    QCOMPARE(picture()->minimumSize(), QSize(250, 250));
    QCOMPARE(picture()->maximumSize(), QSize(250, 250));
    QVERIFY(picture()->autoFillBackground());
    const QBrush brush = picture()->palette().brush(picture()->backgroundRole());
    QCOMPARE(brush.style(), Qt::TexturePattern);
    QCOMPARE(brush.texture().size(), QSize(250, 250));
    const QPixmap rooms(QStringLiteral(":/images/HomeTesting.png"));
    QCOMPARE(brush.texture().toImage(), rooms.scaled(250, 250).toImage());
}

void TestSignalHomeTestingWgt::laysItselfOut()
{
    QLayout *outer = m_panel->layout();
    QCOMPARE(outer->count(), 3);
    QCOMPARE(outer->itemAt(1)->widget(), table()->parentWidget());
    QCOMPARE(outer->itemAt(2)->widget(), button("HomeTesting_btn_Add")->parentWidget());
    QVBoxLayout *left = qobject_cast<QVBoxLayout *>(outer->itemAt(0)->layout());
    QCOMPARE(left->stretch(0), 132);
    QCOMPARE(left->itemAt(0)->alignment(), Qt::Alignment());
    m_panel->resize(1080, 330);
    m_panel->grab();
    QVERIFY(button("HomeTesting_btn_Add")->y() < button("HomeTesting_btn_Edit")->y());
    QVERIFY(button("HomeTesting_btn_Edit")->y() < button("HomeTesting_btn_Del")->y());
}

void TestSignalHomeTestingWgt::aClickMovesTheTestButton()
{
    m_panel->resize(1080, 600);
    m_panel->show();
    const auto click = [this](int row, int column) {
        const QRect rect = table()->visualItemRect(table()->item(row, column));
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, rect.topLeft() + QPoint(5, 30));
    };
    click(3, 0);
    QCOMPARE(rowsWithTestButton(), QList<int>{3});
    QVERIFY(button("HomeTesting_btn_Edit")->isEnabled());
    QVERIFY(button("HomeTesting_btn_Del")->isEnabled());
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 1);
    click(0, 0);
    QCOMPARE(rowsWithTestButton(), QList<int>{0});
    // The whole row counts, not only the name.
    m_panel->SetTestBtnVisible(4, 1);
    QCOMPARE(rowsWithTestButton(), QList<int>{4});
}

void TestSignalHomeTestingWgt::aClickOnTheSameRowChangesNothing()
{
    m_panel->SetTestBtnVisible(2, 0);
    button("HomeTesting_btn_Edit")->setEnabled(false);
    m_panel->SetTestBtnVisible(2, 1);
    QCOMPARE(rowsWithTestButton(), QList<int>{2});
    QVERIFY(!button("HomeTesting_btn_Edit")->isEnabled());
}

void TestSignalHomeTestingWgt::aTestIsStoredUnderTheNameInTheCell()
{
    // The cell is the room: its first line is the name under which a test is stored.
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->SetSignalValue(-38);
    m_panel->SetSignalSpeedValue(144);
    m_panel->SetTestBtnVisible(3, 0);
    m_panel->ClickedTestBtn();
    QCOMPARE(cell(3), QStringLiteral("Kitchen\nNow:62% signal and 144 Mbps\nN/A"));
    const Rooms stored = RoomHouse::roomsIn(RoomHouse::file());
    QCOMPARE(stored.value(QStringLiteral("Kitchen")), (HomeTest_Value{62, 144, -1, -1}));
    QCOMPARE(stored, *QtCommonTools::GetHomeTestingIni());
}

void TestSignalHomeTestingWgt::fitsThePictureToTheTable()
{
    m_panel->resize(1080, 330);
    m_panel->grab();
    const int container = table()->parentWidget()->height();
    QVERIFY(container > 250);
    m_panel->ResMaxWindow();
    QCOMPARE(picture()->minimumSize(), QSize(container - 10, container - 10));
    QCOMPARE(picture()->maximumSize(), QSize(container - 10, container - 10));
    const QBrush brush = picture()->palette().brush(picture()->backgroundRole());
    QCOMPARE(brush.texture().size(), QSize(container - 10, container - 10));
    m_panel->ResRestoreWindow();
    QCOMPARE(picture()->minimumSize(), QSize(container - 1, container - 1));
}

void TestSignalHomeTestingWgt::aTabChangeFitsThePictureToTheWindowsState()
{
    m_panel->ResMaxWindow();
    m_panel->resize(1500, 700);
    m_panel->grab();
    const int container = table()->parentWidget()->height();
    m_panel->ClickedTab();
    QCOMPARE(picture()->width(), container - 10);
    m_panel->ResRestoreWindow();
    m_panel->ClickedTab();
    QCOMPARE(picture()->width(), container - 1);
}

void TestSignalHomeTestingWgt::thePictureNeverHoldsTheWindowOpen()
{
    QWidget window;
    QVBoxLayout layout(&window);
    layout.addWidget(m_panel);
    window.resize(1900, 1000);
    window.show();
    m_panel->ResMaxWindow();
    QVERIFY(picture()->height() > 800);
    QCoreApplication::processEvents();
    window.resize(1100, 400);
    QCOMPARE(window.size(), QSize(1100, 400));
    m_panel->ResRestoreWindow();
    QVERIFY(picture()->height() < 400);
    QCoreApplication::processEvents();
    QCOMPARE(window.size(), QSize(1100, 400));
    layout.removeWidget(m_panel);
    m_panel->setParent(nullptr);
}

void TestSignalHomeTestingWgt::aPanelTooLowForThePictureHasNone()
{
    delete m_panel;
    QWidget window;
    MessageLog log;
    // A child is 30 pixels high until it is laid out.
    m_panel = SignalHomeTestingWgt::Instance(&window);
    QCOMPARE(picture()->minimumSize(), QSize(0, 0));
    QCOMPARE(log.messages(QtWarningMsg), QStringList());
    delete m_panel;
    m_panel = SignalHomeTestingWgt::Instance(nullptr);
}

void TestSignalHomeTestingWgt::loadingAgainReplacesTheRows()
{
    m_panel->SetTestBtnVisible(1, 0);
    QtCommonTools::AddHomeTestToINI(QStringLiteral("Attic"), HomeTest_Value());
    m_panel->InitLstData();
    QCOMPARE(table()->rowCount(), 6);
    QVERIFY(cell(0).startsWith(QStringLiteral("Attic\n")));
    QCOMPARE(rowsWithTestButton(), QList<int>());
    m_panel->SetTestBtnVisible(1, 0);
    QCOMPARE(rowsWithTestButton(), QList<int>{1});
}

void TestSignalHomeTestingWgt::aNewLanguageTranslatesButtonsAndDialogs()
{
    m_panel->SetTestBtnVisible(0, 0);
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    m_panel->ChangeLanguage();
    QCOMPARE(
        button("HomeTesting_btn_Add")->text(), QtCommonTools::tr(LanguageLabels::m_strHomAddRoom));
    QCOMPARE(button("HomeTesting_btn_Edit")->text(),
        QtCommonTools::tr(LanguageLabels::m_strHomeEditRoom));
    QCOMPARE(
        button("HomeTesting_btn_Del")->text(), QtCommonTools::tr(LanguageLabels::m_strHomeDelRoom));
    QVERIFY(button("HomeTesting_btn_Add")->text() != QStringLiteral("Add Room"));
    for (int row = 0; row < table()->rowCount(); ++row)
        QCOMPARE(table()->cellWidget(row, 1)->findChild<QPushButton *>()->text(),
            QtCommonTools::tr(LanguageLabels::m_strHomeTest));
    const auto dialogs = m_panel->findChildren<HomeTestingPopupDlg *>();
    QCOMPARE(dialogs.size(), 3);
    for (const HomeTestingPopupDlg *dialog : dialogs)
        QCOMPARE(
            dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Cancel"))->text(),
            QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel));
    // The words of the results stay English in every language, on purpose.
    QCOMPARE(cell(0), QStringLiteral("Bedroom1\nN/A\nN/A"));
}

void TestSignalHomeTestingWgt::missingWidgetsAreReported()
{
    table()->removeCellWidget(1, 1);
    MessageLog log;
    const auto report = [&log](const char *function) {
        const QStringList reports = log.criticals();
        log.clear();
        return reports.size() == 1 &&
               reports.first().startsWith(
                   QStringLiteral("NUll pointfile:signalhometestingwgt function:%1 line:")
                       .arg(QString::fromLatin1(function)));
    };
    m_panel->SetTestBtnVisible(1, 0);
    QVERIFY(report("SetTestBtnVisible"));
    QVERIFY(!button("HomeTesting_btn_Edit")->isEnabled());
    m_panel->ChangeLanguage();
    QVERIFY(report("ChangeLanguage"));

    delete table()->takeItem(1, 0);
    m_panel->EditHome();
    QVERIFY(report("EditHome"));
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    m_panel->ClickedTestBtn();
    QVERIFY(report("ClickedTestBtn"));
    m_panel->DelHomeName();
    QVERIFY(report("DelHomeName"));
    m_panel->UpdateHomeName(QStringLiteral("New"));
    QVERIFY(report("UpdateHomeName"));
    QCOMPARE(RoomHouse::roomsIn(RoomHouse::file()).size(), 5);

    delete table();
    m_panel->AddEmptyRowToTabwgt();
    QVERIFY(report("AddEmptyRowToTabwgt"));
    m_panel->InitLst();
    QVERIFY(report("InitLst"));
    m_panel->InitLstData();
    QVERIFY(report("InitLstData"));
    m_panel->SetTestBtnVisible(2, 0);
    QVERIFY(report("SetTestBtnVisible"));
    for (HomeTestingPopupDlg *dialog : m_panel->findChildren<HomeTestingPopupDlg *>())
        delete dialog;
    m_panel->AddHome();
    QVERIFY(report("AddHome"));
    m_panel->DelHome();
    QVERIFY(report("DelHome"));
    delete picture();
    m_panel->ResMaxWindow();
    QVERIFY(report("FitPicture"));
}

QTEST_MAIN(TestSignalHomeTestingWgt)
#include "tst_signalhometestingwgt.moc"

#include "hometest/signalhometestingwgt.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "hometest/hometestingbtnwgt.h"
#include "hometest/hometestingpopupdlg.h"
#include "hometest/hometestvalue.h"
#include "hometest/linetablewidget.h"
#include "hometest/roomtext.h"
#include "i18n/languagelabels.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
enum Column { RoomColumn, TestColumn, ColumnCount };

const int RowHeight = 65;
const int PictureStretch = 132; // kept: alone in its column, any factor does
// Asked before adding, so one more than this many rooms can exist: intended.
const int MostRoomsBeforeAdding = 200;
} // namespace

SignalHomeTestingWgt *SignalHomeTestingWgt::m_pInstance = nullptr;

SignalHomeTestingWgt *SignalHomeTestingWgt::Instance(QWidget *parent)
{
    if (!m_pInstance)
        m_pInstance = new SignalHomeTestingWgt(parent);
    return m_pInstance;
}

SignalHomeTestingWgt::SignalHomeTestingWgt(QWidget *parent)
    : QWidget(parent)
{
    Init();
}

SignalHomeTestingWgt::~SignalHomeTestingWgt()
{
    m_pInstance = nullptr;
}

void SignalHomeTestingWgt::Init()
{
    m_picture = QPixmap(QStringLiteral(":/images/HomeTesting.png"));
    m_pPictureLabel = new QLabel(this);
    m_pPictureLabel->setAutoFillBackground(true);
    // The panel has no size of its own yet: this is the picture's share of a fresh widget.
    m_iImageSide = height() - 230;
    FitPicture();

    QVBoxLayout *pictureColumn = new QVBoxLayout;
    pictureColumn->addWidget(m_pPictureLabel, PictureStretch);

    m_pTableWgt = new QWidget(this);
    m_pTable = new LineTableWidget(m_pTableWgt);
    QHBoxLayout *tableLayout = new QHBoxLayout(m_pTableWgt);
    tableLayout->addWidget(m_pTable);

    m_pBtnWgt = CreateButtonColumn();

    QHBoxLayout *outer = new QHBoxLayout(this);
    outer->addLayout(pictureColumn);
    outer->addWidget(m_pTableWgt);
    outer->addWidget(m_pBtnWgt);

    m_pAddDlg = new HomeTestingPopupDlg(LanguageLabels::m_strHomAddRoom, this);
    m_pEditDlg = new HomeTestingPopupDlg(LanguageLabels::m_strHomeEditRoom, this);
    m_pDelDlg = new HomeTestingPopupDlg(LanguageLabels::m_strHomeDelRoom, this);
    QString question = QStringLiteral("Are you sure to delete room?");
    m_pDelDlg->SetText(question);

    connect(m_pDelBtn, SIGNAL(clicked()), this, SLOT(DelHome()));
    connect(m_pEditBtn, SIGNAL(clicked()), this, SLOT(EditHome()));
    connect(m_pAddBtn, SIGNAL(clicked()), this, SLOT(AddHome()));
    connect(m_pAddDlg, SIGNAL(SendHomeName(QString)), this, SLOT(AddHomeName(QString)));
    connect(m_pEditDlg, SIGNAL(SendHomeName(QString)), this, SLOT(UpdateHomeName(QString)));
    connect(m_pDelDlg, SIGNAL(SendDelConfirm()), this, SLOT(DelHomeName()));

    InitLst();
}

QWidget *SignalHomeTestingWgt::CreateButtonColumn()
{
    m_pAddBtn = new QPushButton(QtCommonTools::tr(LanguageLabels::m_strHomAddRoom));
    m_pAddBtn->setObjectName(QStringLiteral("HomeTesting_btn_Add"));
    m_pEditBtn = new QPushButton(QtCommonTools::tr(LanguageLabels::m_strHomeEditRoom));
    m_pEditBtn->setObjectName(QStringLiteral("HomeTesting_btn_Edit"));
    m_pEditBtn->setEnabled(false);
    m_pDelBtn = new QPushButton(QtCommonTools::tr(LanguageLabels::m_strHomeDelRoom));
    m_pDelBtn->setObjectName(QStringLiteral("HomeTesting_btn_Del"));
    m_pDelBtn->setEnabled(false);
    // Return presses them too, as in a dialog.
    for (QPushButton *button : {m_pAddBtn, m_pEditBtn, m_pDelBtn})
        button->setAutoDefault(true);

    QWidget *column = new QWidget(this);
    column->setFixedWidth(m_iBtnColumnWidth);
    QGridLayout *grid = new QGridLayout(column);
    // The longest translations need nearly all of the column.
    grid->setContentsMargins(1, 9, 1, 9);
    grid->addWidget(m_pAddBtn, 0, 0);
    grid->addWidget(m_pEditBtn, 1, 0);
    grid->addWidget(m_pDelBtn, 2, 0);
    return column;
}

void SignalHomeTestingWgt::InitLst()
{
    if (!m_pTable) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pTable->setObjectName(QStringLiteral("HomeTesting_TabWgt_Home_List"));
    m_pTable->setWordWrap(true);
    m_pTable->setColumnCount(ColumnCount);
    QtCommonTools::SetPaletteBrush(m_pTable, QPalette::Base, QBrush(QColor(240, 240, 240)));
    connect(m_pTable, SIGNAL(cellClicked(int, int)), this, SLOT(SetTestBtnVisible(int, int)));
    InitLstData();
}

void SignalHomeTestingWgt::InitLstData()
{
    if (!m_pTable) {
        AIRLUME_NULL_POINT();
        return;
    }
    if (m_iRowCount != 0) {
        m_pTable->clearContents();
        m_pTable->setRowCount(0);
        m_iRowCount = 0;
        m_iPreviousRow = -1;
    }
    const QMap<QString, HomeTest_Value> &rooms = *QtCommonTools::GetHomeTestingIni();
    for (auto it = rooms.cbegin(); it != rooms.cend(); ++it) {
        AddEmptyRowToTabwgt();
        m_pTable->item(m_iRowCount - 1, RoomColumn)
            ->setText(RoomText::CellText(it.key(), it.value()));
    }
}

void SignalHomeTestingWgt::AddEmptyRowToTabwgt()
{
    if (!m_pTable) {
        AIRLUME_NULL_POINT();
        return;
    }
    const int row = m_iRowCount;
    m_pTable->insertRow(row);
    m_pTable->setRowHeight(row, RowHeight);

    QTableWidgetItem *room = new QTableWidgetItem;
    room->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pTable->setItem(row, RoomColumn, room);
    QTableWidgetItem *test = new QTableWidgetItem;
    test->setTextAlignment(Qt::AlignVCenter);
    test->setData(Qt::AccessibleTextRole, QtCommonTools::tr(LanguageLabels::m_strHomeTest));
    m_pTable->setItem(row, TestColumn, test);

    HomeTestingBtnWgt *testBtn = new HomeTestingBtnWgt(m_pTable);
    connect(testBtn, SIGNAL(ClickedCurrentBtn()), this, SLOT(ClickedTestBtn()));
    m_pTable->setCellWidget(row, TestColumn, testBtn);
    m_iRowCount = row + 1;
}

HomeTestingBtnWgt *SignalHomeTestingWgt::TestBtnWgt(int row) const
{
    return qobject_cast<HomeTestingBtnWgt *>(m_pTable->cellWidget(row, TestColumn));
}

void SignalHomeTestingWgt::SetSignalValue(int rssi)
{
    m_iCurrentPercent = RoomText::PercentOf(rssi);
}

void SignalHomeTestingWgt::SetSignalSpeedValue(int speed)
{
    m_iCurrentSpeed = speed;
}

void SignalHomeTestingWgt::onNetworkReturned(QString name)
{
    m_bIsConnected = name != LanguageLabels::m_strEmpty;
}

void SignalHomeTestingWgt::SetTestBtnVisible(int row, int)
{
    m_iCurrentRow = row;
    if (row == m_iPreviousRow)
        return;
    if (!m_pTable || !m_pDelBtn || !m_pEditBtn) {
        AIRLUME_NULL_POINT();
        return;
    }
    HomeTestingBtnWgt *current = TestBtnWgt(row);
    if (!current) {
        AIRLUME_NULL_POINT();
        return;
    }
    current->SetCurrentBtnVisible(true);
    m_pDelBtn->setEnabled(true);
    m_pEditBtn->setEnabled(true);
    if (m_iPreviousRow != -1) {
        HomeTestingBtnWgt *previous = TestBtnWgt(m_iPreviousRow);
        if (previous)
            previous->SetCurrentBtnVisible(false);
        else
            AIRLUME_NULL_POINT();
    }
    m_iPreviousRow = row;
}

void SignalHomeTestingWgt::ClickedTestBtn()
{
    if (!m_bIsConnected) {
        QMessageBox::about(this, QStringLiteral("notice"), QStringLiteral("No Network Connected!"));
        return;
    }
    QTableWidgetItem *item = m_pTable ? m_pTable->item(m_iCurrentRow, RoomColumn) : nullptr;
    if (!item) {
        AIRLUME_NULL_POINT();
        return;
    }
    const QString room = RoomText::RoomOf(item->text());
    const HomeTest_Value old = (*QtCommonTools::GetHomeTestingIni())[room];
    const HomeTest_Value value{m_iCurrentPercent, m_iCurrentSpeed, old.nowPercent, old.nowSpeed};
    item->setText(RoomText::CellText(room, value));
    QtCommonTools::UpdateHomeValueToINI(room, value);
}

void SignalHomeTestingWgt::AddHome()
{
    if (m_iRowCount > MostRoomsBeforeAdding) {
        QMessageBox::about(this, QStringLiteral("notice"), QStringLiteral("The room is too much!"));
        return;
    }
    if (!m_pAddDlg) {
        AIRLUME_NULL_POINT();
        return;
    }
    QString noName;
    m_pAddDlg->SetText(noName);
    m_pAddDlg->SetCurrentFocus();
    m_pAddDlg->exec();
}

void SignalHomeTestingWgt::AddHomeName(QString name)
{
    const HomeTest_Value noResult;
    QtCommonTools::AddHomeTestToINI(name, noResult);
    if (!m_pTable) {
        AIRLUME_NULL_POINT();
        return;
    }
    AddEmptyRowToTabwgt();
    m_pTable->item(m_iRowCount - 1, RoomColumn)->setText(RoomText::CellText(name, noResult));
    m_pTable->scrollToBottom();
}

void SignalHomeTestingWgt::EditHome()
{
    QTableWidgetItem *item = m_pTable ? m_pTable->item(m_iCurrentRow, RoomColumn) : nullptr;
    if (!item || !m_pEditDlg) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_strEditedName = RoomText::RoomOf(item->text());
    m_pEditDlg->SetText(m_strEditedName);
    m_pEditDlg->SetCurrentFocus();
    m_pEditDlg->exec();
}

void SignalHomeTestingWgt::UpdateHomeName(QString name)
{
    QTableWidgetItem *item = m_pTable ? m_pTable->item(m_iCurrentRow, RoomColumn) : nullptr;
    if (!item) {
        AIRLUME_NULL_POINT();
        return;
    }
    QtCommonTools::UpdateHomeNameToINI(m_strEditedName, name);
    const HomeTest_Value value = (*QtCommonTools::GetHomeTestingIni())[name];
    item->setText(RoomText::CellText(name, value));
}

void SignalHomeTestingWgt::DelHome()
{
    if (!m_pDelDlg) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pDelDlg->SetCurrentFocus();
    m_pDelDlg->exec();
}

void SignalHomeTestingWgt::DelHomeName()
{
    QTableWidgetItem *item = m_pTable ? m_pTable->item(m_iCurrentRow, RoomColumn) : nullptr;
    if (!item || !m_pDelBtn || !m_pEditBtn) {
        AIRLUME_NULL_POINT();
        return;
    }
    QtCommonTools::DelHomeValueFromINI(RoomText::RoomOf(item->text()));
    m_pTable->removeRow(m_iCurrentRow);
    m_iCurrentRow = m_iCurrentRow - 1;
    m_iPreviousRow = -1;
    m_iRowCount = m_iRowCount - 1;
    // The table would select the neighbour, which has no button. The keys go on from there.
    m_pTable->clearSelection();
    m_pTable->setCurrentCell(qMax(0, m_iCurrentRow), RoomColumn, QItemSelectionModel::NoUpdate);
    m_pDelBtn->setEnabled(false);
    m_pEditBtn->setEnabled(false);
    // The button that had it can take no more keys.
    m_pTable->setFocus();
}

void SignalHomeTestingWgt::ClickedTab()
{
    if (m_bIsMax)
        ResMaxWindow();
    else
        ResRestoreWindow();
}

void SignalHomeTestingWgt::ResMaxWindow()
{
    m_bIsMax = true;
    if (!m_pTableWgt) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_iImageSide = m_pTableWgt->height() - 10;
    FitPicture();
}

void SignalHomeTestingWgt::ResRestoreWindow()
{
    m_bIsMax = false;
    if (!m_pTableWgt) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_iImageSide = m_pTableWgt->height() - 1;
    FitPicture();
}

void SignalHomeTestingWgt::FitPicture()
{
    if (!m_pPictureLabel) {
        AIRLUME_NULL_POINT();
        return;
    }
    const int side = qMax(0, m_iImageSide);
    m_pPictureLabel->setFixedSize(side, side);
    if (side == 0 || m_picture.isNull())
        return;
    const QSize pixels = QSize(side, side) * m_picture.devicePixelRatio();
    const QPixmap scaled = m_picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    QtCommonTools::SetPaletteBrush(
        m_pPictureLabel, m_pPictureLabel->backgroundRole(), QBrush(scaled));
}

QSize SignalHomeTestingWgt::minimumSizeHint() const
{
    if (!m_pTableWgt || !m_pBtnWgt || !layout())
        return QWidget::minimumSizeHint();
    const QSize table = m_pTableWgt->minimumSizeHint();
    const QSize buttons = m_pBtnWgt->minimumSizeHint();
    const QMargins margins = layout()->contentsMargins();
    const int spacing = qMax(0, layout()->spacing());
    return QSize(table.width() + m_iBtnColumnWidth + 2 * spacing + margins.left() + margins.right(),
        qMax(table.height(), buttons.height()) + margins.top() + margins.bottom());
}

void SignalHomeTestingWgt::ChangeLanguage()
{
    if (!m_pAddBtn || !m_pEditBtn || !m_pDelBtn || !m_pAddDlg || !m_pEditDlg || !m_pDelDlg ||
        !m_pTable) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pAddBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomAddRoom));
    m_pEditBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomeEditRoom));
    m_pDelBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomeDelRoom));
    m_pAddDlg->ChangeLanguage();
    m_pEditDlg->ChangeLanguage();
    m_pDelDlg->ChangeLanguage();
    for (int row = 0; row < m_pTable->rowCount(); ++row) {
        m_pTable->item(row, TestColumn)
            ->setData(Qt::AccessibleTextRole, QtCommonTools::tr(LanguageLabels::m_strHomeTest));
        HomeTestingBtnWgt *testBtn = TestBtnWgt(row);
        if (testBtn)
            testBtn->ChangeLanguage();
        else
            AIRLUME_NULL_POINT();
    }
}

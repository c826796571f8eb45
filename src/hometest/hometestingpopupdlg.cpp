#include "hometest/hometestingpopupdlg.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "common/fittingfont.h"
#include "hometest/onelinevalidator.h"
#include "i18n/languagelabels.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <limits>

namespace
{
const int MinimumDialogWidth = 260;
const int TitlePointSize = 14;
const int NameEditHeight = 20;
const int NameEditMinimumWidth = 200;
const int ButtonHeight = 24;
const qreal CornerRadius = 5;

// Only translated texts may pass: the result is rich text.
QString redForm(const QString &text)
{
    return LanguageLabels::m_strColorRed.arg(text);
}
} // namespace

HomeTestingPopupDlg::HomeTestingPopupDlg(const QString &titleKey, QWidget *parent)
    : QDialog(parent)
    , m_strTitleKey(titleKey)
    , m_strErrorKey(LanguageLabels::m_strEmpty)
{
    Init();
}

void HomeTestingPopupDlg::Init()
{
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    QtCommonTools::SetPaletteBrush(this, QPalette::Window, QBrush(QColor(216, 216, 216)));
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);

    QVBoxLayout *rows = new QVBoxLayout(this);
    m_pTitleLabel = new QLabel(QtCommonTools::tr(m_strTitleKey), this);
    m_pTitleLabel->setTextFormat(Qt::PlainText);
    setAccessibleName(m_pTitleLabel->text());
    QtCommonTools::SetFontSize(m_pTitleLabel, TitlePointSize);
    // A minimum width of the dialog itself would keep it from growing with a long error.
    const QMargins margins = rows->contentsMargins();
    m_pTitleLabel->setMinimumWidth(MinimumDialogWidth - margins.left() - margins.right());
    m_pTitleLabel->setAlignment(Qt::AlignCenter);
    QHBoxLayout *titleRow = new QHBoxLayout;
    titleRow->addWidget(m_pTitleLabel, 0, Qt::AlignHCenter);
    rows->addLayout(titleRow);

    m_pMessageLabel = new QLabel(this);
    m_pMessageLabel->setTextFormat(Qt::RichText);
    QHBoxLayout *messageRow = new QHBoxLayout;
    messageRow->addWidget(m_pMessageLabel, 0, Qt::AlignCenter);
    rows->addLayout(messageRow);

    if (IsDeleteMode())
        m_pMessageLabel->hide();
    else
        InitNameRow(rows);

    m_pOkBtn = new QPushButton(QtCommonTools::tr(LanguageLabels::m_strHomeDlgOk), this);
    m_pOkBtn->setObjectName(QStringLiteral("HomeTestingPopup_btn_Ok"));
    m_pOkBtn->setFixedHeight(ButtonHeight);
    m_pCancelBtn = new QPushButton(QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel), this);
    m_pCancelBtn->setObjectName(QStringLiteral("HomeTestingPopup_btn_Cancel"));
    m_pCancelBtn->setFixedHeight(ButtonHeight);
    QHBoxLayout *buttonRow = new QHBoxLayout;
    buttonRow->addWidget(m_pOkBtn);
    buttonRow->addWidget(m_pCancelBtn);
    rows->addLayout(buttonRow);

    connect(m_pOkBtn, SIGNAL(clicked()), this, SLOT(ClickedOK()));
    connect(m_pCancelBtn, SIGNAL(clicked()), this, SLOT(ClickedCancel()));
}

void HomeTestingPopupDlg::InitNameRow(QVBoxLayout *rows)
{
    m_pNameLabel = new QLabel(QtCommonTools::tr(LanguageLabels::m_strHomeDlgRoomName), this);
    m_pNameLabel->setTextFormat(Qt::PlainText);
    m_pNameEdit = new QLineEdit(this);
    m_pNameEdit->setAccessibleName(m_pNameLabel->text());
    m_pNameEdit->setFixedHeight(NameEditHeight);
    FitNameFont();
    m_pNameEdit->setMinimumWidth(NameEditMinimumWidth);
    // A name may be of any length; the default would cut it at 32767 characters.
    m_pNameEdit->setMaxLength(std::numeric_limits<int>::max());
    m_pNameEdit->setValidator(new OneLineValidator(m_pNameEdit));
    m_pNameEdit->setFocus();
    rows->addStretch(1);
    QHBoxLayout *nameRow = new QHBoxLayout;
    nameRow->addWidget(m_pNameLabel);
    nameRow->addWidget(m_pNameEdit);
    rows->addLayout(nameRow);
}

void HomeTestingPopupDlg::FitNameFont()
{
    // Between the lines of the frame.
    m_pNameEdit->setFont(FittingFont(QApplication::font(m_pNameEdit), NameEditHeight - 2));
}

bool HomeTestingPopupDlg::IsDeleteMode() const
{
    return m_strTitleKey == LanguageLabels::m_strHomeDelRoom;
}

void HomeTestingPopupDlg::SetText(QString &text)
{
    // Deliberate: the question stands for itself, any text given to it is dropped.
    if (IsDeleteMode())
        return;
    if (!m_pNameEdit) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pNameEdit->setText(text);
}

void HomeTestingPopupDlg::SetCurrentFocus()
{
    QWidget *target = m_pNameEdit;
    if (IsDeleteMode())
        target = m_pCancelBtn;
    if (!target) {
        AIRLUME_NULL_POINT();
        return;
    }
    target->setFocus(Qt::OtherFocusReason);
}

void HomeTestingPopupDlg::ChangeLanguage()
{
    if (!m_pTitleLabel || !m_pMessageLabel || !m_pOkBtn || !m_pCancelBtn) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pTitleLabel->setText(QtCommonTools::tr(m_strTitleKey));
    setAccessibleName(m_pTitleLabel->text());
    if (m_pMessageLabel->text() != LanguageLabels::m_strEmpty)
        m_pMessageLabel->setText(redForm(QtCommonTools::tr(m_strErrorKey)));
    if (!IsDeleteMode()) {
        if (m_pNameLabel && m_pNameEdit) {
            m_pNameLabel->setText(QtCommonTools::tr(LanguageLabels::m_strHomeDlgRoomName));
            m_pNameEdit->setAccessibleName(m_pNameLabel->text());
        } else {
            AIRLUME_NULL_POINT();
        }
    }
    m_pOkBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomeDlgOk));
    m_pCancelBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel));
}

void HomeTestingPopupDlg::reject()
{
    ClickedCancel();
}

void HomeTestingPopupDlg::ClickedOK()
{
    if (IsDeleteMode()) {
        emit SendDelConfirm();
        CloseWithoutError();
        return;
    }
    if (!m_pNameEdit) {
        AIRLUME_NULL_POINT();
        return;
    }
    const QString name = m_pNameEdit->text().trimmed();
    if (name.isEmpty()) {
        ShowError(LanguageLabels::m_strHomeDlgRoomNameIsNull);
    } else if (QtCommonTools::HomeNameIsExisting(name)) {
        ShowError(LanguageLabels::m_strHomeDlgRoomNameIsRepeat);
    } else {
        emit SendHomeName(name);
        CloseWithoutError();
    }
}

void HomeTestingPopupDlg::ClickedCancel()
{
    CloseWithoutError();
}

void HomeTestingPopupDlg::ShowError(const QString &key)
{
    m_strErrorKey = key;
    if (!m_pMessageLabel) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pMessageLabel->setText(redForm(QtCommonTools::tr(key)));
    // Read out at once: the focus is there.
    if (m_pNameEdit)
        m_pNameEdit->setAccessibleDescription(QtCommonTools::tr(key));
}

void HomeTestingPopupDlg::CloseWithoutError()
{
    if (m_pMessageLabel)
        m_pMessageLabel->setText(LanguageLabels::m_strEmpty);
    else
        AIRLUME_NULL_POINT();
    if (m_pNameEdit)
        m_pNameEdit->setAccessibleDescription(LanguageLabels::m_strEmpty);
    hide();
}

void HomeTestingPopupDlg::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_pNameEdit)
        FitNameFont();
}

void HomeTestingPopupDlg::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawRoundedRect(0, 0, width() - 1, height() - 1, CornerRadius, CornerRadius);
}

#include "hometest/hometestingbtnwgt.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "i18n/languagelabels.h"

#include <QHBoxLayout>
#include <QPushButton>

HomeTestingBtnWgt::HomeTestingBtnWgt(QWidget *parent)
    : QWidget(parent)
    , m_pLayout(new QHBoxLayout(this))
    , m_pTestBtn(new QPushButton(this))
{
    Init();
}

void HomeTestingBtnWgt::Init()
{
    if (!m_pTestBtn || !m_pLayout) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pTestBtn->setObjectName(QStringLiteral("HomeTesting_btn_Test"));
    m_pTestBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomeTest));
    m_pTestBtn->setAutoDefault(true);
    m_pTestBtn->setToolTip(
        QStringLiteral("Values are up to 20 s old: stand still that long before pressing."));
    m_pTestBtn->hide();
    connect(m_pTestBtn, SIGNAL(clicked()), this, SIGNAL(ClickedCurrentBtn()));
    m_pLayout->addWidget(m_pTestBtn, 0, Qt::AlignRight | Qt::AlignVCenter);
    setLayout(m_pLayout);
}

void HomeTestingBtnWgt::SetCurrentBtnVisible(bool visible)
{
    if (!m_pTestBtn) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pTestBtn->setVisible(visible);
}

void HomeTestingBtnWgt::ChangeLanguage()
{
    if (!m_pTestBtn) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pTestBtn->setText(QtCommonTools::tr(LanguageLabels::m_strHomeTest));
}

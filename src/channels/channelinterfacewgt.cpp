#include "channels/channelinterfacewgt.h"

#include "channels/channelslabel.h"
#include "channels/headwidget.h"
#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "i18n/languagelabels.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace
{
const int NoChannel = -1;
const int FullBar = 10;
const QSize BarSize(120, 20);
const QSize SummarySize(480, 160);
const int ListRowHeight = 30;
const int SeparatorHeight = 2;
// Puts the header row into the middle of the sheet's band.
const int ListTopMargin = (HeadWidget::BandHeight - ListRowHeight) / 2;

enum ListColumn { ChannelColumn, BarColumn, CountColumn, ClarityColumn, ListColumnCount };

void setUpBar(QProgressBar *bar)
{
    bar->setFixedSize(BarSize);
    bar->setRange(0, FullBar);
    bar->setTextVisible(false);
}

QLabel *plainLabel(const QString &text, QWidget *parent)
{
    QLabel *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QString clarityKey(ChannelCensus::Clarity clarity)
{
    switch (clarity) {
    case ChannelCensus::Clarity::Best:
        return LanguageLabels::m_strLangStrengthBest;
    case ChannelCensus::Clarity::Great:
        return LanguageLabels::m_strLangStrengthGreat;
    case ChannelCensus::Clarity::Average:
        return LanguageLabels::m_strLangStrengthAverage;
    case ChannelCensus::Clarity::Poor:
        break;
    }
    return LanguageLabels::m_strLangStrengthPoor;
}
} // namespace

ChannelInterfaceWgt::ChannelInterfaceWgt(QWidget *parent)
    : QWidget(parent)
    , m_pChannelCaption(new QLabel)
    , m_pChannelLabel(new QLabel)
    , m_pCountCaption(new QLabel)
    , m_pCountBar(new QProgressBar)
    , m_pCountLabel(new QLabel)
    , m_pClarityLabel(new QLabel)
    , m_pRecommendedCaption(new QLabel)
    , m_pRecommendedLabel(new ChannelsLabel)
    , m_pSummaryLayout(new QGridLayout)
    , m_pSummaryBox(new QWidget(this))
    , m_pSummaryColumn(new QVBoxLayout)
    , m_pListArea(new QScrollArea)
    , m_pListLayout(new QHBoxLayout)
    , m_pListHolder(new QWidget(this))
    , m_pPanelLayout(new QHBoxLayout)
{
    Init();
}

void ChannelInterfaceWgt::Init()
{
    if (!m_pChannelCaption || !m_pChannelLabel || !m_pCountCaption || !m_pCountBar ||
        !m_pCountLabel || !m_pClarityLabel || !m_pRecommendedCaption || !m_pRecommendedLabel ||
        !m_pSummaryLayout || !m_pSummaryBox || !m_pSummaryColumn || !m_pListArea ||
        !m_pListLayout || !m_pListHolder || !m_pPanelLayout) {
        AIRLUME_NULL_POINT();
        return;
    }
    ChangeLanguage();
    for (QLabel *label : {m_pChannelCaption.data(), m_pChannelLabel.data(), m_pCountCaption.data(),
             m_pCountLabel.data(), m_pClarityLabel.data(), m_pRecommendedCaption.data()})
        label->setTextFormat(Qt::PlainText);
    setUpBar(m_pCountBar);

    // Leaves the recommended channels two lines, and the numbers at the captions.
    m_pSummaryLayout->setContentsMargins(9, 2, 9, 2);
    m_pSummaryLayout->setVerticalSpacing(4);
    m_pSummaryLayout->setHorizontalSpacing(10);
    m_pSummaryLayout->setColumnStretch(2, 1);
    m_pSummaryLayout->addWidget(m_pChannelCaption, 0, 0, 1, 1, Qt::AlignLeft);
    m_pSummaryLayout->addWidget(m_pChannelLabel, 0, 1, 1, 3, Qt::AlignLeft);
    m_pSummaryLayout->addWidget(m_pCountCaption, 1, 0, 1, 3, Qt::AlignLeft);
    m_pSummaryLayout->addWidget(m_pCountBar, 2, 0, 1, 1, Qt::AlignHCenter);
    m_pSummaryLayout->addWidget(m_pCountLabel, 2, 1, 1, 1, Qt::AlignLeft);
    m_pSummaryLayout->addWidget(m_pClarityLabel, 2, 2, 1, 1, Qt::AlignLeft);
    m_pSummaryLayout->addWidget(m_pRecommendedCaption, 3, 0, 1, 3, Qt::AlignLeft);
    m_pSummaryLayout->addWidget(m_pRecommendedLabel, 4, 0, 1, 3, Qt::AlignHCenter);
    m_pSummaryBox->setLayout(m_pSummaryLayout);
    m_pSummaryBox->setFixedSize(SummarySize);
    m_pSummaryColumn->addWidget(m_pSummaryBox, 0, Qt::AlignVCenter);

    QtCommonTools::SetPaletteColor(m_pListArea, QPalette::Window, QColor(QStringLiteral("white")));
    m_pListArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pListArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_pListArea->installEventFilter(this);
    m_pListLayout->setContentsMargins(0, 3, 0, 0);
    m_pListLayout->addWidget(m_pListArea);
    m_pListHolder->setLayout(m_pListLayout);

    m_pPanelLayout->setContentsMargins(0, 0, 0, 0);
    m_pPanelLayout->addLayout(m_pSummaryColumn);
    m_pPanelLayout->addWidget(m_pListHolder);
    setLayout(m_pPanelLayout);
    QtCommonTools::SetFontSize(this, 11);
}

void ChannelInterfaceWgt::GetClarityFormNetworkConnCount(int count, QString &clarity)
{
    clarity = QtCommonTools::tr(clarityKey(ChannelCensus::Rate(count)));
}

void ChannelInterfaceWgt::onNetworkReturned(QString name)
{
    m_bHasLeft = false;
    m_strNetworkName = name;
    if (m_strNetworkName == LanguageLabels::m_strEmpty) {
        m_iCurrentChannel = NoChannel;
        SetCurrentNetworkChannel(
            NoChannel, NoChannel, LanguageLabels::m_strEmpty, LanguageLabels::m_strEmpty);
    }
}

void ChannelInterfaceWgt::NetworkLeft()
{
    onNetworkReturned(LanguageLabels::m_strEmpty);
    m_bHasLeft = true;
}

void ChannelInterfaceWgt::slotDataReturned(QVector<WifiProperty> networks)
{
    // Shared by every panel of the process. The vector that is evaluated counts as the first of
    // the next five.
    static int iCount = -1;
    if (iCount != 5 && iCount != -1) {
        ++iCount;
        return;
    }
    iCount = 1;

    m_census.Clear();
    for (const WifiProperty &network : qAsConst(networks)) {
        const int channel = m_census.Add(network.channel);
        if (!m_bHasLeft && network.ssid == m_strNetworkName)
            m_iCurrentChannel = channel;
    }

    m_lstChannel.clear();
    int currentCount = 0;
    QString currentClarity;
    const QMap<int, int> &counts = m_census.Counts();
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        _Channel_Property property;
        property.channel = it.key();
        property.networkCount = it.value();
        GetClarityFormNetworkConnCount(property.networkCount, property.clarity);
        if (property.channel == m_iCurrentChannel) {
            currentCount = property.networkCount;
            currentClarity = property.clarity;
        }
        m_lstChannel.append(property);
    }
    SetCurrentNetworkChannel(
        m_iCurrentChannel, currentCount, currentClarity, m_census.Recommended());
    CreateChannelLst();
}

void ChannelInterfaceWgt::SetCurrentNetworkChannel(
    int channel, int count, const QString &clarity, const QString &recommended)
{
    if (!m_pChannelLabel || !m_pCountBar || !m_pCountLabel || !m_pClarityLabel ||
        !m_pRecommendedLabel) {
        AIRLUME_NULL_POINT_DEBUG();
        return;
    }
    if (channel == NoChannel) {
        m_pChannelLabel->setText(LanguageLabels::m_strEmpty);
        m_pCountBar->setValue(0);
        m_pCountLabel->setText(LanguageLabels::m_strEmpty);
        m_pClarityLabel->setText(LanguageLabels::m_strEmpty);
        m_pRecommendedLabel->setText(LanguageLabels::m_strEmpty);
        m_pRecommendedLabel->setToolTip(LanguageLabels::m_strEmpty);
        return;
    }
    m_pChannelLabel->setText(QString::number(channel));
    m_pCountBar->setValue(qMin(count, FullBar));
    m_pCountLabel->setText(QString::number(count));
    m_pClarityLabel->setText(clarity);
    QtCommonTools::SetClarityColor(m_pClarityLabel, clarity);
    m_pRecommendedLabel->setText(recommended);
    m_pRecommendedLabel->setToolTip(recommended);
    QtCommonTools::SetPaletteColor(m_pRecommendedLabel, QPalette::WindowText, QColor(60, 179, 113));
}

void ChannelInterfaceWgt::CreateChannelLst()
{
    if (!m_pListArea) {
        AIRLUME_NULL_POINT();
        return;
    }
    HeadWidget *sheet = new HeadWidget;
    QtCommonTools::SetFontSize(sheet, 12);
    QGridLayout *grid = new QGridLayout(sheet);
    grid->setContentsMargins(0, ListTopMargin, 0, 0);
    const int stretches[ListColumnCount] = {2, 2, 1, 2};
    for (int column = 0; column < ListColumnCount; ++column)
        grid->setColumnStretch(column, stretches[column]);
    AddListHead(grid, sheet);
    for (const _Channel_Property &property : qAsConst(m_lstChannel))
        AddChannelRow(grid, sheet, property);

    const int scrolledTo = m_pListArea->verticalScrollBar()->value();
    m_pListArea->setWidget(sheet);
    FitListWidth();
    m_pListArea->verticalScrollBar()->setValue(scrolledTo);
}

void ChannelInterfaceWgt::AddListHead(QGridLayout *grid, QWidget *sheet)
{
    struct Head {
        QString key;
        int column;
        int columnSpan;
    };
    // The networks are shown twice, as a bar and as a number.
    const Head heads[] = {
        {LanguageLabels::m_strLstHeadChannel, ChannelColumn, 1},
        {LanguageLabels::m_strLstHeadNetworkConnCount, BarColumn, 2},
        {LanguageLabels::m_strLstHeadClarity, ClarityColumn, 1},
    };
    grid->setRowMinimumHeight(0, ListRowHeight);
    for (const Head &head : heads) {
        QLabel *label = plainLabel(QtCommonTools::tr(head.key), sheet);
        QtCommonTools::SetPaletteColor(
            label, QPalette::WindowText, QColor(QStringLiteral("white")));
        grid->addWidget(label, 0, head.column, 1, head.columnSpan, Qt::AlignCenter);
    }
}

void ChannelInterfaceWgt::AddChannelRow(
    QGridLayout *grid, QWidget *sheet, const _Channel_Property &property)
{
    const int row = grid->rowCount();
    grid->setRowMinimumHeight(row, ListRowHeight);

    QLabel *channel = plainLabel(QString::number(property.channel), sheet);
    grid->addWidget(channel, row, ChannelColumn, Qt::AlignCenter);

    QProgressBar *bar = new QProgressBar(sheet);
    setUpBar(bar);
    bar->setValue(qMin(property.networkCount, FullBar));
    bar->setAccessibleName(QtCommonTools::tr(LanguageLabels::m_strLstHeadNetworkConnCount));
    grid->addWidget(bar, row, BarColumn, Qt::AlignCenter);

    QLabel *count = plainLabel(QString::number(property.networkCount), sheet);
    QtCommonTools::SetPaletteColor(count, QPalette::WindowText, QColor(128, 100, 162));
    grid->addWidget(count, row, CountColumn, Qt::AlignLeft | Qt::AlignVCenter);

    QLabel *clarity = plainLabel(property.clarity, sheet);
    QtCommonTools::SetClarityColor(clarity, property.clarity);
    grid->addWidget(clarity, row, ClarityColumn, Qt::AlignCenter);

    QLabel *separator = new QLabel(sheet);
    separator->setFixedHeight(SeparatorHeight);
    separator->setAutoFillBackground(true);
    QtCommonTools::SetPaletteColor(separator, QPalette::Window, QColor(229, 229, 251));
    grid->addWidget(separator, row + 1, 0, 1, ListColumnCount);
}

void ChannelInterfaceWgt::ChangeLanguage()
{
    if (!m_pChannelCaption || !m_pCountCaption || !m_pRecommendedCaption) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pChannelCaption->setText(QtCommonTools::tr(LanguageLabels::m_strLangCurrentChannel));
    m_pCountCaption->setText(QtCommonTools::tr(LanguageLabels::m_strLangChannelConn));
    m_pRecommendedCaption->setText(QtCommonTools::tr(LanguageLabels::m_strLangRecommendedTags));
    if (m_pCountBar)
        m_pCountBar->setAccessibleName(m_pCountCaption->text());
    if (m_pListArea)
        m_pListArea->setAccessibleName(QtCommonTools::tr(LanguageLabels::m_strLstHeadChannel));
}

void ChannelInterfaceWgt::slotUpdateWindowSize()
{
    CreateChannelLst();
}

bool ChannelInterfaceWgt::eventFilter(QObject *watched, QEvent *event)
{
    // The list is built for a width; a tab that opens later has another one.
    if (watched == m_pListArea && event->type() == QEvent::Resize)
        FitListWidth();
    return QWidget::eventFilter(watched, event);
}

void ChannelInterfaceWgt::FitListWidth()
{
    QWidget *sheet = m_pListArea->widget();
    if (!sheet)
        return;
    sheet->setMinimumWidth(m_pListArea->width());
    // The columns stay clear of the frame and the scroll bar, under which the sheet's edge lies.
    QMargins margins = sheet->layout()->contentsMargins();
    const QSize hint = sheet->sizeHint();
    const bool scrolls = hint.height() > m_pListArea->maximumViewportSize().height();
    margins.setRight(2 * m_pListArea->frameWidth() +
                     (scrolls ? m_pListArea->verticalScrollBar()->sizeHint().width() : 0));
    sheet->layout()->setContentsMargins(margins);
    sheet->adjustSize();
}

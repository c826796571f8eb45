// The main window's widgets and their places.

#include "app/airlume.h"

#include "app/elidedlabel.h"
#include "channels/channelinterfacewgt.h"
#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "common/fittingfont.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "hometest/signalhometestingwgt.h"
#include "i18n/languagelabels.h"
#include "netlist/signaltreeview.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedLayout>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace
{
const int TitleHeight = 44;
const int StatusHeight = 21;
/// Of a tab's text, as in the style sheet.
const int TabTextHeight = 23;

QFrame *makeFrame(const char *objectName, QFrame::Shape shape)
{
    QFrame *frame = new QFrame;
    frame->setObjectName(QLatin1String(objectName));
    frame->setFrameShape(shape);
    frame->setFrameShadow(QFrame::Raised);
    return frame;
}

template <typename Layout> Layout *named(Layout *layout, const char *objectName)
{
    layout->setObjectName(QLatin1String(objectName));
    return layout;
}

/// For the graphs, which the window's style sheet would colour otherwise.
const QString GraphStyle = QStringLiteral("color: rgb(0, 0, 0);");
} // namespace

/// False when a view that the window cannot do without could not be made.
bool Airlume::buildLayout()
{
    QGridLayout *grid = named(new QGridLayout(this), "gridLayout");
    grid->setSpacing(6);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(buildTitleBar(), 0, 0);

    QVBoxLayout *column = named(new QVBoxLayout, "verticalLayout_3");
    column->setContentsMargins(10, 0, 10, 0);
    grid->addLayout(column, 1, 0);
    if (!buildListArea(column) || !buildTabs(column))
        return false;

    grid->addWidget(buildStatusBar(), 2, 0);
    return true;
}

QFrame *Airlume::buildTitleBar()
{
    m_pTitleFrame = makeFrame("title", QFrame::NoFrame);
    m_pTitleFrame->setFixedHeight(TitleHeight);
    QHBoxLayout *row = named(new QHBoxLayout(m_pTitleFrame), "horizontalLayout1");
    row->setSpacing(6);
    row->setContentsMargins(0, 0, 0, 0);

    m_pLogo = new QLabel;
    m_pLogo->setObjectName(QStringLiteral("logo"));
    m_pLogo->setAccessibleName(QStringLiteral("Airlume"));
    m_pLogo->setMinimumHeight(TitleHeight);
    // The style sheet draws the picture.
    row->addWidget(m_pLogo);
    row->addItem(new QSpacerItem(840, 17, QSizePolicy::Expanding, QSizePolicy::Minimum));

    QVBoxLayout *buttonColumn = named(new QVBoxLayout, "verticalLayout");
    // The last button stands clear of the window's edge.
    buttonColumn->setContentsMargins(0, 0, row->spacing(), 0);
    m_pButtonFrame = makeFrame("buttonframe", QFrame::NoFrame);
    m_pButtonFrame->setMaximumSize(46, 50);
    QHBoxLayout *buttons = named(new QHBoxLayout(m_pButtonFrame), "horizontalLayout2");
    buttons->setContentsMargins(0, 0, 0, 0);

    m_pMinimizeBtn = makeCaptionButton("minimize", "Minimize");
    m_pMaximizeBtn = makeCaptionButton("maximize", "Maximize");
    m_pRestoreBtn = makeCaptionButton("restore", "Restore");
    m_pCloseBtn = makeCaptionButton("close1", "Close");
    buttons->addWidget(m_pMinimizeBtn);
    m_pSizeButtons = new QStackedLayout;
    // Before its pages: it shows the first one, which without a parent would be a window.
    buttons->addLayout(m_pSizeButtons);
    m_pSizeButtons->addWidget(m_pMaximizeBtn);
    m_pSizeButtons->addWidget(m_pRestoreBtn);
    buttons->addWidget(m_pCloseBtn);
    // Wider than the frame's maximum, and stronger: the three buttons stand side by side, whole.
    m_pButtonFrame->setMinimumWidth(buttons->minimumSize().width());

    // As high as its buttons: a stacked layout puts its page at the top of what it gets.
    buttonColumn->addWidget(m_pButtonFrame, 0, Qt::AlignVCenter);
    row->addLayout(buttonColumn);
    return m_pTitleFrame;
}

QPushButton *Airlume::makeCaptionButton(const char *objectName, const char *accessibleName)
{
    QPushButton *button = new QPushButton;
    button->setObjectName(QLatin1String(objectName));
    button->setAccessibleName(QLatin1String(accessibleName));
    // Flat, since the style sheet makes other push buttons at least 65 px wide.
    button->setFlat(true);
    button->setFixedSize(20, 20);
    // A click leaves the focus where it was; the keyboard still reaches the button.
    button->setFocusPolicy(Qt::TabFocus);
    // For Return, which otherwise presses the buttons of dialogs only.
    button->setAutoDefault(true);
    return button;
}

bool Airlume::buildListArea(QBoxLayout *column)
{
    m_pTreeFrame = makeFrame("treeframe", QFrame::NoFrame);
    column->addWidget(m_pTreeFrame);
    QHBoxLayout *row = named(new QHBoxLayout(m_pTreeFrame), "horizontalLayout3");
    row->setSpacing(0);
    row->setContentsMargins(0, 6, 0, 0);

    m_pTreeView = new SignalTreeView;
    m_pTreeView->setObjectName(QStringLiteral("treeView"));
    m_pTreeView->setAccessibleName(QStringLiteral("Networks"));
    m_pTreeView->setMinimumSize(100, 100);
    row->addWidget(m_pTreeView);

    m_pDialFrame = makeFrame("dialframe", QFrame::NoFrame);
    row->addWidget(m_pDialFrame);
    QVBoxLayout *gaugeColumn = named(new QVBoxLayout(m_pDialFrame), "verticalLayout_2");
    gaugeColumn->setSpacing(15);
    m_pDashboard = SignalStrengthDashboard::Instance(m_pDialFrame);
    if (!m_pDashboard) {
        AIRLUME_NULL_POINT();
        return false;
    }
    m_pDashboard->setObjectName(QStringLiteral("Dial"));
    m_pDashboard->setFixedSize(320, 260);
    gaugeColumn->addWidget(m_pDashboard, 0, Qt::AlignTop);

    QHBoxLayout *labelRow = named(new QHBoxLayout, "horizontalLayout_4");
    m_pConnectedLabel = new ElidedLabel;
    m_pConnectedLabel->setObjectName(QStringLiteral("label_connectedto"));
    m_pConnectedLabel->setMinimumHeight(20);
    m_pConnectedLabel->setAlignment(Qt::AlignCenter);
    // Right below the gauge, however high the window.
    labelRow->addWidget(m_pConnectedLabel, 0, Qt::AlignTop);
    gaugeColumn->addLayout(labelRow, 1);
    return true;
}

bool Airlume::buildTabs(QBoxLayout *column)
{
    QHBoxLayout *row = named(new QHBoxLayout, "horizontalLayout5");
    column->addLayout(row);
    m_pTabWidget = new QTabWidget;
    m_pTabWidget->setObjectName(QStringLiteral("tabWidget"));
    m_pTabWidget->setAccessibleName(QStringLiteral("Views"));
    m_pTabWidget->setMinimumHeight(200);
    row->addWidget(m_pTabWidget);

    m_pTab1 = new QWidget;
    m_pTab1->setObjectName(QStringLiteral("tab1"));
    m_pTimePlot = new SignalTimePlot(m_pTab1);
    m_pTimePlot->setObjectName(QStringLiteral("qwtPlot"));
    m_pTimePlot->setAccessibleName(QStringLiteral("Signal over time"));
    m_pTimePlot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_pTimePlot->setStyleSheet(GraphStyle);
    (new QHBoxLayout(m_pTab1))->addWidget(m_pTimePlot);
    m_pTabWidget->addTab(m_pTab1, QtCommonTools::tr(LanguageLabels::m_strLangSignalGraph));

    m_pTab2 = new QWidget;
    m_pTab2->setObjectName(QStringLiteral("tab2"));
    m_p2GPlot = new Signal2GPlot(m_pTab2);
    m_p2GPlot->setAccessibleName(QStringLiteral("Channels at 2.4 GHz"));
    m_p2GPlot->setStyleSheet(GraphStyle);
    m_p5GPlot = new Signal5GPlot(m_pTab2);
    m_p5GPlot->setAccessibleName(QStringLiteral("Channels at 5 GHz"));
    m_p5GPlot->setStyleSheet(GraphStyle);
    QHBoxLayout *channelRow = new QHBoxLayout(m_pTab2);
    channelRow->addWidget(m_p2GPlot);
    channelRow->addWidget(m_p5GPlot);
    m_pTabWidget->addTab(m_pTab2, QtCommonTools::tr(LanguageLabels::m_strLangChannelGraph));

    m_pChannelInterface = new ChannelInterfaceWgt;
    m_pTabWidget->addTab(
        m_pChannelInterface, QtCommonTools::tr(LanguageLabels::m_strLangChannelInterface));

    m_pHomeTesting = SignalHomeTestingWgt::Instance(nullptr);
    if (!m_pHomeTesting) {
        AIRLUME_NULL_POINT();
        return false;
    }
    m_pTabWidget->addTab(m_pHomeTesting, QtCommonTools::tr(LanguageLabels::m_strHomeTestTitle));
    nameTabs();
    return true;
}

/// Each tab has the name that its title shows.
void Airlume::nameTabs()
{
    for (int tab = 0; tab < m_pTabWidget->count(); ++tab)
        m_pTabWidget->widget(tab)->setAccessibleName(m_pTabWidget->tabText(tab));
}

QFrame *Airlume::buildStatusBar()
{
    m_pBottomFrame = makeFrame("bottom", QFrame::StyledPanel);
    m_pBottomFrame->setFixedHeight(StatusHeight);
    QHBoxLayout *row = named(new QHBoxLayout(m_pBottomFrame), "horizontalLayout6");
    row->setSpacing(6);
    row->setContentsMargins(0, 0, 0, 0);

    m_pStatusLabel = new QLabel(QStringLiteral("Scanning..."));
    m_pStatusLabel->setObjectName(QStringLiteral("statuslabel"));
    m_pVersionLabel = new QLabel(QStringLiteral("Version 1.0"));
    m_pVersionLabel->setObjectName(QStringLiteral("versionlabel"));
    row->addWidget(m_pStatusLabel);
    row->addWidget(m_pVersionLabel);
    row->addItem(new QSpacerItem(20, 12, QSizePolicy::Fixed, QSizePolicy::Minimum));
    return m_pBottomFrame;
}

/// Makes the desktop's font fit into the bars, whose heights are fixed.
void Airlume::fitFonts()
{
    for (QLabel *label : {m_pStatusLabel, m_pVersionLabel})
        label->setFont(FittingFont(QApplication::font(label), StatusHeight));
    QTabBar *bar = m_pTabWidget->tabBar();
    QFont font = QApplication::font(bar);
    // As high as the selected tab's.
    font.setBold(true);
    font = FittingFont(font, TabTextHeight);
    font.setBold(false);
    bar->setFont(font);
}

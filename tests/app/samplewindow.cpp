#include "samplewindow.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTreeView>
#include <QVBoxLayout>
#include <qwt_plot.h>

SampleWindow::SampleWindow(const QString &styleSheet)
{
    setObjectName(QStringLiteral("Airlume"));
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    addTitle();
    addList();
    addTabs();
    addBottom();
    grid->setRowStretch(1, 1);
    setStyleSheet(styleSheet);
    resize(1100, 700);
}

void SampleWindow::addTitle()
{
    title = new QFrame(this);
    title->setObjectName(QStringLiteral("title"));
    title->setFixedHeight(44);
    auto *layout = new QHBoxLayout(title);
    layout->setContentsMargins(0, 0, 0, 0);
    logo = new QLabel(title);
    logo->setObjectName(QStringLiteral("logo"));
    logo->setMinimumHeight(44);
    layout->addWidget(logo);
    layout->addStretch();
    minimize = addCaptionButton(layout, QStringLiteral("minimize"));
    maximize = addCaptionButton(layout, QStringLiteral("maximize"));
    restore = addCaptionButton(layout, QStringLiteral("restore"));
    close1 = addCaptionButton(layout, QStringLiteral("close1"));
    qobject_cast<QGridLayout *>(this->layout())->addWidget(title, 0, 0);
}

QPushButton *SampleWindow::addCaptionButton(QHBoxLayout *layout, const QString &name)
{
    auto *button = new QPushButton(title);
    button->setObjectName(name);
    button->setFlat(true);
    button->setFixedSize(20, 20);
    layout->addWidget(button);
    return button;
}

void SampleWindow::addList()
{
    auto *frame = new QFrame(this);
    auto *layout = new QHBoxLayout(frame);
    layout->setContentsMargins(10, 6, 10, 0);
    list = new QTreeView(frame);
    list->setObjectName(QStringLiteral("treeView"));
    list->setIndentation(0);
    auto *model = new QStandardItemModel(list);
    model->setHorizontalHeaderLabels({QString(), QStringLiteral("SSID"), QStringLiteral("Signal"),
        QStringLiteral("Channel"), QStringLiteral("Security")});
    for (int row = 0; row < 16; ++row) {
        QList<QStandardItem *> cells{new QStandardItem};
        for (const QString &text : {QStringLiteral("Network %1").arg(row),
                 QString::number(-40 - row), QString::number(row + 1), QStringLiteral("WPA2")}) {
            cells.append(new QStandardItem(text));
        }
        model->appendRow(cells);
    }
    list->setModel(model);
    list->setColumnWidth(0, 20);
    list->header()->setFixedHeight(22);
    list->header()->setStyleSheet(QStringLiteral("font-size: 12px"));
    checkAll = new QCheckBox(list->header());
    checkAll->setObjectName(QStringLiteral("SignalTreeView_pCheckAll"));
    checkAll->move(2, 3);
    layout->addWidget(list);

    auto *column = new QVBoxLayout;
    dial = new QWidget(frame);
    dial->setObjectName(QStringLiteral("Dial"));
    dial->setFixedSize(320, 260);
    connectedTo = new QLabel(QStringLiteral("Connected to Network 3"), frame);
    connectedTo->setObjectName(QStringLiteral("label_connectedto"));
    connectedTo->setAlignment(Qt::AlignCenter);
    connectedTo->setMinimumHeight(20);
    column->addWidget(dial);
    column->addWidget(connectedTo);
    layout->addLayout(column);
    qobject_cast<QGridLayout *>(this->layout())->addWidget(frame, 1, 0);
}

void SampleWindow::addTabs()
{
    tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("tabWidget"));
    tabs->setMinimumHeight(200);

    auto *page = new QWidget(tabs);
    auto *layout = new QHBoxLayout(page);
    plotFrame = new QWidget(page);
    plotFrame->setObjectName(QStringLiteral("plotframe"));
    plotFrame->setFixedWidth(60);
    plot = new QwtPlot(page);
    plot->setStyleSheet(QStringLiteral("color: rgb(0, 0, 0);"));
    layout->addWidget(plotFrame);
    layout->addWidget(plot);
    rooms = new QTableWidget(2, 2, page);
    rooms->setStyleSheet(QStringLiteral("QTableView{selection-background-color: rgb(130, 127, 146);"
                                        "background-image: url(:/images/HomeTestLstBK.png);}"));
    rooms->setItem(0, 0, new QTableWidgetItem(QStringLiteral("Kitchen")));
    rooms->setItem(1, 0, new QTableWidgetItem(QStringLiteral("Study")));
    layout->addWidget(rooms);
    auto *column = new QVBoxLayout;
    progress = new QProgressBar(page);
    progress->setFixedSize(120, 20);
    progress->setRange(0, 10);
    progress->setValue(5);
    progress->setTextVisible(false);
    enabled = new QPushButton(QStringLiteral("Add Room"), page);
    disabled = new QPushButton(QStringLiteral("Edit Room"), page);
    disabled->setEnabled(false);
    column->addWidget(progress);
    column->addWidget(enabled);
    column->addWidget(disabled);
    edit = new QLineEdit(page);
    column->addWidget(edit);
    column->addStretch();
    layout->addLayout(column);

    tabs->addTab(page, QStringLiteral("Signal Graph"));
    tabs->addTab(new QWidget, QStringLiteral("Channel Graph"));
    tabs->addTab(new QWidget, QStringLiteral("Channel Interference"));
    tabs->addTab(new QWidget, QStringLiteral("Home Testing"));
    qobject_cast<QGridLayout *>(this->layout())->addWidget(tabs, 2, 0);
}

void SampleWindow::addBottom()
{
    bottom = new QFrame(this);
    bottom->setObjectName(QStringLiteral("bottom"));
    bottom->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Raised));
    bottom->setFixedHeight(21);
    auto *layout = new QHBoxLayout(bottom);
    layout->setContentsMargins(0, 0, 0, 0);
    status = new QLabel(QStringLiteral("Scanning..."), bottom);
    status->setObjectName(QStringLiteral("statuslabel"));
    version = new QLabel(QStringLiteral("Version 1.0"), bottom);
    version->setObjectName(QStringLiteral("versionlabel"));
    layout->addWidget(status);
    layout->addWidget(version);
    layout->addSpacing(20);
    qobject_cast<QGridLayout *>(this->layout())->addWidget(bottom, 3, 0);
}

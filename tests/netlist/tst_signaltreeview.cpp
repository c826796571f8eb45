#include "common/QtCommonTools.h"
#include "i18n/languagelabels.h"
#include "netlist/signaltreeview.h"
#include "support/paintrecord.h"
#include "support/testair.h"
#include "support/tooltip.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QPainter>
#include <QSortFilterProxyModel>
#include <QtTest>

using TestAir::network;
using TestAir::networks;

class TestSignalTreeView : public QObject
{
    Q_OBJECT

public:
    /// A locale whose order of letters is not that of their codes.
    static void initMain() { qputenv("LC_ALL", "en_US.UTF-8"); }

private slots:
    void typingFindsNamesWhateverTheColumn_data();
    void typingFindsNamesWhateverTheColumn();
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void init();
    void cleanup() { m_view.reset(); }
    void isSetUpAsAFlatSortedList();
    void hasACheckBoxInTheHeader();
    void sortsSignalsAndChannelsAsNumbers();
    void sortsNamesInLocaleOrder();
    void oneClickOnACheckBoxToggles();
    void aDoubleClickOnACheckBoxChangesNothing();
    void clicksBesideTheCheckBoxOrWithAnotherButtonChangeNothing();
    void spaceTogglesTheCurrentRow();
    void spaceTogglesARowWhoseNameWasClicked();
    void spaceWithoutACurrentRowDoesNothing();
    void headerCheckBoxTicksAndUnticksAllRows();
    void cancelAllUnticksTickedRowsOnly();
    void startEmptiesTheListAndKeepsTheColumns();
    void stopFreezesTicking();
    void changesTheLanguageOfItsHeaders();
    void staysResponsiveWithHostileNames();
    void selectionSurvivesAScan();
    void tellsExactlyTheCutOffTextsWhole();
    void toolTipsShowHostileNamesHarmlessly();

private:
    QRect checkBox(int row) const;
    QStringList column(int column) const;
    QString toolTip(const QModelIndex &index) const;
    QString drawn(const QModelIndex &index) const;

    QScopedPointer<SignalTreeView> m_view;
};

void TestSignalTreeView::init()
{
    QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang;
    m_view.reset(new SignalTreeView);
    m_view->resize(700, 500);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.data()));
}

QRect TestSignalTreeView::checkBox(int row) const
{
    QStyleOptionViewItem option;
    option.rect = m_view->visualRect(m_view->model()->index(row, 0));
    return static_cast<CheckBoxItemDelegate *>(m_view->itemDelegateForColumn(0))
        ->CheckBoxRect(option);
}

QStringList TestSignalTreeView::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < m_view->model()->rowCount(); ++row)
        texts.append(m_view->model()->index(row, column).data().toString());
    return texts;
}

void TestSignalTreeView::isSetUpAsAFlatSortedList()
{
    QCOMPARE(m_view->font().pointSize(), 11);
    QVERIFY(m_view->isSortingEnabled());
    QCOMPARE(m_view->header()->sortIndicatorSection(), 1);
    QCOMPARE(m_view->header()->sortIndicatorOrder(), Qt::AscendingOrder);
    QVERIFY(!m_view->header()->isSortIndicatorShown());
    QVERIFY(m_view->header()->stretchLastSection());
    QVERIFY(!m_view->header()->sectionsMovable());
    QCOMPARE(m_view->header()->sectionResizeMode(0), QHeaderView::Fixed);
    QCOMPARE(m_view->header()->styleSheet(), QStringLiteral("font-size: 12px"));
    QCOMPARE(m_view->header()->height(), 22);
    QCOMPARE(m_view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(m_view->columnWidth(0), 20);
    QCOMPARE(m_view->columnWidth(1), 200);
    QCOMPARE(m_view->indentation(), 0);
    QVERIFY(qobject_cast<CheckBoxItemDelegate *>(m_view->itemDelegateForColumn(0)));
    QVERIFY(qobject_cast<NetMonitorItemDelegate *>(m_view->itemDelegate()));
}

void TestSignalTreeView::hasACheckBoxInTheHeader()
{
    QCheckBox *box = m_view->header()->findChild<QCheckBox *>();
    QVERIFY(box);
    QCOMPARE(box->objectName(), QStringLiteral("SignalTreeView_pCheckAll"));
    QCOMPARE(box->pos(), QPoint(2, 3));
    QVERIFY(!box->isTristate());
    QCOMPARE(box->checkState(), Qt::Unchecked);
    QVERIFY(box->isVisible());
    QVERIFY(!box->accessibleName().isEmpty());
    QVERIFY(QRect(0, 0, 20, 22).contains(box->geometry()));
}

void TestSignalTreeView::sortsSignalsAndChannelsAsNumbers()
{
    m_view->onDataReturned({network(QStringLiteral("a"), -40, 11),
        network(QStringLiteral("b"), -90, 2), network(QStringLiteral("c"), -9, 100)});
    m_view->sortByColumn(SignalMode::SignalColumn, Qt::AscendingOrder);
    QCOMPARE(column(SignalMode::SignalColumn),
        QStringList({QStringLiteral("-90"), QStringLiteral("-40"), QStringLiteral("-9")}));
    m_view->sortByColumn(SignalMode::ChannelColumn, Qt::DescendingOrder);
    QCOMPARE(column(SignalMode::ChannelColumn),
        QStringList({QStringLiteral("100"), QStringLiteral("11"), QStringLiteral("2")}));
}

void TestSignalTreeView::sortsNamesInLocaleOrder()
{
    m_view->onDataReturned(
        {network(QStringLiteral("b")), network(QStringLiteral("a")), network(QStringLiteral("c"))});
    QCOMPARE(column(SignalMode::SsidColumn),
        QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    // Newcomers find their place: capitals among the small letters, not before them.
    m_view->onDataReturned({network(QStringLiteral("aa")), network(QStringLiteral("B"))});
    QCOMPARE(column(SignalMode::SsidColumn),
        QStringList({QStringLiteral("a"), QStringLiteral("aa"), QStringLiteral("b"),
            QStringLiteral("B"), QStringLiteral("c")}));
}

void TestSignalTreeView::oneClickOnACheckBoxToggles()
{
    m_view->onDataReturned(networks(3));
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, checkBox(1).center());
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown.first(), QVariantList({1, QStringLiteral("Network 001"), false}));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, checkBox(1).center());
    QCOMPARE(shown.last(), QVariantList({1, QStringLiteral("Network 001"), true}));
}

void TestSignalTreeView::aDoubleClickOnACheckBoxChangesNothing()
{
    m_view->onDataReturned(networks(3));
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    const QPoint centre = checkBox(1).center();
    const auto send = [&](QEvent::Type type) {
        QMouseEvent event(type, centre, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_view->viewport(), &event);
    };
    // As the mouse sends it: two releases, which take each other back, and nothing between them.
    send(QEvent::MouseButtonPress);
    send(QEvent::MouseButtonRelease);
    QCOMPARE(shown.size(), 1);
    send(QEvent::MouseButtonDblClick);
    QCOMPARE(shown.size(), 1);
    send(QEvent::MouseButtonRelease);
    QCOMPARE(shown, QList<QVariantList>({{1, QStringLiteral("Network 001"), false},
                        {1, QStringLiteral("Network 001"), true}}));
    QVERIFY(m_view->model()->index(1, 0).data().toBool());
}

void TestSignalTreeView::clicksBesideTheCheckBoxOrWithAnotherButtonChangeNothing()
{
    m_view->onDataReturned(networks(3));
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    const QRect box = checkBox(0);
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {}, box.topLeft() - QPoint(2, 0));
    QTest::mouseClick(m_view->viewport(), Qt::RightButton, {}, box.center());
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
        m_view->visualRect(m_view->model()->index(0, 1)).center());
    QCOMPARE(shown.size(), 0);
}

void TestSignalTreeView::spaceTogglesTheCurrentRow()
{
    m_view->onDataReturned(networks(3));
    m_view->setCurrentIndex(m_view->model()->index(2, 0));
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    QTest::keyClick(m_view.data(), Qt::Key_Space);
    QCOMPARE(shown, QList<QVariantList>({{2, QStringLiteral("Network 002"), false}}));
    // A key of remote controls, which QTest cannot type.
    QKeyEvent select(QEvent::KeyPress, Qt::Key_Select, Qt::NoModifier);
    QCoreApplication::sendEvent(m_view.data(), &select);
    QCOMPARE(shown.size(), 2);
    QTest::keyClick(m_view.data(), Qt::Key_Return);
    QTest::keyClick(m_view.data(), Qt::Key_X);
    QCOMPARE(shown.size(), 2);
}

void TestSignalTreeView::spaceTogglesARowWhoseNameWasClicked()
{
    m_view->onDataReturned(networks(3));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
        m_view->visualRect(m_view->model()->index(1, SignalMode::SsidColumn)).center());
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    QTest::keyClick(m_view.data(), Qt::Key_Space);
    QCOMPARE(shown, QList<QVariantList>({{1, QStringLiteral("Network 001"), false}}));
    QVERIFY(m_view->selectionModel()->isRowSelected(1, QModelIndex()));
}

void TestSignalTreeView::spaceWithoutACurrentRowDoesNothing()
{
    m_view->onDataReturned(networks(3));
    m_view->setCurrentIndex(QModelIndex());
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    QTest::keyClick(m_view.data(), Qt::Key_Space);
    QCOMPARE(shown.size(), 0);
}

void TestSignalTreeView::headerCheckBoxTicksAndUnticksAllRows()
{
    m_view->onDataReturned(networks(3));
    QCheckBox *box = m_view->header()->findChild<QCheckBox *>();
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    // All rows of the first fill are ticked already.
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(box->checkState(), Qt::Checked);
    QCOMPARE(shown.size(), 0);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(shown,
        QList<QVariantList>({{0, QStringLiteral("Network 000"), false},
            {1, QStringLiteral("Network 001"), false}, {2, QStringLiteral("Network 002"), false}}));
    shown.clear();
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(shown.size(), 3);
    QCOMPARE(shown.first(), QVariantList({0, QStringLiteral("Network 000"), true}));
}

void TestSignalTreeView::cancelAllUnticksTickedRowsOnly()
{
    m_view->onDataReturned(networks(2));
    m_view->onDataReturned(networks(3));
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    m_view->CancelAll();
    QCOMPARE(shown.size(), 2);
    m_view->CancelAll();
    QCOMPARE(shown.size(), 2);
}

void TestSignalTreeView::startEmptiesTheListAndKeepsTheColumns()
{
    m_view->onDataReturned(networks(3));
    QSignalSpy started(m_view.data(), &SignalTreeView::startScan);
    m_view->onStartScan();
    QCOMPARE(started.size(), 1);
    QCOMPARE(m_view->model()->rowCount(), 0);
    QCOMPARE(m_view->columnWidth(0), 20);
    QCOMPARE(m_view->columnWidth(1), 200);
    QCOMPARE(m_view->indentation(), 0);
}

void TestSignalTreeView::stopFreezesTicking()
{
    m_view->onDataReturned(networks(3));
    emit m_view->stopScan();
    QSignalSpy shown(m_view.data(), &SignalTreeView::showCurve);
    m_view->CancelAll();
    QCOMPARE(shown.size(), 0);
}

void TestSignalTreeView::changesTheLanguageOfItsHeaders()
{
    QtCommonTools::GetLangNm() = QStringLiteral("fra");
    m_view->ChangeLanguage();
    QCOMPARE(m_view->model()->headerData(3, Qt::Horizontal).toString(),
        QtCommonTools::tr(LanguageLabels::m_strLangHeadChannel));
    QCOMPARE(m_view->model()->headerData(3, Qt::Horizontal).toString(), QStringLiteral("Canal"));
}

void TestSignalTreeView::staysResponsiveWithHostileNames()
{
    QVector<WifiProperty> scan;
    const QStringList names{QString(1000000, QLatin1Char('W')), QStringLiteral("a\nb\nc\td"),
        QStringLiteral("\u202egnp.exe"), QStringLiteral("<table><tr><td>x"), QString(),
        QString::fromUtf8("\xf0\x9f\x93\xb6"), QString(QChar(0xd800))};
    for (const QString &name : names)
        scan.append(network(name));
    m_view->onDataReturned(scan);
    QVERIFY(!m_view->grab().isNull());
    // A name with line feeds does not make its row higher.
    for (int row = 1; row < m_view->model()->rowCount(); ++row) {
        QCOMPARE(m_view->visualRect(m_view->model()->index(row, 1)).height(),
            m_view->visualRect(m_view->model()->index(0, 1)).height());
    }
}

void TestSignalTreeView::selectionSurvivesAScan()
{
    m_view->onDataReturned(networks(5));
    m_view->setCurrentIndex(m_view->model()->index(3, 1));
    QVector<WifiProperty> scan = networks(6);
    scan[3].rssi = -1;
    m_view->onDataReturned(scan);
    QCOMPARE(m_view->currentIndex().data().toString(), QStringLiteral("Network 003"));
}

/// What the mouse is told when it rests over the cell.
QString TestSignalTreeView::toolTip(const QModelIndex &index) const
{
    return ToolTipAt(m_view->viewport(), m_view->visualRect(index).center());
}

/// The text that is drawn into the cell.
QString TestSignalTreeView::drawn(const QModelIndex &index) const
{
    QStyleOptionViewItem option;
    option.initFrom(m_view.data());
    option.widget = m_view.data();
    option.font = m_view->font();
    option.rect = m_view->visualRect(index);
    option.textElideMode = m_view->textElideMode();
    option.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    PaintRecord record(m_view->viewport()->size());
    QPainter painter(&record);
    m_view->itemDelegate(index)->paint(&painter, option, index);
    painter.end();
    QString text;
    for (const PaintStep &step : record.texts())
        text += step.text;
    return text;
}

void TestSignalTreeView::tellsExactlyTheCutOffTextsWhole()
{
    const QString name = QStringLiteral("The network of the old house");
    m_view->onDataReturned({network(name), network(QStringLiteral("A"))});
    const QModelIndex cell = m_view->model()->index(1, SignalMode::SsidColumn);
    for (bool bold : {false, true}) {
        int told = 0;
        int whole = 0;
        for (int width = 150; width < 300; ++width) {
            m_view->setColumnWidth(SignalMode::SsidColumn, width);
            const bool isCutOff = drawn(cell).contains(QChar(0x2026));
            QCOMPARE(drawn(cell) == name, !isCutOff);
            QCOMPARE(toolTip(cell), isCutOff ? name : QString());
            ++(isCutOff ? told : whole);
        }
        QVERIFY2(told > 10 && whole > 10, qPrintable(QStringLiteral("%1 %2").arg(told).arg(whole)));
        if (!bold)
            m_view->onNetworkReturned(name);
    }
    // Neither of a short one nor of the tick.
    QCOMPARE(toolTip(m_view->model()->index(0, SignalMode::SsidColumn)), QString());
    QCOMPARE(toolTip(m_view->model()->index(1, SignalMode::TickColumn)), QString());
    m_view->setColumnWidth(SignalMode::SecurityColumn, 30);
    QCOMPARE(
        toolTip(m_view->model()->index(1, SignalMode::SecurityColumn)), QStringLiteral("WPA2-PSK"));
}

void TestSignalTreeView::toolTipsShowHostileNamesHarmlessly()
{
    const QString markup = QStringLiteral("<img src='/dev/zero'><b>really</b> a net of </div>");
    const QString turned = QString(50, QLatin1Char('W')) + QStringLiteral("\u202egnp.exe\n\x1b");
    const QString huge(1000000, QLatin1Char('Z'));
    m_view->onDataReturned({network(markup), network(turned), network(huge)});
    QCOMPARE(toolTip(m_view->model()->index(0, SignalMode::SsidColumn)), markup);
    const QString told = toolTip(m_view->model()->index(1, SignalMode::SsidColumn));
    QVERIFY(!told.contains(QChar(0x202e)) && !told.contains(QChar(0x1b)));
    QVERIFY(told.contains(QStringLiteral(u"gnp.exe\u240a\u241b")));
    QVERIFY(toolTip(m_view->model()->index(2, SignalMode::SsidColumn)).size() < 300);
}

void TestSignalTreeView::typingFindsNamesWhateverTheColumn_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("found");
    QTest::newRow("from the ticks") << 0 << 0 << "c" << 2;
    QTest::newRow("from the signals") << 0 << 2 << "b" << 1;
    QTest::newRow("what the ticks say is no name") << 1 << 0 << "a" << 0;
    QTest::newRow("nothing chosen yet") << -1 << -1 << "a" << 0;
    QTest::newRow("nothing chosen yet, the last") << -1 << -1 << "c" << 2;
    QTest::newRow("nothing chosen yet, nobody") << -1 << -1 << "x" << -1;
}

void TestSignalTreeView::typingFindsNamesWhateverTheColumn()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(int, found);
    m_view->onDataReturned({network(QStringLiteral("Attic")), network(QStringLiteral("Barn")),
        network(QStringLiteral("Cellar"))});
    m_view->setCurrentIndex(m_view->model()->index(row, column));
    QTest::keyClicks(m_view.data(), typed);
    QCOMPARE(m_view->currentIndex().row(), found);
}

QTEST_MAIN(TestSignalTreeView)
#include "tst_signaltreeview.moc"

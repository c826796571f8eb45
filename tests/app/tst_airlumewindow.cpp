#include "app/builtwindow.h"

#include "channels/channelinterfacewgt.h"
#include "common/QtCommonTools.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "i18n/languagelabels.h"
#include "netlist/signaltreeview.h"
#include "scan/signalscanthread.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QtTest>
#include <qwt_plot.h>

#include <algorithm>

namespace
{
const QSize NormalMaximum(800, 700);

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int paints = 0;
};

QStringList titles(const QTabWidget *tabs)
{
    QStringList found;
    for (int tab = 0; tab < tabs->count(); ++tab)
        found.append(tabs->tabText(tab));
    return found;
}

const QStringList EnglishTitles = {QStringLiteral("Signal Graph"), QStringLiteral("Channel Graph"),
    QStringLiteral("Channel Interference"), QStringLiteral("Home Testing")};
} // namespace

/// What the window does by itself.
class TestAirlumeWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void namesTheJoinedNetwork_data();
    void namesTheJoinedNetwork();
    void keepsTheNameInItsLanguageUntilTheNextReport();
    void newLanguageReachesEveryView();
    void setsNoTitlesWhenTabsAreMissing();
    void showsTheStatus();
    void maximisesAndRestores();
    void restoresTheExactGeometry_data();
    void restoresTheExactGeometry();
    void tellsTheViewsOfItsSizeInOrder();
    void minimises();
    void emptiesWhatTheGraphsHaveStored();

private:
    QString headerText(int column) const;
    bool panelSays(const QString &key) const;
    QLabel *label() const { return m_window->child<QLabel>("label_connectedto"); }

    QScopedPointer<BuiltWindow> m_window;
};

void TestAirlumeWindow::initTestCase()
{
    m_window.reset(new BuiltWindow);
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
    m_window->rest();
}

void TestAirlumeWindow::cleanup()
{
    m_window->speak("enu");
}

QString TestAirlumeWindow::headerText(int column) const
{
    return m_window->child<SignalTreeView>()
        ->model()
        ->headerData(column, Qt::Horizontal)
        .toString();
}

/// Whether the channel panel shows the text of `key` in the current language.
bool TestAirlumeWindow::panelSays(const QString &key) const
{
    const QList<QLabel *> labels = m_window->child<ChannelInterfaceWgt>()->findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(),
        [&key](const QLabel *label) { return label->text() == QtCommonTools::tr(key); });
}

void TestAirlumeWindow::namesTheJoinedNetwork_data()
{
    QTest::addColumn<QString>("ssid");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << QString() << QStringLiteral("Not Connected");
    QTest::newRow("empty, not null") << QStringLiteral("") << QStringLiteral("Not Connected");
    QTest::newRow("usual") << QStringLiteral("Home") << QStringLiteral("Connected to Home");
    QTest::newRow("blank") << QStringLiteral(" ") << QStringLiteral("Connected to  ");
    QTest::newRow("second of its name")
        << QStringLiteral("Mesh ") << QStringLiteral("Connected to Mesh ");
    QTest::newRow("markers") << QStringLiteral("%1 %2") << QStringLiteral("Connected to %1 %2");
    QTest::newRow("emoji") << QStringLiteral("\U0001F4F6")
                           << QStringLiteral("Connected to \U0001F4F6");
}

void TestAirlumeWindow::namesTheJoinedNetwork()
{
    QFETCH(QString, ssid);
    QFETCH(QString, text);
    m_window->get()->onNetworkReturned(ssid);
    QCOMPARE(label()->text(), text);
}

void TestAirlumeWindow::keepsTheNameInItsLanguageUntilTheNextReport()
{
    m_window->get()->onNetworkReturned(QStringLiteral("Home"));
    m_window->speak("deu");
    QCOMPARE(label()->text(), QStringLiteral("Connected to Home"));
    QCOMPARE(m_window->child<QTabWidget>()->tabText(0), QStringLiteral("Signalverlauf"));
    m_window->get()->onNetworkReturned(QStringLiteral("Home"));
    QVERIFY(label()->text() != QStringLiteral("Connected to Home"));
    QVERIFY(label()->text().endsWith(QStringLiteral(" Home")));

    m_window->get()->onNetworkReturned(QString());
    const QString german = label()->text();
    QVERIFY(german != QStringLiteral("Not Connected"));
    m_window->speak("enu");
    QCOMPARE(label()->text(), german);
    // The stored text it is that comes back, whatever stands on the label.
    label()->setText(QStringLiteral("something else"));
    m_window->speak("enu");
    QCOMPARE(label()->text(), german);
}

void TestAirlumeWindow::newLanguageReachesEveryView()
{
    const QTabWidget *tabs = m_window->child<QTabWidget>();
    QCOMPARE(titles(tabs), EnglishTitles);
    PaintCounter gauge;
    m_window->child<SignalStrengthDashboard>()->installEventFilter(&gauge);
    QCoreApplication::processEvents();
    gauge.paints = 0;

    m_window->speak("deu");
    const QStringList german = {QtCommonTools::tr(LanguageLabels::m_strLangSignalGraph),
        QtCommonTools::tr(LanguageLabels::m_strLangChannelGraph),
        QtCommonTools::tr(LanguageLabels::m_strLangChannelInterface),
        QtCommonTools::tr(LanguageLabels::m_strHomeTestTitle)};
    QVERIFY(german != EnglishTitles);
    QCOMPARE(titles(tabs), german);
    QCOMPARE(headerText(SignalMode::SecurityColumn), QStringLiteral("Sicherheit"));
    QCOMPARE(m_window->child<QPushButton>("HomeTesting_btn_Add")->text(),
        QtCommonTools::tr(LanguageLabels::m_strHomAddRoom));
    QVERIFY(panelSays(LanguageLabels::m_strLangCurrentChannel));
    QCoreApplication::processEvents();
    QVERIFY(gauge.paints > 0);
}

void TestAirlumeWindow::setsNoTitlesWhenTabsAreMissing()
{
    QTabWidget *tabs = m_window->child<QTabWidget>();
    QWidget *page = tabs->widget(3);
    const QString title = tabs->tabText(3);
    tabs->removeTab(3);
    const MessageLog log;
    m_window->speak("deu");
    const QStringList threeTitles = titles(tabs);
    const bool panelIsGerman = panelSays(LanguageLabels::m_strLangCurrentChannel);
    const QString add = m_window->child<QPushButton>("HomeTesting_btn_Add")->text();
    tabs->addTab(page, title);

    QCOMPARE(threeTitles, EnglishTitles.mid(0, 3));
    // All the rest is set all the same, and nothing is amiss.
    QCOMPARE(headerText(SignalMode::SecurityColumn), QStringLiteral("Sicherheit"));
    QVERIFY(panelIsGerman);
    QCOMPARE(add, QtCommonTools::tr(LanguageLabels::m_strHomAddRoom));
    QCOMPARE(log.criticals(), QStringList());

    m_window->speak("fra");
    QVERIFY(titles(tabs) != EnglishTitles);
}

void TestAirlumeWindow::showsTheStatus()
{
    const QLabel *status = m_window->child<QLabel>("statuslabel");
    m_window->get()->onStatusChange(QStringLiteral("Scanning..."));
    QCOMPARE(status->text(), QStringLiteral("Scanning..."));
    QCOMPARE(status->toolTip(), QString());
    // Where nothing is heard, who can tell why.
    m_window->get()->onStatusChange(QStringLiteral("Please make sure turn on the wireless radio."));
    QVERIFY2(status->toolTip().contains(QStringLiteral("airlume-plugincheck")),
        qPrintable(status->toolTip()));
    m_window->get()->onStatusChange(QStringLiteral("Scanning..."));
    QCOMPARE(status->toolTip(), QString());
    m_window->get()->onStatusChange(QString());
    QCOMPARE(status->text(), QString());
}

void TestAirlumeWindow::maximisesAndRestores()
{
    Airlume *window = m_window->get();
    QPushButton *maximize = m_window->child<QPushButton>("maximize");
    QPushButton *restore = m_window->child<QPushButton>("restore");
    const QRect before(37, 91, 1100, 700);
    window->setGeometry(before);
    QVERIFY(maximize->isVisible());

    MessageLog log;
    QTest::mouseClick(maximize, Qt::LeftButton);
    QCOMPARE(log.debugs(), QStringList({QStringLiteral("show max window")}));
    QCOMPARE(window->maximumSize(), QApplication::desktop()->size());
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QCOMPARE(window->pos(), available.topLeft());
    QCOMPARE(window->size(), available.size().expandedTo(window->minimumSize()));
    QVERIFY(window->geometry() != before);
    QVERIFY(restore->isVisible());
    QVERIFY(!maximize->isVisible());

    log.clear();
    QTest::mouseClick(restore, Qt::LeftButton);
    QCOMPARE(log.debugs(), QStringList({QStringLiteral("restore window")}));
    QCOMPARE(window->maximumSize(), NormalMaximum);
    QCOMPARE(window->geometry(), before);
    QVERIFY(maximize->isVisible());
    QVERIFY(!restore->isVisible());
    // It is the window itself that keeps its sizes: the window system sees no change of state.
    QCOMPARE(window->windowState(), Qt::WindowStates(Qt::WindowNoState));
}

void TestAirlumeWindow::restoresTheExactGeometry_data()
{
    QTest::addColumn<QRect>("geometry");
    QTest::newRow("in the corner") << QRect(0, 0, 1100, 700);
    QTest::newRow("somewhere") << QRect(37, 91, 1100, 700);
    QTest::newRow("beyond the edge") << QRect(-150, -50, 1100, 700);
    QTest::newRow("lower than it may be") << QRect(10, 20, 1100, 650);
}

void TestAirlumeWindow::restoresTheExactGeometry()
{
    QFETCH(QRect, geometry);
    const MessageLog log;
    Airlume *window = m_window->get();
    window->setGeometry(geometry);
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(window->geometry(), geometry);
        window->onBtnRestoreClicked();
        QCoreApplication::processEvents();
        QVERIFY(window->geometry() != geometry);
        window->onBtnRestoreClicked();
        QCoreApplication::processEvents();
    }
    QCOMPARE(window->geometry(), geometry);
    QCOMPARE(window->maximumSize(), NormalMaximum);
}

void TestAirlumeWindow::tellsTheViewsOfItsSizeInOrder()
{
    Airlume *window = m_window->get();
    QPushButton *restore = m_window->child<QPushButton>("restore");
    MessageLog log;
    QStringList told;
    const auto tell = [&](const char *signal) {
        // Whoever is told finds everything done.
        told.append(QStringLiteral("%1: %2, %3, %4")
                        .arg(QLatin1String(signal), log.debugs().last(),
                            restore->isVisible() ? QStringLiteral("can be restored")
                                                 : QStringLiteral("can be maximised"),
                            window->height() == 700 ? QStringLiteral("normal height")
                                                    : QStringLiteral("other height")));
    };
    window->resize(1100, 700);
    QObject listener;
    connect(window, &Airlume::MaxWindow, &listener, [&] { tell("MaxWindow"); });
    connect(window, &Airlume::RestoreWindow, &listener, [&] { tell("RestoreWindow"); });
    connect(window, &Airlume::signalUpdateWindowSize, &listener,
        [&] { tell("signalUpdateWindowSize"); });

    window->onBtnRestoreClicked();
    window->onBtnRestoreClicked();
    QCOMPARE(told,
        QStringList({QStringLiteral("MaxWindow: show max window, can be restored, other height"),
            QStringLiteral(
                "signalUpdateWindowSize: show max window, can be restored, other height"),
            QStringLiteral("RestoreWindow: restore window, can be maximised, normal height"),
            QStringLiteral(
                "signalUpdateWindowSize: restore window, can be maximised, normal height")}));
}

void TestAirlumeWindow::minimises()
{
    Airlume *window = m_window->get();
    const QRect before = window->geometry();
    QTest::mouseClick(m_window->child<QPushButton>("minimize"), Qt::LeftButton);
    QVERIFY(window->isMinimized());
    // A second copy does not bring it back.
    window->slotNewProcess();
    QCoreApplication::processEvents();
    QVERIFY(window->isMinimized());
    window->showNormal();
    QVERIFY(!window->isMinimized());
    QCOMPARE(window->geometry(), before);
}

void TestAirlumeWindow::emptiesWhatTheGraphsHaveStored()
{
    const MessageLog log;
    SignalTimePlot *time = m_window->child<SignalTimePlot>();
    QList<QwtPlot *> graphs = {
        time, m_window->child<Signal2GPlot>(), m_window->child<Signal5GPlot>()};
    const QVector<WifiProperty> networks = TestAir::networks(6);
    emit m_window->scanThread()->dataReturned(networks);
    for (const WifiProperty &network : networks)
        time->onShowCurve(0, network.ssid, true);
    for (QwtPlot *graph : qAsConst(graphs))
        QCOMPARE(graph->itemList(QwtPlotItem::Rtti_PlotCurve).size(), 6);
    m_window->get()->slotEmpty();
    for (QwtPlot *graph : qAsConst(graphs))
        QCOMPARE(graph->itemList(QwtPlotItem::Rtti_PlotCurve).size(), 0);
    // They start anew with the networks of the next scan.
    emit m_window->scanThread()->dataReturned(networks);
    QCOMPARE(graphs.at(1)->itemList(QwtPlotItem::Rtti_PlotCurve).size(), 6);
}

QTEST_MAIN(TestAirlumeWindow)
#include "tst_airlumewindow.moc"

#include "common/QtCommonTools.h"
#include "common/airtext.h"
#include "graphs/graphtest.h"
#include "graphs/signallegend.h"
#include "graphs/signallegendlabel.h"
#include "graphs/signaltimeplot.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagefileoperate.h"
#include "i18n/languagelabels.h"
#include "support/testair.h"

#include <QHelpEvent>
#include <QTabWidget>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <algorithm>
#include <memory>

namespace
{
/// What the tool tip that `label` shows looks like.
QString toolTipOf(SignalLegendLabel &label)
{
    QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), label.mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(&label, &help);
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
}

/// The languages, as the program has them.
class Languages
{
public:
    Languages()
        : m_host(QStringLiteral("no such server"))
    {
        m_table.Init();
        QtCommonTools::m_pLocalSocket = &m_host;
        QtCommonTools::m_pLangFileOperate = &m_table;
    }
    ~Languages()
    {
        speak(LanguageLabels::m_strDefaultLang);
        QtCommonTools::m_pLocalSocket = nullptr;
        QtCommonTools::m_pLangFileOperate = nullptr;
    }
    Q_DISABLE_COPY(Languages)

    void speak(const QString &code) const { QtCommonTools::GetLangNm() = code; }

private:
    IpcLocalSocket m_host;
    LanguageFileOperate m_table;
};

/// The time graph on the first of two tabs. Between the ticks of its timer, which would hide what
/// it has not done at once.
class Tabs
{
public:
    explicit Tabs(int networks)
        : m_air(TestAir::networks(networks))
        , m_plot(new SignalTimePlot)
        , m_tabs(std::make_unique<QTabWidget>())
    {
        m_tabs->addTab(m_plot, QStringLiteral("1"));
        m_tabs->addTab(new QWidget, QStringLiteral("2"));
        m_tabs->resize(800, 300);
        m_tabs->show();
        m_plot->onDataReturned(m_air);
        QCoreApplication::processEvents();
    }

    Q_DISABLE_COPY(Tabs)

    SignalTimePlot *plot() const { return m_plot; }
    WifiProperty network(int index) const { return m_air.at(index); }
    QString name(int index) const { return m_air.at(index).ssid; }

    void show(int tab) const
    {
        m_tabs->setCurrentIndex(tab);
        QCoreApplication::processEvents();
    }

    void tick(int index, bool on = true) const
    {
        m_plot->onShowCurve(index, name(index), on);
        QCoreApplication::processEvents();
    }

    /// Entries that can be seen, if need be after scrolling.
    int entriesInSight() const
    {
        const auto *legend = qobject_cast<const QwtLegend *>(m_plot->QwtPlot::legend());
        if (!legend->isVisible())
            return 0;
        const QList<SignalLegendLabel *> labels = legend->findChildren<SignalLegendLabel *>();
        return static_cast<int>(
            std::count_if(labels.cbegin(), labels.cend(), [legend](const SignalLegendLabel *label) {
                return label->isVisible() && label->height() >= label->sizeHint().height() &&
                       legend->contentsWidget()->rect().contains(label->geometry());
            }));
    }

    QString toolTip(const QString &name) const
    {
        const QList<SignalLegendLabel *> labels =
            m_plot->QwtPlot::legend()->findChildren<SignalLegendLabel *>();
        const auto label = std::find_if(labels.cbegin(), labels.cend(),
            [&name](const SignalLegendLabel *each) { return each->text().text() == name; });
        return label == labels.cend() ? QString() : toolTipOf(**label);
    }

private:
    QVector<WifiProperty> m_air;
    SignalTimePlot *m_plot;
    std::unique_ptr<QTabWidget> m_tabs;
};
} // namespace

class TestSignalLegend : public QObject
{
    Q_OBJECT

private slots:
    void labelsAreOneLineOfBoundedWidth_data();
    void labelsAreOneLineOfBoundedWidth();
    void ordinaryNameStaysWhole();
    void longNameLeavesTheGraphItsRoom();
    void clicksAreHanded();
    void legendIsThereWithItsFirstEntry();
    void legendComesThoughItsCurvesCameBehindAnotherTab();
    void entriesThatCameBehindAnotherTabAllHaveTheirRoom();
    void legendGoesThoughItsCurvesWentBehindAnotherTab();
    void toolTipTellsTheAccessPoint();
    void toolTipFollowsTheAccessPoint();
    void toolTipIsPlainAndBounded_data();
    void toolTipIsPlainAndBounded();
    void toolTipSpeaksTheLanguageOfTheMoment();
};

void TestSignalLegend::labelsAreOneLineOfBoundedWidth_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("10000 characters") << QString(10000, QLatin1Char('W'));
    QTest::newRow("words") << QStringLiteral("many words ").repeated(1000);
    QTest::newRow("lines") << QStringLiteral("line\n").repeated(100);
    QTest::newRow("Chinese") << QString::fromUtf8("网").repeated(32);
}

void TestSignalLegend::labelsAreOneLineOfBoundedWidth()
{
    QFETCH(QString, name);
    SignalLegendLabel ordinary;
    ordinary.setText(QStringLiteral("Home"));
    SignalLegendLabel label;
    label.setText(QwtText(name));
    QVERIFY(label.sizeHint().width() <= 40 * label.fontMetrics().averageCharWidth());
    QVERIFY(label.sizeHint().height() < 2 * ordinary.sizeHint().height());
    QVERIFY(GraphTest::isPlain(label.text()));
}

void TestSignalLegend::ordinaryNameStaysWhole()
{
    SignalLegendLabel label;
    label.setText(QStringLiteral("Home"));
    QCOMPARE(label.text().text(), QStringLiteral("Home"));
    QVERIFY(
        label.sizeHint().width() >= label.fontMetrics().horizontalAdvance(QStringLiteral("Home")));
}

void TestSignalLegend::longNameLeavesTheGraphItsRoom()
{
    const QString name(10000, QLatin1Char('W'));
    SignalTimePlot plot;
    plot.resize(1000, 300);
    plot.show();
    plot.onDataReturned({TestAir::network(name)});
    plot.onShowCurve(0, name, true);
    QCoreApplication::processEvents();
    QVERIFY2(plot.canvas()->width() > 500, qPrintable(QString::number(plot.canvas()->width())));
}

void TestSignalLegend::clicksAreHanded()
{
    QwtPlot plot;
    auto *legend = new SignalLegend;
    legend->setDefaultItemMode(QwtLegendData::Clickable);
    plot.insertLegend(legend);
    legend->updateLegend(QVariant(1), {QwtLegendData()});
    auto *label = legend->findChild<SignalLegendLabel *>();
    QVERIFY(label);
    QCOMPARE(label->itemMode(), QwtLegendData::Clickable);
    int clicks = 0;
    connect(legend, &QwtLegend::clicked, [&clicks] { ++clicks; });
    plot.resize(400, 300);
    plot.show();
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(clicks, 1);
}

void TestSignalLegend::legendIsThereWithItsFirstEntry()
{
    const Tabs tabs(3);
    tabs.tick(0);
    QCOMPARE(tabs.entriesInSight(), 1);
}

void TestSignalLegend::legendComesThoughItsCurvesCameBehindAnotherTab()
{
    const Tabs tabs(15);
    tabs.show(1);
    for (int i = 0; i < 15; ++i)
        tabs.tick(i);
    tabs.show(0);
    const QWidget *legend = tabs.plot()->QwtPlot::legend();
    QVERIFY(legend->isVisible());
    QVERIFY(!legend->geometry().intersects(tabs.plot()->canvas()->geometry()));
    QCOMPARE(tabs.entriesInSight(), 15);
}

void TestSignalLegend::entriesThatCameBehindAnotherTabAllHaveTheirRoom()
{
    const Tabs tabs(40);
    tabs.tick(0);
    tabs.show(1);
    for (int i = 1; i < 40; ++i)
        tabs.tick(i);
    tabs.show(0);
    QCOMPARE(tabs.entriesInSight(), 40);
}

void TestSignalLegend::legendGoesThoughItsCurvesWentBehindAnotherTab()
{
    const Tabs tabs(3);
    const QRect alone = tabs.plot()->canvas()->geometry();
    for (int i = 0; i < 3; ++i)
        tabs.tick(i);
    QVERIFY(tabs.plot()->canvas()->geometry() != alone);
    tabs.show(1);
    for (int i = 0; i < 3; ++i)
        tabs.tick(i, false);
    tabs.show(0);
    QVERIFY(!tabs.plot()->QwtPlot::legend()->isVisible());
    QCOMPARE(tabs.plot()->canvas()->geometry(), alone);
}

void TestSignalLegend::toolTipTellsTheAccessPoint()
{
    const Languages languages;
    const Tabs tabs(2);
    tabs.tick(1);
    QCOMPARE(tabs.toolTip(tabs.name(1)),
        QStringLiteral("%1\nBSSID: %2\nChannel: 6").arg(tabs.name(1), tabs.network(1).bssid));
}

void TestSignalLegend::toolTipFollowsTheAccessPoint()
{
    const Languages languages;
    const Tabs tabs(2);
    WifiProperty network = tabs.network(0);
    network.bssid = QStringLiteral("02:00:00:00:00:01");
    network.channel = 11;
    // Before it has an entry, while it has one, and in a new entry.
    tabs.plot()->onDataReturned({network});
    tabs.tick(0);
    QVERIFY(tabs.toolTip(network.ssid).endsWith(QLatin1String("01\nChannel: 11")));
    network.bssid = QStringLiteral("02:00:00:00:00:02");
    tabs.plot()->onDataReturned({network});
    QVERIFY(tabs.toolTip(network.ssid).endsWith(QLatin1String("02\nChannel: 11")));
    network.channel = 36;
    tabs.plot()->onDataReturned({network});
    QVERIFY(tabs.toolTip(network.ssid).endsWith(QLatin1String("02\nChannel: 36")));
    tabs.tick(0, false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    tabs.tick(0);
    QVERIFY(tabs.toolTip(network.ssid).endsWith(QLatin1String("02\nChannel: 36")));
}

void TestSignalLegend::toolTipIsPlainAndBounded_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("bssid");
    QTest::addColumn<QString>("begin");
    QTest::newRow("markup") << "<b>Home</b> & co"
                            << "<hr>"
                            << "<b>Home</b> & co\nBSSID: <hr>\n";
    QTest::newRow("control characters")
        << "two\nlines\x01"
        << "\t" << QString::fromUtf8("two\u240alines\u2401\nBSSID: \u2409\n");
    QTest::newRow("placeholders") << "%1 %2"
                                  << "%1"
                                  << "%1 %2\nBSSID: %1\n";
    QTest::newRow("empty") << ""
                           << "02"
                           << "BSSID: 02\n";
    QTest::newRow("cut off in the entry")
        << QString(50, QLatin1Char('W')) << "02"
        << QString(50, QLatin1Char('W')) + QLatin1String("\nBSSID: 02\n");
    const QString line(AirText::ToolTipColumns, QLatin1Char('W'));
    QTest::newRow("longer than any label")
        << line + line << "02" << line + QLatin1Char('\n') + line + QLatin1Char('\n');
    QTest::newRow("10000 characters")
        << QString(10000, QLatin1Char('W')) << QString(10000, QLatin1Char('1')) << "WWWWWWWWWW";
}

void TestSignalLegend::toolTipIsPlainAndBounded()
{
    QFETCH(QString, name);
    QFETCH(QString, bssid);
    QFETCH(QString, begin);
    const Languages languages;
    SignalLegendLabel label;
    label.setText(QwtText(name));
    label.setAccessPoint(bssid, 6);
    const QString text = toolTipOf(label);
    QVERIFY2(text.startsWith(begin), qPrintable(text));
    QVERIFY(text.endsWith(QLatin1String("\nChannel: 6")));
    QVERIFY(text.size() < 700);
}

void TestSignalLegend::toolTipSpeaksTheLanguageOfTheMoment()
{
    const Languages languages;
    SignalLegendLabel label;
    label.setText(QStringLiteral("Home"));
    label.setAccessPoint(QStringLiteral("02"), 6);
    QCOMPARE(toolTipOf(label), QStringLiteral("Home\nBSSID: 02\nChannel: 6"));
    languages.speak(QStringLiteral("deu"));
    QCOMPARE(toolTipOf(label), QStringLiteral("Home\nBSSID: 02\nKanal: 6"));
}

QTEST_MAIN(TestSignalLegend)
#include "tst_signallegend.moc"

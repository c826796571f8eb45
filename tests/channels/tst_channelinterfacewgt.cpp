#include "channels/channelinterfacewgt.h"
#include "channels/panelparts.h"
#include "common/QtCommonTools.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QtTest>

namespace
{
using PanelParts::onChannels;

const QColor Green(60, 179, 113);

QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}
} // namespace

class TestChannelInterfaceWgt : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void laysTheSummaryOut();
    void ratesInWords();
    void showsTheJoinedChannelAndRecommends();
    void ratesAChannelWithSevenNetworksPoor();
    void limitsTheBarsToTen();
    void negativeChannelsCountTowardsChannelZero();
    void theLastMatchingRecordWins();
    void namesAreComparedAsTheyStand();
    void keepsTheOldChannelWhenTheNetworkIsMissing();
    void showsNoRatingForAChannelNobodyWasHeardOn();
    void anEmptyNameClearsTheSummaryAtOnce();
    void leavingTheNetworkClearsTheSummaryForGood();
    void aNameTakesEffectWithTheNextEvaluation();
    void recommendsInGreen();
    void aNewLanguageSetsTheCaptionsOnly();
    void aMissingWidgetIsReportedAtDebugLevel();
    void aMissingWidgetEndsInit();

private:
    void evaluate(const QVector<WifiProperty> &networks)
    {
        PanelParts::evaluate(*m_panel, networks);
    }
    template <class Widget = QLabel> Widget *summary(int row, int column) const
    {
        return qobject_cast<Widget *>(PanelParts::summary(*m_panel, row, column));
    }
    template <class Widget = QLabel> Widget *cell(int channelRow, int column) const
    {
        return qobject_cast<Widget *>(PanelParts::cell(*m_panel, channelRow, column));
    }

    QScopedPointer<ChannelInterfaceWgt> m_panel;
};

void TestChannelInterfaceWgt::initTestCase()
{
    QtCommonTools::Init();
}

void TestChannelInterfaceWgt::cleanupTestCase()
{
    QtCommonTools::Release();
}

void TestChannelInterfaceWgt::init()
{
    m_panel.reset(new ChannelInterfaceWgt);
    m_panel->resize(1080, 330);
}

void TestChannelInterfaceWgt::cleanup()
{
    m_panel.reset();
    QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang;
}

void TestChannelInterfaceWgt::laysTheSummaryOut()
{
    QCOMPARE(summary(0, 0)->text(), text("Current Channel:"));
    QCOMPARE(summary(1, 0)->text(), text("# of Networks on this channel"));
    QCOMPARE(summary(3, 0)->text(), text("Recommended Channels:"));
    QCOMPARE(summary(0, 1), summary(0, 3));
    QCOMPARE(summary(1, 0), summary(1, 2));
    QCOMPARE(summary(4, 0), summary(4, 2));
    const QProgressBar *bar = summary<QProgressBar>(2, 0);
    QCOMPARE(bar->minimumSize(), QSize(120, 20));
    QCOMPARE(bar->maximumSize(), QSize(120, 20));
    QCOMPARE(bar->minimum(), 0);
    QCOMPARE(bar->maximum(), 10);
    QVERIFY(!bar->isTextVisible());
    QVERIFY(summary(2, 1) && summary(2, 2));

    QWidget *box = summary(0, 0)->parentWidget();
    QCOMPARE(box->minimumSize(), QSize(480, 160));
    QCOMPARE(box->maximumSize(), QSize(480, 160));
    const QGridLayout *grid = qobject_cast<QGridLayout *>(box->layout());
    for (const QPoint &cell : {QPoint(0, 2), QPoint(0, 4)}) {
        QCOMPARE(
            grid->itemAtPosition(cell.y(), cell.x())->alignment(), Qt::Alignment(Qt::AlignHCenter));
    }
    for (const QPoint &cell :
        {QPoint(0, 0), QPoint(1, 0), QPoint(0, 1), QPoint(1, 2), QPoint(2, 2), QPoint(0, 3)}) {
        QCOMPARE(
            grid->itemAtPosition(cell.y(), cell.x())->alignment(), Qt::Alignment(Qt::AlignLeft));
    }
    QCOMPARE(m_panel->font().pointSize(), 11);
    for (int row : {0, 1, 3})
        QCOMPARE(summary(row, 0)->textFormat(), Qt::PlainText);

    m_panel->grab();
    QCOMPARE(box->geometry().center().y(), m_panel->rect().center().y());
}

void TestChannelInterfaceWgt::ratesInWords()
{
    QString clarity;
    const char *const words[] = {
        "POOR", "BEST", "GREAT", "GREAT", "AVERAGE", "AVERAGE", "AVERAGE", "POOR"};
    for (int count = 0; count <= 7; ++count) {
        m_panel->GetClarityFormNetworkConnCount(count, clarity);
        QCOMPARE(clarity, text(words[count]));
    }
    m_panel->GetClarityFormNetworkConnCount(-5, clarity);
    QCOMPARE(clarity, text("POOR"));
}

void TestChannelInterfaceWgt::showsTheJoinedChannelAndRecommends()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 5"));
    evaluate(onChannels({1, 6, 6, 6, 6, 11, 11}));
    QCOMPARE(summary(0, 1)->text(), text("11"));
    QCOMPARE(summary<QProgressBar>(2, 0)->value(), 2);
    QCOMPARE(summary(2, 1)->text(), text("2"));
    QCOMPARE(summary(2, 2)->text(), text("GREAT"));
    QCOMPARE(summary(4, 0)->text(), text("1,11"));
    QCOMPARE(cell(0, 3)->text(), text("BEST"));
    QCOMPARE(cell(1, 3)->text(), text("AVERAGE"));
    QCOMPARE(cell(2, 3)->text(), text("GREAT"));
}

void TestChannelInterfaceWgt::ratesAChannelWithSevenNetworksPoor()
{
    evaluate(onChannels({6, 6, 6, 6, 6, 6, 6}));
    QCOMPARE(cell(0, 3)->text(), text("POOR"));
}

void TestChannelInterfaceWgt::limitsTheBarsToTen()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({6, 6, 6, 6, 6, 6, 6, 6, 6, 6, 6, 6}));
    QCOMPARE(summary<QProgressBar>(2, 0)->value(), 10);
    QCOMPARE(summary(2, 1)->text(), text("12"));
    QCOMPARE(cell<QProgressBar>(0, 1)->value(), 10);
    QCOMPARE(cell(0, 2)->text(), text("12"));
}

void TestChannelInterfaceWgt::negativeChannelsCountTowardsChannelZero()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({-3, 0, 70000}));
    QCOMPARE(cell(0, 0)->text(), text("0"));
    QCOMPARE(cell(0, 2)->text(), text("3"));
    QVERIFY(!cell(1, 0));
    // Channel 0 is a channel; only -1 means none.
    QCOMPARE(summary(0, 1)->text(), text("0"));
}

void TestChannelInterfaceWgt::theLastMatchingRecordWins()
{
    m_panel->onNetworkReturned(QStringLiteral("Home"));
    evaluate({TestAir::network(QStringLiteral("Home"), -50, 1),
        TestAir::network(QStringLiteral("Home"), -50, 36),
        TestAir::network(QStringLiteral("Other"), -50, 6)});
    QCOMPARE(summary(0, 1)->text(), text("36"));
}

void TestChannelInterfaceWgt::namesAreComparedAsTheyStand()
{
    m_panel->onNetworkReturned(QStringLiteral("Home "));
    evaluate({TestAir::network(QStringLiteral("Home"), -50, 1),
        TestAir::network(QStringLiteral("home "), -50, 6)});
    QCOMPARE(summary(0, 1)->text(), QString());
    evaluate({TestAir::network(QStringLiteral("Home "), -50, 11)});
    QCOMPARE(summary(0, 1)->text(), text("11"));
}

void TestChannelInterfaceWgt::keepsTheOldChannelWhenTheNetworkIsMissing()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({6, 11}));
    m_panel->onNetworkReturned(QStringLiteral("Hidden elsewhere"));
    evaluate(onChannels({6, 6, 6, 6, 11}));
    QCOMPARE(summary(0, 1)->text(), text("6"));
    QCOMPARE(summary(2, 1)->text(), text("4"));
    QCOMPARE(summary(2, 2)->text(), text("AVERAGE"));
}

void TestChannelInterfaceWgt::showsNoRatingForAChannelNobodyWasHeardOn()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({6}));
    m_panel->onNetworkReturned(QStringLiteral("Not heard"));
    evaluate(onChannels({1}));
    QCOMPARE(summary(0, 1)->text(), text("6"));
    QCOMPARE(summary(2, 1)->text(), text("0"));
    QCOMPARE(summary<QProgressBar>(2, 0)->value(), 0);
    QCOMPARE(summary(2, 2)->text(), QString());
    QCOMPARE(summary(4, 0)->text(), text("1"));
}

void TestChannelInterfaceWgt::anEmptyNameClearsTheSummaryAtOnce()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({6}));
    m_panel->onNetworkReturned(QString());
    for (const QLabel *label : {summary(0, 1), summary(2, 1), summary(2, 2), summary(4, 0)})
        QCOMPARE(label->text(), QString());
    QCOMPARE(summary<QProgressBar>(2, 0)->value(), 0);
    QCOMPARE(cell(0, 0)->text(), text("6"));
    // Without a joined network nothing is recommended either.
    evaluate(onChannels({6}));
    QCOMPARE(summary(4, 0)->text(), QString());
}

void TestChannelInterfaceWgt::leavingTheNetworkClearsTheSummaryForGood()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({6}));
    m_panel->NetworkLeft();
    QCOMPARE(summary(0, 1)->text(), QString());
    QCOMPARE(summary<QProgressBar>(2, 0)->value(), 0);
    // Scans go on; a hidden network has no name either, and is not the joined one.
    evaluate({TestAir::network(QString(), -50, 11), TestAir::network(QStringLiteral("Net 0"))});
    QCOMPARE(summary(0, 1)->text(), QString());
    m_panel->onNetworkReturned(QStringLiteral("Net 1"));
    evaluate(onChannels({6, 11}));
    QCOMPARE(summary(0, 1)->text(), text("11"));
}

void TestChannelInterfaceWgt::aNameTakesEffectWithTheNextEvaluation()
{
    evaluate(onChannels({6, 11}));
    m_panel->onNetworkReturned(QStringLiteral("Net 1"));
    QCOMPARE(summary(0, 1)->text(), QString());
    evaluate(onChannels({6, 11}));
    QCOMPARE(summary(0, 1)->text(), text("11"));
}

void TestChannelInterfaceWgt::recommendsInGreen()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({6}));
    QCOMPARE(summary(4, 0)->palette().color(QPalette::WindowText), Green);
}

void TestChannelInterfaceWgt::aNewLanguageSetsTheCaptionsOnly()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({1}));
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    m_panel->ChangeLanguage();
    for (const auto &caption : {qMakePair(0, LanguageLabels::m_strLangCurrentChannel),
             qMakePair(1, LanguageLabels::m_strLangChannelConn),
             qMakePair(3, LanguageLabels::m_strLangRecommendedTags)})
        QCOMPARE(summary(caption.first, 0)->text(), QtCommonTools::tr(caption.second));
    QVERIFY(summary(0, 0)->text() != text("Current Channel:"));
    // The ratings follow with the next evaluation.
    QCOMPARE(summary(2, 2)->text(), text("BEST"));
    QCOMPARE(cell(0, 3)->text(), text("BEST"));
    evaluate(onChannels({1}));
    QCOMPARE(cell(0, 3)->text(), QtCommonTools::tr(LanguageLabels::m_strLangStrengthBest));
}

void TestChannelInterfaceWgt::aMissingWidgetIsReportedAtDebugLevel()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({1}));
    delete summary(2, 1);
    MessageLog log;
    m_panel->SetCurrentNetworkChannel(6, 2, text("GREAT"), text("6"));
    QCOMPARE(log.criticals(), QStringList());
    QCOMPARE(log.debugs().size(), 1);
    QVERIFY(log.debugs().first().startsWith(
        text("NUll pointfile:channelinterfacewgt function:SetCurrentNetworkChannel line:")));
    QCOMPARE(summary(0, 1)->text(), text("1"));
}

void TestChannelInterfaceWgt::aMissingWidgetEndsInit()
{
    delete summary(2, 2);
    MessageLog log;
    m_panel->Init();
    QCOMPARE(log.criticals().size(), 1);
    QVERIFY(log.criticals().first().startsWith(
        text("NUll pointfile:channelinterfacewgt function:Init line:")));
}

QTEST_MAIN(TestChannelInterfaceWgt)
#include "tst_channelinterfacewgt.moc"

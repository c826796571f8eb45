#include "channels/channelinterfacewgt.h"
#include "channels/headwidget.h"
#include "common/QtCommonTools.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

namespace
{
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
    void laysTheListOut();
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
    void aNameTakesEffectWithTheNextEvaluation();
    void recommendsInGreen();
    void coloursTheRatings();
    void listsOneRowAndOneSeparatorPerChannel();
    void listFitsTheAreaAndFollowsItsSize();
    void anewListReplacesTheOldOneAndKeepsThePlace();
    void headerTextsStandOnTheBand();
    void aNewSizeRebuildsTheList();
    void aNewLanguageSetsTheCaptionsOnly();
    void aMissingWidgetIsReportedAtDebugLevel();
    void aMissingWidgetEndsInit();

private:
    void evaluate(const QVector<WifiProperty> &networks);
    QVector<WifiProperty> onChannels(const QList<int> &channels) const;
    template <class Widget = QLabel> Widget *summary(int row, int column) const;
    QWidget *sheet() const { return m_panel->findChild<QScrollArea *>()->widget(); }
    template <class Widget = QLabel> Widget *cell(int channelRow, int column) const;

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

// Of any five vectors in a row exactly one is evaluated.
void TestChannelInterfaceWgt::evaluate(const QVector<WifiProperty> &networks)
{
    for (int i = 0; i < 5; ++i)
        m_panel->slotDataReturned(networks);
}

QVector<WifiProperty> TestChannelInterfaceWgt::onChannels(const QList<int> &channels) const
{
    QVector<WifiProperty> networks;
    for (int channel : channels)
        networks.append(
            TestAir::network(QStringLiteral("Net %1").arg(networks.size()), -50, channel));
    return networks;
}

template <class Widget> Widget *TestChannelInterfaceWgt::summary(int row, int column) const
{
    for (QGridLayout *grid : m_panel->findChildren<QGridLayout *>()) {
        if (grid->parentWidget()->size() == QSize(480, 160))
            return qobject_cast<Widget *>(grid->itemAtPosition(row, column)->widget());
    }
    return nullptr;
}

template <class Widget> Widget *TestChannelInterfaceWgt::cell(int channelRow, int column) const
{
    QGridLayout *grid = qobject_cast<QGridLayout *>(sheet()->layout());
    QLayoutItem *item = grid->itemAtPosition(1 + 2 * channelRow, column);
    return item ? qobject_cast<Widget *>(item->widget()) : nullptr;
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
    QCOMPARE(grid->itemAtPosition(2, 0)->alignment(), Qt::Alignment(Qt::AlignHCenter));
    QCOMPARE(grid->itemAtPosition(4, 0)->alignment(), Qt::Alignment(Qt::AlignHCenter));
    QCOMPARE(grid->itemAtPosition(2, 2)->alignment(), Qt::Alignment(Qt::AlignLeft));
    QCOMPARE(m_panel->font().pointSize(), 11);
    for (int row : {0, 1, 3})
        QCOMPARE(summary(row, 0)->textFormat(), Qt::PlainText);

    m_panel->grab();
    QCOMPARE(box->geometry().center().y(), m_panel->rect().center().y());
}

void TestChannelInterfaceWgt::laysTheListOut()
{
    m_panel->grab();
    QScrollArea *area = m_panel->findChild<QScrollArea *>();
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(area->palette().color(QPalette::Window), QColor(Qt::white));
    QCOMPARE(area->pos(), QPoint(0, 3));
    QCOMPARE(area->geometry().bottomRight(), area->parentWidget()->rect().bottomRight());
    QCOMPARE(m_panel->layout()->contentsMargins(), QMargins());
    QVERIFY(area->parentWidget()->x() >= 480);
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

void TestChannelInterfaceWgt::coloursTheRatings()
{
    m_panel->onNetworkReturned(QStringLiteral("Net 0"));
    evaluate(onChannels({1, 6, 6, 11, 11, 11, 11, 36, 36, 36, 36, 36, 36, 36}));
    const QColor colours[] = {
        QColor(4, 177, 82), QColor(52, 204, 52), QColor(255, 193, 4), QColor(194, 9, 9)};
    for (int row = 0; row < 4; ++row) {
        QCOMPARE(cell(row, 3)->palette().color(QPalette::WindowText), colours[row]);
        QCOMPARE(cell(row, 2)->palette().color(QPalette::WindowText), QColor(128, 100, 162));
    }
    QCOMPARE(summary(2, 2)->palette().color(QPalette::WindowText), colours[0]);
}

void TestChannelInterfaceWgt::listsOneRowAndOneSeparatorPerChannel()
{
    evaluate(onChannels({149, 1, 36}));
    QVERIFY(qobject_cast<HeadWidget *>(sheet()));
    QGridLayout *grid = qobject_cast<QGridLayout *>(sheet()->layout());
    QCOMPARE(grid->rowCount(), 7);
    QCOMPARE(grid->columnCount(), 4);
    QCOMPARE(sheet()->font().pointSize(), 12);
    QCOMPARE(sheet()->palette().color(QPalette::Window), QColor(Qt::white));
    QCOMPARE(cell(0, 0)->text(), text("1"));
    QCOMPARE(cell(1, 0)->text(), text("36"));
    QCOMPARE(cell(2, 0)->text(), text("149"));
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(grid->rowMinimumHeight(1 + 2 * row), 30);
        QCOMPARE(cell<QProgressBar>(row, 1)->size(), QSize(120, 20));
        QVERIFY(!cell<QProgressBar>(row, 1)->isTextVisible());
        QCOMPARE(
            grid->itemAtPosition(1 + 2 * row, 2)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QWidget *separator = grid->itemAtPosition(2 + 2 * row, 0)->widget();
        QCOMPARE(separator, grid->itemAtPosition(2 + 2 * row, 3)->widget());
        QCOMPARE(separator->minimumHeight(), 2);
        QCOMPARE(separator->maximumHeight(), 2);
        QCOMPARE(separator->palette().color(QPalette::Window), QColor(229, 229, 251));
    }
}

void TestChannelInterfaceWgt::listFitsTheAreaAndFollowsItsSize()
{
    evaluate(onChannels({1, 6, 11}));
    QScrollArea *area = m_panel->findChild<QScrollArea *>();
    for (const QSize &size : {QSize(1080, 330), QSize(1920, 700), QSize(1080, 330)}) {
        m_panel->resize(size);
        m_panel->grab();
        QCOMPARE(sheet()->minimumWidth(), area->width());
        QCOMPARE(sheet()->width(), area->width());
    }
    // The separators are painted right across what is seen of the area.
    const QWidget *separator = sheet()->findChildren<QLabel *>().last();
    QCOMPARE(separator->x(), 0);
    QVERIFY(separator->width() >= area->viewport()->width());
}

void TestChannelInterfaceWgt::anewListReplacesTheOldOneAndKeepsThePlace()
{
    QList<int> channels;
    for (int channel = 1; channel <= 40; ++channel)
        channels.append(channel);
    evaluate(onChannels(channels));
    m_panel->show();
    QScrollBar *bar = m_panel->findChild<QScrollArea *>()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 300);
    bar->setValue(300);
    QPointer<QWidget> old = sheet();
    evaluate(onChannels(channels));
    QVERIFY(old.isNull());
    QCOMPARE(bar->value(), 300);
    QCOMPARE(m_panel->findChildren<HeadWidget *>().size(), 1);
}

void TestChannelInterfaceWgt::headerTextsStandOnTheBand()
{
    evaluate(onChannels({1, 6, 11}));
    m_panel->grab();
    QGridLayout *grid = qobject_cast<QGridLayout *>(sheet()->layout());
    QCOMPARE(grid->rowMinimumHeight(0), 30);
    QLabel *heads[] = {qobject_cast<QLabel *>(grid->itemAtPosition(0, 0)->widget()),
        qobject_cast<QLabel *>(grid->itemAtPosition(0, 1)->widget()),
        qobject_cast<QLabel *>(grid->itemAtPosition(0, 3)->widget())};
    // One text stands over the bars and the numbers.
    QCOMPARE(heads[1], grid->itemAtPosition(0, 2)->widget());
    QCOMPARE(heads[0]->text(), text("Channel"));
    QCOMPARE(heads[1]->text(), text("Number of Networks"));
    QCOMPARE(heads[2]->text(), text("Channel clarity"));
    const QImage image = sheet()->grab().toImage();
    for (const QLabel *head : heads) {
        QCOMPARE(head->palette().color(QPalette::WindowText), QColor(Qt::white));
        QVERIFY(head->y() >= 0);
        QVERIFY(head->geometry().bottom() < HeadWidget::BandHeight);
        QCOMPARE(image.pixelColor(head->geometry().topLeft()), QColor(105, 105, 105));
        QCOMPARE(image.pixelColor(head->geometry().bottomRight()), QColor(105, 105, 105));
    }
}

void TestChannelInterfaceWgt::aNewSizeRebuildsTheList()
{
    evaluate(onChannels({1, 6}));
    QPointer<QWidget> old = sheet();
    m_panel->slotUpdateWindowSize();
    QVERIFY(old.isNull());
    QCOMPARE(cell(1, 0)->text(), text("6"));
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

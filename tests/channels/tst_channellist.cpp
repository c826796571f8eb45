#include "channels/channelinterfacewgt.h"
#include "channels/headwidget.h"
#include "channels/panelparts.h"
#include "common/QtCommonTools.h"

#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>

namespace
{
using PanelParts::onChannels;

QString text(const char *latin)
{
    return QString::fromLatin1(latin);
}
} // namespace

// The interference panel's list, one row per occupied channel.
class TestChannelList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void init();
    void cleanup() { m_panel.reset(); }
    void cleanupTestCase() { QtCommonTools::Release(); }

    void laysTheListOut();
    void coloursTheRatings();
    void listsOneRowAndOneSeparatorPerChannel();
    void listFitsTheAreaAndFollowsItsSize();
    void anewListReplacesTheOldOneAndKeepsThePlace();
    void headerTextsStandOnTheBand();
    void aNewSizeRebuildsTheList();

private:
    void evaluate(const QVector<WifiProperty> &networks)
    {
        PanelParts::evaluate(*m_panel, networks);
    }
    QWidget *sheet() const { return PanelParts::sheet(*m_panel); }
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

void TestChannelList::init()
{
    m_panel.reset(new ChannelInterfaceWgt);
    m_panel->resize(1080, 330);
}

void TestChannelList::laysTheListOut()
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

void TestChannelList::coloursTheRatings()
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

void TestChannelList::listsOneRowAndOneSeparatorPerChannel()
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
    const QImage image = sheet()->grab().toImage();
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(grid->rowMinimumHeight(1 + 2 * row), 30);
        QCOMPARE(cell<QProgressBar>(row, 1)->size(), QSize(120, 20));
        QVERIFY(!cell<QProgressBar>(row, 1)->isTextVisible());
        for (int column : {0, 1, 3})
            QCOMPARE(grid->itemAtPosition(1 + 2 * row, column)->alignment(), Qt::AlignCenter);
        QCOMPARE(
            grid->itemAtPosition(1 + 2 * row, 2)->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
        QWidget *separator = grid->itemAtPosition(2 + 2 * row, 0)->widget();
        QCOMPARE(separator, grid->itemAtPosition(2 + 2 * row, 3)->widget());
        QCOMPARE(separator->minimumHeight(), 2);
        QCOMPARE(separator->maximumHeight(), 2);
        QCOMPARE(image.pixelColor(separator->pos()), QColor(229, 229, 251));
    }
}

void TestChannelList::listFitsTheAreaAndFollowsItsSize()
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

void TestChannelList::anewListReplacesTheOldOneAndKeepsThePlace()
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

void TestChannelList::headerTextsStandOnTheBand()
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

void TestChannelList::aNewSizeRebuildsTheList()
{
    evaluate(onChannels({1, 6}));
    QPointer<QWidget> old = sheet();
    m_panel->slotUpdateWindowSize();
    QVERIFY(old.isNull());
    QCOMPARE(cell(1, 0)->text(), text("6"));
}

QTEST_MAIN(TestChannelList)
#include "tst_channellist.moc"

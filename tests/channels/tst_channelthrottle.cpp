#include "channels/channelinterfacewgt.h"
#include "common/QtCommonTools.h"
#include "support/testair.h"

#include <QGridLayout>
#include <QLabel>
#include <QtTest>

// The panel's counter lives as long as the process and starts at its first vector: this test is
// about that and has a process of its own.
class TestChannelThrottle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void firstVectorCountsAndThenEveryFifth();
    void allPanelsShareTheCounterAndItOutlivesThem();

private:
    static QString shownChannel(const ChannelInterfaceWgt &panel);
    static void send(ChannelInterfaceWgt &panel, int channel);
};

// The current channel's value is the only label that shows just the number.
QString TestChannelThrottle::shownChannel(const ChannelInterfaceWgt &panel)
{
    const QGridLayout *summary = panel.findChild<QGridLayout *>();
    const QLabel *value = qobject_cast<QLabel *>(summary->itemAtPosition(0, 1)->widget());
    return value->text();
}

void TestChannelThrottle::send(ChannelInterfaceWgt &panel, int channel)
{
    panel.slotDataReturned({TestAir::network(QStringLiteral("Home"), -50, channel)});
}

void TestChannelThrottle::firstVectorCountsAndThenEveryFifth()
{
    ChannelInterfaceWgt panel;
    panel.onNetworkReturned(QStringLiteral("Home"));
    for (int vector = 1; vector <= 11; ++vector) {
        send(panel, vector);
        const int evaluated = vector < 6 ? 1 : vector < 11 ? 6 : 11;
        QCOMPARE(shownChannel(panel), QString::number(evaluated));
    }
}

void TestChannelThrottle::allPanelsShareTheCounterAndItOutlivesThem()
{
    // Four vectors are dropped after the one that was evaluated last.
    ChannelInterfaceWgt first;
    ChannelInterfaceWgt second;
    second.onNetworkReturned(QStringLiteral("Home"));
    send(first, 20);
    send(first, 21);
    {
        ChannelInterfaceWgt shortLived;
        send(shortLived, 22);
    }
    send(second, 23);
    QCOMPARE(shownChannel(second), QString());
    send(second, 24);
    QCOMPARE(shownChannel(second), QStringLiteral("24"));
}

QTEST_MAIN(TestChannelThrottle)
#include "tst_channelthrottle.moc"

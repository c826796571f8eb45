#include "netlist/signalitems.h"

#include <QStandardItemModel>
#include <QtTest>

class TestSignalItems : public QObject
{
    Q_OBJECT

private slots:
    void showsNumbersInGeneralFormat_data();
    void showsNumbersInGeneralFormat();
    void centresItsText();
    void sameNumberChangesNothing();
    void textsFollowTheirValue();
};

void TestSignalItems::showsNumbersInGeneralFormat_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("signal") << -54.0 << QStringLiteral("-54");
    QTest::newRow("zero") << 0.0 << QStringLiteral("0");
    QTest::newRow("channel") << 161.0 << QStringLiteral("161");
    QTest::newRow("largest channel") << 65535.0 << QStringLiteral("65535");
    QTest::newRow("fraction") << -54.25 << QStringLiteral("-54.25");
    QTest::newRow("six digits") << 1234567.0 << QStringLiteral("1.23457e+06");
}

void TestSignalItems::showsNumbersInGeneralFormat()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    QCOMPARE(RssiChannelItem(value).text(), text);
    RssiChannelItem item(1);
    item.setValue(value);
    QCOMPARE(item.text(), text);
}

void TestSignalItems::centresItsText()
{
    QCOMPARE(int(RssiChannelItem(1).textAlignment()), 132);
    QCOMPARE(int(StringItem(QString()).textAlignment()), 132);
    QCOMPARE(RssiChannelItem(1).data(Qt::TextAlignmentRole).toInt(), 132);
}

void TestSignalItems::sameNumberChangesNothing()
{
    QStandardItemModel model;
    RssiChannelItem *item = new RssiChannelItem(-50);
    model.appendRow(item);
    QSignalSpy changed(&model, &QStandardItemModel::itemChanged);
    item->setValue(-50);
    QCOMPARE(changed.size(), 0);
    item->setValue(-51);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(item->text(), QStringLiteral("-51"));
}

void TestSignalItems::textsFollowTheirValue()
{
    StringItem item(QStringLiteral("a"));
    QCOMPARE(item.text(), QStringLiteral("a"));
    item.setValue(QStringLiteral("<b>"));
    QCOMPARE(item.text(), QStringLiteral("<b>"));
}

QTEST_APPLESS_MAIN(TestSignalItems)
#include "tst_signalitems.moc"

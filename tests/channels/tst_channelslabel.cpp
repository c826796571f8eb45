#include "channels/channelslabel.h"

#include <QtTest>

class TestChannelsLabel : public QObject
{
    Q_OBJECT

private slots:
    void breaksOnlyAfterCommas();
    void everyLineFitsAndNothingIsLost();
    void anEntryWiderThanTheLineStandsAlone();
    void anEmptyListHasNoLines();
    void keepsItsTextAndOneLinesMinimum();
    void paintsALongListInsideItsPlace_data();
    void paintsALongListInsideItsPlace();

private:
    static QString channels(int count);
};

QString TestChannelsLabel::channels(int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list.append(QString::number(100 + i));
    return list.join(QLatin1Char(','));
}

void TestChannelsLabel::breaksOnlyAfterCommas()
{
    const QFontMetrics metrics{QFont()};
    const int width = metrics.horizontalAdvance(QStringLiteral("100,101,"));
    QCOMPARE(BreakAfterCommas(channels(5), metrics, width),
        (QStringList{
            QStringLiteral("100,101,"), QStringLiteral("102,103,"), QStringLiteral("104")}));
}

void TestChannelsLabel::everyLineFitsAndNothingIsLost()
{
    const QFontMetrics metrics{QFont()};
    const QString text = channels(500);
    const QStringList lines = BreakAfterCommas(text, metrics, 200);
    QVERIFY(lines.size() > 10);
    for (const QString &line : lines)
        QVERIFY(metrics.horizontalAdvance(line) <= 200);
    QCOMPARE(lines.join(QString()), text);
}

void TestChannelsLabel::anEntryWiderThanTheLineStandsAlone()
{
    const QFontMetrics metrics{QFont()};
    QCOMPARE(BreakAfterCommas(QStringLiteral("1,2"), metrics, 0),
        (QStringList{QStringLiteral("1,"), QStringLiteral("2")}));
}

void TestChannelsLabel::anEmptyListHasNoLines()
{
    QVERIFY(BreakAfterCommas(QString(), QFontMetrics(QFont()), 100).isEmpty());
}

void TestChannelsLabel::keepsItsTextAndOneLinesMinimum()
{
    ChannelsLabel label;
    label.setText(channels(100));
    QCOMPARE(label.text(), channels(100));
    QVERIFY(label.sizeHint().width() <= 440);
    QVERIFY(label.sizeHint().height() > label.minimumSizeHint().height());
    QCOMPARE(label.minimumSizeHint().height(), label.fontMetrics().lineSpacing());
}

void TestChannelsLabel::paintsALongListInsideItsPlace_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("one line") << 5;
    QTest::newRow("several lines") << 40;
    QTest::newRow("far too many") << 5000;
}

void TestChannelsLabel::paintsALongListInsideItsPlace()
{
    QFETCH(int, count);
    QWidget page;
    page.resize(500, 200);
    ChannelsLabel *label = new ChannelsLabel(&page);
    label->setText(channels(count));
    label->setGeometry(30, 80, 440, 44);
    QPalette palette = page.palette();
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    page.setPalette(palette);

    const QImage image = page.grab().toImage();
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).lightness() < 128)
                inked |= QRect(x, y, 1, 1);
        }
    }
    QCOMPARE(inked.isEmpty(), count == 0);
    QVERIFY(label->geometry().contains(inked) || inked.isEmpty());
}

QTEST_MAIN(TestChannelsLabel)
#include "tst_channelslabel.moc"

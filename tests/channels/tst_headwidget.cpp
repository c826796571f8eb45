#include "channels/headwidget.h"

#include <QtTest>

class TestHeadWidget : public QObject
{
    Q_OBJECT

private slots:
    void isWhiteWithAGreyBandAcrossItsTop();
    void bandReachesBothEdgesAtAnyWidth_data();
    void bandReachesBothEdgesAtAnyWidth();
};

void TestHeadWidget::isWhiteWithAGreyBandAcrossItsTop()
{
    HeadWidget sheet;
    sheet.resize(300, 120);
    QCOMPARE(sheet.palette().color(QPalette::Window), QColor(Qt::white));
    const QImage image = sheet.grab().toImage();
    const QColor grey(105, 105, 105);
    QCOMPARE(image.pixelColor(150, 0), grey);
    QCOMPARE(image.pixelColor(150, 34), grey);
    QCOMPARE(image.pixelColor(150, 35), QColor(Qt::white));
    QCOMPARE(image.pixelColor(150, 119), QColor(Qt::white));
}

void TestHeadWidget::bandReachesBothEdgesAtAnyWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrow") << 40;
    QTest::newRow("normal") << 600;
    QTest::newRow("wide") << 3000;
}

void TestHeadWidget::bandReachesBothEdgesAtAnyWidth()
{
    QFETCH(int, width);
    HeadWidget sheet;
    sheet.resize(width, 60);
    const QImage image = sheet.grab().toImage();
    QCOMPARE(image.pixelColor(0, 17), QColor(105, 105, 105));
    QCOMPARE(image.pixelColor(width - 1, 17), QColor(105, 105, 105));
}

QTEST_MAIN(TestHeadWidget)
#include "tst_headwidget.moc"

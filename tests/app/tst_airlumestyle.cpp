#include "app/airlumestyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOptionButton>
#include <QtTest>

class TestAirlumeStyle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setStyle(new AirlumeStyle); }
    void checkBoxesAreTheStyleSheetsSize();
    void paintsAPictureForEachState();
    void paletteIsLightWhateverTheDesktop();

private:
    static QImage checkBox(QStyle::State state);
};

QImage TestAirlumeStyle::checkBox(QStyle::State state)
{
    QImage image(15, 15, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QStyleOptionButton option;
    option.rect = image.rect();
    option.state = QStyle::State_Enabled | state;
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
    return image;
}

void TestAirlumeStyle::checkBoxesAreTheStyleSheetsSize()
{
    QStyleOptionButton option;
    QCOMPARE(QApplication::style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option).size(),
        QSize(15, 15));
}

void TestAirlumeStyle::paintsAPictureForEachState()
{
    const QImage plain = checkBox(QStyle::State_Off);
    const QImage hovered = checkBox(QStyle::State_Off | QStyle::State_MouseOver);
    const QImage ticked = checkBox(QStyle::State_On);
    QVERIFY(plain != hovered);
    QVERIFY(plain != ticked);
    QCOMPARE(ticked, QImage(QStringLiteral(":/images/checkbox_select.png"))
                         .convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void TestAirlumeStyle::paletteIsLightWhateverTheDesktop()
{
    const QPalette palette = QApplication::style()->standardPalette();
    QVERIFY(palette.color(QPalette::Window).lightness() > 200);
    QVERIFY(palette.color(QPalette::WindowText).lightness() < 50);
}

QTEST_MAIN(TestAirlumeStyle)
#include "tst_airlumestyle.moc"

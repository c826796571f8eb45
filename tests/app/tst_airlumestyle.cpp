#include "app/airlumestyle.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QStyleOptionButton>
#include <QtTest>

namespace
{
/// Puts icons on the buttons of dialogs, as many desktops want it.
class IconStyle : public QProxyStyle
{
public:
    IconStyle()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
        QStyleHintReturn *returned) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 1
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};
} // namespace

class TestAirlumeStyle : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setStyle(new AirlumeStyle); }
    void checkBoxesAreTheStyleSheetsSize();
    void paintsAPictureForEachState();
    void paletteIsLightWhateverTheDesktop();
    void noticesHaveNoIconOnTheirButton();

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

void TestAirlumeStyle::noticesHaveNoIconOnTheirButton()
{
    AirlumeStyle *style = new AirlumeStyle;
    style->setBaseStyle(new IconStyle);
    QApplication::setStyle(style);
    QMessageBox notice;
    notice.setStandardButtons(QMessageBox::Ok);
    QVERIFY(notice.button(QMessageBox::Ok)->icon().isNull());
}

QTEST_MAIN(TestAirlumeStyle)
#include "tst_airlumestyle.moc"

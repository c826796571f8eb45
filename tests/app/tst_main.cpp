#include "app/placement.h"
#include "flows/airlumeprocess.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QtTest>

/// Where the program puts its window.
class TestMain : public QObject
{
    Q_OBJECT

private slots:
    void opensInTheMiddleOfTheDesktop();
};

void TestMain::opensInTheMiddleOfTheDesktop()
{
    AirlumeProcess airlume{QString()};
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    const QJsonArray geometry = airlume.state()[QStringLiteral("geometry")].toArray();
    QCOMPARE(geometry.size(), 4);
    const QRect window(geometry.at(0).toInt(), geometry.at(1).toInt(), geometry.at(2).toInt(),
        geometry.at(3).toInt());
    QCOMPARE(window.size(), QSize(1100, 700));
    // Offscreen like the program's, and smaller than the window: its corner lies outside.
    const QRect desktop = QApplication::desktop()->geometry();
    QVERIFY(desktop.width() < window.width());
    QVERIFY(window.x() < 0);
    QCOMPARE(window.topLeft(), CentredPosition(desktop, window));
}

QTEST_MAIN(TestMain)
#include "tst_main.moc"

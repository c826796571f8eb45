#include "app/placement.h"

#include <QtTest>

class TestPlacement : public QObject
{
    Q_OBJECT

private slots:
    void putsTheWindowInTheMiddle_data();
    void putsTheWindowInTheMiddle();
    void knowsWhereTheSystemPlacesWindows_data();
    void knowsWhereTheSystemPlacesWindows();
};

void TestPlacement::putsTheWindowInTheMiddle_data()
{
    QTest::addColumn<QRect>("desktop");
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QPoint>("position");

    const QRect desktop(0, 0, 1920, 1080);
    QTest::newRow("usual") << desktop << QRect(0, 0, 1100, 700) << QPoint(410, 190);
    QTest::newRow("where the window stood does not matter")
        << desktop << QRect(333, -77, 1100, 700) << QPoint(410, 190);
    QTest::newRow("as large as the desktop") << desktop << desktop << QPoint(0, 0);
    QTest::newRow("odd difference") << desktop << QRect(0, 0, 1101, 699) << QPoint(409, 190);
    // Not clamped: the title bar would otherwise not be in the middle either.
    QTest::newRow("larger than the desktop")
        << QRect(0, 0, 800, 600) << QRect(0, 0, 1100, 700) << QPoint(-150, -50);
    // -149.5 and -0.5: toward zero, not down.
    QTest::newRow("larger by an odd number")
        << QRect(0, 0, 801, 699) << QRect(0, 0, 1100, 700) << QPoint(-149, 0);
    QTest::newRow("larger by three pixels")
        << QRect(0, 0, 1097, 697) << QRect(0, 0, 1100, 700) << QPoint(-1, -1);
    // Half the difference of the sizes, whatever the corner of the first screen.
    QTest::newRow("screen left of the first one")
        << QRect(-1280, -200, 3200, 1280) << QRect(0, 0, 1100, 700) << QPoint(1050, 290);
    QTest::newRow("no window yet") << QRect(0, 0, 800, 600) << QRect() << QPoint(400, 300);
}

void TestPlacement::putsTheWindowInTheMiddle()
{
    QFETCH(QRect, desktop);
    QFETCH(QRect, window);
    QFETCH(QPoint, position);
    QCOMPARE(CentredPosition(desktop, window), position);
}

void TestPlacement::knowsWhereTheSystemPlacesWindows_data()
{
    QTest::addColumn<bool>("itDoes");
    QTest::newRow("wayland") << true;
    QTest::newRow("wayland-egl") << true;
    QTest::newRow("wayland-xcomposite-glx") << true;
    QTest::newRow("xcb") << false;
    QTest::newRow("cocoa") << false;
    QTest::newRow("windows") << false;
    QTest::newRow("offscreen") << false;
    QTest::newRow("") << false;
}

void TestPlacement::knowsWhereTheSystemPlacesWindows()
{
    QFETCH(bool, itDoes);
    QCOMPARE(SystemPlacesWindows(QLatin1String(QTest::currentDataTag())), itDoes);
}

QTEST_APPLESS_MAIN(TestPlacement)
#include "tst_placement.moc"

#include "app/placement.h"

#include <QtTest>

class TestPlacement : public QObject
{
    Q_OBJECT

private slots:
    void putsTheWindowInTheMiddle_data();
    void putsTheWindowInTheMiddle();
    void drawsAtAScaleThatSuitsTheScreen_data();
    void drawsAtAScaleThatSuitsTheScreen();
    void wholeScalesStayWhole();
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

void TestPlacement::drawsAtAScaleThatSuitsTheScreen_data()
{
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<qreal>("drawn");

    const QSize fullHd(1920, 1080);
    const QSize notebook(1366, 768);
    const QSize old(1280, 800);
    QTest::newRow("usual") << fullHd << 1. << 1.;
    QTest::newRow("fractions are kept") << fullHd << 1.25 << 1.25;
    QTest::newRow("one and a half") << fullHd << 1.5 << 1.5;
    QTest::newRow("hardly too wide") << fullHd << 1.75 << 1.74;
    QTest::newRow("too wide") << fullHd << 2. << 1.74;
    QTest::newRow("large screen") << QSize(3840, 2160) << 2. << 2.;
    QTest::newRow("notebook") << notebook << 1. << 1.;
    QTest::newRow("notebook, hardly too wide") << notebook << 1.25 << 1.24;
    QTest::newRow("notebook, too wide") << notebook << 2. << 1.24;
    QTest::newRow("old screen") << old << 1.5 << 1.16;
    QTest::newRow("too low") << QSize(1920, 750) << 1.5 << 1.24;
    QTest::newRow("as small as can be") << QSize(1100, 602) << 1. << 1.;
    QTest::newRow("as small as can be, scaled") << QSize(1100, 602) << 1.5 << 1.;
    QTest::newRow("too small: nothing is made smaller than it is") << QSize(1024, 600) << 1. << 1.;
    QTest::newRow("too small, scaled") << QSize(800, 600) << 2. << 1.;
    QTest::newRow("small on purpose") << QSize(800, 600) << 0.8 << 0.8;
    QTest::newRow("nearly whole") << fullHd << 100 / 96. << 1.;
    QTest::newRow("nearly whole from below") << QSize(3840, 2160) << 1.91 << 2.;
    QTest::newRow("nearly whole, too wide") << fullHd << 2.05 << 1.74;
    QTest::newRow("not nearly") << fullHd << 1.11 << 1.11;
}

void TestPlacement::drawsAtAScaleThatSuitsTheScreen()
{
    QFETCH(QSize, pixels);
    QFETCH(qreal, scale);
    QFETCH(qreal, drawn);
    // As a screen tells it: rounded.
    QCOMPARE(DrawnScale(scale, pixels / scale), drawn);
}

void TestPlacement::wholeScalesStayWhole()
{
    for (int dpi = 50; dpi < 500; ++dpi) {
        const qreal scale = dpi / 96.;
        const qreal factor = FactorBetween(scale, 2);
        QVERIFY2(qAbs(factor * scale - 2) < 1e-12, qPrintable(QString::number(dpi)));
    }
    QCOMPARE(FactorBetween(100 / 96., 1) * (100 / 96.) == 1, true);
    QCOMPARE(FactorBetween(200 / 96., 2) * (200 / 96.) == 2, true);
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

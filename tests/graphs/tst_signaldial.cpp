#include "graphs/graphtest.h"
#include "graphs/signaldial.h"
#include "graphs/signaldialwidget.h"
#include "support/messagelog.h"
#include "support/paintrecord.h"

#include <QPainter>
#include <QTest>
#include <qwt_dial_needle.h>
#include <qwt_scale_div.h>

namespace
{
bool shows(const QImage &image, const QRect &area, const QColor &color)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

/// Opens what is painted inside the scale.
class OpenDial : public SignalDial
{
public:
    using SignalDial::drawScaleContents;
};

/// What is written inside a scale of 100 pixels around (150, 150).
QVector<PaintStep> writing()
{
    const MessageLog quiet;
    PaintRecord record({300, 300});
    QPainter painter(&record);
    OpenDial().drawScaleContents(&painter, {150, 150}, 100);
    painter.end();
    return record.texts();
}

QImage needlePicture(const QwtDialNeedle &needle)
{
    QImage image(120, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    needle.draw(&painter, {60, 60}, 50, 0);
    return image;
}
} // namespace

class TestSignalDial : public QObject
{
    Q_OBJECT

private slots:
    void showsTheSignal_data();
    void showsTheSignal();
    void stopPutsTheNeedleOnZero();
    void isADialFromMinus100To0();
    void needleIsAnArrowWithAKnob();
    void isReadOnly();
    void wearsDarkGrey();
    void paintsItsWords();
    void wordsStandAroundTheMiddle();
    void unitIsWrittenWithABroadWhitePen();
    void unitStandsAtOnePlaceInEverySize();
    void labelCanBeReplaced();
    void widgetKeepsTheSignal();
    void widgetPaintsEveryNewSignal();
    void widgetRendersNothing();
};

void TestSignalDial::showsTheSignal_data()
{
    QTest::addColumn<int>("rssi");
    QTest::addColumn<double>("shown");
    QTest::newRow("ordinary") << -60 << -60.;
    QTest::newRow("too weak") << -101 << -100.;
    QTest::newRow("far too weak") << -100000 << -100.;
    QTest::newRow("too strong") << 1 << 0.;
    QTest::newRow("ends") << -100 << -100.;
}

void TestSignalDial::showsTheSignal()
{
    QFETCH(int, rssi);
    SignalDial dial;
    dial.onSignalReturned(rssi);
    QTEST(dial.value(), "shown");
}

void TestSignalDial::stopPutsTheNeedleOnZero()
{
    SignalDial dial;
    dial.onSignalReturned(-60);
    dial.onStopScan();
    QCOMPARE(dial.value(), 0.);
}

void TestSignalDial::isADialFromMinus100To0()
{
    const SignalDial dial;
    QCOMPARE(dial.objectName(), QStringLiteral("SignalDial"));
    QCOMPARE(dial.focusPolicy(), Qt::StrongFocus);
    QVERIFY(dial.isTracking());
    QCOMPARE(dial.origin(), 135.);
    QCOMPARE(dial.minScaleArc(), 0.);
    QCOMPARE(dial.maxScaleArc(), 270.);
    QCOMPARE(dial.scaleMaxMinor(), 4);
    QCOMPARE(dial.scaleMaxMajor(), 10);
    QCOMPARE(dial.scaleDiv().interval(), QwtInterval(-100., 0.));
    QCOMPARE(dial.lineWidth(), 4);
    QCOMPARE(dial.frameShadow(), QwtDial::Sunken);
    const auto *needle = dynamic_cast<const QwtDialSimpleNeedle *>(dial.needle());
    QVERIFY(needle);
    QCOMPARE(needle->palette().color(QPalette::Mid), QColor(QStringLiteral("Goldenrod")));
    QCOMPARE(needle->palette().color(QPalette::Base), QColor(Qt::gray).lighter(130));
}

void TestSignalDial::needleIsAnArrowWithAKnob()
{
    const SignalDial dial;
    const QColor golden(QStringLiteral("Goldenrod"));
    const QwtDialSimpleNeedle expected(
        QwtDialSimpleNeedle::Arrow, true, golden, QColor(Qt::gray).lighter(130));
    QCOMPARE(needlePicture(*dial.needle()), needlePicture(expected));
}

void TestSignalDial::isReadOnly()
{
    SignalDial dial;
    dial.resize(300, 300);
    dial.show();
    dial.onSignalReturned(-60);
    QVERIFY(dial.isReadOnly());
    GraphTest::handleLikeAZoomingUser(&dial);
    QCOMPARE(dial.value(), -60.);
}

void TestSignalDial::wearsDarkGrey()
{
    const SignalDial dial;
    const QColor base = QColor(Qt::darkGray).darker(150);
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(dial.palette().color(group, QPalette::Base), base);
        QCOMPARE(dial.palette().color(group, QPalette::Window), base.darker(150));
        QCOMPARE(dial.palette().color(group, QPalette::Mid), base.darker(110));
        QCOMPARE(dial.palette().color(group, QPalette::Light), base.lighter(170));
        QCOMPARE(dial.palette().color(group, QPalette::Dark), base.darker(170));
        QCOMPARE(dial.palette().color(group, QPalette::Text), base.darker(200).lighter(800));
        QCOMPARE(dial.palette().color(group, QPalette::WindowText), base.darker(200));
    }
}

void TestSignalDial::paintsItsWords()
{
    SignalDial dial;
    dial.resize(300, 300);
    const MessageLog log;
    const QImage image = dial.grab().toImage();
    QVERIFY(!log.debugs().isEmpty());
    QVERIFY(log.debugs().first().startsWith(QLatin1String("raidus ")));
    QVERIFY(shows(image, {100, 50, 100, 50}, QColor(QStringLiteral("PaleGreen"))));
    QVERIFY(shows(image, {180, 130, 80, 40}, QColor(QStringLiteral("PaleGreen"))));
    QVERIFY(shows(image, {50, 130, 80, 40}, QColor(QStringLiteral("OrangeRed"))));
    QVERIFY(shows(image, {90, 170, 120, 40}, Qt::white));
}

void TestSignalDial::wordsStandAroundTheMiddle()
{
    const QVector<PaintStep> words = writing();
    QCOMPARE(words.size(), 4);
    const QColor green(QStringLiteral("PaleGreen"));
    const QColor red(QStringLiteral("OrangeRed"));
    // The words' room is 180 wide and 190 high. Fonts may round by a pixel.
    const auto near = [](qreal found, qreal expected) { return qAbs(found - expected) <= 1.; };
    const PaintStep &good = words[0];
    QCOMPARE(good.text, QStringLiteral("Good"));
    QCOMPARE(good.pen, QPen(green));
    QVERIFY(near(good.textBounds.center().x(), 150) && near(good.textBounds.top(), 55));
    const PaintStep &best = words[1];
    QCOMPARE(best.text, QStringLiteral("Best"));
    QCOMPARE(best.pen, QPen(green));
    QVERIFY(near(best.textBounds.right(), 240) && near(best.textBounds.center().y(), 150));
    const PaintStep &poor = words[2];
    QCOMPARE(poor.text, QStringLiteral("Poor"));
    QCOMPARE(poor.pen, QPen(red));
    QVERIFY(near(poor.textBounds.left(), 60) && near(poor.textBounds.center().y(), 150));
}

void TestSignalDial::unitIsWrittenWithABroadWhitePen()
{
    const PaintStep unit = writing().last();
    QCOMPARE(unit.text, QStringLiteral("[dBm]"));
    QCOMPARE(unit.pen, QPen(QBrush(Qt::white), 10));
}

void TestSignalDial::unitStandsAtOnePlaceInEverySize()
{
    const QRect middle(130, 180, 40, 20);
    for (int size : {300, 400}) {
        SignalDial dial;
        dial.resize(size, size);
        QVERIFY(shows(dial.grab().toImage(), middle, Qt::white));
        dial.setLabel(QString());
        QVERIFY(!shows(dial.grab().toImage(), middle, Qt::white));
    }
}

void TestSignalDial::labelCanBeReplaced()
{
    SignalDial dial;
    dial.resize(300, 300);
    const QImage before = dial.grab().toImage();
    dial.setLabel(QStringLiteral("%"));
    const QImage after = dial.grab().toImage();
    QVERIFY(before != after);
    dial.setLabel(QStringLiteral("[dBm]"));
    QCOMPARE(dial.grab().toImage(), before);
}

void TestSignalDial::widgetKeepsTheSignal()
{
    SignalDialWidget widget;
    QCOMPARE(widget.SignalValue(), 0);
    const MessageLog log;
    widget.onSignalReturned(-60);
    QCOMPARE(widget.SignalValue(), -60);
    QCOMPARE(log.debugs(), QStringList{QStringLiteral("rssi update")});
}

void TestSignalDial::widgetPaintsEveryNewSignal()
{
    SignalDialWidget widget;
    const MessageLog quiet;
    QVERIFY(GraphTest::repaints(widget, [&widget] { widget.onSignalReturned(-60); }));
}

void TestSignalDial::widgetRendersNothing()
{
    SignalDialWidget widget;
    widget.resize(20, 20);
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QImage empty = image;
    QPainter painter(&image);
    const MessageLog log;
    widget.render(&painter, {}, {}, QWidget::DrawWindowBackground);
    painter.end();
    QCOMPARE(image, empty);
    QCOMPARE(log.debugs(), QStringList{QStringLiteral("update")});
}

QTEST_MAIN(TestSignalDial)
#include "tst_signaldial.moc"

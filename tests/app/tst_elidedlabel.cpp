#include "app/elidedlabel.h"
#include "app/ink.h"
#include "common/airtext.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QToolTip>
#include <QtTest>

namespace
{
const QString LongName(10000, QLatin1Char('W'));
const QString Hebrew = QStringLiteral("\u05e8\u05e9\u05ea \u05d1\u05d9\u05ea\u05d9\u05ea");

/// Points at `label` for as long as a tool tip takes; false when the event was not taken.
bool pointAt(ElidedLabel &label)
{
    QToolTip::hideText();
    const QPoint centre = label.rect().center();
    QHelpEvent event(QEvent::ToolTip, centre, label.mapToGlobal(centre));
    return QCoreApplication::sendEvent(&label, &event);
}
} // namespace

class TestElidedLabel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isPlainText();
    void keepsTheTextAsItWasSet();
    void asksForNoWidth_data();
    void asksForNoWidth();
    void letsItsLayoutBeAsNarrowAsItLikes();
    void drawsAFittingTextAsItIs();
    void elidesALongText();
    void keepsToOneLine_data();
    void keepsToOneLine();
    void drawsMarkupLiterally();
    void standsWhereTheAlignmentSays();
    void rightToLeftTextStandsOnTheRight();
    void cannotBeTurnedByDirectionMarks();
    void tellsALongTextWholeInItsToolTip();
    void toolTipShowsMarkupLiterally();
    void needsNoToolTipWhenTheTextFits();
    void toolTipOfAHugeTextStaysReadable();

private:
    QScopedPointer<ElidedLabel> m_label;
};

void TestElidedLabel::init()
{
    m_label.reset(new ElidedLabel);
    m_label->resize(200, 20);
}

void TestElidedLabel::isPlainText()
{
    QCOMPARE(m_label->textFormat(), Qt::PlainText);
}

void TestElidedLabel::keepsTheTextAsItWasSet()
{
    const QString text = LongName + QStringLiteral("<b>\n\u202e") + QChar(0);
    m_label->setText(text);
    m_label->grab();
    QCOMPARE(m_label->text(), text);
}

void TestElidedLabel::asksForNoWidth_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("short") << QStringLiteral("Home");
    QTest::newRow("huge") << LongName;
    QTest::newRow("many lines") << QString(1000, QLatin1Char('\n'));
}

void TestElidedLabel::asksForNoWidth()
{
    QFETCH(QString, text);
    m_label->setText(text);
    const QSize oneLine(0, m_label->fontMetrics().height());
    QCOMPARE(m_label->sizeHint(), oneLine);
    QCOMPARE(m_label->minimumSizeHint(), oneLine);
    QCOMPARE(m_label->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
}

void TestElidedLabel::letsItsLayoutBeAsNarrowAsItLikes()
{
    QWidget box;
    QHBoxLayout row(&box);
    row.setContentsMargins(0, 0, 0, 0);
    ElidedLabel *label = new ElidedLabel;
    row.addWidget(label);
    const QSize before = row.minimumSize();
    label->setText(LongName);
    row.invalidate();
    QCOMPARE(row.minimumSize(), before);
    box.resize(90, 30);
    box.show();
    QCOMPARE(box.width(), 90);
    QCOMPARE(label->width(), 90);
}

void TestElidedLabel::drawsAFittingTextAsItIs()
{
    m_label->setText(QStringLiteral("Home network"));
    QLabel plain(QStringLiteral("Home network"));
    plain.resize(m_label->size());
    QCOMPARE(m_label->grab().toImage(), plain.grab().toImage());
}

void TestElidedLabel::elidesALongText()
{
    m_label->setText(LongName);
    const QImage elided = m_label->grab().toImage();
    QVERIFY(inkOf(m_label.data()).right() < m_label->width());
    const QString shown =
        m_label->fontMetrics().elidedText(LongName.left(256), Qt::ElideRight, m_label->width());
    QVERIFY(shown.endsWith(QChar(0x2026)));
    m_label->setText(shown);
    QCOMPARE(elided, m_label->grab().toImage());
}

void TestElidedLabel::keepsToOneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("line feed") << QStringLiteral("one\ntwo\nthree");
    QTest::newRow("carriage return") << QStringLiteral("one\rtwo\r\nthree");
    QTest::newRow("line separator") << QStringLiteral("one\u2028two\u2029three");
    QTest::newRow("ampersand") << QStringLiteral("Fish & Chips && more");
    QTest::newRow("nothing but controls") << QString(32, QLatin1Char('\n'));
}

void TestElidedLabel::keepsToOneLine()
{
    QFETCH(QString, text);
    m_label->resize(400, 120);
    m_label->setText(text);
    const QRect drawn = inkOf(m_label.data());
    QVERIFY(!drawn.isEmpty());
    QVERIFY2(drawn.height() <= 2 * m_label->fontMetrics().height(),
        qPrintable(QString::number(drawn.height())));
    QVERIFY(drawn.right() < m_label->width());
}

void TestElidedLabel::drawsMarkupLiterally()
{
    m_label->setText(QStringLiteral("i"));
    const int bare = inkOf(m_label.data()).width();
    m_label->setText(QStringLiteral("<b>i</b>"));
    QVERIFY(inkOf(m_label.data()).width() > 5 * bare);
    // And without the marks that labels turn into underlines.
    m_label->setText(QStringLiteral("i&i"));
    QVERIFY(inkOf(m_label.data()).width() > 3 * bare);
}

void TestElidedLabel::standsWhereTheAlignmentSays()
{
    m_label->setText(QStringLiteral("Home"));
    m_label->setAlignment(Qt::AlignCenter);
    const QPoint centre = inkOf(m_label.data()).center();
    QVERIFY(qAbs(centre.x() - m_label->rect().center().x()) <= 1);
    m_label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QVERIFY(inkOf(m_label.data()).right() > m_label->width() - 5);
    m_label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QVERIFY(inkOf(m_label.data()).left() < 5);
}

void TestElidedLabel::rightToLeftTextStandsOnTheRight()
{
    m_label->setText(Hebrew);
    QVERIFY(inkOf(m_label.data()).right() > m_label->width() - 5);
    // The interface's direction does not matter, only the text's own.
    m_label->setLayoutDirection(Qt::RightToLeft);
    QVERIFY(inkOf(m_label.data()).right() > m_label->width() - 5);
    m_label->setText(QStringLiteral("Home"));
    QVERIFY(inkOf(m_label.data()).left() < 5);
}

void TestElidedLabel::cannotBeTurnedByDirectionMarks()
{
    // Without the override the letters after it would run backwards.
    m_label->setText(QStringLiteral("\u202eemoH"));
    const QImage marked = m_label->grab().toImage();
    m_label->setText(QStringLiteral("\ufffdemoH"));
    QCOMPARE(marked, m_label->grab().toImage());
}

void TestElidedLabel::tellsALongTextWholeInItsToolTip()
{
    const QString text = QStringLiteral("A name that is too long for its label by far");
    m_label->resize(100, 20);
    m_label->setText(text);
    QVERIFY(pointAt(*m_label));
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), AirText::ForToolTip({text}));
}

void TestElidedLabel::toolTipShowsMarkupLiterally()
{
    m_label->resize(20, 20);
    m_label->setText(QStringLiteral("<img src=x> & \"<b>\""));
    QVERIFY(pointAt(*m_label));
    QVERIFY2(
        QToolTip::text().contains(QStringLiteral("&lt;img src=x&gt; &amp; &quot;&lt;b&gt;&quot;")),
        qPrintable(QToolTip::text()));
}

void TestElidedLabel::needsNoToolTipWhenTheTextFits()
{
    m_label->setText(QStringLiteral("Home"));
    QVERIFY(pointAt(*m_label));
    QCOMPARE(QToolTip::text(), QString());
    m_label->setText(QString());
    QVERIFY(pointAt(*m_label));
    QCOMPARE(QToolTip::text(), QString());
}

void TestElidedLabel::toolTipOfAHugeTextStaysReadable()
{
    m_label->setText(LongName);
    QVERIFY(pointAt(*m_label));
    QVERIFY(QToolTip::text().size() < 400);
    QVERIFY(QToolTip::text().contains(QStringLiteral("WWWW")));
}

QTEST_MAIN(TestElidedLabel)
#include "tst_elidedlabel.moc"

#include "common/airtext.h"

#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QtTest>

class TestAirText : public QObject
{
    Q_OBJECT

private slots:
    void showsOneHarmlessLine_data();
    void showsOneHarmlessLine();
    void cutsEndlessTexts();
    void neverCutsASurrogatePair();
    void toolTipsShowTextsAsTheyAre_data();
    void toolTipsShowTextsAsTheyAre();
    void toolTipsFoldLongLines();
};

void TestAirText::showsOneHarmlessLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");

    const auto same = [](const char *name, const QString &text) {
        QTest::newRow(name) << text << text;
    };
    same("empty", QString());
    same("plain", QStringLiteral("Home"));
    same("trailing blanks", QStringLiteral("Home  "));
    same("markup", QStringLiteral("<b>&amp;<img src=x>"));
    same("place holder", QStringLiteral("%1 %n %s"));
    same("emoji", QString::fromUtf8("\xf0\x9f\x93\xb6 caf\xc3\xa9"));
    same("Arabic", QString::fromUtf8("\xd8\xb4\xd8\xa8\xd9\x83\xd8\xa9"));
    QTest::newRow("line feed") << QStringLiteral("a\nb") << QStringLiteral(u"a\u240ab");
    QTest::newRow("NUL") << QString(QChar(u'\0')) << QStringLiteral(u"\u2400");
    QTest::newRow("escape") << QStringLiteral("\x1b[31m") << QStringLiteral(u"\u241b[31m");
    QTest::newRow("delete") << QString(QChar(0x7f)) << QStringLiteral(u"\u2421");
    QTest::newRow("C1 control") << QString(QChar(0x9b)) << QStringLiteral(u"\ufffd");
    QTest::newRow("line separator") << QString(QChar(0x2028)) << QStringLiteral(u"\u2424");
    QTest::newRow("right-to-left override")
        << QStringLiteral(u"a\u202eb") << QStringLiteral(u"a\ufffdb");
    QTest::newRow("isolate") << QStringLiteral(u"\u2067x\u2069")
                             << QStringLiteral(u"\ufffdx\ufffd");
}

void TestAirText::showsOneHarmlessLine()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QCOMPARE(AirText::ForDisplay(text), shown);
}

void TestAirText::cutsEndlessTexts()
{
    const QString whole(AirText::MaxShown, QLatin1Char('x'));
    QCOMPARE(AirText::ForDisplay(whole), whole);
    QCOMPARE(AirText::ForDisplay(whole + QLatin1Char('y')), whole + QChar(0x2026));
    QCOMPARE(AirText::ForDisplay(QString(1000000, QLatin1Char('z'))).size(), AirText::MaxShown + 1);
}

void TestAirText::neverCutsASurrogatePair()
{
    const QString emoji = QString::fromUtf8("\xf0\x9f\x93\xb6");
    const QString text = QString(AirText::MaxShown - 1, QLatin1Char('x')) + emoji + emoji;
    QCOMPARE(AirText::ForDisplay(text),
        QString(AirText::MaxShown - 1, QLatin1Char('x')) + QChar(0x2026));
}

void TestAirText::toolTipsShowTextsAsTheyAre_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("shown");
    const auto one = [](const char *name, const QString &line, const QString &shown) {
        QTest::newRow(name) << QStringList(line) << shown;
    };
    one("plain", QStringLiteral("Home"), QStringLiteral("Home"));
    one("markup", QStringLiteral("<b>x</b><img src='/dev/zero'>&lt;"),
        QStringLiteral("<b>x</b><img src='/dev/zero'>&lt;"));
    one("blanks", QStringLiteral("a   b"), QStringLiteral("a   b"));
    one("end of our own markup", QStringLiteral("</div><h1>"), QStringLiteral("</div><h1>"));
    one("line feed", QStringLiteral("a\nb"), QStringLiteral(u"a\u240ab"));
    one("place holder", QStringLiteral("%1 %s"), QStringLiteral("%1 %s"));
    QTest::newRow("several lines")
        << QStringList({QStringLiteral("a"), QStringLiteral("<i>"), QStringLiteral("N/A")})
        << QStringLiteral("a\n<i>\nN/A");
}

void TestAirText::toolTipsShowTextsAsTheyAre()
{
    QFETCH(QStringList, lines);
    QFETCH(QString, shown);
    const QString tip = AirText::ForToolTip(lines);
    QVERIFY(Qt::mightBeRichText(tip));
    QCOMPARE(QTextDocumentFragment::fromHtml(tip).toPlainText(), shown);
}

void TestAirText::toolTipsFoldLongLines()
{
    const QString couple = QString::fromUtf8("\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x91\xa6");
    for (const QString &sign : {QStringLiteral("W"), couple, QString::fromUtf8("e\xcc\x81")}) {
        // Out of step with the columns.
        const QString text = QLatin1Char('x') + sign.repeated(250 / sign.size());
        const QStringList lines = QTextDocumentFragment::fromHtml(AirText::ForToolTip({text}))
                                      .toPlainText()
                                      .split(QLatin1Char('\n'));
        QVERIFY(lines.size() > 4);
        QCOMPARE(lines.join(QString()), text);
        for (const QString &line : lines) {
            QVERIFY(line.size() <= AirText::ToolTipColumns);
            QCOMPARE(line.count(sign) * sign.size(),
                line.startsWith(QLatin1Char('x')) ? line.size() - 1 : line.size());
        }
    }
    // Marks without an end on one letter make one character without an end.
    const QString pile = QLatin1Char('e') + QString(1000, QChar(0x0301));
    const QString tip = AirText::ForToolTip({pile, QString(), QString(1000000, QLatin1Char('x'))});
    QVERIFY(tip.size() < 1000);
    const QStringList lines =
        QTextDocumentFragment::fromHtml(tip).toPlainText().split(QLatin1Char('\n'));
    for (const QString &line : lines)
        QVERIFY(line.size() <= AirText::ToolTipColumns);
}

QTEST_MAIN(TestAirText)
#include "tst_airtext.moc"

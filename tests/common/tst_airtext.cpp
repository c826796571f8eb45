#include "common/airtext.h"

#include <QtTest>

class TestAirText : public QObject
{
    Q_OBJECT

private slots:
    void showsOneHarmlessLine_data();
    void showsOneHarmlessLine();
    void cutsEndlessTexts();
    void neverCutsASurrogatePair();
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

QTEST_APPLESS_MAIN(TestAirText)
#include "tst_airtext.moc"

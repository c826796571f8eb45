#include "hometest/onelinevalidator.h"

#include <QLineEdit>
#include <QtTest>

class TestOneLineValidator : public QObject
{
    Q_OBJECT

private slots:
    void turnsLineBreaksIntoBlanks_data();
    void turnsLineBreaksIntoBlanks();
    void accepts_data();
    void accepts();
};

void TestOneLineValidator::turnsLineBreaksIntoBlanks_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("line feed") << QStringLiteral("a\nb") << QStringLiteral("a b");
    QTest::newRow("carriage return and line feed")
        << QStringLiteral("a\r\nb") << QStringLiteral("a  b");
    QTest::newRow("line separator") << QStringLiteral("a\u2028b") << QStringLiteral("a b");
    QTest::newRow("paragraph separator") << QStringLiteral("a\u2029b") << QStringLiteral("a b");
    QTest::newRow("next line") << QStringLiteral("a\u0085b") << QStringLiteral("a b");
    QTest::newRow("nothing to do") << QStringLiteral("a\tb %1") << QStringLiteral("a\tb %1");
}

void TestOneLineValidator::turnsLineBreaksIntoBlanks()
{
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    QLineEdit edit;
    edit.setValidator(new OneLineValidator(&edit));
    edit.insert(typed);
    QCOMPARE(edit.text(), kept);
    edit.setText(typed);
    QCOMPARE(edit.text(), kept);
}

void TestOneLineValidator::accepts_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("nothing") << QString();
    QTest::newRow("5,000 characters") << QString(5000, QLatin1Char('x'));
    QTest::newRow("markup") << QStringLiteral("<b>x</b>");
}

void TestOneLineValidator::accepts()
{
    QFETCH(QString, typed);
    QString text = typed;
    int position = 0;
    QCOMPARE(OneLineValidator().validate(text, position), QValidator::Acceptable);
    QCOMPARE(text, typed);
}

QTEST_MAIN(TestOneLineValidator)
#include "tst_onelinevalidator.moc"

#include "i18n/languagelabels.h"

#include <QtTest>

class TestLanguageLabels : public QObject
{
    Q_OBJECT

private slots:
    void holdsTheFixedTexts_data();
    void holdsTheFixedTexts();
};

void TestLanguageLabels::holdsTheFixedTexts_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const QString &member, const char *value) {
        QTest::newRow(name) << member << QString::fromLatin1(value);
    };
    row("default language", LanguageLabels::m_strDefaultLang, "enu");
    row("file name", LanguageLabels::m_strLangFinleName, "AirlumeLang.txt");
    row("poor", LanguageLabels::m_strLangBoardPoor, "Poor");
    row("good", LanguageLabels::m_strLangBoardGood, "Good");
    row("best", LanguageLabels::m_strLangBoardBest, "Best");
    row("signal strength", LanguageLabels::m_strLangBoardSignalStrength, "Signal Strength");
    row("now", LanguageLabels::m_strHomeTestNow, "Now:");
    row("last", LanguageLabels::m_strHomeTestLast, "Last:");
    row("signal and", LanguageLabels::m_strHomeTestSignalAnd, " signal and ");
    row("unit", LanguageLabels::m_strHomeTestUnit, " Mbps");
    row("none", LanguageLabels::m_strHomeTestNull, "N/A");
    row("now percent", LanguageLabels::m_strHomeTestININowPercent, "NowPercent");
    row("now speed", LanguageLabels::m_strHomeTestININowSpeed, "NowSpeed");
    row("last percent", LanguageLabels::m_strHomeTestINILastPercent, "LastPercent");
    row("last speed", LanguageLabels::m_strHomeTestINILastSpeed, "LastSpeed");
    row("empty", LanguageLabels::m_strEmpty, "");
    row("red", LanguageLabels::m_strColorRed, "<html><font color=red>%1</font></html>");
}

void TestLanguageLabels::holdsTheFixedTexts()
{
    QFETCH(QString, member);
    QFETCH(QString, value);
    QCOMPARE(member, value);
}

QTEST_APPLESS_MAIN(TestLanguageLabels)
#include "tst_languagelabels.moc"

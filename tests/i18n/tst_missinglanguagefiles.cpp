#include "common/QtCommonTools.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"

#include <QtTest>

class TestMissingLanguageFiles : public QObject
{
    Q_OBJECT

private slots:
    void reportsEachMissingFileAndGivesEmptyTexts();
};

void TestMissingLanguageFiles::reportsEachMissingFileAndGivesEmptyTexts()
{
    MessageLog log;
    QtCommonTools::Init();
    QCOMPARE(log.criticals().size(), 25);
    const QRegularExpression expected(QRegularExpression::anchoredPattern(QStringLiteral(
        ":/i18n/enu/AirlumeLang\\.txt not find\\.file:languagefileoperate function:ReadAllLang "
        "line:\\d+ ")));
    QVERIFY2(
        expected.match(log.criticals().first()).hasMatch(), qPrintable(log.criticals().first()));

    QString code = QStringLiteral("deu");
    QVERIFY(QtCommonTools::IsFindLang(code));
    QtCommonTools::GetLangNm() = code;
    QCOMPARE(QtCommonTools::tr(LanguageLabels::m_strHomeTest), QString());
    QtCommonTools::Release();
}

QTEST_GUILESS_MAIN(TestMissingLanguageFiles)
#include "tst_missinglanguagefiles.moc"

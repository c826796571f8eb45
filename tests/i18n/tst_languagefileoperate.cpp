#include "common/QtCommonTools.h"
#include "i18n/languagefileoperate.h"
#include "i18n/languagelabels.h"
#include "support/languagecodes.h"
#include "support/messagelog.h"

#include <QtTest>

class TestLanguageFileOperate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void init() { QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang; }
    void takesLinesApart_data();
    void takesLinesApart();
    void ignoresCommentsAndLinesWithoutEquals_data();
    void ignoresCommentsAndLinesWithoutEquals();
    void readsEveryEnglishText_data();
    void readsEveryEnglishText();
    void findsTheFilesOfAllLanguages();
    void givesAnEmptyTextForAnUnknownKey();
    void givesEmptyTextsForAnUnknownLanguage();
    void followsTheCurrentLanguageWithoutReadingFilesAgain();
    void knowsTheCodesExactly_data();
    void knowsTheCodesExactly();
    void readingAgainKeepsTheTexts();
};

void TestLanguageFileOperate::takesLinesApart_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *line, const char *key, const char *text) {
        QTest::newRow(name) << QString::fromUtf8(line) << QString::fromUtf8(key)
                            << QString::fromUtf8(text);
    };
    row("plain", "L_A=\"Add Room\"", "L_A", "Add Room");
    row("blanks around the equals sign belong to key and text", "L_A = \"x\"", "L_A ", " \"x");
    row("two quotes", "L_A=\"\"", "L_A", "");
    row("one quote", "L_A=\"", "L_A", "");
    row("nothing", "L_A=", "L_A", "");
    row("a text with an equals sign", "L_A=\"a=b=c\"", "L_A", "a=b=c");
    row("no quotes", "L_A=x y", "L_A", "x y");
    row("quotes inside", "L_A=\"say \"hi\" now\"", "L_A", "say \"hi\" now");
    row("only a closing quote", "L_A=x\"", "L_A", "x");
    row("a hash inside", "L_A=\"# of Networks\"", "L_A", "# of Networks");
    row("a blank before a hash", " #L_A=\"x\"", " #L_A", "x");
    row("an empty key", "=\"x\"", "", "x");
}

void TestLanguageFileOperate::takesLinesApart()
{
    QFETCH(QString, line);
    QFETCH(QString, key);
    QFETCH(QString, text);
    const LanguageEntry entry = ParseLanguageLine(line);
    QVERIFY(entry.valid);
    QCOMPARE(entry.key, key);
    QCOMPARE(entry.text, text);
}

void TestLanguageFileOperate::ignoresCommentsAndLinesWithoutEquals_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral("  ");
    QTest::newRow("hash") << QStringLiteral("#L_A=\"x\"");
    QTest::newRow("slash") << QStringLiteral("/L_A=\"x\"");
    QTest::newRow("slashes") << QStringLiteral("// L_A=\"x\"");
    QTest::newRow("no equals") << QStringLiteral("L_A \"x\"");
}

void TestLanguageFileOperate::ignoresCommentsAndLinesWithoutEquals()
{
    QFETCH(QString, line);
    QVERIFY(!ParseLanguageLine(line).valid);
}

void TestLanguageFileOperate::readsEveryEnglishText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    const auto row = [](const QString &key, const char *text) {
        QTest::newRow(qPrintable(key)) << key << QString::fromLatin1(text);
    };
    row(LanguageLabels::m_strLangHeadSSID, "SSID");
    row(LanguageLabels::m_strLangHeadSignal, "Signal(dBm)");
    row(LanguageLabels::m_strLangHeadChannel, "Channel");
    row(LanguageLabels::m_strLangHeadSecurity, "Security");
    row(LanguageLabels::m_strLangHeadMac, "BSSID");
    row(LanguageLabels::m_strLangBoardConnectedNetwork, "Connected to");
    row(LanguageLabels::m_strLangBoardNoNetworkConn, "Not Connected");
    row(LanguageLabels::m_strLangSignalGraph, "Signal Graph");
    row(LanguageLabels::m_strLangChannelGraph, "Channel Graph");
    row(LanguageLabels::m_strLangChannelInterface, "Channel Interference");
    row(LanguageLabels::m_strLangCurrentChannel, "Current Channel:");
    row(LanguageLabels::m_strLangChannelConn, "# of Networks on this channel");
    row(LanguageLabels::m_strLangRecommendedTags, "Recommended Channels:");
    row(LanguageLabels::m_strLangStrengthPoor, "POOR");
    row(LanguageLabels::m_strLangStrengthAverage, "AVERAGE");
    row(LanguageLabels::m_strLangStrengthGreat, "GREAT");
    row(LanguageLabels::m_strLangStrengthBest, "BEST");
    row(LanguageLabels::m_strLstHeadChannel, "Channel");
    row(LanguageLabels::m_strLstHeadNetworkConnCount, "Number of Networks");
    row(LanguageLabels::m_strLstHeadClarity, "Channel clarity");
    row(LanguageLabels::m_strHomeTestTitle, "Home Testing");
    row(LanguageLabels::m_strHomAddRoom, "Add Room");
    row(LanguageLabels::m_strHomeEditRoom, "Edit Room");
    row(LanguageLabels::m_strHomeDelRoom, "Delete Room");
    row(LanguageLabels::m_strHomeTest, "Test");
    row(LanguageLabels::m_strHomeDlgOk, "OK");
    row(LanguageLabels::m_strHomeDlgCancel, "Cancel");
    row(LanguageLabels::m_strHomeDlgRoomName, "Room Name");
    row(LanguageLabels::m_strHomeDlgRoomNameIsNull, "The room name cannot be empty");
    row(LanguageLabels::m_strHomeDlgRoomNameIsRepeat, "The room name already exists");
}

void TestLanguageFileOperate::readsEveryEnglishText()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QCOMPARE(QtCommonTools::tr(key), text);
}

void TestLanguageFileOperate::findsTheFilesOfAllLanguages()
{
    MessageLog log;
    LanguageFileOperate languages;
    QCOMPARE(log.criticals(), QStringList());
}

void TestLanguageFileOperate::givesAnEmptyTextForAnUnknownKey()
{
    QCOMPARE(QtCommonTools::tr(QStringLiteral("L_NOBODY_HAS_THIS")), QString());
    QCOMPARE(QtCommonTools::tr(QStringLiteral("L_NOBODY_HAS_THIS")), QString());
    QCOMPARE(QtCommonTools::tr(QString()), QString());
}

void TestLanguageFileOperate::givesEmptyTextsForAnUnknownLanguage()
{
    QtCommonTools::GetLangNm() = QStringLiteral("xyz");
    QCOMPARE(QtCommonTools::tr(LanguageLabels::m_strHomeTest), QString());
}

void TestLanguageFileOperate::followsTheCurrentLanguageWithoutReadingFilesAgain()
{
    const QString english = QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel);
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    QCOMPARE(QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel), QStringLiteral("Abbrechen"));
    QtCommonTools::GetLangNm() = QStringLiteral("enu");
    QCOMPARE(QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel), english);
}

void TestLanguageFileOperate::knowsTheCodesExactly_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<bool>("known");
    for (const char *code : LanguageCodes)
        QTest::newRow(code) << QString::fromLatin1(code) << true;
    for (const char *code : {"", "ENU", "deu\n", " deu", "de", "xyz"})
        QTest::addRow("not '%s'", code) << QString::fromLatin1(code) << false;
}

void TestLanguageFileOperate::knowsTheCodesExactly()
{
    QFETCH(QString, code);
    QFETCH(bool, known);
    QCOMPARE(QtCommonTools::IsFindLang(code), known);
}

void TestLanguageFileOperate::readingAgainKeepsTheTexts()
{
    QtCommonTools::m_pLangFileOperate->ReadAllLang();
    QCOMPARE(QtCommonTools::tr(LanguageLabels::m_strHomeTest), QStringLiteral("Test"));
}

QTEST_GUILESS_MAIN(TestLanguageFileOperate)
#include "tst_languagefileoperate.moc"

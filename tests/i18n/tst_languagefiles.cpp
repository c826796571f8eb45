#include "languagefilecheck.h"

#include "i18n/languagefileoperate.h"
#include "i18n/languagelabels.h"
#include "support/languagecodes.h"
#include "support/messagelog.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace
{
const QString FileName = QStringLiteral("AirlumeLang.txt");

QStringList codes()
{
    QStringList all;
    for (const char *code : LanguageCodes)
        all.append(QLatin1String(code));
    return all;
}

QString embeddedFolder()
{
    return QStringLiteral(":/i18n");
}

QString sourceFolder()
{
    return QStringLiteral(AIRLUME_SOURCE_DIR "/src/resources/i18n");
}

QByteArray read(const QString &folder, const QString &code)
{
    QFile file(folder + QLatin1Char('/') + code + QLatin1Char('/') + FileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

LanguageFileCheck::Texts embeddedTexts(const QString &code)
{
    return LanguageFileCheck::texts(read(embeddedFolder(), code));
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/// A small sound file, with `from` replaced by `to`.
QByteArray spoiled(const char *from, const char *to)
{
    QByteArray file("# A comment.\n\nL_A=\"Eins\"\nL_B_C=\"Zw\xc3\xb6lf (drei) und\"\n");
    return file.replace(from, to);
}
} // namespace

/// The language files that ship, and the check that judges them.
class TestLanguageFiles : public QObject
{
    Q_OBJECT

private slots:
    void everyLanguageHasItsFolderAndNothingElseLiesThere();
    void embeddedFilesAreTheOnesInTheSources_data() { eachCode(); }
    void embeddedFilesAreTheOnesInTheSources();
    void everyFileHasTheShapeOfTheEnglishOne_data() { eachCode(); }
    void everyFileHasTheShapeOfTheEnglishOne();
    void everyFileHasTheKeysTheProgramAsksFor_data() { eachCode(); }
    void everyFileHasTheKeysTheProgramAsksFor();
    void everyFileIsWellFormed_data() { eachCode(); }
    void everyFileIsWellFormed();
    void everyTextIsWordedInItsLanguage_data() { eachCode(); }
    void everyTextIsWordedInItsLanguage();
    void termsOfWiFiStayAsTheyAre_data() { eachCode(); }
    void termsOfWiFiStayAsTheyAre();
    void theSameWordNamesTheChannelInBothLists_data() { eachCode(); }
    void theSameWordNamesTheChannelInBothLists();
    void textsAreReadAsWritten_data() { eachCode(); }
    void textsAreReadAsWritten();
    void theProgramFindsEveryFile();
    void theCheckSeesFaultsOfForm_data();
    void theCheckSeesFaultsOfForm();
    void theCheckSeesFaultsOfWording_data();
    void theCheckSeesFaultsOfWording();

private:
    void eachCode();
};

void TestLanguageFiles::eachCode()
{
    QTest::addColumn<QString>("code");
    const QStringList all = codes();
    for (const QString &code : all)
        QTest::newRow(qUtf8Printable(code)) << code;
}

void TestLanguageFiles::everyLanguageHasItsFolderAndNothingElseLiesThere()
{
    const QStringList folders = {embeddedFolder(), sourceFolder()};
    for (const QString &folder : folders) {
        QCOMPARE(sorted(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot)),
            sorted(codes()));
        const QStringList all = codes();
        for (const QString &code : all)
            QCOMPARE(QDir(folder + QLatin1Char('/') + code)
                         .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                QStringList(FileName));
    }
}

void TestLanguageFiles::embeddedFilesAreTheOnesInTheSources()
{
    QFETCH(QString, code);
    const QByteArray embedded = read(embeddedFolder(), code);
    QVERIFY(!embedded.isEmpty());
    QVERIFY2(embedded == read(sourceFolder(), code), "built from another file");
}

void TestLanguageFiles::everyFileHasTheShapeOfTheEnglishOne()
{
    QFETCH(QString, code);
    QCOMPARE(LanguageFileCheck::shape(read(embeddedFolder(), code)),
        LanguageFileCheck::shape(read(embeddedFolder(), LanguageLabels::m_strDefaultLang)));
}

void TestLanguageFiles::everyFileHasTheKeysTheProgramAsksFor()
{
    QFETCH(QString, code);
    const QStringList asked = {LanguageLabels::m_strLangHeadSSID,
        LanguageLabels::m_strLangHeadSignal, LanguageLabels::m_strLangHeadChannel,
        LanguageLabels::m_strLangHeadSecurity, LanguageLabels::m_strLangHeadMac,
        LanguageLabels::m_strLangBoardConnectedNetwork, LanguageLabels::m_strLangBoardNoNetworkConn,
        LanguageLabels::m_strLangSignalGraph, LanguageLabels::m_strLangChannelGraph,
        LanguageLabels::m_strLangChannelInterface, LanguageLabels::m_strLangCurrentChannel,
        LanguageLabels::m_strLangChannelConn, LanguageLabels::m_strLangRecommendedTags,
        LanguageLabels::m_strLangStrengthPoor, LanguageLabels::m_strLangStrengthAverage,
        LanguageLabels::m_strLangStrengthGreat, LanguageLabels::m_strLangStrengthBest,
        LanguageLabels::m_strLstHeadChannel, LanguageLabels::m_strLstHeadNetworkConnCount,
        LanguageLabels::m_strLstHeadClarity, LanguageLabels::m_strHomeTestTitle,
        LanguageLabels::m_strHomAddRoom, LanguageLabels::m_strHomeEditRoom,
        LanguageLabels::m_strHomeDelRoom, LanguageLabels::m_strHomeTest,
        LanguageLabels::m_strHomeDlgOk, LanguageLabels::m_strHomeDlgCancel,
        LanguageLabels::m_strHomeDlgRoomName, LanguageLabels::m_strHomeDlgRoomNameIsNull,
        LanguageLabels::m_strHomeDlgRoomNameIsRepeat};
    QCOMPARE(asked.size(), 30);
    QCOMPARE(QStringList(embeddedTexts(code).keys()), sorted(asked));
}

void TestLanguageFiles::everyFileIsWellFormed()
{
    QFETCH(QString, code);
    QCOMPARE(LanguageFileCheck::formFaults(read(embeddedFolder(), code)), QStringList());
}

void TestLanguageFiles::everyTextIsWordedInItsLanguage()
{
    QFETCH(QString, code);
    QCOMPARE(LanguageFileCheck::wordingFaults(
                 code, embeddedTexts(code), embeddedTexts(LanguageLabels::m_strDefaultLang)),
        QStringList());
}

void TestLanguageFiles::termsOfWiFiStayAsTheyAre()
{
    QFETCH(QString, code);
    const LanguageFileCheck::Texts texts = embeddedTexts(code);
    QCOMPARE(texts.value(LanguageLabels::m_strLangHeadSSID), QStringLiteral("SSID"));
    QCOMPARE(texts.value(LanguageLabels::m_strLangHeadMac), QStringLiteral("BSSID"));
    const QString signal = texts.value(LanguageLabels::m_strLangHeadSignal);
    QVERIFY2(signal.endsWith(QLatin1String("(dBm)")), qUtf8Printable(signal));
    QVERIFY2(!signal.contains(QLatin1Char(' ')), "the column is too narrow for a blank");
}

void TestLanguageFiles::theSameWordNamesTheChannelInBothLists()
{
    QFETCH(QString, code);
    const LanguageFileCheck::Texts texts = embeddedTexts(code);
    QCOMPARE(texts.value(LanguageLabels::m_strLstHeadChannel),
        texts.value(LanguageLabels::m_strLangHeadChannel));
}

void TestLanguageFiles::textsAreReadAsWritten()
{
    QFETCH(QString, code);
    LanguageFileCheck::Texts parsed;
    const QStringList lines =
        QString::fromUtf8(read(embeddedFolder(), code)).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const LanguageEntry entry = ParseLanguageLine(line);
        if (entry.valid)
            parsed.insert(entry.key, entry.text);
    }
    QCOMPARE(parsed, embeddedTexts(code));
}

void TestLanguageFiles::theProgramFindsEveryFile()
{
    MessageLog log;
    const LanguageFileOperate languages;
    QCOMPARE(log.criticals(), QStringList());
    const QStringList all = codes();
    for (const QString &code : all)
        QVERIFY2(languages.IsFindLang(code), qUtf8Printable(code));
}

void TestLanguageFiles::theCheckSeesFaultsOfForm_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("fault");
    QTest::newRow("sound") << spoiled("", "") << QString();
    QTest::newRow("mark") << QByteArray("\xef\xbb\xbf") + spoiled("", "")
                          << QStringLiteral("byte-order mark");
    QTest::newRow("encoding") << spoiled("\xc3\xb6", "\xf6") << QStringLiteral("not UTF-8");
    QTest::newRow("decomposed") << spoiled("\xc3\xb6", "o\xcc\x88")
                                << QStringLiteral("not in normalisation form C");
    QTest::newRow("carriage return")
        << spoiled("\n\n", "\r\n\n") << QStringLiteral("carriage return");
    QTest::newRow("last line") << spoiled("und\"\n", "und\"")
                               << QStringLiteral("no line end after the last line");
    QTest::newRow("no closing quote") << spoiled("Eins\"", "Eins") << QStringLiteral("no entry: ");
    QTest::newRow("quote inside") << spoiled("Eins", "Ei\"ns") << QStringLiteral("no entry: ");
    QTest::newRow("blank before the sign")
        << spoiled("L_A=", "L_A =") << QStringLiteral("no entry: ");
    QTest::newRow("blank after the text")
        << spoiled("Eins\"", "Eins\" ") << QStringLiteral("no entry: ");
    QTest::newRow("lower case") << spoiled("L_A", "L_a") << QStringLiteral("no entry: ");
    QTest::newRow("empty") << spoiled("Eins", "") << QStringLiteral("L_A: empty text");
    QTest::newRow("leading blank")
        << spoiled("Eins", " Eins") << QStringLiteral("L_A: blank at an end");
    QTest::newRow("trailing no-break space")
        << spoiled("Eins", "Eins\xc2\xa0") << QStringLiteral("L_A: blank at an end");
    QTest::newRow("ideographic space")
        << spoiled("Eins", "E\xe3\x80\x80s") << QStringLiteral("L_A: odd blank");
    QTest::newRow("two blanks") << spoiled(" und", "  und") << QStringLiteral("L_B_C: two blanks");
    QTest::newRow("zero-width space")
        << spoiled("Eins", "Eins\xe2\x80\x8b") << QStringLiteral("L_A: invisible character");
    QTest::newRow("right-to-left mark")
        << spoiled("Eins", "Eins\xe2\x80\x8f") << QStringLiteral("L_A: invisible character");
    QTest::newRow("bracket") << spoiled("drei)", "drei") << QStringLiteral("L_B_C: unbalanced");
    QTest::newRow("repeated key") << spoiled("L_B_C", "L_A") << QStringLiteral("L_A: repeated");
}

void TestLanguageFiles::theCheckSeesFaultsOfForm()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, fault);
    const QStringList faults = LanguageFileCheck::formFaults(file);
    if (fault.isEmpty())
        QCOMPARE(faults, QStringList());
    else
        QVERIFY2(faults.size() == 1 && faults.first().startsWith(fault),
            qUtf8Printable(faults.join(QLatin1Char('\n'))));
}

void TestLanguageFiles::theCheckSeesFaultsOfWording_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fault");
    const QString best = LanguageLabels::m_strLangStrengthBest;
    const QString caption = LanguageLabels::m_strLangCurrentChannel;
    const QString connected = LanguageLabels::m_strLangBoardConnectedNetwork;
    const QString security = LanguageLabels::m_strLangHeadSecurity;
    const QString test = LanguageLabels::m_strHomeTest;
    const auto row = [](const char *name, const char *code, const QString &key, const char *text,
                         const char *fault) {
        QTest::newRow(name) << QString::fromLatin1(code) << key << QString::fromUtf8(text)
                            << QString::fromLatin1(fault);
    };
    row("another word", "deu", best, "SEHR GUT", "");
    row("same rating", "deu", best, "Gut", "rating word used twice");
    row("no colon", "deu", caption, "Aktueller Kanal", "colon differs");
    row("full-width colon", "chs", caption, "当前信道：", "");
    row("colon where none belongs", "deu", security, "Sicherheit:", "colon differs");
    row("colon before a name", "deu", connected, "Verbunden:", "");
    row("French colon with a plain blank", "fra", caption, "Canal actuel :", "no no-break space");
    row("left in English", "deu", security, "Security", "left in English");
    row("same word in Norwegian", "nor", test, "Test", "");
    row("same word in German", "deu", test, "Test", "left in English");
    row("English word", "deu", security, "Channel-Test", "English word");
    row("Latin letter in Cyrillic", "rus", security, "\u0417a\u0449\u0438\u0442\u0430",
        "foreign letters a");
    row("Cyrillic letter in Latin", "deu", security, "S\u0441hutz", "foreign letters");
    row("cedilla in Romanian", "rom", security, "Poşta", "foreign letters");
    row("cedilla in Turkish", "tur", security, "Şifreleme", "");
}

void TestLanguageFiles::theCheckSeesFaultsOfWording()
{
    QFETCH(QString, code);
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, fault);
    LanguageFileCheck::Texts texts = embeddedTexts(code);
    texts.insert(key, text);
    const QStringList faults = LanguageFileCheck::wordingFaults(
        code, texts, embeddedTexts(LanguageLabels::m_strDefaultLang));
    if (fault.isEmpty())
        QCOMPARE(faults, QStringList());
    else
        QVERIFY2(!faults.isEmpty() && faults.first().contains(fault),
            qUtf8Printable(faults.join(QLatin1Char('\n'))));
}

QTEST_APPLESS_MAIN(TestLanguageFiles)
#include "tst_languagefiles.moc"

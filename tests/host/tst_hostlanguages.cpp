#include "host/languagecode.h"
#include "support/languagecodes.h"

#include <QtTest>

using namespace AirlumeHost;

/// Which of Airlume's languages a locale gets.
class TestHostLanguages : public QObject
{
    Q_OBJECT

private slots:
    void knowsTheCodesOfAirlumeAndNoOthers();
    void localeHasItsLanguage_data();
    void localeHasItsLanguage();
    void firstVariableThatIsNotEmptyCounts_data();
    void firstVariableThatIsNotEmptyCounts();
};

void TestHostLanguages::knowsTheCodesOfAirlumeAndNoOthers()
{
    QStringList listed = QString::fromStdString(languageCodes()).split(QLatin1Char(' '));
    QStringList known;
    for (const char *code : LanguageCodes) {
        QVERIFY2(isLanguageCode(code), code);
        known.append(QLatin1String(code));
    }
    listed.sort();
    known.sort();
    QCOMPARE(listed, known);
    for (const char *other : {"", "DEU", "de", "deu\n", "xyz", "auto"})
        QVERIFY2(!isLanguageCode(other), other);
}

void TestHostLanguages::localeHasItsLanguage_data()
{
    QTest::addColumn<QByteArray>("code");
    const struct {
        const char *locale;
        const char *code;
    } rows[] = {
        {"en_GB.UTF-8", "enu"},
        {"de_DE.UTF-8", "deu"},
        {"de_AT@euro", "deu"},
        {"de", "deu"},
        {"sv_FI.UTF-8", "sve"},
        {"fr_CA.ISO-8859-1", "fra"},
        {"nl_BE.UTF-8", "nld"},
        {"it_CH.UTF-8", "ita"},
        {"es_MX.UTF-8", "esp"},
        {"da_DK.UTF-8", "dan"},
        {"fi_FI.UTF-8", "fin"},
        {"nb_NO.UTF-8", "nor"},
        {"nn_NO.UTF-8", "nor"},
        {"no_NO", "nor"},
        {"el_CY.UTF-8", "ell"},
        {"pt_BR.UTF-8", "ptb"},
        {"pt_PT.UTF-8", "ptb"},
        {"ru_UA.UTF-8", "rus"},
        {"pl_PL.UTF-8", "plk"},
        {"hu_HU.UTF-8", "hun"},
        {"cs_CZ.UTF-8", "csy"},
        {"sl_SI.UTF-8", "slv"},
        {"sk_SK.UTF-8", "sky"},
        {"ro_RO.UTF-8", "rom"},
        {"ko_KR.UTF-8", "kor"},
        {"ja_JP.eucJP", "jpn"},
        {"ar_EG.UTF-8", "ara"},
        {"tr_CY.UTF-8", "tur"},
        // Chinese: the script where it is named, otherwise the country.
        {"zh_CN.UTF-8", "chs"},
        {"zh_SG.GBK", "chs"},
        {"zh", "chs"},
        {"zh_TW.Big5", "cht"},
        {"zh_HK.UTF-8", "cht"},
        {"zh_MO", "cht"},
        {"zh_Hant", "cht"},
        {"zh-Hant-MY", "cht"},
        {"zh_Hans_HK.UTF-8", "chs"},
        {"zh_Hant_CN", "cht"},
        {"cmn_TW.UTF-8", "cht"},
        {"yue_HK.UTF-8", "cht"},
        // However it is written.
        {"DE_de.utf8", "deu"},
        {"ZH_hant_tw", "cht"},
        // None, unknown ones and what only begins like a known one.
        {"", "enu"},
        {"C", "enu"},
        {"C.UTF-8", "enu"},
        {"POSIX", "enu"},
        {"xx_YY.UTF-8", "enu"},
        {"fil_PH", "enu"},
        {"nds_DE", "enu"},
        {"ca_ES.UTF-8", "enu"},
        {"deu", "enu"},
        {"d", "enu"},
        {"_DE", "enu"},
        {"-_.@", "enu"},
        {"zh_", "chs"},
        {"zh__TW", "cht"},
        {"zh.TW", "chs"},
    };
    for (const auto &row : rows)
        QTest::newRow(row.locale) << QByteArray(row.code);
    QTest::newRow(QByteArray(100000, 'd').constData()) << QByteArray("enu");
}

void TestHostLanguages::localeHasItsLanguage()
{
    QFETCH(QByteArray, code);
    QCOMPARE(languageOfLocale(QTest::currentDataTag()), std::string_view(code.constData()));
}

void TestHostLanguages::firstVariableThatIsNotEmptyCounts_data()
{
    QTest::addColumn<QByteArray>("all");
    QTest::addColumn<QByteArray>("messages");
    QTest::addColumn<QByteArray>("lang");
    QTest::addColumn<QByteArray>("code");
    const QByteArray unset;
    QTest::newRow("none") << unset << unset << unset << QByteArray("enu");
    QTest::newRow("LANG") << unset << unset << QByteArray("fi_FI") << QByteArray("fin");
    QTest::newRow("LC_MESSAGES") << unset << QByteArray("ko_KR") << QByteArray("fi_FI")
                                 << QByteArray("kor");
    QTest::newRow("LC_ALL") << QByteArray("da_DK") << QByteArray("ko_KR") << QByteArray("fi_FI")
                            << QByteArray("dan");
    QTest::newRow("no locale before LANG")
        << QByteArray("C") << unset << QByteArray("fi_FI") << QByteArray("enu");
    QTest::newRow("no text") << unset << unset << QByteArray("\xff\xfe\x01") << QByteArray("enu");
    QTest::newRow("empty ones") << QByteArray("") << QByteArray("") << QByteArray("fi_FI")
                                << QByteArray("fin");
}

void TestHostLanguages::firstVariableThatIsNotEmptyCounts()
{
    const auto set = [](const char *name, const QByteArray &value) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    };
    QFETCH(QByteArray, all);
    QFETCH(QByteArray, messages);
    QFETCH(QByteArray, lang);
    QFETCH(QByteArray, code);
    set("LC_ALL", all);
    set("LC_MESSAGES", messages);
    set("LANG", lang);
    QCOMPARE(languageOfEnvironment(), std::string_view(code.constData()));
}

QTEST_GUILESS_MAIN(TestHostLanguages)
#include "tst_hostlanguages.moc"

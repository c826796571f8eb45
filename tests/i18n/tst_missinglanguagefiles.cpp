#include "common/QtCommonTools.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"

#include <QFile>
#include <QResource>
#include <QtTest>

namespace
{
bool matches(const QString &message, const char *pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QLatin1String(pattern)))
        .match(message)
        .hasMatch();
}
} // namespace

/// The loader in a program whose language files are missing or damaged.
class TestMissingLanguageFiles : public QObject
{
    Q_OBJECT

private slots:
    void reportsEachMissingFileAndGivesEmptyTexts();
    void reportsAFileThatCannotBeOpenedAndGoesOn();
};

void TestMissingLanguageFiles::reportsEachMissingFileAndGivesEmptyTexts()
{
    MessageLog log;
    QtCommonTools::Init();
    QCOMPARE(log.criticals().size(), 25);
    QVERIFY2(matches(log.criticals().first(),
                 ":/i18n/enu/AirlumeLang\\.txt not find\\.file:languagefileoperate "
                 "function:ReadAllLang line:\\d+ "),
        qPrintable(log.criticals().first()));

    QString code = QStringLiteral("deu");
    QVERIFY(QtCommonTools::IsFindLang(code));
    QtCommonTools::GetLangNm() = code;
    QCOMPARE(QtCommonTools::tr(LanguageLabels::m_strHomeTest), QString());
    QtCommonTools::Release();
}

void TestMissingLanguageFiles::reportsAFileThatCannotBeOpenedAndGoesOn()
{
    QFile resources(QStringLiteral(AIRLUME_BUILD_DIR "/tests/i18n/german.rcc"));
    QVERIFY(resources.open(QIODevice::ReadOnly));
    QByteArray content = resources.readAll();
    // Where the compressed text begins: broken there, the file exists and cannot be opened.
    const int start = content.indexOf("\x78\xda");
    QVERIFY(start > 0);
    content[start] = 0;
    const uchar *bytes = reinterpret_cast<const uchar *>(content.constData());
    QVERIFY(QResource::registerResource(bytes));
    MessageLog log;
    QtCommonTools::Init();
    const QStringList criticals = log.criticals();
    QString code = QStringLiteral("deu");
    const bool known = QtCommonTools::IsFindLang(code);
    QtCommonTools::GetLangNm() = code;
    const QString text = QtCommonTools::tr(LanguageLabels::m_strHomeTest);
    QtCommonTools::Release();
    QVERIFY(QResource::unregisterResource(bytes));

    // One message for each language, in order.
    QCOMPARE(criticals.size(), 25);
    QVERIFY2(matches(criticals.at(1),
                 ":/i18n/deu/AirlumeLang\\.txt open failed\\.file:languagefileoperate "
                 "function:ReadAllLang line:\\d+ "),
        qPrintable(criticals.at(1)));
    QVERIFY(criticals.at(2).startsWith(QLatin1String(":/i18n/sve/AirlumeLang.txt not find.")));
    QVERIFY(known);
    QCOMPARE(text, QString());
}

QTEST_GUILESS_MAIN(TestMissingLanguageFiles)
#include "tst_missinglanguagefiles.moc"

#include "common/QtCommonTools.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"

#include <QPainter>
#include <QWidget>
#include <QtTest>

class TestQtCommonTools : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase();
    void init() { QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang; }
    void setsAPaletteColorInEveryGroup();
    void setsAPaletteBrushInEveryGroup();
    void setsOnlyThePointSizeOfAFont();
    void reportsNullArguments_data();
    void reportsNullArguments();
    void coloursClarityWords_data();
    void coloursClarityWords();
    void leavesTheColourOfUnknownWords();
    void knowsClarityWordsOfTheCurrentLanguageOnly();
    void releaseFreesEverythingAndIsIdempotent();
};

void TestQtCommonTools::cleanupTestCase()
{
    QtCommonTools::Release();
}

void TestQtCommonTools::setsAPaletteColorInEveryGroup()
{
    QWidget widget;
    const QPalette before = widget.palette();
    QtCommonTools::SetPaletteColor(&widget, QPalette::WindowText, QColor(1, 2, 3));
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(widget.palette().brush(group, QPalette::WindowText), QBrush(QColor(1, 2, 3)));
        QCOMPARE(
            widget.palette().brush(group, QPalette::Base), before.brush(group, QPalette::Base));
    }
}

void TestQtCommonTools::setsAPaletteBrushInEveryGroup()
{
    QWidget widget;
    const QBrush brush(QColor(9, 8, 7), Qt::Dense4Pattern);
    QtCommonTools::SetPaletteBrush(&widget, QPalette::Base, brush);
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        QCOMPARE(widget.palette().brush(group, QPalette::Base), brush);
}

void TestQtCommonTools::setsOnlyThePointSizeOfAFont()
{
    QWidget widget;
    QFont font = widget.font();
    font.setItalic(true);
    widget.setFont(font);
    QtCommonTools::SetFontSize(&widget, 17);
    QCOMPARE(widget.font().pointSize(), 17);
    QVERIFY(widget.font().italic());

    QImage image(4, 4, QImage::Format_ARGB32);
    QPainter painter(&image);
    font.setBold(true);
    painter.setFont(font);
    QtCommonTools::SetFontSize(&painter, 12);
    QCOMPARE(painter.font().pointSize(), 12);
    QVERIFY(painter.font().bold());
}

void TestQtCommonTools::reportsNullArguments_data()
{
    QTest::addColumn<QString>("function");
    QTest::newRow("SetPaletteColor") << QStringLiteral("SetPaletteColor");
    QTest::newRow("SetPaletteBrush") << QStringLiteral("SetPaletteBrush");
    QTest::newRow("SetFontSize of a widget") << QStringLiteral("SetFontSize");
    QTest::newRow("SetFontSize of a painter") << QStringLiteral("SetFontSize");
    QTest::newRow("SetClarityColor") << QStringLiteral("SetClarityColor");
}

void TestQtCommonTools::reportsNullArguments()
{
    QFETCH(QString, function);
    const QString row = QString::fromLatin1(QTest::currentDataTag());
    MessageLog log;
    if (row == QLatin1String("SetPaletteColor"))
        QtCommonTools::SetPaletteColor(nullptr, QPalette::Base, Qt::red);
    else if (row == QLatin1String("SetPaletteBrush"))
        QtCommonTools::SetPaletteBrush(nullptr, QPalette::Base, QBrush(Qt::red));
    else if (row == QLatin1String("SetFontSize of a widget"))
        QtCommonTools::SetFontSize(static_cast<QWidget *>(nullptr), 11);
    else if (row == QLatin1String("SetFontSize of a painter"))
        QtCommonTools::SetFontSize(static_cast<QPainter *>(nullptr), 11);
    else
        QtCommonTools::SetClarityColor(nullptr, QStringLiteral("POOR"));

    QCOMPARE(log.criticals().size(), 1);
    const QRegularExpression expected(QRegularExpression::anchoredPattern(
        QStringLiteral("NUll pointfile:QtCommonTools function:%1 line:\\d+ ").arg(function)));
    QVERIFY2(
        expected.match(log.criticals().first()).hasMatch(), qPrintable(log.criticals().first()));
}

void TestQtCommonTools::coloursClarityWords_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QColor>("color");
    QTest::newRow("poor") << QStringLiteral("POOR") << QColor(194, 9, 9);
    QTest::newRow("average") << QStringLiteral("AVERAGE") << QColor(255, 193, 4);
    QTest::newRow("great") << QStringLiteral("GREAT") << QColor(52, 204, 52);
    QTest::newRow("best") << QStringLiteral("BEST") << QColor(4, 177, 82);
}

void TestQtCommonTools::coloursClarityWords()
{
    QFETCH(QString, word);
    QFETCH(QColor, color);
    QWidget widget;
    QtCommonTools::SetClarityColor(&widget, word);
    QCOMPARE(widget.palette().color(QPalette::Active, QPalette::WindowText), color);
    QCOMPARE(widget.palette().color(QPalette::Disabled, QPalette::WindowText), color);
}

void TestQtCommonTools::leavesTheColourOfUnknownWords()
{
    QWidget widget;
    const QPalette before = widget.palette();
    for (const char *word : {"poor", "", "POOR ", "GOOD"})
        QtCommonTools::SetClarityColor(&widget, QLatin1String(word));
    QCOMPARE(widget.palette(), before);
}

void TestQtCommonTools::knowsClarityWordsOfTheCurrentLanguageOnly()
{
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    QWidget widget;
    const QPalette before = widget.palette();
    QtCommonTools::SetClarityColor(&widget, QStringLiteral("POOR"));
    QCOMPARE(widget.palette(), before);
}

void TestQtCommonTools::releaseFreesEverythingAndIsIdempotent()
{
    QtCommonTools::Release();
    QVERIFY(!QtCommonTools::m_pLocalSocket);
    QVERIFY(!QtCommonTools::m_pLangFileOperate);
    QVERIFY(!QtCommonTools::GetIpcUdpClient());
    QtCommonTools::Release();
    QtCommonTools::Init();
    QCOMPARE(QtCommonTools::GetLangNm(), QStringLiteral("enu"));
}

QTEST_MAIN(TestQtCommonTools)
#include "tst_qtcommontools.moc"

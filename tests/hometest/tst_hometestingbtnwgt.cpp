#include "common/QtCommonTools.h"
#include "hometest/hometestingbtnwgt.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"

#include <QLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

class TestHomeTestingBtnWgt : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void startsWithAHiddenButton();
    void showsAndHidesTheButton();
    void oneClickIsOneSignal();
    void standsOnTheRight();
    void speaksTheCurrentLanguage();
    void aMissingButtonIsReported();
};

void TestHomeTestingBtnWgt::startsWithAHiddenButton()
{
    HomeTestingBtnWgt widget;
    const QPushButton *button = widget.findChild<QPushButton *>();
    QCOMPARE(button->objectName(), QStringLiteral("HomeTesting_btn_Test"));
    QCOMPARE(button->text(), QStringLiteral("Test"));
    QVERIFY(button->toolTip().contains(QStringLiteral("20 s")));
    QVERIFY(button->isHidden());
}

void TestHomeTestingBtnWgt::showsAndHidesTheButton()
{
    HomeTestingBtnWgt widget;
    const QPushButton *button = widget.findChild<QPushButton *>();
    widget.SetCurrentBtnVisible(true);
    QVERIFY(!button->isHidden());
    widget.SetCurrentBtnVisible(false);
    QVERIFY(button->isHidden());
}

void TestHomeTestingBtnWgt::oneClickIsOneSignal()
{
    HomeTestingBtnWgt widget;
    widget.SetCurrentBtnVisible(true);
    widget.show();
    QSignalSpy clicked(&widget, SIGNAL(ClickedCurrentBtn()));
    QTest::mouseClick(widget.findChild<QPushButton *>(), Qt::LeftButton);
    QCOMPARE(clicked.size(), 1);
    QTest::mouseClick(widget.findChild<QPushButton *>(), Qt::LeftButton);
    QCOMPARE(clicked.size(), 2);
}

void TestHomeTestingBtnWgt::standsOnTheRight()
{
    HomeTestingBtnWgt widget;
    widget.SetCurrentBtnVisible(true);
    widget.resize(400, 65);
    widget.grab();
    const QPushButton *button = widget.findChild<QPushButton *>();
    QVERIFY(button->geometry().left() > 200);
    QVERIFY(qAbs(button->geometry().center().y() - 32) <= 1);
    QCOMPARE(widget.layout()->itemAt(0)->alignment(), Qt::AlignRight | Qt::AlignVCenter);
}

void TestHomeTestingBtnWgt::speaksTheCurrentLanguage()
{
    HomeTestingBtnWgt widget;
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    widget.ChangeLanguage();
    const QString text = widget.findChild<QPushButton *>()->text();
    QCOMPARE(text, QtCommonTools::tr(LanguageLabels::m_strHomeTest));
    QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang;
    QVERIFY(text != QStringLiteral("Test"));
}

void TestHomeTestingBtnWgt::aMissingButtonIsReported()
{
    HomeTestingBtnWgt widget;
    delete widget.findChild<QPushButton *>();
    MessageLog log;
    widget.SetCurrentBtnVisible(true);
    widget.ChangeLanguage();
    widget.Init();
    const QStringList reports = log.criticals();
    QCOMPARE(reports.size(), 3);
    const char *const functions[] = {"SetCurrentBtnVisible", "ChangeLanguage", "Init"};
    for (int i = 0; i < 3; ++i)
        QVERIFY(reports.at(i).startsWith(
            QStringLiteral("NUll pointfile:hometestingbtnwgt function:%1 line:")
                .arg(QString::fromLatin1(functions[i]))));
}

QTEST_MAIN(TestHomeTestingBtnWgt)
#include "tst_hometestingbtnwgt.moc"

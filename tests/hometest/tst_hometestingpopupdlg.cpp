#include "common/QtCommonTools.h"
#include "hometest/hometestingpopupdlg.h"
#include "hometest/roomhouse.h"
#include "i18n/languagelabels.h"
#include "support/messagelog.h"
#include "support/paintrecord.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>
#include <QtTest>

namespace
{
QString red(const QString &text)
{
    return QStringLiteral("<html><font color=red>%1</font></html>").arg(text);
}
} // namespace

class TestHomeTestingPopupDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void asksForAName_data();
    void asksForAName();
    void asksWhetherToDelete();
    void itsRowsFollowOneAnother();
    void hasALeastWidthAndGrowsWithALongError();
    void theNameFitsItsFieldInEveryFont();
    void titleAndErrorStandInTheMiddle();
    void isFramelessAndGreyWithARoundedFrame();
    void refusesNamesOfBlanks_data();
    void refusesNamesOfBlanks();
    void refusesNamesThatExist();
    void acceptsNamesDifferingInCase();
    void sendsTheNameTrimmed();
    void sendsHostileNamesAsTheyAre_data();
    void sendsHostileNamesAsTheyAre();
    void aPastedLineBreakBecomesABlank();
    void namesHaveNoLimit();
    void theErrorGoesWithTheDialog_data();
    void theErrorGoesWithTheDialog();
    void theErrorNeverHoldsTheName();
    void textForTheQuestionIsDroppedOnPurpose();
    void theNameFieldHasTheKeyboard();
    void returnOnTheQuestionCancels();
    void aNewLanguageTranslatesEverything();
    void aNewLanguageTranslatesTheErrorShown();
    void aNewLanguageWithoutAnErrorShowsNone();
    void missingWidgetsAreReported();

private:
    QLabel *label(int index) const { return m_dialog->findChildren<QLabel *>().at(index); }
    QLabel *message() const { return label(1); }
    QLineEdit *edit() const { return m_dialog->findChild<QLineEdit *>(); }
    QPushButton *ok() const
    {
        return m_dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Ok"));
    }
    QPushButton *cancel() const
    {
        return m_dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Cancel"));
    }
    void show();
    void makeQuestion();

    QScopedPointer<HomeTestingPopupDlg> m_dialog;
};

void TestHomeTestingPopupDlg::initTestCase()
{
    RoomHouse::restartWithoutFile();
}

void TestHomeTestingPopupDlg::cleanupTestCase()
{
    QtCommonTools::Release();
}

void TestHomeTestingPopupDlg::init()
{
    m_dialog.reset(new HomeTestingPopupDlg(LanguageLabels::m_strHomAddRoom));
}

void TestHomeTestingPopupDlg::cleanup()
{
    m_dialog.reset();
    QtCommonTools::GetLangNm() = LanguageLabels::m_strDefaultLang;
}

void TestHomeTestingPopupDlg::makeQuestion()
{
    m_dialog.reset(new HomeTestingPopupDlg(LanguageLabels::m_strHomeDelRoom));
}

void TestHomeTestingPopupDlg::show()
{
    m_dialog->SetCurrentFocus();
    m_dialog->show();
    // Without a window system nobody activates a window that is shown again.
    QApplication::setActiveWindow(m_dialog.data());
    QTRY_COMPARE(QApplication::activeWindow(), m_dialog.data());
}

void TestHomeTestingPopupDlg::asksForAName_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("title");
    QTest::newRow("add") << LanguageLabels::m_strHomAddRoom << QStringLiteral("Add Room");
    QTest::newRow("edit") << LanguageLabels::m_strHomeEditRoom << QStringLiteral("Edit Room");
    QTest::newRow("any other key") << LanguageLabels::m_strHomeTest << QStringLiteral("Test");
}

void TestHomeTestingPopupDlg::asksForAName()
{
    QFETCH(QString, key);
    QFETCH(QString, title);
    m_dialog.reset(new HomeTestingPopupDlg(key));
    QCOMPARE(label(0)->text(), title);
    QCOMPARE(label(0)->font().pointSize(), 14);
    QCOMPARE(label(2)->text(), QStringLiteral("Room Name"));
    QVERIFY(!message()->isHidden());
    QCOMPARE(message()->text(), QString());
    QCOMPARE(edit()->minimumHeight(), 20);
    QCOMPARE(edit()->maximumHeight(), 20);
    for (const QPushButton *button : {ok(), cancel()}) {
        QCOMPARE(button->minimumHeight(), 24);
        QCOMPARE(button->maximumHeight(), 24);
    }
    QCOMPARE(ok()->text(), QStringLiteral("OK"));
    QCOMPARE(cancel()->text(), QStringLiteral("Cancel"));
    m_dialog->adjustSize();
    m_dialog->grab();
    QVERIFY(ok()->x() < cancel()->x());
    QVERIFY(label(0)->y() < edit()->y());
    QVERIFY(edit()->geometry().bottom() < ok()->y());
}

void TestHomeTestingPopupDlg::asksWhetherToDelete()
{
    makeQuestion();
    QCOMPARE(label(0)->text(), QStringLiteral("Delete Room"));
    QVERIFY(message()->isHidden());
    QVERIFY(!edit());
    QCOMPARE(m_dialog->findChildren<QLabel *>().size(), 2);
}

void TestHomeTestingPopupDlg::itsRowsFollowOneAnother()
{
    const auto firstOf = [](QLayoutItem *row) {
        return row->layout() ? row->layout()->itemAt(0)->widget() : nullptr;
    };
    QVBoxLayout *rows = qobject_cast<QVBoxLayout *>(m_dialog->layout());
    QVERIFY(rows);
    QCOMPARE(rows->count(), 5);
    QCOMPARE(firstOf(rows->itemAt(0)), label(0));
    QCOMPARE(rows->itemAt(0)->layout()->itemAt(0)->alignment(), Qt::AlignHCenter);
    QCOMPARE(firstOf(rows->itemAt(1)), message());
    QCOMPARE(rows->itemAt(1)->layout()->itemAt(0)->alignment(), Qt::AlignCenter);
    QVERIFY(rows->itemAt(2)->spacerItem());
    QCOMPARE(rows->stretch(2), 1);
    QCOMPARE(firstOf(rows->itemAt(3)), label(2));
    QCOMPARE(firstOf(rows->itemAt(4)), ok());

    makeQuestion();
    rows = qobject_cast<QVBoxLayout *>(m_dialog->layout());
    QCOMPARE(rows->count(), 3);
    QCOMPARE(firstOf(rows->itemAt(0)), label(0));
    QCOMPARE(firstOf(rows->itemAt(1)), message());
    QCOMPARE(firstOf(rows->itemAt(2)), ok());
}

void TestHomeTestingPopupDlg::hasALeastWidthAndGrowsWithALongError()
{
    makeQuestion();
    show();
    QVERIFY(m_dialog->width() >= 260);
    m_dialog->resize(1, 1);
    QTRY_VERIFY(m_dialog->width() >= 260);

    m_dialog.reset(new HomeTestingPopupDlg(LanguageLabels::m_strHomAddRoom));
    show();
    ok()->click();
    message()->setText(red(QStringLiteral("An error in many words, ").repeated(8)));
    QTRY_VERIFY(m_dialog->width() > message()->sizeHint().width());
    QVERIFY(message()->width() >= message()->sizeHint().width());
}

void TestHomeTestingPopupDlg::theNameFitsItsFieldInEveryFont()
{
    const QFont desktop = QApplication::font();
    QFont font = desktop;
    for (const int pointSize : {10, 14, 20, 10}) {
        font.setPointSize(pointSize);
        QApplication::setFont(font);
        QVERIFY(edit()->fontMetrics().height() <= 18);
        QCOMPARE(label(2)->font().pointSize(), pointSize);
        const HomeTestingPopupDlg fresh(LanguageLabels::m_strHomAddRoom);
        QCOMPARE(
            fresh.findChild<QLineEdit *>()->fontMetrics().height(), edit()->fontMetrics().height());
    }
    QApplication::setFont(desktop);
}

void TestHomeTestingPopupDlg::titleAndErrorStandInTheMiddle()
{
    ok()->click();
    m_dialog->resize(700, 200);
    PaintRecord record(m_dialog->size());
    m_dialog->render(&record);
    // Rich text is painted word by word.
    QRectF title;
    QRectF error;
    for (const PaintStep &step : record.texts()) {
        if (step.pen.color() == QColor(Qt::red))
            error |= step.textBounds;
        else if (step.font.pointSize() == 14)
            title |= step.textBounds;
    }
    QVERIFY(title.isValid() && title.width() < 600);
    QVERIFY(error.isValid() && error.width() < 600);
    QVERIFY2(qAbs(title.center().x() - 350) <= 3, qPrintable(QString::number(title.center().x())));
    QVERIFY2(qAbs(error.center().x() - 350) <= 3, qPrintable(QString::number(error.center().x())));
}

void TestHomeTestingPopupDlg::isFramelessAndGreyWithARoundedFrame()
{
    QCOMPARE(m_dialog->windowFlags() & Qt::WindowType_Mask, Qt::WindowFlags(Qt::Dialog));
    QVERIFY(m_dialog->windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(m_dialog->palette().color(QPalette::Window), QColor(216, 216, 216));
    QCOMPARE(m_dialog->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    const QImage image = m_dialog->grab().toImage();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    const QColor grey(216, 216, 216);
    const int middle = image.height() / 2;
    QVERIFY(image.pixelColor(0, middle).lightness() < 128);
    QVERIFY(image.pixelColor(right, middle).lightness() < 128);
    QVERIFY(image.pixelColor(image.width() / 2, bottom).lightness() < 128);
    QCOMPARE(image.pixelColor(0, 0), grey);
    QCOMPARE(image.pixelColor(right, bottom), grey);
    QCOMPARE(image.pixelColor(2, middle), grey);
}

void TestHomeTestingPopupDlg::refusesNamesOfBlanks_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing") << QString();
    QTest::newRow("blanks") << QStringLiteral("    ");
    QTest::newRow("tabs") << QStringLiteral(" \t ");
    QTest::newRow("other white space") << QStringLiteral("\u00a0\u3000\u2028");
}

void TestHomeTestingPopupDlg::refusesNamesOfBlanks()
{
    QFETCH(QString, name);
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    show();
    edit()->setText(name);
    ok()->click();
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(message()->text(), red(QStringLiteral("The room name cannot be empty")));
    QCOMPARE(sent.size(), 0);
}

void TestHomeTestingPopupDlg::refusesNamesThatExist()
{
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    show();
    QTest::keyClicks(edit(), QStringLiteral("  Kitchen "));
    QTest::keyClick(m_dialog->windowHandle(), Qt::Key_Return);
    QVERIFY(m_dialog->isVisible());
    QCOMPARE(message()->text(), red(QStringLiteral("The room name already exists")));
    QCOMPARE(sent.size(), 0);
}

void TestHomeTestingPopupDlg::acceptsNamesDifferingInCase()
{
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    show();
    edit()->setText(QStringLiteral("kitchen"));
    ok()->click();
    QCOMPARE(sent.size(), 1);
    QVERIFY(!m_dialog->isVisible());
}

void TestHomeTestingPopupDlg::sendsTheNameTrimmed()
{
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    show();
    QTest::keyClicks(edit(), QStringLiteral("  Guest  room "));
    ok()->click();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.first().first().toString(), QStringLiteral("Guest  room"));
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(message()->text(), QString());
}

void TestHomeTestingPopupDlg::sendsHostileNamesAsTheyAre_data()
{
    QTest::addColumn<QString>("name");
    int number = 0;
    for (const QString &name : RoomHouse::hostileNames())
        QTest::addRow("name %d", number++) << name;
    QTest::newRow("slash") << QStringLiteral("a/b");
}

void TestHomeTestingPopupDlg::sendsHostileNamesAsTheyAre()
{
    QFETCH(QString, name);
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    QString text = name;
    m_dialog->SetText(text);
    show();
    ok()->click();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.first().first().toString(), name);
}

void TestHomeTestingPopupDlg::aPastedLineBreakBecomesABlank()
{
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    show();
    QApplication::clipboard()->setText(QStringLiteral("Kitchen\nNow:99%"));
    QTest::keySequence(m_dialog->windowHandle(), QKeySequence::Paste);
    ok()->click();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.first().first().toString(), QStringLiteral("Kitchen Now:99%"));
}

void TestHomeTestingPopupDlg::namesHaveNoLimit()
{
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    QString name(100000, QLatin1Char('x'));
    m_dialog->SetText(name);
    ok()->click();
    QCOMPARE(sent.first().first().toString().size(), 100000);
}

void TestHomeTestingPopupDlg::theErrorGoesWithTheDialog_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Cancel") << int(Qt::Key_unknown);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestHomeTestingPopupDlg::theErrorGoesWithTheDialog()
{
    QFETCH(int, key);
    QSignalSpy sent(m_dialog.data(), SIGNAL(SendHomeName(QString)));
    show();
    ok()->click();
    QVERIFY(!message()->text().isEmpty());
    if (key == Qt::Key_unknown)
        QTest::mouseClick(cancel(), Qt::LeftButton);
    else
        QTest::keyClick(m_dialog->windowHandle(), Qt::Key(key));
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(sent.size(), 0);
    show();
    QCOMPARE(message()->text(), QString());
}

void TestHomeTestingPopupDlg::theErrorNeverHoldsTheName()
{
    const QString name = QStringLiteral("<img src=x>");
    QtCommonTools::AddHomeTestToINI(name, HomeTest_Value());
    QString text = name;
    m_dialog->SetText(text);
    ok()->click();
    QCOMPARE(message()->text(), red(QStringLiteral("The room name already exists")));
    QtCommonTools::DelHomeValueFromINI(name);
}

void TestHomeTestingPopupDlg::textForTheQuestionIsDroppedOnPurpose()
{
    makeQuestion();
    QString question = QStringLiteral("Are you sure to delete room?");
    m_dialog->SetText(question);
    for (const QLabel *shown : m_dialog->findChildren<QLabel *>())
        QVERIFY(!shown->text().contains(question));
}

void TestHomeTestingPopupDlg::theNameFieldHasTheKeyboard()
{
    show();
    QTRY_VERIFY(edit()->hasFocus());
    m_dialog->hide();
    cancel()->setFocus();
    show();
    QTRY_VERIFY(edit()->hasFocus());
}

void TestHomeTestingPopupDlg::returnOnTheQuestionCancels()
{
    makeQuestion();
    QSignalSpy confirmed(m_dialog.data(), SIGNAL(SendDelConfirm()));
    show();
    QTRY_VERIFY(cancel()->hasFocus());
    QTest::keyClick(m_dialog->windowHandle(), Qt::Key_Return);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(confirmed.size(), 0);
    show();
    QTest::mouseClick(ok(), Qt::LeftButton);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(confirmed.size(), 1);
    // And again, although OK had the focus last.
    show();
    QTRY_VERIFY(cancel()->hasFocus());
}

void TestHomeTestingPopupDlg::aNewLanguageTranslatesEverything()
{
    show();
    ok()->click();
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    m_dialog->ChangeLanguage();
    QCOMPARE(label(0)->text(), QtCommonTools::tr(LanguageLabels::m_strHomAddRoom));
    QCOMPARE(message()->text(), red(QtCommonTools::tr(LanguageLabels::m_strHomeDlgRoomNameIsNull)));
    QCOMPARE(label(2)->text(), QtCommonTools::tr(LanguageLabels::m_strHomeDlgRoomName));
    QCOMPARE(ok()->text(), QtCommonTools::tr(LanguageLabels::m_strHomeDlgOk));
    QCOMPARE(cancel()->text(), QtCommonTools::tr(LanguageLabels::m_strHomeDlgCancel));
    QVERIFY(cancel()->text() != QStringLiteral("Cancel"));
}

void TestHomeTestingPopupDlg::aNewLanguageTranslatesTheErrorShown()
{
    QString name = QStringLiteral("Kitchen");
    m_dialog->SetText(name);
    ok()->click();
    const QString english = message()->text();
    QtCommonTools::GetLangNm() = QStringLiteral("deu");
    m_dialog->ChangeLanguage();
    QCOMPARE(
        message()->text(), red(QtCommonTools::tr(LanguageLabels::m_strHomeDlgRoomNameIsRepeat)));
    QVERIFY(message()->text() != english);
}

void TestHomeTestingPopupDlg::aNewLanguageWithoutAnErrorShowsNone()
{
    show();
    ok()->click();
    cancel()->click();
    m_dialog->ChangeLanguage();
    QCOMPARE(message()->text(), QString());
}

void TestHomeTestingPopupDlg::missingWidgetsAreReported()
{
    delete edit();
    MessageLog log;
    QString text;
    m_dialog->SetText(text);
    m_dialog->SetCurrentFocus();
    ok()->click();
    delete message();
    m_dialog->ChangeLanguage();
    const char *const functions[] = {"SetText", "SetCurrentFocus", "ClickedOK", "ChangeLanguage"};
    const QStringList reports = log.criticals();
    QCOMPARE(reports.size(), 4);
    for (int i = 0; i < 4; ++i)
        QVERIFY(reports.at(i).startsWith(
            QStringLiteral("NUll pointfile:hometestingpopupdlg function:%1 line:")
                .arg(QString::fromLatin1(functions[i]))));
}

QTEST_MAIN(TestHomeTestingPopupDlg)
#include "tst_hometestingpopupdlg.moc"

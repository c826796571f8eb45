#include "app/builtwindow.h"
#include "app/textroom.h"

#include "channels/channelinterfacewgt.h"
#include "hometest/hometestingpopupdlg.h"
#include "hometest/signalhometestingwgt.h"
#include "netlist/signaltreeview.h"
#include "support/testair.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

namespace
{
const QSize Maximised(1920, 1080);
/// One channel for each rating: so many access points on it.
const int RatedChannels[][2] = {{1, 1}, {6, 2}, {11, 4}, {149, 7}};

QString nameOn(int channel, int index)
{
    return QStringLiteral("Channel %1 no. %2").arg(channel).arg(index);
}

QVector<WifiProperty> ratedNetworks()
{
    QVector<WifiProperty> networks;
    for (const int(&rated)[2] : RatedChannels) {
        for (int i = 0; i < rated[1]; ++i)
            networks.append(TestAir::network(nameOn(rated[0], i), -50 - i, rated[0]));
    }
    return networks;
}
} // namespace

/// Whether all texts of the real window can be read whole, in every language.
class TestTexts : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void checkFindsWhatIsTooLong();
    void allTextsOfTheWindowHaveTheirRoom_data();
    void allTextsOfTheWindowHaveTheirRoom();
    void allTextsOfTheDialogsHaveTheirRoom_data();
    void allTextsOfTheDialogsHaveTheirRoom();
    void testButtonsTextIsClearOfItsBorder_data();
    void testButtonsTextIsClearOfItsBorder();
    void commonNameFitsBesideConnectedTo_data();
    void commonNameFitsBesideConnectedTo();

private:
    void addLanguages(bool bothSizes);
    void resizeTo(bool maximised);
    void countAgain(int joinedChannel);
    HomeTestingPopupDlg *dialog(const char *button);

    QScopedPointer<BuiltWindow> m_window;
};

void TestTexts::initTestCase()
{
    m_window.reset(new BuiltWindow);
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
    m_window->rest();
    m_window->child<SignalTreeView>()->onDataReturned(ratedNetworks());
    // A row's Test button is there once the row is chosen.
    m_window->child<SignalHomeTestingWgt>()->SetTestBtnVisible(0, 0);
}

void TestTexts::addLanguages(bool bothSizes)
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<bool>("maximised");
    const QStringList codes = QDir(QStringLiteral(":/i18n")).entryList(QDir::Dirs);
    QCOMPARE(codes.size(), 25);
    for (const QString &code : codes) {
        QTest::newRow(qPrintable(code)) << code << false;
        if (bothSizes)
            QTest::newRow(qPrintable(code + QStringLiteral(", maximised"))) << code << true;
    }
}

/// As the maximise button does on a screen of that size.
void TestTexts::resizeTo(bool maximised)
{
    Airlume *window = m_window->get();
    const QSize size = maximised ? Maximised : QSize(1100, 700);
    if (window->size() == size)
        return;
    window->setMaximumSize(maximised ? Maximised : QSize(800, 700));
    window->resize(size);
    if (maximised)
        emit window->MaxWindow();
    else
        emit window->RestoreWindow();
    emit window->signalUpdateWindowSize();
    QCoreApplication::processEvents();
}

/// Has the channels counted in the present language: every fifth vector is.
void TestTexts::countAgain(int joinedChannel)
{
    ChannelInterfaceWgt *panel = m_window->child<ChannelInterfaceWgt>();
    panel->onNetworkReturned(nameOn(joinedChannel, 0));
    for (int i = 0; i < 5; ++i)
        panel->slotDataReturned(ratedNetworks());
}

void TestTexts::checkFindsWhatIsTooLong()
{
    const QString tooLong(200, QLatin1Char('W'));
    QTabWidget *tabs = m_window->child<QTabWidget>("tabWidget");
    tabs->setCurrentIndex(3);
    QPushButton *button = m_window->child<QPushButton>("HomeTesting_btn_Add");
    QLabel *label = m_window->child<QLabel>("label_connectedto");
    const QString before = label->text();
    button->setText(tooLong);
    label->setText(tooLong);
    tabs->setTabText(1, tooLong);
    QCoreApplication::processEvents();
    const QStringList found = TextsWithoutRoom(m_window->get());
    m_window->speak("enu");
    label->setText(before);
    const QString all = found.join(QLatin1Char('\n'));
    QVERIFY2(all.contains(QLatin1String("label \"WWW")), qPrintable(all));
    QVERIFY2(all.contains(QLatin1String("button \"WWW")), qPrintable(all));
    QVERIFY2(all.contains(QLatin1String("tab")), qPrintable(all));
}

void TestTexts::allTextsOfTheWindowHaveTheirRoom_data()
{
    addLanguages(true);
}

void TestTexts::allTextsOfTheWindowHaveTheirRoom()
{
    QFETCH(QString, code);
    QFETCH(bool, maximised);
    resizeTo(maximised);
    m_window->speak(code.toLatin1().constData());
    QTabWidget *tabs = m_window->child<QTabWidget>("tabWidget");
    QStringList found;
    const auto look = [&](int tab) {
        tabs->setCurrentIndex(tab);
        m_window->get()->onNetworkReturned(QString());
        QCoreApplication::processEvents();
        found += TextsWithoutRoom(m_window->get());
    };
    for (const int tab : {0, 1, 3})
        look(tab);
    for (const int(&rated)[2] : RatedChannels) {
        countAgain(rated[0]);
        look(2);
    }
    found.removeDuplicates();
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

HomeTestingPopupDlg *TestTexts::dialog(const char *button)
{
    const QString title = m_window->child<QPushButton>(button)->text();
    const QList<HomeTestingPopupDlg *> dialogs =
        m_window->get()->findChildren<HomeTestingPopupDlg *>();
    for (HomeTestingPopupDlg *dialog : dialogs) {
        const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->text() == title)
                return dialog;
        }
    }
    return nullptr;
}

void TestTexts::allTextsOfTheDialogsHaveTheirRoom_data()
{
    addLanguages(false);
}

void TestTexts::allTextsOfTheDialogsHaveTheirRoom()
{
    QFETCH(QString, code);
    m_window->speak(code.toLatin1().constData());
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(3);
    QStringList found;
    for (const char *name :
        {"HomeTesting_btn_Add", "HomeTesting_btn_Edit", "HomeTesting_btn_Del"}) {
        HomeTestingPopupDlg *dialog = this->dialog(name);
        QVERIFY2(dialog, name);
        dialog->show();
        QCoreApplication::processEvents();
        found += TextsWithoutRoom(dialog);
        QPushButton *ok =
            dialog->findChild<QPushButton *>(QStringLiteral("HomeTestingPopup_btn_Ok"));
        QLineEdit *edit = dialog->findChild<QLineEdit *>();
        // Nothing typed, and a room that there is: the two errors.
        for (const QString &text : {QStringLiteral(" "), QStringLiteral("Kitchen")}) {
            if (!edit)
                continue;
            edit->setText(text);
            QTest::mouseClick(ok, Qt::LeftButton);
            QVERIFY(dialog->isVisible());
            QCoreApplication::processEvents();
            found += TextsWithoutRoom(dialog);
            QVERIFY(!dialog->findChildren<QLabel *>().at(1)->text().isEmpty());
        }
        dialog->reject();
    }
    found.removeDuplicates();
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

void TestTexts::testButtonsTextIsClearOfItsBorder_data()
{
    addLanguages(false);
}

void TestTexts::testButtonsTextIsClearOfItsBorder()
{
    QFETCH(QString, code);
    resizeTo(false);
    m_window->speak(code.toLatin1().constData());
    m_window->child<QTabWidget>("tabWidget")->setCurrentIndex(3);
    QCoreApplication::processEvents();
    // Each row has one; that of the chosen row, the first, is shown.
    const QPushButton *test =
        m_window->get()->findChild<QPushButton *>(QStringLiteral("HomeTesting_btn_Test"));
    QVERIFY(test);
    QVERIFY(test->isVisible());
    const int text = test->fontMetrics().horizontalAdvance(test->text());
    QVERIFY2(test->width() - text >= 10, qPrintable(test->text()));
}

void TestTexts::commonNameFitsBesideConnectedTo_data()
{
    addLanguages(false);
}

void TestTexts::commonNameFitsBesideConnectedTo()
{
    QFETCH(QString, code);
    resizeTo(false);
    m_window->speak(code.toLatin1().constData());
    m_window->get()->onNetworkReturned(QStringLiteral("Maple House 5 GHz"));
    QCoreApplication::processEvents();
    const QStringList found = TextsWithoutRoom(m_window->get());
    m_window->get()->onNetworkReturned(QString());
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestTexts)
#include "tst_texts.moc"

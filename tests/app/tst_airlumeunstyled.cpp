#include "app/builtwindow.h"
#include "support/messagelog.h"

#include <QTabWidget>
#include <QtTest>

/// The window in a program that carries no style sheet, as after a faulty build.
class TestAirlumeUnstyled : public QObject
{
    Q_OBJECT

private slots:
    void opensUnstyledAndSaysNothingOfIt();
};

void TestAirlumeUnstyled::opensUnstyledAndSaysNothingOfIt()
{
    QVERIFY(!QFile::exists(QStringLiteral(":/qss/Airlume.qss")));
    MessageLog log;
    BuiltWindow window;
    QCOMPARE(window->styleSheet(), QString());
    QVERIFY(window->isVisible());
    QCOMPARE(window.child<QTabWidget>()->count(), 4);
    QVERIFY(log.debugs().filter(QStringLiteral("qss")).isEmpty());
    QVERIFY(log.criticals().filter(QStringLiteral("qss")).isEmpty());
    QVERIFY(log.messages(QtWarningMsg).filter(QStringLiteral("qss")).isEmpty());
}

QTEST_MAIN(TestAirlumeUnstyled)
#include "tst_airlumeunstyled.moc"

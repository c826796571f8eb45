#include "common/QtCommonTools.h"
#include "netlist/checkboxitemdelegate.h"
#include "netlist/netmonitoritemdelegate.h"

#include <QApplication>
#include <QPainter>
#include <QStandardItemModel>
#include <QtTest>

class TestNetlistDelegates : public QObject
{
    Q_OBJECT

private slots:
    void centresTheCheckBoxInItsCell_data();
    void centresTheCheckBoxInItsCell();
    void paintsTheTickAndNeverTheText();
    void paintsNothingInOtherColumns();
    void isFourPixelsHigherThanItsBase();
    void outlinesTextCellsInWhite();
    void showsTextsFromTheAirInOneLine();

private:
    static QImage painted(QAbstractItemDelegate &delegate, const QModelIndex &index);
};

QImage TestNetlistDelegates::painted(QAbstractItemDelegate &delegate, const QModelIndex &index)
{
    QImage image(60, 30, QImage::Format_ARGB32);
    image.fill(Qt::yellow);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = QRect(5, 2, 50, 25);
    delegate.paint(&painter, option, index);
    return image;
}

void TestNetlistDelegates::centresTheCheckBoxInItsCell_data()
{
    QTest::addColumn<QRect>("cell");
    QTest::newRow("list cell") << QRect(0, 0, 20, 24);
    QTest::newRow("further down") << QRect(0, 240, 20, 24);
    QTest::newRow("wide") << QRect(13, 7, 101, 51);
}

void TestNetlistDelegates::centresTheCheckBoxInItsCell()
{
    QFETCH(QRect, cell);
    CheckBoxItemDelegate delegate;
    QStyleOptionViewItem option;
    option.rect = cell;
    const QRect box = delegate.CheckBoxRect(option);
    const QRect indicator = QApplication::style()->subElementRect(
        QStyle::SE_CheckBoxIndicator, &static_cast<const QStyleOption &>(QStyleOptionButton()));
    QCOMPARE(box.size(), indicator.size());
    QVERIFY(cell.contains(box));
    QVERIFY(qAbs((box.left() - cell.left()) - (cell.right() - box.right())) <= 1);
    QVERIFY(qAbs((box.top() - cell.top()) - (cell.bottom() - box.bottom())) <= 1);
}

void TestNetlistDelegates::paintsTheTickAndNeverTheText()
{
    QStandardItemModel model(3, 1);
    model.setItem(0, new QStandardItem(QStringLiteral("ab")));
    model.setData(model.index(1, 0), true);
    model.setData(model.index(2, 0), false);
    CheckBoxItemDelegate delegate;
    const QImage text = painted(delegate, model.index(0, 0));
    const QImage ticked = painted(delegate, model.index(1, 0));
    const QImage unticked = painted(delegate, model.index(2, 0));
    QCOMPARE(text, ticked);
    QVERIFY(ticked != unticked);
}

void TestNetlistDelegates::paintsNothingInOtherColumns()
{
    QStandardItemModel model(1, 2);
    model.setData(model.index(0, 1), true);
    CheckBoxItemDelegate delegate;
    QImage empty(60, 30, QImage::Format_ARGB32);
    empty.fill(Qt::yellow);
    QCOMPARE(painted(delegate, model.index(0, 1)), empty);
}

void TestNetlistDelegates::isFourPixelsHigherThanItsBase()
{
    QStandardItemModel model(1, 1);
    QStyleOptionViewItem option;
    QCOMPARE(CheckBoxItemDelegate().sizeHint(option, model.index(0, 0)),
        QItemDelegate().sizeHint(option, model.index(0, 0)) + QSize(0, 4));
}

void TestNetlistDelegates::outlinesTextCellsInWhite()
{
    QStandardItemModel model(1, 1);
    NetMonitorItemDelegate delegate;
    const QImage image = painted(delegate, model.index(0, 0));
    QCOMPARE(image.pixelColor(5, 2), QColor(Qt::white));
    QCOMPARE(image.pixelColor(30, 2), QColor(Qt::white));
    QCOMPARE(image.pixelColor(30, 27), QColor(Qt::white));
    QCOMPARE(image.pixelColor(30, 15), QColor(Qt::yellow));
}

void TestNetlistDelegates::showsTextsFromTheAirInOneLine()
{
    NetMonitorItemDelegate delegate;
    QCOMPARE(delegate.displayText(QStringLiteral("a\nb"), QLocale()), QStringLiteral(u"a\u240ab"));
    QCOMPARE(
        delegate.displayText(QStringLiteral("<b>x</b>"), QLocale()), QStringLiteral("<b>x</b>"));
    QVERIFY(delegate.displayText(QString(10000, QLatin1Char('x')), QLocale()).size() < 300);
}

QTEST_MAIN(TestNetlistDelegates)
#include "tst_netlistdelegates.moc"

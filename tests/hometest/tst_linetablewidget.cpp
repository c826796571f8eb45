#include "hometest/linetablewidget.h"
#include "support/messagelog.h"
#include "support/paintrecord.h"
#include "support/tooltip.h"

#include <QHeaderView>
#include <QPainter>
#include <QTextLayout>
#include <QtTest>

Q_DECLARE_METATYPE(Qt::MouseButton)

class TestLineTableWidget : public QObject
{
    Q_OBJECT

private slots:
    void isSetUpAsAListOfRooms();
    void drawsATwoPixelLineUnderEveryCellOnly();
    void drawsTheLineOverTheTextInTheGridsStyle();
    void restoresThePen();
    void aMissingPainterIsReported();
    void aMissingViewIsReported();
    void allLinesOfACellAreShown_data();
    void allLinesOfACellAreShown();
    void aLongLineIsElidedNotWrapped();
    void aCutOffNameIsToldWhole();
    void anEmptyCellIsLeftAlone();
    void keysChooseRooms();
    void keysInAnEmptyTableChooseNothing();
    void aClickChoosesItsRoomOnce();
    void whateverTheMouseHighlightsIsChosen_data();
    void whateverTheMouseHighlightsIsChosen();
    void theChosenRowStaysHighlighted_data();
    void theChosenRowStaysHighlighted();
    void aRowThatIsCurrentButNotHighlightedIsChosenByAnyButton();
    void noFrameDividesTheHighlightedRow();
    void tabLeavesTheTable();

private:
    static QStyleOptionViewItem prepared(LineTableWidget &table);
    static void fill(LineTableWidget &table);
    static void mouse(
        LineTableWidget &table, QEvent::Type type, const QPoint &point, Qt::MouseButton button);
};

namespace
{
/// Opens what the delegate would paint.
class OpenDelegate : public QLineDelegate
{
public:
    using QLineDelegate::initStyleOption;
    using QLineDelegate::QLineDelegate;
};
} // namespace

QStyleOptionViewItem TestLineTableWidget::prepared(LineTableWidget &table)
{
    const OpenDelegate delegate(&table);
    QStyleOptionViewItem option;
    option.initFrom(&table);
    option.rect = QRect(0, 0, 200, 65);
    option.font = table.font();
    option.fontMetrics = QFontMetrics(option.font);
    delegate.initStyleOption(&option, table.model()->index(0, 0));
    return option;
}

void TestLineTableWidget::isSetUpAsAListOfRooms()
{
    LineTableWidget table;
    QCOMPARE(table.styleSheet(),
        QStringLiteral("QTableView{selection-background-color: rgb(130, 127, 146);"
                       "background-image: url(:/images/HomeTestLstBK.png);}"));
    QVERIFY(!table.showGrid());
    QVERIFY(qobject_cast<QLineDelegate *>(table.itemDelegate()));
    QCOMPARE(table.itemDelegate()->parent(), &table);
    QCOMPARE(table.font().pointSize(), 11);
    QCOMPARE(table.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(table.selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table.selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(table.editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(table.verticalHeader()->isHidden());
    QVERIFY(table.horizontalHeader()->isHidden());
    table.setColumnCount(2);
    QCOMPARE(table.horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(table.horizontalHeader()->sectionResizeMode(1), QHeaderView::Stretch);
}

void TestLineTableWidget::drawsATwoPixelLineUnderEveryCellOnly()
{
    LineTableWidget table;
    table.setColumnCount(2);
    table.setRowCount(2);
    QImage image(120, 60, QImage::Format_RGB32);
    image.fill(Qt::black);
    {
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.initFrom(&table);
        option.rect = QRect(10, 10, 100, 40);
        table.itemDelegate()->paint(&painter, option, table.model()->index(0, 0));
    }
    const QColor line(229, 229, 251);
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        const bool isLine = image.pixelColor(60, y) == line;
        rows += isLine ? 1 : 0;
        if (isLine)
            QVERIFY(qAbs(y - 49) <= 1);
    }
    QCOMPARE(rows, 2);
    // No vertical lines: the sides of the cell stay as they were.
    for (int y = 10; y < 45; ++y) {
        QVERIFY(image.pixelColor(9, y) != line);
        QVERIFY(image.pixelColor(10, y) != line);
        QVERIFY(image.pixelColor(109, y) != line);
        QVERIFY(image.pixelColor(110, y) != line);
    }
}

void TestLineTableWidget::drawsTheLineOverTheTextInTheGridsStyle()
{
    LineTableWidget table;
    table.setColumnCount(1);
    table.setRowCount(1);
    table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("Kitchen")));
    table.setGridStyle(Qt::DotLine);
    const QLineDelegate delegate(&table);
    PaintRecord record({120, 60});
    QPainter painter(&record);
    QStyleOptionViewItem option;
    option.initFrom(&table);
    option.rect = QRect(10, 10, 100, 40);
    delegate.paint(&painter, option, table.model()->index(0, 0));
    painter.end();
    QCOMPARE(record.texts().size(), 1);
    const PaintStep line = record.steps().last();
    QPainterPath bottom(QPointF(10, 49));
    bottom.lineTo(109, 49);
    QCOMPARE(line.shape, bottom);
    QCOMPARE(line.pen,
        QPen(QBrush(QColor(229, 229, 251)), 2, Qt::DotLine, Qt::SquareCap, Qt::BevelJoin));
}

void TestLineTableWidget::restoresThePen()
{
    LineTableWidget table;
    table.setColumnCount(1);
    table.setRowCount(1);
    QImage image(50, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    const QPen pen(Qt::red, 7);
    painter.setPen(pen);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 40, 40);
    table.itemDelegate()->paint(&painter, option, table.model()->index(0, 0));
    QCOMPARE(painter.pen(), pen);
}

void TestLineTableWidget::aMissingPainterIsReported()
{
    LineTableWidget table;
    table.setColumnCount(1);
    table.setRowCount(1);
    MessageLog log;
    table.itemDelegate()->paint(nullptr, QStyleOptionViewItem(), table.model()->index(0, 0));
    QCOMPARE(log.criticals().size(), 1);
    QVERIFY(log.criticals().first().startsWith(
        QStringLiteral("NUll pointfile:linetablewidget function:paint line:")));
}

void TestLineTableWidget::aMissingViewIsReported()
{
    MessageLog log;
    OpenDelegate delegate(nullptr);
    QVERIFY(log.criticals().value(0).startsWith(
        QLatin1String("NUll pointfile:linetablewidget function:QLineDelegate ")));
    QImage image(20, 20, QImage::Format_RGB32);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    delegate.initStyleOption(&option, QModelIndex());
    delegate.paint(&painter, option, QModelIndex());
}

void TestLineTableWidget::allLinesOfACellAreShown_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("Latin") << QStringLiteral("Kitchen");
    QTest::newRow("emoji") << QString::fromUtf8("\xf0\x9f\x9b\x8f");
    QTest::newRow("Chinese") << QString::fromUtf8("\xe5\xaf\x9d\xe5\xae\xa4");
    QTest::newRow("Arabic") << QString::fromUtf8("\xd8\xba\xd8\xb1\xd9\x81\xd8\xa9");
    QTest::newRow("long") << QString(5000, QLatin1Char('x'));
}

void TestLineTableWidget::allLinesOfACellAreShown()
{
    QFETCH(QString, name);
    LineTableWidget table;
    // Taller than what 65 pixels hold, whatever the platform's fonts are like.
    QFont font = table.font();
    font.setPixelSize(30);
    table.setFont(font);
    table.setColumnCount(1);
    table.setRowCount(1);
    table.setItem(0, 0, new QTableWidgetItem(name + QStringLiteral("\nNow\nLast")));
    const QStyleOptionViewItem option = prepared(table);
    QCOMPARE(option.text.split(QChar::LineSeparator).size(), 3);
    QVERIFY(option.text.endsWith(QStringLiteral("Last")));

    QTextLayout layout(option.text, option.font);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(option.rect.width());
        height += line.height();
    }
    layout.endLayout();
    QCOMPARE(layout.lineCount(), 3);
    QVERIFY2(height <= 65, qPrintable(QString::number(height)));
    QVERIFY(QFontInfo(option.font).pixelSize() >= 8);
}

void TestLineTableWidget::aLongLineIsElidedNotWrapped()
{
    LineTableWidget table;
    table.setWordWrap(true);
    table.setColumnCount(1);
    table.setRowCount(1);
    table.setItem(0, 0,
        new QTableWidgetItem(QStringLiteral("word ").repeated(100) + QStringLiteral("\nN/A\nN/A")));
    const QString first = prepared(table).text.section(QChar::LineSeparator, 0, 0);
    QVERIFY(first.startsWith(QStringLiteral("word word")));
    QVERIFY(first.endsWith(QChar(0x2026)));
    QVERIFY(table.item(0, 0)->text().size() > 500);
}

void TestLineTableWidget::aCutOffNameIsToldWhole()
{
    LineTableWidget table;
    table.setColumnCount(2);
    table.setRowCount(3);
    const QString name = QStringLiteral("<b>The room behind the kitchen</b> of the old house");
    const QString results = QStringLiteral("\nNow:62%\nN/A");
    table.setItem(0, 0, new QTableWidgetItem(name + results));
    table.setItem(1, 0, new QTableWidgetItem(QStringLiteral("Attic") + results));
    table.setItem(
        2, 0, new QTableWidgetItem(QString(20000, QLatin1Char('W')) + QChar(0x202e) + results));
    table.resize(300, 300);
    table.show();
    const auto tipOf = [&table](int row, int column) {
        return ToolTipAt(
            table.viewport(), table.visualRect(table.model()->index(row, column)).center());
    };
    QCOMPARE(tipOf(0, 0), name + results);
    QCOMPARE(tipOf(1, 0), QString());
    QCOMPARE(tipOf(0, 1), QString());
    const QString endless = tipOf(2, 0);
    QVERIFY(endless.startsWith(QStringLiteral("WWW")) && endless.endsWith(results));
    QVERIFY(endless.size() < 400 && !endless.contains(QChar(0x202e)));
    table.resize(2000, 300);
    QCOMPARE(tipOf(0, 0), QString());
}

void TestLineTableWidget::anEmptyCellIsLeftAlone()
{
    LineTableWidget table;
    table.setColumnCount(1);
    table.setRowCount(1);
    QCOMPARE(prepared(table).text, QString());
}

void TestLineTableWidget::keysChooseRooms()
{
    LineTableWidget table;
    table.setColumnCount(2);
    table.setRowCount(3);
    table.setCurrentCell(0, 0);
    QSignalSpy clicked(&table, &QTableWidget::cellClicked);
    QTest::keyClick(&table, Qt::Key_Down);
    QCOMPARE(clicked.takeLast(), QVariantList({1, 0}));
    // Within the row nothing is chosen anew.
    QTest::keyClick(&table, Qt::Key_Right);
    QCOMPARE(clicked.size(), 0);
    for (Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&table, key);
        QCOMPARE(clicked.size(), 1);
        QCOMPARE(clicked.takeLast().first().toInt(), 1);
    }
    QVERIFY(table.selectionModel()->isRowSelected(1, QModelIndex()));
}

void TestLineTableWidget::keysInAnEmptyTableChooseNothing()
{
    LineTableWidget table;
    table.setColumnCount(2);
    QSignalSpy clicked(&table, &QTableWidget::cellClicked);
    for (Qt::Key key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_Return})
        QTest::keyClick(&table, key);
    QCOMPARE(clicked.size(), 0);
}

void TestLineTableWidget::fill(LineTableWidget &table)
{
    table.setColumnCount(2);
    table.setRowCount(4);
    table.resize(300, 300);
    table.show();
}

void TestLineTableWidget::mouse(
    LineTableWidget &table, QEvent::Type type, const QPoint &point, Qt::MouseButton button)
{
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, point, table.viewport()->mapToGlobal(point),
        moves ? Qt::NoButton : button, type == QEvent::MouseButtonRelease ? Qt::NoButton : button,
        Qt::NoModifier);
    QApplication::sendEvent(table.viewport(), &event);
}

void TestLineTableWidget::aClickChoosesItsRoomOnce()
{
    LineTableWidget table;
    fill(table);
    QSignalSpy clicked(&table, &QTableWidget::cellClicked);
    const QPoint inRow1 = table.visualRect(table.model()->index(1, 0)).center();
    for (int times = 1; times <= 2; ++times) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, inRow1);
        QCOMPARE(clicked.size(), times);
        QCOMPARE(clicked.last(), QVariantList({1, 0}));
    }
    // Below the last row.
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, QPoint(10, 290));
    QCOMPARE(clicked.size(), 2);
}

void TestLineTableWidget::whateverTheMouseHighlightsIsChosen_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::newRow("dragged to another row") << Qt::LeftButton << 1 << 2;
    QTest::newRow("dragged away from the chosen row") << Qt::LeftButton << 0 << 3;
    QTest::newRow("let go outside") << Qt::LeftButton << 1 << -1;
    QTest::newRow("another button") << Qt::RightButton << 2 << 2;
}

void TestLineTableWidget::whateverTheMouseHighlightsIsChosen()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(int, from);
    QFETCH(int, to);
    LineTableWidget table;
    fill(table);
    const auto inRow = [&](int row) {
        return row < 0 ? QPoint(-40, 10) : table.visualRect(table.model()->index(row, 0)).center();
    };
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, inRow(0));
    QSignalSpy clicked(&table, &QTableWidget::cellClicked);
    mouse(table, QEvent::MouseButtonPress, inRow(from), button);
    if (to != from)
        mouse(table, QEvent::MouseMove, inRow(to), button);
    mouse(table, QEvent::MouseButtonRelease, inRow(to), button);
    const QModelIndexList rows = table.selectionModel()->selectedRows();
    QCOMPARE(rows.size(), 1);
    QVERIFY(rows.first().row() != 0);
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.first().first().toInt(), rows.first().row());
}

void TestLineTableWidget::theChosenRowStaysHighlighted_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("Ctrl+click") << QEvent::MouseButtonPress;
    QTest::newRow("Ctrl+Space") << QEvent::KeyPress;
}

void TestLineTableWidget::theChosenRowStaysHighlighted()
{
    QFETCH(QEvent::Type, type);
    LineTableWidget table;
    fill(table);
    const auto inRow = [&](int row) {
        return table.visualRect(table.model()->index(row, 0)).center();
    };
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, inRow(1));
    for (int times = 0; times < 3; ++times) {
        if (type == QEvent::KeyPress)
            QTest::keyClick(&table, Qt::Key_Space, Qt::ControlModifier);
        else
            QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, inRow(1));
        QVERIFY(table.selectionModel()->isRowSelected(1, QModelIndex()));
    }
    // Another row is still chosen by it.
    QSignalSpy clicked(&table, &QTableWidget::cellClicked);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, inRow(2));
    QVERIFY(table.selectionModel()->isRowSelected(2, QModelIndex()));
    QCOMPARE(clicked.last(), QVariantList({2, 0}));
}

void TestLineTableWidget::aRowThatIsCurrentButNotHighlightedIsChosenByAnyButton()
{
    LineTableWidget table;
    fill(table);
    table.setCurrentCell(1, 0, QItemSelectionModel::NoUpdate);
    QSignalSpy clicked(&table, &QTableWidget::cellClicked);
    const QPoint inRow1 = table.visualRect(table.model()->index(1, 0)).center();
    mouse(table, QEvent::MouseButtonPress, inRow1, Qt::RightButton);
    mouse(table, QEvent::MouseButtonRelease, inRow1, Qt::RightButton);
    QVERIFY(table.selectionModel()->isRowSelected(1, QModelIndex()));
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.first().first().toInt(), 1);
}

void TestLineTableWidget::noFrameDividesTheHighlightedRow()
{
    LineTableWidget table;
    fill(table);
    table.activateWindow();
    table.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&table));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
        table.visualRect(table.model()->index(1, 0)).center());
    QVERIFY(table.hasFocus());
    const QImage image = table.viewport()->grab().toImage();
    const QRect left = table.visualRect(table.model()->index(1, 0));
    const QRect right = table.visualRect(table.model()->index(1, 1));
    QCOMPARE(left.right() + 1, right.left());
    const QColor highlight = image.pixelColor(left.center());
    for (int y = left.top(); y < left.bottom() - 1; ++y) {
        for (int x = left.right() - 3; x <= right.left() + 3; ++x)
            QCOMPARE(image.pixelColor(x, y), highlight);
    }
}

void TestLineTableWidget::tabLeavesTheTable()
{
    LineTableWidget table;
    QVERIFY(!table.tabKeyNavigation());
    QVERIFY(!table.accessibleName().isEmpty());
}

QTEST_MAIN(TestLineTableWidget)
#include "tst_linetablewidget.moc"

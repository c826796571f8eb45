#include "graphs/namespread.h"

#include <QTest>

namespace
{
const QRectF Bounds(0, 0, 200, 100);

QRectF name(double left, double top, double width = 40)
{
    return QRectF(left, top, width, 10);
}

bool isFree(const QRectF &name, const QVector<QRectF> &taken)
{
    return std::none_of(taken.cbegin(), taken.cend(),
        [&name](const QRectF &other) { return other.intersected(name).height() > 0.01; });
}
} // namespace

class TestNameSpread : public QObject
{
    Q_OBJECT

private slots:
    void namesAreMovedOffEachOther_data();
    void namesAreMovedOffEachOther();
    void aNameThatOnlyTouchesIsInNobodysWay();
    void aCrowdLeavesNobodyOnAPlacedName();
};

void TestNameSpread::namesAreMovedOffEachOther_data()
{
    QTest::addColumn<QVector<QRectF>>("names");
    QTest::addColumn<QVector<double>>("moves");
    using Names = QVector<QRectF>;
    using Moves = QVector<double>;
    QTest::newRow("none") << Names() << Moves();
    QTest::newRow("apart") << Names{name(0, 50), name(40, 50), name(0, 60)} << Moves{0, 0, 0};
    QTest::newRow("the same place") << Names{name(0, 50), name(0, 50)} << Moves{0, 10};
    QTest::newRow("a little lower") << Names{name(0, 50), name(20, 54)} << Moves{0, 6};
    QTest::newRow("a little higher") << Names{name(0, 50), name(20, 46)} << Moves{0, -6};
    QTest::newRow("past two, the shorter way")
        << Names{name(0, 50), name(30, 60), name(20, 54)} << Moves{0, 0, -14};
    QTest::newRow("at the bottom") << Names{name(0, 90), name(0, 90)} << Moves{0, -10};
    QTest::newRow("at the top") << Names{name(0, 0), name(0, 0)} << Moves{0, 10};
    QTest::newRow("five in one place")
        << Names{name(0, 50), name(0, 50), name(0, 50), name(0, 50), name(0, 50)}
        << Moves{0, 10, -10, 20, -20};
    QTest::newRow("the sixth finds none")
        << Names{name(0, 50), name(0, 50), name(0, 50), name(0, 50), name(0, 50), name(0, 50)}
        << Moves{0, 10, -10, 20, -20, 0};
    QTest::newRow("without a place, in nobody's way")
        << Names{name(0, 50, 10), name(0, 50, 10), name(0, 50, 10), name(0, 50, 10),
               name(0, 50, 10), name(0, 50, 60), name(20, 50)}
        << Moves{0, 10, -10, 20, -20, 0, 0};
}

void TestNameSpread::namesAreMovedOffEachOther()
{
    QFETCH(QVector<QRectF>, names);
    QTEST(spreadNames(names, Bounds), "moves");
}

void TestNameSpread::aNameThatOnlyTouchesIsInNobodysWay()
{
    // In binary, 0.1 + 1.1, moved by the rest to 10.1, comes out below it.
    const QVector<double> moves = spreadNames({name(0, 0.1), name(0, 0.1 + 1.1)}, Bounds);
    QCOMPARE(moves.at(1), 8.9);
}

void TestNameSpread::aCrowdLeavesNobodyOnAPlacedName()
{
    QVector<QRectF> names;
    for (int i = 0; i < 60; ++i)
        names.append(name((i * 37) % 160, (i * 53) % 90));
    const QVector<double> moves = spreadNames(names, Bounds);
    QCOMPARE(moves.size(), names.size());
    QVector<QRectF> placed;
    QVector<QRectF> unmoved;
    for (int i = 0; i < names.size(); ++i) {
        const QRectF rect = names.at(i).translated(0, moves.at(i));
        QVERIFY(Bounds.contains(rect));
        const bool covers = !isFree(rect, placed);
        if (moves.at(i) != 0.)
            QVERIFY(!covers);
        if (!covers)
            placed.append(rect);
        if (isFree(names.at(i), unmoved))
            unmoved.append(names.at(i));
    }
    QVERIFY2(placed.size() > unmoved.size() + 5, qPrintable(QString::number(placed.size())));
}

QTEST_APPLESS_MAIN(TestNameSpread)
#include "tst_namespread.moc"

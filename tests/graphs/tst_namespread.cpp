#include "graphs/namespread.h"

#include <QTest>
#include <algorithm>
#include <cmath>
#include <random>

namespace
{
using Names = QVector<QRectF>;
using Ways = QVector<std::optional<double>>;

const QRectF Bounds(0, 0, 200, 100);
const double Touching = 0.01;

QRectF name(double left, double top, double width = 40)
{
    return QRectF(left, top, width, 10);
}

bool shareColumns(const QRectF &one, const QRectF &other)
{
    return qMin(one.right(), other.right()) > qMax(one.left(), other.left());
}

bool cover(const QRectF &one, const QRectF &other)
{
    return shareColumns(one, other) && one.intersected(other).height() > Touching;
}

/// A neighbourhood as the channel graphs of a window of the usual size draw it: the names' places
/// at their apexes, the strongest network's first.
class Neighbourhood
{
public:
    Neighbourhood(unsigned seed, int most)
        : m_random(seed)
        , m_is2G(seed % 2 == 0)
        // An odd height, so that nothing misses a limit by just what counts as touching.
        , bounds(0, 0, number(280, 460), number(90, 200) + 0.1234567)
    {
        QVector<int> signalsInDbm;
        const int count = number(1, most);
        for (int i = 0; i < count; ++i)
            signalsInDbm.append(number(-99, -25));
        std::sort(signalsInDbm.begin(), signalsInDbm.end(), std::greater<int>());
        for (int dBm : qAsConst(signalsInDbm))
            names.append(nameAt(dBm));
    }

private:
    int number(int least, int most)
    {
        return std::uniform_int_distribution<int>(least, most)(m_random);
    }

    QRectF nameAt(int dBm)
    {
        static const int busy2G[] = {1, 6, 11, 1, 6, 11, 3, 9, 13};
        static const int busy5G[] = {36, 40, 44, 48, 52, 100, 112, 149, 157, 161};
        const double channel = m_is2G ? busy2G[number(0, 8)] / 14. : busy5G[number(0, 9)] / 171.;
        // Half of the names are of one of the few lengths that most have; some are of fonts that
        // are taller.
        const double width = number(0, 1) ? 7. * number(4, 12) : 7. * number(1, 32);
        const double height = number(0, 19) ? 15. : 18.;
        QRectF place(0., 0., qMin(width, bounds.width()), height);
        place.moveCenter({bounds.width() * channel, bounds.height() * -dBm / 100.});
        // As the edges of the canvas have it.
        place.moveLeft(qBound(0., place.left(), bounds.right() - place.width()));
        place.moveTop(qBound(0., place.top(), bounds.bottom() - height));
        return place;
    }

    std::mt19937 m_random;
    bool m_is2G;

public:
    QRectF bounds;
    Names names;
};
} // namespace

Q_DECLARE_METATYPE(std::optional<double>)

class TestNameSpread : public QObject
{
    Q_OBJECT

private slots:
    void namesAreMovedOffEachOther_data();
    void namesAreMovedOffEachOther();
    void namesOfRandomNeighbourhoods_data();
    void namesOfRandomNeighbourhoods();
};

void TestNameSpread::namesAreMovedOffEachOther_data()
{
    QTest::addColumn<Names>("names");
    QTest::addColumn<Ways>("ways");
    const std::nullopt_t Behind = std::nullopt;
    QTest::newRow("none") << Names() << Ways();
    QTest::newRow("apart") << Names{name(0, 50), name(40, 50), name(0, 60)} << Ways{0., 0., 0.};
    QTest::newRow("the same place") << Names{name(0, 50), name(0, 50)} << Ways{0., 10.};
    QTest::newRow("a little lower") << Names{name(0, 50), name(20, 54)} << Ways{0., 6.};
    QTest::newRow("at the bottom") << Names{name(0, 90), name(0, 90)} << Ways{0., Behind};
    QTest::newRow("just above the bottom") << Names{name(0, 80), name(0, 80)} << Ways{0., 10.};
    QTest::newRow("at the top") << Names{name(0, 0), name(0, 0)} << Ways{0., 10.};
    QTest::newRow("past two") << Names{name(0, 50), name(0, 55), name(0, 56)} << Ways{0., 5., 14.};
    QTest::newRow("the fourth in one place finds none")
        << Names{name(0, 50), name(0, 50), name(0, 50), name(0, 50)} << Ways{0., 10., 20., Behind};
    QTest::newRow("behind, in nobody's way")
        << Names{name(0, 50, 10), name(0, 50, 10), name(0, 50, 10), name(0, 50, 60), name(20, 50)}
        << Ways{0., 10., 20., Behind, 0.};
    QTest::newRow("two lines, not a hair more")
        << Names{name(0, 50), name(0, 50), name(0, 49.9), name(0, 50)}
        << Ways{0., 10., Behind, 20.};
    // The second, which shares columns with both others, steps down; the third would have room
    // beside the first, but above the second.
    QTest::newRow("not above a stronger one that has moved")
        << Names{name(0, 45, 40), name(20, 46, 100), name(60, 47, 40)} << Ways{0., 9., 18.};
    // The last one would touch nobody at its apex, but the third has moved down to 60.
    QTest::newRow("not into a gap above a stronger one")
        << Names{name(0, 40), name(0, 41), name(20, 41), name(50, 46)} << Ways{0., 9., 19., Behind};
    // In binary, 0.1 + 1.1, moved by the rest to 10.1, comes out below it.
    QTest::newRow("only touching")
        << Names{name(0, 0.1), name(0, 10.1), name(0, 20.1)} << Ways{0., 0., 0.};
}

void TestNameSpread::namesAreMovedOffEachOther()
{
    QFETCH(Names, names);
    QFETCH(Ways, ways);
    const Ways found = spreadNames(names, Bounds);
    QCOMPARE(found.size(), ways.size());
    for (int i = 0; i < ways.size(); ++i) {
        QCOMPARE(found.at(i).has_value(), ways.at(i).has_value());
        QVERIFY2(std::abs(found.at(i).value_or(0.) - ways.at(i).value_or(0.)) < Touching,
            qPrintable(QString::number(found.at(i).value_or(0.))));
    }
}

void TestNameSpread::namesOfRandomNeighbourhoods_data()
{
    QTest::addColumn<int>("most");
    // No more are in the list; more are a stress.
    QTest::newRow("up to 15") << 15;
    QTest::newRow("up to 60") << 60;
}

void TestNameSpread::namesOfRandomNeighbourhoods()
{
    QFETCH(int, most);
    int all = 0, moved = 0, behind = 0, covered = 0;
    for (unsigned seed = 0; seed < 500; ++seed) {
        const Neighbourhood air(seed, most);
        const Ways ways = spreadNames(air.names, air.bounds);
        QCOMPARE(ways.size(), air.names.size());
        Names placed;
        for (int i = 0; i < ways.size(); ++i) {
            const QRectF apex = air.names.at(i);
            // Where those that are stronger leave the first room below them.
            double lowest = apex.top();
            for (const QRectF &stronger : qAsConst(placed)) {
                if (shareColumns(apex, stronger))
                    lowest = qMax(lowest, stronger.bottom());
            }
            const double needed = lowest - apex.top();
            const bool hasRoom =
                needed < Touching || (needed < 2. * apex.height() + Touching &&
                                         lowest + apex.height() < air.bounds.bottom() + Touching);
            QCOMPARE(ways.at(i).has_value(), hasRoom);
            if (hasRoom) {
                const QRectF place = apex.translated(0., *ways.at(i));
                QVERIFY2(*ways.at(i) >= 0. && std::abs(*ways.at(i) - needed) < Touching,
                    qPrintable(QStringLiteral("seed %1, name %2").arg(seed).arg(i)));
                QVERIFY(air.bounds.adjusted(0., 0., 0., Touching).contains(place));
                QVERIFY(
                    std::none_of(placed.cbegin(), placed.cend(), [&place](const QRectF &stronger) {
                        return cover(stronger, place) ||
                               (shareColumns(stronger, place) && place.top() < stronger.top());
                    }));
                moved += *ways.at(i) > 0. ? 1 : 0;
                placed.append(place);
            } else {
                ++behind;
            }
        }
        for (int i = 0; i < ways.size(); ++i) {
            covered += !ways.at(i) && std::any_of(placed.cbegin(), placed.cend(),
                                          [&](const QRectF &other) {
                                              return cover(other, air.names.at(i));
                                          })
                           ? 1
                           : 0;
        }
        all += ways.size();
    }
    qInfo("%d names: %d at their apexes, %d moved, %d stepped back, %d of these covered", all,
        all - moved - behind, moved, behind, covered);
    QVERIFY(moved > 0 && behind > 0 && moved + behind < all);
}

QTEST_APPLESS_MAIN(TestNameSpread)
#include "tst_namespread.moc"

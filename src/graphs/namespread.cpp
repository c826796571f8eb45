#include "graphs/namespread.h"

#include <algorithm>
#include <cmath>

namespace
{
/// In heights of a name: a name further away would seem another network's.
const double Reach = 2.;
/// Places that touch are worked out, and miss each other by less than any screen shows.
const double Touching = 0.01;

bool isFree(const QRectF &name, const QVector<QRectF> &taken)
{
    const QRectF inner = name.adjusted(0., Touching, 0., -Touching);
    return std::none_of(taken.cbegin(), taken.cend(),
        [&inner](const QRectF &other) { return other.intersects(inner); });
}
} // namespace

QVector<double> spreadNames(const QVector<QRectF> &names, const QRectF &bounds)
{
    QVector<double> moves;
    moves.reserve(names.size());
    QVector<QRectF> placed;
    for (const QRectF &name : names) {
        const double reach = Reach * name.height();
        const QRectF reachable = name.adjusted(0., -reach, 0., reach);
        QVector<QRectF> near;
        QVector<double> ways{0.};
        for (const QRectF &other : qAsConst(placed)) {
            if (!other.intersects(reachable))
                continue;
            near.append(other);
            for (double way : {other.bottom() - name.top(), other.top() - name.bottom()}) {
                const QRectF moved = name.translated(0., way);
                if (std::abs(way) <= reach + Touching && moved.top() >= bounds.top() - Touching &&
                    moved.bottom() <= bounds.bottom() + Touching)
                    ways.append(way);
            }
        }
        std::stable_sort(ways.begin(), ways.end(),
            [](double one, double other) { return std::abs(one) < std::abs(other); });
        const auto way = std::find_if(ways.cbegin(), ways.cend(),
            [&](double each) { return isFree(name.translated(0., each), near); });
        moves.append(way == ways.cend() ? 0. : *way);
        if (way != ways.cend())
            placed.append(name.translated(0., *way));
    }
    return moves;
}

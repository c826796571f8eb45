#include "graphs/namespread.h"

namespace
{
/// In heights of a name: a name further away would seem another network's.
const double Reach = 2.;
/// Places are worked out, and miss a limit by less than any screen shows.
const double Touching = 0.01;

bool shareColumns(const QRectF &one, const QRectF &other)
{
    return one.left() < other.right() && other.left() < one.right();
}
} // namespace

QVector<std::optional<double>> spreadNames(const QVector<QRectF> &names, const QRectF &bounds)
{
    QVector<std::optional<double>> ways;
    ways.reserve(names.size());
    QVector<QRectF> placed;
    for (const QRectF &name : names) {
        // Below all that are stronger, also where there is a gap between two of them: a name's
        // height tells how strong its network is.
        double way = 0.;
        for (const QRectF &stronger : qAsConst(placed)) {
            if (shareColumns(name, stronger))
                way = qMax(way, stronger.bottom() - name.top());
        }
        const bool isTooFar = way > Reach * name.height() + Touching ||
                              (way > 0. && name.bottom() + way > bounds.bottom() + Touching);
        if (isTooFar) {
            ways.append(std::nullopt);
        } else {
            ways.append(way);
            placed.append(name.translated(0., way));
        }
    }
    return ways;
}

#ifndef AIRLUME_GRAPHS_NAMESPREAD_H
#define AIRLUME_GRAPHS_NAMESPREAD_H

#include <QRectF>
#include <QVector>
#include <optional>

/// How far to move each of `names`, the strongest network's first, down in the rectangles' unit, so
/// that no name covers another and none stands above a stronger one that it shares columns with:
/// 0 or as little as that takes. None for a name that would have to go further than two of its
/// heights, or out of `bounds`: it stays where it is, behind the others, and is in nobody's way.
/// Pure.
QVector<std::optional<double>> spreadNames(const QVector<QRectF> &names, const QRectF &bounds);

#endif

#ifndef AIRLUME_GRAPHS_NAMESPREAD_H
#define AIRLUME_GRAPHS_NAMESPREAD_H

#include <QRectF>
#include <QVector>

/// How far to move each of `names` up (negative) or down, in the rectangles' unit, so that it lies
/// on none before it. The first keeps its place; each further one goes as short a way as it can,
/// downwards if both are as short, and stays inside `bounds`. One that finds no place within two of
/// its heights stays where it is, and is then in nobody's way. Pure.
QVector<double> spreadNames(const QVector<QRectF> &names, const QRectF &bounds);

#endif

#include "fitreport.h"

#include "app/textroom.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QImage>
#include <QJsonArray>
#include <QPixmap>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>
#include <qwt_plot.h>

namespace
{
QJsonArray numbers(const QRect &rect)
{
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

QRect onScreen(const QWidget *widget)
{
    return QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
}

QJsonObject parts(const QWidget *window)
{
    QJsonObject found;
    for (const char *name : {"title", "minimize", "maximize", "restore", "close1"}) {
        const QWidget *part = window->findChild<QWidget *>(QLatin1String(name));
        if (part && part->isVisible())
            found.insert(QLatin1String(name), numbers(onScreen(part)));
    }
    return found;
}

/// Cells that do not show their whole text, but for names, which may be of any length.
QStringList cutCells(const QTreeView *list)
{
    QStringList found;
    const QAbstractItemModel *model = list->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 2; column < model->columnCount(); ++column) {
            const QString text = model->index(row, column).data().toString();
            if (list->fontMetrics().horizontalAdvance(text) > list->columnWidth(column) - 6)
                found.append(QStringLiteral("cell \"%1\"").arg(text));
        }
    }
    if (list->horizontalScrollBar()->isVisible())
        found.append(QStringLiteral("the list has to be scrolled sideways"));
    return found;
}

int darkPixels(const QwtPlot *graph, QScreen *screen)
{
    if (!graph->isVisible())
        return 0;
    const qreal scale = screen->devicePixelRatio();
    const QImage picture = screen->grabWindow(0).toImage();
    const QRectF canvas(onScreen(graph->canvas()));
    const QRect pixels = QRectF(canvas.topLeft() * scale, canvas.size() * scale).toAlignedRect();
    int dark = 0;
    for (int y = pixels.top() + 30; y <= pixels.bottom(); ++y) {
        for (int x = pixels.left() + 30; x <= pixels.right(); ++x) {
            const bool atEdge = x > pixels.right() - 3 || y > pixels.bottom() - 3;
            dark += atEdge && picture.valid(x, y) && qGray(picture.pixel(x, y)) < 100 ? 1 : 0;
        }
    }
    return dark;
}
} // namespace

QJsonObject FitReport(QWidget *window)
{
    QScreen *screen = QGuiApplication::primaryScreen();
    const QTreeView *list = window->findChild<QTreeView *>(QStringLiteral("treeView"));
    const QwtPlot *graph = window->findChild<QwtPlot *>(QStringLiteral("qwtPlot"));
    return {
        {QStringLiteral("scale"), screen->devicePixelRatio()},
        {QStringLiteral("screen"), numbers(screen->availableGeometry())},
        {QStringLiteral("window"), numbers(window->geometry())},
        {QStringLiteral("parts"), parts(window)},
        {QStringLiteral("cut"),
            QJsonArray::fromStringList(TextsWithoutRoom(window) + cutCells(list))},
        {QStringLiteral("dark"), darkPixels(graph, screen)},
    };
}

// The least that a Qt program with one Qwt graph can be: what Airlume's start, size and work are
// held against. With a number as its argument the graph has as many curves, drawn anew every 3 s.
// Qt sets up OpenGL for it, as it does by itself; not with "lean" as its argument.

#include "bench/baretimeplot.h"

#include <QApplication>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    if (argc > 1 && qstrcmp(argv[1], "lean") == 0)
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    QApplication application(argc, argv);

    QWidget window(nullptr, Qt::FramelessWindowHint);
    QTimer timer;
    const int curves = application.arguments().value(1).toInt();
    if (curves == 0) {
        (new QVBoxLayout(&window))->addWidget(new QwtPlot);
    } else {
        BareTimePlot *plot = new BareTimePlot(curves);
        (new QVBoxLayout(&window))->addWidget(plot);
        QObject::connect(&timer, &QTimer::timeout, plot, &BareTimePlot::step);
        timer.start(3000);
    }
    window.resize(1100, 700);
    window.show();
    return QApplication::exec();
}

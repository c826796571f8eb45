// The least that a Qt program with one Qwt graph can be: what Airlume's start and size are held
// against.

#include <QApplication>
#include <QVBoxLayout>
#include <QWidget>
#include <qwt_plot.h>

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);

    QWidget window(nullptr, Qt::FramelessWindowHint);
    (new QVBoxLayout(&window))->addWidget(new QwtPlot);
    window.resize(1100, 700);
    window.show();
    return QApplication::exec();
}

#include "app/airlume.h"
#include "app/airlumestyle.h"
#include "app/ipclocalserver.h"
#include "app/placement.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QIcon>
#include <QLocalSocket>
#include <QStyle>
#include <QTextCodec>

namespace
{
const QLatin1String ServerName("Airlume_LocalServer");
const int ProbeTimeoutMs = 200;
} // namespace

int main(int argc, char *argv[])
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setApplicationName(QStringLiteral("Airlume"));
    // By this name, packaging/airlume.desktop without its ending, Wayland finds the window's icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("airlume"));
    QApplication application(argc, argv);

    QLocalSocket probe;
    probe.connectToServer(ServerName, QIODevice::ReadWrite);
    if (probe.waitForConnected(ProbeTimeoutMs))
        return 0;
    // Where the first copy is too busy the probe tries on, and would find our own server.
    probe.close();

    QApplication::setStyle(new AirlumeStyle);
    // Not the desktop's palette: the style sheet's light grounds would meet a dark desktop's texts.
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/airlume.png")));
    Airlume window;
    window.show();
    window.move(CentredPosition(QApplication::desktop()->geometry(), window.geometry()));

    IpcLocalServer server(ServerName);
    QObject::connect(&server, SIGNAL(signalNewProcess()), &window, SLOT(slotNewProcess()));
    return QApplication::exec();
}

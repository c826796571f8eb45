#include "app/airlume.h"
#include "app/airlumestyle.h"
#include "app/ipclocalserver.h"
#include "app/placement.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QIcon>
#include <QLocalSocket>
#include <QLoggingCategory>
#include <QStyle>
#include <QTextCodec>

namespace
{
const QLatin1String ServerName("Airlume_LocalServer");
const int ProbeTimeoutMs = 200;

/// Nothing here is drawn by OpenGL. Qt sets it up all the same where it is not told, and its
/// drivers would need more memory than all the rest, and a third of the time to start.
void doWithoutOpenGl()
{
    for (const char *use : {"QT_XCB_GL_INTEGRATION", "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"}) {
        if (!qEnvironmentVariableIsSet(use))
            qputenv(use, "none");
    }
}

/// Shows the window past what Qt on Wayland has to say there: that it finds no OpenGL called
/// "none".
void show(QWidget &window)
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
    window.show();
    QLoggingCategory::setFilterRules(QString());
}
} // namespace

int main(int argc, char *argv[])
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    doWithoutOpenGl();
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
    show(window);
    window.move(CentredPosition(QApplication::desktop()->geometry(), window.geometry()));

    IpcLocalServer server(ServerName);
    QObject::connect(&server, SIGNAL(signalNewProcess()), &window, SLOT(slotNewProcess()));
    return QApplication::exec();
}

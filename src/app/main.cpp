#include "app/airlume.h"
#include "app/airlumestyle.h"
#include "app/ipclocalserver.h"
#include "app/placement.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QIcon>
#include <QLocalSocket>
#include <QLoggingCategory>
#include <QScreen>
#include <QStyle>
#include <QTextCodec>
#include <QVector>

#include <algorithm>
#include <memory>

namespace
{
const QLatin1String ServerName("Airlume_LocalServer");
const int ProbeTimeoutMs = 200;
const char ScaleVariable[] = "QT_SCALE_FACTOR";

/// Nothing here is drawn by OpenGL. Qt sets it up all the same where it is not told, and its
/// drivers would need more memory than all the rest, and a third of the time to start.
void doWithoutOpenGl()
{
    for (const char *use : {"QT_XCB_GL_INTEGRATION", "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"}) {
        if (!qEnvironmentVariableIsSet(use))
            qputenv(use, "none");
    }
}

/// The application object, which draws at the desktop's scale, or at another one that suits its
/// screen better. Whoever sets QT_SCALE_FACTOR has chosen, and where the system places windows it
/// scales them too. `argc` and `argv`: to live as long as it.
std::unique_ptr<QApplication> makeApplication(int &argc, char **argv)
{
    // Of 1.5 Qt would make 2, of 1.25 larger texts in a window of the old size.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QVector<char *> arguments(argv, argv + argc);
    auto application = std::make_unique<QApplication>(argc, argv);
    if (qEnvironmentVariableIsSet(ScaleVariable) ||
        SystemPlacesWindows(QGuiApplication::platformName()))
        return application;
    const QScreen *screen = QGuiApplication::primaryScreen();
    const qreal scale = screen->devicePixelRatio();
    const qreal drawn = DrawnScale(scale, screen->availableGeometry().size());
    if (drawn == scale)
        return application;
    // The scale is chosen together with the application object and cannot be changed later.
    application.reset();
    qputenv(ScaleVariable, QByteArray::number(FactorBetween(scale, drawn), 'g', 17));
    argc = arguments.size();
    std::copy(arguments.cbegin(), arguments.cend(), argv);
    return std::make_unique<QApplication>(argc, argv);
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
    const std::unique_ptr<QApplication> application = makeApplication(argc, argv);
    // By this name, packaging/airlume.desktop without its ending, Wayland finds the window's icon.
    QGuiApplication::setDesktopFileName(QStringLiteral("airlume"));

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

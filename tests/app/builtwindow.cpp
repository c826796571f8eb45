#include "app/builtwindow.h"

#include "app/airlumestyle.h"
#include "common/QtCommonTools.h"
#include "scan/signalnetworkscanthread.h"
#include "scan/signalscanthread.h"

#include <QApplication>
#include <QFile>

BuiltWindow::BuiltWindow(QStyle *style)
{
    QCoreApplication::setLibraryPaths({m_noPlugins.path()});
    QFile::remove(QCoreApplication::applicationDirPath() + QStringLiteral("/WifiHomeTest.ini"));
    QApplication::setStyle(style ? style : new AirlumeStyle);
    m_window.reset(new Airlume);
    // As on most screens; the one of the offscreen platform is too low.
    m_window->resize(1100, 700);
    m_window->show();
}

BuiltWindow::~BuiltWindow()
{
    if (!m_window)
        return;
    if (networkScanThread())
        networkScanThread()->requestInterruption();
    if (scanThread())
        scanThread()->requestInterruption();
}

SignalScanThread *BuiltWindow::scanThread() const
{
    return child<SignalScanThread>();
}

SignalNetworkScanThread *BuiltWindow::networkScanThread() const
{
    return child<SignalNetworkScanThread>();
}

void BuiltWindow::rest()
{
    networkScanThread()->requestInterruption();
    scanThread()->requestInterruption();
    networkScanThread()->wait();
    scanThread()->wait();
    QCoreApplication::processEvents();
}

void BuiltWindow::close()
{
    m_window.reset();
}

void BuiltWindow::speak(const char *code)
{
    QtCommonTools::GetLangNm() = QLatin1String(code);
    m_window->slotChangeLanguage();
}

#include "flows/airlumeprocess.h"
#include "flows/desktop.h"

#include <QFile>
#include <QLibraryInfo>
#include <QtTest>

Q_DECLARE_METATYPE(Desktop::Kind)

namespace
{
/// The files that a process has mapped.
QByteArray mappedFiles(qint64 processId)
{
    QFile maps(QStringLiteral("/proc/%1/maps").arg(processId));
    return maps.open(QIODevice::ReadOnly) ? maps.readAll() : QByteArray();
}

/// The folders of Qt's plug-ins that set OpenGL up.
bool namesOpenGl(const QByteArray &files)
{
    return files.contains("/xcbglintegrations/") ||
           files.contains("/wayland-graphics-integration-client/");
}
} // namespace

/// OpenGL's drivers are larger than the program, which draws nothing by them.
class TestOpenGl : public QObject
{
    Q_OBJECT

private slots:
    void isNotLoaded_data();
    void isNotLoaded();
    void isLoadedWhereTheUserAsksForIt();
};

void TestOpenGl::isNotLoaded_data()
{
    QTest::addColumn<Desktop::Kind>("kind");
    QTest::newRow("X11") << Desktop::X11;
    QTest::newRow("Wayland") << Desktop::Wayland;
}

void TestOpenGl::isNotLoaded()
{
    QFETCH(Desktop::Kind, kind);
    if (!Desktop::missing(kind).isEmpty())
        QSKIP(qPrintable(Desktop::missing(kind) + QStringLiteral(" is not installed")));
    Desktop desktop(kind, QSize(1400, 900));
    QVERIFY2(desktop.start(), qPrintable(desktop.output()));
    AirlumeProcess airlume{QString()};
    desktop.show(&airlume);
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    const QByteArray files = mappedFiles(airlume.processId());
    QVERIFY(files.contains("libQt5Gui"));
    QVERIFY2(!namesOpenGl(files), files.constData());
    QVERIFY2(!airlume.output().contains(QLatin1String("Failed")), qPrintable(airlume.output()));
}

void TestOpenGl::isLoadedWhereTheUserAsksForIt()
{
    if (!Desktop::missing(Desktop::X11).isEmpty())
        QSKIP(qPrintable(Desktop::missing(Desktop::X11) + QStringLiteral(" is not installed")));
    if (!QFile::exists(QLibraryInfo::location(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/xcbglintegrations/libqxcb-glx-integration.so")))
        QSKIP("Qt's plug-in for GLX is not installed");
    Desktop desktop(Desktop::X11, QSize(1400, 900));
    QVERIFY2(desktop.start(), qPrintable(desktop.output()));
    AirlumeProcess airlume{QString()};
    desktop.show(&airlume);
    airlume.setEnvironment(QStringLiteral("QT_XCB_GL_INTEGRATION"), QStringLiteral("xcb_glx"));
    QVERIFY2(airlume.start(), qPrintable(airlume.output()));
    QVERIFY(namesOpenGl(mappedFiles(airlume.processId())));
}

QTEST_GUILESS_MAIN(TestOpenGl)
#include "tst_opengl.moc"

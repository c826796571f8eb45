#ifndef AIRLUME_TOOLS_SCREENSHOTSPLUGIN_H
#define AIRLUME_TOOLS_SCREENSHOTSPLUGIN_H

#include <QGenericPlugin>

class QTabWidget;
class QWidget;

/// Takes the pictures of ./run --screenshots from inside the unchanged program.
///
/// Qt loads it where QT_QPA_GENERIC_PLUGINS names "airlumescreenshots". It ticks all networks,
/// waits AIRLUME_SCREENSHOTS_AFTER seconds, writes a PNG of the window for each tab into the folder
/// AIRLUME_SCREENSHOTS and ends the program, with status 1 when a picture could not be written.
/// Where AIRLUME_SCREENSHOTS_NETWORKS is set, only networks whose names begin so stay ticked.
class ScreenshotsPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "screenshots.json")

public:
    QObject *create(const QString &key, const QString &parameters) override;
};

/// Does the work of ScreenshotsPlugin, once the window is there. GUI thread.
class ScreenshotTaker : public QObject
{
    Q_OBJECT

public:
    explicit ScreenshotTaker(const QString &folder, int seconds);

private:
    void waitForRows();
    void showAllCurves();
    void take();
    bool save(const QString &name);

    QString m_folder;
    int m_seconds;
    QWidget *m_window = nullptr;
    QTabWidget *m_tabs = nullptr;
    int m_tab = 0;
};

#endif

#ifndef AIRLUME_TESTS_FLOWS_DRIVERPLUGIN_H
#define AIRLUME_TESTS_FLOWS_DRIVERPLUGIN_H

#include <QGenericPlugin>
#include <QJsonObject>
#include <QLocalServer>

class QWidget;

/// Looks into the unchanged program, and moves its mouse, for the tests that run it as a process.
/// Qt loads it where QT_QPA_GENERIC_PLUGINS names "airlumedriver".
class DriverPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "driver.json")

public:
    QObject *create(const QString &key, const QString &parameters) override;
};

/// Answers each line on the local socket AIRLUME_DRIVER with a line of JSON:
/// "state": what the window shows, long texts cut; "fit": what FitReport() says; "picture FILE":
/// saves a picture of the whole screen; "ping": nothing; "click NAME": clicks the middle
/// of that widget; "tab N": shows that tab; "tick ROW": clicks that row's check box; "sort COLUMN":
/// clicks that column's header; "room ROW": clicks that room; "type TEXT": types into the widget
/// with the focus; "dismiss": closes the dialog.
class Driver : public QObject
{
    Q_OBJECT

public:
    explicit Driver(const QString &socketPath);

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void serve(QLocalSocket *client);
    QJsonObject answer(const QString &line);
    QJsonObject state() const;
    static bool type(QWidget *widget, const QString &text);
    static bool click(QWidget *widget, const QPoint &position);

    QLocalServer m_server;
    int m_paints = 0; ///< Widgets painted so far.
};

#endif

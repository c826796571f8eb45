#ifndef AIRLUME_TESTS_APP_BUILTWINDOW_H
#define AIRLUME_TESTS_APP_BUILTWINDOW_H

#include <QScopedPointer>
#include <QString>
#include <QTemporaryDir>

#include "app/airlume.h"

class QStyle;
class SignalNetworkScanThread;
class SignalScanThread;

/// The program's window, built and shown without a back end, with a fresh room file. One in a
/// process: the gauge has no second life.
class BuiltWindow
{
public:
    /// `style`: the application's from now on; null: the program's own.
    explicit BuiltWindow(QStyle *style = nullptr);
    /// Deletes the window; the loops of its threads are told to end before, both at once.
    ~BuiltWindow();

    Airlume *get() const { return m_window.data(); }
    Airlume *operator->() const { return m_window.data(); }

    /// The one child of this class and name; null when there is none or more than one.
    template <class Object> Object *child(const char *name = "") const
    {
        const QString objectName = QLatin1String(name);
        const QList<Object *> found = objectName.isEmpty()
                                          ? m_window->findChildren<Object *>()
                                          : m_window->findChildren<Object *>(objectName);
        return found.size() == 1 ? found.first() : nullptr;
    }

    SignalScanThread *scanThread() const;
    SignalNetworkScanThread *networkScanThread() const;

    /// Ends the loops of both threads and waits until what they sent has arrived: from then on
    /// nothing happens by itself.
    void rest();
    /// Deletes the window while its threads run, as the end of the program does.
    void close();
    /// Sets the current language, and all labels in it.
    void speak(const char *code);

private:
    QTemporaryDir m_noPlugins;
    QScopedPointer<Airlume> m_window;
};

#endif

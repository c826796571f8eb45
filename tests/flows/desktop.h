#ifndef AIRLUME_TESTS_FLOWS_DESKTOP_H
#define AIRLUME_TESTS_FLOWS_DESKTOP_H

#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSize>
#include <QTemporaryDir>

class AirlumeProcess;

/// A desktop without a monitor, with a real mouse and keyboard, for programs started in it: an X
/// server, and for Wayland a compositor whose output is a window that fills this server's screen.
/// Ended by the destructor.
class Desktop
{
public:
    enum Kind { X11, Wayland };

    /// `size`: of the screen. `scale`: pixels for each of its units, which programs on Wayland hear
    /// of.
    explicit Desktop(Kind kind, const QSize &size, int scale = 1);
    ~Desktop();

    /// What is not installed here and would be needed; empty: nothing.
    static QString missing(Kind kind);

    /// Starts it and waits until programs can connect.
    bool start();
    /// Tells programs on X11 the desktop's dots per inch, as desktops do; before they start.
    bool setDpi(int dpi) const;
    /// Makes the program open its window here; before it starts.
    void show(AirlumeProcess *program) const;

    Kind kind() const { return m_kind; }
    /// The X server's name.
    QString display() const { return m_environment.value(QStringLiteral("DISPLAY")); }

    /// A hand at the mouse and the keyboard: the arguments of xdotool.
    bool hand(const QStringList &does);
    bool pointAt(const QPoint &place);

    /// What the servers have printed, for messages.
    QString output();

private:
    bool startServer();
    bool startCompositor();

    const Kind m_kind;
    const QSize m_pixels;
    const int m_scale;
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QProcess m_server;
    QProcess m_compositor;
};

#endif

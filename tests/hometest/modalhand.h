#ifndef AIRLUME_TESTS_HOMETEST_MODALHAND_H
#define AIRLUME_TESTS_HOMETEST_MODALHAND_H

#include <QElapsedTimer>
#include <QList>
#include <QTimer>

#include <functional>

class QWidget;

/// Acts on modal dialogs while the code under test waits in exec().
///
/// Each action gets the modal dialog that is up at its turn, once it has the keyboard. A dialog
/// that stays up when no action is left is closed after a while and counted.
class ModalHand : public QObject
{
public:
    using Action = std::function<void(QWidget *)>;

    ModalHand();

    /// Appends an action.
    void then(const Action &action) { m_actions.append(action); }
    /// Actions that never found a dialog.
    int left() const { return m_actions.size(); }
    /// Dialogs that nobody closed.
    int leftOpen() const { return m_leftOpen; }

    /// Presses a key as the window system would: it goes to the widget with the focus.
    static void press(QWidget *dialog, Qt::Key key);

private:
    void act();

    QTimer m_timer;
    QElapsedTimer m_idle;
    QList<Action> m_actions;
    int m_leftOpen = 0;
};

#endif

#include "hometest/modalhand.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>
#include <QtTest>

namespace
{
const int LookEveryMs = 5;
const int GiveUpAfterMs = 3000;
} // namespace

ModalHand::ModalHand()
{
    m_idle.start();
    connect(&m_timer, &QTimer::timeout, this, &ModalHand::act);
    m_timer.start(LookEveryMs);
}

void ModalHand::act()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible()) {
        m_idle.restart();
        return;
    }
    if (!m_actions.isEmpty()) {
        m_idle.restart();
        // Without a window system nobody activates a window that is shown again.
        QApplication::setActiveWindow(modal);
        m_actions.takeFirst()(modal);
    } else if (m_idle.hasExpired(GiveUpAfterMs)) {
        ++m_leftOpen;
        m_idle.restart();
        modal->close();
    }
}

void ModalHand::press(QWidget *dialog, Qt::Key key)
{
    QTest::keyClick(dialog->windowHandle(), key);
}

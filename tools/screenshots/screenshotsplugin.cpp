#include "screenshotsplugin.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QDebug>
#include <QDir>
#include <QPixmap>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>

namespace
{
/// How often to look whether the list has rows, and how often at most: an empty list is a picture
/// worth having too.
const int LookEveryMs = 250;
const int LooksAtMost = 40;
/// Time for a tab to be laid out and painted.
const int SettleMs = 700;

QWidget *findWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->objectName() == QLatin1String("Airlume") && window->isVisible())
            return window;
    }
    return nullptr;
}
} // namespace

QObject *ScreenshotsPlugin::create(const QString &, const QString &)
{
    return new ScreenshotTaker(qEnvironmentVariable("AIRLUME_SCREENSHOTS"),
        qEnvironmentVariableIntValue("AIRLUME_SCREENSHOTS_AFTER"));
}

ScreenshotTaker::ScreenshotTaker(const QString &folder, int seconds)
    : m_folder(folder)
    , m_seconds(seconds)
{
    waitForRows();
}

void ScreenshotTaker::waitForRows()
{
    // Counts up to the last look, then goes on with what is there.
    QTimer *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer, looks = 0]() mutable {
        m_window = findWindow();
        const QTreeView *list =
            m_window ? m_window->findChild<QTreeView *>(QStringLiteral("treeView")) : nullptr;
        if (!list || (list->model()->rowCount() == 0 && ++looks < LooksAtMost))
            return;
        timer->deleteLater();
        m_tabs = m_window->findChild<QTabWidget *>(QStringLiteral("tabWidget"));
        showAllCurves();
        QTimer::singleShot(m_seconds * 1000, this, &ScreenshotTaker::take);
    });
    timer->start(LookEveryMs);
}

/// Ticks, unticks and ticks all rows, as a hand would: rows that show ticked from the first scan on
/// have no curve before. Then unticks those that nobody wants to see.
void ScreenshotTaker::showAllCurves()
{
    QCheckBox *box = m_window->findChild<QCheckBox *>(QStringLiteral("SignalTreeView_pCheckAll"));
    for (int i = 0; box && i < 3; ++i)
        box->click();
    const QString only = qEnvironmentVariable("AIRLUME_SCREENSHOTS_NETWORKS");
    QAbstractItemModel *rows =
        m_window->findChild<QTreeView *>(QStringLiteral("treeView"))->model();
    for (int row = 0; row < rows->rowCount(); ++row) {
        if (!rows->index(row, 1).data().toString().startsWith(only))
            rows->setData(rows->index(row, 0), false);
    }
    // Out of the way: what lies under the mouse is painted differently.
    QCursor::setPos(m_window->mapToGlobal(QPoint(m_window->width() / 2, m_window->height() - 2)));
}

void ScreenshotTaker::take()
{
    if (!m_tabs || m_tab == m_tabs->count()) {
        QCoreApplication::quit();
        return;
    }
    m_tabs->setCurrentIndex(m_tab);
    QTimer::singleShot(SettleMs, this, [this] {
        static const char *const names[] = {
            "1-signal-graph", "2-channel-graph", "3-channel-interference", "4-home-testing"};
        const QString name =
            m_tab < 4 ? QString::fromLatin1(names[m_tab]) : QStringLiteral("tab-%1").arg(m_tab + 1);
        if (!save(name)) {
            QCoreApplication::exit(1);
            return;
        }
        ++m_tab;
        take();
    });
}

bool ScreenshotTaker::save(const QString &name)
{
    const QString path = QDir(m_folder).filePath(name + QStringLiteral(".png"));
    const bool saved = m_window->grab().save(path);
    if (saved)
        qInfo("%s", qPrintable(QDir::toNativeSeparators(path)));
    else
        qCritical("%s could not be written.", qPrintable(path));
    return saved;
}

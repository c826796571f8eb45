#ifndef AIRLUME_APP_AIRLUME_H
#define AIRLUME_APP_AIRLUME_H

#include <QPoint>
#include <QRect>
#include <QWidget>

class ChannelInterfaceWgt;
class QBoxLayout;
class QFrame;
class QGridLayout;
class QLabel;
class QPushButton;
class QStackedLayout;
class QTabWidget;
class Signal2GPlot;
class Signal5GPlot;
class SignalHomeTestingWgt;
class SignalNetworkScanThread;
class SignalScanThread;
class SignalStrengthDashboard;
class SignalTimePlot;
class SignalTreeView;

/// The program's window: builds every view, makes every connection between the worker threads and
/// the views, and runs the threads for as long as it lives. GUI thread only.
///
/// Frameless, with a title bar of its own. The constructor blocks for up to 1.1 s while a host
/// suite is asked for the language; the destructor waits for the threads, up to 7 s when the back
/// end answers at once.
class Airlume : public QWidget
{
    Q_OBJECT

public:
    explicit Airlume(QWidget *parent = nullptr);
    ~Airlume() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /// For a start button, which the window does not have: nothing sends it.
    void startScan();
    /// For a stop button, which the window does not have: nothing sends it.
    void stopScan();
    /// The window was maximised.
    void MaxWindow();
    /// The window was restored.
    void RestoreWindow();
    /// The window was maximised or restored.
    void signalUpdateWindowSize();

public slots:
    /// Shows `status` in the status line.
    void onStatusChange(QString status);
    /// Shows the joined network's name, or that there is none, under the gauge.
    void onNetworkReturned(QString ssid);
    /// Tells the views that no network is joined any more, although scans go on.
    void onNetworkLeft();
    /// A second copy was started and has ended: on purpose this one stays as it is.
    void slotNewProcess();
    /// For a start button, which the window does not have.
    void onStartBtnClicked();
    /// Ends the process at once with status 0: no destructors, no waiting for threads.
    void onBtnCloseClicked();
    /// Toggles between maximised and normal size.
    void onBtnRestoreClicked();
    void onBtnMinimizeClicked();
    /// Sets all labels in the current language.
    void slotChangeLanguage();
    /// Empties what the graphs have stored.
    void slotEmpty();

protected:
    void changeEvent(QEvent *event) override;
    /// The desktop asks the window to close: as its close button, ends the process at once.
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void loadBackEnd();
    bool buildLayout();
    QFrame *buildTitleBar();
    QPushButton *makeCaptionButton(const char *objectName, const char *accessibleName);
    bool buildListArea(QBoxLayout *column);
    bool buildTabs(QBoxLayout *column);
    void nameTabs();
    QFrame *buildStatusBar();
    void connectViews();
    void createThreads();
    void connectThreads();
    void applyStyleSheet();
    void dragTo(const QPoint &cursor);
    void limitSize(const QSize &largest);
    bool isMaximisedBySystem() const;
    void tellSize();
    void fitFonts();

    SignalTreeView *m_pTreeView = nullptr;
    QTabWidget *m_pTabWidget = nullptr;
    QFrame *m_pTitleFrame = nullptr;
    QFrame *m_pButtonFrame = nullptr;
    QFrame *m_pTreeFrame = nullptr;
    QFrame *m_pDialFrame = nullptr;
    QFrame *m_pBottomFrame = nullptr;
    QWidget *m_pTab1 = nullptr;
    QWidget *m_pTab2 = nullptr;
    SignalTimePlot *m_pTimePlot = nullptr;
    Signal2GPlot *m_p2GPlot = nullptr;
    Signal5GPlot *m_p5GPlot = nullptr;
    SignalScanThread *m_pScanThread = nullptr;
    SignalNetworkScanThread *m_pNetworkScanThread = nullptr;
    QLabel *m_pStatusLabel = nullptr;
    QLabel *m_pVersionLabel = nullptr;
    QLabel *m_pLogo = nullptr;
    QLabel *m_pConnectedLabel = nullptr;
    QPushButton *m_pMinimizeBtn = nullptr;
    QPushButton *m_pMaximizeBtn = nullptr;
    QPushButton *m_pRestoreBtn = nullptr;
    QPushButton *m_pCloseBtn = nullptr;
    QStackedLayout *m_pSizeButtons = nullptr;
    bool m_bDragging = false;
    bool m_bMaximized = false;
    QPoint m_dragOffset;    ///< From the frame's origin to the cursor, at press time.
    QRect m_normalGeometry; ///< Invalid until the window is first maximised.
    QString m_strConnected;
    SignalStrengthDashboard *m_pDashboard = nullptr;
    SignalHomeTestingWgt *m_pHomeTesting = nullptr;
    ChannelInterfaceWgt *m_pChannelInterface = nullptr;
};

#endif

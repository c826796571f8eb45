#ifndef AIRLUME_TESTS_APP_SAMPLEWINDOW_H
#define AIRLUME_TESTS_APP_SAMPLEWINDOW_H

#include <QWidget>

class QCheckBox;
class QFrame;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QTabWidget;
class QTreeView;
class QwtPlot;

/// A window with the object names and the kinds of widgets of the main window, but neither threads
/// nor data: something to put the style sheet on. Sixteen rows of networks, so that the list has a
/// scroll bar.
class SampleWindow : public QWidget
{
    Q_OBJECT
public:
    explicit SampleWindow(const QString &styleSheet);

    QFrame *title;
    QFrame *bottom;
    QLabel *logo;
    QLabel *status;
    QLabel *version;
    QLabel *connectedTo;
    QPushButton *minimize;
    QPushButton *maximize;
    QPushButton *restore;
    QPushButton *close1;
    QTreeView *list;
    QCheckBox *checkAll;
    QWidget *dial;
    QWidget *plotFrame;
    QTabWidget *tabs;
    QwtPlot *plot;
    QProgressBar *progress;
    QPushButton *enabled;
    QPushButton *disabled;
    QTableWidget *rooms;
    QLineEdit *edit;

private:
    void addTitle();
    void addList();
    void addTabs();
    void addBottom();
    QPushButton *addCaptionButton(QHBoxLayout *layout, const QString &name);
};

#endif

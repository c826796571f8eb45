#ifndef AIRLUME_NETLIST_SIGNALTREEVIEW_H
#define AIRLUME_NETLIST_SIGNALTREEVIEW_H

#include "netlist/checkboxitemdelegate.h"
#include "netlist/netmonitoritemdelegate.h"
#include "netlist/signalmode.h"

#include <QMap>
#include <QTreeView>

class MySortFilterProxyModel;
class QCheckBox;

/// The network list: sorted, with a check box in each row and one in the header that ticks all
/// rows. Empties itself while there is no interface. GUI thread only.
class SignalTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit SignalTreeView(QWidget *parent = nullptr);

    /// Unticks every ticked row.
    void CancelAll();
    /// Forgets all networks and removes all rows.
    void EmptyWifiPropertyMap();
    /// Sets the column widths and the indentation again.
    void retranslateUi();
    /// No network is joined any more, although scans go on: no row is bold, and all else stays.
    void NetworkLeft();

signals:
    /// The graphs are to show or hide the curve of `ssid`.
    void showCurve(int row, QString ssid, bool show);
    /// Scanning starts: the list forgets everything.
    void startScan();
    /// Scanning stops: ticking is frozen.
    void stopScan();
    /// The list has emptied itself.
    void signalEmpty();

public slots:
    /// Merges one scan result.
    void onDataReturned(QVector<WifiProperty> networks);
    /// Ticks the joined network when it changes, and shows it in bold; empties the list at the
    /// third empty name in a row.
    void onNetworkReturned(QString name);
    /// Empties the list and starts anew.
    void onStartScan();
    /// Ticks or unticks all rows, as the header's check box says.
    void slotCheckAll();
    /// Sets the header texts in the current language.
    void ChangeLanguage();

protected:
    /// As the base; Space and Select tick the current row whatever its current column.
    void keyPressEvent(QKeyEvent *event) override;
    /// Finds names, whatever the current column.
    void keyboardSearch(const QString &search) override;

private:
    void setUpHeader();
    void setUpCheckAll();
    void setTicked(int row, bool ticked);

    SignalMode m_model;
    CheckBoxItemDelegate m_checkDelegate;
    NetMonitorItemDelegate m_textDelegate;
    QMap<int, QString> m_rowMap;
    bool m_needUpdate = false;
    QCheckBox *m_pCheckAll = nullptr;
    MySortFilterProxyModel *m_proxy;
};

#endif

#ifndef AIRLUME_NETLIST_SIGNALMODE_H
#define AIRLUME_NETLIST_SIGNALMODE_H

#include "scan/wifiproperty.h"

#include <QList>
#include <QMap>
#include <QPersistentModelIndex>
#include <QSet>
#include <QStandardItemModel>

/// The networks of the list: one row an SSID, updated in place from scan to scan, pruned when not
/// seen for three scans, at most 15 rows. GUI thread only.
class SignalMode : public QStandardItemModel
{
    Q_OBJECT

public:
    enum Column {
        TickColumn,
        SsidColumn,
        SignalColumn,
        ChannelColumn,
        SecurityColumn,
        BssidColumn,
        ColumnCount
    };

    explicit SignalMode(QObject *parent = nullptr);

    /// Sets the header texts in the current language.
    void retranslateUi();
    /// Sets the texts again after a change of language.
    void ChangeLanguage();

    /// Merges one scan result.
    void updateData(QVector<WifiProperty> data);
    /// Drops the last row to make room for the joined network `name`. The model must have rows.
    void updateData(const QString &name);

    /// Shows the row of the network `ssid` in bold, also when it comes later, and no other. Empty:
    /// none is joined.
    void setJoined(const QString &ssid);

    /// Whether the row's network is ticked.
    bool isTicked(int row) const;
    /// SSID of the row.
    QString ssidAt(int row) const;

    /// Ticks or unticks a row (column 0; true or false) and tells the graphs. Everything else is
    /// left as it is. Always true.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /// As the base, with the tick as check state of column 0, whose picture is painted by a
    /// delegate, a bold font for the texts of the joined network, and texts for those who do not
    /// see the list: a cell of its own is understood, and a name stands for its row.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

    /// Forgets all networks and removes all rows.
    void EmptyWifiPropertyMap();

public slots:
    /// Forgets everything and thaws ticking.
    void onStartScan();
    /// Freezes ticking.
    void onStopScan();

signals:
    /// The graphs are to show or hide the curve of `ssid`.
    void showCurve(int row, QString ssid, bool show);

private:
    void fill(const QVector<WifiProperty> &data);
    void merge(const QVector<WifiProperty> &data);
    void prune();
    bool updateRow(const WifiProperty &network);
    void addRow(const WifiProperty &network);
    void setTick(const QModelIndex &index, bool ticked);
    bool isJoined(int row) const;
    QString spokenText(const QModelIndex &cell) const;
    QString spokenRow(int row) const;
    void tellFont(const QString &ssid);

    QMap<int, QString> m_rowSsidMap;
    bool m_stopped = false;
    QList<QPersistentModelIndex> m_checkedIndexes;
    QList<WifiProperty> m_rows; ///< spareB holds the row number.
    QSet<QString> m_seenSsids;
    int m_updateCount = 0;
    bool m_pendingConnected = false;
    QString m_connectedName;
    QString m_joined;
};

#endif

#include "netlist/signalmode.h"

#include "common/QtCommonTools.h"
#include "common/airtext.h"
#include "i18n/languagelabels.h"
#include "netlist/signalitems.h"

#include <QDebug>
#include <QFont>

#include <algorithm>

namespace
{
const int MaxRows = 15;
/// Updates between two prunings, the pruning one included.
const int PrunePeriod = 3;

WifiProperty sanitised(WifiProperty network)
{
    if (network.channel < 0 || network.channel > 65535)
        network.channel = 0;
    if (network.rssi < -100 || network.rssi > 0)
        network.rssi = 0;
    return network;
}
} // namespace

SignalMode::SignalMode(QObject *parent)
    : QStandardItemModel(parent)
{
    retranslateUi();
}

void SignalMode::retranslateUi()
{
    setHorizontalHeaderLabels({QString(), QtCommonTools::tr(LanguageLabels::m_strLangHeadSSID),
        QtCommonTools::tr(LanguageLabels::m_strLangHeadSignal),
        QtCommonTools::tr(LanguageLabels::m_strLangHeadChannel),
        QtCommonTools::tr(LanguageLabels::m_strLangHeadSecurity),
        QtCommonTools::tr(LanguageLabels::m_strLangHeadMac)});
    // Centred as the cells below them.
    for (int column : {SignalColumn, ChannelColumn, BssidColumn})
        horizontalHeaderItem(column)->setTextAlignment(Qt::AlignCenter);
    // The spoken texts have the header's words in them.
    if (rowCount() > 0) {
        emit dataChanged(index(0, TickColumn), index(rowCount() - 1, BssidColumn),
            {Qt::AccessibleTextRole, Qt::AccessibleDescriptionRole});
    }
}

void SignalMode::ChangeLanguage()
{
    retranslateUi();
}

void SignalMode::updateData(QVector<WifiProperty> data)
{
    ++m_updateCount;
    for (const WifiProperty &network : qAsConst(data))
        m_seenSsids.insert(network.ssid);

    if (m_rows.isEmpty())
        fill(data);
    else
        merge(data);
}

void SignalMode::fill(const QVector<WifiProperty> &data)
{
    // The rows of the first fill keep the text "ab" in column 0. It reads as true, so they show as
    // ticked, and on purpose no graph is told.
    for (const WifiProperty &network : data) {
        if (rowCount() >= MaxRows)
            return;
        m_rowSsidMap.insert(rowCount(), network.ssid);
        addRow(sanitised(network));
    }
}

void SignalMode::merge(const QVector<WifiProperty> &data)
{
    for (const WifiProperty &record : data) {
        const WifiProperty network = sanitised(record);
        if (m_updateCount == PrunePeriod)
            prune();
        if (updateRow(network))
            continue;
        // A full list ends the whole update on purpose: not even known networks later in the scan
        // are looked at.
        if (rowCount() >= MaxRows)
            return;
        addRow(network);
        // Past our own setData(): a newcomer starts unticked and the graphs are not told.
        QStandardItemModel::setData(index(rowCount() - 1, TickColumn), false, Qt::EditRole);
    }
}

/// Removes the rows of networks not seen since the last pruning.
void SignalMode::prune()
{
    int i = 0;
    while (i < m_rows.size()) {
        const WifiProperty network = m_rows.at(i);
        if (m_seenSsids.contains(network.ssid)) {
            ++i;
            continue;
        }
        const int row = network.spareB;
        if (isTicked(row))
            emit showCurve(0, network.ssid, false);
        removeRow(row);
        m_rows.removeAt(i);
        for (WifiProperty &other : m_rows) {
            if (other.spareB >= row)
                --other.spareB;
        }
    }
    m_updateCount = 0;
    m_seenSsids.clear();
}

/// Brings the row of a known network up to date; false when the network has no row.
bool SignalMode::updateRow(const WifiProperty &network)
{
    const auto known = std::find_if(m_rows.begin(), m_rows.end(),
        [&network](const WifiProperty &row) { return row.ssid == network.ssid; });
    if (known == m_rows.end())
        return false;

    const int row = known->spareB;
    *known = network;
    known->spareB = row;
    static_cast<RssiChannelItem *>(item(row, SignalColumn))->setValue(network.rssi);
    static_cast<RssiChannelItem *>(item(row, ChannelColumn))->setValue(network.channel);
    if (item(row, SecurityColumn)->text() != network.security)
        item(row, SecurityColumn)->setText(network.security);
    StringItem *bssid = static_cast<StringItem *>(item(row, BssidColumn));
    if (bssid->text() != network.bssid)
        bssid->setValue(network.bssid);
    return true;
}

void SignalMode::addRow(const WifiProperty &network)
{
    QStandardItem *tick = new QStandardItem(QStringLiteral("ab"));
    tick->setCheckable(true);
    tick->setCheckState(Qt::Unchecked);

    m_rows.append(network);
    m_rows.last().spareB = rowCount();
    appendRow({tick, new QStandardItem(network.ssid), new RssiChannelItem(network.rssi),
        new RssiChannelItem(network.channel), new QStandardItem(network.security),
        new StringItem(network.bssid)});
}

void SignalMode::updateData(const QString &name)
{
    const int row = rowCount() - 1;
    const QString ssid = ssidAt(row);
    if (isTicked(row))
        emit showCurve(0, ssid, false);
    removeRow(row);
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(),
                     [&ssid](const WifiProperty &network) { return network.ssid == ssid; }),
        m_rows.end());
    m_pendingConnected = true;
    m_connectedName = name;
}

void SignalMode::setJoined(const QString &ssid)
{
    if (ssid == m_joined)
        return;
    const QString before = m_joined;
    m_joined = ssid;
    tellFont(before);
    tellFont(ssid);
}

/// Hidden networks have no name, and neither has no network.
bool SignalMode::isJoined(int row) const
{
    return !m_joined.isEmpty() && ssidAt(row) == m_joined;
}

/// Tells the views that the row of the network `ssid`, if there is one, has another font.
void SignalMode::tellFont(const QString &ssid)
{
    for (int row = 0; !ssid.isEmpty() && row < rowCount(); ++row) {
        if (ssidAt(row) == ssid)
            emit dataChanged(index(row, SsidColumn), index(row, BssidColumn), {Qt::FontRole});
    }
}

bool SignalMode::isTicked(int row) const
{
    return QStandardItemModel::data(index(row, TickColumn), Qt::EditRole).toBool();
}

QString SignalMode::ssidAt(int row) const
{
    return QStandardItemModel::data(index(row, SsidColumn), Qt::EditRole).toString();
}

bool SignalMode::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (index.column() != TickColumn || m_stopped)
        return true;
    if (value == QVariant(false))
        setTick(index, false);
    else if (value == QVariant(true))
        setTick(index, true);
    else
        return true;
    QStandardItemModel::setData(index, value, role);
    return true;
}

void SignalMode::setTick(const QModelIndex &index, bool ticked)
{
    if (ticked) {
        // Indexes of removed rows would pile up otherwise.
        m_checkedIndexes.removeAll(QPersistentModelIndex());
        m_checkedIndexes.append(index);
    } else {
        m_checkedIndexes.removeAll(index);
    }
    const QString ssid = ssidAt(index.row());
    if (ssid.isEmpty())
        return;
    qDebug() << "ssid:" << ssid;
    emit showCurve(index.row(), ssid, ticked);
}

QVariant SignalMode::data(const QModelIndex &index, int role) const
{
    if (index.isValid() && index.column() == TickColumn) {
        if (role == Qt::CheckStateRole)
            return isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    } else if (role == Qt::FontRole && index.isValid() && isJoined(index.row())) {
        QFont font;
        font.setBold(true);
        return font;
    }
    if (role == Qt::AccessibleTextRole && index.isValid())
        return spokenText(index);
    if (role == Qt::AccessibleDescriptionRole && index.isValid() && index.column() <= SsidColumn)
        return spokenRow(index.row());
    return QStandardItemModel::data(index, role);
}

QString SignalMode::spokenText(const QModelIndex &cell) const
{
    QString text = cell.data().toString();
    switch (cell.column()) {
    case TickColumn:
    case SsidColumn:
        text = ssidAt(cell.row());
        // Whoever hides the name is known by the address.
        if (text.trimmed().isEmpty())
            text = cell.siblingAtColumn(BssidColumn).data().toString();
        break;
    case SignalColumn:
        text += QLatin1String(" dBm");
        break;
    case ChannelColumn:
        text.prepend(QtCommonTools::tr(LanguageLabels::m_strLangHeadChannel) + QLatin1Char(' '));
        break;
    default:
        break;
    }
    return AirText::ForDisplay(text);
}

/// What stands beside the name.
QString SignalMode::spokenRow(int row) const
{
    QStringList texts;
    for (int column : {SignalColumn, ChannelColumn, SecurityColumn}) {
        const QString text = spokenText(index(row, column));
        if (!text.isEmpty())
            texts.append(text);
    }
    return texts.join(QLatin1String(", "));
}

void SignalMode::EmptyWifiPropertyMap()
{
    m_updateCount = 0;
    m_seenSsids.clear();
    m_rows.clear();
    removeRows(0, rowCount());
}

void SignalMode::onStartScan()
{
    m_stopped = false;
    m_pendingConnected = false;
    m_updateCount = 0;
    m_seenSsids.clear();
    m_rows.clear();
    clear();
    retranslateUi();
}

void SignalMode::onStopScan()
{
    m_stopped = true;
}

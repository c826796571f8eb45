#include "netlist/signaltreeview.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "common/tableaccessible.h"
#include "common/tablecellaccessible.h"
#include "netlist/mysortfilterproxymodel.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QKeyEvent>

namespace
{
const int TickColumnWidth = 20;
const int SsidColumnWidth = 200;
/// Leaves room for what is bold: a hardware address beside the scroll bar, and the longest usual
/// security text.
const int ChannelColumnWidth = 80;
const int SecurityColumnWidth = 156;
const int HeaderHeight = 22;
const int CheckAllSide = 16;
/// Empty names in a row after the first before the list empties itself.
const int EmptyNameLimit = 2;

QAccessibleInterface *createAccessible(const QString &className, QObject *object)
{
    if (className == QLatin1String("SignalTreeView")) {
        auto *list = qobject_cast<SignalTreeView *>(object);
        return list ? new TableAccessible(list, list->header(), nullptr) : nullptr;
    }
    auto *box = qobject_cast<QCheckBox *>(object);
    if (box && box->parent() && qobject_cast<SignalTreeView *>(box->parent()->parent()))
        return new CellWidgetAccessible(box, QAccessible::CheckBox);
    return nullptr;
}
} // namespace

SignalTreeView::SignalTreeView(QWidget *parent)
    : QTreeView(parent)
    , m_proxy(new MySortFilterProxyModel(this))
{
    QAccessible::installFactory(createAccessible);
    QtCommonTools::SetFontSize(this, 11);
    m_proxy->setSourceModel(&m_model);
    setModel(m_proxy);
    setItemDelegate(&m_textDelegate);
    setItemDelegateForColumn(SignalMode::TickColumn, &m_checkDelegate);
    setSortingEnabled(true);
    sortByColumn(SignalMode::SsidColumn, Qt::AscendingOrder);
    setUpHeader();
    // A symbol from another font must not make its row higher than the others.
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    retranslateUi();

    connect(&m_model, SIGNAL(showCurve(int, QString, bool)), this,
        SIGNAL(showCurve(int, QString, bool)));
    connect(this, SIGNAL(startScan()), &m_model, SLOT(onStartScan()));
    connect(this, SIGNAL(stopScan()), &m_model, SLOT(onStopScan()));
    if (!m_pCheckAll) {
        AIRLUME_NULL_POINT();
        return;
    }
    setUpCheckAll();
    connect(m_pCheckAll, SIGNAL(clicked()), this, SLOT(slotCheckAll()));
}

void SignalTreeView::setUpHeader()
{
    m_pCheckAll = new QCheckBox(header());
    // Below the style's own minimum, which is wider than column 0.
    header()->setMinimumSectionSize(TickColumnWidth);
    header()->setStretchLastSection(true);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(SignalMode::TickColumn, QHeaderView::Fixed);
    header()->setSortIndicatorShown(false);
    header()->setStyleSheet(QStringLiteral("font-size: 12px"));
    header()->setFixedHeight(HeaderHeight);
}

void SignalTreeView::setUpCheckAll()
{
    m_pCheckAll->setObjectName(QStringLiteral("SignalTreeView_pCheckAll"));
    m_pCheckAll->setAccessibleName(QStringLiteral("Show all networks"));
    m_pCheckAll->setTristate(false);
    m_pCheckAll->setCheckState(Qt::Unchecked);
    m_pCheckAll->resize(CheckAllSide, CheckAllSide);
    m_pCheckAll->move(2, 3);
}

void SignalTreeView::retranslateUi()
{
    setColumnWidth(SignalMode::TickColumn, TickColumnWidth);
    setColumnWidth(SignalMode::SsidColumn, SsidColumnWidth);
    setColumnWidth(SignalMode::ChannelColumn, ChannelColumnWidth);
    setColumnWidth(SignalMode::SecurityColumn, SecurityColumnWidth);
    setIndentation(0);
}

void SignalTreeView::ChangeLanguage()
{
    m_model.retranslateUi();
}

void SignalTreeView::onDataReturned(QVector<WifiProperty> networks)
{
    m_rowMap.clear();
    m_model.updateData(networks);
    // Nothing notes rows to untick yet.
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (m_rowMap.contains(row))
            setTicked(row, false);
    }
}

void SignalTreeView::onNetworkReturned(QString name)
{
    // As old as the process, not as the list: the joined network is ticked once each time it
    // changes.
    static QString strOld;
    static bool bIsFirst = false;
    static int lCount = 0;
    static bool bIsNotConnect = false;

    m_model.setJoined(name);
    if (name != strOld) {
        bIsFirst = true;
        m_needUpdate = true;
        strOld = name;
    }
    if (!name.isEmpty()) {
        lCount = 0;
        bIsNotConnect = false;
        bool found = false;
        for (int row = 0; bIsFirst && !found && row < m_model.rowCount(); ++row) {
            found = m_model.ssidAt(row) == name;
            if (found && !m_model.isTicked(row)) {
                setTicked(row, true);
                bIsFirst = false;
            }
        }
        if (!found && m_needUpdate && bIsFirst && m_model.rowCount() > 0) {
            m_model.updateData(name);
            m_needUpdate = false;
        }
    } else if (!bIsNotConnect) {
        if (lCount == EmptyNameLimit) {
            bIsNotConnect = true;
            lCount = 0;
            CancelAll();
            EmptyWifiPropertyMap();
            emit signalEmpty();
        } else {
            ++lCount;
        }
    }
}

void SignalTreeView::NetworkLeft()
{
    m_model.setJoined(QString());
}

void SignalTreeView::onStartScan()
{
    emit startScan();
    retranslateUi();
}

void SignalTreeView::CancelAll()
{
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (m_model.isTicked(row))
            setTicked(row, false);
    }
}

void SignalTreeView::slotCheckAll()
{
    if (m_pCheckAll->checkState() != Qt::Checked) {
        CancelAll();
        return;
    }
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (!m_model.isTicked(row))
            setTicked(row, true);
    }
}

void SignalTreeView::keyPressEvent(QKeyEvent *event)
{
    // A click on a name makes its column the current one, where no delegate toggles anything.
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
        selectionModel()->setCurrentIndex(
            currentIndex().siblingAtColumn(SignalMode::TickColumn), QItemSelectionModel::NoUpdate);
    }
    QTreeView::keyPressEvent(event);
}

void SignalTreeView::keyboardSearch(const QString &search)
{
    // The base searches the current column, from the row after the current one.
    const QModelIndex before = currentIndex();
    const int row = before.isValid() ? before.row() : m_proxy->rowCount() - 1;
    const QModelIndex start = m_proxy->index(row, SignalMode::SsidColumn);
    {
        // Only a find is news.
        const QSignalBlocker silence(selectionModel());
        selectionModel()->setCurrentIndex(start, QItemSelectionModel::NoUpdate);
    }
    QTreeView::keyboardSearch(search);
    const bool foundLast = !before.isValid() && selectionModel()->isSelected(start);
    if (currentIndex() == start && before != start && !foundLast) {
        const QSignalBlocker silence(selectionModel());
        selectionModel()->setCurrentIndex(before, QItemSelectionModel::NoUpdate);
    }
}

void SignalTreeView::EmptyWifiPropertyMap()
{
    m_model.EmptyWifiPropertyMap();
}

void SignalTreeView::setTicked(int row, bool ticked)
{
    m_model.setData(m_model.index(row, SignalMode::TickColumn), ticked, Qt::EditRole);
}

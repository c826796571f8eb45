// Opens Airlume's window and prints once a second what it shows, as one line of JSON: the rows of
// the list in the form of scan maps (without the blanks at the end of repeated names, but for
// "name"), the curves of the graphs, the texts of all labels, and the first room's results. Tests
// that room each time while a network is joined.

#include "app/airlume.h"
#include "netlist/signaltreeview.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTextStream>
#include <QTimer>

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_text.h>

namespace
{
QJsonArray rowsOf(const QAbstractItemModel &model)
{
    QJsonArray rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        const auto text = [&model, row](
                              int column) { return model.index(row, column).data().toString(); };
        const QString shown = text(SignalMode::SsidColumn);
        QString name = shown;
        while (name.endsWith(QLatin1Char(' ')))
            name.chop(1);
        rows.append(QJsonObject{{QStringLiteral("ssid"), name}, {QStringLiteral("name"), shown},
            {QStringLiteral("bssid"), text(SignalMode::BssidColumn)},
            {QStringLiteral("channel"), text(SignalMode::ChannelColumn)},
            {QStringLiteral("security_mode"), text(SignalMode::SecurityColumn)},
            {QStringLiteral("WLAN_NETWORK_SIGNAL"), text(SignalMode::SignalColumn)}});
    }
    return rows;
}

/// Each curve with the graph it is in: its name, colour, and where its middle lies, which for a
/// triangle is the channel.
QJsonArray curvesOf(const QWidget &window)
{
    QJsonArray curves;
    const QList<QwtPlot *> plots = window.findChildren<QwtPlot *>();
    for (const QwtPlot *const plot : plots) {
        const QwtPlotItemList items = plot->itemList(QwtPlotItem::Rtti_PlotCurve);
        for (const QwtPlotItem *const item : items) {
            const auto *const curve = static_cast<const QwtPlotCurve *>(item);
            const int middle = static_cast<int>(curve->dataSize() / 2);
            curves.append(QJsonObject{
                {QStringLiteral("graph"), QLatin1String(plot->metaObject()->className())},
                {QStringLiteral("name"), curve->title().text()},
                {QStringLiteral("color"), curve->pen().color().name()},
                {QStringLiteral("middle"), curve->dataSize() ? curve->sample(middle).x() : 0}});
        }
    }
    return curves;
}

/// Text of the first room's cell, after another test of the room when a network is joined: without
/// one the test would end in a notice that waits for a hand.
QString testedRoom(const QWidget &window)
{
    auto *const rooms =
        window.findChild<QTableWidget *>(QStringLiteral("HomeTesting_TabWgt_Home_List"));
    const auto *const joined = window.findChild<QLabel *>(QStringLiteral("label_connectedto"));
    if (joined->text().startsWith(QLatin1String("Connected to "))) {
        emit rooms->cellClicked(0, 0);
        rooms->cellWidget(0, 1)->findChild<QPushButton *>()->click();
    }
    return rooms->item(0, 0)->text();
}

void print(const QWidget &window)
{
    const auto *const list = window.findChild<SignalTreeView *>();
    QJsonArray labels;
    const QList<QLabel *> children = window.findChildren<QLabel *>();
    for (const QLabel *const label : children)
        labels.append(label->text());
    const QJsonObject object{{QStringLiteral("data"), rowsOf(*list->model())},
        {QStringLiteral("curves"), curvesOf(window)}, {QStringLiteral("labels"), labels},
        {QStringLiteral("room"), testedRoom(window)}};
    QTextStream(stdout) << QJsonDocument(object).toJson(QJsonDocument::Compact) << Qt::endl;
}
} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    Airlume window;
    window.show();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &window, [&window] { print(window); });
    timer.start(1000);
    return QApplication::exec();
}

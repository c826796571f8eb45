#include "driverplugin.h"

#include "fitreport.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QKeyEvent>
#include <QLabel>
#include <QLocalSocket>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeView>
#include <qwt_plot.h>
#include <qwt_scale_draw.h>

namespace
{
QWidget *mainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->objectName() == QLatin1String("Airlume"))
            return window;
    }
    return nullptr;
}

template <typename Widget> Widget *child(const char *name)
{
    QWidget *window = mainWindow();
    return window ? window->findChild<Widget *>(QLatin1String(name)) : nullptr;
}

/// The widget of that name in the window or in the dialog before it, the visible one of several.
QWidget *namedWidget(const QString &name)
{
    for (QWidget *parent : {mainWindow(), QApplication::activeModalWidget()}) {
        const QList<QWidget *> found =
            parent ? parent->findChildren<QWidget *>(name) : QList<QWidget *>();
        for (QWidget *widget : found) {
            if (widget->isVisible())
                return widget;
        }
    }
    return nullptr;
}

/// Nobody compares more of a text, and texts from the air may have megabytes.
QString cut(const QString &text)
{
    return text.left(2000);
}

QJsonArray rows()
{
    QJsonArray found;
    const QTreeView *list = child<QTreeView>("treeView");
    for (int row = 0; list && row < list->model()->rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < list->model()->columnCount(); ++column) {
            const QVariant value = list->model()->index(row, column).data();
            cells.append(
                column == 0 ? QJsonValue(value.toBool()) : QJsonValue(cut(value.toString())));
        }
        found.append(cells);
    }
    return found;
}

/// Names of the list's bold rows.
QJsonArray boldRows()
{
    QJsonArray found;
    const QTreeView *list = child<QTreeView>("treeView");
    for (int row = 0; list && row < list->model()->rowCount(); ++row) {
        const QModelIndex name = list->model()->index(row, 1);
        if (name.data(Qt::FontRole).value<QFont>().bold())
            found.append(cut(name.data().toString()));
    }
    return found;
}

/// The gauge's value, as it is told to those who do not see it.
int gauge()
{
    QAccessibleInterface *gauge = QAccessible::queryAccessibleInterface(child<QWidget>("Dial"));
    QAccessibleValueInterface *value = gauge ? gauge->valueInterface() : nullptr;
    return value ? value->currentValue().toInt() : 1;
}

QJsonArray texts()
{
    QJsonArray found;
    const QTabWidget *tabs = child<QTabWidget>("tabWidget");
    for (int tab = 0; tabs && tab < tabs->count(); ++tab)
        found.append(tabs->tabText(tab));
    return found;
}

template <typename Widget> QJsonArray textsOf(const QWidget *parent)
{
    QJsonArray found;
    const QList<Widget *> widgets = parent ? parent->findChildren<Widget *>() : QList<Widget *>();
    for (const Widget *widget : widgets) {
        if (!widget->text().isEmpty())
            found.append(cut(widget->text()));
    }
    return found;
}

/// Without a window manager a dialog that is shown again is not activated.
QWidget *focusWidget()
{
    const QWidget *modal = QApplication::activeModalWidget();
    return modal ? modal->focusWidget() : QApplication::focusWidget();
}

QJsonArray headers()
{
    QJsonArray found;
    const QTreeView *list = child<QTreeView>("treeView");
    for (int column = 0; list && column < list->model()->columnCount(); ++column)
        found.append(list->model()->headerData(column, Qt::Horizontal).toString());
    return found;
}

QJsonArray rooms()
{
    QJsonArray found;
    const QTableWidget *table = child<QTableWidget>("HomeTesting_TabWgt_Home_List");
    for (int row = 0; table && row < table->rowCount(); ++row)
        found.append(table->item(row, 0)->text());
    return found;
}

/// The window's time graph: the clock times at the ends of its axis.
QJsonArray times()
{
    const QwtPlot *plot = child<QwtPlot>("qwtPlot");
    if (!plot)
        return {};
    const QwtScaleDiv &axis = plot->axisScaleDiv(QwtPlot::xBottom);
    const QwtScaleDraw *draw = plot->axisScaleDraw(QwtPlot::xBottom);
    return {draw->label(axis.lowerBound()).text(), draw->label(axis.upperBound()).text()};
}

QString labelText(const char *name)
{
    const QLabel *label = child<QLabel>(name);
    return label ? cut(label->text()) : QString();
}
} // namespace

QObject *DriverPlugin::create(const QString &, const QString &)
{
    return new Driver(qEnvironmentVariable("AIRLUME_DRIVER"));
}

Driver::Driver(const QString &socketPath)
{
    QCoreApplication::instance()->installEventFilter(this);
    connect(&m_server, &QLocalServer::newConnection, this,
        [this] { serve(m_server.nextPendingConnection()); });
    if (!m_server.listen(socketPath))
        qFatal("driver: %s", qPrintable(m_server.errorString()));
}

bool Driver::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Paint)
        ++m_paints;
    return false;
}

void Driver::serve(QLocalSocket *client)
{
    connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
    connect(client, &QLocalSocket::readyRead, this, [this, client] {
        while (client->canReadLine()) {
            const QString line = QString::fromUtf8(client->readLine()).trimmed();
            client->write(QJsonDocument(answer(line)).toJson(QJsonDocument::Compact) + '\n');
            client->flush();
        }
    });
}

QJsonObject Driver::answer(const QString &line)
{
    const QString verb = line.section(QLatin1Char(' '), 0, 0);
    const QString object = line.section(QLatin1Char(' '), 1);
    if (verb == QLatin1String("state"))
        return state();
    if (verb == QLatin1String("fit") && mainWindow())
        return FitReport(mainWindow());

    bool done = verb == QLatin1String("ping");
    if (verb == QLatin1String("click")) {
        QWidget *widget = namedWidget(object);
        done = widget && click(widget, widget->rect().center());
    } else if (verb == QLatin1String("tab")) {
        if (QTabWidget *tabs = child<QTabWidget>("tabWidget"))
            tabs->setCurrentIndex(object.toInt());
        done = true;
    } else if (verb == QLatin1String("room")) {
        QTableWidget *table = child<QTableWidget>("HomeTesting_TabWgt_Home_List");
        done = table && click(table->viewport(),
                            table->visualRect(table->model()->index(object.toInt(), 0)).center());
    } else if (verb == QLatin1String("sort")) {
        const QTreeView *list = child<QTreeView>("treeView");
        done = list && click(list->header()->viewport(),
                           QPoint(list->header()->sectionViewportPosition(object.toInt()) + 5,
                               list->header()->height() / 2));
    } else if (verb == QLatin1String("picture")) {
        done = QGuiApplication::primaryScreen()->grabWindow(0).save(object);
    } else if (verb == QLatin1String("dismiss")) {
        QWidget *dialog = QApplication::activeModalWidget();
        done = dialog && QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
    } else if (verb == QLatin1String("type")) {
        done = type(focusWidget(), object);
    } else if (verb == QLatin1String("tick")) {
        if (QTreeView *list = child<QTreeView>("treeView")) {
            const QModelIndex index = list->model()->index(object.toInt(), 0);
            list->scrollTo(index);
            done = click(list->viewport(), list->visualRect(index).center());
        }
    }
    return {{QStringLiteral("done"), done}};
}

QJsonObject Driver::state() const
{
    const QWidget *window = mainWindow();
    if (!window)
        return {{QStringLiteral("visible"), false}};
    const QWidget *focus = focusWidget();
    const QWidget *modal = QApplication::activeModalWidget();
    return {
        {QStringLiteral("visible"), window->isVisible()},
        {QStringLiteral("geometry"),
            QJsonArray{window->x(), window->y(), window->width(), window->height()}},
        {QStringLiteral("status"), labelText("statuslabel")},
        {QStringLiteral("connected"), labelText("label_connectedto")},
        {QStringLiteral("tabs"), texts()},
        {QStringLiteral("rows"), rows()},
        {QStringLiteral("bold"), boldRows()},
        {QStringLiteral("gauge"), gauge()},
        {QStringLiteral("window"), static_cast<qint64>(window->internalWinId())},
        {QStringLiteral("headers"), headers()},
        {QStringLiteral("rooms"), rooms()},
        {QStringLiteral("times"), times()},
        {QStringLiteral("paints"), m_paints},
        {QStringLiteral("labels"), textsOf<QLabel>(window)},
        {QStringLiteral("buttons"), textsOf<QPushButton>(window)},
        {QStringLiteral("focus"),
            focus ? QString::fromLatin1(focus->metaObject()->className()) : QString()},
        {QStringLiteral("modal"),
            modal ? QString::fromLatin1(modal->metaObject()->className()) : QString()},
    };
}

/// Types into the widget, which has the focus.
bool Driver::type(QWidget *widget, const QString &text)
{
    for (int i = 0; widget && i < text.size(); ++i)
        QCoreApplication::postEvent(
            widget, new QKeyEvent(QEvent::KeyPress, 0, Qt::NoModifier, text.mid(i, 1)));
    return widget;
}

/// Queued, so that the answer is sent before the click may end the process.
bool Driver::click(QWidget *widget, const QPoint &position)
{
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool pressed = type == QEvent::MouseButtonPress;
        QCoreApplication::postEvent(
            widget, new QMouseEvent(type, position, widget->mapToGlobal(position), Qt::LeftButton,
                        pressed ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
    }
    return true;
}

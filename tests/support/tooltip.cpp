#include "support/tooltip.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QToolTip>

QString ToolTipAt(QWidget *widget, const QPoint &place)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->inherits("QTipLabel"))
            delete window;
    }
    QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &event);
    const QString text = QToolTip::text();
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

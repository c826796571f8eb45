#include "app/textroom.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QStyleOption>
#include <QTabBar>
#include <QToolButton>

namespace
{
/// A word about a text that is larger than its room; empty when it is not.
QString shortage(const char *what, const QString &text, const QSize &needed, const QSize &room)
{
    if (needed.width() <= room.width() && needed.height() <= room.height())
        return {};
    return QStringLiteral("%1 \"%2\" needs %3 x %4, has %5 x %6")
        .arg(QLatin1String(what), text)
        .arg(needed.width())
        .arg(needed.height())
        .arg(room.width())
        .arg(room.height());
}

/// The ink of a text may come from a fallback font with other heights than the font asked for.
QSize extent(const QFont &font, const QString &text)
{
    const QFontMetrics metrics(font);
    return QSize(metrics.horizontalAdvance(text), metrics.tightBoundingRect(text).height());
}

QFont bold(QFont font)
{
    font.setBold(true);
    return font;
}

/// How much of the widget's rectangle lies within all widgets around it. What is scrolled out of
/// sight upwards or downwards is not cut off.
QSize uncovered(const QWidget *widget)
{
    QRect rect = widget->rect();
    bool scrolls = false;
    for (const QWidget *at = widget; !at->isWindow(); at = at->parentWidget()) {
        rect.translate(at->pos());
        QRect around = at->parentWidget()->rect();
        scrolls = scrolls || qobject_cast<const QScrollArea *>(at->parentWidget()->parentWidget());
        if (scrolls) {
            around.setTop(qMin(around.top(), rect.top()));
            around.setBottom(qMax(around.bottom(), rect.bottom()));
        }
        rect &= around;
    }
    return rect.size();
}

QString labelShortage(const QLabel *label)
{
    if (label->text().isEmpty())
        return {};
    QSize needed = label->sizeHint();
    // Labels that elide ask for no width of their own.
    if (label->textFormat() == Qt::PlainText && !label->wordWrap())
        needed = needed.expandedTo(extent(label->font(), label->text()));
    return shortage("label", label->text(), needed, label->contentsRect().size())
        .append(shortage("label in its surroundings", label->text(), needed, uncovered(label)));
}

QString buttonShortage(const QAbstractButton *button)
{
    if (button->text().isEmpty())
        return {};
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    const QRect room =
        button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
    return shortage("button", button->text(), extent(button->font(), button->text()), room.size())
        .append(shortage(
            "button in its surroundings", button->text(), button->size(), uncovered(button)));
}

QString tabShortage(const QTabBar *bar, int tab)
{
    QStyleOptionTab option;
    option.initFrom(bar);
    option.rect = bar->tabRect(tab);
    option.text = bar->tabText(tab);
    option.shape = bar->shape();
    const bool selected = tab == bar->currentIndex();
    option.state.setFlag(QStyle::State_Selected, selected);
    option.state.setFlag(QStyle::State_HasFocus, false);
    const QRect room = bar->style()->subElementRect(QStyle::SE_TabBarTabText, &option, bar);
    const QString text = option.text;
    const QFont font = selected ? bold(bar->font()) : bar->font();
    // Drawn in the middle, the line is cut where it is higher than its room.
    const QSize line(0, QFontMetrics(font).height());
    QString found = shortage(
        selected ? "selected tab" : "tab", text, extent(font, text).expandedTo(line), room.size());
    if (!bar->rect().contains(option.rect))
        found += QStringLiteral("tab \"%1\" lies outside the tab bar").arg(text);
    return found;
}

QString sectionShortage(const QHeaderView *header, int section)
{
    const QString text = header->model()->headerData(section, header->orientation()).toString();
    if (text.isEmpty())
        return {};
    QStyleOptionHeader option;
    option.initFrom(header);
    option.rect = QRect(header->sectionViewportPosition(section), 0, header->sectionSize(section),
        header->height());
    option.section = section;
    option.text = text;
    const QRect room = header->style()->subElementRect(QStyle::SE_HeaderLabel, &option, header) &
                       header->viewport()->rect();
    return shortage("header", text, extent(bold(header->font()), text), room.size());
}
} // namespace

QStringList TextsWithoutRoom(QWidget *window)
{
    QStringList found;
    const QWidgetList widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->window() != window || !widget->isVisible())
            continue;
        if (const QLabel *label = qobject_cast<const QLabel *>(widget)) {
            found.append(labelShortage(label));
        } else if (const QTabBar *bar = qobject_cast<const QTabBar *>(widget)) {
            for (int tab = 0; tab < bar->count(); ++tab)
                found.append(tabShortage(bar, tab));
            const QList<QToolButton *> arrows = bar->findChildren<QToolButton *>();
            for (const QToolButton *arrow : arrows) {
                if (arrow->isVisible())
                    found.append(QStringLiteral("the tab bar has to be scrolled"));
            }
        } else if (const QHeaderView *header = qobject_cast<const QHeaderView *>(widget)) {
            for (int section = 0; section < header->count(); ++section)
                found.append(sectionShortage(header, section));
        } else if (const QAbstractButton *button = qobject_cast<const QAbstractButton *>(widget)) {
            found.append(buttonShortage(button));
        }
    }
    found.removeAll(QString());
    return found;
}

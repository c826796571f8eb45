#ifndef AIRLUME_COMMON_AIRTEXT_H
#define AIRLUME_COMMON_AIRTEXT_H

#include <QString>
#include <QStringList>

/// Texts that strangers send through the air: SSIDs, BSSIDs, security texts.
namespace AirText
{

/// Characters of an over-long text that are shown.
const int MaxShown = 256;
/// Characters in a line of a tool tip.
const int ToolTipColumns = 60;

/// `text` as it can be shown in one line: control characters and line separators become visible
/// symbols (Unicode control pictures, U+2400), characters that override the direction of text
/// become U+FFFD, and what is longer than MaxShown characters ends in an ellipsis. Markup is left
/// alone: show the result as plain text only. Pure; any thread.
QString ForDisplay(const QString &text);

/// Rich text for a tool tip that shows exactly `lines`, each as ForDisplay() has it and broken
/// where it gets too wide for a screen. Tool tips guess whether they hold markup: escaped inside
/// markup of ours there is no guess. Pure; any thread.
QString ForToolTip(const QStringList &lines);

} // namespace AirText

#endif

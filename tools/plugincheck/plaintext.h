#ifndef AIRLUME_PLUGINCHECK_PLAINTEXT_H
#define AIRLUME_PLUGINCHECK_PLAINTEXT_H

#include <QByteArray>
#include <QString>

/// Text from strangers made safe for a terminal.
namespace PluginCheck
{

/// `text` with everything written out that a terminal would obey instead of show: control
/// characters as \xNN; bidirectional and other invisible formatting characters, line and paragraph
/// separators, private and unassigned characters and halves of surrogate pairs as \u{N...}.
/// Letters, marks and emoji of every script stay. A backslash stays as it is.
QString escaped(const QString &text);

/// The octets to write to a terminal: UTF-8, or where the terminal's character set is another one
/// ASCII with every other character as \u{N...}. Line feeds stay.
QByteArray terminalBytes(const QString &text, bool utf8);

/// True when the locale's character set is UTF-8. Needs the application object, which sets the
/// locale; QTextCodec would not do: it takes the plain C locale for UTF-8.
bool terminalIsUtf8();

} // namespace PluginCheck

#endif

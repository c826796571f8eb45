#ifndef AIRLUME_HOMETEST_ROOMTEXT_H
#define AIRLUME_HOMETEST_ROOMTEXT_H

#include <QString>

struct HomeTest_Value;

/// The arithmetic and the words of a room's cell. Pure functions; any thread.
namespace RoomText
{

/// Percent of a signal in dBm: -38 gives 62. 0 means "no signal" and stays 0. Nothing is clamped.
int PercentOf(int dBm);

/// The three lines of a room's cell: its name, the latest result and the one before.
QString CellText(const QString &room, const HomeTest_Value &value);

/// The room's name out of such a text: everything before the first line feed.
QString RoomOf(const QString &cellText);

} // namespace RoomText

#endif

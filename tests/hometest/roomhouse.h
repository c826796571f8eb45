#ifndef AIRLUME_TESTS_HOMETEST_ROOMHOUSE_H
#define AIRLUME_TESTS_HOMETEST_ROOMHOUSE_H

#include "hometest/hometestvalue.h"

#include <QMap>
#include <QStringList>

/// The room file of the test program and what is in it.
namespace RoomHouse
{

using Rooms = QMap<QString, HomeTest_Value>;

/// The file that QtCommonTools::Init() uses: it lies beside the test program.
QString file();

/// Releases the process-wide objects, puts `rooms` into the file and starts them again.
void restartWith(const Rooms &rooms);
/// The same without a file: a first start.
void restartWithoutFile();
/// The same with the file as it is: what a user sees at the next start.
void restart();

/// The rooms in a file, read afresh: not from what QSettings remembers of it.
Rooms roomsIn(const QString &file);
/// True when QSettings finds nothing wrong with the file.
bool isReadable(const QString &file);

/// Names that have broken other programs.
QStringList hostileNames();

/// `count` rooms, "Room 000" and up.
Rooms manyRooms(int count);

} // namespace RoomHouse

#endif

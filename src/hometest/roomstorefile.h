#ifndef AIRLUME_HOMETEST_ROOMSTOREFILE_H
#define AIRLUME_HOMETEST_ROOMSTOREFILE_H

#include <QString>

/// Where the room file lies, and what QSettings leaves undone for its safety. GUI thread.
namespace RoomStoreFile
{

/// Path of the room file: "WifiHomeTest.ini" in `programFolder` or, where that folder cannot be
/// written (an installed program), in `dataFolder`, which is created. On the first such start a
/// readable room file in `programFolder` is copied to `dataFolder`.
QString Locate(const QString &programFolder, const QString &dataFolder);

/// Removes the lock that a process left behind which died before it had written its name into it.
/// QSettings would wait 30 s for it, and the window with it.
void DropAbandonedLock(const QString &roomFile);

/// Makes the last replacement of the room file survive a loss of power: QSettings forces the new
/// content to disk, but not the folder entry that names it.
void SyncFolder(const QString &roomFile);

} // namespace RoomStoreFile

#endif

#include "hometest/roomstorefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace RoomStoreFile
{
namespace
{
const QLatin1String FileName("/WifiHomeTest.ini");
// The lock that QSettings itself takes while it writes.
const QLatin1String LockSuffix(".lock");
// A living process has its name in its lock well within this time, and holds it for less than the
// second one.
const int AbandonedAfterMs = 500;
const int PatienceMs = 2000;

// Copies the file whole or not at all; leaves an existing file alone.
void takeOver(const QString &from, const QString &to)
{
    QFile source(from);
    if (QFileInfo(from).isDir() || !source.open(QIODevice::ReadOnly))
        return;
    DropAbandonedLock(to);
    QLockFile lock(to + LockSuffix);
    if (!lock.tryLock(PatienceMs) || QFile::exists(to))
        return;
    const QByteArray content = source.readAll();
    if (source.error() != QFileDevice::NoError)
        return;
    QSaveFile target(to);
    if (target.open(QIODevice::WriteOnly) && target.write(content) == content.size() &&
        target.commit()) {
        SyncFolder(to);
    }
}
} // namespace

QString Locate(const QString &programFolder, const QString &dataFolder)
{
    const QString beside = programFolder + FileName;
    if (QFileInfo(programFolder).isWritable())
        return beside;
    const QString own = dataFolder + FileName;
    if (!QFile::exists(own) && QDir().mkpath(dataFolder))
        takeOver(beside, own);
    return own;
}

void DropAbandonedLock(const QString &roomFile)
{
    const QFileInfo file(roomFile + LockSuffix);
    if (!file.isFile() || file.size() > 0)
        return;
    QLockFile lock(file.filePath());
    lock.setStaleLockTime(AbandonedAfterMs);
    if (lock.tryLock(PatienceMs))
        lock.unlock();
}

void SyncFolder(const QString &roomFile)
{
#ifdef Q_OS_UNIX
    const QString folder = QFileInfo(roomFile).canonicalPath();
    const int fd = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    fsync(fd);
    close(fd);
#else
    Q_UNUSED(roomFile)
#endif
}

} // namespace RoomStoreFile

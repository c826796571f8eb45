#include "fuzz/require.h"
#include "hometest/hometestvalue.h"
#include "hometest/inifileoperate.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>

#include <fuzzer/FuzzedDataProvider.h>

namespace
{
const QLatin1Char Separator('/');
using Rooms = QMap<QString, HomeTest_Value>;
using Names = QSet<QString>;

/// Names that mean something to the file's format, or to no format at all.
const QString HostileNames[] = {
    QStringLiteral("Attic"),
    QStringLiteral("attic"),
    QStringLiteral("Attic/"),
    QStringLiteral("Attic/Box"),
    QStringLiteral("/"),
    QString(),
    QStringLiteral(" "),
    QStringLiteral("General"),
    QStringLiteral("%General"),
    QStringLiteral("%41"),
    QStringLiteral("%U0041"),
    QStringLiteral("]"),
    QStringLiteral("[a]"),
    QStringLiteral("a=b"),
    QStringLiteral("a\nb"),
    QStringLiteral(";a"),
    QStringLiteral("#a"),
    QStringLiteral("\"a\""),
    QStringLiteral("a\\b"),
    QStringLiteral("K\u00fcche"),
    QStringLiteral("\u5bb6 \U0001f3e0"),
    QString(QChar(0xd800)),
    QString(QChar(0)),
    QStringLiteral("NowPercent"),
    QStringLiteral("@Invalid()"),
};
const int NameCount = int(sizeof(HostileNames) / sizeof(*HostileNames));

/// A folder for as long as the process lives, and a file name in it that was never used before:
/// QSettings remembers the files it has read.
QTemporaryDir *folder = nullptr;

QString newPath()
{
    static quint64 count = 0;
    return folder->filePath(QStringLiteral("%1.ini").arg(++count));
}

QString chooseName(FuzzedDataProvider &choice, const Rooms &rooms)
{
    const int index = choice.ConsumeIntegralInRange(0, NameCount + 5);
    if (index < NameCount)
        return HostileNames[index];
    return rooms.isEmpty() ? HostileNames[0] : rooms.keys().at((index - NameCount) % rooms.size());
}

HomeTest_Value chooseValue(FuzzedDataProvider &choice)
{
    HomeTest_Value value;
    value.nowPercent = choice.ConsumeIntegralInRange(-2, 101);
    value.nowSpeed = choice.ConsumeIntegral<int>();
    value.lastPercent = -1;
    value.lastSpeed = value.nowPercent;
    return value;
}

/// One change of the file; `rooms` becomes what it should. Adds the room to those `written`.
void change(IniFileOperate &store, Rooms &rooms, Names &written, FuzzedDataProvider &choice)
{
    const int kind = choice.ConsumeIntegralInRange(0, 3);
    const QString name = chooseName(choice, rooms);
    const HomeTest_Value value = chooseValue(choice);
    Rooms expected = rooms;
    if (kind == 1 && !rooms.contains(name) && name.contains(Separator))
        return; // would write into the group of a room that it is not
    if (kind == 0) {
        expected[name] = value;
        written.insert(name);
        store.AddWifiHomeTestIni(rooms, name, value);
    } else if (kind == 1) {
        if (expected.contains(name))
            expected[name] = value;
        store.UpdateHomeValueToINI(rooms, name, value);
    } else if (kind == 2) {
        expected.remove(name);
        store.DelHomeValueFromINI(rooms, name);
    } else {
        const QString newName = chooseName(choice, rooms);
        const HomeTest_Value kept = expected.value(name);
        expected.remove(name);
        expected[newName] = kept;
        written.insert(newName);
        store.UpdateHomeNameToINI(rooms, name, newName);
    }
    require(rooms == expected);
}

/// The group that the format makes of a name: superfluous separators vanish, and all spellings of
/// "general" are one.
QString groupOf(const QString &name)
{
    const QString group = name.split(Separator, Qt::SkipEmptyParts).join(Separator);
    const QString general = QStringLiteral("General");
    return group.compare(general, Qt::CaseInsensitive) == 0 ? general : group;
}

/// Whether a room of this name has a group of its own that the loader finds again.
bool isFoundAgain(const QString &name, const Rooms &rooms)
{
    if (name.isEmpty() || name.contains(Separator) || groupOf(name) != name)
        return false;
    for (auto it = rooms.cbegin(); it != rooms.cend(); ++it) {
        if (it.key() != name && groupOf(it.key()) == name)
            return false;
    }
    return true;
}

/// The rooms that a file has more keys for than can be seen: the format reads a group that begins
/// with a separator, and finds it under its name only when the file has been written anew.
Names halfHidden(const QString &path)
{
    // Under another name, so that nobody else uses these settings.
    QString copy = newPath();
    Names names;
    if (!QFile::copy(path, copy))
        return names;
    const QStringList keys = QSettings(copy, QSettings::IniFormat).allKeys();
    for (const QString &key : keys) {
        if (key.startsWith(Separator))
            names.insert(key.section(Separator, 0, 0, QString::SectionSkipEmpty));
    }
    require(QFile::remove(copy));
    return names;
}

void checkFile(const QString &path, const Rooms &rooms, const Names &written, const Names &hidden)
{
    // Under another name, so that it is read from the disk.
    QString copy = newPath();
    if (!QFile::copy(path, copy))
        return;
    Rooms read;
    {
        IniFileOperate store(copy);
        store.GetWifiHomeTestIni(read);
    }
    for (auto it = rooms.cbegin(); it != rooms.cend(); ++it) {
        if (!isFoundAgain(it.key(), rooms) || hidden.contains(it.key()))
            continue;
        // A group of nothing that can be read may vanish from a file that is written anew.
        require(read.contains(it.key()) || !written.contains(it.key()));
        require(read.value(it.key()) == it.value());
    }
    require(QFile::remove(copy));
}
} // namespace

// In place of the C library's: whether the disk has really written is not tried here, and asking it
// takes most of the time.
extern "C" int fsync(int)
{
    return 0;
}
extern "C" int fdatasync(int)
{
    return 0;
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    new QCoreApplication(*argc, *argv);
    static QTemporaryDir own;
    folder = &own;
    require(folder->isValid());
    return 0;
}

/// Any octets as the room file; the last ones choose what is changed in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider choice(data, size);
    QString path = newPath();
    const int changes = choice.ConsumeIntegralInRange(0, 4);
    // Drawn from the end, so that the rest, from the start, is the file.
    std::vector<std::uint8_t> choices(64);
    for (std::uint8_t &octet : choices)
        octet = choice.ConsumeIntegral<std::uint8_t>();
    const std::string content = choice.ConsumeRemainingBytesAsString();
    {
        QFile file(path);
        require(file.open(QIODevice::WriteOnly));
        require(file.write(content.data(), qint64(content.size())) == qint64(content.size()));
    }
    const Names hidden = halfHidden(path);
    FuzzedDataProvider chosen(choices.data(), choices.size());
    Rooms rooms;
    Names written;
    {
        IniFileOperate store(path);
        store.GetWifiHomeTestIni(rooms);
        for (int i = 0; i < changes; ++i)
            change(store, rooms, written, chosen);
        checkFile(path, rooms, written, hidden);
    }
    checkFile(path, rooms, written, hidden);
    require(QFile::remove(path));
    // Neither a lock nor a half-written file is left.
    require(QDir(folder->path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    return 0;
}

#include "hometest/inifileoperate.h"

#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "hometest/hometestvalue.h"
#include "hometest/roomstorefile.h"
#include "i18n/languagelabels.h"

#include <QSettings>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace
{
const QLatin1Char Separator('/');

// The group that QSettings keeps a room in: it drops superfluous separators.
QString groupOf(const QString &room)
{
    return room.split(Separator, Qt::SkipEmptyParts).join(Separator);
}

// Cuts a key back to its prefix, the separator included.
void cutToPrefix(QString &key)
{
    key.truncate(key.lastIndexOf(Separator) + 1);
}

// A key of a room's group and the number it holds.
struct Field {
    const QString &key;
    int HomeTest_Value::*number;
};

// In the order in which they are read and written.
const Field Fields[] = {
    {LanguageLabels::m_strHomeTestININowPercent, &HomeTest_Value::nowPercent},
    {LanguageLabels::m_strHomeTestININowSpeed, &HomeTest_Value::nowSpeed},
    {LanguageLabels::m_strHomeTestINILastPercent, &HomeTest_Value::lastPercent},
    {LanguageLabels::m_strHomeTestINILastSpeed, &HomeTest_Value::lastSpeed},
};

// Whether removing the keys of `removed`, a group or the file's own keys, takes results of a room
// along whose group is `group`.
bool losesResults(const QString &group, const QString &removed)
{
    return std::any_of(std::begin(Fields), std::end(Fields), [&](const Field &field) {
        const QString key = group.isEmpty() ? field.key : group + Separator + field.key;
        // A key without a group takes the group of its own name along.
        return group == removed || key == removed ||
               (removed.isEmpty() && group.section(Separator, 0, 0) == field.key);
    });
}
} // namespace

/// Marks an operation that changes the file. The file is written once, when the outermost one ends,
/// so that a crash finds an operation either not begun or finished.
class IniFileOperate::Change
{
public:
    explicit Change(IniFileOperate &store)
        : m_store(store)
    {
        ++m_store.m_iOpenChanges;
    }
    ~Change()
    {
        if (--m_store.m_iOpenChanges == 0)
            m_store.SyncToDisk();
    }
    Change(const Change &) = delete;
    Change &operator=(const Change &) = delete;

private:
    IniFileOperate &m_store;
};

IniFileOperate::IniFileOperate(QString &path)
    : m_strPath(path)
{
    Init();
}

IniFileOperate::~IniFileOperate()
{
    delete m_pSettings;
}

void IniFileOperate::Init()
{
    if (!m_pSettings)
        m_pSettings = new QSettings(m_strPath, QSettings::IniFormat);
}

void IniFileOperate::GetWifiHomeTestIni(QMap<QString, HomeTest_Value> &rooms)
{
    if (!m_pSettings) {
        AIRLUME_NULL_POINT();
        return;
    }
    rooms.clear();
    HomeTest_Value value;
    const QStringList groups = m_pSettings->childGroups();
    for (const QString &room : groups) {
        QString key = room + Separator;
        for (const Field &field : Fields) {
            key += field.key;
            GetIntValue(key, value.*field.number);
            cutToPrefix(key);
        }
        rooms[room] = value;
    }
}

void IniFileOperate::GetIntValue(QString &key, int &value)
{
    if (!m_pSettings) {
        AIRLUME_NULL_POINT();
        return;
    }
    const QString text = m_pSettings->value(key).toString();
    value = text.isEmpty() ? -1 : text.toInt(nullptr, 10);
}

void IniFileOperate::SetIntValue(const QString &key, int value)
{
    if (!m_pSettings) {
        AIRLUME_NULL_POINT();
        return;
    }
    const Change change(*this);
    m_pSettings->setValue(key, value == -1 ? QString() : QString::number(value));
}

void IniFileOperate::SetIntValueToHomeTestINI(const QString &room, const HomeTest_Value &value)
{
    const Change change(*this);
    QString key = room + Separator;
    for (const Field &field : Fields) {
        key += field.key;
        SetIntValue(key, value.*field.number);
        cutToPrefix(key);
    }
}

void IniFileOperate::AddWifiHomeTestIni(
    QMap<QString, HomeTest_Value> &rooms, const QString &room, const HomeTest_Value &value)
{
    rooms[room] = value;
    SetIntValueToHomeTestINI(room, value);
}

void IniFileOperate::UpdateHomeValueToINI(
    QMap<QString, HomeTest_Value> &rooms, const QString &room, const HomeTest_Value &value)
{
    const auto found = rooms.find(room);
    if (found != rooms.end())
        found.value() = value;
    // Intended: an unknown room is written too, and shows up at the next full load.
    SetIntValueToHomeTestINI(room, value);
}

void IniFileOperate::UpdateHomeNameToINI(
    QMap<QString, HomeTest_Value> &rooms, const QString &oldName, const QString &newName)
{
    const Change change(*this);
    const HomeTest_Value value = rooms[oldName];
    DelHomeValueFromINI(rooms, oldName);
    rooms[newName] = value;
    SetIntValueToHomeTestINI(newName, value);
}

void IniFileOperate::DelHomeValueFromINI(QMap<QString, HomeTest_Value> &rooms, const QString &room)
{
    rooms.remove(room);
    if (!m_pSettings) {
        AIRLUME_NULL_POINT();
        return;
    }
    const Change change(*this);
    const QString group = groupOf(room);
    if (group.isEmpty()) {
        // A name of separators only: its keys have no group, and removing "no group" would remove
        // every room.
        for (const Field &field : Fields)
            m_pSettings->remove(field.key);
    } else {
        m_pSettings->remove(room);
    }
    // "Attic" and "Attic/" are two rooms in one group, and "Attic/NowSpeed" is a key of both: the
    // other rooms stay.
    for (auto it = rooms.cbegin(); it != rooms.cend(); ++it) {
        if (losesResults(groupOf(it.key()), group))
            SetIntValueToHomeTestINI(it.key(), it.value());
    }
}

void IniFileOperate::InitialHomeTestIni()
{
    {
        const Change change(*this);
        const HomeTest_Value noResult;
        const QString rooms[] = {
            QStringLiteral("Living Room"),
            QStringLiteral("Bedroom1"),
            QStringLiteral("Bedroom2"),
            QStringLiteral("Home Office"),
            QStringLiteral("Kitchen"),
        };
        for (const QString &room : rooms)
            SetIntValueToHomeTestINI(room, noResult);
    }
    GetWifiHomeTestIni(*QtCommonTools::GetHomeTestingIni());
}

void IniFileOperate::SyncToDisk()
{
    if (!m_pSettings)
        return;
    RoomStoreFile::DropAbandonedLock(m_strPath);
    m_pSettings->sync();
    RoomStoreFile::SyncFolder(m_strPath);
}

#ifndef AIRLUME_HOMETEST_INIFILEOPERATE_H
#define AIRLUME_HOMETEST_INIFILEOPERATE_H

#include <QMap>
#include <QString>

class QSettings;
struct HomeTest_Value;

/// Reads and writes the room file: one INI group per room, four keys each.
///
/// QSettings does all the formatting and parsing. Every operation that changes the file has brought
/// it to the disk, in one step, when it returns: the program may end at any moment. A file that
/// cannot be written is left as it is, without a word. GUI thread only.
class IniFileOperate
{
public:
    /// Opens the room file at `path`; it need not exist.
    explicit IniFileOperate(QString &path);
    ~IniFileOperate();
    IniFileOperate(const IniFileOperate &) = delete;
    IniFileOperate &operator=(const IniFileOperate &) = delete;

    /// Creates the settings object if there is none. Harmless when there is one.
    void Init();

    /// Empties `rooms` and fills it from the file.
    void GetWifiHomeTestIni(QMap<QString, HomeTest_Value> &rooms);
    /// Reads one key: -1 when it is missing or empty, 0 when it is no decimal integer.
    void GetIntValue(QString &key, int &value);
    /// Writes one key; -1 is written as an empty text.
    void SetIntValue(const QString &key, int value);
    /// Writes the four keys of a room.
    void SetIntValueToHomeTestINI(const QString &room, const HomeTest_Value &value);
    /// Puts a room into `rooms` (or replaces it there) and into the file.
    void AddWifiHomeTestIni(
        QMap<QString, HomeTest_Value> &rooms, const QString &room, const HomeTest_Value &value);
    /// Replaces a room's results; writes them even when `rooms` does not know the room.
    void UpdateHomeValueToINI(
        QMap<QString, HomeTest_Value> &rooms, const QString &room, const HomeTest_Value &value);
    /// Renames a room, which keeps its results. Whether the new name is free is the caller's
    /// affair.
    void UpdateHomeNameToINI(
        QMap<QString, HomeTest_Value> &rooms, const QString &oldName, const QString &newName);
    /// Removes a room from `rooms` and its whole group from the file.
    void DelHomeValueFromINI(QMap<QString, HomeTest_Value> &rooms, const QString &room);
    /// Writes the five rooms of a first start and loads QtCommonTools::GetHomeTestingIni().
    void InitialHomeTestIni();

protected:
    QSettings *m_pSettings = nullptr; ///< Owned.

private:
    class Change;

    void SyncToDisk();

    QString m_strPath;
    int m_iOpenChanges = 0;
};

#endif
